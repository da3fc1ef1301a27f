#include "main_window/screens/status_line.h"

#include "main_window/logic/status_text.h"
#include "platform/system/clock.h"
#include "platform/windows/mdi_frame.h"

#include <QTimer>

#include <filesystem>
#include <system_error>

namespace orbkl4 {

namespace {

/// Adds what the file system knows of the data file `path`.
void AskFileSystem(const std::filesystem::path& path, StatusFacts& facts) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (!error) facts.fileBytes = size;
    const auto space = std::filesystem::space(path.parent_path(), error);
    if (!error) facts.freeBytes = space.available;
}

}  // namespace

StatusLine::StatusLine(MdiFrame& frame) : QObject(&frame), frame_(frame) {
    constexpr int milliseconds = 250;
    auto* timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &StatusLine::Refresh);
    timer->start(milliseconds);
    Refresh();
}

void StatusLine::Refresh() {
    StatusFacts facts;
    if (SampleState.Running) {
        const auto frequency = static_cast<double>(PerformanceFrequency());
        const double seconds = static_cast<double>(PerformanceCounter()) / frequency;
        facts.samplesPerSecond = rate_(seconds, SampleState.Samples);
    } else {
        rate_.Clear();
    }
    if (SampleState.SaveActive) {
        AskFileSystem(QString::fromStdString(AppState.DataFileName).toStdU16String(), facts);
    }
    const StatusParts parts = StatusText(AppState, SampleState, facts);
    frame_.Foot(QString::fromStdString(parts.sensor), QString::fromStdString(parts.activity));
}

}  // namespace orbkl4

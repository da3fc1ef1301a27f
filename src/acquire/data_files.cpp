#include "acquire/data_files.h"

#include "acquire/logic/file_kinds.h"
#include "base/run_time_error.h"
#include "errors/trap.h"
#include "platform/system/file_channel.h"
#include "platform/system/folders.h"
#include "platform/windows/common_dialog.h"
#include "platform/windows/screen.h"
#include "state/app_state.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <string>

namespace orbkl4 {

namespace {

constexpr int overwritePrompt = 2;
constexpr int csvFilter = 3;

/// Closes the channel when what used it has ended, however: a failed print leaves it open.
class ChannelScope {
  public:
    ChannelScope() = default;
    ~ChannelScope() {
        if (opened_) Channel1().Close();
    }
    ChannelScope(const ChannelScope&) = delete;
    ChannelScope& operator=(const ChannelScope&) = delete;

    /// From now on the channel is this user's.
    void Opened() { opened_ = true; }

    /// The channel stays open.
    void Keep() { opened_ = false; }

  private:
    bool opened_ = false;
};

void AskForFile(CommonDialog& dialog) {
    dialog.CancelError(true);
    dialog.Flags(overwritePrompt);
    dialog.Filter(
        QStringLiteral("All Files (*.*)|*.*|Text Files(*.txt)|*.txt|CSV Files (*.csv)|*.csv"));
    dialog.FilterIndex(csvFilter);
    dialog.InitDir(DataFilesFolder());
    dialog.ShowSave();
}

/// The five lines of the head; a kind that there is none of has but four.
std::vector<std::string> HeadOfNow(std::string_view kind) {
    const QLocale locale = QLocale::system();
    const QDateTime now = QDateTime::currentDateTime();
    return FileHeader(kind, locale.toString(now.date(), QLocale::ShortFormat).toStdString(),
                      locale.toString(now.time(), QLocale::ShortFormat).toStdString());
}

void AppendRow(FileKind kind, Side side, std::string_view timeText) {
    ChannelScope channel;  // outlives the trap, so that the error handler finds it open
    TrapAs(generalModule, RowOf(kind).writer, [&] {
        const std::string& row = FileRow(kind, side, timeText);
        Channel1().OpenForAppend(AppState.DataFileName);
        channel.Opened();
        Channel1().Print(row);
        Channel1().Close();
    });
}

}  // namespace

void CreateDataFile(const Screen& screen, std::string_view kind) {
    ChannelScope channel;
    try {
        auto* dialog = screen.findChild<CommonDialog*>(QStringLiteral("CommonDialog1"));
        if (dialog == nullptr) return;
        AskForFile(*dialog);
        AppState.DataFileName = dialog->FileName().toStdString();
        const std::vector<std::string> head = HeadOfNow(kind);
        Channel1().OpenForOutput(AppState.DataFileName);
        channel.Opened();
        for (const std::string& line : head) Channel1().Print(line);
        const bool known =
            std::ranges::find(fileKinds, kind, &FileKindRow::text) != fileKinds.end();
        if (!known) channel.Keep();
    } catch (const RuntimeError&) {
        return;  // the view looks at the dialog's file name
    }
}

void WriteSensorBitsToFile(std::string_view timeText) {
    AppendRow(FileKind::SensorBits, Side::Gyro, timeText);
}

void WriteVectorsToFile(Side side, std::string_view timeText) {
    AppendRow(FileKind::Vectors, side, timeText);
}

void WriteQuaternionsToFile(Side side, std::string_view timeText) {
    AppendRow(FileKind::Quaternions, side, timeText);
}

void WriteMatrixToFile(Side side, std::string_view timeText) {
    AppendRow(FileKind::Matrix, side, timeText);
}

void WriteAnglesToFile(Side side, std::string_view timeText) {
    AppendRow(FileKind::Angles, side, timeText);
}

void WriteQuatVecsToFile(Side side, std::string_view timeText) {
    AppendRow(FileKind::QuatVecs, side, timeText);
}

void WriteAnglesAccRateVectorsToFile(std::string_view timeText) {
    AppendRow(FileKind::AnglesAccRateVector, Side::Gyro, timeText);
}

}  // namespace orbkl4

#include "acquire/data_files.h"

#include "base/run_time_error.h"
#include "errors/trap.h"
#include "platform/system/clock.h"
#include "platform/system/file_channel.h"
#include "platform/system/folders.h"
#include "platform/windows/common_dialog.h"
#include "platform/windows/screen.h"
#include "state/app_state.h"
#include "state/sample_state.h"

#include <algorithm>
#include <string>

namespace orbkl4 {

namespace {

constexpr int overwritePrompt = 2;
constexpr int csvFilter = 3;

/// Closes the channel at the end of a scope, also after a failed print, which leaves it open.
class ChannelScope {
  public:
    ChannelScope() = default;
    ~ChannelScope() {
        if (opened_) Channel1().Close();
    }
    ChannelScope(const ChannelScope&) = delete;
    ChannelScope& operator=(const ChannelScope&) = delete;

    /// The channel has been opened, and is to be closed.
    void Opened() { opened_ = true; }

    /// The channel is to stay open.
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

void NoteFailure(const RuntimeError& error) {
    SampleState.FailedFile = AppState.DataFileName;
    SampleState.FailureText = error.what();
}

}  // namespace

void CreateDataFile(const Screen& screen, std::string_view kind) {
    ChannelScope channel;
    try {
        auto* dialog = screen.findChild<CommonDialog*>(QStringLiteral("CommonDialog1"));
        if (dialog == nullptr) return;
        AskForFile(*dialog);
        AppState.DataFileName = dialog->FileName().toStdString();
        SampleState.RowsOfDataFile = 0;
        const std::vector<std::string> header =
            FileHeader(kind, AppState.VersionText, LocalDateText(), LocalTimeText());
        Channel1().OpenForOutput(AppState.DataFileName);
        channel.Opened();
        for (const std::string& line : header) Channel1().Print(line);
        const bool known =
            std::ranges::find(fileKinds, kind, &FileKindRow::text) != fileKinds.end();
        if (!known) channel.Keep();
    } catch (const RuntimeError& error) {
        if (error.Number() != ErrorNumber::DialogCancelled) NoteFailure(error);
        return;  // the view looks at the dialog's file name
    }
}

void RowWriter::operator()(Side side, std::string_view timeText) const {
    ChannelScope channel;  // outlives the trap, so that the error handler finds it open
    TrapAs(generalModule, RowOf(kind).writer, [&] {
        static std::string row;  // keeps its memory from sample to sample
        FormatFileRow(kind, side, SampleState, timeText, row);
        try {
            Channel1().OpenForAppend(AppState.DataFileName);
            channel.Opened();
            Channel1().Print(row);
        } catch (const RuntimeError& error) {
            NoteFailure(error);
            ++SampleState.LostRows;
            throw;
        }
        Channel1().Close();
        ++SampleState.RowsOfDataFile;
    });
}

}  // namespace orbkl4

#include "errors/error_handler.h"

#include "errors/logic/error_record.h"
#include "platform/system/clock.h"
#include "platform/system/end_process.h"
#include "platform/system/file_channel.h"
#include "platform/system/folders.h"
#include "platform/windows/boxes.h"

#include <exception>
#include <string>

namespace orbkl4 {

namespace {

/// Closes the channel also where a print on it fails, but not one that was open before.
void AppendToLog(const std::string& record) {
    FileChannel& channel = Channel1();
    channel.OpenForAppend((LogsFolder() + QStringLiteral("/error.log")).toStdString());
    try {
        channel.Print(recordRule);
        channel.Print(record);
        channel.Print(recordRule);
        channel.Print("");
    } catch (...) {
        channel.Close();
        throw;
    }
    channel.Close();
}

}  // namespace

void SimpleErrorHandler(int number, std::string_view source, std::string_view screen,
                        std::string_view description) {
    std::string record;
    try {
        record = ErrorRecordText({number, source, screen, description}, LocalTime());
        AppendToLog(record);
    } catch (const std::exception&) {
        ShowErrorMessage("The SimpleErrorHandler sub routine has errored!");
        return;
    }
    if (AskErrorRetryCancel(ErrorBoxText(record)) == Answer::Retry) return;
    ShowMessage("Application will terminate; correct error cause and run application again!");
    EndProcess();
}

}  // namespace orbkl4

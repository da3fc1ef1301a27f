#include "frame/start_up.h"

#include "acquire/logic/sample_state.h"
#include "base/arithmetic.h"
#include "base/number_text.h"
#include "base/run_time_error.h"
#include "frame/logic/app_state.h"
#include "frame/logic/program.h"
#include "frame/settings.h"
#include "frame/trap.h"
#include "platform/clock.h"
#include "platform/program_folder.h"

#include <QDir>

namespace orbkl4 {

namespace {

void MakeFolder(const QString& folder) {
    if (QDir(folder).exists() || QDir().mkdir(folder)) return;
    Raise(ErrorNumber::PathNotFound, "Path not found: " + folder.toStdString());
}

}  // namespace

void StartUp() {
    AppState.CounterFrequency = PerformanceFrequency();
    AppState.VersionText = VersionText();
    SampleState.WriteIntervalTicks = 0;
    SampleState.LastWrittenTicks = 0;
    AppState.CommPort = ToInt16(ToNumber(StoredCommPort()));
    AppState.CommSettings = StoredCommSettings();
    TestForFileFolders();
}

void TestForFileFolders() {
    TrapAs(generalModule, "TestForFileFolders", [] {
        MakeFolder(DataFilesFolder());
        MakeFolder(LogsFolder());
    });
}

}  // namespace orbkl4

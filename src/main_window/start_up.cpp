#include "main_window/start_up.h"

#include "base/arithmetic.h"
#include "base/number_text.h"
#include "base/program.h"
#include "base/run_time_error.h"
#include "errors/trap.h"
#include "link/stored_line.h"
#include "platform/system/clock.h"
#include "platform/system/folders.h"
#include "state/app_state.h"
#include "state/sample_state.h"

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

#include "main_window/start_up.h"

#include "base/arithmetic.h"
#include "base/number_text.h"
#include "base/program.h"
#include "errors/trap.h"
#include "link/stored_line.h"
#include "platform/system/clock.h"
#include "platform/system/folders.h"
#include "state/app_state.h"
#include "state/sample_state.h"

namespace orbkl4 {

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

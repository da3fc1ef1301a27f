#include "main_window/start_up.h"

#include "base/arithmetic.h"
#include "base/number_text.h"
#include "base/program.h"
#include "errors/trap.h"
#include "link/stored_line.h"
#include "platform/system/clock.h"
#include "platform/system/folders.h"
#include "settings/time_tick_table_file.h"
#include "state/app_state.h"
#include "state/sample_state.h"

#include <QFile>

namespace orbkl4 {

namespace {

/// Gives a new folder for logs the Time Tick Table of the installation, if there is one.
void CopyInstalledTable() {
    QFile::copy(InstalledFile(QStringLiteral("orb-kl4-workbench/TimeTickTable.txt")),
                TimeTickTablePath());
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
        MakeWorkFolder();
        MakeFolder(DataFilesFolder());
        if (MakeFolder(LogsFolder())) CopyInstalledTable();
    });
}

}  // namespace orbkl4

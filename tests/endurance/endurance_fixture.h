#pragma once

#include "endurance/row_check.h"
#include "platform/system/folders.h"
#include "support/box_answerer.h"
#include "support/file_dialog_answerer.h"
#include "support/screens/screen_fixture.h"
#include "support/wait.h"

#include <fstream>
#include <optional>
#include <string>
#include <unistd.h>

/// There only where the address sanitizer is.
extern "C" [[gnu::weak]] std::size_t __sanitizer_get_current_allocated_bytes();  // NOLINT: its name

namespace orbkl4::test {

inline constexpr double mebibyte = 1 << 20;

/// The number in the environment variable `name`, `otherwise` where there is none.
inline double NumberFromEnvironment(const char* name, double otherwise) {
    bool given = false;
    const double number = qEnvironmentVariable(name).toDouble(&given);
    return given ? number : otherwise;
}

/// The resident memory of `process`, an id or "self", in bytes; 0 once it has ended.
inline double ResidentBytes(const std::string& process) {
    double total = 0;
    double resident = 0;
    std::ifstream("/proc/" + process + "/statm") >> total >> resident;
    return resident * static_cast<double>(::sysconf(_SC_PAGESIZE));
}

/// The memory that the process holds, in bytes: what is resident, or, where a sanitizer keeps freed
/// memory back, what is allocated.
inline double MemoryInUse() {
    if (__sanitizer_get_current_allocated_bytes != nullptr)
        return static_cast<double>(__sanitizer_get_current_allocated_bytes());
    return ResidentBytes("self");
}

/// A view that samples for long, and an account of all that the sensor sends it.
class EnduranceTest : public ScreenTest {
  protected:
    EnduranceTest(const orbkl4sim::SimulatorOptions& options, double drop, double corrupt)
        : ScreenTest(options), ledger(drop, corrupt) {
        sensor.FilterReplies(ledger.Filter());
    }

    ~EnduranceTest() override { sensor.ClearReplies(); }  // the ledger ends before the sensor

    /// Turns saving on.
    void Save(const Screen& screen) {
        const FileDialogAnswerer hand({QStringLiteral("long.csv")});
        Click(screen, "mnuSave");
        rows.emplace((DataFilesFolder() + QStringLiteral("/long.csv")).toStdString());
    }

    /// Checks what has come since the last time. What is wrong with the rows, or an empty text.
    /// Where the machine stood still for more than a second, sampling starts afresh.
    std::string CheckRows(const Screen& screen) {
        for (const LedgerEntry& entry : ledger.Take()) rows->Expect(entry);
        if (!rows->Stalled()) return rows->Fault();
        ++stalls;
        Click(screen, "mnuSample");
        LetPass(100);  // so that what is still under way comes while nobody listens
        ledger.Take();
        rows->StartAfresh();
        Click(screen, "mnuSample");
        return {};
    }

    ReplyLedger ledger;
    BoxAnswerer boxes{{}, QMessageBox::Retry};
    std::optional<RowCheck> rows;  ///< while saving
    int stalls = 0;                ///< how often the machine stood still
};

}  // namespace orbkl4::test

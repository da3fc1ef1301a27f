#pragma once

#include "endurance/row_check.h"
#include "platform/program_folder.h"
#include "support/box_hand.h"
#include "support/file_dialog_hand.h"
#include "support/screens/screen_fixture.h"
#include "support/wait.h"

#include <functional>
#include <optional>

namespace orbkl4::test {

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
        const FileDialogHand hand({QStringLiteral("long.csv")});
        Click(screen, "mnuSave");
        rows.emplace(DataFile("long.csv"));
    }

    /// Gives `look` what has become of each reply since the last time, and checks the rows that
    /// have come. What is wrong with them, or an empty text. Where the machine stood still for more
    /// than a second, sampling starts afresh.
    std::string CheckRows(
        const Screen& screen, const std::function<void(const LedgerEntry&)>& look = [](auto&) {}) {
        for (const LedgerEntry& entry : ledger.Take()) {
            look(entry);
            rows->Expect(entry);
        }
        if (!rows->Stalled()) return rows->Fault();
        ++stalls;
        Click(screen, "mnuSample");
        LetPass(100);  // so that what is still under way comes while nobody listens
        ledger.Take();
        rows->StartAfresh();
        Click(screen, "mnuSample");
        return {};
    }

    /// The path of the data file `leaf`.
    static std::string DataFile(const char* leaf) {
        return DataFilesFolder().toStdString() + '/' + leaf;
    }

    ReplyLedger ledger;
    BoxHand boxes{{}, QMessageBox::Retry};
    std::optional<RowCheck> rows;  ///< while saving
    int stalls = 0;                ///< how often the machine stood still
};

inline constexpr double mebibyte = 1 << 20;

}  // namespace orbkl4::test

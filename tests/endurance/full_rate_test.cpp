#include "endurance/endurance_fixture.h"
#include "endurance/gauges.h"
#include "frame/logic/app_state.h"

#include <QEvent>

#include <algorithm>
#include <cstdio>
#include <map>

namespace orbkl4::test {

namespace {

using std::chrono::duration;

/// Counts how often a widget comes up.
class ShowCount : public QObject {
  public:
    explicit ShowCount(QWidget& widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Show) ++count;
        return false;
    }

    int count = 0;
};

/// Follows the ledger and checks that every silence is ended as it has to be.
class SilenceCheck {
  public:
    void Take(const LedgerEntry& entry) {
        ++fates[entry.fate];
        if (run_ > 0) CheckGap(duration<double>(entry.time - last_).count());
        run_ = entry.fate == Fate::Dropped ? run_ + 1 : 0;
        if (run_ == 1) ++silences;
        last_ = entry.time;
    }

    /// The next request doesn't follow upon the last one.
    void StartAfresh() { run_ = 0; }

    std::map<Fate, int> fates;
    int silences = 0;  ///< runs of replies dropped
    int restarts = 0;

  private:
    /// The watchdog waits until more than one whole second has passed since the last event, which
    /// it looks at once a second; as long as nothing comes it restarts again each second.
    void CheckGap(double seconds) {
        constexpr double late = 0.5;  // of a loaded machine
        ++restarts;
        EXPECT_GT(seconds, 0.99);
        EXPECT_LT(seconds, (run_ == 1 ? 3 : 1) + late);
    }

    std::chrono::steady_clock::time_point last_;
    int run_ = 0;  ///< replies dropped in a row, up to the last
};

orbkl4sim::SimulatorOptions FastSensor() {
    orbkl4sim::SimulatorOptions options;
    options.baud = 115200;
    options.record = false;
    return options;
}

class FullRate : public EnduranceTest {
  protected:
    FullRate() : EnduranceTest(FastSensor(), 0.01, 0.01) {
        AppState.CommSettings = "115200,n,8,1";
        // A calculation cycle of a ten-millionth of a second, so that the line alone holds it up.
        for (const int address : {238, 240, 242, 246}) sensor.SetWord(address, 1);
        sensor.PowerCycle();
    }

    /// Checks what has come since the last time. What is wrong, or an empty text.
    std::string Look(const Screen& screen) {
        const int before = stalls;
        const std::string fault =
            CheckRows(screen, [this](const LedgerEntry& entry) { silence.Take(entry); });
        if (stalls > before) silence.StartAfresh();
        return fault;
    }

    SilenceCheck silence;
};

}  // namespace

TEST_F(FullRate, EveryGoodReplyIsOneRowAndEverySilenceEnds) {
    const double minutes = NumberFromEnvironment("ORBKL4_ENDURANCE_MINUTES", 0.1);
    const auto tenth = static_cast<int>(minutes * 60'000 / 10);
    const Screen& screen = Open("SensorBits");
    const ShowCount warnings(Get<QWidget>(screen, "lblWarning"));
    Save(screen);
    Click(screen, "mnuSample");
    double warm = 0;
    double memory = 0;
    for (int part = 0; part < 10; ++part) {
        const QDeadlineTimer end(tenth);
        while (!end.hasExpired()) {
            LetPass(static_cast<int>(std::min<qint64>(end.remainingTime() + 1, 500)));
            ASSERT_EQ(Look(screen), "");
        }
        memory = MemoryInUse();
        if (part == 0) warm = memory;
    }
    Click(screen, "mnuSample");
    ASSERT_EQ(Look(screen), "");
    EXPECT_EQ(boxes.Count(), 0U);
    EXPECT_LE(rows->Owed(), 1U) << "all but a reply that came into the stop";
    if (stalls == 0) {
        EXPECT_EQ(rows->Rows() + rows->Owed(), static_cast<std::size_t>(silence.fates[Fate::Good]));
    }
    EXPECT_LE(stalls, 1 + minutes / 2);
    EXPECT_GT(rows->Rows(), 100U);
    EXPECT_NEAR(warnings.count, silence.silences, 1 + stalls) << "the stop may end a silence";
    EXPECT_LT(memory - warm, mebibyte);
    std::printf(
        "%.1f min: %zu rows, %d corrupt, %d dropped in %d silences, %d restarts, %d "
        "warnings, %d stalls; memory %.2f MiB, %+.3f MiB since the first tenth\n",
        minutes, rows->Rows(), silence.fates[Fate::Corrupt], silence.fates[Fate::Dropped],
        silence.silences, silence.restarts, warnings.count, stalls, memory / mebibyte,
        (memory - warm) / mebibyte);
}

}  // namespace orbkl4::test

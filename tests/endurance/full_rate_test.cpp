#include "endurance/endurance_fixture.h"
#include "state/app_state.h"

#include <algorithm>
#include <cstdio>

namespace orbkl4::test {

namespace {

class FullRate : public EnduranceTest {
  protected:
    FullRate() : EnduranceTest({.baud = 115200, .record = false}, 0.01, 0.01) {
        AppState.CommSettings = "115200,n,8,1";
        // A calculation cycle of a ten-millionth of a second, so that the line alone holds it up.
        for (const int address : {238, 240, 242, 246}) sensor.SetWord(address, 1);
        sensor.PowerCycle();
    }
};

}  // namespace

TEST_F(FullRate, EveryGoodReplyIsOneRowAndEverySilenceEnds) {
    const double minutes = NumberFromEnvironment("ORBKL4_ENDURANCE_MINUTES", 0.1);
    const auto tenth = static_cast<int>(minutes * 60'000 / 10);
    const Screen& screen = Open("SensorBits");
    Save(screen);
    Click(screen, "mnuSample");
    double warm = 0;
    double memory = 0;
    for (int part = 0; part < 10; ++part) {
        const QDeadlineTimer end(tenth);
        while (!end.hasExpired()) {
            LetPass(static_cast<int>(std::min<qint64>(end.remainingTime() + 1, 500)));
            ASSERT_EQ(CheckRows(screen), "");
        }
        memory = MemoryInUse();
        if (part == 0) warm = memory;
    }
    Click(screen, "mnuSample");
    ASSERT_EQ(CheckRows(screen), "");
    EXPECT_EQ(boxes.Count(), 0U);
    EXPECT_LE(rows->Owed(), 1U) << "all but a reply that came into the stop";
    EXPECT_LE(stalls, 1 + minutes / 2);
    EXPECT_GT(rows->Rows(), 100U);
    EXPECT_GT(rows->Restarts(), 0);
    EXPECT_LT(memory - warm, mebibyte);
    std::printf(
        "%.1f min: %zu rows, %d restarts, %d stalls; memory %.2f MiB, %+.3f MiB since the first "
        "tenth\n",
        minutes, rows->Rows(), rows->Restarts(), stalls, memory / mebibyte,
        (memory - warm) / mebibyte);
}

}  // namespace orbkl4::test

#include "datafiles/data_files.h"
#include "endurance/endurance_fixture.h"
#include "endurance/gauges.h"
#include "frame/logic/app_state.h"
#include "platform/mscomm.h"

#include <algorithm>
#include <cstdio>

namespace orbkl4::test {

namespace {

/// The most that the last tenth may take of what the first one took: other work of the machine
/// evens out in a long run only, and yet what grows with each sample shows in a short one.
double Flat(std::size_t count) {
    constexpr std::size_t isLong = 200'000;
    return count < isLong ? 3 : 1.5;
}

orbkl4sim::SimulatorOptions HastySensor() {
    orbkl4sim::SimulatorOptions options;
    options.paced = false;
    options.record = false;
    return options;
}

/// A sensor that replies at once, so that a million samples pass in minutes.
class ManySamples : public EnduranceTest {
  protected:
    ManySamples() : EnduranceTest(HastySensor(), 0, 0) {}

    /// Samples `screen` and calls `look` now and then until all samples have come, and checks that
    /// neither memory nor the time of the handler grows.
    template <typename Look>
    void Endure(const Screen& screen, const Look& look) {
        HandlerWatch watch(Get<MSComm>(screen, "MSComm1"), count);
        Click(screen, "mnuSample");
        double warm = 0;
        for (std::size_t done = 0; done < count && boxes.Count() == 0 && !HasFailure();) {
            const std::size_t next = std::min(done + count / 100, count);
            constexpr int milliseconds = 60'000;
            ASSERT_TRUE(WaitFor([&] { return watch.Count() >= next; }, milliseconds));
            done = next;
            look();
            if (done == count / 10) warm = MemoryInUse();
        }
        const double memory = MemoryInUse();
        Click(screen, "mnuSample");
        EXPECT_EQ(boxes.Count(), 0U);
        EXPECT_LE(stalls, 1 + count / 100'000);
        EXPECT_LT(memory - warm, mebibyte);
        const double first = MedianOf(watch.Times(), 0, count / 10);
        const double last = MedianOf(watch.Times(), count - count / 10, count / 10);
        EXPECT_LT(last / first, Flat(count));
        std::printf(
            "%zu samples: handler %.1f us, %.1f us in the last tenth (x %.3f); memory %.2f "
            "MiB, %+.3f MiB since the first tenth\n",
            count, first, last, last / first, memory / mebibyte, (memory - warm) / mebibyte);
    }

    /// The median time of a row in the file at `path`, and of one in a file that is empty at first,
    /// in turn, in microseconds.
    static std::pair<double, double> RowTimes(const std::string& path, const std::string& empty) {
        constexpr std::size_t rows = 2000;
        std::vector<float> times[2];
        for (std::size_t row = 0; row < 2 * rows; ++row) {
            AppState.DataFileName = row % 2 == 0 ? path : empty;
            const auto start = std::chrono::steady_clock::now();
            WriteSensorBitsToFile(".25");
            const std::chrono::duration<float, std::micro> time =
                std::chrono::steady_clock::now() - start;
            times[row % 2].push_back(time.count());
        }
        return {MedianOf(times[0], 0, rows), MedianOf(times[1], 0, rows)};
    }

    const std::size_t count =
        static_cast<std::size_t>(NumberFromEnvironment("ORBKL4_ENDURANCE_SAMPLES", 10000));
};

}  // namespace

TEST_F(ManySamples, SavingCostsTheSameAtTheEndAsAtTheStart) {
    const Screen& screen = Open("SensorBits");
    Save(screen);
    Endure(screen, [&] { ASSERT_EQ(CheckRows(screen), ""); });
    EXPECT_EQ(CheckRows(screen), "");
    EXPECT_LE(rows->Owed(), 1U);
    if (stalls == 0) {
        EXPECT_GE(rows->Rows(), count);
    }
    const auto [grown, fresh] = RowTimes(DataFile("long.csv"), DataFile("fresh.csv"));
    EXPECT_LT(grown / fresh, Flat(count));
    std::printf("%zu rows right; a row more %.2f us, in a fresh file %.2f us (x %.3f)\n",
                rows->Rows(), grown, fresh, grown / fresh);
}

TEST_F(ManySamples, TheGraphOfTheSelfTestKeepsItsWindow) {
    const Screen& screen = Open("SelfTest");
    const QObject& graph = Get<QObject>(screen, "CWGraph1");
    constexpr int window = 200;
    Endure(screen, [&] {
        const int reads = graph.property("readCount").toInt();
        EXPECT_GT(reads, 0);
        EXPECT_EQ(graph.property("pointCount").toInt(), std::min(reads, window));
        ledger.Take();
    });
}

}  // namespace orbkl4::test

#include "endurance/endurance_fixture.h"
#include "platform/events/mscomm.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace orbkl4::test {

namespace {

/// Takes the time from a port's bytes being readable to the end of the handler of its `OnComm`,
/// which is when the next request has been handed over.
class HandlerWatch : public QObject {
  public:
    /// Watches `port`; room for `most` times is taken at once, so that the watch itself doesn't
    /// grow.
    HandlerWatch(MSComm& port, std::size_t most) : times_(most) {
        QCoreApplication::instance()->installEventFilter(this);
        connect(&port, &MSComm::OnComm, this, [this] {  // after the screen's handler
            const std::chrono::duration<float, std::micro> time = Clock::now() - start_;
            if (count_ < times_.size()) times_[count_] = time.count();
            ++count_;
        });
    }

    std::size_t Count() const { return count_; }

    /// The median in microseconds of the times from `first` on, `count` of them.
    float Median(std::size_t first, std::size_t count) const {
        const auto begin = times_.begin() + static_cast<std::ptrdiff_t>(first);
        std::vector<float> part(begin, begin + static_cast<std::ptrdiff_t>(count));
        const auto middle = part.begin() + static_cast<std::ptrdiff_t>(count / 2);
        std::ranges::nth_element(part, middle);
        return *middle;
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::SockAct) start_ = Clock::now();
        return false;
    }

  private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point start_ = Clock::now();
    std::size_t count_ = 0;
    std::vector<float> times_;
};

/// The most that the last tenth may take of what the first one took: other work of the machine
/// evens out in a long run only, and yet what grows with each sample shows in a short one.
double Flat(std::size_t count) {
    constexpr std::size_t isLong = 200'000;
    return count < isLong ? 3 : 1.5;
}

/// A sensor that replies at once, so that a million samples pass in minutes.
class ManySamples : public EnduranceTest {
  protected:
    ManySamples() : EnduranceTest({.paced = false, .record = false}, 0, 0) {}

    /// Samples `screen` and calls `look` now and then until all samples have come, and checks that
    /// neither memory nor the time of the handler grows.
    void Endure(const Screen& screen, const std::function<void()>& look) {
        const HandlerWatch watch(Get<MSComm>(screen, "MSComm1"), count);
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
        const double first = watch.Median(0, count / 10);
        const double last = watch.Median(count - count / 10, count / 10);
        EXPECT_LT(last / first, Flat(count));
        std::printf(
            "%zu samples: handler %.1f us, %.1f us in the last tenth (x %.3f); memory %.2f MiB, "
            "%+.3f MiB since the first tenth\n",
            count, first, last, last / first, memory / mebibyte, (memory - warm) / mebibyte);
    }

    const std::size_t count =
        static_cast<std::size_t>(NumberFromEnvironment("ORBKL4_ENDURANCE_SAMPLES", 10000));
};

}  // namespace

TEST_F(ManySamples, SavingCostsTheSameAtTheEndAsAtTheStart) {
    const Screen& screen = Open("SensorBits");
    Save(screen);
    Endure(screen, [&] { EXPECT_EQ(CheckRows(screen), ""); });
    EXPECT_EQ(CheckRows(screen), "");
    EXPECT_LE(rows->Owed(), 1U);
    if (stalls == 0) {
        EXPECT_GE(rows->Rows(), count);
    }
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

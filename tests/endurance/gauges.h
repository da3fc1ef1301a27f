#pragma once

#include <QObject>

#include <chrono>
#include <cstddef>
#include <vector>

namespace orbkl4 {
class MSComm;
}

namespace orbkl4::test {

/// The number in the environment variable `name`, `otherwise` where there is none.
double NumberFromEnvironment(const char* name, double otherwise);

/// The memory that the process holds, in bytes: what is resident, or, where a sanitizer keeps freed
/// memory back, what is allocated.
double MemoryInUse();

/// The median of `times` from index `first` on, `count` of them.
double MedianOf(const std::vector<float>& times, std::size_t first, std::size_t count);

/// Takes the time from a port's bytes being readable to the end of the handler of its `OnComm`,
/// which is when the next request has been handed over.
class HandlerWatch : public QObject {
  public:
    /// Watches `port`; room for `most` times is taken at once, so that the watch itself doesn't
    /// grow.
    HandlerWatch(MSComm& port, std::size_t most);

    /// The number of replies handled so far.
    std::size_t Count() const { return count_; }

    /// The times in microseconds, `Count()` of them.
    const std::vector<float>& Times() const { return times_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    using Clock = std::chrono::steady_clock;

    void Handled();

    Clock::time_point start_ = Clock::now();
    std::size_t count_ = 0;
    std::vector<float> times_;
};

}  // namespace orbkl4::test

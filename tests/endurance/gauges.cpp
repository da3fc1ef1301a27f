#include "endurance/gauges.h"

#include "platform/mscomm.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <fstream>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#define UNDER_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define UNDER_ADDRESS_SANITIZER
#endif
#endif

#ifdef UNDER_ADDRESS_SANITIZER
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // NOLINT: the sanitizer's name
#endif

namespace orbkl4::test {

double NumberFromEnvironment(const char* name, double otherwise) {
    bool given = false;
    const double number = qEnvironmentVariable(name).toDouble(&given);
    return given ? number : otherwise;
}

double MemoryInUse() {
#ifdef UNDER_ADDRESS_SANITIZER
    return static_cast<double>(__sanitizer_get_current_allocated_bytes());
#else
    double total = 0;
    double resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * static_cast<double>(::sysconf(_SC_PAGESIZE));
#endif
}

double MedianOf(const std::vector<float>& times, std::size_t first, std::size_t count) {
    const auto begin = times.begin() + static_cast<std::ptrdiff_t>(first);
    std::vector<float> part(begin, begin + static_cast<std::ptrdiff_t>(count));
    const auto middle = part.begin() + static_cast<std::ptrdiff_t>(count / 2);
    std::ranges::nth_element(part, middle);
    return *middle;
}

HandlerWatch::HandlerWatch(MSComm& port, std::size_t most) : times_(most) {
    QCoreApplication::instance()->installEventFilter(this);
    connect(&port, &MSComm::OnComm, this, &HandlerWatch::Handled);  // behind the screen's handler
}

bool HandlerWatch::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() == QEvent::SockAct) start_ = Clock::now();
    return false;
}

void HandlerWatch::Handled() {
    const std::chrono::duration<float, std::micro> time = Clock::now() - start_;
    if (count_ < times_.size()) times_[count_] = time.count();
    ++count_;
}

}  // namespace orbkl4::test

#include "platform/system/clock.h"

#include <QDateTime>
#include <QLocale>

#include <chrono>

namespace orbkl4 {

namespace {

using SteadyClock = std::chrono::steady_clock;

std::int32_t SystemTickCount() {
    using std::chrono::duration_cast;
    using std::chrono::milliseconds;
    const auto now = SteadyClock::now().time_since_epoch();
    return static_cast<std::int32_t>(
        static_cast<std::uint32_t>(duration_cast<milliseconds>(now).count()));
}

TickCountSource tickCountSource = SystemTickCount;

}  // namespace

std::int32_t TickCount() { return tickCountSource(); }

void ReplaceTickCount(TickCountSource source) {
    tickCountSource = source != nullptr ? source : SystemTickCount;
}

std::int64_t PerformanceCounter() { return SteadyClock::now().time_since_epoch().count(); }

std::int64_t PerformanceFrequency() { return SteadyClock::period::den / SteadyClock::period::num; }

std::int64_t MonotonicSeconds() {
    // 0 means "long ago", so the clock of a machine just started must not be near it.
    constexpr std::int64_t offset = 1000;
    return offset +
           std::chrono::duration_cast<std::chrono::seconds>(SteadyClock::now().time_since_epoch())
               .count();
}

std::tm LocalTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    return local;
}

std::string LocalDateText() {
    return QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat).toStdString();
}

std::string LocalTimeText() {
    return QLocale::system().toString(QTime::currentTime(), QLocale::ShortFormat).toStdString();
}

}  // namespace orbkl4

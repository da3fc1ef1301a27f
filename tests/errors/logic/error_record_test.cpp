#include "errors/logic/error_record.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace orbkl4 {
namespace {

TEST(ErrorRecord, HasTheDayFirstAndATwelveHourClock) {
    std::tm time{};
    time.tm_year = 124;  // 2024
    time.tm_mon = 1;     // February
    time.tm_mday = 3;
    time.tm_sec = 59;
    using Case = std::pair<int, const char*>;
    for (const auto& [hour, text] :
         {Case{0, "12:00:59 am"}, Case{1, "01:00:59 am"}, Case{11, "11:00:59 am"},
          Case{12, "12:00:59 pm"}, Case{13, "01:00:59 pm"}, Case{23, "11:00:59 pm"}}) {
        time.tm_hour = hour;
        EXPECT_EQ(DateTimeText(time), std::string("03/02/2024 ") + text);
    }
}

}  // namespace
}  // namespace orbkl4

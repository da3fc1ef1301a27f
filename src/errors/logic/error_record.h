#pragma once

#include <ctime>
#include <string>
#include <string_view>

namespace orbkl4 {

/// An error to report.
struct ErrorReport {
    int number = 0;
    std::string_view source;       ///< the failed procedure's name
    std::string_view screen;       ///< the screen's or module's name
    std::string_view description;  ///< one line of text
};

/// The line above and below each record of the error log.
inline constexpr std::string_view recordRule = "----------";

/// The seven lines of a log record between its rules, joined by CR LF, with none after the last.
std::string ErrorRecordText(const ErrorReport& report, const std::tm& time);

/// The text of the error box about `record`.
std::string ErrorBoxText(std::string_view record);

/// `time` as "dd/mm/yyyy hh:mm:ss am", on a 12-hour clock.
std::string DateTimeText(const std::tm& time);

}  // namespace orbkl4

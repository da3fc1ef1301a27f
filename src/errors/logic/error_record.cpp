#include "errors/logic/error_record.h"

#include "base/program.h"

#include <array>
#include <cstdio>

namespace orbkl4 {

namespace {

constexpr std::string_view lineEnd = "\r\n";

}  // namespace

std::string DateTimeText(const std::tm& time) {
    constexpr int noon = 12;
    const int hour = time.tm_hour % noon == 0 ? noon : time.tm_hour % noon;
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%02d/%02d/%04d %02d:%02d:%02d %s", time.tm_mday,
                  time.tm_mon + 1, time.tm_year + 1900, hour, time.tm_min, time.tm_sec,
                  time.tm_hour < noon ? "am" : "pm");
    return text.data();
}

std::string ErrorRecordText(const ErrorReport& report, const std::tm& time) {
    std::string text = "Date: " + DateTimeText(time);
    const auto addLine = [&](std::string_view label, std::string_view content) {
        text.append(lineEnd).append(label).append(content);
    };
    addLine("Number: ", std::to_string(report.number));
    addLine("Source: ", report.source);
    addLine("Screen: ", report.screen);
    addLine("Description: ", report.description);
    addLine("Application: ", programTitle);
    addLine("Version: ", VersionText());
    return text;
}

std::string ErrorBoxText(std::string_view record) {
    const auto lines = std::to_array<std::string_view>(
        {"The error shown below has occurred!",
         "The data being generated at this time may have been corrupted.",
         "Please correct the error or contact Kestrelmoor for customer support.", "", record, "",
         "RETRY will allow application to continue.", "CANCEL will terminate application."});
    std::string text;
    for (const std::string_view line : lines) text.append(line).append(lineEnd);
    return text;
}

}  // namespace orbkl4

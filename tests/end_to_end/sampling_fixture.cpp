#include "sampling_fixture.h"

#include <algorithm>
#include <cstdlib>
#include <regex.h>
#include <stdexcept>

namespace orbkl4::test {

namespace {

constexpr std::size_t headLines = 5;

/// A word from 0 to 65535 behind one blank.
bool IsWord(const std::string& text) {
    const auto number = std::strtoul(text.c_str(), nullptr, 10);
    return number <= 65535 && text == " " + std::to_string(number);
}

/// Seconds, to two decimals at most; nothing before the point where it would be 0.
bool IsTime(const std::string& text) {
    static const regex_t form = [] {
        regex_t made{};
        ::regcomp(&made, R"(^(0|[1-9][0-9]*|([1-9][0-9]*)?\.[0-9]?[1-9])$)",
                  REG_EXTENDED | REG_NOSUB);
        return made;
    }();
    return ::regexec(&form, text.c_str(), 0, nullptr, 0) == 0;
}

/// The parts of `text` that end with `end`, and what is left.
std::vector<std::string> Split(const std::string& text, const std::string& end) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (auto at = text.find(end); at != std::string::npos; at = text.find(end, start)) {
        parts.push_back(text.substr(start, at - start));
        start = at + end.size();
    }
    parts.push_back(text.substr(start));
    return parts;
}

}  // namespace

void SamplingTest::StartSaving(RunningProgram& program, const std::string& name) {
    program.AwaitScreen("Main");
    program.Unlock("mnuDisplay");
    program.Choose("Main", "mnuSensorBits");
    program.AwaitScreen("SensorBits");
    program.Choose("SensorBits", "mnuSave");
    program.SaveAs(name);
    program.Await("SensorBits", "mnuSave", "checked", "true");
    program.Choose("SensorBits", "mnuSample");
}

testing::AssertionResult SamplingTest::Grows(const std::string& name, std::size_t bytes) const {
    const auto least = Content(name).size() + bytes;
    if (WaitUntil([&] { return Content(name).size() >= least; })) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << name << " doesn't grow";
}

Rows SamplingTest::ReadRows(const std::string& name) const {
    std::vector<std::string> lines = Split(Content(name), "\r\n");
    if (!lines.back().empty()) throw std::runtime_error("the last line is cut: " + lines.back());
    lines.pop_back();
    if (lines.size() < headLines) throw std::runtime_error("the head is cut");
    Rows rows;
    for (std::size_t i = headLines; i < lines.size(); ++i) {
        const auto& row = rows.emplace_back(Split(lines[i], ","));
        const bool whole = row.size() == 11 && IsTime(row.front()) &&
                           std::all_of(row.begin() + 1, row.end(), IsWord);
        if (!whole) throw std::runtime_error("not a whole row: " + lines[i]);
    }
    return rows;
}

}  // namespace orbkl4::test

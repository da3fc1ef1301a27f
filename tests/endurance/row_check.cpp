#include "endurance/row_check.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace orbkl4::test {

namespace {

/// The nine words and the ticks of a reply as they stand in a row.
std::string ValuesOf(const orbkl4sim::Bytes& reply) {
    std::string values;
    for (std::size_t at = 1; at + 2 < reply.size(); at += 2)
        values += ", " + std::to_string(reply[at] * 256 + reply[at + 1]);
    return values;
}

}  // namespace

RowCheck::RowCheck(const std::string& path) : file_(path, std::ios::binary | std::ios::ate) {}

void RowCheck::Expect(const LedgerEntry& entry) {
    if (last_) CheckGap(std::chrono::duration<double>(entry.time - last_->time).count());
    last_ = entry;
    silent_ = entry.fate == Fate::Dropped ? silent_ + 1 : 0;
    if (silent_ > 0) restarted_ = true;
    if (entry.fate != Fate::Good) return;
    owed_.push_back({ValuesOf(entry.reply), restarted_});
    restarted_ = false;
}

/// The watchdog waits until more than one whole second has passed since the last event, which it
/// looks at once a second; as long as nothing comes it restarts again each second.
void RowCheck::CheckGap(double seconds) {
    if (silent_ == 0) {
        if (seconds > 1) stalled_ = true;
        return;
    }
    constexpr double late = 0.5;  // of a loaded machine
    ++restarts_;
    EXPECT_GT(seconds, 0.99);
    EXPECT_LT(seconds, (silent_ == 1 ? 3 : 1) + late);
}

void RowCheck::StartAfresh() {
    file_.clear();
    file_.seekg(0, std::ios::end);
    owed_.clear();
    last_.reset();
    silent_ = 0;
    stalled_ = false;
    restarted_ = true;
}

std::string RowCheck::Fault() {
    file_.clear();  // of the end that was met the last time
    for (std::string line; std::getline(file_, line);) {
        const std::string where = " in row " + std::to_string(rows_) + ": " + line;
        if (file_.eof() || !line.ends_with('\r')) return "a torn line" + where;
        line.pop_back();
        if (const std::string fault = FaultOfRow(line); !fault.empty()) return fault + where;
        ++rows_;
    }
    return {};
}

std::string RowCheck::FaultOfRow(const std::string& line) {
    if (owed_.empty()) return "a row of what wasn't sent";
    const std::size_t comma = line.find(',');
    const Due due = std::move(owed_.front());
    owed_.pop_front();
    if (comma == std::string::npos || line.substr(comma) != due.values) return "not" + due.values;
    const double time = std::strtod(line.c_str(), nullptr);
    constexpr double soon = 1;  // seconds after which the first reply has long come
    if (due.restarted ? time > soon : time < time_) return "a time out of order";
    time_ = time;
    return {};
}

}  // namespace orbkl4::test

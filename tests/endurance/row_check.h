#pragma once

#include "endurance/reply_ledger.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>

namespace orbkl4::test {

/// Compares the rows of a data file of raw sensor bits, while it grows, with the replies that were
/// sent, and checks that every silence is ended as it has to be.
class RowCheck {
  public:
    /// The file at `path` is read from where it ends now.
    explicit RowCheck(const std::string& path) : file_(path, std::ios::binary | std::ios::ate) {}

    /// Takes what became of a reply; every good one must get its row.
    void Expect(const LedgerEntry& entry) {
        if (last_) CheckGap(std::chrono::duration<double>(entry.time - last_->time).count());
        last_ = entry;
        silent_ = entry.fate == Fate::Dropped ? silent_ + 1 : 0;
        if (silent_ > 0) restarted_ = true;
        if (entry.fate != Fate::Good) return;
        owed_.push_back({ValuesOf(entry.reply), restarted_});
        restarted_ = false;
    }

    /// Whether a reply that was sent stayed without the next request for more than a second: the
    /// machine itself stood still, so that the program rightly asked anew and nobody can say which
    /// of the replies it met.
    bool Stalled() const { return stalled_; }

    /// Owes nothing any more and passes over the rows up to now; for a fresh start after a stall.
    void StartAfresh() {
        file_.clear();
        file_.seekg(0, std::ios::end);
        owed_.clear();
        last_.reset();
        silent_ = 0;
        stalled_ = false;
        restarted_ = true;
    }

    /// Reads the rows that have been added. What is wrong with them, or an empty text.
    std::string Fault() {
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

    /// The rows that were right.
    std::size_t Rows() const { return rows_; }

    /// The good replies that have no row yet.
    std::size_t Owed() const { return owed_.size(); }

    /// How often a request followed upon silence.
    int Restarts() const { return restarts_; }

  private:
    struct Due {
        std::string values;  ///< after the time, with the comma
        bool restarted;      ///< sampling was started again since the row before
    };

    /// The nine words and the ticks of a reply as they stand in a row.
    static std::string ValuesOf(const orbkl4sim::Bytes& reply) {
        std::string values;
        for (std::size_t at = 1; at + 2 < reply.size(); at += 2)
            values += ", " + std::to_string(reply[at] * 256 + reply[at + 1]);
        return values;
    }

    /// The watchdog waits until more than one whole second has passed since the last event, which
    /// it looks at once a second; as long as nothing comes it restarts again each second.
    void CheckGap(double seconds) {
        if (silent_ == 0) {
            if (seconds > 1) stalled_ = true;
            return;
        }
        constexpr double late = 0.5;  // of a loaded machine
        ++restarts_;
        EXPECT_GT(seconds, 0.99);
        EXPECT_LT(seconds, (silent_ == 1 ? 3 : 1) + late);
    }

    std::string FaultOfRow(const std::string& line) {
        if (owed_.empty()) return "a row of what wasn't sent";
        const std::size_t comma = line.find(',');
        const Due due = std::move(owed_.front());
        owed_.pop_front();
        if (comma == std::string::npos || line.substr(comma) != due.values)
            return "not" + due.values;
        const double time = std::strtod(line.c_str(), nullptr);
        constexpr double soon = 1;  // seconds after which the first reply has long come
        if (due.restarted ? time > soon : time < time_) return "a time out of order";
        time_ = time;
        return {};
    }

    std::ifstream file_;
    std::optional<LedgerEntry> last_;
    int silent_ = 0;  ///< replies dropped in a row, up to the last
    int restarts_ = 0;
    bool stalled_ = false;
    std::deque<Due> owed_;
    bool restarted_ = true;
    double time_ = 0;
    std::size_t rows_ = 0;
};

}  // namespace orbkl4::test

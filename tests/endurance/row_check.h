#pragma once

#include "endurance/reply_ledger.h"

#include <cstddef>
#include <fstream>
#include <optional>
#include <string>

namespace orbkl4::test {

/// Compares the rows of a data file of raw sensor bits, while it grows, with the replies that were
/// sent, and checks that every silence is ended as it has to be.
class RowCheck {
  public:
    /// The file at `path` is read from where it ends now.
    explicit RowCheck(const std::string& path);

    /// Takes what became of a reply; every good one must get its row.
    void Expect(const LedgerEntry& entry);

    /// Whether a reply that was sent stayed without the next request for more than a second: the
    /// machine itself stood still, so that the program rightly asked anew and nobody can say which
    /// of the replies it met.
    bool Stalled() const { return stalled_; }

    /// Owes nothing any more and passes over the rows up to now; for a fresh start after a stall.
    void StartAfresh();

    /// Reads the rows that have been added. What is wrong with them, or an empty text.
    std::string Fault();

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

    void CheckGap(double seconds);
    std::string FaultOfRow(const std::string& line);

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

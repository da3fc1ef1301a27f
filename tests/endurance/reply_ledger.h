#pragma once

#include "simulator/reply_script.h"

#include <chrono>
#include <cstdint>
#include <deque>
#include <mutex>
#include <random>

namespace orbkl4::test {

enum class Fate { Good, Corrupt, Dropped };

/// A reply as the sensor made it, and what became of it on its way.
struct LedgerEntry {
    orbkl4sim::Bytes reply;
    Fate fate;
    std::chrono::steady_clock::time_point time;  ///< when its request was complete
};

/// Spoils and drops replies of raw sensor bits, the same ones for the same seed, and keeps account
/// of all. It may be used from any thread.
class ReplyLedger {
  public:
    /// `drop` and `corrupt` are shares from 0 (never) to 1.
    ReplyLedger(double drop, double corrupt) : drop_(drop), corrupt_(corrupt) {}

    /// What the simulator is to ask for each reply; the ledger must outlive it.
    orbkl4sim::ReplyFilter Filter();

    /// The entries since the last call, in order.
    std::deque<LedgerEntry> Take();

  private:
    Fate Choose();

    const double drop_;
    const double corrupt_;
    std::mt19937_64 random_{20260103};
    std::mutex mutex_;  // guards what follows
    std::deque<LedgerEntry> entries_;
};

}  // namespace orbkl4::test

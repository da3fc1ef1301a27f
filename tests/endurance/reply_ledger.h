#pragma once

#include "simulator/reply_script.h"

#include <chrono>
#include <cstdint>
#include <deque>
#include <mutex>
#include <random>
#include <utility>

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
    orbkl4sim::ReplyFilter Filter() {
        return [this](const orbkl4sim::Bytes& request, const orbkl4sim::Bytes& reply) {
            constexpr std::uint8_t rawSensorBits = 0x01;
            return request.front() == rawSensorBits ? Enter(reply) : std::optional(reply);
        };
    }

    /// The entries since the last call, in order.
    std::deque<LedgerEntry> Take() {
        const std::lock_guard guard(mutex_);
        return std::exchange(entries_, {});
    }

  private:
    /// Gives what is sent of `reply`.
    std::optional<orbkl4sim::Bytes> Enter(orbkl4sim::Bytes reply) {
        const Fate fate = Choose();
        {
            const std::lock_guard guard(mutex_);
            entries_.push_back({reply, fate, std::chrono::steady_clock::now()});
        }
        if (fate == Fate::Dropped) return std::nullopt;
        if (fate == Fate::Corrupt) {
            const std::uint64_t bit = random_() % (8 * reply.size());
            reply[bit / 8] ^= static_cast<std::uint8_t>(1U << bit % 8);
        }
        return reply;
    }

    Fate Choose() {
        const double chance = std::uniform_real_distribution<double>(0, 1)(random_);
        if (chance < drop_) return Fate::Dropped;
        return chance < drop_ + corrupt_ ? Fate::Corrupt : Fate::Good;
    }

    const double drop_;
    const double corrupt_;
    std::mt19937_64 random_{20260103};
    std::mutex mutex_;  // guards what follows
    std::deque<LedgerEntry> entries_;
};

}  // namespace orbkl4::test

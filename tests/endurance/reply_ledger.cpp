#include "endurance/reply_ledger.h"

#include <utility>

namespace orbkl4::test {

orbkl4sim::ReplyFilter ReplyLedger::Filter() {
    constexpr std::uint8_t rawSensorBits = 0x01;
    return [this](const orbkl4sim::Bytes& request,
                  const orbkl4sim::Bytes& reply) -> std::optional<orbkl4sim::Bytes> {
        if (request.front() != rawSensorBits) return reply;
        const Fate fate = Choose();
        {
            const std::lock_guard guard(mutex_);
            entries_.push_back({reply, fate, std::chrono::steady_clock::now()});
        }
        if (fate == Fate::Dropped) return std::nullopt;
        orbkl4sim::Bytes sent = reply;
        if (fate == Fate::Corrupt) {
            const std::uint64_t bit = random_() % (8 * sent.size());
            sent[bit / 8] ^= static_cast<std::uint8_t>(1U << bit % 8);
        }
        return sent;
    };
}

std::deque<LedgerEntry> ReplyLedger::Take() {
    const std::lock_guard guard(mutex_);
    return std::exchange(entries_, {});
}

Fate ReplyLedger::Choose() {
    const double chance = std::uniform_real_distribution<double>(0, 1)(random_);
    if (chance < drop_) return Fate::Dropped;
    return chance < drop_ + corrupt_ ? Fate::Corrupt : Fate::Good;
}

}  // namespace orbkl4::test

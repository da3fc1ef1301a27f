#include "simulator/faults.h"

#include <algorithm>
#include <utility>

namespace orbkl4sim {

std::optional<FaultyReply> FaultInjector::Inject(Bytes reply) {
    FaultyReply faulty{std::move(reply)};
    Bytes& bytes = faulty.bytes;
    if (bytes.empty() || Chance(rates_.drop)) return std::nullopt;
    if (Chance(rates_.corrupt)) {
        bytes[RandomBelow(bytes.size())] ^= static_cast<std::uint8_t>(1U << RandomBelow(8));
    }
    if (bytes.size() > 1 && Chance(rates_.truncate)) {
        bytes.resize(1 + RandomBelow(bytes.size() - 1));
    }
    if (Chance(rates_.stray)) {
        const Bytes stray = RandomBytes(1 + RandomBelow(4));
        bytes.insert(bytes.begin(), stray.begin(), stray.end());
    }
    if (Chance(rates_.delay)) faulty.delay = rates_.delayTime;
    faulty.dribbled = Chance(rates_.dribble);
    return faulty;
}

Bytes FaultInjector::RandomBytes(std::size_t count) {
    Bytes bytes(count);
    std::ranges::generate(bytes, [this] { return static_cast<std::uint8_t>(RandomBelow(256)); });
    return bytes;
}

bool FaultInjector::Chance(double rate) {
    return rate > 0 && std::uniform_real_distribution<double>(0, 1)(random_) < rate;
}

std::size_t FaultInjector::RandomBelow(std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
}

}  // namespace orbkl4sim

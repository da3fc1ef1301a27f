#include "simulator/faults.h"

#include <algorithm>
#include <utility>

namespace orbkl4sim {

std::optional<Delivery> FaultMaker::Spoil(Bytes reply) {
    Delivery delivery{std::move(reply)};
    Bytes& bytes = delivery.bytes;
    if (bytes.empty() || Happens(rates_.drop)) return std::nullopt;
    if (Happens(rates_.corrupt)) {
        bytes[Below(bytes.size())] ^= static_cast<std::uint8_t>(1U << Below(8));
    }
    if (bytes.size() > 1 && Happens(rates_.truncate)) bytes.resize(1 + Below(bytes.size() - 1));
    if (Happens(rates_.stray)) {
        const Bytes strays = Garbage(1 + Below(4));
        bytes.insert(bytes.begin(), strays.begin(), strays.end());
    }
    if (Happens(rates_.delay)) delivery.delay = rates_.delayTime;
    delivery.dribbled = Happens(rates_.dribble);
    return delivery;
}

Bytes FaultMaker::Garbage(std::size_t count) {
    Bytes bytes(count);
    std::ranges::generate(bytes, [this] { return static_cast<std::uint8_t>(Below(256)); });
    return bytes;
}

bool FaultMaker::Happens(double rate) {
    return rate > 0 && std::uniform_real_distribution<double>(0, 1)(random_) < rate;
}

std::size_t FaultMaker::Below(std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
}

}  // namespace orbkl4sim

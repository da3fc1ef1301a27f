#pragma once

#include "simulator/bytes.h"

#include <optional>
#include <random>

namespace orbkl4sim {

/// How often replies go wrong on their way: shares from 0 (never) to 1 (always).
struct FaultRates {
    double drop = 0;      // nothing arrives
    double corrupt = 0;   // one bit is flipped
    double truncate = 0;  // the end is missing
    double dribble = 0;   // the bytes come one by one, `dribbleGap` apart
    double stray = 0;     // one to four bytes stand before it
    double delay = 0;     // it comes later by `delayTime`
    Time dribbleGap = std::chrono::milliseconds(2);
    Time delayTime = std::chrono::milliseconds(300);
};

/// A reply as it goes out.
struct Delivery {
    Bytes bytes;
    Time delay{};
    bool dribbled = false;
};

/// Spoils replies at random, the same ones for the same seed.
class FaultMaker {
  public:
    explicit FaultMaker(std::uint64_t seed) : random_(seed) {}

    FaultRates& Rates() { return rates_; }

    /// What becomes of `reply`; none where it is dropped.
    std::optional<Delivery> Spoil(Bytes reply);

    /// `count` random bytes.
    Bytes Garbage(std::size_t count);

  private:
    bool Happens(double rate);
    std::size_t Below(std::size_t limit);

    FaultRates rates_;
    std::mt19937_64 random_;
};

}  // namespace orbkl4sim

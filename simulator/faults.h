#pragma once

#include "simulator/bytes.h"

#include <array>
#include <optional>
#include <random>

namespace orbkl4sim {

/// How often each transmission fault hits a reply, from 0 (never) to 1 (always).
struct FaultRates {
    double drop = 0;      // the reply is lost
    double corrupt = 0;   // one bit is flipped
    double truncate = 0;  // the end is missing
    double dribble = 0;   // the bytes are sent one by one, `dribbleGap` apart
    double stray = 0;     // one to four random bytes are sent before it
    double delay = 0;     // it is sent `delayTime` late
    Time dribbleGap = std::chrono::milliseconds(2);
    Time delayTime = std::chrono::milliseconds(300);
};

/// A fault with a rate, by the name of its option and its console command.
struct RateFault {
    const char* name;
    double FaultRates::*rate;
    const char* help;
};

inline constexpr std::array kRateFaults{
    RateFault{"drop", &FaultRates::drop, "loses replies"},
    RateFault{"corrupt", &FaultRates::corrupt, "flips one bit of replies"},
    RateFault{"truncate", &FaultRates::truncate, "cuts the end off replies"},
    RateFault{"dribble", &FaultRates::dribble, "sends replies byte by byte"},
    RateFault{"stray", &FaultRates::stray, "sends stray bytes before replies"},
    RateFault{"delay", &FaultRates::delay, "sends replies late"},
};

/// The longest `delayTime` that a user can set, in milliseconds.
inline constexpr double kLongestDelay = 3'600'000;

/// A reply with the faults that hit it.
struct FaultyReply {
    Bytes bytes;
    Time delay{};
    bool dribbled = false;
};

/// Injects faults into replies at random, reproducibly for each seed.
class FaultInjector {
  public:
    explicit FaultInjector(std::uint64_t seed) : random_(seed) {}

    FaultRates& Rates() { return rates_; }

    /// `reply` with random faults; nothing if it is dropped.
    std::optional<FaultyReply> Inject(Bytes reply);

    /// `count` random bytes.
    Bytes RandomBytes(std::size_t count);

  private:
    bool Chance(double rate);
    std::size_t RandomBelow(std::size_t limit);

    FaultRates rates_;
    std::mt19937_64 random_;
};

}  // namespace orbkl4sim

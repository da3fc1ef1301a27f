#pragma once

#include <optional>
#include <string>
#include <vector>

namespace orbkl4::cli {

class Session;

/// What a run of equal, short round trips came to. Times are in milliseconds.
struct LinkHealth {
    int roundTrips = 0;  ///< asked for, whatever came of them
    int badReplies = 0;
    int timeouts = 0;
    double median = 0;  ///< of those with a good reply; 0 if there are none, like the next
    double p99 = 0;
    double wire = 0;            ///< what request and reply need on the line
    double ratePerSecond = 0;   ///< good replies
    double limitPerSecond = 0;  ///< were there nothing but the line
    bool continuousMode = false;
    std::optional<bool> lowLatency = std::nullopt;  ///< the driver's flag; none if it has none

    /// What the adapter, its driver and this computer add to a round trip.
    double AdapterDelay() const;
};

/// Asks the sensor for its firmware a few hundred times, ten seconds at most; throws what
/// `Session::Exchange` does.
LinkHealth MeasureLink(Session& session);

/// The `rank`-th part (0 to 1) of `times`, by the nearest rank; 0 of none.
double Quantile(std::vector<double> times, double rank);

/// What to do about what isn't well with the line `device`, in sentences; none if all is.
std::vector<std::string> AdviceOn(const LinkHealth& health, const std::string& device);

}  // namespace orbkl4::cli

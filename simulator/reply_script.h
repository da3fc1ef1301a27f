#pragma once

#include "simulator/bytes.h"

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace orbkl4sim {

/// Takes a request and the sensor's own reply (empty if it has none) and returns the reply to send
/// instead, or nothing for silence.
using ReplyFilter = std::function<std::optional<Bytes>(const Bytes& request, const Bytes& reply)>;

/// Scripted replies that replace the sensor's own. The sensor still carries out every request.
class ReplyScript {
  public:
    /// Queues `reply` for the next request that begins with `command` and has nothing queued yet;
    /// empty for silence.
    void Queue(std::uint8_t command, Bytes reply) { queued_[command].push_back(std::move(reply)); }

    /// Sets the reply to every request that begins with `command` while nothing is queued for it.
    void Always(std::uint8_t command, Bytes reply) { always_[command] = std::move(reply); }

    /// Sets the filter for the replies to all other requests; an empty one changes nothing.
    void Filter(ReplyFilter filter) { filter_ = std::move(filter); }

    /// Removes all scripted replies and the filter.
    void Clear() { *this = {}; }

    /// What to send for `request` in place of the sensor's own `reply`; empty for silence.
    Bytes Apply(const Bytes& request, Bytes reply);

  private:
    std::map<std::uint8_t, std::deque<Bytes>> queued_;
    std::map<std::uint8_t, Bytes> always_;
    ReplyFilter filter_;
};

}  // namespace orbkl4sim

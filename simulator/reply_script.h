#pragma once

#include "simulator/bytes.h"

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace orbkl4sim {

/// Takes a request and the sensor's own reply (empty where it has none) and gives what is to be
/// sent in its place, nothing for silence.
using ReplyFilter = std::function<std::optional<Bytes>(const Bytes& request, const Bytes& reply)>;

/// Replies that stand in for the sensor's own. The sensor carries out every request all the same.
class ReplyScript {
  public:
    /// The next request that begins with `command` gets `reply`, the one after it what is queued
    /// next, and so on; empty bytes are silence.
    void Queue(std::uint8_t command, Bytes reply) { queued_[command].push_back(std::move(reply)); }

    /// Every request that begins with `command` and finds nothing queued gets `reply`.
    void Always(std::uint8_t command, Bytes reply) { always_[command] = std::move(reply); }

    /// `filter` decides on the replies to all other requests; an empty one leaves them alone.
    void Filter(ReplyFilter filter) { filter_ = std::move(filter); }

    /// Forgets all of that.
    void Clear() { *this = {}; }

    /// What to send for `request`, the sensor's own answer being `reply`; empty for silence.
    Bytes Apply(const Bytes& request, Bytes reply);

  private:
    std::map<std::uint8_t, std::deque<Bytes>> queued_;
    std::map<std::uint8_t, Bytes> always_;
    ReplyFilter filter_;
};

}  // namespace orbkl4sim

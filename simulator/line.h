#pragma once

#include "simulator/device.h"
#include "simulator/faults.h"
#include "simulator/reply_script.h"
#include "simulator/requests.h"

#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace orbkl4sim {

/// The sensor's end of the serial line: bytes of the host go in at the time they arrive, bytes for
/// the host come out at the time the last of them is due. It does no input or output itself.
///
/// Paced, a byte takes ten bits at the sensor's speed, both ways, and a data command waits for the
/// end of the calculation cycle. Unpaced, every reply is due at once, and the sensor's own time
/// runs on by one cycle with each data command, so that motion and ticks go on as if paced.
class Line {
  public:
    /// Called with each request found, and whether the sensor heard it.
    using Listener = std::function<void(const Bytes& request, bool heard)>;

    Line(Device& device, bool paced, std::uint64_t seed);

    /// Whether the sensor and a host at `hostBaud` (0: no speed set) understand each other.
    bool Accepts(int hostBaud) const { return hostBaud == 0 || hostBaud == device_.Baud(); }

    /// Takes `bytes` that arrived at `now` from a host at `hostBaud`.
    void Receive(const Bytes& bytes, Time now, int hostBaud);

    /// When bytes are due next; none where nothing is under way.
    std::optional<Time> NextDue(Time now);

    /// The bytes that are due by `now`, one element for each write.
    std::vector<Bytes> TakeDue(Time now);

    /// Sends `bytes` unasked from `now` on, faults aside.
    void SendUnasked(const Bytes& bytes, Time now) { Schedule({bytes}, now); }

    /// Takes the power away and gives it back.
    void PowerCycle(Time now);

    /// Forgets all that is under way in either direction.
    void Reset(Time now);

    /// While on, nothing leaves the sensor; it still hears and obeys.
    void SetSilent(bool silent);

    /// While on, random bytes fill the line from `now` on.
    void SetFlood(bool flood, Time now);

    /// Cuts each reply into pieces of these sizes and a last one of what remains, `gap` apart.
    void Cut(std::vector<std::size_t> sizes, Time gap);

    void SetListener(Listener listener) { listener_ = std::move(listener); }
    FaultMaker& Faults() { return faults_; }
    ReplyScript& Script() { return script_; }

  private:
    struct Outgoing {
        Bytes bytes;
        Time due;
        Time begins;
        bool streamed;
    };

    Time ByteTime() const;
    Time ToDeviceTime(Time now) const { return paced_ ? now : deviceTime_; }
    void Answer(const Bytes& request, Time complete);
    void Send(Bytes reply, Time ready, bool streamed);
    void Schedule(const Delivery& delivery, Time ready, bool streamed = false);
    void ScheduleStream(Time now);
    void AppendFlood(Time now, std::vector<Bytes>& writes);

    Device& device_;
    bool paced_;
    FaultMaker faults_;
    ReplyScript script_;
    Listener listener_;
    RequestParser heard_;
    RequestParser unheard_;
    std::deque<Outgoing> outgoing_;
    Time deviceTime_{};            // unpaced: the sensor's own time
    Time receiveFree_{};           // when the line towards the sensor has carried all it was given
    Time lateness_{};              // of the last write: it delayed the host's next request as much
    Time sendFree_{};              // likewise from it
    Time streamed_{};              // unpaced: when the last packet of continuous mode was due
    std::optional<Time> flooded_;  // while flooding: up to when the line is filled
    bool silent_ = false;
    std::vector<std::size_t> cuts_;
    Time cutGap_{};
};

}  // namespace orbkl4sim

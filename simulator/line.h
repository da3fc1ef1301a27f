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

/// The sensor's end of the serial line. The caller passes in the host's bytes when they arrive and
/// takes out the replies when their last byte is due; the class does no input or output itself.
///
/// Paced, a byte takes ten bit times in both directions, and a data command waits for the end of
/// the calculation cycle. Unpaced, every reply is due at once, and the sensor's own time advances
/// by one cycle with each data command, so that motion and ticks run as if paced.
class Line {
  public:
    /// Called with each request, and whether the sensor could receive it.
    using Listener = std::function<void(const Bytes& request, bool heard)>;

    Line(Device& device, bool paced, std::uint64_t seed);

    /// Whether a host at `hostBaud` (0: none set) can communicate with the sensor.
    bool Accepts(int hostBaud) const {
        return powered_ && (hostBaud == 0 || hostBaud == device_.Baud());
    }

    /// Receives `bytes` at `now` from a host at `hostBaud`.
    void Receive(const Bytes& bytes, Time now, int hostBaud);

    /// When the next bytes are due; none if nothing is pending.
    std::optional<Time> NextDue(Time now);

    /// The bytes due by `now`, one element for each write.
    std::vector<Bytes> TakeDue(Time now);

    /// Sends `bytes` unsolicited from `now` on, without faults.
    void SendUnasked(const Bytes& bytes, Time now) { Schedule({bytes}, now); }

    /// Switches the sensor's power on or off; without power, it neither receives nor sends.
    void SetPower(bool on, Time now);
    bool IsPowered() const { return powered_; }

    /// Switches the sensor off and on.
    void PowerCycle(Time now);

    /// Drops everything pending in both directions.
    void Reset(Time now);

    /// While silent, the sensor carries out requests but sends nothing.
    void SetSilent(bool silent);
    bool IsSilent() const { return silent_; }

    /// Switches on or off a stream of random bytes at full baud rate, from `now` on.
    void SetFlood(bool flood, Time now);
    bool IsFlooding() const { return flooded_.has_value(); }

    void SetListener(Listener listener) { listener_ = std::move(listener); }
    FaultInjector& Faults() { return faults_; }
    ReplyScript& Script() { return script_; }

  private:
    struct Outgoing {
        Bytes bytes;
        Time due;
        Time begins;
        bool streamed;  // in continuous mode
    };

    Time ByteTime() const;
    Time ToDeviceTime(Time now) const { return paced_ ? now : deviceTime_; }
    void Answer(const Bytes& request, Time complete);
    void Send(Bytes reply, Time ready, bool streamed);
    void Schedule(const FaultyReply& reply, Time ready, bool streamed = false);
    void ScheduleStream(Time now);
    void AppendFlood(Time now, std::vector<Bytes>& writes);

    Device& device_;
    bool paced_;
    FaultInjector faults_;
    ReplyScript script_;
    Listener listener_;
    RequestParser heard_;
    RequestParser unheard_;  // at the wrong baud rate or without power
    std::deque<Outgoing> outgoing_;
    Time deviceTime_{};            // unpaced: the sensor's own time
    Time receiveFree_{};           // when the last byte to the sensor has been transferred
    Time sendFree_{};              // when the last byte from the sensor has been transferred
    Time lateness_{};              // of the last write, which delayed the host's next request
    Time streamed_{};              // unpaced: when the last packet of continuous mode was due
    std::optional<Time> flooded_;  // while flooding: when random bytes were last sent
    bool powered_ = true;
    bool silent_ = false;
};

}  // namespace orbkl4sim

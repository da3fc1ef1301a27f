#include "simulator/line.h"

#include <algorithm>
#include <utility>

namespace orbkl4sim {

namespace {

using namespace std::chrono_literals;

constexpr int kBitsPerByte = 10;  // 8 data bits, start and stop
constexpr Time kFloodStep = 10ms;
constexpr Time kMostLateness = 1ms;

}  // namespace

Line::Line(Device& device, bool paced, std::uint64_t seed)
    : device_(device), paced_(paced), faults_(seed) {}

Time Line::ByteTime() const { return paced_ ? Time{1s} * kBitsPerByte / device_.Baud() : Time{}; }

void Line::Receive(const Bytes& bytes, Time now, int hostBaud) {
    const bool heard = Accepts(hostBaud);
    receiveFree_ = std::max(receiveFree_, now - std::exchange(lateness_, Time{}));
    for (const std::uint8_t byte : bytes) {
        receiveFree_ += ByteTime();
        const auto request = (heard ? heard_ : unheard_).Feed(byte, receiveFree_);
        if (!request) continue;
        if (listener_) listener_(*request, heard);
        if (heard) Answer(*request, receiveFree_);
    }
}

void Line::Answer(const Bytes& request, Time complete) {
    // A packet of continuous mode that isn't on the line yet is dropped in favour of the reply.
    if (!outgoing_.empty() && outgoing_.front().streamed && outgoing_.front().begins > complete) {
        outgoing_.clear();
        sendFree_ = complete;
    }
    const Time start = paced_ ? std::max(complete, sendFree_) : deviceTime_;
    const auto answer = device_.Handle(request, start);
    if (answer) deviceTime_ = answer->ready;
    Send(script_.Apply(request, answer ? answer->reply : Bytes{}),
         paced_ && answer ? answer->ready : complete, false);
}

void Line::Send(Bytes reply, Time ready, bool streamed) {
    if (silent_ || !powered_) return;
    if (const auto faulty = faults_.Inject(std::move(reply))) Schedule(*faulty, ready, streamed);
}

void Line::Schedule(const FaultyReply& reply, Time ready, bool streamed) {
    const Bytes& bytes = reply.bytes;
    const Time begins = std::max(ready + reply.delay, sendFree_);
    Time due = begins + ByteTime() * static_cast<Time::rep>(bytes.size());
    const auto piece = static_cast<std::ptrdiff_t>(reply.dribbled ? 1 : bytes.size());
    for (auto at = bytes.begin(); at != bytes.end(); at += piece) {
        outgoing_.push_back({Bytes(at, at + piece), due, begins, streamed});
        sendFree_ = due;
        due += faults_.Rates().dribbleGap;
    }
}

/// In continuous mode, schedules the next packet as soon as the last one has been sent.
void Line::ScheduleStream(Time now) {
    const auto command = device_.ContinuousCommand();
    if (!command || silent_ || !powered_ || !outgoing_.empty()) return;
    // A late wake-up must not skip a cycle, so the line's own time counts unless it lags by more.
    const bool lags = sendFree_ + device_.Cycle() < now;
    const Time ready = device_.NextCycle(paced_ ? (lags ? now : sendFree_) : deviceTime_);
    deviceTime_ = ready;
    streamed_ = std::max(streamed_ + device_.Cycle(), now);
    const Time begins = paced_ ? ready : streamed_;
    Send(device_.DataReply(*command, ready), begins, true);
    // An empty entry keeps a dropped packet's place, so that the next one follows it in time.
    if (outgoing_.empty()) outgoing_.push_back({{}, begins, begins, true});
    sendFree_ = outgoing_.back().due;
}

std::optional<Time> Line::NextDue(Time now) {
    ScheduleStream(now);
    std::optional<Time> due = flooded_;
    if (due) *due += kFloodStep;
    if (!outgoing_.empty()) due = std::min(due.value_or(Time::max()), outgoing_.front().due);
    return due;
}

std::vector<Bytes> Line::TakeDue(Time now) {
    std::vector<Bytes> writes;
    while (!outgoing_.empty() && outgoing_.front().due <= now) {
        Bytes& bytes = outgoing_.front().bytes;
        lateness_ = std::min(now - outgoing_.front().due, kMostLateness);
        if (!bytes.empty()) writes.push_back(std::move(bytes));
        outgoing_.pop_front();
    }
    AppendFlood(now, writes);
    return writes;
}

void Line::AppendFlood(Time now, std::vector<Bytes>& writes) {
    if (!flooded_ || now < *flooded_ + kFloodStep) return;
    const Time byteTime = Time{1s} * kBitsPerByte / device_.Baud();
    // Limits the burst after a long sleep to one second's worth.
    const auto count = std::min<Time>(now - *flooded_, 1s) / byteTime;
    writes.push_back(faults_.RandomBytes(static_cast<std::size_t>(count)));
    flooded_ = now;
}

void Line::SetPower(bool on, Time now) {
    if (on == powered_) return;
    Reset(now);
    if (on) device_.PowerUp(ToDeviceTime(now));
    powered_ = on;
}

void Line::PowerCycle(Time now) {
    SetPower(false, now);
    SetPower(true, now);
}

void Line::Reset(Time now) {
    outgoing_.clear();
    heard_.Reset();
    unheard_.Reset();
    receiveFree_ = now;
    sendFree_ = now;
}

void Line::SetSilent(bool silent) {
    silent_ = silent;
    if (silent) outgoing_.clear();
}

void Line::SetFlood(bool flood, Time now) { flooded_ = flood ? std::optional(now) : std::nullopt; }

}  // namespace orbkl4sim

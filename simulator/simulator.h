#pragma once

#include "simulator/bytes.h"
#include "simulator/eeprom.h"
#include "simulator/faults.h"
#include "simulator/motion.h"
#include "simulator/reply_script.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace orbkl4sim {

/// A request received over the line.
struct Request {
    Bytes bytes;
    std::chrono::steady_clock::time_point time;  // when its last byte arrived
    int hostBaud = 0;                            // the host's baud rate, 0 if it has set none
    bool heard = true;                           // false at the wrong baud rate or without power
};

/// The faults that are switched on.
struct FaultState {
    FaultRates rates;
    bool silent = false;
    bool flooding = false;
    bool unpowered = false;
    bool unplugged = false;
    std::vector<int> stuckWords;  // addresses
};

struct SimulatorOptions {
    Motion motion = Tumble();
    bool noise = true;
    bool paced = true;  // false: as fast as the host asks; the sensor's time advances by requests
    std::uint64_t seed = 1;
    int baud = 0;                           // 0: as stored in the memory
    std::filesystem::path eepromFile = {};  // stores the memory; empty: not stored
    FaultRates faults = {};
    bool record = true;  // keep requests and bytes received for `Requests` and `Received`
    /// Called on the simulator's thread with each request.
    std::function<void(const Request&)> onRequest = {};
    /// Called on the simulator's thread with the text of an error there.
    std::function<void(const std::string&)> onError = {};
};

/// A simulated ORB-KL4 on a pseudo terminal, with a thread of its own. All functions may be called
/// from any thread at any time.
class Simulator {
  public:
    explicit Simulator(SimulatorOptions options = {});
    ~Simulator();
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    /// Switches the sensor on and plugs it in; throws std::system_error if the system has no pseudo
    /// terminal left.
    void Start();

    /// Unplugs the sensor and ends the thread.
    void Stop();

    /// The device that a host opens; empty while unplugged.
    std::filesystem::path DevicePath() const;

    /// Links `link` to the device while the sensor is plugged in, also after a replug; throws
    /// std::runtime_error if something else is in the way.
    void LinkAs(const std::filesystem::path& link);

    /// Links the device as port `number` (1 to 16) of the current user.
    void LinkAsPort(int number);

    void Unplug();
    void Replug();

    /// Plugs the sensor in again, after unplugging it if necessary, and links `link` alone to the
    /// device; throws std::runtime_error and leaves it unplugged if something else is in the way.
    void ReplugAs(const std::filesystem::path& link);

    /// Switches the sensor's power on or off. Without power the line stays, but the sensor neither
    /// carries out requests nor sends anything.
    void SetPower(bool on);
    void PowerCycle();

    /// Makes the word at `address` ignore writes by requests, which are confirmed all the same, or
    /// ends that; throws std::out_of_range if there is no such word.
    void SetStuck(int address, bool stuck);

    /// While silent, the sensor carries out requests but sends nothing.
    void SetSilent(bool silent);

    /// Switches on or off a stream of random bytes at full baud rate.
    void SetFlood(bool flood);

    void SetFaults(const FaultRates& faults);
    FaultState Faults() const;
    void SetMotion(Motion motion);
    void SetTemperature(double celsius);

    /// The memory's word at `address`, which must be even and from 0 to 254, else
    /// std::out_of_range.
    std::uint16_t Word(int address) const;
    void SetWord(int address, std::uint16_t word);

    /// Queues `reply` (empty: silence) to replace the sensor's own reply to the next request that
    /// begins with `command`.
    void ReplyOnceTo(std::uint8_t command, Bytes reply);

    /// Replaces the sensor's reply to every request that begins with `command`.
    void ReplyTo(std::uint8_t command, Bytes reply);

    /// Lets `filter` replace the reply to every other request, on the simulator's thread.
    void FilterReplies(ReplyFilter filter);

    /// Removes all replaced replies and the filter.
    void ClearReplies();

    /// Sends `bytes` unsolicited.
    void SendUnasked(const Bytes& bytes);

    /// All requests since the start or the last `ClearRecord`.
    std::vector<Request> Requests() const;

    /// All bytes received since then, at any baud rate.
    Bytes Received() const;

    void ClearRecord();

    /// Waits until `count` requests have been recorded; false after `limit`.
    bool WaitForRequests(std::size_t count, std::chrono::milliseconds limit) const;

  private:
    class Worker;
    std::unique_ptr<Worker> worker_;
};

}  // namespace orbkl4sim

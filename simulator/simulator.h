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

/// A request that came over the line.
struct Request {
    Bytes bytes;
    std::chrono::steady_clock::time_point time;  // when its last byte arrived
    int hostBaud = 0;                            // the speed that the host had set, 0 for none
    bool heard = true;  // false at the wrong speed: the sensor took no notice
};

struct SimulatorOptions {
    Motion motion = Tumble();
    bool noise = true;
    bool paced = true;  // false: as fast as the host asks, the sensor's time running with it
    std::uint64_t seed = 1;
    int baud = 0;                           // in bits a second; 0: what the memory says
    std::filesystem::path eepromFile = {};  // keeps the memory; empty: nothing does
    FaultRates faults = {};
    bool record = true;  // whether requests and bytes received are kept for the asking
    /// Called on the simulator's thread with each request.
    std::function<void(const Request&)> onRequest = {};
    /// Called on the simulator's thread with what went wrong there.
    std::function<void(const std::string&)> onError = {};
};

/// A simulated ORB-KL4 on a pseudo terminal, on a thread of its own. All operations may be called
/// from any thread at any time.
class Simulator {
  public:
    explicit Simulator(SimulatorOptions options = {});
    ~Simulator();
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    /// Switches the sensor on and plugs it in; throws std::system_error where no pseudo terminal is
    /// to be had.
    void Start();

    /// Pulls the sensor out and ends the thread.
    void Stop();

    /// The device that a host opens; empty while unplugged.
    std::filesystem::path DevicePath() const;

    /// Links `link` to the device as long as the sensor is plugged in, and again after a replug;
    /// throws std::runtime_error where something else stands there.
    void LinkAs(const std::filesystem::path& link);

    /// Links the device as port `number` (1 to 16) of the current user.
    void LinkAsPort(int number);

    void Unplug();
    void Replug();
    void PowerCycle();

    /// While silent, the sensor hears and obeys but sends nothing.
    void SetSilent(bool silent);

    /// While flooding, random bytes fill the line.
    void SetFlood(bool flood);

    void SetFaults(const FaultRates& faults);
    void SetMotion(Motion motion);
    void SetTemperature(double celsius);

    /// The memory's word at `address`, an even number from 0 to 254, else std::out_of_range.
    std::uint16_t Word(int address) const;
    void SetWord(int address, std::uint16_t word);

    /// The next request that begins with `command` gets `reply` (empty: silence) in place of the
    /// sensor's own; several calls queue up.
    void ReplyOnceTo(std::uint8_t command, Bytes reply);

    /// Every request that begins with `command` gets `reply`.
    void ReplyTo(std::uint8_t command, Bytes reply);

    /// `filter` is asked, on the simulator's thread, for the reply to every other request.
    void FilterReplies(ReplyFilter filter);

    /// The sensor answers for itself again.
    void ClearReplies();

    /// Cuts every reply into pieces of these sizes and a last one of what remains, `gap` apart; no
    /// sizes end it.
    void CutReplies(std::vector<std::size_t> sizes, Time gap);

    /// Sends `bytes` unasked.
    void SendUnasked(const Bytes& bytes);

    /// All requests since the start or the last `ClearRecord`.
    std::vector<Request> Requests() const;

    /// All bytes since then, in the order of their arrival, at whatever speed.
    Bytes Received() const;

    void ClearRecord();

    /// Waits until there are `count` requests on record; false when `limit` passes first.
    bool WaitForRequests(std::size_t count, std::chrono::milliseconds limit) const;

  private:
    class Worker;
    std::unique_ptr<Worker> worker_;
};

}  // namespace orbkl4sim

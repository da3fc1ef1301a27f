#pragma once

#include "simulator/device.h"
#include "simulator/line.h"
#include "simulator/port_link.h"
#include "simulator/pseudo_terminal.h"
#include "simulator/record.h"
#include "simulator/simulator.h"
#include "simulator/wake_pipe.h"

#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace orbkl4sim {

/// The thread of a simulator and everything it owns. While it runs, device, line and terminal may
/// only be used by tasks passed to `Do`.
class Simulator::Worker {
  public:
    explicit Worker(SimulatorOptions options);
    ~Worker() { Stop(); }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void Start();
    void Stop();

    /// Runs `task` on the thread and waits for its end; rethrows its exceptions.
    void Do(const std::function<void()>& task);

    /// The time of device and line.
    Time Now() const { return std::chrono::steady_clock::now() - start_; }

    /// Plugs the sensor in if it isn't yet; leaves it unplugged if a link can't be made.
    void Plug();

    /// Plugs the sensor in, after unplugging it if necessary, with `link` as its only link.
    void PlugAs(const std::filesystem::path& link);
    void Unplug();
    void AddLink(const std::filesystem::path& link);

    Device& Sensor() { return device_; }
    Line& Wire() { return line_; }
    Record& Log() { return record_; }
    const PseudoTerminal* Terminal() const { return terminal_.get(); }

  private:
    void Run();
    void RunTasks();
    void Wait();
    void ReceiveAll();
    void SendDue();
    void SaveMemory();
    void AddRequest(const Bytes& request, bool heard);

    const SimulatorOptions options_;
    const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    Device device_;
    Line line_;
    Record record_;
    int hostBaud_ = 0;
    std::uint64_t savedChanges_ = 0;
    std::unique_ptr<PseudoTerminal> terminal_;
    std::deque<std::filesystem::path> linkPaths_;
    std::deque<PortLink> links_;

    std::thread thread_;
    std::mutex mutex_;  // guards tasks_ and stopping_
    std::deque<std::packaged_task<void()>> tasks_;
    bool stopping_ = false;
    WakePipe wake_;
};

}  // namespace orbkl4sim

#pragma once

#include <chrono>
#include <csignal>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <sys/resource.h>
#include <sys/types.h>
#include <thread>
#include <vector>

namespace orbkl4::test {

using namespace std::chrono_literals;

/// Looks every few milliseconds whether `condition` holds; false where it doesn't within `limit`.
template <typename Condition>
bool WaitUntil(Condition condition, std::chrono::milliseconds limit = 10s) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(5ms);
    }
    return true;
}

/// How a program is started.
struct Launch {
    std::filesystem::path program;
    std::vector<std::string> arguments = {};
    std::map<std::string, std::string> environment = {};  ///< beside what is inherited
    std::map<int, int> descriptors = {};                  ///< the child's number to ours
    std::optional<rlim_t> fileSize = {};                  ///< no file can grow beyond so many bytes
    std::optional<uid_t> user = {};                       ///< who runs it; only root can choose
};

/// How a process ended.
struct Ending {
    int code = -1;   ///< its exit code, -1 where a signal ended it
    int signal = 0;  ///< the signal that ended it, 0 for none
};

/// A process of our own; it is killed with this object, and with the test.
class ChildProcess {
  public:
    /// Starts it; throws std::system_error where that fails.
    explicit ChildProcess(const Launch& launch);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t Id() const { return id_; }

    /// Whether it hasn't ended yet.
    bool Running() { return !Look().has_value(); }

    /// Sends it `signal`.
    void Signal(int signal) const;

    /// Stops it where it stands, until `Resume`.
    void Pause() const;
    void Resume() const { Signal(SIGCONT); }

    /// Ends it as nothing can resist, and waits for that.
    void Kill();

    /// Waits until it has ended by itself and says how; a plain `Ending` where it doesn't within
    /// `limit`.
    Ending AwaitEnd(std::chrono::milliseconds limit = 10s);

    /// Processor time that it has used so far, in seconds.
    double ProcessorSeconds() const;

  private:
    std::optional<Ending> Look();

    pid_t id_ = -1;
    std::optional<Ending> ending_;
};

/// The whole content of the file at `path`, empty where there is none.
std::string ContentOf(const std::filesystem::path& path);

}  // namespace orbkl4::test

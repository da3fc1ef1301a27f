#pragma once

#include <QProcess>

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace orbkl4::test {

using namespace std::chrono_literals;

// The program blocks for a second and more at times, and longer on a busy machine.
constexpr std::chrono::milliseconds patience = 20s;

/// Checks every few milliseconds whether `condition` holds; false if it doesn't within `limit`.
template <typename Condition>
bool WaitUntil(Condition condition, std::chrono::milliseconds limit = patience) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(5ms);
    }
    return true;
}

/// A child process with pipes to its standard input and output. It has an ordinary user's rights,
/// whoever runs the tests, and is killed with this object or with the test.
class ChildProcess {
  public:
    /// Starts `program` with `environment` added to ours; throws std::runtime_error if that fails.
    ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
                 const std::map<std::string, std::string>& environment);
    ~ChildProcess() { Kill(); }

    /// Writes `text` to its input; throws std::runtime_error if it has ended.
    void Write(const std::string& text);

    /// Reads its output up to `end`, which is left out; throws std::runtime_error if nothing comes
    /// for `patience` or it has ended.
    std::string ReadUpTo(char end);

    /// Stops it until `Resume`.
    void Pause() const;
    void Resume() const;

    /// Kills it and waits until it has ended.
    void Kill();

    /// Waits until it has ended by itself and returns its exit code, -1 if a signal ended it or it
    /// doesn't end within `limit`.
    int AwaitEnd(std::chrono::milliseconds limit = patience);

    /// Processor time used so far, in seconds.
    double ProcessorSeconds() const;

  private:
    QProcess process_;
    QByteArray received_;
};

/// The whole content of the file at `path`, empty if there is none.
std::string ContentOf(const std::filesystem::path& path);

}  // namespace orbkl4::test

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

// The program stands still for a second and more at times, and longer still on a busy machine.
constexpr std::chrono::milliseconds patience = 20s;

/// Looks every few milliseconds whether `condition` holds; false where it doesn't within `limit`.
template <typename Condition>
bool WaitUntil(Condition condition, std::chrono::milliseconds limit = patience) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(5ms);
    }
    return true;
}

/// A process of our own, its standard input and output in our hand. It has an ordinary user's
/// rights, whoever runs the tests, and is killed with this object, and with the test.
class ChildProcess {
  public:
    /// Starts `program` with `environment` beside what is inherited; throws std::runtime_error
    /// where that fails.
    ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
                 const std::map<std::string, std::string>& environment);
    ~ChildProcess() { Kill(); }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Hands it `text`; throws std::runtime_error where it has ended.
    void Say(const std::string& text);

    /// What it says next, up to `end`, which is taken off; throws std::runtime_error where
    /// nothing comes for long or it has ended.
    std::string Hear(char end);

    /// Stops it where it stands, until `Resume`.
    void Pause() const;
    void Resume() const;

    /// Ends it as nothing can resist, and waits for that.
    void Kill();

    /// Waits until it has ended by itself and returns its exit code, -1 where a signal ended it
    /// or it doesn't end within `limit`.
    int AwaitEnd(std::chrono::milliseconds limit = patience);

    /// Processor time that it has used so far, in seconds.
    double ProcessorSeconds() const;

  private:
    QProcess process_;
    QByteArray heard_;
};

/// The whole content of the file at `path`, empty where there is none.
std::string ContentOf(const std::filesystem::path& path);

}  // namespace orbkl4::test

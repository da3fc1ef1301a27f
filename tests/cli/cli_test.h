#pragma once

#include "simulator/simulator.h"
#include "simulator/temporary_folder.h"

#include <QJsonObject>
#include <QProcess>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orbkl4::cli::test {

using Words = std::vector<std::string>;
using Environment = std::map<std::string, std::string>;

/// The JSON object in `text`; empty if there is none.
QJsonObject JsonOf(const std::string& text);

/// An object as JSON text, to be compared and printed.
std::string TextOf(const QJsonObject& object);

/// All words of a sensor's memory.
std::vector<int> MemoryOf(const orbkl4sim::Simulator& sensor);

/// How a run of the program ended, and what it wrote.
struct Outcome {
    int exit = -1;
    std::string out;
    std::string err;

    /// The JSON document on standard output; empty if there is none.
    QJsonObject Json() const { return JsonOf(out); }

    /// The code of the JSON error.
    std::string Error() const;
};

/// The program, running with an ordinary user's rights, whoever runs the tests; killed with this
/// object.
class CliProcess {
  public:
    CliProcess(const Words& arguments, const Environment& environment);
    ~CliProcess();
    CliProcess(const CliProcess&) = delete;
    CliProcess& operator=(const CliProcess&) = delete;

    pid_t Id() const { return static_cast<pid_t>(process_.processId()); }

    /// Waits until it has ended; a death by a signal gives the exit code -1.
    Outcome AwaitEnd();

  private:
    QProcess process_;
};

/// Waits until `condition` holds; fails where it doesn't for long.
testing::AssertionResult Comes(const std::function<bool()>& condition);

/// Simulated sensors on ports of the test's own: the 16 ports of this machine aren't touched.
class CliTest : public testing::Test {
  protected:
    CliTest();

    /// Puts a sensor on port `number`.
    orbkl4sim::Simulator& Plug(int number, orbkl4sim::SimulatorOptions options = {});

    std::filesystem::path PortLink(int number) const;

    /// The path of the file `name` in a folder of this test's own, by default of its recording.
    std::string File(const std::string& name = "log") const {
        return (folder_.Path() / name).string();
    }

    /// What the program is to run in, and `more`.
    Environment Surroundings(const Environment& more = {}) const;

    /// What a bash script prints, in which $1 is the program.
    std::string Shell(const std::string& script) const;

    /// Runs the program to its end.
    Outcome Run(const Words& arguments, const Environment& more = {}) const;

    orbkl4sim::TemporaryFolder folder_;
    std::vector<std::unique_ptr<orbkl4sim::Simulator>> sensors_;
};

}  // namespace orbkl4::cli::test

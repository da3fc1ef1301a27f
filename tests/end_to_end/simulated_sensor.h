#pragma once

#include "child_process.h"
#include "stage.h"

#include <optional>
#include <string>
#include <vector>

namespace orbkl4::test {

/// The simulator program, run on a stage.
class SimulatedSensor {
  public:
    /// Starts it with `options`, run by `user`, and waits until the sensor is plugged in.
    explicit SimulatedSensor(const Stage& stage, const std::vector<std::string>& options = {},
                             std::optional<uid_t> user = {});
    ~SimulatedSensor();
    SimulatedSensor(const SimulatedSensor&) = delete;
    SimulatedSensor& operator=(const SimulatedSensor&) = delete;

    /// Gives it one of its commands, such as "unplug", and returns its answer.
    std::string Command(const std::string& command);

    /// The requests that came since the command "log on", such as "< F0"; no more are logged.
    std::vector<std::string> RequestsLogged();

  private:
    struct Pipes {
        Pipes();
        ~Pipes();
        Pipes(const Pipes&) = delete;
        Pipes& operator=(const Pipes&) = delete;

        int command = -1;  ///< our end
        int answer = -1;   ///< our end
        int theirInput = -1;
        int theirOutput = -1;
    };

    std::string ReadLine();

    Pipes pipes_;
    std::string heard_;
    std::vector<std::string> requests_;
    ChildProcess process_;
};

}  // namespace orbkl4::test

#pragma once

#include "child_process.h"
#include "stage.h"

#include <string>
#include <vector>

namespace orbkl4::test {

/// The simulator program, run on a stage.
class SimulatedSensor {
  public:
    /// Starts it with `options` and waits until the sensor is plugged in.
    explicit SimulatedSensor(const Stage& stage, const std::vector<std::string>& options = {});
    ~SimulatedSensor();
    SimulatedSensor(const SimulatedSensor&) = delete;
    SimulatedSensor& operator=(const SimulatedSensor&) = delete;

    /// Gives it one of its commands, such as "unplug", and returns its answer.
    std::string Command(const std::string& command);

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
    ChildProcess process_;
};

}  // namespace orbkl4::test

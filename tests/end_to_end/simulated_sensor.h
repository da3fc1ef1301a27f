#pragma once

#include "child_process.h"
#include "stage.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace orbkl4::test {

/// The simulator program, run on a stage.
class SimulatedSensor {
  public:
    /// Starts it with `options` and waits until the sensor is plugged in.
    SimulatedSensor(const Stage& stage, const std::vector<std::string>& options)
        : process_(SIMULATOR_PROGRAM, options, {{"XDG_CONFIG_HOME", stage.Config()}}) {
        process_.ReadUpTo('\n');  // it prints its link once all is set up
    }

    /// Gives it one of its commands, such as "unplug", which it must take.
    void Command(const std::string& command) {
        process_.Write(command + '\n');
        std::string answer = process_.ReadUpTo('\n');
        while (answer.starts_with('<')) {
            requests_.push_back(std::move(answer));
            answer = process_.ReadUpTo('\n');
        }
        if (answer != "ok") throw std::runtime_error(command + ": " + answer);
    }

    /// The requests that came since the command "log on", such as "< F0"; no more are logged.
    std::vector<std::string> RequestsLogged() {
        Command("log off");
        return std::exchange(requests_, {});
    }

  private:
    ChildProcess process_;
    std::vector<std::string> requests_;
};

}  // namespace orbkl4::test

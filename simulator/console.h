#pragma once

#include "simulator/simulator.h"

#include <atomic>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace orbkl4sim {

/// Text commands by which a user or a script controls the simulator.
class Console {
  public:
    /// `faults` are the initial rates of `simulator`; `logging` is set while requests are to be
    /// printed.
    Console(Simulator& simulator, const FaultRates& faults, std::atomic<bool>& logging);

    /// Carries out `line` and returns the answer: "ok", the value asked for, or "error: " and the
    /// reason; nothing for an empty line.
    std::string Execute(const std::string& line);

    /// Whether the user has asked to end the program.
    bool Ended() const { return ended_; }

  private:
    struct Command {
        std::string name;
        std::string usage;  // what follows the name
        std::string help;
        std::function<std::string(std::istringstream& words)> run;
    };

    std::vector<Command> GeneralCommands();
    std::vector<Command> RateCommands();
    std::string Help() const;
    std::string SetRate(double FaultRates::*rate, std::istringstream& words);
    std::string Delay(std::istringstream& words);
    std::string Memory(std::istringstream& words);

    Simulator& simulator_;
    FaultRates faults_;
    std::atomic<bool>& logging_;
    std::vector<Command> commands_;
    bool ended_ = false;
};

}  // namespace orbkl4sim

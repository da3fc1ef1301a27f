#pragma once

#include "simulator/simulator.h"

#include <atomic>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace orbkl4sim {

/// Commands as lines of text, for a person or a script that drives the simulator.
class Console {
  public:
    /// `faults` are the rates that `simulator` began with; `logging` is set while requests are to
    /// be shown as they come.
    Console(Simulator& simulator, const FaultRates& faults, std::atomic<bool>& logging);

    /// Carries out `line` and gives the answer: "ok", what was asked for, or "error: " and what is
    /// wrong; nothing for an empty line.
    std::string Execute(const std::string& line);

    /// Whether the program is to end.
    bool Ended() const { return ended_; }

  private:
    struct Command {
        std::string name;
        std::string usage;  // what follows the name
        std::string help;
        std::function<std::string(std::istringstream& words)> run;
    };

    std::vector<Command> Plain();
    std::vector<Command> Rates();
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

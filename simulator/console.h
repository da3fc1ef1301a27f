#pragma once

#include "simulator/arguments.h"
#include "simulator/simulator.h"

#include <atomic>
#include <functional>
#include <string>
#include <vector>

namespace orbkl4sim {

/// Text commands by which a user or a script controls the simulator.
class Console {
  public:
    /// `logging` is set while requests are to be printed.
    Console(Simulator& simulator, std::atomic<bool>& logging);

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
        std::function<std::string(Arguments& arguments)> run;
    };

    std::vector<Command> FaultCommands();
    std::vector<Command> OtherCommands();
    std::string Help() const;
    std::string Faults() const;
    std::string SetRate(double FaultRates::*rate, Arguments& arguments);
    std::string Memory(Arguments& arguments);

    Simulator& simulator_;
    std::atomic<bool>& logging_;
    std::vector<Command> commands_;
    bool ended_ = false;
};

}  // namespace orbkl4sim

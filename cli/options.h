#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace orbkl4::cli {

/// Which sensor the user means; nothing given means the only one there is.
struct SensorChoice {
    std::string device = {};                 ///< path of its line; empty: not given
    std::optional<int> port = std::nullopt;  ///< port number, 1 to 16
    std::optional<int> serialNumber = std::nullopt;
    std::optional<int> baud = std::nullopt;  ///< none: the three speeds are tried
};

/// What every command has.
struct Options {
    SensorChoice sensor;
    bool json = false;
    bool quiet = false;
};

/// The speeds that a sensor can have, in baud, in the order of the search.
std::vector<int> AllSpeeds();

/// Adds the options of every command to `app`, to be stored in `options` by its parsing.
void AddCommonOptions(CLI::App& app, Options& options);

/// Takes from the environment what the parsed command line of `app` doesn't say; throws
/// CLI::ParseError for a value that the option would refuse.
void TakeEnvironment(CLI::App& app);

}  // namespace orbkl4::cli

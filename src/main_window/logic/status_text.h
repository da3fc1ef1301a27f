#pragma once

#include "state/app_state.h"
#include "state/sample_state.h"

#include <cstdint>
#include <optional>
#include <string>

namespace orbkl4 {

/// What the status line looks up besides the two records.
struct StatusFacts {
    double samplesPerSecond = 0;
    std::optional<std::uint64_t> fileBytes =
        {};  ///< size of the data file; none where it is unknown
    std::optional<std::uint64_t> freeBytes =
        {};  ///< free space of its disk; none where it is unknown
};

/// The two parts of the status line (UTF-8).
struct StatusParts {
    std::string sensor;    ///< which sensor, and on which line
    std::string activity;  ///< the running channel, the data file, a failure to write; may be empty
};

/// What the program is doing. Numbers that go up and down keep their width.
StatusParts StatusText(const AppStateRecord& app, const SampleStateRecord& sample,
                       const StatusFacts& facts);

}  // namespace orbkl4

#pragma once

#include "cli/context.h"
#include "cli/error.h"
#include "cli/publisher.h"
#include "cli/row_sink.h"

#include <cstdint>
#include <optional>

namespace orbkl4::cli {

/// What is to be recorded, and how.
struct RecordOptions {
    const Channel* channel = nullptr;
    const RowFormat* format = nullptr;
    std::optional<std::uint64_t> samples = std::nullopt;     ///< rows after which it ends
    std::optional<double> seconds = std::nullopt;            ///< time after which it ends
    std::optional<double> rate = std::nullopt;               ///< rows a second; none: all
    bool wait = false;                                       ///< for a sensor that isn't there yet
    bool reconnect = true;                                   ///< where the line goes
    std::optional<PublisherSettings> broker = std::nullopt;  ///< to publish to
    Target target = {};  ///< its path may have strftime's fields
};

/// Records until the samples or the time asked for are there, a signal comes or nobody reads the
/// output any more; `ExitCode::No` where it has fewer samples or seconds than asked for.
ExitCode Record(const Context& context, const RecordOptions& options);

}  // namespace orbkl4::cli

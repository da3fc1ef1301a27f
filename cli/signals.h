#pragma once

#include <chrono>
#include <poll.h>
#include <span>

namespace orbkl4::cli {

using Clock = std::chrono::steady_clock;

/// From now on SIGINT, SIGTERM and SIGHUP don't end the process but every `WaitFor`, so that lines
/// and files are left in order; the same signal a second time ends it.
void CatchSignals();

/// The number of the signal caught, 0 if none was.
int SignalReceived();

/// Throws `Failure::Interrupted` once a signal has been caught.
void ThrowIfInterrupted();

/// Waits until one of `entries` is ready; false if `deadline` passes first. Throws
/// `Failure::Interrupted` once a signal has been caught.
bool WaitFor(std::span<pollfd> entries, Clock::time_point deadline);

}  // namespace orbkl4::cli

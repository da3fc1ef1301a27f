#pragma once

#include "link/logic/device_command.h"

#include <string>
#include <vector>

namespace orbkl4::bench {

/// What a sampling loop did.
struct LoopResult {
    double samples = 0;
    double intervals = 0;  ///< from sample to sample within `seconds`
    double seconds = 0;
    double cpuSeconds = 0;  ///< of the calling thread

    double Rate() const { return intervals / seconds; }
    double CpuPerSample() const { return cpuSeconds / samples; }
};

/// Processor seconds that the calling thread has used.
double ThreadCpuSeconds();

/// Samples `command` on the line `device` for `seconds`, with nothing but blocking reads and
/// writes: the least that any program can do.
LoopResult RawLoop(const std::string& device, DeviceCommand command, int baud, double seconds);

/// How long, in seconds, a handler takes that does nothing but the system calls of ours: takes the
/// reply, opens `file`, appends a row, closes it and sends the next request; `count` times.
std::vector<double> BareHandlerTimes(const std::string& device, DeviceCommand command, int baud,
                                     const std::string& file, int count);

}  // namespace orbkl4::bench

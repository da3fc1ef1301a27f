#include "bench/raw_loop.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

/// Runs the raw loop in a process of its own. Arguments: device, command byte, baud, seconds.
/// Prints the samples taken, the seconds they took and the processor seconds.
int main(int argc, char** argv) {
    constexpr int arguments = 5;
    if (argc != arguments) return EXIT_FAILURE;
    try {
        const auto command = static_cast<orbkl4::DeviceCommand>(std::atoi(argv[2]));
        const orbkl4::bench::LoopResult result =
            orbkl4::bench::RawLoop(argv[1], command, std::atoi(argv[3]), std::atof(argv[4]));
        std::printf("%.0f %.9f %.9f\n", result.samples, result.seconds, result.cpuSeconds);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

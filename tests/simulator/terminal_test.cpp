#include "simulator/host_line.h"
#include "simulator/simulator.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <sys/ioctl.h>
#include <thread>
#include <unistd.h>

namespace orbkl4sim {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

const Bytes kFirmware{0xF0, 0x0C, 0x1D, 0x0D, 0x0D};  // 3101: 0x0C1D + 0xF0

class TerminalTest : public testing::Test {
  protected:
    void Start(SimulatorOptions options = {}) {
        simulator = std::make_unique<Simulator>(std::move(options));
        simulator->Start();
    }

    /// Milliseconds that `request` takes to be answered by `count` bytes.
    double Duration(const HostLine& host, const Bytes& request, std::size_t count) {
        const auto start = steady_clock::now();
        EXPECT_EQ(count, host.Ask(request, count).size());
        return std::chrono::duration<double, std::milli>(steady_clock::now() - start).count();
    }

    std::unique_ptr<Simulator> simulator;
};

TEST_F(TerminalTest, AnswersAtItsSpeedAndWithoutOne) {
    Start();
    const HostLine host(simulator->DevicePath());
    EXPECT_EQ(kFirmware, host.Ask({0xF0}, 5));
    host.SetBaud(38400);
    EXPECT_EQ(kFirmware, host.Ask({0xF0}, 5));
}

}  // namespace
}  // namespace orbkl4sim

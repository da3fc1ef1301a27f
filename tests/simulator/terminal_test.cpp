#include "simulator/host_line.h"
#include "simulator/replies.h"
#include "simulator/simulator.h"
#include "simulator/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <sys/ioctl.h>
#include <unistd.h>

namespace orbkl4sim {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

class TerminalTest : public testing::Test {
  protected:
    void Start(SimulatorOptions options = {}) {
        simulator = std::make_unique<Simulator>(std::move(options));
        simulator->Start();
    }

    std::unique_ptr<Simulator> simulator;
};

TEST_F(TerminalTest, IsPacedByItsBaudRateWhichTheHostMustUse) {
    Start({.baud = 19200});
    const HostLine host(simulator->DevicePath());
    const auto start = steady_clock::now();
    EXPECT_EQ(kFirmware, host.Ask({0xF0}, 5)) << "before the host has set a baud rate";
    EXPECT_GT(steady_clock::now() - start, 3ms) << "6 bytes at 19200 baud take 3.1 ms";
    host.SetBaud(19200);
    EXPECT_EQ(21, WordAt(host.Ask({0x29, 0x71, 0x00, 0x2C, 0x00, 0x15, 0xAA}, 7), 1));
    EXPECT_EQ(kFirmware, host.Ask({0xF0}, 5)) << "a new baud rate applies after a power cycle";
    simulator->PowerCycle();
    host.Send({0xF1});
    ASSERT_TRUE(simulator->WaitForRequests(4, 2s));
    EXPECT_EQ(Bytes{}, host.Receive(1, 50ms));
    host.SetBaud(115200);
    EXPECT_EQ(kFirmware, host.Ask({0xF0}, 5));

    const auto requests = simulator->Requests();
    ASSERT_EQ(5U, requests.size());
    EXPECT_EQ(0, requests[0].hostBaud);
    EXPECT_EQ(Bytes{0xF1}, requests[3].bytes);
    EXPECT_EQ(19200, requests[3].hostBaud);
    EXPECT_FALSE(requests[3].heard);
    EXPECT_TRUE(requests[4].heard);
}

TEST_F(TerminalTest, ClearsTheExclusiveModeOfAHostThatDied) {
    Start();
    // Root can open an exclusive device, so the mode itself is checked.
    const auto exclusive = [](const HostLine& host) {
        int mode = -1;
        ioctl(host.Descriptor(), TIOCGEXCL, &mode);
        return mode;
    };
    {
        const HostLine died(simulator->DevicePath());
        ASSERT_EQ(0, ioctl(died.Descriptor(), TIOCEXCL));
        EXPECT_EQ(kFirmware, died.Ask({0xF0}, 5));
        EXPECT_EQ(1, exclusive(died)) << "kept while the host has it open";
    }
    int mode = 1;
    for (const auto end = steady_clock::now() + 2s; mode == 1 && steady_clock::now() < end;) {
        try {
            mode = exclusive(HostLine(simulator->DevicePath()));
        } catch (const std::system_error&) {  // still exclusive, for other users than root
        }
    }
    EXPECT_EQ(0, mode);
}

TEST_F(TerminalTest, UnplugHangsUpAndReplugLinksAgain) {
    const TemporaryFolder folder;
    const auto link = folder / "deep/port";
    Start();
    simulator->LinkAs(link);
    simulator->SetWord(26, 77);
    const HostLine old(link, 38400);
    simulator->Unplug();
    EXPECT_FALSE(std::filesystem::is_symlink(link));
    EXPECT_EQ("", simulator->DevicePath());
    simulator->Replug();
    EXPECT_TRUE(old.HangsUp(1s)) << "the old device is gone";
    const HostLine host(link, 38400);
    EXPECT_EQ(77, WordAt(host.Ask({0x28, 0x00, 26}, 7), 1)) << "power stayed on";

    EXPECT_THROW(simulator->ReplugAs(folder.Write("file", "")), std::runtime_error);
    EXPECT_TRUE(simulator->Faults().unplugged);
    EXPECT_TRUE(host.HangsUp(1s));
    simulator->ReplugAs(folder / "other");
    EXPECT_FALSE(std::filesystem::is_symlink(link));
    const HostLine other(folder / "other", 38400);
    EXPECT_EQ(kFirmware, other.Ask({0xF0}, 5));
    simulator->Stop();
    EXPECT_TRUE(other.HangsUp(1s));
    EXPECT_FALSE(std::filesystem::is_symlink(folder / "other"));
}

TEST_F(TerminalTest, ReplacesStaleLinksOnly) {
    const TemporaryFolder folder;
    Start();
    const auto link = folder / "1";
    for (const char* stale : {"/dev/pts/99999", "nowhere", "/dev/pts/ptmx"}) {
        std::filesystem::create_symlink(stale, link);
        simulator->LinkAs(link);
        EXPECT_EQ(simulator->DevicePath(), std::filesystem::read_symlink(link)) << stale;
        std::filesystem::remove(link);
    }
    std::filesystem::create_symlink("/dev/null", link);
    EXPECT_THROW(simulator->LinkAs(link), std::runtime_error);
    EXPECT_THROW(simulator->LinkAs(folder.Write("file", "mine")), std::runtime_error);
    EXPECT_EQ("mine", ContentOf(folder / "file"));
    simulator->Stop();
    EXPECT_EQ("/dev/null", std::filesystem::read_symlink(link)) << "not the simulator's any more";
}

TEST_F(TerminalTest, StoresTheMemory) {
    const TemporaryFolder folder;
    Start({.eepromFile = folder / "eeprom"});
    const HostLine host(simulator->DevicePath());
    EXPECT_EQ(7U, host.Ask({0x29, 0x71, 0x00, 0x1A, 0x12, 0x34, 0xAA}, 7).size());
    simulator.reset();
    Start({.eepromFile = folder / "eeprom"});
    EXPECT_EQ(0x1234, simulator->Word(26));
    EXPECT_THROW(simulator->Word(27), std::out_of_range);
}

}  // namespace
}  // namespace orbkl4sim

#include "child_process.h"
#include "stage.h"

#include <gtest/gtest.h>

#include <array>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace orbkl4::test {
namespace {

/// Reads one byte; 0 at the end of the pipe, -1 where nothing comes within some seconds.
ssize_t ReadByte(int pipe) {
    char byte = 0;
    pollfd watched{pipe, POLLIN, 0};
    return ::poll(&watched, 1, 10'000) == 1 ? ::read(pipe, &byte, 1) : -1;
}

TEST(SimulatorProgram, LeavesNothingBehindWhereItsParentIsKilled) {
    const Stage stage;
    std::array<int, 2> output{};
    ASSERT_EQ(::pipe2(output.data(), O_CLOEXEC), 0);
    Launch launch{"/bin/sh"};
    launch.arguments = {"-c", "\"$0\" --port 3 --exit-with-parent & wait", stage.Simulator()};
    launch.environment = {{"XDG_CONFIG_HOME", stage.Config()}};
    launch.descriptors = {{STDOUT_FILENO, output[1]}};
    ChildProcess shell(launch);
    ::close(output[1]);
    EXPECT_EQ(ReadByte(output[0]), 1) << "it tells its link once all is set up";
    EXPECT_TRUE(fs::is_symlink(stage.PortLink(3)));
    shell.Kill();
    ssize_t last = 1;
    while (last == 1) last = ReadByte(output[0]);
    EXPECT_EQ(last, 0) << "the simulator has ended and closed its output";
    EXPECT_FALSE(fs::is_symlink(stage.PortLink(3)));
    ::close(output[0]);
}

}  // namespace
}  // namespace orbkl4::test

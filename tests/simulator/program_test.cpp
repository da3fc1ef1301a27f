#include "simulator/console.h"
#include "simulator/host_line.h"
#include "simulator/temporary_folder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace orbkl4sim {
namespace {

using namespace std::chrono_literals;

TEST(Console, TakesCommands) {
    Simulator simulator({.motion = Rest(), .noise = false});
    simulator.Start();
    std::atomic<bool> logging = false;
    Console console(simulator, {}, logging);
    EXPECT_EQ("64", console.Execute("eeprom 44"));
    for (const char* right : {"  eeprom 26 513  ", "temperature 50", "motion rest 0 0 45",
                              "delay 0.5 20", "delay 0", "log on"}) {
        EXPECT_EQ("ok", console.Execute(right)) << right;
    }
    for (const char* wrong :
         {"eeprom", "eeprom 45", "eeprom 44 65536", "eeprom 44 1 2", "drop", "drop 1.1", "drop -1",
          "drop x", "silent", "silent maybe", "fly", "unplug now", "motion fly", "delay 1 -5"}) {
        EXPECT_EQ("error: ", console.Execute(wrong).substr(0, 7)) << wrong;
    }
    EXPECT_TRUE(logging);
    const HostLine host(simulator.DevicePath());
    EXPECT_EQ(513, WordAt(host.Ask({0x28, 0x00, 0x1A}, 7), 1));
    EXPECT_EQ(13107, WordAt(host.Ask({0x07}, 7), 1));
    EXPECT_EQ(0x2000, WordAt(host.Ask({0x0E}, 11), 5));
    EXPECT_EQ("ok", console.Execute("drop 1"));
    host.Send({0xF0});
    EXPECT_EQ(Bytes{}, host.Receive(1, 50ms));
    EXPECT_FALSE(console.Ended());
    EXPECT_EQ("ok", console.Execute("quit"));
    EXPECT_TRUE(console.Ended());
}

const std::string kProgram = "\"" SIMULATOR_PROGRAM "\"";
const std::string kStart = kProgram + " --port 16 >$OUT ";
const std::string kAwaitLink = "& until test -L $LINK; do sleep 0.01; done; ";

/// Runs the program in shell scripts.
class ProgramTest : public testing::Test {
  protected:
    /// The exit status of `script`, 124 if it doesn't end.
    int Run(const std::string& script) const {
        const std::string settings = "XDG_CONFIG_HOME=" + config.Path().string() +
                                     " LINK=" + link.string() + " OUT=" + output.string();
        return WEXITSTATUS(std::system((settings + " timeout 20 sh -c '" + script + "'").c_str()));
    }

    TemporaryFolder config;
    std::filesystem::path link = config / "Kestrelmoor/ORB-KL4-RS232/ports/16";
    std::filesystem::path output = config / "out";
};

TEST_F(ProgramTest, KeepsItsPortUntilASignalOrQuit) {
    for (const std::string signal : {"TERM", "INT", "HUP"}) {
        // The end of standard input alone doesn't end the program.
        const std::string ending = "sleep 0.1; test -L $LINK && kill -" + signal + " $! && wait $!";
        EXPECT_EQ(0, Run(kStart + "</dev/null " + kAwaitLink + ending)) << signal;
        EXPECT_FALSE(std::filesystem::is_symlink(link)) << signal;
    }
    EXPECT_TRUE(ContentOf(output).starts_with(link.string() + " -> /dev/"));
    EXPECT_EQ(0, Run("echo quit | " + kStart));
    EXPECT_TRUE(ContentOf(output).ends_with("\nok\n"));
    EXPECT_EQ(0, Run(kStart + "--exit-on-eof </dev/null"));
}

TEST_F(ProgramTest, EndsWithItsParent) {
    ASSERT_EQ(0, Run(kStart + "--exit-with-parent " + kAwaitLink + "echo $! >$OUT.id"));
    const int ended = Run("while test -L $LINK; do sleep 0.01; done");
    EXPECT_EQ(0, ended);
    if (ended != 0) Run("kill $(cat $OUT.id)");
}

TEST_F(ProgramTest, ReportsWrongOptions) {
    using Options = std::vector<std::string>;
    const std::string eeprom = "--eeprom " + config.Write("bad", "x").string();
    const std::string taken = "--link " + config.Write("mine", "").string();
    for (const std::string& wrong : Options{"--port 17", "--port 0", "--baud 9600", "--motion fly",
                                            "--drop 2", "--port 1 --link x", eeprom, taken}) {
        const int status = Run(kProgram + " --exit-on-eof " + wrong + " </dev/null 2>$OUT");
        EXPECT_GT(status, 0) << wrong;
        EXPECT_LT(status, 124) << wrong << ": neither killed nor hanging";
        EXPECT_NE("", ContentOf(output)) << wrong;
    }
}

}  // namespace
}  // namespace orbkl4sim

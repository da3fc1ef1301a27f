#include "simulator/console.h"
#include "simulator/host_line.h"
#include "simulator/temporary_folder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <utility>
#include <vector>

namespace orbkl4sim {
namespace {

using namespace std::chrono_literals;

class ConsoleTest : public testing::Test {
  protected:
    void ExpectAllDone(const std::vector<std::string>& lines) {
        for (const std::string& line : lines) EXPECT_EQ("ok", console.Execute(line)) << line;
    }

    Simulator simulator{{.motion = Rest(), .noise = false}};
    std::atomic<bool> logging = false;
    Console console{simulator, logging};
};

TEST_F(ConsoleTest, ReportsWrongCommandsAndChangesNothing) {
    const std::string address = "ADDRESS must be an even number from 0 to 254";
    const std::string word = "WORD must be a whole number from 0 to 65535";
    const std::string celsius = "CELSIUS must be a number from -50 to 449";
    const std::string rate = "RATE must be a number from 0 to 1";
    const std::pair<const char*, std::string> rows[] = {
        {"fly", "no command 'fly'; try help"},
        {"eeprom", "ADDRESS is missing; it must be an even number from 0 to 254"},
        {"eeprom 45", "\"45\" is not an even number; " + address},
        {"eeprom 26 65536", "\"65536\" is out of range; " + word},
        {"eeprom 26 1.5", "\"1.5\" is not a whole number; " + word},
        {"temperature hot", "\"hot\" is not a number; " + celsius},
        {"temperature nan", "\"nan\" is not a number; " + celsius},
        {"temperature -50.1", "\"-50.1\" is out of range; " + celsius},
        {"motion", "the motion is missing"},
        {"motion fly", "no motion: 'fly' (rest, rest ROLL PITCH YAW, tumble or file PATH)"},
        {"motion tumble 3", "unexpected \"3\""},
        {"motion rest 0 x 45", "\"x\" is not a number; PITCH must be a number from -360 to 360"},
        {"motion rest 0 0", "YAW is missing; it must be a number from -360 to 360"},
        {"drop", "RATE is missing; it must be a number from 0 to 1"},
        {"drop x", "\"x\" is not a number; " + rate},
        {"corrupt 1.1", "\"1.1\" is out of range; " + rate},
        {"delay -1 20", "\"-1\" is out of range; " + rate},
        {"delay 0.5 soon",
         "\"soon\" is not a number; MILLISECONDS must be a number from 0 to 3600000"},
        {"stuck 27 on", "\"27\" is not an even number; " + address},
        {"silent maybe", "\"maybe\" is neither on nor off"},
        {"replug 17", "\"17\" is out of range; PORT must be a whole number from 1 to 16"},
        {"power-cycle now", "unexpected \"now\""},
    };
    simulator.Start();
    for (const auto& [line, error] : rows) EXPECT_EQ("error: " + error, console.Execute(line));
    EXPECT_EQ("no faults are on", console.Execute("faults"));
    EXPECT_EQ("10", console.Execute("eeprom 26"));
}

TEST_F(ConsoleTest, ListsItsFaults) {
    simulator.Start();
    ExpectAllDone({"delay 0.5 20", "stray 0.25", "flood on", "silent on", "stuck 26 on",
                   "stuck 254 on", "power off", "unplug"});
    EXPECT_EQ(
        "stray 0.25, delay 0.5 20, silent on, flood on, stuck 26 on, stuck 254 on, power off, "
        "unplug",
        console.Execute("faults"));
    ExpectAllDone({"replug", "power-cycle", "stuck 26 off", "stuck 254 off", "flood off",
                   "silent off", "stray 0", "delay 0"});
    EXPECT_EQ("no faults are on", console.Execute("faults"));
    EXPECT_NE(std::string::npos, console.Execute("help").find("\nfaults"));
}

TEST_F(ConsoleTest, SetsTheSensor) {
    simulator.Start();
    ExpectAllDone({"  temperature +50  ", "motion tumble", "motion rest", "motion rest 0 0 45",
                   "eeprom 26 513", "log on", "quit"});
    const HostLine host(simulator.DevicePath());
    EXPECT_EQ(13107, WordAt(host.Ask({0x07}, 7), 1)) << "(50 / 100 + 0.5) / 5 * 65536";
    EXPECT_EQ(0x2000, WordAt(host.Ask({0x0E}, 11), 5)) << "45 degrees";
    EXPECT_EQ(513, WordAt(host.Ask({0x28, 0x00, 26}, 7), 1));
    EXPECT_TRUE(logging);
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

TEST_F(ProgramTest, StartsWithGivenWordsAndChangesPorts) {
    const std::string commands =
        "(echo eeprom 134; echo eeprom 132; echo faults; echo replug 15; "
        "until test -L ${LINK%16}15; do sleep 0.01; done; "
        "test -L $LINK || echo quit) | ";
    const std::string options = "--serial-number 2001 --word 132 14 --stuck 26 --corrupt 0.05";
    EXPECT_EQ(0, Run(commands + kStart + options));
    EXPECT_TRUE(ContentOf(output).ends_with("\n2001\n14\ncorrupt 0.05, stuck 26 on\nok\nok\n"));
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
                                            "--drop 2", "--port 1 --link x", "--word 45 1",
                                            "--serial-number 70000", "--stuck 3", eeprom, taken}) {
        const int status = Run(kProgram + " --exit-on-eof " + wrong + " </dev/null 2>$OUT");
        EXPECT_GT(status, 0) << wrong;
        EXPECT_LT(status, 124) << wrong << ": neither killed nor hanging";
        EXPECT_NE("", ContentOf(output)) << wrong;
    }
}

}  // namespace
}  // namespace orbkl4sim

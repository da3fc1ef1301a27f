#include "simulator/host_line.h"
#include "simulator/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <functional>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace orbkl4sim {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

bool Within(std::chrono::milliseconds limit, const std::function<bool()>& condition) {
    const auto end = steady_clock::now() + limit;
    while (!condition()) {
        if (steady_clock::now() > end) return false;
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

/// The program itself, its standard input and output in the test's hand.
class Program {
  public:
    explicit Program(std::vector<std::string> arguments, const TemporaryFolder& config) {
        std::array<int, 2> in{};
        std::array<int, 2> out{};
        if (pipe(in.data()) != 0 || pipe(out.data()) != 0) throw std::runtime_error("pipe");
        process_ = fork();
        if (process_ == 0) {
            dup2(in[0], STDIN_FILENO);
            dup2(out[1], STDOUT_FILENO);
            for (const int end : {in[0], in[1], out[0], out[1]}) close(end);
            setenv("XDG_CONFIG_HOME", config.Path().c_str(), 1);
            arguments.insert(arguments.begin(), SIMULATOR_PROGRAM);
            std::vector<char*> texts;
            for (std::string& argument : arguments) texts.push_back(argument.data());
            texts.push_back(nullptr);
            execv(SIMULATOR_PROGRAM, texts.data());
            _exit(127);
        }
        close(in[0]);
        close(out[1]);
        input_ = in[1];
        output_ = out[0];
    }

    ~Program() {
        if (process_ > 0) {
            kill(process_, SIGKILL);
            waitpid(process_, nullptr, 0);
        }
        CloseInput();
        close(output_);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    pid_t Process() const { return process_; }

    void CloseInput() {
        if (input_ >= 0) close(input_);
        input_ = -1;
    }

    /// The next line of output; empty where none comes.
    std::string Line() {
        while (pending_.find('\n') == std::string::npos) {
            pollfd watched{output_, POLLIN, 0};
            std::array<char, 256> buffer{};
            if (poll(&watched, 1, 5000) != 1) return "";
            const ssize_t size = read(output_, buffer.data(), buffer.size());
            if (size <= 0) return "";
            pending_.append(buffer.data(), static_cast<std::size_t>(size));
        }
        const std::string line = pending_.substr(0, pending_.find('\n'));
        pending_.erase(0, line.size() + 1);
        return line;
    }

    std::string Command(const std::string& line) {
        const std::string text = line + "\n";
        if (write(input_, text.data(), text.size()) < 0) return "no input";
        return Line();
    }

    /// The exit status, 1000 and more for a signal; -1 where it doesn't end in time.
    int Wait() {
        int status = 0;
        const bool ended = Within(5s, [&] { return waitpid(process_, &status, WNOHANG) != 0; });
        if (!ended) return -1;
        process_ = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
    }

  private:
    pid_t process_ = 0;
    int input_ = -1;
    int output_ = -1;
    std::string pending_;
};

class ProgramTest : public testing::Test {
  protected:
    TemporaryFolder config;
    std::filesystem::path link = config / "Kestrelmoor/ORB-KL4-RS232/ports/16";
};

TEST_F(ProgramTest, StandsOnItsPortUntilItIsToldToEnd) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        Program program({"--port", "16"}, config);
        EXPECT_NE("", program.Line());
        const HostLine host(link, 38400);
        EXPECT_EQ(5U, host.Ask({0xF0}, 5).size());
        kill(program.Process(), signal);
        EXPECT_EQ(0, program.Wait()) << signal;
        EXPECT_FALSE(std::filesystem::is_symlink(link)) << signal;
    }
}

TEST_F(ProgramTest, AKilledOnesLinkIsReplaced) {
    {
        Program killed({"--port", "16"}, config);
        EXPECT_NE("", killed.Line());
    }
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    Program program({"--port", "16"}, config);
    EXPECT_NE("", program.Line());
    EXPECT_EQ(5U, HostLine(link, 38400).Ask({0xF0}, 5).size());
}

TEST_F(ProgramTest, TakesCommands) {
    Program program({"--port", "16", "--no-noise", "--motion", "rest 0 0 90"}, config);
    EXPECT_EQ(link.string() + " -> ", program.Line().substr(0, link.string().size() + 4));
    EXPECT_EQ("64", program.Command("eeprom 44"));
    EXPECT_EQ("ok", program.Command("  eeprom 26 513  "));
    EXPECT_EQ("ok", program.Command("temperature 50"));
    EXPECT_EQ("ok", program.Command("delay 0.5 20"));
    for (const char* wrong :
         {"eeprom", "eeprom 45", "eeprom 44 65536", "eeprom 44 1 2", "drop", "drop 1.1", "drop -1",
          "drop x", "silent", "silent maybe", "fly", "unplug now", "motion fly", "delay 1 -5"}) {
        EXPECT_EQ("error: ", program.Command(wrong).substr(0, 7)) << wrong;
    }
    EXPECT_EQ("ok", program.Command("delay 0"));
    {
        const HostLine host(link, 38400);
        EXPECT_EQ((Bytes{0x28, 0x02, 0x01}), [&] {
            Bytes reply = host.Ask({0x28, 0x00, 0x1A}, 7);
            reply.resize(3);
            return reply;
        }());
        EXPECT_EQ(13107, WordAt(host.Ask({0x07}, 7), 1));
        EXPECT_EQ(0x4000, WordAt(host.Ask({0x0E}, 11), 5));
        EXPECT_EQ("ok", program.Command("motion rest 0 0 45"));
        EXPECT_EQ(0x2000, WordAt(host.Ask({0x0E}, 11), 5));
        EXPECT_EQ("ok", program.Command("log on"));
        host.Send({0x28, 0x00, 0xFE});
        EXPECT_EQ("< 28 00 FE", program.Line());
        EXPECT_EQ("ok", program.Command("unplug"));
        EXPECT_TRUE(host.HangsUp(1s));
    }
    EXPECT_EQ("ok", program.Command("replug"));
    EXPECT_EQ("ok", program.Command("drop 1"));
    const HostLine host(link, 38400);
    host.Send({0xF0});
    EXPECT_EQ("< F0", program.Line());
    EXPECT_EQ(Bytes{}, host.Receive(1, 50ms));
    EXPECT_EQ("ok", program.Command("quit"));
    EXPECT_EQ(0, program.Wait());
}

TEST_F(ProgramTest, EndsWithItsInputOnlyIfAsked) {
    Program lasting({"--port", "16"}, config);
    EXPECT_NE("", lasting.Line());
    lasting.CloseInput();
    EXPECT_EQ(5U, HostLine(link, 38400).Ask({0xF0}, 5).size());

    Program ending({"--port", "15", "--exit-on-eof"}, config);
    EXPECT_NE("", ending.Line());
    ending.CloseInput();
    EXPECT_EQ(0, ending.Wait());
    EXPECT_EQ(0, kill(lasting.Process(), 0));
}

TEST_F(ProgramTest, EndsWithItsParentIfAsked) {
    std::array<int, 2> ends{};
    ASSERT_EQ(0, pipe(ends.data()));
    const pid_t parent = fork();
    if (parent == 0) {
        Program program({"--port", "16", "--exit-with-parent"}, config);
        program.Line();
        pid_t left = std::filesystem::is_symlink(link) ? program.Process() : 0;
        if (write(ends[1], &left, sizeof left) != sizeof left) left = 0;
        _exit(0);  // without the destructors, so that the program is left behind
    }
    pid_t left = 0;
    ASSERT_EQ(ssize_t{sizeof left}, read(ends[0], &left, sizeof left));
    for (const int end : ends) close(end);
    waitpid(parent, nullptr, 0);
    ASSERT_NE(0, left) << "it stood on its port";
    const bool ended = Within(5s, [&] { return !std::filesystem::is_symlink(link); });
    EXPECT_TRUE(ended);
    if (!ended) kill(left, SIGKILL);
}

TEST_F(ProgramTest, SaysWhatIsWrongWithItsOptions) {
    const std::vector<std::string> wrong[] = {{"--port", "17"},
                                              {"--port", "0"},
                                              {"--baud", "9600"},
                                              {"--motion", "fly"},
                                              {"--drop", "2"},
                                              {"--eeprom", config.Write("bad", "x").string()},
                                              {"--port", "1", "--link", "x"},
                                              {"--link", config.Write("mine", "").string()}};
    for (const auto& arguments : wrong) {
        Program program(arguments, config);
        const int status = program.Wait();
        EXPECT_GT(status, 0) << arguments[0] << ' ' << arguments[1];
        EXPECT_LT(status, 1000) << arguments[0] << ' ' << arguments[1];
    }
}

}  // namespace
}  // namespace orbkl4sim

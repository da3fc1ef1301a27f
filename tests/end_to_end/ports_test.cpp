#include "running_program.h"
#include "simulated_sensor.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <grp.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace orbkl4::test {
namespace {

constexpr uid_t nobody = 65534;

/// A serial line of ours.
class Terminal {
  public:
    explicit Terminal(uid_t owner) : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        ::grantpt(master_);
        ::unlockpt(master_);
        path_ = ::ptsname(master_);
        slave_ = ::open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
        EXPECT_EQ(::chown(path_.c_str(), owner, static_cast<gid_t>(-1)), 0);
    }
    ~Terminal() {
        ::close(slave_);
        ::close(master_);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    const fs::path& Path() const { return path_; }

    /// Lets its group alone use it.
    void Forbid() const { EXPECT_EQ(::chmod(path_.c_str(), 0060), 0); }

    void Hold() const { EXPECT_EQ(::ioctl(slave_, TIOCEXCL), 0); }

    std::string Group() const {
        struct stat status {};
        ::stat(path_.c_str(), &status);
        const group* const entry = ::getgrgid(status.st_gid);
        return entry != nullptr ? entry->gr_name : "";
    }

  private:
    int master_;
    int slave_ = -1;
    fs::path path_;
};

/// Ports 1 to 15 can't be used, each for a reason of its own, by the ordinary user who runs the
/// program: root could use some.
class UselessPorts : public testing::Test {
  protected:
    UselessPorts() {
        std::ofstream(File()) << "no line";
        ::mkfifo(Fifo().c_str(), 0666);
        fs::create_directory(Folder());
        forbidden.Forbid();
        held.Hold();
        const std::array<fs::path, 5> targets{File(), Fifo(), Folder(), forbidden.Path(),
                                              held.Path()};
        for (int port = 1; port <= 15; ++port) {
            stage.LinkPort(port, targets.at(static_cast<std::size_t>(port - 1) % 5));
        }
        if (user) stage.GiveTo(*user);
    }

    fs::path File() const { return stage.Root() / "file"; }
    fs::path Fifo() const { return stage.Root() / "fifo"; }
    fs::path Folder() const { return stage.Root() / "folder"; }

    static void SearchAllPorts(RunningProgram& program) {
        program.AwaitScreen("Main");
        program.Choose("Main", "mnuConnect");
        program.AwaitScreen("Connect");
        program.Press("Connect", "cmdConnectAuto");
    }

    const std::optional<uid_t> user =
        ::geteuid() == 0 ? std::optional(nobody) : std::optional<uid_t>();
    const uid_t owner = user.value_or(::geteuid());
    Stage stage;
    Terminal forbidden{owner};
    Terminal held{owner};
};

TEST_F(UselessPorts, AreAllPassedOverWithoutAWord) {
    stage.LinkPort(16, File());
    RunningProgram program(stage, {{}, user});
    const auto start = std::chrono::steady_clock::now();
    SearchAllPorts(program);
    EXPECT_EQ(program.AwaitBox().text,
              "ORB-KL4 not found on comm ports 1-16! Check your cable, power supply, comm port, "
              "etc. If BAUD RATE was changed, cycle the ORB-KL4 power. Click Retry to attempt "
              "re-connect or Cancel to quit.");
    // A single test of a line that can be opened takes 200 milliseconds.
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2s) << "none blocks";
    program.Answer("Cancel");
    program.AwaitNoScreen("Connect");
    EXPECT_EQ(program.Get("Main", "mnuDisplay", "enabled"), "false");
    EXPECT_EQ(stage.ErrorLog(), "");
}

TEST_F(UselessPorts, GiveATextOfTheirOwnOnceTheyAreOpened) {
    const SimulatedSensor sensor(stage, {"--port", "16"}, user);
    RunningProgram program(stage, {{}, user});
    SearchAllPorts(program);
    program.AwaitConnected();
    program.Answer("OK");
    program.AwaitNoScreen("Connect");

    const std::string absent = "Invalid port number: there is no serial line at port ";
    struct Useless {
        const char* port;
        const char* number;
        std::string description;
    };
    const std::array<Useless, 5> useless{
        {{"1", "8002", absent + "1 (" + File().string() + ")"},
         {"2", "8002", absent + "2 (" + Fifo().string() + ")"},
         {"3", "8002", absent + "3 (" + Folder().string() + ")"},
         {"4", "70",
          "Permission denied: port 4 (" + forbidden.Path().string() +
              "). No permission to use it; the group \"" + forbidden.Group() + "\" has it"},
         {"5", "8005",
          "Port in use: port 5 (" + held.Path().string() + ") is held by another program"}}};
    for (const auto& [port, number, description] : useless) {
        SCOPED_TRACE(description);
        // A manual connection that fails leaves the port number that was tried.
        program.Choose("Main", "mnuConnect");
        program.AwaitScreen("Connect");
        program.Turn("Connect", "SSTab1", "Manual");
        program.Type("Connect", "NumEditCommPort", port);
        program.Await("Connect", "NumEditCommPort", "value", port);
        program.Press("Connect", "cmdConnectManual");
        EXPECT_EQ(program.AwaitBox().text,
                  std::string("ORB-KL4 not found on comm port ") + port +
                      " at 38400 baud rate! Check your cable, power supply, comm port, baud rate "
                      "setting, etc. Cycle the ORB-KL4 power. Click Retry to attempt re-connect "
                      "or Cancel to stop.");
        program.Answer("Cancel");
        program.Await("Connect", "cmdQuit", "enabled", "true");
        program.Press("Connect", "cmdQuit");
        program.AwaitNoScreen("Connect");

        program.Choose("Main", "mnuSensorBits");
        EXPECT_EQ(program.AwaitBox(), AboutError(number, "OpenCommPort", "Main", description));
        program.Answer("Retry");
        EXPECT_EQ(program.AwaitBox(), AboutError("8018", "SetToPolledMode", "Main",
                                                 "Operation valid only when the port is open"));
        program.Answer("Retry");
        program.AwaitScreen("SensorBits");
        program.Choose("SensorBits", "mnuReturn");
        program.AwaitNoScreen("SensorBits");
    }
}

}  // namespace
}  // namespace orbkl4::test

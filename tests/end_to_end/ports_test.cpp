#include "running_program.h"
#include "simulated_sensor.h"

#include <gtest/gtest.h>

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

/// A serial line of ours.
class Terminal {
  public:
    Terminal() : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        ::grantpt(master_);
        ::unlockpt(master_);
        path_ = ::ptsname(master_);
        slave_ = ::open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    }
    ~Terminal() {
        ::close(slave_);
        ::close(master_);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    const std::string& Path() const { return path_; }

    /// Lets whoever `mode` names use it, and returns its group's name.
    std::string Restrict(mode_t mode) const {
        EXPECT_EQ(::chmod(path_.c_str(), mode), 0);
        struct stat status {};
        ::stat(path_.c_str(), &status);
        const group* const entry = ::getgrgid(status.st_gid);
        return entry != nullptr ? entry->gr_name : "";
    }

    void Hold() const { EXPECT_EQ(::ioctl(slave_, TIOCEXCL), 0); }

  private:
    int master_;
    int slave_ = -1;
    std::string path_;
};

/// Ports 1 to 7 can't be used, each for a reason of its own.
class UselessPorts : public testing::Test {
  protected:
    UselessPorts() {
        std::ofstream(file) << "no line";
        ::mkfifo(fifo.c_str(), 0666);
        fs::create_directory(folder);
        held.Hold();
        barred.Restrict(0);
        int port = 0;
        for (const auto& target :
             {file, fifo, folder, forbidden.Path(), held.Path(), device, barred.Path()}) {
            stage.LinkPort(++port, target);
        }
    }

    Stage stage;
    const std::string file = stage.Root() / "file";
    const std::string fifo = stage.Root() / "fifo";
    const std::string folder = stage.Root() / "folder";
    const std::string device = "/dev/null";
    Terminal forbidden;
    Terminal barred;
    Terminal held;
    const std::string group = forbidden.Restrict(0060);
};

TEST_F(UselessPorts, ArePassedOverByTheSearchWithoutAWord) {
    const SimulatedSensor sensor(stage, {"--port", "8"});
    RunningProgram program(stage);
    program.Search();
    EXPECT_EQ(program.Get("Connect", "txtPort", "text"), "8");
    EXPECT_EQ(stage.ErrorLog(), "");
}

TEST_F(UselessPorts, GiveATextOfTheirOwnOnceTheyAreOpened) {
    struct Useless {
        const char* port;
        const char* number;
        std::string description;
    };
    const std::string absent = "Invalid port number: there is no serial line at port ";
    const Useless cases[] = {
        {"1", "8002", absent + "1 (" + file + ")"},
        {"2", "8002", absent + "2 (" + fifo + ")"},
        {"3", "8002", absent + "3 (" + folder + ")"},
        {"4", "70",
         "Permission denied: port 4 (" + forbidden.Path() +
             "). No permission to use it; the group \"" + group + "\" has it"},
        {"5", "8005", "Port in use: port 5 (" + held.Path() + ") is held by another program"},
        {"6", "8002", absent + "6 (" + device + ")"},
        {"7", "70", "Permission denied: port 7 (" + barred.Path() + "). No permission to use it"},
        {"-3", "8002", absent + "-3"},
        {"0", "8002", absent + "0"},
        {"17", "8002", absent + "17"}};
    const Reported closed{"8018", "SetToPolledMode", "Main",
                          "Operation valid only when the port is open"};
    std::string log;
    for (const auto& [port, number, description] : cases) {
        SCOPED_TRACE(description);
        stage.StoreSettings(std::string("CurrentCommPort=") + port + "\n");
        RunningProgram program(stage);
        program.AwaitScreen("Main");
        program.Unlock("mnuDisplay");
        program.Choose("Main", "mnuSensorBits");
        for (const Reported& error :
             {Reported{number, "OpenCommPort", "Main", description}, closed}) {
            EXPECT_EQ(program.AwaitBox(), error.Box());
            log += error.Record();
            EXPECT_EQ(stage.ErrorLog(), log);
            program.Answer("Retry");
        }
        program.AwaitScreen("SensorBits");
    }
}

}  // namespace
}  // namespace orbkl4::test

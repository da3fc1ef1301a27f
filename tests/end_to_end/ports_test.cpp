#include "running_program.h"
#include "simulated_sensor.h"
#include "support/pty_master.h"

#include <QFile>
#include <QFileInfo>
#include <QSerialPort>
#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace orbkl4::test {
namespace {

/// Ports 1 to 6 can't be used, each for a different reason.
class UselessPorts : public testing::Test {
  protected:
    UselessPorts() {
        std::ofstream(file) << "no line";
        ::mkfifo(fifo.c_str(), 0666);
        QFile::setPermissions(forGroup.Path(), QFile::ReadGroup | QFile::WriteGroup);
        QFile::setPermissions(forNobody.Path(), {});
        holder.setPortName(held.Path());
        EXPECT_TRUE(holder.open(QIODevice::ReadWrite));
        int port = 0;
        for (const auto& target : {file, fifo, std::string("/dev/null"), PathOf(forGroup),
                                   PathOf(forNobody), PathOf(held)}) {
            stage.LinkPort(++port, target);
        }
    }

    static std::string PathOf(const PtyMaster& line) { return line.Path().toStdString(); }

    Stage stage;
    const std::string file = stage.Root() / "file";
    const std::string fifo = stage.Root() / "fifo";
    PtyMaster forGroup;
    PtyMaster forNobody;
    PtyMaster held;
    QSerialPort holder;
};

TEST_F(UselessPorts, AreSkippedSilentlyByTheSearch) {
    const SimulatedSensor sensor(stage, {"--port", "8"});
    RunningProgram program(stage);
    program.Search();
    EXPECT_EQ(program.Get("Connect", "txtPort", "text"), "8");
    EXPECT_EQ(stage.ErrorLog(), "");
}

TEST_F(UselessPorts, EachHaveAnErrorTextWhenOpened) {
    const std::string lack = "No permission to use it";
    const std::string group = QFileInfo(forGroup.Path()).group().toStdString();
    struct Useless {
        const char* port;
        const char* number;
        std::string description;
    };
    const Useless cases[] = {
        {"1", "8002", "Invalid port number: there is no serial line at port 1 (" + file + ")"},
        {"4", "70",
         "Permission denied: port 4 (" + PathOf(forGroup) + "). " + lack + "; the group \"" +
             group + "\" has it"},
        {"5", "70", "Permission denied: port 5 (" + PathOf(forNobody) + "). " + lack},
        {"6", "8005", "Port in use: port 6 (" + PathOf(held) + ") is held by another program"}};
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
            EXPECT_EQ(stage.ErrorLog(), log += error.Record());
            program.Answer("Retry");
        }
        program.AwaitScreen("SensorBits");
    }
}

}  // namespace
}  // namespace orbkl4::test

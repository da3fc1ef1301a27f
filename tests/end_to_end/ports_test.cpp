#include "running_program.h"
#include "support/pty_master.h"

#include <QFile>
#include <QFileInfo>
#include <QSerialPort>
#include <gtest/gtest.h>

#include <fstream>

namespace orbkl4::test {
namespace {

std::string PathOf(const PtyMaster& line) { return line.Path().toStdString(); }

TEST(UselessPorts, EachHaveAnErrorTextWhenOpened) {
    const Stage stage;
    const std::string file = stage.Root() / "file";
    std::ofstream(file) << "no line";
    const PtyMaster forGroup;
    QFile::setPermissions(forGroup.Path(), QFile::ReadGroup | QFile::WriteGroup);
    const PtyMaster forNobody;
    QFile::setPermissions(forNobody.Path(), {});
    const PtyMaster held;
    QSerialPort holder(held.Path());
    ASSERT_TRUE(holder.open(QIODevice::ReadWrite));

    const std::string lack = "No permission to use it";
    const std::string group = QFileInfo(forGroup.Path()).group().toStdString();
    struct Useless {
        std::string target;
        const char* number;
        std::string description;
    };
    const Useless cases[] = {
        {file, "8002", "Invalid port number: there is no serial line at port 1 (" + file + ")"},
        {PathOf(forGroup), "70",
         "Permission denied: port 2 (" + PathOf(forGroup) + "). " + lack + "; the group \"" +
             group + "\" has it"},
        {PathOf(forNobody), "70", "Permission denied: port 3 (" + PathOf(forNobody) + "). " + lack},
        {PathOf(held), "8005",
         "Port in use: port 4 (" + PathOf(held) + ") is held by another program"}};
    const Reported closed{"8018", "SetToPolledMode", "Main",
                          "Operation valid only when the port is open"};
    std::string log;
    int port = 0;
    for (const auto& [target, number, description] : cases) {
        SCOPED_TRACE(description);
        stage.LinkPort(++port, target);
        stage.StoreSettings("CurrentCommPort=" + std::to_string(port) + "\n");
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

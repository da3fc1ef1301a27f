#include "sampling_fixture.h"
#include "simulated_sensor.h"

namespace orbkl4::test {
namespace {

// What the view's fields show, in the order of the file's columns after the time.
constexpr const char* fields[] = {"txtRawMag1",     "txtRawMag2",     "txtRawMag3",
                                  "txtRawAcc1",     "txtRawAcc2",     "txtRawAcc3",
                                  "txtRawAngRate1", "txtRawAngRate2", "txtRawAngRate3"};

/// The requests of a search that finds the sensor at its second test, and of the connection.
const std::vector<std::string> connection{
    "< (not heard) 29 71 00 84 00 00 AA",
    "< (not heard) F0",
    "< 29 71 00 84 00 00 AA",
    "< F0",
    // The default cycle.
    "< 29 71 00 84 00 00 AA",
    "< 29 71 00 EE 00 10 AA",
    "< 29 71 00 F0 00 10 AA",
    "< 29 71 00 F2 01 00 AA",
    "< 29 71 00 F6 00 01 AA",
    // Firmware, serial number, three gain scales.
    "< F0",
    "< F1",
    "< 28 00 82",
    "< 28 00 E6",
    "< 28 00 E8",
    // Polled mode, for the view.
    "< 29 71 00 84 00 00 AA",
};

/// A sensor at rest gives the same words in every row; time and ticks go on.
void ExpectRows(const Rows& rows, const std::vector<std::string>& words) {
    double lastTime = 0;
    int lastTicks = -1;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.front() + " s");
        EXPECT_EQ(std::vector<std::string>(row.begin() + 1, row.end() - 1), words);
        const double time = std::stod(row.front());
        const int ticks = std::stoi(row.back());
        EXPECT_GE(time, lastTime);
        EXPECT_LT(time, lastTime + 1);
        EXPECT_GT(ticks, lastTicks);
        lastTime = time;
        lastTicks = ticks;
    }
}

TEST_F(SamplingTest, ConnectsWatchesSavesAndExits) {
    SimulatedSensor sensor(stage,
                           {"--port", "16", "--baud", "115200", "--motion", "rest", "--no-noise"});
    sensor.Command("log on");
    RunningProgram program(stage);
    program.Search([&] {
        sensor.RequestsLogged();
        sensor.Command("log on");
    });
    EXPECT_EQ(program.Get("Connect", "txtPort", "text"), "16");
    EXPECT_EQ(program.Get("Connect", "txtBaudRate", "text"), "115200");
    program.Answer("OK");
    program.AwaitNoScreen("Connect");

    program.Choose("Main", "mnuSensorBits");
    program.AwaitScreen("SensorBits");
    EXPECT_EQ(sensor.RequestsLogged(), connection);
    program.Choose("SensorBits", "mnuSave");
    program.SaveAs("my log");
    program.Await("SensorBits", "mnuSave", "checked", "true");
    sensor.Command("log on");
    program.Choose("SensorBits", "mnuSample");
    ASSERT_TRUE(Grows("my log.csv", 2500));
    std::vector<std::string> words;
    for (const char* const field : fields) {
        words.push_back(" " + program.Get("SensorBits", field, "text"));
    }
    program.Choose("SensorBits", "mnuSample");
    program.Await("SensorBits", "mnuSample", "checked", "false");
    const auto requests = sensor.RequestsLogged().size();

    const std::string content = Content("my log.csv");
    EXPECT_TRUE(content.starts_with("Kestrelmoor ORB-KL4 Data File Version 2.0.4\r\n"));
    EXPECT_NE(content.find("\r\nSensor Bits\r\nTime(Seconds),Mag1,Mag2,Mag3,Acc1,Acc2,Acc3,"
                           "AngRate1,AngRate2,AngRate3,TimerTicks\r\n"),
              std::string::npos);
    const Rows rows = ReadRows("my log.csv");
    ExpectRows(rows, words);
    // The last request was still on its way.
    EXPECT_TRUE(rows.size() == requests || rows.size() == requests - 1);

    program.Choose("SensorBits", "mnuSample");
    ASSERT_TRUE(Grows("my log.csv"));
    // While a view is open the frame shows its menu, and the main menu's entries are out of
    // reach.
    EXPECT_THROW(program.Choose("Main", "mnuExit"), std::runtime_error);
    program.Choose("SensorBits", "mnuReturn");
    program.AwaitNoScreen("SensorBits");
    program.Choose("Main", "mnuExit");
    EXPECT_EQ(program.Process().AwaitEnd(5s), 0);
    EXPECT_GT(ReadRows("my log.csv").size(), rows.size());
    EXPECT_EQ(stage.ErrorLog(), "");
    EXPECT_EQ(ContentOf(stage.Settings()), "[Startup]\nCurrentCommPort=16\n")
        << "a search stores nothing";
}

}  // namespace
}  // namespace orbkl4::test

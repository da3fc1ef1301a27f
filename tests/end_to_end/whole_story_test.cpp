#include "sampling_fixture.h"
#include "simulated_sensor.h"

namespace orbkl4::test {
namespace {

// What the view's fields show, in the order of the file's columns after the time.
constexpr const char* fields[] = {"txtRawMag1",     "txtRawMag2",     "txtRawMag3",
                                  "txtRawAcc1",     "txtRawAcc2",     "txtRawAcc3",
                                  "txtRawAngRate1", "txtRawAngRate2", "txtRawAngRate3"};

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
    RunningProgram program(stage);
    program.Search();
    EXPECT_EQ(program.Get("Connect", "txtPort", "text"), "16");
    EXPECT_EQ(program.Get("Connect", "txtBaudRate", "text"), "115200");
    program.Answer("OK");
    program.AwaitNoScreen("Connect");

    program.Choose("Main", "mnuSensorBits");
    program.AwaitScreen("SensorBits");
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

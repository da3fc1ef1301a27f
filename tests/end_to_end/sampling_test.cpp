#include "sampling_fixture.h"
#include "simulated_sensor.h"

#include <random>

namespace orbkl4::test {
namespace {

using Clock = std::chrono::steady_clock;

TEST_F(SamplingTest, EndsWithTheWindow) {
    const SimulatedSensor sensor(stage, {"--port", "16"});
    RunningProgram program(stage);
    StartSaving(program, "log");
    ASSERT_TRUE(Grows("log.csv"));
    program.CloseWindow();
    EXPECT_EQ(program.Process().AwaitEnd(5s), 0);
    EXPECT_GT(ReadRows("log.csv").size(), 5U);
    EXPECT_EQ(stage.ErrorLog(), "");
}

TEST_F(SamplingTest, OutlastsASensorThatIsPulledOut) {
    const Reported absent{"8002", "OpenCommPort", "SensorBits",
                          "Invalid port number: there is no serial line at port 16 (/dev/ttyUSB7)"};
    const Reported closed{"8018", "mnuSample_Click", "SensorBits",
                          "Operation valid only when the port is open"};
    SimulatedSensor sensor(stage, {"--port", "16"});
    RunningProgram program(stage);
    const auto pullOut = [&] {
        sensor.Command("unplug");
        // A reply that was on its way can't be followed by a request.
        if (program.AwaitBox().find("The device is gone: port 16") != std::string::npos)
            program.Answer("Retry");
        EXPECT_EQ(program.AwaitBox(), absent.Box());
    };
    const auto answerBoth = [&] {
        program.Answer("Retry");
        EXPECT_EQ(program.AwaitBox(), closed.Box());
        program.Answer("Retry");
    };
    StartSaving(program, "log");
    ASSERT_TRUE(Grows("log.csv"));
    const double used = program.Process().ProcessorSeconds();
    const auto start = Clock::now();
    pullOut();
    answerBoth();
    const auto answered = Clock::now();
    EXPECT_EQ(program.AwaitBox(), absent.Box());
    EXPECT_GT(Clock::now() - answered, 900ms);
    const std::chrono::duration<double> passed = Clock::now() - start;
    // A line that reports its error without end would take a whole processor.
    EXPECT_LT(program.Process().ProcessorSeconds() - used, 0.25 * passed.count());
    EXPECT_EQ(program.Get("SensorBits", "lblWarning", "visible"), "true");

    sensor.Command("replug");
    answerBoth();
    ASSERT_TRUE(Grows("log.csv"));
    program.Await("SensorBits", "lblWarning", "visible", "false");
    EXPECT_EQ(program.BoxUp(), "");

    // Between the boxes the view can be left, and none of its ticks brings up another one.
    pullOut();
    answerBoth();
    program.Choose("SensorBits", "mnuReturn");
    program.AwaitNoScreen("SensorBits");
    EXPECT_FALSE(WaitUntil([&] { return !program.BoxUp().empty(); }, 1500ms));
    EXPECT_EQ(program.Get("Main", "", "visible"), "true");
    EXPECT_GT(ReadRows("log.csv").size(), 10U);
}

TEST_F(SamplingTest, LeavesWholeRowsWhereItIsKilled) {
    constexpr int kills = 4;
    constexpr int pauses = 100;
    // Without pacing, it spends a good part of its time writing rows.
    const SimulatedSensor sensor(stage, {"--port", "16", "--unpaced"});
    std::mt19937 random(1);
    std::uniform_int_distribution<int> someTime(0, 500);
    std::size_t rows = 0;
    for (int i = 0; i < kills; ++i) {
        const std::string name = "log" + std::to_string(i) + ".csv";
        RunningProgram program(stage);
        StartSaving(program, name);
        ASSERT_TRUE(Grows(name));
        // A pause leaves in the file what a kill would.
        for (int pause = 0; pause < pauses; ++pause) {
            const auto moment = Clock::now() + someTime(random) * 1us;
            while (Clock::now() < moment) {
            }
            program.Process().Pause();
            ASSERT_TRUE(Content(name).ends_with("\r\n"));
            program.Process().Resume();
        }
        program.Process().Kill();
        rows += ReadRows(name).size();
    }
    EXPECT_GT(rows, kills * 10U);
    EXPECT_EQ(stage.ErrorLog(), "");
}

}  // namespace
}  // namespace orbkl4::test

#include "sampling_fixture.h"
#include "simulated_sensor.h"

namespace orbkl4::test {
namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

TEST_F(SamplingTest, EndsAtOnceOnExit) {
    const SimulatedSensor sensor(stage, {"--port", "16"});
    RunningProgram program(stage);
    StartSaving(program, "log");
    ASSERT_TRUE(Grows("log.csv"));
    // While a view is open its menu stands in the frame, and the main menu's entries are out of
    // reach.
    EXPECT_THROW(program.Choose("Main", "mnuExit"), std::runtime_error);
    program.Choose("SensorBits", "mnuReturn");
    program.AwaitNoScreen("SensorBits");
    program.Choose("Main", "mnuExit");
    EXPECT_EQ(program.Process().AwaitEnd(5s).code, 0);
    EXPECT_GT(Read("log.csv").rows.size(), 5U);
}

TEST_F(SamplingTest, EndsWithTheWindow) {
    const SimulatedSensor sensor(stage, {"--port", "16"});
    RunningProgram program(stage);
    StartSaving(program, "log");
    ASSERT_TRUE(Grows("log.csv"));
    program.CloseWindow();
    EXPECT_EQ(program.Process().AwaitEnd(5s).code, 0);
    EXPECT_GT(Read("log.csv").rows.size(), 5U);
    EXPECT_EQ(stage.ErrorLog(), "");
}

TEST_F(SamplingTest, SavesAtTheChosenRate) {
    const SimulatedSensor sensor(stage, {"--port", "16"});
    RunningProgram program(stage);
    program.AwaitScreen("Main");
    program.Unlock("mnuTools");
    program.Choose("Main", "mnuSetWriteRate");
    program.AwaitScreen("SetWriteRate");
    program.Press("SetWriteRate", "chkUnrestricted");
    program.Await("SetWriteRate", "NumEditRate", "enabled", "true");
    program.Type("SetWriteRate", "NumEditRate", "20");
    program.Await("SetWriteRate", "NumEditRate", "value", "20");
    program.Press("SetWriteRate", "cmdOK");
    program.AwaitNoScreen("SetWriteRate");
    StartSaving(program, "log");
    ASSERT_TRUE(Grows("log.csv", 1500));
    program.Choose("SensorBits", "mnuReturn");
    program.AwaitNoScreen("SensorBits");

    // 1000 ms / 20 / 6.5536 ms are 7.63 ticks, so a sample a few ticks behind these is saved.
    constexpr int least = 8;
    constexpr int usual = 11;
    const auto rows = Read("log.csv").rows;
    std::size_t usualSteps = 0;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const int step = std::stoi(rows[i].back()) - std::stoi(rows[i - 1].back());
        EXPECT_GE(step, least) << rows[i].front() << " s";
        if (step <= usual) ++usualSteps;
    }
    EXPECT_GT(usualSteps, rows.size() / 2);
}

/// A program whose sensor is pulled out while it samples.
class PulledOut : public SamplingTest {
  protected:
    /// Pulls it out and waits for the first box of a restart that fails.
    void PullOut() {
        sensor.Command("unplug");
        // A reply that was on its way then can't be followed by a request.
        if (program.AwaitBox() == requestLost) program.Answer("Retry");
        EXPECT_EQ(program.AwaitBox(), absent);
    }

    /// Answers the two boxes of a restart that fails, the first of which is up.
    void AnswerBoth() {
        program.Answer("Retry");
        EXPECT_EQ(program.AwaitBox(), closed);
        program.Answer("Retry");
    }

    const MessageBox requestLost = AboutError("8012", "MSComm1_OnComm", "SensorBits",
                                              "The device is gone: port 16 was pulled out");
    const MessageBox absent =
        AboutError("8002", "OpenCommPort", "SensorBits",
                   "Invalid port number: there is no serial line at port 16 (/dev/ttyUSB7)");
    const MessageBox closed = AboutError("8018", "mnuSample_Click", "SensorBits",
                                         "Operation valid only when the port is open");
    SimulatedSensor sensor{stage, {"--port", "16"}};
    RunningProgram program{stage};
};

TEST_F(PulledOut, GoesOnWhereTheSensorIsPluggedInAgain) {
    StartSaving(program, "log");
    ASSERT_TRUE(Grows("log.csv"));
    const double used = program.Process().ProcessorSeconds();
    const auto start = Clock::now();
    PullOut();
    for (int restart = 0; restart < 2; ++restart) {
        AnswerBoth();
        const auto answered = Clock::now();
        EXPECT_EQ(program.AwaitBox(), absent);
        EXPECT_GT(SecondsSince(answered), 0.9);
        EXPECT_LT(SecondsSince(answered), 3);
    }
    EXPECT_LT(program.Process().ProcessorSeconds() - used, 0.05 * SecondsSince(start));
    EXPECT_EQ(program.Get("SensorBits", "lblWarning", "visible"), "true");

    sensor.Command("replug");
    AnswerBoth();
    ASSERT_TRUE(Grows("log.csv"));
    program.Await("SensorBits", "lblWarning", "visible", "false");
    EXPECT_FALSE(program.BoxUp());
    EXPECT_GT(Read("log.csv").rows.size(), 10U);
}

TEST_F(PulledOut, CanBeLeftBetweenTheBoxes) {
    StartSaving(program, "log");
    ASSERT_TRUE(Grows("log.csv"));
    PullOut();
    AnswerBoth();
    program.Choose("SensorBits", "mnuReturn");
    program.AwaitNoScreen("SensorBits");
    // No tick of the view that was left comes up with another box.
    EXPECT_FALSE(WaitUntil([&] { return program.BoxUp().has_value(); }, 2s));
    EXPECT_EQ(program.Get("Main", "", "visible"), "true");
}

}  // namespace
}  // namespace orbkl4::test

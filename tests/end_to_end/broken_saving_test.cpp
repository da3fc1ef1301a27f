#include "sampling_fixture.h"
#include "simulated_sensor.h"

#include <random>
#include <sys/resource.h>

namespace orbkl4::test {
namespace {

TEST_F(SamplingTest, LeavesWholeRowsWhereItIsKilled) {
    constexpr int kills = 50;
    constexpr int pauses = 60;
    // Without pacing, a good part of the time goes into writing rows.
    const SimulatedSensor sensor(stage, {"--port", "16", "--unpaced"});
    std::mt19937 random(1);
    std::uniform_int_distribution<int> someTime(0, 500);
    std::size_t rows = 0;
    for (int i = 0; i < kills; ++i) {
        const std::string name = "log" + std::to_string(i) + ".csv";
        RunningProgram program(stage);
        StartSaving(program, name);
        ASSERT_TRUE(Grows(name));
        // To the file, a pause is what a kill at that moment would be.
        for (int pause = 0; pause < pauses; ++pause) {
            const auto moment = std::chrono::steady_clock::now() + someTime(random) * 1us;
            while (std::chrono::steady_clock::now() < moment) {
            }
            program.Process().Pause();
            ASSERT_TRUE(EndsWithALine(name));
            program.Process().Resume();
        }
        program.Process().Kill();
        rows += Read(name).rows.size();
    }
    EXPECT_GT(rows, kills * 10U);
    EXPECT_EQ(stage.ErrorLog(), "");
}

TEST_F(SamplingTest, KeepsWholeRowsWhereTheDiskIsFull) {
    constexpr rlim_t full = 2000;
    const MessageBox notLogged = Telling("The SimpleErrorHandler sub routine has errored!");
    const SimulatedSensor sensor(stage, {"--port", "16"});
    RunningProgram program(stage, {full});
    StartSaving(program, "log");
    EXPECT_EQ(program.AwaitBox(), notLogged) << "the data file is still open on the one channel";
    const auto kept = SizeOf("log.csv");
    EXPECT_LE(kept, full);
    EXPECT_GT(Read("log.csv").rows.size(), 20U);
    program.Answer("OK");
    const auto answered = std::chrono::steady_clock::now();
    EXPECT_EQ(program.AwaitBox(), notLogged) << "the next sample tries again";
    EXPECT_GT(std::chrono::steady_clock::now() - answered, 900ms) << "time to choose Return";
    EXPECT_EQ(SizeOf("log.csv"), kept);

    const rlimit room{RLIM_INFINITY, RLIM_INFINITY};
    ASSERT_EQ(::prlimit(program.Process().Id(), RLIMIT_FSIZE, &room, nullptr), 0);
    program.Answer("OK");
    ASSERT_TRUE(Grows("log.csv"));
    EXPECT_FALSE(program.BoxUp());
    program.Choose("SensorBits", "mnuSample");
    program.Await("SensorBits", "mnuSample", "checked", "false");
    EXPECT_GT(Read("log.csv").rows.size(), 25U);
    EXPECT_EQ(stage.ErrorLog(), "");
}

}  // namespace
}  // namespace orbkl4::test

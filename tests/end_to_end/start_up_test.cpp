#include "running_program.h"

#include <gtest/gtest.h>

#include <map>

namespace fs = std::filesystem;

namespace orbkl4::test {
namespace {

constexpr const char* logFailed = "The SimpleErrorHandler sub routine has errored!";
constexpr const char* lastWords =
    "Application will terminate; correct error cause and run application again!";

using Files = std::map<fs::path, std::string>;

/// All files and folders below `folder`, with what the files hold; not that of the programs.
Files FilesIn(const fs::path& folder) {
    constexpr std::uintmax_t programSize = 100'000;
    Files files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const bool told = entry.is_regular_file() && entry.file_size() < programSize;
        files[entry.path()] = told ? ContentOf(entry.path()) : "";
    }
    return files;
}

struct BadPort {
    const char* name;
    const char* line;  ///< in the settings store
    const char* number;
    const char* description;
};

void PrintTo(const BadPort& bad, std::ostream* out) { *out << bad.name; }

class BadPortText : public testing::TestWithParam<BadPort> {
  protected:
    BadPortText() { stage.StoreSettings(GetParam().line); }

    Stage stage;
};

TEST_P(BadPortText, IsLoggedAndTheProgramGoesOn) {
    fs::create_directory(stage.Logs());
    const auto& [name, line, number, description] = GetParam();
    const std::string record = LogRecord(number, "MDIForm_Load", "MDIForm1", description);
    for (const std::string& log : {record, record + record}) {
        RunningProgram program(stage);
        EXPECT_EQ(program.AwaitBox(), AboutError(number, "MDIForm_Load", "MDIForm1", description));
        EXPECT_EQ(stage.ErrorLog(), log) << "the log is complete before the box is up";
        program.Answer("Retry");
        program.AwaitScreen("Main");
        EXPECT_FALSE(program.BoxUp());
        program.Choose("Main", "mnuExit");
        EXPECT_EQ(program.Process().AwaitEnd().code, 0);
        EXPECT_EQ(stage.ErrorLog(), log);
        EXPECT_FALSE(fs::exists(stage.DataFiles())) << "the steps behind the error are left out";
    }
}

TEST_P(BadPortText, OnTheVeryFirstStartHasNoLogToGoTo) {
    RunningProgram program(stage);
    EXPECT_EQ(program.AwaitBox(), Telling(logFailed));
    program.Answer("OK");
    program.AwaitScreen("Main");
    EXPECT_FALSE(program.BoxUp());
    EXPECT_FALSE(fs::exists(stage.Logs()));
}

INSTANTIATE_TEST_SUITE_P(
    SettingsStore, BadPortText,
    testing::Values(BadPort{"Unreadable", "CurrentCommPort=COM1\n", "13", "Type mismatch"},
                    BadPort{"Empty", "CurrentCommPort=\n", "13", "Type mismatch"},
                    BadPort{"TooLarge", "CurrentCommPort=32768\n", "6", "Overflow"}),
    [](const auto& tested) { return tested.param.name; });

TEST(StartUp, EndsAfterItsLastMessageOnCancel) {
    const Stage stage;
    stage.StoreSettings("CurrentCommPort=x\n");
    fs::create_directory(stage.Logs());
    RunningProgram program(stage);
    program.AwaitBox();
    program.Answer("Cancel");
    EXPECT_EQ(program.AwaitBox(), Telling(lastWords));
    program.Answer("OK");
    EXPECT_EQ(program.Process().AwaitEnd().code, 0);
    EXPECT_EQ(stage.ErrorLog(), LogRecord("13", "MDIForm_Load", "MDIForm1", "Type mismatch"));
}

TEST(StartUp, MakesItsFoldersAndShowsTheMainWindowUnconnected) {
    const Stage stage;
    for (const char* const start : {"first", "second"}) {
        SCOPED_TRACE(start);
        RunningProgram program(stage);
        program.AwaitScreen("Main");
        EXPECT_EQ(program.Get("MDIForm1", "", "windowTitle"),
                  "ORB-KL4 Data Acquisition and Display Software");
        EXPECT_EQ(program.Get("Main", "mnuFile", "enabled"), "true");
        EXPECT_EQ(program.Get("Main", "mnuTools", "enabled"), "false");
        EXPECT_EQ(program.Get("Main", "mnuDisplay", "enabled"), "false");
        EXPECT_TRUE(fs::is_directory(stage.DataFiles()));
        EXPECT_TRUE(fs::is_directory(stage.Logs()));
        EXPECT_TRUE(fs::is_empty(stage.Logs()));
        EXPECT_FALSE(fs::exists(stage.Settings())) << "nothing is stored by itself";
        program.CloseWindow();
        EXPECT_EQ(program.Process().AwaitEnd().code, 0);
    }
}

TEST(StartUp, TakesANegativePortNumberAsItIs) {
    const Stage stage;
    stage.StoreSettings("CurrentCommPort=-3\n");
    RunningProgram program(stage);
    program.AwaitScreen("Main");
    program.Unlock("mnuDisplay");
    program.Choose("Main", "mnuSensorBits");
    const char* const absent = "Invalid port number: there is no serial line at port -3";
    const char* const closed = "Operation valid only when the port is open";
    EXPECT_EQ(program.AwaitBox(), AboutError("8002", "OpenCommPort", "Main", absent));
    program.Answer("Retry");
    EXPECT_EQ(program.AwaitBox(), AboutError("8018", "SetToPolledMode", "Main", closed));
    program.Answer("Retry");
    program.AwaitScreen("SensorBits");
    EXPECT_EQ(stage.ErrorLog(), LogRecord("8002", "OpenCommPort", "Main", absent) +
                                    LogRecord("8018", "SetToPolledMode", "Main", closed));
}

TEST(SecondInstance, SaysSoAndLeavesTheFirstAlone) {
    const Stage stage;
    stage.StoreSettings("CurrentCommPort=7\nCurrentCommSettings=\"38400,n,8,1\"\n");
    RunningProgram first(stage);
    first.AwaitScreen("Main");
    const Files before = FilesIn(stage.Root());
    RunningProgram second(stage);
    EXPECT_EQ(second.AwaitBox(), Telling("The program is already running!"));
    second.Answer("OK");
    EXPECT_EQ(second.Process().AwaitEnd().code, 0);
    EXPECT_EQ(FilesIn(stage.Root()), before);
    EXPECT_EQ(first.Get("Main", "", "visible"), "true");
}

TEST(SecondInstance, IsTheOnlyOneAfterTheFirstWasKilled) {
    const Stage stage;
    {
        RunningProgram first(stage);
        first.AwaitScreen("Main");
        first.Process().Kill();
    }
    RunningProgram second(stage);
    second.AwaitScreen("Main");
    EXPECT_FALSE(second.BoxUp());
}

}  // namespace
}  // namespace orbkl4::test

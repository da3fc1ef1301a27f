#include "running_program.h"

#include <gtest/gtest.h>

#include <fstream>

namespace fs = std::filesystem;

namespace orbkl4::test {
namespace {

Reported AtStart(const std::string& number, const std::string& description) {
    return {number, "MDIForm_Load", "MDIForm1", description};
}

TEST(BadPortText, IsLoggedAndTheProgramGoesOn) {
    const Stage stage;
    fs::create_directory(stage.Logs());
    struct Case {
        const char* text;
        Reported error;
    };
    std::string log;
    for (const auto& [text, error] :
         {Case{"COM1", AtStart("13", "Type mismatch")}, Case{"", AtStart("13", "Type mismatch")},
          Case{"32768", AtStart("6", "Overflow")}}) {
        SCOPED_TRACE(text);
        stage.StoreSettings(std::string("CurrentCommPort=") + text + "\n");
        RunningProgram program(stage);
        EXPECT_EQ(program.AwaitBox(), error.Box());
        log += error.Record();
        EXPECT_EQ(stage.ErrorLog(), log) << "the log is complete before the box is up";
        program.Answer("Retry");
        program.AwaitScreen("Main");
        EXPECT_EQ(program.BoxUp(), "");
        program.Choose("Main", "mnuExit");
        EXPECT_EQ(program.Process().AwaitEnd(), 0);
        EXPECT_EQ(stage.ErrorLog(), log);
        EXPECT_FALSE(fs::exists(stage.DataFiles())) << "the steps after the error are left out";
    }
}

TEST(BadPortText, OnTheVeryFirstStartHasNoLogToGoTo) {
    const Stage stage;
    stage.StoreSettings("CurrentCommPort=x\n");
    RunningProgram program(stage);
    EXPECT_EQ(program.AwaitBox(), Telling("The SimpleErrorHandler sub routine has errored!"));
    program.Answer("OK");
    program.AwaitScreen("Main");
    EXPECT_EQ(program.BoxUp(), "");
    EXPECT_FALSE(fs::exists(stage.Logs()));
}

TEST(StartUp, ReportsAFolderThatCannotBeMade) {
    const Stage stage;
    const auto start = [&](const fs::path& folder, const std::string& number,
                           const std::string& text) {
        fs::create_directories(folder / "Logs");
        const Reported error{number, "TestForFileFolders", "General",
                             text + ": " + (folder / "Data Files").string()};
        RunningProgram program(stage);
        EXPECT_EQ(program.AwaitBox(), error.Box());
        EXPECT_EQ(WithDatesMasked(ContentOf(folder / "Logs" / "error.log")), error.Record());
        program.Answer("Retry");
        program.AwaitScreen("Main");
    };
    const fs::path beside = stage.Program().parent_path();
    std::ofstream(stage.DataFiles()).close();  // a file in its place
    start(beside, "76", "Path not found");

    const fs::path own = stage.UserData() / "Kestrelmoor" / "ORB-KL4-RS232";
    fs::create_directories(own / "Logs");
    for (const fs::path& folder : {beside, own})
        fs::permissions(folder, fs::perms::owner_write, fs::perm_options::remove);
    start(own, "70", "Permission denied");
    for (const fs::path& folder : {beside, own})
        fs::permissions(folder, fs::perms::owner_write, fs::perm_options::add);
}

TEST(StartUp, EndsAfterItsLastMessageOnCancel) {
    const Stage stage;
    stage.StoreSettings("CurrentCommPort=x\n");
    fs::create_directory(stage.Logs());
    RunningProgram program(stage);
    program.AwaitBox();
    program.Answer("Cancel");
    EXPECT_EQ(
        program.AwaitBox(),
        Telling("Application will terminate; correct error cause and run application again!"));
    program.Answer("OK");
    EXPECT_EQ(program.Process().AwaitEnd(), 0);
    EXPECT_EQ(stage.ErrorLog(), AtStart("13", "Type mismatch").Record());
}

TEST(StartUp, MakesItsFoldersAndShowsTheMainWindowUnconnected) {
    const Stage stage;
    for (const char* const start : {"first", "second"}) {
        SCOPED_TRACE(start);
        RunningProgram program(stage);
        program.AwaitScreen("Main");
        EXPECT_EQ(program.Get("MDIForm1", "", "windowTitle"),
                  "ORB-KL4 Data Acquisition and Display Software");
        EXPECT_EQ(program.Get("Main", "mnuTools", "enabled"), "false");
        EXPECT_EQ(program.Get("Main", "mnuDisplay", "enabled"), "false");
        EXPECT_TRUE(fs::is_directory(stage.DataFiles()));
        EXPECT_TRUE(fs::is_empty(stage.Logs()));
        EXPECT_FALSE(fs::exists(stage.Settings())) << "nothing is stored by itself";
        program.CloseWindow();
        EXPECT_EQ(program.Process().AwaitEnd(), 0);
    }
}

TEST(SecondInstance, SaysSoAndLeavesTheFirstAlone) {
    const Stage stage;
    RunningProgram first(stage);
    first.AwaitScreen("Main");
    // The second one would make the folder anew and report the store's text.
    fs::remove(stage.DataFiles());
    stage.StoreSettings("CurrentCommPort=x\n");
    RunningProgram second(stage);
    EXPECT_EQ(second.AwaitBox(), Telling("The program is already running!"));
    second.Answer("OK");
    EXPECT_EQ(second.Process().AwaitEnd(), 0);
    EXPECT_FALSE(fs::exists(stage.DataFiles()));
    EXPECT_EQ(ContentOf(stage.Settings()), "[Startup]\nCurrentCommPort=x\n");
    EXPECT_EQ(stage.ErrorLog(), "");
    EXPECT_EQ(first.Get("Main", "", "visible"), "true");
}

}  // namespace
}  // namespace orbkl4::test

#include "link/screens/runs_fixture.h"
#include "platform/system/folders.h"

#include <QFile>

namespace orbkl4::test {

namespace {

/// A screen that reads words, and what its errors name as the active screen when a read starts.
struct Reading {
    const char* name;
    const char* startsUnder;
    Pointer afterFailure = Pointer::Default;
};

const auto readings = std::to_array<Reading>({
    {"EEPROMmap", "EEPROMmap"},
    {"Analog", "Analog"},
    {"CalcCycle", "Main"},
    {"Vertical", "Vertical"},
    {"Gains", "Main", Pointer::Hourglass},
});

/// Answers all boxes and keeps what the errors among them said, and the pointer under them.
struct Errors {
    Errors() {
        boxes.BeforeAnswer([this](QMessageBox& /*box*/) {
            const std::string error = boxes.Error(boxes.Count() - 1);
            if (error.empty()) return;
            texts.push_back(error);
            pointers.push_back(MousePointer());
        });
    }

    BoxAnswerer boxes{{}, goOn};
    Strings texts;
    std::vector<Pointer> pointers;
};

class Runs : public RunTest {
  protected:
    /// With a good Time Tick Table, so that `CalcCycle` opens without a message.
    Runs() {
        QFile table(LogsFolder() + QStringLiteral("/TimeTickTable.txt"));
        if (!table.open(QIODevice::WriteOnly)) return;
        table.write("Kestrelmoor ORB-KL4 Time Tick Table 3.1.01\n");
        for (int row = 0; row < 231; ++row) table.write("9.99,16,16,256,1\n");
    }

    /// Opens the screen `name` and has it read.
    void Start(const std::string& name) {
        OpenRun(name.c_str());
        if (name == "EEPROMmap") Click(*screen, "mnuRead");
    }

    void Leave() const {
        Click(*screen, "mnuReturn");
        MousePointer(Pointer::Default);
    }
};

}  // namespace

TEST_F(Runs, ReadsThatCantStartAreReportedUnderTheNormalPointerButThatOfTheGains) {
    AppState.CommPort = 99;
    for (const auto& [name, startsUnder, pointer] : readings) {
        const Errors errors;
        Start(name);
        EXPECT_EQ(errors.texts, (Strings{std::string("8002 OpenCommPort ") + name,
                                         std::string("8018 mnuRead_Click ") + startsUnder}));
        EXPECT_EQ(errors.pointers, (std::vector{Pointer::Hourglass, pointer})) << name;
        EXPECT_TRUE(Running()) << "the entries stay disabled: " << name;
        EXPECT_FALSE(Get<Timer>(*screen, "TimerRead").Enabled()) << name;
        Leave();
    }
}

TEST_F(Runs, ReadsHaveAnErrorInATickWithoutAReplyAndEndByReturn) {
    sensor.SetSilent(true);
    for (const Reading& reading : readings) {
        const Errors errors;
        Start(reading.name);
        Get<Timer>(*screen, "TimerRead").Interval(1);  // there is no reply to await
        ASSERT_TRUE(WaitFor([&] { return !errors.texts.empty(); })) << reading.name;
        EXPECT_EQ(errors.texts[0], std::string("9 TimerRead_Timer ") + reading.name);
        Leave();
        EXPECT_EQ(FindScreen(reading.name), nullptr);
    }
}

TEST_F(Runs, WritesFailWhereTheyFirstSend) {
    for (const auto& [name, sender] : {std::pair{"EEPROMmap", "TimerWrite_Timer"},
                                       {"Analog", "TimerWrite_Timer"},
                                       {"Gains", "mnuWrite_Click"}}) {
        const Errors errors;
        {
            const BoxAnswerer completed;
            Start(name);
            ASSERT_TRUE(AwaitEnd()) << name;
        }
        AppState.CommPort = 99;
        Click(*screen, "mnuWrite");
        ASSERT_TRUE(WaitFor([&] { return errors.texts.size() == 2; })) << name;
        EXPECT_EQ(errors.texts, (Strings{std::string("8002 OpenCommPort ") + name,
                                         std::string("8018 ") + sender + " " + name}));
        EXPECT_TRUE(Running()) << name;
        Leave();
        AppState.CommPort = 1;
    }
}

}  // namespace orbkl4::test

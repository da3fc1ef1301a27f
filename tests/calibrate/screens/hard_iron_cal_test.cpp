#include "acquire/screens/view_fixture.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/cw_button.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/windows/screen_registry.h"
#include "simulator/environment.h"
#include "support/box_answerer.h"

#include <string_view>
#include <utility>

namespace orbkl4::test {

namespace {

using Strings = std::vector<std::string>;

constexpr const char* badReply = "Return bytes and/or header failed!";

constexpr const char* operations[] = {"mnuErase", "mnuInit", "mnuCollect", "mnuCompute"};

orbkl4sim::SimulatorOptions TumblingSensor() {
    orbkl4sim::SimulatorOptions options = QuietSensor();
    options.motion = orbkl4sim::Tumble();
    options.noise = true;
    return options;
}

class HardIron : public ViewTest {
  protected:
    HardIron() : ViewTest(TumblingSensor()) {
        AppState.FirmwareText = "3.1.01";
        AppState.FirmwareNumber = 3101;
        AppState.MagGainScale = 2500;
        screen = &Open("HardIronCal");
    }

    bool Enabled(const char* entry) const { return screen->Menu(entry).Enabled(); }
    bool Checked(const char* entry) const { return screen->Menu(entry).Checked(); }
    bool IsOpen(const char* port) const { return Get<MSComm>(*screen, port).PortOpen(); }

    /// Chooses `entry` and gives what the box says that follows.
    std::string Outcome(const char* entry) {
        const std::size_t before = hand.Count();
        Click(*screen, entry);
        EXPECT_TRUE(WaitFor([&] { return hand.Count() > before && !Checked("mnuInit"); }));
        EXPECT_EQ(hand.Count(), before + 1);
        return hand.Texts().back();
    }

    void ExpectIdle() const {
        for (const char* entry : operations) {
            EXPECT_TRUE(Enabled(entry)) << entry;
            EXPECT_FALSE(Checked(entry)) << entry;
        }
        for (const char* port : {"MSComm1", "MSComm2", "MSComm3"})
            EXPECT_FALSE(IsOpen(port)) << port;
    }

    BoxAnswerer hand{{}, QMessageBox::Retry};
    Screen* screen = nullptr;
};

const Strings collectFields = Split(
    "txtHeader txtMagFieldX txtMagFieldY txtMagFieldZ txtMagFieldMinX txtMagFieldMinY "
    "txtMagFieldMinZ txtMagFieldMaxX txtMagFieldMaxY txtMagFieldMaxZ txtTimerTicks txtCS");
const Strings parameterFields = Split(
    "txtHeader1 txtHardIronOffsetX txtHardIronOffsetY txtHardIronOffsetZ txtTimerTicks1 txtCS1");

// At a gain of 2500 a word of 13107 is 1 gauss (0.99998).
const Bytes collected = Frame(0x41, {13107, 0xFFFF, 0, 32768, 40000, 1, 26214, 6554, 32767, 4096});
// 65 + 13107 + 65535 + 32768 + 40000 + 1 + 26214 + 6554 + 32767 + 4096 = 221107 = 3 x 65536 + 24499
const Strings collectedTexts = Split("65 1 -0.0001 0 -2.5 -1.9482 0.0001 2 0.5 2.4999 4096 24499");

}  // namespace

TEST_F(HardIron, FromEraseToComputeTheOffsetIsThatOfTheIron) {
    EXPECT_EQ(Outcome("mnuErase"), "Erase succeeded!");
    Click(*screen, "mnuCollect");
    // 6.5536 ms pass for the sensor with each reply: 1000 are more than one turn of every axis.
    ASSERT_TRUE(WaitFor([this] { return sensor.Requests().size() > 1000; }, 60000));
    EXPECT_TRUE(Lit(*screen, "LED"));
    Click(*screen, "mnuCollect");
    EXPECT_FALSE(Lit(*screen, "LED"));
    Get<ComboBox>(*screen, "cmbType").ListIndex(1);
    EXPECT_EQ(Outcome("mnuCompute"), "Compute Parameter succeeded!");
    ExpectIdle();
    const double iron[] = {orbkl4sim::kHardIron.x, orbkl4sim::kHardIron.y, orbkl4sim::kHardIron.z};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double shown = std::stod(Text(*screen, parameterFields[axis + 1].c_str()));
        EXPECT_NEAR(shown, iron[axis], 0.003);  // the noise
    }
    EXPECT_NE(Text(*screen, "txtMagFieldMaxX"), "") << "computing leaves what was collected";
}

TEST_F(HardIron, OldFirmwareCanOnlyErase) {
    Click(*screen, "mnuReturn");
    AppState.FirmwareNumber = 0;
    AppState.FirmwareText = "3.0.05";
    screen = &Open("HardIronCal");
    EXPECT_EQ(hand.Texts(),
              Strings{"ORB-KL4 firmware version 3.0.05 has been detected! Hard Iron Calibration "
                      "requires firmware version 3.1.01 or higher. Please contact Kestrelmoor to "
                      "upggrade."});
    for (const char* entry : {"mnuInit", "mnuCollect", "mnuCompute"}) EXPECT_FALSE(Enabled(entry));
    sensor.ClearRecord();
    EXPECT_EQ(Outcome("mnuErase"), "Erase succeeded!");
    EXPECT_EQ(Heard(), (std::vector<Bytes>{{0x40, 0x71, 0x3E}}));
}

TEST_F(HardIron, EachOneShotReplyHasItsWords) {
    struct Case {
        const char* entry;
        std::uint8_t command;
        Bytes reply;
        const char* message;
    };
    // 66 + 13107 + 65535 + 32768 + 10 = 111486 = 65536 + 45950, which is 0xB37E.
    const Bytes computed{0x42, 0x33, 0x33, 0xFF, 0xFF, 0x80, 0x00, 0x00, 0x0A, 0xB3, 0x7E};
    const Bytes badCompute{0x42, 0x33, 0x33, 0xFF, 0xFF, 0x80, 0x00, 0x00, 0x0A, 0xB3, 0x7F};
    Bytes longCompute = computed;
    longCompute.push_back(0);
    for (const auto& [entry, command, reply, message] : std::vector<Case>{
             {"mnuInit", 0x40, {0x40, 0xFF, 0xC0, 0x00, 0x00}, "Initialization succeeded!"},
             {"mnuInit", 0x40, {0x40, 0x00, 0x01, 0x00, 0x40}, "Initialization failed checksum!"},
             {"mnuInit", 0x40, {0x41, 0x00, 0x01, 0x00, 0x42}, badReply},
             {"mnuInit", 0x40, {0x40, 0x00, 0x01, 0x00, 0x41, 0x00}, badReply},
             {"mnuErase", 0x40, {0x40, 0x00, 0x01, 0x00, 0x41}, "Erase succeeded!"},
             {"mnuErase", 0x40, {0x40, 0x00, 0x01, 0x00, 0x42}, "Erase failed checksum!"},
             {"mnuErase", 0x40, {0x40, 0x00, 0x01, 0x00, 0x41, 0x00}, badReply},
             {"mnuInit", 0x40, {0x40, 0x00, 0x01, 0x00, 0x41}, "Erase succeeded!"},  // still asked
             {"mnuInit", 0x40, {0x40, 0x00, 0x01, 0x00, 0x41}, "Initialization succeeded!"},
             {"mnuCompute", 0x42, badCompute, "Compute Parameter failed checksum!"},
             {"mnuCompute", 0x42, longCompute, badReply},
             {"mnuCompute", 0x42, computed, "Compute Parameter succeeded!"}}) {
        sensor.ReplyOnceTo(command, reply);
        EXPECT_EQ(Outcome(entry), message);
        ASSERT_TRUE(WaitFor([this] { return !Checked("mnuCompute"); }));
        ExpectIdle();
        const bool shown = reply == computed;
        EXPECT_EQ(Texts(*screen, parameterFields),
                  shown ? (Strings{"66", "1", "-0.0001", "-2.5", "10", "45950"}) : Strings(6));
    }
}

TEST_F(HardIron, ASecondClickEndsTheWaitAndReturnFreesThePort) {
    sensor.SetSilent(true);
    using Case = std::pair<const char*, const char*>;
    for (const auto& [entry, port] : {Case{"mnuInit", "MSComm1"}, Case{"mnuCollect", "MSComm2"},
                                      Case{"mnuCompute", "MSComm3"}}) {
        Click(*screen, entry);
        EXPECT_TRUE(IsOpen(port));
        for (const char* operation : operations) {
            const bool runs = std::string_view(operation) == entry;
            EXPECT_EQ(Checked(operation), runs) << entry << operation;
            EXPECT_EQ(Enabled(operation), runs) << entry << operation;
        }
        Click(*screen, entry);
        ExpectIdle();
        Click(*screen, entry);
        Click(*screen, "mnuReturn");
        EXPECT_EQ(ActiveScreenName(), "Main");
        LetPass(20);
        screen = &Open("HardIronCal");
    }
    Click(*screen, "mnuErase");
    EXPECT_TRUE(Checked("mnuInit"));
    Click(*screen, "mnuInit");
    sensor.SetSilent(false);
    EXPECT_EQ(Outcome("mnuInit"), "Erase succeeded!") << "the erasure was never reported";
    EXPECT_EQ(hand.Count(), 1U);
}

TEST_F(HardIron, CollectsAroundBadReplies) {
    Bytes badSum = collected;
    badSum.back() ^= 1;
    Bytes oneByteMore = collected;
    oneByteMore.push_back(0);
    const Bytes otherHeader = Frame(0x01, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    for (const Bytes& bad : {badSum, oneByteMore, otherHeader}) {
        Script(0x41, {collected, bad});
        std::vector<bool> lamp;
        const auto watch = QObject::connect(&Get<CWButton>(*screen, "LED"), &CWButton::ValueChanged,
                                            [&](bool lit) { lamp.push_back(lit); });
        Click(*screen, "mnuCollect");
        ASSERT_TRUE(AwaitRequests(3));
        EXPECT_EQ(lamp, (std::vector<bool>{true, false}));
        EXPECT_EQ(Texts(*screen, collectFields), collectedTexts) << "a bad reply leaves the fields";
        QObject::disconnect(watch);
        Click(*screen, "mnuCollect");
        EXPECT_EQ(Texts(*screen, collectFields), collectedTexts) << "a stop leaves them too";
    }
    EXPECT_EQ(hand.Count(), 0U);
    Click(*screen, "mnuCollect");
    EXPECT_EQ(Texts(*screen, collectFields), Strings(12));
}

TEST_F(HardIron, ASilentSensorIsAskedAfreshUntilItAnswers) {
    sensor.SetSilent(true);
    Click(*screen, "mnuCollect");
    Get<Timer>(*screen, "TimerSampling").Interval(200);
    auto& warning = Get<QWidget>(*screen, "lblWarning");
    ASSERT_TRUE(WaitFor([&] { return warning.isVisible() && Heard().size() >= 3; }));
    EXPECT_TRUE(Checked("mnuCollect"));
    EXPECT_FALSE(Enabled("mnuCompute"));
    sensor.SetSilent(false);
    ASSERT_TRUE(WaitFor([&] { return Lit(*screen, "LED") && !warning.isVisible(); }));
    EXPECT_EQ(hand.Count(), 0U);
}

TEST_F(HardIron, ComputeSendsTypeAndMagnitude) {
    const auto send = [this](int type, double gauss) {
        Get<ComboBox>(*screen, "cmbType").ListIndex(type);
        Get<CWNumEdit>(*screen, "NumEditMagZ").Value(gauss);
        sensor.ClearRecord();
        Outcome("mnuCompute");
        return Heard().at(0);
    };
    auto& magnitude = Get<CWNumEdit>(*screen, "NumEditMagZ");
    EXPECT_EQ(magnitude.Value(), 0.52);
    EXPECT_EQ(send(0, 0.52), (Bytes{0x42, 0x71, 0x3E, 0x01, 0x02, 0x08}));
    EXPECT_TRUE(magnitude.isEnabled());
    EXPECT_EQ(send(1, -0.52), (Bytes{0x42, 0x71, 0x3E, 0x00, 0xFD, 0xF8}));
    EXPECT_FALSE(magnitude.isEnabled());
    EXPECT_EQ(magnitude.BackColorText(), 0xE0E0E0U);
    Get<ComboBox>(*screen, "cmbType").ListIndex(0);
    EXPECT_EQ(magnitude.BackColorText(), windowBackground);
}

}  // namespace orbkl4::test

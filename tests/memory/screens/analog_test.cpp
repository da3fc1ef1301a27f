#include "memory/screens/map_fixture.h"
#include "platform/boxes.h"
#include "platform/controls/combo_box.h"
#include "platform/screen_registry.h"
#include "support/wait.h"

#include <QLabel>
#include <gtest/gtest.h>

namespace orbkl4::test {

namespace {

using Addresses = std::vector<int>;

constexpr int tick = 20;

/// The screen of the analog outputs, opened on a sensor whose function is "Instantaneous Euler
/// Angles"; its first read is over.
class AnalogTest : public ScreenTest {
  protected:
    AnalogTest() {
        for (int address = 202; address <= 222; address += 2)
            sensor.SetWord(address, static_cast<std::uint16_t>(1000 + address));
        sensor.SetWord(202, 2);
        OpenAnalog();
        AwaitRuns(1);
    }

    void OpenAnalog() {
        analog = &Open("Analog");
        Get<Timer>(*analog, "TimerWrite").Interval(tick);
        new Hastener(Get<Timer>(*analog, "TimerRead"), Get<MSComm>(*analog, "MSComm1"));
    }

    bool Running() const { return !analog->Menu("mnuRead").Enabled(); }

    /// Waits until `boxes` boxes in all have been seen and nothing runs any more.
    void AwaitRuns(std::size_t boxes) {
        ASSERT_TRUE(WaitFor([&] { return hand.Count() >= boxes && !Running(); }));
        EXPECT_EQ(hand.Count(), boxes);
        EXPECT_TRUE(analog->Menu("mnuWrite").Enabled());
        EXPECT_TRUE(Get<QWidget>(*analog, "fraAnalog").isEnabled());
        EXPECT_FALSE(Get<MSComm>(*analog, "MSComm1").PortOpen());
        EXPECT_EQ(Property(*analog, "fraPB", "title"), "Progress");
        EXPECT_EQ(Property(*analog, "PBar", "value"), "202");
        EXPECT_EQ(MousePointer(), Pointer::Default);
    }

    CWNumEdit& Field(int address) const {
        return Get<CWNumEdit>(*analog, ("NumEdit" + std::to_string(address)).c_str());
    }
    ComboBox& List() const { return Get<ComboBox>(*analog, "cmbFunction"); }

    /// The addresses of the fields that can be changed; every other one must be grey.
    Addresses Adjustable() const {
        Addresses adjustable;
        for (int address = 202; address <= 222; address += 2) {
            const CWNumEdit& field = Field(address);
            if (field.isEnabled()) adjustable.push_back(address);
            EXPECT_EQ(field.BackColorText(), field.isEnabled() ? 0x80000005 : 0xE0E0E0) << address;
        }
        return adjustable;
    }

    std::vector<Bytes> ReadRequests() const {
        std::vector<Bytes> requests;
        for (int address = 202; address <= 222; address += 2)
            requests.push_back(ReadRequest(address));
        return requests;
    }

    BoxHand hand{{}, QMessageBox::Retry};
    Screen* analog = nullptr;
};

const Addresses all{202, 204, 206, 208, 210, 212, 214, 216, 218, 220, 222};

}  // namespace

TEST_F(AnalogTest, OpeningReadsTheElevenWords) {
    EXPECT_EQ(Heard(), ReadRequests());
    EXPECT_EQ(hand.Texts(), std::vector<std::string>{readDone});
    EXPECT_EQ(List().Text(), "Instantaneous Euler Angles");
    EXPECT_EQ(List().count(), 13);
    EXPECT_EQ(Field(202).Value(), 2);
    for (int address = 204; address <= 222; address += 2)
        EXPECT_EQ(Field(address).Value(), 1000 + address);
    EXPECT_EQ(Adjustable(), (Addresses{218, 222}));
}

TEST_F(AnalogTest, AFunctionOpensItsFields) {
    struct Case {
        int row;
        Addresses adjustable;
        const char* range;
        double minimum;
    };
    for (const auto& [row, adjustable, range, minimum] :
         {Case{0, {}, "0-11", 0}, Case{1, {204, 206, 208, 210}, "0-11", 0},
          Case{12, all, "12->", 12}, Case{11, {216, 222}, "0-11", 0}}) {
        List().ListIndex(row);
        EXPECT_EQ(Adjustable(), adjustable) << row;
        EXPECT_EQ(Text(*analog, "lblCommandByte"), range);
        EXPECT_EQ(Field(202).Minimum(), minimum);
        EXPECT_EQ(Field(202).Value(), row);
    }
    EXPECT_EQ(Field(204).Maximum(), 4095);
    EXPECT_EQ(Field(222).Maximum(), 65535);
}

TEST_F(AnalogTest, AWriteSendsAllWordsAndThenReadsThemBack) {
    sensor.ClearRecord();
    List().ListIndex(0);
    Field(204).Value(4095);
    Field(222).Value(65535);
    std::string caption;
    hand.BeforeAnswer([&](QMessageBox& box) {
        if (box.text() == writeDone) caption = Property(*analog, "fraPB", "title");
    });
    Click(*analog, "mnuWrite");
    EXPECT_EQ(MousePointer(), Pointer::Hourglass);
    EXPECT_FALSE(analog->Menu("mnuWrite").Enabled());
    EXPECT_TRUE(Heard().empty()) << "the first word goes out on the first tick";
    AwaitRuns(3);
    EXPECT_EQ(caption, "Writing");
    // 1206 is 0x04B6, and so on by twos.
    std::vector<Bytes> expected{
        {0x29, 0x71, 0, 202, 0x00, 0x00, 0xAA}, {0x29, 0x71, 0, 204, 0x0F, 0xFF, 0xAA},
        {0x29, 0x71, 0, 206, 0x04, 0xB6, 0xAA}, {0x29, 0x71, 0, 208, 0x04, 0xB8, 0xAA},
        {0x29, 0x71, 0, 210, 0x04, 0xBA, 0xAA}, {0x29, 0x71, 0, 212, 0x04, 0xBC, 0xAA},
        {0x29, 0x71, 0, 214, 0x04, 0xBE, 0xAA}, {0x29, 0x71, 0, 216, 0x04, 0xC0, 0xAA},
        {0x29, 0x71, 0, 218, 0x04, 0xC2, 0xAA}, {0x29, 0x71, 0, 220, 0x04, 0xC4, 0xAA},
        {0x29, 0x71, 0, 222, 0xFF, 0xFF, 0xAA}};
    for (const Bytes& request : ReadRequests()) expected.push_back(request);
    EXPECT_EQ(Heard(), expected);
    EXPECT_EQ(hand.Texts(), (std::vector<std::string>{readDone, writeDone, readDone}));
    EXPECT_EQ(List().ListIndex(), 0);
}

TEST_F(AnalogTest, ACommandByteAbove12StallsTheReadBack) {
    List().ListIndex(12);
    Field(202).Value(200);
    sensor.ClearRecord();
    Click(*analog, "mnuWrite");
    ASSERT_TRUE(WaitFor([&] { return hand.Count() == 4; }));
    EXPECT_EQ(sensor.Word(202), 200);
    EXPECT_EQ(hand.Texts()[1], writeDone);
    const auto isError = [&](std::size_t box, const char* number) {
        const std::string head = std::string("Number: ") + number;
        return hand.Texts()[box].find(head + "\r\nSource: TimerRead_Timer\r\nScreen: Analog\r\n") !=
               std::string::npos;
    };
    EXPECT_TRUE(isError(2, "380")) << hand.Texts()[2];
    EXPECT_TRUE(isError(3, "9")) << hand.Texts()[3];
    EXPECT_EQ(Field(202).Value(), 200) << "taken before the list failed";
    EXPECT_EQ(List().ListIndex(), 12);
    EXPECT_EQ(AppState.CurrentEEPROMAddress, 202);
    EXPECT_EQ(Heard().size(), 12U) << "eleven writes and one read";
    EXPECT_TRUE(Running());

    const MSComm& port = Get<MSComm>(*analog, "MSComm1");
    EXPECT_TRUE(port.PortOpen());
    Click(*analog, "mnuReturn");
    EXPECT_FALSE(port.PortOpen());
    EXPECT_EQ(MousePointer(), Pointer::Default);
    LetPass(0);
    sensor.SetWord(202, 12);
    OpenAnalog();
    AwaitRuns(5);
    EXPECT_EQ(List().Text(), "Custom Configuration");
    EXPECT_EQ(Adjustable(), all);
}

TEST_F(AnalogTest, ACancelLeavesTheFieldAndGoesOn) {
    for (int address = 202; address <= 222; address += 2)
        sensor.SetWord(address, static_cast<std::uint16_t>(address == 202 ? 5 : address));
    sensor.ReplyOnceTo(0x28, {0x29});
    hand.Otherwise(QMessageBox::Cancel);
    Click(*analog, "mnuRead");
    AwaitRuns(3);
    EXPECT_EQ(hand.Texts()[1],
              std::string("Read EEPROM Error: header is not 0x28!") + retryOrCancel);
    EXPECT_EQ(List().ListIndex(), 2);
    EXPECT_EQ(Field(202).Value(), 2);
    EXPECT_EQ(Field(204).Value(), 204);
    EXPECT_EQ(Field(222).Value(), 222);
}

TEST_F(AnalogTest, ReturnInMidRunStopsIt) {
    for (const char* entry : {"mnuRead", "mnuWrite"}) {
        sensor.ClearRecord();
        Click(*analog, entry);
        ASSERT_TRUE(WaitFor([&] { return Heard().size() >= 3; }));
        Click(*analog, "mnuReturn");
        const std::size_t boxes = hand.Count();
        LetPass(3 * tick);
        const std::size_t heard = Heard().size();
        LetPass(3 * tick);
        EXPECT_EQ(Heard().size(), heard) << entry;
        EXPECT_LT(heard, 11U);
        EXPECT_EQ(hand.Count(), boxes);
        OpenAnalog();
        AwaitRuns(boxes + 1);
    }
}

}  // namespace orbkl4::test

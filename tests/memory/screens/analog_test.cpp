#include "link/screens/runs_fixture.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/cw_num_edit.h"

namespace orbkl4::test {

namespace {

using Addresses = std::vector<int>;

/// The screen of the analog outputs after its first read, with a sensor whose function is
/// "Instantaneous Euler Angles".
class AnalogTest : public RunTest {
  protected:
    AnalogTest() {
        for (int address = 202; address <= 222; address += 2)
            sensor.SetWord(address, static_cast<std::uint16_t>(1000 + address));
        sensor.SetWord(202, 2);
        OpenRun("Analog");
        AwaitRuns(1);
    }

    /// Waits until `count` boxes have been shown and no run is going on.
    void AwaitRuns(std::size_t count) {
        ASSERT_TRUE(WaitFor([&] { return boxes.Count() >= count && !Running(); }));
        EXPECT_EQ(boxes.Count(), count);
        ExpectRest("202");
    }

    CWNumEdit& Field(int address) const {
        return Get<CWNumEdit>(*screen, ("NumEdit" + std::to_string(address)).c_str());
    }
    ComboBox& List() const { return Get<ComboBox>(*screen, "cmbFunction"); }

    /// The addresses of the enabled fields; all others must be grey.
    Addresses Adjustable() const {
        Addresses adjustable;
        for (int address = 202; address <= 222; address += 2) {
            const CWNumEdit& field = Field(address);
            if (field.isEnabled()) adjustable.push_back(address);
            EXPECT_EQ(field.BackColorText(), field.isEnabled() ? 0x80000005 : 0xE0E0E0) << address;
        }
        return adjustable;
    }

    BoxAnswerer boxes{{}, goOn};
};

const Addresses all{202, 204, 206, 208, 210, 212, 214, 216, 218, 220, 222};

}  // namespace

TEST_F(AnalogTest, OpeningReadsTheElevenWords) {
    EXPECT_EQ(boxes.Texts(), Strings{readDone});
    EXPECT_EQ(List().Text(), "Instantaneous Euler Angles");
    EXPECT_EQ(List().count(), 13);
    EXPECT_EQ(Field(202).Value(), 2);
    for (int address = 204; address <= 222; address += 2)
        EXPECT_EQ(Field(address).Value(), 1000 + address);
    EXPECT_EQ(Adjustable(), (Addresses{218, 222}));
}

TEST_F(AnalogTest, AFunctionEnablesItsFields) {
    const std::vector<Addresses> opened = {{},         {204, 206, 208, 210}, {218, 222}, {218, 222},
                                           {220, 222}, {220, 222},           {212, 222}, {212, 222},
                                           {214, 222}, {214, 222},           {216, 222}, {216, 222},
                                           all};
    for (int row = 12; row >= 0; --row) {
        List().ListIndex(row);
        EXPECT_EQ(Adjustable(), opened.at(static_cast<std::size_t>(row))) << row;
        EXPECT_EQ(Text(*screen, "lblCommandByte"), row == 12 ? "12->" : "0-11");
        EXPECT_EQ(Field(202).Minimum(), row == 12 ? 12 : 0);
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
    Click(*screen, "mnuWrite");
    EXPECT_EQ(MousePointer(), Pointer::Hourglass);
    EXPECT_EQ(Property(*screen, "fraPB", "title"), "Writing");
    EXPECT_EQ(Disabled(), (Names{"mnuRead", "mnuWrite", "fraAnalog"}));
    EXPECT_TRUE(Heard().empty()) << "the first word goes out on the first tick";
    AwaitRuns(3);
    // 1206 is 0x04B6, and so on.
    std::vector<Bytes> expected{
        {0x29, 0x71, 0, 202, 0x00, 0x00, 0xAA}, {0x29, 0x71, 0, 204, 0x0F, 0xFF, 0xAA},
        {0x29, 0x71, 0, 206, 0x04, 0xB6, 0xAA}, {0x29, 0x71, 0, 208, 0x04, 0xB8, 0xAA},
        {0x29, 0x71, 0, 210, 0x04, 0xBA, 0xAA}, {0x29, 0x71, 0, 212, 0x04, 0xBC, 0xAA},
        {0x29, 0x71, 0, 214, 0x04, 0xBE, 0xAA}, {0x29, 0x71, 0, 216, 0x04, 0xC0, 0xAA},
        {0x29, 0x71, 0, 218, 0x04, 0xC2, 0xAA}, {0x29, 0x71, 0, 220, 0x04, 0xC4, 0xAA},
        {0x29, 0x71, 0, 222, 0xFF, 0xFF, 0xAA}};
    for (const int address : all) expected.push_back(ReadRequest(address));
    EXPECT_EQ(Heard(), expected);
    EXPECT_EQ(boxes.Texts(), (Strings{readDone, writeDone, readDone}));
    EXPECT_EQ(List().ListIndex(), 0);
}

TEST_F(AnalogTest, ACommandByteAbove12StopsTheReadBack) {
    List().ListIndex(12);
    Field(202).Value(200);
    sensor.ClearRecord();
    Click(*screen, "mnuWrite");
    ASSERT_TRUE(WaitFor([&] { return boxes.Count() == 4; }));
    EXPECT_EQ(sensor.Word(202), 200);
    EXPECT_EQ(boxes.Texts()[1], writeDone);
    EXPECT_EQ(boxes.Error(2), "380 TimerRead_Timer Analog");
    EXPECT_EQ(boxes.Error(3), "9 TimerRead_Timer Analog");
    EXPECT_EQ(Field(202).Value(), 200) << "changed before the list fails";
    EXPECT_EQ(List().ListIndex(), 12);
    EXPECT_EQ(AppState.CurrentEEPROMAddress, 202);
    EXPECT_EQ(Heard().size(), 12U) << "eleven writes and one read";
    EXPECT_TRUE(Running());
    Click(*screen, "mnuReturn");
    EXPECT_EQ(MousePointer(), Pointer::Default);
}

}  // namespace orbkl4::test

#include "memory/screens/map_fixture.h"
#include "support/wait.h"

#include <gtest/gtest.h>

namespace orbkl4::test {

namespace {

using Addresses = std::vector<int>;

class EepromMap : public MapTest {
  protected:
    Addresses EnabledAddresses() const {
        Addresses addresses;
        for (int address = 0; address < 256; address += 2)
            if (Field(address).isEnabled()) addresses.push_back(address);
        return addresses;
    }

    /// Address, name, remark, minimum and maximum as shown.
    std::vector<std::string> Texts() const {
        return {Text(*screen, "txtEAdd"), Text(*screen, "txtEEPROMName"),
                Text(*screen, "txtRemarks"), Text(*screen, "txtMin"), Text(*screen, "txtMax")};
    }

    void PointAt(QWidget& widget, QPoint where) {
        QTest::mouseMove(&widget, where);
        LetPass(0);
    }

    bool Visible(const char* entry) const { return screen->Menu(entry).Visible(); }
};

const Addresses userAddresses{26,  44,  46,  64,  120, 122, 124, 126, 128, 132,
                              136, 138, 140, 142, 144, 146, 148, 150, 152, 202,
                              204, 206, 208, 210, 212, 214, 216, 218, 220, 222};

}  // namespace

TEST_F(EepromMap, OpensUnmarkedAtZeroWithoutTouchingTheSensor) {
    LetPass(50);
    EXPECT_TRUE(Heard().empty());
    EXPECT_TRUE(MarkedAddresses().empty());
    EXPECT_EQ(Number(26), 0) << "below its minimum, and left there";
    EXPECT_EQ(Property(*screen, "fraEEPROMAddresses", "title"), "EEPROM Addresses");
    for (const int address : {0, 2, 66, 254})
        EXPECT_EQ(Text(*screen, ("lblAddress" + std::to_string(address)).c_str()),
                  std::to_string(address));
}

TEST_F(EepromMap, FitsTheWindowWithoutScrolling) {
    frame.resize(1280, 800);
    LetPass(0);
    for (int address = 0; address < 256; address += 2) {
        const CWNumEdit& field = Field(address);
        const QRect place(field.mapTo(screen, QPoint()), field.size());
        EXPECT_TRUE(screen->rect().contains(place)) << address;
        EXPECT_GE(field.width(), field.sizeHint().width()) << address;
        EXPECT_GE(field.height(), field.sizeHint().height()) << address;
    }
}

TEST_F(EepromMap, OpensTheFieldsOfTheAccessLevel) {
    EXPECT_EQ(EnabledAddresses(), userAddresses);
    EXPECT_FALSE(Visible("mnuSep1") || Visible("mnuLog"));
    screen->Unload();
    AppState.AdvancedMode = true;
    Reopen();
    EXPECT_EQ(EnabledAddresses().size(), 126U);
    EXPECT_FALSE(Field(134).isEnabled() || Field(198).isEnabled());
    EXPECT_TRUE(Visible("mnuSep1") && Visible("mnuLog"));
}

TEST_F(EepromMap, TellsOfTheFieldUnderThePointerUntilTheBackground) {
    const std::vector<std::string> offset{"2", "X Accelerometer Offset", "User may not modify.",
                                          "0", "65535"};
    PointAt(Field(2), Field(2).rect().center());
    EXPECT_EQ(Texts(), offset) << "a disabled field counts like any other";
    PointAt(Get<QWidget>(*screen, "fraEEPROMAddresses1"), {4, 4});
    PointAt(Get<QWidget>(*screen, "lblAddress4"), {2, 2});
    PointAt(Get<QWidget>(*screen, "fraEEPROM"), {40, 4});
    EXPECT_EQ(Texts(), offset) << "frames and labels leave the texts alone";
    PointAt(*screen, {2, 2});
    EXPECT_EQ(Texts(), std::vector<std::string>(5));

    const std::vector<std::string> baud{"44", "Baud Rate (129=19200, 64=38400, 21=115200)",
                                        "User may modify.", "21", "129"};
    PointAt(Field(44), Field(44).rect().center());
    EXPECT_EQ(Texts(), baud);
    Field(64).setFocus(Qt::TabFocusReason);
    EXPECT_EQ(Texts()[1], "Node Address") << "keys tell of a field, too";
}

TEST_F(EepromMap, TheChordShowsAndHidesTheTwoEntriesWhereverTheFocusStands) {
    EXPECT_FALSE(Visible("mnuShowMin") || Visible("mnuShowMax"));
    Field(44).setFocus();
    PressChord();
    EXPECT_TRUE(Visible("mnuShowMin") && Visible("mnuShowMax"));
    Get<QWidget>(*screen, "txtEEPROMName").setFocus();
    PressChord();
    EXPECT_FALSE(Visible("mnuShowMin") || Visible("mnuShowMax"));
}

TEST_F(EepromMap, AnyChangeMarksAField) {
    Type(64, "15");
    Field(2).Value(1);  // disabled, and changed by code
    Type(132, "0");     // stays as it was
    EXPECT_EQ(MarkedAddresses(), (Addresses{2, 64}));
}

TEST_F(AdvancedMapTest, TwoFieldsSnapToTheirCodesWhenTheyAreLeft) {
    struct Case {
        int address;
        const char* typed;
        double kept;
    };
    for (const auto& [address, typed, kept] :
         {Case{44, "100", 64}, Case{44, "129", 129}, Case{44, "21", 21}, Case{238, "15", 1},
          Case{238, "4", 4}, Case{238, "16", 16}, Case{240, "15", 15}}) {
        Type(address, typed);
        Field(46).setFocus();
        EXPECT_EQ(Number(address), kept) << typed;
        EXPECT_TRUE(Marked(address)) << typed;
    }
}

TEST_F(EepromMap, ShowMaxChangesDisabledFieldsToo) {
    PressChord();
    Click(*screen, "mnuShowMax");
    EXPECT_EQ(Number(2), 65535);
    EXPECT_EQ(Number(66), 32767);
    EXPECT_EQ(Number(134), 32767);
    EXPECT_EQ(Number(246), 100);
    Addresses unmarked;
    for (int address = 0; address < 256; address += 2)
        if (!Marked(address)) unmarked.push_back(address);
    EXPECT_EQ(unmarked, (Addresses{0, 56, 58, 60, 62, 224, 244, 248, 250, 252, 254}))
        << "those stand at their maximum of 0 already";
    Click(*screen, "mnuShowMin");
    EXPECT_EQ(Number(66), -32768);
    EXPECT_EQ(Number(26), 1);
}

}  // namespace orbkl4::test

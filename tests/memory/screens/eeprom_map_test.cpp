#include "memory/screens/map_fixture.h"

#include <QAbstractButton>

namespace orbkl4::test {

namespace {

class EepromMap : public MapTest {
  protected:
    /// Address, name, remark, minimum and maximum as shown.
    Strings Texts() const {
        return {Text(*screen, "txtEAdd"), Text(*screen, "txtEEPROMName"),
                Text(*screen, "txtRemarks"), Text(*screen, "txtMin"), Text(*screen, "txtMax")};
    }

    bool Visible(const char* entry) const { return screen->Menu(entry).Visible(); }
};

}  // namespace

TEST_F(EepromMap, OpensUnmarkedAtZeroWithoutTouchingTheSensor) {
    LetPass(50);
    EXPECT_TRUE(Heard().empty());
    EXPECT_TRUE(MarkedAddresses().empty());
    EXPECT_EQ(Number(26), 0) << "below its minimum";
    EXPECT_EQ(Property(*screen, "fraEEPROMAddresses", "title"), "EEPROM Addresses");
    for (const int address : {0, 2, 66, 254})
        EXPECT_EQ(Text(*screen, ("lblAddress" + std::to_string(address)).c_str()),
                  std::to_string(address));
}

TEST_F(EepromMap, FitsTheWindowWithoutScrolling) {
    frame.resize(1280, 800);
    for (int address = 0; address < 256; address += 2) {
        const CWNumEdit& field = Field(address);
        const QRect place(field.mapTo(screen, QPoint()), field.size());
        EXPECT_TRUE(screen->rect().contains(place)) << address;
        EXPECT_GE(field.width(), field.sizeHint().width()) << address;
        EXPECT_GE(field.height(), field.sizeHint().height()) << address;
    }
}

TEST_F(EepromMap, EnablesTheFieldsOfTheAccessLevel) {
    const auto enabled = [this](int address) { return Field(address).isEnabled(); };
    EXPECT_TRUE(enabled(26) && enabled(222));
    EXPECT_FALSE(enabled(0) || enabled(134) || enabled(254));
    EXPECT_FALSE(Visible("mnuSep1") || Visible("mnuLog"));
    screen->Unload();
    AppState.AdvancedMode = true;
    Reopen();
    EXPECT_TRUE(enabled(0) && enabled(26) && enabled(254));
    EXPECT_FALSE(enabled(134) || enabled(198));
    EXPECT_TRUE(Visible("mnuSep1") && Visible("mnuLog"));
}

TEST_F(EepromMap, ShowsTheFieldUnderThePointerUntilTheBackground) {
    const Strings offset{"2", "X Accelerometer Offset", "User may not modify.", "0", "65535"};
    QTest::mouseMove(&Field(2));
    EXPECT_EQ(Texts(), offset) << "also for a disabled field";
    QTest::mouseMove(&Get<QWidget>(*screen, "fraEEPROMAddresses1"), {4, 4});
    QTest::mouseMove(&Get<QWidget>(*screen, "lblAddress4"), {2, 2});
    QTest::mouseMove(&Get<QWidget>(*screen, "fraEEPROM"), {40, 4});
    EXPECT_EQ(Texts(), offset) << "frames and labels don't change the texts";
    QTest::mouseMove(screen, {2, 2});
    EXPECT_EQ(Texts(), Strings(5));

    const Strings baud{"44", "Baud Rate (129=19200, 64=38400, 21=115200)", "User may modify.", "21",
                       "129"};
    QTest::mouseMove(&Field(44));
    EXPECT_EQ(Texts(), baud);
    Field(64).setFocus(Qt::TabFocusReason);
    EXPECT_EQ(Texts()[1], "Node Address") << "also for a field that a key moves to";
}

TEST_F(EepromMap, TheChordShowsAndHidesTwoEntriesWhereverTheFocusIs) {
    EXPECT_FALSE(Visible("mnuShowMin") || Visible("mnuShowMax"));
    Field(44).setFocus();
    PressChord();
    EXPECT_TRUE(Visible("mnuShowMin") && Visible("mnuShowMax"));
    Get<QWidget>(*screen, "txtEEPROMName").setFocus();
    PressChord();
    EXPECT_FALSE(Visible("mnuShowMin") || Visible("mnuShowMax"));
}

TEST_F(EepromMap, ArrowKeysMoveBetweenEnabledFields) {
    // At this level: 26, 44, 46, 64, 120 to 128, 132, 136 to 152, 202 to 222; a row is 24 wide.
    struct Case {
        int from;
        Qt::Key key;
        int to;
    };
    for (const auto& [from, key, to] :
         {Case{26, Qt::Key_Down, 44}, Case{44, Qt::Key_Up, 26}, Case{46, Qt::Key_Down, 64},
          Case{26, Qt::Key_Up, 26}, Case{222, Qt::Key_Down, 222}, Case{128, Qt::Key_Right, 152},
          Case{152, Qt::Key_Left, 128}, Case{26, Qt::Key_Right, 122}, Case{26, Qt::Key_Left, 26},
          Case{222, Qt::Key_Right, 222}}) {
        Field(from).setFocus(Qt::TabFocusReason);
        QTest::keyClick(&Field(from), key);
        EXPECT_EQ(frame.focusWidget()->objectName(), Field(to).objectName()) << from << ' ' << key;
        EXPECT_EQ(Text(*screen, "txtEAdd"), std::to_string(to)) << from << ' ' << key;
    }
    EXPECT_EQ(MarkedAddresses(), Addresses{44}) << "0 is no code of a baud rate";
    Field(26).setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&Field(26), QStringLiteral("12"));
    QTest::keyClick(&Field(26), Qt::Key_Left);
    QTest::keyClicks(&Field(26), QStringLiteral("0"));
    QTest::keyClick(&Field(26), Qt::Key_Down);
    EXPECT_EQ(Number(26), 102) << "Left moves the cursor while a number is typed";
}

TEST_F(EepromMap, EachChangeMarksAField) {
    Type(64, "15");
    Field(2).Value(1);  // disabled; changed by code
    Type(132, "0");     // unchanged
    EXPECT_EQ(MarkedAddresses(), (Addresses{2, 64}));
}

TEST_F(AdvancedMapTest, TwoFieldsChangeToALegalCodeWhenTheyLoseTheFocus) {
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
    EXPECT_EQ(Number(134), 32767);
    Addresses unmarked;
    for (int address = 0; address < 256; address += 2)
        if (!Marked(address)) unmarked.push_back(address);
    EXPECT_EQ(unmarked, (Addresses{0, 56, 58, 60, 62, 224, 244, 248, 250, 252, 254}))
        << "their maximum is 0";
    Click(*screen, "mnuShowMin");
    EXPECT_EQ(Number(66), -32768);
}

TEST_F(EepromMap, MatricesShowItsFields) {
    const std::pair<const char*, int> matrices[] = {{"Accelerometer Orthogonality Matrix", 102},
                                                    {"Magnetometer Orthogonality Matrix", 66},
                                                    {"Gyroscope Orthogonality Matrix", 84},
                                                    {"Gyro Acceleration Sensitivity Matrix", 178},
                                                    {"Tare Matrix", 136},
                                                    {"Iron Calibration Matrix", 154}};
    for (int address = 66; address <= 194; address += 2) Field(address).Value(-address);
    Click(*screen, "mnuViewMatrix");
    const Screen& viewer = *FindScreen("ViewMatrix");
    EXPECT_TRUE(viewer.isVisible() && viewer.isWindow());
    EXPECT_TRUE(Get<QAbstractButton>(viewer, "Option1").isChecked());
    // The first option is clicked while it is on, and again at the end.
    for (const int option : {0, 1, 2, 3, 4, 5, 0}) {
        Get<QAbstractButton>(viewer, ("Option" + std::to_string(option + 1)).c_str()).click();
        const auto& [name, base] = matrices[option];
        EXPECT_EQ(Property(viewer, "fraMatrix", "title"), name);
        for (int k = 0; k < 9; ++k) {
            const std::string field = "txtMatrix(" + std::to_string(k + 1) + ")";
            EXPECT_EQ(Text(viewer, field.c_str()), std::to_string(-(base + 2 * k))) << name;
        }
    }
    const auto placeOf = [&](const char* name) { return Get<QWidget>(viewer, name).pos(); };
    EXPECT_EQ(placeOf("txtMatrix(7)").y(), placeOf("txtMatrix(1)").y());
    EXPECT_GT(placeOf("lblM13").x(), placeOf("txtMatrix(4)").x());
    EXPECT_LT(placeOf("lblM13").x(), placeOf("txtMatrix(7)").x());
    Click(viewer, "mnuClose");
    EXPECT_EQ(FindScreen("ViewMatrix"), nullptr);
    EXPECT_EQ(ActiveScreenName(), "EEPROMmap");
}

TEST_F(EepromMap, MatricesWithoutItAreAnError) {
    screen->Unload();
    OpenModal("ViewMatrix");
    EXPECT_EQ(boxes.Error(0), "9 Form_Load Main");
}

}  // namespace orbkl4::test

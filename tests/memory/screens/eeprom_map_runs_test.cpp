#include "link/stored_line.h"
#include "memory/logic/map_runs.h"
#include "memory/screens/map_fixture.h"
#include "platform/system/folders.h"

#include <QDir>

#include <algorithm>
#include <map>

namespace orbkl4::test {

namespace {

const Names busy{"mnuRead",   "mnuWrite",           "mnuViewMatrix",
                 "mnuLog",    "mnuShowMin",         "mnuShowMax",
                 "fraEEPROM", "fraEEPROMAddresses", "fraEEPROMAddresses1"};
const Bytes closingWrite{0x29, 0x71, 0x00, 0x00, 0x00, 0x00, 0xAA};

/// The sensor's word at `address` as a number.
int NumberIn(const orbkl4sim::Simulator& sensor, int address) {
    const bool isSigned = (address >= 66 && address <= 118) || (address >= 136 && address <= 194);
    const int word = sensor.Word(address);
    return isSigned && word > 32767 ? word - 65536 : word;
}

class EepromMapRuns : public AdvancedMapTest {
  protected:
    QStringList Logs() const {
        return QDir(LogsFolder()).entryList({QStringLiteral("EEPROM_log_*.csv")}, QDir::Files);
    }
};

}  // namespace

TEST_F(EepromMapRuns, EscGivesBackTheWordThatTheSensorHas) {
    sensor.SetWord(64, 7);
    const auto escape = [this] { QTest::keyClick(&Field(64), Qt::Key_Escape); };
    Type(64, "3");
    escape();
    EXPECT_EQ(Number(64), 3) << "nothing was read yet";
    Field(64).setFocus();
    Run("mnuRead");
    EXPECT_EQ(frame.focusWidget(), &Field(64)) << "it was disabled meanwhile";
    QTest::keyClicks(&Field(64), QStringLiteral("55"));
    escape();
    EXPECT_EQ(Number(64), 7);
    EXPECT_FALSE(Marked(64)) << "what was typed never counted";
    Type(64, "3");
    QTest::keyClick(&Field(64), Qt::Key_PageUp);
    EXPECT_EQ(Number(64), 13);
    escape();
    EXPECT_EQ(Number(64), 7);
    EXPECT_TRUE(Marked(64)) << "each change marks";
    Type(64, "12");
    EXPECT_EQ(Number(64), 12);
    Run("mnuWrite");
    Type(64, "5");
    escape();
    EXPECT_EQ(Number(64), 12) << "as last written";
}

TEST_F(EepromMapRuns, AReadAndAnUnchangedWriteSendOneWord) {
    sensor.SetWord(44, 21);
    sensor.SetWord(130, 1000);
    sensor.SetWord(230, 2000);
    sensor.SetWord(232, 3000);
    Type(64, "9");
    PressChord();
    boxes.BeforeAnswer([&](QMessageBox& /*box*/) {
        EXPECT_FALSE(Port().PortOpen());
        EXPECT_EQ(MousePointer(), Pointer::Default);
        EXPECT_EQ(Property(*screen, "fraPB", "title"), "Reading");
        EXPECT_EQ(Disabled(), busy);
    });
    Click(*screen, "mnuRead");
    EXPECT_TRUE(MarkedAddresses().empty()) << "the start of the run removes the marks";
    EXPECT_EQ(MousePointer(), Pointer::Hourglass);
    EXPECT_EQ(Disabled(), busy);
    ASSERT_TRUE(AwaitEnd());
    ExpectRest("0");
    std::vector<Bytes> expected;
    for (int address = 2; address < 256; address += 2) expected.push_back(ReadRequest(address));
    EXPECT_EQ(Heard(), expected);
    for (int address = 2; address < 256; address += 2)
        EXPECT_EQ(Number(address), NumberIn(sensor, address)) << address;
    EXPECT_TRUE(MarkedAddresses().empty());
    EXPECT_EQ(AppState.AccGainScale, 0) << "a read doesn't change the scales";

    sensor.ClearRecord();
    boxes.BeforeAnswer([&](QMessageBox& /*box*/) {
        EXPECT_EQ(Property(*screen, "fraPB", "title"), "Writing");
        EXPECT_EQ(StoredCommSettings(), "38400,n,8,1") << "stored after the message";
        EXPECT_EQ(AppState.AccGainScale, 0);
        EXPECT_EQ(Disabled(), busy);
    });
    Run("mnuWrite");
    ExpectRest("0");
    EXPECT_EQ(Heard(), std::vector<Bytes>{closingWrite});
    EXPECT_EQ(StoredCommSettings(), "115200,n,8,1");
    EXPECT_EQ(AppState.CommSettings, "38400,n,8,1") << "the line in use keeps its settings";
    EXPECT_EQ(AppState.GyroGainScale, 1000);
    EXPECT_EQ(AppState.AccGainScale, 2000);
    EXPECT_EQ(AppState.MagGainScale, 3000);
    EXPECT_EQ(boxes.Texts(), (Strings{readDone, writeDone}));
}

TEST_F(EepromMapRuns, WritesTheModifiedWordsInAscendingOrder) {
    struct Case {
        int address;
        const char* typed;
        Bytes request;
    };
    const std::vector<Case> cases{
        {2, "99999", {0x29, 0x71, 0x00, 0x02, 0xFF, 0xFF, 0xAA}},
        {44, "129", {0x29, 0x71, 0x00, 0x2C, 0x00, 0x81, 0xAA}},
        {64, "15", {0x29, 0x71, 0x00, 0x40, 0x00, 0x0F, 0xAA}},
        {66, "-99999", {0x29, 0x71, 0x00, 0x42, 0x80, 0x00, 0xAA}},
        {118, "32768", {0x29, 0x71, 0x00, 0x76, 0x7F, 0xFF, 0xAA}},
        {194, "-1", {0x29, 0x71, 0x00, 0xC2, 0xFF, 0xFF, 0xAA}},
        {246, "100", {0x29, 0x71, 0x00, 0xF6, 0x00, 0x64, 0xAA}},
    };
    std::vector<Bytes> expected;
    for (const Case& row : cases) expected.push_back(row.request);
    expected.push_back(closingWrite);
    for (std::size_t i = cases.size(); i-- > 0;) Type(cases[i].address, cases[i].typed);
    Run("mnuWrite");
    EXPECT_EQ(Heard(), expected);
    EXPECT_TRUE(MarkedAddresses().empty());
    EXPECT_EQ(boxes.Texts(), (Strings{writeDone,
                                      "BAUD RATE changes will not take effect until 1) the "
                                      "program is exited/re-started and 2) the ORB-KL4 power is "
                                      "cycled!"}));
    EXPECT_EQ(StoredCommSettings(), "19200,n,8,1");
    Run("mnuWrite");
    EXPECT_EQ(boxes.Count(), 3U) << "no warning where the baud rate wasn't written";
}

TEST_F(EepromMapRuns, ShowMinMarksWordsUpToTheLastWhichEndsAWrite) {
    sensor.SetWord(254, 7);
    Run("mnuRead");
    EXPECT_EQ(Number(254), 7) << "above its maximum";
    sensor.ClearRecord();
    Click(*screen, "mnuShowMin");
    const Addresses marked = MarkedAddresses();
    ASSERT_FALSE(marked.empty()) << "changes after a read mark fields";
    EXPECT_EQ(marked.back(), 254);
    Run("mnuWrite");
    Addresses addresses;
    for (const Bytes& request : Heard()) addresses.push_back(request[3]);
    EXPECT_EQ(addresses, marked) << "no closing write after the last word";
    EXPECT_EQ(Heard().back(), (Bytes{0x29, 0x71, 0x00, 0xFE, 0x00, 0x00, 0xAA}));
    EXPECT_EQ(sensor.Word(66), 0x8000);
}

TEST_F(EepromMapRuns, ACancelledWordKeepsItsNumberAndLosesItsMark) {
    boxes.Otherwise(QMessageBox::Cancel);
    std::string bar;
    boxes.BeforeAnswer([&](QMessageBox& /*box*/) { bar = Property(*screen, "PBar", "value"); });
    const std::map<int, Bytes> faulty{
        {2, {0x00}}, {252, {0x28, 0, 0, 0, 0, 0}}, {254, {0x28, 0, 0, 0, 0, 0, 0}}};
    for (const auto& row : faulty) Field(row.first).Value(1234);
    sensor.FilterReplies([&](const Bytes& request, const Bytes& reply) -> std::optional<Bytes> {
        const auto found = faulty.find(request.at(2));
        return found == faulty.end() ? reply : found->second;
    });
    Run("mnuRead");
    EXPECT_EQ(boxes.Count(), 4U);
    EXPECT_EQ(boxes.Texts().back(), readDone) << "no message about skipped words";
    EXPECT_EQ(bar, "252") << "the bar isn't moved after the last word";
    for (const auto& row : faulty) EXPECT_EQ(Number(row.first), 1234);
    EXPECT_EQ(Number(4), NumberIn(sensor, 4));
    EXPECT_TRUE(MarkedAddresses().empty());
    EXPECT_EQ(Heard().size(), 127U);
}

TEST_F(EepromMapRuns, AFaultyReplyCanBeRetriedAndAMissingOneMayComeLate) {
    sensor.ReplyOnceTo(0x28, {0x28, 0, 1, 0, 2, 0, 0});
    sensor.ReplyOnceTo(0x28, {});
    boxes.BeforeAnswer([&](QMessageBox& box) {
        const bool isError = box.text().contains(QStringLiteral("Number: 9"));
        if (isError) sensor.SendUnasked(Frame(0x28, {4321, 0}));
    });
    Run("mnuRead");
    ASSERT_EQ(boxes.Count(), 3U);
    EXPECT_EQ(boxes.Texts()[0], std::string("Read EEPROM Error: checksum failed!") + retryOrCancel);
    EXPECT_EQ(boxes.Error(1), "9 TimerRead_Timer EEPROMmap");
    EXPECT_EQ(boxes.Texts()[2], readDone);
    EXPECT_EQ(Number(2), 4321);
    const std::vector<Bytes> heard = Heard();
    EXPECT_EQ(std::ranges::count(heard, ReadRequest(2)), 2) << "no request after an error";
    EXPECT_EQ(heard.size(), 128U);
}

TEST_F(EepromMapRuns, ReturnEndsARunAndTheMapOpensAgain) {
    for (const char* entry : {"mnuWrite", "mnuLog"}) {
        Get<Timer>(*screen, "TimerWrite").Interval(40);
        for (int address = 2; address < 256; address += 2) Field(address).Value(1);
        sensor.ClearRecord();
        Click(*screen, entry);
        ASSERT_TRUE(WaitFor([&] { return Heard().size() >= 4; }));
        Click(*screen, "mnuReturn");
        EXPECT_EQ(FindScreen("EEPROMmap"), nullptr);
        EXPECT_EQ(MousePointer(), Pointer::Default);
        LetPass(100);
        const std::size_t heard = Heard().size();
        LetPass(100);
        EXPECT_EQ(Heard().size(), heard) << entry;
        Reopen();
        EXPECT_TRUE(MarkedAddresses().empty()) << "the marks are gone";
    }
    EXPECT_EQ(boxes.Count(), 0U);
    EXPECT_TRUE(Logs().isEmpty());
}

TEST_F(EepromMapRuns, TheLogHoldsTheWholeMap) {
    sensor.SetWord(66, 0xFFFF);
    sensor.SetWord(194, 0x8000);
    Field(0).Value(7);  // address 0 is never read
    Run("mnuLog");
    EXPECT_EQ(boxes.Texts(), Strings{"Log process has completed!"});
    ASSERT_EQ(Logs().size(), 1);
    std::string expected = "ORB-KL4 EEPROM Log\r\nAddress,Value\r\n0,7\r\n";
    for (int address = 2; address < 256; address += 2)
        expected +=
            std::to_string(address) + "," + std::to_string(NumberIn(sensor, address)) + "\r\n";
    expected += "\r\n";
    EXPECT_EQ(ContentOf(LogsFolder() + QLatin1Char('/') + Logs().first()).toStdString(), expected);

    Click(*screen, "mnuRead");
    AppState.CurrentEEPROMAddress = 254;  // the last word
    ASSERT_TRUE(AwaitEnd());
    EXPECT_EQ(boxes.Texts().back(), readDone) << "the next run is no log";
    EXPECT_EQ(Logs().size(), 1);
}

TEST_F(EepromMapRuns, ALogThatCantBeWrittenIsReportedAndTheRunEnds) {
    // A folder in the place of each file that could be written.
    std::tm time = LocalTime();
    for (int second = 0; second < 60; ++second) {
        std::mktime(&time);
        QDir(LogsFolder()).mkdir(QString::fromStdString(EepromLogName(time)));
        ++time.tm_sec;
    }
    Run("mnuLog");
    ASSERT_EQ(boxes.Count(), 2U);
    EXPECT_EQ(boxes.Error(0), "76 Logger EEPROMmap");
    EXPECT_EQ(boxes.Texts()[1], "Log process has completed!");
    EXPECT_EQ(Number(230), sensor.Word(230));
    ExpectRest("0");
}

}  // namespace orbkl4::test

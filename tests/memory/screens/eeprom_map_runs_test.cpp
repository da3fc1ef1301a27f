#include "frame/settings.h"
#include "memory/logic/map_runs.h"
#include "memory/screens/map_fixture.h"
#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/program_folder.h"
#include "platform/screen_registry.h"
#include "support/frames.h"
#include "support/wait.h"

#include <QDir>
#include <QRegularExpression>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace orbkl4::test {

namespace {

constexpr const char* runEntries[] = {"mnuRead", "mnuWrite",   "mnuViewMatrix",
                                      "mnuLog",  "mnuShowMin", "mnuShowMax"};
constexpr const char* frames[] = {"fraEEPROM", "fraEEPROMAddresses", "fraEEPROMAddresses1"};
const Bytes closingWrite{0x29, 0x71, 0x00, 0x00, 0x00, 0x00, 0xAA};

/// The number that the sensor's word at `address` stands for.
int NumberIn(const orbkl4sim::Simulator& sensor, int address) {
    const bool isSigned = (address >= 66 && address <= 118) || (address >= 136 && address <= 194);
    const int word = sensor.Word(address);
    return isSigned && word > 32767 ? word - 65536 : word;
}

class EepromMapRuns : public AdvancedMapTest {
  protected:
    void ExpectControls(bool enabled) {
        for (const char* entry : runEntries) {
            const MenuEntry& shown = map->Menu(entry);
            if (!shown.Visible()) continue;
            EXPECT_EQ(shown.Enabled(), enabled) << entry;
        }
        for (const char* name : frames)
            EXPECT_EQ(Get<QWidget>(*map, name).isEnabled(), enabled) << name;
        EXPECT_TRUE(map->Menu("mnuReturn").Enabled());
    }
    void ExpectRest() {
        ExpectControls(true);
        EXPECT_EQ(Property(*map, "fraPB", "title"), "Progress");
        EXPECT_EQ(Property(*map, "PBar", "value"), "0");
        EXPECT_FALSE(Get<MSComm>(*map, "MSComm1").PortOpen());
        EXPECT_EQ(MousePointer(), Pointer::Default);
    }
    QStringList Logs() const {
        return QDir(LogsFolder()).entryList({QStringLiteral("EEPROM_log_*.csv")}, QDir::Files);
    }
};

}  // namespace

TEST_F(EepromMapRuns, AReadAndAnUnchangedWriteSendOneWord) {
    sensor.SetWord(44, 21);
    sensor.SetWord(130, 1000);
    sensor.SetWord(230, 2000);
    sensor.SetWord(232, 3000);
    Type(64, "9");
    QTest::keyClick(frame.windowHandle(), Qt::Key_F11, Qt::ControlModifier);
    hand.BeforeAnswer([&](QMessageBox& /*box*/) {
        EXPECT_FALSE(Get<MSComm>(*map, "MSComm1").PortOpen());
        EXPECT_FALSE(Get<Timer>(*map, "TimerRead").Enabled());
        EXPECT_EQ(MousePointer(), Pointer::Default);
        EXPECT_EQ(Property(*map, "fraPB", "title"), "Reading");
        ExpectControls(false);
    });
    Click(*map, "mnuRead");
    EXPECT_TRUE(MarkedAddresses().empty()) << "marks go as the run begins";
    EXPECT_EQ(MousePointer(), Pointer::Hourglass);
    ExpectControls(false);
    ASSERT_TRUE(WaitFor([&] { return !Running(); }, 20000));
    ExpectRest();
    std::vector<Bytes> expected;
    for (int address = 2; address < 256; address += 2) expected.push_back(ReadRequest(address));
    EXPECT_EQ(Heard(), expected);
    for (int address = 2; address < 256; address += 2)
        EXPECT_EQ(Number(address), NumberIn(sensor, address)) << address;
    EXPECT_TRUE(MarkedAddresses().empty());
    EXPECT_EQ(AppState.AccGainScale, 0) << "a read leaves the scales in use alone";

    sensor.ClearRecord();
    hand.BeforeAnswer([&](QMessageBox& /*box*/) {
        EXPECT_EQ(Property(*map, "fraPB", "title"), "Writing");
        EXPECT_EQ(StoredCommSettings(), "38400,n,8,1") << "stored behind the message";
        EXPECT_EQ(AppState.AccGainScale, 0);
        ExpectControls(false);
    });
    Run("mnuWrite");
    ExpectRest();
    EXPECT_EQ(Heard(), std::vector<Bytes>{closingWrite});
    EXPECT_EQ(StoredCommSettings(), "115200,n,8,1");
    EXPECT_EQ(AppState.CommSettings, "38400,n,8,1") << "the port in use stays as it is";
    EXPECT_EQ(AppState.GyroGainScale, 1000);
    EXPECT_EQ(AppState.AccGainScale, 2000);
    EXPECT_EQ(AppState.MagGainScale, 3000);
    EXPECT_EQ(hand.Texts(), (std::vector<std::string>{readDone, writeDone}));
}

TEST_F(EepromMapRuns, WritesJustTheChangedWordsInAscendingOrder) {
    struct Case {
        int address;
        const char* typed;
        double number;
        Bytes request;
    };
    const std::vector<Case> cases{
        {2, "99999", 65535, {0x29, 0x71, 0x00, 0x02, 0xFF, 0xFF, 0xAA}},
        {44, "129", 129, {0x29, 0x71, 0x00, 0x2C, 0x00, 0x81, 0xAA}},
        {64, "15", 15, {0x29, 0x71, 0x00, 0x40, 0x00, 0x0F, 0xAA}},
        {66, "-99999", -32768, {0x29, 0x71, 0x00, 0x42, 0x80, 0x00, 0xAA}},
        {118, "32768", 32767, {0x29, 0x71, 0x00, 0x76, 0x7F, 0xFF, 0xAA}},
        {120, "1", 1, {0x29, 0x71, 0x00, 0x78, 0x00, 0x01, 0xAA}},
        {136, "-32768", -32768, {0x29, 0x71, 0x00, 0x88, 0x80, 0x00, 0xAA}},
        {194, "-1", -1, {0x29, 0x71, 0x00, 0xC2, 0xFF, 0xFF, 0xAA}},
        {196, "65535", 65535, {0x29, 0x71, 0x00, 0xC4, 0xFF, 0xFF, 0xAA}},
        {246, "100", 100, {0x29, 0x71, 0x00, 0xF6, 0x00, 0x64, 0xAA}},
    };
    std::vector<Bytes> expected;
    expected.reserve(cases.size() + 1);
    for (const Case& row : cases) expected.push_back(row.request);
    for (std::size_t i = cases.size(); i-- > 0;) Type(cases[i].address, cases[i].typed);
    expected.push_back(closingWrite);
    Run("mnuWrite");
    EXPECT_EQ(Heard(), expected);
    EXPECT_TRUE(MarkedAddresses().empty());
    EXPECT_EQ(hand.Texts(),
              (std::vector<std::string>{writeDone,
                                        "BAUD RATE changes will not take effect until 1) the "
                                        "program is exited/re-started and 2) the ORB-KL4 power is "
                                        "cycled!"}));
    EXPECT_EQ(StoredCommSettings(), "19200,n,8,1");
    Run("mnuWrite");
    EXPECT_EQ(hand.Count(), 3U) << "no warning where the baud rate wasn't written";

    map->Unload();
    Reopen();
    Run("mnuRead");
    for (const Case& row : cases) EXPECT_EQ(Number(row.address), row.number) << row.address;
    EXPECT_EQ(Number(68), NumberIn(sensor, 68));
}

TEST_F(EepromMapRuns, AWordOutsideItsLimitsIsShownAndKeptUntilShowMin) {
    sensor.SetWord(254, 7);
    sensor.SetWord(64, 5000);
    Run("mnuRead");
    EXPECT_EQ(Number(254), 7);
    EXPECT_EQ(Number(64), 5000);
    ActivateFrame();
    Field(252).setFocus();
    QTest::keyClick(&Field(252), Qt::Key_Tab);
    EXPECT_TRUE(Field(254).hasFocus());
    EXPECT_EQ(Text(*map, "txtEAdd"), "254");
    QTest::keyClick(&Field(254), Qt::Key_Backtab);
    EXPECT_EQ(Number(254), 7);
    EXPECT_TRUE(MarkedAddresses().empty());

    sensor.ClearRecord();
    Click(*map, "mnuShowMin");
    const std::vector<int> marked = MarkedAddresses();
    ASSERT_FALSE(marked.empty()) << "changes behind a read mark again";
    EXPECT_EQ(marked.back(), 254);
    Run("mnuWrite");
    std::vector<int> written;
    for (const Bytes& request : HeardOf(0x29)) written.push_back(request[3]);
    EXPECT_EQ(written, marked) << "nothing follows a write of the last word";
    EXPECT_EQ(HeardOf(0x29).back(), (Bytes{0x29, 0x71, 0x00, 0xFE, 0x00, 0x00, 0xAA}));
    EXPECT_EQ(sensor.Word(66), 0x8000);
    EXPECT_EQ(sensor.Word(64), 1);
}

TEST_F(EepromMapRuns, EveryFaultOfAReplyCanBeRetried) {
    const std::vector<Bytes> faulty{
        Frame(0x29, {1, 2}), {0x28, 0, 1, 0, 2}, Frame(0x28, {1, 2, 3}), {0x28, 0, 1, 0, 2, 0, 0}};
    std::map<int, std::size_t> asked;
    sensor.FilterReplies([&](const Bytes& request, const Bytes& reply) -> std::optional<Bytes> {
        const int address = request.at(2);
        if (address != 2 && address != 128 && address != 254) return reply;
        const std::size_t times = asked[address]++;
        return times < faulty.size() ? faulty[times] : reply;
    });
    Run("mnuRead");
    std::vector<std::string> expected;
    for (int i = 0; i < 3; ++i) {
        for (const char* fault : {"header is not 0x28!", "packet length is <> 7 bytes!",
                                  "packet length is <> 7 bytes!", "checksum failed!"})
            expected.push_back(std::string("Read EEPROM Error: ") + fault + retryOrCancel);
    }
    expected.emplace_back(readDone);
    EXPECT_EQ(hand.Texts(), expected);
    EXPECT_EQ(HeardOf(0x28).size(), 127U + 12U);
    for (const int address : {2, 128, 254}) EXPECT_EQ(Number(address), NumberIn(sensor, address));
    ExpectRest();
}

TEST_F(EepromMapRuns, ACancelledWordKeepsItsNumberAndLosesItsMark) {
    hand.Otherwise(QMessageBox::Cancel);
    for (const int address : {2, 128, 254}) Field(address).Value(1234);
    sensor.FilterReplies([](const Bytes& request, const Bytes& reply) -> std::optional<Bytes> {
        const int address = request.at(2);
        if (address == 2) return Bytes{0x00};
        if (address == 128) return Bytes(reply.begin(), reply.end() - 1);
        if (address == 254) return Bytes{0x28, 0, 0, 0, 0, 0, 0};
        return reply;
    });
    Run("mnuRead");
    EXPECT_EQ(hand.Count(), 4U);
    EXPECT_EQ(hand.Texts().back(), readDone) << "what was skipped isn't told";
    for (const int address : {2, 128, 254}) EXPECT_EQ(Number(address), 1234);
    EXPECT_EQ(Number(4), NumberIn(sensor, 4));
    EXPECT_TRUE(MarkedAddresses().empty());
    EXPECT_EQ(HeardOf(0x28).size(), 127U);
}

TEST_F(EepromMapRuns, SilenceIsAnErrorOfTheTickAndTheRunGoesOnWithALateReply) {
    const std::vector<int> silent{2, 130, 254};
    sensor.FilterReplies([&](const Bytes& request, const Bytes& reply) -> std::optional<Bytes> {
        if (std::ranges::count(silent, request.at(2)) > 0) return std::nullopt;
        return reply;
    });
    hand.BeforeAnswer([&](QMessageBox& box) {
        const bool isError = box.text().contains(QStringLiteral("Number: 9"));
        if (isError) sensor.SendUnasked(Frame(0x28, {4321, 0}));
    });
    Run("mnuRead");
    ASSERT_EQ(hand.Count(), 4U);
    for (std::size_t i = 0; i < silent.size(); ++i) {
        EXPECT_NE(
            hand.Texts()[i].find("Number: 9\r\nSource: TimerRead_Timer\r\nScreen: EEPROMmap\r\n"),
            std::string::npos)
            << hand.Texts()[i];
        EXPECT_EQ(Number(silent[i]), 4321);
    }
    EXPECT_EQ(hand.Texts().back(), readDone);
    EXPECT_EQ(HeardOf(0x28).size(), 127U) << "nothing was asked anew";
}

TEST_F(EepromMapRuns, NothingActsBehindABoxAndARetryGetsAFullTick) {
    constexpr int tick = 120;
    constexpr int slack = 30;  // of the two threads' clocks
    delete hastener;
    Get<Timer>(*map, "TimerRead").Interval(tick);
    hand.Hesitate(3 * tick);
    sensor.ReplyOnceTo(0x28, {0x00});
    std::size_t behindTheBox = 0;
    hand.BeforeAnswer([&](QMessageBox& /*box*/) { behindTheBox = Heard().size(); });
    Click(*map, "mnuRead");
    ASSERT_TRUE(WaitUntilAskedFor(4));
    EXPECT_EQ(hand.Count(), 1U);
    EXPECT_EQ(behindTheBox, 1U);
    const auto requests = sensor.Requests();
    ASSERT_EQ(requests.size(), 3U);
    EXPECT_EQ(requests[1].bytes, ReadRequest(2));
    EXPECT_GE(requests[1].time - requests[0].time, std::chrono::milliseconds(4 * tick - slack));
    EXPECT_GE(requests[2].time - requests[1].time, std::chrono::milliseconds(tick - slack));
}

TEST_F(EepromMapRuns, ReturnInMidRunClosesThePortAndLeavesAllReusable) {
    for (const char* entry : {"mnuRead", "mnuWrite", "mnuLog"}) {
        Get<Timer>(*map, "TimerWrite").Interval(40);
        for (int address = 2; address < 256; address += 2) Field(address).Value(1);
        sensor.ClearRecord();
        Click(*map, entry);
        ASSERT_TRUE(WaitFor([&] { return Heard().size() >= 4; }));
        const MSComm& port = Get<MSComm>(*map, "MSComm1");
        EXPECT_TRUE(port.PortOpen());
        Click(*map, "mnuReturn");
        EXPECT_FALSE(port.PortOpen());
        EXPECT_EQ(FindScreen("EEPROMmap"), nullptr);
        EXPECT_EQ(MousePointer(), Pointer::Default);
        LetPass(100);
        const std::size_t heard = Heard().size();
        LetPass(100);
        EXPECT_EQ(Heard().size(), heard) << entry;
        Reopen();
        ExpectRest();
        EXPECT_TRUE(MarkedAddresses().empty()) << "values and marks are gone";
    }
    EXPECT_EQ(hand.Count(), 0U);
    EXPECT_TRUE(Logs().isEmpty());
    sensor.ClearRecord();
    Run("mnuWrite");
    EXPECT_EQ(Heard(), std::vector<Bytes>{closingWrite});
}

TEST_F(EepromMapRuns, APortThatCantBeOpenedLeavesTheRunHangingUntilReturn) {
    AppState.CommPort = 99;
    const auto isError = [&](std::size_t box, const std::string& record) {
        return hand.Texts()[box].find(record + "\r\nScreen: EEPROMmap\r\n") != std::string::npos;
    };
    const std::string noPort = "Number: 8002\r\nSource: OpenCommPort";
    Click(*map, "mnuRead");
    ASSERT_EQ(hand.Count(), 2U);
    EXPECT_TRUE(isError(0, noPort)) << hand.Texts()[0];
    EXPECT_TRUE(isError(1, "Number: 8018\r\nSource: mnuRead_Click")) << hand.Texts()[1];
    ExpectControls(false);
    EXPECT_FALSE(Get<Timer>(*map, "TimerRead").Enabled());
    Click(*map, "mnuReturn");
    Reopen();
    ExpectRest();
    Click(*map, "mnuWrite");
    ASSERT_TRUE(WaitFor([&] { return hand.Count() == 5; }));
    EXPECT_TRUE(isError(2, noPort)) << hand.Texts()[2];
    for (const std::size_t tick : {3U, 4U})
        EXPECT_TRUE(isError(tick, "Number: 8018\r\nSource: TimerWrite_Timer"));
    Click(*map, "mnuReturn");
}

TEST_F(EepromMapRuns, TheLogHoldsTheWholeMap) {
    sensor.SetWord(66, 0xFFFF);
    sensor.SetWord(194, 0x8000);
    Field(0).Value(7);  // the word that is never read
    Run("mnuLog");
    EXPECT_EQ(hand.Texts(), std::vector<std::string>{"Log process has completed!"});
    ASSERT_EQ(Logs().size(), 1);
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^EEPROM_log_[0-9]{14}\\.csv$"))
                    .match(Logs().first())
                    .hasMatch());
    std::string expected = "ORB-KL4 EEPROM Log\r\nAddress,Value\r\n0,7\r\n";
    for (int address = 2; address < 256; address += 2)
        expected +=
            std::to_string(address) + "," + std::to_string(NumberIn(sensor, address)) + "\r\n";
    expected += "\r\n";
    EXPECT_NE(expected.find("\r\n66,-1\r\n"), std::string::npos);
    EXPECT_EQ(ContentOf(LogsFolder() + QLatin1Char('/') + Logs().first()).toStdString(), expected);

    Click(*map, "mnuRead");
    AppState.CurrentEEPROMAddress = 254;  // on to the end
    ASSERT_TRUE(WaitFor([&] { return !Running(); }));
    EXPECT_EQ(hand.Texts().back(), readDone) << "the next run is a read again";
    EXPECT_EQ(Logs().size(), 1);
}

TEST_F(EepromMapRuns, ALogThatCantBeWrittenIsReportedAndLosesNothing) {
    // A folder stands where each of the files to come would be.
    std::tm time = LocalTime();
    for (int second = 0; second < 60; ++second) {
        std::mktime(&time);
        QDir(LogsFolder()).mkdir(QString::fromStdString(EepromLogName(time)));
        ++time.tm_sec;
    }
    Run("mnuLog");
    ASSERT_EQ(hand.Count(), 2U);
    EXPECT_NE(hand.Texts()[0].find("\r\nSource: Logger\r\nScreen: EEPROMmap\r\n"),
              std::string::npos)
        << hand.Texts()[0];
    EXPECT_EQ(hand.Texts()[1], "Log process has completed!");
    EXPECT_EQ(Number(230), sensor.Word(230));
    ExpectRest();
}

}  // namespace orbkl4::test

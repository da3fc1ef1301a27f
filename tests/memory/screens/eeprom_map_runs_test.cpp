#include "link/stored_line.h"
#include "memory/logic/map_runs.h"
#include "memory/screens/map_fixture.h"
#include "platform/system/clock.h"
#include "platform/system/folders.h"
#include "platform/windows/boxes.h"
#include "platform/windows/screen_registry.h"
#include "support/frames.h"
#include "support/wait.h"

#include <QDir>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace orbkl4::test {

namespace {

const Bytes closingWrite{0x29, 0x71, 0x00, 0x00, 0x00, 0x00, 0xAA};

/// The number that the sensor's word at `address` stands for.
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

TEST_F(EepromMapRuns, AReadAndAnUnchangedWriteSendOneWord) {
    sensor.SetWord(44, 21);
    sensor.SetWord(130, 1000);
    sensor.SetWord(230, 2000);
    sensor.SetWord(232, 3000);
    Type(64, "9");
    PressChord();
    hand.BeforeAnswer([&](QMessageBox& /*box*/) {
        EXPECT_FALSE(Port().PortOpen());
        EXPECT_FALSE(Get<Timer>(*screen, "TimerRead").Enabled());
        EXPECT_EQ(MousePointer(), Pointer::Default);
        EXPECT_EQ(Property(*screen, "fraPB", "title"), "Reading");
        ExpectControls(false);
    });
    Click(*screen, "mnuRead");
    EXPECT_TRUE(MarkedAddresses().empty()) << "marks go as the run begins";
    EXPECT_EQ(MousePointer(), Pointer::Hourglass);
    ExpectControls(false);
    ASSERT_TRUE(WaitFor([&] { return !Running(); }, 20000));
    ExpectRest("0");
    std::vector<Bytes> expected;
    for (int address = 2; address < 256; address += 2) expected.push_back(ReadRequest(address));
    EXPECT_EQ(Heard(), expected);
    for (int address = 2; address < 256; address += 2)
        EXPECT_EQ(Number(address), NumberIn(sensor, address)) << address;
    EXPECT_TRUE(MarkedAddresses().empty());
    EXPECT_EQ(AppState.AccGainScale, 0) << "a read leaves the scales in use alone";

    sensor.ClearRecord();
    hand.BeforeAnswer([&](QMessageBox& /*box*/) {
        EXPECT_EQ(Property(*screen, "fraPB", "title"), "Writing");
        EXPECT_EQ(StoredCommSettings(), "38400,n,8,1") << "stored behind the message";
        EXPECT_EQ(AppState.AccGainScale, 0);
        ExpectControls(false);
    });
    Run("mnuWrite");
    ExpectRest("0");
    EXPECT_EQ(Heard(1), std::vector<Bytes>{closingWrite});
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
        Bytes request;
    };
    const std::vector<Case> cases{
        {2, "99999", {0x29, 0x71, 0x00, 0x02, 0xFF, 0xFF, 0xAA}},
        {44, "129", {0x29, 0x71, 0x00, 0x2C, 0x00, 0x81, 0xAA}},
        {64, "15", {0x29, 0x71, 0x00, 0x40, 0x00, 0x0F, 0xAA}},
        {66, "-99999", {0x29, 0x71, 0x00, 0x42, 0x80, 0x00, 0xAA}},
        {118, "32768", {0x29, 0x71, 0x00, 0x76, 0x7F, 0xFF, 0xAA}},
        {120, "1", {0x29, 0x71, 0x00, 0x78, 0x00, 0x01, 0xAA}},
        {136, "-32768", {0x29, 0x71, 0x00, 0x88, 0x80, 0x00, 0xAA}},
        {194, "-1", {0x29, 0x71, 0x00, 0xC2, 0xFF, 0xFF, 0xAA}},
        {196, "65535", {0x29, 0x71, 0x00, 0xC4, 0xFF, 0xFF, 0xAA}},
        {246, "100", {0x29, 0x71, 0x00, 0xF6, 0x00, 0x64, 0xAA}},
    };
    std::vector<Bytes> expected;
    expected.reserve(cases.size() + 1);
    for (const Case& row : cases) expected.push_back(row.request);
    expected.push_back(closingWrite);
    for (std::size_t i = cases.size(); i-- > 0;) Type(cases[i].address, cases[i].typed);
    Run("mnuWrite");
    EXPECT_EQ(Heard(expected.size()), expected);
    EXPECT_TRUE(MarkedAddresses().empty());
    EXPECT_EQ(hand.Texts(),
              (std::vector<std::string>{writeDone,
                                        "BAUD RATE changes will not take effect until 1) the "
                                        "program is exited/re-started and 2) the ORB-KL4 power is "
                                        "cycled!"}));
    EXPECT_EQ(StoredCommSettings(), "19200,n,8,1");
    Run("mnuWrite");
    EXPECT_EQ(hand.Count(), 3U) << "no warning where the baud rate wasn't written";
}

TEST_F(EepromMapRuns, AWordOutsideItsLimitsIsShownAndKeptUntilShowMin) {
    sensor.SetWord(254, 7);
    sensor.SetWord(64, 5000);
    Run("mnuRead");
    EXPECT_EQ(Number(254), 7);
    EXPECT_EQ(Number(64), 5000);
    ActivateFrame();
    Field(64).setFocus();
    Field(254).setFocus();
    EXPECT_EQ(Number(64), 5000) << "also when it is left";
    EXPECT_TRUE(MarkedAddresses().empty());

    sensor.ClearRecord();
    Click(*screen, "mnuShowMin");
    const std::vector<int> marked = MarkedAddresses();
    ASSERT_FALSE(marked.empty()) << "changes behind a read mark again";
    EXPECT_EQ(marked.back(), 254);
    Run("mnuWrite");
    std::vector<int> written;
    for (const Bytes& request : Heard(marked.size())) written.push_back(request[3]);
    EXPECT_EQ(written, marked) << "nothing follows a write of the last word";
    EXPECT_EQ(Heard().back(), (Bytes{0x29, 0x71, 0x00, 0xFE, 0x00, 0x00, 0xAA}));
    EXPECT_EQ(sensor.Word(66), 0x8000);
    EXPECT_EQ(sensor.Word(64), 1);
}

TEST_F(EepromMapRuns, EveryFaultOfAReplyCanBeRetried) {
    const Bytes faulty[] = {
        Frame(0x29, {1, 2}), {0x28, 0, 1, 0, 2}, Frame(0x28, {1, 2, 3}), {0x28, 0, 1, 0, 2, 0, 0}};
    for (const Bytes& reply : faulty) sensor.ReplyOnceTo(0x28, reply);
    Run("mnuRead");
    std::vector<std::string> expected;
    for (const char* fault : {"header is not 0x28!", "packet length is <> 7 bytes!",
                              "packet length is <> 7 bytes!", "checksum failed!"})
        expected.push_back(std::string("Read EEPROM Error: ") + fault + retryOrCancel);
    expected.emplace_back(readDone);
    EXPECT_EQ(hand.Texts(), expected);
    const std::vector<Bytes> heard = Heard();
    EXPECT_EQ(heard.size(), 127U + 4U);
    EXPECT_EQ(std::ranges::count(heard, ReadRequest(2)), 5);
    EXPECT_EQ(Number(2), NumberIn(sensor, 2));
}

TEST_F(EepromMapRuns, ACancelledWordKeepsItsNumberLosesItsMarkAndCountsAsPassed) {
    hand.Otherwise(QMessageBox::Cancel);
    std::string bar;
    hand.BeforeAnswer([&](QMessageBox& /*box*/) { bar = Property(*screen, "PBar", "value"); });
    const std::map<int, Bytes> faulty{
        {2, {0x00}}, {252, {0x28, 0, 0, 0, 0, 0}}, {254, {0x28, 0, 0, 0, 0, 0, 0}}};
    for (const auto& row : faulty) Field(row.first).Value(1234);
    sensor.FilterReplies([&](const Bytes& request, const Bytes& reply) -> std::optional<Bytes> {
        const auto found = faulty.find(request.at(2));
        return found == faulty.end() ? reply : found->second;
    });
    Run("mnuRead");
    EXPECT_EQ(hand.Count(), 4U);
    EXPECT_EQ(hand.Texts().back(), readDone) << "what was skipped isn't told";
    EXPECT_EQ(bar, "252") << "the last word isn't passed";
    for (const auto& row : faulty) EXPECT_EQ(Number(row.first), 1234);
    EXPECT_EQ(Number(4), NumberIn(sensor, 4));
    EXPECT_TRUE(MarkedAddresses().empty());
    EXPECT_EQ(Heard().size(), 127U);
}

TEST_F(EepromMapRuns, SilenceIsAnErrorOfTheTickAndTheRunGoesOnWithALateReply) {
    sensor.ReplyOnceTo(0x28, {});
    hand.BeforeAnswer([&](QMessageBox& box) {
        const bool isError = box.text().contains(QStringLiteral("Number: 9"));
        if (isError) sensor.SendUnasked(Frame(0x28, {4321, 0}));
    });
    Run("mnuRead");
    ASSERT_EQ(hand.Count(), 2U);
    EXPECT_EQ(hand.Error(0), "9 TimerRead_Timer EEPROMmap");
    EXPECT_EQ(hand.Texts()[1], readDone);
    EXPECT_EQ(Number(2), 4321);
    EXPECT_EQ(Heard().size(), 127U) << "nothing was asked anew";
}

TEST_F(EepromMapRuns, ARetryWaitsForItsAnswerAndGetsAFullTick) {
    constexpr std::chrono::milliseconds tick(120);
    constexpr std::chrono::milliseconds slack(60);  // of the two threads' clocks
    delete readTicks;
    Get<Timer>(*screen, "TimerRead").Interval(tick.count());
    hand.Hesitate(3 * tick.count());
    sensor.ReplyOnceTo(0x28, {0x00});
    Click(*screen, "mnuRead");
    ASSERT_TRUE(WaitFor([&] { return Heard().size() >= 3; }));
    const auto requests = sensor.Requests();
    EXPECT_EQ(requests[1].bytes, ReadRequest(2));
    EXPECT_EQ(requests[2].bytes, ReadRequest(4));
    EXPECT_GE(requests[1].time - requests[0].time, 4 * tick - slack);
    EXPECT_GE(requests[2].time - requests[1].time, tick - slack);
}

TEST_F(EepromMapRuns, ReturnInMidRunEndsItAndLeavesAllReusable) {
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
        EXPECT_TRUE(MarkedAddresses().empty()) << "values and marks are gone";
    }
    EXPECT_EQ(hand.Count(), 0U);
    EXPECT_TRUE(Logs().isEmpty());
}

TEST_F(EepromMapRuns, APortThatCantBeOpenedLeavesTheRunHangingUntilReturn) {
    AppState.CommPort = 99;
    Click(*screen, "mnuRead");
    ASSERT_EQ(hand.Count(), 2U);
    EXPECT_EQ(hand.Error(0), "8002 OpenCommPort EEPROMmap");
    EXPECT_EQ(hand.Error(1), "8018 mnuRead_Click EEPROMmap");
    ExpectControls(false);
    EXPECT_FALSE(Get<Timer>(*screen, "TimerRead").Enabled());
    Click(*screen, "mnuReturn");
    Reopen();
    Click(*screen, "mnuWrite");
    ASSERT_TRUE(WaitFor([&] { return hand.Count() == 5; }));
    EXPECT_EQ(hand.Error(2), "8002 OpenCommPort EEPROMmap");
    for (const std::size_t tick : {3U, 4U})
        EXPECT_EQ(hand.Error(tick), "8018 TimerWrite_Timer EEPROMmap");
    Click(*screen, "mnuReturn");
}

TEST_F(EepromMapRuns, TheLogHoldsTheWholeMap) {
    sensor.SetWord(66, 0xFFFF);
    sensor.SetWord(194, 0x8000);
    Field(0).Value(7);  // the word that is never read
    Run("mnuLog");
    EXPECT_EQ(hand.Texts(), std::vector<std::string>{"Log process has completed!"});
    ASSERT_EQ(Logs().size(), 1);
    std::string expected = "ORB-KL4 EEPROM Log\r\nAddress,Value\r\n0,7\r\n";
    for (int address = 2; address < 256; address += 2)
        expected +=
            std::to_string(address) + "," + std::to_string(NumberIn(sensor, address)) + "\r\n";
    expected += "\r\n";
    EXPECT_EQ(ContentOf(LogsFolder() + QLatin1Char('/') + Logs().first()).toStdString(), expected);

    Click(*screen, "mnuRead");
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
    EXPECT_EQ(hand.Error(0), "76 Logger EEPROMmap");
    EXPECT_EQ(hand.Texts()[1], "Log process has completed!");
    EXPECT_EQ(Number(230), sensor.Word(230));
    ExpectRest("0");
}

}  // namespace orbkl4::test

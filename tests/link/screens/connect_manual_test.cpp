#include "frame/logic/app_state.h"
#include "frame/start_up.h"
#include "link/screens/connect_fixture.h"
#include "platform/boxes.h"
#include "support/box_hand.h"
#include "support/wait.h"

#include <QDir>
#include <QFile>

#include <map>
#include <optional>

namespace orbkl4::test {

namespace {

std::string ManualFailure(const std::string& port, const std::string& baud) {
    return "ORB-KL4 not found on comm port " + port + " at " + baud +
           " baud rate! Check your cable, power supply, comm port, baud rate setting, etc. Cycle "
           "the ORB-KL4 power. Click Retry to attempt re-connect or Cancel to stop.";
}

}  // namespace

TEST_F(ConnectScreen, ConnectsManuallyAndStoresThePortAlone) {
    PlugInto(16);
    SetSpeed(129);
    sensor.SetWord(130, 4000);
    sensor.SetWord(230, 65534);
    sensor.SetWord(232, 2500);
    BoxHand hand;
    std::map<std::string, std::string> shown;
    hand.BeforeAnswer([&](QMessageBox&) {
        for (const char* field : {"txtPort1", "txtBaudRate1", "txtSN1", "txtFW1", "txtGGS1",
                                  "txtAGS1", "txtMGS1", "txtPort"}) {
            shown[field] = Text(screen, field);
        }
    });
    ConnectManually(16, "19200");
    EXPECT_EQ(hand.Texts(), Texts{success});
    EXPECT_EQ(Heard(), Exchange(1));
    EXPECT_EQ(shown, (std::map<std::string, std::string>{{"txtPort1", "16"},
                                                         {"txtBaudRate1", "19200"},
                                                         {"txtSN1", "1042"},
                                                         {"txtFW1", "3.1.01"},
                                                         {"txtGGS1", "4000"},
                                                         {"txtAGS1", "65534"},
                                                         {"txtMGS1", "2500"},
                                                         {"txtPort", ""}}));
    EXPECT_EQ(AppState.GyroGainScale, 4000);
    EXPECT_EQ(AppState.AccGainScale, 65534);
    EXPECT_EQ(AppState.MagGainScale, 2500);
    EXPECT_EQ(AppState.CommSettings, "19200,n,8,1");
    EXPECT_TRUE(MenusEnabled());
    EXPECT_TRUE(IsClosed());
    EXPECT_EQ(Stored("CurrentCommPort"), "16");
    EXPECT_EQ(Stored("CurrentCommSettings"), "");
    StartUp();
    EXPECT_EQ(AppState.CommPort, 16);
    EXPECT_EQ(AppState.CommSettings, "");
}

TEST_F(ConnectScreen, AManualFailureStaysOnTheScreen) {
    Unplug(1);
    BoxHand hand({QMessageBox::Retry, QMessageBox::Cancel});
    ConnectManually(9, "115200");
    EXPECT_EQ(hand.Texts(), (Texts{ManualFailure("9", "115200"), ManualFailure("9", "115200")}));
    for (const char* control : {"cmdConnectManual", "cmdQuit", "SSTab1", "fraPort", "fraBaud"}) {
        EXPECT_TRUE(Enabled(control)) << control;
    }
    EXPECT_EQ(AppState.CommPort, 9) << "the values tried";
    EXPECT_EQ(AppState.CommSettings, "115200,n,8,1");
    EXPECT_FALSE(MenusEnabled());
    EXPECT_EQ(Stored("CurrentCommPort"), "none");
    EXPECT_EQ(MousePointer(), Pointer::Default);
    QTest::keyClick(&screen, Qt::Key_Escape);
    EXPECT_TRUE(IsClosed());
}

TEST_F(ConnectScreen, ARetryAfterAFailedResetTurnsToTheSearch) {
    // The port is taken away behind the test, and given back before the answer.
    sensor.FilterReplies([this](const orbkl4sim::Bytes& request, const orbkl4sim::Bytes& reply) {
        if (request == firmwareRequest) Unplug(1);
        return std::optional(reply);
    });
    BoxHand hand({QMessageBox::Retry});
    hand.BeforeAnswer([&](QMessageBox&) {
        if (hand.Count() > 1) return;
        sensor.ClearReplies();
        PlugInto(1);
    });
    ConnectManually(1, "38400");
    EXPECT_EQ(hand.Texts(), (Texts{ManualFailure("1", "38400"), success}));
    std::vector<Bytes> expected{polledMode, firmwareRequest};
    for (const Bytes& request : Exchange(1)) expected.push_back(request);
    EXPECT_EQ(Heard(), expected);
    EXPECT_TRUE(IsClosed());
    EXPECT_EQ(Stored("CurrentCommPort"), "none") << "it was the search that connected";
}

TEST_F(ConnectScreen, ACancelAfterAFailedResetClosesTheScreen) {
    sensor.FilterReplies([this](const orbkl4sim::Bytes& request, const orbkl4sim::Bytes& reply) {
        if (request == firmwareRequest) Unplug(1);
        return std::optional(reply);
    });
    BoxHand hand({QMessageBox::Cancel});
    ConnectManually(1, "38400");
    EXPECT_EQ(hand.Texts(), Texts{ManualFailure("1", "38400")});
    EXPECT_TRUE(IsClosed());
    EXPECT_FALSE(MenusEnabled());
}

TEST_F(ConnectScreen, TakesOnlyAWholeFirmwareReplyForASensor) {
    const Bytes replies[] = {
        {0xF0, 0x0C, 0x1D, 0x0D, 0x0D, 0x00},  // a good reply and a byte too many
        {0xF0, 0x0C, 0x1D, 0x0D},              // a byte too few
        {0xF0, 0x0C, 0x1D, 0x0D, 0x0E},        // 0x0C1D + 0xF0 is 0x0D0D
        {0xF1, 0x0C, 0x1D, 0x0D, 0x0E},        // another header with its own sum
        {0xF0, 0xFF, 0xFF, 0x00, 0xEF},        // the sum passes 65535 and isn't wrapped
        {},
    };
    for (const Bytes& reply : replies) {
        sensor.ReplyOnceTo(0xF0, reply);
        BoxHand hand({QMessageBox::Cancel});
        ConnectManually(1, "38400");
        EXPECT_EQ(hand.Texts(), Texts{ManualFailure("1", "38400")}) << reply.size();
    }
    EXPECT_FALSE(MenusEnabled());
}

TEST_F(ConnectScreen, OneRightHeaderMakesAnIdentity) {
    const Bytes good{0xF0, 0x0C, 0x1D, 0x0D, 0x0D};
    // Neither header is right; the Retry finds the serial number's right.
    sensor.ReplyOnceTo(0xF0, good);
    sensor.ReplyOnceTo(0xF0, {0x00, 0x30, 0x39, 0x00, 0x00});
    sensor.ReplyOnceTo(0xF1, {0x00, 0x04, 0xD2, 0x00, 0x00});
    sensor.ReplyOnceTo(0xF0, good);
    sensor.ReplyOnceTo(0xF0, {0x00, 0x30, 0x39, 0x00, 0x00});
    BoxHand hand({QMessageBox::Retry});
    ConnectManually(1, "38400");
    EXPECT_EQ(hand.Texts(), (Texts{ManualFailure("1", "38400"), success}));
    EXPECT_EQ(AppState.FirmwareText, "12.3.45") << "0x3039, wherever it stands";
    EXPECT_EQ(AppState.SerialNumber, 1042);
    EXPECT_TRUE(IsClosed());
}

TEST_F(ConnectScreen, AnErrorOfItsOwnIsReportedUnderTheNormalPointer) {
    // The store is a folder now, so that it can't be written.
    QFile::remove(StorePath());
    ASSERT_TRUE(QDir().mkpath(StorePath()));
    BoxHand hand({QMessageBox::Ok, QMessageBox::Retry});
    hand.BeforeAnswer([](QMessageBox&) { EXPECT_EQ(MousePointer(), Pointer::Default); });
    ConnectManually(1, "38400");
    ASSERT_EQ(hand.Count(), 2U);
    EXPECT_EQ(hand.Texts()[0], success);
    EXPECT_NE(hand.Texts()[1].find("Source: cmdConnectManual_Click\r\nScreen: Connect\r\n"),
              std::string::npos)
        << hand.Texts()[1];
    EXPECT_FALSE(MenusEnabled());
    EXPECT_FALSE(Enabled("SSTab1")) << "controls stay as they were";
    screen.close();
    EXPECT_TRUE(IsClosed()) << "and yet the screen can be left";
}

}  // namespace orbkl4::test

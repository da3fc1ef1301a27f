#include "link/screens/connect_fixture.h"
#include "platform/windows/boxes.h"
#include "state/app_state.h"
#include "support/box_answerer.h"
#include "support/wait.h"

#include <QProgressBar>
#include <QTabWidget>

#include <algorithm>
#include <utility>

namespace orbkl4::test {

namespace {

const std::string autoFailure =
    "ORB-KL4 not found on comm ports 1-16! Check your cable, power supply, comm port, etc. If BAUD "
    "RATE was changed, cycle the ORB-KL4 power. Click Retry to attempt re-connect or Cancel to "
    "quit.";

}  // namespace

TEST_F(ConnectScreen, StartsFromTheStateOnItsManualTab) {
    using Case = std::pair<const char*, const char*>;
    for (const auto& [settings, chosen] :
         {Case{"19200,n,8,1", "optBaud19200"}, Case{"38400,n,8,1", "optBaud38400"},
          Case{"115200,n,8,1", "optBaud115200"}, Case{"", "optBaud38400"},
          Case{"9600,n,8,1", "optBaud38400"}}) {
        Dialog().Unload();
        AppState.CommPort = 7;
        AppState.CommSettings = settings;
        const Screen& fresh = OpenModal("Connect");
        EXPECT_TRUE(Get<QAbstractButton>(fresh, chosen).isChecked()) << settings;
        EXPECT_EQ(Property(fresh, "NumEditCommPort", "value"), "7");
        EXPECT_EQ(fresh.windowTitle(), "Connect");
    }
}

TEST_F(ConnectScreen, TellsWhatAPortNumberNames) {
    EXPECT_EQ(Text(Dialog(), "lblDevice"), sensor.DevicePath().string());
    Get<QWidget>(Dialog(), "NumEditCommPort").setProperty("value", 2);
    EXPECT_NE(Text(Dialog(), "lblDevice").find("/no-line\nNo serial line is there"),
              std::string::npos);
    // A line that appears meanwhile is seen when the tab is turned to.
    folders.LinkPort(2, QString::fromStdString(sensor.DevicePath().string()));
    Get<QTabWidget>(Dialog(), "SSTab1").setCurrentIndex(1);
    EXPECT_EQ(Text(Dialog(), "lblDevice"), sensor.DevicePath().string());
}

TEST_F(ConnectScreen, FindsTheSensorOnAnyPortAtAnySpeed) {
    struct Case {
        int port;
        std::uint16_t code;           // in the sensor's word for its speed
        std::vector<int> hostSpeeds;  // of the tests, two requests each
    };
    for (const Case& row : {Case{1, 21, {38400, 115200}}, Case{16, 129, {38400, 115200, 19200}},
                            Case{16, 64, {38400}}}) {
        const std::string port = std::to_string(row.port);
        const std::string baud = std::to_string(row.hostSpeeds.back());
        PlugInto(row.port);
        sensor.SetWord(44, row.code);
        sensor.PowerCycle();
        sensor.SetWord(132, 0x02);  // continuous output would drown the reply
        sensor.ClearRecord();
        OpenModal("Connect");
        CaptionWatch watch(Get<QGroupBox>(Dialog(), "fraProgress"));
        BoxAnswerer hand;
        hand.BeforeAnswer([&](QMessageBox&) {
            EXPECT_EQ(Shown({"txtPort", "txtBaudRate", "txtSN", "txtFW"}),
                      (Texts{port, baud, "1042", "3.1.01"}));
            EXPECT_EQ(Property(Dialog(), "PBar", "value"), "0");
            EXPECT_EQ(MousePointer(), Pointer::Default);
        });
        Press("cmdConnectAuto");

        EXPECT_EQ(hand.Texts(), Texts{success});
        EXPECT_EQ(Heard(), Exchange(row.hostSpeeds.size())) << baud;
        const auto requests = sensor.Requests();
        for (std::size_t i = 0; i < requests.size(); ++i) {
            const std::size_t test = std::min(i / 2, row.hostSpeeds.size() - 1);
            EXPECT_EQ(requests[i].hostBaud, row.hostSpeeds[test]) << i;
        }
        EXPECT_EQ(AppState.CommPort, row.port);
        EXPECT_EQ(AppState.CommSettings, baud + ",n,8,1");
        EXPECT_EQ(AppState.FirmwareNumber, 3101);
        EXPECT_TRUE(MenusEnabled());
        EXPECT_TRUE(IsClosed());
        Texts expected{"Testing Port " + port};
        for (const int speed : row.hostSpeeds) {
            expected.push_back(expected[0] + " at " + std::to_string(speed) + " baud");
        }
        EXPECT_FALSE(std::ranges::search(watch.captions, expected).empty())
            << testing::PrintToString(watch.captions);
    }
}

TEST_F(ConnectScreen, FindsNothingWhereNoPortIsThere) {
    Unplug(1);
    int highest = 0;
    QObject::connect(&Get<QProgressBar>(Dialog(), "PBar"), &QProgressBar::valueChanged, &Dialog(),
                     [&](int value) { highest = std::max(highest, value); });
    // The first Retry finds nothing again; before the second, the sensor is plugged in.
    BoxAnswerer hand({QMessageBox::Retry, QMessageBox::Retry});
    hand.BeforeAnswer([&](QMessageBox&) {
        if (hand.Count() > 2) return;
        EXPECT_TRUE(sensor.Received().empty()) << "no port, no traffic";
        if (hand.Count() == 2) PlugInto(1);
    });
    Press("cmdConnectAuto");
    EXPECT_EQ(hand.Texts(), (Texts{autoFailure, autoFailure, success}));
    EXPECT_EQ(highest, 16);
    EXPECT_EQ(Heard(), Exchange(1)) << "one run inside the other, and nothing after it";
    EXPECT_TRUE(IsClosed());
}

TEST_F(ConnectScreen, IsLeftByTheCancelOfTheSearchAndNotBefore) {
    AppState.CommPort = 3;
    AppState.CommSettings = "115200,n,8,1";
    CaptionWatch watch(Get<QGroupBox>(Dialog(), "fraProgress"));
    bool looked = false;
    watch.onCaption = [&](const std::string& caption) {
        if (caption != "Testing Port 1 at 38400 baud") return;
        looked = true;
        EXPECT_EQ(MousePointer(), Pointer::Hourglass);
        for (const char* control : {"cmdConnectAuto", "cmdQuitAuto", "SSTab1"}) {
            EXPECT_FALSE(Enabled(control)) << control;
        }
        QTest::keyClick(&Dialog(), Qt::Key_Escape);
        Dialog().close();
        EXPECT_FALSE(IsClosed());
    };
    sensor.SetSilent(true);
    BoxAnswerer hand({QMessageBox::Cancel});
    Press("cmdConnectAuto");
    EXPECT_TRUE(looked);
    EXPECT_EQ(hand.Texts(), Texts{autoFailure});
    EXPECT_TRUE(IsClosed());
    EXPECT_FALSE(MenusEnabled());
    EXPECT_EQ(AppState.CommPort, 3);
    EXPECT_EQ(AppState.CommSettings, "115200,n,8,1");
}

TEST_F(ConnectScreen, AShortIdentityIsAskedForAgain) {
    sensor.ReplyOnceTo(0xF1, {});
    BoxAnswerer hand({QMessageBox::Retry});
    Press("cmdConnectAuto");
    EXPECT_EQ(hand.Texts(), (Texts{autoFailure, success}));
    std::vector<Bytes> twice = Exchange(1);
    for (const Bytes& request : Exchange(1)) twice.push_back(request);
    EXPECT_EQ(Heard(), twice);
}

TEST_F(ConnectScreen, WarnsOfEachUnsetGainScaleAndConnects) {
    for (const int scale : {130, 230, 232}) sensor.SetWord(scale, 65535);
    BoxAnswerer hand;
    Press("cmdConnectAuto");
    EXPECT_EQ(
        hand.Texts(),
        (Texts{"Gyro Gain Scale has not been initialized! Program performance may be affected.",
               "Acc Gain Scale has not been initialized! Program performance may be affected.",
               "Mag Gain Scale has not been initialized! Program performance may be affected.",
               success}));
}

TEST_F(ConnectScreen, IsLeftByEachQuitButton) {
    for (const char* button : {"cmdQuitAuto", "cmdQuit", "cmdQuitReset"}) {
        ScreenTest::Press(OpenModal("Connect"), button);
        EXPECT_TRUE(IsClosed()) << button;
    }
    EXPECT_TRUE(Heard().empty());
}

}  // namespace orbkl4::test

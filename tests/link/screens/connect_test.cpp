#include "frame/logic/app_state.h"
#include "link/screens/connect_fixture.h"
#include "platform/boxes.h"
#include "support/box_hand.h"
#include "support/wait.h"

#include <QProgressBar>
#include <QTabWidget>

#include <algorithm>
#include <map>

namespace orbkl4::test {

namespace {

const std::string autoFailure =
    "ORB-KL4 not found on comm ports 1-16! Check your cable, power supply, comm port, etc. If BAUD "
    "RATE was changed, cycle the ORB-KL4 power. Click Retry to attempt re-connect or Cancel to "
    "quit.";

}  // namespace

TEST_F(ConnectScreen, StartsFromTheStateOnItsManualTab) {
    struct Case {
        const char* settings;
        const char* chosen;
    };
    for (const Case& row :
         {Case{"19200,n,8,1", "optBaud19200"}, Case{"38400,n,8,1", "optBaud38400"},
          Case{"115200,n,8,1", "optBaud115200"}, Case{"", "optBaud38400"},
          Case{"9600,n,8,1", "optBaud38400"}}) {
        FindScreen("Connect")->Unload();
        AppState.CommPort = 7;
        AppState.CommSettings = row.settings;
        const Screen& fresh = OpenModal("Connect");
        EXPECT_TRUE(Get<QAbstractButton>(fresh, row.chosen).isChecked()) << row.settings;
        EXPECT_EQ(Property(fresh, "NumEditCommPort", "value"), "7");
        EXPECT_EQ(fresh.windowTitle(), "Connect");
    }
}

TEST_F(ConnectScreen, TellsWhatAPortNumberNames) {
    EXPECT_EQ(Text(screen, "lblDevice"), sensor.DevicePath().string());
    Get<QWidget>(screen, "NumEditCommPort").setProperty("value", 2);
    EXPECT_NE(Text(screen, "lblDevice").find("/no-line\nNo serial line is there"),
              std::string::npos);
    // A line that appears meanwhile is seen when the tab is turned to.
    surroundings.LinkPort(2, QString::fromStdString(sensor.DevicePath().string()));
    Get<QTabWidget>(screen, "SSTab1").setCurrentIndex(1);
    EXPECT_EQ(Text(screen, "lblDevice"), sensor.DevicePath().string());
}

TEST_F(ConnectScreen, FindsTheSensorOnAnyPortAtAnySpeed) {
    struct Case {
        int port;
        std::uint16_t code;  // in the sensor's word for its speed
        const char* baud;
        std::vector<int> hostSpeeds;  // of the tests, two requests each
    };
    const Case cases[] = {
        {1, 21, "115200", {38400, 115200}},
        {16, 129, "19200", {38400, 115200, 19200}},
        {16, 64, "38400", {38400}},
    };
    for (const Case& row : cases) {
        PlugInto(row.port);
        SetSpeed(row.code);
        sensor.SetWord(132, 0x02);  // continuous output would drown the reply
        sensor.ClearRecord();
        Screen& fresh = OpenModal("Connect");
        CaptionWatch watch(Get<QGroupBox>(fresh, "fraProgress"));
        BoxHand hand;
        std::map<std::string, std::string> shown;
        hand.BeforeAnswer([&](QMessageBox&) {
            for (const char* field : {"txtPort", "txtBaudRate", "txtSN", "txtFW"}) {
                shown[field] = Text(fresh, field);
            }
            EXPECT_EQ(Property(fresh, "PBar", "value"), "0");
            EXPECT_EQ(MousePointer(), Pointer::Default);
        });
        Get<QPushButton>(fresh, "cmdConnectAuto").click();

        EXPECT_EQ(hand.Texts(), Texts{success});
        EXPECT_EQ(Heard(), Exchange(static_cast<int>(row.hostSpeeds.size()))) << row.baud;
        const auto requests = sensor.Requests();
        for (std::size_t i = 0; i < requests.size(); ++i) {
            const std::size_t test = std::min(i / 2, row.hostSpeeds.size() - 1);
            EXPECT_EQ(requests[i].hostBaud, row.hostSpeeds[test]) << i;
        }
        EXPECT_EQ(shown["txtPort"], std::to_string(row.port));
        EXPECT_EQ(shown["txtBaudRate"], row.baud);
        EXPECT_EQ(shown["txtSN"], "1042");
        EXPECT_EQ(shown["txtFW"], "3.1.01");
        EXPECT_EQ(AppState.CommPort, row.port);
        EXPECT_EQ(AppState.CommSettings, std::string(row.baud) + ",n,8,1");
        EXPECT_EQ(AppState.FirmwareNumber, 3101);
        EXPECT_TRUE(MenusEnabled());
        EXPECT_TRUE(IsClosed());
        const std::string port = "Testing Port " + std::to_string(row.port);
        Texts expected{port};
        for (const int speed : row.hostSpeeds) {
            expected.push_back(port + " at " + std::to_string(speed) + " baud");
        }
        const auto first = std::ranges::find(watch.captions, port);
        const Texts last(first, std::min(first + static_cast<std::ptrdiff_t>(expected.size()),
                                         watch.captions.end()));
        EXPECT_EQ(last, expected);
    }
    EXPECT_EQ(Stored("CurrentCommPort"), "none") << "\"Auto\" holds for this run only";
}

TEST_F(ConnectScreen, FindsNothingWhereNoPortIsThere) {
    Unplug(1);
    int highest = 0;
    QObject::connect(&Get<QProgressBar>(screen, "PBar"), &QProgressBar::valueChanged, &screen,
                     [&](int value) { highest = std::max(highest, value); });
    // The first Retry finds nothing again; before the second, the sensor is plugged in.
    BoxHand hand({QMessageBox::Retry, QMessageBox::Retry});
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

TEST_F(ConnectScreen, CancelOfTheSearchClosesTheScreen) {
    Unplug(1);
    AppState.CommPort = 3;
    AppState.CommSettings = "115200,n,8,1";
    BoxHand hand({QMessageBox::Cancel});
    Press("cmdConnectAuto");
    EXPECT_EQ(hand.Texts(), Texts{autoFailure});
    EXPECT_TRUE(IsClosed());
    EXPECT_FALSE(MenusEnabled());
    EXPECT_EQ(AppState.CommPort, 3);
    EXPECT_EQ(AppState.CommSettings, "115200,n,8,1");
}

TEST_F(ConnectScreen, CantBeLeftWhileItSearches) {
    CaptionWatch watch(Get<QGroupBox>(screen, "fraProgress"));
    bool looked = false;
    watch.onCaption = [&](const std::string& caption) {
        if (caption != "Testing Port 1 at 38400 baud") return;
        looked = true;
        EXPECT_EQ(MousePointer(), Pointer::Hourglass);
        for (const char* control : {"cmdConnectAuto", "cmdQuitAuto", "SSTab1"}) {
            EXPECT_FALSE(Enabled(control)) << control;
        }
        QTest::keyClick(&screen, Qt::Key_Escape);
        screen.close();
        EXPECT_FALSE(IsClosed());
    };
    sensor.SetSilent(true);
    BoxHand hand({QMessageBox::Cancel});
    Press("cmdConnectAuto");
    EXPECT_TRUE(looked);
    EXPECT_TRUE(IsClosed());
}

TEST_F(ConnectScreen, AShortIdentityIsAskedForAgain) {
    sensor.ReplyOnceTo(0xF1, {});
    BoxHand hand({QMessageBox::Retry});
    Press("cmdConnectAuto");
    EXPECT_EQ(hand.Texts(), (Texts{autoFailure, success}));
    std::vector<Bytes> twice = Exchange(1);
    for (const Bytes& request : Exchange(1)) twice.push_back(request);
    EXPECT_EQ(Heard(), twice);
}

TEST_F(ConnectScreen, WarnsOfEachUnsetGainScaleAndConnects) {
    sensor.SetWord(130, 65535);
    sensor.SetWord(230, 65534);
    sensor.SetWord(232, 65535);
    BoxHand hand;
    Press("cmdConnectAuto");
    EXPECT_EQ(
        hand.Texts(),
        (Texts{"Gyro Gain Scale has not been initialized! Program performance may be affected.",
               "Mag Gain Scale has not been initialized! Program performance may be affected.",
               success}));
    EXPECT_EQ(AppState.GyroGainScale, 65535);
    EXPECT_TRUE(MenusEnabled());
}

TEST_F(ConnectScreen, IsLeftByEachQuitButton) {
    for (const char* button : {"cmdQuitAuto", "cmdQuit", "cmdQuitReset"}) {
        Get<QPushButton>(OpenModal("Connect"), button).click();
        EXPECT_TRUE(IsClosed()) << button;
    }
    EXPECT_FALSE(MenusEnabled());
    EXPECT_TRUE(Heard().empty());
}

}  // namespace orbkl4::test

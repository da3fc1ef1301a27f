#include "link/screens/connect_fixture.h"
#include "platform/events/mscomm.h"
#include "platform/system/clock.h"
#include "platform/windows/boxes.h"
#include "state/app_state.h"
#include "support/box_answerer.h"
#include "support/pty_master.h"
#include "support/wait.h"

#include <QEvent>
#include <QProgressBar>
#include <QTabWidget>

#include <algorithm>
#include <functional>
#include <set>
#include <utility>

namespace orbkl4::test {

namespace {

const std::string attempted =
    "Reset attempted on all active comm ports! CYCLE THE ORB-KL4 POWER and proceed to Auto Connect "
    "or Manual Connect.";

std::string FailedAt(const std::string& baud) {
    return "ORB-KL4 reset failed on comm port 7 at " + baud +
           " baud rate! Click Retry to continue reset attempts or Cancel to stop.";
}

/// Called each time the program reads the clock while it waits.
std::function<void()> duringWaits;

/// Calls `onCaption` with the caption of a frame, whose event filter it is, when it is painted.
class CaptionWatch : public QObject {
  public:
    bool eventFilter(QObject* frame, QEvent* event) override {
        if (event->type() == QEvent::Paint) onCaption(frame->property("title").toString());
        return false;
    }

    std::function<void(const QString&)> onCaption;
};

}  // namespace

TEST_F(ConnectScreen, StartsFromTheStateOnItsManualTab) {
    for (const auto& [settings, chosen] : {std::pair{"19200,n,8,1", "optBaud19200"},
                                           {"38400,n,8,1", "optBaud38400"},
                                           {"115200,n,8,1", "optBaud115200"},
                                           {"", "optBaud38400"},
                                           {"9600,n,8,1", "optBaud38400"}}) {
        Dialog().Unload();
        AppState.CommPort = 7;
        AppState.CommSettings = settings;
        const Screen& fresh = OpenModal("Connect");
        EXPECT_TRUE(Get<QAbstractButton>(fresh, chosen).isChecked()) << settings;
        EXPECT_EQ(Property(fresh, "NumEditCommPort", "value"), "7");
    }
}

TEST_F(ConnectScreen, ShowsTheDeviceOfAPortNumber) {
    EXPECT_EQ(Text(Dialog(), "lblDevice"), sensor.DevicePath().string());
    Get<QWidget>(Dialog(), "NumEditCommPort").setProperty("value", 2);
    EXPECT_NE(Text(Dialog(), "lblDevice").find("/no-line\nNo serial line is there"),
              std::string::npos);
    // A line that appears is found when the tab is chosen.
    folders.LinkPort(2, QString::fromStdString(sensor.DevicePath().string()));
    Get<QTabWidget>(Dialog(), "SSTab1").setCurrentIndex(1);
    EXPECT_EQ(Text(Dialog(), "lblDevice"), sensor.DevicePath().string());
}

TEST_F(ConnectScreen, FindsTheSensorOnAnyPortAtAnySpeed) {
    struct Case {
        int port;
        std::uint16_t code;           // of the sensor's speed
        std::vector<int> hostSpeeds;  // of the tests, two requests for each
    };
    for (const Case& row : {Case{1, 21, {38400, 115200}}, Case{16, 129, {38400, 115200, 19200}},
                            Case{16, 64, {38400}}}) {
        const std::string port = std::to_string(row.port);
        const std::string baud = std::to_string(row.hostSpeeds.back());
        PlugInto(row.port);
        sensor.SetWord(44, row.code);
        sensor.PowerCycle();
        sensor.SetWord(132, 0x02);  // continuous output
        sensor.ClearRecord();
        OpenModal("Connect");
        BoxAnswerer boxes;
        boxes.BeforeAnswer([&](const QMessageBox& box) {
            EXPECT_TRUE(IsBeside(box, "fraParameters"));
            EXPECT_EQ(Shown({"txtPort", "txtBaudRate", "txtSN", "txtFW"}),
                      (Texts{port, baud, "1042", "3.1.01"}));
            EXPECT_EQ(Property(Dialog(), "PBar", "value"), "0");
            EXPECT_EQ(MousePointer(), Pointer::Default);
        });
        Press("cmdConnectAuto");

        EXPECT_EQ(boxes.Texts(), Texts{success});
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
    }
}

TEST_F(ConnectScreen, FindsNothingWhereNoPortIsThere) {
    Unplug(1);
    int highest = 0;
    QObject::connect(&Get<QProgressBar>(Dialog(), "PBar"), &QProgressBar::valueChanged, &Dialog(),
                     [&](int value) { highest = std::max(highest, value); });
    // The first Retry finds nothing again; the sensor is plugged in before the second.
    BoxAnswerer boxes({QMessageBox::Retry, QMessageBox::Retry});
    boxes.BeforeAnswer([&](QMessageBox&) {
        if (boxes.Count() > 2) return;
        EXPECT_TRUE(sensor.Received().empty()) << "no port, nothing sent";
        if (boxes.Count() == 2) PlugInto(1);
    });
    Press("cmdConnectAuto");
    EXPECT_EQ(boxes.Texts(), (Texts{autoFailure, autoFailure, success}));
    EXPECT_EQ(highest, 16);
    EXPECT_EQ(Heard(), Exchange(1)) << "the outer run does nothing more";
    EXPECT_TRUE(IsClosed());
}

TEST_F(ConnectScreen, IsClosedByTheCancelOfTheSearchAndNotBefore) {
    AppState.CommPort = 3;
    AppState.CommSettings = "115200,n,8,1";
    CaptionWatch watch;
    std::set<QString> captions;
    Get<QWidget>(Dialog(), "fraProgress").installEventFilter(&watch);
    watch.onCaption = [&](const QString& caption) {
        captions.insert(caption);
        if (caption != QLatin1String("Testing Port 1 at 38400 baud")) return;
        EXPECT_EQ(MousePointer(), Pointer::Hourglass);
        for (const char* control : {"cmdConnectAuto", "cmdQuitAuto", "SSTab1"}) {
            EXPECT_FALSE(Enabled(control)) << control;
        }
        QTest::keyClick(&Dialog(), Qt::Key_Escape);
        Dialog().close();
        EXPECT_FALSE(IsClosed());
    };
    sensor.SetSilent(true);
    BoxAnswerer boxes({QMessageBox::Cancel});
    Press("cmdConnectAuto");
    EXPECT_TRUE(captions.contains(QStringLiteral("Testing Port 1")));
    EXPECT_TRUE(captions.contains(QStringLiteral("Testing Port 1 at 38400 baud")));
    EXPECT_EQ(boxes.Texts(), Texts{autoFailure});
    EXPECT_TRUE(IsClosed());
    EXPECT_FALSE(MenusEnabled());
    EXPECT_EQ(AppState.CommPort, 3);
    EXPECT_EQ(AppState.CommSettings, "115200,n,8,1");
}

TEST_F(ConnectScreen, AfterAShortIdentityARetryWarnsOfEachUnsetGainScaleAndConnects) {
    for (const int scale : {130, 230, 232}) sensor.SetWord(scale, 65535);
    sensor.ReplyOnceTo(0xF1, {});
    BoxAnswerer boxes({QMessageBox::Retry});
    Press("cmdConnectAuto");
    EXPECT_EQ(
        boxes.Texts(),
        (Texts{autoFailure,
               "Gyro Gain Scale has not been initialized! Program performance may be affected.",
               "Acc Gain Scale has not been initialized! Program performance may be affected.",
               "Mag Gain Scale has not been initialized! Program performance may be affected.",
               success}));
}

TEST_F(ConnectScreen, IsClosedByEachQuitButton) {
    for (const char* button : {"cmdQuitAuto", "cmdQuit", "cmdQuitReset"}) {
        ScreenTest::Press(OpenModal("Connect"), button);
        EXPECT_TRUE(IsClosed()) << button;
    }
    EXPECT_TRUE(Heard().empty());
}

TEST_F(ConnectScreen, ResetWritesTheDefaultsAtEverySpeed) {
    sensor.SetSilent(true);
    AppState.CommPort = 5;
    BoxAnswerer boxes;
    Press("cmdReset");
    EXPECT_EQ(boxes.Texts(), Texts{attempted});
    const auto requests = sensor.Requests();
    ASSERT_EQ(requests.size(), 15U);
    constexpr int speeds[] = {19200, 38400, 115200};
    for (std::size_t i = 0; i < requests.size(); ++i) {
        EXPECT_EQ(requests[i].bytes, defaults[i % 5]) << i;
        EXPECT_EQ(requests[i].hostBaud, speeds[i / 5]) << i;
    }
    EXPECT_EQ(AppState.CommPort, 5);
    EXPECT_FALSE(MenusEnabled());
    for (const char* control : {"cmdReset", "cmdQuitReset", "SSTab1"}) {
        EXPECT_TRUE(Enabled(control)) << control;
    }
    EXPECT_EQ(Property(Dialog(), "PBar1", "value"), "0");
    EXPECT_EQ(Property(Dialog(), "fraProgress", "title"), "Progress");
    EXPECT_EQ(MousePointer(), Pointer::Default);
}

TEST_F(ConnectScreen, ALineThatGoesStaysOpenAndNoOtherPortIsTried) {
    ReplaceTickCount([] {
        static std::int32_t now = 0;
        duringWaits();
        return now += 50;
    });
    PlugInto(2);
    AppState.CommPort = 7;
    struct Case {
        const char* button;
        std::vector<QMessageBox::StandardButton> answers;  // and then Cancel
        Texts texts;
    };
    const auto retry = QMessageBox::Retry;
    for (const auto& [button, answers, texts] :
         {Case{"cmdReset",
               {retry, retry, retry},
               {FailedAt("19200"), FailedAt("38400"), FailedAt("115200"), attempted}},
          Case{"cmdReset",
               {retry},
               {FailedAt("19200"), FailedAt("38400"), "Reset was interrupted!"}},
          Case{"cmdConnectAuto", {}, {autoFailure}}}) {
        OpenModal("Connect");
        PtyMaster line;
        folders.LinkPort(1, line.Path());
        duringWaits = [&] { line.HangUp(); };
        BoxAnswerer boxes(answers);
        boxes.BeforeAnswer([&](QMessageBox& /*box*/) {
            EXPECT_TRUE(Get<MSComm>(Dialog(), "MSComm1").PortOpen());
        });
        Press(button);
        EXPECT_EQ(boxes.Texts(), texts);
        EXPECT_TRUE(Heard().empty());
        if (!IsClosed()) Dialog().Unload();
    }
    ReplaceTickCount(nullptr);
}

}  // namespace orbkl4::test

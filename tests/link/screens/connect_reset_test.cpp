#include "link/screens/connect_fixture.h"
#include "platform/events/mscomm.h"
#include "platform/windows/boxes.h"
#include "state/app_state.h"
#include "support/box_answerer.h"

namespace orbkl4::test {

namespace {

const std::string attempted =
    "Reset attempted on all active comm ports! CYCLE THE ORB-KL4 POWER and proceed to Auto Connect "
    "or Manual Connect.";

std::string FailedAt(const std::string& baud) {
    return "ORB-KL4 reset failed on comm port 7 at " + baud +
           " baud rate! Click Retry to continue reset attempts or Cancel to stop.";
}

}  // namespace

TEST_F(ConnectScreen, ResetWritesTheDefaultsAtEverySpeed) {
    sensor.SetSilent(true);
    AppState.CommPort = 5;
    BoxAnswerer hand;
    Press("cmdReset");
    EXPECT_EQ(hand.Texts(), Texts{attempted});
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

TEST_F(ConnectScreen, AResetThatFailsNamesTheStatesPort) {
    AppState.CommPort = 7;
    const auto retry = QMessageBox::Retry;
    BoxAnswerer hand({retry, retry, retry, QMessageBox::Ok, retry, QMessageBox::Cancel});
    for (int run = 0; run < 2; ++run) {
        // Somebody takes the line just after it has been found to exist.
        MSComm rival(nullptr, "MSComm2");
        CaptionWatch watch(Get<QGroupBox>(Dialog(), "fraProgress"));
        watch.onCaption = [&](const std::string& caption) {
            if (caption != "Testing Port 1") return;
            QTimer::singleShot(0, &rival, [&] { rival.PortOpen(true); });
        };
        Press("cmdReset");
        EXPECT_TRUE(Heard().empty());
    }
    EXPECT_EQ(hand.Texts(),
              (Texts{FailedAt("19200"), FailedAt("38400"), FailedAt("115200"), attempted,
                     FailedAt("19200"), FailedAt("38400"), "Reset was interrupted!"}));
}

}  // namespace orbkl4::test

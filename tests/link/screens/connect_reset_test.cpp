#include "frame/logic/app_state.h"
#include "link/screens/connect_fixture.h"
#include "platform/boxes.h"
#include "platform/mscomm.h"
#include "support/box_hand.h"
#include "support/wait.h"

#include <iterator>

namespace orbkl4::test {

TEST_F(ConnectScreen, ResetWritesTheDefaultsAtEverySpeed) {
    sensor.SetSilent(true);
    sensor.SetWord(240, 1);
    AppState.CommPort = 5;
    BoxHand hand;
    Press("cmdReset");
    EXPECT_EQ(hand.Texts(), Texts{"Reset attempted on all active comm ports! CYCLE THE ORB-KL4 "
                                  "POWER and proceed to Auto Connect or Manual Connect."});
    std::vector<Bytes> expected;
    for (int speed = 0; speed < 3; ++speed) {
        expected.insert(expected.end(), defaults.begin(), defaults.end());
    }
    EXPECT_EQ(Heard(), expected);
    const auto requests = sensor.Requests();
    constexpr int speeds[] = {19200, 38400, 115200};
    for (std::size_t i = 0; i < requests.size(); ++i) {
        EXPECT_EQ(requests[i].hostBaud, speeds[i / 5]) << i;
    }
    EXPECT_EQ(sensor.Word(240), 16);
    EXPECT_EQ(AppState.CommPort, 5);
    EXPECT_FALSE(MenusEnabled());
    EXPECT_FALSE(IsClosed());
    for (const char* control : {"cmdReset", "cmdQuitReset", "SSTab1"}) {
        EXPECT_TRUE(Enabled(control)) << control;
    }
    EXPECT_EQ(Property(screen, "PBar1", "value"), "0");
    EXPECT_EQ(Property(screen, "fraProgress", "title"), "Progress");
    EXPECT_EQ(MousePointer(), Pointer::Default);
}

TEST_F(ConnectScreen, AResetThatFailsNamesTheStatesPort) {
    const std::string failed = "ORB-KL4 reset failed on comm port 7 at ";
    const std::string question =
        " baud rate! Click Retry to continue reset attempts or Cancel to stop.";
    struct Case {
        std::vector<BoxHand::Button> answers;
        Texts boxes;
    };
    const auto retry = QMessageBox::Retry;
    const Case cases[] = {
        {{retry, retry, retry},
         {failed + "19200" + question, failed + "38400" + question, failed + "115200" + question,
          "Reset attempted on all active comm ports! CYCLE THE ORB-KL4 POWER and proceed to Auto "
          "Connect or Manual Connect."}},
        {{retry, QMessageBox::Cancel},
         {failed + "19200" + question, failed + "38400" + question, "Reset was interrupted!"}},
    };
    AppState.CommPort = 7;
    for (const Case& row : cases) {
        // Somebody takes the line just after it has been found to exist.
        MSComm rival(nullptr, "MSComm2");
        CaptionWatch watch(Get<QGroupBox>(screen, "fraProgress"));
        watch.onCaption = [&](const std::string& caption) {
            if (caption != "Testing Port 1") return;
            QTimer::singleShot(0, &rival, [&] { rival.PortOpen(true); });
        };
        BoxHand hand(row.answers);
        Press("cmdReset");
        EXPECT_EQ(hand.Texts(), row.boxes);
        EXPECT_TRUE(Heard().empty());
        EXPECT_TRUE(Enabled("cmdReset"));
        EXPECT_EQ(Property(screen, "PBar1", "value"), "0");
        EXPECT_FALSE(IsClosed());
    }
}

}  // namespace orbkl4::test

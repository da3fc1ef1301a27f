#include "link/screens/connect_fixture.h"
#include "main_window/start_up.h"
#include "platform/windows/boxes.h"
#include "state/app_state.h"
#include "support/box_answerer.h"
#include "support/wait.h"

#include <QDir>

#include <optional>

namespace orbkl4::test {

namespace {

std::string ManualFailure(const std::string& port, const std::string& baud) {
    return "ORB-KL4 not found on comm port " + port + " at " + baud +
           " baud rate! Check your cable, power supply, comm port, baud rate setting, etc. Cycle "
           "the ORB-KL4 power. Click Retry to attempt re-connect or Cancel to stop.";
}

}  // namespace

TEST_F(ConnectScreen, ConnectsManuallyAfterAShortIdentityAndStoresThePortAlone) {
    PlugInto(16);
    sensor.SetWord(44, 129);
    sensor.PowerCycle();
    sensor.SetWord(130, 4000);
    sensor.SetWord(230, 65534);
    sensor.SetWord(232, 2500);
    sensor.ReplyOnceTo(0xF1, {});
    BoxAnswerer boxes({QMessageBox::Retry});
    Texts shown;
    boxes.BeforeAnswer([&](const QMessageBox& box) {
        if (boxes.Count() == 1) sensor.ClearRecord();
        EXPECT_EQ(IsBeside(box, "Frame1"), boxes.Texts().back() == success);
        shown = Shown({"txtPort1", "txtBaudRate1", "txtSN1", "txtFW1", "txtGGS1", "txtAGS1",
                       "txtMGS1", "txtPort"});
    });
    ConnectManually(16, "19200");
    EXPECT_EQ(boxes.Texts(), (Texts{ManualFailure("16", "19200"), success}));
    EXPECT_EQ(Heard(), Exchange(1));
    EXPECT_EQ(shown, (Texts{"16", "19200", "1042", "3.1.01", "4000", "65534", "2500", ""}));
    EXPECT_EQ(AppState.CommSettings, "19200,n,8,1");
    EXPECT_TRUE(MenusEnabled());
    EXPECT_TRUE(IsClosed());
    StartUp();
    EXPECT_EQ(AppState.CommPort, 16);
    EXPECT_EQ(AppState.CommSettings, "");
}

TEST_F(ConnectScreen, AManualFailureStaysOnTheScreen) {
    Unplug(1);
    BoxAnswerer boxes({QMessageBox::Retry, QMessageBox::Cancel});
    ConnectManually(9, "115200");
    EXPECT_EQ(boxes.Texts(), (Texts{ManualFailure("9", "115200"), ManualFailure("9", "115200")}));
    for (const char* control : {"cmdConnectManual", "cmdQuit", "SSTab1", "fraPort", "fraBaud"}) {
        EXPECT_TRUE(Enabled(control)) << control;
    }
    EXPECT_EQ(Dialog().focusWidget(), &Get<QWidget>(Dialog(), "NumEditCommPort"));
    EXPECT_EQ(AppState.CommPort, 9) << "the values tried";
    EXPECT_EQ(AppState.CommSettings, "115200,n,8,1");
    EXPECT_FALSE(MenusEnabled());
    EXPECT_FALSE(QFile::exists(store));
    EXPECT_EQ(MousePointer(), Pointer::Default);
    QTest::keyClick(&Dialog(), Qt::Key_Escape);
    EXPECT_TRUE(IsClosed());
}

TEST_F(ConnectScreen, AfterAFailedResetCancelClosesTheScreenAndRetryRunsTheSearch) {
    // The line goes after the test and is back before the answer.
    sensor.FilterReplies([this](const orbkl4sim::Bytes& request, const orbkl4sim::Bytes& reply) {
        if (request == firmwareRequest) Unplug(1);
        return std::optional(reply);
    });
    BoxAnswerer boxes({QMessageBox::Cancel, QMessageBox::Retry});
    boxes.BeforeAnswer([&](QMessageBox&) {
        if (boxes.Count() == 2) sensor.ClearReplies();
        PlugInto(1);
    });
    ConnectManually(1, "38400");
    EXPECT_EQ(boxes.Texts(), Texts{ManualFailure("1", "38400")});
    EXPECT_TRUE(IsClosed());
    EXPECT_FALSE(MenusEnabled());

    sensor.ClearRecord();
    OpenModal("Connect");
    ConnectManually(1, "38400");
    EXPECT_EQ(boxes.Texts(),
              (Texts{ManualFailure("1", "38400"), ManualFailure("1", "38400"), success}));
    EXPECT_EQ(Heard(), Exchange(2)) << "a manual test and one of the search";
    EXPECT_TRUE(IsClosed());
    EXPECT_FALSE(QFile::exists(store)) << "the search stores nothing";
}

TEST_F(ConnectScreen, AnErrorOfItsOwnIsReportedUnderTheNormalPointer) {
    // A folder in the place of the store, so that it can't be written.
    ASSERT_TRUE(QDir().mkpath(store));
    BoxAnswerer boxes({QMessageBox::Ok, QMessageBox::Retry});
    boxes.BeforeAnswer([](QMessageBox&) { EXPECT_EQ(MousePointer(), Pointer::Default); });
    ConnectManually(1, "38400");
    ASSERT_EQ(boxes.Count(), 2U);
    EXPECT_EQ(boxes.Texts()[0], success);
    EXPECT_EQ(boxes.Error(1), "70 cmdConnectManual_Click Connect");
    EXPECT_FALSE(MenusEnabled());
    EXPECT_FALSE(Enabled("SSTab1")) << "the controls stay as they are";
    Dialog().close();
    EXPECT_TRUE(IsClosed()) << "the user can leave the screen";
}

}  // namespace orbkl4::test

#include "main_window/screens/status_line.h"

#include "acquire/screens/view_fixture.h"

#include <QLineEdit>

namespace orbkl4::test {

namespace {

class StatusLineTest : public ViewTest {
  protected:
    QString Foot() const {
        return frame.findChild<QLineEdit*>(QStringLiteral("txtStatus"))->text();
    }

    /// Waits until the line contains `text`.
    bool Says(const char* text) const {
        return WaitFor([=, this] { return Foot().contains(QString::fromUtf8(text)); });
    }

    StatusLine line{frame};
};

}  // namespace

TEST_F(StatusLineTest, FollowsAConnectionAChannelAndAFile) {
    EXPECT_TRUE(Says("Not connected"));
    AppState.FirmwareText = "3.1.01";
    EXPECT_TRUE(Says("firmware 3.1.01 · port 1 · 38400 baud"));
    Screen& screen = Open("Quaternions");
    const Bytes good = Frame(0x04, {8192, 0, 0, 0, 7});
    Bytes bad = good;
    bad.back() ^= 1;
    Script(0x04, {good, bad, good});
    SaveTo(screen, QStringLiteral("run.csv"));
    EXPECT_TRUE(Says("baud  |  run.csv · rows 0 · "));
    Click(screen, "mnuSampleInstant");
    ASSERT_TRUE(AwaitRequests(4));
    EXPECT_TRUE(Says("samples/s · bad replies 1 · restarts 0  |  run.csv · rows 2 · "));
    Click(screen, "mnuReturn");
    EXPECT_TRUE(WaitFor([this] { return Foot().endsWith(QLatin1String("baud")); }));
}

}  // namespace orbkl4::test

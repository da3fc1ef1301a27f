#include "platform/events/mscomm.h"

#include "base/run_time_error.h"
#include "support/pty_master.h"
#include "support/temporary_folders.h"
#include "support/wait.h"

#include <QElapsedTimer>
#include <QFile>
#include <gtest/gtest.h>

#include <cerrno>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace orbkl4::test {

namespace {

/// The number and text of the error that an action raised; 0 for none.
struct Raised {
    int number = 0;
    std::string text;
};

template <typename Action>
Raised ErrorOf(Action action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return {static_cast<int>(error.Number()), error.what()};
    }
    return {};
}

/// Whether no other program may open the device at `path`.
bool IsHeldExclusively(const QString& path) {
    const int descriptor = ::open(path.toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (descriptor < 0) return errno == EBUSY;
    int exclusive = 0;  // root may open it all the same
    ::ioctl(descriptor, TIOCGEXCL, &exclusive);
    ::close(descriptor);
    return exclusive != 0;
}

class SerialPort : public testing::Test {
  protected:
    SerialPort() : port(nullptr, "MSComm1") {
        folders.LinkPort(1, line.Path());
        port.Settings("38400,n,8,1");
        QObject::connect(&port, &MSComm::OnComm, &port, [this] {
            ++events;
            port.Input(taken);
        });
    }

    bool AwaitCount(std::int16_t count) {
        return WaitFor([&] { return port.InBufferCount() == count; });
    }

    TemporaryFolders folders;
    PtyMaster line;
    MSComm port;
    int events = 0;
    Bytes taken;
};

}  // namespace

TEST_F(SerialPort, IsHeldByOneControlUnderWhateverName) {
    folders.LinkPort(2, folders.ConfigFolder() + QStringLiteral("/alias"));
    QFile::link(line.Path(), folders.ConfigFolder() + QStringLiteral("/alias"));
    MSComm rival(nullptr, "MSComm2");
    rival.CommPort(2);
    port.PortOpen(true);
    EXPECT_TRUE(IsHeldExclusively(line.Path()));
    const Raised raised = ErrorOf([&] { rival.PortOpen(true); });
    EXPECT_EQ(raised.number, 8005);
    EXPECT_TRUE(raised.text.starts_with("Port in use: port 2 (")) << raised.text;
    EXPECT_TRUE(raised.text.ends_with(") is open in this program already")) << raised.text;
    EXPECT_FALSE(rival.PortOpen());
    EXPECT_EQ(ErrorOf([&] { port.PortOpen(true); }).number, 8005) << "open already";

    port.PortOpen(false);
    EXPECT_FALSE(IsHeldExclusively(line.Path()));
    rival.PortOpen(true);
    EXPECT_TRUE(rival.PortOpen());
}

TEST_F(SerialPort, KeepsItsPortWhileOpenAndItsSettingsFromWrongOnes) {
    port.PortOpen(true);
    EXPECT_EQ(ErrorOf([&] { port.CommPort(2); }).number, 8005);
    EXPECT_EQ(port.CommPort(), 1);
    for (const char* wrong : {"", "19200", "fast,n,8,1", "19200,x,8,1", "19200,n,9,1", "0,n,8,1"}) {
        EXPECT_EQ(ErrorOf([&] { port.Settings(wrong); }).number, 380) << wrong;
    }
    EXPECT_EQ(port.Settings(), "38400,n,8,1");
}

TEST_F(SerialPort, ForgetsWhatCameBeforeItWasOpened) {
    line.Send({4, 5, 6});
    LetPass(20);
    port.PortOpen(true);
    LetPass(20);
    EXPECT_EQ(port.InBufferCount(), 0);
    line.Send({7});
    ASSERT_TRUE(AwaitCount(1));
    port.Input(taken);
    EXPECT_EQ(taken, Bytes{7});
}

TEST_F(SerialPort, DropsWhatItsBufferHasNoRoomFor) {
    Bytes piece(1024);
    for (std::size_t i = 0; i < piece.size(); ++i) piece[i] = static_cast<std::uint8_t>(i);
    port.PortOpen(true);
    constexpr int full = 32767;
    for (int sent = 1024; sent <= 40 * 1024; sent += 1024) {
        line.Send(piece);
        ASSERT_TRUE(AwaitCount(static_cast<std::int16_t>(std::min(sent, full))));
    }
    port.Input(taken);
    ASSERT_EQ(taken.size(), 32767U);
    for (std::size_t i = 0; i < taken.size(); ++i) ASSERT_EQ(taken[i], i % 256) << i;
    line.Send({1, 2});
    EXPECT_TRUE(AwaitCount(2)) << "there is room again";
}

TEST_F(SerialPort, GivesTheLastBytesTheirTimeOnTheLineBeforeItCloses) {
    port.Settings("1200,n,8,1");
    port.PortOpen(true);
    // 960 bits: 800 ms. The last few bytes wait for those before them.
    const Bytes bytes(90, 0x29);
    const Bytes lastBytes(6, 0x29);
    QElapsedTimer passed;
    passed.start();
    port.Output(bytes);
    port.Output(lastBytes);
    EXPECT_LT(passed.elapsed(), 700) << "handing over doesn't wait for the line";
    EXPECT_EQ(line.Take(96), Bytes(96, 0x29));
    port.PortOpen(false);
    EXPECT_GE(passed.elapsed(), 799);
    EXPECT_LT(passed.elapsed(), 5000);
}

TEST_F(SerialPort, ALineThatIsPulledOutStaysOpenQuietlyUntilTheNextOutput) {
    port.RThreshold(1);
    port.PortOpen(true);
    line.HangUp();
    LetPass(50);
    EXPECT_TRUE(port.PortOpen());
    EXPECT_EQ(events, 0);
    port.Input(taken);
    EXPECT_TRUE(taken.empty());
    EXPECT_EQ(ErrorOf([&] { port.Output({0xF0}); }).number, 8012);
    EXPECT_EQ(ErrorOf([&] { port.Output({0xF0}); }).number, 8012);
}

TEST_F(SerialPort, AnOutputRightAfterTheLossFailsToo) {
    port.PortOpen(true);
    line.HangUp();
    EXPECT_EQ(ErrorOf([&] { port.Output({0xF0}); }).number, 8012) << "before any event has run";
    EXPECT_TRUE(port.PortOpen());
}

}  // namespace orbkl4::test

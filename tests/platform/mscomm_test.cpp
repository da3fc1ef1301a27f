#include "platform/mscomm.h"

#include "base/run_time_error.h"
#include "platform/port_device.h"
#include "support/box_hand.h"
#include "support/pseudo_terminal.h"
#include "support/surroundings.h"
#include "support/wait.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <gtest/gtest.h>

#include <cerrno>
#include <fcntl.h>
#include <numeric>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace orbkl4::test {

namespace {

/// What `deed` raised: its number and text; 0 where it raised nothing.
struct Raised {
    int number = 0;
    std::string text;
};

template <typename Deed>
Raised ErrorOf(Deed deed) {
    try {
        deed();
    } catch (const RuntimeError& error) {
        return {static_cast<int>(error.Number()), error.what()};
    }
    return {};
}

/// The share of one processor that the process takes while events run for `milliseconds`.
double ProcessorShare(int milliseconds) {
    const auto used = [] {
        rusage usage{};
        ::getrusage(RUSAGE_SELF, &usage);
        const auto seconds = [](const timeval& time) {
            return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
        };
        return seconds(usage.ru_utime) + seconds(usage.ru_stime);
    };
    const double before = used();
    QElapsedTimer passed;
    passed.start();
    LetPass(milliseconds);
    return (used() - before) / (static_cast<double>(passed.nsecsElapsed()) * 1e-9);
}

/// Whether nobody else may open the device at `path`.
bool IsHeldExclusively(const QString& path) {
    const int descriptor = ::open(path.toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (descriptor < 0) return errno == EBUSY;
    int exclusive = 0;  // the super-user is let in all the same
    ::ioctl(descriptor, TIOCGEXCL, &exclusive);
    ::close(descriptor);
    return exclusive != 0;
}

/// Makes the process the ordinary user who owns `path`, as far as permissions are asked for.
class OrdinaryUser {
  public:
    explicit OrdinaryUser(const char* path) {
        if (::getuid() != 0) return;
        done_ = ::chown(path, nobody, unchanged) == 0 && ::setreuid(nobody, unchanged) == 0;
    }
    ~OrdinaryUser() {
        if (done_ && ::setreuid(0, unchanged) != 0) std::abort();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

  private:
    static constexpr uid_t nobody = 65534;
    static constexpr uid_t unchanged = static_cast<uid_t>(-1);
    bool done_ = false;
};

class SerialPort : public testing::Test {
  protected:
    SerialPort() : port(nullptr, "MSComm1") {
        surroundings.LinkPort(1, line.Path());
        port.Settings("38400,n,8,1");
        QObject::connect(&port, &MSComm::OnComm, &port, [this] {
            ++events;
            port.Input(taken);
        });
    }

    bool AwaitCount(std::int16_t count) {
        return WaitFor([&] { return port.InBufferCount() == count; });
    }

    Surroundings surroundings;
    PseudoTerminal line;
    MSComm port;
    int events = 0;
    Bytes taken;
};

Bytes Counting(std::size_t count) {
    Bytes bytes(count);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
    return bytes;
}

}  // namespace

TEST_F(SerialPort, OpensNothingButASerialLineAndNeverBlocks) {
    const QDir folder(surroundings.ConfigFolder());
    const QString file = folder.filePath(QStringLiteral("file"));
    const QString fifo = folder.filePath(QStringLiteral("fifo"));
    QFile(file).open(QIODevice::WriteOnly);
    ASSERT_EQ(::mkfifo(fifo.toLocal8Bit().constData(), 0600), 0);
    struct Case {
        std::int16_t number;
        QString target;
        std::string text;
    };
    const std::string absent = "there is no serial line at port ";
    const Case cases[] = {
        {2, file, absent + "2 (" + file.toStdString() + ")"},
        {3, fifo, absent + "3 (" + fifo.toStdString() + ")"},
        {4, folder.path(), absent + "4 (" + folder.path().toStdString() + ")"},
        {5, QStringLiteral("/dev/null"), "port 5 (/dev/null) can't be opened"},
        {16, folder.filePath(QStringLiteral("nothing")), absent + "16 (/dev/ttyUSB7)"},
        {0, {}, absent + "0"},
        {17, {}, absent + "17"},
        {-1, {}, absent + "-1"},
    };
    for (const Case& row : cases) {
        if (!row.target.isEmpty()) surroundings.LinkPort(row.number, row.target);
        QElapsedTimer passed;
        passed.start();
        port.CommPort(row.number);
        const Raised raised = ErrorOf([&] { port.PortOpen(true); });
        EXPECT_EQ(raised.number, 8002) << row.number;
        EXPECT_NE(raised.text.find(row.text), std::string::npos) << raised.text;
        EXPECT_LT(passed.elapsed(), 1000) << row.number;
        EXPECT_FALSE(port.PortOpen());
    }
    port.CommPort(1);
    port.PortOpen(true);
    EXPECT_TRUE(port.PortOpen()) << "failed attempts do no harm";
}

TEST_F(SerialPort, SaysWhoMayUseALineThatIsNotPermitted) {
    const QByteArray path = line.Path().toLocal8Bit();
    const QByteArray folder = QFileInfo(surroundings.ConfigFolder()).path().toLocal8Bit();
    ASSERT_EQ(::chmod(folder.constData(), 0711), 0);  // the user is to find the link in it
    const OrdinaryUser owner(path.constData());
    ASSERT_EQ(::chmod(path.constData(), 0060), 0);
    const PortDevice device = DeviceOfPort(1);
    EXPECT_TRUE(device.present);
    EXPECT_FALSE(device.permitted);
    EXPECT_FALSE(device.group.isEmpty());
    const Raised raised = ErrorOf([&] { port.PortOpen(true); });
    EXPECT_EQ(raised.number, 70);
    EXPECT_NE(raised.text.find("group \"" + device.group.toStdString() + "\""), std::string::npos)
        << raised.text;
    ASSERT_EQ(::chmod(path.constData(), 0), 0);
    EXPECT_EQ(DeviceOfPort(1).group, "") << "no group has the right";
}

TEST_F(SerialPort, IsHeldByOneControlUnderWhateverName) {
    surroundings.LinkPort(2, surroundings.ConfigFolder() + QStringLiteral("/alias"));
    QFile::link(line.Path(), surroundings.ConfigFolder() + QStringLiteral("/alias"));
    MSComm rival(nullptr, "MSComm2");
    rival.CommPort(2);
    port.PortOpen(true);
    EXPECT_TRUE(IsHeldExclusively(line.Path()));
    const Raised raised = ErrorOf([&] { rival.PortOpen(true); });
    EXPECT_EQ(raised.number, 8005);
    EXPECT_NE(raised.text.find("Port in use: port 2"), std::string::npos) << raised.text;
    EXPECT_FALSE(rival.PortOpen());
    EXPECT_EQ(ErrorOf([&] { port.PortOpen(true); }).number, 8005) << "open already";

    port.PortOpen(false);
    EXPECT_FALSE(IsHeldExclusively(line.Path()));
    rival.PortOpen(true);
    EXPECT_TRUE(rival.PortOpen());
    rival.PortOpen(false);
    EXPECT_EQ(ErrorOf([&] { rival.PortOpen(false); }).number, 0) << "closing twice is no failure";
}

TEST_F(SerialPort, TakesOverPortAndSettingsAtTheNextOpenOnly) {
    port.PortOpen(true);
    EXPECT_EQ(line.Speed(), B38400);
    port.Settings("19200,n,8,1");
    EXPECT_EQ(line.Speed(), B38400);
    EXPECT_EQ(ErrorOf([&] { port.CommPort(2); }).number, 8005);
    EXPECT_EQ(port.CommPort(), 1);
    port.PortOpen(false);
    port.PortOpen(true);
    EXPECT_EQ(line.Speed(), B19200);
    for (const char* wrong : {"", "19200", "fast,n,8,1", "19200,x,8,1", "19200,n,9,1", "0,n,8,1"}) {
        EXPECT_EQ(ErrorOf([&] { port.Settings(wrong); }).number, 380) << wrong;
    }
    EXPECT_EQ(port.Settings(), "19200,n,8,1");
}

TEST_F(SerialPort, RefusesToSendOrReceiveWhileClosed) {
    EXPECT_EQ(ErrorOf([&] { port.Output({0xF0}); }).number, 8018);
    EXPECT_EQ(ErrorOf([&] { port.Input(taken); }).number, 8018);
    EXPECT_EQ(ErrorOf([&] { port.InBufferCount(); }).number, 8018);
}

TEST_F(SerialPort, GivesAllOrTheGivenLengthInOrder) {
    port.PortOpen(true);
    port.Input(taken);
    EXPECT_TRUE(taken.empty());
    line.Send({1, 2, 3, 4, 5});
    ASSERT_TRUE(AwaitCount(5));
    port.InputLen(2);
    for (const Bytes& expected : {Bytes{1, 2}, Bytes{3, 4}, Bytes{5}, Bytes{}}) {
        port.Input(taken);
        EXPECT_EQ(taken, expected);
    }
    line.Send({6, 7, 8});
    ASSERT_TRUE(AwaitCount(3));
    port.InputLen(0);
    port.Input(taken);
    EXPECT_EQ(taken, (Bytes{6, 7, 8}));
}

TEST_F(SerialPort, ForgetsWhatCameBeforeItWasOpened) {
    port.PortOpen(true);
    line.Send({1, 2, 3});
    ASSERT_TRUE(AwaitCount(3));
    port.PortOpen(false);
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
    const Bytes piece = Counting(1024);
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

TEST_F(SerialPort, TellsOfAReplyOnceHoweverItIsCut) {
    const Bytes reply = Counting(31);
    port.RThreshold(31);
    port.PortOpen(true);
    const auto send = [&](std::size_t from, std::size_t to) {
        line.Send(Bytes(reply.begin() + static_cast<std::ptrdiff_t>(from),
                        reply.begin() + static_cast<std::ptrdiff_t>(to)));
    };
    for (std::size_t cut = 1; cut < reply.size(); ++cut) {
        events = 0;
        send(0, cut);
        ASSERT_TRUE(AwaitCount(static_cast<std::int16_t>(cut)));
        EXPECT_EQ(events, 0) << cut;
        send(cut, reply.size());
        ASSERT_TRUE(WaitFor([&] { return events > 0; })) << cut;
        EXPECT_EQ(taken, reply) << cut;
        EXPECT_EQ(events, 1) << cut;
    }
    events = 0;
    for (std::size_t i = 0; i < reply.size(); ++i) {
        send(i, i + 1);
        const bool last = i + 1 == reply.size();
        ASSERT_TRUE(last || AwaitCount(static_cast<std::int16_t>(i + 1)));
    }
    ASSERT_TRUE(WaitFor([&] { return events > 0; }));
    EXPECT_EQ(taken, reply);
    LetPass(20);
    EXPECT_EQ(events, 1);
}

TEST_F(SerialPort, GivesTheLastBytesTheirTimeOnTheLineBeforeItCloses) {
    port.Settings("19200,n,8,1");
    port.PortOpen(true);
    const Bytes bytes = Counting(96);  // 960 bits: 50 ms
    QElapsedTimer passed;
    passed.start();
    port.Output(bytes);
    EXPECT_LT(passed.elapsed(), 40) << "handing over doesn't wait for the line";
    EXPECT_EQ(line.Take(96), bytes);
    port.PortOpen(false);
    EXPECT_GE(passed.elapsed(), 49);
    EXPECT_LT(passed.elapsed(), 1000);
}

TEST_F(SerialPort, ALineThatIsPulledOutStaysOpenQuietlyUntilTheNextOutput) {
    BoxHand hand;
    port.RThreshold(1);
    port.PortOpen(true);
    line.HangUp();
    EXPECT_LT(ProcessorShare(300), 0.1) << "the lost line is reported without end";
    EXPECT_TRUE(port.PortOpen());
    EXPECT_EQ(events, 0);
    port.Input(taken);
    EXPECT_TRUE(taken.empty());
    EXPECT_EQ(ErrorOf([&] { port.Output({0xF0}); }).number, 8012);
    EXPECT_EQ(ErrorOf([&] { port.Output({0xF0}); }).number, 8012);
    EXPECT_EQ(hand.Count(), 0U);
    port.PortOpen(false);
    EXPECT_FALSE(port.PortOpen());

    const PseudoTerminal replugged;
    surroundings.LinkPort(1, replugged.Path());
    port.PortOpen(true);
    replugged.Send({9});
    ASSERT_TRUE(WaitFor([&] { return events == 1; }));
    EXPECT_EQ(taken, Bytes{9});
}

TEST_F(SerialPort, AnOutputRightAfterTheLossFailsToo) {
    port.PortOpen(true);
    line.HangUp();
    EXPECT_EQ(ErrorOf([&] { port.Output({0xF0}); }).number, 8012) << "before any event has run";
    EXPECT_TRUE(port.PortOpen());
}

TEST_F(SerialPort, AnIdleLineCostsNothing) {
    port.RThreshold(23);
    port.PortOpen(true);
    EXPECT_LT(ProcessorShare(300), 0.05);
}

}  // namespace orbkl4::test

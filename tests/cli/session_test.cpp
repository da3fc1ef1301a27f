#include "cli/session.h"

#include "cli/cli_test.h"
#include "platform/system/port_device.h"
#include "simulator/host_line.h"

#include <chrono>
#include <csignal>
#include <optional>
#include <sys/ioctl.h>
#include <thread>
#include <tuple>

namespace orbkl4::cli::test {
namespace {

using namespace std::chrono_literals;
using orbkl4sim::Bytes;
using orbkl4sim::Simulator;

class Info : public CliTest {};
class Ending : public CliTest {};

TEST_F(Info, ShowsWhatTheSensorHolds) {
    Simulator& sensor = Plug(5);
    for (const auto& [address, word] : std::map<int, std::uint16_t>{{134, 4711},
                                                                    {198, 3102},
                                                                    {130, 1000},
                                                                    {230, 2000},
                                                                    {232, 65535},
                                                                    {238, 4},
                                                                    {240, 10},
                                                                    {242, 200},
                                                                    {246, 3}})
        sensor.SetWord(address, word);
    sensor.SetTemperature(50);
    // 4 x 10 x 200 x 3 times 100 ns; 50 degrees are the word 13107, that is 49.998 degrees.
    auto expected = JsonOf(R"({"format": "orb-kl4 info", "version": 1, "baud": 38400,
        "serialNumber": 4711, "firmware": "3.1.02", "mode": "polled", "tickInterval_ms": 2.4,
        "gainScales": {"gyro": 1000, "accelerometer": 2000, "magnetometer": 65535},
        "temperature_C": 50})");
    expected["device"] = QString::fromStdString(sensor.DevicePath().string());
    const Outcome json = Run({"info", "--json"});
    EXPECT_EQ(0, json.exit) << json.err;
    EXPECT_EQ(TextOf(expected), TextOf(json.Json()));
    const Outcome table = Run({"info", "--port", "5"});
    for (const char* part : {"4711", "3.1.02", "not set", "2.4 ms", "50 \u00b0C"})
        EXPECT_NE(std::string::npos, table.out.find(part)) << part;
}

TEST_F(Info, FindsTheSensorAtEachSpeedAndInEachModeAndChangesNothing) {
    int port = 0;
    for (const auto& [baud, mode, name] :
         std::vector<std::tuple<int, std::uint16_t, std::string>>{{38400, 0x0D, "instant-angles"},
                                                                  {115200, 0x02, "vectors"},
                                                                  {19200, 0x0C, "quat-vectors"},
                                                                  {19200, 0, "polled"}}) {
        Simulator& sensor = Plug(++port, {.baud = baud});
        sensor.SetWord(132, mode);
        const auto before = MemoryOf(sensor);
        const Outcome outcome = Run({"info", "--json", "--port", std::to_string(port)});
        EXPECT_EQ(0, outcome.exit) << name << ": " << outcome.err;
        EXPECT_EQ(baud, outcome.Json()["baud"].toInt());
        EXPECT_EQ(name, outcome.Json()["mode"].toString().toStdString());
        EXPECT_EQ(1042, outcome.Json()["serialNumber"].toInt());
        EXPECT_EQ(before, MemoryOf(sensor)) << name;
        for (const auto& request : sensor.Requests())
            EXPECT_TRUE(!request.heard || request.bytes[0] != 0x29) << "a write";
    }
}

TEST_F(Info, GetsOverFaultsOfTheLine) {
    using orbkl4sim::FaultRates;
    int port = 0;
    for (const FaultRates& faults : std::vector<FaultRates>{{},
                                                            {.corrupt = 0.1},
                                                            {.truncate = 0.1},
                                                            {.dribble = 1},
                                                            {.stray = 1},
                                                            {.delay = 1, .delayTime = 200ms}}) {
        Simulator& sensor = Plug(++port, {.faults = faults});
        if (port == 1) sensor.ReplyOnceTo(0xF0, {});  // the search gets no reply at first
        const Outcome outcome =
            Run({"info", "--json", "--baud=38400", "--port", std::to_string(port)});
        EXPECT_EQ(0, outcome.exit) << port << ": " << outcome.err;
        EXPECT_EQ(1042, outcome.Json()["serialNumber"].toInt()) << port;
        EXPECT_EQ(6.5536, outcome.Json()["tickInterval_ms"].toDouble()) << port;
    }
}

TEST_F(Info, TakesNoLateReplyForThatToTheNextRequest) {
    // The sensor is slower once than any request waits, so that it is asked again and replies
    // twice.
    int reads = 0;
    Plug(1).FilterReplies([&](const Bytes& request, const Bytes& reply) {
        if (request[0] == 0x28 && ++reads <= 2) {
            std::this_thread::sleep_for(reads == 1 ? 1150ms : 100ms);
        }
        return std::optional(reply);
    });
    const QJsonObject scales = Run({"info", "--json", "--port=1"}).Json()["gainScales"].toObject();
    EXPECT_EQ(8727, scales["gyro"].toInt());
    EXPECT_EQ(5000, scales["accelerometer"].toInt());
    EXPECT_EQ(2500, scales["magnetometer"].toInt());
}

TEST_F(Info, TakesNothingThatCameBeforeTheRequest) {
    Simulator& sensor = Plug(1);
    const QString device = QString::fromStdString(sensor.DevicePath().string());
    Session session(FoundSensor{std::make_unique<Line>(DeviceAt(device), 38400), 1042, "3.1.01"});
    const Bytes other{0xF1, 0x04, 0x13, 0x05, 0x04};  // the serial number 1043
    sensor.SendUnasked(other);
    ASSERT_TRUE(Comes([&] {
        int waiting = 0;
        ::ioctl(session.SerialLine().Handle(), FIONREAD, &waiting);
        return waiting == static_cast<int>(other.size());
    }));
    EXPECT_EQ(1042, session.ReadSerialNumber());
}

TEST_F(Ending, WrongUseIsTwo) {
    for (const Words& words : std::vector<Words>{
             {},
             {"fly"},
             {"info", "extra"},
             {"info", "--port"},
             {"info", "--port", "17"},
             {"info", "--baud", "9600"},
             {"info", "--sensor", "-1"},
             {"info", "--nonsense"},
             {"info", "--port", "1", "--device", "/dev/null"},
             {"completion", "zsh"},
             {"record"},
             {"record", "colours"},
             {"record", "vectors", "--rate=0"},
             {"record", "vectors", "--samples=0"},
             {"record", "vectors", "--seconds=-1"},
             {"record", "vectors", "--format=xml"},
             {"record", "vectors", "--append", "--overwrite"},
             {"record", "vectors", "--topic=a"},
             {"record", "vectors", "--mqtt=h", "--topic=a/#"},
             {"record", "vectors", "--mqtt=h:0"},
             {"record", "vectors", "--mqtt=[::1"},
             {"record", "vectors", "--mqtt=h", "--mqtt-password-file=f"},
             {"record", "vectors", "--mqtt=h", "--mqtt-user=u", "--mqtt-password-file=/nowhere"}}) {
        const Outcome outcome = Run(words);
        EXPECT_EQ(2, outcome.exit) << testing::PrintToString(words) << outcome.err;
        EXPECT_EQ(0U, outcome.err.find("orb-kl4: "));
        EXPECT_EQ(outcome.err.size() - 1, outcome.err.find('\n')) << "one line";
        EXPECT_EQ("", outcome.out);
    }
    for (const Words& words :
         std::vector<Words>{{"info", "--json", "--port", "17"}, {"record", "vectors", "--json"}})
        EXPECT_EQ("usage", Run(words).Error());
    EXPECT_EQ(2, Run({"info"}, {{"ORB_KL4_BAUD", "fast"}}).exit);
}

TEST_F(Ending, LinesThatAreNoneAreThree) {
    for (const std::string& device :
         {std::string("/dev/null"), std::string("/nowhere"), folder_.Path().string()}) {
        const Outcome outcome = Run({"info", "--json", "--device", device});
        EXPECT_EQ(3, outcome.exit);
        EXPECT_EQ("no-line", outcome.Error()) << device;
    }
}

TEST_F(Ending, ASensorThatFailsInMidCommandIsFour) {
    Simulator& sensor = Plug(1);
    const auto expect = [&](const char* code) {
        const Outcome outcome = Run({"info", "--json"});
        EXPECT_EQ(4, outcome.exit) << code;
        EXPECT_EQ(code, outcome.Error());
    };
    sensor.ReplyTo(0x28, {});
    expect("no-answer");
    sensor.ReplyTo(0x28, {0x28, 0x00, 0x01, 0x00, 0x02, 0xFF, 0xFF});
    expect("bad-answer");
    sensor.ReplyTo(0x28, {});
    sensor.ClearRecord();
    CliProcess process({"info", "--json"}, Surroundings());
    ASSERT_TRUE(sensor.WaitForRequests(3, 20s));
    sensor.Unplug();
    const Outcome outcome = process.AwaitEnd();
    EXPECT_EQ(4, outcome.exit);
    EXPECT_EQ("line-gone", outcome.Error());
}

TEST_F(Ending, SignalsLeaveTheLineInOrder) {
    Simulator& sensor = Plug(1);
    sensor.SetSilent(true);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        sensor.ClearRecord();
        CliProcess process({"info"}, Surroundings());
        ASSERT_TRUE(sensor.WaitForRequests(1, 20s));
        ::kill(process.Id(), number);
        EXPECT_EQ(128 + number, process.AwaitEnd().exit);
        const orbkl4sim::HostLine host(sensor.DevicePath());
        termios settings{};
        ASSERT_EQ(0, tcgetattr(host.Descriptor(), &settings));
        EXPECT_EQ(B50, cfgetospeed(&settings)) << number;
    }
}

}  // namespace
}  // namespace orbkl4::cli::test

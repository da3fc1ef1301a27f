#include "cli/cli_test.h"
#include "simulator/host_line.h"

#include <QJsonArray>

#include <chrono>
#include <grp.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>

namespace orbkl4::cli::test {
namespace {

using namespace std::chrono_literals;
using orbkl4sim::Bytes;
using orbkl4sim::Simulator;

class Ports : public CliTest {};
class Choice : public CliTest {};

TEST_F(Ports, ListsAndAsksAllSixteen) {
    Simulator& sensor = Plug(3, {.baud = 19200});
    const std::string device = sensor.DevicePath().string();
    auto expected = JsonOf(R"({"port": 3, "byId": null, "description": null, "state": "free",
        "remedy": null, "sensor": null})");
    expected["device"] = QString::fromStdString(device);
    const QJsonArray listed = Run({"ports", "--json"}).Json()["ports"].toArray();
    ASSERT_EQ(16, listed.size());
    EXPECT_EQ(TextOf(expected), TextOf(listed[2].toObject()));
    EXPECT_EQ("absent", listed[3]["state"].toString().toStdString());
    EXPECT_EQ(Bytes{}, sensor.Received()) << "only listed";

    expected["sensor"] = JsonOf(R"({"serialNumber": 1042, "firmware": "3.1.01", "baud": 19200})");
    const Outcome probed = Run({"--json", "ports", "--probe"});
    EXPECT_EQ(0, probed.exit) << probed.err;
    EXPECT_EQ(TextOf(expected), TextOf(probed.Json()["ports"][2].toObject()));
    // Firmware and serial number are asked for at its own speed, the former at the two before it.
    EXPECT_EQ((Bytes{0xF0, 0xF0, 0xF0, 0xF1}), sensor.Received());
    const orbkl4sim::HostLine host(device);
    termios settings{};
    ASSERT_EQ(0, tcgetattr(host.Descriptor(), &settings));
    EXPECT_EQ(B50, cfgetospeed(&settings)) << "the speed is as it was";
}

TEST_F(Ports, AsksSilentLinesSideBySide) {
    for (int number = 1; number <= 16; ++number) Plug(number).SetSilent(true);
    const auto start = std::chrono::steady_clock::now();
    const Outcome outcome = Run({"ports", "--probe"});
    EXPECT_LT(std::chrono::steady_clock::now() - start, 4s) << "one by one takes 24 s";
    EXPECT_EQ(0, outcome.exit);
}

TEST_F(Ports, NameTheGroupThatMayUseADeniedLine) {
    const std::string device = Plug(2).DevicePath().string();
    ASSERT_EQ(0, ::chmod(device.c_str(), 0060));
    struct stat status {};
    ASSERT_EQ(0, ::stat(device.c_str(), &status));
    const std::string group = ::getgrgid(status.st_gid)->gr_name;
    const QJsonObject port = Run({"ports", "--json"}).Json()["ports"][1].toObject();
    EXPECT_EQ("denied", port["state"].toString().toStdString());
    const std::string remedy = port["remedy"].toString().toStdString();
    EXPECT_NE(std::string::npos, remedy.find("group \"" + group + "\"")) << remedy;
    EXPECT_EQ("denied", Run({"info", "--json", "--port", "2"}).Error());
}

TEST_F(Ports, NamesTheProgramThatHoldsALine) {
    Simulator& sensor = Plug(1);
    sensor.SetSilent(true);
    CliProcess holder({"info", "--port", "1"}, Surroundings());
    ASSERT_TRUE(sensor.WaitForRequests(1, 20s));
    const std::string name = "orb-kl4 (process " + std::to_string(holder.Id()) + ")";
    for (const std::string& choice :
         {std::string("--port=1"), "--device=" + PortLink(1).string()}) {
        const Outcome outcome = Run({"info", "--json", choice});
        EXPECT_EQ(3, outcome.exit);
        EXPECT_EQ("busy", outcome.Error());
        EXPECT_NE(std::string::npos, outcome.err.find(name)) << outcome.err;
    }
    const QJsonObject port = Run({"ports", "--json"}).Json()["ports"][0].toObject();
    EXPECT_EQ("busy", port["state"].toString().toStdString());
    EXPECT_NE(std::string::npos, port["remedy"].toString().toStdString().find(name));
}

TEST_F(Ports, HeedsTheExclusiveMarkAndTheLockOfOthers) {
    const orbkl4sim::HostLine host(Plug(1).DevicePath());
    ASSERT_EQ(0, ioctl(host.Descriptor(), TIOCEXCL));
    EXPECT_EQ("busy", Run({"info", "--json", "--port", "1"}).Error());
    EXPECT_EQ("no-line", Run({"info", "--json"}).Error()) << "none is free";
    ASSERT_EQ(0, ioctl(host.Descriptor(), TIOCNXCL));
    ASSERT_EQ(0, flock(host.Descriptor(), LOCK_EX));
    EXPECT_EQ("busy", Run({"info", "--json", "--port", "1"}).Error());
}

TEST_F(Choice, TakesTheSensorMeantAndLeavesOthersAlone) {
    Simulator& first = Plug(1);
    Simulator& second = Plug(16);
    second.SetWord(134, 77);
    const Outcome several = Run({"info", "--json"});
    EXPECT_EQ(2, several.exit);
    EXPECT_EQ("several-sensors", several.Error());
    for (const char* part : {"1042", "77", "/dev/pts/"})
        EXPECT_NE(std::string::npos, several.err.find(part)) << several.err;
    const std::string device = second.DevicePath().string();
    struct Case {
        Words words;
        Environment environment;
    };
    for (const auto& [words, environment] :
         std::vector<Case>{{{"info", "--sensor", "77"}, {}},
                           {{"--sensor", "77", "info"}, {{"ORB_KL4_DEVICE", "/nowhere"}}},
                           {{"info"}, {{"ORB_KL4_SENSOR", "77"}, {"ORB_KL4_BAUD", "38400"}}}}) {
        const Outcome outcome = Run(words, environment);
        EXPECT_EQ(0, outcome.exit) << outcome.err;
        EXPECT_NE(std::string::npos, outcome.out.find(device)) << outcome.out;
    }
    first.ClearRecord();
    EXPECT_EQ(0, Run({"info", "--port", "16"}).exit);
    EXPECT_EQ(0, Run({"info"}, {{"ORB_KL4_DEVICE", device}}).exit);
    EXPECT_EQ(0, Run({"info", "--device", device, "--sensor", "77"}).exit);
    EXPECT_EQ(Bytes{}, first.Received()) << "another line was named";
    EXPECT_EQ("no-sensor", Run({"info", "--json", "--sensor", "78"}).Error());
    EXPECT_EQ("no-sensor", Run({"info", "--json", "--port", "1", "--sensor", "77"}).Error());
    EXPECT_EQ("no-sensor", Run({"info", "--json", "--port", "1", "--baud", "19200"}).Error());
}

}  // namespace
}  // namespace orbkl4::cli::test

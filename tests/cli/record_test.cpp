#include "cli/record_test.h"

#include "support/frames.h"

#include <QJsonArray>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <regex>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace orbkl4::cli::test {
namespace {

using namespace std::chrono_literals;
using orbkl4sim::Bytes;
using orbkl4sim::ContentOf;
using orbkl4sim::Simulator;

TEST_F(Record, LeavesFilesAloneUnlessAllowed) {
    Simulator& sensor = Plug(1);
    const Words three{"--samples", "3", "--quiet"};
    EXPECT_EQ(0, RunToFile(three).exit);
    const Outcome refused = RunToFile(three);
    EXPECT_EQ(2, refused.exit);
    EXPECT_NE(std::string::npos, refused.err.find("--append"));
    EXPECT_EQ(4U, Lines().size());
    std::FILE* const file = std::fopen(File().c_str(), "a");
    std::fputs("1795302908.6,0.0", file);  // as a power failure leaves it
    std::fclose(file);
    EXPECT_EQ(0, RunToFile(three + Words{"--append"}).exit);
    const auto lines = Lines();
    ASSERT_EQ(7U, lines.size());
    for (const std::string& line : lines)
        EXPECT_EQ(11, std::count(line.begin(), line.end(), ',')) << line;
    EXPECT_EQ(1, Beside()["earlier"].toArray().size());
    EXPECT_EQ(2, Run({"record", "matrix", "-o", File(), "--append", "--samples=1"}).exit)
        << "other columns";
    EXPECT_EQ(2, Run({"record", "instant-vectors", "-o", File(), "--append", "--samples=1"}).exit)
        << "another channel of the same columns";
    sensor.SetWord(134, 78);
    const Outcome other = RunToFile(three + Words{"--append"});
    EXPECT_EQ(2, other.exit);
    EXPECT_NE(std::string::npos, other.err.find("serialNumber")) << other.err;
    const auto kept = ContentOf(File());
    std::filesystem::remove(File("log.json"));
    EXPECT_EQ(2, RunToFile(three + Words{"--append", "--format=jsonl"}).exit);
    EXPECT_EQ(kept, ContentOf(File()));
    EXPECT_EQ(0, RunToFile(three + Words{"--overwrite"}).exit);
    EXPECT_EQ(4U, Lines().size());
    EXPECT_FALSE(Beside().contains("earlier"));
    EXPECT_EQ(0, Run({"record", "angles", "-o", File("%Y-%%"), "--samples=1"}).exit);
    const std::string year =
        std::to_string(int(std::chrono::year_month_day(std::chrono::floor<std::chrono::days>(
                                                           std::chrono::system_clock::now()))
                               .year()));
    EXPECT_EQ(2U, Lines(year + "-%").size());
    folder_.Write("mine.json", "{}");
    EXPECT_EQ(2, Run({"record", "angles", "-o", File("mine"), "--samples=1"}).exit);
    EXPECT_EQ("{}", ContentOf(File("mine.json")));
}

TEST_F(Record, EndsWellByLimitSignalAndReader) {
    Plug(1);
    struct Case {
        Words words;
        int signal;
        int exit;
        const char* ended;
    };
    for (const auto& [words, signal, exit, ended] :
         std::vector<Case>{{{"--seconds", "0.3"}, 0, 0, "seconds"},
                           {{"--seconds", "0.3", "--samples", "100000"}, 0, 1, "seconds"},
                           {{}, SIGINT, 0, "signal"},
                           {{"--samples", "100000"}, SIGTERM, 1, "signal"},
                           {{"--seconds", "1000"}, SIGHUP, 1, "signal"}}) {
        const auto process = Start(words + Words{"--overwrite"});
        if (signal != 0) {
            ASSERT_TRUE(Comes([&] { return Beside()["ended"].isNull() && Lines().size() > 5; }));
            ::kill(process->Id(), signal);
        }
        EXPECT_EQ(exit, process->AwaitEnd().exit) << ended << signal;
        EXPECT_EQ(ended, Beside()["ended"].toString().toStdString());
        EXPECT_EQ(static_cast<int>(Lines().size()) - 1, Beside()["rows"].toInt());
        EXPECT_EQ('\n', ContentOf(File()).back());
    }
    EXPECT_EQ("3 0\n",
              Shell("\"$1\" record vectors --samples=100000 | head -3 | wc -l | tr \"\\n\" \" \"; "
                    "echo ${PIPESTATUS[0]}"));
}

TEST_F(Record, KeepsWholeRowsOnAFullDiskAndAfterAKill) {
    Plug(1);
    // Blocks of 1024 bytes: the limit stands for the disk's end, and cuts a row.
    EXPECT_EQ("5\n", Shell("ulimit -f 3; \"$1\" -q record vectors -o log 2>errors; echo $?"));
    EXPECT_EQ('\n', ContentOf(File()).back());
    EXPECT_GT(ContentOf(File()).size(), 2900U);
    EXPECT_EQ("system", Beside()["ended"].toString().toStdString());
    EXPECT_NE(std::string::npos, ContentOf(File("errors")).find("can't be written"));
    EXPECT_EQ("5\n", Shell("\"$1\" -q record vectors 2>errors >/dev/full; echo $?"));
    const std::string longName(252, 'x');  // no room for ".json"
    EXPECT_EQ(5, Run({"record", "vectors", "-o", File(longName)}).exit);
    EXPECT_FALSE(std::filesystem::exists(File(longName))) << "it could not begin";
    for (std::size_t rows = 20; rows < 30; ++rows) {
        std::filesystem::remove(File());
        const auto process = Start({"--overwrite"});
        ASSERT_TRUE(Comes([&] { return Lines().size() > rows; }));
        ::kill(process->Id(), SIGKILL);
        process->AwaitEnd();
        EXPECT_EQ('\n', ContentOf(File()).back());
        EXPECT_TRUE(Beside()["end"].isNull());
        EXPECT_EQ(QJsonValue(1042), Beside()["serialNumber"]);
    }
}

TEST_F(Record, CountsBadAndMissingReplies) {
    Simulator& sensor = Plug(1, {.baud = 115200});
    const Bytes good = Frame(0x02, vectorWords + std::vector<unsigned>{1});
    Bytes bad = good;
    bad[5] ^= 1;
    const Bytes cut(good.begin(), good.begin() + 9);
    const Bytes stray{0xFF, 0x28};  // the second might begin a reply, of 7 bytes
    for (const Bytes& reply : {good, bad, cut, bad, Bytes{}, Bytes{}, stray + good})
        sensor.ReplyOnceTo(0x02, reply);
    EXPECT_EQ(0, RunToFile({"--samples", "3"}).exit);
    EXPECT_EQ(4U, Lines().size());
    EXPECT_EQ(115200, Beside()["baud"].toInt());
    EXPECT_EQ(3, Beside()["badReplies"].toInt());
    EXPECT_EQ(2, Beside()["timeouts"].toInt());
    ASSERT_EQ(1, Beside()["gaps"].toArray().size());
    EXPECT_EQ(QJsonValue("no-answer"), Beside()["gaps"][0]["why"]);
    EXPECT_LT(Beside()["gaps"][0]["from"].toString(), Beside()["gaps"][0]["to"].toString());
}

TEST_F(Record, GoesOnWhereTheSensorComesBackOnAnotherPort) {
    Simulator& sensor = Plug(1);
    const auto process = Start({"--device", sensor.DevicePath().string(), "--samples", "100000"});
    ASSERT_TRUE(Grows());
    sensor.Unplug();
    Plug(3).SetWord(134, 78);  // another sensor
    ASSERT_TRUE(sensors_.back()->WaitForRequests(2, 30s));
    const auto before = Lines();
    Simulator& back = Plug(9, {.baud = 19200});
    ASSERT_TRUE(Grows());
    const auto after = Lines();
    EXPECT_TRUE(std::equal(before.begin(), before.end(), after.begin())) << "rows from elsewhere";
    back.Unplug();
    sensor.Replug();
    ASSERT_TRUE(Grows());
    ::kill(process->Id(), SIGINT);
    const Outcome outcome = process->AwaitEnd();
    EXPECT_EQ(1, outcome.exit);
    EXPECT_NE(std::string::npos, outcome.err.find("sensor 1042 is back on")) << outcome.err;
    ASSERT_EQ(2, Beside()["gaps"].toArray().size());
    EXPECT_EQ(QJsonValue("line-gone"), Beside()["gaps"][1]["why"]);

    const auto last = Start({"--no-reconnect", "--overwrite", "--sensor=1042", "--json"});
    ASSERT_TRUE(Comes([&] { return Beside()["ended"].isNull() && Lines().size() > 5; }));
    sensor.Unplug();
    const Outcome gone = last->AwaitEnd();
    EXPECT_EQ(4, gone.exit);
    EXPECT_EQ("line-gone", gone.Error()) << "one document: " << gone.out;
    EXPECT_EQ("line-gone", Beside()["ended"].toString().toStdString());
}

TEST_F(Record, WaitsForASensorAndNotifiesTheServiceManager) {
    const int listener = ::socket(AF_UNIX, SOCK_DGRAM, 0);
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    File("notify").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(0, ::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address));
    const timeval patience{.tv_sec = 30, .tv_usec = 0};
    ::setsockopt(listener, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    const auto heard = [&] {
        std::array<char, 512> text{};
        const ssize_t size = ::recv(listener, text.data(), text.size(), 0);
        return std::string(text.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
    };
    EXPECT_EQ(3, RunToFile({"--samples=1"}).exit) << "without --wait";
    for (const auto& [words, exit] :
         std::map<Words, int>{{{"--wait"}, 0}, {{"--wait", "--samples=1"}, 1}}) {
        const auto vain = Start(words, {{"NOTIFY_SOCKET", File("notify")}});
        EXPECT_TRUE(heard().starts_with("STATUS=waiting for the sensor: "));
        ::kill(vain->Id(), SIGINT);
        EXPECT_EQ(exit, vain->AwaitEnd().exit);
        EXPECT_FALSE(std::filesystem::exists(File()));
    }
    const auto process = Start({"--wait", "--samples", "200"}, {{"NOTIFY_SOCKET", File("notify")}});
    EXPECT_TRUE(heard().starts_with("STATUS=waiting for the sensor: "));
    Plug(2);
    std::string message = heard();
    while (message.starts_with("STATUS=waiting")) message = heard();
    EXPECT_EQ("READY=1", message);
    EXPECT_TRUE(std::regex_match(heard(), std::regex("STATUS=\\d+ rows?, .*, 0 gaps")));
    EXPECT_EQ(0, process->AwaitEnd().exit);
    ::close(listener);
    EXPECT_EQ(201U, Lines().size());
}

TEST_F(Record, WorksInContinuousModeAndShowsProgressOnATerminal) {
    Simulator& sensor = Plug(1);
    for (const std::uint16_t mode : std::array<std::uint16_t, 2>{0x02, 0x0C}) {
        sensor.SetWord(132, mode);
        EXPECT_EQ(0, RunToFile({"--samples=20", "--overwrite"}).exit) << mode;
        EXPECT_EQ(21U, Lines().size());
    }
    EXPECT_EQ(0x0C, sensor.Word(132)) << "left as it was";
    const std::string shown =
        Shell("TERM=xterm script -qec \"$1 record angles -o shown --seconds 0.5\" /dev/null");
    EXPECT_TRUE(std::regex_search(shown, std::regex("\\d+ rows, [0-9.]+/s, 0:00:00, 0 bad replies, "
                                                    "0 gaps, shown")))
        << shown;
}

}  // namespace
}  // namespace orbkl4::cli::test

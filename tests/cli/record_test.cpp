#include "cli/cli_test.h"
#include "support/frames.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <regex>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace orbkl4::cli::test {
namespace {

using namespace std::chrono_literals;
using orbkl4sim::Bytes;
using orbkl4sim::ContentOf;
using orbkl4sim::Simulator;

class Record : public CliTest {
  protected:
    std::string File(const std::string& name = "log") const {
        return (folder_.Path() / name).string();
    }

    /// The program, recording vectors into a file.
    std::unique_ptr<CliProcess> Start(const Words& more = {}, const Environment& variables = {}) {
        Words words{"record", "vectors", "-o", File()};
        words.insert(words.end(), more.begin(), more.end());
        return std::make_unique<CliProcess>(words, Surroundings(variables));
    }

    Outcome RunToFile(const Words& more) { return Start(more)->AwaitEnd(); }

    std::vector<std::string> Lines(const std::string& name = "log") const {
        std::vector<std::string> lines;
        std::istringstream text(ContentOf(File(name)));
        for (std::string line; std::getline(text, line);) lines.push_back(line);
        return lines;
    }

    /// What lies beside the recording.
    QJsonObject Beside(const std::string& name = "log") const {
        const std::string text = ContentOf(File(name + ".json"));
        return QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    }

    /// Waits until the recording has `count` lines more.
    testing::AssertionResult Grows(std::size_t count = 20) const {
        const std::size_t before = Lines().size();
        return Comes([&] { return Lines().size() >= before + count; });
    }

    /// A sensor whose vectors have scales of 1/1000, 1/2000 and 1/4000 and whose ticks last 1 ms.
    Simulator& PlugScaled(int port = 1) {
        Simulator& sensor = Plug(port);
        for (const auto& [address, word] : std::map<int, std::uint16_t>{{232, 32768},
                                                                        {230, 16384},
                                                                        {130, 8192},
                                                                        {238, 10},
                                                                        {240, 10},
                                                                        {242, 100},
                                                                        {246, 1}})
            sensor.SetWord(address, word);
        return sensor;
    }
};

struct ChannelCase {
    const char* name;
    unsigned command;
    std::vector<unsigned> words;
    const char* columns;
    const char* values;
    const char* workbench;  ///< the row after its time
};

const std::vector<unsigned> vectorWords{1000, 65036, 1, 2000, 64536, 1, 4000, 63536, 2};
const std::vector<unsigned> quatWords{8192, 57344, 4096, 1};
constexpr const char* vectorColumns = "mag_x,mag_y,mag_z,acc_x,acc_y,acc_z,rate_x,rate_y,rate_z";
constexpr const char* vectorValues = "1,-0.5,0.001,1,-0.5,0.0005,1,-0.5,0.0005";
constexpr const char* matrixColumns = "m11,m21,m31,m12,m22,m32,m13,m23,m33";
const std::vector<unsigned> matrixWords{8192, 4096, 0, 0, 8192, 0, 0, 61440, 8192};
constexpr const char* matrixValues = "1,0.5,0,0,1,0,0,-0.5,1";
constexpr const char* matrixRow = ", 1, .5, 0, 0, 1, 0, 0,-.5, 1, 7";
constexpr const char* vectorRow = ", 1,-.5, .001, 1,-.5, .0005, 1,-.5, .0005, 7";
constexpr const char* quatRow = ", 1,-1, .5, .0001, 7";

template <typename Item>
std::vector<Item> operator+(std::vector<Item> first, const std::vector<Item>& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

const std::string quatVectorColumns = std::string("quat_0,quat_1,quat_2,quat_3,") + vectorColumns;
const std::string quatVectorValues = std::string("1,-1,0.5,0.0001,") + vectorValues;
constexpr const char* quatVectorRow =
    ", 1,-1, .5, .0001, 1,-.5, .001, 1,-.5, .0005, 1,-.5, .0005, 7";

const std::vector<ChannelCase> channelCases{
    {"sensor-bits",
     0x01,
     {0, 65535, 2, 3, 4, 5, 6, 7, 8},
     "raw_mag_1,raw_mag_2,raw_mag_3,raw_acc_1,raw_acc_2,raw_acc_3,raw_rate_1,raw_rate_2,raw_rate_3",
     "0,65535,2,3,4,5,6,7,8",
     ", 0, 65535, 2, 3, 4, 5, 6, 7, 8, 7"},
    {"vectors", 0x02, vectorWords, vectorColumns, vectorValues, vectorRow},
    {"instant-vectors", 0x03, vectorWords, vectorColumns, vectorValues, vectorRow},
    {"quaternion", 0x05, quatWords, "quat_0,quat_1,quat_2,quat_3", "1,-1,0.5,0.0001", quatRow},
    {"instant-quaternion", 0x04, quatWords, "quat_0,quat_1,quat_2,quat_3", "1,-1,0.5,0.0001",
     quatRow},
    {"matrix", 0x0B, matrixWords, matrixColumns, matrixValues, matrixRow},
    {"instant-matrix", 0x0A, matrixWords, matrixColumns, matrixValues, matrixRow},
    {"angles",
     0x0E,
     {16384, 57344, 49152},
     "roll_deg,pitch_deg,yaw_deg",
     "90,-45,-90",
     ",-45,-90, 90, 7"},
    {"instant-angles",
     0x0D,
     {1, 65518, 0},
     "roll_deg,pitch_deg,yaw_deg",
     "0,-0.1,0",
     ",-.1, 0, 0, 7"},
    {"angles-acc-rate",
     0x31,
     {16384, 57344, 49152, 2000, 64536, 1, 4000, 63536, 2},
     "roll_deg,pitch_deg,yaw_deg,acc_x,acc_y,acc_z,rate_x,rate_y,rate_z",
     "90,-45,270,1,-0.5,0.0005,1,-0.5,0.0005",
     ", 90,-45, 270, 1,-.5, .0005, 1,-.5, .0005, 7"},
    {"quat-vectors", 0x0C, quatWords + vectorWords, quatVectorColumns.c_str(),
     quatVectorValues.c_str(), quatVectorRow},
    {"quat-instant-vectors", 0x12, quatWords + vectorWords, quatVectorColumns.c_str(),
     quatVectorValues.c_str(), quatVectorRow},
};

/// The text from the second comma on, without its line end.
std::string FromSecondComma(const std::string& row) {
    return row.substr(row.find(',', row.find(',') + 1) + 1);
}

TEST_F(Record, GivesEachChannelItsColumnsAndValues) {
    Simulator& sensor = PlugScaled();
    for (const ChannelCase& one : channelCases) {
        SCOPED_TRACE(one.name);
        sensor.ReplyTo(static_cast<std::uint8_t>(one.command),
                       Frame(one.command, one.words + std::vector<unsigned>{7}));
        const Outcome csv = Run({"record", one.name, "--port=1", "--samples", "1"});
        EXPECT_EQ(0, csv.exit) << csv.err;
        const std::size_t end = csv.out.find('\n');
        EXPECT_EQ(std::string("timestamp,time_s,") + one.columns + ",ticks",
                  csv.out.substr(0, end));
        EXPECT_EQ(std::string(one.values) + ",7\n", FromSecondComma(csv.out.substr(end + 1)));
        const Outcome file =
            Run({"record", one.name, "--port=1", "--samples", "1", "--format", "workbench"});
        EXPECT_TRUE(std::regex_search(
            file.out, std::regex("^Kestrelmoor ORB-KL4 Data File Version 2\\.0\\.4\r\n"
                                 "Date file created: [^\r]+\r\nTime file created: [^\r]+\r\n")));
        const std::size_t comma = file.out.find(',', file.out.rfind('\n', file.out.size() - 2));
        EXPECT_EQ(std::string(one.workbench) + "\r\n", file.out.substr(comma));
    }
    // A kind whose columns are in another order than the packet's words.
    const auto beside = [&](const char* format) {
        EXPECT_EQ(0, Run({"record", "angles", "--port=1", "--samples=1", "-o", File(),
                          "--overwrite", std::string("--format=") + format})
                         .exit);
        std::string columns;
        for (const QJsonValue column : Beside()["columns"].toArray())
            columns += column["name"].toString().toStdString() + ":" +
                       column["unit"].toString().toStdString() + " ";
        return columns;
    };
    EXPECT_EQ("Time(Seconds):s Pitch:deg Yaw:deg Roll:deg TimerTicks: ", beside("workbench"));
    EXPECT_EQ("Time(Seconds),Pitch,Yaw,Roll,TimerTicks\r", Lines()[4]);
    EXPECT_EQ("timestamp:s time_s:s roll_deg:deg pitch_deg:deg yaw_deg:deg ticks: seq: ",
              beside("jsonl"));
}

TEST_F(Record, TellsTimesAndWhatItRecorded) {
    Plug(1).SetWord(134, 77);
    const auto before = std::chrono::system_clock::now().time_since_epoch() / 1s;
    const Outcome outcome = RunToFile({"--samples", "30", "--json"});
    EXPECT_EQ(0, outcome.exit) << outcome.err;
    const QJsonObject beside = Beside();
    EXPECT_EQ(beside, outcome.Json());
    for (const auto& [name, value] :
         std::map<const char*, QJsonValue>{{"format", "orb-kl4 recording"},
                                           {"version", 1},
                                           {"serialNumber", 77},
                                           {"firmware", "3.1.01"},
                                           {"channel", "vectors"},
                                           {"rows", 30},
                                           {"badReplies", 0},
                                           {"timeouts", 0},
                                           {"gaps", QJsonArray()},
                                           {"ended", "samples"}})
        EXPECT_EQ(value, beside[QLatin1String(name)]) << name;
    EXPECT_EQ(QJsonValue("s"), beside["columns"][1]["unit"]);
    EXPECT_EQ(QJsonValue("mag_x"), beside["columns"][2]["name"]);
    EXPECT_TRUE(std::regex_match(beside["start"].toString().toStdString(),
                                 std::regex(R"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z)")));
    const auto lines = Lines();
    ASSERT_EQ(31U, lines.size());
    double start = 0;
    double last = 0;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        double timestamp = 0;
        double time = 0;
        ASSERT_EQ(2, std::sscanf(lines[i].c_str(), "%lf,%lf,", &timestamp, &time));
        if (i == 1) start = timestamp - time;
        EXPECT_NEAR(start, timestamp - time, 2e-6) << "one look at the wall clock";
        EXPECT_GT(time, last);
        last = time;
    }
    EXPECT_GE(start, static_cast<double>(before));
}

TEST_F(Record, ThinsByTheTicksThatWrap) {
    Simulator& sensor = PlugScaled();
    for (const unsigned ticks : {65520U, 65525U, 65529U, 65530U, 65535U, 3U, 4U, 40U, 45U, 50U})
        sensor.ReplyOnceTo(0x02, Frame(0x02, vectorWords + std::vector<unsigned>{ticks}));
    const Outcome outcome =
        RunToFile({"--rate", "100", "--samples", "5", "--format", "jsonl", "--quiet"});
    EXPECT_EQ(0, outcome.exit) << outcome.err;
    std::vector<std::string> ends;
    for (const std::string& line : Lines()) ends.push_back(line.substr(line.find("\"ticks\"")));
    EXPECT_EQ((std::vector<std::string>{R"("ticks":65520,"seq":0})", R"("ticks":65530,"seq":3})",
                                        R"("ticks":4,"seq":6})", R"("ticks":40,"seq":7})",
                                        R"("ticks":50,"seq":9})"}),
              ends);
    EXPECT_TRUE(std::regex_match(
        Lines().front(),
        std::regex(R"(\{"timestamp":\d+\.\d{6},"time_s":\d+\.\d{6},"mag_x":1,"mag_y":-0\.5,.*)")));
}

TEST_F(Record, LeavesFilesAloneUnlessAllowed) {
    Plug(1);
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
    EXPECT_EQ(7U, Lines().size());
    EXPECT_EQ(0, RunToFile(three + Words{"--overwrite"}).exit);
    EXPECT_EQ(4U, Lines().size());
    EXPECT_TRUE(Beside()["earlier"].isUndefined());
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
    const auto process = Start({"--overwrite"});
    ASSERT_TRUE(Comes([&] { return Beside()["ended"].isNull() && Lines().size() > 20; }));
    ::kill(process->Id(), SIGKILL);
    process->AwaitEnd();
    EXPECT_EQ('\n', ContentOf(File()).back());
    EXPECT_TRUE(Beside()["end"].isNull());
}

TEST_F(Record, CountsBadAndMissingReplies) {
    Simulator& sensor = Plug(1);
    sensor.ReplyOnceTo(0x02, Frame(0x02, vectorWords + std::vector<unsigned>{1}));
    Bytes bad = Frame(0x02, vectorWords + std::vector<unsigned>{2});
    bad[5] ^= 1;
    sensor.ReplyOnceTo(0x02, bad);
    sensor.ReplyOnceTo(0x02, {});
    EXPECT_EQ(0, RunToFile({"--samples", "3"}).exit);
    EXPECT_EQ(1, Beside()["badReplies"].toInt());
    EXPECT_EQ(1, Beside()["timeouts"].toInt());
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

    const auto last = Start({"--no-reconnect", "--overwrite", "--sensor=1042"});
    ASSERT_TRUE(Comes([&] { return Beside()["ended"].isNull() && Lines().size() > 5; }));
    sensor.Unplug();
    EXPECT_EQ(4, last->AwaitEnd().exit);
    EXPECT_EQ("line-gone", Beside()["ended"].toString().toStdString());
}

TEST_F(Record, WaitsForASensorAndTellsTheServiceManager) {
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
    for (const std::uint16_t mode : {0x02, 0x0C}) {
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

TEST_F(Record, IsReadByPython) {
    Plug(1);
    ASSERT_EQ(0, RunToFile({"--samples=50", "--quiet"}).exit);
    if (Shell("python3 -c \"import csv\"") != "") GTEST_SKIP() << "no Python here";
    EXPECT_EQ("50 12 True\n", Shell("python3 -c \"import csv; rows = list(csv.DictReader(open("
                                    "\\\"log\\\"))); print(len(rows), len(rows[0]), all(float(v) "
                                    "is not None for r in rows for v in r.values()))\""));
    if (Shell("python3 -c \"import pandas\"") != "") GTEST_SKIP() << "no pandas here";
    EXPECT_EQ("(50, 12) True True\n",
              Shell("python3 -c \"import pandas; d = pandas.read_csv(\\\"log\\\"); print(d.shape, "
                    "d.notna().all().all(), d.time_s.is_monotonic_increasing)\""));
}

TEST_F(Record, RefusesWrongUse) {
    for (const Words& words : std::vector<Words>{
             {},
             {"colours"},
             {"vectors", "--rate=0"},
             {"vectors", "--samples=0"},
             {"vectors", "--seconds=-1"},
             {"vectors", "--format=xml"},
             {"vectors", "--append", "--overwrite"},
             {"vectors", "--json"},
             {"vectors", "--topic=a"},
             {"vectors", "--mqtt=h", "--topic=a/#"},
             {"vectors", "--mqtt=h:0"},
             {"vectors", "--mqtt=[::1"},
             {"vectors", "--mqtt=h", "--mqtt-password-file=f"},
             {"vectors", "--mqtt=h", "--mqtt-user=u", "--mqtt-password-file=/nowhere"}}) {
        const Outcome outcome = Run(Words{"record"} + words);
        EXPECT_EQ(2, outcome.exit) << (words.empty() ? "" : words.back()) << outcome.err;
    }
}

}  // namespace
}  // namespace orbkl4::cli::test

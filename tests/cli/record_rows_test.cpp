#include "cli/record_test.h"
#include "support/frames.h"

#include <QJsonArray>

#include <chrono>
#include <cstdio>
#include <regex>
#include <utility>

namespace orbkl4::cli::test {
namespace {

using namespace std::chrono_literals;
using orbkl4sim::Simulator;

struct ChannelCase {
    std::vector<std::pair<const char*, unsigned>> channels;  ///< names and commands
    std::vector<unsigned> words;
    std::string columns;
    std::string values;
    const char* workbench;  ///< the row after its time
};

const std::vector<unsigned> quatWords{8192, 57344, 4096, 1};
const std::string quatColumns = "quat_0,quat_1,quat_2,quat_3";
const std::string quatValues = "1,-1,0.5,0.0001";
const std::string vectorColumns = "mag_x,mag_y,mag_z,acc_x,acc_y,acc_z,rate_x,rate_y,rate_z";
const std::string vectorValues = "1,-0.5,0.001,1,-0.5,0.0005,1,-0.5,0.0005";
const std::string angleColumns = "roll_deg,pitch_deg,yaw_deg";

const std::vector<ChannelCase> channelCases{
    {{{"sensor-bits", 0x01}},
     {0, 65535, 2, 3, 4, 5, 6, 7, 8},
     "raw_mag_1,raw_mag_2,raw_mag_3,raw_acc_1,raw_acc_2,raw_acc_3,raw_rate_1,raw_rate_2,raw_rate_3",
     "0,65535,2,3,4,5,6,7,8",
     ", 0, 65535, 2, 3, 4, 5, 6, 7, 8, 7"},
    {{{"vectors", 0x02}, {"instant-vectors", 0x03}},
     vectorWords,
     vectorColumns,
     vectorValues,
     ", 1,-.5, .001, 1,-.5, .0005, 1,-.5, .0005, 7"},
    {{{"quaternion", 0x05}, {"instant-quaternion", 0x04}},
     quatWords,
     quatColumns,
     quatValues,
     ", 1,-1, .5, .0001, 7"},
    {{{"matrix", 0x0B}, {"instant-matrix", 0x0A}},
     {8192, 4096, 0, 0, 8192, 0, 0, 61440, 8192},
     "m11,m21,m31,m12,m22,m32,m13,m23,m33",
     "1,0.5,0,0,1,0,0,-0.5,1",
     ", 1, .5, 0, 0, 1, 0, 0,-.5, 1, 7"},
    {{{"angles", 0x0E}}, {16384, 57344, 49152}, angleColumns, "90,-45,-90", ",-45,-90, 90, 7"},
    {{{"instant-angles", 0x0D}}, {1, 65518, 0}, angleColumns, "0,-0.1,0", ",-.1, 0, 0, 7"},
    {{{"angles-acc-rate", 0x31}},
     {16384, 57344, 49152, 2000, 64536, 1, 4000, 63536, 2},
     angleColumns + ",acc_x,acc_y,acc_z,rate_x,rate_y,rate_z",
     "90,-45,270,1,-0.5,0.0005,1,-0.5,0.0005",
     ", 90,-45, 270, 1,-.5, .0005, 1,-.5, .0005, 7"},
    {{{"quat-vectors", 0x0C}, {"quat-instant-vectors", 0x12}},
     quatWords + vectorWords,
     quatColumns + "," + vectorColumns,
     quatValues + "," + vectorValues,
     ", 1,-1, .5, .0001, 1,-.5, .001, 1,-.5, .0005, 1,-.5, .0005, 7"},
};

/// The text from the second comma on, without its line end.
std::string FromSecondComma(const std::string& row) {
    return row.substr(row.find(',', row.find(',') + 1) + 1);
}

TEST_F(Record, GivesEachChannelItsColumnsAndValues) {
    Simulator& sensor = PlugScaled();
    for (const ChannelCase& one : channelCases) {
        for (const auto& [name, command] : one.channels) {
            SCOPED_TRACE(name);
            sensor.ReplyTo(static_cast<std::uint8_t>(command),
                           Frame(command, one.words + std::vector<unsigned>{7}));
            const Outcome csv = Run({"record", name, "--port=1", "--samples", "1"});
            EXPECT_EQ(0, csv.exit) << csv.err;
            const std::size_t end = csv.out.find('\n');
            EXPECT_EQ("timestamp,time_s," + one.columns + ",ticks", csv.out.substr(0, end));
            EXPECT_EQ(one.values + ",7\n", FromSecondComma(csv.out.substr(end + 1)));
            const Outcome file =
                Run({"record", name, "--port=1", "--samples", "1", "--format", "workbench"});
            EXPECT_TRUE(std::regex_search(
                file.out,
                std::regex("^Kestrelmoor ORB-KL4 Data File Version 2\\.0\\.4\r\n"
                           "Date file created: [^\r]+\r\nTime file created: [^\r]+\r\n")));
            const std::size_t comma = file.out.find(',', file.out.rfind('\n', file.out.size() - 2));
            EXPECT_EQ(std::string(one.workbench) + "\r\n", file.out.substr(comma));
        }
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

TEST_F(Record, WritesTimesAndDescribesItself) {
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

TEST_F(Record, IsReadByPython) {
    Plug(1);
    ASSERT_EQ(0, RunToFile({"--samples=50", "--quiet"}).exit);
    if (!Shell("python3 -c \"import csv\"").empty()) GTEST_SKIP() << "no Python here";
    EXPECT_EQ("50 12 True\n", Shell("python3 -c \"import csv; rows = list(csv.DictReader(open("
                                    "\\\"log\\\"))); print(len(rows), len(rows[0]), all(float(v) "
                                    "is not None for r in rows for v in r.values()))\""));
    if (!Shell("python3 -c \"import pandas; pandas.DataFrame\"").empty())
        GTEST_SKIP() << "no pandas here";
    EXPECT_EQ("(50, 12) True True\n",
              Shell("python3 -c \"import pandas; d = pandas.read_csv(\\\"log\\\"); print(d.shape, "
                    "d.notna().all().all(), d.time_s.is_monotonic_increasing)\""));
}

}  // namespace
}  // namespace orbkl4::cli::test

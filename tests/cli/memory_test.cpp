#include "cli/memory_fixture.h"

#include <QDateTime>
#include <QJsonDocument>

#include <csignal>
#include <regex>

namespace orbkl4::cli::test {
namespace {

using orbkl4sim::ContentOf;

TEST_F(Memory, ShowsNumbersWithTheirLimits) {
    sensor_.SetWord(66, 65535);
    const Outcome json = Memo({"show", "66", "134", "--json"});
    EXPECT_EQ(0, json.exit) << json.err;
    const auto expected = QJsonDocument::fromJson(R"({"format": "orb-kl4 memory show",
        "version": 1, "serialNumber": 1042, "words": [
        {"address": 66, "name": "Magnetometer Orthogonality Matrix, M11", "number": -1,
         "minimum": -32768, "maximum": 32767, "access": "advanced"},
        {"address": 134, "name": "Serial Number", "number": 1042, "minimum": 0,
         "maximum": 32767, "access": "fixed"}]})");
    EXPECT_EQ(expected.object(), json.Json()) << json.out;
    const std::string table = Memo({"show"}).out;
    EXPECT_EQ(129, std::ranges::count(table, '\n')) << "a heading and all words";
    for (const char* word : {"45", "-2", "256", "x"}) EXPECT_EQ(2, Memo({"show", word}).exit);
}

TEST_F(Memory, SavesAndComparesEveryWord) {
    for (int address = 0; address < 256; address += 2)
        if (address != 132 && address != 44 && address != fixedWord && address != 198)
            sensor_.SetWord(address, static_cast<std::uint16_t>(address * 257 + 1));
    const std::string path = File("a.json");
    ASSERT_EQ(0, Memo({"save", path}).exit);
    const QJsonObject document = JsonOf(ContentOf(path));
    EXPECT_EQ("orb-kl4 memory", document["format"].toString().toStdString());
    EXPECT_EQ(1, document["version"].toInt());
    EXPECT_EQ(1042, document["serialNumber"].toInt());
    EXPECT_EQ("3.1.01", document["firmware"].toString().toStdString());
    const auto savedAt = QDateTime::fromString(document["savedAt"].toString(), Qt::ISODate);
    EXPECT_LT(std::abs(savedAt.secsTo(QDateTime::currentDateTimeUtc())), 60);
    const QJsonArray words = document["words"].toArray();
    ASSERT_EQ(128, words.size());
    for (int address = 0; address < 256; address += 2) {
        EXPECT_EQ(address, words[address / 2]["address"].toInt());
        EXPECT_EQ(sensor_.Word(address), words[address / 2]["word"].toInt()) << address;
    }
    EXPECT_EQ("Node Address", words[32]["name"].toString().toStdString());
    EXPECT_EQ(0, Memo({"diff", path}).exit);

    sensor_.SetWord(70, 65534);
    const Outcome differs = Memo({"diff", path, "--json"});
    EXPECT_EQ(1, differs.exit);
    // 70 x 257 + 1 is 17991.
    const auto expected = QJsonDocument::fromJson(R"([{"address": 70, "new": -2, "old": 17991,
        "name": "Magnetometer Orthogonality Matrix, M31"}])");
    EXPECT_EQ(expected.array(), differs.Json()["words"].toArray()) << differs.out;
    const std::string changed = ChangedFile();
    sensor_.Unplug();
    EXPECT_EQ(0, Memo({"diff", path, path}).exit) << "no sensor is needed";
    EXPECT_EQ(60, Memo({"diff", path, changed, "--json"}).Json()["words"].toArray().size());
}

TEST_F(Memory, RestoresSixtyWordsOverABadLineAndGoesBack) {
    const auto before = MemoryOf(sensor_);
    const std::string file = ChangedFile();
    sensor_.SetFaults({.corrupt = 0.05});
    sensor_.ClearRecord();
    const Outcome restored = Memo({"restore", file, "--yes", "--json"});
    EXPECT_EQ(0, restored.exit) << restored.err;
    EXPECT_TRUE(restored.Json()["verified"].toBool());
    EXPECT_EQ(60, restored.Json()["words"].toArray().size());
    int last = -1;
    for (const auto& request : sensor_.Requests()) {
        if (request.bytes[0] != 0x29) continue;
        EXPECT_GE(request.bytes[3], last) << "ascending";
        last = request.bytes[3];
        EXPECT_TRUE(IsFree(last)) << last;
    }
    sensor_.SetFaults({});
    EXPECT_EQ(0, Memo({"diff", file}).exit);
    ASSERT_EQ(1U, Backups().size());
    EXPECT_TRUE(std::regex_match(Backups().front().filename().string(),
                                 std::regex(R"(1042-\d{8}T\d{6}\.\d{3}Z\.json)")));
    EXPECT_FALSE(JsonOf(ContentOf(Backups().front())).contains("unfinished"));
    EXPECT_EQ(0, Memo({"restore", file, "--yes"}).exit);
    EXPECT_EQ(1U, Backups().size()) << "nothing differed";
    EXPECT_EQ(0, Memo({"undo", "--yes"}).exit);
    EXPECT_EQ(before, MemoryOf(sensor_));
    EXPECT_EQ(2, Memo({"undo", "--yes"}).exit) << "there is nothing more to take back";
    EXPECT_EQ(before, MemoryOf(sensor_));
}

TEST_F(Memory, NamesAWordThatDoesNotTake) {
    const auto before = MemoryOf(sensor_);
    const std::string file = ChangedFile();
    sensor_.SetStuck(142, true);
    sensor_.ClearRecord();
    const Outcome outcome = Memo({"restore", file, "--yes", "--json", "--quiet"});
    EXPECT_EQ(1, outcome.exit);
    EXPECT_NE(std::string::npos, outcome.err.find("memory undo --sensor 1042")) << outcome.err;
    EXPECT_FALSE(outcome.Json()["verified"].toBool());
    int mismatches = 0;
    for (const auto& word : outcome.Json()["words"].toArray()) {
        if (word.toObject()["verified"].toBool()) continue;
        ++mismatches;
        EXPECT_EQ(142, word.toObject()["address"].toInt());
        EXPECT_EQ(before[71], word.toObject()["found"].toInt());
    }
    EXPECT_EQ(1, mismatches);
    EXPECT_EQ(62U, WriteRequests()) << "59 once, one three times";
    EXPECT_EQ(0, Memo({"undo", "--yes"}).exit);
    EXPECT_EQ(before, MemoryOf(sensor_));
}

TEST_F(Memory, GoesBackToTheFirstStateWhereverItWasKilled) {
    const auto before = MemoryOf(sensor_);
    const std::string file = ChangedFile();
    for (const std::size_t count : {0U, 1U, 30U, 59U, 60U}) {
        const auto kill = [](CliProcess& process) { ::kill(process.Id(), SIGKILL); };
        RunAnd(count, {"restore", file}, kill);
        const bool begun = WriteRequests() > 0;
        if (count == 30) {
            EXPECT_EQ("unfinished", Memo({"restore", file, "--yes", "--json"}).Error());
            EXPECT_EQ(2, Memo({"set", "26=11", "--yes"}).exit);
            RunAnd(5, {"undo"}, kill);
        }
        const int undone = Memo({"undo", "--yes"}).exit;
        EXPECT_TRUE(undone == 0 || (!begun && undone == 2)) << count << ": " << undone;
        EXPECT_EQ(before, MemoryOf(sensor_)) << count;
    }
    EXPECT_EQ(0, Memo({"set", "26=11", "--yes"}).exit) << "no mark is left";
}

TEST_F(Memory, KeepsTheMarkIfItCannotEnd) {
    const auto before = MemoryOf(sensor_);
    const std::string file = ChangedFile();
    struct Case {
        int exit;
        const char* code;
        std::function<void(CliProcess&)> interfere;
    };
    for (const auto& [exit, code, interfere] : std::vector<Case>{
             {130, "interrupted", [](CliProcess& process) { ::kill(process.Id(), SIGINT); }},
             {4, "no-answer", [this](CliProcess&) { sensor_.SetPower(false); }},
             {4, "bad-answer", [this](CliProcess&) { sensor_.SetFaults({.corrupt = 1}); }},
             {4, "line-gone", [this](CliProcess&) { sensor_.Unplug(); }}}) {
        const Outcome outcome = RunAnd(20, {"restore", file}, interfere);
        EXPECT_EQ(exit, outcome.exit) << outcome.out;
        EXPECT_EQ(code, outcome.Error());
        EXPECT_NE(std::string::npos, outcome.err.find("memory undo --sensor 1042")) << outcome.err;
        sensor_.SetPower(true);
        sensor_.SetFaults({});
        sensor_.Replug();
        EXPECT_EQ("unfinished", Memo({"set", "26=11", "--yes", "--json"}).Error()) << code;
        EXPECT_EQ(0, Memo({"undo", "--yes"}).exit);
        EXPECT_EQ(before, MemoryOf(sensor_)) << code;
    }
}

}  // namespace
}  // namespace orbkl4::cli::test

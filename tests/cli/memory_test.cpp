#include "cli/cli_test.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fstream>
#include <functional>
#include <regex>
#include <sstream>
#include <thread>
#include <utility>

namespace orbkl4::cli::test {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using orbkl4sim::Simulator;

constexpr int fixedWord = 134;

/// Whether `address` is one of 60 that may hold any word.
constexpr bool IsFree(int address) {
    return (address >= 2 && address <= 6) || (address >= 66 && address <= 118) ||
           (address >= 136 && address <= 194);
}

class Memory : public CliTest {
  protected:
    Memory() : sensor_(Plug(1)) {}

    std::vector<int> Words() const {
        std::vector<int> words;
        for (int address = 0; address < 256; address += 2) words.push_back(sensor_.Word(address));
        return words;
    }

    std::string PathOf(const std::string& name) const { return (folder_.Path() / name).string(); }

    Outcome Memo(test::Words words, const Environment& more = {}) const {
        words.insert(words.begin(), {"memory", "--port=1", "--baud=38400"});
        return Run(words, more);
    }

    /// Saves the memory with 60 words changed, and returns the file's path.
    std::string ChangedFile() const {
        const std::string path = PathOf("changed.json");
        EXPECT_EQ(0, Memo({"save", path}).exit);
        QJsonObject document = Parsed(path);
        QJsonArray words = document["words"].toArray();
        for (int address = 0; address < 256; address += 2) {
            if (!IsFree(address)) continue;
            QJsonObject word = words[address / 2].toObject();
            word["word"] = word["word"].toInt() ^ 0x0155;
            words[address / 2] = word;
        }
        document["words"] = words;
        Write(path, QJsonDocument(document).toJson());
        return path;
    }

    static QJsonObject Parsed(const std::string& path) {
        std::stringstream text;
        text << std::ifstream(path).rdbuf();
        return QJsonDocument::fromJson(QByteArray::fromStdString(text.str())).object();
    }

    static void Write(const std::string& path, const QByteArray& text) {
        std::ofstream(path) << text.toStdString();
    }

    std::vector<fs::path> Backups() const {
        std::vector<fs::path> paths;
        std::error_code none;
        for (const auto& entry :
             fs::directory_iterator(folder_.Path() / "data/orb-kl4/backups", none))
            paths.push_back(entry.path());
        std::ranges::sort(paths);
        return paths;
    }

    std::size_t WriteRequests() const {
        const auto requests = sensor_.Requests();
        return static_cast<std::size_t>(std::ranges::count_if(
            requests, [](const auto& request) { return request.bytes[0] == 0x29; }));
    }

    /// Starts a command that writes, does `interfere` once `count` words have been written, and
    /// waits for its end.
    Outcome RunAnd(std::size_t count, test::Words words,
                   const std::function<void(CliProcess&)>& interfere) {
        sensor_.ClearRecord();
        words.insert(words.begin(), "memory");
        words.insert(words.end(), {"--yes", "--json", "--port=1"});
        CliProcess process(words, Surroundings());
        const auto end = std::chrono::steady_clock::now() + 30s;
        while (WriteRequests() < count && std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(1ms);
        interfere(process);
        return process.AwaitEnd();
    }

    Simulator& sensor_;
};

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
    const std::string path = PathOf("a.json");
    ASSERT_EQ(0, Memo({"save", path}).exit);
    const QJsonObject document = Parsed(path);
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
    const auto before = Words();
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
    EXPECT_FALSE(Parsed(Backups().front().string()).contains("unfinished"));
    EXPECT_EQ(0, Memo({"restore", file, "--yes"}).exit);
    EXPECT_EQ(1U, Backups().size()) << "nothing differed";
    EXPECT_EQ(0, Memo({"undo", "--yes"}).exit);
    EXPECT_EQ(before, Words());
    EXPECT_EQ(2, Memo({"undo", "--yes"}).exit) << "there is nothing more to take back";
    EXPECT_EQ(before, Words());
}

TEST_F(Memory, NamesAWordThatDoesNotTake) {
    const auto before = Words();
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
    EXPECT_EQ(before, Words());
}

TEST_F(Memory, GoesBackToTheFirstStateWhereverItWasKilled) {
    const auto before = Words();
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
        EXPECT_EQ(before, Words()) << count;
    }
    EXPECT_EQ(0, Memo({"set", "26=11", "--yes"}).exit) << "no mark is left";
}

TEST_F(Memory, KeepsTheMarkIfItCannotEnd) {
    const auto before = Words();
    const std::string file = ChangedFile();
    struct Case {
        int exit;
        const char* code;
        std::function<void(CliProcess&)> interfere;
    };
    for (const auto& [exit, code, interfere] : std::vector<Case>{
             {130, "interrupted", [](CliProcess& process) { ::kill(process.Id(), SIGINT); }},
             {4, "no-answer", [this](CliProcess&) { sensor_.SetPower(false); }},
             {4, "line-gone", [this](CliProcess&) { sensor_.Unplug(); }}}) {
        const Outcome outcome = RunAnd(20, {"restore", file}, interfere);
        EXPECT_EQ(exit, outcome.exit) << outcome.out;
        EXPECT_EQ(code, outcome.Error());
        EXPECT_NE(std::string::npos, outcome.err.find("memory undo --sensor 1042")) << outcome.err;
        sensor_.SetPower(true);
        sensor_.Replug();
        EXPECT_EQ("unfinished", Memo({"set", "26=11", "--yes", "--json"}).Error()) << code;
        EXPECT_EQ(0, Memo({"undo", "--yes"}).exit);
        EXPECT_EQ(before, Words()) << code;
    }
}

TEST_F(Memory, RefusesWhatMustNotBeWritten) {
    const auto before = Words();
    const std::string file = ChangedFile();
    sensor_.ClearRecord();
    for (const test::Words& words :
         std::vector<test::Words>{{"set", "26=11"},                         // nobody to ask
                                  {"set", "134=5", "--yes", "--force"},     // fixed
                                  {"set", "26=0", "--yes"},                 // outside its limits
                                  {"set", "44=100", "--yes"},               // no speed
                                  {"set", "238=5", "--yes"},                // no prescaler
                                  {"set", "66=40000", "--yes", "--force"},  // no signed number
                                  {"set", "26=65536", "--yes", "--force"},
                                  {"set", "26=11", "26=12", "--yes"},
                                  {"set", "27=11", "--yes"},
                                  {"set", "26", "--yes"},
                                  {"set", "26=", "--yes"},
                                  {"set", "26=1.5", "--yes"},
                                  {"set", "--yes"},
                                  {"restore", "--yes"},
                                  {"restore", file},
                                  {"undo", "--yes"},
                                  {"undo"}}) {
        const Outcome outcome = Memo(words);
        EXPECT_EQ(2, outcome.exit) << words[1] << outcome.err;
        EXPECT_EQ(outcome.err.size() - 1, outcome.err.find('\n')) << "one line: " << outcome.err;
    }
    EXPECT_EQ(0, Memo({"restore", file, "--dry-run"}).exit);
    sensor_.SetWord(fixedWord, 7);
    EXPECT_EQ(2, Memo({"restore", file, "--yes"}).exit) << "another sensor's file";
    EXPECT_EQ(0U, WriteRequests());

    const Outcome taken = Memo({"restore", file, "--yes", "--other-sensor", "--json"});
    EXPECT_EQ(0, taken.exit) << taken.err;
    EXPECT_EQ(7, sensor_.Word(fixedWord)) << "its own serial number stays";
    EXPECT_EQ(fixedWord, taken.Json()["kept"][0]["address"].toInt());
    EXPECT_EQ(0, Memo({"undo", "--yes"}).exit);
    sensor_.SetWord(fixedWord, 1042);
    EXPECT_EQ(before, Words());
    EXPECT_EQ(0, Memo({"set", "26=0", "66=-2", "--yes", "--force"}).exit);
    EXPECT_EQ(0, sensor_.Word(26));
    EXPECT_EQ(65534, sensor_.Word(66));
    EXPECT_EQ(0, Memo({"undo", "--yes"}).exit) << "back to where it was, limits or not";
}

TEST_F(Memory, WritesNothingWithoutAPlaceForTheBackup) {
    const auto before = Words();
    const std::string file = ChangedFile();
    const Outcome outcome = Memo({"restore", file, "--yes", "--json"},
                                 {{"XDG_DATA_HOME", folder_.Write("plain", "").string()}});
    EXPECT_EQ(5, outcome.exit) << outcome.err;
    EXPECT_EQ("system", outcome.Error());
    EXPECT_EQ(0U, WriteRequests());
    EXPECT_EQ(before, Words());
    EXPECT_EQ(5, Memo({"save", PathOf("none/a.json")}).exit);
    EXPECT_EQ(5, Memo({"save", "/dev/null"}).exit);
}

TEST_F(Memory, StopsIfAnotherSensorAnswersByNow) {
    const std::string file = ChangedFile();
    // The first question finds the sensor; 0xF1 + 77 is 0x013E.
    bool found = false;
    sensor_.FilterReplies([&](const auto& request, const auto& reply) {
        if (request[0] != 0xF1 || !std::exchange(found, true)) return std::optional(reply);
        return std::optional(orbkl4sim::Bytes{0xF1, 0x00, 0x4D, 0x01, 0x3E});
    });
    const Outcome outcome = Memo({"restore", file, "--yes", "--json"});
    EXPECT_EQ(3, outcome.exit) << outcome.err;
    EXPECT_EQ(0U, WriteRequests());
    EXPECT_EQ(0U, Backups().size());
}

TEST_F(Memory, RefusesFilesThatAreNotWhole) {
    const std::string path = ChangedFile();
    const QJsonObject whole = Parsed(path);
    const auto with = [&](const char* key, const QJsonValue& value) {
        QJsonObject document = whole;
        document[QLatin1String(key)] = value;
        return QJsonDocument(document).toJson();
    };
    const auto withWord = [&](int index, const QJsonObject& word) {
        QJsonArray words = whole["words"].toArray();
        words[index] = word;
        return with("words", words);
    };
    QJsonArray short1 = whole["words"].toArray();
    short1.removeAt(35);
    const auto text = QJsonDocument(whole).toJson();
    struct Case {
        QByteArray content;
        const char* place;
    };
    for (const auto& [content, place] : std::vector<Case>{
             {"", "line 1, column 1"},
             {"{\n  \"format\": ,\n}", "line 2"},
             {text.left(text.size() / 2), "line "},
             {QByteArray(2'000'000, ' '), "too long"},
             {"[]", "format: "},
             {with("format", "another"), "format: "},
             {with("version", 2), "version: "},
             {with("serialNumber", "1042"), "serialNumber: "},
             {with("serialNumber", 65536), "serialNumber: "},
             {with("firmware", 3), "firmware: "},
             {with("savedAt", QJsonValue()), "savedAt: "},
             {with("words", 3), "words: "},
             {with("words", short1), "address 70 is missing"},
             {withWord(35, {{"address", 72}, {"word", 1}}), "words[36], address 72: "},
             {withWord(35, {{"address", 71}, {"word", 1}}), "words[35]: "},
             {withWord(35, {{"address", 256}, {"word", 1}}), "words[35]: "},
             {withWord(35, {{"address", -2}, {"word", 1}}), "words[35]: "},
             {withWord(35, {{"word", 1}}), "words[35]: "},
             {withWord(35, {{"address", 70}}), "words[35], address 70: "},
             {withWord(35, {{"address", 70}, {"word", 65536}}), "words[35], address 70: "},
             {withWord(35, {{"address", 70}, {"word", -1}}), "words[35], address 70: "},
             {withWord(35, {{"address", 70}, {"word", 1.5}}), "words[35], address 70: "},
             {withWord(35, {{"address", 70}, {"word", "1"}}), "words[35], address 70: "}}) {
        Write(path, content);
        const Outcome outcome = Memo({"restore", path, "--yes", "--json"});
        EXPECT_EQ(2, outcome.exit) << place;
        EXPECT_EQ("bad-file", outcome.Error()) << place;
        EXPECT_NE(std::string::npos, outcome.err.find(place)) << place << ": " << outcome.err;
    }
    for (const std::string& none : {PathOf("none"), folder_.Path().string()})
        EXPECT_EQ("bad-file", Memo({"diff", none, "--json"}).Error()) << none;
}

}  // namespace
}  // namespace orbkl4::cli::test

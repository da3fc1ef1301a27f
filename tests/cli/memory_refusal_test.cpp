#include "cli/memory_fixture.h"

#include <QJsonDocument>

#include <utility>

namespace orbkl4::cli::test {
namespace {

using orbkl4sim::ContentOf;

TEST_F(Memory, RefusesWhatMustNotBeWritten) {
    const auto before = MemoryOf(sensor_);
    const std::string file = ChangedFile();
    sensor_.ClearRecord();
    for (const Words& words :
         std::vector<Words>{{"set", "26=11"},                         // nobody to ask
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
    EXPECT_EQ(before, MemoryOf(sensor_));
    EXPECT_EQ(0, Memo({"set", "26=0", "66=-2", "--yes", "--force"}).exit);
    EXPECT_EQ(0, sensor_.Word(26));
    EXPECT_EQ(65534, sensor_.Word(66));
    EXPECT_EQ(0, Memo({"undo", "--yes"}).exit) << "back to where it was, limits or not";
}

TEST_F(Memory, WritesNothingWithoutAPlaceForTheBackup) {
    const auto before = MemoryOf(sensor_);
    const std::string file = ChangedFile();
    const Outcome outcome = Memo({"restore", file, "--yes", "--json"},
                                 {{"XDG_DATA_HOME", folder_.Write("plain", "").string()}});
    EXPECT_EQ(5, outcome.exit) << outcome.err;
    EXPECT_EQ("system", outcome.Error());
    EXPECT_EQ(0U, WriteRequests());
    EXPECT_EQ(before, MemoryOf(sensor_));
    EXPECT_EQ(5, Memo({"save", File("none/a.json")}).exit);
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
    const QJsonObject whole = JsonOf(ContentOf(path));
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
    QJsonArray oneLess = whole["words"].toArray();
    oneLess.removeAt(35);
    const auto text = QJsonDocument(whole).toJson();
    for (const auto& [content, place] : std::vector<std::pair<QByteArray, const char*>>{
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
             {with("words", oneLess), "address 70 is missing"},
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
        folder_.Write("changed.json", content.toStdString());
        const Outcome outcome = Memo({"restore", path, "--yes", "--json"});
        EXPECT_EQ(2, outcome.exit) << place;
        EXPECT_EQ("bad-file", outcome.Error()) << place;
        EXPECT_NE(std::string::npos, outcome.err.find(place)) << place << ": " << outcome.err;
    }
    for (const std::string& none : {File("none"), folder_.Path().string()})
        EXPECT_EQ("bad-file", Memo({"diff", none, "--json"}).Error()) << none;
}

}  // namespace
}  // namespace orbkl4::cli::test

#include "cli/memory_image.h"

#include "cli/atomic_file.h"
#include "cli/error.h"
#include "cli/session.h"
#include "platform/system/qt_text.h"

#include <QDateTime>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>
#include <optional>

namespace orbkl4::cli {

namespace {

constexpr int mostWord = 65535;
constexpr int formatVersion = 1;
constexpr QLatin1String formatName("orb-kl4 memory");
constexpr QLatin1String unfinishedKey("unfinished");
constexpr QLatin1String undoneKey("undone");

/// The word at `address`, once two readings agree: in continuous mode a part of a sample may look
/// like a reply.
int ReadAmongSamples(Session& session, eeprom::Address address) {
    int before = session.ReadWord(address);
    for (int word = 0; (word = session.ReadWord(address)) != before;) before = word;
    return before;
}

[[noreturn]] void Refuse(const std::string& path, const std::string& fault) {
    throw CliError(Failure::BadFile, path + ": " + fault);
}

std::string PlaceAt(const QByteArray& text, int offset) {
    const QByteArray before = text.left(offset);
    return "line " + std::to_string(before.count('\n') + 1) + ", column " +
           std::to_string(before.size() - before.lastIndexOf('\n'));
}

QByteArray Content(const std::string& path) {
    constexpr qint64 most = 1 << 20;  // an image has some 10 kB
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly)) {
        Refuse(path, "can't be read: " + file.errorString().toStdString());
    }
    QByteArray content = file.read(most + 1);
    if (content.size() > most) Refuse(path, "is far too long for a sensor's memory");
    return content;
}

QJsonObject Parsed(const std::string& path) {
    const QByteArray content = Content(path);
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (error.error != QJsonParseError::NoError) {
        Refuse(path, PlaceAt(content, error.offset) + ": " + error.errorString().toStdString());
    }
    return document.object();
}

/// The whole number in `value` if it has one from 0 to `most`.
std::optional<int> WholeNumber(const QJsonValue& value, int most) {
    const double number = value.toDouble(-1);
    if (number < 0 || number > most || number != std::floor(number)) return std::nullopt;
    return static_cast<int>(number);
}

/// `words`, each found once.
MemoryWords WordsIn(const QJsonArray& words, const std::string& path) {
    MemoryWords found{};
    found.fill(-1);
    for (qsizetype i = 0; i < words.size(); ++i) {
        const std::string place = "words[" + std::to_string(i) + "]";
        const auto address = WholeNumber(words[i][QLatin1String("address")], eeprom::last);
        if (!address || *address % 2 != 0) {
            Refuse(path, place + ": its address isn't an even number from 0 to 254");
        }
        int& word = found.at(IndexOf(static_cast<eeprom::Address>(*address)));
        const std::string which = place + ", address " + std::to_string(*address) + ": ";
        if (word >= 0) Refuse(path, which + "the address is there twice");
        const auto number = WholeNumber(words[i][QLatin1String("word")], mostWord);
        if (!number) Refuse(path, which + "its word isn't a whole number from 0 to 65535");
        word = *number;
    }
    const auto missing = std::ranges::find(found, -1) - found.begin();
    if (missing == eepromWordCount) return found;
    Refuse(path, "words: the word at address " + std::to_string(2 * missing) + " is missing");
}

QString TextIn(const QJsonObject& document, const char* key, const std::string& path) {
    const QJsonValue value = document[QLatin1String(key)];
    if (!value.isString()) Refuse(path, std::string(key) + ": there is no such text");
    return value.toString();
}

}  // namespace

MemoryImage ReadMemory(Session& session) {
    MemoryImage image{.serialNumber = session.SerialNumber(),
                      .firmware = session.Firmware(),
                      .savedAt = QDateTime::currentDateTimeUtc().toString(Qt::ISODate)};
    const bool streaming = session.ReadWord(eeprom::continuousMode) != 0;
    for (const EepromWord& word : eepromCatalogue) {
        image.words.at(IndexOf(word.address)) =
            streaming ? ReadAmongSamples(session, word.address) : session.ReadWord(word.address);
    }
    return image;
}

void SaveImage(const MemoryImage& image, const std::string& path) {
    QJsonArray words;
    for (const EepromWord& word : eepromCatalogue) {
        words.append(QJsonObject{{"address", word.address},
                                 {"name", NameAt(word.address)},
                                 {"word", image.words.at(IndexOf(word.address))}});
    }
    QJsonObject document{{"format", formatName},
                         {"version", formatVersion},
                         {"savedAt", image.savedAt},
                         {"serialNumber", image.serialNumber},
                         {"firmware", QString::fromStdString(image.firmware)},
                         {"words", words}};
    if (image.unfinished) document.insert(unfinishedKey, true);
    if (image.undone) document.insert(undoneKey, true);
    ReplaceFile(path, QJsonDocument(document).toJson());
}

MemoryImage LoadImage(const std::string& path) {
    const QJsonObject document = Parsed(path);
    if (document[QLatin1String("format")] != QJsonValue(formatName)) {
        Refuse(path, "format: it isn't \"orb-kl4 memory\"");
    }
    if (document[QLatin1String("version")] != QJsonValue(formatVersion)) {
        Refuse(path, "version: it isn't 1");
    }
    const auto serialNumber = WholeNumber(document[QLatin1String("serialNumber")], mostWord);
    if (!serialNumber) Refuse(path, "serialNumber: it isn't a whole number from 0 to 65535");
    const QJsonValue words = document[QLatin1String("words")];
    if (!words.isArray()) Refuse(path, "words: there is no such list");
    return {.serialNumber = *serialNumber,
            .firmware = TextIn(document, "firmware", path).toStdString(),
            .savedAt = TextIn(document, "savedAt", path),
            .words = WordsIn(words.toArray(), path),
            .unfinished = document[unfinishedKey].toBool(),
            .undone = document[undoneKey].toBool()};
}

QString NameAt(eeprom::Address address) {
    return ToQString(eepromCatalogue.at(IndexOf(address)).name);
}

}  // namespace orbkl4::cli

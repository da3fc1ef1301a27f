#pragma once

#include "memory/logic/catalogue.h"

#include <QJsonObject>
#include <QString>

#include <array>
#include <string>

namespace orbkl4::cli {

class Session;

/// The words of a sensor's memory, 0 to 65535, by index.
using MemoryWords = std::array<int, eepromWordCount>;

/// The memory of one sensor at one time.
struct MemoryImage {
    int serialNumber = 0;
    std::string firmware = {};
    QString savedAt = {};  ///< when it was read, in UTC, as ISO 8601
    MemoryWords words{};
    bool unfinished = false;  ///< a change that began from here hasn't come to its end
    bool undone = false;      ///< the change that began from here has been taken back
};

/// Reads all words of the sensor; throws what `Session::Exchange` does.
MemoryImage ReadMemory(Session& session);

/// Writes `image` as JSON into the file at `path`, in one step; throws `Failure::System`.
void SaveImage(const MemoryImage& image, const std::string& path);

/// The image in the file at `path`; throws `Failure::BadFile`, which names the place of the fault,
/// unless the file has each of the 128 words once and in range.
MemoryImage LoadImage(const std::string& path);

/// The number that `word` stands for at `address`.
inline int NumberAt(eeprom::Address address, int word) {
    return static_cast<int>(NumberOfWord(address, word));
}

/// The name of the word at `address`.
QString NameAt(eeprom::Address address);

}  // namespace orbkl4::cli

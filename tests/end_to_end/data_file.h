#pragma once

#include <string>
#include <vector>

namespace orbkl4::test {

/// A data file of raw sensor bits, read back.
struct SensorBitsFile {
    std::vector<std::string> head;               ///< five lines
    std::vector<std::vector<std::string>> rows;  ///< their columns, the blank before a number kept
};

/// What the file's `content` holds; throws std::runtime_error where a line isn't whole: the head
/// of five lines, then rows of a time and ten words from 0 to 65535, each line ended by CR LF.
SensorBitsFile ReadSensorBits(const std::string& content);

}  // namespace orbkl4::test

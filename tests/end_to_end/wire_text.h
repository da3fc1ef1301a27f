#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orbkl4::test {

// What the tests and the hand inside the program say to each other: lines of fields, parted by
// tabs. A field's own tabs, line ends and backslashes are written as \t, \n, \r and \\.

/// One line, with its line end, that bears `fields`.
inline std::string WireLine(const std::vector<std::string>& fields) {
    std::string line;
    for (const std::string& field : fields) {
        if (!line.empty()) line += '\t';
        for (const char c : field) {
            switch (c) {
                case '\\': line += "\\\\"; break;
                case '\t': line += "\\t"; break;
                case '\n': line += "\\n"; break;
                case '\r': line += "\\r"; break;
                default: line += c;
            }
        }
    }
    return line + '\n';
}

/// The fields of `line`, which comes without its line end.
inline std::vector<std::string> WireFields(std::string_view line) {
    std::vector<std::string> fields(1);
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '\t') {
            fields.emplace_back();
            continue;
        }
        const bool escaped = line[i] == '\\' && i + 1 < line.size();
        const char c = escaped ? line[++i] : line[i];
        const bool letter = escaped && c != '\\';
        fields.back() += !letter ? c : c == 't' ? '\t' : c == 'n' ? '\n' : '\r';
    }
    return fields;
}

}  // namespace orbkl4::test

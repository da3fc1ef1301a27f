#pragma once

#include <sstream>
#include <string>
#include <vector>

namespace orbkl4::test {

// Messages between the tests and the driver inside the program consist of fields. No text of the
// program contains the bytes that end them.
constexpr char fieldEnd = '\x1F';
constexpr char messageEnd = '\0';

/// The message of `fields`, with its end.
inline std::string MessageOf(const std::vector<std::string>& fields) {
    std::string message;
    for (const std::string& field : fields) message += field + fieldEnd;
    return message + messageEnd;
}

/// The fields of `message`, which is without its end.
inline std::vector<std::string> FieldsOf(const std::string& message) {
    std::vector<std::string> fields;
    std::istringstream text(message);
    for (std::string field; std::getline(text, field, fieldEnd);) fields.push_back(field);
    return fields;
}

}  // namespace orbkl4::test

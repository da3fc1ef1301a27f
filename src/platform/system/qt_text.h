#pragma once

#include <QString>

#include <string_view>

namespace orbkl4 {

/// `text` (UTF-8) as Qt takes it.
inline QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace orbkl4

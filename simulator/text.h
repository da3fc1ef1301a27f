#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

namespace orbkl4sim {

/// `text` without leading and trailing white space.
std::string_view Trimmed(std::string_view text);

/// `text` as a finite decimal number; nothing unless all of it is one.
std::optional<double> ToNumber(std::string_view text);

/// Calls `take` with each line of `file`, trimmed and without comments (from `#` on), but not with
/// empty ones. Throws std::runtime_error if the file can't be read, and adds file and line number
/// to a std::runtime_error from `take`.
void ForEachLine(const std::filesystem::path& file,
                 const std::function<void(std::string_view line)>& take);

}  // namespace orbkl4sim

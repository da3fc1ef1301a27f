#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orbkl4 {

/// A number as the screens show it: up to 15 significant digits, no trailing zeros, a period.
std::string ScreenText(double number);

/// A number in the language-neutral form of data files: as `ScreenText`, but with no digit before
/// the point below 1 in size and a leading blank where the number isn't negative.
std::string FileText(double number);

/// `FileText` without its leading blank.
std::string TrimmedFileText(double number);

/// The number that the whole of `text` says, blanks around it aside; error 13 (type mismatch) where
/// it says none.
double ToNumber(std::string_view text);

/// The whole number from `least` to `most` that the whole of `text` is, without blanks; nothing
/// where it is none.
std::optional<int> WholeNumber(std::string_view text, int least, int most);

/// The number at the start of `text` ("3.1.01" gives 3.1), 0 where it starts with none.
double LeadingNumber(std::string_view text);

/// `text` without the blanks and tabs at its ends.
std::string_view Trimmed(std::string_view text);

}  // namespace orbkl4

#pragma once

#include <string_view>

namespace orbkl4 {

/// The number under which an error that isn't a `RuntimeError` is reported.
inline constexpr int internalErrorNumber = 51;

/// The screen text of errors in procedures that belong to no screen.
inline constexpr std::string_view generalModule = "General";

/// Logs the error, then asks the user; returns on Retry, ends the process on Cancel. Where it fails
/// itself, it shows a box that says so and returns.
void SimpleErrorHandler(int number, std::string_view source, std::string_view screen,
                        std::string_view description);

}  // namespace orbkl4

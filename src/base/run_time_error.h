#pragma once

#include <stdexcept>
#include <string>

namespace orbkl4 {

/// The numbers that a `RuntimeError` of this program can carry; they stand in the error log.
enum class ErrorNumber {
    Overflow = 6,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceIo = 57,
    DiskFull = 61,
    PermissionDenied = 70,
    PathNotFound = 76,
    InvalidPropertyValue = 380,
    InvalidPortNumber = 8002,
    PortAlreadyOpen = 8005,
    DeviceGone = 8012,
    PortClosed = 8018,
    DialogCancelled = 32755,
};

/// A run-time error: what the trap of an event handler catches and hands to the error handler.
class RuntimeError : public std::runtime_error {
  public:
    RuntimeError(ErrorNumber number, const std::string& description)
        : std::runtime_error(description), number_(number) {}

    /// The error's number.
    ErrorNumber Number() const { return number_; }

  private:
    ErrorNumber number_;
};

/// The usual description of the error `number`.
const char* UsualDescription(ErrorNumber number);

/// Throws the error `number` with its usual description.
[[noreturn]] void Raise(ErrorNumber number);

/// Throws the error `number` with a description of the caller's own.
[[noreturn]] void Raise(ErrorNumber number, const std::string& description);

}  // namespace orbkl4

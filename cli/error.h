#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

namespace orbkl4::cli {

/// How a command ends.
enum class ExitCode : std::uint8_t {
    Done = 0,
    No = 1,        ///< the answer is no: differences, a failed verification, too few samples
    Usage = 2,     ///< wrong use of the command line
    NoSensor = 3,  ///< no line, or no sensor on it
    NoAnswer = 4,  ///< the sensor stopped answering, or answers badly
    System = 5,    ///< this computer's side: a full disk, no place for a file
};

/// What can go wrong; the table in error.cpp gives each its code word and exit code.
enum class Failure : std::uint8_t {
    Usage,
    SeveralSensors,
    NoLine,
    Denied,
    Busy,
    NoSensor,
    NoAnswer,
    BadAnswer,
    LineGone,
    BadFile,     ///< a file given isn't what it should be
    Unfinished,  ///< a change of the sensor's memory has begun and not ended
    System,
    Interrupted,  ///< by a signal; the exit code is 128 and the signal's number
};

/// Ends a command: what went wrong, and what the user can do about it (may be empty).
class CliError : public std::runtime_error {
  public:
    CliError(Failure failure, const std::string& message, std::string remedy = {})
        : std::runtime_error(message), failure_(failure), remedy_(std::move(remedy)) {}

    Failure Kind() const { return failure_; }
    const std::string& Remedy() const { return remedy_; }

    /// The code word of JSON errors, such as "no-sensor".
    const char* Code() const;

    /// The exit code that this error gives the program.
    int Exit() const;

  private:
    Failure failure_;
    std::string remedy_;
};

}  // namespace orbkl4::cli

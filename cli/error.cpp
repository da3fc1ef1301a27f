#include "cli/error.h"

#include "cli/signals.h"

#include <array>

namespace orbkl4::cli {

namespace {

struct FailureRow {
    Failure failure;
    const char* code;
    ExitCode exit;
};

constexpr std::array failureRows = std::to_array<FailureRow>({
    {Failure::Usage, "usage", ExitCode::Usage},
    {Failure::SeveralSensors, "several-sensors", ExitCode::Usage},
    {Failure::NoLine, "no-line", ExitCode::NoSensor},
    {Failure::Denied, "denied", ExitCode::NoSensor},
    {Failure::Busy, "busy", ExitCode::NoSensor},
    {Failure::NoSensor, "no-sensor", ExitCode::NoSensor},
    {Failure::NoAnswer, "no-answer", ExitCode::NoAnswer},
    {Failure::BadAnswer, "bad-answer", ExitCode::NoAnswer},
    {Failure::LineGone, "line-gone", ExitCode::NoAnswer},
    {Failure::BadFile, "bad-file", ExitCode::Usage},
    {Failure::Unfinished, "unfinished", ExitCode::Usage},
    {Failure::System, "system", ExitCode::System},
    {Failure::Interrupted, "interrupted", ExitCode::System},
});

constexpr const FailureRow& RowOf(Failure failure) {
    std::size_t row = 0;
    while (failureRows.at(row).failure != failure) ++row;
    return failureRows.at(row);
}

}  // namespace

const char* CliError::Code() const { return RowOf(failure_).code; }

int CliError::Exit() const {
    constexpr int signalled = 128;
    if (failure_ == Failure::Interrupted) return signalled + SignalReceived();
    return static_cast<int>(RowOf(failure_).exit);
}

}  // namespace orbkl4::cli

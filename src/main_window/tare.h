#pragma once

#include "link/logic/device_command.h"

#include <array>

namespace orbkl4 {

class Screen;

/// Tare or remove tare: an operation of the main window, with its menu entries, `MSComm1` and a
/// timer of its own, and with the screen `Progress`.
struct TareOperation {
    DeviceCommand command;
    const char* entry;       ///< starts and stops the operation; checked while it runs
    const char* otherEntry;  ///< of the other operation
    const char* timer;       ///< whose ticks look for the reply
    const char* caption;     ///< of the frame on `Progress`; empty for the standard one
    const char* stopped;     ///< message after a stop by the user
    const char* succeeded;   ///< message after success
    bool enablesCalcCycle;   ///< whether success enables `mnuSetCalcCycle`, or only shows it
};

inline constexpr auto tareOperations = std::to_array<TareOperation>({
    {DeviceCommand::CmdTare, "mnuTare", "mnuRemove", "TimerTare", "",
     "Tare Cooordinate System stopped by user!", "Tare Cooordinate System succeeded!", false},
    {DeviceCommand::CmdRemoveTare, "mnuRemove", "mnuTare", "TimerRemove",
     "Removing Tare for ORB-KL4", "Remove Tare Cooordinate System stopped by user!",
     "Remove Tare Cooordinate System succeeded!", true},
});

/// Starts the operation, or stops it where it runs; the sensor must be in polled mode.
void ToggleTare(const Screen& main, const TareOperation& operation);

/// One tick of the operation's timer: ends the operation where the reply is in, else moves the bar.
void TareTick(const Screen& main, const TareOperation& operation);

}  // namespace orbkl4

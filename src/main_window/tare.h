#pragma once

#include "link/logic/device_command.h"

#include <array>

namespace orbkl4 {

class Screen;

/// One of the two operations on the sensor's coordinate system. They work on the main window's menu
/// entries, its `MSComm1` and a timer there, and on the screen `Progress`.
struct TareOperation {
    DeviceCommand command;
    const char* entry;       ///< starts the operation, is checked while it runs, and stops it
    const char* otherEntry;  ///< that of the other operation
    const char* timer;       ///< looks for the reply
    const char* caption;     ///< of the frame of `Progress`; empty leaves its own
    const char* stopped;     ///< what the user is told
    const char* succeeded;
    bool enablesCalcCycle;  ///< whether success enables `mnuSetCalcCycle` again, or just shows it
};

inline constexpr auto tareOperations = std::to_array<TareOperation>({
    {DeviceCommand::CmdTare, "mnuTare", "mnuRemove", "TimerTare", "",
     "Tare Cooordinate System stopped by user!", "Tare Cooordinate System succeeded!", false},
    {DeviceCommand::CmdRemoveTare, "mnuRemove", "mnuTare", "TimerRemove",
     "Removing Tare for ORB-KL4", "Remove Tare Cooordinate System stopped by user!",
     "Remove Tare Cooordinate System succeeded!", true},
});

/// A click on the operation's entry, when the sensor is in polled mode: starts the operation, or
/// stops it where it runs.
void ToggleTare(const Screen& main, const TareOperation& operation);

/// A tick of the operation's timer: ends the operation when the reply has come, and moves the bar.
void TareTick(const Screen& main, const TareOperation& operation);

}  // namespace orbkl4

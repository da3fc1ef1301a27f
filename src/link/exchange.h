#pragma once

#include "link/logic/device_command.h"

#include <cstddef>
#include <vector>

namespace orbkl4 {

class MenuEntry;
class MSComm;
class Screen;

/// An exchange with the sensor that one click on a menu entry starts and the next click stops. It
/// has its own port, on which `OnComm` fires when the whole reply is in.
struct Exchange {
    const Screen& screen;
    MSComm& port;
    MenuEntry& entry;                ///< checked while the exchange runs
    std::vector<MenuEntry*> others;  ///< disabled while it runs
    std::size_t replyLength;         ///< in bytes, of all frames together
};

/// Checks the entry, disables the others and opens the port; the caller sends the request.
void StartExchange(const Exchange& exchange);

/// Closes the port, unchecks the entry and enables the others.
void StopExchange(const Exchange& exchange);

/// Moves the reply into `AppState.CommandBytes` and closes the port; the entry stays checked.
void CollectReply(const Exchange& exchange);

/// Unchecks the entry and enables the others.
void EndExchange(const Exchange& exchange);

}  // namespace orbkl4

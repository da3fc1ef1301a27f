#pragma once

#include "link/logic/device_command.h"

#include <cstddef>
#include <vector>

namespace orbkl4 {

class MenuEntry;
class MSComm;
class Screen;

/// An exchange with the sensor that a click on a menu entry starts and a second click stops. It has
/// a port of its own, whose event comes when all that is awaited has.
struct Exchange {
    const Screen& screen;
    MSComm& port;
    MenuEntry& entry;                ///< checked while the exchange runs
    std::vector<MenuEntry*> others;  ///< disabled meanwhile
    std::size_t replyLength;         ///< bytes awaited
};

/// Marks the exchange as running and opens its port; the request is the caller's to send.
void StartExchange(const Exchange& exchange);

/// Closes the port and marks the exchange as ended.
void StopExchange(const Exchange& exchange);

/// Takes what has come into `AppState.CommandBytes` and closes the port; the exchange is still
/// marked as running.
void TakeReply(const Exchange& exchange);

/// Marks the exchange as ended.
void EndExchange(const Exchange& exchange);

}  // namespace orbkl4

#include "link/exchange.h"

#include "link/communication.h"
#include "platform/events/mscomm.h"
#include "platform/windows/menu_entry.h"
#include "state/app_state.h"

#include <cstdint>

namespace orbkl4 {

void StartExchange(const Exchange& exchange) {
    exchange.entry.Checked(true);
    for (MenuEntry* other : exchange.others) other->Enabled(false);
    exchange.port.RThreshold(static_cast<std::int16_t>(exchange.replyLength));
    OpenCommPort(exchange.port, exchange.screen);
}

void StopExchange(const Exchange& exchange) {
    CloseCommPort(exchange.port, exchange.screen);
    EndExchange(exchange);
}

void CollectReply(const Exchange& exchange) {
    exchange.port.Input(AppState.CommandBytes);
    CloseCommPort(exchange.port, exchange.screen);
}

void EndExchange(const Exchange& exchange) {
    exchange.entry.Checked(false);
    for (MenuEntry* other : exchange.others) other->Enabled(true);
}

}  // namespace orbkl4

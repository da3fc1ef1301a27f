#pragma once

#include "base/run_time_error.h"
#include "errors/error_handler.h"
#include "platform/events/event_gate.h"
#include "platform/windows/screen_registry.h"

#include <exception>
#include <string>
#include <string_view>

namespace orbkl4 {

/// Runs `body` as the procedure `source`; an error in it goes to `SimpleErrorHandler` under that
/// name and the name that `screen` gives, and no further.
template <typename Body, typename ScreenName>
void RunTrapped(std::string_view source, const Body& body, const ScreenName& screen) {
    const HandlerScope scope;
    try {
        body();
    } catch (const RuntimeError& error) {
        SimpleErrorHandler(static_cast<int>(error.Number()), source, screen(), error.what());
    } catch (const std::exception& error) {
        SimpleErrorHandler(internalErrorNumber, source, screen(), error.what());
    }
}

/// The trap of an event handler or procedure of a screen: errors bear the active screen's name.
template <typename Body>
void Trap(std::string_view source, const Body& body) {
    RunTrapped(source, body, ActiveScreenName);
}

/// The trap of a procedure whose errors bear a name of their own, a module's or a given screen's.
template <typename Body>
void TrapAs(std::string_view screen, std::string_view source, const Body& body) {
    RunTrapped(source, body, [screen] { return screen; });
}

}  // namespace orbkl4

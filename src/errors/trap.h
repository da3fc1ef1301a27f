#pragma once

#include "base/run_time_error.h"
#include "errors/error_handler.h"
#include "platform/events/event_gate.h"
#include "platform/windows/boxes.h"
#include "platform/windows/screen_registry.h"

#include <exception>
#include <string>
#include <string_view>

namespace orbkl4 {

/// Runs `body` as the procedure `source`; an error in it goes to `SimpleErrorHandler` with that
/// name and the screen's name that `screen` returns, and no further.
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

/// The trap of an event handler or procedure of a screen: reports errors under the active screen's
/// name.
template <typename Body>
void Trap(std::string_view source, const Body& body) {
    RunTrapped(source, body, ActiveScreenName);
}

/// As `Trap`, under the hourglass: an error sets the pointer back to normal before it is reported.
/// Otherwise the pointer is left to `body`, as the work may go on after it.
template <typename Body>
void TrapUnderHourglass(std::string_view source, const Body& body) {
    Trap(source, [&] {
        MousePointer(Pointer::Hourglass);
        try {
            body();
        } catch (...) {
            MousePointer(Pointer::Default);
            throw;
        }
    });
}

/// As `Trap`, under the name `screen`: that of a module or of a given screen.
template <typename Body>
void TrapAs(std::string_view screen, std::string_view source, const Body& body) {
    RunTrapped(source, body, [screen] { return screen; });
}

}  // namespace orbkl4

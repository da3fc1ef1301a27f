#include "link/communication.h"

#include "base/run_time_error.h"
#include "errors/trap.h"
#include "link/logic/requests.h"
#include "platform/events/mscomm.h"
#include "platform/system/clock.h"
#include "platform/windows/screen.h"
#include "state/app_state.h"

#include <limits>

namespace orbkl4 {

namespace {

std::int32_t CheckedDifference(std::int32_t later, std::int32_t earlier) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t difference = std::int64_t{later} - earlier;
    if (difference < Limits::min() || difference > Limits::max()) Raise(ErrorNumber::Overflow);
    return static_cast<std::int32_t>(difference);
}

}  // namespace

void OpenCommPort(MSComm& port, const Screen& screen) {
    TrapAs(screen.objectName().toStdString(), "OpenCommPort", [&] {
        if (port.PortOpen()) return;
        port.CommPort(AppState.CommPort);
        port.Settings(AppState.CommSettings);
        port.InputLen(0);
        port.PortOpen(true);
    });
}

void CloseCommPort(MSComm& port, const Screen& screen) {
    TrapAs(screen.objectName().toStdString(), "CloseCommPort", [&] {
        if (port.PortOpen()) port.PortOpen(false);
    });
}

void Send(MSComm& port, const Bytes& request) {
    AppState.CommandBytes = request;
    port.Output(AppState.CommandBytes);
}

void Send(MSComm& port, DeviceCommand command) {
    BuildRequest(AppState.CommandBytes, command);
    port.Output(AppState.CommandBytes);
}

void WaitMilliseconds(std::int32_t milliseconds) {
    const std::int32_t start = TickCount();
    while (CheckedDifference(TickCount(), start) < milliseconds) {
    }
}

}  // namespace orbkl4

#include "acquire/closed_port.h"

#include "base/run_time_error.h"
#include "link/communication.h"
#include "platform/events/mscomm.h"

namespace orbkl4 {

namespace {

template <typename PortCall>
void PassOverClosedPort(const PortCall& call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        if (error.Number() != ErrorNumber::PortClosed) throw;
    }
}

}  // namespace

void InputUnlessClosed(MSComm& port, Bytes& bytes) {
    PassOverClosedPort([&] { port.Input(bytes); });
}

void SendUnlessClosed(MSComm& port, DeviceCommand command) {
    PassOverClosedPort([&] { Send(port, command); });
}

}  // namespace orbkl4

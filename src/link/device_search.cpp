#include "link/device_search.h"

#include "link/communication.h"
#include "link/logic/baud_rates.h"
#include "link/logic/eeprom_address.h"
#include "link/logic/identity.h"
#include "link/logic/requests.h"
#include "link/logic/reset_writes.h"
#include "platform/events/do_events.h"
#include "platform/events/mscomm.h"
#include "platform/windows/boxes.h"
#include "state/app_state.h"

#include <exception>
#include <utility>

namespace orbkl4 {

namespace {

/// The result of `body`, false where it raises an error.
template <typename Body>
bool Succeeds(const Body& body) {
    try {
        return body();
    } catch (const std::exception&) {
        return false;
    }
}

void TakeOver(const DeviceIdentity& identity) {
    static_cast<SensorIdentity&>(AppState) = identity;
    static_cast<GainScales&>(AppState) = identity;
}

}  // namespace

DeviceSearch::DeviceSearch(MSComm& port, const Screen& screen, ShowStep showStep)
    : port_(port), screen_(screen), showStep_(std::move(showStep)) {}

bool DeviceSearch::PortExists(std::int16_t port) {
    return Succeeds([&] {
        DoEvents();
        showStep_("Testing Port " + std::to_string(port));
        port_.CommPort(port);
        port_.PortOpen(true);
        port_.PortOpen(false);
        return true;
    });
}

bool DeviceSearch::TestPortAtBaud(std::int16_t port, std::string_view baud) {
    const std::string speed(baud);
    const bool found = Succeeds([&] {
        DoEvents();
        showStep_("Testing Port " + std::to_string(port) + " at " + speed + " baud");
        OpenAt(port, baud);
        // Samples of a sensor in continuous mode would hide the reply.
        SendAndWait(WriteEepromRequest(eeprom::continuousMode, 0));
        DropInput();
        SendAndWait(Request(DeviceCommand::CmdFirmwareVersion));
        port_.Input(AppState.CommandBytes);
        port_.PortOpen(false);
        return IsFirmwareReply(AppState.CommandBytes);
    });
    foundPort_ = found ? port : std::int16_t{0};
    foundBaud_ = found ? speed : std::string();
    return found;
}

bool DeviceSearch::ReadDeviceIdentity() {
    return Succeeds([&] {
        port_.CommPort(AppState.CommPort);
        port_.Settings(AppState.CommSettings);
        OpenCommPort(port_, screen_);
        DropInput();
        for (const Bytes& request : IdentityRequests()) SendAndWait(request);
        port_.Input(AppState.CommandBytes);
        CloseCommPort(port_, screen_);
        const auto identity = ParseIdentity(AppState.CommandBytes);
        if (!identity) return false;
        TakeOver(*identity);
        for (const std::string_view warning : GainScaleWarnings(*identity)) ShowMessage(warning);
        return true;
    });
}

bool DeviceSearch::ResetDeviceSettings(std::int16_t port, std::string_view baud) {
    return Succeeds([&] {
        DoEvents();
        OpenAt(port, baud);
        for (const EepromWrite& write : resetWrites) {
            SendAndWait(WriteEepromRequest(write.address, write.word));
        }
        port_.PortOpen(false);
        return true;
    });
}

void DeviceSearch::OpenAt(std::int16_t port, std::string_view baud) {
    port_.CommPort(port);
    port_.Settings(LineSettingsAt(baud));
    port_.PortOpen(true);
}

void DeviceSearch::SendAndWait(const Bytes& request) {
    constexpr std::int32_t replyMilliseconds = 100;
    Send(port_, request);
    WaitMilliseconds(replyMilliseconds);
}

void DeviceSearch::DropInput() {
    Bytes dropped;
    port_.Input(dropped);
}

}  // namespace orbkl4

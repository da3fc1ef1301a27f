#include "link/eeprom_runs.h"

#include "link/checked_reply.h"
#include "link/communication.h"
#include "link/logic/requests.h"
#include "platform/events/timer.h"
#include "platform/windows/boxes.h"
#include "state/app_state.h"

#include <utility>

namespace orbkl4 {

namespace {

void AskForWord(MSComm& port) { Send(port, ReadEepromRequest(AppState.CurrentEEPROMAddress)); }

void TakeWord(const EepromReadRun& run) {
    constexpr std::size_t wordOffset = 1;
    const eeprom::Address address = AppState.CurrentEEPROMAddress;
    AppState.EEPROMValue = NumberOfWord(address, WordAt(AppState.CommandBytes, wordOffset));
    run.take(address, AppState.EEPROMValue);
}

template <typename Run>
void Pass(const Run& run) {
    if (run.pass) run.pass(AppState.CurrentEEPROMAddress);
}

template <typename Run>
void End(const Run& run) {
    run.timer.Enabled(false);
    CloseCommPort(run.port, run.screen);
    MousePointer(Pointer::Default);
    run.end();
}

}  // namespace

void StartEepromRead(const EepromReadRun& run) {
    OpenCommPort(run.port, run.screen);
    AppState.CurrentEEPROMAddress = run.first;
    AskForWord(run.port);
    run.timer.Enabled(true);
}

void EepromReadTick(const EepromReadRun& run) {
    switch (TakeCheckedReply(run.port, DeviceCommand::CmdReadEeprom)) {
        case ReplyVerdict::Good: TakeWord(run); break;
        case ReplyVerdict::Retry: AskForWord(run.port); return;
        case ReplyVerdict::Skip: break;
    }
    if (AppState.CurrentEEPROMAddress == run.last) {
        End(run);
        return;
    }
    Pass(run);
    AppState.CurrentEEPROMAddress =
        static_cast<eeprom::Address>(AppState.CurrentEEPROMAddress + run.step);
    AskForWord(run.port);
}

void StartEepromWrite(EepromWriteRun& run, std::vector<eeprom::Address> addresses) {
    OpenCommPort(run.port, run.screen);
    run.addresses = std::move(addresses);
    run.position = 0;
    AppState.CurrentEEPROMAddress = run.addresses.front();
    run.timer.Enabled(true);
}

void EepromWriteTick(EepromWriteRun& run) {
    const eeprom::Address address = AppState.CurrentEEPROMAddress;
    AppState.EEPROMWriteValue = WordOfNumber(address, run.number(address));
    Send(run.port, WriteEepromRequest(address, AppState.EEPROMWriteValue));
    if (run.position + 1 == run.addresses.size()) {
        End(run);
        return;
    }
    Pass(run);
    AppState.CurrentEEPROMAddress = run.addresses.at(++run.position);
}

}  // namespace orbkl4

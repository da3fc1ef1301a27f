#include "link/eeprom_read_run.h"

#include "link/communication.h"
#include "link/logic/requests.h"
#include "link/reply_question.h"
#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/windows/boxes.h"
#include "state/app_state.h"

namespace orbkl4 {

namespace {

void AskForWord(MSComm& port) { Send(port, ReadEepromRequest(AppState.CurrentEEPROMAddress)); }

void TakeWord(const EepromReadRun& run) {
    constexpr std::size_t wordOffset = 1;
    const double word = WordAt(AppState.CommandBytes, wordOffset);
    AppState.EEPROMValue = NumberOfWord(AppState.CurrentEEPROMAddress, word);
    run.take();
}

void End(const EepromReadRun& run) {
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
    switch (TakeReply(run.port, DeviceCommand::CmdReadEeprom)) {
        case ReplyVerdict::Good: TakeWord(run); break;
        case ReplyVerdict::Retry: AskForWord(run.port); return;
        case ReplyVerdict::Skip: break;
    }
    if (AppState.CurrentEEPROMAddress == run.last) {
        End(run);
        return;
    }
    if (run.pass) run.pass();
    AppState.CurrentEEPROMAddress =
        static_cast<eeprom::Address>(AppState.CurrentEEPROMAddress + run.step);
    AskForWord(run.port);
}

}  // namespace orbkl4

#include "link/eeprom_write.h"

#include "link/logic/requests.h"
#include "memory/logic/catalogue.h"
#include "platform/events/mscomm.h"
#include "state/app_state.h"

namespace orbkl4 {

void SendEepromWrite(MSComm& port, double number) {
    const eeprom::Address address = AppState.CurrentEEPROMAddress;
    AppState.EEPROMWriteValue = WordOfNumber(address, number);
    AppState.CommandBytes = WriteEepromRequest(address, AppState.EEPROMWriteValue);
    port.Output(AppState.CommandBytes);
}

}  // namespace orbkl4

#include "link/eeprom_write.h"

#include "link/communication.h"
#include "link/logic/eeprom_address.h"
#include "link/logic/requests.h"
#include "state/app_state.h"

namespace orbkl4 {

void SendEepromWrite(MSComm& port, double number) {
    const eeprom::Address address = AppState.CurrentEEPROMAddress;
    AppState.EEPROMWriteValue = WordOfNumber(address, number);
    Send(port, WriteEepromRequest(address, AppState.EEPROMWriteValue));
}

}  // namespace orbkl4

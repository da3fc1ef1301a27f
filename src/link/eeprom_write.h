#pragma once

namespace orbkl4 {

class MSComm;

/// Sends the write of `number` to `AppState.CurrentEEPROMAddress`, whose band says how a number
/// becomes a word; error 6 (overflow) for one that is no word there, errors of `MSComm::Output`.
void SendEepromWrite(MSComm& port, double number);

}  // namespace orbkl4

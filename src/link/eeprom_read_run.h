#pragma once

#include "link/logic/eeprom_address.h"

#include <functional>

namespace orbkl4 {

class MSComm;
class Screen;
class Timer;

/// A run of EEPROM reads on a screen, one word per tick of its timer. The run stands at
/// `AppState.CurrentEEPROMAddress`, and `AppState.EEPROMValue` holds the number just read.
struct EepromReadRun {
    Screen& screen;
    MSComm& port;
    Timer& timer;
    eeprom::Address first, last;
    eeprom::Address step = 2;  ///< a whole number of steps leads from `first` to `last`

    /// Shows `AppState.EEPROMValue`, signed by the band of its address. An error that it raises
    /// leaves the run where it stands, with nothing asked anew.
    std::function<void()> take;

    /// Is told that the run goes on behind `AppState.CurrentEEPROMAddress`, also where that was
    /// skipped; may be empty.
    std::function<void()> pass = nullptr;

    /// Completes the run, once its timer is off, its port closed and the mouse pointer restored.
    std::function<void()> end;
};

/// Opens the port, asks for the first word and starts the timer; errors of the port go on.
void StartEepromRead(const EepromReadRun& run);

/// One tick of the timer. Takes the reply; a faulty one is put to the user, who has the same
/// address asked again or skips it. Then asks for the next word, or ends the run behind the last.
/// Error 9 (subscript out of range) where nothing has come: the run waits for one more tick.
void EepromReadTick(const EepromReadRun& run);

}  // namespace orbkl4

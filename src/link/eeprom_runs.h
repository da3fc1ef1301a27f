#pragma once

#include "link/logic/eeprom_address.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace orbkl4 {

class MSComm;
class Screen;
class Timer;

/// Reads EEPROM words on a screen, one at each tick of its timer. `AppState.CurrentEEPROMAddress`
/// is the address asked for, `AppState.EEPROMValue` the number last read.
struct EepromReadRun {
    Screen& screen;
    MSComm& port;
    Timer& timer;
    eeprom::Address first, last;
    eeprom::Address step = 2;  ///< a whole number of steps leads from `first` to `last`

    /// Called with each number read, signed by its address; an error in it leaves the run at that
    /// address, with nothing sent.
    std::function<void(eeprom::Address address, double number)> take;

    /// Called after each word but the last, also after one that was skipped; may be empty.
    std::function<void(eeprom::Address address)> pass = nullptr;

    /// Called at the end, when the timer is off, the port closed and the mouse pointer normal.
    std::function<void()> end;
};

/// Opens the port, asks for the first word and starts the timer; errors of `Send`.
void StartEepromRead(const EepromReadRun& run);

/// One tick: takes the reply, asks the user about a faulty one (Retry sends the request again,
/// Cancel skips the word), then asks for the next word or ends the run. Error 9 (subscript out of
/// range) where nothing has come; the next tick looks again.
void EepromReadTick(const EepromReadRun& run);

/// Writes EEPROM words on a screen, one at each tick of its timer, and takes no replies.
/// `AppState.CurrentEEPROMAddress` is the address of the next write, `AppState.EEPROMWriteValue`
/// the word last written.
struct EepromWriteRun {
    Screen& screen;
    MSComm& port;
    Timer& timer;

    /// Called before each write; gives the number to write.
    std::function<double(eeprom::Address address)> number;

    /// Called after each word but the last; may be empty.
    std::function<void(eeprom::Address address)> pass = nullptr;

    /// Called at the end, as that of `EepromReadRun`.
    std::function<void()> end;

    std::vector<eeprom::Address> addresses{};  ///< to write, in this order
    std::size_t position = 0;                  ///< of the next write in `addresses`
};

/// Opens the port and starts the timer, at whose first tick the first of `addresses` (at least one)
/// is written.
void StartEepromWrite(EepromWriteRun& run, std::vector<eeprom::Address> addresses);

/// One tick: writes a word, and ends the run after the last. Error 6 (overflow) for a number that
/// doesn't fit a word, errors of `Send`; the next tick tries again.
void EepromWriteTick(EepromWriteRun& run);

}  // namespace orbkl4

#pragma once

#include "link/logic/reset_writes.h"

#include <span>

namespace orbkl4 {

class MSComm;

/// Writes words to the sensor's EEPROM through the open `port`, 250 ms apart, blocking the thread.
/// Errors of `Send`; error 6 (overflow) for a word outside 0 to 65535.
void WriteWords(MSComm& port, std::span<const EepromWrite> writes);

}  // namespace orbkl4

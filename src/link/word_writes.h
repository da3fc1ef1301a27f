#pragma once

#include "link/logic/reset_writes.h"

#include <span>

namespace orbkl4 {

class MSComm;

/// Writes one word after another to the sensor's EEPROM by the open `port`, 250 ms apart; holds the
/// thread meanwhile. Errors of the port go on, as does error 6 (overflow) for a word that is none.
void WriteWords(MSComm& port, std::span<const EepromWrite> writes);

}  // namespace orbkl4

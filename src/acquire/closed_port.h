#pragma once

#include "base/bytes.h"

namespace orbkl4 {

class MSComm;

// For handlers that a reply may reach on its way out, after its port was closed: each call passes
// over error 8018 (operation on a closed port) by itself, and the handler goes on behind it.

/// `port.Input(bytes)`; on a closed port `bytes` stay as they are.
void InputUnlessClosed(MSComm& port, Bytes& bytes);

/// `port.Output(bytes)`; on a closed port they go nowhere.
void OutputUnlessClosed(MSComm& port, const Bytes& bytes);

}  // namespace orbkl4

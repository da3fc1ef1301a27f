#pragma once

#include "settings/logic/time_tick_table.h"

namespace orbkl4 {

/// Reads the Time Tick Table in the folder of the logs into `rows`, which change only where the
/// result is `Loaded`.
TickTableVerdict LoadTimeTickTable(TickTableRows& rows);

}  // namespace orbkl4

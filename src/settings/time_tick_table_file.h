#pragma once

#include "settings/logic/time_tick_table.h"

namespace orbkl4 {

/// Reads the Time Tick Table that lies with the logs into `rows`, which stay as they were unless
/// they are `Loaded`.
TickTableVerdict LoadTimeTickTable(TickTableRows& rows);

}  // namespace orbkl4

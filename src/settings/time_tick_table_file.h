#pragma once

#include "settings/logic/time_tick_table.h"

#include <QString>

namespace orbkl4 {

/// Where the Time Tick Table is looked for: in the folder of the logs.
QString TimeTickTablePath();

/// Reads the Time Tick Table into `rows`, which change only where the
/// result is `Loaded`.
TickTableVerdict LoadTimeTickTable(TickTableRows& rows);

}  // namespace orbkl4

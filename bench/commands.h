#pragma once

#include "bench/table.h"

namespace orbkl4::bench {

/// Times whole commands of `orb-kl4`, from start to end: one that asks a little, one that searches
/// 16 silent lines, one that saves the memory.
void MeasureCommands(Table& table);

}  // namespace orbkl4::bench

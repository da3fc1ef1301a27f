#pragma once

#include "bench/table.h"

namespace orbkl4::bench {

/// Compares `orb-kl4 record` with the raw loop on the same line: rate and processor time, at each
/// speed and as fast as the sensor answers.
void MeasureRecord(Table& table);

}  // namespace orbkl4::bench

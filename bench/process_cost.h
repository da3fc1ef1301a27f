#pragma once

#include <QStringList>

#include <string>

namespace orbkl4::bench {

/// What a program with a window costs until it waits for its user.
struct ProcessCost {
    double startSeconds = 0;      ///< from its start until it has become idle
    double processorSeconds = 0;  ///< of its main thread until then, whatever else the machine did
    double residentBytes = 0;     ///< when idle
};

/// Processor seconds that the main thread of `process` has used; 0 where there is no such process.
double CpuSecondsOf(qint64 process);

/// Starts `program`, waits until it is idle, and ends it.
ProcessCost CostOf(const std::string& program, const QStringList& arguments);

}  // namespace orbkl4::bench

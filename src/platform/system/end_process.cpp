#include "platform/system/end_process.h"

#include <cstdlib>

namespace orbkl4 {

void EndProcess() { std::_Exit(EXIT_SUCCESS); }

}  // namespace orbkl4

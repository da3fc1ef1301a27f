#pragma once

#include "base/run_time_error.h"

namespace orbkl4 {

/// The number of the error that `action` raises, 0 where it raises none.
ErrorNumber ErrorOf(auto&& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return ErrorNumber{0};
}

}  // namespace orbkl4

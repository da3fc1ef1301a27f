#pragma once

#include <cerrno>
#include <string>
#include <system_error>

namespace orbkl4sim {

/// Throws std::system_error with the text `what` for the error in errno.
[[noreturn]] inline void ThrowErrno(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace orbkl4sim

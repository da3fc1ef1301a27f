#include "platform/system/system_error.h"

#include "base/run_time_error.h"

#include <cerrno>
#include <system_error>

namespace orbkl4 {

namespace {

ErrorNumber NumberOf(int error) {
    switch (error) {
        case ENOSPC:
        case EDQUOT:
        case EFBIG: return ErrorNumber::DiskFull;
        case ENOENT:
        case ENOTDIR:
        case EISDIR:
        case EEXIST: return ErrorNumber::PathNotFound;
        case EACCES:
        case EPERM:
        case EROFS: return ErrorNumber::PermissionDenied;
        default: return ErrorNumber::DeviceIo;
    }
}

}  // namespace

void RaiseSystemError(int error, const std::string& subject) {
    const ErrorNumber number = NumberOf(error);
    const std::string description = number == ErrorNumber::DeviceIo
                                        ? std::generic_category().message(error)
                                        : UsualDescription(number);
    Raise(number, subject.empty() ? description : description + ": " + subject);
}

}  // namespace orbkl4

#include "base/run_time_error.h"

namespace orbkl4 {

const char* UsualDescription(ErrorNumber number) {
    switch (number) {
        case ErrorNumber::Overflow: return "Overflow";
        case ErrorNumber::SubscriptOutOfRange: return "Subscript out of range";
        case ErrorNumber::DivisionByZero: return "Division by zero";
        case ErrorNumber::TypeMismatch: return "Type mismatch";
        case ErrorNumber::FileNotFound: return "File not found";
        case ErrorNumber::FileAlreadyOpen: return "File already open";
        case ErrorNumber::DeviceIo: return "Device I/O error";
        case ErrorNumber::DiskFull: return "Disk full";
        case ErrorNumber::PermissionDenied: return "Permission denied";
        case ErrorNumber::PathNotFound: return "Path not found";
        case ErrorNumber::InvalidPropertyValue: return "Invalid property value";
        case ErrorNumber::InvalidPortNumber: return "Invalid port number";
        case ErrorNumber::PortAlreadyOpen: return "Port already open";
        case ErrorNumber::DeviceGone: return "The device is not open";
        case ErrorNumber::PortClosed: return "Operation valid only when the port is open";
        case ErrorNumber::DialogCancelled: return "Cancel was selected";
    }
    return "Application-defined error";
}

void Raise(ErrorNumber number) { throw RuntimeError(number, UsualDescription(number)); }

void Raise(ErrorNumber number, const std::string& description) {
    throw RuntimeError(number, description);
}

}  // namespace orbkl4

#include "link/logic/requests.h"

#include "base/run_time_error.h"
#include "link/logic/words.h"

namespace orbkl4 {

namespace {

std::uint8_t AddressByte(int address) {
    if (address < 0 || address > 255) Raise(ErrorNumber::Overflow);
    return static_cast<std::uint8_t>(address);
}

}  // namespace

Bytes Request(DeviceCommand command, std::initializer_list<std::uint8_t> parameters) {
    Bytes request;
    BuildRequest(request, command, parameters);
    return request;
}

void BuildRequest(Bytes& request, DeviceCommand command,
                  std::initializer_list<std::uint8_t> parameters) {
    const CommandFormat& format = FormatOf(command);
    if (parameters.size() != format.parameters) Raise(ErrorNumber::SubscriptOutOfRange);
    request.assign(1, ByteOf(command));
    request.insert(request.end(), format.fixed.begin(), format.fixed.end());
    request.insert(request.end(), parameters);
    request.insert(request.end(), format.closing.begin(), format.closing.end());
}

Bytes ReadEepromRequest(int address) {
    return Request(DeviceCommand::CmdReadEeprom, {AddressByte(address)});
}

Bytes WriteEepromRequest(int address, double word) {
    return Request(DeviceCommand::CmdWriteEeprom,
                   {AddressByte(address), ValueToMSB(word), ValueToLSB(word)});
}

}  // namespace orbkl4

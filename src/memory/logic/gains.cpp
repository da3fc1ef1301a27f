#include "memory/logic/gains.h"

#include "link/logic/requests.h"
#include "link/logic/words.h"

namespace orbkl4 {

Bytes WriteGainsRequest(const SystemGains& gains) {
    return Request(DeviceCommand::CmdWriteSystemGains,
                   {ValueToMSB(gains.accelerometer), ValueToLSB(gains.accelerometer),
                    ValueToMSB(gains.magnetometer), ValueToLSB(gains.magnetometer),
                    ValueToMSB(gains.biasTracking), ValueToLSB(gains.biasTracking)});
}

SystemGains GainsIn(const Bytes& reply) {
    return {WordAt(reply, 1), WordAt(reply, 3), WordAt(reply, 5)};
}

}  // namespace orbkl4

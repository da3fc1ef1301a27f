#include "calibrate/logic/tare.h"

#include "link/logic/frame_check.h"

namespace orbkl4 {

bool IsTareReply(const Bytes& reply, DeviceCommand command) {
    return !reply.empty() && HasFrames(reply, command) &&
           UnwrappedChecksumHolds(reply, 0, reply.size());
}

}  // namespace orbkl4

#include "link/checked_reply.h"

#include "link/logic/fault_texts.h"
#include "link/logic/frame_check.h"
#include "platform/events/mscomm.h"
#include "platform/windows/boxes.h"
#include "state/app_state.h"

namespace orbkl4 {

ReplyVerdict TakeCheckedReply(MSComm& port, DeviceCommand command) {
    port.Input(AppState.CommandBytes);
    const ReplyFault fault = CheckReply(AppState.CommandBytes, command);
    if (fault == ReplyFault::None) return ReplyVerdict::Good;
    const Answer answer = AskRetryCancel(RetryText(command, fault));
    return answer == Answer::Retry ? ReplyVerdict::Retry : ReplyVerdict::Skip;
}

}  // namespace orbkl4

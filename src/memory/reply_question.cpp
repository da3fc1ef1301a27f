#include "memory/reply_question.h"

#include "frame/logic/app_state.h"
#include "link/logic/frame_check.h"
#include "memory/logic/fault_texts.h"
#include "platform/boxes.h"
#include "platform/mscomm.h"

namespace orbkl4 {

ReplyVerdict TakeReply(MSComm& port, DeviceCommand command) {
    port.Input(AppState.CommandBytes);
    const ReplyFault fault = CheckReply(AppState.CommandBytes, command);
    if (fault == ReplyFault::None) return ReplyVerdict::Good;
    const Answer answer = AskRetryCancel(RetryText(command, fault));
    return answer == Answer::Retry ? ReplyVerdict::Retry : ReplyVerdict::Skip;
}

}  // namespace orbkl4

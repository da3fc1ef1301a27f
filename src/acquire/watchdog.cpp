#include "acquire/watchdog.h"

#include "acquire/logic/sampling.h"
#include "platform/events/timer.h"
#include "platform/system/clock.h"

#include <QWidget>

namespace orbkl4 {

void NoteReply(QWidget& lblWarning) {
    SampleState.LastReplyTime = MonotonicSeconds();
    lblWarning.setVisible(false);
}

void WatchdogTick(Timer& timer, QWidget& lblWarning, bool checked,
                  const std::function<void()>& click) {
    const bool overdue = ReplyOverdue(SampleState, MonotonicSeconds());
    if (!overdue) {
        lblWarning.setVisible(false);
        return;
    }
    timer.Enabled(false);
    lblWarning.setVisible(true);
    SampleState.Restarting = true;
    if (checked) click();
    click();
    SampleState.Restarting = false;
    ++SampleState.Restarts;
}

}  // namespace orbkl4

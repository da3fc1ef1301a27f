#pragma once

#include <functional>

class QWidget;

namespace orbkl4 {

class Timer;

/// Notes that a reply has come, good or not: it keeps the watchdog quiet, and hides `lblWarning`.
void NoteReply(QWidget& lblWarning);

/// The tick of a channel's watchdog `timer`. Where no reply has come for more than one whole
/// second, it stops the timer, shows `lblWarning` and runs `click`, the trapped click procedure of
/// the channel's entry: twice, to stop and to start, where the entry is `checked`, else once.
/// Otherwise it hides `lblWarning`.
void WatchdogTick(Timer& timer, QWidget& lblWarning, bool checked,
                  const std::function<void()>& click);

}  // namespace orbkl4

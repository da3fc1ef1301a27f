#pragma once

#include "acquire/channels.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

class QWidget;

namespace orbkl4 {

class CWButton;
class MenuEntry;
class Timer;

/// What a screen does for its channels; empty where it does nothing.
struct ChannelDisplay {
    std::function<void()> show;     ///< puts `SampleState` on the screen
    std::function<void()> atStart;  ///< right after the entry has been checked
    std::function<void()> atStop;   ///< when the channel has stopped
};

/// A channel with the controls of its screen, looked up once. Null is none.
struct LiveChannel {
    const SamplingChannel& row;
    Screen& screen;
    MenuEntry& entry;
    MSComm& port;
    Timer& timer;
    CWButton& led;
    QWidget& lblWarning;
    MenuEntry* mnuSave;
    MenuEntry* otherEntry;
    QWidget* otherFrame;
    QWidget* ownFrame;
    ChannelDisplay display;
    std::string clickName;  ///< names of the handlers in the error log
    std::string onCommName;
    std::string timerName;
};

/// The channel `row` on `screen`, which has all its controls but for the port and the watchdog
/// timer, which are made here.
LiveChannel BindChannel(const SamplingChannel& row, Screen& screen, ChannelDisplay display);

/// Runs the handlers below on the events of the channel's controls, each in its trap; `channel`
/// must stay where it is.
void ConnectChannel(LiveChannel& channel);

/// Starts sampling: opens the port, starts watchdog and time base, sends the first request.
void StartChannel(LiveChannel& channel);

/// Stops sampling.
void StopChannel(LiveChannel& channel);

/// The click procedure of the channel's entry: starts the channel, or stops it if it runs.
void ClickChannel(LiveChannel& channel);

/// Handles one reply, however bad: checks, decodes, shows and saves it and sends the next request.
void ReceiveReply(LiveChannel& channel);

/// Turns saving to a data file of the kind text `kind` on or off; a cancelled dialog leaves it off
/// unless a file was chosen on `screen` before.
void ToggleSave(const Screen& screen, std::string_view kind);

/// Leaves `screen`, whether it samples or not.
void ReturnToMain(Screen& screen);

/// Has the sensor capture its gyro bias: between the samples of the one of `channels` that runs,
/// else over the first one's port, opened for it. Holds the thread for 200 ms while sampling.
void CaptureGyroBias(std::span<LiveChannel> channels);

}  // namespace orbkl4

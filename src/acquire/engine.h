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

/// A channel with the controls of its screen, looked up once.
struct LiveChannel {
    const SamplingChannel& row;
    const SamplePacket& packet;
    Screen& screen;
    MenuEntry& entry;
    MenuEntry& mnuSave;
    MSComm& port;
    Timer& timer;
    CWButton& led;
    QWidget& lblWarning;
    MenuEntry* otherEntry;  ///< null where there is none, as `otherFrame`
    QWidget* otherFrame;
    std::function<void()> display;  ///< puts `SampleState` on the screen
    std::function<void()> clear;    ///< empties the screen
    std::string clickName;          ///< names of the handlers in the error log
    std::string onCommName;
    std::string timerName;
};

/// The channel `row` on `screen`, which has all its controls.
LiveChannel BindChannel(const SamplingChannel& row, Screen& screen, std::function<void()> display,
                        std::function<void()> clear);

/// Starts sampling: opens the port, starts watchdog and time base, sends the first request.
void StartChannel(LiveChannel& channel);

/// Stops sampling and empties the screen.
void StopChannel(LiveChannel& channel);

/// The click procedure of the channel's entry: starts it, or stops it where it runs.
void ClickChannel(LiveChannel& channel);

/// Handles one reply, however bad: checks, decodes, shows and saves it and sends the next request.
void ReceiveReply(LiveChannel& channel);

/// Turns saving to a data file of the kind text `kind` on or off; a cancelled dialog leaves it off
/// unless a file was chosen on `screen` before.
void ToggleSave(const Screen& screen, std::string_view kind);

/// Leaves `screen`, whether it samples or not.
void ReturnToMain(Screen& screen);

/// Has the sensor capture its gyro bias: in between the samples of the one of `channels` that runs,
/// else by a port that is opened for it. Holds the thread while sampling, for 200 ms.
void CaptureGyroBias(std::span<LiveChannel> channels);

}  // namespace orbkl4

#include "acquire/engine.h"

#include "acquire/data_files.h"
#include "acquire/logic/sampling.h"
#include "acquire/watchdog.h"
#include "errors/trap.h"
#include "link/communication.h"
#include "link/logic/frame_check.h"
#include "platform/controls/cw_button.h"
#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/system/clock.h"
#include "platform/windows/boxes.h"
#include "platform/windows/common_dialog.h"
#include "platform/windows/menu_entry.h"
#include "platform/windows/screen.h"
#include "state/app_state.h"

#include <algorithm>
#include <utility>

namespace orbkl4 {

namespace {

/// The control `name` of `screen`; null where the name is empty.
template <typename Control>
Control* Find(const Screen& screen, const char* name) {
    const QLatin1String wanted(name);
    return wanted.isEmpty() ? nullptr : screen.findChild<Control*>(wanted);
}

void Run(const std::function<void()>& step) {
    if (step) step();
}

void EnableOthers(const LiveChannel& channel, bool enabled) {
    if (channel.mnuSave != nullptr) channel.mnuSave->Enabled(enabled);
    if (channel.otherEntry != nullptr) channel.otherEntry->Enabled(enabled);
    if (channel.otherFrame != nullptr) channel.otherFrame->setEnabled(enabled);
}

void InputReply(LiveChannel& channel) {
    const ChannelExtras& extras = channel.row.extras;
    if (extras.input != nullptr) {
        extras.input(channel.port, AppState.CommandBytes);
    } else {
        channel.port.Input(AppState.CommandBytes);
    }
    if (extras.afterInput != nullptr) extras.afterInput(channel.screen);
}

void RequestNext(LiveChannel& channel) {
    const auto send = channel.row.extras.send;
    if (send != nullptr) {
        send(channel.port, channel.row.Command());
    } else {
        Send(channel.port, channel.row.Command());
    }
}

/// While saving, what isn't written isn't shown.
void SaveOrShow(const LiveChannel& channel) {
    const RowWriter* const write = channel.row.write;
    if (!SampleState.SaveActive || write == nullptr) {
        channel.display.show();
        return;
    }
    const Side side = channel.row.Packet().side;
    if (!TakeThrottleStep(SampleState, SampleState, side)) return;
    channel.display.show();
    (*write)(side, SampleState.SampleTimeText);
    MarkSampleWritten(SampleState, SampleState, side);
}

void HandleReply(LiveChannel& channel) {
    NoteReply(channel.lblWarning);
    InputReply(channel);
    if (!HasFrames(AppState.CommandBytes, channel.row.Command())) {
        ++SampleState.BadReplies;
        const auto beforeResend = channel.row.extras.beforeResend;
        if (beforeResend != nullptr) beforeResend(channel.port);
        RequestNext(channel);
        return;
    }
    StampSampleTime(SampleState, PerformanceCounter(), AppState.CounterFrequency);
    if (!channel.row.decode()) {
        ++SampleState.BadReplies;
        RequestNext(channel);
        channel.led.Value(false);
        return;
    }
    ++SampleState.Samples;
    channel.led.Value(true);
    SaveOrShow(channel);
    RequestNext(channel);
}

/// A restart by the watchdog goes on counting.
void TallyStart() {
    if (!SampleState.Restarting) static_cast<RunTally&>(SampleState) = {};
    SampleState.Running = true;
}

/// Sends the command between two requests, with `OnComm` off meanwhile, and discards its reply.
void CaptureWhileSampling(LiveChannel& channel) {
    constexpr std::int32_t milliseconds = 100;
    channel.port.RThreshold(0);
    WaitMilliseconds(milliseconds);
    Send(channel.port, DeviceCommand::CmdCaptureGyroBias);
    WaitMilliseconds(milliseconds);
    channel.port.Input(AppState.CommandBytes);
    channel.port.RThreshold(static_cast<std::int16_t>(channel.row.Packet().length));
    Send(channel.port, channel.row.Command());
}

}  // namespace

LiveChannel BindChannel(const SamplingChannel& row, Screen& screen, ChannelDisplay display) {
    constexpr int watchdogMilliseconds = 1000;
    return {.row = row,
            .screen = screen,
            .entry = screen.Menu(row.entry),
            .port = *new MSComm(&screen, row.port),
            .timer = *new Timer(&screen, row.timer, watchdogMilliseconds),
            .led = *Find<CWButton>(screen, row.led),
            .lblWarning = *Find<QWidget>(screen, "lblWarning"),
            .mnuSave = row.write != nullptr ? &screen.Menu("mnuSave") : nullptr,
            .otherEntry = Find<MenuEntry>(screen, row.otherEntry),
            .otherFrame = Find<QWidget>(screen, row.otherFrame),
            .ownFrame = Find<QWidget>(screen, row.ownFrame),
            .display = std::move(display),
            .clickName = std::string(row.entry) + "_Click",
            .onCommName = std::string(row.port) + "_OnComm",
            .timerName = std::string(row.timer) + "_Timer"};
}

void ConnectChannel(LiveChannel& channel) {
    const auto click = [&channel] { Trap(channel.clickName, [&] { ClickChannel(channel); }); };
    QObject::connect(&channel.entry, &MenuEntry::Click, &channel.screen, click);
    QObject::connect(&channel.port, &MSComm::OnComm, &channel.screen,
                     [&channel] { Trap(channel.onCommName, [&] { ReceiveReply(channel); }); });
    QObject::connect(&channel.timer, &Timer::Tick, &channel.screen, [&channel, click] {
        Trap(channel.timerName, [&] {
            WatchdogTick(channel.timer, channel.lblWarning, channel.entry.Checked(), click);
        });
    });
}

void StartChannel(LiveChannel& channel) {
    channel.entry.Checked(true);
    TallyStart();
    Run(channel.display.atStart);
    EnableOthers(channel, false);
    channel.led.Value(false);
    channel.port.RThreshold(static_cast<std::int16_t>(channel.row.Packet().length));
    OpenCommPort(channel.port, channel.screen);
    channel.timer.Enabled(true);
    StartSampleTime(SampleState, PerformanceCounter());
    if (channel.ownFrame != nullptr) channel.ownFrame->setEnabled(true);
    Send(channel.port, channel.row.Command());
}

void StopChannel(LiveChannel& channel) {
    SampleState.Running = false;
    channel.timer.Enabled(false);
    CloseCommPort(channel.port, channel.screen);
    if (channel.ownFrame != nullptr) channel.ownFrame->setEnabled(false);
    channel.entry.Checked(false);
    EnableOthers(channel, true);
    channel.led.Value(false);
    Run(channel.display.atStop);
    SampleState.LastWrittenTicks = 0;
}

void ClickChannel(LiveChannel& channel) {
    if (channel.entry.Checked()) {
        StopChannel(channel);
    } else {
        StartChannel(channel);
    }
}

void ReceiveReply(LiveChannel& channel) {
    try {
        HandleReply(channel);
    } catch (...) {
        if (channel.row.extras.onError != nullptr) channel.row.extras.onError(channel.screen);
        throw;
    }
}

void ToggleSave(const Screen& screen, std::string_view kind) {
    MenuEntry& mnuSave = screen.Menu("mnuSave");
    if (mnuSave.Checked()) {
        mnuSave.Checked(false);
        SampleState.SaveActive = false;
    } else {
        mnuSave.Checked(true);
        CreateDataFile(screen, kind);
        SampleState.SaveActive = true;
    }
    if (Find<CommonDialog>(screen, "CommonDialog1")->FileName().isEmpty()) {
        mnuSave.Checked(false);
        SampleState.SaveActive = false;
    }
}

void ReturnToMain(Screen& screen) {
    MousePointer(Pointer::Default);
    SampleState.SaveActive = false;
    SampleState.Running = false;
    SampleState.LastWrittenTicks = 0;
    screen.Unload();
}

void CaptureGyroBias(std::span<LiveChannel> channels) {
    const auto running = std::ranges::find_if(
        channels, [](const LiveChannel& channel) { return channel.entry.Checked(); });
    if (running != channels.end()) {
        CaptureWhileSampling(*running);
        return;
    }
    LiveChannel& first = channels.front();
    OpenCommPort(first.port, first.screen);
    Send(first.port, DeviceCommand::CmdCaptureGyroBias);
    CloseCommPort(first.port, first.screen);
}

}  // namespace orbkl4

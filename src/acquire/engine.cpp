#include "acquire/engine.h"

#include "acquire/data_files.h"
#include "acquire/logic/sampling.h"
#include "acquire/watchdog.h"
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

/// Puts the one byte of `command` in `CommandBytes`.
const Bytes& OneByte(DeviceCommand command) {
    AppState.CommandBytes.assign(1, ByteOf(command));
    return AppState.CommandBytes;
}

void EnableOthers(const LiveChannel& channel, bool enabled) {
    channel.mnuSave.Enabled(enabled);
    if (channel.otherEntry != nullptr) channel.otherEntry->Enabled(enabled);
    if (channel.otherFrame != nullptr) channel.otherFrame->setEnabled(enabled);
}

void TakeReply(LiveChannel& channel) {
    const ChannelExtras& extras = channel.row.extras;
    if (extras.input != nullptr) {
        extras.input(channel.port, AppState.CommandBytes);
    } else {
        channel.port.Input(AppState.CommandBytes);
    }
    if (extras.afterInput != nullptr) extras.afterInput(channel.screen);
}

void RequestNext(LiveChannel& channel) {
    const Bytes& request = OneByte(channel.row.command);
    if (channel.row.extras.output != nullptr) {
        channel.row.extras.output(channel.port, request);
    } else {
        channel.port.Output(request);
    }
}

/// While saving, what isn't written isn't shown.
void SaveOrShow(const LiveChannel& channel) {
    if (!SampleState.SaveActive) {
        channel.display();
        return;
    }
    const Side side = channel.packet.side;
    if (!TakeThrottleStep(side)) return;
    channel.display();
    channel.row.write(side, SampleState.SampleTimeText);
    MarkSampleWritten(side);
}

void HandleReply(LiveChannel& channel) {
    NoteReply(channel.lblWarning);
    TakeReply(channel);
    if (!HasFrames(AppState.CommandBytes, channel.row.command)) {
        const auto beforeResend = channel.row.extras.beforeResend;
        if (beforeResend != nullptr) beforeResend(channel.port);
        RequestNext(channel);
        return;
    }
    StampSampleTime(PerformanceCounter());
    if (!channel.row.decode()) {
        RequestNext(channel);
        channel.led.Value(false);
        return;
    }
    channel.led.Value(true);
    SaveOrShow(channel);
    RequestNext(channel);
}

/// Lets the command in between two requests, with replies muted meanwhile; what comes is dropped.
void CaptureWhileSampling(LiveChannel& channel) {
    constexpr std::int32_t milliseconds = 100;
    channel.port.RThreshold(0);
    WaitMilliseconds(milliseconds);
    channel.port.Output(OneByte(DeviceCommand::CmdCaptureGyroBias));
    WaitMilliseconds(milliseconds);
    channel.port.Input(AppState.CommandBytes);
    channel.port.RThreshold(static_cast<std::int16_t>(channel.packet.length));
    channel.port.Output(OneByte(channel.row.command));
}

}  // namespace

LiveChannel BindChannel(const SamplingChannel& row, Screen& screen, std::function<void()> display,
                        std::function<void()> clear) {
    return {.row = row,
            .packet = PacketOf(row.command),
            .screen = screen,
            .entry = screen.Menu(row.entry),
            .mnuSave = screen.Menu("mnuSave"),
            .port = *Find<MSComm>(screen, row.port),
            .timer = *Find<Timer>(screen, row.timer),
            .led = *Find<CWButton>(screen, row.led),
            .lblWarning = *Find<QWidget>(screen, "lblWarning"),
            .otherEntry = Find<MenuEntry>(screen, row.otherEntry),
            .otherFrame = Find<QWidget>(screen, row.otherFrame),
            .display = std::move(display),
            .clear = std::move(clear),
            .clickName = std::string(row.entry) + "_Click",
            .onCommName = std::string(row.port) + "_OnComm",
            .timerName = std::string(row.timer) + "_Timer"};
}

void StartChannel(LiveChannel& channel) {
    channel.entry.Checked(true);
    EnableOthers(channel, false);
    channel.led.Value(false);
    channel.port.RThreshold(static_cast<std::int16_t>(channel.packet.length));
    OpenCommPort(channel.port, channel.screen);
    channel.timer.Enabled(true);
    StartSampleTime(PerformanceCounter());
    channel.port.Output(OneByte(channel.row.command));
}

void StopChannel(LiveChannel& channel) {
    channel.timer.Enabled(false);
    CloseCommPort(channel.port, channel.screen);
    channel.entry.Checked(false);
    EnableOthers(channel, true);
    channel.led.Value(false);
    channel.clear();
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
    first.port.Output(OneByte(DeviceCommand::CmdCaptureGyroBias));
    CloseCommPort(first.port, first.screen);
}

}  // namespace orbkl4

#include "bench/workbench.h"

#include "acquire/channels.h"
#include "all_screens.h"
#include "main_window/start_up.h"
#include "platform/events/mscomm.h"
#include "platform/system/folders.h"
#include "platform/windows/menu_entry.h"
#include "platform/windows/screen.h"
#include "platform/windows/screen_registry.h"
#include "state/app_state.h"
#include "state/sample_state.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace orbkl4::bench {

namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

MSComm& PortOf(const Screen& screen, const SamplingChannel& channel) {
    return *screen.findChild<MSComm*>(QLatin1String(channel.port));
}

void Run(double seconds) {
    QEventLoop loop;
    QTimer::singleShot(static_cast<int>(seconds * 1000), &loop, &QEventLoop::quit);
    loop.exec();
}

/// Leaves `screen`, and the line quiet: a reply still on its way would be taken for that to the
/// next loop's first request, and from then on one request would always be ahead.
void Leave(Screen& screen) {
    constexpr double longerThanAnyReply = 0.05;
    screen.Unload();
    Run(longerThanAnyReply);
}

/// The words of the calculation cycle at their least: a ten-millionth of a second.
void SetFastCycle(orbkl4sim::Simulator& sensor) {
    for (const int address : {238, 240, 242, 246}) sensor.SetWord(address, 1);
    sensor.PowerCycle();
}

}  // namespace

Workbench::Workbench(const orbkl4sim::SimulatorOptions& options, bool fastCycle)
    : sensor_(options) {
    qputenv("XDG_CONFIG_HOME", folder_.filePath("config").toLocal8Bit());
    ProgramFolder(folder_.path());
    RegisterAllScreens();
    PlaceScreensIn(&frame_);
    StartUp();
    sensor_.Start();
    if (fastCycle) SetFastCycle(sensor_);
    sensor_.LinkAsPort(1);
    if (options.baud > 0) AppState.CommSettings = std::to_string(options.baud) + ",n,8,1";
    constexpr double plausibleGainScale = 3277;
    AppState.GyroGainScale = AppState.AccGainScale = AppState.MagGainScale = plausibleGainScale;
    AppState.DataFileName = DataFile();
    ShowScreen("Main");
    frame_.show();
}

Workbench::~Workbench() { UnloadAllScreens(); }

Screen& Workbench::Start(const SamplingChannel& channel, bool saving) {
    ShowScreen(channel.screen);
    Screen& screen = *FindScreen(channel.screen);
    QCoreApplication::processEvents();
    SampleState.SaveActive = saving;
    screen.Menu(channel.entry).trigger();
    return screen;
}

LoopResult Workbench::SampleLoop(const SamplingChannel& channel, double seconds, bool saving) {
    Screen& screen = Start(channel, saving);
    LoopResult result;
    Clock::time_point first;  // short runs are timed from reply to reply
    Clock::time_point last;
    QObject::connect(&PortOf(screen, channel), &MSComm::OnComm, &screen, [&] {
        last = Clock::now();
        if (result.samples == 0) first = last;
        result.samples += 1;
    });
    constexpr double settleSeconds = 0.1;  // the screen paints its new state once
    Run(settleSeconds);
    result = {};
    const double cpuBefore = ThreadCpuSeconds();
    Run(seconds);
    result.cpuSeconds = ThreadCpuSeconds() - cpuBefore;
    result.intervals = result.samples - 1;
    result.seconds = std::chrono::duration<double>(last - first).count();
    Leave(screen);
    return result;
}

std::vector<double> Workbench::HandlerTimes(const SamplingChannel& channel, int count) {
    Screen& screen = Start(channel, true);
    MSComm& port = PortOf(screen, channel);
    const auto length = static_cast<std::int16_t>(channel.Packet().length);
    constexpr int repliesPerPaint = 3;  // about as many as come between two frames of a display
    std::vector<double> times;
    for (int i = 0; i < count; ++i) {
        const auto asked = Clock::now();
        while (port.InBufferCount() < length && SecondsSince(asked) < 1) {
        }
        const auto start = Clock::now();
        emit port.OnComm();
        times.push_back(SecondsSince(start));
        if (i % repliesPerPaint == 0) QCoreApplication::processEvents();
    }
    Leave(screen);
    return times;
}

}  // namespace orbkl4::bench

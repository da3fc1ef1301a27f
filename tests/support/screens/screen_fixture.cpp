#include "support/screens/screen_fixture.h"

#include "all_screens.h"
#include "main_window/start_up.h"
#include "platform/system/file_channel.h"
#include "platform/windows/boxes.h"
#include "platform/windows/screen_registry.h"
#include "state/app_state.h"
#include "state/sample_state.h"
#include "support/wait.h"

#include <QVariant>

namespace orbkl4::test {

orbkl4sim::SimulatorOptions QuietSensor() {
    orbkl4sim::SimulatorOptions options;
    options.motion = orbkl4sim::Rest();
    options.noise = false;
    options.paced = false;
    return options;
}

ScreenTest::ScreenTest(const orbkl4sim::SimulatorOptions& options) : sensor(options) {
    AppState = {};
    SampleState = {};
    StartUp();
    sensor.Start();
    clock_.emplace([this] { sensor.DevicePath(); });
    folders.LinkPort(1, QString::fromStdString(sensor.DevicePath().string()));
    RegisterAllScreens();
    PlaceScreensIn(&frame);
    ShowScreen("Main");
    frame.show();
}

ScreenTest::~ScreenTest() {
    UnloadAllScreens();
    PlaceScreensIn(nullptr);
    Channel1().Close();
    MousePointer(Pointer::Default);
}

Screen& ScreenTest::Open(const char* name) {
    ShowScreen(name);
    QCoreApplication::processEvents();
    return *FindScreen(name);
}

Screen& ScreenTest::OpenModal(const char* name) {
    ShowModalScreen(name);
    QCoreApplication::processEvents();
    return *FindScreen(name);
}

std::string ScreenTest::Property(const Screen& screen, const char* name, const char* property) {
    return Get<QObject>(screen, name).property(property).toString().toStdString();
}

std::vector<Bytes> ScreenTest::Heard(std::size_t least) const {
    EXPECT_TRUE(sensor.WaitForRequests(least, std::chrono::seconds(20)));
    std::vector<Bytes> heard;
    for (const orbkl4sim::Request& request : sensor.Requests()) heard.push_back(request.bytes);
    return heard;
}

}  // namespace orbkl4::test

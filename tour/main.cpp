#include "all_screens.h"
#include "main_window/screens/mdi_form1.h"
#include "platform/controls/house_style.h"
#include "platform/system/folders.h"
#include "platform/windows/screen.h"
#include "platform/windows/screen_registry.h"
#include "simulator/simulator.h"
#include "tour/guide.h"
#include "tour/itinerary.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QMouseEvent>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {

using namespace orbkl4;

struct Choices {
    QString pictures;
    QString device;
    QSize size;
    Look look;
};

constexpr std::pair<const char*, Look> looks[] = {{"light", Look::Light},
                                                  {"dark", Look::Dark},
                                                  {"contrast", Look::ContrastLight},
                                                  {"contrast-dark", Look::ContrastDark}};

/// The look `name`, or else the light one.
Look LookNamed(const QString& name) {
    for (const auto& [each, look] : looks)
        if (name == QLatin1String(each)) return look;
    return Look::Light;
}

Choices ReadCommandLine(const QApplication& application) {
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addPositionalArgument("pictures", "Folder for the pictures.");
    const QCommandLineOption port("port", "A real sensor's device in place of the simulated one.",
                                  "device");
    const QCommandLineOption size("size", "Size of the window, such as 1280x800.", "size",
                                  "1280x800");
    const QCommandLineOption look("look", "Colours: light, dark, contrast or contrast-dark.",
                                  "look", "light");
    parser.addOptions({port, size, look});
    parser.process(application);
    const QStringList sides = parser.value(size).split('x');
    return {parser.positionalArguments().value(0, "tour"),
            parser.value(port),
            {sides.value(0).toInt(), sides.value(1).toInt()},
            LookNamed(parser.value(look))};
}

/// Makes the hidden entries of the Tools menu appear, by the gesture that a person would use.
void ShowHiddenEntries() {
    auto* picture = FindScreen("Main")->findChild<QWidget*>("picORBKL4");
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(), QPointF(), Qt::MiddleButton,
                      Qt::MiddleButton, Qt::ShiftModifier | Qt::ControlModifier);
    QApplication::sendEvent(picture, &press);
}

void LinkDevice(const QString& device) {
    const QString ports = ConfigPath("ORB-KL4-RS232/ports");
    QDir().mkpath(ports);
    QFile::remove(ports + "/1");
    QFile::link(QFileInfo(device).canonicalFilePath(), ports + "/1");
}

int Tour(const Choices& choices, MDIForm1& frame) {
    QDir().mkpath(choices.pictures);
    tour::Guide guide(frame, QDir(choices.pictures));
    if (!frame.MDIForm_Load()) return EXIT_FAILURE;
    ShowScreen("Main");
    frame.setWindowState(Qt::WindowNoState);
    frame.resize(choices.size);
    frame.show();
    ShowHiddenEntries();
    if (!tour::VisitConnect(guide)) {
        std::puts("The sensor was not found.");
        return EXIT_FAILURE;
    }
    tour::VisitViews(guide, DataFilesFolder());
    tour::VisitTools(guide);
    for (const QString& complaint : guide.Complaints()) std::puts(qPrintable(complaint));
    std::printf("%d pictures are in %s\nThe data files are in %s\n", guide.PictureCount(),
                qPrintable(QDir(choices.pictures).absolutePath()), qPrintable(DataFilesFolder()));
    return guide.Complaints().isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const Choices choices = ReadCommandLine(application);
    ApplyHouseStyle(choices.look);
    RegisterAllScreens();
    orbkl4sim::Simulator sensor;
    if (choices.device.isEmpty()) {
        sensor.Start();
        sensor.LinkAsPort(1);
    } else {
        LinkDevice(choices.device);
    }
    MDIForm1 frame;
    PlaceScreensIn(&frame);
    return Tour(choices, frame);
}

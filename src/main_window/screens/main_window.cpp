#include "main_window/screens/main_window.h"

#include "calibrate/logic/hard_iron.h"
#include "errors/trap.h"
#include "link/communication.h"
#include "link/logic/eeprom_address.h"
#include "link/logic/requests.h"
#include "main_window/screens/artwork.h"
#include "main_window/tare.h"
#include "platform/controls/form.h"
#include "platform/controls/picture.h"
#include "platform/events/timer.h"
#include "platform/system/end_process.h"
#include "platform/system/folders.h"
#include "platform/windows/boxes.h"
#include "platform/windows/font_following.h"
#include "platform/windows/screen_registry.h"
#include "platform/windows/shell.h"
#include "state/app_state.h"

#include <QFileInfo>
#include <QLabel>
#include <QMouseEvent>
#include <QVBoxLayout>

#include <array>

namespace orbkl4 {

namespace {

using enum EntryState;

constexpr auto mainMenu = std::to_array<MenuRow>({
    {"mnuFile", "&File"},
    {"mnuConnect", "&Connect", "mnuFile"},
    {"mnuSep", "-", "mnuFile"},
    {"mnuExit", "E&xit", "mnuFile"},
    {"mnuTools", "&Tools", "", Disabled},
    {"mnuEEPROMmap", "&EEPROM Map", "mnuTools"},
    {"mnuGetVersionSerial", "Get &Firmware and Serial", "mnuTools"},
    {"mnuGetTemperature", "&Get Temperature", "mnuTools"},
    {"mnuHardIronCal", "&Hard Iron Calibration", "mnuTools"},
    {"mnuSetMode", "Set Continuous/Polled &Mode", "mnuTools"},
    {"mnuSetWriteRate", "&Set Data Acquisition Sampling Rate", "mnuTools"},
    {"mnuSep1", "-", "mnuTools", Hidden},
    {"mnuAnalog", "Analog Outpu&t", "mnuTools", Hidden},
    {"mnuTare", "Tare Coordinate S&ystem", "mnuTools", Hidden},
    {"mnuRemove", "Remove Tare Coor&dinate System", "mnuTools", Hidden},
    {"mnuGains", "Read/&Write System Gains", "mnuTools", Hidden},
    {"mnuVertical", "&Vertical Gyro Mode", "mnuTools", Hidden},
    {"mnuSelfTest", "Se&lf Test", "mnuTools", Hidden},
    {"mnuSetCalcCycle", "Set Timer Tic&k Interval", "mnuTools", Hidden},
    {"mnuDisplay", "&Display", "", Disabled},
    {"mnuAngles", "Euler &Angles", "mnuDisplay"},
    {"mnuAnglesAccRate", "Euler Angles, Accereleration and &Rate Vectors ", "mnuDisplay"},
    {"mnuMatrices", "&Orientation Matrix", "mnuDisplay"},
    {"mnuQuaternions", "&Quaternions", "mnuDisplay"},
    {"mnuQuatVec", "Quaterions and Vec&tors", "mnuDisplay"},
    {"mnuSensorBits", "&Sensor Bits", "mnuDisplay"},
    {"mnuVectors", "&Vectors", "mnuDisplay"},
    {"mnuHelp", "&Help"},
    {"mnuHelpHelp", "&Help", "mnuHelp"},
    {"mnuAbout", "&About", "mnuHelp"},
});

/// The entries that the hidden gesture shows.
constexpr auto hiddenEntries =
    std::to_array<const char*>({"mnuSep1", "mnuAnalog", "mnuTare", "mnuRemove", "mnuGains",
                                "mnuVertical", "mnuSelfTest", "mnuSetCalcCycle"});

using Shower = void (*)(const char* name);

/// What a click on an entry opens.
struct OpenRow {
    const char* entry;
    const char* screen;
    Shower show;
    bool polledFirst;  ///< whether continuous output is stopped first
};

constexpr auto openTable = std::to_array<OpenRow>({
    {"mnuConnect", "Connect", ShowModalScreen, false},
    {"mnuEEPROMmap", "EEPROMmap", ShowScreen, true},
    {"mnuGetVersionSerial", "VersionSerial", ShowModalScreen, false},
    {"mnuGetTemperature", "GetTemperature", ShowModalScreen, true},
    {"mnuSetMode", "SetMode", ShowModalScreen, true},
    {"mnuSetWriteRate", "SetWriteRate", ShowModalScreen, false},
    {"mnuAnalog", "Analog", ShowScreen, true},
    {"mnuGains", "Gains", ShowScreen, true},
    {"mnuVertical", "Vertical", ShowScreen, true},
    {"mnuSelfTest", "SelfTest", ShowScreen, true},
    {"mnuSetCalcCycle", "CalcCycle", ShowScreen, true},
    {"mnuAngles", "Angles", ShowScreen, true},
    {"mnuAnglesAccRate", "AnglesAccRate", ShowScreen, true},
    {"mnuMatrices", "Matrices", ShowScreen, true},
    {"mnuQuaternions", "Quaternions", ShowScreen, true},
    {"mnuQuatVec", "QuatVec", ShowScreen, true},
    {"mnuSensorBits", "SensorBits", ShowScreen, true},
    {"mnuVectors", "Vectors", ShowScreen, true},
    {"mnuAbout", "About", ShowModalScreen, false},
});

constexpr const char* helpFile = "ORB-KL4 Version 204 Help.pdf";

/// The help beside the program, else where an installation keeps it.
QString HelpPath() {
    const QString name = QLatin1String(helpFile);
    const QString beside = ProgramFolder() + QLatin1Char('/') + name;
    return QFileInfo::exists(beside)
               ? beside
               : InstalledFile(QStringLiteral("doc/orb-kl4-workbench/") + name);
}

QLabel* MakeCaption(QWidget* screen, const char* name, const char* text, double growth) {
    QLabel* label = MakeLabel(screen, name, text);
    label->setAlignment(Qt::AlignCenter);
    KeepFontScaled(*label, growth, QFont::Normal);
    return label;
}

}  // namespace

Main::Main() : Screen("Main", "Main"), port_(this, "MSComm1") {
    BuildMenu(mainMenu);
    ConnectMenu();
    for (const TareOperation& operation : tareOperations) AddTare(operation);
    BuildLayout();
}

void Main::BuildLayout() {
    picture_ = Named(new Picture(PaintDevice, QStringLiteral("The sensor with its axes X, Y and Z"),
                                 {440, 390}, this),
                     "picORBKL4");
    picture_->installEventFilter(this);
    auto* emblem = Named(
        new Picture(PaintEmblem, QStringLiteral("The program's emblem"), {72, 72}, this), "Image2");
    auto* column = new QVBoxLayout(this);
    column->setSpacing(8);
    column->addStretch(1);
    column->addWidget(MakeCaption(this, "Label3", "ORB-KL4 Data Acquisition and Display", 2.0));
    column->addWidget(MakeCaption(this, "Label1", "for RS-232", 1.4));
    column->addWidget(MakeCaption(this, "Label2", "for firmware 3.1.01", 1.2));
    column->addSpacing(16);
    column->addWidget(picture_, 12);
    column->addWidget(emblem, 1);
    column->addStretch(1);
}

void Main::ConnectMenu() {
    for (const OpenRow& row : openTable) {
        connect(&Menu(row.entry), &MenuEntry::Click, this, [this, &row] {
            if (row.polledFirst) SetToPolledMode();
            row.show(row.screen);
        });
    }
    connect(&Menu("mnuExit"), &MenuEntry::Click, this, [] { EndProcess(); });
    connect(&Menu("mnuHardIronCal"), &MenuEntry::Click, this, &Main::mnuHardIronCal_Click);
    connect(&Menu("mnuHelpHelp"), &MenuEntry::Click, this, &Main::mnuHelpHelp_Click);
}

void Main::AddTare(const TareOperation& operation) {
    constexpr int milliseconds = 1000;
    auto* timer = new Timer(this, operation.timer, milliseconds);
    connect(&Menu(operation.entry), &MenuEntry::Click, this,
            [this, &operation] { TareEntry_Click(operation); });
    connect(timer, &Timer::Tick, this, [this, &operation] { TimerTare_Timer(operation); });
}

void Main::SetToPolledMode() {
    Trap("SetToPolledMode", [this] {
        constexpr std::int32_t replyMilliseconds = 100;
        OpenCommPort(port_, *this);
        Send(port_, WriteEepromRequest(eeprom::continuousMode, 0));
        WaitMilliseconds(replyMilliseconds);
        port_.Input(AppState.CommandBytes);
        CloseCommPort(port_, *this);
    });
}

void Main::mnuHardIronCal_Click() {
    if (RefusesHardIron(AppState.FirmwareText)) {
        ShowMessage("Hard Iron Calibration is not supported in firmware version " +
                    AppState.FirmwareText + "!");
        return;
    }
    SetToPolledMode();
    ShowScreen("HardIronCal");
}

void Main::mnuHelpHelp_Click() {
    Trap("mnuHelpHelp_Click", [] {
        const QString path = HelpPath();
        if (!QFileInfo::exists(path)) {
            ShowMessage(QStringLiteral("%1 missing from application path!")
                            .arg(QLatin1String(helpFile))
                            .toStdString());
        } else if (!OpenDocument(path)) {
            ShowMessage(QStringLiteral("No program here opens PDF files. The help is the file %1")
                            .arg(path)
                            .toStdString());
        }
    });
}

void Main::TareEntry_Click(const TareOperation& operation) {
    Trap(std::string(operation.entry) + "_Click", [&] {
        SetToPolledMode();
        ToggleTare(*this, operation);
    });
}

void Main::TimerTare_Timer(const TareOperation& operation) {
    Trap(std::string(operation.timer) + "_Timer", [&] { TareTick(*this, operation); });
}

bool Main::eventFilter(QObject* watched, QEvent* event) {
    if (watched == picture_ && event->type() == QEvent::MouseButtonPress) {
        const auto* press = static_cast<QMouseEvent*>(event);
        picORBKL4_MouseDown(press->button(), press->modifiers());
    }
    return Screen::eventFilter(watched, event);
}

void Main::picORBKL4_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers keys) {
    const auto held = keys & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    if (button != Qt::MiddleButton || held != (Qt::ShiftModifier | Qt::ControlModifier)) return;
    AppState.AdvancedMode = true;
    for (const char* entry : hiddenEntries) Menu(entry).Visible(true);
}

}  // namespace orbkl4

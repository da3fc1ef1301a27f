#include "settings/screens/vertical.h"

#include "errors/trap.h"
#include "link/logic/write_replies.h"
#include "link/word_writes.h"
#include "platform/controls/form.h"
#include "platform/controls/option_button.h"
#include "platform/windows/boxes.h"
#include "platform/windows/font_following.h"
#include "settings/logic/vertical_mode.h"
#include "state/app_state.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include <array>
#include <string>

namespace orbkl4 {

/// How the sensor is set to one of the two modes, with the messages about it.
struct ModeSetting {
    const char* entry;
    const char* otherEntry;
    const char* port;
    const char* option;
    GyroMode mode;
    std::span<const EepromWrite> writes;
    const char* succeeded;
    const char* failed;
};

namespace {

constexpr auto verticalMenu = std::to_array<MenuRow>({
    {"mnuFile", "&File"},
    {"mnuRead", "Rea&d", "mnuFile"},
    {"mnuSet", "&Set Vertical Gyro Mode", "mnuFile"},
    {"mnuRemove", "Set &Normal Mode", "mnuFile"},
    {"mnuSep", "-", "mnuFile"},
    {"mnuReturn", "&Return", "mnuFile"},
});

constexpr auto settings = std::to_array<ModeSetting>({
    {"mnuSet", "mnuRemove", "MSComm1", "optVertical", GyroMode::Vertical, verticalModeWrites,
     "Set Vertical Gyro Mode succeeded!", "Set Vertical Gyro failed checksum!"},
    {"mnuRemove", "mnuSet", "MSComm2", "optNormal", GyroMode::Normal, normalModeWrites,
     "Set Normal Mode succeeded!", "Remove Vertical Gyro failed checksum!"},
});

constexpr QSize verticalSize(600, 330);

constexpr auto verticalMustPass = std::to_array<bool>({true, true});

}  // namespace

Vertical::Vertical()
    : Screen("Vertical", "Vertical Gyro Mode"),
      readRun_{.screen = *this,
               .port = readPort_,
               .timer = timer_,
               .first = eeprom::biasCompensationType,
               .last = eeprom::magneticErrorGain,
               .step = eeprom::magneticErrorGain - eeprom::biasCompensationType,
               .take =
                   [this](auto address, double number) {
                       (address == eeprom::biasCompensationType ? value120_ : value126_) = number;
                   },
               .end = [this] { EndReading(); }} {
    BuildMenu(verticalMenu);
    BuildLayout();
    connect(&Menu("mnuRead"), &MenuEntry::Click, this, &Vertical::mnuRead_Click);
    connect(&Menu("mnuReturn"), &MenuEntry::Click, this, &Vertical::mnuReturn_Click);
    connect(&timer_, &Timer::Tick, this, &Vertical::TimerRead_Timer);
    for (const ModeSetting& setting : settings) ConnectSetting(setting);
}

void Vertical::BuildLayout() {
    auto* frame = MakeFrame(this, "fraMode", "");
    frame->setEnabled(false);
    KeepReadableDisabled(*frame);
    auto* options = new QGridLayout(frame);
    options->setVerticalSpacing(24);
    options->addWidget(Named(new OptionButton("Set Normal Mode", frame), "optNormal"), 1, 1);
    options->addWidget(Named(new OptionButton("Set Vertical Gyro Mode", frame), "optVertical"), 2,
                       1);
    for (const int edge : {0, 2}) options->setColumnStretch(edge, 1);
    options->setRowStretch(0, 2);
    options->setRowStretch(3, 3);
    const char* hint = "The options show the sensor's mode. Set it in the File menu.";
    frame->setToolTip(QString::fromUtf8(hint));
    auto* lblHint = MakeLabel(this, "lblHint", hint);
    constexpr double hintShrink = 0.75;
    KeepFontScaled(*lblHint, hintShrink, QFont::Normal);
    auto* column = MakeMiddleColumn(this);
    column->addWidget(frame, 1);
    column->addWidget(lblHint, 0, Qt::AlignCenter);
    DesignSize(verticalSize);
}

void Vertical::ConnectSetting(const ModeSetting& setting) {
    connect(&Menu(setting.entry), &MenuEntry::Click, this,
            [this, &setting] { SetEntry_Click(setting); });
    connect(&Writing(setting).port, &MSComm::OnComm, this,
            [this, &setting] { MSComm_OnComm(setting); });
}

void Vertical::Form_Activate() {
    Trap("Form_Activate", [this] { mnuRead_Click(); });
}

Exchange Vertical::Writing(const ModeSetting& setting) {
    return {.screen = *this,
            .port = *findChild<MSComm*>(QLatin1String(setting.port)),
            .entry = Menu(setting.entry),
            .others = {&Menu(setting.otherEntry)},
            .replyLength = verticalMustPass.size() * ReplyLength(DeviceCommand::CmdWriteEeprom)};
}

OptionButton& Vertical::Option(const ModeSetting& setting) const {
    return *findChild<OptionButton*>(QLatin1String(setting.option));
}

void Vertical::EnableEntries(bool enabled) const {
    for (const char* entry : {"mnuRead", "mnuSet", "mnuRemove"}) Menu(entry).Enabled(enabled);
}

void Vertical::EndReading() {
    const GyroMode mode = GyroModeOf(value120_, value126_);
    for (const ModeSetting& setting : settings)
        if (setting.mode == mode) Option(setting).Value(true);
    if (mode == GyroMode::Other) {
        ClearOptions();
        ShowMessage("ORB-KL4 is in state other than Vertical Gyro or Normal!");
    }
    EnableEntries(true);
}

void Vertical::ClearOptions() const {
    for (const ModeSetting& setting : settings) Option(setting).Value(false);
}

void Vertical::mnuRead_Click() {
    TrapUnderHourglass("mnuRead_Click", [this] {
        EnableEntries(false);
        StartEepromRead(readRun_);
    });
}

void Vertical::TimerRead_Timer() {
    Trap("TimerRead_Timer", [this] { EepromReadTick(readRun_); });
}

void Vertical::SetEntry_Click(const ModeSetting& setting) {
    Trap(std::string(setting.entry) + "_Click", [&] {
        const Exchange writing = Writing(setting);
        if (writing.entry.Checked()) {
            StopExchange(writing);
            return;
        }
        ClearOptions();
        StartExchange(writing);
        WriteWords(writing.port, setting.writes);
    });
}

void Vertical::MSComm_OnComm(const ModeSetting& setting) {
    Trap(std::string(setting.port) + "_OnComm", [&] {
        const Exchange writing = Writing(setting);
        CollectReply(writing);
        const WriteVerdict verdict = CheckWriteReplies(AppState.CommandBytes, verticalMustPass);
        if (verdict == WriteVerdict::Good) Option(setting).Value(true);
        ShowMessage(WriteVerdictText(verdict, setting.succeeded, setting.failed));
        EndExchange(writing);
    });
}

void Vertical::mnuReturn_Click() {
    Trap("mnuReturn_Click", [this] { Unload(); });
}

}  // namespace orbkl4

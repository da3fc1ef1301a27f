#include "memory/screens/eeprom_map.h"

#include "errors/trap.h"
#include "link/stored_line.h"
#include "memory/logic/map_runs.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/controls/form.h"
#include "platform/system/clock.h"
#include "platform/system/file_channel.h"
#include "platform/system/folders.h"
#include "platform/windows/boxes.h"
#include "platform/windows/screen_registry.h"
#include "state/app_state.h"

#include <QGroupBox>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace orbkl4 {

namespace {

constexpr int mapTickMilliseconds = 100;
constexpr int fullBar = 256;
constexpr eeprom::Address firstRead = 2;  // address 0 is never read

constexpr std::string_view standardLevel = "Standard";
constexpr std::string_view advancedLevel = "Advanced";

/// The entries that are disabled during a run.
constexpr auto runEntries = std::to_array<const char*>(
    {"mnuRead", "mnuWrite", "mnuViewMatrix", "mnuLog", "mnuShowMin", "mnuShowMax"});

/// A field that changes to a legal code when it loses the focus.
struct CodeField {
    eeprom::Address address;
    double (*snapped)(double value);
};

constexpr auto codeFields = std::to_array<CodeField>({
    {eeprom::baudRate, SnappedBaudCode},
    {eeprom::timer2Prescaler, SnappedPrescaler},
});

}  // namespace

EEPROMmap::EEPROMmap()
    : Screen("EEPROMmap", "EEPROM Map"),
      fraEEPROMAddresses1_(MakeFrame(this, "fraEEPROMAddresses1", "EEPROM Addresses")),
      fraEEPROMAddresses_(MakeFrame(this, "fraEEPROMAddresses", "EEPROM Addresses")),
      panel_(this),
      progress_(this, 0, fullBar),
      port_(this, "MSComm1"),
      timerRead_(this, "TimerRead", mapTickMilliseconds),
      timerWrite_(this, "TimerWrite", mapTickMilliseconds),
      readRun_{.screen = *this,
               .port = port_,
               .timer = timerRead_,
               .first = firstRead,
               .last = eeprom::last,
               .take =
                   [this](auto address, double number) {
                       inSensor_.at(IndexOf(address)) = number;
                       FieldOf(address).Value(number);
                   },
               .pass = [this](auto address) { progress_.Value(address); },
               .end = [this] { EndRead(); }},
      writeRun_{.screen = *this,
                .port = port_,
                .timer = timerWrite_,
                .number =
                    [this](auto address) {
                        const double number = FieldOf(address).Value();
                        inSensor_.at(IndexOf(address)) = number;
                        return number;
                    },
                .pass = [this](auto address) { progress_.Value(address); },
                .end = [this] { EndWrite(); }} {
    connect(&timerRead_, &Timer::Tick, this, &EEPROMmap::TimerRead_Timer);
    connect(&timerWrite_, &Timer::Tick, this, &EEPROMmap::TimerWrite_Timer);
    BuildLayout();
    ConnectMenu();
    ConnectFields();
}

void EEPROMmap::ConnectFields() {
    for (std::size_t index = 0; index < NumEdit_.size(); ++index) {
        connect(NumEdit_.at(index), &CWNumEdit::ValueChanged, this,
                [this, index] { NumEdit_ValueChanged(index); });
        NumEdit_.at(index)->installEventFilter(this);
    }
    for (const CodeField& row : codeFields) {
        CWNumEdit& field = FieldOf(row.address);
        connect(&field, &CWNumEdit::LostFocus, this, [&field, &row] {
            Trap("NumEdit_LostFocus", [&] { field.Value(row.snapped(field.Value())); });
        });
    }
}

void EEPROMmap::Form_Load() {
    Trap("Form_Load", [this] {
        if (AppState.AdvancedMode) {
            Menu("mnuSep1").Visible(true);
            Menu("mnuLog").Visible(true);
        }
        FillEEPROMNames();
        PopulateNumEditMinimum();
        PopulateNumEditMaximum();
        ApplyAccessLevel(AppState.AdvancedMode ? advancedLevel : standardLevel);
    });
}

void EEPROMmap::PopulateNumEditMinimum() {
    for (const EepromWord& word : eepromCatalogue) FieldOf(word.address).Minimum(word.minimum);
}

void EEPROMmap::PopulateNumEditMaximum() {
    for (const EepromWord& word : eepromCatalogue) FieldOf(word.address).Maximum(word.maximum);
}

void EEPROMmap::ApplyAccessLevel(std::string_view level) {
    const bool advanced = level == advancedLevel;
    if (!advanced && level != standardLevel) return;
    for (const EepromWord& word : eepromCatalogue)
        FieldOf(word.address).setEnabled(IsEnabled(word.access, advanced));
}

void EEPROMmap::Form_MouseMove() {
    Trap("Form_MouseMove", [this] { panel_.Clear(); });
}

void EEPROMmap::NumEdit_MouseMove(std::size_t index) {
    Trap("NumEdit_MouseMove", [&] { panel_.Show(eepromCatalogue.at(index), *NumEdit_.at(index)); });
}

void EEPROMmap::NumEdit_ValueChanged(std::size_t index) {
    Trap("NumEdit_ValueChanged", [&] {
        if (!readInProgress_) NumEdit_.at(index)->BackColorText(ModifiedColor);
    });
}

void EEPROMmap::Form_KeyDown() {
    Trap("Form_KeyDown", [this] {
        for (const char* entry : {"mnuShowMin", "mnuShowMax"})
            Menu(entry).Visible(!Menu(entry).Visible());
    });
}

void EEPROMmap::ClearModifiedMarks() {
    for (CWNumEdit* field : NumEdit_) field->BackColorText(windowBackground);
}

void EEPROMmap::EnableControls(bool enabled) {
    for (const char* entry : runEntries) Menu(entry).Enabled(enabled);
    for (QGroupBox* frame : {panel_.Frame(), fraEEPROMAddresses_, fraEEPROMAddresses1_})
        frame->setEnabled(enabled);
}

CWNumEdit& EEPROMmap::FieldOf(eeprom::Address address) const {
    return *NumEdit_.at(IndexOf(address));
}

void EEPROMmap::mnuRead_Click() {
    TrapUnderHourglass("mnuRead_Click", [this] {
        EnableControls(false);
        ClearModifiedMarks();
        readInProgress_ = true;
        progress_.Start(0, "Reading");
        StartEepromRead(readRun_);
    });
}

void EEPROMmap::TimerRead_Timer() {
    Trap("TimerRead_Timer", [this] { EepromReadTick(readRun_); });
}

void EEPROMmap::EndRead() {
    if (logAfterRead_) {
        Logger();
        logAfterRead_ = false;
        ShowMessage("Log process has completed!");
    } else {
        ShowMessage("Read process has completed!");
    }
    EnableControls(true);
    readInProgress_ = false;
    progress_.Rest();
}

void EEPROMmap::mnuLog_Click() {
    Trap("mnuLog_Click", [this] {
        logAfterRead_ = true;
        mnuRead_Click();
    });
}

void EEPROMmap::Logger() {
    Trap("Logger", [this] {
        std::array<double, eepromWordCount> numbers{};
        std::ranges::transform(NumEdit_, numbers.begin(),
                               [](auto* field) { return field->Value(); });
        const QString folder = LogsFolder() + QLatin1Char('/');
        Channel1().OpenForOutput(folder.toStdString() + EepromLogName(LocalTime()));
        for (const std::string& line : EepromLogLines(numbers)) Channel1().Print(line);
    });
    Channel1().Close();
}

void EEPROMmap::mnuWrite_Click() {
    TrapUnderHourglass("mnuWrite_Click", [this] {
        EnableControls(false);
        progress_.Start(0, "Writing");
        std::array<bool, eepromWordCount> modified{};
        std::ranges::transform(NumEdit_, modified.begin(),
                               [](auto* field) { return field->BackColorText() == ModifiedColor; });
        StartEepromWrite(writeRun_, WriteListOf(modified));
    });
}

void EEPROMmap::TimerWrite_Timer() {
    Trap("TimerWrite_Timer", [this] { EepromWriteTick(writeRun_); });
}

void EEPROMmap::EndWrite() {
    ShowMessage("Write process has completed!");
    if (std::ranges::find(writeRun_.addresses, eeprom::baudRate) != writeRun_.addresses.end()) {
        ShowMessage(
            "BAUD RATE changes will not take effect until 1) the program is exited/re-started and "
            "2) the ORB-KL4 power is cycled!");
    }
    SaveCommSettingsFromMap();
    AppState.AccGainScale = FieldOf(eeprom::accGainScale).Value();
    AppState.MagGainScale = FieldOf(eeprom::magGainScale).Value();
    AppState.GyroGainScale = FieldOf(eeprom::gyroGainScale).Value();
    EnableControls(true);
    progress_.Rest();
    ClearModifiedMarks();
}

void EEPROMmap::SaveCommSettingsFromMap() {
    StoreCommSettings(CommSettingsOfBaudCode(FieldOf(eeprom::baudRate).Value()));
}

void EEPROMmap::mnuShowMin_Click() {
    Trap("mnuShowMin_Click", [this] {
        for (CWNumEdit* field : NumEdit_) field->Value(field->Minimum());
    });
}

void EEPROMmap::mnuShowMax_Click() {
    Trap("mnuShowMax_Click", [this] {
        for (CWNumEdit* field : NumEdit_) field->Value(field->Maximum());
    });
}

void EEPROMmap::mnuViewMatrix_Click() {
    Trap("mnuViewMatrix_Click", [] { ShowModalScreen("ViewMatrix"); });
}

void EEPROMmap::mnuReturn_Click() {
    Trap("mnuReturn_Click", [this] {
        MousePointer(Pointer::Default);
        Unload();
    });
}

}  // namespace orbkl4

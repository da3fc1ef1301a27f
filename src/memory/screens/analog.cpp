#include "memory/screens/analog.h"

#include "errors/trap.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/controls/form.h"
#include "platform/windows/boxes.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace orbkl4 {

namespace {

constexpr int analogTickMilliseconds = 100;
constexpr eeprom::Address firstWord = analogWords.front().address;
constexpr eeprom::Address lastWord = analogWords.back().address;

constexpr auto analogMenu = std::to_array<MenuRow>({
    {"mnuFile", "&File"},
    {"mnuRead", "&Read", "mnuFile"},
    {"mnuWrite", "&Write", "mnuFile"},
    {"mnuSep", "-", "mnuFile"},
    {"mnuReturn", "&Return", "mnuFile"},
});

}  // namespace

Analog::Analog()
    : Screen("Analog", "Analog Output"),
      fraAnalog_(MakeFrame(this, "fraAnalog", "Analog Output Settings")),
      cmbFunction_(Named(new ComboBox(fraAnalog_), "cmbFunction")),
      progress_(this, firstWord, lastWord),
      port_(this, "MSComm1"),
      timerRead_(this, "TimerRead", analogTickMilliseconds),
      timerWrite_(this, "TimerWrite", analogTickMilliseconds),
      readRun_{.screen = *this,
               .port = port_,
               .timer = timerRead_,
               .first = firstWord,
               .last = lastWord,
               .take = [this](auto address, double number) { TakeWord(address, number); },
               .pass = [this](auto address) { progress_.Value(address); },
               .end = [this] { EndRun("Read process has completed!"); }},
      writeRun_{.screen = *this,
                .port = port_,
                .timer = timerWrite_,
                .number = [this](auto address) { return NumberToWrite(address); },
                .end = [this] { EndWrite(); }} {
    BuildMenu(analogMenu);
    BuildLayout();
    DesignSizeOfLayout();
    connect(cmbFunction_, &ComboBox::Click, this, &Analog::cmbFunction_Click);
    connect(&Menu("mnuRead"), &MenuEntry::Click, this, &Analog::mnuRead_Click);
    connect(&Menu("mnuWrite"), &MenuEntry::Click, this, &Analog::mnuWrite_Click);
    connect(&Menu("mnuReturn"), &MenuEntry::Click, this, &Analog::mnuReturn_Click);
    connect(&timerRead_, &Timer::Tick, this, &Analog::TimerRead_Timer);
    connect(&timerWrite_, &Timer::Tick, this, &Analog::TimerWrite_Timer);
}

void Analog::BuildLayout() {
    constexpr int gap = 28;
    auto* grid = new QGridLayout(fraAnalog_);
    grid->setHorizontalSpacing(gap);
    for (const int edge : {0, 5}) grid->setColumnStretch(edge, 1);
    KeepReadableDisabled(*fraAnalog_);
    grid->addWidget(MakeLabel(*cmbFunction_, "lblFunction", "Select Function"), 0, 1);
    grid->addWidget(cmbFunction_, 0, 2, 1, 3, Qt::AlignVCenter);
    int column = 1;
    for (const char* header : {"Adjustable Values", "Range", "EEPROM"}) {
        auto* label = MakeLabel(fraAnalog_, ("lblColumn" + std::to_string(column)).c_str(), header);
        QFont bold = label->font();
        bold.setBold(true);
        label->setFont(bold);
        grid->addWidget(label, 1, 1 + column++);
    }
    int row = 2;
    for (const AnalogWord& word : analogWords) AddWordRow(*grid, row++, word);
    for (int i = 0; i < row; ++i) grid->setRowStretch(i, 1);

    auto* rows = MakeMiddleColumn(this);
    rows->addWidget(fraAnalog_, 1);
    rows->addWidget(progress_.Frame());
}

void Analog::AddWordRow(QGridLayout& grid, int row, const AnalogWord& word) {
    const std::string address = std::to_string(word.address);
    auto* field = Named(new CWNumEdit(fraAnalog_), ("NumEdit" + address).c_str());
    field->Limits(0, word.maximum);
    field->WholeNumbers(true);
    fields_.at(static_cast<std::size_t>(word.address - firstWord) / 2) = field;
    const bool isCommand = word.address == eeprom::analogCommand;
    const std::string rangeName = isCommand ? "lblCommandByte" : "lblRange" + address;
    QLabel* range = MakeLabel(fraAnalog_, rangeName.c_str(), word.range);
    if (isCommand) lblCommandByte_ = range;
    grid.addWidget(MakeLabel(*field, ("lblWord" + address).c_str(), word.label), row, 1);
    grid.addWidget(field, row, 2, Qt::AlignVCenter);
    grid.addWidget(range, row, 3);
    grid.addWidget(MakeLabel(fraAnalog_, ("lblAddress" + address).c_str(), address), row, 4);
}

CWNumEdit& Analog::FieldOf(eeprom::Address address) const {
    return *fields_.at(static_cast<std::size_t>(address - firstWord) / 2);
}

void Analog::Form_Load() {
    Trap("Form_Load", [this] {
        for (const AnalogFunction& function : analogFunctions)
            cmbFunction_->AddItem(ToQString(function.text));
    });
}

void Analog::Form_Activate() {
    Trap("Form_Activate", [this] { mnuRead_Click(); });
}

void Analog::cmbFunction_Click() {
    Trap("cmbFunction_Click", [this] {
        const int row = cmbFunction_->ListIndex();
        const AnalogFunction& function = analogFunctions.at(static_cast<std::size_t>(row));
        for (CWNumEdit* field : fields_) {
            field->setEnabled(false);
            field->BackColorText(unusedBackground);
        }
        CWNumEdit& command = FieldOf(eeprom::analogCommand);
        lblCommandByte_->setText(ToQString(analogWords.front().range));
        command.Minimum(0);
        command.Value(row);
        for (const eeprom::Address address : function.adjustable) {
            FieldOf(address).setEnabled(true);
            FieldOf(address).BackColorText(windowBackground);
        }
        if (row != customAnalogFunction) return;
        lblCommandByte_->setText(ToQString(customAnalogRange));
        command.Minimum(customAnalogFunction);
    });
}

void Analog::EnableControls(bool enabled) {
    Menu("mnuRead").Enabled(enabled);
    Menu("mnuWrite").Enabled(enabled);
    fraAnalog_->setEnabled(enabled);
}

void Analog::BeginRun(const char* caption) {
    EnableControls(false);
    progress_.Start(firstWord, caption);
}

void Analog::EndRun(const char* message) {
    ShowMessage(message);
    EnableControls(true);
    progress_.Rest();
}

void Analog::mnuRead_Click() {
    TrapUnderHourglass("mnuRead_Click", [this] {
        BeginRun("Reading");
        StartEepromRead(readRun_);
    });
}

void Analog::TimerRead_Timer() {
    Trap("TimerRead_Timer", [this] { EepromReadTick(readRun_); });
}

/// A command byte without a row in the list is an error, raised after its field has changed.
void Analog::TakeWord(eeprom::Address address, double number) {
    FieldOf(address).Value(number);
    if (address == eeprom::analogCommand) cmbFunction_->ListIndex(static_cast<int>(number));
}

void Analog::mnuWrite_Click() {
    TrapUnderHourglass("mnuWrite_Click", [this] {
        BeginRun("Writing");
        std::vector<eeprom::Address> addresses;
        addresses.reserve(analogWords.size());
        for (const AnalogWord& word : analogWords) addresses.push_back(word.address);
        StartEepromWrite(writeRun_, std::move(addresses));
    });
}

void Analog::TimerWrite_Timer() {
    Trap("TimerWrite_Timer", [this] { EepromWriteTick(writeRun_); });
}

double Analog::NumberToWrite(eeprom::Address address) {
    progress_.Value(address);
    return FieldOf(address).Value();
}

void Analog::EndWrite() {
    EndRun("Write process has completed!");
    mnuRead_Click();
}

void Analog::mnuReturn_Click() {
    Trap("mnuReturn_Click", [this] {
        MousePointer(Pointer::Default);
        Unload();
    });
}

}  // namespace orbkl4

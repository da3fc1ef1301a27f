#include "settings/screens/calc_cycle.h"

#include "base/number_text.h"
#include "errors/trap.h"
#include "link/logic/write_replies.h"
#include "link/word_writes.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/option_button.h"
#include "platform/controls/text_field.h"
#include "platform/windows/boxes.h"
#include "settings/logic/cycle_words.h"
#include "settings/logic/tick_interval.h"
#include "settings/time_tick_table_file.h"
#include "state/app_state.h"

#include <QGroupBox>
#include <QLabel>

#include <algorithm>
#include <array>
#include <exception>

namespace orbkl4 {

namespace {

/// The checksums of the second and third reply are not compared, on purpose.
constexpr auto calcCycleMustPass = std::to_array<bool>({true, false, false, true});

}  // namespace

CalcCycle::CalcCycle()
    : Screen("CalcCycle", "Set Timer Tick Interval"),
      // The word at 244 is read too, and not used.
      readRun_{.screen = *this,
               .port = readPort_,
               .timer = timer_,
               .first = eeprom::timer2Prescaler,
               .last = eeprom::timerTicksInterval,
               .take = [this](auto address, double number) { TakeWord(address, number); },
               .end = [this] { EnableEntries(true); }} {
    BuildLayout();
    ConnectMenu();
    ConnectControls();
}

void CalcCycle::ConnectMenu() {
    const auto onClick = [this](const char* entry, void (CalcCycle::*handler)()) {
        connect(&Menu(entry), &MenuEntry::Click, this, handler);
    };
    onClick("mnuRead", &CalcCycle::mnuRead_Click);
    onClick("mnuCalcCycle", &CalcCycle::mnuCalcCycle_Click);
    onClick("mnuCalcCycleDefault", &CalcCycle::mnuCalcCycleDefault_Click);
    onClick("mnuReturn", &CalcCycle::mnuReturn_Click);
}

void CalcCycle::ConnectControls() {
    for (OptionButton* option : prescalers_)
        connect(option, &OptionButton::Click, this, &CalcCycle::ComputeTickInterval);
    for (CWNumEdit* number : factors_)
        connect(number, &CWNumEdit::ValueChanged, this, &CalcCycle::ComputeTickInterval);
    connect(slide_, &CWSlide::ValueChanged, this, &CalcCycle::CWSlide1_ValueChanged);
    connect(&timer_, &Timer::Tick, this, &CalcCycle::TimerRead_Timer);
    connect(&writePort_, &MSComm::OnComm, this, &CalcCycle::MSComm1_OnComm);
}

void CalcCycle::Form_Load() {
    Trap("Form_Load", [this] {
        mnuRead_Click();
        ComputeTickInterval();
    });
}

void CalcCycle::Form_Activate() {
    Trap("Form_Activate", [this] {
        const TickTableVerdict verdict = LoadTimeTickTable(tickTable_);
        if (verdict == TickTableVerdict::Loaded) return;
        ShowMessage(TickTableMessage(verdict));
        fraCalc1_->setEnabled(false);
    });
}

Exchange CalcCycle::Writing() {
    return {.screen = *this,
            .port = writePort_,
            .entry = Menu("mnuCalcCycle"),
            .others = {&Menu("mnuCalcCycleDefault")},
            .replyLength = calcCycleMustPass.size() * ReplyLength(DeviceCommand::CmdWriteEeprom)};
}

double CalcCycle::Prescaler() const {
    const auto* const chosen = std::ranges::find_if(prescalers_, &OptionButton::isChecked);
    return prescalerRows.at(static_cast<std::size_t>(chosen - prescalers_.begin())).value;
}

void CalcCycle::SelectPrescaler(double prescaler) const {
    for (std::size_t i = 0; i < prescalers_.size(); ++i)
        if (prescalerRows.at(i).value == prescaler) prescalers_.at(i)->Value(true);
}

void CalcCycle::ShowInterval() const {
    txtCC_->Text(PadToFourDecimals(TickInterval(Prescaler(), factors_[0]->Value(),
                                                factors_[1]->Value(), factors_[2]->Value())));
}

void CalcCycle::ComputeTickInterval() const {
    try {
        ShowInterval();
    } catch (const std::exception&) {
        txtCC_->Text("Calc errored!");
    }
}

void CalcCycle::ApplyTickTableRow(const std::string& key) const {
    try {
        const TickTableRow* row = FindTickTableRow(tickTable_, key);
        if (row == nullptr) Raise(ErrorNumber::SubscriptOutOfRange);
        SelectPrescaler(ToNumber((*row)[1]));
        for (std::size_t i = 0; i < factors_.size(); ++i)
            factors_.at(i)->Value(ToNumber(row->at(i + 2)));
        ShowInterval();
    } catch (const std::exception&) {
        txtCC_->Text("Calc errored!");
    }
}

void CalcCycle::EnableEntries(bool enabled) const {
    for (const char* entry : {"mnuRead", "mnuCalcCycle", "mnuCalcCycleDefault"})
        Menu(entry).Enabled(enabled);
}

void CalcCycle::TakeWord(eeprom::Address address, double number) const {
    if (address == eeprom::timer2Prescaler) SelectPrescaler(number);
    for (std::size_t i = 0; i < factors_.size(); ++i)
        if (address == factorRows.at(i).address) factors_.at(i)->Value(number);
}

void CalcCycle::WriteAll() {
    std::array<EepromWrite, calcCycleMustPass.size()> writes{
        {{eeprom::timer2Prescaler, Prescaler()}}};
    for (std::size_t i = 0; i < factors_.size(); ++i)
        writes.at(i + 1) = {factorRows.at(i).address, factors_.at(i)->Value()};
    WriteWords(writePort_, writes);
}

void CalcCycle::mnuRead_Click() {
    TrapUnderHourglass("mnuRead_Click", [this] {
        EnableEntries(false);
        StartEepromRead(readRun_);
    });
}

void CalcCycle::mnuCalcCycle_Click() {
    Trap("mnuCalcCycle", [this] {
        const Exchange writing = Writing();
        if (writing.entry.Checked()) {
            StopExchange(writing);
            return;
        }
        StartExchange(writing);
        WriteAll();
    });
}

void CalcCycle::mnuCalcCycleDefault_Click() {
    Trap("mnuCalcCycleDefault_Click", [this] {
        SelectPrescaler(standardPrescaler);
        for (std::size_t i = 0; i < factors_.size(); ++i)
            factors_.at(i)->Value(factorRows.at(i).standard);
        mnuCalcCycle_Click();
    });
}

void CalcCycle::mnuReturn_Click() {
    Trap("mnuReturn_Click", [this] {
        MousePointer(Pointer::Default);
        Unload();
    });
}

void CalcCycle::CWSlide1_ValueChanged(double value) {
    Trap("CWSlide1_ValueChanged", [&] {
        constexpr int decimals = 2;
        const QString key = QString::number(value, 'f', decimals);
        lblSlider_->setText(key);
        ApplyTickTableRow(key.toStdString());
    });
}

void CalcCycle::TimerRead_Timer() {
    Trap("TimerRead_Timer", [this] { EepromReadTick(readRun_); });
}

void CalcCycle::MSComm1_OnComm() {
    Trap("MSComm1_OnComm", [this] {
        const Exchange writing = Writing();
        CollectReply(writing);
        ShowMessage(WriteVerdictText(CheckWriteReplies(AppState.CommandBytes, calcCycleMustPass),
                                     "Set Calc Cycle succeeded!",
                                     "Set Calc Cycle failed checksum!"));
        EndExchange(writing);
    });
}

}  // namespace orbkl4

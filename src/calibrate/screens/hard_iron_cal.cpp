#include "calibrate/screens/hard_iron_cal.h"

#include "acquire/watchdog.h"
#include "base/number_text.h"
#include "errors/trap.h"
#include "link/communication.h"
#include "link/logic/fault_texts.h"
#include "link/logic/frame_check.h"
#include "link/logic/requests.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/cw_button.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/controls/form.h"
#include "platform/controls/text_field.h"
#include "platform/windows/boxes.h"
#include "state/app_state.h"

#include <QLabel>

#include <string>

namespace orbkl4 {

namespace {

using enum DeviceCommand;

template <std::size_t count>
void Show(const HardIronReply<count>& reply, std::span<TextField* const, count + 3> fields) {
    fields.front()->Text(ScreenText(reply.header));
    for (std::size_t i = 0; i < count; ++i) fields[i + 1]->Text(ScreenText(reply.gauss[i]));
    fields[count + 1]->Text(ScreenText(reply.ticks));
    fields.back()->Text(ScreenText(reply.checksum));
}

}  // namespace

HardIronCal::HardIronCal() : Screen("HardIronCal", "Hard Iron Calibration") {
    BuildLayout();
    ConnectMenu();
    ConnectControls();
}

void HardIronCal::ConnectMenu() {
    const auto onClick = [this](const char* entry, void (HardIronCal::*handler)()) {
        connect(&Menu(entry), &MenuEntry::Click, this, handler);
    };
    onClick("mnuErase", &HardIronCal::mnuErase_Click);
    onClick("mnuInit", &HardIronCal::mnuInit_Click);
    onClick("mnuCollect", &HardIronCal::mnuCollect_Click);
    onClick("mnuCompute", &HardIronCal::mnuCompute_Click);
    onClick("mnuReturn", &HardIronCal::mnuReturn_Click);
}

void HardIronCal::ConnectControls() {
    connect(cmbType_, &ComboBox::Click, this, &HardIronCal::cmbType_Click);
    connect(&timer_, &Timer::Tick, this, &HardIronCal::TimerSampling_Timer);
    connect(&initPort_, &MSComm::OnComm, this, &HardIronCal::MSComm1_OnComm);
    connect(&collectPort_, &MSComm::OnComm, this, &HardIronCal::MSComm2_OnComm);
    connect(&computePort_, &MSComm::OnComm, this, &HardIronCal::MSComm3_OnComm);
}

void HardIronCal::Form_Load() {
    Trap("Form_Load", [this] {
        for (const std::string_view type : {twoDimensional, threeDimensional})
            cmbType_->AddItem(ToQString(type));
        cmbType_->ListIndex(0);
    });
}

void HardIronCal::Form_Activate() {
    Trap("Form_Activate", [this] {
        if (!IsBelowHardIronFirmware(AppState.FirmwareNumber)) return;
        ShowMessage("ORB-KL4 firmware version " + AppState.FirmwareText +
                    " has been detected! Hard Iron Calibration requires firmware version 3.1.01 or "
                    "higher. Please contact Kestrelmoor to upggrade.");
        // Erasing works with any firmware.
        for (const char* entry : {"mnuInit", "mnuCollect", "mnuCompute"})
            Menu(entry).Enabled(false);
    });
}

Exchange HardIronCal::Initializing() {
    return {.screen = *this,
            .port = initPort_,
            .entry = Menu("mnuInit"),
            .others = {&Menu("mnuErase"), &Menu("mnuCollect"), &Menu("mnuCompute")},
            .replyLength = ReplyLength(CmdHardIronInit)};
}

Exchange HardIronCal::Collecting() {
    return {.screen = *this,
            .port = collectPort_,
            .entry = Menu("mnuCollect"),
            .others = {&Menu("mnuErase"), &Menu("mnuInit"), &Menu("mnuCompute")},
            .replyLength = ReplyLength(CmdHardIronCollect)};
}

Exchange HardIronCal::Computing() {
    return {.screen = *this,
            .port = computePort_,
            .entry = Menu("mnuCompute"),
            .others = {&Menu("mnuErase"), &Menu("mnuCollect"), &Menu("mnuInit")},
            .replyLength = ReplyLength(CmdHardIronCompute)};
}

void HardIronCal::ClearParameterFields() const {
    for (TextField* field : parameterFields_) field->Text("");
}

void HardIronCal::ClearCollectFields() const {
    for (TextField* field : collectFields_) field->Text("");
}

void HardIronCal::cmbType_Click() {
    Trap("cmbType_Click", [this] {
        const bool flat = cmbType_->Text() == ToQString(twoDimensional);
        numEditMagZ_->setEnabled(flat);
        numEditMagZ_->BackColorText(flat ? windowBackground : unusedBackground);
    });
}

void HardIronCal::mnuErase_Click() {
    Trap("mnuErase_Click", [this] {
        eraseRequested_ = true;
        mnuInit_Click();
    });
}

void HardIronCal::mnuInit_Click() {
    Trap("mnuInit_Click", [this] {
        const Exchange initializing = Initializing();
        if (initializing.entry.Checked()) {
            StopExchange(initializing);
            return;
        }
        ClearParameterFields();
        ClearCollectFields();
        StartExchange(initializing);
        Send(initPort_, Request(CmdHardIronInit));
    });
}

void HardIronCal::MSComm1_OnComm() {
    Trap("MSComm1_OnComm", [this] {
        const Exchange initializing = Initializing();
        CollectReply(initializing);
        ReportInit();
        EndExchange(initializing);
    });
}

/// Erasing and initializing are the same command; only the messages differ.
void HardIronCal::ReportInit() {
    if (!HasFrames(AppState.CommandBytes, CmdHardIronInit)) {
        ShowMessage(malformedReplyText);
        return;
    }
    const std::string what = eraseRequested_ ? "Erase" : "Initialization";
    ShowMessage(what + (ChecksumHolds(AppState.CommandBytes, 0, AppState.CommandBytes.size())
                            ? " succeeded!"
                            : " failed checksum!"));
    eraseRequested_ = false;
}

void HardIronCal::mnuCollect_Click() {
    Trap("mnuCollect_Click", [this] {
        const Exchange collecting = Collecting();
        if (collecting.entry.Checked()) {
            timer_.Enabled(false);
            StopExchange(collecting);
            led_->Value(false);
            return;
        }
        ClearParameterFields();
        ClearCollectFields();
        led_->Value(false);
        timer_.Enabled(true);
        StartExchange(collecting);
        Send(collectPort_, CmdHardIronCollect);
    });
}

void HardIronCal::MSComm2_OnComm() {
    Trap("MSComm2_OnComm", [this] {
        NoteReply(*lblWarning_);
        collectPort_.Input(AppState.CommandBytes);
        TakeCollectReply();
        Send(collectPort_, CmdHardIronCollect);
    });
}

void HardIronCal::TakeCollectReply() const {
    if (!HasFrames(AppState.CommandBytes, CmdHardIronCollect)) {
        led_->Value(false);
        return;
    }
    const auto collected = DecodeHardIronCollectReply(AppState.CommandBytes, AppState.MagGainScale);
    led_->Value(collected.has_value());
    if (collected) Show<9>(*collected, collectFields_);
}

void HardIronCal::TimerSampling_Timer() {
    Trap("TimerSampling_Timer", [this] {
        WatchdogTick(timer_, *lblWarning_, Menu("mnuCollect").Checked(),
                     [this] { mnuCollect_Click(); });
    });
}

void HardIronCal::mnuCompute_Click() {
    Trap("mnuCompute_Click", [this] {
        const Exchange computing = Computing();
        if (computing.entry.Checked()) {
            StopExchange(computing);
            return;
        }
        ClearParameterFields();
        StartExchange(computing);
        Send(computePort_,
             HardIronComputeRequest(cmbType_->Text().toStdString(), numEditMagZ_->Value()));
    });
}

void HardIronCal::MSComm3_OnComm() {
    Trap("MSComm3_OnComm", [this] {
        const Exchange computing = Computing();
        CollectReply(computing);
        ReportCompute();
        EndExchange(computing);
    });
}

void HardIronCal::ReportCompute() const {
    if (!HasFrames(AppState.CommandBytes, CmdHardIronCompute)) {
        ShowMessage(malformedReplyText);
        return;
    }
    const auto computed = DecodeHardIronComputeReply(AppState.CommandBytes, AppState.MagGainScale);
    if (computed) Show<3>(*computed, parameterFields_);
    ShowMessage(computed ? "Compute Parameter succeeded!" : "Compute Parameter failed checksum!");
}

void HardIronCal::mnuReturn_Click() {
    Trap("mnuReturn_Click", [this] {
        MousePointer(Pointer::Default);
        Unload();
    });
}

}  // namespace orbkl4

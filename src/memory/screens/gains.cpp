#include "memory/screens/gains.h"

#include "errors/trap.h"
#include "link/checked_reply.h"
#include "link/communication.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/controls/form.h"
#include "platform/windows/boxes.h"
#include "state/app_state.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

#include <array>
#include <string>

namespace orbkl4 {

namespace {

constexpr int gainsTickMilliseconds = 1000;
constexpr double greatestGain = 65535;
constexpr QSize gainsSize(720, 400);

constexpr auto gainsMenu = std::to_array<MenuRow>({
    {"mnuFile", "&File"},
    {"mnuRead", "Rea&d", "mnuFile"},
    {"mnuWrite", "&Write", "mnuFile"},
    {"mnuSep", "-", "mnuFile"},
    {"mnuReturn", "&Return", "mnuFile"},
});

struct GainRow {
    const char* label;
    const char* address;
};

/// In the order of the gains in the packets.
constexpr auto gainRows = std::to_array<GainRow>({
    {"Accelerometer Proportional Gain", "124"},
    {"Magnetometer Proportional Gain", "126"},
    {"Bias Tracking Gain", "128"},
});

}  // namespace

Gains::Gains()
    : Screen("Gains", "Read/Write Current System Gains"),
      fraGain_(MakeFrame(this, "fraGain", "System Gains")),
      progress_(this, 0, 1),
      port_(this, "MSComm1"),
      timerRead_(this, "TimerRead", gainsTickMilliseconds),
      timerWrite_(this, "TimerWrite", gainsTickMilliseconds) {
    BuildMenu(gainsMenu);
    BuildLayout();
    DesignSize(gainsSize);
    connect(&Menu("mnuRead"), &MenuEntry::Click, this, &Gains::mnuRead_Click);
    connect(&Menu("mnuWrite"), &MenuEntry::Click, this, &Gains::mnuWrite_Click);
    connect(&Menu("mnuReturn"), &MenuEntry::Click, this, &Gains::mnuReturn_Click);
    connect(&timerRead_, &Timer::Tick, this, &Gains::TimerRead_Timer);
    connect(&timerWrite_, &Timer::Tick, this, &Gains::TimerWrite_Timer);
}

void Gains::BuildLayout() {
    constexpr int gap = 28;
    constexpr int rowsBelow = 2;
    auto* grid = new QGridLayout(fraGain_);
    grid->setHorizontalSpacing(gap);
    for (const int edge : {0, 4}) grid->setColumnStretch(edge, 1);
    KeepReadableDisabled(*fraGain_);
    for (std::size_t i = 0; i < gainRows.size(); ++i) {
        const auto& [label, address] = gainRows.at(i);
        const auto row = static_cast<int>(i);
        auto* field = Named(new CWNumEdit(fraGain_), (std::string("NumEdit") + address).c_str());
        field->Limits(0, greatestGain);
        field->WholeNumbers(true);
        fields_.at(i) = field;
        const std::string names[] = {std::string("lblGain") + address,
                                     std::string("lblAddress") + address};
        grid->addWidget(MakeLabel(*field, names[0].c_str(), label), row, 1);
        grid->addWidget(field, row, 2, Qt::AlignVCenter);
        grid->addWidget(MakeLabel(fraGain_, names[1].c_str(), address), row, 3);
    }
    for (int row = 0; row < grid->rowCount(); ++row) grid->setRowStretch(row, 1);
    grid->setRowStretch(grid->rowCount(), rowsBelow);
    auto* column = MakeMiddleColumn(this);
    column->addWidget(fraGain_, 1);
    column->addWidget(progress_.Frame());
}

void Gains::Form_Load() {
    Trap("Form_Load", [this] { mnuRead_Click(); });
}

void Gains::EnableControls(bool enabled) {
    Menu("mnuRead").Enabled(enabled);
    Menu("mnuWrite").Enabled(enabled);
    fraGain_->setEnabled(enabled);
}

void Gains::BeginRun(const char* caption) {
    MousePointer(Pointer::Hourglass);  // stays where the run can't start, unlike on other screens
    EnableControls(false);
    progress_.Start(1, caption);
}

void Gains::EndRun(Timer& timer, const char* message) {
    timer.Enabled(false);
    CloseCommPort(port_, *this);
    MousePointer(Pointer::Default);
    ShowMessage(message);
    EnableControls(true);
    progress_.Rest();
}

void Gains::ShowGains(const SystemGains& gains) {
    const std::array values{gains.accelerometer, gains.magnetometer, gains.biasTracking};
    static_assert(std::tuple_size_v<decltype(values)> == std::tuple_size_v<decltype(fields_)>);
    for (std::size_t i = 0; i < values.size(); ++i) fields_.at(i)->Value(values.at(i));
}

void Gains::SendRead() { Send(port_, DeviceCommand::CmdReadSystemGains); }

void Gains::SendWrite() {
    const auto& [accelerometer, magnetometer, biasTracking] = fields_;
    Send(port_,
         WriteGainsRequest({accelerometer->Value(), magnetometer->Value(), biasTracking->Value()}));
}

void Gains::mnuRead_Click() {
    Trap("mnuRead_Click", [this] {
        BeginRun("Reading");
        ShowGains({0, 0, 0});
        OpenCommPort(port_, *this);
        port_.Input(AppState.CommandBytes);  // discards stale bytes
        SendRead();
        timerRead_.Enabled(true);
    });
}

void Gains::TimerRead_Timer() {
    Trap("TimerRead_Timer", [this] {
        switch (TakeCheckedReply(port_, DeviceCommand::CmdReadSystemGains)) {
            case ReplyVerdict::Retry: SendRead(); return;
            case ReplyVerdict::Good: ShowGains(GainsIn(AppState.CommandBytes)); break;
            case ReplyVerdict::Skip: break;
        }
        EndRun(timerRead_, "Read process has completed!");
    });
}

void Gains::mnuWrite_Click() {
    Trap("mnuWrite_Click", [this] {
        BeginRun("Writing");
        OpenCommPort(port_, *this);
        SendWrite();
        timerWrite_.Enabled(true);
    });
}

void Gains::TimerWrite_Timer() {
    Trap("TimerWrite_Timer", [this] {
        if (TakeCheckedReply(port_, DeviceCommand::CmdWriteSystemGains) == ReplyVerdict::Retry) {
            SendWrite();
            return;
        }
        EndRun(timerWrite_, "Write process has completed!");
    });
}

void Gains::mnuReturn_Click() {
    Trap("mnuReturn_Click", [this] { Unload(); });
}

}  // namespace orbkl4

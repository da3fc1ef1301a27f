#include "calibrate/screens/self_test.h"

#include "acquire/closed_port.h"
#include "acquire/logic/packets.h"
#include "acquire/logic/sampling.h"
#include "acquire/watchdog.h"
#include "base/number_text.h"
#include "errors/trap.h"
#include "link/communication.h"
#include "link/logic/frame_check.h"
#include "link/logic/requests.h"
#include "platform/controls/cw_button.h"
#include "platform/controls/cw_graph.h"
#include "platform/controls/form.h"
#include "platform/controls/text_field.h"
#include "platform/system/clock.h"
#include "platform/windows/boxes.h"
#include "platform/windows/resize_tracking.h"
#include "state/app_state.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include <exception>
#include <string>

namespace orbkl4 {

namespace {

constexpr auto command = DeviceCommand::CmdRawSensorBits;

constexpr MenuRow menuTree[] = {
    {"mnuFile", "&File"},
    {"mnuSample", "&Sample", "mnuFile"},
    {"mnuSep", "-", "mnuFile"},
    {"mnuReturn", "&Return", "mnuFile"},
};

using State = SampleStateRecord;
constexpr bool group = true;  // stands off from the row above

/// The first and the last two are no plots.
constexpr TextRow rows[] = {
    {"txtHeader", "Header", &State::HeaderGyro},
    {"txtRawMag1", "Mag 1 (solid)", &State::RawMag1, group},
    {"txtRawMag2", "Mag 2 (dash)", &State::RawMag2},
    {"txtRawMag3", "Mag 3 (dot)", &State::RawMag3},
    {"txtRawAcc1", "Acc 1 (solid)", &State::RawAcc1, group},
    {"txtRawAcc2", "Acc 2 (dash)", &State::RawAcc2},
    {"txtRawAcc3", "Acc 3 (dot)", &State::RawAcc3},
    {"txtRawAngRate1", "Ang Rate 1 (solid)", &State::RawAngRate1, group},
    {"txtRawAngRate2", "Ang Rate 2 (dash)", &State::RawAngRate2},
    {"txtRawAngRate3", "Ang Rate 3 (dot)", &State::RawAngRate3},
    {"txtTimerTicks", "Timer Ticks", &State::TicksGyro, group},
    {"txtCS", "Check Sum", &State::ChecksumGyro},
};

constexpr TextPanel panel{"fraBits", "Raw Sensor Bits", "LED", 0, rows};
constexpr std::size_t firstPlot = 1;
constexpr std::size_t plots = 9;
static_assert(std::size(rows) == firstPlot + plots + 2);

constexpr double readoutGrowth = 1.3;
constexpr double reads = 200;
constexpr double mostBits = 65535;
constexpr QSize designSize(1060, 560);

}  // namespace

SelfTest::SelfTest() : Screen("SelfTest", "Self Test") {
    BuildMenu(menuTree);
    BuildLayout();
    connect(&Menu("mnuSample"), &MenuEntry::Click, this, &SelfTest::mnuSample_Click);
    connect(&Menu("mnuReturn"), &MenuEntry::Click, this, &SelfTest::mnuReturn_Click);
    connect(&port_, &MSComm::OnComm, this, &SelfTest::MSComm1_OnComm);
    connect(&timer_, &Timer::Tick, this, &SelfTest::TimerSampling_Timer);
    ConnectShifts();
}

void SelfTest::BuildLayout() {
    auto* left = new QVBoxLayout;
    left->addWidget(BuildPanel(this, panel, fields_), 1);
    left->addWidget(BuildShift());
    led_ = findChild<CWButton*>(QLatin1String(panel.led));
    auto* panels = new QHBoxLayout;
    panels->addLayout(left, 1);
    panels->addWidget(BuildGraph(), 2);
    lblWarning_ = MakeWarning(this);
    auto* column = new QVBoxLayout(this);
    column->addLayout(panels, 1);
    column->addWidget(lblWarning_, 0, Qt::AlignRight);
    DesignSize(designSize);
}

QGroupBox* SelfTest::BuildShift() {
    fraShift_ = MakeFrame(this, "fraShift", "Shift");
    auto* column = new QVBoxLayout(fraShift_);
    for (std::size_t i = 0; const SelfTestShift& shift : selfTestShifts) {
        auto* check = new QCheckBox(ToQString(shift.caption), fraShift_);
        check->setObjectName(ToQString(shift.control));
        column->addWidget(check);
        checks_.at(i++) = check;
    }
    lblSelfTestByte_ = MakeLabel(fraShift_, "lblSelfTestByte", "0");
    column->addWidget(lblSelfTestByte_, 0, Qt::AlignRight);
    KeepFontScaled(*lblSelfTestByte_, readoutGrowth);
    fraShift_->setEnabled(false);
    return fraShift_;
}

QGroupBox* SelfTest::BuildGraph() {
    auto* frame = MakeFrame(this, "fraGraph", "Graph");
    graph_ = Named(new CWGraph(plots, frame), "CWGraph1");
    graph_->AxisX(QStringLiteral("Reads"), 0, reads);
    graph_->AxisY(QStringLiteral("Bitsness"), 0, mostBits);
    for (std::size_t plot = 0; plot < plots; ++plot)
        graph_->PlotName(plot, QString::fromUtf8(rows[firstPlot + plot].label));
    auto* inside = new QVBoxLayout(frame);
    inside->addWidget(graph_);
    return frame;
}

void SelfTest::ConnectShifts() {
    for (std::size_t i = 0; const SelfTestShift& shift : selfTestShifts) {
        connect(checks_.at(i++), &QCheckBox::toggled, this, [this, &shift] { Shift_Click(shift); });
    }
}

void SelfTest::mnuSample_Click() {
    Trap("mnuSample_Click", [this] {
        if (Menu("mnuSample").Checked()) {
            Stop();
        } else {
            Start();
        }
    });
}

void SelfTest::Start() {
    Menu("mnuSample").Checked(true);
    ClearSelfTestFields();
    graph_->Clear();
    led_->Value(false);
    port_.RThreshold(static_cast<std::int16_t>(ReplyLength(command)));
    OpenCommPort(port_, *this);
    timer_.Enabled(true);
    StartSampleTime(PerformanceCounter());
    fraShift_->setEnabled(true);
    AppState.CommandBytes = Request(command);
    port_.Output(AppState.CommandBytes);
}

void SelfTest::Stop() {
    timer_.Enabled(false);
    CloseCommPort(port_, *this);
    fraShift_->setEnabled(false);
    Menu("mnuSample").Checked(false);
    led_->Value(false);
    SampleState.LastWrittenTicks = 0;
}

void SelfTest::MSComm1_OnComm() {
    Trap("MSComm1_OnComm", [this] {
        NoteReply(*lblWarning_);
        InputUnlessClosed(port_, AppState.CommandBytes);
        TakeSample();
    });
}

void SelfTest::TakeSample() {
    if (!HasFrames(AppState.CommandBytes, command)) {
        RequestSample();
        return;
    }
    StampSampleTime(PerformanceCounter());
    if (!DecodeRawBits()) {
        RequestSample();
        led_->Value(false);
        return;
    }
    led_->Value(true);
    ShowSample();
    RequestSample();
}

void SelfTest::RequestSample() {
    AppState.CommandBytes.assign(1, ByteOf(command));
    OutputUnlessClosed(port_, AppState.CommandBytes);
}

void SelfTest::ShowSample() const {
    for (const auto& [field, text] : fields_) text->Text(ScreenText(field.In(SampleState)));
    std::array<double, plots> words{};
    for (std::size_t plot = 0; plot < plots; ++plot)
        words.at(plot) = rows[firstPlot + plot].field.In(SampleState);
    graph_->Append(words);
}

void SelfTest::ClearSelfTestFields() const {
    for (const auto& shown : fields_) shown.control->Text("");
}

void SelfTest::TimerSampling_Timer() {
    Trap("TimerSampling_Timer", [this] {
        WatchdogTick(timer_, *lblWarning_, Menu("mnuSample").Checked(),
                     [this] { mnuSample_Click(); });
    });
}

void SelfTest::Shift_Click(const SelfTestShift& shift) {
    Trap(std::string(shift.control) + "_Click", [this] { SendSelfTestByte(); });
}

/// The request goes out in between those for samples; what comes back for it spoils a sample.
void SelfTest::SendSelfTestByte() {
    try {
        std::array<bool, selfTestShifts.size()> ticked{};
        for (std::size_t i = 0; i < ticked.size(); ++i) ticked.at(i) = checks_.at(i)->isChecked();
        const std::uint8_t sum = SelfTestByte(ticked);
        lblSelfTestByte_->setText(QString::number(sum));
        AppState.CommandBytes = Request(DeviceCommand::CmdSelfTest, {sum});
        port_.Output(AppState.CommandBytes);
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): it is to end without a word
    }
}

void SelfTest::mnuReturn_Click() {
    Trap("mnuReturn_Click", [this] {
        MousePointer(Pointer::Default);
        SampleState.LastWrittenTicks = 0;
        Unload();
    });
}

}  // namespace orbkl4

#include "calibrate/screens/self_test.h"

#include "base/number_text.h"
#include "errors/trap.h"
#include "link/communication.h"
#include "link/logic/requests.h"
#include "platform/controls/cw_graph.h"
#include "platform/controls/form.h"
#include "platform/controls/text_field.h"
#include "platform/events/mscomm.h"
#include "platform/windows/font_following.h"
#include "state/app_state.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include <exception>
#include <string>

namespace orbkl4 {

namespace {

constexpr MenuRow selfTestMenu[] = {
    {"mnuFile", "&File"},
    {"mnuSample", "&Sample", "mnuFile"},
    {"mnuSep", "-", "mnuFile"},
    {"mnuReturn", "&Return", "mnuFile"},
};

constexpr bool startsGroup = true;  // has extra space above

/// The first row and the last two have no plot.
constexpr TextRow rows[] = {
    {"txtHeader", "Header", &Sample::HeaderGyro},
    {"txtRawMag1", "Mag 1 (solid)", &Sample::RawMag1, startsGroup},
    {"txtRawMag2", "Mag 2 (dash)", &Sample::RawMag2},
    {"txtRawMag3", "Mag 3 (dot)", &Sample::RawMag3},
    {"txtRawAcc1", "Acc 1 (solid)", &Sample::RawAcc1, startsGroup},
    {"txtRawAcc2", "Acc 2 (dash)", &Sample::RawAcc2},
    {"txtRawAcc3", "Acc 3 (dot)", &Sample::RawAcc3},
    {"txtRawAngRate1", "Ang Rate 1 (solid)", &Sample::RawAngRate1, startsGroup},
    {"txtRawAngRate2", "Ang Rate 2 (dash)", &Sample::RawAngRate2},
    {"txtRawAngRate3", "Ang Rate 3 (dot)", &Sample::RawAngRate3},
    {"txtTimerTicks", "Timer Ticks", &Sample::TicksGyro, startsGroup},
    {"txtCS", "Check Sum", &Sample::ChecksumGyro},
};

constexpr TextPanel panel{"fraBits", "Raw Sensor Bits", "LED", 0, rows};
constexpr std::size_t firstPlot = 1;
constexpr std::size_t plots = 9;
static_assert(std::size(rows) == firstPlot + plots + 2);

constexpr double selfTestGrowth = 1.3;
constexpr double reads = 200;
constexpr double mostBits = 65535;
constexpr QSize selfTestSize(1060, 560);

}  // namespace

SelfTest::SelfTest() : Screen("SelfTest", "Self Test") {
    BuildMenu(selfTestMenu);
    BuildLayout();
    channel_.emplace(BindChannel(
        ChannelsOf("SelfTest").front(), *this,
        {.show = [this] { ShowSample(); }, .atStart = [this] { ClearAll(); }, .atStop = {}}));
    ConnectChannel(*channel_);
    connect(&Menu("mnuReturn"), &MenuEntry::Click, this, &SelfTest::mnuReturn_Click);
    ConnectShifts();
}

void SelfTest::BuildLayout() {
    auto* right = new QVBoxLayout;
    auto* panels = new QHBoxLayout;
    panels->addWidget(BuildPanel(this, panel, fields_), 1);
    panels->addLayout(right, 2);
    right->addWidget(BuildGraph(), 1);
    right->addWidget(BuildShift());
    auto* column = new QVBoxLayout(this);
    column->addLayout(panels, 1);
    column->addWidget(MakeWarning(this), 0, Qt::AlignRight);
    DesignSize(selfTestSize);
}

QGroupBox* SelfTest::BuildShift() {
    auto* frame = MakeFrame(this, "fraShift", "Shift");
    constexpr int columns = 2;
    auto* grid = new QGridLayout(frame);
    for (std::size_t i = 0; const SelfTestShift& shift : selfTestShifts) {
        auto* check = new QCheckBox(ToQString(shift.caption), frame);
        check->setObjectName(ToQString(shift.control));
        const auto place = static_cast<int>(i);
        grid->addWidget(check, place / columns, place % columns);
        checks_.at(i++) = check;
    }
    lblSelfTestByte_ = MakeLabel(frame, "lblSelfTestByte", "0");
    grid->addWidget(lblSelfTestByte_, 0, columns, columns, 1, Qt::AlignRight | Qt::AlignVCenter);
    for (int column = 0; column <= columns; ++column) grid->setColumnStretch(column, 1);
    KeepFontScaled(*lblSelfTestByte_, selfTestGrowth);
    frame->setEnabled(false);
    return frame;
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

void SelfTest::ClearAll() const {
    ClearSelfTestFields();
    graph_->Clear();
}

void SelfTest::Shift_Click(const SelfTestShift& shift) {
    Trap(std::string(shift.control) + "_Click", [this] { SendSelfTestByte(); });
}

/// The request goes out between those for samples; bytes that come back for it spoil a sample.
void SelfTest::SendSelfTestByte() {
    try {
        std::array<bool, selfTestShifts.size()> ticked{};
        for (std::size_t i = 0; i < ticked.size(); ++i) ticked.at(i) = checks_.at(i)->isChecked();
        const std::uint8_t sum = SelfTestByte(ticked);
        lblSelfTestByte_->setText(QString::number(sum));
        Send(channel_->port, Request(DeviceCommand::CmdSelfTest, {sum}));
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): it ends silently
    }
}

void SelfTest::mnuReturn_Click() {
    Trap("mnuReturn_Click", [this] { ReturnToMain(*this); });
}

}  // namespace orbkl4

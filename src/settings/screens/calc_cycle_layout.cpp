#include "base/number_text.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/form.h"
#include "platform/controls/option_button.h"
#include "platform/controls/text_field.h"
#include "platform/windows/font_following.h"
#include "settings/logic/cycle_words.h"
#include "settings/screens/calc_cycle.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

#include <array>
#include <string_view>

namespace orbkl4 {

namespace {

constexpr auto calcCycleMenu = std::to_array<MenuRow>({
    {"mnuFile", "&File"},
    {"mnuRead", "Rea&d", "mnuFile"},
    {"mnuCalcCycle", "Set &Calc Cycle", "mnuFile"},
    {"mnuCalcCycleDefault", "Set Calc Cycle to &Default", "mnuFile"},
    {"mnuSep", "-", "mnuFile"},
    {"mnuReturn", "&Return", "mnuFile"},
});

constexpr Axis intervals{.minimum = 2, .maximum = 25, .marks = 1, .subMarks = 0.5};
constexpr double intervalStep = 0.1;
constexpr double calcCycleGrowth = 1.4;
constexpr QSize calcCycleSize(900, 520);

}  // namespace

void CalcCycle::BuildLayout() {
    BuildMenu(calcCycleMenu);
    auto* column = MakeMiddleColumn(this);
    column->setSpacing(14);
    column->addWidget(BuildAutoSet());
    column->addWidget(BuildManualSet(), 1);
    column->addLayout(BuildInterval());
    DesignSize(calcCycleSize);
}

QGroupBox* CalcCycle::BuildAutoSet() {
    fraCalc1_ = MakeFrame(this, "fraCalc1", "Auto Set");
    slide_ = Named(new CWSlide(fraCalc1_), "CWSlide1");
    slide_->SetAxis(intervals);
    slide_->Orientation(Qt::Horizontal);
    slide_->MakeInteractive(intervalStep);
    slide_->Value(intervals.minimum);
    lblSlider_ = MakeLabel(fraCalc1_, "lblSlider", "2.00");
    lblSlider_->setAlignment(Qt::AlignCenter);
    KeepFontScaled(*lblSlider_, calcCycleGrowth);
    auto* row = new QHBoxLayout(fraCalc1_);
    row->setSpacing(12);
    row->addWidget(slide_, 8);
    row->addWidget(lblSlider_, 1);
    return fraCalc1_;
}

QGroupBox* CalcCycle::BuildManualSet() {
    auto* frame = MakeFrame(this, "fraCalc", "Manual Set");
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(28);
    for (const int edge : {0, 4}) grid->setColumnStretch(edge, 1);
    const auto addLabel = [&](std::string_view text, int row, int column) {
        grid->addWidget(MakeLabel(frame, "", text), row, column, Qt::AlignCenter);
    };
    for (int column = 1; const char* heading : {"EEPROM", "Value", "Range"})
        addLabel(heading, 0, column++);
    addLabel("238", 1, 1);
    grid->addWidget(BuildPrescaler(frame), 1, 2, Qt::AlignVCenter);
    grid->setRowStretch(1, 2);
    for (int row = 2; const FactorRow& factor : factorRows) {
        auto* number = Named(new CWNumEdit(frame), factor.name);
        number->Limits(1, factor.maximum);
        number->WholeNumbers(true);
        number->setAccessibleName(QStringLiteral("EEPROM address %1").arg(factor.address));
        factors_.at(static_cast<std::size_t>(row - 2)) = number;
        addLabel(ScreenText(factor.address), row, 1);
        grid->addWidget(number, row, 2, Qt::AlignVCenter);
        addLabel(factor.range, row, 3);
        grid->setRowStretch(row++, 1);
    }
    return frame;
}

QGroupBox* CalcCycle::BuildPrescaler(QWidget* parent) {
    auto* frame = MakeFrame(parent, "fra238", "1,4 or 16");
    auto* row = new QHBoxLayout(frame);
    row->setSpacing(24);
    for (std::size_t i = 0; const PrescalerRow& prescaler : prescalerRows) {
        auto* option = Named(new OptionButton(prescaler.caption, frame), prescaler.name);
        row->addWidget(option);
        prescalers_.at(i++) = option;
    }
    prescalers_.back()->Value(true);
    return frame;
}

QLayout* CalcCycle::BuildInterval() {
    txtCC_ = Named(new TextField(this), "txtCC");
    txtCC_->BackColorText(unusedBackground);
    constexpr int longestText = 12;  // "Calc errored!", in digits
    txtCC_->Characters(longestText);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(MakeLabel(*txtCC_, "lblCC", "Current Timer Tick Interval"));
    row->addWidget(txtCC_);
    row->addWidget(MakeLabel(this, "lblMsec", "msec"));
    KeepFontScaled(*txtCC_, calcCycleGrowth);
    row->addStretch(1);
    return row;
}

}  // namespace orbkl4

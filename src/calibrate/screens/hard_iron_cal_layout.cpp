#include "calibrate/screens/hard_iron_cal.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/controls/form.h"
#include "platform/controls/text_field.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

namespace orbkl4 {

namespace {

constexpr MenuRow hardIronCalMenu[] = {
    {"mnuFile", "&File"},
    {"mnuErase", "&Erase Hard Iron Field Calibration", "mnuFile"},
    {"mnuInit", "&Initialize Hard Iron Field Calibration", "mnuFile"},
    {"mnuCollect", "&Collect Hard Iron Calibration Data", "mnuFile"},
    {"mnuCompute", "Compute &Hard Iron Field Calibration", "mnuFile"},
    {"mnuSep", "-", "mnuFile"},
    {"mnuReturn", "&Return", "mnuFile"},
};

/// A text field and its label.
struct FieldRow {
    const char* name;
    const char* label;
    bool startsGroup = false;  ///< has extra space above
};

constexpr bool group = true;

constexpr FieldRow collectRows[] = {
    {"txtHeader", "Header"},
    {"txtMagFieldX", "Mag Field X", group},
    {"txtMagFieldY", "Mag Field Y"},
    {"txtMagFieldZ", "Mag Field Z"},
    {"txtMagFieldMinX", "Mag Field Min X", group},
    {"txtMagFieldMinY", "Mag Field Min Y"},
    {"txtMagFieldMinZ", "Mag Field Min Z"},
    {"txtMagFieldMaxX", "Mag Field Max X", group},
    {"txtMagFieldMaxY", "Mag Field Max Y"},
    {"txtMagFieldMaxZ", "Mag Field Max Z"},
    {"txtTimerTicks", "Timer Ticks", group},
    {"txtCS", "Check Sum"},
};

constexpr FieldRow hardIronCalRows[] = {
    {"txtHeader1", "Header"},
    {"txtHardIronOffsetX", "Hard Iron Offset X", group},
    {"txtHardIronOffsetY", "Hard Iron Offset Y"},
    {"txtHardIronOffsetZ", "Hard Iron Offset Z"},
    {"txtTimerTicks1", "Timer Ticks", group},
    {"txtCS1", "Check Sum"},
};

constexpr QSize hardIronCalSize(960, 470);

/// Makes the labelled fields of `rows` in `frame`, in the order of the rows.
void BuildFields(QGroupBox* frame, std::span<const FieldRow> rows, std::span<TextField*> fields) {
    constexpr int rowGap = 4;
    constexpr int groupGap = 6;
    constexpr int gaussDecimals = 4;
    auto* grid = new QGridLayout(frame);
    grid->setVerticalSpacing(rowGap);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    int line = 0;
    for (std::size_t i = 0; const FieldRow& row : rows) {
        if (row.startsGroup) grid->addItem(new QSpacerItem(0, groupGap), line++, 0);
        auto* field = Named(new TextField(frame), row.name);
        field->Decimals(gaussDecimals);
        fields[i++] = field;
        grid->addWidget(MakeLabel(*field, "", row.label), line, 0);
        grid->addWidget(field, line, 1, Qt::AlignVCenter);
        grid->setRowStretch(line++, 1);
    }
    // Half of the spare height goes below the fields, the rest between them.
    grid->setRowStretch(line, static_cast<int>(rows.size()));
}

}  // namespace

void HardIronCal::BuildLayout() {
    BuildMenu(hardIronCalMenu);
    auto* left = new QVBoxLayout;
    left->addWidget(BuildSettings());
    left->addWidget(BuildParameters(), 1);
    auto* panels = new QHBoxLayout;
    panels->addLayout(left, 1);
    panels->addWidget(BuildCollect(), 1);
    lblWarning_ = MakeWarning(this);
    auto* column = new QVBoxLayout(this);
    column->addLayout(panels, 1);
    column->addWidget(lblWarning_, 0, Qt::AlignRight);
    DesignSize(hardIronCalSize);
}

QGroupBox* HardIronCal::BuildSettings() {
    constexpr double startMagnitude = 0.52;
    constexpr double step = 0.01;
    constexpr double limit = 5;
    auto* frame = MakeFrame(this, "fraSettings", "Settings");
    cmbType_ = Named(new ComboBox(frame), "cmbType");
    numEditMagZ_ = Named(new CWNumEdit(frame), "NumEditMagZ");
    numEditMagZ_->Limits(-limit, limit);
    numEditMagZ_->Increment(step);
    numEditMagZ_->Value(startMagnitude);
    auto* grid = new QGridLayout(frame);
    grid->setColumnStretch(0, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
    grid->addWidget(MakeLabel(*cmbType_, "lblType", "Calibration Type"), 0, 0);
    grid->addWidget(cmbType_, 0, 1);
    grid->addWidget(MakeLabel(*numEditMagZ_, "lblMagZ", "Magnitude Z"), 1, 0);
    grid->addWidget(numEditMagZ_, 1, 1);
    grid->addWidget(MakeLabel(frame, "lblGauss", "gauss"), 1, 2);
    return frame;
}

QGroupBox* HardIronCal::BuildCollect() {
    auto* frame = MakeFrame(this, "fraCollect", "Collect");
    BuildFields(frame, collectRows, collectFields_);
    led_ = MakeLamp(*frame, "LED");
    return frame;
}

QGroupBox* HardIronCal::BuildParameters() {
    auto* frame = MakeFrame(this, "fraParameters", "Parameters");
    BuildFields(frame, hardIronCalRows, parameterFields_);
    return frame;
}

}  // namespace orbkl4

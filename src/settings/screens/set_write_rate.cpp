#include "settings/screens/set_write_rate.h"

#include "base/number_text.h"
#include "errors/trap.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/controls/form.h"
#include "settings/logic/write_rate.h"
#include "state/sample_state.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace orbkl4 {

SetWriteRate::SetWriteRate()
    : Screen("SetWriteRate", "Set Data Acquisition Sampling Rate"),
      chkUnrestricted_(
          Named(new QCheckBox(QStringLiteral("Maximum (default)"), this), "chkUnrestricted")),
      numEditRate_(Named(new CWNumEdit(this), "NumEditRate")) {
    constexpr double startRate = 10;
    constexpr double leastRate = 0.01;
    constexpr double mostRate = 157;
    numEditRate_->Limits(leastRate, mostRate);
    numEditRate_->Value(startRate);
    BuildLayout();
    connect(chkUnrestricted_, &QCheckBox::toggled, this, &SetWriteRate::chkUnrestricted_Click);
}

void SetWriteRate::BuildLayout() {
    QGroupBox* frame = MakeFrame(this, "Frame1", "Select");
    auto* rows = new QGridLayout(frame);
    rows->addWidget(chkUnrestricted_, 0, 0, 1, 2);
    rows->addWidget(numEditRate_, 1, 0);
    rows->addWidget(MakeLabel(*numEditRate_, "", "Samples per Second"), 1, 1);
    const std::string limits =
        ScreenText(numEditRate_->Minimum()) + " to " + ScreenText(numEditRate_->Maximum());
    rows->addWidget(MakeLabel(frame, "lblLimits", limits), 2, 0);
    numEditRate_->setToolTip(ToQString(limits));
    numEditRate_->setAccessibleDescription(ToQString(limits));
    QPushButton* cmdOK = MakeButton(this, "cmdOK", "OK", [this] { cmdOK_Click(); });
    DefaultButton(*cmdOK);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(MakeButton(this, "cmdCancel", "Cancel", [this] { cmdCancel_Click(); }));
    auto* column = new QVBoxLayout(this);
    column->addWidget(frame);
    column->addLayout(buttons);
}

void SetWriteRate::Form_Load() {
    Trap("Form_Load", [this] {
        const double interval = SampleState.WriteIntervalTicks;
        if (interval == 0) chkUnrestricted_->setChecked(true);
        if (interval > 0) {
            chkUnrestricted_->setChecked(false);
            numEditRate_->Value(SamplesPerSecondOf(interval));
        }
    });
}

void SetWriteRate::chkUnrestricted_Click() {
    Trap("chkUnrestricted_Click", [this] {
        const bool unrestricted = chkUnrestricted_->isChecked();
        if (unrestricted) numEditRate_->Value(0);
        numEditRate_->setEnabled(!unrestricted);
    });
}

void SetWriteRate::cmdOK_Click() {
    Trap("cmdOK_Click", [this] {
        SampleState.WriteIntervalTicks =
            chkUnrestricted_->isChecked() ? 0 : WriteIntervalOf(numEditRate_->Value());
        Unload();
    });
}

void SetWriteRate::cmdCancel_Click() {
    Trap("cmdCancel_Click", [this] { Unload(); });
}

}  // namespace orbkl4

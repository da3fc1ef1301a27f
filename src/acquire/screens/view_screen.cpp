#include "acquire/screens/view_screen.h"

#include "base/number_text.h"
#include "errors/trap.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/form.h"
#include "platform/controls/text_field.h"
#include "platform/windows/common_dialog.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>

#include <algorithm>
#include <string_view>

namespace orbkl4 {

ViewScreen::ViewScreen(const View& view) : Screen(view.name, view.title), view_(view) {
    BuildMenu(view.menu);
    new CommonDialog(this, "CommonDialog1");
    BuildLayout();
    const auto rows = ChannelsOf(view.name);
    channels_.reserve(rows.size());  // handlers refer to the elements
    for (const SamplingChannel& row : rows) AddChannel(row, channels_.size());
    ConnectMenu();
    DesignSizeOfLayout();
}

void ViewScreen::BuildLayout() {
    auto* column = new QVBoxLayout(this);
    auto* panels = new QHBoxLayout;
    column->addLayout(panels, 1);
    for (const TextPanel& panel : view_.panels) {
        panels->addWidget(BuildPanel(this, panel, panels_.emplace_back()), 1);
    }
    if (!view_.slides.empty()) panels->addWidget(BuildSlides(this, view_.slides, slides_), 2);
    auto* bottom = new QHBoxLayout;
    if (!view_.dials.empty()) {
        panels->addWidget(BuildDials(this, view_.dials, dials_));
        bottom->addWidget(BuildCapturing(this));
    }
    for (const TextPanel& panel : view_.hidden) {
        std::vector<Shown<TextField>> neverFilled;
        BuildPanel(this, panel, neverFilled)->setVisible(false);
    }
    bottom->addStretch(1);
    bottom->addWidget(MakeWarning(this));
    column->addLayout(bottom);
}

void ViewScreen::AddChannel(const SamplingChannel& row, std::size_t panel) {
    channels_.push_back(BindChannel(row, *this,
                                    {.show = [this, panel] { DisplaySample(panel); },
                                     .atStart = {},
                                     .atStop = [this] { ClearAll(); }}));
    ConnectChannel(channels_.back());
}

void ViewScreen::ConnectMenu() {
    connect(&Menu("mnuSave"), &MenuEntry::Click, this, &ViewScreen::mnuSave_Click);
    connect(&Menu("mnuReturn"), &MenuEntry::Click, this, &ViewScreen::mnuReturn_Click);
    const auto hasName = [](const MenuRow& row) {
        return std::string_view(row.name) == "mnuCaptureBias";
    };
    if (std::ranges::any_of(view_.menu, hasName)) {
        connect(&Menu("mnuCaptureBias"), &MenuEntry::Click, this,
                &ViewScreen::mnuCaptureBias_Click);
    }
}

void ViewScreen::DisplaySample(std::size_t panel) const {
    if (panel < panels_.size()) {
        for (const auto& [field, text] : panels_[panel])
            text->Text(ScreenText(field.In(SampleState)));
    }
    for (const auto& [field, slide] : slides_) slide->Value(field.In(SampleState));
    for (const auto& [field, dial] : dials_) dial->Value(field.In(SampleState));
}

void ViewScreen::ClearAll() const {
    for (std::size_t panel = panels_.size(); panel-- > 0;) {  // the instantaneous one first
        for (const auto& shown : panels_[panel]) shown.control->Text("");
    }
    for (const auto& shown : slides_) shown.control->Value(0);
    for (const auto& shown : dials_) shown.control->Value(0);
}

void ViewScreen::mnuSave_Click() {
    Trap("mnuSave_Click", [this] { ToggleSave(*this, view_.kind); });
}

void ViewScreen::mnuCaptureBias_Click() {
    Trap("mnuCaptureBias_Click", [this] { CaptureGyroBias(channels_); });
}

void ViewScreen::mnuReturn_Click() {
    Trap("mnuReturn_Click", [this] { ReturnToMain(*this); });
}

}  // namespace orbkl4

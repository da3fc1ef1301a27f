#include "memory/screens/view_matrix.h"

#include "base/number_text.h"
#include "base/run_time_error.h"
#include "errors/trap.h"
#include "memory/logic/catalogue.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/controls/form.h"
#include "platform/controls/option_button.h"
#include "platform/windows/screen_registry.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

#include <array>
#include <string>

namespace orbkl4 {

namespace {

constexpr auto viewMatrixMenu = std::to_array<MenuRow>({{"mnuClose", "&Close"}});

}  // namespace

ViewMatrix::ViewMatrix()
    : Screen("ViewMatrix", "View Matrix"), fraMatrix_(MakeFrame(this, "fraMatrix", "")) {
    BuildMenu(viewMatrixMenu);
    connect(&Menu("mnuClose"), &MenuEntry::Click, this, &ViewMatrix::mnuClose_Click);
    auto* row = new QHBoxLayout(this);
    row->addWidget(BuildOptions());
    row->addWidget(fraMatrix_, 1);
    BuildMatrixFrame();
}

void ViewMatrix::BuildMatrixFrame() {
    constexpr int digits = 8;
    constexpr int gap = 12;
    fraMatrix_->setTitle(ToQString(matrixOptions.front().caption));
    auto* grid = new QGridLayout(fraMatrix_);
    grid->setVerticalSpacing(gap);
    for (std::size_t k = 0; k < txtMatrix_.size(); ++k) {
        const auto row = static_cast<int>(k % size);
        const auto column = static_cast<int>(k / size);
        const std::string element = "M" + std::to_string(row + 1) + std::to_string(column + 1);
        auto* field = new TextField(fraMatrix_);
        auto* label = MakeLabel(*field, ("lbl" + element).c_str(), element);
        field->setObjectName(MemberName("txtMatrix", static_cast<int>(k) + 1));
        field->Characters(digits);
        field->Decimals(0);
        field->setMinimumWidth(field->sizeHint().width());
        grid->addWidget(label, row, 2 * column, Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(field, row, 2 * column + 1);
        txtMatrix_.at(k) = field;
    }
    QList<QWidget*> byRows;
    for (std::size_t k = 0; k < txtMatrix_.size(); ++k)
        byRows += txtMatrix_.at(k % size * size + k / size);
    TabThrough(byRows);
}

QGroupBox* ViewMatrix::BuildOptions() {
    QGroupBox* frame = MakeFrame(this, "fraOptions", "Select");
    auto* column = new QVBoxLayout(frame);
    for (std::size_t i = 0; i < options_.size(); ++i) {
        auto* option = new OptionButton(ToQString(matrixOptions.at(i).caption), frame);
        option->setObjectName(QStringLiteral("Option%1").arg(i + 1));
        option->Value(i == 0);
        connect(option, &OptionButton::Click, this, [this, i] { Option_Click(i); });
        column->addWidget(option);
        options_.at(i) = option;
    }
    return frame;
}

void ViewMatrix::Form_Load() {
    Trap("Form_Load", [this] { ShowMatrixFrom(matrixOptions.front().base); });
}

void ViewMatrix::Option_Click(std::size_t option) {
    Trap("Option" + std::to_string(option + 1) + "_Click", [this] { RefreshMatrix(); });
}

void ViewMatrix::RefreshMatrix() {
    for (std::size_t i = 0; i < options_.size(); ++i) {
        if (!options_.at(i)->Value()) continue;
        fraMatrix_->setTitle(ToQString(matrixOptions.at(i).caption));
        ShowMatrixFrom(matrixOptions.at(i).base);
        return;
    }
}

void ViewMatrix::ShowMatrixFrom(eeprom::Address base) {
    const Screen* map = FindScreen("EEPROMmap");
    if (map == nullptr) Raise(ErrorNumber::SubscriptOutOfRange, "The EEPROM map isn't open");
    for (std::size_t k = 0; k < txtMatrix_.size(); ++k) {
        const auto index = static_cast<int>(IndexOf(base) + k);
        const auto* field = map->findChild<CWNumEdit*>(MemberName("NumEdit", index));
        txtMatrix_.at(k)->Text(ScreenText(field->Value()));
    }
}

void ViewMatrix::mnuClose_Click() {
    Trap("mnuClose_Click", [this] { Unload(); });
}

}  // namespace orbkl4

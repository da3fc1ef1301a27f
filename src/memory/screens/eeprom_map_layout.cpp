// Layout and menu of `EEPROMmap`; its handlers are in eeprom_map.cpp.

#include "memory/screens/eeprom_map.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/controls/form.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QShortcut>

#include <array>

namespace orbkl4 {

namespace {

using enum EntryState;

constexpr auto mapMenu = std::to_array<MenuRow>({
    {"mnuFile", "&File"},
    {"mnuRead", "Rea&d", "mnuFile"},
    {"mnuWrite", "&Write", "mnuFile"},
    {"mnuViewMatrix", "&View Matrix", "mnuFile"},
    {"mnuSep1", "-", "mnuFile", Hidden},
    {"mnuLog", "Lo&g EEPROM", "mnuFile", Hidden},
    {"mnuShowMin", "&Show Min", "mnuFile", Hidden},
    {"mnuShowMax", "Show &Max", "mnuFile", Hidden},
    {"Sep1", "-", "mnuFile"},
    {"mnuReturn", "&Return", "mnuFile"},
});

constexpr auto firstFrameRows = static_cast<int>(RowsAt(0));
constexpr auto secondFrameRows = static_cast<int>(RowsAt(firstFrameFields));

// The shares of a column's width; the label's has room that separates it from the field before.
constexpr int labelShare = 4;
constexpr int fieldShare = 7;
constexpr int wordRowGap = 3;
constexpr int columnGap = 5;
constexpr QSize mapSize(1010, 530);

}  // namespace

void EEPROMmap::BuildLayout() {
    setAttribute(Qt::WA_Hover);
    auto* first = new QGridLayout(fraEEPROMAddresses1_);
    auto* second = new QGridLayout(fraEEPROMAddresses_);
    for (QGridLayout* grid : {first, second}) {
        grid->setVerticalSpacing(wordRowGap);
        grid->setHorizontalSpacing(columnGap);
    }
    for (std::size_t index = 0; index < NumEdit_.size(); ++index) {
        if (index < firstFrameFields) {
            AddField(*first, index, firstFrameRows);
        } else {
            AddField(*second, index, secondFrameRows);
        }
    }
    QList<QWidget*> panelAfterFirst{NumEdit_.at(firstFrameFields - 1)};
    for (TextField* text : panel_.Frame()->findChildren<TextField*>()) panelAfterFirst += text;
    TabThrough(panelAfterFirst);
    auto* top = new QHBoxLayout;
    top->addWidget(fraEEPROMAddresses1_, 2);
    top->addWidget(panel_.Frame(), 6);
    top->addWidget(progress_.Frame(), 2);
    auto* column = new QVBoxLayout(this);
    column->addLayout(top, firstFrameRows);
    column->addWidget(fraEEPROMAddresses_, secondFrameRows);
    fraEEPROMAddresses1_->setAccessibleName(QStringLiteral("EEPROM addresses 0 to 14"));
    fraEEPROMAddresses_->setAccessibleName(QStringLiteral("EEPROM addresses 16 to 254"));
    // Most fields are disabled at the level "Standard", and all are during a run.
    KeepReadableDisabled(*fraEEPROMAddresses1_);
    KeepReadableDisabled(*fraEEPROMAddresses_);
    DesignSize(mapSize);
}

void EEPROMmap::AddField(QGridLayout& grid, std::size_t index, int rowsPerColumn) {
    const auto place =
        static_cast<int>(index < firstFrameFields ? index : index - firstFrameFields);
    const int row = place % rowsPerColumn;
    const int column = place / rowsPerColumn * 2;
    QWidget* frame = grid.parentWidget();
    const std::string address = std::to_string(2 * index);
    auto* field = new CWNumEdit(frame);
    auto* label = MakeLabel(*field, ("lblAddress" + address).c_str(), address);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    field->setObjectName(MemberName("NumEdit", static_cast<int>(index)));
    field->setAccessibleName(QStringLiteral("EEPROM address %1").arg(2 * index));
    field->Compact();
    field->WholeNumbers(true);
    grid.addWidget(label, row, column);
    grid.addWidget(field, row, column + 1);
    grid.setColumnStretch(column, labelShare);
    grid.setColumnStretch(column + 1, fieldShare);
    NumEdit_.at(index) = field;
}

void EEPROMmap::ConnectMenu() {
    BuildMenu(mapMenu);
    connect(&Menu("mnuRead"), &MenuEntry::Click, this, &EEPROMmap::mnuRead_Click);
    connect(&Menu("mnuWrite"), &MenuEntry::Click, this, &EEPROMmap::mnuWrite_Click);
    connect(&Menu("mnuViewMatrix"), &MenuEntry::Click, this, &EEPROMmap::mnuViewMatrix_Click);
    connect(&Menu("mnuLog"), &MenuEntry::Click, this, &EEPROMmap::mnuLog_Click);
    connect(&Menu("mnuShowMin"), &MenuEntry::Click, this, &EEPROMmap::mnuShowMin_Click);
    connect(&Menu("mnuShowMax"), &MenuEntry::Click, this, &EEPROMmap::mnuShowMax_Click);
    connect(&Menu("mnuReturn"), &MenuEntry::Click, this, &EEPROMmap::mnuReturn_Click);
    const QKeySequence chord(Qt::CTRL | Qt::Key_F11);
    auto* shortcut = new QShortcut(chord, this);
    connect(shortcut, &QShortcut::activated, this, &EEPROMmap::Form_KeyDown);
}

}  // namespace orbkl4

#include "memory/screens/word_panel.h"

#include "base/number_text.h"
#include "memory/logic/catalogue.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/controls/form.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

namespace orbkl4 {

namespace {

/// A text field `name` that spans `columns` columns of `grid`, after its label.
TextField* AddText(QGridLayout& grid, int row, int column, const char* name, const char* caption,
                   int columns = 1) {
    QWidget* frame = grid.parentWidget();
    auto* field = Named(new TextField(frame), name);
    auto* label = MakeLabel(*field, (std::string("lbl") + (name + 3)).c_str(), caption);
    grid.addWidget(label, row, column);
    grid.addWidget(field, row, column + 1, 1, columns);
    return field;
}

}  // namespace

WordPanel::WordPanel(QWidget* screen) : fraEEPROM_(MakeFrame(screen, "fraEEPROM", "EEPROM")) {
    constexpr int whole = 5;
    auto* grid = new QGridLayout(fraEEPROM_);
    txtEAdd_ = AddText(*grid, 0, 0, "txtEAdd", "EEPROM Address");
    txtMin_ = AddText(*grid, 0, 2, "txtMin", "Minimum Limit");
    txtMax_ = AddText(*grid, 0, 4, "txtMax", "Maximum Limit");
    txtEEPROMName_ = AddText(*grid, 1, 0, "txtEEPROMName", "EEPROM Name", whole);
    txtRemarks_ = AddText(*grid, 2, 0, "txtRemarks", "Remarks", whole);
}

void WordPanel::Show(const EepromWord& word, const CWNumEdit& field) {
    txtEAdd_->Text(std::to_string(word.address));
    txtEEPROMName_->Text(EEPROMNames.at(IndexOf(word.address)));
    txtRemarks_->Text(RemarkOf(word.access));
    txtMin_->Text(ScreenText(field.Minimum()));
    txtMax_->Text(ScreenText(field.Maximum()));
}

void WordPanel::Clear() {
    for (TextField* text : {txtEAdd_, txtEEPROMName_, txtRemarks_, txtMin_, txtMax_})
        text->Text({});
}

}  // namespace orbkl4

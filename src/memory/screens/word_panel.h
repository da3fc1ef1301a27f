#pragma once

class QGroupBox;
class QWidget;

namespace orbkl4 {

class CWNumEdit;
class TextField;
struct EepromWord;

/// The frame `fraEEPROM` with five texts about a word of the EEPROM map.
class WordPanel {
  public:
    /// A panel with empty texts.
    explicit WordPanel(QWidget* screen);

    /// The frame, for the layout.
    QGroupBox* Frame() const { return fraEEPROM_; }

    /// Shows `word` with the limits of its field.
    void Show(const EepromWord& word, const CWNumEdit& field);

    /// Empties the texts.
    void Clear();

  private:
    QGroupBox* fraEEPROM_;
    TextField *txtEAdd_, *txtEEPROMName_, *txtRemarks_, *txtMin_, *txtMax_;
};

}  // namespace orbkl4

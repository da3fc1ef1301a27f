#pragma once

#include <QRadioButton>

namespace orbkl4 {

/// An option button; those of one frame exclude one another, and code can clear all of them.
class OptionButton : public QRadioButton {
    Q_OBJECT

  public:
    /// An option that isn't chosen, with the caption `text`.
    explicit OptionButton(const QString& text = {}, QWidget* parent = nullptr);

    /// Whether this option is chosen.
    bool Value() const { return isChecked(); }

    /// Chooses this option, or clears it and leaves none chosen.
    void Value(bool chosen);

  Q_SIGNALS:
    /// The option has come on, by hand or by code.
    void Click();
};

}  // namespace orbkl4

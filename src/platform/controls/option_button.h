#pragma once

#include <QRadioButton>

namespace orbkl4 {

/// An option button. At most one of a frame is chosen; code can clear the choice. The Tab key goes
/// to the chosen one, the arrow keys move the choice.
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
    /// The option has been chosen, by the user or by code.
    void Click();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    QList<OptionButton*> Group() const;
    void SetTabStop();
};

}  // namespace orbkl4

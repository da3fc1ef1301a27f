#pragma once

#include <QComboBox>

namespace orbkl4 {

/// A drop-down list. It starts without a choice and raises `Click` whenever code sets or the user
/// chooses a row, even the row that is chosen already.
class ComboBox : public QComboBox {
    Q_OBJECT

  public:
    /// An empty list.
    explicit ComboBox(QWidget* parent = nullptr);

    /// Appends a row without changing the choice.
    void AddItem(const QString& text) { addItem(text); }

    /// The chosen row from 0, or -1 for none.
    int ListIndex() const { return currentIndex(); }

    /// Chooses the row `row` (from 0), or none with -1; error 380 if there is no such row.
    void ListIndex(int row);

    /// The text of the chosen row, empty for none.
    QString Text() const { return currentText(); }

    void showPopup() override;

  Q_SIGNALS:
    /// Code has set a row, or the user has chosen one.
    void Click();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    bool clicked_ = false;  ///< the choice that the user is making has raised `Click` already
};

}  // namespace orbkl4

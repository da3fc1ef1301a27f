#pragma once

#include <QComboBox>

namespace orbkl4 {

/// A drop-down list that starts with no row chosen and raises `Click` whenever a row is set by code
/// or chosen by hand, also the row that stands already.
class ComboBox : public QComboBox {
    Q_OBJECT

  public:
    /// An empty list.
    explicit ComboBox(QWidget* parent = nullptr);

    /// Appends a row; the choice stays as it is.
    void AddItem(const QString& text) { addItem(text); }

    /// The chosen row from 0, or -1 for none.
    int ListIndex() const { return currentIndex(); }

    /// Chooses the row `row` from 0, or none by -1; error 380 where there is no such row.
    void ListIndex(int row);

    /// The text of the chosen row, empty for none.
    QString Text() const { return currentText(); }

    void showPopup() override;

  Q_SIGNALS:
    /// A row has been set by code or chosen by hand.
    void Click();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    bool told_ = false;  ///< the choice now being made by hand has raised `Click` already
};

}  // namespace orbkl4

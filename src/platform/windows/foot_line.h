#pragma once

#include <QLineEdit>

namespace orbkl4 {

/// One line of text at the foot of a window, which can be marked and copied; Ctrl+C copies all of
/// it while nothing is marked. What doesn't fit gives way to an ellipsis while the line isn't in
/// use, and is shown in the tool tip.
class FootLine : public QLineEdit {
    Q_OBJECT

  public:
    FootLine();

    /// Shows `text` and, if it isn't empty, `more` beside it; `text` gives way to `more`. Nothing
    /// changes while a part is marked.
    void Show(const QString& text, const QString& more);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void PaintFocus();
    int Room() const;
    QString FittingText() const;

    QString text_;
    QString more_;
};

}  // namespace orbkl4

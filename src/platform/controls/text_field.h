#pragma once

#include "platform/controls/colour.h"
#include "platform/controls/deferred_update.h"

#include <QWidget>

#include <cstdint>
#include <string>
#include <string_view>

namespace orbkl4 {

/// A field that shows one line of text, cheap enough to be set with every sample. A person can
/// select its text and copy it, but not type into it.
class TextField : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString text READ QtText WRITE SetQtText NOTIFY Changed)
    Q_PROPERTY(uint backColorText READ BackColorText WRITE BackColorText)

  public:
    /// An empty field that stands left in its frame.
    explicit TextField(QWidget* parent = nullptr);

    /// The text (UTF-8).
    const std::string& Text() const { return text_; }

    /// Shows `text` (UTF-8), and raises `Changed` if it differs from the text before.
    void Text(std::string_view text);

    /// The background, as 0xBBGGRR or `windowBackground`.
    std::uint32_t BackColorText() const { return backColorText_; }

    /// Sets the background, as 0xBBGGRR or `windowBackground`.
    void BackColorText(std::uint32_t bgr);

    /// Keeps room for `count` decimals, so that points stand in one column and whole numbers end
    /// before it; a negative count, as at the start, sets the text left.
    void Decimals(int count);

    /// The number of characters (digits) that the field's natural width has room for, 10 at first.
    void Characters(int count);

    /// The selected part of the text.
    QString SelectedText() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// The text has changed; raised before `Text` returns.
    void Changed();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    QString QtText() const { return QString::fromStdString(text_); }
    void SetQtText(const QString& text) { Text(text.toStdString()); }
    double TextLeft(const QString& text) const;
    int PositionAt(double x) const;
    void Select(int anchor, int cursor);
    void SelectAll();
    void Copy() const;
    double Baseline() const;
    void PaintText(QPainter& painter, const QString& text) const;
    void PaintSelection(QPainter& painter, const QString& text, double left) const;

    std::string text_;
    std::uint32_t backColorText_ = windowBackground;
    int decimals_ = -1;
    int characters_ = 10;
    double digitWidth_ = 0;  ///< of the present font, in pixels
    double pointWidth_ = 0;
    int anchor_ = 0;  ///< the selection runs from here to the cursor; both may lie beyond the text
    int cursor_ = 0;
    DeferredUpdate repaint_{this, [this] { update(); }};
};

}  // namespace orbkl4

#pragma once

#include "platform/controls/colour.h"
#include "platform/controls/deferred_update.h"

#include <QLineEdit>

#include <cstdint>
#include <string>
#include <string_view>

namespace orbkl4 {

/// A line of text that users can select and copy, but not edit. Every sample may set it: `Text` has
/// the new text at once, the screen follows 25 times a second at most.
class TextField : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(QString text READ QtText WRITE SetQtText NOTIFY Changed)
    Q_PROPERTY(uint backColorText READ BackColorText WRITE BackColorText)

  public:
    /// An empty field with its text on the left.
    explicit TextField(QWidget* parent = nullptr);

    /// The text (UTF-8).
    const std::string& Text() const { return text_; }

    /// Sets the text (UTF-8), and raises `Changed` if it differs from the text before.
    void Text(std::string_view text);

    /// The background, as 0xBBGGRR or `windowBackground`.
    std::uint32_t BackColorText() const { return backColorText_; }

    /// Sets the background, as 0xBBGGRR or `windowBackground`.
    void BackColorText(std::uint32_t bgr);

    /// Puts numbers on the right with room for `count` decimals, so that the decimal points of a
    /// column of fields line up; a negative count puts the text on the left.
    void Decimals(int count);

    /// The number of characters (digits) that fit into the field's preferred width, 10 at first.
    void Characters(int count);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// The text has changed; raised before `Text` returns.
    void Changed();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void initStyleOption(QStyleOptionFrame* option) const override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    QString QtText() const { return QString::fromStdString(text_); }
    void SetQtText(const QString& text) { Text(text.toStdString()); }
    void ShowText();
    int RoomForDecimals() const;
    int WidthFor(int characters) const;

    std::string text_;
    std::uint32_t backColorText_ = windowBackground;
    int decimals_ = -1;
    int characters_ = 10;
    DeferredUpdate refresh_{this, [this] { ShowText(); }};
};

}  // namespace orbkl4

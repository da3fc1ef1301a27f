#include "platform/controls/text_field.h"

#include "platform/windows/colours.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QToolTip>

#include <algorithm>

namespace orbkl4 {

namespace {

constexpr int margin = 6;  // between the field's left and right edge and its text, in pixels
constexpr int qtLeft = 2;  // the parts of it that QLineEdit adds, on the right for the cursor too
constexpr int qtRight = 3;
constexpr int verticalMargin = 4;

}  // namespace

TextField::TextField(QWidget* parent) : QLineEdit(parent) {
    setReadOnly(true);
    // A plain frame painted here covers the whole field. Below Qt's frame with its round corners
    // the parent would be repainted with every number, which takes three times as long.
    setFrame(false);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void TextField::Text(std::string_view text) {
    if (text == text_) return;
    text_.assign(text);
    if (isVisible()) {
        refresh_.Mark();
    } else {
        ShowText();
    }
    Q_EMIT Changed();
}

void TextField::ShowText() {
    const QString next = QtText();
    const QString shown = text();
    if (next == shown) return;
    // The selection stays, so that a user can copy a number while samples come in.
    const bool all = hasSelectedText() && selectedText() == shown;
    const int cursor = cursorPosition();
    const int otherEnd = cursor == selectionEnd() ? selectionStart() : selectionEnd();
    const int anchor = hasSelectedText() ? otherEnd : cursor;
    setText(next);
    if (all) return selectAll();
    const auto length = static_cast<int>(next.size());
    const int from = std::min(anchor, length);
    setSelection(from, std::min(cursor, length) - from);
}

void TextField::paintEvent(QPaintEvent* event) {
    const int frame = hasFocus() ? 2 : 1;
    {
        QPainter painter(this);
        painter.fillRect(rect(), hasFocus() ? colours::accent() : colours::line());
        painter.fillRect(rect().adjusted(frame, frame, -frame, -frame), palette().base());
    }
    QLineEdit::paintEvent(event);
}

void TextField::initStyleOption(QStyleOptionFrame* option) const {
    QLineEdit::initStyleOption(option);
    const int right = margin - qtRight + RoomForDecimals();
    option->rect.adjust(margin - qtLeft, verticalMargin, -right, -verticalMargin);
}

void TextField::BackColorText(std::uint32_t bgr) {
    if (bgr == backColorText_) return;
    backColorText_ = bgr;
    SetBackground(*this, bgr);
}

void TextField::Decimals(int count) {
    decimals_ = count;
    setAlignment((count < 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
}

void TextField::Characters(int count) {
    characters_ = count;
    updateGeometry();
}

/// How far the text ends from the right margin to have its point in the column, in pixels.
int TextField::RoomForDecimals() const {
    if (decimals_ <= 0) return 0;
    const QFontMetricsF metrics(font());
    const double digit = metrics.horizontalAdvance('0');
    const auto widthOf = [&](QStringView text) {  // far faster than by the metrics
        double sum = 0;
        for (const QChar letter : text)
            sum += letter.isDigit() ? digit : metrics.horizontalAdvance(letter);
        return sum;
    };
    const QString shown = text();
    const double whole = widthOf(QStringView(shown).left(shown.indexOf('.')));
    // Qt rounds the width of the text, and with it the place of the point.
    const int toColumnEnd = qRound(whole + metrics.horizontalAdvance('.') + decimals_ * digit);
    const int textWidth = qRound(widthOf(shown));
    return std::max(0, std::min(toColumnEnd, width() - 2 * margin) - textWidth);
}

int TextField::WidthFor(int characters) const {
    return qRound(QFontMetricsF(font()).horizontalAdvance('0') * characters) + 2 * margin + 1;
}

QSize TextField::sizeHint() const {
    return {WidthFor(characters_), fontMetrics().height() + 2 * verticalMargin};
}

QSize TextField::minimumSizeHint() const {
    constexpr int fewest = 6;  // a word and its sign
    return {WidthFor(std::min(characters_, fewest)), sizeHint().height()};
}

bool TextField::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty()) {
        const bool cut = fontMetrics().horizontalAdvance(text()) > width() - 2 * margin;
        const QPoint where = static_cast<QHelpEvent*>(event)->globalPos();
        QToolTip::showText(where, cut ? text().toHtmlEscaped() : QString(), this);
        return true;
    }
    return QLineEdit::event(event);
}

void TextField::mouseDoubleClickEvent(QMouseEvent* event) {
    // Qt would select a word, which leaves out the sign of a number.
    if (event->button() == Qt::LeftButton) selectAll();
}

}  // namespace orbkl4

#include "platform/windows/foot_line.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace orbkl4 {

namespace {

constexpr int sideMargin = 14;
constexpr QLatin1String gap("  |  ");

}  // namespace

FootLine::FootLine() {
    setObjectName(QStringLiteral("txtStatus"));
    setAccessibleName(tr("Status"));
    setReadOnly(true);
    setFrame(false);
    setTextMargins(sideMargin, 3, sideMargin, 3);
}

void FootLine::Show(const QString& text, const QString& more) {
    if (hasSelectedText() || (text == text_ && more == more_)) return;
    text_ = text;
    more_ = more.isEmpty() ? more : gap + more;
    setText(text_ + more_);
    setCursorPosition(0);
}

QString FootLine::FittingText() const {
    const QFontMetrics metrics = fontMetrics();
    const int left = Room() - metrics.horizontalAdvance(more_);
    const QString shortened = metrics.elidedText(text_, Qt::ElideRight, std::max(left, 0));
    return metrics.elidedText(shortened + more_, Qt::ElideRight, Room());
}

int FootLine::Room() const { return width() - 2 * sideMargin; }

void FootLine::PaintFocus() {
    constexpr int width = 2;
    QPainter painter(this);
    painter.setPen(QPen(palette().highlight(), width));
    painter.drawRect(rect().adjusted(width / 2, width / 2, -width / 2, -width / 2));
}

/// Marks nothing, which would stop the line.
void FootLine::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        deselect();
}

void FootLine::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy) && !hasSelectedText()) {
        QGuiApplication::clipboard()->setText(text());
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

bool FootLine::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QLineEdit::event(event);
    const bool isCut = fontMetrics().horizontalAdvance(text()) > Room();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), isCut ? text() : QString());
    return true;
}

void FootLine::paintEvent(QPaintEvent* event) {
    if (hasFocus()) {
        QLineEdit::paintEvent(event);
        PaintFocus();
        return;
    }
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect().adjusted(sideMargin, 0, -sideMargin, 0), Qt::AlignVCenter,
                     FittingText());
}

}  // namespace orbkl4

#include "platform/windows/foot_line.h"

#include <QHelpEvent>
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
    setFocusPolicy(Qt::ClickFocus);
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

bool FootLine::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QLineEdit::event(event);
    const bool isCut = fontMetrics().horizontalAdvance(text()) > Room();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), isCut ? text() : QString());
    return true;
}

void FootLine::paintEvent(QPaintEvent* event) {
    if (hasFocus()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect().adjusted(sideMargin, 0, -sideMargin, 0), Qt::AlignVCenter,
                     FittingText());
}

}  // namespace orbkl4

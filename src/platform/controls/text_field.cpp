#include "platform/controls/text_field.h"

#include "platform/windows/colours.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <limits>

namespace orbkl4 {

namespace {

constexpr int margin = 6;  // between frame and text, in pixels
constexpr int verticalMargin = 4;

/// Beyond the end of any text, so that a text chosen whole stays so when a new one comes in.
constexpr int endOfText = std::numeric_limits<int>::max();

}  // namespace

TextField::TextField(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::IBeamCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    QEvent fontKnown(QEvent::FontChange);
    TextField::changeEvent(&fontKnown);
}

void TextField::Text(std::string_view text) {
    if (text == text_) return;
    text_.assign(text);
    repaint_.Mark();
    Q_EMIT Changed();
}

void TextField::BackColorText(std::uint32_t bgr) {
    if (bgr == backColorText_) return;
    backColorText_ = bgr;
    repaint_.Mark();
}

void TextField::Decimals(int count) {
    decimals_ = count;
    update();
}

void TextField::Characters(int count) {
    characters_ = count;
    updateGeometry();
}

QString TextField::SelectedText() const {
    const QString text = QtText();
    const auto size = static_cast<int>(text.size());
    const int first = std::min({anchor_, cursor_, size});
    const int last = std::min(std::max(anchor_, cursor_), size);
    return text.mid(first, last - first);
}

QSize TextField::sizeHint() const {
    const double width = digitWidth_ * characters_ + 2 * margin;
    return {static_cast<int>(width) + 1, fontMetrics().height() + 2 * verticalMargin};
}

QSize TextField::minimumSizeHint() const {
    constexpr int fewest = 6;  // a word and its sign
    const double width = digitWidth_ * std::min(characters_, fewest) + 2 * margin;
    return {static_cast<int>(width) + 1, sizeHint().height()};
}

bool TextField::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty()) {
        const bool cut = fontMetrics().horizontalAdvance(QtText()) > width() - 2 * margin;
        const QPoint where = static_cast<QHelpEvent*>(event)->globalPos();
        QToolTip::showText(where, cut ? QtText().toHtmlEscaped() : QString(), this);
        return true;
    }
    return QWidget::event(event);
}

void TextField::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) {
        const QFontMetricsF metrics(font());
        digitWidth_ = metrics.horizontalAdvance('0');
        pointWidth_ = metrics.horizontalAdvance('.');
        updateGeometry();
    }
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::FontChange) update();
    QWidget::changeEvent(event);
}

double TextField::TextLeft(const QString& text) const {
    if (decimals_ < 0) return margin;
    const QFontMetricsF metrics(font());
    const double right = width() - margin;
    const double reserved = decimals_ > 0 ? pointWidth_ + decimals_ * digitWidth_ : 0;
    const double whole = metrics.horizontalAdvance(text.left(text.indexOf('.')));
    const double left = std::min(right - reserved - whole, right - metrics.horizontalAdvance(text));
    return std::max<double>(left, margin);
}

void TextField::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    // Filled rectangles keep the frame sharp at every scale of the screen.
    const int frame = hasFocus() ? 2 : 1;
    const bool plain = backColorText_ == windowBackground;
    const QRect inside = rect().adjusted(frame, frame, -frame, -frame);
    for (const QRect& side : QRegion(rect()) - inside) {
        painter.fillRect(side, hasFocus() ? colours::accent : colours::line);
    }
    painter.fillRect(inside, plain ? palette().color(QPalette::Base) : Colour(backColorText_));
    painter.setPen(palette().color(QPalette::Text));
    if (!text_.empty()) PaintText(painter, QtText());
}

double TextField::Baseline() const {
    const QFontMetrics metrics = fontMetrics();
    return (height() + metrics.ascent() - metrics.descent()) / 2.0;
}

void TextField::PaintText(QPainter& painter, const QString& text) const {
    painter.setClipRect(rect().adjusted(2, 1, -2, -1));
    const double baseline = Baseline();
    const double left = TextLeft(text);
    const int room = width() - 2 * margin;
    if (anchor_ == cursor_ && fontMetrics().horizontalAdvance(text) > room) {
        const QString shown = fontMetrics().elidedText(text, Qt::ElideRight, room);
        painter.drawText(QPointF(margin, baseline), shown);
        return;
    }
    painter.drawText(QPointF(left, baseline), text);
    if (anchor_ != cursor_) PaintSelection(painter, text, left);
}

void TextField::PaintSelection(QPainter& painter, const QString& text, double left) const {
    const QFontMetricsF metrics(font());
    const auto size = static_cast<int>(text.size());
    const int first = std::min({anchor_, cursor_, size});
    const double start = left + metrics.horizontalAdvance(text.left(first));
    const double length = metrics.horizontalAdvance(SelectedText());
    const QRectF box(start, 3, length, height() - 6);
    painter.fillRect(box, palette().brush(QPalette::Highlight));
    painter.setClipRect(box, Qt::IntersectClip);
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.drawText(QPointF(left, Baseline()), text);
}

int TextField::PositionAt(double x) const {
    const QString text = QtText();
    const QFontMetricsF metrics(font());
    double edge = TextLeft(text);
    for (int i = 0; i < text.size(); ++i) {
        const double width = metrics.horizontalAdvance(text.at(i));
        if (x < edge + width / 2) return i;
        edge += width;
    }
    return static_cast<int>(text.size());
}

void TextField::Select(int anchor, int cursor) {
    anchor_ = anchor;
    cursor_ = cursor;
    update();
}

void TextField::SelectAll() { Select(0, endOfText); }

void TextField::Copy() const {
    const QString selected = SelectedText();
    if (!selected.isEmpty()) QApplication::clipboard()->setText(selected);
}

void TextField::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const int position = PositionAt(event->position().x());
    const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
    Select(extend ? anchor_ : position, position);
}

void TextField::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons().testFlag(Qt::LeftButton)) {
        Select(anchor_, PositionAt(event->position().x()));
    }
}

void TextField::mouseReleaseEvent(QMouseEvent* event) {
    QClipboard* clipboard = QApplication::clipboard();
    if (event->button() != Qt::LeftButton || !clipboard->supportsSelection()) return;
    const QString selected = SelectedText();
    if (!selected.isEmpty()) clipboard->setText(selected, QClipboard::Selection);
}

void TextField::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) SelectAll();
}

void TextField::keyPressEvent(QKeyEvent* event) {
    const auto size = static_cast<int>(QtText().size());
    const int cursor = std::min(cursor_, size);
    const int anchor = std::min(anchor_, size);
    if (event->matches(QKeySequence::Copy)) return Copy();
    if (event->matches(QKeySequence::SelectAll)) return SelectAll();
    const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
    int target = 0;
    switch (event->key()) {
        case Qt::Key_Left: target = std::max(cursor - 1, 0); break;
        case Qt::Key_Right: target = std::min(cursor + 1, size); break;
        case Qt::Key_Home: target = 0; break;
        case Qt::Key_End: target = size; break;
        default: QWidget::keyPressEvent(event); return;
    }
    Select(extend ? anchor : target, target);
}

void TextField::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* copy = menu->addAction(tr("&Copy"), this, &TextField::Copy);
    copy->setEnabled(!SelectedText().isEmpty());
    QAction* selectAll = menu->addAction(tr("Select &All"), this, &TextField::SelectAll);
    selectAll->setEnabled(!text_.empty());
    menu->popup(event->globalPos());
}

void TextField::focusInEvent(QFocusEvent* event) {
    const auto reason = event->reason();
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) SelectAll();
    update();
}

void TextField::focusOutEvent(QFocusEvent* event) {
    // A selection outlives a menu or a switch of programs, which is what it is copied for.
    const auto reason = event->reason();
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
        reason == Qt::MouseFocusReason) {
        Select(0, 0);
    }
    update();
}

}  // namespace orbkl4

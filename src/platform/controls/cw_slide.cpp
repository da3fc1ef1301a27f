#include "platform/controls/cw_slide.h"

#include "base/number_text.h"
#include "platform/controls/slide_painting.h"
#include "platform/windows/colours.h"
#include "platform/windows/resize.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTransform>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace orbkl4 {

namespace {

constexpr double edge = 2;          // between picture and widget border, in pixels
constexpr double usualPoints = 10;  // size of the font for which the slide is drawn
constexpr int stepsPerPage = 10;

/// The text beside a mark.
QString LabelOf(double mark) { return QString::fromStdString(ScreenText(mark)); }

/// The width of the widest label of `axis`.
double LabelWidth(const Axis& axis, const QFontMetricsF& metrics) {
    return std::max(metrics.horizontalAdvance(LabelOf(axis.minimum)),
                    metrics.horizontalAdvance(LabelOf(axis.maximum)));
}

QFont LabelFont(QFont font) {
    font.setPointSizeF(font.pointSizeF() * 0.85);
    return font;
}

}  // namespace

CWSlide::CWSlide(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    Forget();
}

void CWSlide::SetAxis(const Axis& axis) {
    axis_ = axis;
    Forget();
    updateGeometry();
    update();
}

void CWSlide::Orientation(Qt::Orientation orientation) {
    orientation_ = orientation;
    setSizePolicy(Vertical() ? QSizePolicy::Preferred : QSizePolicy::Expanding,
                  Vertical() ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    Forget();
    updateGeometry();
    update();
}

void CWSlide::Style(Look look) {
    look_ = look;
    Orientation(Qt::Vertical);
}

void CWSlide::Empty(bool empty) {
    empty_ = empty;
    repaint_.Mark();
}

void CWSlide::MakeInteractive(double step) {
    step_ = step;
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    update();
}

void CWSlide::Value(double value) {
    if (value == value_) return;
    value_ = value;
    repaint_.Mark();
    Q_EMIT ValueChanged(value);
}

double CWSlide::GrooveWidth() const {
    return Scaled(look_ == Look::Thermometer ? slide::tube : slide::groove);
}

double CWSlide::PointerRoom() const {
    return Scaled(look_ == Look::Thermometer ? slide::bulb + 1
                                             : slide::groove / 2 + slide::pointer);
}

void CWSlide::Forget() {
    scale_ = std::max(1.0, font().pointSizeF() / usualPoints * DisplayScale(*this));
    track_ = {};
    face_.Forget();
}

const QLineF& CWSlide::Track() const {
    if (track_.isNull()) track_ = MakeTrack();
    return track_;
}

QRect CWSlide::PointerBox() const {
    if (look_ == Look::Thermometer || Interactive()) return rect();
    const double reach = Scaled(slide::pointer + 2 + slide::groove);
    const QPointF place = PlaceOf(value_);
    const QPointF corner(reach, reach);
    return QRectF(place - corner, place + corner).toAlignedRect();
}

QLineF CWSlide::MakeTrack() const {
    using namespace slide;
    const QFontMetricsF metrics(LabelFont(font()));
    const double halfLabel = metrics.height() / 2;
    if (Vertical()) {
        const double labels =
            LabelWidth(axis_, metrics) + Scaled(3 + mark + markGap) + GrooveWidth() / 2;
        const double across = labels + PointerRoom();
        const double x = std::max((width() - across) / 2, edge) + labels;
        const double end = std::max(halfLabel, Scaled(pointer)) + edge;
        const double below = look_ == Look::Thermometer ? Scaled(2 * bulb + 2) : 0;
        return {x, height() - end - below, x, end};
    }
    const double end = std::max(LabelWidth(axis_, metrics) / 2, Scaled(pointer)) + edge;
    const double below = Scaled(pointer) + 2 * edge;
    return {end, below, width() - end, below};
}

QSize CWSlide::sizeHint() const {
    using namespace slide;
    const QFontMetricsF metrics(LabelFont(font()));
    if (Vertical()) {
        const double gaps = Scaled(mark + markGap + 3) + 2 * edge;
        const double across = LabelWidth(axis_, metrics) + GrooveWidth() / 2 + PointerRoom() + gaps;
        return {static_cast<int>(across), 260};
    }
    const double across = Scaled(2 * pointer + mark + markGap) + metrics.height() + 4 * edge;
    return {300, static_cast<int>(across)};
}

QSize CWSlide::minimumSizeHint() const {
    constexpr int shortest = 120;
    const QSize hint = sizeHint();
    return Vertical() ? QSize(hint.width(), shortest) : QSize(shortest, hint.height());
}

void CWSlide::changeEvent(QEvent* event) {
    const auto type = event->type();
    if (type == QEvent::FontChange || type == QEvent::PaletteChange) Forget();
    QWidget::changeEvent(event);
}

void CWSlide::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    face_.Draw(painter, event->rect(), PointerBox(),
               [this](QPainter& onFace) { PaintFace(onFace); });
    painter.setRenderHint(QPainter::Antialiasing);
    PaintPointer(painter);
}

void CWSlide::PaintFace(QPainter& painter) const {
    painter.save();
    painter.scale(scale_, scale_);
    const QLineF track = QTransform::fromScale(1 / scale_, 1 / scale_).map(Track());
    if (look_ == Look::Thermometer) {
        PaintGlass(painter, track);
    } else {
        PaintGroove(painter, track, isEnabled());
    }
    painter.restore();
    PaintMarks(painter);
}

void CWSlide::PaintMarks(QPainter& painter) const {
    painter.setFont(LabelFont(font()));
    const QFontMetricsF metrics(painter.font());
    painter.setPen(QPen(isEnabled() ? colours::ink() : colours::disabledInk(), 1));
    const bool vertical = Vertical();
    const double inner =
        (vertical ? GrooveWidth() / 2 : Scaled(slide::pointer)) + Scaled(slide::markGap);
    const auto outwards = [vertical](double distance) {
        return vertical ? QPointF(-distance, 0) : QPointF(0, distance);
    };
    for (const double value : axis_.Multiples(axis_.subMarks)) {
        const QPointF place = PlaceOf(value);
        painter.drawLine(place + outwards(inner), place + outwards(inner + Scaled(slide::subMark)));
    }
    const std::vector<double> marks = axis_.Multiples(axis_.marks);
    // Where the numbers would touch, only every second, third ... one is written.
    const double size = vertical ? metrics.height() : LabelWidth(axis_, metrics) * 1.3;
    const double room = Track().length() * axis_.marks / (axis_.maximum - axis_.minimum);
    const auto every = static_cast<std::size_t>(std::max(1.0, std::ceil(size / room)));
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const QPointF place = PlaceOf(marks[i]);
        painter.drawLine(place + outwards(inner), place + outwards(inner + Scaled(slide::mark)));
        if (i % every != 0) continue;
        const QString label = LabelOf(marks[i]);
        const QSizeF extent(metrics.horizontalAdvance(label), metrics.height());
        const QPointF end = place + outwards(inner + Scaled(slide::mark + 3));
        const QPointF corner = vertical ? end - QPointF(extent.width(), extent.height() / 2)
                                        : end - QPointF(extent.width() / 2, 0);
        painter.drawText(corner + QPointF(0, metrics.ascent()), label);
    }
}

void CWSlide::PaintPointer(QPainter& painter) const {
    painter.scale(scale_, scale_);
    const QLineF track = QTransform::fromScale(1 / scale_, 1 / scale_).map(Track());
    const QPointF place = PlaceOf(value_) / scale_;
    if (look_ == Look::Thermometer) {
        if (!empty_) PaintFluid(painter, track, place, isEnabled());
        return;
    }
    PaintLevel(painter, track, place, isEnabled());
    if (Interactive()) {
        PaintThumb(painter, place, Vertical(), hasFocus(), isEnabled());
    } else {
        PaintArrow(painter, place, Vertical(), isEnabled());
    }
}

void CWSlide::MoveTo(double value) {
    const double inside = std::clamp(value, axis_.minimum, axis_.maximum);
    const double steps = std::round((inside - axis_.minimum) / step_);
    // By way of the text, which drops rounding error: 2.1, not 2.1000000000000001.
    const double snapped = ToNumber(ScreenText(axis_.minimum + steps * step_));
    Value(std::min(snapped, axis_.maximum));
}

void CWSlide::MoveBySteps(double steps) {
    MoveTo(std::clamp(value_, axis_.minimum, axis_.maximum) + steps * step_);
}

void CWSlide::MoveToMouse(const QPointF& mouse) {
    const QLineF track = Track();
    const QPointF place = mouse - grip_;
    const double along = Vertical() ? (track.y1() - place.y()) / (track.y1() - track.y2())
                                    : (place.x() - track.x1()) / (track.x2() - track.x1());
    MoveTo(axis_.minimum + along * (axis_.maximum - axis_.minimum));
}

void CWSlide::mousePressEvent(QMouseEvent* event) {
    if (!Interactive() || event->button() != Qt::LeftButton) return event->ignore();
    dragging_ = true;
    const QPointF offset = event->position() - PointerPlace();
    const bool onPointer = std::hypot(offset.x(), offset.y()) <= Scaled(slide::pointer);
    grip_ = onPointer ? offset : QPointF();
    if (!onPointer) MoveToMouse(event->position());
}

void CWSlide::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging_) return event->ignore();
    MoveToMouse(event->position());
}

void CWSlide::mouseReleaseEvent(QMouseEvent* event) {
    if (!dragging_) return event->ignore();
    if (event->button() == Qt::LeftButton) dragging_ = false;
}

void CWSlide::wheelEvent(QWheelEvent* event) {
    if (!Interactive()) return event->ignore();
    wheelRest_ += event->angleDelta().y();
    const int steps = wheelRest_ / QWheelEvent::DefaultDeltasPerStep;
    wheelRest_ -= steps * QWheelEvent::DefaultDeltasPerStep;
    if (steps != 0) MoveBySteps(steps);
    event->accept();
}

void CWSlide::keyPressEvent(QKeyEvent* event) {
    if (!Interactive()) return QWidget::keyPressEvent(event);
    switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Down: MoveBySteps(-1); break;
        case Qt::Key_Right:
        case Qt::Key_Up: MoveBySteps(1); break;
        case Qt::Key_PageDown: MoveBySteps(-stepsPerPage); break;
        case Qt::Key_PageUp: MoveBySteps(stepsPerPage); break;
        case Qt::Key_Home: MoveTo(axis_.minimum); break;
        case Qt::Key_End: MoveTo(axis_.maximum); break;
        default: QWidget::keyPressEvent(event); break;
    }
}

}  // namespace orbkl4

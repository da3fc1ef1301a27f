#include "platform/controls/cw_num_edit.h"

#include "base/number_text.h"
#include "base/run_time_error.h"
#include "platform/windows/pending_input.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace orbkl4 {

namespace {

/// `number` without the rounding error that steps such as 0.1 add up to.
double Cleaned(double number) { return ToNumber(ScreenText(number)); }

}  // namespace

CWNumEdit::CWNumEdit(QWidget* parent) : QAbstractSpinBox(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setKeyboardTracking(false);
    setAlignment(Qt::AlignRight);
    ShowValue();
    connect(lineEdit(), &QLineEdit::textEdited, this, &CWNumEdit::StartTyping);
}

void CWNumEdit::Value(double value) {
    const bool differs = value != value_;
    if (!differs && !typing_) return;
    typing_ = false;
    value_ = value;
    ShowValue();
    if (differs) Q_EMIT ValueChanged(value);
}

void CWNumEdit::Limits(double minimum, double maximum) {
    minimum_ = minimum;
    maximum_ = maximum;
}

void CWNumEdit::Compact() {
    setButtonSymbols(NoButtons);
    updateGeometry();
}

void CWNumEdit::BackColorText(std::uint32_t bgr) {
    if (bgr == backColorText_) return;
    backColorText_ = bgr;
    SetBackground(*this, bgr);
}

std::optional<double> CWNumEdit::Typed() const {
    try {
        const double number = ToNumber(lineEdit()->text().toStdString());
        return wholeNumbers_ ? std::nearbyint(number) : number;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

double CWNumEdit::Limited(double number) const {
    return std::min(std::max(number, minimum_), maximum_);
}

void CWNumEdit::ShowValue() {
    const QString text = QString::fromStdString(ScreenText(value_));
    if (lineEdit()->text() != text) lineEdit()->setText(text);
}

void CWNumEdit::StartTyping() {
    typing_ = true;
    StartPendingInput(this, [this] { Commit(); });
}

void CWNumEdit::Commit() {
    if (!typing_) return;
    const bool same = lineEdit()->text().toStdString() == ScreenText(value_);
    const std::optional<double> typed = Typed();
    Value(same || !typed ? value_ : Limited(*typed));
}

void CWNumEdit::stepBy(int steps) {
    const double from = typing_ ? Typed().value_or(value_) : value_;
    Value(Limited(Cleaned(from + steps * increment_)));
    lineEdit()->selectAll();
}

QAbstractSpinBox::StepEnabled CWNumEdit::stepEnabled() const {
    StepEnabled steps = StepNone;
    if (isReadOnly()) return steps;
    const double from = typing_ ? Typed().value_or(value_) : value_;
    if (from < maximum_) steps |= StepUpEnabled;
    if (from > minimum_) steps |= StepDownEnabled;
    return steps;
}

QSize CWNumEdit::sizeHint() const {
    constexpr std::size_t fewest = 5;
    constexpr std::size_t most = 9;
    const auto longest = std::max(ScreenText(minimum_).size(), ScreenText(maximum_).size());
    const auto characters = static_cast<int>(std::clamp(longest, fewest, most)) + 1;
    const QSize text(characters * fontMetrics().horizontalAdvance('0'), fontMetrics().height() + 4);
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    return style()->sizeFromContents(QStyle::CT_SpinBox, &option, text, this);
}

QSize CWNumEdit::minimumSizeHint() const { return sizeHint(); }

void CWNumEdit::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Enter:
        case Qt::Key_Return: Commit(); break;
        case Qt::Key_Escape:
            if (typing_) return Value(value_);
            break;
        default: break;
    }
    QAbstractSpinBox::keyPressEvent(event);
}

void CWNumEdit::focusOutEvent(QFocusEvent* event) {
    if (!ownMenuIsOpen_) Commit();
    QAbstractSpinBox::focusOutEvent(event);
    const bool programSwitch = event->reason() == Qt::ActiveWindowFocusReason;
    if (!ownMenuIsOpen_ && !programSwitch) Q_EMIT LostFocus();
}

void CWNumEdit::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QAbstractSpinBox::wheelEvent(event);
    } else {
        event->ignore();  // for what the field is in, which may scroll
    }
}

void CWNumEdit::contextMenuEvent(QContextMenuEvent* event) {
    ownMenuIsOpen_ = true;
    QAbstractSpinBox::contextMenuEvent(event);
    ownMenuIsOpen_ = false;
}

}  // namespace orbkl4

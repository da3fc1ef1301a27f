// Pointer and keys on the fields of `EEPROMmap`; its handlers are in eeprom_map.cpp.

#include "memory/screens/eeprom_map.h"
#include "platform/controls/cw_num_edit.h"

#include <QHoverEvent>
#include <QKeyEvent>

namespace orbkl4 {

namespace {

/// How far `key` leads from a field of a column with `rows` fields, in fields; 0 for other keys.
std::ptrdiff_t StepOf(int key, std::ptrdiff_t rows) {
    switch (key) {
        case Qt::Key_Up: return -1;
        case Qt::Key_Down: return 1;
        case Qt::Key_Left: return -rows;
        case Qt::Key_Right: return rows;
        default: return 0;
    }
}

}  // namespace

bool EEPROMmap::event(QEvent* event) {
    if (event->type() == QEvent::HoverMove || event->type() == QEvent::HoverEnter)
        PointerMoved(static_cast<QHoverEvent*>(event)->position().toPoint());
    return Screen::event(event);
}

bool EEPROMmap::eventFilter(QObject* watched, QEvent* event) {
    const std::optional<std::size_t> index = IndexOfField(watched);
    if (index && event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        const bool byKey = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
        if (byKey) NumEdit_MouseMove(*index);
    }
    if (index && event->type() == QEvent::KeyPress) {
        const auto* press = static_cast<QKeyEvent*>(event);
        const auto held = press->modifiers() & ~Qt::KeypadModifier;
        if (held == Qt::NoModifier && FieldKey(*index, press->key())) return true;
    }
    return Screen::eventFilter(watched, event);
}

std::optional<std::size_t> EEPROMmap::IndexOfField(const QObject* object) const {
    for (std::size_t index = 0; index < NumEdit_.size(); ++index)
        if (NumEdit_.at(index) == object) return index;
    return std::nullopt;
}

void EEPROMmap::PointerMoved(const QPoint& position) {
    const QWidget* under = childAt(position);
    if (under == nullptr) Form_MouseMove();
    for (; under != nullptr && under != this; under = under->parentWidget()) {
        const std::optional<std::size_t> index = IndexOfField(under);
        if (index) NumEdit_MouseMove(*index);
    }
}

/// Does what `key` does in the field `index`; false leaves it to the field.
bool EEPROMmap::FieldKey(std::size_t index, int key) {
    if (key == Qt::Key_Escape) {
        GiveBack(index);
        return true;
    }
    const bool movesCursor = key == Qt::Key_Left || key == Qt::Key_Right;
    if (movesCursor && NumEdit_.at(index)->Typing()) return false;
    return MoveFrom(index, key);
}

/// Moves the focus by an arrow key to the next enabled field in that direction, if there is one:
/// up and down by address, left and right along the row. False for other keys.
bool EEPROMmap::MoveFrom(std::size_t index, int key) const {
    const std::size_t rows = RowsAt(index);
    const std::ptrdiff_t step = StepOf(key, static_cast<std::ptrdiff_t>(rows));
    if (step == 0) return false;
    const bool alongRow = key == Qt::Key_Left || key == Qt::Key_Right;
    // Steps below 0 wrap around and so end the loop as well.
    for (std::size_t next = index + static_cast<std::size_t>(step); next < NumEdit_.size();
         next += static_cast<std::size_t>(step)) {
        if (alongRow && RowsAt(next) != rows) break;
        if (!NumEdit_.at(next)->isEnabled()) continue;
        NumEdit_.at(next)->setFocus(step > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        break;
    }
    return true;
}

/// Drops what is being typed and shows the word that the sensor has, where it is known.
void EEPROMmap::GiveBack(std::size_t index) {
    CWNumEdit& field = *NumEdit_.at(index);
    field.Value(inSensor_.at(index).value_or(field.Value()));
    field.selectAll();
}

}  // namespace orbkl4

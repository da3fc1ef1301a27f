#include "platform/controls/option_button.h"

#include <QApplication>

#include <algorithm>

namespace orbkl4 {

OptionButton::OptionButton(const QString& text, QWidget* parent) : QRadioButton(text, parent) {
    connect(this, &QRadioButton::toggled, this, [this](bool chosen) {
        SetTabStop();
        if (chosen) Q_EMIT Click();
    });
}

void OptionButton::Value(bool chosen) {
    // In an exclusive group Qt would refuse to clear the chosen button.
    setAutoExclusive(chosen);
    setChecked(chosen);
    setAutoExclusive(true);
}

QList<OptionButton*> OptionButton::Group() const {
    return parentWidget() == nullptr
               ? QList<OptionButton*>()
               : parentWidget()->findChildren<OptionButton*>(Qt::FindDirectChildrenOnly);
}

/// Lets the Tab key stop at the group's chosen option, or at its first where none is chosen.
void OptionButton::SetTabStop() {
    const QList<OptionButton*> group = Group();
    const auto chosen = std::ranges::find_if(group, &OptionButton::isChecked);
    const OptionButton* const stop = chosen == group.end() ? group.value(0) : *chosen;
    for (OptionButton* option : group)
        option->setFocusPolicy(option == stop ? Qt::StrongFocus : Qt::ClickFocus);
}

/// Qt lets the arrow keys move the focus alone while the focus is on an option that isn't chosen.
void OptionButton::keyPressEvent(QKeyEvent* event) {
    QRadioButton::keyPressEvent(event);
    auto* focused = qobject_cast<OptionButton*>(QApplication::focusWidget());
    if (focused != this && Group().contains(focused) && !focused->isChecked()) focused->click();
}

/// Qt makes the option that has the focus the one tab stop, chosen or not.
void OptionButton::focusInEvent(QFocusEvent* event) {
    QRadioButton::focusInEvent(event);
    SetTabStop();
}

void OptionButton::showEvent(QShowEvent* event) {
    QRadioButton::showEvent(event);
    SetTabStop();
}

}  // namespace orbkl4

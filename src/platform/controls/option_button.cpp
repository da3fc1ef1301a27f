#include "platform/controls/option_button.h"

namespace orbkl4 {

OptionButton::OptionButton(const QString& text, QWidget* parent) : QRadioButton(text, parent) {
    connect(this, &QRadioButton::toggled, this, [this](bool chosen) {
        if (chosen) Q_EMIT Click();
    });
}

void OptionButton::Value(bool chosen) {
    // In an exclusive group Qt would refuse to clear the chosen button.
    setAutoExclusive(chosen);
    setChecked(chosen);
    setAutoExclusive(true);
}

}  // namespace orbkl4

#include "platform/controls/combo_box.h"

#include "base/run_time_error.h"

#include <QWheelEvent>

namespace orbkl4 {

ComboBox::ComboBox(QWidget* parent) : QComboBox(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setPlaceholderText(QStringLiteral(" "));  // without one, Qt would choose the first row added
    connect(this, &QComboBox::currentIndexChanged, this, [this] {
        clicked_ = true;
        Q_EMIT Click();
    });
    connect(this, &QComboBox::activated, this, [this] {
        if (!clicked_) Q_EMIT Click();
        clicked_ = false;
    });
}

void ComboBox::ListIndex(int row) {
    if (row < -1 || row >= count()) Raise(ErrorNumber::InvalidPropertyValue);
    if (row == currentIndex()) {
        Q_EMIT Click();
    } else {
        setCurrentIndex(row);
    }
}

void ComboBox::showPopup() {
    clicked_ = false;
    QComboBox::showPopup();
}

void ComboBox::keyPressEvent(QKeyEvent* event) {
    clicked_ = false;
    QComboBox::keyPressEvent(event);
}

void ComboBox::wheelEvent(QWheelEvent* event) {
    clicked_ = false;
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();  // for what the list is in, which may scroll
    }
}

}  // namespace orbkl4

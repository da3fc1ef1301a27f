#include "platform/windows/accessible_names.h"

#include <QGroupBox>
#include <QHash>
#include <QLabel>
#include <QStackedWidget>

#include <utility>

namespace orbkl4 {

namespace {

/// The page of a tab control, or else the window, that shows `control`.
const QWidget* PageOf(const QWidget* control) {
    while (control->parentWidget() != nullptr &&
           qobject_cast<QStackedWidget*>(control->parentWidget()) == nullptr) {
        control = control->parentWidget();
    }
    return control;
}

/// Qt takes the caption of the frame around a frame, and none for a frame without one.
void NameFrames(const QWidget& screen) {
    for (QGroupBox* frame : screen.findChildren<QGroupBox*>()) {
        const bool isInside = qobject_cast<QGroupBox*>(frame->parentWidget()) != nullptr;
        if (!frame->accessibleName().isEmpty() || (!frame->title().isEmpty() && !isInside))
            continue;
        frame->setAccessibleName(frame->title().isEmpty() ? screen.windowTitle() : frame->title());
    }
}

void NameDoubles(const QWidget& screen) {
    QHash<std::pair<const QWidget*, QString>, QList<QLabel*>> named;
    for (QLabel* label : screen.findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) named[{PageOf(label), label->text()}] += label;
    }
    for (const QList<QLabel*>& labels : named) {
        if (labels.size() == 1) continue;
        for (const QLabel* label : labels) {
            const auto* frame = qobject_cast<QGroupBox*>(label->parentWidget());
            if (frame == nullptr) continue;
            label->buddy()->setAccessibleName(
                QStringLiteral("%1, %2").arg(frame->title(), label->text()));
        }
    }
}

}  // namespace

void CompleteNames(QWidget& screen) {
    NameFrames(screen);
    NameDoubles(screen);
}

}  // namespace orbkl4

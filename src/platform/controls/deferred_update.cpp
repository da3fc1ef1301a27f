#include "platform/controls/deferred_update.h"

#include <QAccessible>
#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <utility>
#include <vector>

namespace orbkl4 {

namespace {

constexpr int intervalMilliseconds = 40;

std::vector<DeferredUpdate*>& Marked() {
    static std::vector<DeferredUpdate*> marked;
    return marked;
}

/// Reports the value of `widget`, if it has one, to assistive technology while it has the focus;
/// the values of all controls would be too many.
void AnnounceValue(QWidget* widget) {
    if (!QAccessible::isActive() || !widget->hasFocus()) return;
    const QVariant value = widget->property("value");
    if (!value.isValid()) return;
    QAccessibleValueChangeEvent event(widget, value);
    QAccessible::updateAccessibility(&event);
}

}  // namespace

DeferredUpdate::~DeferredUpdate() {
    if (marked_) std::erase(Marked(), this);
}

void DeferredUpdate::Enqueue() {
    marked_ = true;
    Marked().push_back(this);
    if (Marked().size() > 1) return;
    QTimer::singleShot(intervalMilliseconds, qApp, [] {
        for (DeferredUpdate* update : std::exchange(Marked(), {})) update->Refresh();
    });
}

void DeferredUpdate::Refresh() {
    marked_ = false;
    refresh_();
    AnnounceValue(widget_);
}

}  // namespace orbkl4

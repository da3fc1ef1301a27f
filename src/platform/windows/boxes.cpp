#include "platform/windows/boxes.h"

#include "platform/events/event_gate.h"
#include "platform/system/qt_text.h"

#include <QApplication>
#include <QMessageBox>
#include <QScreen>

#include <algorithm>

namespace orbkl4 {

namespace {

constexpr int restAfterErrorMilliseconds = 1000;

/// Moves `box`, which isn't shown yet, below `subject`, or above it where there is no room below.
void PlaceBeside(const QWidget& subject, QDialog& box) {
    constexpr int gap = 8;
    constexpr int titleBar = 40;  // room for what window managers put above a window
    box.adjustSize();
    const QRect place(subject.mapToGlobal(QPoint()), subject.size());
    const QRect free = subject.screen()->availableGeometry();
    const int height = box.height() + titleBar;
    const int below = place.bottom() + gap;
    const int above = place.top() - gap - height;
    const bool hasRoomBelow = below + height <= free.bottom();
    const int top = hasRoomBelow || above < free.top() ? below : above;
    const int left = place.center().x() - box.width() / 2;
    box.move(std::max(std::min(left, free.right() - box.width()), free.left()),
             std::max(std::min(top, free.bottom() - height), free.top()));
}

QMessageBox::StandardButton Run(std::string_view text, QMessageBox::Icon icon,
                                QMessageBox::StandardButtons buttons,
                                const QWidget* subject = nullptr) {
    const BoxScope scope;
    QMessageBox box(icon, QLatin1String(boxTitle), ToQString(text), buttons,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setEscapeButton(buttons.testFlag(QMessageBox::Cancel) ? QMessageBox::Cancel
                                                              : QMessageBox::Ok);
    if (subject != nullptr) PlaceBeside(*subject, box);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

Answer AskRetry(std::string_view text, QMessageBox::Icon icon) {
    const auto buttons = QMessageBox::Retry | QMessageBox::Cancel;
    return Run(text, icon, buttons) == QMessageBox::Retry ? Answer::Retry : Answer::Cancel;
}

}  // namespace

void ShowMessage(std::string_view text) { Run(text, QMessageBox::Information, QMessageBox::Ok); }

void ShowMessageBeside(const QWidget& subject, std::string_view text) {
    Run(text, QMessageBox::Information, QMessageBox::Ok, &subject);
}

Answer AskRetryCancel(std::string_view text) { return AskRetry(text, QMessageBox::Warning); }

void ShowErrorMessage(std::string_view text) {
    Run(text, QMessageBox::Critical, QMessageBox::Ok);
    EventGate::Instance().Rest(restAfterErrorMilliseconds);
}

Answer AskErrorRetryCancel(std::string_view text) {
    const Answer answer = AskRetry(text, QMessageBox::Critical);
    EventGate::Instance().Rest(restAfterErrorMilliseconds);
    return answer;
}

void MousePointer(Pointer pointer) {
    const bool shown = QApplication::overrideCursor() != nullptr;
    if (pointer == Pointer::Hourglass && !shown) QApplication::setOverrideCursor(Qt::WaitCursor);
    if (pointer == Pointer::Default && shown) QApplication::restoreOverrideCursor();
}

Pointer MousePointer() {
    return QApplication::overrideCursor() != nullptr ? Pointer::Hourglass : Pointer::Default;
}

}  // namespace orbkl4

#include "platform/windows/boxes.h"

#include "platform/events/event_gate.h"
#include "platform/system/qt_text.h"

#include <QApplication>
#include <QMessageBox>

namespace orbkl4 {

namespace {

constexpr int restAfterErrorMilliseconds = 1000;

QMessageBox::StandardButton Run(std::string_view text, QMessageBox::Icon icon,
                                QMessageBox::StandardButtons buttons) {
    const BoxScope scope;
    QMessageBox box(icon, QLatin1String(boxTitle), ToQString(text), buttons,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setEscapeButton(buttons.testFlag(QMessageBox::Cancel) ? QMessageBox::Cancel
                                                              : QMessageBox::Ok);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

Answer AskRetry(std::string_view text, QMessageBox::Icon icon) {
    const auto buttons = QMessageBox::Retry | QMessageBox::Cancel;
    return Run(text, icon, buttons) == QMessageBox::Retry ? Answer::Retry : Answer::Cancel;
}

}  // namespace

void ShowMessage(std::string_view text) { Run(text, QMessageBox::Information, QMessageBox::Ok); }

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

#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QTimer>
#include <QtTest/QTest>

namespace orbkl4::test {

/// Lets events run until `condition` holds; false where it doesn't within `milliseconds`.
template <typename Condition>
bool WaitFor(Condition condition, int milliseconds = 5000) {
    const QDeadlineTimer deadline(milliseconds);
    QTimer wake;  // looks at the condition at least so often
    wake.start(1);
    while (!condition()) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

/// Lets events run for `milliseconds`: only to show that something does NOT happen meanwhile.
inline void LetPass(int milliseconds) {
    WaitFor([] { return false; }, milliseconds);
}

}  // namespace orbkl4::test

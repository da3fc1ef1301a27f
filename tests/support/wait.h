#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QTimer>
#include <QtTest/QTest>

namespace orbkl4::test {

/// Runs events until `condition` holds; false if it doesn't within `milliseconds`, which only a
/// fault exceeds, however busy the machine is.
template <typename Condition>
bool WaitFor(Condition condition, int milliseconds = 20000) {
    const QDeadlineTimer deadline(milliseconds);
    QTimer wake;  // checks the condition at least so often
    wake.start(1);
    while (!condition()) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

/// Runs events for `milliseconds`: only to show that something does NOT happen meanwhile.
inline void LetPass(int milliseconds) {
    WaitFor([] { return false; }, milliseconds);
}

}  // namespace orbkl4::test

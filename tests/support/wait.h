#pragma once

#include <QtTest/QTest>

namespace orbkl4::test {

/// Lets events run until `condition` holds; false where it doesn't within `milliseconds`.
template <typename Condition>
bool WaitFor(Condition condition, int milliseconds = 5000) {
    return QTest::qWaitFor(condition, milliseconds);
}

/// Lets events run for `milliseconds`: only to show that something does NOT happen meanwhile.
inline void LetPass(int milliseconds) { QTest::qWait(milliseconds); }

}  // namespace orbkl4::test

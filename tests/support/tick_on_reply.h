#pragma once

#include <QTimer>

namespace orbkl4 {
class MSComm;
class Timer;
}  // namespace orbkl4

namespace orbkl4::test {

/// Lets a timer that waits for a reply tick as soon as that has come, and else after a patience
/// that no sensor needs: quick runs, and none that fails because the machine is busy. It lives as
/// long as the timer.
class TickOnReply : public QObject {
  public:
    /// Hastens `timer`, whose handler takes its replies from `port`; `patience` in milliseconds.
    TickOnReply(Timer& timer, MSComm& port, int patience = 500);

  private:
    void Look();

    Timer& timer_;
    MSComm& port_;
    int patience_;
    int waiting_ = 0;  ///< bytes seen at the last look
    QTimer looks_;
};

}  // namespace orbkl4::test

#pragma once

#include <QTimer>

namespace orbkl4 {
class MSComm;
class Timer;
}  // namespace orbkl4

namespace orbkl4::test {

/// Lets a timer that polls for replies tick as soon as a reply is in, and without one only after
/// `patience`: runs are short, and a busy machine doesn't make them fail. Lives as long as the
/// timer.
class TickOnReply : public QObject {
  public:
    /// For `timer`, whose handler takes the replies from `port`; `patience` in milliseconds.
    TickOnReply(Timer& timer, MSComm& port, int patience = 1500);

  private:
    void Look();

    Timer& timer_;
    MSComm& port_;
    int patience_;
    int waiting_ = 0;  ///< bytes waiting at the last look
    QTimer looks_;
};

}  // namespace orbkl4::test

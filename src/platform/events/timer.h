#pragma once

#include "platform/events/event_gate.h"

#include <QTimer>

namespace orbkl4 {

/// A timer control: while enabled it raises `Tick` no sooner than `Interval` after the last tick's
/// handler has ended. Missed ticks aren't made up for.
class Timer : public QObject, private EventSource {
    Q_OBJECT
    Q_PROPERTY(int interval READ Interval WRITE Interval)
    Q_PROPERTY(bool enabled READ Enabled WRITE Enabled)

  public:
    /// A disabled timer of `interval` milliseconds named `name`, child of `screen`.
    Timer(QObject* screen, const char* name, int interval);

    /// Milliseconds between two ticks; 0 for no ticks.
    int Interval() const { return interval_; }
    void Interval(int milliseconds);

    /// Whether it ticks.
    bool Enabled() const { return enabled_; }
    void Enabled(bool enabled);

  signals:
    void Tick();

  private:
    bool EventDue() const override { return due_; }
    void DeliverEvent() override;
    void Arm();

    QTimer timer_;
    int interval_;
    bool enabled_ = false;
    bool due_ = false;
};

}  // namespace orbkl4

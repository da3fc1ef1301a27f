#pragma once

#include "platform/events/event_gate.h"

#include <QTimer>

namespace orbkl4 {

/// A timer control: while enabled it raises `Tick` at least `Interval` after the last tick's
/// handler has ended. Nothing is made up for.
class Timer : public QObject, private EventSource {
    Q_OBJECT
    Q_PROPERTY(int interval READ Interval WRITE Interval)
    Q_PROPERTY(bool enabled READ Enabled WRITE Enabled)

  public:
    /// A disabled timer of `interval` milliseconds, child of `screen`, found by `name`.
    Timer(QObject* screen, const char* name, int interval);

    /// Milliseconds between two ticks; 0 lets none come.
    int Interval() const { return interval_; }
    void Interval(int milliseconds);

    /// Whether ticks come.
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

#pragma once

#include <QObject>
#include <QTimer>

#include <vector>

namespace orbkl4 {

/// A timer or port, which offers each of its events to the gate.
class EventSource {
  public:
    EventSource();
    virtual ~EventSource();
    EventSource(const EventSource&) = delete;
    EventSource& operator=(const EventSource&) = delete;

    /// Whether an event is due now.
    virtual bool EventDue() const = 0;

    /// Runs the event's handler.
    virtual void DeliverEvent() = 0;
};

/// Delivers ticks and `OnComm` one at a time. It is shut while a handler runs, while a message box
/// or file dialog is up, and for a second after an error box (longer while a menu is open).
class EventGate : public QObject {
    Q_OBJECT

  public:
    /// The one gate of the process.
    static EventGate& Instance();

    /// Delivers `source`'s event if it is due and the gate is open; else it is checked again when
    /// the gate opens.
    void Offer(EventSource& source) const;

    /// Whether an event would be delivered now.
    bool IsOpen() const { return handlers_ == 0 && boxes_ == 0 && !resting_; }

    /// Whether a handler is on the stack.
    bool InHandler() const { return handlers_ > 0; }

    /// Holds ticks and `OnComm` back for `milliseconds` and until no menu is open, so that the user
    /// can reach a menu between two error boxes.
    void Rest(int milliseconds);

    /// Destroys `object` when no handler is on the stack.
    void DestroyLater(QObject* object);

  private:
    friend class EventSource;
    friend class HandlerScope;
    friend class BoxScope;

    EventGate();
    void Leave(int& depth);
    void LookAgain();
    void DeliverDue();
    void EndRest();
    void DestroyWaiting();

    std::vector<EventSource*> sources_;
    std::vector<QObject*> toDestroy_;
    QTimer rest_;
    int handlers_ = 0;
    int boxes_ = 0;
    bool resting_ = false;
    bool lookPosted_ = false;
};

/// Marks a handler as running for its lifetime.
class HandlerScope {
  public:
    HandlerScope() { ++EventGate::Instance().handlers_; }
    ~HandlerScope() { EventGate::Instance().Leave(EventGate::Instance().handlers_); }
    HandlerScope(const HandlerScope&) = delete;
    HandlerScope& operator=(const HandlerScope&) = delete;
};

/// Marks a message box or file dialog as up for its lifetime.
class BoxScope {
  public:
    BoxScope() { ++EventGate::Instance().boxes_; }
    ~BoxScope() { EventGate::Instance().Leave(EventGate::Instance().boxes_); }
    BoxScope(const BoxScope&) = delete;
    BoxScope& operator=(const BoxScope&) = delete;
};

}  // namespace orbkl4

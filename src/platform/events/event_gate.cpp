#include "platform/events/event_gate.h"

#include <QApplication>
#include <QMenu>

#include <algorithm>
#include <utility>

namespace orbkl4 {

namespace {

constexpr int menuPollMilliseconds = 50;

bool MenuIsOpen() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr; }

}  // namespace

EventSource::EventSource() { EventGate::Instance().sources_.push_back(this); }

EventSource::~EventSource() { std::erase(EventGate::Instance().sources_, this); }

EventGate& EventGate::Instance() {
    // Never destroyed, as sources may outlive every other static object.
    static auto* gate = new EventGate;
    return *gate;
}

EventGate::EventGate() {
    rest_.setSingleShot(true);
    rest_.setTimerType(Qt::PreciseTimer);
    connect(&rest_, &QTimer::timeout, this, &EventGate::EndRest);
}

void EventGate::Offer(EventSource& source) const {
    if (!IsOpen() || !source.EventDue()) return;
    const HandlerScope scope;
    source.DeliverEvent();
}

void EventGate::Rest(int milliseconds) {
    resting_ = true;
    rest_.start(milliseconds);
}

void EventGate::EndRest() {
    if (MenuIsOpen()) {
        rest_.start(menuPollMilliseconds);
        return;
    }
    resting_ = false;
    LookAgain();
}

void EventGate::DestroyLater(QObject* object) {
    toDestroy_.push_back(object);
    if (handlers_ == 0) DestroyWaiting();
}

void EventGate::DestroyWaiting() {
    for (QObject* object : std::exchange(toDestroy_, {})) object->deleteLater();
}

void EventGate::Leave(int& depth) {
    --depth;
    if (handlers_ == 0 && !toDestroy_.empty()) DestroyWaiting();
    if (IsOpen()) LookAgain();
}

void EventGate::LookAgain() {
    const auto due = [](const EventSource* source) { return source->EventDue(); };
    if (lookPosted_ || std::ranges::none_of(sources_, due)) return;
    lookPosted_ = true;
    QMetaObject::invokeMethod(this, &EventGate::DeliverDue, Qt::QueuedConnection);
}

void EventGate::DeliverDue() {
    lookPosted_ = false;
    const auto waiting = sources_;
    for (EventSource* source : waiting) {
        // An earlier handler may have destroyed it.
        if (std::ranges::find(sources_, source) != sources_.end()) Offer(*source);
    }
}

}  // namespace orbkl4

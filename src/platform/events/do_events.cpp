#include "platform/events/do_events.h"

#include <QApplication>
#include <QEvent>

namespace orbkl4 {

namespace {

class InputDropper : public QObject {
  public:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        switch (event->type()) {
            case QEvent::KeyPress:
            case QEvent::KeyRelease:
            case QEvent::Shortcut:
            case QEvent::ShortcutOverride:
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
            case QEvent::MouseButtonDblClick:
            case QEvent::Wheel:
            case QEvent::ContextMenu:
            case QEvent::Close: event->ignore(); return true;
            default: return false;
        }
    }
};

}  // namespace

void DoEvents() {
    InputDropper dropper;
    qApp->installEventFilter(&dropper);
    QCoreApplication::processEvents();
    qApp->removeEventFilter(&dropper);
}

}  // namespace orbkl4

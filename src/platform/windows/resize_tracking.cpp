#include "platform/windows/resize_tracking.h"

#include <QEvent>
#include <QGroupBox>
#include <QStyle>
#include <QStyleOptionGroupBox>

#include <functional>
#include <utility>

namespace orbkl4 {

namespace {

/// Runs `follow` whenever size or font of `leader` change.
class Follower : public QObject {
  public:
    Follower(QWidget& leader, std::function<void()> follow)
        : QObject(&leader), follow_(std::move(follow)) {
        leader.installEventFilter(this);
        follow_();
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Resize || event->type() == QEvent::FontChange) follow_();
        return false;
    }

  private:
    std::function<void()> follow_;
};

QRect CaptionPlace(const QGroupBox& frame) {
    QStyleOptionGroupBox option;
    option.initFrom(&frame);
    option.text = frame.title();
    option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    return frame.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel,
                                         &frame);
}

}  // namespace

void PutBesideCaption(QGroupBox& frame, QWidget& control) {
    new Follower(frame, [&frame, &control] {
        constexpr int gap = 6;
        const QRect caption = CaptionPlace(frame);
        const int side = caption.height();
        control.setGeometry(caption.right() + gap, caption.top(), side, side);
    });
}

void KeepLarger(QWidget& control, double factor) {
    QWidget& parent = *control.parentWidget();
    new Follower(parent, [&parent, &control, factor] {
        QFont font = parent.font();
        font.setPointSizeF(font.pointSizeF() * factor);
        font.setBold(true);
        if (font != control.font()) control.setFont(font);
    });
}

}  // namespace orbkl4

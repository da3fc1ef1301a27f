#include "platform/windows/font_following.h"

#include <QEvent>
#include <QGroupBox>
#include <QStyle>
#include <QStyleOptionGroupBox>

#include <functional>
#include <utility>

namespace orbkl4 {

namespace {

/// Runs `adjust` at once and whenever the font of `widget` changes.
class FontFollower : public QObject {
  public:
    FontFollower(QWidget& widget, std::function<void()> adjust)
        : QObject(&widget), adjust_(std::move(adjust)) {
        widget.installEventFilter(this);
        adjust_();
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::FontChange) adjust_();
        return false;
    }

  private:
    std::function<void()> adjust_;
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

void KeepBesideCaption(QGroupBox& frame, QWidget& control) {
    new FontFollower(frame, [&frame, &control] {
        constexpr int gap = 6;
        const QRect caption = CaptionPlace(frame);
        const int side = caption.height();
        control.setGeometry(caption.right() + gap, caption.top(), side, side);
    });
}

void KeepFontScaled(QWidget& control, double factor, QFont::Weight weight) {
    QWidget& parent = *control.parentWidget();
    new FontFollower(parent, [&parent, &control, factor, weight] {
        QFont font = parent.font();
        font.setPointSizeF(font.pointSizeF() * factor);
        font.setWeight(weight);
        if (font != control.font()) control.setFont(font);
    });
}

}  // namespace orbkl4

#pragma once

#include <QRect>

#include <functional>
#include <utility>

class QWidget;

namespace orbkl4 {

/// A member of a painted control that asks for its repainting, so many times a second at most, at
/// the cost of a test per call: `QWidget::update` by itself would cost more than the rest of a
/// setter.
class DeferredUpdate {
  public:
    /// How often: needles follow each picture of the display, numbers as fast as they can be read.
    enum class Pace { Needle, Number };

    /// A member of `widget`, which must live as long. `changing` gives the part of the widget that
    /// looks different for its present value, all of it where it isn't told.
    DeferredUpdate(QWidget* widget, Pace pace, std::function<QRect()> changing = {})
        : widget_(widget), pace_(pace), changing_(std::move(changing)) {}
    ~DeferredUpdate();
    DeferredUpdate(const DeferredUpdate&) = delete;
    DeferredUpdate& operator=(const DeferredUpdate&) = delete;
    DeferredUpdate(DeferredUpdate&&) = delete;
    DeferredUpdate& operator=(DeferredUpdate&&) = delete;

    /// What the widget shows has changed. It is repainted behind the event that is being handled,
    /// or, where the last repainting was less than a sixtieth (needle) or a twenty-fifth (number)
    /// of a second ago, behind the first change after that, and soon if none comes: painting then
    /// falls into the time in which a stream has nothing for us to do.
    void Mark() {
        if (!queued_) Enqueue();
        if (leads_) FlushIfDue(pace_);
    }

    /// The widget has painted its present value, which the next repainting must wipe out.
    void Painted() {
        if (changing_) stale_ |= changing_();
    }

  private:
    void Enqueue();
    void Repaint();
    static void FlushIfDue(Pace pace);
    static void Flush(Pace pace);

    QWidget* widget_;
    Pace pace_;
    std::function<QRect()> changing_;
    QRect stale_;
    bool queued_ = false;
    bool leads_ = false;  ///< the first of those waiting, which asks whether it is time
};

}  // namespace orbkl4

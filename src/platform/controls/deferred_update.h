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
    /// A member of `widget`, which must live as long. `changing` gives the part of the widget that
    /// looks different for its present value, all of it where it isn't told.
    explicit DeferredUpdate(QWidget* widget, std::function<QRect()> changing = {})
        : widget_(widget), changing_(std::move(changing)) {}
    ~DeferredUpdate();
    DeferredUpdate(const DeferredUpdate&) = delete;
    DeferredUpdate& operator=(const DeferredUpdate&) = delete;
    DeferredUpdate(DeferredUpdate&&) = delete;
    DeferredUpdate& operator=(DeferredUpdate&&) = delete;

    /// What the widget shows has changed. It is repainted behind the event that is being handled,
    /// or, where the last repainting was less than a twenty-fifth of a second ago (as fast as a
    /// film moves, and faster than numbers can be read), behind the first change after that, and
    /// soon if none comes: painting then falls into the time in which a stream has nothing for us
    /// to do.
    void Mark() {
        if (!queued_) Enqueue();
        if (leads_) FlushIfDue();
    }

    /// The widget has painted its present value, which the next repainting must wipe out.
    void Painted() {
        if (changing_) stale_ |= changing_();
    }

  private:
    void Enqueue();
    void Repaint();
    static void FlushIfDue();
    static void Flush();

    QWidget* widget_;
    std::function<QRect()> changing_;
    QRect stale_;
    bool queued_ = false;
    bool leads_ = false;  ///< the first of those waiting, which asks whether it is time
};

}  // namespace orbkl4

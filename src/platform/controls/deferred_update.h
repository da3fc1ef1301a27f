#pragma once

class QWidget;

namespace orbkl4 {

/// A member of a painted control that asks for its repainting, at most 60 times a second, at the
/// cost of a test per call: `QWidget::update` by itself would cost more than the rest of a setter.
class DeferredUpdate {
  public:
    /// A member of `widget`, which must live as long.
    explicit DeferredUpdate(QWidget* widget) : widget_(widget) {}
    ~DeferredUpdate();
    DeferredUpdate(const DeferredUpdate&) = delete;
    DeferredUpdate& operator=(const DeferredUpdate&) = delete;
    DeferredUpdate(DeferredUpdate&&) = delete;
    DeferredUpdate& operator=(DeferredUpdate&&) = delete;

    /// What the widget shows has changed: it is repainted within a sixtieth of a second.
    void Mark() {
        if (!queued_) Enqueue();
    }

  private:
    void Enqueue();
    static void Flush();

    QWidget* widget_;
    bool queued_ = false;
};

}  // namespace orbkl4

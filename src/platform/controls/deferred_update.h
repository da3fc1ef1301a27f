#pragma once

#include <functional>
#include <utility>

class QWidget;

namespace orbkl4 {

/// A member of a control that lets its picture follow its value 25 times a second at most: nobody
/// reads numbers faster, and a running stream sets them far more often.
class DeferredUpdate {
  public:
    /// A member of `widget`; `refresh` shows the present value.
    DeferredUpdate(QWidget* widget, std::function<void()> refresh)
        : widget_(widget), refresh_(std::move(refresh)) {}
    ~DeferredUpdate();
    DeferredUpdate(const DeferredUpdate&) = delete;
    DeferredUpdate& operator=(const DeferredUpdate&) = delete;
    DeferredUpdate(DeferredUpdate&&) = delete;
    DeferredUpdate& operator=(DeferredUpdate&&) = delete;

    /// Has `refresh` run within 40 ms, once for all calls until then.
    void Mark() {
        if (!marked_) Enqueue();
    }

  private:
    void Enqueue();
    void Refresh();

    QWidget* widget_;
    std::function<void()> refresh_;
    bool marked_ = false;
};

}  // namespace orbkl4

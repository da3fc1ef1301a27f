#pragma once

#include "platform/controls/deferred_update.h"

#include <QWidget>

namespace orbkl4 {

/// A round lamp, lit or dark.
class CWButton : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool value READ Value WRITE Value NOTIFY ValueChanged)

  public:
    /// A dark lamp.
    explicit CWButton(QWidget* parent = nullptr);

    /// Whether the lamp is lit.
    bool Value() const { return value_; }

    /// Lights the lamp or puts it out, and raises `ValueChanged` if that differs.
    void Value(bool lit);

    QSize sizeHint() const override;

  Q_SIGNALS:
    /// The lamp has come on or gone out.
    void ValueChanged(bool lit);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool value_ = false;
    DeferredUpdate repaint_{this, [this] { update(); }};
};

}  // namespace orbkl4

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

    /// Lights the lamp or turns it off, and raises `ValueChanged` if that is a change.
    void Value(bool lit);

    QSize sizeHint() const override;

  Q_SIGNALS:
    /// The lamp has been lit or turned off.
    void ValueChanged(bool lit);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool value_ = false;
    DeferredUpdate repaint_{this, [this] { update(); }};
};

}  // namespace orbkl4

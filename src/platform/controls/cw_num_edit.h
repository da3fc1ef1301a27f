#pragma once

#include "platform/controls/colour.h"

#include <QAbstractSpinBox>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

namespace orbkl4 {

/// A field for one number. Its limits apply only to what a user types or steps to; a value set by
/// code is kept as it is. Typing takes effect once: on Enter, on leaving, or when a menu opens.
class CWNumEdit : public QAbstractSpinBox {
    Q_OBJECT
    Q_PROPERTY(double value READ Value WRITE Value NOTIFY ValueChanged USER true)
    Q_PROPERTY(double minimum READ Minimum WRITE Minimum)
    Q_PROPERTY(double maximum READ Maximum WRITE Maximum)
    Q_PROPERTY(uint backColorText READ BackColorText WRITE BackColorText)

  public:
    /// A field at 0, without limits, that steps by 1.
    explicit CWNumEdit(QWidget* parent = nullptr);

    /// Whether the user has changed the text and not yet committed it.
    bool Typing() const { return typing_; }

    /// The value, without what is being typed and not yet committed.
    double Value() const { return value_; }

    /// Sets the value, inside the limits or not, drops what is being typed, and raises
    /// `ValueChanged` if the value differs.
    void Value(double value);

    double Minimum() const { return minimum_; }  ///< The least number that a user can enter.
    double Maximum() const { return maximum_; }  ///< The greatest number that a user can enter.

    /// Sets the lower limit; the value stays as it is.
    void Minimum(double minimum) { minimum_ = minimum; }

    /// Sets the upper limit; the value stays as it is.
    void Maximum(double maximum) { maximum_ = maximum; }

    /// Sets both limits; the value stays as it is.
    void Limits(double minimum, double maximum);

    /// Sets the distance of one step, above 0; it is 1 at first.
    void Increment(double increment) { increment_ = increment; }

    /// Whether a typed number is rounded to a whole one, ties to even.
    void WholeNumbers(bool wholeNumbers) { wholeNumbers_ = wholeNumbers; }

    /// Leaves out the step buttons, for screens with many fields.
    void Compact();

    /// The background, as 0xBBGGRR or `windowBackground`.
    std::uint32_t BackColorText() const { return backColorText_; }

    /// Sets the background, as 0xBBGGRR or `windowBackground`.
    void BackColorText(std::uint32_t bgr);

    /// Takes what was typed: a number beyond a limit becomes that limit, anything but a number is
    /// dropped.
    void Commit();

    void stepBy(int steps) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// The value has changed, by code or by the user; raised before the change returns.
    void ValueChanged(double value);

    /// The focus has moved to another control or a menu, and what was typed has been committed.
    void LostFocus();

  protected:
    StepEnabled stepEnabled() const override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    std::optional<double> Typed() const;
    double Limited(double number) const;
    void ShowValue();
    void StartTyping();

    double value_ = 0;
    double minimum_ = std::numeric_limits<double>::lowest();
    double maximum_ = std::numeric_limits<double>::max();
    double increment_ = 1;
    std::uint32_t backColorText_ = windowBackground;
    bool wholeNumbers_ = false;
    bool typing_ = false;         ///< the user has changed the text since the last commit
    bool ownMenuIsOpen_ = false;  ///< while it is open, typing isn't committed
};

}  // namespace orbkl4

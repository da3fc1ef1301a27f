#pragma once

#include <QFont>
#include <QObject>
#include <QSize>

class QWidget;

namespace orbkl4 {

/// How many times as many pixels as at the usual 96 dpi a length takes on the display of `widget`.
double DisplayScale(const QWidget& widget);

/// The `ReSize1` of a screen: scales its font with the window, so that the layout keeps its
/// proportions.
class ReSize : public QObject {
    Q_OBJECT

  public:
    explicit ReSize(QWidget* screen);

    /// The size in pixels at 96 dpi for which the screen is laid out in the usual font; at first
    /// the room for a screen in a window of 1280 by 800.
    void DesignSize(QSizeF size);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void FitFont();

    QWidget* screen_;
    QSizeF designSize_{1260, 690};
    double factor_ = 1;
};

}  // namespace orbkl4

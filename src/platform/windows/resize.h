#pragma once

#include <QFont>
#include <QObject>
#include <QSize>

class QWidget;

namespace orbkl4 {

/// The `ReSize1` of a screen: keeps its layout in proportion to the window by letting its type grow
/// with it.
class ReSize : public QObject {
    Q_OBJECT

  public:
    explicit ReSize(QWidget* screen);

    /// The size for which the screen is laid out with type of the usual size; at first what a
    /// window of 1280 by 800 leaves a screen.
    void DesignSize(QSize size);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void FitFont();

    QWidget* screen_;
    QSize designSize_{1260, 690};
    double factor_ = 1;
};

}  // namespace orbkl4

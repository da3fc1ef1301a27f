#pragma once

#include <QFont>
#include <QObject>

class QWidget;

namespace orbkl4 {

/// The `ReSize1` of a screen: keeps its layout in proportion to the window by letting its type grow
/// with it.
class ReSize : public QObject {
    Q_OBJECT

  public:
    explicit ReSize(QWidget* screen);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void FitFont();

    QWidget* screen_;
    double factor_ = 1;
};

}  // namespace orbkl4

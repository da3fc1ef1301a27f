#pragma once

#include "platform/windows/painted_icon.h"

#include <QWidget>

namespace orbkl4 {

/// A painted picture, sharp at every size and screen scale.
class Picture : public QWidget {
    Q_OBJECT

  public:
    /// Shows what `paint` paints; `content` says what that is to who can't see it, and
    /// `naturalSize` is the preferred size.
    Picture(ArtworkPainter paint, const QString& content, QSize naturalSize,
            QWidget* parent = nullptr);

    QSize sizeHint() const override { return naturalSize_; }
    QSize minimumSizeHint() const override { return naturalSize_ / 3; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    ArtworkPainter paint_;
    QSize naturalSize_;
};

}  // namespace orbkl4

#pragma once

#include <QFont>

class QGroupBox;
class QWidget;

namespace orbkl4 {

/// Keeps `control`, a child of `frame` outside its layout, to the right of the frame's caption and
/// as high as the caption.
void KeepBesideCaption(QGroupBox& frame, QWidget& control);

/// Keeps the font of `control` at `weight` and `factor` (above 0) times as large as its parent's.
void KeepFontScaled(QWidget& control, double factor, QFont::Weight weight = QFont::Bold);

}  // namespace orbkl4

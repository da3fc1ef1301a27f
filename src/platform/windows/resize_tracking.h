#pragma once

class QGroupBox;
class QWidget;

namespace orbkl4 {

/// Keeps `control`, a child of `frame` outside its layout, beside the frame's caption and as high
/// as its letters.
void PutBesideCaption(QGroupBox& frame, QWidget& control);

/// Keeps the letters of `control` bold and `factor` (above 0) as large as its parent's.
void KeepLarger(QWidget& control, double factor);

}  // namespace orbkl4

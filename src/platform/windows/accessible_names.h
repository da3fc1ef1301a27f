#pragma once

class QWidget;

namespace orbkl4 {

/// Gives the frames and labelled controls of `screen` a name of their own for assistive technology
/// where Qt finds none or the same for several: a frame without a caption gets the window's title,
/// and where a label comes more than once on a page, its field also gets the frame's caption.
void CompleteNames(QWidget& screen);

}  // namespace orbkl4

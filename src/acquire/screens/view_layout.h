#pragma once

#include "acquire/screens/views.h"

#include <vector>

class QWidget;

namespace orbkl4 {

class CWSlide;
class TextField;

/// A number of `SampleState` and the control that shows it.
template <typename Control>
struct Shown {
    SampleField field;
    Control* control;
};

/// The frame of `panel` with its lamp and fields; `fields` gets them in the order of its rows.
QWidget* BuildPanel(QWidget* screen, const TextPanel& panel, std::vector<Shown<TextField>>& fields);

/// The frame "Sliders" of `rows`; `slides` gets them in their order.
QWidget* BuildSlides(QWidget* screen, std::span<const SlideRow> rows,
                     std::vector<Shown<CWSlide>>& slides);

/// The frames of the dials side by side, each with a text field that shows the dial's value;
/// `dials` gets them in the order of `rows`.
QWidget* BuildDials(QWidget* screen, std::span<const DialRow> rows,
                    std::vector<Shown<CWKnob>>& dials);

/// The frame "Capturing" with a lamp for each side.
QWidget* BuildCapturing(QWidget* screen);

}  // namespace orbkl4

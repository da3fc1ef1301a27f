#pragma once

#include "platform/controls/axis.h"
#include "platform/controls/cw_knob.h"
#include "platform/windows/menu_entry.h"
#include "state/sample_fields.h"

#include <cstdint>
#include <span>

namespace orbkl4 {

/// A text field with its label and the number that it shows.
struct TextRow {
    const char* name;
    const char* label;
    SampleField field;
    bool startsGroup = false;  ///< has extra space above
};

/// A frame of text fields, in the order in which they are filled.
struct TextPanel {
    /// One column of rows; the same with the fields labelled "M11" to "M33" as a grid; two columns.
    enum class Layout : std::uint8_t { Rows, Matrix, TwoColumns };

    const char* name;
    const char* caption;
    const char* led;  ///< the lamp beside the caption
    int decimals;     ///< room for as many in all fields, so that points stand in one column
    std::span<const TextRow> rows;
    Layout layout = Layout::Rows;
};

/// A slide with its label and the number that it shows.
struct SlideRow {
    const char* name;
    const char* label;
    SampleField field;
};

/// A dial in a frame of its own, with a text field that shows its value.
struct DialRow {
    const char* frame;
    const char* caption;
    const char* name;
    const char* text;
    SampleField field;
    Axis axis;
    CWKnob::Sweep sweep;
    int column;  ///< place on the screen, from the left
};

/// One data view: what its window shows, and of which kind its files are.
struct View {
    const char* name;
    const char* title;
    const char* kind;  ///< the kind text of its data files
    std::span<const MenuRow> menu;
    std::span<const TextPanel> panels;  ///< one for each channel, the gyro-stabilized one first
    std::span<const SlideRow> slides = {};
    std::span<const DialRow> dials = {};
    std::span<const TextPanel> hidden = {};  ///< panels that are never shown nor filled
};

namespace views {

extern const View sensorBits;
extern const View vectors;
extern const View quaternions;
extern const View angles;
extern const View matrices;
extern const View anglesAccRate;
extern const View quatVec;

}  // namespace views

}  // namespace orbkl4

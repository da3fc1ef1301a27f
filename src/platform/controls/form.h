#pragma once

#include "platform/controls/text_field.h"
#include "platform/system/qt_text.h"

#include <QFormLayout>

#include <functional>
#include <string_view>

class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QVBoxLayout;

namespace orbkl4 {

class CWButton;

/// Gives `control` its control name.
template <typename Control>
Control* Named(Control* control, const char* name) {
    control->setObjectName(QString::fromUtf8(name));
    return control;
}

/// The control name of member `index` of the control array `array`, such as "NumEdit(22)".
QString MemberName(const char* array, int index);

/// A label `name` that shows `text` (UTF-8, plain).
QLabel* MakeLabel(QWidget* parent, const char* name, std::string_view text);

/// As above, in the frame of `control`, whose label it is.
QLabel* MakeLabel(QWidget& control, const char* name, std::string_view text);

/// A frame `name` with the caption `caption` (UTF-8).
QGroupBox* MakeFrame(QWidget* parent, const char* name, const char* caption);

/// A lamp `name` to the right of the caption of `frame`, lit while what it stands for is captured.
CWButton* MakeLamp(QGroupBox& frame, const char* name);

/// A button `name` that runs `click`, an event handler, when it is pressed.
QPushButton* MakeButton(QWidget* parent, const char* name, const char* caption,
                        std::function<void()> click);

/// Lets `widget` and its children keep their colours while disabled: for what must stay readable
/// while a running handler has disabled the screen.
void KeepColours(QWidget& widget);

/// Gives the children of `frame` darker letters while disabled, for numbers that must stay
/// readable.
void KeepReadableDisabled(QWidget& frame);

/// Lets the Tab key go through `controls`, which are in one window, in this order.
void TabThrough(const QList<QWidget*>& controls);

/// A progress bar `name` from 0 to `maximum`, at 0, which keeps its colours while disabled.
QProgressBar* MakeProgressBar(QWidget* parent, const char* name, int maximum);

/// The bold red label that says that replies fail to come. It is hidden at first, but takes its
/// place in the layout.
QLabel* MakeWarning(QWidget* parent);

/// The layout of a screen whose contents don't need its whole width: a column of eight tenths of it
/// in the middle.
QVBoxLayout* MakeMiddleColumn(QWidget* screen);

/// Adds a row of the label `caption` and a text field `name` to `rows`.
TextField* AddTextRow(QFormLayout& rows, const char* name, const char* caption);

}  // namespace orbkl4

#pragma once

class QGroupBox;
class QProgressBar;
class QWidget;

namespace orbkl4 {

/// The frame `fraPB` of a screen, whose caption says what runs, with the bar `PBar`.
class RunProgress {
  public:
    /// A bar from `minimum` to `maximum`, at rest.
    RunProgress(QWidget* screen, int minimum, int maximum);

    /// The frame, for the layout.
    QGroupBox* Frame() const { return fraPB_; }

    /// Moves the bar to `value`.
    void Value(int value);

    /// Moves the bar to `value` under the caption `caption`.
    void Start(int value, const char* caption);

    /// Empties the bar under the caption "Progress".
    void Rest();

  private:
    QGroupBox* fraPB_;
    QProgressBar* bar_;
};

}  // namespace orbkl4

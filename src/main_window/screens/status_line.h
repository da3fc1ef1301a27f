#pragma once

#include "main_window/logic/sample_rate.h"

#include <QObject>

namespace orbkl4 {

class MdiFrame;

/// Keeps the foot of a frame saying what the program is doing.
class StatusLine : public QObject {
    Q_OBJECT

  public:
    /// The status line of `frame`, up to date four times a second.
    explicit StatusLine(MdiFrame& frame);

  private:
    void Refresh();

    MdiFrame& frame_;
    SampleRate rate_;
};

}  // namespace orbkl4

#pragma once

#include "platform/windows/screen.h"

namespace orbkl4 {

/// Shows the firmware and serial number that were read when the connection was made.
class VersionSerial : public Screen {
    Q_OBJECT

  public:
    VersionSerial();
};

}  // namespace orbkl4

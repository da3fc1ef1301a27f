#pragma once

#include "platform/windows/screen.h"

namespace orbkl4 {

/// Shows over the main window that an operation of the sensor goes on.
class Progress : public Screen {
    Q_OBJECT

  public:
    Progress();
};

}  // namespace orbkl4

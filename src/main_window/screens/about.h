#pragma once

#include "platform/windows/screen.h"

namespace orbkl4 {

/// Shows the program's name and version.
class About : public Screen {
    Q_OBJECT

  public:
    About();
};

}  // namespace orbkl4

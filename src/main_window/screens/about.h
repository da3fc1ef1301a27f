#pragma once

#include "platform/windows/screen.h"

namespace orbkl4 {

/// Says which program and version this is.
class About : public Screen {
    Q_OBJECT

  public:
    About();
};

}  // namespace orbkl4

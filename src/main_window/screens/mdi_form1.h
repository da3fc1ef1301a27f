#pragma once

#include "platform/windows/mdi_frame.h"

namespace orbkl4 {

/// The program's parent window, in which the screens are shown.
class MDIForm1 : public MdiFrame {
    Q_OBJECT

  public:
    MDIForm1();

    /// Starts up the program: reads the settings and makes the folders. False where another
    /// instance is running and this one must end.
    bool MDIForm_Load();
};

}  // namespace orbkl4

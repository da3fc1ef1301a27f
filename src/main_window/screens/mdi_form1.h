#pragma once

#include "platform/windows/mdi_frame.h"

namespace orbkl4 {

/// The program's parent window.
class MDIForm1 : public MdiFrame {
    Q_OBJECT

  public:
    MDIForm1();

    /// Starts the program up; false if another instance is running and this one must end.
    bool MDIForm_Load();
};

}  // namespace orbkl4

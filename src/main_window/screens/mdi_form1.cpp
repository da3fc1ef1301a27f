#include "main_window/screens/mdi_form1.h"

#include "base/program.h"
#include "errors/trap.h"
#include "main_window/screens/status_line.h"
#include "main_window/start_up.h"
#include "platform/system/single_instance.h"
#include "platform/windows/boxes.h"

#include <QScreen>

namespace orbkl4 {

MDIForm1::MDIForm1() : MdiFrame("MDIForm1", programTitle) {
    FitInto(screen()->availableGeometry());
    new StatusLine(*this);
}

bool MDIForm1::MDIForm_Load() {
    bool alone = true;
    TrapAs("MDIForm1", "MDIForm_Load", [&] {
        alone = ClaimSingleInstance();
        if (alone) {
            StartUp();
        } else {
            ShowMessage("The program is already running!");
        }
    });
    return alone;
}

}  // namespace orbkl4

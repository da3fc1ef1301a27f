#include "main_window/screens/mdi_form1.h"

#include "base/program.h"
#include "errors/trap.h"
#include "main_window/start_up.h"
#include "platform/system/single_instance.h"
#include "platform/windows/boxes.h"

namespace orbkl4 {

MDIForm1::MDIForm1() : MdiFrame("MDIForm1", programTitle) {}

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

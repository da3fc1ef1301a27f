#include "frame/screens/mdi_form1.h"

#include "frame/logic/program.h"
#include "frame/start_up.h"
#include "frame/trap.h"
#include "platform/boxes.h"
#include "platform/single_instance.h"

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

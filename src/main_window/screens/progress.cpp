#include "main_window/screens/progress.h"

#include "platform/controls/form.h"

#include <QGroupBox>
#include <QProgressBar>
#include <QVBoxLayout>

namespace orbkl4 {

Progress::Progress() : Screen("Progress", "Progress") {
    constexpr int maximum = 11;
    constexpr int leastWidth = 340;
    auto* frame = MakeFrame(this, "fraPB", "Keep ORB-KL4 Stationary!");
    auto* inside = new QVBoxLayout(frame);
    inside->addWidget(MakeProgressBar(frame, "PBar", maximum));
    auto* column = new QVBoxLayout(this);
    column->addWidget(frame);
    setMinimumWidth(leastWidth);
    // The main window keeps the focus: the operation is stopped by its menu entry.
    setAttribute(Qt::WA_ShowWithoutActivating);
    CloseAllowed(false);
}

}  // namespace orbkl4

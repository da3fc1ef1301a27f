#include "all_screens.h"
#include "main_window/screens/artwork.h"
#include "main_window/screens/mdi_form1.h"
#include "platform/controls/house_style.h"
#include "platform/windows/screen_registry.h"

#include <QApplication>
#include <QIcon>

#include <cstdlib>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    orbkl4::ApplyHouseStyle(orbkl4::DesktopLook());
    QApplication::setWindowIcon(orbkl4::ProgramIcon());
    orbkl4::RegisterAllScreens();
    orbkl4::MDIForm1 frame;
    orbkl4::PlaceScreensIn(&frame);
    if (!frame.MDIForm_Load()) return EXIT_SUCCESS;
    orbkl4::ShowScreen("Main");
    frame.show();
    return QApplication::exec();
}

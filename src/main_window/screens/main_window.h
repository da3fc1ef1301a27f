#pragma once

#include "platform/events/mscomm.h"
#include "platform/windows/screen.h"

class QMouseEvent;

namespace orbkl4 {

struct TareOperation;

/// The main window: a picture of the sensor, and the menus that open all other screens.
class Main : public Screen {
    Q_OBJECT

  public:
    Main();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void BuildLayout();
    void ConnectMenu();
    void AddTare(const TareOperation& operation);
    void SetToPolledMode();
    void picORBKL4_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers keys);
    void mnuHardIronCal_Click();
    void mnuHelpHelp_Click();
    void TareEntry_Click(const TareOperation& operation);
    void TimerTare_Timer(const TareOperation& operation);

    MSComm port_;
    QWidget* picture_ = nullptr;
};

}  // namespace orbkl4

#pragma once

#include "link/logic/device_command.h"
#include "memory/logic/gains.h"
#include "memory/screens/run_progress.h"
#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/windows/screen.h"

#include <array>

class QGroupBox;

namespace orbkl4 {

class CWNumEdit;

/// Reads and writes the sensor's current system gains.
class Gains : public Screen {
    Q_OBJECT

  public:
    Gains();

    void Form_Load() override;

  private:
    void BuildLayout();
    void mnuRead_Click();
    void mnuWrite_Click();
    void mnuReturn_Click();
    void TimerRead_Timer();
    void TimerWrite_Timer();

    void BeginRun(const char* caption);
    void EndRun(Timer& timer, const char* message);
    void EnableControls(bool enabled);
    void SendRead();
    void SendWrite();
    void ShowGains(const SystemGains& gains);

    QGroupBox* fraGain_;
    std::array<CWNumEdit*, 3> fields_{};
    RunProgress progress_;
    MSComm port_;
    Timer timerRead_, timerWrite_;
};

}  // namespace orbkl4

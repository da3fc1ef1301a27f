#pragma once

#include "link/eeprom_runs.h"
#include "link/exchange.h"
#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/windows/screen.h"

namespace orbkl4 {

class OptionButton;
struct ModeSetting;

/// Shows whether the sensor works as a vertical gyro or normally, and switches between the two.
class Vertical : public Screen {
    Q_OBJECT

  public:
    Vertical();

    void Form_Activate() override;

  private:
    void BuildLayout();
    void ConnectSetting(const ModeSetting& setting);
    Exchange Writing(const ModeSetting& setting);
    OptionButton& Option(const ModeSetting& setting) const;
    void EnableEntries(bool enabled) const;
    void EndReading();
    void ClearOptions() const;

    void mnuRead_Click();
    void TimerRead_Timer();
    void SetEntry_Click(const ModeSetting& setting);
    void MSComm_OnComm(const ModeSetting& setting);
    void mnuReturn_Click();

    static constexpr int readMilliseconds = 100;

    MSComm verticalPort_{this, "MSComm1"};
    MSComm normalPort_{this, "MSComm2"};
    MSComm readPort_{this, "MSComm3"};
    Timer timer_{this, "TimerRead", readMilliseconds};
    EepromReadRun readRun_;
    double value120_ = 0;
    double value126_ = 0;
};

}  // namespace orbkl4

#pragma once

#include "link/eeprom_runs.h"
#include "link/exchange.h"
#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/windows/screen.h"
#include "settings/logic/time_tick_table.h"

#include <array>
#include <string>

class QGroupBox;
class QLabel;
class QLayout;

namespace orbkl4 {

class CWNumEdit;
class CWSlide;
class OptionButton;
class TextField;

/// Sets the interval of the sensor's calculation cycle: its four words one by one, or by a slider
/// that takes them from a table.
class CalcCycle : public Screen {
    Q_OBJECT

  public:
    CalcCycle();

    void Form_Load() override;
    void Form_Activate() override;

  private:
    void BuildLayout();
    QGroupBox* BuildAutoSet();
    QGroupBox* BuildManualSet();
    QGroupBox* BuildPrescaler(QWidget* parent);
    QLayout* BuildInterval();
    void ConnectMenu();
    void ConnectControls();

    Exchange Writing();
    double Prescaler() const;
    void SelectPrescaler(double prescaler) const;
    void ShowInterval() const;
    void ComputeTickInterval() const;
    void ApplyTickTableRow(const std::string& key) const;
    void EnableEntries(bool enabled) const;
    void TakeWord(eeprom::Address address, double number) const;
    void WriteAll();

    void mnuRead_Click();
    void mnuCalcCycle_Click();
    void mnuCalcCycleDefault_Click();
    void mnuReturn_Click();
    void CWSlide1_ValueChanged(double value);
    void TimerRead_Timer();
    void MSComm1_OnComm();

    static constexpr int readMilliseconds = 100;

    MSComm writePort_{this, "MSComm1"};
    MSComm readPort_{this, "MSComm3"};
    Timer timer_{this, "TimerRead", readMilliseconds};
    EepromReadRun readRun_;
    TickTableRows tickTable_;
    QGroupBox* fraCalc1_ = nullptr;
    QLabel* lblSlider_ = nullptr;
    CWSlide* slide_ = nullptr;
    std::array<OptionButton*, 3> prescalers_{};
    std::array<CWNumEdit*, 3> factors_{};
    TextField* txtCC_ = nullptr;
};

}  // namespace orbkl4

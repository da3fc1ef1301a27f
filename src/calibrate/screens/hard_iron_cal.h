#pragma once

#include "calibrate/logic/hard_iron.h"
#include "link/exchange.h"
#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/windows/screen.h"

#include <array>
#include <span>

class QGroupBox;
class QLabel;

namespace orbkl4 {

class ComboBox;
class CWButton;
class CWNumEdit;
class TextField;

/// Runs the sensor's own hard iron calibration: initialize, collect while it is turned, compute.
class HardIronCal : public Screen {
    Q_OBJECT

  public:
    HardIronCal();

    void Form_Load() override;
    void Form_Activate() override;

  private:
    void BuildLayout();
    QGroupBox* BuildSettings();
    QGroupBox* BuildCollect();
    QGroupBox* BuildParameters();
    void ConnectMenu();
    void ConnectControls();

    Exchange Initializing();
    Exchange Collecting();
    Exchange Computing();
    void ClearParameterFields() const;
    void ClearCollectFields() const;
    void TakeCollectReply() const;
    void ReportInit();
    void ReportCompute() const;

    void cmbType_Click();
    void mnuErase_Click();
    void mnuInit_Click();
    void mnuCollect_Click();
    void mnuCompute_Click();
    void mnuReturn_Click();
    void TimerSampling_Timer();
    void MSComm1_OnComm();
    void MSComm2_OnComm();
    void MSComm3_OnComm();

    static constexpr int watchdogMilliseconds = 1000;

    MSComm initPort_{this, "MSComm1"};
    MSComm collectPort_{this, "MSComm2"};
    MSComm computePort_{this, "MSComm3"};
    Timer timer_{this, "TimerSampling", watchdogMilliseconds};
    ComboBox* cmbType_ = nullptr;
    CWNumEdit* numEditMagZ_ = nullptr;
    CWButton* led_ = nullptr;
    QLabel* lblWarning_ = nullptr;
    std::array<TextField*, 12> collectFields_{};
    std::array<TextField*, 6> parameterFields_{};
    bool eraseRequested_ =
        false;  ///< the next reply to an initialization is reported as that to an erasure
};

}  // namespace orbkl4

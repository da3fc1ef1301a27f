#pragma once

#include "acquire/screens/view_layout.h"
#include "calibrate/logic/self_test.h"
#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/windows/screen.h"

#include <array>
#include <vector>

class QCheckBox;
class QGroupBox;
class QLabel;

namespace orbkl4 {

class CWButton;
class CWGraph;

/// Draws the raw sensor bits on a graph while the sensor shifts its elements for a test.
class SelfTest : public Screen {
    Q_OBJECT

  public:
    SelfTest();

  private:
    void BuildLayout();
    QGroupBox* BuildShift();
    QGroupBox* BuildGraph();
    void ConnectShifts();
    void Start();
    void Stop();
    void RequestSample();
    void TakeSample();
    void ShowSample() const;
    void SendSelfTestByte();
    void ClearSelfTestFields() const;

    void mnuSample_Click();
    void mnuReturn_Click();
    void MSComm1_OnComm();
    void TimerSampling_Timer();
    void Shift_Click(const SelfTestShift& shift);

    static constexpr int watchdogMilliseconds = 1000;

    MSComm port_{this, "MSComm1"};
    Timer timer_{this, "TimerSampling", watchdogMilliseconds};
    std::vector<Shown<TextField>> fields_;
    std::array<QCheckBox*, selfTestShifts.size()> checks_{};
    QGroupBox* fraShift_ = nullptr;
    QLabel* lblSelfTestByte_ = nullptr;
    QLabel* lblWarning_ = nullptr;
    CWButton* led_ = nullptr;
    CWGraph* graph_ = nullptr;
};

}  // namespace orbkl4

#pragma once

#include "acquire/engine.h"
#include "acquire/screens/view_layout.h"
#include "calibrate/logic/self_test.h"
#include "platform/windows/screen.h"

#include <array>
#include <optional>
#include <vector>

class QCheckBox;
class QGroupBox;
class QLabel;

namespace orbkl4 {

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
    void ShowSample() const;
    void ClearAll() const;
    void SendSelfTestByte();
    void ClearSelfTestFields() const;

    void mnuReturn_Click();
    void Shift_Click(const SelfTestShift& shift);

    std::vector<Shown<TextField>> fields_;
    std::array<QCheckBox*, selfTestShifts.size()> checks_{};
    QLabel* lblSelfTestByte_ = nullptr;
    CWGraph* graph_ = nullptr;
    std::optional<LiveChannel> channel_;
};

}  // namespace orbkl4

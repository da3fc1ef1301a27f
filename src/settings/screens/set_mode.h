#pragma once

#include "platform/events/mscomm.h"
#include "platform/windows/screen.h"
#include "settings/logic/output_modes.h"

#include <array>

namespace orbkl4 {

class OptionButton;

/// Sets the sensor to polled mode, or to continuous mode with one of the data commands.
class SetMode : public Screen {
    Q_OBJECT

  public:
    SetMode();

    void Form_Load() override;

  private:
    void BuildLayout();
    const OutputMode& ChosenMode() const;
    bool WriteModeCommand(const OutputMode& mode);
    void cmdOK_Click();
    void cmdCancel_Click();

    MSComm port_{this, "MSComm1"};
    std::array<OptionButton*, outputModes.size()> options_{};
};

}  // namespace orbkl4

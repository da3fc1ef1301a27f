#pragma once

#include "platform/events/mscomm.h"
#include "platform/windows/screen.h"

class QGridLayout;
class QLayout;

namespace orbkl4 {

class CWSlide;
class TextField;

/// Reads the sensor's temperature on request and shows it in five scales and on a thermometer.
class GetTemperature : public Screen {
    Q_OBJECT

  public:
    GetTemperature();

    void Form_Load() override;

  private:
    void BuildLayout();
    QLayout* BuildFields();
    TextField* AddField(QGridLayout& grid, const char* name, const char* labelName,
                        const char* caption);
    void ShowReply();
    void txtC_Change();
    void cmdGet_Click();
    void cmdOK_Click();
    void MSComm1_OnComm();

    MSComm port_{this, "MSComm1"};
    CWSlide* slide_ = nullptr;
    TextField* celsius_ = nullptr;
    TextField* fahrenheit_ = nullptr;
    TextField* reaumur_ = nullptr;
    TextField* kelvin_ = nullptr;
    TextField* rankine_ = nullptr;
    double degreesCelsius_ = 0;  ///< the raw word while a reply is checked
};

}  // namespace orbkl4

#pragma once

#include "link/eeprom_runs.h"
#include "memory/logic/analog.h"
#include "memory/screens/run_progress.h"
#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/windows/screen.h"

#include <array>

class QGridLayout;
class QGroupBox;
class QLabel;

namespace orbkl4 {

class ComboBox;
class CWNumEdit;

/// Sets up the sensor's analog outputs: the function, and the words that it uses.
class Analog : public Screen {
    Q_OBJECT

  public:
    Analog();

    void Form_Load() override;
    void Form_Activate() override;

  private:
    void BuildLayout();
    void AddWordRow(QGridLayout& grid, int row, const AnalogWord& word);
    void cmbFunction_Click();
    void mnuRead_Click();
    void mnuWrite_Click();
    void mnuReturn_Click();
    void TimerRead_Timer();
    void TimerWrite_Timer();

    void BeginRun(const char* caption);
    void EndRun(const char* message);
    void EndWrite();
    void EnableControls(bool enabled);
    void TakeWord(eeprom::Address address, double number);
    double NumberToWrite(eeprom::Address address);
    CWNumEdit& FieldOf(eeprom::Address address) const;

    QGroupBox* fraAnalog_;
    ComboBox* cmbFunction_;
    QLabel* lblCommandByte_ = nullptr;
    std::array<CWNumEdit*, analogWords.size()> fields_{};
    RunProgress progress_;
    MSComm port_;
    Timer timerRead_, timerWrite_;
    EepromReadRun readRun_;
    EepromWriteRun writeRun_;
};

}  // namespace orbkl4

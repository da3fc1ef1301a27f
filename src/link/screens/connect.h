#pragma once

#include "link/device_search.h"
#include "link/logic/baud_rates.h"
#include "platform/events/mscomm.h"
#include "platform/windows/screen.h"

#include <array>
#include <initializer_list>
#include <string>
#include <string_view>

class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTabWidget;

namespace orbkl4 {

class CWNumEdit;
class OptionButton;

/// Finds the sensor on a serial port, sets it to its default cycle, reads its identity and enables
/// the main window's menus; or resets a sensor that can't be found.
class Connect : public Screen {
    Q_OBJECT

  public:
    Connect();

    void Form_Load() override;

  private:
    void cmdConnectAuto_Click();
    void cmdConnectManual_Click();
    void cmdReset_Click();

    QWidget* MakeAutoTab();
    QWidget* MakeManualTab();
    QWidget* MakeResetTab();
    QGroupBox* MakePortFrame(QWidget* tab);
    QGroupBox* MakeBaudFrame(QWidget* tab);
    void ShowStep(const std::string& step);
    void ShowDevice();
    void TabTurned(int index);
    void FocusPage();

    void Enable(bool enabled, std::initializer_list<QWidget*> controls);
    void EnableAuto(bool enabled);
    void EnableManual(bool enabled);
    void EnableReset(bool enabled);
    bool SearchAllPorts();
    bool ResetAllPorts();
    bool ResetPort(std::int16_t number);
    void UseFoundPort();
    void RetryAuto();
    void AskManualRetry(std::string_view baud);
    std::string SelectedBaud() const;
    void ShowParameters(const char* suffix);

    MSComm port_;
    DeviceSearch search_;

    QTabWidget* SSTab1_ = nullptr;
    QPushButton* cmdConnectAuto_ = nullptr;
    QPushButton* cmdQuitAuto_ = nullptr;
    QGroupBox* fraProgress_ = nullptr;
    QProgressBar* PBar_ = nullptr;
    QPushButton* cmdConnectManual_ = nullptr;
    QPushButton* cmdQuit_ = nullptr;
    QGroupBox* fraPort_ = nullptr;
    CWNumEdit* NumEditCommPort_ = nullptr;
    QLabel* lblDevice_ = nullptr;  ///< what the chosen port number names
    QGroupBox* fraBaud_ = nullptr;
    std::array<OptionButton*, baudRates.size()> baudOptions_{};  ///< in the order of `baudRates`
    QPushButton* cmdReset_ = nullptr;
    QPushButton* cmdQuitReset_ = nullptr;
    QLabel* lblReset_ = nullptr;
    QProgressBar* PBar1_ = nullptr;
};

}  // namespace orbkl4

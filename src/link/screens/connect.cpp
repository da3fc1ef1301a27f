#include "link/screens/connect.h"

#include "base/arithmetic.h"
#include "errors/trap.h"
#include "link/logic/baud_rates.h"
#include "link/stored_line.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/controls/option_button.h"
#include "platform/system/port_device.h"
#include "platform/windows/boxes.h"
#include "platform/windows/screen_registry.h"
#include "state/app_state.h"

#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>

#include <algorithm>

namespace orbkl4 {

namespace {

constexpr const char* resetText =
    "This function will attempt to locate and set the ORB-KL4 Calculation Cycle to its default "
    "value on every available comm port. If the Calculation Cycle has been previously set to other "
    "than default, the Auto Connect and/or Manual Connect may not work."
    "\n\nStep 1: Click RESET."
    "\n\nStep 2: Cycle the ORB-KL4 power."
    "\n\nStep 3: Proceed to Auto Connect or Manual Connect.";

constexpr const char* autoFailureText =
    "ORB-KL4 not found on comm ports 1-16! Check your cable, power supply, comm port, etc. If BAUD "
    "RATE was changed, cycle the ORB-KL4 power. Click Retry to attempt re-connect or Cancel to "
    "quit.";

constexpr const char* successText = "ORB-KL4 connection successful!";

/// "<what> on comm port <port> at <baud> baud rate!", with the port number of `AppState`.
std::string AtPortText(const char* what, std::string_view baud) {
    return std::string(what) + " on comm port " + std::to_string(AppState.CommPort) + " at " +
           std::string(baud) + " baud rate!";
}

std::string ManualFailureText(std::string_view baud) {
    return AtPortText("ORB-KL4 not found", baud) +
           " Check your cable, power supply, comm port, baud rate setting, etc. Cycle the ORB-KL4 "
           "power. Click Retry to attempt re-connect or Cancel to stop.";
}

/// Keeps the user from closing the screen while it exists.
class KeepOpen {
  public:
    explicit KeepOpen(Screen& screen) : screen_(screen) { screen_.CloseAllowed(false); }
    ~KeepOpen() { screen_.CloseAllowed(true); }
    KeepOpen(const KeepOpen&) = delete;
    KeepOpen& operator=(const KeepOpen&) = delete;

  private:
    Screen& screen_;
};

void EnableMainMenus() {
    const Screen* main = FindScreen("Main");
    if (main == nullptr) return;
    for (const char* menu : {"mnuTools", "mnuDisplay"}) main->Menu(menu).Enabled(true);
}

}  // namespace

void Connect::Form_Load() {
    NumEditCommPort_->Value(AppState.CommPort);
    const BaudRate* const stored = BaudRateIn(AppState.CommSettings);
    for (std::size_t i = 0; i < baudRates.size(); ++i)
        if (&baudRates.at(i) == stored) baudOptions_.at(i)->Value(true);
    lblReset_->setText(QString::fromUtf8(resetText));
    ShowDevice();
}

/// The tabs are disabled first, so that the focus doesn't move to another control in them.
void Connect::Enable(bool enabled, std::initializer_list<QWidget*> controls) {
    SSTab1_->setEnabled(enabled);
    for (QWidget* control : controls) control->setEnabled(enabled);
    if (enabled) FocusPage();
}

void Connect::EnableAuto(bool enabled) { Enable(enabled, {cmdConnectAuto_, cmdQuitAuto_}); }

void Connect::EnableManual(bool enabled) {
    Enable(enabled, {cmdConnectManual_, cmdQuit_, fraPort_, fraBaud_});
}

void Connect::EnableReset(bool enabled) { Enable(enabled, {cmdReset_, cmdQuitReset_}); }

void Connect::cmdConnectAuto_Click() {
    TrapUnderHourglass("cmdConnectAuto_Click", [this] {
        const KeepOpen keepOpen(*this);
        EnableAuto(false);
        const bool found = SearchAllPorts();
        MousePointer(Pointer::Default);
        fraProgress_->setTitle(QStringLiteral("Progress"));
        PBar_->setValue(0);
        if (found) UseFoundPort();
        if (!found || !search_.ResetDeviceSettings(search_.FoundPort(), search_.FoundBaud()) ||
            !search_.ReadDeviceIdentity()) {
            if (AskRetryCancel(autoFailureText) == Answer::Cancel) return Unload();
            return RetryAuto();
        }
        ShowParameters("");
        ShowMessageBeside(*findChild<QWidget*>(QStringLiteral("fraParameters")), successText);
        EnableMainMenus();
        Unload();
    });
}

/// Runs the search anew inside the run that failed, which does nothing more afterwards.
void Connect::RetryAuto() {
    EnableAuto(true);
    cmdConnectAuto_Click();
}

bool Connect::SearchAllPorts() {
    for (std::int16_t number = 1; number <= lastPortNumber; ++number) {
        PBar_->setValue(number);
        if (!search_.PortExists(number)) continue;
        for (const BaudRate& rate : baudSearchOrder) {
            if (search_.TestPortAtBaud(number, rate.text)) return true;
        }
    }
    return false;
}

void Connect::UseFoundPort() {
    AppState.CommPort = search_.FoundPort();
    AppState.CommSettings = LineSettingsAt(search_.FoundBaud());
}

void Connect::cmdConnectManual_Click() {
    TrapUnderHourglass("cmdConnectManual_Click", [this] {
        const KeepOpen keepOpen(*this);
        const std::string baud = SelectedBaud();
        AppState.CommPort = ToInt16(NumEditCommPort_->Value());
        AppState.CommSettings = LineSettingsAt(baud);
        EnableManual(false);
        const bool found = search_.PortExists(AppState.CommPort) &&
                           search_.TestPortAtBaud(AppState.CommPort, baud);
        MousePointer(Pointer::Default);
        if (!found) return AskManualRetry(baud);
        UseFoundPort();
        if (!search_.ResetDeviceSettings(search_.FoundPort(), search_.FoundBaud())) {
            // Only here is the answer treated as on the "Auto" tab.
            if (AskRetryCancel(ManualFailureText(baud)) == Answer::Cancel) return Unload();
            return RetryAuto();
        }
        if (!search_.ReadDeviceIdentity()) return AskManualRetry(baud);
        ShowParameters("1");
        ShowMessageBeside(*findChild<QWidget*>(QStringLiteral("Frame1")), successText);
        StoreCommPort(std::to_string(AppState.CommPort));
        StoreCommSettings("");  // empty until the next connection sets them
        EnableMainMenus();
        Unload();
    });
}

void Connect::AskManualRetry(std::string_view baud) {
    const Answer answer = AskRetryCancel(ManualFailureText(baud));
    EnableManual(true);
    if (answer == Answer::Retry) cmdConnectManual_Click();
}

std::string Connect::SelectedBaud() const {
    for (std::size_t i = 0; i < baudRates.size(); ++i) {
        if (baudOptions_.at(i)->Value()) return std::string(baudRates.at(i).text);
    }
    return {};
}

void Connect::cmdReset_Click() {
    TrapUnderHourglass("cmdReset_Click", [this] {
        const KeepOpen keepOpen(*this);
        EnableReset(false);
        const bool completed = ResetAllPorts();
        MousePointer(Pointer::Default);
        EnableReset(true);
        PBar1_->setValue(0);
        fraProgress_->setTitle(QStringLiteral("Progress"));
        ShowMessage(completed ? "Reset attempted on all active comm ports! CYCLE THE ORB-KL4 POWER "
                                "and proceed to Auto Connect or Manual Connect."
                              : "Reset was interrupted!");
    });
}

bool Connect::ResetAllPorts() {
    for (std::int16_t number = 1; number <= lastPortNumber; ++number) {
        PBar1_->setValue(number);
        if (search_.PortExists(number) && !ResetPort(number)) return false;
    }
    return true;
}

/// False where the user cancels.
bool Connect::ResetPort(std::int16_t number) {
    return std::ranges::all_of(baudRates, [&](const BaudRate& rate) {
        return search_.ResetDeviceSettings(number, rate.text) ||
               AskRetryCancel(AtPortText("ORB-KL4 reset failed", rate.text) +
                              " Click Retry to continue reset attempts or Cancel to stop.") ==
                   Answer::Retry;
    });
}

}  // namespace orbkl4

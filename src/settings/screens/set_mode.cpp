#include "settings/screens/set_mode.h"

#include "errors/trap.h"
#include "link/communication.h"
#include "link/logic/eeprom_address.h"
#include "link/logic/requests.h"
#include "platform/controls/form.h"
#include "platform/controls/option_button.h"
#include "platform/windows/boxes.h"
#include "state/app_state.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <exception>
#include <string>

namespace orbkl4 {

SetMode::SetMode() : Screen("SetMode", "Set Continuous/Polled Mode") { BuildLayout(); }

void SetMode::BuildLayout() {
    constexpr int optionsPerColumn = 6;
    auto* frame = MakeFrame(this, "Frame1", "Select");
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(28);
    grid->setVerticalSpacing(8);
    const auto addHeading = [&](const char* name, const char* text, int column, int span) {
        QLabel* heading = MakeLabel(frame, name, text);
        QFont bold;
        bold.setBold(true);
        heading->setFont(bold);
        grid->addWidget(heading, 0, column, 1, span);
    };
    addHeading("lblContinuous", "Continuous Mode", 0, 2);
    addHeading("lblPolled", "Polled Mode", 2, 1);
    for (int i = 0; const OutputMode& mode : outputModes) {
        auto* option = new OptionButton(QString::fromUtf8(mode.name), frame);
        option->setObjectName(QString::fromUtf8(mode.option));
        grid->addWidget(option, 1 + i % optionsPerColumn, i / optionsPerColumn);
        options_.at(static_cast<std::size_t>(i++)) = option;
    }
    auto* cmdOK = MakeButton(this, "cmdOK", "OK", [this] { cmdOK_Click(); });
    auto* cmdCancel = MakeButton(this, "cmdCancel", "Cancel", [this] { cmdCancel_Click(); });
    DefaultButton(*cmdOK);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* column = new QVBoxLayout(this);
    column->addWidget(frame, 1);
    column->addLayout(buttons);
}

void SetMode::Form_Load() {
    Trap("Form_Load", [this] { options_.back()->Value(true); });
}

const OutputMode& SetMode::ChosenMode() const {
    const auto* const chosen = std::ranges::find_if(options_, &OptionButton::isChecked);
    return outputModes.at(static_cast<std::size_t>(chosen - options_.begin()));
}

bool SetMode::WriteModeCommand(const OutputMode& mode) {
    try {
        OpenCommPort(port_, *this);
        Send(port_, WriteEepromRequest(eeprom::continuousMode, mode.command));
        port_.Input(AppState.CommandBytes);
        CloseCommPort(port_, *this);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void SetMode::cmdOK_Click() {
    Trap("cmdOK_Click", [this] {
        const OutputMode& mode = ChosenMode();
        const std::string name =
            mode.command == 0 ? "POLLED" : "CONTINUOUS " + std::string(mode.name);
        if (WriteModeCommand(mode)) {
            ShowMessage("The ORB-KL4 is now operating in " + name + " mode!");
        } else {
            ShowMessage("The Mode Command failed to write to the ORB-KL4!");
        }
        Unload();
    });
}

void SetMode::cmdCancel_Click() {
    Trap("cmdCancel_Click", [this] { Unload(); });
}

}  // namespace orbkl4

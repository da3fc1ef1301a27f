#include "main_window/screens/version_serial.h"

#include "base/number_text.h"
#include "platform/controls/form.h"
#include "state/app_state.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace orbkl4 {

VersionSerial::VersionSerial() : Screen("VersionSerial", "Firmware and Serial") {
    auto* frame = MakeFrame(this, "fraVersionSerial", "");
    auto* rows = new QFormLayout(frame);
    AddTextRow(*rows, "txtVersion", "Firmware Version")->Text(AppState.FirmwareText);
    AddTextRow(*rows, "txtSerialNumber", "Serial Number")->Text(ScreenText(AppState.SerialNumber));
    auto* cmdOK = MakeButton(this, "cmdOK", "OK", [this] { Unload(); });
    DefaultButton(*cmdOK);

    auto* column = new QVBoxLayout(this);
    column->addWidget(frame);
    column->addWidget(cmdOK, 0, Qt::AlignCenter);
}

}  // namespace orbkl4

#include "settings/screens/get_temperature.h"

#include "base/number_text.h"
#include "errors/trap.h"
#include "link/communication.h"
#include "link/logic/frame_check.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/form.h"
#include "platform/controls/text_field.h"
#include "platform/windows/boxes.h"
#include "platform/windows/font_following.h"
#include "settings/logic/temperature.h"
#include "state/app_state.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace orbkl4 {

namespace {

constexpr auto command = DeviceCommand::CmdTemperature;
constexpr Axis thermometer{.minimum = -50, .maximum = 100, .marks = 10, .subMarks = 2};

}  // namespace

GetTemperature::GetTemperature() : Screen("GetTemperature", "Get Temperature") {
    BuildLayout();
    connect(celsius_, &TextField::Changed, this, &GetTemperature::txtC_Change);
    connect(&port_, &MSComm::OnComm, this, &GetTemperature::MSComm1_OnComm);
}

void GetTemperature::BuildLayout() {
    constexpr int leastHeight = 360;
    slide_ = Named(new CWSlide(this), "SlideDegreesC");
    slide_->SetAxis(thermometer);
    slide_->Style(CWSlide::Look::Thermometer);
    slide_->Empty(true);
    slide_->setAccessibleName(QStringLiteral("Thermometer, \u00b0C"));
    slide_->setMinimumHeight(leastHeight);
    auto* card = new QGroupBox(this);
    auto* scale = new QVBoxLayout;
    scale->addWidget(MakeLabel(card, "lblScale", "\u00b0C"), 0, Qt::AlignHCenter);
    scale->addWidget(slide_, 1);
    auto* inside = new QHBoxLayout(card);
    inside->setContentsMargins(24, 8, 24, 16);
    inside->setSpacing(40);
    inside->addLayout(scale);
    inside->addLayout(BuildFields());

    auto* cmdGet = MakeButton(this, "cmdGet", "Get", [this] { cmdGet_Click(); });
    auto* cmdOK = MakeButton(this, "cmdOK", "OK", [this] { cmdOK_Click(); });
    DefaultButton(*cmdGet);
    cmdGet->setFocus();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdGet);
    buttons->addWidget(cmdOK);
    auto* column = new QVBoxLayout(this);
    column->addWidget(card, 1);
    column->addLayout(buttons);
}

QLayout* GetTemperature::BuildFields() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(16);
    QLabel* heading = MakeLabel(this, "lblDegrees", "Degrees");
    QFont bold;
    bold.setBold(true);
    heading->setFont(bold);
    grid->addWidget(heading, 0, 0);
    celsius_ = AddField(*grid, "txtC", "lblC", "Celsius");
    fahrenheit_ = AddField(*grid, "txtF", "lblF", "Fahrenheit");
    reaumur_ = AddField(*grid, "txtRe", "lblRe", "Reaumur");
    kelvin_ = AddField(*grid, "txtK", "lblK", "Kelvin");
    rankine_ = AddField(*grid, "txtRa", "lblRa", "Rankine");
    return grid;
}

TextField* GetTemperature::AddField(QGridLayout& grid, const char* name, const char* labelName,
                                    const char* caption) {
    constexpr double readoutGrowth = 1.6;
    constexpr int digits = 7;
    auto* field = Named(new TextField(this), name);
    field->Decimals(1);
    KeepFontScaled(*field, readoutGrowth);
    field->Characters(digits);
    const int row = grid.rowCount();
    grid.setRowStretch(row, 1);
    grid.addWidget(field, row, 0, Qt::AlignVCenter);
    grid.addWidget(MakeLabel(*field, labelName, caption), row, 1);
    return field;
}

void GetTemperature::Form_Load() {
    Trap("Form_Load", [this] {
        findChild<QLabel*>(QStringLiteral("lblRe"))->setText(QStringLiteral("R\u00e9aumur"));
    });
}

void GetTemperature::cmdGet_Click() {
    Trap("cmdGet_Click", [this] {
        // Emptying the first field fills the others again.
        for (TextField* field : {celsius_, fahrenheit_, reaumur_, kelvin_, rankine_})
            field->Text("");
        slide_->Value(0);
        slide_->Empty(true);
        port_.RThreshold(static_cast<std::int16_t>(ReplyLength(command)));
        OpenCommPort(port_, *this);
        Send(port_, command);
    });
}

void GetTemperature::MSComm1_OnComm() {
    Trap("MSComm1_OnComm", [this] {
        port_.Input(AppState.CommandBytes);
        ShowReply();
        CloseCommPort(port_, *this);
    });
}

void GetTemperature::ShowReply() {
    if (!HasFrames(AppState.CommandBytes, command)) {
        ShowMessage("Temperature return failed! Try again.");
    } else if (!CheckTemperatureReply(AppState.CommandBytes, SampleState, degreesCelsius_)) {
        ShowMessage("Temperature return failed!");
    } else {
        degreesCelsius_ = CelsiusOf(degreesCelsius_);
        celsius_->Text(ScreenText(degreesCelsius_));
        slide_->Value(degreesCelsius_);
        slide_->Empty(false);
    }
}

/// Without a trap of its own: its errors are those of the handler that changes the text.
void GetTemperature::txtC_Change() {
    fahrenheit_->Text(ScreenText(FahrenheitOf(degreesCelsius_)));
    reaumur_->Text(ScreenText(ReaumurOf(degreesCelsius_)));
    kelvin_->Text(ScreenText(KelvinOf(degreesCelsius_)));
    rankine_->Text(ScreenText(RankineOf(ToNumber(fahrenheit_->Text()))));
}

void GetTemperature::cmdOK_Click() {
    Trap("cmdOK_Click", [this] { Unload(); });
}

}  // namespace orbkl4

#include "base/number_text.h"
#include "link/screens/connect.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/controls/form.h"
#include "platform/controls/option_button.h"
#include "platform/system/port_device.h"
#include "state/app_state.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <array>

namespace orbkl4 {

namespace {

/// A text field about the sensor that was found; on the "Manual" tab its name ends in "1".
struct ParameterRow {
    const char* name;
    const char* caption;
    std::string (*text)(const DeviceSearch& search);
};

constexpr auto parameterRows = std::to_array<ParameterRow>({
    {"txtPort", "Serial Port",
     [](const DeviceSearch& search) { return std::to_string(search.FoundPort()); }},
    {"txtBaudRate", "Baud Rate", [](const DeviceSearch& search) { return search.FoundBaud(); }},
    {"txtSN", "Serial Number",
     [](const DeviceSearch&) { return ScreenText(AppState.SerialNumber); }},
    {"txtFW", "Firmware Version", [](const DeviceSearch&) { return AppState.FirmwareText; }},
    {"txtGGS", "Gyro Gain Scale",
     [](const DeviceSearch&) { return ScreenText(AppState.GyroGainScale); }},
    {"txtAGS", "Acc Gain Scale",
     [](const DeviceSearch&) { return ScreenText(AppState.AccGainScale); }},
    {"txtMGS", "Mag Gain Scale",
     [](const DeviceSearch&) { return ScreenText(AppState.MagGainScale); }},
});

/// The rows in two columns, the same on both tabs.
QGroupBox* MakeParameters(QWidget* tab, const char* name, const std::string& suffix) {
    constexpr int firstColumnRows = 4;
    constexpr int columnGap = 24;
    constexpr int rowGap = 8;
    auto* frame = MakeFrame(tab, name, "Parameters");
    KeepColours(*frame);
    auto* columns = new QHBoxLayout(frame);
    columns->setSpacing(columnGap);
    QFormLayout* rows = nullptr;
    int made = 0;
    for (const ParameterRow& row : parameterRows) {
        if (made++ % firstColumnRows == 0) {
            rows = new QFormLayout;
            rows->setVerticalSpacing(rowGap);
            rows->setHorizontalSpacing(rowGap);
            columns->addLayout(rows, 1);
        }
        AddTextRow(*rows, (row.name + suffix).c_str(), row.caption);
    }
    return frame;
}

QGroupBox* MakeProgress(QWidget* tab, const char* name, QProgressBar* bar) {
    auto* frame = MakeFrame(tab, name, "Progress");
    KeepColours(*frame);
    auto* column = new QVBoxLayout(frame);
    column->addWidget(bar);
    return frame;
}

/// A row of buttons, aligned at the right.
QHBoxLayout* MakeButtonRow(std::initializer_list<QPushButton*> buttons) {
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    for (QPushButton* button : buttons) row->addWidget(button);
    return row;
}

}  // namespace

Connect::Connect()
    : Screen("Connect", "Connect"),
      port_(this, "MSComm1"),
      search_(port_, *this, [this](const std::string& step) { ShowStep(step); }) {
    SSTab1_ = Named(new QTabWidget(this), "SSTab1");
    SSTab1_->addTab(MakeAutoTab(), QStringLiteral("Auto"));
    SSTab1_->addTab(MakeManualTab(), QStringLiteral("Manual"));
    SSTab1_->addTab(MakeResetTab(), QStringLiteral("Reset"));
    connect(SSTab1_, &QTabWidget::currentChanged, this, &Connect::TabTurned);
    TabTurned(0);
    auto* column = new QVBoxLayout(this);
    column->addWidget(SSTab1_);
}

void Connect::ShowStep(const std::string& step) {
    fraProgress_->setTitle(QString::fromStdString(step));
    fraProgress_->repaint();  // no event runs during the waits that follow
}

QWidget* Connect::MakeAutoTab() {
    auto* tab = new QWidget;
    PBar_ = MakeProgressBar(tab, "PBar", lastPortNumber);
    fraProgress_ = MakeProgress(tab, "fraProgress", PBar_);
    auto* column = new QVBoxLayout(tab);
    column->addWidget(fraProgress_);
    column->addWidget(MakeParameters(tab, "fraParameters", ""));
    column->addStretch(1);
    cmdConnectAuto_ =
        MakeButton(tab, "cmdConnectAuto", "Connect", [this] { cmdConnectAuto_Click(); });
    cmdQuitAuto_ = MakeButton(tab, "cmdQuitAuto", "Quit", [this] { Unload(); });
    column->addLayout(MakeButtonRow({cmdConnectAuto_, cmdQuitAuto_}));
    return tab;
}

QWidget* Connect::MakeManualTab() {
    auto* tab = new QWidget;
    auto* choices = new QHBoxLayout;
    choices->addWidget(MakePortFrame(tab), 1);
    choices->addWidget(MakeBaudFrame(tab));
    auto* column = new QVBoxLayout(tab);
    column->addLayout(choices);
    column->addWidget(MakeParameters(tab, "Frame1", "1"));
    column->addStretch(1);
    cmdConnectManual_ =
        MakeButton(tab, "cmdConnectManual", "Connect", [this] { cmdConnectManual_Click(); });
    cmdQuit_ = MakeButton(tab, "cmdQuit", "Quit", [this] { Unload(); });
    column->addLayout(MakeButtonRow({cmdConnectManual_, cmdQuit_}));
    return tab;
}

QGroupBox* Connect::MakePortFrame(QWidget* tab) {
    fraPort_ = MakeFrame(tab, "fraPort", "Select Serial Port");
    NumEditCommPort_ = Named(new CWNumEdit(fraPort_), "NumEditCommPort");
    NumEditCommPort_->Limits(1, lastPortNumber);
    NumEditCommPort_->WholeNumbers(true);
    lblDevice_ = MakeLabel(fraPort_, "lblDevice", "");
    lblDevice_->setWordWrap(true);
    lblDevice_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    // Room for the longest text, so that no control moves when the number changes.
    constexpr int lines = 4;
    constexpr int characters = 30;
    const QFontMetrics metrics = lblDevice_->fontMetrics();
    lblDevice_->setMinimumSize(characters * metrics.averageCharWidth(),
                               lines * metrics.lineSpacing());
    connect(NumEditCommPort_, &CWNumEdit::ValueChanged, this, &Connect::ShowDevice);
    constexpr int gap = 12;
    auto* row = new QHBoxLayout(fraPort_);
    row->setSpacing(gap);
    row->addWidget(NumEditCommPort_);
    row->addWidget(lblDevice_, 1);
    return fraPort_;
}

QGroupBox* Connect::MakeBaudFrame(QWidget* tab) {
    fraBaud_ = MakeFrame(tab, "fraBaud", "Select Baud Rate");
    auto* column = new QVBoxLayout(fraBaud_);
    for (std::size_t i = 0; i < baudRates.size(); ++i) {
        const BaudRate& rate = baudRates.at(i);
        const bool isDefault = &rate == &defaultBaudRate;
        const QString baud = ToQString(rate.text);
        auto* option = new OptionButton(isDefault ? baud + " (Default)" : baud, fraBaud_);
        option->setObjectName("optBaud" + baud);
        option->Value(isDefault);
        column->insertWidget(0, option);  // the fastest on top
        baudOptions_.at(i) = option;
    }
    return fraBaud_;
}

QWidget* Connect::MakeResetTab() {
    auto* tab = new QWidget;
    auto* frame = MakeFrame(tab, "fraReset", "");
    lblReset_ = MakeLabel(frame, "lblReset", "");
    lblReset_->setWordWrap(true);
    lblReset_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* text = new QVBoxLayout(frame);
    text->addWidget(lblReset_);
    PBar1_ = MakeProgressBar(tab, "PBar1", lastPortNumber);
    cmdReset_ = MakeButton(tab, "cmdReset", "Reset", [this] { cmdReset_Click(); });
    cmdQuitReset_ = MakeButton(tab, "cmdQuitReset", "Quit", [this] { Unload(); });
    auto* column = new QVBoxLayout(tab);
    column->addWidget(frame, 1);
    column->addWidget(MakeProgress(tab, "fraProgress1", PBar1_));
    column->addLayout(MakeButtonRow({cmdReset_, cmdQuitReset_}));
    return tab;
}

/// Enter runs the search or the connection of the tab, but never the reset.
void Connect::TabTurned(int index) {
    const std::array<QPushButton*, 3> defaults{cmdConnectAuto_, cmdConnectManual_, cmdQuitReset_};
    DefaultButton(*defaults.at(static_cast<std::size_t>(index)));
    ShowDevice();
    FocusPage();
}

/// Puts the focus where the page's work begins, but never on the reset. On the tabs it stays, so
/// that arrow keys turn on.
void Connect::FocusPage() {
    const std::array<QWidget*, 3> starts{cmdConnectAuto_, NumEditCommPort_, cmdQuitReset_};
    if (SSTab1_->tabBar()->hasFocus()) return;
    starts.at(static_cast<std::size_t>(SSTab1_->currentIndex()))->setFocus();
    NumEditCommPort_->selectAll();  // so that typing replaces the number
}

void Connect::ShowDevice() {
    const PortDevice device = DeviceOfPort(static_cast<int>(NumEditCommPort_->Value()));
    QStringList lines;
    if (!device.name.isEmpty()) lines += device.name;
    const QString adapter = AdapterOf(device);
    if (!adapter.isEmpty()) lines += adapter;
    if (!device.present) {
        lines += QStringLiteral("No serial line is there");
    } else if (!device.permitted) {
        lines += PermissionHint(device);
    }
    lblDevice_->setText(lines.join(QLatin1Char('\n')));
}

void Connect::ShowParameters(const char* suffix) {
    for (const ParameterRow& row : parameterRows) {
        auto* field = findChild<TextField*>(QLatin1String(row.name) + QLatin1String(suffix));
        if (field != nullptr) field->Text(row.text(search_));
    }
}

}  // namespace orbkl4

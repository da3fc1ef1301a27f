// What assistive technology finds on the screens.

#include "platform/controls/cw_button.h"
#include "platform/controls/cw_graph.h"
#include "platform/controls/house_style.h"
#include "platform/controls/text_field.h"
#include "platform/windows/screen_registry.h"
#include "support/box_answerer.h"
#include "support/screens/screen_fixture.h"
#include "support/wait.h"

#include <QAccessible>
#include <QTabWidget>

#include <map>
#include <set>

namespace orbkl4::test {
namespace {

/// How the value of a control is read.
enum class Read : std::uint8_t { Nothing, Text, Number, Mark };

struct Kind {
    QAccessible::Role role;
    Read read;
};

/// All controls there are, by class; anything else is a container, a label or a menu.
const std::map<std::string, Kind> kinds{
    {"orbkl4::TextField", {QAccessible::EditableText, Read::Text}},
    {"orbkl4::FootLine", {QAccessible::EditableText, Read::Text}},
    {"orbkl4::CWNumEdit", {QAccessible::SpinBox, Read::Number}},
    {"orbkl4::CWSlide", {QAccessible::Slider, Read::Number}},
    {"orbkl4::CWKnob", {QAccessible::Dial, Read::Number}},
    {"orbkl4::CWButton", {QAccessible::CheckBox, Read::Mark}},
    {"orbkl4::CWGraph", {QAccessible::Chart, Read::Text}},
    {"orbkl4::ComboBox", {QAccessible::ComboBox, Read::Text}},
    {"orbkl4::OptionButton", {QAccessible::RadioButton, Read::Mark}},
    {"orbkl4::Picture", {QAccessible::Graphic, Read::Nothing}},
    {"QCheckBox", {QAccessible::CheckBox, Read::Mark}},
    {"QPushButton", {QAccessible::Button, Read::Nothing}},
    {"QProgressBar", {QAccessible::ProgressBar, Read::Number}},
};

/// Roles that only arrange others, and may go without a name.
const std::set<QAccessible::Role> arrangements{QAccessible::Client, QAccessible::LayeredPane,
                                               QAccessible::MenuBar, QAccessible::StaticText};

/// The controls and frames that are to be seen, each by its name.
class Walk {
  public:
    explicit Walk(QObject* from) { Visit(*QAccessible::queryAccessibleInterface(from)); }

    std::map<std::string, QAccessibleInterface*> controls;
    std::set<std::string> frames;

  private:
    void Visit(QAccessibleInterface& place) {
        if (place.state().invisible) return;
        const std::string name = place.text(QAccessible::Name).toStdString();
        const std::string type = place.object() ? place.object()->metaObject()->className() : "";
        const std::string what = type + " \"" + name + "\"";
        EXPECT_TRUE(!name.empty() || arrangements.contains(place.role())) << what;
        if (kinds.contains(type)) {
            EXPECT_TRUE(controls.emplace(name, &place).second) << what << " comes twice";
            Check(place, kinds.at(type), what);
        } else if (place.role() == QAccessible::Grouping) {
            EXPECT_TRUE(frames.insert(name).second) << what << " comes twice";
        }
        for (int i = 0; i < place.childCount(); ++i) Visit(*place.child(i));
    }

    static void Check(QAccessibleInterface& control, const Kind& kind, const std::string& what) {
        EXPECT_EQ(control.role(), kind.role) << what;
        const QVariant value = control.object()->property("value");
        switch (kind.read) {
            case Read::Nothing: return;
            case Read::Text:
                EXPECT_EQ(control.text(QAccessible::Value), TextOf(*control.object())) << what;
                return;
            case Read::Number:
                ASSERT_NE(control.valueInterface(), nullptr) << what;
                EXPECT_EQ(control.valueInterface()->currentValue(), value) << what;
                EXPECT_EQ(control.text(QAccessible::Value), value.toString()) << what;
                return;
            case Read::Mark:
                EXPECT_TRUE(control.state().checkable) << what;
                EXPECT_EQ(control.state().checked, IsMarked(*control.object())) << what;
                return;
        }
    }

    static QString TextOf(const QObject& control) {
        const char* property = control.inherits("QComboBox") ? "currentText" : "text";
        return control.property(property).toString();
    }

    static bool IsMarked(const QObject& control) {
        const QVariant checked = control.property("checked");
        return (checked.isValid() ? checked : control.property("value")).toBool();
    }
};

/// The names on a screen, which are read out: the labels that a user sees, or what they stand for.
struct Expected {
    const char* screen;
    std::vector<std::string> some;
    int tab = 0;  ///< where the screen has several
};

const Expected inFrame[] = {
    {"Main", {"The sensor with its axes X, Y and Z", "The program's emblem"}},
    {"SensorBits", {"Raw Magnetometer 1", "Mag1", "AR3", "Raw Sensor Bits, capturing"}},
    {"Vectors",
     {"Gyro-Stabilized Vectors, Header", "Instantaneous Vectors, Check Sum",
      "Stabilized Acceleration Z", "Instantaneous Vectors, capturing"}},
    {"Quaternions", {"Gyro-Stabilized Quaternion, Timer Ticks", "Stabilized Quaternion 3"}},
    {"Angles", {"Pitch", "Pitch, degrees", "Gyro-Stablized", "Instantaneous"}},
    {"Matrices", {"Gyro-Stabilized Matrix, M21", "Instantaneous Matrix, M21"}},
    {"AnglesAccRate", {"Header", "Stabilized Roll", "Angles and Vectors, capturing"}},
    {"QuatVec",
     {"Quaternion and Comp AngRate, Stabilized Quaternion 0",
      "Quaternion and Instant AngRate, Stabilized Quaternion 0"}},
    {"HardIronCal",
     {"Calibration Type", "Magnitude Z", "Collect, Header", "Parameters, Header", "Mag Field Min X",
      "Collect, capturing"}},
    {"Analog", {"Select Function"}},
    {"Gains", {"Accelerometer Proportional Gain", "Reading"}},
    {"Vertical", {"Set Normal Mode"}},
    {"SelfTest", {"Mag 1 (solid)", "Bit 2: Shift Mags", "Graph"}},
    {"CalcCycle", {"Auto Set", "1", "EEPROM address 240", "Current Timer Tick Interval"}},
    {"EEPROMmap", {"EEPROM address 0", "EEPROM address 254", "EEPROM Name", "Progress"}},
};

const Expected dialogs[] = {
    {"ViewMatrix", {"M11", "Tare Matrix"}},
    {"Connect", {"Progress", "Serial Port", "Firmware Version", "Connect", "Quit"}},
    {"Connect", {"Select Serial Port", "38400 (Default)", "Firmware Version", "Connect"}, 1},
    {"Connect", {"Progress", "Reset", "Quit"}, 2},
    {"GetTemperature", {"Thermometer, \u00b0C", "Celsius", "R\u00e9aumur", "Get"}},
    {"VersionSerial", {"Firmware Version", "OK"}},
    {"SetMode", {"Raw Sensor Bits", "Polled", "Cancel"}},
    {"SetWriteRate", {"Maximum (default)", "Samples per Second"}},
    {"Progress", {"Keep ORB-KL4 Stationary!"}},
    {"About", {"The program's emblem", "OK"}},
};

class Accessibility : public ScreenTest {
  protected:
    /// Before the first control is made, as Qt keeps what a factory once gave.
    static void SetUpTestSuite() { ApplyHouseStyle(); }

    /// Expects the names on `screen`, with a text in every field.
    static void ExpectNames(const Expected& expected, Screen& screen) {
        SCOPED_TRACE(expected.screen);
        for (auto* field : screen.findChildren<TextField*>()) field->Text("-179.9");
        EXPECT_TRUE(WaitFor([&] {
            for (auto* field : screen.findChildren<TextField*>())
                if (field->Text() != field->QLineEdit::text().toStdString()) return false;
            return true;
        }));
        const Walk walk(&screen);
        for (const std::string& name : expected.some)
            EXPECT_TRUE(walk.controls.contains(name)) << name;
    }

    static const QAccessibleInterface& Accessible(QObject& object) {
        return *QAccessible::queryAccessibleInterface(&object);
    }

    BoxAnswerer answerer;
};

TEST_F(Accessibility, KnowsAllScreens) {
    QStringList known;
    for (const Expected& row : inFrame) known += row.screen;
    for (const Expected& row : dialogs) known += row.screen;
    known.removeDuplicates();
    known.sort();
    EXPECT_EQ(known, RegisteredScreens());
}

TEST_F(Accessibility, NamesTheControlsOfTheScreensInTheFrame) {
    for (const Expected& row : inFrame) {
        Screen& screen = Open(row.screen);
        ExpectNames(row, screen);
        EXPECT_EQ(Accessible(screen).text(QAccessible::Name), screen.windowTitle());
        if (row.screen != std::string_view("Main")) screen.Unload();
    }
}

TEST_F(Accessibility, NamesTheControlsOfDialogs) {
    Open("EEPROMmap");  // which ViewMatrix needs
    for (const Expected& row : dialogs) {
        Screen& screen = OpenModal(row.screen);
        if (auto* tabs = screen.findChild<QTabWidget*>()) tabs->setCurrentIndex(row.tab);
        ExpectNames(row, screen);
        EXPECT_EQ(Accessible(screen).role(), QAccessible::Dialog) << row.screen;
        EXPECT_TRUE(Accessible(screen).state().modal) << row.screen;
        screen.Unload();
    }
}

TEST_F(Accessibility, NamesTheControlsOfTheFrame) {
    frame.Foot("not connected");
    EXPECT_TRUE(Walk(&frame).controls.contains("Status"));
}

TEST_F(Accessibility, FollowsTheValues) {
    Screen& test = Open("SelfTest");
    auto& lamp = Get<CWButton>(test, "LED");
    EXPECT_FALSE(Accessible(lamp).state().checked);
    lamp.Value(true);
    EXPECT_TRUE(Accessible(lamp).state().checked);
    EXPECT_TRUE(Accessible(lamp).state().readOnly);
    auto& graph = Get<CWGraph>(test, "CWGraph1");
    EXPECT_EQ(Accessible(graph).text(QAccessible::Value), "");
    graph.Append(std::array<double, 9>{1, 2, 3, 4, 5, 6, 7, 8, 65535});
    const QString text = Accessible(graph).text(QAccessible::Value);
    EXPECT_TRUE(text.startsWith("Mag 1 (solid) 1, Mag 2 (dash) 2, ")) << text.toStdString();
    EXPECT_TRUE(text.endsWith(", Ang Rate 3 (dot) 65535")) << text.toStdString();
    EXPECT_EQ(Accessible(graph).text(QAccessible::Description), text);
}

TEST_F(Accessibility, OpensAndClosesDropDownLists) {
    Screen& screen = Open("HardIronCal");
    auto& type = *QAccessible::queryAccessibleInterface(screen.findChild<QWidget*>("cmbType"));
    EXPECT_EQ(type.childCount(), 1);
    EXPECT_EQ(type.child(0)->childCount(), 2);
    EXPECT_FALSE(type.state().expanded);
    type.actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(type.state().expanded);
    type.actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_FALSE(type.state().expanded);
}

}  // namespace
}  // namespace orbkl4::test

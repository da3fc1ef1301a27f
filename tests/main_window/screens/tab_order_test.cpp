#include "platform/windows/screen_registry.h"
#include "state/app_state.h"
#include "support/box_answerer.h"
#include "support/screens/screen_fixture.h"

#include <QTabWidget>

#include <algorithm>

namespace orbkl4::test {

namespace {

/// How a container is read: row by row from the left, or column by column from the top.
enum class Order { ByRows, ByColumns };

/// The containers that are read by columns.
constexpr const char* columned[] = {"fraEEPROMAddresses1", "fraEEPROMAddresses", "fraParameters",
                                    "Frame1", "fraData"};

Order OrderOf(const QWidget& container) {
    const auto hasName = [&](const char* name) { return container.objectName() == name; };
    return std::ranges::any_of(columned, hasName) ? Order::ByColumns : Order::ByRows;
}

/// Whether `first` may be read before `second`, both in one container.
bool InOrder(Order order, const QRect& first, const QRect& second) {
    const bool above = second.bottom() < first.top();
    const bool left = second.right() < first.left();
    const bool sameRow = !above && first.bottom() >= second.top();
    const bool sameColumn = !left && first.right() >= second.left();
    return order == Order::ByRows ? !above && !(sameRow && left) : !left && !(sameColumn && above);
}

/// The controls of `screen` at which the Tab key stops, in its order, disabled ones included.
std::vector<QWidget*> TabStops(const Screen& screen) {
    std::vector<QWidget*> stops;
    for (QWidget* next = screen.nextInFocusChain(); next != &screen;
         next = next->nextInFocusChain()) {
        const bool stopsHere = (next->focusPolicy() & Qt::TabFocus) != 0;
        if (stopsHere && next->focusProxy() == nullptr && screen.isAncestorOf(next) &&
            next->isVisibleTo(&screen))
            stops.push_back(next);
    }
    return stops;
}

/// The part of `container` that is or contains `control`.
const QWidget* PartOf(const QWidget* container, const QWidget* control) {
    while (control->parentWidget() != container) control = control->parentWidget();
    return control;
}

/// The pairs of `stops` that stand in the wrong order.
std::vector<std::string> Misplaced(const std::vector<QWidget*>& stops) {
    std::vector<std::string> pairs;
    for (std::size_t i = 1; i < stops.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            const QWidget* container = stops[j]->parentWidget();
            while (!container->isAncestorOf(stops[i])) container = container->parentWidget();
            const QRect first = PartOf(container, stops[j])->geometry();
            const QRect second = PartOf(container, stops[i])->geometry();
            if (first == second || InOrder(OrderOf(*container), first, second)) continue;
            pairs.push_back(
                (stops[j]->objectName() + " before " + stops[i]->objectName()).toStdString());
        }
    }
    return pairs;
}

class TabOrder : public ScreenTest {
  protected:
    TabOrder() {
        AppState.AdvancedMode = true;
        frame.resize(1240, 760);
    }

    /// Expects on each page of `screen` at least so many stops, in reading order, and unloads it.
    static void ExpectReadingOrder(Screen& screen, std::size_t least = 1) {
        auto* tabs = screen.findChild<QTabWidget*>();
        for (int page = 0; page < (tabs == nullptr ? 1 : tabs->count()); ++page) {
            SCOPED_TRACE(screen.objectName().toStdString() + " page " + std::to_string(page));
            if (tabs != nullptr) tabs->setCurrentIndex(page);
            const auto stops = TabStops(screen);
            EXPECT_GE(stops.size(), least);
            EXPECT_EQ(Misplaced(stops), std::vector<std::string>{});
        }
        screen.Unload();
    }

    /// The sensor's answers to what opening a screen asks don't matter here.
    BoxAnswerer boxes;
};

}  // namespace

TEST_F(TabOrder, IsReadingOrderOnEveryScreen) {
    const std::pair<const char*, std::size_t> children[] = {
        {"EEPROMmap", 131}, {"Analog", 6},      {"Gains", 3},   {"SelfTest", 1},
        {"CalcCycle", 1},   {"HardIronCal", 1}, {"Angles", 1},  {"AnglesAccRate", 1},
        {"Matrices", 1},    {"Quaternions", 1}, {"QuatVec", 1}, {"SensorBits", 1},
        {"Vectors", 1},     {"Vertical", 1}};
    for (const auto& [name, least] : children) ExpectReadingOrder(Open(name), least);
    Open("EEPROMmap");  // which ViewMatrix needs
    for (const char* name : {"Connect", "About", "VersionSerial", "GetTemperature", "SetMode",
                             "SetWriteRate", "ViewMatrix"})
        ExpectReadingOrder(OpenModal(name));
}

}  // namespace orbkl4::test

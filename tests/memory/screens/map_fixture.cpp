#include "memory/screens/map_fixture.h"

#include "platform/windows/boxes.h"
#include "support/wait.h"

namespace orbkl4::test {

namespace {

constexpr int writeTick = 2;
constexpr int runMilliseconds = 20000;

}  // namespace

RunTest::RunTest(const char* name, Names entries, Names frames)
    : name_(name), entries_(std::move(entries)), frames_(std::move(frames)) {
    // Write runs don't look at the replies. One that a busy machine delays would be taken for the
    // reply to a later read.
    sensor.ReplyTo(0x29, {});
}

void RunTest::OpenScreen() {
    screen = &Open(name_);
    readTicks = new TickOnReply(Get<Timer>(*screen, "TimerRead"), Port());
    Get<Timer>(*screen, "TimerWrite").Interval(writeTick);
}

void RunTest::ExpectControls(bool enabled) const {
    for (const char* entry : entries_) {
        const MenuEntry& shown = screen->Menu(entry);
        if (!shown.Visible()) continue;
        EXPECT_EQ(shown.Enabled(), enabled) << entry;
    }
    for (const char* name : frames_)
        EXPECT_EQ(Get<QWidget>(*screen, name).isEnabled(), enabled) << name;
    EXPECT_TRUE(screen->Menu("mnuReturn").Enabled());
}

void RunTest::ExpectRest(const char* bar) const {
    ExpectControls(true);
    EXPECT_EQ(Property(*screen, "fraPB", "title"), "Progress");
    EXPECT_EQ(Property(*screen, "PBar", "value"), bar);
    EXPECT_FALSE(Port().PortOpen());
    EXPECT_EQ(MousePointer(), Pointer::Default);
}

MapTest::MapTest(bool advanced)
    : RunTest("EEPROMmap",
              {"mnuRead", "mnuWrite", "mnuViewMatrix", "mnuLog", "mnuShowMin", "mnuShowMax"},
              {"fraEEPROM", "fraEEPROMAddresses", "fraEEPROMAddresses1"}) {
    AppState.AdvancedMode = advanced;
    Reopen();
}

void MapTest::Reopen() {
    OpenScreen();
    ActivateFrame();
}

void MapTest::ActivateFrame() {
    frame.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&frame));
}

CWNumEdit& MapTest::Field(int address) const {
    return Get<CWNumEdit>(*screen, ("NumEdit(" + std::to_string(address / 2) + ")").c_str());
}

std::vector<int> MapTest::MarkedAddresses() const {
    std::vector<int> addresses;
    for (int address = 0; address < 256; address += 2)
        if (Marked(address)) addresses.push_back(address);
    return addresses;
}

void MapTest::Type(int address, const std::string& text) const {
    CWNumEdit& field = Field(address);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, QString::fromStdString(text));
    QTest::keyClick(&field, Qt::Key_Return);
}

void MapTest::Run(const char* entry) {
    Click(*screen, entry);
    EXPECT_TRUE(Running());
    EXPECT_TRUE(WaitFor([this] { return !Running(); }, runMilliseconds));
}

}  // namespace orbkl4::test

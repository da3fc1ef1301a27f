#include "memory/screens/map_fixture.h"

#include "support/wait.h"

#include <algorithm>

namespace orbkl4::test {

namespace {

constexpr int writeTick = 2;
constexpr int runMilliseconds = 20000;

}  // namespace

MapTest::MapTest(bool advanced) {
    AppState.AdvancedMode = advanced;
    Reopen();
}

void MapTest::Reopen() {
    map = &Open("EEPROMmap");
    hastener = new Hastener(Get<Timer>(*map, "TimerRead"), Get<MSComm>(*map, "MSComm1"));
    Get<Timer>(*map, "TimerWrite").Interval(writeTick);
    ActivateFrame();
}

void MapTest::ActivateFrame() {
    frame.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&frame));
}

CWNumEdit& MapTest::Field(int address) const {
    return Get<CWNumEdit>(*map, ("NumEdit(" + std::to_string(address / 2) + ")").c_str());
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
    Click(*map, entry);
    EXPECT_TRUE(Running());
    EXPECT_TRUE(WaitFor([this] { return !Running(); }, runMilliseconds));
}

bool MapTest::WaitUntilAskedFor(int address) const {
    return WaitFor([&] {
        const std::vector<Bytes> heard = Heard();
        return std::ranges::find(heard, ReadRequest(address)) != heard.end();
    });
}

std::vector<Bytes> MapTest::HeardOf(int command) const {
    std::vector<Bytes> heard = Heard();
    std::erase_if(heard, [&](const Bytes& bytes) { return bytes.front() != command; });
    return heard;
}

}  // namespace orbkl4::test

#pragma once

#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/system/clock.h"
#include "platform/windows/boxes.h"
#include "platform/windows/screen_registry.h"
#include "state/app_state.h"
#include "support/box_answerer.h"
#include "support/frames.h"
#include "support/screens/screen_fixture.h"
#include "support/tick_on_reply.h"
#include "support/wait.h"

#include <QGroupBox>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace orbkl4::test {

using Strings = std::vector<std::string>;
using Names = std::set<std::string>;

/// The answer to an error box that lets the program go on.
inline constexpr auto goOn = QMessageBox::Retry;

inline constexpr const char* readDone = "Read process has completed!";
inline constexpr const char* writeDone = "Write process has completed!";

/// The end of each question about a faulty reply.
inline constexpr const char* retryOrCancel =
    " Click Retry to attempt re-read or Cancel to skip over.";

/// The read request for the word at `address`.
inline Bytes ReadRequest(int address) { return {0x28, 0, static_cast<std::uint8_t>(address)}; }

inline constexpr const char* malformed = "Return bytes and/or header failed!";

/// A good reply to a write.
inline const Bytes written{0x29, 0x00, 0x10, 0x00, 0x05, 0x00, 0x3E};
inline const Bytes badSum{0x29, 0x00, 0x10, 0x00, 0x05, 0x00, 0x3F};
inline const Bytes otherHeader{0x28, 0x00, 0x10, 0x00, 0x05, 0x00, 0x3D};
inline const Bytes oneByteMore{0x29, 0x00, 0x10, 0x00, 0x05, 0x00, 0x3E, 0x00};

/// A screen that reads or writes words of the sensor; its waits are short, and a read ticks when
/// its reply is in.
class RunTest : public ScreenTest {
  protected:
    RunTest() {
        ReplaceTickCount([] {
            static std::int32_t now = 0;
            return now += 50;
        });
    }
    ~RunTest() override { ReplaceTickCount(nullptr); }

    /// Opens the screen `name`, which must not be loaded.
    void OpenRun(const char* name) {
        constexpr int writeTick = 2;
        screen = &Open(name);
        auto* last = screen->findChild<MSComm*>(QStringLiteral("MSComm3"));  // of several ports
        new TickOnReply(Get<Timer>(*screen, "TimerRead"), last == nullptr ? Port() : *last);
        auto* write = screen->findChild<Timer*>(QStringLiteral("TimerWrite"));
        if (write != nullptr) write->Interval(writeTick);
    }

    /// Opens `name` and waits until the read that opening starts is over.
    void OpenRead(const char* name) {
        OpenRun(name);
        EXPECT_TRUE(AwaitEnd());
    }

    bool Running() const { return !screen->Menu("mnuRead").Enabled(); }
    bool AwaitEnd() const {
        return WaitFor([this] { return !Running(); });
    }

    /// Chooses `entry` and waits until the run that it starts is over.
    void Run(const char* entry) const {
        Click(*screen, entry);
        EXPECT_TRUE(Running());
        EXPECT_TRUE(AwaitEnd());
    }

    bool IsOn(const char* button) const {
        return Get<QAbstractButton>(*screen, button).isChecked();
    }

    /// The messages when `entry` is chosen and its writes get `replies` in turn.
    Strings Messages(const char* entry, const std::vector<Bytes>& replies) {
        const BoxAnswerer boxes({}, goOn);
        sensor.ClearReplies();
        for (const Bytes& reply : replies) sensor.ReplyOnceTo(0x29, reply);
        Click(*screen, entry);
        EXPECT_TRUE(WaitFor([&] { return !screen->Menu(entry).Checked(); }));
        ExpectIdle();
        return boxes.Texts();
    }

    /// All entries (but hidden ones) and frames of the screen that are disabled.
    Names Disabled() const {
        Names names;
        const auto note = [&](const QObject& object, bool enabled) {
            if (!enabled) names.insert(object.objectName().toStdString());
        };
        for (const auto* entry : screen->findChildren<MenuEntry*>())
            note(*entry, entry->Enabled() || !entry->Visible());
        for (const auto* box : screen->findChildren<QGroupBox*>())
            note(*box, box->isEnabledTo(box->parentWidget()));
        return names;
    }

    /// Nothing runs: no port is open, no entry checked or disabled, the pointer normal.
    void ExpectIdle() const {
        for (const MSComm* port : screen->findChildren<MSComm*>()) EXPECT_FALSE(port->PortOpen());
        for (const MenuEntry* entry : screen->findChildren<MenuEntry*>()) {
            EXPECT_TRUE(entry->Enabled() || !entry->Visible()) << entry->text().toStdString();
            EXPECT_FALSE(entry->Checked()) << entry->text().toStdString();
        }
        EXPECT_EQ(MousePointer(), Pointer::Default);
    }

    /// As `ExpectIdle`, with all frames enabled and the progress bar at its minimum, `bar`.
    void ExpectRest(const char* bar) const {
        ExpectIdle();
        EXPECT_EQ(Disabled(), Names{});
        EXPECT_EQ(Property(*screen, "fraPB", "title"), "Progress");
        EXPECT_EQ(Property(*screen, "PBar", "value"), bar);
    }

    MSComm& Port() const { return Get<MSComm>(*screen, "MSComm1"); }

    Screen* screen = nullptr;
};

}  // namespace orbkl4::test

#pragma once

#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/system/clock.h"
#include "platform/windows/boxes.h"
#include "platform/windows/menu_entry.h"
#include "platform/windows/screen_registry.h"
#include "state/app_state.h"
#include "support/box_answerer.h"
#include "support/frames.h"
#include "support/screens/screen_fixture.h"
#include "support/tick_on_reply.h"
#include "support/wait.h"

#include <QAbstractButton>

#include <string>
#include <vector>

namespace orbkl4::test {

using Strings = std::vector<std::string>;

/// What answers error boxes so that the program goes on.
inline constexpr auto goOn = QMessageBox::Retry;

/// A screen that reads or writes words of the sensor, on a clock that makes its waits short.
class SettingsTest : public ScreenTest {
  protected:
    SettingsTest() {
        ReplaceTickCount([] {
            static std::int32_t now = 0;
            return now += 50;
        });
    }
    ~SettingsTest() override { ReplaceTickCount(nullptr); }

    /// Opens `name`, whose reads tick as soon as a reply is in, or after `patience` milliseconds.
    Screen& OpenReading(const char* name, int patience = 1500) {
        Screen& screen = Open(name);
        new TickOnReply(Get<Timer>(screen, "TimerRead"), Get<MSComm>(screen, "MSComm3"), patience);
        return screen;
    }

    static bool AwaitRead(const Screen& screen) {
        return WaitFor([&] { return screen.Menu("mnuRead").Enabled(); });
    }

    /// Opens `name` and lets its first read end.
    Screen& OpenRead(const char* name) {
        Screen& screen = OpenReading(name);
        EXPECT_TRUE(AwaitRead(screen));
        return screen;
    }

    /// Nothing runs: no port is open, no entry checked or disabled.
    static void ExpectIdle(const Screen& screen) {
        for (const MSComm* port : screen.findChildren<MSComm*>()) EXPECT_FALSE(port->PortOpen());
        for (const MenuEntry* entry : screen.findChildren<MenuEntry*>()) {
            EXPECT_TRUE(entry->Enabled()) << entry->objectName().toStdString();
            EXPECT_FALSE(entry->Checked()) << entry->objectName().toStdString();
        }
    }

    static bool IsOn(const Screen& screen, const char* button) {
        return Get<QAbstractButton>(screen, button).isChecked();
    }

    /// What is told when `entry` is chosen and its writes get `replies` in turn.
    Strings Told(const Screen& screen, const char* entry, const std::vector<Bytes>& replies) {
        const BoxAnswerer box({}, goOn);
        sensor.ClearReplies();
        for (const Bytes& reply : replies) sensor.ReplyOnceTo(0x29, reply);
        Click(screen, entry);
        EXPECT_TRUE(WaitFor([&] { return !screen.Menu(entry).Checked(); }));
        ExpectIdle(screen);
        return box.Texts();
    }
};

inline constexpr const char* malformed = "Return bytes and/or header failed!";

/// A good reply to a write.
inline const Bytes written{0x29, 0x00, 0x10, 0x00, 0x05, 0x00, 0x3E};
inline const Bytes badSum{0x29, 0x00, 0x10, 0x00, 0x05, 0x00, 0x3F};
inline const Bytes otherHeader{0x28, 0x00, 0x10, 0x00, 0x05, 0x00, 0x3D};
inline const Bytes oneByteMore{0x29, 0x00, 0x10, 0x00, 0x05, 0x00, 0x3E, 0x00};

}  // namespace orbkl4::test

#pragma once

#include "frame/logic/app_state.h"
#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/mscomm.h"
#include "platform/screen_registry.h"
#include "platform/timer.h"
#include "support/box_hand.h"
#include "support/frames.h"
#include "support/screens/screen_fixture.h"
#include "support/wait.h"

#include <QAbstractButton>

#include <string>
#include <vector>

namespace orbkl4::test {

using Strings = std::vector<std::string>;

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

    /// Opens `name` with a short tick for its reads.
    Screen& OpenReading(const char* name) {
        constexpr int tick = 20;
        Screen& screen = Open(name);
        Get<Timer>(screen, "TimerRead").Interval(tick);
        return screen;
    }

    static bool IsOpen(const Screen& screen, const char* port) {
        return Get<MSComm>(screen, port).PortOpen();
    }

    static bool IsOn(const Screen& screen, const char* button) {
        return Get<QAbstractButton>(screen, button).isChecked();
    }

    /// The next writes get `replies` in turn.
    void AnswerWrites(const std::vector<Bytes>& replies) {
        sensor.ClearReplies();
        for (const Bytes& reply : replies) sensor.ReplyOnceTo(0x29, reply);
    }
};

/// What answers error boxes so that the program goes on.
inline constexpr auto goOn = QMessageBox::Retry;

/// A good reply to a write.
inline const Bytes written{0x29, 0x00, 0x10, 0x00, 0x05, 0x00, 0x3E};
inline const Bytes badSum{0x29, 0x00, 0x10, 0x00, 0x05, 0x00, 0x3F};
inline const Bytes otherHeader{0x28, 0x00, 0x10, 0x00, 0x05, 0x00, 0x3D};
inline const Bytes oneByteMore{0x29, 0x00, 0x10, 0x00, 0x05, 0x00, 0x3E, 0x00};

}  // namespace orbkl4::test

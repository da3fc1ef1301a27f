#pragma once

#include "platform/screen_registry.h"
#include "support/screens/screen_fixture.h"

#include <QGroupBox>
#include <QPushButton>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace orbkl4::test {

using Texts = std::vector<std::string>;

inline const Bytes polledMode{0x29, 0x71, 0x00, 0x84, 0x00, 0x00, 0xAA};
inline const Bytes firmwareRequest{0xF0};

/// Written after each successful test, and by the reset.
inline const std::vector<Bytes> defaults{polledMode,
                                         {0x29, 0x71, 0x00, 0xEE, 0x00, 0x10, 0xAA},
                                         {0x29, 0x71, 0x00, 0xF0, 0x00, 0x10, 0xAA},
                                         {0x29, 0x71, 0x00, 0xF2, 0x01, 0x00, 0xAA},
                                         {0x29, 0x71, 0x00, 0xF6, 0x00, 0x01, 0xAA}};

inline const std::string success = "ORB-KL4 connection successful!";

/// All that is sent where the sensor is heard at the last of `tests` speeds.
std::vector<Bytes> Exchange(int tests);

/// The dialog `Connect` open, the sensor on port 1, and all other ports absent.
class ConnectScreen : public ScreenTest {
  protected:
    ConnectScreen();

    /// Plugs the sensor into port `number`, and out of all others.
    void PlugInto(int number) const;

    /// Leaves port `number` without a serial line, whatever the machine has there.
    void Unplug(int number) const;

    /// Sets the sensor to the speed that `code` stands for in its memory.
    void SetSpeed(std::uint16_t code);

    void Press(const char* button) const;
    void ConnectManually(int port, const std::string& baud) const;

    bool Enabled(const char* control) const { return Get<QWidget>(screen, control).isEnabled(); }
    static bool IsClosed();

    /// Whether the two menus of the main window can be used, which they can only together.
    static bool MenusEnabled();

    /// The file of the settings store, and the text under `key` in it, "none" without one.
    QString StorePath() const;
    std::string Stored(const char* key) const;

    Screen& screen;

  private:
    QString noLine_;  ///< a file that is no serial line
};

/// Notes the captions that a frame shows, as they are painted.
class CaptionWatch : public QObject {
  public:
    explicit CaptionWatch(QGroupBox& frame);
    bool eventFilter(QObject* watched, QEvent* event) override;

    Texts captions;
    std::function<void(const std::string&)> onCaption;

  private:
    QGroupBox& frame_;
};

}  // namespace orbkl4::test

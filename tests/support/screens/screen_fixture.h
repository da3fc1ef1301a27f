#pragma once

#include "base/bytes.h"
#include "platform/windows/mdi_frame.h"
#include "platform/windows/menu_entry.h"
#include "platform/windows/screen.h"
#include "simulator/simulator.h"
#include "support/patient_clock.h"
#include "support/temporary_folders.h"

#include <QAbstractButton>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace orbkl4::test {

/// The write that sets the polled mode.
inline const Bytes polledMode{0x29, 0x71, 0x00, 0x84, 0x00, 0x00, 0xAA};

/// A sensor at rest, without noise, that answers at once.
orbkl4sim::SimulatorOptions QuietSensor();

/// The started program with its frame and main window, all screens registered, as after a
/// connection at 38400 baud, and a simulated sensor on port 1.
class ScreenTest : public testing::Test {
  protected:
    explicit ScreenTest(const orbkl4sim::SimulatorOptions& options = QuietSensor());
    ~ScreenTest() override;

    /// Shows the screen `name` in the frame, or as a dialog, without the main menu's exchange with
    /// the sensor, and waits until it is active.
    Screen& Open(const char* name);
    Screen& OpenModal(const char* name);

    /// The control `name` of the loaded screen `screen`, which must exist.
    template <typename Control>
    static Control& Get(const Screen& screen, const char* name) {
        auto* control = screen.findChild<Control*>(QLatin1String(name));
        if (control == nullptr) ADD_FAILURE() << "no control " << name;
        return *control;
    }

    /// The Qt property `property` of the control `name` of `screen`, as text.
    static std::string Property(const Screen& screen, const char* name, const char* property);

    /// The `text` of the control `name` of `screen`.
    static std::string Text(const Screen& screen, const char* name) {
        return Property(screen, name, "text");
    }

    /// Chooses the menu entry as a user would; does nothing if it is disabled.
    static void Click(const Screen& screen, const char* entry) { screen.Menu(entry).trigger(); }

    static void Press(const Screen& screen, const char* button) {
        Get<QAbstractButton>(screen, button).click();
    }

    /// The requests that the sensor has heard so far, in order; waits until there are `least`, as
    /// the sensor may lag behind the program.
    std::vector<Bytes> Heard(std::size_t least = 0) const;

    TemporaryFolders folders;
    orbkl4sim::Simulator sensor;
    MdiFrame frame{"MDIForm1", "Frame"};

  private:
    std::optional<PatientClock> clock_;  ///< from the start of the sensor on
};

}  // namespace orbkl4::test

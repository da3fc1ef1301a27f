#pragma once

#include "platform/controls/cw_num_edit.h"
#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "state/app_state.h"
#include "support/box_answerer.h"
#include "support/screens/screen_fixture.h"
#include "support/tick_on_reply.h"

#include <QTest>

#include <string>
#include <vector>

namespace orbkl4::test {

inline constexpr const char* readDone = "Read process has completed!";
inline constexpr const char* writeDone = "Write process has completed!";

/// What a read question says behind its fault.
inline constexpr const char* retryOrCancel =
    " Click Retry to attempt re-read or Cancel to skip over.";

/// The read request for the word at `address`.
inline Bytes ReadRequest(int address) { return {0x28, 0, static_cast<std::uint8_t>(address)}; }

/// A screen whose runs read and write words tick by tick, here quicker than in life.
class RunTest : public ScreenTest {
  protected:
    using Names = std::vector<const char*>;

    /// The screen `name`, of which a run disables `entries` and `frames`.
    RunTest(const char* name, Names entries, Names frames);

    /// Opens the screen, which must have been left.
    void OpenScreen();

    bool Running() const { return !screen->Menu("mnuRead").Enabled(); }
    void ExpectControls(bool enabled) const;

    /// Expects that nothing runs, with the progress bar at `bar`.
    void ExpectRest(const char* bar) const;

    MSComm& Port() const { return Get<MSComm>(*screen, "MSComm1"); }

    Screen* screen = nullptr;
    TickOnReply* readTicks = nullptr;
    BoxAnswerer hand{{}, QMessageBox::Retry};

  private:
    const char* name_;
    Names entries_, frames_;
};

/// The open EEPROM map.
class MapTest : public RunTest {
  protected:
    explicit MapTest(bool advanced = false);

    /// The field of the word at `address`.
    CWNumEdit& Field(int address) const;
    double Number(int address) const { return Field(address).Value(); }
    bool Marked(int address) const { return Field(address).BackColorText() == 0xC0C0FF; }

    /// The addresses of all marked fields, ascending.
    std::vector<int> MarkedAddresses() const;

    /// Replaces the text of the field of `address` by `text` and presses Enter, as a person does.
    void Type(int address, const std::string& text) const;

    /// Presses the keys that show and hide "Show Min" and "Show Max".
    void PressChord() { QTest::keyClick(frame.windowHandle(), Qt::Key_F11, Qt::ControlModifier); }

    /// Chooses `entry` and waits until the run that it starts is over.
    void Run(const char* entry);

    /// Opens the map, which must have been left.
    void Reopen();

    /// Gives the frame the keyboard, as after a message box.
    void ActivateFrame();
};

class AdvancedMapTest : public MapTest {
  protected:
    AdvancedMapTest() : MapTest(true) {}
};

}  // namespace orbkl4::test

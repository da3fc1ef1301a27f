#pragma once

#include "frame/logic/app_state.h"
#include "platform/controls/cw_num_edit.h"
#include "platform/mscomm.h"
#include "platform/timer.h"
#include "support/box_hand.h"
#include "support/hastener.h"
#include "support/screens/screen_fixture.h"

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

/// The open EEPROM map, its ticks quicker than in life.
class MapTest : public ScreenTest {
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

    /// Chooses `entry` and waits until the run that it starts is over.
    void Run(const char* entry);
    bool Running() const { return !map->Menu("mnuRead").Enabled(); }

    /// Waits until the sensor has been asked for the word at `address`.
    bool WaitUntilAskedFor(int address) const;

    /// The bytes of those requests heard that begin with `command`.
    std::vector<Bytes> HeardOf(int command) const;

    /// Opens the map, which must have been left.
    void Reopen();

    /// Gives the frame the keyboard, as after a message box.
    void ActivateFrame();

    Screen* map = nullptr;
    Hastener* hastener = nullptr;  ///< of the read run
    BoxHand hand{{}, QMessageBox::Retry};
};

class AdvancedMapTest : public MapTest {
  protected:
    AdvancedMapTest() : MapTest(true) {}
};

}  // namespace orbkl4::test

#pragma once

#include "link/screens/runs_fixture.h"
#include "platform/controls/cw_num_edit.h"

#include <QTest>

#include <string>
#include <vector>

namespace orbkl4::test {

using Addresses = std::vector<int>;

/// The open EEPROM map.
class MapTest : public RunTest {
  protected:
    explicit MapTest(bool advanced = false) {
        AppState.AdvancedMode = advanced;
        Reopen();
    }

    /// Opens the map, which must have been left, and gives the frame the focus.
    void Reopen() {
        OpenRun("EEPROMmap");
        frame.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&frame));
    }

    /// The field of the word at `address`.
    CWNumEdit& Field(int address) const {
        return Get<CWNumEdit>(*screen, ("NumEdit(" + std::to_string(address / 2) + ")").c_str());
    }
    double Number(int address) const { return Field(address).Value(); }
    bool Marked(int address) const { return Field(address).BackColorText() == 0xC0C0FF; }

    /// The addresses of all marked fields, ascending.
    Addresses MarkedAddresses() const {
        Addresses addresses;
        for (int address = 0; address < 256; address += 2)
            if (Marked(address)) addresses.push_back(address);
        return addresses;
    }

    /// Replaces the text of the field of `address` by `text` and presses Enter, as a user does.
    void Type(int address, const std::string& text) const {
        CWNumEdit& field = Field(address);
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&field, QString::fromStdString(text));
        QTest::keyClick(&field, Qt::Key_Return);
    }

    /// Presses the keys that show and hide "Show Min" and "Show Max".
    void PressChord() { QTest::keyClick(frame.windowHandle(), Qt::Key_F11, Qt::ControlModifier); }

    BoxAnswerer boxes{{}, goOn};
};

class AdvancedMapTest : public MapTest {
  protected:
    AdvancedMapTest() : MapTest(true) {}
};

}  // namespace orbkl4::test

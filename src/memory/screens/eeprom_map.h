#pragma once

#include "link/eeprom_runs.h"
#include "memory/logic/catalogue.h"
#include "memory/screens/run_progress.h"
#include "memory/screens/word_panel.h"
#include "platform/controls/colour.h"
#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/windows/screen.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

class QGridLayout;
class QGroupBox;

namespace orbkl4 {

class CWNumEdit;

/// The fields of the upper frame; the others are in the lower one.
inline constexpr std::size_t firstFrameFields = 8;

/// How many fields stand below one another in the frame that has the field `index`.
constexpr std::size_t RowsAt(std::size_t index) { return index < firstFrameFields ? 4 : 12; }

/// The background of a modified field; a write run writes the fields that have it.
inline constexpr std::uint32_t ModifiedColor = modifiedBackground;

/// Shows all words of the sensor's EEPROM, reads them, writes the modified ones, and logs them.
class EEPROMmap : public Screen {
    Q_OBJECT

  public:
    EEPROMmap();

    void Form_Load() override;

    /// Sets the lower limit of every field.
    void PopulateNumEditMinimum();

    /// Sets the upper limit of every field.
    void PopulateNumEditMaximum();

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void BuildLayout();
    void AddField(QGridLayout& grid, std::size_t index, int rowsPerColumn);
    void ConnectMenu();
    void ConnectFields();

    void Form_KeyDown();
    void Form_MouseMove();
    void NumEdit_MouseMove(std::size_t index);
    void NumEdit_ValueChanged(std::size_t index);
    void mnuRead_Click();
    void mnuWrite_Click();
    void mnuLog_Click();
    void mnuShowMin_Click();
    void mnuShowMax_Click();
    void mnuViewMatrix_Click();
    void mnuReturn_Click();
    void TimerRead_Timer();
    void TimerWrite_Timer();

    void ApplyAccessLevel(std::string_view level);
    std::optional<std::size_t> IndexOfField(const QObject* object) const;
    bool FieldKey(std::size_t index, int key);
    bool MoveFrom(std::size_t index, int key) const;
    void GiveBack(std::size_t index);
    void PointerMoved(const QPoint& position);
    void ClearModifiedMarks();
    void EnableControls(bool enabled);
    void EndRead();
    void EndWrite();
    void SaveCommSettingsFromMap();
    void Logger();
    CWNumEdit& FieldOf(eeprom::Address address) const;

    std::array<CWNumEdit*, eepromWordCount> NumEdit_{};
    std::array<std::optional<double>, eepromWordCount> inSensor_;  ///< as last read or written
    QGroupBox* fraEEPROMAddresses1_;
    QGroupBox* fraEEPROMAddresses_;
    WordPanel panel_;
    RunProgress progress_;
    MSComm port_;
    Timer timerRead_, timerWrite_;
    EepromReadRun readRun_;
    EepromWriteRun writeRun_;
    bool readInProgress_ = false;
    bool logAfterRead_ = false;
};

}  // namespace orbkl4

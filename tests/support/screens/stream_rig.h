#pragma once

#include "platform/windows/mdi_frame.h"
#include "support/box_answerer.h"
#include "support/logic/stream_oracle.h"
#include "support/pty_master.h"
#include "support/temporary_folders.h"

#include <QPointer>

#include <array>
#include <string>

namespace orbkl4 {
class CWButton;
class MSComm;
class Screen;
}  // namespace orbkl4

namespace orbkl4::test {

/// The started program with a bare line on port 1; feeds a sampling view any stream in any pieces
/// and checks the result.
class StreamRig {
  public:
    StreamRig();
    ~StreamRig();

    /// Feeds the stream made of `data` to its channel and checks after each reply what is shown,
    /// saved and requested, and that another cutting shows the same. Returns what is wrong, or an
    /// empty text.
    std::string FaultOf(std::span<const std::uint8_t> data);

    /// How often each verdict came up so far.
    const std::array<int, verdicts>& Verdicts() const { return verdicts_; }

  private:
    void Show(const PacketKind& kind);
    void Click();
    std::string FaultOfStream(const StreamCase& streamCase);
    std::string FaultOfReply(const StreamOracle& oracle);
    std::string FaultOfShown(const StreamOracle& oracle);
    std::string FaultOfSaved(const StreamOracle& oracle);
    bool AllIn(const StreamOracle& oracle);
    std::string Snapshot() const;

    TemporaryFolders folders_;
    PtyMaster line_;
    MdiFrame frame_{"MDIForm1", "Frame"};
    BoxAnswerer boxes_{{}, QMessageBox::Retry};
    const PacketKind* kind_ = nullptr;
    QPointer<Screen> screen_;
    MSComm* port_ = nullptr;
    const CWButton* led_ = nullptr;
    std::string shown_;  ///< the last snapshot
    std::string story_;  ///< what was shown after each reply of the stream
    std::string dataFile_;
    long savedBytes_ = 0;
    std::array<int, verdicts> verdicts_{};
};

}  // namespace orbkl4::test

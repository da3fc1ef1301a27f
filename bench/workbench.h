#pragma once

#include "bench/raw_loop.h"
#include "platform/windows/mdi_frame.h"
#include "simulator/simulator.h"

#include <QTemporaryDir>

#include <vector>

namespace orbkl4 {

class MSComm;
class Screen;
struct SamplingChannel;

namespace bench {

/// The program, started in this process with a simulated sensor on port 1.
class Workbench {
  public:
    /// A sensor that answers by `options`, with a calculation cycle that never holds a reply back
    /// where `fastCycle` says so.
    Workbench(const orbkl4sim::SimulatorOptions& options, bool fastCycle);
    ~Workbench();
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    /// The line's device.
    std::string Device() const { return sensor_.DevicePath().string(); }

    /// Samples `channel` on its screen for `seconds`, with display, and with saving if `saving`.
    LoopResult SampleLoop(const SamplingChannel& channel, double seconds, bool saving);

    /// Lets the program's window paint, as it does unless told otherwise, or not.
    void Painting(bool on) { frame_.setUpdatesEnabled(on); }

    /// How long the handler of `count` replies to `channel` took, each from the whole reply waiting
    /// to its end, in seconds; display and saving on.
    std::vector<double> HandlerTimes(const SamplingChannel& channel, int count);

    /// The folder for data files, gone with the object.
    std::string DataFile() const { return folder_.filePath("data.csv").toStdString(); }

  private:
    Screen& Start(const SamplingChannel& channel, bool saving);

    QTemporaryDir folder_;
    orbkl4sim::Simulator sensor_;
    MdiFrame frame_{"MDIForm1", "Benchmark"};
};

}  // namespace bench
}  // namespace orbkl4

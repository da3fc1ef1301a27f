#pragma once

#include "acquire/engine.h"
#include "acquire/screens/view_layout.h"
#include "platform/windows/screen.h"

#include <vector>

namespace orbkl4 {

/// The window of a data view: samples the sensor, shows the samples and saves them.
class ViewScreen : public Screen {
    Q_OBJECT

  public:
    /// The window that `view`, which must outlive it, describes.
    explicit ViewScreen(const View& view);

  private:
    void BuildLayout();
    void AddChannel(const SamplingChannel& row, std::size_t panel);
    void ConnectMenu();
    void DisplaySample(std::size_t panel) const;
    void ClearAll() const;

    void mnuSave_Click();
    void mnuCaptureBias_Click();
    void mnuReturn_Click();

    const View& view_;
    std::vector<std::vector<Shown<TextField>>> panels_;  ///< one for each channel, if any
    std::vector<Shown<CWSlide>> slides_;
    std::vector<Shown<CWKnob>> dials_;
    std::vector<LiveChannel> channels_;
};

/// Makes the window of `view`.
template <const View& view>
Screen* MakeView() {
    return new ViewScreen(view);
}

}  // namespace orbkl4

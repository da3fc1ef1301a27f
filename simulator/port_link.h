#pragma once

#include <filesystem>

namespace orbkl4sim {

/// The link by which programs find the device of port `number` (1 to 16), in the user's
/// configuration folder; throws std::runtime_error if the user has none.
std::filesystem::path PortLinkPath(int number);

/// A symbolic link to a device, removed with this object.
class PortLink {
  public:
    /// Creates `link`, and its folder if necessary. Replaces a dangling link or one to a pseudo
    /// terminal; throws std::runtime_error if anything else is in the way.
    PortLink(std::filesystem::path link, std::filesystem::path device);

    /// Removes the link if it still points to the device.
    ~PortLink();
    PortLink(const PortLink&) = delete;
    PortLink& operator=(const PortLink&) = delete;

  private:
    std::filesystem::path link_;
    std::filesystem::path device_;
};

}  // namespace orbkl4sim

#pragma once

#include <filesystem>

namespace orbkl4sim {

/// Where the program looks for the device of port `number` (1 to 16): below the user's
/// configuration folder. Throws std::runtime_error where the user has none.
std::filesystem::path PortLinkPath(int number);

/// A symbolic link to a device that goes with this object.
class PortLink {
  public:
    /// Links `link` to `device`; the folder is made where it is missing, a dangling link and one to
    /// a pseudo terminal are replaced. Throws std::runtime_error where anything else is in the way.
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

#pragma once

#include <QTemporaryDir>

#include <filesystem>
#include <string>

namespace orbkl4::test {

/// A temporary folder with the program, its data files and logs, and a configuration folder.
class Stage {
  public:
    Stage();

    std::filesystem::path Root() const { return root_.path().toStdString(); }
    std::filesystem::path Program() const { return Root() / "program" / "orb-kl4-workbench"; }
    std::filesystem::path DataFiles() const { return Root() / "program" / "Data Files"; }
    std::filesystem::path Logs() const { return Root() / "program" / "Logs"; }
    std::filesystem::path Config() const { return Root() / "config"; }
    std::filesystem::path UserData() const { return Root() / "data"; }
    std::filesystem::path PluginFolder() const { return Root() / "plugins"; }

    /// The settings store.
    std::filesystem::path Settings() const {
        return Config() / "Kestrelmoor" / "ORB-KL4-RS232.ini";
    }

    /// Links port `number` to the file, device or folder `target`.
    void LinkPort(int number, const std::filesystem::path& target) const;

    /// Stores `lines` as the settings' one section.
    void StoreSettings(const std::string& lines) const;

    /// The error log, its dates masked.
    std::string ErrorLog() const;

  private:
    QTemporaryDir root_;
};

/// `text` with "D" in place of each date and time of the last few minutes.
std::string WithDatesMasked(std::string text);

}  // namespace orbkl4::test

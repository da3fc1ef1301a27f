#pragma once

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace orbkl4sim {

/// A temporary folder, removed with this object.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "orbkl4-XXXXXX").string();
        path_ = mkdtemp(name.data());
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    std::filesystem::path operator/(const char* name) const { return path_ / name; }

    /// Writes `text` to the file `name` and returns its path.
    std::filesystem::path Write(const char* name, const std::string& text) const {
        std::ofstream(path_ / name) << text;
        return path_ / name;
    }

  private:
    std::filesystem::path path_;
};

inline std::string ContentOf(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

/// The text of the exception that `action` throws; empty if it throws none.
template <typename Action>
std::string ErrorOf(Action action) {
    try {
        action();
    } catch (const std::exception& error) {
        return error.what();
    }
    return "";
}

}  // namespace orbkl4sim

#pragma once

#include "cli/memory_image.h"

#include <optional>
#include <string>
#include <vector>

namespace orbkl4::cli {

/// The images that were saved before each change of one sensor's memory. An image is marked as
/// unfinished from before the first word is written until the last has been read back.
class MemoryBackups {
  public:
    /// The backups of the sensor `serialNumber` in this user's data folder.
    explicit MemoryBackups(int serialNumber);

    /// Throws `Failure::Unfinished` if a change of this sensor has begun and not ended.
    void RequireFinished() const;

    /// The path of the image to go back to: the first that is marked, else the newest whose change
    /// hasn't been taken back; none if there are none.
    std::optional<std::string> WayBack() const;

    /// The image at `path`; throws `Failure::System` if it is damaged.
    static MemoryImage Load(const std::string& path);

    /// Saves `image`, marked, as the newest, and returns its path; throws `Failure::System`.
    std::string Save(MemoryImage image) const;

    /// Takes the mark off the image at `path`; throws `Failure::System`.
    static void Finish(const std::string& path);

    /// Marks the image at `path`, which is `WayBack`, so that it stays that until `NoteUndone`.
    static void Reopen(const std::string& path);

    /// Notes that the changes since the image at `path` have been taken back, and takes their marks
    /// off; `path` itself stays the way back unless the sensor has all its words again, `complete`.
    /// The newest go first, so that a break doesn't change the way back.
    void NoteUndone(const std::string& path, bool complete) const;

    /// The command that goes back.
    std::string UndoCommand() const;

  private:
    std::vector<std::string> Paths() const;
    std::optional<std::string> FirstUnfinished() const;

    std::string folder_;
    int serialNumber_;
};

}  // namespace orbkl4::cli

#include "simulator/eeprom_file.h"

#include "simulator/text.h"
#include "simulator/throw_errno.h"

#include <fcntl.h>
#include <sstream>
#include <string>
#include <string_view>
#include <unistd.h>

namespace fs = std::filesystem;

namespace orbkl4sim {

namespace {

constexpr int kLastAddress = 254;

std::string Text(const Eeprom& memory) {
    std::ostringstream text;
    text << "# ORB-KL4 EEPROM: address word\n";
    for (int wordAddress = 0; wordAddress <= kLastAddress; wordAddress += 2) {
        text << wordAddress << ' ' << memory.Word(wordAddress) << '\n';
    }
    return text.str();
}

/// Writes `text` to `descriptor` and syncs it to disk; false on failure.
bool WriteAndSync(int descriptor, const std::string& text) {
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t size = write(descriptor, text.data() + done, text.size() - done);
        if (size < 0 && errno != EINTR) return false;
        if (size > 0) done += static_cast<std::size_t>(size);
    }
    return fsync(descriptor) == 0;
}

}  // namespace

void LoadEeprom(const fs::path& file, Eeprom& memory) {
    if (!fs::exists(file)) return;
    ForEachLine(file, [&memory](std::string_view line) {
        Arguments words(line);
        const double wordAddress = words.Number(kAddressRange);
        const double word = words.LastNumber(kWordRange);
        memory.SetWord(static_cast<int>(wordAddress), static_cast<std::uint16_t>(word));
    });
}

void SaveEeprom(const fs::path& file, const Eeprom& memory) {
    fs::path fresh = file;
    fresh += ".new";
    const int descriptor = open(fresh.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (descriptor < 0) ThrowErrno(fresh.string());
    const bool written = WriteAndSync(descriptor, Text(memory));
    if (close(descriptor) != 0 || !written) ThrowErrno(fresh.string());
    if (rename(fresh.c_str(), file.c_str()) != 0) ThrowErrno(file.string());
    // The rename itself reaches the disk when the folder is synced.
    const fs::path parent = file.has_parent_path() ? file.parent_path() : fs::path(".");
    const int folder = open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) ThrowErrno(parent.string());
    fsync(folder);
    close(folder);
}

}  // namespace orbkl4sim

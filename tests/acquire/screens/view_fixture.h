#pragma once

#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/system/folders.h"
#include "state/app_state.h"
#include "state/sample_state.h"
#include "support/file_dialog_answerer.h"
#include "support/frames.h"
#include "support/screens/screen_fixture.h"
#include "support/wait.h"

#include <iterator>
#include <sstream>
#include <vector>

namespace orbkl4::test {

/// The words of `text`.
inline std::vector<std::string> Split(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

inline Bytes Joined(Bytes first, const Bytes& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

/// Data views on a sensor that replies as scripted.
class ViewTest : public ScreenTest {
  protected:
    using ScreenTest::ScreenTest;

    /// The next requests `command` get `replies` in turn, the ones after them silence.
    void Script(std::uint8_t command, const std::vector<Bytes>& replies) {
        sensor.ClearRecord();
        sensor.ClearReplies();
        sensor.ReplyTo(command, {});
        for (const Bytes& reply : replies) sensor.ReplyOnceTo(command, reply);
    }

    /// Waits until `count` requests have come since the script was set, so that all replies before
    /// the last one have been handled.
    bool AwaitRequests(std::size_t count) {
        return WaitFor([this, count] { return sensor.Requests().size() >= count; });
    }

    /// The texts of the fields `names` of `screen`.
    static std::vector<std::string> Texts(const Screen& screen,
                                          const std::vector<std::string>& names) {
        std::vector<std::string> texts;
        for (const std::string& name : names) texts.push_back(Text(screen, name.c_str()));
        return texts;
    }

    static bool Lit(const Screen& screen, const char* lamp) {
        return Property(screen, lamp, "value") == "true";
    }

    /// Turns saving on, to the data file `leaf`.
    static void SaveTo(const Screen& screen, const QString& leaf) {
        const FileDialogAnswerer hand({leaf});
        Click(screen, "mnuSave");
    }

    /// The rows of the data file `leaf` without the head.
    static QStringList Rows(const QString& leaf) {
        QStringList lines = QString::fromUtf8(ContentOf(DataFilesFolder() + '/' + leaf))
                                .split(QStringLiteral("\r\n"));
        EXPECT_TRUE(lines.takeLast().isEmpty()) << "the last row is whole";
        return lines.mid(5);
    }
};

}  // namespace orbkl4::test

#pragma once

#include "child_process.h"
#include "stage.h"

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace orbkl4::test {

/// A message box that is up.
struct MessageBox {
    std::string title;
    std::string text;
    std::vector<std::string> buttons;

    bool operator==(const MessageBox&) const = default;
};

/// Prints `box` where an expectation fails.
std::ostream& operator<<(std::ostream& out, const MessageBox& box);

/// A box of the program that tells something.
MessageBox Telling(const std::string& text);

/// The box about the error of a log record with these contents, its date as "D".
MessageBox AboutError(const std::string& number, const std::string& source,
                      const std::string& screen, const std::string& description);

/// How the program is to be run.
struct Conditions {
    std::optional<rlim_t> fileSize = {};  ///< no file can grow beyond so many bytes
    std::optional<uid_t> user = {};       ///< the user who runs it; only root can choose
};

/// The real program, run on `stage` without a screen, and a hand in it that does what a person
/// could do. What can't be done or doesn't come about within some seconds throws
/// std::runtime_error.
class RunningProgram {
  public:
    explicit RunningProgram(const Stage& stage, const Conditions& conditions = {});

    ChildProcess& Process() { return process_; }

    /// Waits until the screen `name` is shown.
    void AwaitScreen(const std::string& name);

    /// Waits until the screen `name` isn't shown.
    void AwaitNoScreen(const std::string& name);

    /// The Qt property of the screen, or of its object `name`, as text.
    std::string Get(const std::string& screen, const std::string& name,
                    const std::string& property);

    /// Waits until a property has the value `expected`.
    void Await(const std::string& screen, const std::string& name, const std::string& property,
               const std::string& expected);

    /// Chooses a menu entry, which must be there and enabled.
    void Choose(const std::string& screen, const std::string& entry);

    /// Enables a menu entry as the program would do it after a connection, which takes seconds.
    void Unlock(const std::string& entry) { Order({"unlock", "Main", entry}); }

    /// Presses a button.
    void Press(const std::string& screen, const std::string& button);

    /// Types `text` over what a field holds, and leaves the field.
    void Type(const std::string& screen, const std::string& field, const std::string& text);

    /// Turns to a tab.
    void Turn(const std::string& screen, const std::string& tabs, const std::string& tab);

    /// Presses the middle button on an object while Shift and Ctrl are held.
    void Gesture(const std::string& screen, const std::string& name) {
        Order({"gesture", screen, name});
    }

    /// The message box that is up, its date masked.
    std::optional<MessageBox> BoxUp();

    /// Waits for a message box.
    MessageBox AwaitBox();

    /// Answers the message box that is up.
    void Answer(const std::string& button) { Order({"answer", button}); }

    /// Waits for the box that tells of success after a connection was begun. A sensor that isn't
    /// found is tried again, twice: it has 100 milliseconds to answer, and a busy machine may
    /// not let it; `beforeRetry` is done then.
    void AwaitConnected(const std::function<void()>& beforeRetry = [] {});

    /// Waits for the file dialog and saves as `path`, typed as it is; cancels where it is empty.
    void SaveAs(const std::string& path);

    /// Closes the program's window.
    void CloseWindow() { Order({"close"}); }

    /// Leaves a picture of what is on top.
    void Grab(const std::filesystem::path& path) { Order({"grab", path.string()}); }

  private:
    std::vector<std::string> Order(const std::vector<std::string>& words);
    std::vector<std::string> Hear();

    /// Our end of the line to the hand, and its own.
    struct Line {
        Line();
        ~Line();
        Line(const Line&) = delete;
        Line& operator=(const Line&) = delete;

        int ours = -1;
        int theirs = -1;
    };

    Line line_;
    std::string heard_;
    ChildProcess process_;
};

}  // namespace orbkl4::test

#pragma once

#include "child_process.h"
#include "stage.h"

#include <functional>
#include <optional>
#include <ostream>
#include <string>
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

/// An error that is reported.
struct Reported {
    std::string number;
    std::string source;
    std::string screen;
    std::string description;

    /// The box about it, its date masked.
    MessageBox Box() const;

    /// Its record in the error log, its date masked.
    std::string Record() const;
};

/// The real program, run on `stage` without a screen, and a hand in it that does what a person
/// could do. What can't be done or doesn't come about within some seconds throws
/// std::runtime_error.
class RunningProgram {
  public:
    explicit RunningProgram(const Stage& stage);

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
    void Choose(const std::string& screen, const std::string& entry) {
        Order({"choose", screen, entry});
    }

    /// Shows and enables an entry of the main menu, as the program would do it after the hidden
    /// gesture, and after a connection, which takes seconds.
    void Unlock(const std::string& entry) { Order({"unlock", "Main", entry}); }

    /// Presses a button.
    void Press(const std::string& screen, const std::string& button) {
        Order({"press", screen, button});
    }

    /// The message box that is up, its date masked.
    std::optional<MessageBox> BoxUp();

    /// Waits for a message box.
    MessageBox AwaitBox();

    /// Answers the message box that is up.
    void Answer(const std::string& button) { Order({"answer", button}); }

    /// Lets it search for the sensor, and waits for the box that tells of success. A sensor that
    /// isn't found is tried again, twice: it has 100 milliseconds to answer, and a busy machine
    /// may not let it; `beforeRetry` is done then.
    void Search(const std::function<void()>& beforeRetry = [] {});

    /// Waits for the file dialog and saves as `path`, typed as it is.
    void SaveAs(const std::string& path);

    /// Closes the program's window.
    void CloseWindow() { Order({"close"}); }

  private:
    std::vector<std::string> Order(const std::vector<std::string>& words);

    ChildProcess process_;
};

}  // namespace orbkl4::test

#pragma once

#include "child_process.h"
#include "stage.h"

#include <string>
#include <vector>

namespace orbkl4::test {

/// The message box with `text` and an OK button, as `BoxUp` gives it.
std::string Telling(const std::string& text);

/// A reported error.
struct Reported {
    std::string number;
    std::string source;
    std::string screen;
    std::string description;

    /// The box about it, as `BoxUp` gives it.
    std::string Box() const;

    /// Its record in the error log, its date masked.
    std::string Record() const;
};

/// The real program, run on `stage` without a display, and a driver in it that does what a user
/// could do. What can't be done or doesn't happen within `patience` throws std::runtime_error.
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
        Run({"choose", screen, entry});
    }

    /// Shows and enables an entry of the main menu, as the program does after the hidden gesture or
    /// a connection.
    void Unlock(const std::string& entry) { Run({"unlock", "Main", entry}); }

    /// Presses a button.
    void Press(const std::string& screen, const std::string& button) {
        Run({"press", screen, button});
    }

    /// Title, text and buttons of the message box that is up, each in brackets, its date masked;
    /// empty if there is none.
    std::string BoxUp();

    /// Waits for a message box.
    std::string AwaitBox();

    /// Answers the message box that is up.
    void Answer(const std::string& button) { Run({"answer", button}); }

    /// Searches for the sensor and waits for the box of success. Retries up to nine times, as a
    /// busy machine may not answer in the 100 milliseconds allowed.
    void Search();

    /// Waits for the file dialog, types `path` and saves.
    void SaveAs(const std::string& path);

    /// Closes the program's window.
    void CloseWindow() { Run({"close"}); }

  private:
    std::vector<std::string> Run(const std::vector<std::string>& words);

    ChildProcess process_;
};

}  // namespace orbkl4::test

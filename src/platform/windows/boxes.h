#pragma once

#include <string_view>

class QWidget;

namespace orbkl4 {

/// The title of every message box.
inline constexpr const char* boxTitle = "ORB-KL4";

enum class Answer { Retry, Cancel };

/// Shows `text` (plain, UTF-8) with an OK button until it is answered.
void ShowMessage(std::string_view text);

/// As `ShowMessage`, where it doesn't cover `subject`, if the display has room for that.
void ShowMessageBeside(const QWidget& subject, std::string_view text);

/// Shows `text` with Retry and Cancel and returns the answer; Esc and the close button mean Cancel.
Answer AskRetryCancel(std::string_view text);

/// As `ShowMessage`, for an error: ticks and `OnComm` are held back for a second after it.
void ShowErrorMessage(std::string_view text);

/// As `AskRetryCancel`, for an error: ticks and `OnComm` are held back for a second after it.
Answer AskErrorRetryCancel(std::string_view text);

/// The mouse pointer of the whole program.
enum class Pointer { Default, Hourglass };

/// Sets the mouse pointer, whatever it was.
void MousePointer(Pointer pointer);

/// The present mouse pointer.
Pointer MousePointer();

}  // namespace orbkl4

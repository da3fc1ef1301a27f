#pragma once

#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <string>
#include <vector>

namespace orbkl4::test {

/// Answers the program's message boxes as a user would, and keeps their texts.
class BoxAnswerer {
  public:
    using Button = QMessageBox::StandardButton;

    /// Gives `answers` in turn, then `otherwise`, or OK if a box has no such button.
    explicit BoxAnswerer(std::vector<Button> answers = {}, Button otherwise = QMessageBox::Cancel);

    /// Gives `otherwise` from now on once `answers` are used up.
    void Otherwise(Button otherwise) { otherwise_ = otherwise; }

    /// Calls `look` with each box before it is answered.
    void BeforeAnswer(std::function<void(QMessageBox&)> look) { look_ = std::move(look); }

    /// How long each box stays up before it is answered, in milliseconds.
    void Hesitate(int milliseconds) { hesitation_ = milliseconds; }

    /// The texts of all boxes so far, in order.
    const std::vector<std::string>& Texts() const { return texts_; }

    /// The number, source and screen of the error in box `index`, empty if it is no error box.
    std::string Error(std::size_t index) const;

    /// The number of boxes so far.
    std::size_t Count() const { return texts_.size(); }

  private:
    void Look();
    void Reply(QMessageBox& box);

    std::vector<Button> answers_;
    Button otherwise_;
    int hesitation_ = 0;
    std::function<void(QMessageBox&)> look_;
    std::vector<std::string> texts_;
    QPointer<QMessageBox> current_;
    QTimer timer_;
};

}  // namespace orbkl4::test

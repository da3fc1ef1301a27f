#include "support/box_answerer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QRegularExpression>

namespace orbkl4::test {

BoxAnswerer::BoxAnswerer(std::vector<Button> answers, Button otherwise)
    : answers_(std::move(answers)), otherwise_(otherwise) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
    timer_.start(1);
}

void BoxAnswerer::Look() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible() || box == current_) return;
    current_ = box;
    texts_.push_back(box->text().toStdString());
    QTimer::singleShot(hesitation_, box, [this, box] { Reply(*box); });
}

std::string BoxAnswerer::Error(std::size_t index) const {
    static const QRegularExpression form(
        QStringLiteral("\r\nNumber: (.*)\r\nSource: (.*)\r\nScreen: (.*)\r\nDescription: "));
    const auto error = form.match(QString::fromStdString(texts_.at(index)));
    return error.capturedTexts().mid(1).join(QLatin1Char(' ')).toStdString();
}

void BoxAnswerer::Reply(QMessageBox& box) {
    if (look_) look_(box);
    Button button = texts_.size() <= answers_.size() ? answers_[texts_.size() - 1] : otherwise_;
    if (box.button(button) == nullptr) button = QMessageBox::Ok;
    QAbstractButton* chosen = box.button(button);
    if (chosen == nullptr) chosen = box.escapeButton();  // an unexpected box must not block
    chosen->click();
}

}  // namespace orbkl4::test

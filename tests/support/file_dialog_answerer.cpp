#include "support/file_dialog_answerer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>

namespace orbkl4::test {

FileDialogAnswerer::FileDialogAnswerer(std::vector<QString> names, bool overwrites)
    : names_(std::move(names)), overwrites_(overwrites) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
    timer_.start(1);
}

void FileDialogAnswerer::Look() {
    QWidget* top = QApplication::activeModalWidget();
    if (auto* question = qobject_cast<QMessageBox*>(top)) {
        if (qobject_cast<QFileDialog*>(question->parentWidget()) == nullptr) return;
        if (!overwrites_) names_.clear();
        question->button(overwrites_ ? QMessageBox::Yes : QMessageBox::No)->click();
        return;
    }
    auto* dialog = qobject_cast<QFileDialog*>(top);
    if (dialog == nullptr || (dialog == current_ && !names_.empty())) return;
    if (dialog != current_) {
        current_ = dialog;
        ++count_;
        folder_ = dialog->directory().absolutePath();
        filter_ = dialog->findChild<QComboBox*>(QStringLiteral("fileTypeCombo"))->currentText();
    }
    const QString name = count_ <= names_.size() ? names_[count_ - 1] : QString();
    if (name.isEmpty()) return dialog->reject();
    dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
    if (look_) look_(*dialog);
    QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
}

}  // namespace orbkl4::test

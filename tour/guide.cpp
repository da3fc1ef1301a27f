#include "tour/guide.h"

#include "platform/windows/mdi_frame.h"
#include "platform/windows/menu_entry.h"
#include "platform/windows/screen.h"
#include "platform/windows/screen_registry.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QTabWidget>

namespace orbkl4::tour {

namespace {

constexpr int lookMilliseconds = 50;

/// Presses `button` from the event loop: a timer doesn't come again while its own handler, from
/// which the lookout answers, waits for what the button opens.
void PressSoon(QAbstractButton& button) {
    QMetaObject::invokeMethod(&button, &QAbstractButton::click, Qt::QueuedConnection);
}

template <typename Control>
Control* Find(const char* name) {
    return ActiveScreen()->findChild<Control*>(QLatin1String(name));
}

}  // namespace

Guide::Guide(MdiFrame& frame, const QDir& pictures) : frame_(frame), pictures_(pictures) {
    QObject::connect(&lookout_, &QTimer::timeout, &lookout_, [this] { AnswerModal(); });
    lookout_.start(lookMilliseconds);
}

bool Guide::Choose(const char* entry) const {
    auto* found = Find<MenuEntry>(entry);
    if (found == nullptr || !found->Enabled() || !found->Visible()) return false;
    found->trigger();
    return true;
}

void Guide::Press(const char* name) const {
    if (auto* button = Find<QAbstractButton>(name)) button->click();
}

void Guide::TurnTo(const char* name, int index) const {
    if (auto* tabs = Find<QTabWidget>(name)) tabs->setCurrentIndex(index);
}

void Guide::Watch(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

void Guide::WatchUntilEnabled(const char* entry, int seconds) const {
    constexpr int looksPerSecond = 1000 / lookMilliseconds;
    for (int looks = seconds * looksPerSecond; looks > 0; --looks) {
        Watch(lookMilliseconds);
        const auto* found = Find<MenuEntry>(entry);
        if (found == nullptr || found->Enabled()) return;
    }
}

void Guide::TakePicture(const QString& name) {
    QPixmap picture = frame_.grab();
    Screen* top = ActiveScreen();
    if (top->isWindow()) {
        QPainter painter(&picture);
        const QPixmap dialog = top->grab();
        const QPoint corner = frame_.rect().center() - top->rect().center();
        painter.drawPixmap(corner, dialog);
        painter.setPen(top->palette().color(QPalette::WindowText));
        painter.drawRect(QRect(corner, top->size()));
    }
    Keep(picture, name);
}

void Guide::Keep(const QPixmap& picture, const QString& name) {
    if (picture.save(pictures_.filePath(name + QStringLiteral(".png")))) ++pictureCount_;
}

void Guide::AnswerModal() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || modal == answered_ || !modal->isVisible()) return;
    if (auto* box = qobject_cast<QMessageBox*>(modal)) {
        answered_ = box;
        Answer(*box);
    } else if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
        answered_ = dialog;
        Answer(*dialog);
    }
}

void Guide::Answer(QMessageBox& box) {
    if (!boxPicture_.isEmpty()) Keep(box.grab(), std::exchange(boxPicture_, QString()));
    const bool asksAboutFile = box.button(QMessageBox::Yes) != nullptr;
    if (box.icon() != QMessageBox::Information && !asksAboutFile) {
        complaints_ += box.text();
    }
    // Cancel leaves the operation, or in an error box the program; Retry only goes on. Yes lets the
    // files of an earlier tour be overwritten.
    const auto wanted = {
        box.icon() == QMessageBox::Critical ? QMessageBox::Retry : QMessageBox::Cancel,
        QMessageBox::Yes, QMessageBox::Ok};
    QAbstractButton* button = nullptr;
    for (const QMessageBox::StandardButton each : wanted) {
        if (button == nullptr) button = box.button(each);
    }
    PressSoon(*button);
}

void Guide::Answer(QFileDialog& dialog) {
    if (!std::exchange(fileDialogSeen_, true)) Keep(dialog.grab(), QStringLiteral("save-as"));
    dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(saveIn_);
    auto* buttons = dialog.findChild<QDialogButtonBox*>();
    PressSoon(*buttons->button(QDialogButtonBox::Save));
}

}  // namespace orbkl4::tour

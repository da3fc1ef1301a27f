#include "platform/windows/screen.h"

#include "platform/windows/pending_input.h"
#include "platform/windows/resize.h"
#include "platform/windows/screen_registry.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>

#include <algorithm>
#include <string_view>

namespace orbkl4 {

Screen::Screen(const char* name, const char* title) : resize_(new ReSize(this)) {
    setObjectName(QString::fromUtf8(name));
    setWindowTitle(QString::fromUtf8(title));
    connect(qApp, &QApplication::focusChanged, this, &Screen::FocusMoved);
}

Screen::~Screen() { qApp->disconnect(this); }  // the base class still moves the focus

void Screen::DesignSize(QSize size) { resize_->DesignSize(size); }

void Screen::DesignSizeOfLayout() {
    constexpr QSizeF least(840, 460);
    resize_->DesignSize((QSizeF(sizeHint()) / DisplayScale(*this)).expandedTo(least));
}

void Screen::Unload() { UnloadScreen(*this); }

MenuEntry& Screen::Menu(const char* name) const {
    auto* entry = findChild<MenuEntry*>(QLatin1String(name), Qt::FindDirectChildrenOnly);
    Q_ASSERT_X(entry != nullptr, "Screen::Menu", name);
    return *entry;
}

void Screen::BuildMenu(std::span<const MenuRow> rows) {
    for (const MenuRow& row : rows) {
        auto* entry = new MenuEntry(this, row);
        if (!std::string_view(row.menu).empty()) {
            Menu(row.menu).menu<QMenu*>()->addAction(entry);
            continue;
        }
        menuBarEntries_ += entry;
        const auto isEntryOfIt = [&](const MenuRow& other) {
            return std::string_view(other.menu) == row.name;
        };
        if (std::ranges::none_of(rows, isEntryOfIt)) continue;
        connect(entry->MakeMenu(this), &QMenu::aboutToShow, this, CommitPendingInput);
    }
}

void Screen::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (closeAllowed_) Unload();
}

void Screen::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (isWindow() && key == Qt::Key_Escape) {
        close();
    } else if (isWindow() && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        if (QPushButton* button = ButtonOfEnter()) button->animateClick();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void Screen::DefaultButton(QPushButton& button) {
    defaultButton_ = &button;
    MarkButtonOfEnter();
}

QPushButton* Screen::ButtonOfEnter() const {
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    return focused != nullptr ? focused : defaultButton_.data();
}

void Screen::MarkButtonOfEnter() {
    QPushButton* const button = isWindow() ? ButtonOfEnter() : nullptr;
    if (button == markedButton_) return;
    if (markedButton_ != nullptr) markedButton_->setDefault(false);
    if (button != nullptr) button->setDefault(true);
    markedButton_ = button;
}

void Screen::FocusMoved(QWidget* from, QWidget* to) {
    MarkButtonOfEnter();
    if (to != nullptr && isAncestorOf(to)) awaitsFocus_ = nullptr;
    if (from == nullptr || !isAncestorOf(from) || from->isEnabled()) return;
    awaitsFocus_ = from;
    from->installEventFilter(this);
}

/// Gives a control that was disabled for the length of a run the focus back after it.
bool Screen::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::EnabledChange && watched == awaitsFocus_ &&
        awaitsFocus_->isEnabled()) {
        const QWidget* focused = window()->focusWidget();
        if (focused == nullptr || !isAncestorOf(focused)) awaitsFocus_->setFocus();
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace orbkl4

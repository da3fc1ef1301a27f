#include "platform/windows/screen.h"

#include "platform/windows/pending_input.h"
#include "platform/windows/resize.h"
#include "platform/windows/screen_registry.h"

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
}

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
        PressEnter();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void Screen::PressEnter() {
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    QPushButton* pressed = focused != nullptr ? focused : defaultButton_;
    if (pressed != nullptr) pressed->animateClick();
}

}  // namespace orbkl4

#include "platform/windows/menu_entry.h"

#include "platform/events/event_gate.h"

#include <QMenu>
#include <QSignalBlocker>

#include <string_view>

namespace orbkl4 {

MenuEntry::MenuEntry(QWidget* screen, const MenuRow& row) : QAction(screen) {
    setObjectName(QLatin1String(row.name));
    setMenuRole(QAction::NoRole);
    if (std::string_view(row.caption) == "-") {
        setSeparator(true);
    } else {
        setText(QLatin1String(row.caption));
    }
    setEnabled(row.state != EntryState::Disabled);
    setVisible(row.state != EntryState::Hidden);
    connect(this, &QAction::triggered, this, [this] {
        ShowChecked();  // Qt has toggled the mark
        const HandlerScope scope;
        emit Click();
    });
}

void MenuEntry::Checked(bool checked) {
    checked_ = checked;
    ShowChecked();
}

void MenuEntry::ShowChecked() {
    setCheckable(checked_);
    setChecked(checked_);
}

QMenu* MenuEntry::MakeMenu(QWidget* screen) {
    auto* made = new QMenu(screen);
    setMenu(made);
    return made;
}

}  // namespace orbkl4

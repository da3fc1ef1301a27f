#pragma once

#include <QAction>

#include <cstdint>
#include <span>

class QWidget;

namespace orbkl4 {

/// How a menu entry is at first.
enum class EntryState : std::uint8_t { Enabled, Disabled, Hidden };

/// One row of a screen's menu tree.
struct MenuRow {
    const char* name;       ///< control name, such as "mnuSave"
    const char* caption;    ///< with its accelerator, such as "Sa&ve"; "-" is a separator
    const char* menu = "";  ///< name of the menu that holds the entry; empty in the menu bar
    EntryState state = EntryState::Enabled;
};

/// A menu, menu entry or separator. Only the program changes its check mark; a click just raises
/// `Click`.
class MenuEntry : public QAction {
    Q_OBJECT

  public:
    /// The entry of `row`, child of `screen`.
    MenuEntry(QWidget* screen, const MenuRow& row);

    /// Whether the check mark is shown.
    bool Checked() const { return checked_; }
    void Checked(bool checked);

    /// Whether the entry can be chosen.
    bool Enabled() const { return isEnabled(); }
    void Enabled(bool enabled) { setEnabled(enabled); }

    /// Whether the entry is shown.
    bool Visible() const { return isVisible(); }
    void Visible(bool visible) { setVisible(visible); }

    /// Turns the entry into a menu and returns it.
    QMenu* MakeMenu(QWidget* screen);

  signals:
    void Click();

  private:
    void ShowChecked();

    bool checked_ = false;
};

}  // namespace orbkl4

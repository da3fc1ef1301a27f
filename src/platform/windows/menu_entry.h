#pragma once

#include <QAction>

#include <span>

class QWidget;

namespace orbkl4 {

/// One row of a screen's menu tree.
struct MenuRow {
    const char* name;       ///< control name, such as "mnuSave"
    const char* caption;    ///< with its accelerator, such as "Sa&ve"; "-" is a separator
    const char* menu = "";  ///< name of the menu that holds the entry; empty in the menu bar
    bool enabled = true;
    bool visible = true;
};

/// A menu, menu entry or separator. Its check mark is changed by the program alone: a click on it
/// only raises `Click`.
class MenuEntry : public QAction {
    Q_OBJECT

  public:
    /// The entry of `row`, child of `screen`, found by its name.
    MenuEntry(QWidget* screen, const MenuRow& row);

    /// Whether the entry bears its check mark.
    bool Checked() const { return checked_; }
    void Checked(bool checked);

    /// Whether the entry can be chosen.
    bool Enabled() const { return isEnabled(); }
    void Enabled(bool enabled) { setEnabled(enabled); }

    /// Whether the entry is shown.
    bool Visible() const { return isVisible(); }
    void Visible(bool visible) { setVisible(visible); }

    /// Gives the entry a menu of its own, to which entries can be added.
    QMenu* MakeMenu(QWidget* screen);

  signals:
    void Click();

  private:
    void ShowChecked();

    bool checked_ = false;
};

}  // namespace orbkl4

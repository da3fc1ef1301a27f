#pragma once

#include "platform/windows/menu_entry.h"

#include <QList>
#include <QPointer>
#include <QWidget>

#include <span>

class QPushButton;

namespace orbkl4 {

class ReSize;

/// One window of the system, with its controls, menus and handlers. It is shown inside the frame,
/// or over it as a modal dialog or a modeless window.
class Screen : public QWidget {
    Q_OBJECT

  public:
    /// A screen without controls; `name` and `title` are UTF-8.
    Screen(const char* name, const char* title);
    ~Screen() override;

    /// Runs once, before the screen is shown.
    virtual void Form_Load() {}

    /// Runs once, after the screen has been shown.
    virtual void Form_Activate() {}

    /// Closes the screen: its ports close and its timers stop at once, and it is destroyed when no
    /// handler of it is on the stack.
    void Unload();

    /// The menu entry `name`, which must exist.
    MenuEntry& Menu(const char* name) const;

    /// The entries for the menu bar while the screen is shown.
    const QList<QAction*>& MenuBarEntries() const { return menuBarEntries_; }

    /// Whether Esc and the close button close a dialog; true at first.
    void CloseAllowed(bool allowed) { closeAllowed_ = allowed; }

  protected:
    /// Makes the menu tree of `rows`. A menu must precede its entries; a row of the menu bar
    /// without entries is an entry itself.
    void BuildMenu(std::span<const MenuRow> rows);

    /// The button that Enter presses unless another push button has the focus. The one that it
    /// would press is marked.
    void DefaultButton(QPushButton& button);

    /// The size for which the layout is made; in a larger window the font grows.
    void DesignSize(QSize size);

    /// Takes the room that the finished layout wants as its design size, but at least as much as
    /// keeps the type of a screen with few fields as large as that of the others.
    void DesignSizeOfLayout();

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QPushButton* ButtonOfEnter() const;
    void MarkButtonOfEnter();
    void FocusMoved(QWidget* from, QWidget* to);

    ReSize* resize_;
    QList<QAction*> menuBarEntries_;
    QPointer<QPushButton> defaultButton_;
    QPointer<QPushButton> markedButton_;
    QPointer<QWidget> awaitsFocus_;  ///< had the focus when it was disabled
    bool closeAllowed_ = true;
};

}  // namespace orbkl4

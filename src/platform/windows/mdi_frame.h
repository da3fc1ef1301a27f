#pragma once

#include <QList>
#include <QMainWindow>

class QLabel;

namespace orbkl4 {

class FootLine;
class Screen;

/// The parent window: shows one child screen at a time, filling it, with the child's title in a
/// heading strip, the child's menus in the menu bar, and a line of text at the foot.
class MdiFrame : public QMainWindow {
    Q_OBJECT

  public:
    /// An empty frame; `name` and `title` are UTF-8.
    MdiFrame(const char* name, const char* title);
    ~MdiFrame() override;

    /// Shows `screen` on top of the children shown before it.
    void ShowChild(Screen& screen);

    /// Shows `screen` as a dialog over the frame; the frame can't be used until it is left.
    void ShowDialog(Screen& screen);

    /// Shows `screen` as a small window over the frame, which stays in use.
    void ShowModeless(Screen& screen);

    /// Removes `screen` from the frame and shows the child below it.
    void Remove(Screen& screen);

    /// Shows `text` and, if it isn't empty, `more` at the foot; `text` gives way to `more`.
    void Foot(const QString& text, const QString& more = {});

    /// Gives the frame, before it is shown, its usual size where a display's free area `available`
    /// has room for it and its title bar; otherwise it will be maximized.
    void FitInto(const QRect& available);

    /// Makes the frame wider (narrower, below 0) by `twips`, of which 1440 make an inch.
    void ChangeWidth(int twips);

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ShowTop();
    void ShowOver(Screen& screen, Qt::WindowFlags flags);

    QLabel* heading_;
    QWidget* area_;
    FootLine* foot_;
    QList<Screen*> children_;
};

}  // namespace orbkl4

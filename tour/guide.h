#pragma once

#include <QDir>
#include <QPointer>
#include <QString>
#include <QTimer>

class QFileDialog;
class QMessageBox;

namespace orbkl4 {

class MdiFrame;
class Screen;

namespace tour {

/// Works the program as a person would: chooses menu entries, presses buttons, answers boxes and
/// the file dialog, and takes pictures of what is to be seen.
class Guide {
  public:
    /// A guide who keeps pictures in `pictures`, which must exist.
    Guide(MdiFrame& frame, const QDir& pictures);

    /// Chooses `entry` in the menus of the topmost screen; false where it can't be chosen.
    bool Choose(const char* entry) const;

    /// Presses the button `name` of the topmost screen.
    void Press(const char* name) const;

    /// Brings the tab `index` of the topmost screen's tab control `name` to the front.
    void TurnTo(const char* name, int index) const;

    /// Lets events run for `milliseconds`.
    static void Watch(int milliseconds);

    /// Lets events run until the entry `entry` of the topmost screen can be chosen again, at most
    /// for `seconds`.
    void WatchUntilEnabled(const char* entry, int seconds) const;

    /// Takes a picture of the frame, or of the dialog that is over it.
    void TakePicture(const QString& name);

    /// The file in which the next file dialog is to save.
    void SaveIn(const QString& path) { saveIn_ = path; }

    /// Takes a picture of the next message box.
    void PictureNextBox(const QString& name) { boxPicture_ = name; }

    /// The pictures taken so far.
    int PictureCount() const { return pictureCount_; }

    /// What message boxes said that report an error.
    const QStringList& Complaints() const { return complaints_; }

  private:
    void AnswerModal();
    void Answer(QMessageBox& box);
    void Answer(QFileDialog& dialog);
    void Keep(const QPixmap& picture, const QString& name);

    MdiFrame& frame_;
    QDir pictures_;
    QString saveIn_;
    QString boxPicture_;
    QStringList complaints_;
    QPointer<QWidget> answered_;
    QTimer lookout_;
    bool fileDialogSeen_ = false;
    int pictureCount_ = 0;
};

}  // namespace tour
}  // namespace orbkl4

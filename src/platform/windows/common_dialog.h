#pragma once

#include <QObject>
#include <QString>

namespace orbkl4 {

/// The file dialog as a control of a screen: set its properties, then `ShowSave`.
class CommonDialog : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString fileName READ FileName)

  public:
    /// A dialog named `name`, child of `screen`.
    CommonDialog(QObject* screen, const char* name);

    /// Whether Cancel raises error 32755.
    void CancelError(bool raises) { cancelError_ = raises; }

    /// Bit 2 (value 2) asks before an existing file is overwritten.
    void Flags(int flags) { flags_ = flags; }

    /// Pairs of description and pattern, all joined by "|".
    void Filter(const QString& filter) { filter_ = filter; }

    /// The number of the pair chosen at first, from 1.
    void FilterIndex(int index) { filterIndex_ = index; }

    /// The folder that the dialog shows at first.
    void InitDir(const QString& folder) { initDir_ = folder; }

    /// Full path of the file last chosen, empty if none was.
    QString FileName() const { return fileName_; }

    /// Asks for a file to save in. A name without a suffix gets the chosen filter's.
    void ShowSave();

  private:
    bool cancelError_ = false;
    int flags_ = 0;
    QString filter_;
    int filterIndex_ = 1;
    QString initDir_;
    QString fileName_;
};

}  // namespace orbkl4

#pragma once

#include <QFileDialog>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <utility>
#include <vector>

namespace orbkl4::test {

/// Answers the program's file dialogs as a user would.
class FileDialogAnswerer {
  public:
    /// Types `names` in turn and saves; an empty one, or none left, cancels. The question whether
    /// to overwrite a file is answered with yes or, if not `overwrites`, with no and then Cancel.
    explicit FileDialogAnswerer(std::vector<QString> names, bool overwrites = true);

    /// Calls `look` with each dialog once a name is typed, before it is saved.
    void BeforeSave(std::function<void(QFileDialog&)> look) { look_ = std::move(look); }

    /// The number of dialogs answered so far.
    std::size_t Count() const { return count_; }

    /// The folder and the file name filter that the last dialog showed.
    const QString& Folder() const { return folder_; }
    const QString& Filter() const { return filter_; }

  private:
    void Look();

    std::vector<QString> names_;
    bool overwrites_;
    std::size_t count_ = 0;
    QString folder_;
    QString filter_;
    std::function<void(QFileDialog&)> look_;
    QPointer<QWidget> current_;
    QTimer timer_;
};

}  // namespace orbkl4::test

#pragma once

#include <QString>
#include <QTemporaryDir>

namespace orbkl4::test {

/// A temporary configuration folder and program folder, used by this process during the object's
/// lifetime.
class TemporaryFolders {
  public:
    TemporaryFolders();
    ~TemporaryFolders();

    /// The folder that replaces the per-user configuration folder.
    QString ConfigFolder() const { return root_.filePath(QStringLiteral("config")); }

    /// Links port `number` to `target` in the ports folder, whatever it was linked to.
    void LinkPort(int number, const QString& target) const;

  private:
    QTemporaryDir root_;
    QByteArray formerConfig_;
};

/// The whole content of the file at `path`, empty if there is none.
QByteArray ContentOf(const QString& path);

}  // namespace orbkl4::test

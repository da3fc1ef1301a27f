#pragma once

#include <QString>
#include <QTemporaryDir>

namespace orbkl4::test {

/// A configuration folder and a program folder of the test process's own, for the object's
/// lifetime.
class TemporaryFolders {
  public:
    TemporaryFolders();
    ~TemporaryFolders();
    TemporaryFolders(const TemporaryFolders&) = delete;
    TemporaryFolders& operator=(const TemporaryFolders&) = delete;

    /// The folder in the place of the per-user configuration folder.
    QString ConfigFolder() const { return root_.filePath(QStringLiteral("config")); }

    /// Puts a symbolic link to `target` for port `number` into the ports folder.
    void LinkPort(int number, const QString& target) const;

    /// Takes the link of port `number` away.
    void UnlinkPort(int number) const;

  private:
    QTemporaryDir root_;
    QByteArray formerConfig_;
};

/// The whole content of the file at `path`, empty where there is none.
QByteArray ContentOf(const QString& path);

}  // namespace orbkl4::test

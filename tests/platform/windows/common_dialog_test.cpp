#include "platform/windows/common_dialog.h"

#include "support/file_dialog_answerer.h"
#include "support/temporary_folders.h"
#include "support/wait.h"

#include <QComboBox>
#include <QDir>
#include <QFileSystemModel>
#include <gtest/gtest.h>

namespace orbkl4::test {

namespace {

struct Case {
    int row;  ///< in the list of filters
    const char* shown;
    const char* typed;
    const char* listed;
    const char* saved;
};

bool Lists(const QFileDialog& dialog, const char* file) {
    const auto& model = *dialog.findChild<QFileSystemModel*>();
    const QModelIndex folder = model.index(dialog.directory().absolutePath());
    for (int i = 0; i < model.rowCount(folder); ++i) {
        if (model.index(i, 0, folder).data().toString() == QLatin1String(file)) return true;
    }
    return false;
}

}  // namespace

TEST(CommonDialog, ListsAndNamesFilesByTheFilterThatIsChosen) {
    const TemporaryFolders folders;
    const QDir folder(folders.ConfigFolder());
    for (const char* name : {"old.csv", "old.txt", "README"}) {
        ASSERT_TRUE(QFile(folder.filePath(QLatin1String(name))).open(QIODevice::WriteOnly));
    }
    for (const Case& row : {Case{0, "All Files (*.*)", "run.csv", "README", "run.csv"},
                            Case{0, "All Files (*.*)", "run", "old.txt", "run"},
                            Case{1, "Text Files(*.txt)", "run", "old.txt", "run.txt"},
                            Case{2, "CSV Files (*.csv)", "run", "old.csv", "run.csv"}}) {
        SCOPED_TRACE(row.shown);
        CommonDialog control(nullptr, "CommonDialog1");
        control.Filter(
            QStringLiteral("All Files (*.*)|*.*|Text Files(*.txt)|*.txt|CSV Files (*.csv)|*.csv"));
        control.FilterIndex(3);
        control.InitDir(folder.path());
        FileDialogAnswerer user({QLatin1String(row.typed)});
        user.BeforeSave([&](QFileDialog& dialog) {  // chooses the row's filter by the keyboard
            auto* filters = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
            QTest::keyClick(filters, Qt::Key_Home);
            for (int i = 0; i < row.row; ++i) QTest::keyClick(filters, Qt::Key_Down);
            EXPECT_EQ(filters->currentText(), row.shown);
            EXPECT_TRUE(WaitFor([&] { return Lists(dialog, row.listed); }))
                << "hides " << row.listed;
        });
        control.ShowSave();
        EXPECT_EQ(user.Filter(), "CSV Files (*.csv)");
        EXPECT_EQ(control.FileName(), folder.filePath(QLatin1String(row.saved)));
    }
}

}  // namespace orbkl4::test

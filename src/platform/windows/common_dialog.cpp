#include "platform/windows/common_dialog.h"

#include "base/run_time_error.h"
#include "platform/events/event_gate.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QRegularExpression>
#include <QTreeView>

namespace orbkl4 {

namespace {

constexpr int overwritePrompt = 2;

/// The filters as Qt takes them: it hides the last parentheses and filters by what they hold. To it
/// "*.*" would be the names with the suffix "*", so all files are "*".
QStringList QtFilters(const QString& filter) {
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const bool isAll = parts[i + 1] == QLatin1String("*.*");
        filters +=
            QStringLiteral("%1 (%2)").arg(parts[i], isAll ? QStringLiteral("*") : parts[i + 1]);
    }
    return filters;
}

/// The suffix that `qtFilter` gives to a name without one, empty for all files.
QString SuffixOf(const QString& qtFilter) {
    static const QRegularExpression pattern(QStringLiteral(R"(\(\*\.(\w+)\)$)"));
    return pattern.match(qtFilter).captured(1);
}

/// Makes room for the size, kind and date of each file, which Qt's own sizes cut.
void ShowWholeColumns(QFileDialog& dialog) {
    constexpr QSize size(800, 480);
    dialog.resize(size);
    for (const auto* list : dialog.findChildren<QTreeView*>())
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

}  // namespace

CommonDialog::CommonDialog(QObject* screen, const char* name) : QObject(screen) {
    setObjectName(QLatin1String(name));
}

void CommonDialog::ShowSave() {
    const BoxScope scope;
    QFileDialog dialog(QApplication::activeWindow(), tr("Save As"), initDir_);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, (flags_ & overwritePrompt) == 0);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    ShowWholeColumns(dialog);
    const QStringList filters = QtFilters(filter_);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(filterIndex_ - 1));
    const auto followFilter = [&] {
        dialog.setDefaultSuffix(SuffixOf(dialog.selectedNameFilter()));
    };
    followFilter();
    connect(&dialog, &QFileDialog::filterSelected, this, followFilter);
    if (!fileName_.isEmpty()) dialog.selectFile(QFileInfo(fileName_).fileName());
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        fileName_ = dialog.selectedFiles().constFirst();
        return;
    }
    if (cancelError_) Raise(ErrorNumber::DialogCancelled);
}

}  // namespace orbkl4

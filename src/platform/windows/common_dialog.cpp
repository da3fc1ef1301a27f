#include "platform/windows/common_dialog.h"

#include "base/run_time_error.h"
#include "platform/events/event_gate.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>

namespace orbkl4 {

namespace {

constexpr int overwritePrompt = 2;

/// The suffix that the pattern in a description such as "CSV Files (*.csv)" gives, empty for "*.*".
QString SuffixOf(const QString& description) {
    static const QRegularExpression pattern(QStringLiteral(R"(\(\*\.(\w+)\))"));
    return pattern.match(description).captured(1);
}

QStringList Descriptions(const QString& filter) {
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList descriptions;
    for (qsizetype i = 0; i < parts.size(); i += 2) descriptions += parts[i];
    return descriptions;
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
    const QStringList descriptions = Descriptions(filter_);
    dialog.setNameFilters(descriptions);
    dialog.selectNameFilter(descriptions.value(filterIndex_ - 1));
    const auto followFilter = [&](const QString& chosen) {
        dialog.setDefaultSuffix(SuffixOf(chosen));
    };
    followFilter(dialog.selectedNameFilter());
    connect(&dialog, &QFileDialog::filterSelected, this, followFilter);
    if (!fileName_.isEmpty()) dialog.selectFile(QFileInfo(fileName_).fileName());
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        fileName_ = dialog.selectedFiles().constFirst();
        return;
    }
    if (cancelError_) Raise(ErrorNumber::DialogCancelled);
}

}  // namespace orbkl4

#include "make_manual/source.h"

#include "memory/logic/catalogue.h"

#include <QFile>
#include <QRegularExpression>

#include <stdexcept>

namespace orbkl4manual {

namespace {

using orbkl4::EepromAccess;
using orbkl4::EepromWord;

QString AccessText(EepromAccess access) {
    switch (access) {
        case EepromAccess::User: return QStringLiteral("always");
        case EepromAccess::Advanced: return QStringLiteral("service");
        case EepromAccess::Fixed: return QStringLiteral("never");
    }
    return {};
}

/// The EEPROM words as rows of a Markdown table.
QString EepromTable() {
    QString table = QStringLiteral(
        "| Address | Name | Type | Minimum | Maximum | Enabled |\n|---:|---|---|---:|---:|---|\n");
    for (const EepromWord& word : orbkl4::eepromCatalogue) {
        const QString name =
            QString::fromUtf8(word.name.data(), static_cast<qsizetype>(word.name.size()));
        const bool isSigned = orbkl4::IsSignedAddress(word.address);
        table += QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 |\n")
                     .arg(word.address)
                     .arg(name, isSigned ? QStringLiteral("signed") : QStringLiteral("unsigned"))
                     .arg(word.minimum)
                     .arg(word.maximum)
                     .arg(AccessText(word.access));
    }
    return table;
}

/// `markdown` with its markers replaced and its comments removed.
QString Filled(QString markdown) {
    markdown.replace(QStringLiteral("<!-- eeprom-table -->"), EepromTable());
    static const QRegularExpression remark(QStringLiteral("<!--.*?-->\n?"),
                                           QRegularExpression::DotMatchesEverythingOption);
    return markdown.remove(remark);
}

}  // namespace

std::vector<Chapter> ReadChapters(const QDir& folder) {
    std::vector<Chapter> chapters;
    const QStringList names{QStringLiteral("[0-9][0-9]-*.md")};
    for (const QString& name : folder.entryList(names, QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            throw std::runtime_error(file.fileName().toStdString() + " can't be read");
        }
        chapters.push_back({name, Filled(QString::fromUtf8(file.readAll()))});
    }
    if (chapters.empty()) {
        throw std::runtime_error(folder.path().toStdString() + " holds no chapters");
    }
    return chapters;
}

}  // namespace orbkl4manual

#include "make_manual/pdf_update.h"

#include <QRegularExpression>
#include <QString>

#include <stdexcept>
#include <utility>

namespace orbkl4manual {

namespace {

constexpr qsizetype entryLength = 20;  // of a line of a cross-reference table

[[noreturn]] void Complain(const char* what) {
    throw std::runtime_error(std::string("the PDF isn't built as expected: ") + what);
}

/// The first number that `pattern` captures in `text`; -1 for none.
int NumberIn(const QByteArray& text, const QString& pattern) {
    const auto match = QRegularExpression(pattern).match(QString::fromLatin1(text));
    return match.hasMatch() ? match.captured(1).toInt() : -1;
}

/// The bytes of `text` between the first `opening` from `from` on and the `closing` after it.
QByteArray Between(const QByteArray& text, const char* opening, const char* closing,
                   qsizetype from = 0) {
    const qsizetype begin = text.indexOf(opening, from);
    const qsizetype end = text.indexOf(closing, begin);
    if (begin < 0 || end < 0) Complain(opening);
    const auto length = static_cast<qsizetype>(qstrlen(opening));
    return text.mid(begin + length, end - begin - length);
}

QByteArray TableEntry(qsizetype offset) {
    return QByteArray::number(offset).rightJustified(10, '0') + " 00000 n \n";
}

}  // namespace

int ReferenceIn(const QByteArray& dictionary, const char* key) {
    const QString pattern =
        QLatin1Char('/') + QLatin1String(key) + QStringLiteral(R"(\s+(\d+) 0 R)");
    return std::max(NumberIn(dictionary, pattern), 0);
}

PdfUpdate::PdfUpdate(QByteArray pdf) : pdf_(std::move(pdf)) {
    const qsizetype last = pdf_.lastIndexOf("startxref");
    tableStart_ = NumberIn(pdf_.mid(last), QStringLiteral(R"(startxref\s+(\d+))"));
    const QByteArray table = pdf_.mid(tableStart_);
    static const QRegularExpression head(QStringLiteral(R"(^xref\s+0 (\d+)\s*\n)"));
    const auto match = head.match(QString::fromLatin1(table.left(64)));
    if (last < 0 || !match.hasMatch()) Complain("its cross-reference table");
    size_ = match.captured(1).toInt();
    for (int number = 0; number < size_; ++number) {
        offsets_.push_back(table.mid(match.capturedEnd() + number * entryLength, 10).toInt());
    }
    trailer_ = Between(pdf_, "trailer", "startxref", tableStart_).trimmed();
    catalog_ = ReferenceIn(trailer_, "Root");
    if (catalog_ == 0 || !trailer_.endsWith(">>")) Complain("its trailer");
}

QByteArray PdfUpdate::Body(int number) const {
    if (const auto changed = objects_.find(number); changed != objects_.end()) {
        return changed->second;
    }
    return Between(pdf_, "obj", "endobj", offsets_.at(static_cast<std::size_t>(number))).trimmed();
}

std::vector<int> PdfUpdate::Pages() const {
    const QByteArray root = Body(ReferenceIn(Body(catalog_), "Pages"));
    const QByteArray kids = Between(root, "/Kids", "]");
    std::vector<int> pages;
    static const QRegularExpression reference(QStringLiteral(R"((\d+) 0 R)"));
    for (const auto& match : reference.globalMatch(QString::fromLatin1(kids))) {
        pages.push_back(match.captured(1).toInt());
        if (!Body(pages.back()).contains("/Type /Page")) Complain("its pages");
    }
    return pages;
}

void PdfUpdate::AddToDictionary(int number, const QByteArray& entries) {
    QByteArray body = Body(number);
    const qsizetype end = body.lastIndexOf(">>");
    if (end < 0) Complain("a dictionary");
    Put(number, body.insert(end, entries + '\n'));
}

QByteArray PdfUpdate::Result() const {
    QByteArray result = pdf_;
    if (!result.endsWith('\n')) result += '\n';
    QByteArray table = "xref\n";
    for (const auto& [number, body] : objects_) {
        table += QByteArray::number(number) + " 1\n" + TableEntry(result.size());
        result += QByteArray::number(number) + " 0 obj\n" + body + "\nendobj\n";
    }
    QString trailer = QString::fromLatin1(trailer_);
    trailer.replace(QRegularExpression(QStringLiteral(R"(/Size \d+)")),
                    QStringLiteral("/Size %1").arg(size_));
    trailer.insert(trailer.lastIndexOf(QLatin1String(">>")),
                   QStringLiteral("/Prev %1\n").arg(tableStart_));
    const QByteArray start = QByteArray::number(result.size());
    return result + table + "trailer\n" + trailer.toLatin1() + "\nstartxref\n" + start +
           "\n%%EOF\n";
}

}  // namespace orbkl4manual

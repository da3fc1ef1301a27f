#include "cli/output.h"

#include "cli/error.h"

#include <QJsonDocument>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <unistd.h>

namespace orbkl4::cli {

namespace {

std::string_view Variable(const char* name) {
    const char* const text = std::getenv(name);  // NOLINT(concurrency-mt-unsafe)
    return text == nullptr ? std::string_view() : text;
}

const char* CodeOf(Colour colour) {
    switch (colour) {
        case Colour::Good: return "\x1b[32m";
        case Colour::Bad: return "\x1b[31m";
        case Colour::Faint: return "\x1b[2m";
        case Colour::None: break;
    }
    return "";
}

QString Painted(const QString& text, Colour colour) {
    if (colour == Colour::None || text.isEmpty()) return text;
    return QLatin1String(CodeOf(colour)) + text + QLatin1String("\x1b[0m");
}

using Row = std::vector<Cell>;

std::vector<qsizetype> Widths(const std::vector<Row>& rows) {
    std::vector<qsizetype> widths;
    for (const Row& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].text.size());
    }
    return widths;
}

QString Rendered(const Table& table, bool coloured) {
    std::vector<Row> rows = table.rows;
    if (!table.heading.empty()) rows.insert(rows.begin(), table.heading);
    const auto widths = Widths(rows);
    QString text;
    for (const Row& row : rows) {
        qsizetype blanks = 0;  // owed before the next text, so that no line ends in blanks
        for (std::size_t i = 0; i < row.size(); ++i) {
            const auto& [cell, colour] = row[i];
            if (!cell.isEmpty()) {
                text += QString(blanks, u' ') + (coloured ? Painted(cell, colour) : cell);
                blanks = 0;
            }
            blanks += widths[i] - cell.size() + 2;
        }
        text += u'\n';
    }
    return text;
}

QString Rendered(const QJsonObject& document) {
    return QString::fromUtf8(QJsonDocument(document).toJson());
}

/// One line, whatever the text holds.
std::string OneLine(std::string text) {
    std::ranges::replace(text, '\n', ' ');
    return text;
}

void Say(const std::string& text) { std::fprintf(stderr, "orb-kl4: %s\n", OneLine(text).c_str()); }

}  // namespace

void Output::Show(const char* format, QJsonObject document, const Table& table) const {
    document.insert(QStringLiteral("format"), QLatin1String(format));
    document.insert(QStringLiteral("version"), 1);
    Print(json_ ? Rendered(document) : Rendered(table, MayColour(STDOUT_FILENO)));
}

void Output::Print(const QString& text) const {
    const QByteArray bytes = text.toUtf8();
    const auto size = static_cast<std::size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0) return;
    throw CliError(Failure::System,
                   std::string("standard output can't be written: ") + std::strerror(errno));
}

void Output::Message(const std::string& text) const {
    if (!quiet_) Say(text);
}

void Output::Warn(const std::string& text) const { Say(text); }

void Output::Fail(const CliError& error) const {
    const std::string& remedy = error.Remedy();
    Say(remedy.empty() ? error.what() : std::string(error.what()) + "; " + remedy);
    if (!json_) return;
    const QJsonObject described{{QStringLiteral("code"), QLatin1String(error.Code())},
                                {QStringLiteral("message"), QString::fromUtf8(error.what())},
                                {QStringLiteral("remedy"), QString::fromStdString(remedy)}};
    // Where this can't be written either, standard error and the exit code have said it.
    std::fputs(Rendered({{QStringLiteral("error"), described}}).toUtf8().constData(), stdout);
    std::fflush(stdout);
}

bool MayColour(int descriptor) {
    if (!Variable("NO_COLOR").empty()) return false;
    const std::string_view forced = Variable("CLICOLOR_FORCE");
    if (!forced.empty() && forced != "0") return true;
    return ::isatty(descriptor) != 0 && Variable("TERM") != "dumb";
}

}  // namespace orbkl4::cli

#include "cli/memory_listing.h"

namespace orbkl4::cli {

namespace {

std::vector<Cell> RowFor(const WordChange& change) {
    const auto number = [&](int word) { return QString::number(NumberAt(change.address, word)); };
    return {QString::number(change.address), NameAt(change.address), number(change.before),
            number(change.after)};
}

QJsonObject Described(const WordChange& change) {
    return {{"address", change.address},
            {"name", NameAt(change.address)},
            {"old", NumberAt(change.address, change.before)},
            {"new", NumberAt(change.address, change.after)}};
}

std::vector<Cell> RowFor(const WordResult& result) {
    auto row = RowFor(result.change);
    row.push_back(
        result.Verified()
            ? Cell(QStringLiteral("verified"), Colour::Good)
            : Cell(QStringLiteral("reads %1").arg(NumberAt(result.change.address, result.found)),
                   Colour::Bad));
    return row;
}

QJsonObject Described(const WordResult& result) {
    QJsonObject described = Described(result.change);
    described.insert(QStringLiteral("found"), NumberAt(result.change.address, result.found));
    described.insert(QStringLiteral("verified"), result.Verified());
    return described;
}

template <typename Rows>
Table TableOf(const Rows& rows, const std::vector<Cell>& heading) {
    Table table{.heading = rows.empty() ? std::vector<Cell>() : heading, .rows = {}};
    for (const auto& row : rows) table.rows.push_back(RowFor(row));
    return table;
}

template <typename Rows>
QJsonArray ArrayOf(const Rows& rows) {
    QJsonArray array;
    for (const auto& row : rows) array.append(Described(row));
    return array;
}

}  // namespace

Table Listing(const std::vector<WordChange>& changes) {
    return TableOf(changes, {"ADDRESS", "NAME", "OLD", "NEW"});
}

QJsonArray Described(const std::vector<WordChange>& changes) { return ArrayOf(changes); }

Table Listing(const std::vector<WordResult>& results) {
    return TableOf(results, {"ADDRESS", "NAME", "OLD", "NEW", "READ BACK"});
}

QJsonArray Described(const std::vector<WordResult>& results) { return ArrayOf(results); }

}  // namespace orbkl4::cli

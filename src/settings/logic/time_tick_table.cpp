#include "settings/logic/time_tick_table.h"

#include "base/number_text.h"

#include <algorithm>
#include <optional>

namespace orbkl4 {

namespace {

/// Removes the text up to and including the first `mark` from `rest` and returns it without the
/// mark; nothing where there is no mark.
std::optional<std::string_view> TakeUpTo(char mark, std::string_view& rest) {
    const std::size_t end = rest.find(mark);
    if (end == std::string_view::npos) return std::nullopt;
    const std::string_view taken = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return taken;
}

/// Removes the next line from `rest` and returns it without its end; nothing at the end of the
/// text. The last line needs no end.
std::optional<std::string_view> TakeLine(std::string_view& rest) {
    if (rest.empty()) return std::nullopt;
    std::string_view line = rest;
    if (const auto ended = TakeUpTo('\n', rest))
        line = *ended;
    else
        rest = {};
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

/// The first four commas separate the fields; the fifth field is the rest of the line.
std::optional<TickTableRow> ParsedRow(std::string_view line) {
    TickTableRow row;
    for (std::size_t field = 0; field + 1 < row.size(); ++field) {
        const auto text = TakeUpTo(',', line);
        if (!text) return std::nullopt;
        row.at(field) = Trimmed(*text);
    }
    row.back() = Trimmed(line);
    return row;
}

}  // namespace

TickTableVerdict ParseTimeTickTable(std::string_view contents, TickTableRows& rows) {
    const auto title = TakeLine(contents);
    if (!title) return TickTableVerdict::LoadingFailed;
    if (*title != tickTableTitle) return TickTableVerdict::NotValid;
    TickTableRows parsed;
    for (TickTableRow& row : parsed) {
        const auto line = TakeLine(contents);
        auto fields = line ? ParsedRow(*line) : std::nullopt;
        if (!fields) return TickTableVerdict::LoadingFailed;
        row = *std::move(fields);
    }
    rows = std::move(parsed);
    return TickTableVerdict::Loaded;
}

std::string_view TickTableMessage(TickTableVerdict verdict) {
    switch (verdict) {
        case TickTableVerdict::NotFound: return "Time Tick Table not found in Logs directory!";
        case TickTableVerdict::NotValid: return "Time Tick Table not valid!";
        case TickTableVerdict::LoadingFailed: return "Time Tick Table loading failed!";
        case TickTableVerdict::Loaded: break;
    }
    return {};
}

const TickTableRow* FindTickTableRow(const TickTableRows& rows, std::string_view key) {
    const auto* row = std::ranges::find(rows, key, [](const TickTableRow& r) { return r.front(); });
    return row == rows.end() ? nullptr : row;
}

}  // namespace orbkl4

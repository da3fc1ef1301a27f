#include "make_manual/table.h"

#include "make_manual/style.h"

#include <algorithm>
#include <numeric>

namespace orbkl4manual {

namespace {

constexpr double paddingX = Millimetres(1.8);
constexpr double paddingY = Millimetres(0.9);
constexpr double tableBefore = Millimetres(3);

using Row = std::vector<TextBox>;

std::vector<Row> RowsOf(const QTextTable& table, QPaintDevice& device) {
    std::vector<Row> rows;
    for (int row = 0; row < table.rows(); ++row) {
        Row& cells = rows.emplace_back();
        for (int column = 0; column < table.columns(); ++column) {
            const QTextTableCell cell = table.cellAt(row, column);
            const QTextBlock block = cell.firstCursorPosition().block();
            const Qt::Alignment alignment = block.blockFormat().alignment();
            // An empty cell is read as a part of the one on its left.
            const bool empty = cell.column() != column;
            cells.emplace_back(empty ? std::vector<Run>{} : RunsOf(block),
                               Look{style::Text(style::smallSize, row == 0), style::ink,
                                    alignment & Qt::AlignHorizontal_Mask},
                               device);
        }
    }
    return rows;
}

/// What the texts of a column need, without breaking a word, and want, without breaking a line.
struct ColumnWidth {
    double least = 0;
    double wanted = 0;
    bool yields = true;  ///< it gets less than it wants
};

std::vector<ColumnWidth> WidthsWantedBy(const std::vector<Row>& rows) {
    std::vector<ColumnWidth> columns(rows.front().size());
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            // One dot more, or rounding breaks what just fits.
            const double around = 1 + 2 * paddingX;
            columns[i].least = std::max(columns[i].least, row[i].LeastWidth() + around);
            columns[i].wanted = std::max(columns[i].wanted, row[i].NaturalWidth() + around);
        }
    }
    return columns;
}

/// The sum of `member` over the columns that yield.
double SumOfYielding(const std::vector<ColumnWidth>& columns, double ColumnWidth::*member) {
    return std::accumulate(columns.begin(), columns.end(), 0.0,
                           [member](double sum, const ColumnWidth& column) {
                               return sum + (column.yields ? column.*member : 0);
                           });
}

/// Lets the columns that want no more than an even share have it; returns what is left for the
/// others.
double ServeNarrowColumns(std::vector<ColumnWidth>& columns) {
    double rest = style::width;
    for (bool served = true; served;) {
        served = false;
        const auto open = std::ranges::count(columns, true, &ColumnWidth::yields);
        const double share = rest / static_cast<double>(std::max<std::ptrdiff_t>(open, 1));
        for (ColumnWidth& column : columns) {
            if (!column.yields || column.wanted > share) continue;
            column.yields = false;
            rest -= column.wanted;
            served = true;
        }
    }
    return rest;
}

/// The widths of the columns: what their texts want, and where that is too much, narrow columns
/// first.
std::vector<double> WidthsOf(const std::vector<Row>& rows) {
    std::vector<ColumnWidth> columns = WidthsWantedBy(rows);
    const double rest = ServeNarrowColumns(columns);
    const double least = SumOfYielding(columns, &ColumnWidth::least);
    const double wanted = SumOfYielding(columns, &ColumnWidth::wanted);
    const double share =
        wanted > least ? std::clamp((rest - least) / (wanted - least), 0.0, 1.0) : 1;
    std::vector<double> widths;
    widths.reserve(columns.size());
    for (const ColumnWidth& column : columns) {
        widths.push_back(column.yields ? column.least + (column.wanted - column.least) * share
                                       : column.wanted);
    }
    return widths;
}

Piece PieceOf(Row cells, const std::vector<double>& widths) {
    Piece piece{.kind = PieceKind::TableRow};
    double left = paddingX;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        cells[i].Width(widths[i] - 2 * paddingX);
        cells[i].at = {left, paddingY};
        left += widths[i];
        piece.height = std::max(piece.height, cells[i].Height() + 2 * paddingY);
    }
    piece.tableWidth = left - paddingX;
    piece.boxes = std::move(cells);
    return piece;
}

}  // namespace

std::vector<Piece> TablePieces(const QTextTable& table, QPaintDevice& device) {
    std::vector<Row> rows = RowsOf(table, device);
    const std::vector<double> widths = WidthsOf(rows);
    std::vector<Piece> pieces;
    pieces.reserve(rows.size());
    for (Row& row : rows) pieces.push_back(PieceOf(std::move(row), widths));
    pieces.front().kind = PieceKind::TableHead;
    pieces.front().keepWithNext = true;
    const auto head = std::make_shared<const Piece>(pieces.front());
    for (Piece& piece : pieces) piece.head = head;
    pieces.front().head = nullptr;
    pieces.front().before = tableBefore;
    // No row is alone at the top or the bottom of a page.
    if (pieces.size() > 3) {
        pieces[1].keepWithNext = true;
        pieces[pieces.size() - 2].keepWithNext = true;
    }
    return pieces;
}

}  // namespace orbkl4manual

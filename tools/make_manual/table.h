#pragma once

#include "make_manual/piece.h"

#include <QTextTable>

namespace orbkl4manual {

/// The rows of `table`, in columns as wide as their texts want, or as the page allows.
std::vector<Piece> TablePieces(const QTextTable& table, QPaintDevice& device);

}  // namespace orbkl4manual

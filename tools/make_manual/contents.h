#pragma once

#include "make_manual/piece.h"

#include <functional>

namespace orbkl4manual {

/// Whether the contents and the outline name `piece`: headings of chapters and sections.
inline bool IsListed(const Piece& piece) {
    return piece.kind == PieceKind::Heading && piece.level <= 2;
}

/// The table of contents of the headings among `body`, under a heading of its own; `pageOf` gives
/// the page number of each.
std::vector<Piece> ContentsOf(const std::vector<Piece>& body,
                              const std::function<int(const Piece&)>& pageOf, QPaintDevice& device);

}  // namespace orbkl4manual

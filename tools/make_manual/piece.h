#pragma once

#include "make_manual/text_box.h"

#include <QImage>

#include <cstdint>
#include <memory>
#include <vector>

namespace orbkl4manual {

enum class PieceKind : std::uint8_t {
    Heading,
    Text,
    Code,
    Picture,
    TableHead,
    TableRow,
    Entry,  ///< of the contents: title and page number
};

/// What a page break can't part: a paragraph, a heading, a picture, a row of a table. In dots.
struct Piece {
    PieceKind kind = PieceKind::Text;
    std::vector<TextBox> boxes = {};  ///< a picture has one, its caption
    double before = 0;                ///< distance from the piece above, none at the top of a page
    double height = 0;
    bool keepWithNext = false;  ///< no page break after it

    // Headings
    int level = 0;        ///< 1 for a chapter
    QString title = {};   ///< its text
    QString anchor = {};  ///< "FILE#its-text", where links lead to

    // Pictures: not scaled to dots, so that they keep their own pixels.
    QImage picture = {};
    QSizeF pictureSize = {};

    // Rows of tables
    std::shared_ptr<const Piece> head = nullptr;  ///< repeated on top of each page
    double tableWidth = 0;
};

}  // namespace orbkl4manual

#include "make_manual/contents.h"

#include "make_manual/style.h"

namespace orbkl4manual {

namespace {

constexpr double numberWidth = Millimetres(12);
constexpr double sectionIndent = Millimetres(6);
constexpr double chapterBefore = Millimetres(1.8);

Piece HeadingPiece(QPaintDevice& device) {
    const QString title = QStringLiteral("Contents");
    TextBox box({{title}}, {style::Text(style::headingSizes[0], true), style::accent}, device);
    box.Width(style::width);
    Piece piece{.kind = PieceKind::Heading,
                .height = box.Height(),
                .keepWithNext = true,
                .level = 1,
                .title = title};
    piece.boxes.push_back(std::move(box));
    return piece;
}

Piece EntryPiece(const Piece& heading, int page, QPaintDevice& device) {
    const bool chapter = heading.level == 1;
    const QFont font = style::Text(style::bodySize, chapter);
    const double indent = chapter ? 0 : sectionIndent;
    TextBox title({{.text = heading.title, .target = heading.anchor}}, {font, style::ink}, device);
    title.Width(style::width - numberWidth - indent);
    title.at.setX(indent);
    TextBox number({{QString::number(page)}}, {font, style::ink, Qt::AlignRight}, device);
    number.Width(numberWidth);
    number.at.setX(style::width - numberWidth);
    Piece piece{.kind = PieceKind::Entry,
                .before = chapter ? chapterBefore : 0,
                .height = title.Height(),
                .keepWithNext = chapter};
    piece.boxes = {std::move(title), std::move(number)};
    return piece;
}

}  // namespace

std::vector<Piece> ContentsOf(const std::vector<Piece>& body,
                              const std::function<int(const Piece&)>& pageOf,
                              QPaintDevice& device) {
    std::vector<Piece> contents{HeadingPiece(device)};
    for (const Piece& piece : body) {
        if (IsListed(piece)) contents.push_back(EntryPiece(piece, pageOf(piece), device));
    }
    contents.back().keepWithNext = false;
    return contents;
}

}  // namespace orbkl4manual

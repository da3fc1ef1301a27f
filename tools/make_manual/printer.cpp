#include "make_manual/printer.h"

#include "make_manual/contents.h"
#include "make_manual/style.h"

#include <QPageSize>

#include <stdexcept>

namespace orbkl4manual {

namespace {

constexpr double pointsPerDot = 72.0 / resolution;
constexpr double hairline = Millimetres(0.2);

QRectF InPoints(const QRectF& dots) {
    return {dots.topLeft() * pointsPerDot, dots.size() * pointsPerDot};
}

/// Where the boxes of a picture, its caption, begin.
double BoxesTop(const Piece& piece, double scale) { return piece.pictureSize.height() * scale; }

bool BeginsChapter(const Piece& piece) {
    return piece.kind == PieceKind::Heading && piece.level == 1;
}

}  // namespace

Printer::Printer(QPdfWriter& writer) : writer_(writer) {
    writer_.setResolution(resolution);
    writer_.setPageSize(QPageSize(QPageSize::A4));
    writer_.setPageMargins({});
    painter_.begin(&writer_);
    painter_.setRenderHint(QPainter::LosslessImageRendering);
}

void Printer::Print(const std::vector<Place>& places, bool heads) {
    QString chapter;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Piece& piece = *places[i].piece;
        if (BeginsChapter(piece)) chapter = piece.title;
        if (i == 0 || places[i].page != places[i - 1].page) {
            TurnTo(places[i].page);
            if (heads) DrawHead(chapter);
        }
        Draw(places[i]);
        Note(places[i]);
    }
}

void Printer::TurnTo(int page) {
    for (; page_ < page; ++page_) writer_.newPage();
}

void Printer::DrawHead(const QString& chapter) {
    painter_.setFont(style::Text(style::smallSize));
    painter_.setPen(style::faintInk);
    const QRectF line(style::left, 0, style::width, style::headBaseline);
    painter_.drawText(line, Qt::AlignBottom | Qt::AlignLeft, chapter);
    painter_.drawText(line, Qt::AlignBottom | Qt::AlignRight, NumberText(page_));
    painter_.fillRect(QRectF(style::left, style::headRule, style::width, hairline), style::rule);
}

void Printer::Draw(const Place& place) {
    const Piece& piece = *place.piece;
    painter_.save();
    painter_.translate(style::left, place.top);
    DrawGround(place);
    painter_.translate(0, BoxesTop(piece, place.scale));
    for (const TextBox& box : piece.boxes) {
        painter_.save();
        painter_.translate(box.at);
        box.Draw(painter_);
        painter_.restore();
    }
    painter_.restore();
}

/// Paints the background of a piece.
void Printer::DrawGround(const Place& place) {
    const Piece& piece = *place.piece;
    const QRectF row(0, 0, piece.tableWidth, piece.height);
    switch (piece.kind) {
        case PieceKind::Code:
            painter_.fillRect(QRectF(0, 0, style::width, piece.height), style::shade);
            break;
        case PieceKind::TableHead: painter_.fillRect(row, style::shade); [[fallthrough]];
        case PieceKind::TableRow:
            painter_.fillRect(QRectF(0, piece.height - hairline, piece.tableWidth, hairline),
                              style::rule);
            break;
        case PieceKind::Picture: DrawPicture(piece, place.scale); break;
        case PieceKind::Entry: DrawLeader(piece); break;
        case PieceKind::Heading:
        case PieceKind::Text: break;
    }
}

void Printer::DrawPicture(const Piece& piece, double scale) {
    const QSizeF size = piece.pictureSize * scale;
    const QRectF area(QPointF((style::width - size.width()) / 2, 0), size);
    painter_.drawImage(area, piece.picture);
    painter_.setPen(QPen(style::rule, hairline));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(area);
}

/// Dots from a title of the contents to its page number.
void Printer::DrawLeader(const Piece& piece) {
    constexpr double gap = Millimetres(2);
    constexpr double step = Millimetres(1.6);
    constexpr double dot = Millimetres(0.25);
    const LinkArea title = piece.boxes.front().Links().back();
    const double from = piece.boxes.front().at.x() + title.area.right() + gap;
    const double baseline = piece.height * 0.78;
    // From the right, so that the dots of all entries line up.
    const double right = style::width - Millimetres(9);
    const auto dots = static_cast<int>((right - from) / step);
    for (int i = 0; i < dots; ++i) {
        painter_.fillRect(QRectF(right - i * step, baseline, dot, dot), style::faintInk);
    }
}

void Printer::Note(const Place& place) {
    const Piece& piece = *place.piece;
    const PdfSpot spot{place.page, place.top * pointsPerDot};
    if (!piece.anchor.isEmpty()) {
        anchors_.insert(piece.anchor, spot);
        const QString file = piece.anchor.section(QLatin1Char('#'), 0, 0);
        if (!anchors_.contains(file)) anchors_.insert(file, spot);
    }
    if (IsListed(piece)) outline_.push_back({piece.title, piece.level, spot});
    const QPointF corner(style::left, place.top + BoxesTop(piece, place.scale));
    for (const TextBox& box : piece.boxes) {
        for (const LinkArea& link : box.Links()) {
            links_.push_back(
                {place.page, InPoints(link.area.translated(corner + box.at)), link.target});
        }
    }
}

std::vector<PdfLink> Printer::Links() const {
    std::vector<PdfLink> links;
    for (const OpenLink& link : links_) {
        const auto target = anchors_.find(link.target);
        if (target == anchors_.end()) {
            throw std::runtime_error("the link to " + link.target.toStdString() + " leads nowhere");
        }
        links.push_back({link.page, link.area, *target});
    }
    return links;
}

}  // namespace orbkl4manual

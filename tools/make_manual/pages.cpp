#include "make_manual/pages.h"

#include "make_manual/style.h"

#include <stdexcept>

namespace orbkl4manual {

namespace {

constexpr double chapterRoom = Millimetres(50);  // below a chapter's heading at least
constexpr double leastScale = 0.7;               // to which a picture may shrink to fit

/// The height of `piece` where pictures are scaled by `scale`.
double HeightOf(const Piece& piece, double scale) {
    return piece.height - piece.pictureSize.height() * (1 - scale);
}

}  // namespace

bool Paginator::AtTop() const { return places_.empty() || places_.back().page != page_; }

double Paginator::Room() const { return style::bottom - y_; }

/// What the pieces take that `first` holds on to, up to the first that can do without the next.
double Paginator::HeightFrom(const Piece* first, const Piece* end) const {
    double height = 0;
    for (const Piece* piece = first; piece != end; ++piece) {
        height += (piece == first && AtTop() ? 0 : piece->before) + piece->height;
        if (!piece->keepWithNext) break;
    }
    return height;
}

/// Turns to a page on which `first` and what it holds on to have room.
void Paginator::MakeRoomFor(const Piece* first, const Piece* end) {
    const bool row = first->head != nullptr;
    const bool chapter = first->kind == PieceKind::Heading && first->level == 1;
    if (!row) PutWaiting();  // they parted no table
    while (chapter && !waiting_.empty()) {
        NewPage();
        PutWaiting();
    }
    double needed = HeightFrom(first, end);
    if (chapter) needed = std::max(needed, chapterRoom);
    if (needed <= Room() || AtTop()) return;
    NewPage();
    if (row) {
        Put(*first->head);
        return;
    }
    PutWaiting();
    if (HeightFrom(first, end) > Room() && !AtTop()) NewPage();
}

void Paginator::NewPage() {
    ++page_;
    y_ = style::top;
}

/// Places the pictures that wait, as far as they have room.
void Paginator::PutWaiting() {
    while (!waiting_.empty() && (AtTop() || waiting_.front()->height <= Room())) {
        Put(*waiting_.front());
        waiting_.pop_front();
    }
}

void Paginator::Put(const Piece& piece, double scale) {
    if (!AtTop()) y_ += piece.before;
    const double height = HeightOf(piece, scale);
    if (height > Room() + 1) throw std::runtime_error("a piece is higher than a page");
    places_.push_back({&piece, page_, y_, scale});
    y_ += height;
}

/// False where even the shrunk picture has no room here.
bool Paginator::PutPicture(const Piece& piece) {
    const double room = Room() - (AtTop() ? 0 : piece.before);
    const double rest = piece.height - piece.pictureSize.height();
    const double scale = std::min(1.0, (room - rest) / piece.pictureSize.height());
    if (scale < leastScale) return false;
    Put(piece, scale);
    return true;
}

void Paginator::Add(const std::vector<Piece>& pieces) {
    const Piece* const end = pieces.data() + pieces.size();
    bool held = false;  // by the piece above, so that there is room
    for (const Piece* piece = pieces.data(); piece != end; ++piece) {
        if (!held && piece->kind == PieceKind::Picture) {
            if (!waiting_.empty() || !PutPicture(*piece)) waiting_.push_back(piece);
            continue;
        }
        if (!held) MakeRoomFor(piece, end);
        Put(*piece);
        held = piece->keepWithNext;
    }
    while (!waiting_.empty()) {
        NewPage();
        PutWaiting();
    }
}

}  // namespace orbkl4manual

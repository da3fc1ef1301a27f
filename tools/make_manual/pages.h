#pragma once

#include "make_manual/piece.h"

#include <deque>
#include <vector>

namespace orbkl4manual {

/// Where a piece is printed; pages count from 0, `top` in dots from the page's upper edge.
struct Place {
    const Piece* piece;
    int page;
    double top;
    double scale = 1;  ///< of a picture
};

/// Distributes pieces over pages: headings stay with what follows, tables repeat their head, and a
/// picture that doesn't fit moves to the top of the next page while text fills this one.
class Paginator {
  public:
    /// Begins on `page`, `top` dots from its upper edge.
    Paginator(int page, double top) : page_(page), y_(top) {}

    /// Places all of `pieces`, which must live as long as the places do; throws std::runtime_error
    /// where one is higher than a page.
    void Add(const std::vector<Piece>& pieces);

    const std::vector<Place>& Places() const { return places_; }

    /// The number of pages up to the last one begun.
    int PageCount() const { return page_ + 1; }

  private:
    bool AtTop() const;
    double Room() const;
    double HeightFrom(const Piece* first, const Piece* end) const;
    void MakeRoomFor(const Piece* first, const Piece* end);
    void Put(const Piece& piece, double scale = 1);
    bool PutPicture(const Piece& piece);
    void NewPage();
    void PutWaiting();

    int page_;
    double y_;
    std::vector<Place> places_;
    std::deque<const Piece*> waiting_;  // pictures
};

}  // namespace orbkl4manual

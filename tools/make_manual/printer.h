#pragma once

#include "make_manual/pages.h"
#include "make_manual/pdf_outline.h"

#include <QPainter>
#include <QPdfWriter>

#include <vector>

namespace orbkl4manual {

/// A page's number, counted from 1, as text.
inline QString NumberText(int page) { return QString::number(page + 1); }

/// Prints places, in the order of their pages, and collects links and bookmarks.
class Printer {
  public:
    /// Prints with `writer`, whose resolution and page it sets.
    explicit Printer(QPdfWriter& writer);

    /// Prints `places`; their pages get a running head if `heads` is true.
    void Print(const std::vector<Place>& places, bool heads);

    /// Ends the document.
    void End() { painter_.end(); }

    /// The links; throws std::runtime_error where one leads nowhere.
    std::vector<PdfLink> Links() const;

    /// The headings that the contents name.
    const std::vector<PdfOutlineItem>& Outline() const { return outline_; }

  private:
    struct OpenLink {
        int page;
        QRectF area;
        QString target;
    };

    void TurnTo(int page);
    void DrawHead(const QString& chapter);
    void Draw(const Place& place);
    void DrawGround(const Place& place);
    void DrawPicture(const Piece& piece, double scale);
    void DrawLeader(const Piece& piece);
    void Note(const Place& place);

    QPdfWriter& writer_;
    QPainter painter_;
    int page_ = 0;
    std::vector<OpenLink> links_;
    QHash<QString, PdfSpot> anchors_;
    std::vector<PdfOutlineItem> outline_;
};

}  // namespace orbkl4manual

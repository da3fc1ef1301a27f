#pragma once

#include <QRectF>
#include <QString>

#include <vector>

namespace orbkl4manual {

/// A height on a page: pages count from 0, points from the page's upper edge.
struct PdfSpot {
    int page = 0;
    double top = 0;
};

/// A bookmark; `level` is 1 at the top and grows by at most 1 from one bookmark to the next.
struct PdfOutlineItem {
    QString title;
    int level = 1;
    PdfSpot spot;
};

/// A link: its area in points from the page's upper left corner, and where it leads.
struct PdfLink {
    int page = 0;
    QRectF area;
    PdfSpot target;
};

/// The bookmarks and links of a document.
struct PdfNavigation {
    std::vector<PdfOutlineItem> outline;
    std::vector<PdfLink> links;
};

/// `pdf`, as QPdfWriter makes it, with `navigation` appended as an incremental update; throws
/// std::runtime_error where it isn't built as expected.
QByteArray WithNavigation(const QByteArray& pdf, const PdfNavigation& navigation);

}  // namespace orbkl4manual

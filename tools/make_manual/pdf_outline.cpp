#include "make_manual/pdf_outline.h"

#include "make_manual/pdf_update.h"

#include <QRegularExpression>

#include <algorithm>
#include <map>
#include <stdexcept>

namespace orbkl4manual {

namespace {

/// The pages of a document, as destinations need them.
class PageTable {
  public:
    explicit PageTable(const PdfUpdate& update) : numbers_(update.Pages()) {
        static const QRegularExpression box(
            QStringLiteral(R"(/MediaBox\s*\[\s*[\d.]+\s+[\d.]+\s+[\d.]+\s+([\d.]+))"));
        for (const int number : numbers_) {
            const auto match = box.match(QString::fromLatin1(update.Body(number)));
            if (!match.hasMatch()) throw std::runtime_error("a page of the PDF has no size");
            heights_.push_back(match.captured(1).toDouble());
        }
    }

    int NumberOf(int page) const { return numbers_.at(static_cast<std::size_t>(page)); }

    /// `top`, in points from the page's upper edge, as a height above its lower edge.
    QByteArray Height(int page, double top) const {
        return QByteArray::number(heights_.at(static_cast<std::size_t>(page)) - top, 'f', 2);
    }

    QByteArray Destination(const PdfSpot& spot) const {
        return "/Dest [" + QByteArray::number(NumberOf(spot.page)) + " 0 R /XYZ null " +
               Height(spot.page, spot.top) + " null]";
    }

  private:
    std::vector<int> numbers_;
    std::vector<double> heights_;
};

QByteArray Reference(const char* key, int number) {
    return QByteArray("/") + key + ' ' + QByteArray::number(number) + " 0 R\n";
}

/// A text in hexadecimal UTF-16, which needs no escapes.
QByteArray TextString(const QString& text) {
    QByteArray digits = "<FEFF";
    for (const QChar letter : text) {
        digits += QByteArray::number(letter.unicode(), 16).rightJustified(4, '0');
    }
    return digits + '>';
}

/// The bookmarks as objects: the root, and then the items, under numbers that follow one another.
class OutlineTree {
  public:
    OutlineTree(const std::vector<PdfOutlineItem>& items, PdfUpdate& update)
        : items_(items), root_(update.NewNumber()) {
        for (std::size_t i = 0; i < items_.size(); ++i) {
            parents_.push_back(ParentOf(i));
            children_[parents_.back()].push_back(update.NewNumber());
        }
    }

    int Root() const { return root_; }

    int NumberOf(std::size_t item) const { return root_ + 1 + static_cast<int>(item); }

    QByteArray RootBody() const {
        return "<<\n/Type /Outlines\n" + Ends(root_) + "/Count " + Count(root_) + "\n>>";
    }

    QByteArray Body(std::size_t item, const PageTable& pages) const {
        const int number = NumberOf(item);
        const std::vector<int>& siblings = children_.at(parents_[item]);
        QByteArray body = "<<\n/Title " + TextString(items_[item].title) + '\n' +
                          pages.Destination(items_[item].spot) + '\n' +
                          Reference("Parent", parents_[item]) + Ends(number);
        const auto me = std::ranges::find(siblings, number);
        if (me != siblings.begin()) body += Reference("Prev", *(me - 1));
        if (me + 1 != siblings.end()) body += Reference("Next", *(me + 1));
        // A count below 0 is that of a closed bookmark.
        if (children_.contains(number)) body += "/Count -" + Count(number) + '\n';
        return body + ">>";
    }

  private:
    /// The number of the parent of item `i`.
    int ParentOf(std::size_t i) const {
        for (std::size_t j = i; j-- > 0;) {
            if (items_[j].level < items_[i].level) return NumberOf(j);
        }
        return root_;
    }

    QByteArray Ends(int parent) const {
        const auto found = children_.find(parent);
        if (found == children_.end()) return {};
        return Reference("First", found->second.front()) + Reference("Last", found->second.back());
    }

    QByteArray Count(int parent) const {
        const auto found = children_.find(parent);
        return QByteArray::number(found == children_.end() ? 0 : found->second.size());
    }

    const std::vector<PdfOutlineItem>& items_;
    int root_;
    std::vector<int> parents_;                  // object numbers
    std::map<int, std::vector<int>> children_;  // likewise
};

void AddOutline(PdfUpdate& update, const std::vector<PdfOutlineItem>& items,
                const PageTable& pages) {
    const OutlineTree tree(items, update);
    for (std::size_t i = 0; i < items.size(); ++i) {
        update.Put(tree.NumberOf(i), tree.Body(i, pages));
    }
    update.Put(tree.Root(), tree.RootBody());
    update.AddToDictionary(update.Catalog(),
                           Reference("Outlines", tree.Root()) + "/PageMode /UseOutlines");
}

void AddLinks(PdfUpdate& update, const std::vector<PdfLink>& links, const PageTable& pages) {
    std::map<int, QByteArray> annotations;  // by page
    for (const auto& [page, area, target] : links) {
        annotations[page] +=
            "<< /Type /Annot /Subtype /Link /Border [0 0 0] /Rect [" +
            QByteArray::number(area.left(), 'f', 2) + ' ' + pages.Height(page, area.bottom()) +
            ' ' + QByteArray::number(area.right(), 'f', 2) + ' ' + pages.Height(page, area.top()) +
            "] " + pages.Destination(target) + " >>\n";
    }
    for (const auto& [page, text] : annotations) {
        const int number = pages.NumberOf(page);
        const int array = ReferenceIn(update.Body(number), "Annots");
        if (array != 0) {
            update.Put(array, "[\n" + text + ']');
        } else {
            update.AddToDictionary(number, "/Annots [\n" + text + ']');
        }
    }
}

}  // namespace

QByteArray WithNavigation(const QByteArray& pdf, const PdfNavigation& navigation) {
    PdfUpdate update(pdf);
    const PageTable pages(update);
    AddOutline(update, navigation.outline, pages);
    AddLinks(update, navigation.links, pages);
    return update.Result();
}

}  // namespace orbkl4manual

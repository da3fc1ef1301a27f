#pragma once

#include <QByteArray>

#include <map>
#include <vector>

namespace orbkl4manual {

/// An incremental update of a PDF: new objects and new versions of old ones, appended with a
/// cross-reference table of their own. Reads documents with one plain cross-reference table, as
/// QPdfWriter makes them; throws std::runtime_error for anything else.
class PdfUpdate {
  public:
    explicit PdfUpdate(QByteArray pdf);

    /// The text between "obj" and "endobj" of object `number`.
    QByteArray Body(int number) const;

    /// The number of the catalog object.
    int Catalog() const { return catalog_; }

    /// The object numbers of the pages, in order.
    std::vector<int> Pages() const;

    /// Reserves a number for a new object.
    int NewNumber() { return size_++; }

    /// Gives object `number`, new or old, the content `body`.
    void Put(int number, const QByteArray& body) { objects_[number] = body; }

    /// Adds `entries` to the dictionary that object `number` is.
    void AddToDictionary(int number, const QByteArray& entries);

    /// The document with the update.
    QByteArray Result() const;

  private:
    QByteArray pdf_;
    QByteArray trailer_;  // its dictionary
    int tableStart_ = 0;
    std::vector<int> offsets_;
    int size_ = 0;
    int catalog_ = 0;
    std::map<int, QByteArray> objects_;
};

/// The number of the object that `dictionary` refers to as `key`, 0 where it doesn't.
int ReferenceIn(const QByteArray& dictionary, const char* key);

}  // namespace orbkl4manual

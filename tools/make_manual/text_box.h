#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QString>
#include <QTextBlock>
#include <QTextDocument>

#include <memory>
#include <vector>

namespace orbkl4manual {

/// Characters of one kind; `target` is where a link leads, empty for none.
struct Run {
    QString text;
    bool bold = false;
    bool italic = false;
    bool mono = false;
    QString target = {};
};

/// The runs of a paragraph, heading or table cell.
std::vector<Run> RunsOf(const QTextBlock& block);

/// How a text is set.
struct Look {
    QFont font;
    QColor colour;
    Qt::Alignment alignment = Qt::AlignLeft;
};

/// A link on paper: its area in the text's own coordinates, and its target.
struct LinkArea {
    QRectF area;
    QString target;
};

/// A text laid out for `device`, in dots.
class TextBox {
  public:
    TextBox(const std::vector<Run>& runs, const Look& look, QPaintDevice& device);

    /// Breaks the lines at `width`.
    void Width(double width) { text_->setTextWidth(width); }

    /// The width without any line break.
    double NaturalWidth() const;

    /// The width of the longest word.
    double LeastWidth() const;

    double Height() const { return text_->size().height(); }

    void Draw(QPainter& painter) const { text_->drawContents(&painter); }

    /// The links, one for each line that they cover.
    std::vector<LinkArea> Links() const;

    /// The position within the piece.
    QPointF at;

  private:
    struct Link {
        int start;
        int length;
        QString target;
    };

    void AddAreas(const Link& link, std::vector<LinkArea>& areas) const;

    std::shared_ptr<QTextDocument> text_;  // shared, so that boxes can be copied
    std::vector<Link> links_;
};

}  // namespace orbkl4manual

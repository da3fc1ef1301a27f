#include "make_manual/text_box.h"

#include "make_manual/style.h"

#include <QAbstractTextDocumentLayout>
#include <QRegularExpression>
#include <QTextCursor>
#include <QTextLayout>

#include <algorithm>

namespace orbkl4manual {

namespace {

constexpr double monoShare = 0.94;  // of the font round it; its letters look larger

QTextCharFormat FormatOf(const Run& run, const Look& look) {
    QFont font = look.font;
    if (run.mono) {
        font = style::Mono(look.font.pointSizeF() * monoShare);
        font.setBold(look.font.bold());
    }
    if (run.bold) font.setBold(true);
    font.setItalic(run.italic);
    QTextCharFormat format;
    format.setFont(font);
    format.setForeground(run.target.isEmpty() ? look.colour : style::accent);
    return format;
}

}  // namespace

std::vector<Run> RunsOf(const QTextBlock& block) {
    std::vector<Run> runs;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const QTextCharFormat format = fragment.charFormat();
        runs.push_back({.text = fragment.text(),
                        .bold = format.fontWeight() >= QFont::Bold,
                        .italic = format.fontItalic(),
                        .mono = format.fontFixedPitch(),
                        .target = format.anchorHref()});
    }
    return runs;
}

TextBox::TextBox(const std::vector<Run>& runs, const Look& look, QPaintDevice& device)
    : text_(std::make_shared<QTextDocument>()) {
    text_->documentLayout()->setPaintDevice(&device);
    text_->setDocumentMargin(0);
    text_->setDefaultFont(look.font);
    QTextCursor cursor(text_.get());
    QTextBlockFormat lines;
    lines.setLineHeight(style::lineHeight, QTextBlockFormat::ProportionalHeight);
    lines.setAlignment(look.alignment);
    cursor.setBlockFormat(lines);
    for (const Run& run : runs) {
        if (!run.target.isEmpty()) {
            links_.push_back({cursor.position(), static_cast<int>(run.text.size()), run.target});
        }
        cursor.insertText(run.text, FormatOf(run, look));
    }
}

double TextBox::NaturalWidth() const {
    text_->setTextWidth(-1);
    return text_->idealWidth();
}

double TextBox::LeastWidth() const {
    double least = 0;
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    for (const QString& word : text_->toPlainText().split(blanks, Qt::SkipEmptyParts)) {
        const auto found = text_->find(word, 0, QTextDocument::FindCaseSensitively);
        QFontMetricsF metrics(found.charFormat().font(), text_->documentLayout()->paintDevice());
        least = std::max(least, metrics.horizontalAdvance(word));
    }
    return least;
}

std::vector<LinkArea> TextBox::Links() const {
    std::vector<LinkArea> areas;
    for (const Link& link : links_) AddAreas(link, areas);
    return areas;
}

void TextBox::AddAreas(const Link& link, std::vector<LinkArea>& areas) const {
    const QTextBlock block = text_->findBlock(link.start);
    const QTextLayout& layout = *block.layout();
    const int first = link.start - block.position();
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        const int from = std::max(first, line.textStart());
        const int to = std::min(first + link.length, line.textStart() + line.textLength());
        if (from >= to) continue;
        const double left = line.cursorToX(from);
        areas.push_back({QRectF(layout.position().x() + left, layout.position().y() + line.y(),
                                line.cursorToX(to) - left, line.height()),
                         link.target});
    }
}

}  // namespace orbkl4manual

#include "platform/controls/number_glyphs.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>

#include <algorithm>

namespace orbkl4 {

namespace {

constexpr std::size_t longest = 32;

}  // namespace

NumberGlyphs::NumberGlyphs(const QFont& font) : font_(QRawFont::fromFont(font)) {
    const QFontMetricsF metrics(font);
    for (const char letter : std::string_view("+-.0123456789E")) {
        const QList<quint32> indexes = font_.glyphIndexesForString(QChar::fromLatin1(letter));
        Glyph& glyph = glyphs_[static_cast<std::size_t>(letter - first)];
        glyph = {indexes.value(0), metrics.horizontalAdvance(QChar::fromLatin1(letter))};
    }
}

bool NumberGlyphs::CanWrite(std::string_view text) const {
    const auto known = [this](char letter) {
        return letter >= first && letter <= last && Of(letter).index != 0;
    };
    return text.size() <= longest && std::ranges::all_of(text, known);
}

double NumberGlyphs::Width(std::string_view text) const {
    double width = 0;
    for (const char letter : text) width += Of(letter).width;
    return width;
}

void NumberGlyphs::Write(QPainter& painter, double x, double baseline,
                         std::string_view text) const {
    std::array<quint32, longest> indexes{};
    std::array<QPointF, longest> places;
    const auto count = static_cast<int>(std::min(text.size(), longest));
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const Glyph& glyph = Of(text[i]);
        indexes[i] = glyph.index;
        places[i] = {x, 0};
        x += glyph.width;
    }
    QGlyphRun run;
    run.setRawFont(font_);
    run.setRawData(indexes.data(), places.data(), count);
    painter.drawGlyphRun({0, baseline}, run);
}

}  // namespace orbkl4

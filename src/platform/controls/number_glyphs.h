#pragma once

#include <QFont>
#include <QRawFont>

#include <array>
#include <cstdint>
#include <string_view>

class QPainter;

namespace orbkl4 {

/// The letters of numbers in one font, looked up once: writing a number with them spares the text
/// layout, which takes most of the time of painting a field.
class NumberGlyphs {
  public:
    /// Looks up the letters of `font`.
    explicit NumberGlyphs(const QFont& font);

    /// Whether `text` consists of letters of numbers only.
    bool CanWrite(std::string_view text) const;

    /// How wide `text`, which can be written, comes out, in pixels.
    double Width(std::string_view text) const;

    /// Writes `text`, which can be written and is short, from `x` on with the painter's pen.
    void Write(QPainter& painter, double x, double baseline, std::string_view text) const;

  private:
    struct Glyph {
        std::uint32_t index = 0;  ///< in the font; 0 is none
        double width = 0;
    };

    static constexpr char first = '+';
    static constexpr char last = 'E';

    const Glyph& Of(char letter) const { return glyphs_[static_cast<std::size_t>(letter - first)]; }

    QRawFont font_;
    std::array<Glyph, last - first + 1> glyphs_;  ///< by letter, from '+' to 'E'
};

}  // namespace orbkl4

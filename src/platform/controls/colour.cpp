#include "platform/controls/colour.h"

#include <QGuiApplication>
#include <QPalette>

namespace orbkl4 {

QColor Colour(std::uint32_t bgr) {
    if (bgr == windowBackground) return QGuiApplication::palette().color(QPalette::Base);
    const auto channel = [bgr](unsigned shift) { return static_cast<int>((bgr >> shift) & 0xFFU); };
    return {channel(0), channel(8), channel(16)};
}

}  // namespace orbkl4

#include "platform/controls/colour.h"

#include "platform/windows/colours.h"

#include <QPalette>
#include <QWidget>

namespace orbkl4 {

namespace {

QColor Shown(std::uint32_t bgr) {
    if (bgr == unusedBackground) return colours::unused();
    if (bgr == modifiedBackground) return colours::modified();
    const auto channel = [bgr](unsigned shift) { return static_cast<int>((bgr >> shift) & 0xFFU); };
    return {channel(0), channel(8), channel(16)};
}

}  // namespace

void SetBackground(QWidget& field, std::uint32_t bgr) {
    QPalette palette;
    if (bgr != windowBackground) palette.setColor(QPalette::Base, Shown(bgr));
    field.setPalette(palette);
}

}  // namespace orbkl4

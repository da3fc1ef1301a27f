#include "platform/controls/colour.h"

#include <QPalette>
#include <QWidget>

namespace orbkl4 {

void SetBackground(QWidget& field, std::uint32_t bgr) {
    QPalette palette;
    const auto channel = [bgr](unsigned shift) { return static_cast<int>((bgr >> shift) & 0xFFU); };
    if (bgr != windowBackground) {
        palette.setColor(QPalette::Base, QColor(channel(0), channel(8), channel(16)));
    }
    field.setPalette(palette);
}

}  // namespace orbkl4

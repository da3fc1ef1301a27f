#include "platform/controls/house_style.h"

#include "platform/controls/accessible_controls.h"
#include "platform/controls/sign_icons.h"
#include "platform/windows/colours.h"
#include "platform/windows/painted_icon.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <QPolygonF>
#include <QProxyStyle>
#include <QStyleOption>
#include <QStyleOptionGroupBox>

#include <algorithm>

namespace orbkl4 {

namespace {

/// Whether all digits are equally wide, so that numbers that change don't jitter.
bool HasTabularDigits(const QFont& font) {
    const QFontMetricsF metrics(font);
    constexpr double slack = 0.01;
    const double width = metrics.horizontalAdvance('0');
    const QString others = QStringLiteral("123456789");
    return std::all_of(others.begin(), others.end(), [&](QChar digit) {
        return std::abs(metrics.horizontalAdvance(digit) - width) < slack;
    });
}

/// Two arrowheads that point to the right, for the rest of a menu bar that is too narrow.
void PaintMoreArrows(QPainter& painter, const QRectF& box) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colours::ink, box.height() / 10));
    const double half = box.height() / 5;
    for (const double left : {-half, half / 2}) {
        const QPointF tip = box.center() + QPointF(left + half, 0);
        painter.drawPolyline(
            QPolygonF{{tip - QPointF(half, half), tip, tip - QPointF(half, -half)}});
    }
    painter.restore();
}

/// Fusion, with frames as light cards with the title inside.
class HouseStyle final : public QProxyStyle {
  public:
    HouseStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element != PE_FrameGroupBox) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return;
        }
        constexpr double corner = 4;
        const bool enabled = option->state.testFlag(State_Enabled);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(cardLine, 1));
        painter->setBrush(enabled ? card : colours::disabledBase);
        const QRectF box = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
        painter->drawRoundedRect(box, corner, corner);
        painter->restore();
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override {
        painter->save();
        if (control == CC_GroupBox) {
            painter->setFont(TitleFont(painter->font()));
        }
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        painter->restore();
    }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override {
        constexpr int fromLeft = 10;
        constexpr int fromTop = 6;
        QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
        if (control != CC_GroupBox) return rect;
        if (part == SC_GroupBoxLabel) {
            rect.translate(fromLeft, fromTop);
            const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
            if (box != nullptr && widget != nullptr) {
                const QFontMetrics title(TitleFont(widget->font()));
                rect.setWidth(title.horizontalAdvance(box->text) + 2);
            }
        }
        if (part == SC_GroupBoxContents && rect.top() > fromTop) rect.adjust(0, fromTop, 0, 0);
        return rect;
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        const int usual = QProxyStyle::pixelMetric(metric, option, widget);
        switch (metric) {
            case PM_IndicatorWidth:
            case PM_IndicatorHeight:
            case PM_ExclusiveIndicatorWidth:
            case PM_ExclusiveIndicatorHeight:
                return widget == nullptr ? usual : std::max(usual, IndicatorSide(*widget));
            default: return usual;
        }
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        // Buttons of boxes are without icons, like all others.
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }

    QIcon standardIcon(StandardPixmap standard, const QStyleOption* option,
                       const QWidget* widget) const override {
        // Every menu bar asks for this icon. Fusion reads it from a file, for which it first loads
        // a library for each picture format.
        if (standard == SP_ToolBarHorizontalExtensionButton) return PaintedIcon(PaintMoreArrows);
        // Those of Fusion are bitmaps, which are blurred on a display of high resolution.
        const QIcon sign = SignIcon(standard);
        return sign.isNull() ? QProxyStyle::standardIcon(standard, option, widget) : sign;
    }

  private:
    /// How large a check or radio mark is beside a text in the font of `widget`, in pixels.
    static int IndicatorSide(const QWidget& widget) {
        constexpr double ofLine = 0.875;
        return static_cast<int>(widget.fontMetrics().height() * ofLine);
    }

    static QFont TitleFont(QFont font) {
        font.setWeight(QFont::DemiBold);
        return font;
    }

    static constexpr QColor card{0xFB, 0xFC, 0xFD};
    static constexpr QColor cardLine{0xD3, 0xDA, 0xE2};
};

QFont HouseFont(QFont font) {
    constexpr int pointSize = 10;
    if (font.pointSize() < pointSize) font.setPointSize(pointSize);
    if (HasTabularDigits(font)) return font;
    const QStringList installed = QFontDatabase::families();
    for (const char* family : {"Noto Sans", "DejaVu Sans", "Segoe UI", "Liberation Sans"}) {
        if (!installed.contains(QLatin1String(family))) continue;
        font.setFamily(QLatin1String(family));
        if (HasTabularDigits(font)) break;
    }
    return font;
}

QPalette HousePalette() {
    QPalette palette(colours::window);
    palette.setColor(QPalette::Window, colours::window);
    palette.setColor(QPalette::WindowText, colours::ink);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xF6, 0xF8, 0xFA));
    palette.setColor(QPalette::Text, colours::ink);
    palette.setColor(QPalette::PlaceholderText, colours::disabledInk);
    palette.setColor(QPalette::Button, QColor(0xF4, 0xF6, 0xF9));
    palette.setColor(QPalette::ButtonText, colours::ink);
    palette.setColor(QPalette::Highlight, colours::accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, Qt::white);
    palette.setColor(QPalette::ToolTipText, colours::ink);
    palette.setColor(QPalette::Link, colours::accent);
    palette.setColor(QPalette::Mid, colours::line);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, colours::disabledInk);
    }
    palette.setColor(QPalette::Disabled, QPalette::Base, colours::disabledBase);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, colours::line);
    return palette;
}

}  // namespace

void ApplyHouseStyle() {
    InstallAccessibleControls();
    QApplication::setStyle(new HouseStyle);
    QApplication::setPalette(HousePalette());
    QApplication::setFont(HouseFont(QApplication::font()));
}

}  // namespace orbkl4

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
#include <QToolTip>

#include <algorithm>
#include <utility>

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
    painter.setPen(QPen(colours::ink(), box.height() / 10));
    const double half = box.height() / 5;
    for (const double left : {-half, half / 2}) {
        const QPointF tip = box.center() + QPointF(left + half, 0);
        painter.drawPolyline(
            QPolygonF{{tip - QPointF(half, half), tip, tip - QPointF(half, -half)}});
    }
    painter.restore();
}

/// The outline of a control. Fusion's is a darker shade of the window, which is lost in a dark or
/// black one.
void PaintOutline(QPainter& painter, const QStyleOption& option, bool round = false) {
    if (CurrentLook() == Look::Light) return;
    const bool isChosenTab = qstyleoption_cast<const QStyleOptionTab*>(&option) != nullptr &&
                             option.state.testFlag(QStyle::State_Selected);
    const bool marked = option.state.testFlag(QStyle::State_Enabled) &&
                        (option.state.testFlag(QStyle::State_HasFocus) || isChosenTab);
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    const double corner = round ? box.height() / 2 : 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(marked ? colours::accent() : colours::line(), marked ? 2 : 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box, corner, corner);
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
            if (IsOutlined(element))
                PaintOutline(*painter, *option, element == PE_IndicatorRadioButton);
            return;
        }
        constexpr double corner = 4;
        const bool enabled = option->state.testFlag(State_Enabled);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(colours::cardLine(), 1));
        painter->setBrush(enabled ? colours::card() : colours::disabledBase());
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
        if (control == CC_SpinBox || control == CC_ComboBox) PaintOutline(*painter, *option);
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        QProxyStyle::drawControl(element, option, painter, widget);
        if (element == CE_ProgressBarGroove || element == CE_TabBarTabShape) {
            PaintOutline(*painter, *option);
        }
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

    static bool IsOutlined(PrimitiveElement element) {
        switch (element) {
            case PE_PanelButtonCommand:
            case PE_FrameLineEdit:
            case PE_IndicatorCheckBox:
            case PE_IndicatorRadioButton:
            case PE_PanelMenu:
            case PE_FrameTabWidget: return true;
            default: return false;
        }
    }

    static QFont TitleFont(QFont font) {
        font.setWeight(QFont::DemiBold);
        return font;
    }
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
    QPalette palette(colours::button(), colours::window());
    const std::pair<QPalette::ColorRole, QColor> roles[] = {
        {QPalette::WindowText, colours::ink()},
        {QPalette::Base, colours::base()},
        {QPalette::AlternateBase, colours::otherBase()},
        {QPalette::Text, colours::ink()},
        {QPalette::PlaceholderText, colours::disabledInk()},
        {QPalette::ButtonText, colours::ink()},
        {QPalette::BrightText, colours::warning()},
        {QPalette::Highlight, colours::accent()},
        {QPalette::HighlightedText, colours::onAccent()},
        {QPalette::ToolTipBase, colours::base()},
        {QPalette::ToolTipText, colours::ink()},
        {QPalette::Link, colours::accent()},
        {QPalette::Mid, colours::line()},
    };
    for (const auto& [role, colour] : roles) palette.setColor(role, colour);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, colours::disabledInk());
    }
    palette.setColor(QPalette::Disabled, QPalette::Base, colours::disabledBase());
    palette.setColor(QPalette::Disabled, QPalette::Highlight, colours::line());
    return palette;
}

}  // namespace

void ApplyHouseStyle(Look look) {
    UseLook(look);
    InstallAccessibleControls();
    QApplication::setStyle(new HouseStyle);
    QApplication::setPalette(HousePalette());
    QToolTip::setPalette(HousePalette());
    QApplication::setFont(HouseFont(QApplication::font()));
}

}  // namespace orbkl4

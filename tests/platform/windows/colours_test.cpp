#include "platform/windows/colours.h"

#include "platform/controls/colour.h"
#include "platform/controls/cw_graph.h"
#include "platform/controls/house_style.h"
#include "platform/controls/text_field.h"

#include <QApplication>
#include <QPalette>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace orbkl4 {
namespace {

using namespace colours;

constexpr std::array looks{Look::Light, Look::Dark, Look::ContrastLight, Look::ContrastDark};

/// The relative luminance of `colour` by WCAG 2, from 0 (black) to 1 (white).
double Luminance(const QColor& colour) {
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// The contrast of two colours by WCAG 2, from 1 to 21.
double Contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

TEST(Colours, CanBeReadOrMadeOutInEveryLook) {
    struct Case {
        const char* what;
        Tint front;
        std::vector<Tint> backs;
        double usual;  ///< the least contrast
        double high;   ///< the same in a look of high contrast
    };
    const Case cases[] = {
        {"text", ink, {window, base, otherBase, card, button}, 4.5, 7},
        {"text", ink, {unused, modified, thumbDark}, 4.5, 7},
        {"marked text", onAccent, {accent}, 4.5, 7},
        {"heading", onHeading, {heading}, 4.5, 7},
        {"warning", warning, {window, base}, 4.5, 7},
        {"link", accent, {base}, 4.5, 7},
        {"numbers of a dial", dialMark, {dialFace, dialEdge}, 4.5, 7},
        {"caption of a dial", dialCaption, {dialFace, dialEdge}, 4.5, 7},
        {"disabled text to be read", paleInk, {disabledBase, card, window}, 4.5, 7},
        {"disabled text to be read", paleInk, {unused, modified}, 3, 7},
        {"disabled text", disabledInk, {window, base, card}, 3, 7},
        {"disabled text", disabledInk, {button, disabledBase, unused}, 3, 7},
        {"numbers of a disabled dial", dialDimmed, {dialFace, dialEdge}, 3, 7},
        {"level, focus frame", accent, {base, card, window}, 3, 4.5},
        {"mark of the thumb", accent, {thumbLight, thumbDark}, 3, 4.5},
        {"needle", needle, {dialFace, dialEdge}, 3, 4.5},
        {"fluid", fluid, {glassLight, glassShade}, 3, 4.5},
        {"glass", glassEdge, {card}, 3, 4.5},
        {"lit lamp and dark lamp", litCore, {darkCore, darkRim}, 3, 4.5},
        {"plot 1", plot1, {base}, 3, 4.5},
        {"plot 2", plot2, {base}, 3, 4.5},
        {"plot 3", plot3, {base}, 3, 4.5},
        {"plot 4", plot4, {base}, 3, 4.5},
        {"axis X", axisX, {window, axisBorder}, 3, 4.5},
        {"axis Y", axisY, {window, axisBorder}, 3, 4.5},
        {"axis Z", axisZ, {window, axisBorder}, 3, 4.5},
        {"border", line, {window}, 1, 7},  // 1 is none
        {"border of a card", cardLine, {window}, 1, 7},
    };
    for (const auto& [what, front, backs, usual, high] : cases) {
        for (const Look look : looks)
            for (const Tint& back : backs)
                EXPECT_GE(Contrast(front(look), back(look)), IsContrast(look) ? high : usual)
                    << what << " on " << back(look).name().toStdString() << " in look "
                    << static_cast<int>(look);
    }
}

TEST(Colours, KeepTheMeaningOfFieldBackgrounds) {
    // In the light look the numbers are the colours.
    EXPECT_EQ(modified(Look::Light), QColor(0xFF, 0xC0, 0xC0));
    EXPECT_EQ(unused(Look::Light), QColor(0xE0, 0xE0, 0xE0));
    for (const Look look : looks) {
        const QColor red = modified(look);
        EXPECT_GT(red.red(), red.green() + 40);
        EXPECT_GT(red.red(), red.blue() + 40);
        EXPECT_NE(unused(look), base(look));
        EXPECT_NE(modified(look), base(look));
    }
}

TEST(Looks, FollowTheDesktop) {
    struct Case {
        QRgb text, window;
        const char* names;
        Look look;
    };
    const Case cases[] = {
        {0xFF000000, 0xFFEFEFEF, "", Look::Light},
        {0xFF232629, 0xFFEFF0F1, "'Adwaita' 'default'", Look::Light},
        {0xFFFCFCFC, 0xFF2A2E32, "", Look::Dark},
        {0xFF000000, 0xFFEFEFEF, "Adwaita:dark", Look::Dark},
        {0xFF000000, 0xFFEFEFEF, "'Adwaita' 'prefer-dark'", Look::Dark},
        {0xFF000000, 0xFFFFFFFF, "", Look::ContrastLight},
        {0xFFFFFFFF, 0xFF000000, "", Look::ContrastDark},
        {0xFF000000, 0xFFEFEFEF, "HighContrast", Look::ContrastLight},
        {0xFF000000, 0xFFEFEFEF, "HighContrastInverse", Look::ContrastDark},
        {0xFF000000, 0xFFEFEFEF, "'Adwaita' 'prefer-dark' contrast", Look::ContrastDark},
    };
    for (const Case& row : cases) {
        QPalette palette;
        palette.setColor(QPalette::WindowText, QColor(row.text));
        palette.setColor(QPalette::Window, QColor(row.window));
        EXPECT_EQ(LookOf(palette, row.names), row.look) << row.names << ' ' << row.text;
    }
}

TEST(Looks, ReachThePaletteFieldsAndGraph) {
    for (const Look look : looks) {
        ApplyHouseStyle(look);
        EXPECT_EQ(QApplication::palette().color(QPalette::Window), window(look));
        EXPECT_EQ(QApplication::palette().color(QPalette::Text), ink(look));
        TextField field;
        field.BackColorText(unusedBackground);
        EXPECT_EQ(field.palette().color(QPalette::Base), unused(look));
        field.BackColorText(modifiedBackground);
        EXPECT_EQ(field.palette().color(QPalette::Base), modified(look));
        EXPECT_EQ(field.BackColorText(), modifiedBackground);
        CWGraph graph(1);
        graph.resize(300, 200);
        const QImage drawn = graph.grab().toImage();
        EXPECT_EQ(drawn.pixelColor(1, 1), base(look));
    }
    ApplyHouseStyle(Look::Light);
}

}  // namespace
}  // namespace orbkl4

#pragma once

#include "platform/windows/look.h"

#include <QColor>

#include <array>
#include <cstddef>

/// The colours of the program, for its palette and for what it paints itself.
namespace orbkl4::colours {

/// One colour in each look; called, it is that of the look in use.
struct Tint {
    std::array<QRgb, 4> rgb;  ///< light, dark, high contrast light and dark

    QColor operator()() const { return (*this)(CurrentLook()); }
    QColor operator()(Look look) const { return {rgb.at(static_cast<std::size_t>(look))}; }
};

// clang-format off

// Backgrounds
inline constexpr Tint window      {0xEEF1F5, 0x1F242A, 0xFFFFFF, 0x000000};
inline constexpr Tint base        {0xFFFFFF, 0x14181D, 0xFFFFFF, 0x000000};  ///< of fields
inline constexpr Tint otherBase   {0xF6F8FA, 0x1A1F25, 0xFFFFFF, 0x000000};  ///< every second row
inline constexpr Tint card        {0xFBFCFD, 0x272D35, 0xFFFFFF, 0x000000};  ///< of frames
inline constexpr Tint button      {0xF4F6F9, 0x2F363F, 0xFFFFFF, 0x000000};
inline constexpr Tint disabledBase{0xF1F3F6, 0x23292F, 0xFFFFFF, 0x000000};
inline constexpr Tint modified    {0xFFC0C0, 0x6B2A2E, 0xFFC8C8, 0x600000};  ///< of changed fields
inline constexpr Tint unused      {0xE0E0E0, 0x343B43, 0xE0E0E0, 0x303030};  ///< of idle fields

// Text and marks
inline constexpr Tint ink         {0x1E2732, 0xE3E8EE, 0x000000, 0xFFFFFF};
inline constexpr Tint disabledInk {0x727D8A, 0x8A949F, 0x464646, 0xBEBEBE};
inline constexpr Tint paleInk     {0x5A6673, 0xA9B4C0, 0x3C3C3C, 0xC8C8C8};  ///< disabled, legible
inline constexpr Tint warning     {0xC41E1E, 0xFF8078, 0xA00000, 0xFF9090};
inline constexpr Tint accent      {0x1F6FB5, 0x5AA9E6, 0x00308F, 0xFFE100};  ///< levels, selection
inline constexpr Tint onAccent    {0xFFFFFF, 0x0B1117, 0xFFFFFF, 0x000000};
inline constexpr Tint heading     {0x1F6FB5, 0x1F5A91, 0x00308F, 0x003C8F};
inline constexpr Tint onHeading   {0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF};

// Borders
inline constexpr Tint line        {0xB3BECA, 0x74808D, 0x000000, 0xFFFFFF};
inline constexpr Tint cardLine    {0xD3DAE2, 0x3B444F, 0x000000, 0xFFFFFF};
inline constexpr Tint grid        {0xE3E8ED, 0x333B44, 0xC0C0C0, 0x5A5A5A};  ///< of the graph

// The plots of the graph
inline constexpr Tint plot1       {0x1F6FB5, 0x5AA9E6, 0x00308F, 0x6FC3FF};
inline constexpr Tint plot2       {0xC84B11, 0xFF9A5C, 0x8A2F00, 0xFFA94D};
inline constexpr Tint plot3       {0x2E7D32, 0x6FCF78, 0x005A14, 0x7CFC7C};
inline constexpr Tint plot4       {0x6A3D9A, 0xC7A0F0, 0x4B1E82, 0xD9B3FF};

// Dials, which are dark in every look
inline constexpr Tint dialEdge    {0x161E28, 0x0B0F13, 0x000000, 0x000000};
inline constexpr Tint dialFace    {0x2B3745, 0x161C23, 0x000000, 0x000000};
inline constexpr Tint dialMark    {0xF2F5F8, 0xE3E8EE, 0xFFFFFF, 0xFFFFFF};
inline constexpr Tint dialDimmed  {0x8C97A3, 0x7D8793, 0xBEBEBE, 0xBEBEBE};
inline constexpr Tint dialCaption {0xB4BECA, 0xA9B4C0, 0xFFFFFF, 0xFFFFFF};
inline constexpr Tint needle      {0xFF9F1C, 0xFFA733, 0xFFE100, 0xFFE100};
inline constexpr Tint bezelLight  {0xF2F5F8, 0x8A949F, 0x000000, 0xFFFFFF};  ///< of lamps too
inline constexpr Tint bezelMiddle {0xB4BEC9, 0x5F6B78, 0x000000, 0xFFFFFF};
inline constexpr Tint bezelDark   {0x808B98, 0x4A535E, 0x000000, 0xFFFFFF};

// Lamps: middle and rim
inline constexpr Tint litCore     {0x8DFF9E, 0x8DFF9E, 0x006B22, 0x7CFC7C};
inline constexpr Tint litRim      {0x12A83C, 0x12A83C, 0x006B22, 0x7CFC7C};
inline constexpr Tint darkCore    {0x4C6B55, 0x35483B, 0xFFFFFF, 0x000000};
inline constexpr Tint darkRim     {0x243A2C, 0x17241B, 0xFFFFFF, 0x000000};
inline constexpr Tint idleRim     {0xB3BECA, 0x5F6B78, 0xFFFFFF, 0x000000};  ///< of a disabled lamp

// Slides and the thermometer
inline constexpr Tint thumbLight  {0xFFFFFF, 0x48525D, 0xFFFFFF, 0x000000};
inline constexpr Tint thumbDark   {0xDDE3EA, 0x39424C, 0xFFFFFF, 0x000000};
inline constexpr Tint glassLight  {0xFFFFFF, 0x39434E, 0xFFFFFF, 0x000000};
inline constexpr Tint glassShade  {0xD7DFE7, 0x2A323B, 0xFFFFFF, 0x000000};
inline constexpr Tint glassEdge   {0x7F8B98, 0x8C97A3, 0x000000, 0xFFFFFF};
inline constexpr Tint fluid       {0xD82B2B, 0xFF5A4F, 0xB00000, 0xFF7A70};

// The axes in the picture of the sensor, and what keeps them apart from it
inline constexpr Tint axisX       {0xD63228, 0xFF8076, 0xA00000, 0xFF8076};
inline constexpr Tint axisY       {0x1F9342, 0x5FD37A, 0x005A14, 0x7CFC7C};
inline constexpr Tint axisZ       {0x1A56DB, 0x8AB6FF, 0x00308F, 0x9CC2FF};
inline constexpr Tint axisBorder  {0xF4F8FC, 0x11161C, 0xFFFFFF, 0x000000};

// clang-format on

}  // namespace orbkl4::colours

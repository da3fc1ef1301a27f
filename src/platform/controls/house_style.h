#pragma once

namespace orbkl4 {

/// Gives the application object, which must exist, its style, palette, a font with digits of equal
/// width and the accessibility of the painted controls.
void ApplyHouseStyle();

}  // namespace orbkl4

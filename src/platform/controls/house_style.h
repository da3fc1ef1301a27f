#pragma once

#include "platform/windows/look.h"

namespace orbkl4 {

/// Gives the application object, which must exist, its style, the colours of `look`, a font with
/// digits of equal width and the accessibility of the painted controls. No window may be there yet.
void ApplyHouseStyle(Look look = Look::Light);

}  // namespace orbkl4

#pragma once

#include <QIcon>
#include <QStyle>

namespace orbkl4 {

/// The icon of message boxes of the kind `standard`, sharp at every size; null for any other.
QIcon SignIcon(QStyle::StandardPixmap standard);

}  // namespace orbkl4

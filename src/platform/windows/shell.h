#pragma once

class QString;

namespace orbkl4 {

/// Asks the system to open the document at `path` with the program meant for it; false where it
/// has none.
bool OpenDocument(const QString& path);

}  // namespace orbkl4

#pragma once

namespace orbkl4 {

/// Takes the counter frequency, builds the version text, reads the stored port and line settings
/// and makes the program's folders, in this order; an error leaves the rest undone.
void StartUp();

/// Makes the folders for data files and logs if they don't exist, and reports errors in a box.
void TestForFileFolders();

}  // namespace orbkl4

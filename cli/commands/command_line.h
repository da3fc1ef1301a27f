#pragma once

namespace orbkl4::cli {

/// Runs the program on its arguments, the first of which is its name, and returns its exit code.
int RunCommandLine(int argc, char** argv);

}  // namespace orbkl4::cli

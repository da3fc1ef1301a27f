#pragma once

namespace orbkl4 {

/// Runs queued events, above all painting. Mouse and keyboard input is discarded meanwhile, so that
/// the user can't interfere between two steps of the caller.
void DoEvents();

}  // namespace orbkl4

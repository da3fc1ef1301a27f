#pragma once

namespace orbkl4 {

/// Lets queued events run, painting above all; what a hand does meanwhile with mouse or keyboard is
/// dropped, so that nothing can come between the steps of the caller.
void DoEvents();

}  // namespace orbkl4

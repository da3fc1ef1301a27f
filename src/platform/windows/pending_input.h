#pragma once

#include <functional>

class QObject;

namespace orbkl4 {

/// Makes `field` the one that is being typed into; `commit` takes what was typed.
void StartPendingInput(QObject* field, std::function<void()> commit);

/// Commits the field that is being typed into, if any. A menu that opens calls this, because it
/// doesn't take the focus from the field.
void CommitPendingInput();

}  // namespace orbkl4

#include "platform/windows/pending_input.h"

#include <QPointer>

#include <utility>

namespace orbkl4 {

namespace {

struct PendingInput {
    QPointer<QObject> field;  ///< null when nothing is pending, or when it has been destroyed
    std::function<void()> commit;
};

PendingInput& Pending() {
    static PendingInput pending;
    return pending;
}

}  // namespace

void StartPendingInput(QObject* field, std::function<void()> commit) {
    Pending() = {field, std::move(commit)};
}

void CommitPendingInput() {
    const PendingInput ended = std::exchange(Pending(), {});
    if (ended.field != nullptr) ended.commit();
}

}  // namespace orbkl4

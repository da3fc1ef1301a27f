#include "simulator/reply_script.h"

#include <utility>

namespace orbkl4sim {

Bytes ReplyScript::Apply(const Bytes& request, Bytes reply) {
    const std::uint8_t command = request.front();
    if (const auto queue = queued_.find(command); queue != queued_.end()) {
        Bytes next = std::move(queue->second.front());
        queue->second.pop_front();
        if (queue->second.empty()) queued_.erase(queue);
        return next;
    }
    if (const auto always = always_.find(command); always != always_.end()) return always->second;
    if (filter_) return filter_(request, reply).value_or(Bytes{});
    return reply;
}

}  // namespace orbkl4sim

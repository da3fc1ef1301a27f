#include "link/word_writes.h"

#include "link/communication.h"
#include "link/logic/requests.h"

namespace orbkl4 {

void WriteWords(MSComm& port, std::span<const EepromWrite> writes) {
    constexpr std::int32_t gapMilliseconds = 250;
    bool first = true;
    for (const auto& [address, word] : writes) {
        if (!first) WaitMilliseconds(gapMilliseconds);
        first = false;
        Send(port, WriteEepromRequest(address, word));
    }
}

}  // namespace orbkl4

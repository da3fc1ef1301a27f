// Any bytes as the Time Tick Table and as a stored number.

#include "base/number_text.h"
#include "base/run_time_error.h"
#include "settings/logic/time_tick_table.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace orbkl4;

void CheckTable(std::string_view text) {
    static TickTableRows rows;
    const std::string contents = std::string(tickTableTitle) + "\n" + std::string(text);
    if (ParseTimeTickTable(contents, rows) != TickTableVerdict::Loaded) return;
    for (const TickTableRow& row : rows)
        for (const std::string& field : row)
            if (Trimmed(field) != field || field.find('\n') != std::string::npos) std::abort();
}

void CheckNumber(std::string_view text) {
    double number = LeadingNumber(text);
    if (!std::isfinite(number)) std::abort();
    try {
        number = ToNumber(text);
    } catch (const RuntimeError&) {
        return;
    }
    // A shown number, read again, is shown the same.
    const std::string shown = ScreenText(number);
    if (ScreenText(ToNumber(shown)) != shown || FileText(number).size() > 24) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    CheckTable(text);
    CheckNumber(text);
    return 0;
}

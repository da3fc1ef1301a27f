// Any stream of bytes in any cutting into the real serial control and the real sampling views; see
// `ReadStreamCase` for what the bytes stand for.

#include "support/screens/stream_rig.h"

#include <QApplication>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // The program's windows must not be torn down after the fuzzer's own exit handlers.
    [[maybe_unused]] static auto* application = new QApplication(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static auto* rig = new orbkl4::test::StreamRig;
    constexpr std::size_t most = 2000;
    const std::string fault = rig->FaultOf({data, std::min(size, most)});
    if (fault.empty()) return 0;
    std::fprintf(stderr, "%s\n", fault.c_str());
    std::abort();
}

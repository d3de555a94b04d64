/// Any bytes as a text: the codec never crashes, hangs or looks beyond its text, and its quick and its exact ways give
/// the same values and the same fault.
#include "../ajson/sample.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string text(reinterpret_cast<const char *>(data), size);
    if (sample::outcome(text) != sample::outcome(sample::spaced(text)))
        __builtin_trap();
    return 0;
}

/// Any bytes as a text: the codec never crashes, hangs or reads beyond its text, and gives the values, the fault and
/// the place that the slow reader gives; what it has read survives being written and read again.
#include "../ajson/reference.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    const reference::Outcome outcome = reference::byCodec(text);
    if (outcome != reference::bySteps(text))
        __builtin_trap();
    return 0;
}

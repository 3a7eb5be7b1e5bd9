// The assembler on any text; what it accepts goes back to a source that assembles to the same
// bytes.
#include "host/assembler.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::string_view source(reinterpret_cast<const char *>(data), size);
    const ldsdk::host::Assembly first = ldsdk::host::assemble(source, "fuzz");
    if (!first.errors.empty()) {
        return 0;
    }
    const std::string text = ldsdk::host::image_to_source(first.image);
    const ldsdk::host::Assembly second = ldsdk::host::assemble(text, "again");
    if (!second.errors.empty() || second.image != first.image) {
        std::abort();
    }
    return 0;
}

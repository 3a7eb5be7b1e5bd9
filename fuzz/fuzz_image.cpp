// The microcode image, then what was loaded as text. Reads past the image show from the next page
// on; the tests place images against a guard.
#include "fuzz/chip.h"
#include "host/image.h"

#include <cstdint>
#include <span>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool up = (ldsdk::fuzz::chip_up(), true);
    (void)up;
    ldsdk::host::load_image(0, std::span(data, size));
    ldsdk::host::code_listing(0, 0, 16);
    return 0;
}

// The microcode image, right in front of memory that nobody may touch, then what was loaded as
// text.
#include "fuzz/chip.h"
#include "host/image.h"

#include "ldsdk/micro.h"

#include <sys/mman.h>
#include <cstdint>
#include <cstring>

namespace {

constexpr size_t kLargest = 1 << 20;
constexpr size_t kGuard = 1 << 16;

// The end of memory below 4 GiB with a guard behind it.
uint8_t *fence()
{
    void *at = ::mmap(reinterpret_cast<void *>(0x20000000), kLargest + kGuard,
                      PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (at == MAP_FAILED || reinterpret_cast<uintptr_t>(at) + kLargest + kGuard > UINT32_MAX) {
        std::abort();
    }
    auto *end = static_cast<uint8_t *>(at) + kLargest;
    if (::mprotect(end, kGuard, PROT_NONE) != 0) {
        std::abort();
    }
    return end;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool up = (ldsdk::fuzz::chip_up(), true);
    static uint8_t *const end = fence();
    if (!up || size > kLargest) {
        return 0;
    }
    std::memcpy(end - size, data, size);
    const NpMicroLoad load = {static_cast<uint32_t>(size),
                              static_cast<uint32_t>(reinterpret_cast<uintptr_t>(end - size))};
    Np_Micro_Load(0, &load);
    ldsdk::host::code_listing(0, 0, 16);
    return 0;
}

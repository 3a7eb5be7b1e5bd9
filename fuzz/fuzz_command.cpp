// The 512-byte buffer of the command device, with the tree installed and a chip up. Inputs that are
// text make a command line of words; others are the buffer as it is.
#include "fuzz/chip.h"
#include "sdk/frame/bringup.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool up = (ldsdk::fuzz::chip_up(), true);
    // A command may have torn the chip down; the next input finds it up again.
    if (up && g_aucNpInitFlag[0] == 0) {
        Np_INIT_SdkInit(0);
    }
    std::array<char, 512> buffer{};
    if (size != 0 && data[0] == 'm') {
        buffer = ldsdk::fuzz::command_buffer({reinterpret_cast<const char *>(data), size});
    }
    else {
        std::memcpy(buffer.data(), data, std::min(size, buffer.size()));
    }
    ldsdk_device_ioctl(buffer.data());
    return 0;
}

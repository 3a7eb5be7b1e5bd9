// A chip that is up, output thrown away: what the fuzzers start from.
#pragma once

#include "ldsdk/host.h"
#include "ldsdk/ldsdk.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace ldsdk::fuzz {

inline void chip_up()
{
    ldsdk_set_output([](const char *, void *) {}, nullptr);
    if (ldsdk_model_attach(0) != 0 || Np_GLB_ChipRegister(0, 1, 0, 0) != 0 ||
        Np_INIT_SdkCmdTreeInstall() != 0 || Np_INIT_SdkInit(0) != 0) {
        std::abort();
    }
}

// Words with blanks between them as the command device takes them, the tool's name in front; cut to
// the buffer.
inline std::array<char, 512> command_buffer(std::string_view line)
{
    std::array<char, 512> buffer = {};
    std::memcpy(buffer.data() + 4, "f", 2);
    size_t at = 6;
    int32_t words = 2;
    for (size_t i = 0; i < line.size() && at < buffer.size() - 1; i++) {
        buffer[at++] = line[i] == ' ' ? '\0' : line[i];
        words += line[i] == ' ' ? 1 : 0;
    }
    std::memcpy(buffer.data(), &words, sizeof(words));
    return buffer;
}

}  // namespace ldsdk::fuzz

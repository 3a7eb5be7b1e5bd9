// A chip that is up, output thrown away: what the fuzzers start from.
#pragma once

#include "ldsdk/host.h"
#include "ldsdk/ldsdk.h"

#include <cstdlib>

namespace ldsdk::fuzz {

inline void chip_up()
{
    ldsdk_set_output([](const char *, void *) {}, nullptr);
    if (ldsdk_model_attach(0) != 0 || Np_GLB_ChipRegister(0, 1, 0, 0) != 0 ||
        Np_INIT_SdkCmdTreeInstall() != 0 || Np_INIT_SdkInit(0) != 0) {
        std::abort();
    }
}

}  // namespace ldsdk::fuzz

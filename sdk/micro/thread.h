// The threads of an atom: four NPUs of ten threads.
#pragma once

#include "ldsdk/status.h"

#include <cstdint>

inline constexpr uint32_t NP_NPU_NUM = 4;          // of an atom
inline constexpr uint32_t NP_NPU_THREAD_NUM = 10;  // of an NPU
inline constexpr uint32_t NP_ATOM_THREAD_NUM = NP_NPU_NUM * NP_NPU_THREAD_NUM;

// Calls fnThread(NPU, thread) for each thread of an atom, NPU 0 threads 0 to 9 first, up to the
// first that does not give NP_OK, whose result comes back.
template <typename Thread>
uint32_t Np_Micro_ThreadWalk(Thread fnThread)
{
    for (uint32_t ulNpuID = 0; ulNpuID < NP_NPU_NUM; ulNpuID++) {
        for (uint32_t ulThreadID = 0; ulThreadID < NP_NPU_THREAD_NUM; ulThreadID++) {
            const uint32_t ulReturn = fnThread(ulNpuID, ulThreadID);
            if (ulReturn != NP_OK) {
                return ulReturn;
            }
        }
    }
    return NP_OK;
}

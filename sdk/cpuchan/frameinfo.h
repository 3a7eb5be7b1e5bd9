// The frame info word: 24 bits that say how the frame of a port is built. Packets inserted into a
// queue carry it, and rows of other tables store it. ulModuleID is the caller's trace module, so
// that messages print under the switch of the module that called.
#pragma once

#include "ldsdk/cputr.h"

#include <cstdint>

enum NpFrameInfoType : uint32_t {
    NP_FRAME_NONE = 0,
    NP_FRAME_ETHER = 1,
    NP_FRAME_GPON = 2,
    NP_FRAME_EPON = 3,
    NP_FRAME_XDSL = 4,
    NP_FRAME_PRBS = 5,
    NP_FRAME_PIE = 6,
    NP_FRAME_LOOPBACK = 7,
    NP_FRAME_NUM = 8,
};

extern "C" {

// NP_ERR_PARAM for an unknown type or a field beyond its limit; NP_ERR_NULL_PTR.
uint32_t Np_Tarn_FrameInfo_Check(uint32_t ulChipID, uint32_t ulModuleID, uint32_t ulFrameInfoType,
                                 const NpFrameInfo *punFrameInfo);
// Always NP_OK, also for an unknown type, which it prints.
uint32_t Np_Tarn_FrameInfo_Trace(uint32_t ulChipID, uint32_t ulModuleID, uint32_t ulFrameInfoType,
                                 const NpFrameInfo *punFrameInfo);
// *pulFrameInfo: the 24-bit word, 0 for type 0. NP_ERR_PARAM for an unknown type; NP_ERR_NULL_PTR.
uint32_t Np_Tarn_FrameInfo_Build(uint32_t ulChipID, uint32_t ulModuleID, uint32_t ulFrameInfoType,
                                 const NpFrameInfo *punFrameInfo, uint32_t *pulFrameInfo);
// Type 0 leaves the union as it is. NP_ERR_PARAM for an unknown type; NP_ERR_NULL_PTR.
uint32_t Np_Tarn_FrameInfo_Parse(uint32_t ulChipID, uint32_t ulModuleID, uint32_t ulFrameInfoType,
                                 uint32_t ulFrameInfo, NpFrameInfo *punFrameInfo);

}  // extern "C"

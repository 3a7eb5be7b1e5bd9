// Bring-up and tear-down of a chip.
#pragma once

#include "ldsdk/init.h"
#include "sdk/frame/base/service.h"

#include <cstdint>

// A step of bring-up or tear-down, and one that lays priority blocks out.
using NpInitStepFn = uint32_t (*)(uint32_t ulChipID);
using NpPriStepFn = uint32_t (*)(uint32_t ulChipID, const NpPriBlock *pstPriBlock);

extern "C" {

// 1 from the start of a bring-up until a tear-down has run to its end.
extern uint8_t g_aucNpInitFlag[NP_CHIP_NUM];
// Per chip one word for each mirror group (capability slot 48), null while not initialised.
extern uint32_t *g_pastNpDfxMirrorInfo[NP_CHIP_NUM];

uint32_t Np_Tarn_DFX_Init(uint32_t ulChipID);
uint32_t Np_Tarn_DFX_Destruct(uint32_t ulChipID);

}  // extern "C"

// The chip registry: who makes chips known to the module, with the family's tables behind them.
#pragma once

#include "sdk/frame/base/chip.h"

extern "C" {

// Takes back one registration. Always 0.
uint32_t Np_GLB_ChipCancel(uint32_t ulChipID);
// Makes the family's constant tables the chip's current ones.
void Np_GLB_TarnBVariableInit(uint32_t ulChipID);
// Register and bring up; tears down what a failed bring-up left.
uint32_t Np_INIT(uint32_t ulChipID, uint32_t ulChipClass, uint32_t ulChipAttr,
                 uintptr_t ulRegBaseAddr);

}  // extern "C"

// The chip registry: who makes chips known to the module, with the family's tables behind them.
#pragma once

#include "sdk/frame/base/chip.h"

// Options of the family: what a chip of it may have besides.
enum NpFamilyOption : uint32_t {
    NP_OPTION_ACL = 0,  // "acl": rows of the CAM for access rules
    NP_OPTION_NUM,
};
extern uint32_t g_aulNpFamilyOption[NP_OPTION_NUM];

extern "C" {

// Turns an option on, 1, or off, 0, for all chips. NP_ERR_FAIL once a chip was brought up,
// NP_ERR_PARAM for a name or a value that is none, NP_ERR_NULL_PTR; nothing changes then.
uint32_t Np_FamilyOptionSet(const char *pszName, uint32_t ulValue);
// What bring-up does for access rules: nothing without the option.
uint32_t Np_AclStart(uint32_t ulChipID);
// Takes back one registration. Always 0.
uint32_t Np_GLB_ChipCancel(uint32_t ulChipID);
// Makes the family's constant tables the chip's current ones.
void Np_GLB_TarnBVariableInit(uint32_t ulChipID);
// Register and bring up; tears down what a failed bring-up left.
uint32_t Np_INIT(uint32_t ulChipID, uint32_t ulChipClass, uint32_t ulChipAttr,
                 uintptr_t ulRegBaseAddr);

}  // extern "C"

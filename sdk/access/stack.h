// Stacks of free numbers, in host memory: each resource hands its numbers out and takes them back.
#pragma once

#include "ldsdk/types.h"

#include <cstdint>

enum NpStackId : uint8_t {
    NP_STACK_MCC = 0,       // multicast copy list nodes
    NP_STACK_FLEE = 1,      // flee keys of all tables but the two below
    NP_STACK_FLEE_GMT = 2,  // flee keys of the gemport map table
    NP_STACK_FLEE_LM = 3,   // flee keys of LM data; empty in this family
    NP_STACK_NUM = 4,
};

struct NpStackDesc {
    uint16_t usTop;     // index of the next number to hand out; usSize when none is free
    uint16_t usBase;    // smallest number
    uint16_t usSize;    // how many numbers
    uint16_t *pusData;  // entries usTop to usSize - 1 are the free numbers
    const char *pszName;
    uint8_t ucStackId;  // NpStackId
};

extern "C" {

extern NpStackDesc *g_pastNpStackDesc[NP_CHIP_NUM];
extern const NpStackDesc *g_astNpStackInfo[NP_CHIP_NUM];
extern uint32_t g_aulStackNum[NP_CHIP_NUM];
extern const NpStackDesc g_astNpStackInfo_TarnB[NP_STACK_NUM];
extern const uint32_t g_ulStackNum_TarnB;

// Fills every stack of the chip; all numbers are free afterwards. NP_ERR_NO_MEMORY.
uint32_t Np_Tarn_Stack_Init(uint32_t ulChipID);
uint32_t Np_Tarn_Stack_Destruct(uint32_t ulChipID);
// Takes the next free number. NP_ERR_PARAM, NP_ERR_STACK_NO_INIT, NP_ERR_NULL_PTR,
// NP_ERR_STACK_EMPTY.
uint32_t Np_Tarn_Pop(uint32_t ulChipID, uint8_t ucStackId, uint32_t *pulIdx);
// Gives a number back; the next pop yields it. NP_ERR_PARAM, NP_ERR_STACK_NO_INIT,
// NP_ERR_STACK_FULL when nothing is handed out, NP_ERR_EXIST for a number that is free already.
uint32_t Np_Tarn_Push(uint32_t ulChipID, uint8_t ucStackId, uint32_t ulIdx);

}  // extern "C"

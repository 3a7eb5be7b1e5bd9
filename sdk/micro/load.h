// Loading a microcode image.
//
// Image: a flat byte array of big-endian words. A section table at offset 0, the sections anywhere
// behind it, a 32-byte version trailer at the end:
//   bytes 0..3, 4..7  version     8..11 year     12,13 month     14,15 day     16..31 user's text
// The trailer is characters and is read before the words are brought into native order.
#pragma once

#include "ldsdk/micro.h"
#include "ldsdk/types.h"

#include <cstdint>

// An entry of the section table. An entry of code 0 ends it.
struct NpMicroSection {
    uint32_t ulBinDescCode;
    uint32_t ulOffset;    // bytes, from the start of the image
    uint32_t ulDataSize;  // bytes
};
inline constexpr uint32_t NP_MICRO_SECTION_NUM = 15;   // entries that are looked at
inline constexpr uint32_t NP_MICRO_SECTION_WALK = 17;  // entries after which the walk gives up

enum NpMicroSectionCode : uint32_t {
    NP_MICRO_END = 0,
    NP_MICRO_INSTR_STORE = 1,  // groups of 8 words
    NP_MICRO_CONFIG_DATA = 2,  // NpMicroConfig
    NP_MICRO_BRANCH_RULES = 4,
    NP_MICRO_BRANCH_ASSO_MEM = 6,
};

// Configuration section; it may be longer.
struct NpMicroConfig {
    uint32_t ulRsvd0;
    uint32_t ulStartPC;  // next PC of every thread
    uint32_t ulMaxPC;    // highest PC
    uint32_t ulExcepPC;  // exception PC
    uint32_t aulRsvd4[4];
    uint32_t ulProtectDepth0;
    uint32_t ulProtectDepth1;
};
static_assert(sizeof(NpMicroConfig) == 40);

// Where a chip's image stands.
struct NpMicroInfo {
    uint32_t ulAddress;
    uint32_t ulLength;
};

extern "C" {

extern NpMicroInfo g_stNpMicroInfo[NP_CHIP_NUM];
extern NpMicroConfig g_stNpMicroConfig[NP_CHIP_NUM];

// The per-chip pair. The getter answers NP_ERR_NULL_PTR for a null pointer.
uint32_t Np_Tarn_LOAD_AddrConfigSet(uint32_t ulChipID, uint32_t ulAddress, uint32_t ulLength);
uint32_t Np_Tarn_LOAD_AddrConfigGet(uint32_t ulChipID, uint32_t *pulAddress, uint32_t *pulLength);
// Finds a section of the chip's image, whose words are in native order by then: its address and
// its length in bytes. NP_ERR_NULL_PTR; NP_ERR_NOT_EXIST when the table has no such section or the
// section does not lie in the image.
uint32_t Np_Tarn_LOAD_FileInfoGet(uint32_t ulChipID, uint32_t ulBinDescCode, uint32_t *pulAddr,
                                  uint32_t *pulLen);
// Pushes one section to its place, or all four in this order.
uint32_t Np_Tarn_LOAD_InstrStoreLoad(uint32_t ulChipID);
uint32_t Np_Tarn_LOAD_ConfigDataLoad(uint32_t ulChipID);
uint32_t Np_Tarn_LOAD_BranchRulesLoad(uint32_t ulChipID);
uint32_t Np_Tarn_LOAD_BranchAssoMemLoad(uint32_t ulChipID);
uint32_t Np_Tarn_LOAD_MicroFileLoad(uint32_t ulChipID);
// Traces what a section load was given.
void Np_Tarn_LOAD_DebugTrace(uint32_t ulModuleID, uint32_t ulSwitchID, uint32_t ulBinDescCode,
                             uint32_t ulAddr, uint32_t ulLen);

// An older form of the free thread count, 0 to 63, for chips with one register for all feeds.
uint32_t Np_Tarn_LOAD_PbaFreeThCntSet(uint32_t ulChipID, uint32_t ulCount);

}  // extern "C"

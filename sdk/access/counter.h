// Statistics and limit counters in search memory, by type and index. Each call is one atomic
// command on one counter, so that the microcode may count while the host reads, clears or adds.
#pragma once

#include "ldsdk/types.h"

#include <cstdint>

// Where the counters of a type lie.
struct NpCntConfigDesc {
    uint32_t ulCntType;   // position in the table of descriptors
    uint32_t ulCntNum;    // counters of the type; 0: the type has no storage
    uint32_t ulCntWidth;  // bytes of a counter
    uint32_t ulSmemID;
    uint32_t ulMemBank;     // placed at bit 20 of the search memory address
    uint32_t ulBaseAddr;    // byte address of counter 0 in the bank
    uint32_t ulLength;      // NpSmemLength
    uint32_t ulAddWidth;    // width code of an add
    uint32_t ulAddOption1;  // flag of an add
    uint32_t ulAddOption2;  // flag of an add
    uint32_t ulGap;         // bytes between two counters
};
static_assert(sizeof(NpCntConfigDesc) == 44);

inline constexpr uint32_t NP_CNT_TYPE_NUM = 29;
inline constexpr uint32_t NP_CNT_WORDS = 4;

// Types that are known by their owner; the others are statistics.
enum NpCntType : uint32_t {
    NP_CNT_BUNDLE_MACLMT = 0,
    NP_CNT_FLOW_MAC_LIMIT = 1,
    NP_CNT_GLB_MAC_LMT = 18,
    NP_CNT_PORT_MAC_LIMIT = 27,
    NP_CNT_GLB_LANMAC_LIMIT = 28,
};

// Value of a counter, least significant word first.
struct NpCntValue {
    uint32_t aulCntVal[NP_CNT_WORDS];
};

extern "C" {

extern const NpCntConfigDesc *g_asttarnNpCntConfigDesc[NP_CHIP_NUM];
extern const NpCntConfigDesc g_asttarnNpCntConfigDesc_TarnB[NP_CNT_TYPE_NUM];

// All: NP_ERR_NULL_PTR; NP_ERR_PARAM for a type above 28, or an identifier that the type hasn't.

// Words beyond the counter's width read 0. NP_ERR_SMEM_READ.
uint32_t Np_Tarn_CntRead(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID,
                         NpCntValue *pstCntValue);
uint32_t Np_Tarn_CntReadClear(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID,
                              NpCntValue *pstCntValue);
// NP_ERR_SMEM_WRITE.
uint32_t Np_Tarn_CntSet(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID,
                        const NpCntValue *pstCntValue);
// NP_ERR_SMEM_CLEAR.
uint32_t Np_Tarn_CntClear(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID);

// Adds or subtracts the low 16 bits of *pulValue; a 32-bit counter's new value comes back there.
// Learn limits only, and ulCntID is not checked: callers give identifiers from their own range
// checks. NP_ERR_PARAM also for a type that takes no add, or has no storage; NP_ERR_SMEM_OP.
uint32_t Np_Tarn_CntAdd(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID,
                        uint32_t *pulValue);
uint32_t Np_Tarn_CntSub(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID,
                        uint32_t *pulValue);

}  // extern "C"

// What is known of each chip: its record, its class, its capability words and its microcode's
// version. Everything stands on this; who fills it stands above (sdk/frame/registry.h).
#pragma once

#include "ldsdk/glb.h"
#include "ldsdk/status.h"
#include "ldsdk/types.h"
#include "sdk/frame/base/capability.h"

#include <cstdint>

struct NpRegTableDesc;
struct NpRegGroupDesc;

// Chip record, one per chip identifier.
struct NpChipAddr {
    uintptr_t ulRegBaseAddr;                 // 0: master, mapped directly; else a slave's bus block
    const NpRegTableDesc *pstRegTable;       // register table descriptors
    const NpRegGroupDesc *pstRegGroupTable;  // groups of grouped register tables; none here
    uint16_t usRegTableNum;
    uint16_t usRegGroupNum;
    uint32_t ulRegistered;              // 1 when registered
    uint32_t ulRefCount;                // registrations held
    const uint32_t *pulRegGroupOffset;  // group base offsets
};
static_assert(sizeof(void *) != 4 || sizeof(NpChipAddr) == 28);

// Class and attribute that a chip was registered with.
struct NpChipAttr {
    uint32_t ulChipClass;
    uint32_t ulChipAttr;
};

// What the microcode image's 32-byte trailer said. Texts are NUL-terminated.
struct NpMicroVersion {
    char szVerHigh[5];
    char szVerLow[5];
    char szYear[5];
    char szMonth[3];
    char szDay[3];
    char szUserDefine[17];
    uint8_t aucRaw[34];  // the trailer, then 2 zero bytes
    uint32_t ulValid;    // 1 once an image was taken
};
static_assert(sizeof(NpMicroVersion) == 76);

inline constexpr uint32_t NP_MICRO_TRAILER_SIZE = 32;

extern "C" {

extern NpChipAddr g_stNpChipAddr[NP_CHIP_NUM];
extern const uint32_t *g_aulNpGlbCap[NP_CHIP_NUM];
extern NpChipAttr g_aulNpChipAttr[NP_CHIP_NUM];
extern NpMicroVersion g_stNpMicroVersion[NP_CHIP_NUM];
// The chip most recently validated: capability words are read through it.
extern uint32_t g_ulNpCurrentUsedChipID;

// 0 for a registered chip, which then becomes the current one; else NP_ERR_CHIP_ID.
uint32_t Np_GLB_ChipIDIsValid(uint32_t ulChipID);
// Copy a chip record out or in, registered or not. NP_ERR_CHIP_ID above 3; the getter answers
// NP_ERR_NULL_PTR for a null record.
uint32_t Np_Chip_AddrGet(uint32_t ulChipID, NpChipAddr *pstChipAddr);
uint32_t Np_Chip_AddrSet(uint32_t ulChipID, const NpChipAddr *pstChipAddr);
// The record itself, for those who read a field on the way to every row. NP_ERR_CHIP_ID above 3.
uint32_t Np_Chip_AddrFind(uint32_t ulChipID, const NpChipAddr **ppstChipAddr);

}  // extern "C"

// The capability word of a slot, of the current chip. Registered chips only.
inline uint32_t Np_GLB_CapGet(NpCapSlot enSlot)
{
    return g_aulNpGlbCap[g_ulNpCurrentUsedChipID][enSlot];
}

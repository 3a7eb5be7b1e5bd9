// Placement of rules by priority: where a rule may stand, and which rules give way. It knows the
// owner's soft tables and a store behind three callbacks, nothing of the chip.
//
// Priority 0 has the highest offsets, and the chip prefers the lowest: of two rules that match, the
// one with the greater priority number wins. The used offsets of a block are dense, ulTopPoint + 1
// to ulBotPoint; what lies between two blocks is free. A block without room borrows a row from its
// nearest neighbour: every block in between shifts by one row, which costs one move, as the order
// inside a block doesn't matter. So an insertion costs as many moves as there are priorities, never
// as there are rules.
#pragma once

#include "ldsdk/init.h"
#include "sdk/frame/base/trace.h"

#include <cstdint>

inline constexpr uint32_t NP_PRICAM_NONE = 65535;         // no entry; a free offset
inline constexpr uint32_t NP_PRICAM_BELOW = 0xffffffffu;  // a pointer that has gone below offset 0
inline constexpr uint32_t NP_PRICAM_PRI_MAX = 256;        // priorities at most

// What is known of a key number.
struct NpPriCamKeyInfo {
    uint32_t ulCamEntry;  // its offset, NP_PRICAM_NONE without an entry
    uint32_t ulPri;       // its priority
};

// Block of one priority.
struct NpPriBlockPoint {
    uint32_t ulPercent;   // the share of the table that it started with
    uint32_t ulTopPoint;  // next free offset of the block, NP_PRICAM_BELOW when there is none below
    uint32_t ulBotPoint;  // highest offset of the block; equal to ulTopPoint when empty
};

// A table's soft tables. They are the owner's, all values NP_PRICAM_NONE, priorities and the count
// 0 to begin with, and the blocks laid out by Np_Tarn_PriCam_BlockAssign.
struct NpPriCamSoftInfo {
    NpPriCamKeyInfo *pstKeyInfo;   // by key number
    uint32_t *pulTcamInfo;         // by offset: the key number there, NP_PRICAM_NONE when free
    NpPriBlockPoint *pstPriPoint;  // by priority
    uint32_t *pulUsedNum;          // entries in use
};

// What a call is about. ulKeyID and ulPri have to be inside the soft tables: the owner has checked
// them.
struct NpPriCamEntryInfo {
    uint32_t ulTableID;       // LCAM table
    uint32_t ulKeyID;         // the owner's number of the rule
    uint32_t ulMaxPri;        // highest priority
    uint32_t ulTcamMaxEntry;  // highest offset of the table
    uint32_t ulPri;           // priority of the rule, 0 to ulMaxPri; ignored by a delete
};

// A rule, in the forms of Np_Tarn_LCAM_TcamWrite.
struct NpKeyMaskAdInfo {
    const void *pvKey;
    const void *pvMask;
    const void *pvAd;
};

// Where the rules stand. Each callback answers 0, or a code that ends the operation; never
// NP_ERR_FAIL, which says that a search found nothing.
struct NpPriCamStore {
    uint32_t (*pfnWrite)(const NpPriCamStore *pstStore, uint32_t ulOffset,
                         const NpKeyMaskAdInfo *pstKeyMaskAdInfo);
    uint32_t (*pfnMove)(const NpPriCamStore *pstStore, uint32_t ulSrcOffset, uint32_t ulDstOffset);
    uint32_t (*pfnDelete)(const NpPriCamStore *pstStore, uint32_t ulOffset);
    uint32_t ulChipID;
    uint32_t ulTableID;
    void *pvUser;  // the callbacks' own
};

extern "C" {

// Adds the rule of a key, or rewrites it where it stands; and takes it out. What they answer is
// told at their namesakes in pricam.h.
uint32_t Np_Placement_Set(const NpPriCamStore *pstStore,
                          const NpPriCamEntryInfo *pstPriCamEntryInfo,
                          const NpPriCamSoftInfo *pstPriCamSoftInfo,
                          const NpKeyMaskAdInfo *pstKeyMaskAdInfo, NpWhere stWhere = Np_Here());
uint32_t Np_Placement_Del(const NpPriCamStore *pstStore,
                          const NpPriCamEntryInfo *pstPriCamEntryInfo,
                          const NpPriCamSoftInfo *pstPriCamSoftInfo, NpWhere stWhere = Np_Here());
// Finds an offset for a new rule and makes room there, as the three searches below in turn do.
uint32_t Np_Placement_Assign(const NpPriCamStore *pstStore,
                             const NpPriCamEntryInfo *pstPriCamEntryInfo,
                             const NpPriCamSoftInfo *pstPriCamSoftInfo, uint32_t *pulFreeTcamEntry,
                             NpWhere stWhere = Np_Here());

// The next offset of the priority's own block. Pushes empty blocks that sit on it down. NP_ERR_FAIL
// when there is none.
uint32_t Np_Tarn_PriCam_FreeEntry_SearchDirect(const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                               const NpPriCamSoftInfo *pstPriCamSoftInfo,
                                               uint32_t *pulFreeTcamEntry);
// A row of the nearest block with room, among those at higher offsets (forward) or among the others
// (back): the blocks in between shift towards it. NP_ERR_FAIL when none has room, or the code of a
// failed move: blocks that have shifted by then stay so, and everything agrees.
uint32_t Np_Tarn_PriCam_FreeEntry_SearchFwd(const NpPriCamStore *pstStore,
                                            const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                            const NpPriCamSoftInfo *pstPriCamSoftInfo,
                                            uint32_t *pulFreeTcamEntry);
uint32_t Np_Tarn_PriCam_FreeEntry_SearchBack(const NpPriCamStore *pstStore,
                                             const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                             const NpPriCamSoftInfo *pstPriCamSoftInfo,
                                             uint32_t *pulFreeTcamEntry);
// Pushes the empty blocks behind priority ulPri that sit on its next offset down by one.
void Np_Tarn_PriCam_FreeEntry_PointChange(const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                          const NpPriCamSoftInfo *pstPriCamSoftInfo);
// Notes that the key's rule stands at ulOffset; a new one (ulNew 1) takes the offset off its block
// and counts.
void Np_Tarn_PriCam_NewKeySoftInfo_Save(const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                        const NpPriCamSoftInfo *pstPriCamSoftInfo,
                                        uint32_t ulOffset, uint32_t ulNew);

// Lays ulMaxPriNum blocks out over offsets 0 to ulTcamMaxEntry. See Np_Tarn_PriCam_BlockAssign.
uint32_t Np_Placement_Layout(uint32_t ulChipID, uint32_t ulTcamMaxEntry,
                             const NpPriBlock *pstPriBlockInfo, NpPriBlockPoint *pstPriBlockPoint,
                             NpWhere stWhere = Np_Here());

}  // extern "C"

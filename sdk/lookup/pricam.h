// Priority blocks of an LCAM table: rules of equal priority stand together, and of two rules that
// match the one with the greater priority number wins. The table's owner keeps the soft tables and
// hands them in with each call; calls on one table must not overlap.
#pragma once

#include "sdk/lookup/placement.h"

#include <cstdint>

extern "C" {

// Lays the blocks of a table out, in an array of ulMaxPriNum records, by percentages.
// ulTcamMaxEntry: highest offset of the table. NP_ERR_NULL_PTR; NP_ERR_PARAM for a number of
// priorities outside 1 to 256 or a sum other than 100. Sends nothing to the chip.
uint32_t Np_Tarn_PriCam_BlockAssign(uint32_t ulChipID, uint32_t ulTcamMaxEntry,
                                    const NpPriBlock *pstPriBlockInfo,
                                    NpPriBlockPoint *pstPriBlockPoint);
// Adds the rule of a key, or rewrites it where it stands. Key, mask and AD all have to be there. A
// key keeps its priority as long as it has an entry: the owner refuses another one.
// NP_ERR_NULL_PTR; NP_ERR_TABLE_FULL, with no command sent; the codes of Np_Tarn_LCAM_TcamMove and
// Np_Tarn_LCAM_TcamWrite.
uint32_t Np_Tarn_PriCam_KeyAdInfo_Set(uint32_t ulChipID,
                                      const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                      const NpPriCamSoftInfo *pstPriCamSoftInfo,
                                      const NpKeyMaskAdInfo *pstKeyMaskAdInfo);
// Takes the rule of a key out; its block stays dense. A key without an entry is a success.
// NP_ERR_NULL_PTR; the codes of Np_Tarn_LCAM_TcamDelete, and of Np_Tarn_LCAM_TcamMove, which leaves
// a hole in the block and the rule counted.
uint32_t Np_Tarn_PriCam_Entry_Del(uint32_t ulChipID, const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                  const NpPriCamSoftInfo *pstPriCamSoftInfo);
// Finds an offset for a new rule, and makes room there. NP_ERR_NULL_PTR; NP_ERR_TABLE_FULL; the
// codes of Np_Tarn_LCAM_TcamMove.
uint32_t Np_Tarn_PriCam_KeyAssign(uint32_t ulChipID, const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                  const NpPriCamSoftInfo *pstPriCamSoftInfo,
                                  uint32_t *pulFreeTcamEntry);

}  // extern "C"

// Multi-service classification: the ternary rules that give a packet its input flow.
#pragma once

#include "ldsdk/init.h"
#include "ldsdk/l2.h"
#include "sdk/record/pritable.h"

extern const NpPriTable g_stMultiServiceTable;
// The same fields in the wide row of another member, which no table of this family has: key and
// mask of 12 bytes, AD of 8.
extern const NpRow g_stMultiServiceWideRow;

extern "C" {

// Soft tables of each chip; null until bring-up.
extern NpPriCamKeyInfo *g_pastMultiServiceKeyEntryPri[NP_CHIP_NUM];  // by key number
extern uint32_t *g_pastMultiServiceEntryKey[NP_CHIP_NUM];            // by CAM offset
extern NpPriBlockPoint *g_pastMultiServicePriPoint[NP_CHIP_NUM];     // by priority
extern uint32_t g_ulCamEntryUsedNum[NP_CHIP_NUM];                    // rules in use
extern uint32_t g_ulPriMax[NP_CHIP_NUM];                             // highest priority
extern uint32_t *g_pulMultiServiceKeySrcIntfSel[NP_CHIP_NUM];        // ulSrcIntfSelType by key

// Soft tables with the split of bring-up: eight priorities, the last with 30 percent. The codes of
// the assignment.
uint32_t Np_MultiService_Init(uint32_t ulChipID);
void Np_MultiService_Free(uint32_t ulChipID);
// Empties the soft tables and lays the blocks out; the CAM's rows and the count stay, so it comes
// before the first rule. NP_ERR_PARAM, NP_ERR_NULL_PTR, NP_ERR_NO_MEMORY.
uint32_t Np_Tarn_MultiService_PriBlockAssign(uint32_t ulChipID, const NpPriBlock *pstPriBlockInfo);

void Np_Tarn_L2_MultiServiceParamTrace(uint32_t ulChipID, const NpMultiService *pstMultiService);
uint32_t Np_Tarn_L2_MultiServiceParamCheck(uint32_t ulChipID, uint32_t ulKeyID,
                                           const NpMultiService *pstMultiService);
// Key and mask, 8 bytes each, and the AD, 4.
uint32_t Np_TarnB_L2_MultiServiceKeyMaskBuild(uint32_t ulChipID,
                                              const NpMultiService *pstMultiService, void *pvKey,
                                              void *pvMask);
uint32_t Np_TarnB_L2_MultiServiceAdBuild(uint32_t ulChipID, const NpMultiService *pstMultiService,
                                         void *pvAd);
// ulSrcIntfSelType stays as the caller has it.
uint32_t Np_TarnB_L2_MultiServiceTblParse(uint32_t ulChipID, uint32_t ulPri, const void *pvKey,
                                          const void *pvMask, const void *pvAd,
                                          NpMultiService *pstMultiService);
// The wide form: key and mask of 12 bytes, AD of 8; masks are masks of bits.
uint32_t Np_TarnA_L2_MultiServiceKeyMaskBuild(uint32_t ulChipID,
                                              const NpMultiService *pstMultiService, void *pvKey,
                                              void *pvMask);
uint32_t Np_TarnA_L2_MultiServiceAdBuild(uint32_t ulChipID, const NpMultiService *pstMultiService,
                                         void *pvAd);
uint32_t Np_TarnA_L2_MultiServiceTblParse(uint32_t ulChipID, uint32_t ulPri, const void *pvKey,
                                          const void *pvMask, const void *pvAd,
                                          NpMultiService *pstMultiService);

}  // extern "C"

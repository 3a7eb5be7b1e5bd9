// Flow tables: what becomes of a packet once its input flow is known, through the output flow to
// the encapsulation, and how many MACs a flow may learn.
#pragma once

#include "ldsdk/l2.h"
#include "sdk/record/table.h"

extern const NpTable g_stIflowTable;    // two rows: the flow and its extension
extern const NpTable g_stOflowTable;    // two rows: the flow and its user
extern const NpTable g_stL2EncapTable;  // a row, and the MTU in search memory
extern const NpTable g_stFlowBundleTable;
extern const NpTable g_stDefaultFlowIDTable;
extern const NpTable g_stGemportMapTable;
extern const NpTable g_stFlowLmtTable;
extern const NpTable g_stBundleLmtTable;
extern const NpTable g_stGlobalMacLmtTable;

// Without rows in this family, as their register tables are: only the image is there.
extern const NpRow g_stDmacKeyRow;
extern const NpRow g_stDmacRow;
extern const NpTable g_stDmacTable;
extern const NpRow g_stSmacPoolKeyRow;
extern const NpTable g_stSmacPoolTable;

extern const NpRow g_stFlowKeyRow;
extern const NpRow g_stIflowExtArgs;  // the fields of the extension row
extern const NpRow g_stGemportKeyRow;

extern "C" {

// Limits of learned MACs as last set, by chip: 1024 flows, 32 bundles, 1. Null before bring-up.
extern uint32_t *g_pulFlowLimitMacNum[NP_CHIP_NUM];
extern uint32_t *g_pulBundleLimitMacNum[NP_CHIP_NUM];
extern uint32_t *g_pulGlobalLimitMacNum[NP_CHIP_NUM];

// Sets a limit, and moves its counter by the difference to the old one. NP_ERR_NULL_PTR before
// bring-up, or the counter's code.
uint32_t Np_Tarn_L2_FlowLmtTblBuild(uint32_t ulChipID, uint32_t ulFlowID, uint32_t ulLimitNumber);
uint32_t Np_Tarn_L2_BundleLmtTblBuild(uint32_t ulChipID, uint32_t ulBundleID,
                                      uint32_t ulLimitNumber);
uint32_t Np_Tarn_L2_GlbMacLmtTblBuild(uint32_t ulChipID, uint32_t ulIndex, uint32_t ulLimitNumber);

// Behind register tables without rows: NP_ERR_ADDRESS.
uint32_t Np_Tarn_L2_DmacTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpDmac *pstDmac);
uint32_t Np_Tarn_L2_DmacTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpDmac *pstDmac);
uint32_t Np_Tarn_L2_SmacPoolTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                    const NpSmacPool *pstSmacPool);
uint32_t Np_Tarn_L2_SmacPoolTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpSmacPool *pstSmacPool);

NP_ROW_TRACE(Np_Tarn_L2_IflowTblParaTrace, IflowAttr, g_stIflowTable);
NP_ROW_CHECK(Np_Tarn_L2_IflowTblParaCheck, IflowAttr, g_stIflowTable);
NP_ROW_BUILD(Np_Tarn_L2_IflowTblBuild, IflowAttr, g_stIflowTable, 0);
NP_ROW_PARSE(Np_Tarn_L2_IflowTblParse, IflowAttr, g_stIflowTable, 0);
NP_ROW_BUILD(Np_Tarn_L2_IflowExtTblBuild, IflowAttr, g_stIflowTable, 1);
NP_ROW_PARSE(Np_Tarn_L2_IflowExtTblParse, IflowAttr, g_stIflowTable, 1);
NP_ROW_TRACE(Np_Tarn_L2_OflowTblParaTrace, OflowAttr, g_stOflowTable);
NP_ROW_CHECK(Np_Tarn_L2_OflowTblParaCheck, OflowAttr, g_stOflowTable);
NP_ROW_BUILD(Np_Tarn_L2_OflowTblBuild, OflowAttr, g_stOflowTable, 0);
NP_ROW_PARSE(Np_Tarn_L2_OflowTblParse, OflowAttr, g_stOflowTable, 0);
NP_ROW_BUILD(Np_Tarn_L2_OflowExtTblBuild, OflowAttr, g_stOflowTable, 1);
NP_ROW_PARSE(Np_Tarn_L2_OflowExtTblParse, OflowAttr, g_stOflowTable, 1);
NP_ROW_TRACE(Np_Tarn_L2_FlowBundleTblParaTrace, NpFlowBundle, g_stFlowBundleTable);
NP_ROW_CHECK(Np_Tarn_L2_FlowBundleTblParaCheck, NpFlowBundle, g_stFlowBundleTable);
NP_ROW_BUILD(Np_Tarn_L2_FlowBundleTblBuild, NpFlowBundle, g_stFlowBundleTable, 0);
NP_ROW_PARSE(Np_Tarn_L2_FlowBundleTblParse, NpFlowBundle, g_stFlowBundleTable, 0);
NP_ROW_TRACE(Np_Tarn_L2_L2EncapTblParaTrace, Encap, g_stL2EncapTable);
NP_ROW_CHECK(Np_Tarn_L2_L2EncapTblParaCheck, Encap, g_stL2EncapTable);
NP_ROW_TRACE(NP_Tarn_L2_DefaultFlowIDTblParaTrace, NpDefaultFlowID, g_stDefaultFlowIDTable);
NP_ROW_CHECK(NP_Tarn_L2_DefaultFlowIDTblParaCheck, NpDefaultFlowID, g_stDefaultFlowIDTable);
NP_ROW_BUILD(NP_Tarn_L2_DefaultFlowIDTblBuild, NpDefaultFlowID, g_stDefaultFlowIDTable, 0);
NP_ROW_PARSE(NP_Tarn_L2_DefaultFlowIDTblParse, NpDefaultFlowID, g_stDefaultFlowIDTable, 0);
NP_ROW_TRACE(Np_Tarn_L2_GemportMapTblParaTrace, NpGemportMap, g_stGemportMapTable);
NP_ROW_CHECK(Np_Tarn_L2_GemportMapTblParaCheck, NpGemportMap, g_stGemportMapTable);
NP_ROW_BUILD(Np_TarnB_L2_GemportMapTblBuild, NpGemportMap, g_stGemportMapTable, 0);
NP_ROW_PARSE(Np_TarnB_L2_GemportMapTblParse, NpGemportMap, g_stGemportMapTable, 0);
NP_ROW_TRACE(Np_Tarn_L2_FlowLmtTblParaTrace, NpFlowLmt, g_stFlowLmtTable);
NP_ROW_CHECK(Np_Tarn_L2_FlowLmtTblParaCheck, NpFlowLmt, g_stFlowLmtTable);
NP_ROW_PARSE(Np_Tarn_L2_FlowLmtTblParse, NpFlowLmt, g_stFlowLmtTable, 0);
NP_ROW_TRACE(Np_Tarn_L2_BundleLmtTblParaTrace, NpBundleLmt, g_stBundleLmtTable);
NP_ROW_CHECK(Np_Tarn_L2_BundleLmtTblParaCheck, NpBundleLmt, g_stBundleLmtTable);
NP_ROW_PARSE(Np_Tarn_L2_BundleLmtTblParse, NpBundleLmt, g_stBundleLmtTable, 0);
NP_ROW_TRACE(Np_Tarn_L2_GlbMacLmtTblParaTrace, NpGlobalMacLmt, g_stGlobalMacLmtTable);
NP_ROW_CHECK(Np_Tarn_L2_GlbMacLmtTblParaCheck, NpGlobalMacLmt, g_stGlobalMacLmtTable);
NP_ROW_PARSE(Np_Tarn_L2_GlbMacLmtTblParse, NpGlobalMacLmt, g_stGlobalMacLmtTable, 0);
NP_ROW_TRACE(Np_Tarn_L2_DmacTblParaTrace, NpDmac, g_stDmacTable);
NP_ROW_CHECK(Np_Tarn_L2_DmacTblParaCheck, NpDmac, g_stDmacTable);
NP_ROW_BUILD(Np_Tarn_L2_DmacTblBuild, NpDmac, g_stDmacTable, 0);
NP_ROW_PARSE(Np_Tarn_L2_DmacTblParse, NpDmac, g_stDmacTable, 0);
NP_ROW_TRACE(Np_Tarn_L2_SmacPoolTblParaTrace, NpSmacPool, g_stSmacPoolTable);
NP_ROW_CHECK(Np_Tarn_L2_SmacPoolTblParaCheck, NpSmacPool, g_stSmacPoolTable);
NP_ROW_BUILD(Np_Tarn_L2_SmacPoolTblBuild, NpSmacPool, g_stSmacPoolTable, 0);
NP_ROW_PARSE(Np_Tarn_L2_SmacPoolTblParse, NpSmacPool, g_stSmacPoolTable, 0);

}  // extern "C"

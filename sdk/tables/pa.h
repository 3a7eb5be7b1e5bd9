// Packet analysis: what the microcode learns of a packet before it forwards it. The L2 and L3
// analysis CAMs, the treatment of packet types, protocol templates.
#pragma once

#include "ldsdk/init.h"
#include "ldsdk/pa.h"
#include "sdk/record/pritable.h"
#include "sdk/record/table.h"

#include <array>

inline constexpr uint32_t NP_L2PA_DEFAULT = 127;  // key number of the default row

extern const NpPriTable g_stL2paTable;
extern const NpPriTable g_stL3paTable;
extern const NpRow g_stL2paKeyRow;
extern const NpRow g_stL3paKeyRow;
extern const NpTable g_stPaExtTable;
extern const NpTable g_stPtaTable;
extern const NpTable g_stPtt1Table;

// Default rows of a member, each with its key number.
struct NpL2paDefault {
    uint32_t ulL2paID;
    NpL2pa stL2pa;
};
struct NpL3paDefault {
    uint32_t ulL3paID;
    NpL3pa stL3pa;
};
static_assert(sizeof(NpL2paDefault) == 132 && sizeof(NpL3paDefault) == 152);

extern "C" {

// Soft tables of each chip; null until bring-up.
extern NpPriCamKeyInfo *g_pastL2paKeyID2EntryPri[NP_CHIP_NUM];  // by key number
extern uint32_t *g_pastL2paEntry2KeyID[NP_CHIP_NUM];            // by CAM offset
extern NpPriBlockPoint *g_pastL2paBlockInfo[NP_CHIP_NUM];       // by priority
extern uint32_t g_aulL2paItemNum[NP_CHIP_NUM];                  // rules in use
extern uint32_t g_aulL2paPriMax[NP_CHIP_NUM];                   // highest priority
extern NpPriCamKeyInfo *g_pastL3paKeyID2EntryPri[NP_CHIP_NUM];
extern uint32_t *g_pastL3paEntry2KeyID[NP_CHIP_NUM];
extern uint32_t *g_pastL3paKeyID2Type[NP_CHIP_NUM];  // ulKeyType by key number
extern NpPriBlockPoint *g_pastL3paBlockInfo[NP_CHIP_NUM];
extern uint32_t g_aulL3paItemNum[NP_CHIP_NUM];
extern uint32_t g_aulL3paPriMax[NP_CHIP_NUM];

extern const std::array<NpL2paDefault, 49> g_astNpL2Pa_TarnB;
extern const std::array<NpL3paDefault, 5> g_astNpL3PaPPP_TarnB;
extern const std::array<NpL3paDefault, 15> g_astNpL3PaIpv4_TarnB;
extern const std::array<NpL3paDefault, 12> g_astNpL3PaIpv6_TarnB;
extern const std::array<NpL3paDefault, 8> g_astNpL3PaOthers_TarnB;
extern const uint32_t g_ulNpL2PaSize_TarnB;
extern const uint32_t g_ulNpL3PaPPPSize_TarnB;
extern const uint32_t g_ulNpL3PaIpv4Size_TarnB;
extern const uint32_t g_ulNpL3PaIpv6Size_TarnB;
extern const uint32_t g_ulNpL3PaOthersSize_TarnB;

// Empties the soft tables, lays the blocks out, at most 10 priorities, and sets the default row,
// which matches what no other does. The CAM's other rows stay, unknown to the soft tables, so it
// comes before the first rule. NP_ERR_PARAM, NP_ERR_NULL_PTR, NP_ERR_NO_MEMORY, the codes of Set.
uint32_t Np_Tarn_L2paTbl_Init(uint32_t ulChipID, const NpPriBlock *pstPriBlockInfo);
uint32_t Np_Tarn_L3paTbl_Init(uint32_t ulChipID, const NpPriBlock *pstPriBlockInfo);
uint32_t Np_Tarn_L2paTbl_Destruct(uint32_t ulChipID);
uint32_t Np_Tarn_L3paTbl_Destruct(uint32_t ulChipID);
// The default row of another member.
uint32_t Np_TarnA_XDSL_L3paDefaultItemCfg(uint32_t ulChipID);

// Sets the default rows, L2 first, up to the first that fails. Priorities go up to 9.
uint32_t Np_Tarn_DFX_PA_INIT(uint32_t ulChipID);

NP_ROW_TRACE(Np_Tarn_PaExtTbl_ParaTrace, NpPaAd, g_stPaExtTable);
NP_ROW_CHECK(Np_Tarn_PaExtTbl_ParaCheck, NpPaAd, g_stPaExtTable);
NP_ROW_BUILD(Np_Tarn_PaExtTbl_Build, NpPaAd, g_stPaExtTable, 0);
NP_ROW_PARSE(Np_Tarn_PaExtTbl_Parse, NpPaAd, g_stPaExtTable, 0);
NP_ROW_TRACE(Np_Tarn_PtaTbl_ParaTrace, NpPta, g_stPtaTable);
NP_ROW_CHECK(Np_Tarn_PtaTbl_ParaCheck, NpPta, g_stPtaTable);
NP_ROW_BUILD(Np_Tarn_PtaTbl_Build, NpPta, g_stPtaTable, 0);
NP_ROW_PARSE(Np_Tarn_PtaTbl_Parse, NpPta, g_stPtaTable, 0);
NP_ROW_TRACE(Np_Tarn_Ptt1Tbl_ParaTrace, NpPtt1, g_stPtt1Table);
NP_ROW_CHECK(Np_Tarn_Ptt1Tbl_ParaCheck, NpPtt1, g_stPtt1Table);
NP_ROW_BUILD(Np_Tarn_Ptt1Tbl_Build, NpPtt1, g_stPtt1Table, 0);
NP_ROW_PARSE(Np_Tarn_Ptt1Tbl_Parse, NpPtt1, g_stPtt1Table, 0);

}  // extern "C"

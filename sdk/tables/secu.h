// Checks of a packet's source: user MAC rows (each user MAC of an access port and the virtual MAC
// that stands for it upstream), 802.1x source MACs, the MAC filter, anti-DoS limits. Bound
// addresses stand in ipbonding.h.
#pragma once

#include "ldsdk/secu.h"
#include "sdk/frame/base/trace.h"
#include "sdk/record/exacttable.h"
#include "sdk/record/table.h"

extern const NpTable g_stUvtTable;
extern const NpRow g_stUvtStaticArgs;
extern const NpTable g_stPortDosTable;
extern const NpRow g_stDosKeyRow;  // also of cable modem groups, which this family has not
extern const NpRow g_stDosRow;
extern const NpRow g_stAntiDosArgs;  // the time of a message

// Of an 802.1x entry: the port and the MAC; the entry has no more.
struct Np1xSmacKey {
    NpPortID stPort;
    Np1xSmac stSmac;
};
struct NpNoData {
    uint32_t ulNone;
};
extern const NpRow g_st1xSmacKeyRow;
extern const NpRow g_st1xSmacDataRow;
extern const NpRow g_st1xSmacWideRow;  // of another member
extern const NpExactTable g_st1xSmacTable;

struct NpMacFilterAd {
    uint32_t ulAD;
};
extern const NpRow g_stMacFilterKeyRow;
extern const NpRow g_stMacFilterDataRow;
extern const NpExactTable g_stMacFilterTable;

// Flags of a row, by their bit in its uppermost 16-bit unit.
enum NpUvtFlag : uint32_t {
    NP_UVT_STATIC = 12,
    NP_UVT_VMAC_USED = 14,
    NP_UVT_UMAC_USED = 15,
};

extern "C" {

NP_ROW_TRACE(Np_Tarn_SECU_UvtTblParaTrace, NpUvt, g_stUvtTable);
NP_ROW_CHECK(Np_Tarn_SECU_UvtTblParaCheck, NpUvt, g_stUvtTable);
NP_ROW_BUILD(Np_Tarn_SECU_UvtTblBuild, NpUvt, g_stUvtTable, 0);
NP_ROW_PARSE(Np_Tarn_SECU_UvtTblParse, NpUvt, g_stUvtTable, 0);

// Changes one flag of a row atomically: the microcode writes the row too. ulIndex is not checked.
// The driver's code, NP_ERR_SMEM_OP.
uint32_t Np_Tarn_SECU_UvtFlagSet(uint32_t ulChipID, uint32_t ulIndex, NpUvtFlag enFlag,
                                 uint32_t ulValue, NpWhere stWhere = Np_Here());

// The chip's anti-DoS time, seconds, as the last Set gave it.
extern uint32_t g_aulDostTimer[NP_CHIP_NUM];

NP_ROW_TRACE(Np_Tarn_SECU_PortDosTblParaTrace, NpPortDos, g_stPortDosTable);
NP_ROW_CHECK(Np_Tarn_SECU_PortDosTblParaCheck, NpPortDos, g_stPortDosTable);
// Clears the counter of a port.
uint32_t Np_Tarn_DosCnt_Init(uint32_t ulChipID, uint32_t ulIndex);

// An 802.1x item of 8 bytes, and another member's of 16. The port conversion's code, or
// NP_ERR_PARAM for a number that does not fit.
uint32_t Np_TarnB_SECU_1xMacTblBuild(uint32_t ulChipID, const Np1xSmac *pstSmac,
                                     const NpPortID *pstPortID, void *pvItem);
uint32_t Np_TarnA_SECU_1xMacTblBuild(uint32_t ulChipID, const Np1xSmac *pstSmac,
                                     const NpPortID *pstPortID, void *pvItem);
// ulDstMemType: NpEmlLocation. ulIndex below 256.
uint32_t Np_Tarn_1xSmacBondingTbl_DelByIndex(uint32_t ulChipID, uint32_t ulDstMemType,
                                             uint32_t ulIndex);

uint32_t Np_Tarn_SECU_MacFilterTblKeyCheck(uint32_t ulChipID, const NpMacFilterKey *pstMacFilter);
uint32_t Np_Tarn_SECU_MacFilterTblKeyKeyBulid(uint32_t ulChipID, const NpMacFilterKey *pstMacFilter,
                                              void *pvItem);
uint32_t Np_Tarn_SECU_MacFilterTblKeyParse(uint32_t ulChipID, const void *pvItem,
                                           NpMacFilterKey *pstMacFilter);

}  // extern "C"

// The entries as commands and walks have them: a key, and what stands there.
uint32_t Np_1xSmac_Set(uint32_t ulChipID, const Np1xSmacKey *pstKey, const NpNoData *pstData);
uint32_t Np_1xSmac_Get(uint32_t ulChipID, const Np1xSmacKey *pstKey, NpNoData *pstData);
uint32_t Np_1xSmac_Del(uint32_t ulChipID, const Np1xSmacKey *pstKey);
uint32_t Np_1xSmac_GetByIndex(uint32_t ulChipID, uint32_t ulDstMemType, uint32_t ulIndex,
                              Np1xSmacKey *pstKey, NpNoData *pstData, uint32_t *pulInfo);
uint32_t Np_MacFilterEntry_Set(uint32_t ulChipID, const NpMacFilterKey *pstKey,
                               const NpMacFilterAd *pstAd);
uint32_t Np_MacFilterEntry_Get(uint32_t ulChipID, const NpMacFilterKey *pstKey,
                               NpMacFilterAd *pstAd);

// Entries of the MAC table and of the LAN MAC table: what a learned entry that goes gives back.
#include "sdk/tables/arl.h"

#include "ldsdk/status.h"
#include "sdk/access/bus.h"
#include "sdk/access/counter.h"
#include "sdk/access/regtable.h"
#include "sdk/cpuchan/message.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/lookup/eml.h"
#include "sdk/tables/secu.h"

namespace {

inline constexpr uint32_t NP_AD_BITS = 52;  // of an item

inline constexpr uint32_t NP_COLLISION_TABLE = 72;  // register table

// Bit 0 of this register: the global limit counts too.
inline constexpr uint32_t NP_GLOBAL_LIMIT_REG = 0x7a101a40;
inline constexpr uint32_t NP_GLOBAL_LIMIT_ON = 1u << 0;

inline constexpr uint32_t NP_LEARN_STATUS = 5;  // of an entry when it is learned on request
inline constexpr uint32_t NP_LAN_NO_PORT = 255;

// Operations that are charged to a counter.
struct NpCredit {
    uint32_t ulOpCode;
    uint32_t ulCntType;
};
constexpr NpCredit g_astCredit[] = {
    {0, NP_CNT_FLOW_MAC_LIMIT},
    {2, NP_CNT_BUNDLE_MACLMT},
    {3, 17},
};

uint32_t Np_NullRecord(NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, NP_M_ARL, NP_PRINT_ERROR, "Para null ptr\r\n");
    return NP_ERR_NULL_PTR;
}

uint32_t Np_Failed(uint32_t ulReturn, NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, NP_M_ARL, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
    return ulReturn;
}

inline void Np_EntryTrace(uint32_t ulChipID, NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, NP_M_ARL, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
}

// Both tables' info records have the same words.
template <typename Info>
void Np_InfoFill(uint32_t ulStatus, uint32_t ulIndex, bool bByIndex, Info *pstInfo)
{
    uint32_t ulMacType = ulStatus == NP_EML_STATUS_STATIC ? NP_MAC_STATIC : NP_MAC_DYNAMIC;
    if (bByIndex && ulStatus == NP_EML_STATUS_EMPTY) {
        ulMacType = NP_MAC_NONE;
    }
    *pstInfo = {ulMacType, ulStatus, ulIndex};
}

// ---- what a dynamic entry gives back ------------------------------------------------------------

// An identifier that the counter type hasn't would reach another table's memory.
uint32_t Np_CreditBack(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID)
{
    if (ulCntID >= g_asttarnNpCntConfigDesc[ulChipID][ulCntType].ulCntNum) {
        return NP_OK;
    }
    uint32_t ulOne = 1;
    return Np_Tarn_CntAdd(ulChipID, ulCntType, ulCntID, &ulOne);
}

uint32_t Np_ArlCreditBack(uint32_t ulChipID, const NpArlData *pstData)
{
    for (const NpCredit &stCredit : g_astCredit) {
        if (stCredit.ulOpCode == pstData->stLearnData.ulOpCode) {
            const uint32_t ulReturn =
                Np_CreditBack(ulChipID, stCredit.ulCntType, pstData->stLearnData.ulIntfID);
            if (ulReturn != NP_OK) {
                return ulReturn;
            }
        }
    }
    uint32_t ulLimits;
    const uint32_t ulReturn = Np_Read(ulChipID, NP_GLOBAL_LIMIT_REG, &ulLimits);
    if (ulReturn != NP_OK || (ulLimits & NP_GLOBAL_LIMIT_ON) == 0) {
        return ulReturn;
    }
    return Np_CreditBack(ulChipID, NP_CNT_GLB_MAC_LMT, 0);
}

uint32_t Np_ArlReplaced(uint32_t ulChipID, const uint32_t *pulItem, bool bGone, NpWhere stWhere)
{
    NpArlData stData;
    uint32_t ulReturn = Np_Row_Parse(&g_stArlDataRow, ulChipID, pulItem, &stData, stWhere);
    const bool bPort = (pulItem[3] >> 24 & 0xf) == NP_ARL_TYPE_PORT;
    if (ulReturn == NP_OK && !bPort) {
        ulReturn = Np_ArlCreditBack(ulChipID, &stData);
    }
    const bool bHasRow =
        bGone && stData.ulVmac == 1 && stData.ulVmacID < Np_GLB_CapGet(NP_CAP_UVT_ROWS);
    if (ulReturn != NP_OK || !bHasRow) {
        return ulReturn;
    }
    return Np_Tarn_SECU_UvtFlagSet(ulChipID, stData.ulVmacID,
                                   bPort ? NP_UVT_UMAC_USED : NP_UVT_VMAC_USED, 0, stWhere);
}

uint32_t Np_LanMacReplaced(uint32_t ulChipID, const uint32_t *pulItem, bool, NpWhere stWhere)
{
    NpLanMacData stData;
    uint32_t ulReturn = Np_Row_Parse(&g_stLanMacDataRow, ulChipID, pulItem, &stData, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn = Np_CreditBack(ulChipID, NP_CNT_GLB_LANMAC_LIMIT, 0);
    }
    if (ulReturn != NP_OK || stData.ulL2encId == NP_LAN_NO_PORT) {
        return ulReturn;
    }
    return Np_CreditBack(ulChipID, NP_CNT_PORT_MAC_LIMIT, stData.ulL2encId);
}

// A null info is refused as a null record is.
template <typename Info>
uint32_t Np_MacGet(const NpExactTable &stTable, uint32_t ulChipID, const void *pvKey, void *pvData,
                   Info *pstInfo, NpWhere stWhere = Np_Here())
{
    NpExactMet stMet;
    const uint32_t ulReturn = Np_Exact_Get(&stTable, ulChipID, pvKey,
                                           pstInfo != nullptr ? pvData : nullptr, &stMet, stWhere);
    if (ulReturn == NP_OK) {
        Np_InfoFill(stMet.ulStatus, stMet.ulIndex, false, pstInfo);
    }
    return ulReturn;
}

template <typename Info>
uint32_t Np_MacGetByIndex(const NpExactTable &stTable, uint32_t ulChipID, uint32_t ulIndex,
                          void *pvKey, void *pvData, Info *pstInfo, NpWhere stWhere = Np_Here())
{
    NpExactMet stMet;
    const uint32_t ulReturn =
        Np_Exact_GetByIndex(&stTable, ulChipID, &ulIndex, pvKey,
                            pstInfo != nullptr ? pvData : nullptr, &stMet, stWhere);
    if (ulReturn == NP_OK) {
        Np_InfoFill(stMet.ulStatus, stMet.ulIndex, true, pstInfo);
    }
    return ulReturn;
}

}  // namespace

constexpr NpExactTable g_stArlTable = Np_ExactOf({.stKey = g_stArlKeyRow,
                                                  .stData = g_stArlDataRow,
                                                  .stPlace = g_stArlIndexArgs,
                                                  .ulEmlTable = NP_EML_MAC,
                                                  .ulDataBits = NP_AD_BITS,
                                                  .pstDel = &g_stMacDelTypeArgs,
                                                  .pstInfo = &g_stArlInfoRow,
                                                  .enLook = NP_LOOK_MUST,
                                                  .pfnReplaced = Np_ArlReplaced});
constexpr NpExactTable g_stLanMacTable = Np_ExactOf({.stKey = g_stLanMacKeyRow,
                                                     .stData = g_stLanMacDataRow,
                                                     .stPlace = g_stLanMacIndexArgs,
                                                     .ulEmlTable = NP_EML_LAN_MAC,
                                                     .ulDataBits = NP_AD_BITS,
                                                     .pstDel = &g_stMacDelTypeArgs,
                                                     .pstInfo = &g_stArlInfoRow,
                                                     .enLook = NP_LOOK_MUST,
                                                     .pfnReplaced = Np_LanMacReplaced});

extern "C" {

uint32_t Np_Tarn_Arl_Init(uint32_t ulChipID)
{
    Np_EntryTrace(ulChipID, Np_Here());
    return NP_OK;
}

uint32_t Np_Tarn_Arl_Destruct(uint32_t ulChipID)
{
    Np_EntryTrace(ulChipID, Np_Here());
    return NP_OK;
}

uint32_t Np_Tarn_Arl_ArlTblKeyBulid(uint32_t ulChipID, const NpArlKey *pstArlKey, void *pstItem)
{
    return Np_Exact_KeyBuild(&g_stArlTable, ulChipID, pstArlKey, pstItem);
}

uint32_t Np_Tarn_Arl_ArlTblAdBulid(uint32_t ulChipID, const NpArlData *pstArlData, void *pstItem)
{
    return Np_Exact_DataBuild(&g_stArlTable, ulChipID, pstArlData, pstItem);
}

uint32_t Np_Tarn_Arl_ArlTblKeyParse(uint32_t ulChipID, const void *pstItem, NpArlKey *pstArlKey)
{
    return Np_Row_Parse(&g_stArlKeyRow, ulChipID, pstItem, pstArlKey);
}

uint32_t Np_Tarn_Arl_ArlTblAdParse(uint32_t ulChipID, const void *pstItem, uint32_t *pulStatus,
                                   NpArlData *pstArlData)
{
    *pulStatus = Np_MacStatus(static_cast<const uint32_t *>(pstItem));
    return Np_Row_Parse(&g_stArlDataRow, ulChipID, pstItem, pstArlData);
}

// Type and VSI, which this key hasn't, are 0.
uint32_t Np_Tarn_Arl_LanMacTblKeyBulid(uint32_t ulChipID, const NpLanMacKey *pstLanMacKey,
                                       void *pstItem)
{
    return Np_Exact_KeyBuild(&g_stLanMacTable, ulChipID, pstLanMacKey, pstItem);
}

uint32_t Np_Tarn_Arl_LanMacTblAdBulid(uint32_t ulChipID, const NpLanMacData *pstLanMacData,
                                      void *pstItem)
{
    return Np_Exact_DataBuild(&g_stLanMacTable, ulChipID, pstLanMacData, pstItem);
}

uint32_t Np_Tarn_Arl_LanMacTblKeyParse(uint32_t ulChipID, const void *pstItem,
                                       NpLanMacKey *pstLanMacKey)
{
    return Np_Row_Parse(&g_stLanMacKeyRow, ulChipID, pstItem, pstLanMacKey);
}

uint32_t Np_Tarn_Arl_LanMacTblAdParse(uint32_t ulChipID, const void *pstItem, uint32_t *pulStatus,
                                      NpLanMacData *pstLanMacData)
{
    *pulStatus = Np_MacStatus(static_cast<const uint32_t *>(pstItem));
    return Np_Row_Parse(&g_stLanMacDataRow, ulChipID, pstItem, pstLanMacData);
}

uint32_t Np_Tarn_Arl_ArlTbl_Add(uint32_t ulChipID, const NpArlKey *pstArlKey,
                                const NpArlData *pstArlData)
{
    return Np_Exact_Add(&g_stArlTable, ulChipID, pstArlKey, pstArlData);
}

uint32_t Np_Tarn_Arl_ArlTbl_Del(uint32_t ulChipID, uint32_t ulMacDelType, const NpArlKey *pstArlKey)
{
    return Np_Exact_Del(&g_stArlTable, ulChipID, ulMacDelType, pstArlKey);
}

uint32_t Np_Tarn_Arl_ArlTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex)
{
    return Np_Exact_DelByIndex(&g_stArlTable, ulChipID, &ulIndex);
}

uint32_t Np_Tarn_Arl_ArlTbl_Get(uint32_t ulChipID, const NpArlKey *pstArlKey, NpArlData *pstArlData,
                                NpArlInfo *pstArlInfo)
{
    return Np_MacGet(g_stArlTable, ulChipID, pstArlKey, pstArlData, pstArlInfo);
}

uint32_t Np_Tarn_Arl_ArlTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex, NpArlKey *pstArlKey,
                                       NpArlData *pstArlData, NpArlInfo *pstArlInfo)
{
    return Np_MacGetByIndex(g_stArlTable, ulChipID, ulIndex, pstArlKey, pstArlData, pstArlInfo);
}

uint32_t Np_Tarn_Arl_LanMacTbl_Add(uint32_t ulChipID, const NpLanMacKey *pstLanMacKey,
                                   const NpLanMacData *pstLanMacData)
{
    return Np_Exact_Add(&g_stLanMacTable, ulChipID, pstLanMacKey, pstLanMacData);
}

uint32_t Np_Tarn_Arl_LanMacTbl_Del(uint32_t ulChipID, uint32_t ulMacDelType,
                                   const NpLanMacKey *pstLanMacKey)
{
    return Np_Exact_Del(&g_stLanMacTable, ulChipID, ulMacDelType, pstLanMacKey);
}

uint32_t Np_Tarn_Arl_LanMacTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex)
{
    return Np_Exact_DelByIndex(&g_stLanMacTable, ulChipID, &ulIndex);
}

uint32_t Np_Tarn_Arl_LanMacTbl_Get(uint32_t ulChipID, const NpLanMacKey *pstLanMacKey,
                                   NpLanMacData *pstLanMacData, NpLanMacInfo *pstLanMacInfo)
{
    return Np_MacGet(g_stLanMacTable, ulChipID, pstLanMacKey, pstLanMacData, pstLanMacInfo);
}

uint32_t Np_Tarn_Arl_LanMacTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex,
                                          NpLanMacKey *pstLanMacKey, NpLanMacData *pstLanMacData,
                                          NpLanMacInfo *pstLanMacInfo)
{
    return Np_MacGetByIndex(g_stLanMacTable, ulChipID, ulIndex, pstLanMacKey, pstLanMacData,
                            pstLanMacInfo);
}

// ---- learning -----------------------------------------------------------------------------------

uint32_t Np_Tarn_ArlTbl_DynamicArlLrn(uint32_t ulChipID, const NpDynamicLrn *pstDynamicLrn)
{
    Np_EntryTrace(ulChipID, Np_Here());
    if (pstDynamicLrn == nullptr) {
        return Np_NullRecord(Np_Here());
    }
    const NpArlKey *pstKey = &pstDynamicLrn->stArlKey;
    const NpArlData *pstData = &pstDynamicLrn->stArlData;
    Np_Row_Trace(&g_stArlKeyRow, pstKey);
    Np_Row_Trace(&g_stArlDataRow, pstData);
    uint32_t ulReturn = Np_Row_Check(&g_stArlKeyRow, ulChipID, pstKey);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Check(&g_stArlDataRow, ulChipID, pstData);
    }
    NpExactItem stItem = {};
    if (ulReturn == NP_OK) {
        ulReturn = Np_Tarn_Arl_ArlTblKeyBulid(ulChipID, pstKey, stItem.aulWord);
    }
    if (ulReturn == NP_OK) {
        ulReturn = Np_Tarn_Arl_ArlTblAdBulid(ulChipID, pstData, stItem.aulWord);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_MacStatusSet(stItem.aulWord, NP_LEARN_STATUS);
    ulReturn = Np_Tarn_CputrMsg_DynamicArlLrnInfoSet(ulChipID,
                                                     reinterpret_cast<uint8_t *>(stItem.aulWord));
    return ulReturn == NP_OK ? NP_OK : Np_Failed(ulReturn, Np_Here());
}

uint32_t Np_Tarn_ArlTbl_DynamicArlLrnStatetTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                                   NpDynamicLrnState *pstDynamicLrnState)
{
    return Np_Table_Get(&g_stLearnStateTable, ulChipID, &ulIndex, pstDynamicLrnState);
}

uint32_t Np_Tarn_ArlTbl_DynamicArlLrnStateTbl_Clear(uint32_t ulChipID, uint32_t ulIndex)
{
    const NpDynamicLrnState stNone = {};
    return Np_Table_Set(&g_stLearnStateTable, ulChipID, &ulIndex, &stNone);
}

uint32_t Np_Tarn_Arl_HashCrashRecord_Read(uint32_t ulChipID, NpArlKey *pstArlKey,
                                          NpArlData *pstArlData, NpArlInfo *pstArlInfo)
{
    if (pstArlKey == nullptr || pstArlData == nullptr || pstArlInfo == nullptr) {
        return Np_NullRecord(Np_Here());
    }
    NpExactItem stItem;
    uint32_t ulReturn = Np_RegTableRead(ulChipID, NP_COLLISION_TABLE, 0, stItem.aulWord);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_ARL, NP_PRINT_ERROR, "Read error return:0x%08x  ID:0x%08x Offset:0x%08x\r\n",
                 ulReturn, NP_COLLISION_TABLE, 0u);
        return ulReturn;
    }
    ulReturn = Np_Tarn_Arl_ArlTblKeyParse(ulChipID, stItem.aulWord, pstArlKey);
    uint32_t ulStatus = 0;
    if (ulReturn == NP_OK) {
        ulReturn = Np_Tarn_Arl_ArlTblAdParse(ulChipID, stItem.aulWord, &ulStatus, pstArlData);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_InfoFill(ulStatus, 0, false, pstArlInfo);
    Np_Row_Trace(&g_stArlKeyRow, pstArlKey);
    Np_Row_Trace(&g_stArlDataRow, pstArlData);
    const NpExactItem stNone = {};
    ulReturn = Np_RegTableWrite(ulChipID, NP_COLLISION_TABLE, 0, stNone.aulWord);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_ARL, NP_PRINT_ERROR, "Write error return:0x%08x ID:0x%08x Offset:0x%08x\r\n",
                 ulReturn, NP_COLLISION_TABLE, 0u);
    }
    return ulReturn;
}

}  // extern "C"

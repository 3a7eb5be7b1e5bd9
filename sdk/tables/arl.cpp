// Entries of the MAC table and of the LAN MAC table. What is done to an entry is the same in both;
// a table says where its entries are, how they read, and what an entry that goes gives back.
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

// Bits of an item that are the AD's, the key's, and the status.
inline constexpr uint32_t NP_AD_BITS[NP_MAC_ITEM_WORDS] = {0xffffffff, 0x000fffff, 0, 0};
inline constexpr uint32_t NP_KEY_BITS[NP_MAC_ITEM_WORDS] = {0, 0xfff00000, 0xffffffff, 0x0fffffff};

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

// A table of the two. Records are plain memory here.
struct NpMacTable {
    uint32_t ulEmlTable;
    const NpRow *pstKey;
    const NpRow *pstData;
    const NpRow *pstIndex;
    // What follows when a dynamic entry, given by its old item, was made static (bGone false) or
    // went.
    uint32_t (*pfnReplaced)(uint32_t ulChipID, const uint32_t *pulItem, bool bGone,
                            NpWhere stWhere);
};

struct NpItem {
    uint32_t aulWord[NP_MAC_ITEM_WORDS];
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

// ---- parts of an item -------------------------------------------------------------------------

inline void Np_BitsClear(void *pvItem, const uint32_t (&aulBits)[NP_MAC_ITEM_WORDS])
{
    uint32_t *pulItem = static_cast<uint32_t *>(pvItem);
    for (uint32_t i = 0; i < NP_MAC_ITEM_WORDS; i++) {
        pulItem[i] &= ~aulBits[i];
    }
}

uint32_t Np_KeyBuild(const NpRow *pstRow, uint32_t ulChipID, const void *pvKey, void *pvItem,
                     NpWhere stWhere)
{
    Np_BitsClear(pvItem, NP_KEY_BITS);
    Np_MacStatusSet(static_cast<uint32_t *>(pvItem), NP_EML_STATUS_STATIC);
    return Np_Row_Fill(pstRow, ulChipID, pvKey, pvItem, stWhere);
}

uint32_t Np_AdBuild(const NpRow *pstRow, uint32_t ulChipID, const void *pvData, void *pvItem,
                    NpWhere stWhere)
{
    Np_BitsClear(pvItem, NP_AD_BITS);
    return Np_Row_Fill(pstRow, ulChipID, pvData, pvItem, stWhere);
}

void Np_InfoFill(uint32_t ulStatus, uint32_t ulIndex, bool bByIndex, NpArlInfo *pstInfo)
{
    pstInfo->ulMacType = ulStatus == NP_EML_STATUS_STATIC ? NP_MAC_STATIC : NP_MAC_DYNAMIC;
    if (bByIndex && ulStatus == NP_EML_STATUS_EMPTY) {
        pstInfo->ulMacType = NP_MAC_NONE;
    }
    pstInfo->ulVas = ulStatus;
    pstInfo->ulKeyIndex = ulIndex;
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

constexpr NpMacTable g_stArl = {NP_EML_MAC, &g_stArlKeyRow, &g_stArlDataRow, &g_stArlIndexArgs,
                                Np_ArlReplaced};
constexpr NpMacTable g_stLanMac = {NP_EML_LAN_MAC, &g_stLanMacKeyRow, &g_stLanMacDataRow,
                                   &g_stLanMacIndexArgs, Np_LanMacReplaced};

// ---- entries ------------------------------------------------------------------------------------

inline bool Np_IsDynamic(const NpItem &stItem)
{
    const uint32_t ulStatus = Np_MacStatus(stItem.aulWord);
    return ulStatus != NP_EML_STATUS_EMPTY && ulStatus != NP_EML_STATUS_STATIC;
}

// Tells what an entry that was there has become.
uint32_t Np_Settle(const NpMacTable &stTable, uint32_t ulChipID, const NpItem &stOld, bool bGone,
                   NpWhere stWhere)
{
    const uint32_t ulReturn =
        Np_IsDynamic(stOld) ? stTable.pfnReplaced(ulChipID, stOld.aulWord, bGone, stWhere) : NP_OK;
    return ulReturn == NP_OK ? NP_OK : Np_Failed(ulReturn, stWhere);
}

// What the table has for a key. One that is not there leaves the item as the build made it; one
// that cannot be looked up may hold a credit that would be lost.
uint32_t Np_MacLook(const NpMacTable &stTable, uint32_t ulChipID, NpItem *pstItem)
{
    const uint32_t ulReturn =
        Np_Tarn_EML_ItemGet(ulChipID, stTable.ulEmlTable, nullptr, nullptr, pstItem->aulWord);
    return ulReturn == NP_ERR_NOT_EXIST ? NP_OK : ulReturn;
}

uint32_t Np_MacAdd(const NpMacTable &stTable, uint32_t ulChipID, const void *pvKey,
                   const void *pvData, NpWhere stWhere = Np_Here())
{
    Np_EntryTrace(ulChipID, stWhere);
    if (pvKey == nullptr || pvData == nullptr) {
        return Np_NullRecord(stWhere);
    }
    Np_Row_Trace(stTable.pstKey, pvKey, stWhere);
    Np_Row_Trace(stTable.pstData, pvData, stWhere);
    uint32_t ulReturn = Np_Row_Check(stTable.pstKey, ulChipID, pvKey, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Check(stTable.pstData, ulChipID, pvData, stWhere);
    }
    NpItem stItem = {};
    if (ulReturn == NP_OK) {
        ulReturn = Np_KeyBuild(stTable.pstKey, ulChipID, pvKey, stItem.aulWord, stWhere);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_MacLook(stTable, ulChipID, &stItem);
    if (ulReturn != NP_OK) {
        return Np_Failed(ulReturn, stWhere);
    }
    const NpItem stOld = stItem;
    Np_MacStatusSet(stItem.aulWord, NP_EML_STATUS_STATIC);
    ulReturn = Np_AdBuild(stTable.pstData, ulChipID, pvData, stItem.aulWord, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    uint32_t ulLocation;
    ulReturn =
        Np_Tarn_EML_ItemAdd(ulChipID, stTable.ulEmlTable, &ulLocation, nullptr, stItem.aulWord);
    if (ulReturn != NP_OK) {
        return Np_Failed(ulReturn, stWhere);
    }
    return Np_Settle(stTable, ulChipID, stOld, false, stWhere);
}

uint32_t Np_MacDel(const NpMacTable &stTable, uint32_t ulChipID, uint32_t ulDelType,
                   const void *pvKey, NpWhere stWhere = Np_Here())
{
    Np_EntryTrace(ulChipID, stWhere);
    uint32_t ulReturn = Np_Row_Check(&g_stMacDelTypeArgs, ulChipID, &ulDelType, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pvKey == nullptr) {
        return Np_NullRecord(stWhere);
    }
    Np_Row_Trace(stTable.pstKey, pvKey, stWhere);
    ulReturn = Np_Row_Check(stTable.pstKey, ulChipID, pvKey, stWhere);
    NpItem stItem = {};
    if (ulReturn == NP_OK) {
        ulReturn = Np_KeyBuild(stTable.pstKey, ulChipID, pvKey, stItem.aulWord, stWhere);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_MacLook(stTable, ulChipID, &stItem);
    if (ulReturn != NP_OK) {
        return Np_Failed(ulReturn, stWhere);
    }
    const NpItem stOld = stItem;
    ulReturn = Np_Tarn_EML_ItemDel(ulChipID, stTable.ulEmlTable, ulDelType, stItem.aulWord);
    if (ulReturn != NP_OK) {
        return Np_Failed(ulReturn, stWhere);
    }
    // A delete of static entries leaves a dynamic one, and its credit, where they are.
    return ulDelType == NP_EML_DEL_STATIC ? NP_OK
                                          : Np_Settle(stTable, ulChipID, stOld, true, stWhere);
}

uint32_t Np_MacPlaceRead(const NpMacTable &stTable, uint32_t ulChipID, uint32_t ulIndex,
                         NpItem *pstItem, NpWhere stWhere)
{
    uint32_t ulReturn = Np_Row_Check(stTable.pstIndex, ulChipID, &ulIndex, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_Tarn_EML_ItemGetByIndex(ulChipID, stTable.ulEmlTable, NP_EML_IN_TABLE, ulIndex,
                                          pstItem->aulWord);
    return ulReturn == NP_OK ? NP_OK : Np_Failed(ulReturn, stWhere);
}

uint32_t Np_MacDelByIndex(const NpMacTable &stTable, uint32_t ulChipID, uint32_t ulIndex,
                          NpWhere stWhere = Np_Here())
{
    Np_EntryTrace(ulChipID, stWhere);
    NpItem stOld = {};
    uint32_t ulReturn = Np_MacPlaceRead(stTable, ulChipID, ulIndex, &stOld, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_Tarn_EML_ItemDelByIndex(ulChipID, stTable.ulEmlTable, NP_EML_IN_TABLE, ulIndex);
    if (ulReturn != NP_OK) {
        return Np_Failed(ulReturn, stWhere);
    }
    return Np_Settle(stTable, ulChipID, stOld, true, stWhere);
}

uint32_t Np_MacGet(const NpMacTable &stTable, uint32_t ulChipID, const void *pvKey, void *pvData,
                   NpArlInfo *pstInfo, NpWhere stWhere = Np_Here())
{
    Np_EntryTrace(ulChipID, stWhere);
    if (pvKey == nullptr || pvData == nullptr || pstInfo == nullptr) {
        return Np_NullRecord(stWhere);
    }
    Np_Row_Trace(stTable.pstKey, pvKey, stWhere);
    uint32_t ulReturn = Np_Row_Check(stTable.pstKey, ulChipID, pvKey, stWhere);
    NpItem stItem = {};
    if (ulReturn == NP_OK) {
        ulReturn = Np_KeyBuild(stTable.pstKey, ulChipID, pvKey, stItem.aulWord, stWhere);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    uint32_t ulIndex = 0;
    ulReturn = Np_Tarn_EML_ItemGet(ulChipID, stTable.ulEmlTable, nullptr, &ulIndex, stItem.aulWord);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Parse(stTable.pstData, ulChipID, stItem.aulWord, pvData, stWhere);
    }
    if (ulReturn != NP_OK) {
        return Np_Failed(ulReturn, stWhere);
    }
    Np_InfoFill(Np_MacStatus(stItem.aulWord), ulIndex, false, pstInfo);
    Np_Row_Trace(stTable.pstData, pvData, stWhere);
    return NP_OK;
}

uint32_t Np_MacGetByIndex(const NpMacTable &stTable, uint32_t ulChipID, uint32_t ulIndex,
                          void *pvKey, void *pvData, NpArlInfo *pstInfo,
                          NpWhere stWhere = Np_Here())
{
    Np_EntryTrace(ulChipID, stWhere);
    if (pvKey == nullptr || pvData == nullptr || pstInfo == nullptr) {
        return Np_NullRecord(stWhere);
    }
    NpItem stItem = {};
    uint32_t ulReturn = Np_MacPlaceRead(stTable, ulChipID, ulIndex, &stItem, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Parse(stTable.pstKey, ulChipID, stItem.aulWord, pvKey, stWhere);
    }
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Parse(stTable.pstData, ulChipID, stItem.aulWord, pvData, stWhere);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_InfoFill(Np_MacStatus(stItem.aulWord), ulIndex, true, pstInfo);
    Np_Row_Trace(stTable.pstKey, pvKey, stWhere);
    Np_Row_Trace(stTable.pstData, pvData, stWhere);
    return NP_OK;
}

// The LAN table's info record has the same words.
void Np_LanInfoCopy(const NpArlInfo &stInfo, NpLanMacInfo *pstInfo)
{
    *pstInfo = {stInfo.ulMacType, stInfo.ulVas, stInfo.ulKeyIndex};
}

}  // namespace

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
    return Np_KeyBuild(&g_stArlKeyRow, ulChipID, pstArlKey, pstItem, Np_Here());
}

uint32_t Np_Tarn_Arl_ArlTblAdBulid(uint32_t ulChipID, const NpArlData *pstArlData, void *pstItem)
{
    return Np_AdBuild(&g_stArlDataRow, ulChipID, pstArlData, pstItem, Np_Here());
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
    return Np_KeyBuild(&g_stLanMacKeyRow, ulChipID, pstLanMacKey, pstItem, Np_Here());
}

uint32_t Np_Tarn_Arl_LanMacTblAdBulid(uint32_t ulChipID, const NpLanMacData *pstLanMacData,
                                      void *pstItem)
{
    return Np_AdBuild(&g_stLanMacDataRow, ulChipID, pstLanMacData, pstItem, Np_Here());
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
    return Np_MacAdd(g_stArl, ulChipID, pstArlKey, pstArlData);
}

uint32_t Np_Tarn_Arl_ArlTbl_Del(uint32_t ulChipID, uint32_t ulMacDelType, const NpArlKey *pstArlKey)
{
    return Np_MacDel(g_stArl, ulChipID, ulMacDelType, pstArlKey);
}

uint32_t Np_Tarn_Arl_ArlTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex)
{
    return Np_MacDelByIndex(g_stArl, ulChipID, ulIndex);
}

uint32_t Np_Tarn_Arl_ArlTbl_Get(uint32_t ulChipID, const NpArlKey *pstArlKey, NpArlData *pstArlData,
                                NpArlInfo *pstArlInfo)
{
    return Np_MacGet(g_stArl, ulChipID, pstArlKey, pstArlData, pstArlInfo);
}

uint32_t Np_Tarn_Arl_ArlTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex, NpArlKey *pstArlKey,
                                       NpArlData *pstArlData, NpArlInfo *pstArlInfo)
{
    return Np_MacGetByIndex(g_stArl, ulChipID, ulIndex, pstArlKey, pstArlData, pstArlInfo);
}

uint32_t Np_Tarn_Arl_LanMacTbl_Add(uint32_t ulChipID, const NpLanMacKey *pstLanMacKey,
                                   const NpLanMacData *pstLanMacData)
{
    return Np_MacAdd(g_stLanMac, ulChipID, pstLanMacKey, pstLanMacData);
}

uint32_t Np_Tarn_Arl_LanMacTbl_Del(uint32_t ulChipID, uint32_t ulMacDelType,
                                   const NpLanMacKey *pstLanMacKey)
{
    return Np_MacDel(g_stLanMac, ulChipID, ulMacDelType, pstLanMacKey);
}

uint32_t Np_Tarn_Arl_LanMacTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex)
{
    return Np_MacDelByIndex(g_stLanMac, ulChipID, ulIndex);
}

uint32_t Np_Tarn_Arl_LanMacTbl_Get(uint32_t ulChipID, const NpLanMacKey *pstLanMacKey,
                                   NpLanMacData *pstLanMacData, NpLanMacInfo *pstLanMacInfo)
{
    NpArlInfo stInfo;
    const uint32_t ulReturn = Np_MacGet(g_stLanMac, ulChipID, pstLanMacKey, pstLanMacData,
                                        pstLanMacInfo != nullptr ? &stInfo : nullptr);
    if (ulReturn == NP_OK) {
        Np_LanInfoCopy(stInfo, pstLanMacInfo);
    }
    return ulReturn;
}

uint32_t Np_Tarn_Arl_LanMacTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex,
                                          NpLanMacKey *pstLanMacKey, NpLanMacData *pstLanMacData,
                                          NpLanMacInfo *pstLanMacInfo)
{
    NpArlInfo stInfo;
    const uint32_t ulReturn =
        Np_MacGetByIndex(g_stLanMac, ulChipID, ulIndex, pstLanMacKey, pstLanMacData,
                         pstLanMacInfo != nullptr ? &stInfo : nullptr);
    if (ulReturn == NP_OK) {
        Np_LanInfoCopy(stInfo, pstLanMacInfo);
    }
    return ulReturn;
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
    NpItem stItem = {};
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
    NpItem stItem;
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
    const NpItem stNone = {};
    ulReturn = Np_RegTableWrite(ulChipID, NP_COLLISION_TABLE, 0, stNone.aulWord);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_ARL, NP_PRINT_ERROR, "Write error return:0x%08x ID:0x%08x Offset:0x%08x\r\n",
                 ulReturn, NP_COLLISION_TABLE, 0u);
    }
    return ulReturn;
}

}  // extern "C"

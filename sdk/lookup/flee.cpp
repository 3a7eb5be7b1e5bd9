#include "sdk/lookup/flee.h"

#include "sdk/access/stack.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/text.h"
#include "sdk/lookup/eml.h"
#include "sdk/lookup/eml_check.h"
#include "sdk/lookup/eml_item.h"
#include "sdk/lookup/lcam.h"

constinit const NpMapPair g_astEmlFleeBucketMap[NP_FLEE_MAP_NUM] = {
    {0, 0}, {6, 6}, {3, 3}, {5, 5}, {4, 4}, {8, 8}, {9, 9}, {7, 7}, {10, 10}, {16, 16}, {17, 17}};

constinit NpFleeKeyInfo g_astEmlFleeBucketTcamKeyInfo[NP_CHIP_NUM * NP_FLEE_ENTRY_NUM] = {};
constinit uint32_t g_aulEMLLmDatataFleeBucketValid[NP_CHIP_NUM * NP_FLEE_ENTRY_NUM] = {};

namespace {

inline constexpr uint32_t NP_FLEE_TYPE_MAX = 0x11;
inline constexpr uint32_t NP_FLEE_KEY_MAX = 20;
inline constexpr uint32_t NP_FLEE_AD_MAX = 16;

// One store: a TCAM table, its entries' form, and how they are numbered. The key's last byte holds
// the owner's number.
struct NpFleeStore {
    uint32_t ulLcamTable;
    NpCapSlot enKeyNum;  // capability slot with the number of keys
    uint32_t ulKeySize;  // bytes
    uint32_t ulAdSize;
    bool bLmData;
};

constexpr NpFleeStore g_stFlee = {NP_LCAM_FLEE_BUCKET, NP_CAP_FLEE_KEY_NUM, 10, 8, false};
constexpr NpFleeStore g_stLmFlee = {NP_LCAM_LM_FLEE, NP_CAP_LM_FLEE_KEY_NUM, 20, 16, true};

// The entry as it goes to the TCAM.
struct NpFleeEntry {
    uint8_t aucKey[NP_FLEE_KEY_MAX];
    uint8_t aucAd[NP_FLEE_AD_MAX];
};

constexpr auto g_aucFleeMask = [] {
    std::array<uint8_t, NP_FLEE_KEY_MAX> aucMask = {};
    for (uint8_t &ucByte : aucMask) {
        ucByte = 0xff;
    }
    return aucMask;
}();

uint8_t Np_FleeStackOf(uint32_t ulTableID)
{
    switch (ulTableID) {
        case NP_EML_GMT:
            return NP_STACK_FLEE_GMT;
        case NP_EML_OAM_LM_DATAPKT:
            return NP_STACK_FLEE_LM;
        default:
            return NP_STACK_FLEE;
    }
}

// Of the LM data store the owner is known: table 8.
uint32_t Np_EntryOwner(const NpFleeStore &stStore, uint32_t ulChipID, uint32_t ulKeyID)
{
    return stStore.bLmData ? uint32_t{NP_EML_OAM_LM_DATAPKT} : Np_FleeOwner(ulChipID, ulKeyID);
}

bool Np_EntryUsed(const NpFleeStore &stStore, uint32_t ulChipID, uint32_t ulKeyID)
{
    const uint32_t ulSlot = ulChipID * NP_FLEE_ENTRY_NUM + ulKeyID;
    return (stStore.bLmData ? g_aulEMLLmDatataFleeBucketValid[ulSlot]
                            : g_astEmlFleeBucketTcamKeyInfo[ulSlot].ulValid) == 1;
}

void Np_EntryMark(const NpFleeStore &stStore, uint32_t ulChipID, uint32_t ulKeyID,
                  const NpFleeKeyInfo &stInfo)
{
    const uint32_t ulSlot = ulChipID * NP_FLEE_ENTRY_NUM + ulKeyID;
    if (stStore.bLmData) {
        g_aulEMLLmDatataFleeBucketValid[ulSlot] = stInfo.ulValid;
        return;
    }
    g_astEmlFleeBucketTcamKeyInfo[ulSlot] = stInfo;
}

// The key of an entry. A key of the TCAM has four bits less than its bytes, so the owner's number
// keeps its low nibble only.
void Np_EntryKey(const NpFleeStore &stStore, const NpEmlConfig *pstConfig, uint32_t ulOwner,
                 const uint8_t *pucItem, uint8_t *pucKey)
{
    memset(pucKey, 0, stStore.ulKeySize);
    Np_EmlKeyGet(pstConfig, pucItem, pucKey);
    pucKey[stStore.ulKeySize - 1] = static_cast<uint8_t>(ulOwner & 0x0f);
}

uint32_t Np_KeyIdCheck(const NpFleeStore &stStore, uint32_t ulKeyID, NpWhere stWhere = Np_Here())
{
    NP_EML_REFUSE_AT(stWhere, ulKeyID >= Np_GLB_CapGet(stStore.enKeyNum), NP_ERR_PARAM,
                     "[ERROR] param error! ulKeyID=0x%08x\r\n", ulKeyID);
    return NP_OK;
}

uint32_t Np_ItemTableOf(uint32_t ulItemType, uint32_t *pulTableID, NpWhere stWhere = Np_Here())
{
    NP_EML_REFUSE_AT(stWhere,
                     Np_Tarn_Map_GetNpValue(g_astEmlFleeBucketMap, NP_FLEE_MAP_NUM, ulItemType,
                                            pulTableID) != NP_OK,
                     NP_ERR_MAP_NP,
                     "g_astEmlFleeBucketMap para map from external(%u) to NP failed!\r\n",
                     ulItemType);
    return NP_OK;
}

uint32_t Np_EntrySet(const NpFleeStore &stStore, uint32_t ulChipID, uint32_t ulKeyID,
                     uint32_t ulItemType, const void *pvData, NpWhere stWhere = Np_Here())
{
    uint32_t ulReturn = Np_KeyIdCheck(stStore, ulKeyID, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NP_EML_REFUSE_AT(stWhere, ulItemType > NP_FLEE_TYPE_MAX, NP_ERR_PARAM,
                     "param error! (ulItemType)=0x%08x\r\n", ulItemType);
    NP_EML_REFUSE_NULL_AT(stWhere, pvData == nullptr);
    uint32_t ulTableID;
    ulReturn = Np_ItemTableOf(ulItemType, &ulTableID, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    const uint8_t *pucItem = static_cast<const uint8_t *>(pvData);
    NpFleeEntry stEntry;
    Np_EntryKey(stStore, pstConfig, ulItemType, pucItem, stEntry.aucKey);
    memset(stEntry.aucAd, 0, sizeof(stEntry.aucAd));
    Np_EmlShiftedAdPut(pstConfig, pucItem, stEntry.aucAd, stStore.ulAdSize);
    ulReturn = Np_Tarn_LCAM_TcamWrite(ulChipID, stStore.ulLcamTable, ulKeyID, stEntry.aucKey,
                                      g_aucFleeMask.data(), stEntry.aucAd);
    if (ulReturn == NP_ERR_TCAM_WRITE) {
        // It stopped between valid bit and mask. An entry that was there matches again, a new one
        // goes: the chip has what the bookkeeping says.
        if (Np_EntryUsed(stStore, ulChipID, ulKeyID)) {
            Np_Tarn_LCAM_TcamWrite(ulChipID, stStore.ulLcamTable, ulKeyID, stEntry.aucKey,
                                   g_aucFleeMask.data(), nullptr);
        }
        else {
            Np_Tarn_LCAM_TcamDelete(ulChipID, stStore.ulLcamTable, ulKeyID);
        }
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_EntryMark(stStore, ulChipID, ulKeyID, {ulItemType, 1});
    return NP_OK;
}

uint32_t Np_EntryGet(const NpFleeStore &stStore, uint32_t ulChipID, uint32_t ulKeyID,
                     uint32_t *pulItemType, void *pvData, NpWhere stWhere = Np_Here())
{
    uint32_t ulReturn = Np_KeyIdCheck(stStore, ulKeyID, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NP_EML_REFUSE_NULL_AT(stWhere, pulItemType == nullptr || pvData == nullptr);
    *pulItemType = Np_EntryOwner(stStore, ulChipID, ulKeyID);
    uint32_t ulTableID;
    ulReturn = Np_ItemTableOf(*pulItemType, &ulTableID, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpFleeEntry stEntry;
    ulReturn = Np_Tarn_LCAM_TcamRead(ulChipID, stStore.ulLcamTable, ulKeyID, stEntry.aucKey,
                                     nullptr, stEntry.aucAd);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint8_t ucStatus = NP_EML_STATUS_EMPTY;
    Np_Tarn_EML_UserDataCombine(ulChipID, ulTableID, static_cast<uint8_t *>(pvData), &ucStatus,
                                stEntry.aucKey, stEntry.aucAd);
    return NP_OK;
}

uint32_t Np_EntryDel(const NpFleeStore &stStore, uint32_t ulChipID, uint32_t ulTableID,
                     uint32_t ulKeyID, NpWhere stWhere = Np_Here())
{
    uint32_t ulReturn = Np_KeyIdCheck(stStore, ulKeyID, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_Tarn_LCAM_TcamDelete(ulChipID, stStore.ulLcamTable, ulKeyID);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_EntryMark(stStore, ulChipID, ulKeyID, {0, 0});
    return Np_FleeKeyRelease(ulChipID, ulTableID, ulKeyID, stWhere);
}

uint32_t Np_EntrySearch(const NpFleeStore &stStore, uint32_t ulChipID, uint32_t ulTableID,
                        uint32_t *pulLocationType, uint32_t *pulIndex, void *pvData,
                        NpWhere stWhere = Np_Here())
{
    uint32_t ulExternal;
    uint32_t ulReturn = Np_FleeExternal(ulTableID, &ulExternal, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    uint8_t *pucItem = static_cast<uint8_t *>(pvData);
    uint8_t aucTarget[NP_FLEE_KEY_MAX];
    Np_EntryKey(stStore, pstConfig, ulExternal, pucItem, aucTarget);
    const uint32_t ulKeyNum = Np_GLB_CapGet(stStore.enKeyNum);
    for (uint32_t ulKeyID = 0; ulKeyID < ulKeyNum; ulKeyID++) {
        if (!Np_EntryUsed(stStore, ulChipID, ulKeyID) ||
            Np_EntryOwner(stStore, ulChipID, ulKeyID) != ulExternal) {
            continue;
        }
        NpFleeEntry stEntry;
        ulReturn = Np_Tarn_LCAM_TcamRead(ulChipID, stStore.ulLcamTable, ulKeyID, stEntry.aucKey,
                                         nullptr, stEntry.aucAd);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
        if (memcmp(stEntry.aucKey, aucTarget, stStore.ulKeySize) != 0) {
            continue;
        }
        const uint8_t ucStatus = NP_EML_STATUS_EMPTY;
        Np_Tarn_EML_UserDataCombine(ulChipID, ulTableID, pucItem, &ucStatus, nullptr,
                                    stEntry.aucAd);
        if (pulIndex != nullptr) {
            *pulIndex = ulKeyID;
        }
        if (pulLocationType != nullptr) {
            *pulLocationType = NP_EML_IN_FLEE;
        }
        return NP_OK;
    }
    NP_TRACE_AT(stWhere, NP_M_EML, NP_PRINT_DEBUG, "[DEBUG] flee bucket not exist\r\n");
    return NP_ERR_FLEE_MISS;
}

}  // namespace

uint32_t Np_FleeExternal(uint32_t ulTableID, uint32_t *pulExternal, NpWhere stWhere)
{
    NP_EML_REFUSE_AT(stWhere,
                     Np_Tarn_Map_GetExternalValue(g_astEmlFleeBucketMap, NP_FLEE_MAP_NUM, ulTableID,
                                                  pulExternal) != NP_OK,
                     NP_ERR_MAP_NP,
                     "g_astEmlFleeBucketMap para map from NP(%u) to external failed!\r\n",
                     ulTableID);
    return NP_OK;
}

uint32_t Np_FleeOwner(uint32_t ulChipID, uint32_t ulKeyID)
{
    return g_astEmlFleeBucketTcamKeyInfo[ulChipID * NP_FLEE_ENTRY_NUM + ulKeyID].ulItemType;
}

bool Np_FleeInUse(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulKeyID)
{
    return Np_EntryUsed(ulTableID == NP_EML_OAM_LM_DATAPKT ? g_stLmFlee : g_stFlee, ulChipID,
                        ulKeyID);
}

uint32_t Np_FleeKeyRelease(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulKeyID, NpWhere stWhere)
{
    NP_EML_REFUSE_AT(stWhere, Np_Tarn_Push(ulChipID, Np_FleeStackOf(ulTableID), ulKeyID) != NP_OK,
                     NP_ERR_STACK_OP, "[ERROR] stack push error ulKeyID=0x%08x\r\n", ulKeyID);
    return NP_OK;
}

void Np_FleeForget(uint32_t ulChipID)
{
    const uint32_t ulFirst = ulChipID * NP_FLEE_ENTRY_NUM;
    memset(&g_astEmlFleeBucketTcamKeyInfo[ulFirst], 0, sizeof(NpFleeKeyInfo[NP_FLEE_ENTRY_NUM]));
    memset(&g_aulEMLLmDatataFleeBucketValid[ulFirst], 0, sizeof(uint32_t[NP_FLEE_ENTRY_NUM]));
}

uint32_t Np_Tarn_FleeBucketTblKeyIDAssign(uint32_t ulChipID, uint32_t ulTableID, uint32_t *pulKeyID)
{
    const uint32_t ulReturn = Np_Tarn_Pop(ulChipID, Np_FleeStackOf(ulTableID), pulKeyID);
    if (ulReturn == NP_ERR_STACK_EMPTY) {
        NP_TRACE(NP_M_EML, NP_PRINT_DEBUG, "[DEBUG] flee bucket is full!\r\n");
        return NP_ERR_TABLE_FULL;
    }
    NP_EML_REFUSE(ulReturn != NP_OK, NP_ERR_STACK_OP, "[ERROR] stack pop error\r\n");
    return NP_OK;
}

uint32_t Np_Tarn_FleeBucketTbl_Set(uint32_t ulChipID, uint32_t ulKeyID, uint32_t ulItemType,
                                   const void *pvData)
{
    return Np_EntrySet(g_stFlee, ulChipID, ulKeyID, ulItemType, pvData);
}

uint32_t Np_Tarn_LmData_FleeBucketTbl_Set(uint32_t ulChipID, uint32_t ulKeyID, uint32_t ulItemType,
                                          const void *pvData)
{
    return Np_EntrySet(g_stLmFlee, ulChipID, ulKeyID, ulItemType, pvData);
}

uint32_t Np_Tarn_FleeBucketTbl_Get(uint32_t ulChipID, uint32_t ulKeyID, uint32_t *pulItemType,
                                   void *pvData)
{
    return Np_EntryGet(g_stFlee, ulChipID, ulKeyID, pulItemType, pvData);
}

uint32_t Np_Tarn_LmData_FleeBucketTbl_Get(uint32_t ulChipID, uint32_t ulKeyID,
                                          uint32_t *pulItemType, void *pvData)
{
    return Np_EntryGet(g_stLmFlee, ulChipID, ulKeyID, pulItemType, pvData);
}

uint32_t Np_Tarn_FleeBucketTbl_Del(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulKeyID)
{
    return Np_EntryDel(g_stFlee, ulChipID, ulTableID, ulKeyID);
}

uint32_t Np_Tarn_LmData_FleeBucketTbl_Del(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulKeyID)
{
    return Np_EntryDel(g_stLmFlee, ulChipID, ulTableID, ulKeyID);
}

uint32_t Np_Tarn_FleeBucketSearch(uint32_t ulChipID, uint32_t ulTableID, uint32_t *pulLocationType,
                                  uint32_t *pulIndex, void *pvData)
{
    return Np_EntrySearch(g_stFlee, ulChipID, ulTableID, pulLocationType, pulIndex, pvData);
}

uint32_t Np_Tarn_LmData_FleeBucketSearch(uint32_t ulChipID, uint32_t ulTableID,
                                         uint32_t *pulLocationType, uint32_t *pulIndex,
                                         void *pvData)
{
    return Np_EntrySearch(g_stLmFlee, ulChipID, ulTableID, pulLocationType, pulIndex, pvData);
}

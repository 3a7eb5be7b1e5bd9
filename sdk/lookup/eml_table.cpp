// The tables of the exact match engine: descriptors, and what stands for them in host memory.
#include "sdk/lookup/eml.h"

#include "platform/driver.h"
#include "platform/os.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/text.h"
#include "sdk/lookup/eml_check.h"
#include "sdk/lookup/flee.h"

#include <array>

namespace {

struct NpEmlRow {
    uint32_t ulTblWidth, ulBaseAddr, ulBucketWidth, ulKeyLen, ulAdLen, ulMoveEnable, ulTID,
        ulFleeEnable;
};

consteval NpEmlConfig Np_Table(const NpEmlRow &stRow)
{
    NpEmlConfig stConfig = {};
    stConfig.ulTblWidth = stRow.ulTblWidth;
    stConfig.ulBaseAddr = stRow.ulBaseAddr;
    stConfig.ulBucketWidth = stRow.ulBucketWidth;
    stConfig.ulItemNum = NP_EML_BUCKET_ITEMS << stRow.ulBucketWidth;
    stConfig.ulKeyLen = stRow.ulKeyLen;
    stConfig.ulAdLen = stRow.ulAdLen;
    stConfig.ulMoveEnable = stRow.ulMoveEnable;
    stConfig.ulTID = stRow.ulTID;
    stConfig.ulFleeEnable = stRow.ulFleeEnable;
    return stConfig;
}

consteval NpEmlConfig Np_NoTable(uint32_t ulTblWidth, uint32_t ulSmemID = 0)
{
    NpEmlConfig stConfig = {};
    stConfig.ulTblWidth = ulTblWidth;
    stConfig.ulTID = NP_EML_TID_NONE;
    stConfig.ulSmemID = ulSmemID;
    return stConfig;
}

}  // namespace

// width, base, log2 buckets, key bytes, AD bytes, CPU regime, TID, flee
constexpr NpEmlConfig g_stNpEmlConfig_TarnB[NP_EML_TABLE_NUM] = {
    Np_Table({1, 0x000000, 9, 6, 10, 1, 0, 1}),  // 0 GMT
    Np_NoTable(1),                               // 1
    Np_Table({1, 0x134000, 8, 9, 7, 0, 2, 0}),   // 2 MAC
    Np_Table({1, 0x102800, 4, 6, 10, 1, 3, 1}),  // 3 OAM_PORT_VLAN
    Np_Table({1, 0x102c00, 4, 8, 8, 1, 4, 1}),   // 4 OAM_LOOK_UP
    Np_Table({0, 0x103000, 7, 6, 2, 1, 5, 1}),   // 5 IPV4FILTER
    Np_Table({0, 0x102000, 5, 7, 1, 1, 6, 1}),   // 6 SMAC_BONDING
    Np_NoTable(1),                               // 7 OAM_DM_OAMPKT
    Np_NoTable(1),                               // 8 OAM_LM_DATAPKT
    Np_NoTable(1),                               // 9 OAM_LM_OAMPKT
    Np_NoTable(1),                               // 10 CESoP map
    Np_Table({1, 0x113b00, 1, 9, 7, 1, 15, 1}),  // 11 cache refresh
    Np_NoTable(1),                               // 12 cache refresh of a second search memory
    Np_NoTable(1),                               // 13
    Np_NoTable(0),                               // 14
    Np_NoTable(0),                               // 15
    Np_NoTable(1, 1),                            // 16 OAM_SL
    Np_Table({0, 0x138000, 5, 7, 1, 1, 8, 0}),   // 17 MAC_FILTER
    Np_Table({1, 0x130000, 8, 9, 7, 0, 7, 0}),   // 18 LAN_MAC
};

namespace {

// What the packing and the flee store take for granted: key and AD fill the item, the key fits a
// flee key, the search's answer holds the whole AD, tables of one memory and their numbers at the
// engine are apart.
consteval bool Np_ConfigIsSound()
{
    for (uint32_t i = 0; i < NP_EML_TABLE_NUM; i++) {
        const NpEmlConfig &stA = g_stNpEmlConfig_TarnB[i];
        if (stA.ulTID == NP_EML_TID_NONE) {
            continue;
        }
        if (stA.ulKeyLen + stA.ulAdLen != Np_EmlItemSize(stA.ulTblWidth) || stA.ulAdLen == 0 ||
            stA.ulAdLen > 11 || stA.ulKeyLen == 0 || stA.ulKeyLen > NP_FLEE_KEY_LEN) {
            return false;
        }
        for (uint32_t j = 0; j < i; j++) {
            const NpEmlConfig &stB = g_stNpEmlConfig_TarnB[j];
            const uint32_t ulEndA =
                stA.ulBaseAddr + (stA.ulItemNum << Np_EmlStrideShift(stA.ulTblWidth));
            const uint32_t ulEndB =
                stB.ulBaseAddr + (stB.ulItemNum << Np_EmlStrideShift(stB.ulTblWidth));
            if (stB.ulTID != NP_EML_TID_NONE &&
                (stA.ulTID == stB.ulTID || (stA.ulBaseAddr < ulEndB && stB.ulBaseAddr < ulEndA))) {
                return false;
            }
        }
    }
    return true;
}
static_assert(Np_ConfigIsSound());

}  // namespace

constinit const NpEmlConfig *g_stNpEmlConfig[NP_CHIP_NUM] = {};
constinit NpEmlBucketInfo *g_pastEmlBucketInfo[NP_CHIP_NUM * NP_EML_TABLE_NUM] = {};
constinit uint32_t g_aulEmlValidItem[NP_CHIP_NUM * NP_EML_TABLE_NUM] = {};
constinit uint32_t g_aulEmlTwice[NP_CHIP_NUM] = {};
constinit uint32_t g_ulHashIndex[NP_CHIP_NUM] = {};
constinit uint32_t g_ulMemType[NP_CHIP_NUM] = {};

constinit const uint32_t g_aulBucketMask[NP_EML_MASK_NUM] = {
    0x0,       0x1,        0x3,        0x7,        0xf,       0x1f,      0x3f,
    0x7f,      0xff,       0x1ff,      0x3ff,      0x7ff,     0xfff,     0x1fff,
    0x3fff,    0x7fff,     0xffff,     0x1ffff,    0x3ffff,   0x7ffff,   0xfffff,
    0x1fffff,  0x3fffff,   0x7fffff,   0xffffff,   0x1ffffff, 0x3ffffff, 0x7ffffff,
    0xfffffff, 0x1fffffff, 0x3fffffff, 0x7fffffff, 0xffffffff};

namespace {

// An empty shadow for one table. A shadow of an earlier bring-up is used again, cleared.
uint32_t Np_ShadowInit(uint32_t ulChipID, uint32_t ulTableID)
{
    const uint32_t ulSlot = Np_EmlSlotOf(ulChipID, ulTableID);
    const uint32_t ulSize = Np_EmlConfigOf(ulChipID, ulTableID)->ulItemNum / NP_EML_BUCKET_ITEMS *
                            static_cast<uint32_t>(sizeof(NpEmlBucketInfo));
    g_aulEmlValidItem[ulSlot] = 0;
    g_aulEmlTwice[ulChipID] &= ~(1u << ulTableID);
    if (ulSize == 0) {
        return NP_OK;
    }
    if (g_pastEmlBucketInfo[ulSlot] != nullptr) {
        memset(g_pastEmlBucketInfo[ulSlot], 0, ulSize);
        return NP_OK;
    }
    g_pastEmlBucketInfo[ulSlot] = static_cast<NpEmlBucketInfo *>(Os_Alloc(ulSize));
    return g_pastEmlBucketInfo[ulSlot] == nullptr ? NP_ERR_NO_MEMORY : NP_OK;
}

}  // namespace

uint32_t Np_Tarn_EML_TblInit(uint32_t ulChipID, uint32_t ulTableID)
{
    NP_EML_REFUSE_TABLE(ulTableID >= NP_EML_TABLE_NUM, ulTableID);
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    const QdEmlBaseInfo stBaseInfo = {pstConfig->ulBaseAddr & 0xfffff, pstConfig->ulBucketWidth};
    const QdEmlWidthInfo stWidthInfo = {pstConfig->ulTblWidth, {0, 0}};
    const uint32_t ulReturn = Qd_SMEM_EmlTableSet(ulChipID, pstConfig->ulSmemID, pstConfig->ulTID,
                                                  pstConfig->ulIndirect, &stBaseInfo, &stWidthInfo);
    if (ulReturn != NP_OK) {
        Np_RecordErrInfo(ulChipID, ulReturn, 0);
        NP_TRACE(NP_M_EML, NP_PRINT_ERROR,
                 "[ERROR] Qd_SMEM_EmlTableSet ERROR: ulTableID=0x%08x ulSmemID=0x%08x ulTID=0x%08x "
                 "ulBaseAddr=0x%08xulBucketWidth=0x%08x ulTblWidth=0x%08x\r\n",
                 ulTableID, pstConfig->ulSmemID, pstConfig->ulTID, pstConfig->ulBaseAddr,
                 pstConfig->ulBucketWidth, pstConfig->ulTblWidth);
    }
    return ulReturn;
}

uint32_t Np_Tarn_EML_Init(uint32_t ulChipID)
{
    NP_TRACE(NP_M_EML, NP_PRINT_TRACE, "in ulChipID=0x%08x\r\n", ulChipID);
    for (uint32_t ulTableID = 0; ulTableID < NP_EML_TABLE_NUM; ulTableID++) {
        const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
        if (pstConfig->ulTID == NP_EML_TID_NONE) {
            continue;
        }
        uint32_t ulReturn =
            Qd_SMEM_EmlExcludeEnableSet(ulChipID, pstConfig->ulSmemID, pstConfig->ulTID, 1);
        if (ulReturn != NP_OK) {
            Np_RecordErrInfo(ulChipID, ulReturn, 0);
            NP_TRACE(NP_M_EML, NP_PRINT_ERROR,
                     "[ERROR] Qd_tarn_SMEM_EmlExcludeEnableSet ERROR, ulReturn=0x%08x "
                     "ulSmemID=0x%08x ulTid=0x%08x\r\n",
                     ulReturn, pstConfig->ulSmemID, pstConfig->ulTID);
            return ulReturn;
        }
        ulReturn = Np_Tarn_EML_TblInit(ulChipID, ulTableID);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    for (uint32_t ulTableID = 0; ulTableID < NP_EML_TABLE_NUM; ulTableID++) {
        const uint32_t ulReturn = Np_ShadowInit(ulChipID, ulTableID);
        NP_EML_REFUSE(ulReturn != NP_OK, ulReturn, "memory alloc failed!\r\n");
    }
    Np_FleeForget(ulChipID);
    const uint32_t ulSmemNum = Np_GLB_CapGet(NP_CAP_SMEM_NUM);
    for (uint32_t ulSmemID = 0; ulSmemID < ulSmemNum; ulSmemID++) {
        // The caches have nothing of these tables yet; a failure matters to no entry.
        Np_Tarn_EML_SmemEmlCacheRefresh(ulChipID, ulSmemID);
        Np_Tarn_EML_SmemWriteReadCacheRefresh(ulChipID, ulSmemID);
    }
    NP_TRACE(NP_M_EML, NP_PRINT_TRACE, "out Return=0x%08x", NP_OK);
    return NP_OK;
}

uint32_t Np_Tarn_EML_Destruct(uint32_t ulChipID)
{
    NP_TRACE(NP_M_EML, NP_PRINT_TRACE, "in ulChipID=0x%08x\r\n", ulChipID);
    for (uint32_t ulTableID = 0; ulTableID < NP_EML_TABLE_NUM; ulTableID++) {
        Np_FreeAndForget(&g_pastEmlBucketInfo[Np_EmlSlotOf(ulChipID, ulTableID)]);
    }
    return NP_OK;
}

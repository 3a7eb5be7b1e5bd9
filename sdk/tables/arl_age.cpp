// Ageing, which the microcode does: the host starts it, stops it, asks for a sweep, and sets how
// single user MACs age. And the query of user MACs, which belong to these entries.
#include "ldsdk/port.h"
#include "ldsdk/secu.h"
#include "ldsdk/status.h"
#include "sdk/access/regtable.h"
#include "sdk/cpuchan/message.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/lookup/eml.h"
#include "sdk/tables/arl.h"

namespace {

inline constexpr uint32_t NP_GLOBAL_TABLE = 1;  // register table
inline constexpr uint32_t NP_GLOBAL_WORDS = 4;
inline constexpr uint32_t NP_AGE_CLASS_SHIFT = 28;  // of its first word
inline constexpr uint32_t NP_MAC_SIZE = 6;
inline constexpr uint32_t NP_UVMAC_ROOM = 32;  // records that a caller gives room for

enum NpAgeMode : uint32_t {
    NP_AGE_MODE_NEVER = 0,
    NP_AGE_MODE_AGE = 1,
};

enum NpUvmacType : uint32_t {
    NP_UVMAC_ALL = 0,
    NP_UVMAC_OF_TARGET = 1,
};

uint32_t Np_NullRecord(NpWhere stWhere = Np_Here())
{
    NP_TRACE_AT(stWhere, NP_M_ARL, NP_PRINT_ERROR, "Para null ptr\r\n");
    return NP_ERR_NULL_PTR;
}

uint32_t Np_Failed(uint32_t ulReturn, NpWhere stWhere = Np_Here())
{
    NP_TRACE_AT(stWhere, NP_M_ARL, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
    return ulReturn;
}

bool Np_SameMac(const uint8_t *pucA, const uint8_t *pucB)
{
    return memcmp(pucA, pucB, NP_MAC_SIZE) == 0;
}

void Np_MacCopy(uint8_t *pucTo, const uint8_t *pucFrom)
{
    memcpy(pucTo, pucFrom, NP_MAC_SIZE);
}

// Key of the entry that a user MAC has on a port.
NpArlKey Np_UserMacKey(const NpPortID &stPort, const uint8_t *pucMac, uint32_t ulVsi)
{
    NpArlKey stKey = {};
    stKey.ulType = NP_ARL_TYPE_PORT;
    stKey.stPort = stPort;
    stKey.ulVsi = ulVsi;
    Np_MacCopy(stKey.aucMacAddr, pucMac);
    return stKey;
}

// The status that an age mode gives.
uint32_t Np_AgeModeStatus(uint32_t ulChipID, uint32_t ulAgeMode, uint32_t *pulStatus,
                          NpWhere stWhere = Np_Here())
{
    *pulStatus = ulAgeMode == NP_AGE_MODE_NEVER ? static_cast<uint32_t>(NP_EML_STATUS_STATIC)
                                                : static_cast<uint32_t>(NP_EML_STATUS_EMPTY);
    if (ulAgeMode != NP_AGE_MODE_AGE) {
        return NP_OK;
    }
    uint32_t aulRow[NP_GLOBAL_WORDS];
    const uint32_t ulReturn = Np_RegTableRead(ulChipID, NP_GLOBAL_TABLE, 0, aulRow);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_ARL, NP_PRINT_ERROR,
                    "Read error return:0x%08x  ID:0x%08x Offset:0x%08x\r\n", ulReturn,
                    NP_GLOBAL_TABLE, 0u);
        return ulReturn;
    }
    *pulStatus = aulRow[0] >> NP_AGE_CLASS_SHIFT;
    return NP_OK;
}

void Np_VmacDiffers(uint32_t ulVmacID, const uint8_t *pucKey, const uint8_t *pucRow,
                    NpWhere stWhere = Np_Here())
{
    NP_TRACE_AT(stWhere, NP_M_ARL, NP_PRINT_ERROR,
                "[ERROR] Vmac Compare Failed!!! ulVmacIndex=0x%08x \r\n", ulVmacID);
    NP_TRACE_AT(stWhere, NP_M_ARL, NP_PRINT_ERROR,
                "pstArlAgeModeKey->aucVmacAddr= 0x(%02x-%02x-%02x-%02x-%02x-%02x)\r\n", pucKey[0],
                pucKey[1], pucKey[2], pucKey[3], pucKey[4], pucKey[5]);
    NP_TRACE_AT(stWhere, NP_M_ARL, NP_PRINT_ERROR,
                "stUvt.aucVmac= 0x(%02x-%02x-%02x-%02x-%02x-%02x)\r\n", pucRow[0], pucRow[1],
                pucRow[2], pucRow[3], pucRow[4], pucRow[5]);
}

// ---- user MACs of a port ------------------------------------------------------------------------

// What one row of the user MAC table adds to a query. *pulNum counts what was reported.
uint32_t Np_UvmacReport(uint32_t ulChipID, const NpUvmacInfoKey *pstKey, const NpUvt &stUvt,
                        NpUvmacInfoAd *pstAd, uint32_t *pulNum)
{
    if (pstKey->ulType == NP_UVMAC_OF_TARGET && stUvt.ulUmacUsed != 1) {
        return NP_OK;
    }
    const NpArlKey stArlKey = Np_UserMacKey(pstKey->stPort, stUvt.aucUmac, 0);
    NpArlData stData = {};
    NpArlInfo stInfo;
    const uint32_t ulReturn = Np_ArlTbl_Get(ulChipID, &stArlKey, &stData, &stInfo);
    if (ulReturn != NP_OK && ulReturn != NP_ERR_NOT_EXIST) {
        return ulReturn;
    }
    const bool bFound = ulReturn == NP_OK;
    const NpLearnData &stFound = stData.stLearnData;
    const NpLearnData &stWanted = pstKey->stLearnData;
    bool bReport = bFound ? stUvt.ulUmacUsed == 1 : stUvt.ulStaticFlag == 1;
    if (pstKey->ulType == NP_UVMAC_OF_TARGET) {
        bReport = bFound && stFound.ulOpCode == stWanted.ulOpCode &&
                  stFound.ulIntfID == stWanted.ulIntfID;
    }
    if (!bReport) {
        return NP_OK;
    }
    NpUvmac *pstUvmac = &pstAd[(*pulNum)++].stUvmac;
    Np_MacCopy(pstUvmac->aucUmac, stUvt.aucUmac);
    Np_MacCopy(pstUvmac->aucVmac, stUvt.aucVmac);
    pstUvmac->ulOpCode = bFound ? stFound.ulOpCode : 0;
    pstUvmac->ulIntfID = bFound ? stFound.ulIntfID : 0;
    return NP_OK;
}

// The rows of the user MAC table that a port draws from: those that its user's row names.
uint32_t Np_VmacRangeGet(uint32_t ulChipID, const NpPortID *pstPort, NpPortVmacInfo *pstRange)
{
    NpPortPct stPct;
    const uint32_t ulReturn = Np_PctTbl_Get(ulChipID, pstPort, &stPct);
    return ulReturn != NP_OK ? ulReturn : Np_VmacInfoTbl_Get(ulChipID, stPct.ulUserID, pstRange);
}

}  // namespace

extern "C" {

uint32_t Np_Tarn_Arl_NormalAgeInfoCheck(uint32_t ulChipID, const NpNormalAge *pstNormalAge)
{
    return pstNormalAge == nullptr ? Np_NullRecord()
                                   : Np_Row_Check(&g_stNormalAgeRow, ulChipID, pstNormalAge);
}

uint32_t Np_Tarn_Arl_ForceAgeInfoCheck(uint32_t ulChipID, const NpForceAge *pstForceAge)
{
    return pstForceAge == nullptr ? Np_NullRecord()
                                  : Np_Row_Check(&g_stForceAgeRow, ulChipID, pstForceAge);
}

uint32_t Np_Tarn_Arl_ArlTbl_NormalAge(uint32_t ulChipID, const NpNormalAge *pstNormalAge)
{
    NP_TRACE(NP_M_ARL, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
    uint32_t ulReturn = Np_Tarn_Arl_NormalAgeInfoCheck(ulChipID, pstNormalAge);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_Row_Trace(&g_stNormalAgeRow, pstNormalAge);
    ArlAgeInfo stInfo;
    ulReturn = Np_Tarn_CputrMsg_NormalAgeInfoBuild(ulChipID, pstNormalAge, &stInfo);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Tarn_CputrMsg_NormalAgeInfoSet(ulChipID, &stInfo);
    }
    return ulReturn == NP_OK ? NP_OK : Np_Failed(ulReturn);
}

uint32_t Np_Tarn_Arl_ArlTbl_ForceAge(uint32_t ulChipID, const NpForceAge *pstForceAge)
{
    NP_TRACE(NP_M_ARL, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
    uint32_t ulReturn = Np_Tarn_Arl_ForceAgeInfoCheck(ulChipID, pstForceAge);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_Row_Trace(&g_stForceAgeRow, pstForceAge);
    ArlAgeInfo stInfo;
    ulReturn = Np_Tarn_CputrMsg_ForceAgeInfoBuild(ulChipID, pstForceAge, &stInfo);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Tarn_CputrMsg_ForceAgeInfoSet(ulChipID, &stInfo);
    }
    return ulReturn == NP_OK ? NP_OK : Np_Failed(ulReturn);
}

uint32_t Np_Tarn_ArlTbl_AgeModeSet(uint32_t ulChipID, const NpArlAgeModeKey *pstArlAgeModeKey,
                                   uint32_t ulAgeMode)
{
    NP_TRACE(NP_M_ARL, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
    Np_Row_Trace(&g_stAgeModeArgs, &ulAgeMode);
    if (pstArlAgeModeKey == nullptr) {
        return Np_NullRecord();
    }
    Np_Row_Trace(&g_stArlAgeModeKeyRow, pstArlAgeModeKey);
    uint32_t ulReturn = Np_Row_Check(&g_stAgeModeArgs, ulChipID, &ulAgeMode);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Check(&g_stArlAgeModeKeyRow, ulChipID, pstArlAgeModeKey);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpArlKey stKey = Np_UserMacKey(pstArlAgeModeKey->stPort, pstArlAgeModeKey->aucUmacAddr,
                                         pstArlAgeModeKey->ulVsi);
    uint32_t aulItem[NP_MAC_ITEM_WORDS] = {};
    ulReturn = Np_Tarn_Arl_ArlTblKeyBulid(ulChipID, &stKey, aulItem);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_Tarn_EML_ItemGet(ulChipID, NP_EML_MAC, nullptr, nullptr, aulItem);
    if (ulReturn != NP_OK) {
        return Np_Failed(ulReturn);
    }
    // Whatever kind of MAC the entry says that it is.
    const uint32_t ulVmacID = aulItem[0] >> 4 & 0xfff;
    NpUvt stUvt;
    ulReturn = Np_UvtTbl_Get(ulChipID, ulVmacID, &stUvt);
    if (ulReturn != NP_OK) {
        return Np_Failed(ulReturn);
    }
    if (!Np_SameMac(stUvt.aucVmac, pstArlAgeModeKey->aucVmacAddr)) {
        Np_VmacDiffers(ulVmacID, pstArlAgeModeKey->aucVmacAddr, stUvt.aucVmac);
        return NP_ERR_FAIL;
    }
    uint32_t ulStatus;
    ulReturn = Np_AgeModeStatus(ulChipID, ulAgeMode, &ulStatus);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_MacStatusSet(aulItem, ulStatus);
    ulReturn = Np_Tarn_EML_SearchUpdate(ulChipID, NP_EML_MAC, nullptr,
                                        reinterpret_cast<const uint8_t *>(aulItem));
    return ulReturn == NP_OK ? NP_OK : Np_Failed(ulReturn);
}

uint32_t Np_Tarn_UVMacInfo_Get(uint32_t ulChipID, const NpUvmacInfoKey *pstUvmacInfoKey,
                               uint32_t *pulNum, NpUvmacInfoAd *pstUvmacInfoAd)
{
    NP_TRACE(NP_M_ARL, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
    if (pstUvmacInfoKey == nullptr || pulNum == nullptr || pstUvmacInfoAd == nullptr) {
        return Np_NullRecord();
    }
    Np_Row_Trace(&g_stUvmacInfoKeyRow, pstUvmacInfoKey);
    uint32_t ulReturn = Np_Row_Check(&g_stUvmacInfoKeyRow, ulChipID, pstUvmacInfoKey);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpPortVmacInfo stRange;
    ulReturn = Np_VmacRangeGet(ulChipID, &pstUvmacInfoKey->stPort, &stRange);
    if (ulReturn != NP_OK) {
        return Np_Failed(ulReturn);
    }
    const uint32_t ulRows =
        stRange.ulVmacNumber < NP_UVMAC_ROOM ? stRange.ulVmacNumber : NP_UVMAC_ROOM;
    uint32_t ulNum = 0;
    for (uint32_t i = 0; i < ulRows; i++) {
        NpUvt stUvt;
        ulReturn = Np_UvtTbl_Get(ulChipID, stRange.ulVmacBase + i, &stUvt);
        if (ulReturn == NP_OK) {
            ulReturn = Np_UvmacReport(ulChipID, pstUvmacInfoKey, stUvt, pstUvmacInfoAd, &ulNum);
        }
        if (ulReturn != NP_OK) {
            return Np_Failed(ulReturn);
        }
    }
    *pulNum = ulNum;
    return NP_OK;
}

}  // extern "C"

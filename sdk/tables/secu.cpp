#include "sdk/tables/secu.h"

#include "ldsdk/status.h"
#include "sdk/access/regtable.h"
#include "sdk/access/smem.h"
#include "sdk/cpuchan/message.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/lookup/eml.h"
#include "sdk/record/describe.h"

constinit uint32_t g_aulDostTimer[NP_CHIP_NUM] = {};

namespace {

namespace uvt_row {
using R = NpUvt;
constexpr NpField g_astField[] = {
    NP_F(ulUmacUsed, .stAt = {15, 7, 7}),
    NP_F(ulVmacUsed, .stAt = {15, 6, 6}),
    NP_F(ulUsed, .stAt = {15, 5, 5}),
    NP_F(ulStaticFlag, .stAt = {15, 4, 4}),
    NP_F(aucVmac, .stAt = {13, 7, 0}, .sStep = -8, .ucType = NP_SMD_MAC),
    NP_F(aucUmac, .stAt = {5, 7, 0}, .sStep = -8, .ucType = NP_SMD_MAC),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulUmacUsed, Np_Below(2)),
    NP_C(ulVmacUsed, Np_Below(2)),
    NP_C(ulUsed, Np_Flag(NP_SAY_BOOL)),
    NP_C(ulStaticFlag, Np_Flag(NP_SAY_BOOL)),
};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_SECU, .pszArg = "pstUvt", .usImageSize = 16, .bBare = true},
                  g_astField, g_astCheck);
}  // namespace uvt_row

namespace static_args {
struct R {
    uint32_t ulIndex;
    uint32_t ulStaticFlag;
};
constexpr NpField g_astField[] = {
    NP_F(ulIndex, .pszKey = "index"),
    NP_F(ulStaticFlag),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulIndex, Np_BelowCap(NP_CAP_UVT_ROWS)),
    NP_C(ulStaticFlag, Np_Flag(NP_SAY_BOOL)),
};
}  // namespace static_args

// ---- anti-DoS -----------------------------------------------------------------------------------

namespace dos_row {
using R = NpPortDos;
constexpr NpField g_astField[] = {
    NP_F(ulThread, .stAt = {0, 8, 0}),   NP_F(ulValid, .stAt = {0, 15, 15}),
    NP_F(ulEnable, .stAt = {0, 14, 14}), NP_F(ulForceToCpu, .stAt = {0, 13, 13}),
    NP_F(ulAtk, .stAt = {0, 12, 12}),    NP_F(ulTimer, .bHanded = true),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulEnable, Np_Below(2)),
    NP_C(ulValid, Np_Below(2)),
    NP_C(ulTimer, Np_MostCap(NP_CAP_DOS_TIMER_MAX)),
    NP_C(ulThread, Np_MostCap(NP_CAP_DOS_THREAD_MAX)),
    NP_C(ulForceToCpu, Np_Below(2)),
    NP_C(ulAtk, Np_Below(2)),
};
void Np_TimerHandIn(uint32_t ulChipID, uint32_t, void *pvRecord)
{
    static_cast<R *>(pvRecord)->ulTimer = g_aulDostTimer[ulChipID];
}
}  // namespace dos_row

namespace dos_time {
struct R {
    uint32_t ulAntiDosTime;
};
constexpr NpField g_astField[] = {NP_F(ulAntiDosTime)};
constexpr NpCheck g_astCheck[] = {NP_C(ulAntiDosTime, Np_MostCap(NP_CAP_DOS_TIMER_MAX))};
}  // namespace dos_time

inline constexpr uint32_t NP_DOS_COUNTER_TABLE = 134;  // register table

uint32_t Np_Told(uint32_t ulReturn, NpWhere stWhere)
{
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_SECU, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
    }
    return ulReturn;
}

// ---- source MACs of 802.1x, MAC filter
// ------------------------------------------------------------ Items: the MAC on top, its first
// byte first, the port below it, then four bits of data.

namespace smac_key {
using R = Np1xSmacKey;
constexpr NpField g_astField[] = {
    NP_F(stPort, .stAt = {0, 11, 4}, .pszKey = "port", .pstCoding = &g_stNpBytePortCoding),
    NP_F(stSmac.aucMacAddr, .stAt = {6, 11, 4}, .sStep = -8, .ucType = NP_SMD_MAC),
};
constexpr NpCheck g_astCheck[] = {NP_C(stPort, Np_Port())};
constexpr NpField g_astWide[] = {
    NP_F(stPort, .stAt = {7, 13, 4}, .pstCoding = &g_stNpPortCoding),
    NP_F(stSmac.aucMacAddr, .stAt = {14, 11, 4}, .sStep = -8, .ucType = NP_SMD_MAC),
    Np_Const({15, 7, 4}, NP_EML_STATUS_STATIC),
    Np_Const({5, 7, 0}, 0x10),
};
}  // namespace smac_key

namespace smac_data {
constexpr NpField g_astField[] = {Np_Const({0, 3, 0}, 1)};
}  // namespace smac_data

namespace smac_place {
struct R {
    uint32_t ulDstMemType;
    uint32_t ulIndex;
};
constexpr auto g_astTypeWords = Np_Words("table", "flee");
constexpr NpField g_astField[] = {NP_F(ulDstMemType, .stWords = g_astTypeWords),
                                  NP_F(ulIndex, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulIndex, Np_BelowCap(NP_CAP_DOT1X_SMAC_ROWS))};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_SECU, .bBare = true}, g_astField, g_astCheck);
}  // namespace smac_place

namespace smac_info {
struct R {
    uint32_t ulInfo;
};
constexpr NpField g_astField[] = {NP_F(ulInfo)};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_SECU}, g_astField, {});
}  // namespace smac_info

namespace filter_key {
using R = NpMacFilterKey;
constexpr NpField g_astField[] = {
    Np_FieldMake<NpPortID>(
        "ulPortType", offsetof(R, ulPortType), sizeof(NpPortID), 0,
        {.stAt = {0, 11, 4}, .pszKey = "port", .pstCoding = &g_stNpBytePortCoding}),
    NP_F(aucMacAddr, .stAt = {6, 11, 4}, .sStep = -8, .ucType = NP_SMD_MAC),
};
static_assert(offsetof(R, ulPri) == offsetof(R, ulPortType) + offsetof(NpPortID, ulPri));
}  // namespace filter_key

namespace filter_data {
using R = NpMacFilterAd;
constexpr NpField g_astField[] = {NP_F(ulAD, .stAt = {0, 3, 0}, .bCut = true)};
}  // namespace filter_data

inline constexpr uint32_t NP_SMAC_DATA_BITS = 4;
inline constexpr uint8_t NP_SMAC_WORDS = 2;

// The key of two arguments; null if one is.
const Np1xSmacKey *Np_SmacKey(const Np1xSmac *pstSmac, const NpPortID *pstPortID,
                              Np1xSmacKey *pstKey)
{
    if (pstSmac == nullptr || pstPortID == nullptr) {
        return nullptr;
    }
    *pstKey = {*pstPortID, *pstSmac};
    return pstKey;
}

// ---- user MACs
// ------------------------------------------------------------------------------------

inline constexpr uint32_t NP_UVT_ROW_SIZE = 16;
inline constexpr uint32_t NP_UVT_TOP_UNIT = 14;  // byte of the unit that has the flags

}  // namespace

constexpr NpTable g_stUvtTable =
    Np_TableMake(NpIndexKey<NP_M_SECU, NP_CAP_UVT_ROWS, true>::g_stRow, uvt_row::g_stRow, 17);
constexpr NpRow g_stUvtStaticArgs = Np_RowMake<static_args::R>(
    {.ucModule = NP_M_SECU, .bBare = true}, static_args::g_astField, static_args::g_astCheck);

constexpr NpRow g_stDosKeyRow =
    NpNamedKey<NP_M_SECU, "ulIndex", Np_MostCap(NP_CAP_USER_ID_MAX), true>::g_stRow;
constexpr NpRow g_stDosRow = Np_RowMake<NpPortDos>(
    {.ucModule = NP_M_SECU, .pszArg = "pstDos", .usImageSize = 2, .bBare = true},
    dos_row::g_astField, dos_row::g_astCheck);
constexpr NpRow g_stAntiDosArgs = Np_RowMake<dos_time::R>(
    {.ucModule = NP_M_SECU, .bBare = true}, dos_time::g_astField, dos_time::g_astCheck);
constexpr NpTable g_stPortDosTable =
    Np_TableOf(g_stDosKeyRow, g_stDosRow, {.pfnHandIn = dos_row::Np_TimerHandIn}, Np_RegPart(43));

constexpr NpRow g_st1xSmacKeyRow = Np_RowMake<Np1xSmacKey>(
    {.ucModule = NP_M_SECU, .usImageSize = 8}, smac_key::g_astField, smac_key::g_astCheck);
constexpr NpRow g_st1xSmacDataRow =
    Np_RowMake<NpNoData>({.ucModule = NP_M_SECU, .usImageSize = 8}, smac_data::g_astField, {});
constexpr NpRow g_st1xSmacWideRow = Np_RowMake<Np1xSmacKey>(
    {.ucModule = NP_M_SECU, .usImageSize = 16}, smac_key::g_astWide, smac_key::g_astCheck);
constexpr NpExactTable g_st1xSmacTable = Np_ExactOf({.stKey = g_st1xSmacKeyRow,
                                                     .stData = g_st1xSmacDataRow,
                                                     .stPlace = smac_place::g_stRow,
                                                     .ulEmlTable = NP_EML_SMAC_BONDING,
                                                     .ulDataBits = NP_SMAC_DATA_BITS,
                                                     .ucWords = NP_SMAC_WORDS,
                                                     .pstInfo = &smac_info::g_stRow});
constexpr NpRow g_stMacFilterKeyRow = Np_RowMake<NpMacFilterKey>(
    {.ucModule = NP_M_SECU, .usImageSize = 8}, filter_key::g_astField, {});
constexpr NpRow g_stMacFilterDataRow = Np_RowMake<NpMacFilterAd>(
    {.ucModule = NP_M_SECU, .usImageSize = 8}, filter_data::g_astField, {});
constexpr NpExactTable g_stMacFilterTable = Np_ExactOf({.stKey = g_stMacFilterKeyRow,
                                                        .stData = g_stMacFilterDataRow,
                                                        .stPlace = smac_place::g_stRow,
                                                        .ulEmlTable = NP_EML_MAC_FILTER,
                                                        .ulDataBits = NP_SMAC_DATA_BITS,
                                                        .ucWords = NP_SMAC_WORDS,
                                                        .ulDelType = NP_EML_DEL_ANY,
                                                        .enLook = NP_LOOK_TRY});

extern "C" {

NP_TABLE_SET(Np_Tarn_UvtTbl_Set, NpUvt, g_stUvtTable)
NP_TABLE_GET(Np_Tarn_UvtTbl_Get, NpUvt, g_stUvtTable)

uint32_t Np_Tarn_SECU_UvtFlagSet(uint32_t ulChipID, uint32_t ulIndex, NpUvtFlag enFlag,
                                 uint32_t ulValue, NpWhere stWhere)
{
    const uint32_t ulAddr =
        Np_GLB_CapGet(NP_CAP_UVT_BASE) + NP_UVT_TOP_UNIT + ulIndex * NP_UVT_ROW_SIZE;
    const NpSmemReq stReq = {NP_SMEM_LEN_16, ulAddr >> 1 & NP_SMEM_ADDR_MASK};
    uint8_t aucBlock[NP_SMEM_BLOCK_SIZE] = {};
    aucBlock[NP_SMEM_BLOCK_SIZE - 1] = static_cast<uint8_t>(ulValue << 7 | enFlag);
    NpSmemRsp stRsp;
    const uint32_t ulReturn = Np_Tarn_SMEM_ReqSetBit(ulChipID, 0, &stReq, aucBlock, &stRsp);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_SECU, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
    }
    return ulReturn;
}

uint32_t Np_Tarn_UvtTblStaticFlag_Set(uint32_t ulChipID, uint32_t ulIndex, uint32_t ulStaticFlag)
{
    const uint32_t aulArg[] = {ulIndex, ulStaticFlag};
    NP_TRACE(NP_M_SECU, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
    Np_Row_Trace(&g_stUvtStaticArgs, aulArg);
    const uint32_t ulReturn = Np_Row_Check(&g_stUvtStaticArgs, ulChipID, aulArg);
    return ulReturn != NP_OK
               ? ulReturn
               : Np_Tarn_SECU_UvtFlagSet(ulChipID, ulIndex, NP_UVT_STATIC, ulStaticFlag);
}

// ---- anti-DoS -----------------------------------------------------------------------------------

uint32_t Np_Tarn_DosCnt_Init(uint32_t ulChipID, uint32_t ulIndex)
{
    const uint32_t ulNone = 0;
    const uint32_t ulReturn = Np_RegTableWrite(ulChipID, NP_DOS_COUNTER_TABLE, ulIndex, &ulNone);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_SECU, NP_PRINT_ERROR, "Write error return:0x%08x ID:0x%08x Offset:0x%08x\r\n",
                 ulReturn, NP_DOS_COUNTER_TABLE, ulIndex);
    }
    return ulReturn;
}

uint32_t Np_Tarn_PortDosTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpPortDos *pstDos)
{
    uint32_t ulReturn = Np_Table_Set(&g_stPortDosTable, ulChipID, &ulIndex, pstDos);
    if (ulReturn == NP_OK && pstDos->ulValid == 0) {
        ulReturn = Np_Tarn_DosCnt_Init(ulChipID, ulIndex);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    g_aulDostTimer[ulChipID] = pstDos->ulTimer;
    return Np_Told(Np_Tarn_CputrMsg_AntiDosRefresh(ulChipID, pstDos->ulTimer), Np_Here());
}

NP_TABLE_GET(Np_Tarn_PortDosTbl_Get, NpPortDos, g_stPortDosTable)

// ---- source MACs of 802.1x
// ------------------------------------------------------------------------

uint32_t Np_TarnB_SECU_1xMacTblBuild(uint32_t ulChipID, const Np1xSmac *pstSmac,
                                     const NpPortID *pstPortID, void *pvItem)
{
    const Np1xSmacKey stKey = {*pstPortID, *pstSmac};
    const NpNoData stData = {};
    memset(pvItem, 0, NP_SMAC_WORDS * sizeof(uint32_t));
    const uint32_t ulReturn = Np_Exact_KeyBuild(&g_st1xSmacTable, ulChipID, &stKey, pvItem);
    return ulReturn != NP_OK ? ulReturn
                             : Np_Exact_DataBuild(&g_st1xSmacTable, ulChipID, &stData, pvItem);
}

uint32_t Np_TarnA_SECU_1xMacTblBuild(uint32_t ulChipID, const Np1xSmac *pstSmac,
                                     const NpPortID *pstPortID, void *pvItem)
{
    const Np1xSmacKey stKey = {*pstPortID, *pstSmac};
    return Np_Row_Build(&g_st1xSmacWideRow, ulChipID, &stKey, pvItem);
}

uint32_t Np_TarnB_1xSmacBondingTbl_Set(uint32_t ulChipID, const Np1xSmac *pstSmac,
                                       const NpPortID *pstPortID)
{
    Np1xSmacKey stKey;
    const NpNoData stData = {};
    NpExactMet stMet = {};
    const uint32_t ulReturn = Np_Exact_Add(&g_st1xSmacTable, ulChipID,
                                           Np_SmacKey(pstSmac, pstPortID, &stKey), &stData, &stMet);
    if (ulReturn == NP_OK) {
        g_ulMemType[ulChipID] = stMet.ulLocation;
        NP_TRACE(NP_M_SECU, NP_PRINT_TRACE,
                 " hash write resault:  ulDstMemType = 0x%08x, ulIndex = 0x%08x\r\n",
                 stMet.ulLocation, stMet.ulIndex);
    }
    return ulReturn;
}

// The port is the one that the entry's number names.
uint32_t Np_TarnB_1xSmacBondingTbl_Get(uint32_t ulChipID, Np1xSmac *pstSmac, NpPortID *pstPortID)
{
    Np1xSmacKey stKey;
    NpNoData stData;
    NpExactMet stMet = {};
    uint32_t ulReturn = Np_Exact_Get(&g_st1xSmacTable, ulChipID,
                                     Np_SmacKey(pstSmac, pstPortID, &stKey), &stData, &stMet);
    NpExactItem stItem = {};
    if (ulReturn == NP_OK) {
        g_ulMemType[ulChipID] = stMet.ulLocation;
        g_ulHashIndex[ulChipID] = stMet.ulIndex;
        ulReturn = Np_Exact_KeyBuild(&g_st1xSmacTable, ulChipID, &stKey, stItem.aulWord);
    }
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Parse(&g_st1xSmacKeyRow, ulChipID, stItem.aulWord, &stKey);
    }
    if (ulReturn == NP_OK) {
        *pstPortID = stKey.stPort;
    }
    return ulReturn;
}

uint32_t Np_TarnB_1xSmacBondingTbl_Del(uint32_t ulChipID, const Np1xSmac *pstSmac,
                                       const NpPortID *pstPortID)
{
    Np1xSmacKey stKey;
    return Np_Exact_Del(&g_st1xSmacTable, ulChipID, Np_SmacKey(pstSmac, pstPortID, &stKey));
}

uint32_t Np_TarnB_1xSmacBondingTbl_GetByIndex(uint32_t ulChipID, uint32_t ulDstMemType,
                                              uint32_t ulIndex, Np1xSmac *pstSmac,
                                              NpPortID *pstPortID, uint32_t *pulInfo)
{
    const uint32_t aulPlace[] = {ulDstMemType, ulIndex};
    const bool bThere = pstSmac != nullptr && pstPortID != nullptr && pulInfo != nullptr;
    Np1xSmacKey stKey = {};
    NpNoData stData;
    NpExactMet stMet = {};
    const uint32_t ulReturn = Np_Exact_GetByIndex(&g_st1xSmacTable, ulChipID, aulPlace,
                                                  bThere ? &stKey : nullptr, &stData, &stMet);
    if (ulReturn == NP_OK) {
        *pstSmac = stKey.stSmac;
        *pstPortID = stKey.stPort;
        *pulInfo = stMet.ulStatus;
    }
    return ulReturn;
}

uint32_t Np_Tarn_1xSmacBondingTbl_DelByIndex(uint32_t ulChipID, uint32_t ulDstMemType,
                                             uint32_t ulIndex)
{
    const uint32_t aulPlace[] = {ulDstMemType, ulIndex};
    return Np_Exact_DelByIndex(&g_st1xSmacTable, ulChipID, aulPlace);
}

// ---- MAC filter
// -----------------------------------------------------------------------------------

uint32_t Np_Tarn_SECU_MacFilterTblKeyCheck(uint32_t ulChipID, const NpMacFilterKey *pstMacFilter)
{
    return Np_Row_Check(&g_stMacFilterKeyRow, ulChipID, pstMacFilter);
}

uint32_t Np_Tarn_SECU_MacFilterTblKeyKeyBulid(uint32_t ulChipID, const NpMacFilterKey *pstMacFilter,
                                              void *pvItem)
{
    return Np_Exact_KeyBuild(&g_stMacFilterTable, ulChipID, pstMacFilter, pvItem);
}

uint32_t Np_Tarn_SECU_MacFilterTblKeyParse(uint32_t ulChipID, const void *pvItem,
                                           NpMacFilterKey *pstMacFilter)
{
    memset(pstMacFilter, 0, sizeof(*pstMacFilter));
    const uint32_t ulReturn = Np_Row_Parse(&g_stMacFilterKeyRow, ulChipID, pvItem, pstMacFilter);
    return ulReturn != NP_OK
               ? ulReturn
               : Np_Row_Parse(&g_stMacFilterDataRow, ulChipID, pvItem, &pstMacFilter->ulAD);
}

uint32_t Np_Tarn_MacFilter_Set(uint32_t ulChipID, const NpMacFilterKey *pstMacFilter)
{
    return Np_Exact_Add(&g_stMacFilterTable, ulChipID, pstMacFilter,
                        pstMacFilter != nullptr ? &pstMacFilter->ulAD : nullptr);
}

uint32_t Np_Tarn_MacFilter_Get(uint32_t ulChipID, NpMacFilterKey *pstMacFilter)
{
    NpExactMet stMet;
    NpMacFilterAd stAd = {};
    uint32_t ulReturn = Np_Exact_Get(&g_stMacFilterTable, ulChipID, pstMacFilter, &stAd, &stMet);
    NpExactItem stItem = {};
    if (ulReturn == NP_OK) {
        ulReturn = Np_Exact_KeyBuild(&g_stMacFilterTable, ulChipID, pstMacFilter, stItem.aulWord);
    }
    if (ulReturn == NP_OK) {
        ulReturn = Np_Exact_DataBuild(&g_stMacFilterTable, ulChipID, &stAd, stItem.aulWord);
    }
    return ulReturn != NP_OK
               ? ulReturn
               : Np_Tarn_SECU_MacFilterTblKeyParse(ulChipID, stItem.aulWord, pstMacFilter);
}

uint32_t Np_Tarn_MacFilter_Del(uint32_t ulChipID, const NpMacFilterKey *pstMacFilter)
{
    return Np_Exact_Del(&g_stMacFilterTable, ulChipID, pstMacFilter);
}

}  // extern "C"

uint32_t Np_1xSmac_Set(uint32_t ulChipID, const Np1xSmacKey *pstKey, const NpNoData *)
{
    return Np_1xSmacBondingTbl_Set(ulChipID, &pstKey->stSmac, &pstKey->stPort);
}

uint32_t Np_1xSmac_Get(uint32_t ulChipID, const Np1xSmacKey *pstKey, NpNoData *)
{
    Np1xSmacKey stKey = *pstKey;
    return Np_1xSmacBondingTbl_Get(ulChipID, &stKey.stSmac, &stKey.stPort);
}

uint32_t Np_1xSmac_Del(uint32_t ulChipID, const Np1xSmacKey *pstKey)
{
    return Np_1xSmacBondingTbl_Del(ulChipID, &pstKey->stSmac, &pstKey->stPort);
}

uint32_t Np_1xSmac_GetByIndex(uint32_t ulChipID, uint32_t ulDstMemType, uint32_t ulIndex,
                              Np1xSmacKey *pstKey, NpNoData *, uint32_t *pulInfo)
{
    return Np_1xSmacBondingTbl_GetByIndex(ulChipID, ulDstMemType, ulIndex, &pstKey->stSmac,
                                          &pstKey->stPort, pulInfo);
}

uint32_t Np_MacFilterEntry_Set(uint32_t ulChipID, const NpMacFilterKey *pstKey,
                               const NpMacFilterAd *pstAd)
{
    NpMacFilterKey stFilter = *pstKey;
    stFilter.ulAD = pstAd->ulAD;
    return Np_MacFilter_Set(ulChipID, &stFilter);
}

uint32_t Np_MacFilterEntry_Get(uint32_t ulChipID, const NpMacFilterKey *pstKey,
                               NpMacFilterAd *pstAd)
{
    NpMacFilterKey stFilter = *pstKey;
    const uint32_t ulReturn = Np_MacFilter_Get(ulChipID, &stFilter);
    if (ulReturn == NP_OK) {
        pstAd->ulAD = stFilter.ulAD;
    }
    return ulReturn;
}

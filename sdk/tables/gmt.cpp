#include "sdk/tables/gmt.h"

#include "ldsdk/status.h"
#include "sdk/access/regtable.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/lookup/lcam.h"
#include "sdk/record/describe.h"
#include "sdk/record/table.h"

constinit void *g_pastGmtKeyEntryPri[NP_CHIP_NUM] = {};
constinit void *g_pastGmtEntryKey[NP_CHIP_NUM] = {};
constinit void *g_pastGmtPriPoint[NP_CHIP_NUM] = {};

namespace {

inline constexpr uint32_t NP_GMT_DATA_TABLE = 139;
inline constexpr uint32_t NP_BITMAP_TABLE = 142;
inline constexpr uint32_t NP_GMT_PORT = 1u << 3;  // of ulGmtMode

// The mask of one field: all ones if its bit of the mode is set. Read back, only a full one counts.
template <uint32_t ulBit>
uint32_t Np_GmtMaskEncode(uint32_t, const void *pvField, uint32_t *pulStored)
{
    uint32_t ulMode;
    __builtin_memcpy(&ulMode, pvField, sizeof(ulMode));
    *pulStored = (ulMode >> ulBit & 1) != 0 ? 0xffffffff : 0;
    return NP_OK;
}

template <uint32_t ulBit, uint32_t ulFull>
uint32_t Np_GmtMaskDecode(uint32_t, uint32_t ulStored, void *pvField)
{
    uint32_t ulMode = 0;
    if (ulBit != 0) {  // the first clears what the caller had
        __builtin_memcpy(&ulMode, pvField, sizeof(ulMode));
    }
    ulMode |= static_cast<uint32_t>(ulStored == ulFull) << ulBit;
    __builtin_memcpy(pvField, &ulMode, sizeof(ulMode));
    return NP_OK;
}

template <uint32_t ulBit, uint32_t ulFull>
constexpr NpCoding g_stGmtMaskCoding = {Np_GmtMaskEncode<ulBit>, Np_GmtMaskDecode<ulBit, ulFull>,
                                        "", "", false};

// The source port by its number. A rule that does not compare it takes any, also one that the chip
// has not; nothing reads a port back.
uint32_t Np_GmtPortEncode(uint32_t ulChipID, const void *pvField, uint32_t *pulStored)
{
    NpPortGmtKey stKey;
    __builtin_memcpy(&stKey,
                     static_cast<const uint8_t *>(pvField) - offsetof(NpPortGmtKey, ulSportType),
                     sizeof(stKey));
    const NpPortID stPort = {stKey.ulSportType, stKey.ulSportID, stKey.ulSsubPortID, stKey.ulSPri};
    const uint32_t ulReturn = Np_PortID2PhyID(ulChipID, &stPort, pulStored);
    if (ulReturn != NP_OK && (stKey.ulGmtMode & NP_GMT_PORT) == 0) {
        *pulStored = 0;
        return NP_OK;
    }
    return ulReturn;
}

uint32_t Np_GmtPortDecode(uint32_t, uint32_t, void *)
{
    return NP_OK;
}

constexpr NpCoding g_stGmtPortCoding = {Np_GmtPortEncode, Np_GmtPortDecode,
                                        "phy ID calculate failed! ulReturn=0x%08x\r\n", "", true};

namespace gmt_key {
using R = NpPortGmtKey;
constexpr uint16_t M = NP_GMT_KEY_SIZE;  // byte of the mask
constexpr NpField g_astField[] = {
    NP_F(ulGmtMode, .stAt = {M, 15, 4}, .pstCoding = &g_stGmtMaskCoding<0, 0xfff>),
    NP_F(ulGmtMode, .stAt = {M, 3, 1}, .ucFrom = 1, .pstCoding = &g_stGmtMaskCoding<1, 7>),
    NP_F(ulGmtMode, .stAt = {M + 2, 7, 0}, .ucFrom = 2, .pstCoding = &g_stGmtMaskCoding<2, 0xff>),
    NP_F(ulGmtMode, .stAt = {M + 3, 11, 6}, .ucFrom = 3, .pstCoding = &g_stGmtMaskCoding<3, 0x3f>),
    Np_FieldMake<NpPortID>(
        "ulSportType", offsetof(R, ulSportType), sizeof(NpPortID), 0,
        {.stAt = {3, 11, 6}, .pszKey = "sport", .pstCoding = &g_stGmtPortCoding}),
    Np_FieldMake<NpPortID>("ulDportType", offsetof(R, ulDportType), sizeof(NpPortID), 0,
                           {.pszKey = "dport", .bLost = true}),
    NP_F(ulTos, .stAt = {2, 7, 0}),
    NP_F(ulPcp, .stAt = {0, 3, 1}),
    NP_F(ulVID, .stAt = {0, 15, 4}),
    NP_F(ulGemportIndex, .stAt = {2 * M, 8, 0}),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulTos, Np_Below(256)),
    NP_C(ulPcp, Np_Below(8)),
    NP_C(ulVID, Np_Below(4096)),
    NP_C(ulGmtMode, Np_MostCap(NP_CAP_GEMPORT_INDEX_MAX)),
    NP_C(ulGemportIndex, Np_Below(NP_GMT_ROWS)),
};
}  // namespace gmt_key

namespace gmt_data {
using R = NpPortGmtData;
constexpr NpField g_astField[] = {
    NP_F(ulGemportID, .stAt = {6, 11, 0}),
    NP_F(ulQueueOffset, .stAt = {5, 7, 0}),
    NP_F(ulCarProfile, .stAt = {4, 7, 0}),
    NP_F(ulGemportCarID, .stAt = {0, 16, 8}),
    NP_F(ulIcosMode, .stAt = {2, 7, 5}, .bCut = true),
    NP_F(ulIcos, .stAt = {2, 4, 1}, .pstWhen = NP_WHEN(ulIcosMode, 1u << 0), .bCut = true),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulGemportID, Np_MostCap(NP_CAP_GEMPORT_ID_MAX)),
    NP_C(ulQueueOffset, Np_MostCap(NP_CAP_QUEUE_OFFSET_MAX)),
    NP_C(ulCarProfile, Np_MostCap(NP_CAP_CAR_PROFILE_MAX)),
    NP_C(ulGemportCarID, Np_MostCap(NP_CAP_GEMPORT_CAR_MAX)),
};
}  // namespace gmt_data

namespace gmt_index {
using R = NpIndexArg;
constexpr NpField g_astField[] = {NP_F(ulIndex, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulIndex, Np_Below(NP_GMT_ROWS))};
}  // namespace gmt_index

// What a command says of a rule: all of it but its row. The source port is shown where it counts.
namespace gmt_rule {
using R = NpGmtRule;
constexpr NpField Port(const char *pszName, const char *pszKey, size_t ulOffset,
                       const NpWhen *pstWhen = nullptr)
{
    return Np_FieldMake<NpPortID>(pszName, ulOffset, sizeof(NpPortID), 0,
                                  {.pszKey = pszKey, .pstWhen = pstWhen});
}
constexpr NpField g_astCommon[] = {
    NP_F(stKey.ulGmtMode),     NP_F(stKey.ulTos),           NP_F(stKey.ulPcp),
    NP_F(stKey.ulVID),         NP_F(stData.ulGemportID),    NP_F(stData.ulQueueOffset),
    NP_F(stData.ulCarProfile), NP_F(stData.ulGemportCarID), NP_F(stData.ulIcosMode),
    NP_F(stData.ulIcos),
};
constexpr NpField g_astPort[] = {
    Port("stKey.ulSportType", "sport", offsetof(R, stKey.ulSportType)),
    Port("stKey.ulDportType", "dport", offsetof(R, stKey.ulDportType)),
};
constexpr NpField g_astShownPort[] = {
    Port("stKey.ulSportType", "sport", offsetof(R, stKey.ulSportType),
         NP_WHEN_BITS(stKey.ulGmtMode, NP_GMT_PORT)),
};
constexpr auto g_astField = Np_JoinFields(g_astCommon, g_astPort);
constexpr auto g_astShown = Np_JoinFields(g_astCommon, g_astShownPort);
constexpr NpCheck g_astCheck[] = {
    NP_C(stKey.ulTos, Np_Below(256)),
    NP_C(stKey.ulPcp, Np_Below(8)),
    NP_C(stKey.ulVID, Np_Below(4096)),
    NP_C(stKey.ulGmtMode, Np_MostCap(NP_CAP_GEMPORT_INDEX_MAX)),
    NP_C(stData.ulGemportID, Np_MostCap(NP_CAP_GEMPORT_ID_MAX)),
    NP_C(stData.ulQueueOffset, Np_MostCap(NP_CAP_QUEUE_OFFSET_MAX)),
    NP_C(stData.ulCarProfile, Np_MostCap(NP_CAP_CAR_PROFILE_MAX)),
    NP_C(stData.ulGemportCarID, Np_MostCap(NP_CAP_GEMPORT_CAR_MAX)),
    NP_C(stData.ulIcosMode, Np_Most(7)),
    NP_C(stData.ulIcos, Np_Most(15)),
};
}  // namespace gmt_rule

namespace bitmap_key {
struct R {
    uint32_t ulGemportId;
};
constexpr NpField g_astField[] = {NP_F(ulGemportId, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulGemportId, Np_Below(4096))};
}  // namespace bitmap_key

namespace bitmap_row {
using R = NpPortGemportBitMapInfo;
constexpr NpField g_astField[] = {NP_F(ulHS, .stAt = {0, 7, 0}, .bCut = true)};
}  // namespace bitmap_row

// The row that four GEM ports share.
namespace bitmap_word {
struct R {
    uint8_t aucHS[4];
};
struct Key {
    using R = NpIndexArg;
    static constexpr NpField g_astField[] = {NP_F(ulIndex)};
};
constexpr NpField g_astField[] = {NP_F(aucHS, .stAt = {0, 7, 0}, .sStep = 8)};
constexpr NpRow g_stKey = Np_RowMake<NpIndexArg>({.ucModule = NP_M_PORT}, Key::g_astField, {});
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_PORT, .pszArg = "pstGemportBitMapInfo", .usImageSize = 4}, g_astField, {});
constexpr NpTable g_stTable = Np_TableMake(g_stKey, g_stRow, NP_BITMAP_TABLE);
}  // namespace bitmap_word

// A rule's key row, and its data row.
struct NpGmtKeyImage {
    uint32_t aulKey[NP_GMT_KEY_SIZE / 4];
    uint32_t aulMask[NP_GMT_KEY_SIZE / 4];
    uint32_t ulAd;
};
struct NpGmtDataImage {
    uint32_t aulWord[2];
};

uint32_t Np_NullRecord(NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, NP_M_PORT, NP_PRINT_ERROR, "Para null ptr\r\n");
    return NP_ERR_NULL_PTR;
}

uint32_t Np_Failed(uint32_t ulReturn, NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, NP_M_PORT, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
    return ulReturn;
}

void Np_EntryTrace(uint32_t ulChipID, NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, NP_M_PORT, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
}

uint32_t Np_GmtDataRead(uint32_t ulChipID, uint32_t ulIndex, NpGmtDataImage *pstImage,
                        NpWhere stWhere)
{
    *pstImage = {};
    const uint32_t ulReturn =
        Np_RegTableRead(ulChipID, NP_GMT_DATA_TABLE, ulIndex, pstImage->aulWord);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_PORT, NP_PRINT_ERROR,
                    "Read error return:0x%08x  ID:0x%08x Offset:0x%08x\r\n", ulReturn,
                    NP_GMT_DATA_TABLE, ulIndex);
    }
    return ulReturn;
}

// Reads the rule of a row that there is.
uint32_t Np_GmtRead(uint32_t ulChipID, uint32_t ulIndex, NpPortGmtKey *pstGmtKey,
                    NpPortGmtData *pstGmtData, NpWhere stWhere)
{
    NpGmtKeyImage stKey = {};
    uint32_t ulReturn = Np_Tarn_LCAM_TcamRead(ulChipID, NP_LCAM_GMT, ulIndex, stKey.aulKey,
                                              stKey.aulMask, &stKey.ulAd);
    if (ulReturn != NP_OK) {
        return Np_Failed(ulReturn, stWhere);
    }
    NpGmtDataImage stData;
    ulReturn = Np_GmtDataRead(ulChipID, ulIndex, &stData, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_Row_Parse(&g_stGmtKeyRow, ulChipID, &stKey, pstGmtKey, stWhere);
    Np_Row_Parse(&g_stGmtDataRow, ulChipID, &stData, pstGmtData, stWhere);
    Np_Row_Trace(&g_stGmtKeyRow, pstGmtKey, stWhere);
    Np_Row_Trace(&g_stGmtDataRow, pstGmtData, stWhere);
    return NP_OK;
}

uint32_t Np_GmtDelete(uint32_t ulChipID, uint32_t ulIndex, NpWhere stWhere)
{
    const uint32_t ulReturn = Np_Tarn_LCAM_TcamDelete(ulChipID, NP_LCAM_GMT, ulIndex);
    if (ulReturn != NP_OK) {
        return Np_Failed(ulReturn, stWhere);
    }
    NpGmtDataImage stData;  // stays in its row; a failed read is told
    return Np_GmtDataRead(ulChipID, ulIndex, &stData, stWhere);
}

}  // namespace

constexpr NpRow g_stGmtKeyRow =
    Np_RowMake<NpPortGmtKey>({.ucModule = NP_M_PORT,
                              .pszArg = "pstGmtKey",
                              .usImageSize = 2 * NP_GMT_KEY_SIZE + NP_GMT_AD_SIZE},
                             gmt_key::g_astField, gmt_key::g_astCheck);
constexpr NpRow g_stGmtDataRow =
    Np_RowMake<NpPortGmtData>({.ucModule = NP_M_PORT, .pszArg = "pstGmtData", .usImageSize = 8},
                              gmt_data::g_astField, gmt_data::g_astCheck);
constexpr NpRow g_stGmtIndexArgs =
    Np_RowMake<NpIndexArg>({.ucModule = NP_M_PORT}, gmt_index::g_astField, gmt_index::g_astCheck);
constexpr NpRow g_stGmtRuleArgs =
    Np_RowMake<NpGmtRule>({.ucModule = NP_M_PORT}, gmt_rule::g_astField, gmt_rule::g_astCheck);
constexpr NpRow g_stGmtShownArgs =
    Np_RowMake<NpGmtRule>({.ucModule = NP_M_PORT}, gmt_rule::g_astShown, gmt_rule::g_astCheck);
constexpr NpRow g_stGemportKeyArgs = Np_RowMake<bitmap_key::R>(
    {.ucModule = NP_M_PORT}, bitmap_key::g_astField, bitmap_key::g_astCheck);
constexpr NpRow g_stGemportBitMapRow = Np_RowMake<NpPortGemportBitMapInfo>(
    {.ucModule = NP_M_PORT, .pszArg = "pstGemportBitMapInfo", .usImageSize = 1},
    bitmap_row::g_astField, {});

extern "C" {

void Np_Tarn_PORT_GmtKeyParaTrace(const NpPortGmtKey *pstGmtKey)
{
    Np_Row_Trace(&g_stGmtKeyRow, pstGmtKey);
}

void Np_Tarn_PORT_GmtDataParaTrace(const NpPortGmtData *pstGmtData)
{
    Np_Row_Trace(&g_stGmtDataRow, pstGmtData);
}

uint32_t Np_Tarn_PORT_GmtKeyParaCheck(uint32_t ulChipID, const NpPortGmtKey *pstGmtKey)
{
    return Np_Row_Check(&g_stGmtKeyRow, ulChipID, pstGmtKey);
}

uint32_t Np_Tarn_PORT_GmtDataParaCheck(uint32_t ulChipID, const NpPortGmtData *pstGmtData)
{
    return Np_Row_Check(&g_stGmtDataRow, ulChipID, pstGmtData);
}

uint32_t Np_Tarn_PORT_GmtKeyMaskBuild(uint32_t ulChipID, const NpPortGmtKey *pstGmtKey, void *pvKey,
                                      void *pvMask)
{
    NpGmtKeyImage stImage;
    const uint32_t ulReturn = Np_Row_Build(&g_stGmtKeyRow, ulChipID, pstGmtKey, &stImage);
    memcpy(pvKey, stImage.aulKey, NP_GMT_KEY_SIZE);
    memcpy(pvMask, stImage.aulMask, NP_GMT_KEY_SIZE);
    return ulReturn;
}

uint32_t Np_Tarn_PORT_GmtAdBuild(uint32_t, const NpPortGmtKey *pstGmtKey, void *pvAd)
{
    const uint32_t ulAd = pstGmtKey->ulGemportIndex & (NP_GMT_ROWS - 1);
    memcpy(pvAd, &ulAd, sizeof(ulAd));
    return NP_OK;
}

uint32_t Np_Tarn_PORT_GmtDataBuild(uint32_t ulChipID, const NpPortGmtData *pstGmtData, void *pvData)
{
    NpGmtDataImage stImage;
    const uint32_t ulReturn = Np_Row_Build(&g_stGmtDataRow, ulChipID, pstGmtData, &stImage);
    memcpy(pvData, &stImage, sizeof(stImage));
    return ulReturn;
}

uint32_t Np_Tarn_PORT_GmtKeyParse(uint32_t ulChipID, const void *pvKey, const void *pvMask,
                                  const void *pvAd, NpPortGmtKey *pstGmtKey)
{
    NpGmtKeyImage stImage;
    memcpy(stImage.aulKey, pvKey, NP_GMT_KEY_SIZE);
    memcpy(stImage.aulMask, pvMask, NP_GMT_KEY_SIZE);
    memcpy(&stImage.ulAd, pvAd, NP_GMT_AD_SIZE);
    return Np_Row_Parse(&g_stGmtKeyRow, ulChipID, &stImage, pstGmtKey);
}

uint32_t Np_Tarn_PORT_GmtDataParse(uint32_t ulChipID, const void *pvData, NpPortGmtData *pstGmtData)
{
    NpGmtDataImage stImage;
    memcpy(&stImage, pvData, sizeof(stImage));
    return Np_Row_Parse(&g_stGmtDataRow, ulChipID, &stImage, pstGmtData);
}

uint32_t Np_Tarn_GmtTbl_Set(uint32_t ulChipID, const NpPortGmtKey *pstGmtKey,
                            const NpPortGmtData *pstGmtData)
{
    Np_EntryTrace(ulChipID, Np_Here());
    if (pstGmtKey == nullptr || pstGmtData == nullptr) {
        return Np_NullRecord(Np_Here());
    }
    Np_Row_Trace(&g_stGmtKeyRow, pstGmtKey);
    Np_Row_Trace(&g_stGmtDataRow, pstGmtData);
    uint32_t ulReturn = Np_Row_Check(&g_stGmtKeyRow, ulChipID, pstGmtKey);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Check(&g_stGmtDataRow, ulChipID, pstGmtData);
    }
    NpGmtKeyImage stKey;
    NpGmtDataImage stData;
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Build(&g_stGmtKeyRow, ulChipID, pstGmtKey, &stKey);
    }
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Build(&g_stGmtDataRow, ulChipID, pstGmtData, &stData);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint32_t ulIndex = pstGmtKey->ulGemportIndex;
    ulReturn = Np_Tarn_LCAM_TcamWrite(ulChipID, NP_LCAM_GMT, ulIndex, stKey.aulKey, stKey.aulMask,
                                      &stKey.ulAd);
    if (ulReturn != NP_OK) {
        return Np_Failed(ulReturn, Np_Here());
    }
    ulReturn = Np_RegTableWrite(ulChipID, NP_GMT_DATA_TABLE, ulIndex, stData.aulWord);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_PORT, NP_PRINT_ERROR, "Write error return:0x%08x ID:0x%08x Offset:0x%08x\r\n",
                 ulReturn, NP_GMT_DATA_TABLE, ulIndex);
        return ulReturn;
    }
    NP_TRACE(NP_M_PORT, NP_PRINT_TRACE, "ulChipID = 0x%08x, ulKeyID = 0x%08x\r\n", ulChipID,
             ulIndex);
    return NP_OK;
}

uint32_t Np_Tarn_GmtTbl_Get(uint32_t ulChipID, NpPortGmtKey *pstGmtKey, NpPortGmtData *pstGmtData)
{
    Np_EntryTrace(ulChipID, Np_Here());
    if (pstGmtKey == nullptr || pstGmtData == nullptr) {
        return Np_NullRecord(Np_Here());
    }
    const uint32_t ulReturn = Np_Row_Check(&g_stGmtKeyRow, ulChipID, pstGmtKey);
    return ulReturn != NP_OK
               ? ulReturn
               : Np_GmtRead(ulChipID, pstGmtKey->ulGemportIndex, pstGmtKey, pstGmtData, Np_Here());
}

uint32_t Np_Tarn_GmtTbl_Del(uint32_t ulChipID, const NpPortGmtKey *pstGmtKey)
{
    Np_EntryTrace(ulChipID, Np_Here());
    if (pstGmtKey == nullptr) {
        return Np_NullRecord(Np_Here());
    }
    Np_Row_Trace(&g_stGmtKeyRow, pstGmtKey);
    const uint32_t ulReturn = Np_Row_Check(&g_stGmtKeyRow, ulChipID, pstGmtKey);
    return ulReturn != NP_OK ? ulReturn
                             : Np_GmtDelete(ulChipID, pstGmtKey->ulGemportIndex, Np_Here());
}

uint32_t Np_Tarn_GmtTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex, NpPortGmtKey *pstGmtKey,
                                   NpPortGmtData *pstGmtData)
{
    Np_EntryTrace(ulChipID, Np_Here());
    if (pstGmtKey == nullptr || pstGmtData == nullptr) {
        return Np_NullRecord(Np_Here());
    }
    const uint32_t ulReturn = Np_Row_Check(&g_stGmtIndexArgs, ulChipID, &ulIndex);
    return ulReturn != NP_OK ? ulReturn
                             : Np_GmtRead(ulChipID, ulIndex, pstGmtKey, pstGmtData, Np_Here());
}

uint32_t Np_Tarn_GmtTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex)
{
    Np_EntryTrace(ulChipID, Np_Here());
    const uint32_t ulReturn = Np_Row_Check(&g_stGmtIndexArgs, ulChipID, &ulIndex);
    return ulReturn != NP_OK ? ulReturn : Np_GmtDelete(ulChipID, ulIndex, Np_Here());
}

// ---- GEM port bitmap ----------------------------------------------------------------------------

uint32_t Np_Tarn_GemportBitMapTbl_Get(uint32_t ulChipID, uint32_t ulGemportId,
                                      NpPortGemportBitMapInfo *pstGemportBitMapInfo)
{
    if (pstGemportBitMapInfo == nullptr) {
        return Np_NullRecord(Np_Here());
    }
    const uint32_t ulRow = ulGemportId >> 2;
    bitmap_word::R stWord = {};
    const uint32_t ulReturn = Np_Table_Get(&bitmap_word::g_stTable, ulChipID, &ulRow, &stWord);
    if (ulReturn == NP_OK) {
        pstGemportBitMapInfo->ulHS = stWord.aucHS[ulGemportId & 3];
    }
    return ulReturn;
}

uint32_t Np_Tarn_GemportBitMapTbl_Set(uint32_t ulChipID, uint32_t ulGemportId,
                                      const NpPortGemportBitMapInfo *pstGemportBitMapInfo)
{
    if (pstGemportBitMapInfo == nullptr) {
        return Np_NullRecord(Np_Here());
    }
    const uint32_t ulRow = ulGemportId >> 2;
    bitmap_word::R stWord = {};
    uint32_t ulReturn = Np_Table_Get(&bitmap_word::g_stTable, ulChipID, &ulRow, &stWord);
    if (ulReturn == NP_OK) {
        stWord.aucHS[ulGemportId & 3] = static_cast<uint8_t>(pstGemportBitMapInfo->ulHS);
        ulReturn = Np_Table_Set(&bitmap_word::g_stTable, ulChipID, &ulRow, &stWord);
    }
    return ulReturn != NP_OK ? ulReturn
                             : Np_Table_Get(&bitmap_word::g_stTable, ulChipID, &ulRow, &stWord);
}

}  // extern "C"

// ---- rules as commands have them ----------------------------------------------------------------

// The source port is the one that the row's six bits name, so that a rule that is set again keeps
// it.
uint32_t Np_GmtRule_Get(uint32_t ulChipID, uint32_t ulIndex, NpGmtRule *pstRule)
{
    NpPortGmtKey *pstKey = &pstRule->stKey;
    pstKey->ulGemportIndex = ulIndex;
    uint32_t ulReturn = Np_GmtTbl_Get(ulChipID, pstKey, &pstRule->stData);
    if (ulReturn != NP_OK || (pstKey->ulGmtMode & NP_GMT_PORT) == 0) {
        return ulReturn;
    }
    NpGmtKeyImage stImage = {};
    NpPortID stPort = {};
    ulReturn =
        Np_Tarn_LCAM_TcamRead(ulChipID, NP_LCAM_GMT, ulIndex, stImage.aulKey, nullptr, nullptr);
    if (ulReturn == NP_OK) {
        const uint32_t ulPhyID = (stImage.aulKey[0] >> 30 | stImage.aulKey[1] << 2) & 0x3f;
        ulReturn = Np_IngressPhyID2PortID(ulChipID, ulPhyID, &stPort);
    }
    pstKey->ulSportType = stPort.ulPortType;
    pstKey->ulSportID = stPort.ulPortID;
    pstKey->ulSsubPortID = stPort.ulSubPortID;
    pstKey->ulSPri = stPort.ulPri;
    return ulReturn;
}

uint32_t Np_GmtRule_Set(uint32_t ulChipID, uint32_t ulIndex, const NpGmtRule *pstRule)
{
    NpPortGmtKey stKey = pstRule->stKey;
    stKey.ulGemportIndex = ulIndex;
    return Np_GmtTbl_Set(ulChipID, &stKey, &pstRule->stData);
}

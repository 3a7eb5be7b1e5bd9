#include "sdk/tables/multiservice.h"

#include "ldsdk/status.h"
#include "platform/os.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/lookup/lcam.h"
#include "sdk/record/describe.h"

constinit NpPriCamKeyInfo *g_pastMultiServiceKeyEntryPri[NP_CHIP_NUM] = {};
constinit uint32_t *g_pastMultiServiceEntryKey[NP_CHIP_NUM] = {};
constinit NpPriBlockPoint *g_pastMultiServicePriPoint[NP_CHIP_NUM] = {};
constinit uint32_t g_ulCamEntryUsedNum[NP_CHIP_NUM] = {};
constinit uint32_t g_ulPriMax[NP_CHIP_NUM] = {};
constinit uint32_t *g_pulMultiServiceKeySrcIntfSel[NP_CHIP_NUM] = {};

namespace {

// The row's image: key, mask and AD, one behind the other.
inline constexpr uint16_t NP_KEY_SIZE = 8;
inline constexpr uint16_t NP_AD_SIZE = 4;
inline constexpr uint16_t NP_WIDE_KEY_SIZE = 12;
inline constexpr uint16_t NP_WIDE_AD_SIZE = 8;
inline constexpr uint32_t NP_SOURCE_MASK = 0x3f;

namespace key_arg {
struct R {
    uint32_t ulKeyID;
};
constexpr NpField g_astField[] = {NP_F(ulKeyID, .pszKey = "keyid")};
constexpr NpCheck g_astCheck[] = {NP_C(ulKeyID, Np_BelowCap(NP_CAP_FLOW_NUM))};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_L2}, g_astField, g_astCheck);
}  // namespace key_arg

// The flag's mask always reads as set.
uint32_t Np_GmtMaskEncode(uint32_t, const void *pvField, uint32_t *pulStored)
{
    uint32_t ulMask;
    __builtin_memcpy(&ulMask, pvField, sizeof(ulMask));
    *pulStored = ulMask != 0 ? 1 : 0;
    return NP_OK;
}

uint32_t Np_GmtMaskDecode(uint32_t, uint32_t, void *pvField)
{
    const uint32_t ulOn = 1;
    __builtin_memcpy(pvField, &ulOn, sizeof(ulOn));
    return NP_OK;
}

constexpr NpCoding g_stGmtMaskCoding = {Np_GmtMaskEncode, Np_GmtMaskDecode, "", "", true};

namespace rule_row {
using R = NpMultiService;
constexpr auto g_astSelWords = Np_Words("defaultmask", "usermask");
constexpr auto g_astTypeWords = Np_Words("port", "lagid", "nhlfeid");
constexpr NpSmdKeyEnum g_astTagWords[] = {{0, "tag0", 0}, {0, "tag1", 2}, {0, "tag2", 3}};
constexpr auto g_astEncapWords =
    Np_Words("eth", "ch+eth", "ppp", "ch+ppp", "eth+dsa", "eth+higi", "atm+cell", "rsvd", "ipoallc",
             "1483bllc", "pppoallc", "aoe", "ipoavcmux", "1483bvcmux", "pppoavcmux");

// How the source is given: by its port, or as the microcode's number with a mask of bits.
constexpr const NpWhen *g_pstByPort = NP_WHEN(ulSrcIntfSelType, 1u << 0);
constexpr const NpWhen *g_pstByNumber = NP_WHEN(ulSrcIntfSelType, 1u << 1);

constexpr NpField g_astSource[] = {
    NP_F(ulMutiServicePri, .pszKey = "keypri", .bLost = true),
    NP_F(ulSrcIntfSelType, .pszKey = "srcintfseltype", .stWords = g_astSelWords, .bHanded = true),
    NP_F(stSrcIntf.ulType, .pszKey = "srcintftype", .stWords = g_astTypeWords, .bLost = true),
    NP_F(stSrcIntf.unSrcIntf.stPortInfo.stPortID, .stAt = {2, 11, 6}, .pszKey = "port",
         .pstWhen = g_pstByPort, .pstCoding = &g_stNpPortCoding, .bFree = true, .bRead = true),
    NP_F(stSrcIntf.unSrcIntf.stPortInfo.ulPvcID, .pszKey = "pvcid",
         .pstWhen = NP_WHEN(stSrcIntf.ulType, 1u << 0), .bLost = true, .bFree = true),
    NP_F(stSrcIntf.unSrcIntf.ulLagID, .pszKey = "laggid",
         .pstWhen = NP_WHEN(stSrcIntf.ulType, 1u << 1), .bLost = true, .bFree = true),
    NP_F(stSrcIntf.unSrcIntf.ulLagID, .pszKey = "nhlid",
         .pstWhen = NP_WHEN(stSrcIntf.ulType, 1u << 2), .bLost = true, .bFree = true),
    NP_F(ulSrcIntf, .stAt = {2, 11, 6}, .pszKey = "srcintf", .pstWhen = g_pstByNumber,
         .bFree = true, .bRead = true),
};
constexpr NpTwin g_astTwin[] = {
    NP_TWIN(NP_TWIN_SWITCH, ulOuterVlanID, ulOuterVlanIDMask, "outvidmask", .stAt = {0, 11, 0},
            .pszKey = "outvid"),
    NP_TWIN(NP_TWIN_SWITCH, ulInnerVlanID, ulInnerVlanIDMask, "invidmask", .pszKey = "invid",
            .bLost = true),
    NP_TWIN(NP_TWIN_SWITCH, ulOuterVlan1p, ulOuterVlan1pMask, "outv1pmask", .stAt = {0, 15, 13},
            .pszKey = "outv1p"),
    NP_TWIN(NP_TWIN_SWITCH, ulInnerVlan1p, ulInnerVlan1pMask, "inv1pmask", .pszKey = "inv1p",
            .bLost = true),
    NP_TWIN(NP_TWIN_SWITCH, ulEthTypeMask, ulEthTypeMaskMask, "ethertypemask", .stAt = {2, 3, 0},
            .pszKey = "ethertype"),
    NP_TWIN(NP_TWIN_SWITCH, ulEnCap, ulEnCapMask, "encapmask", .pszKey = "encap",
            .stWords = g_astEncapWords, .bLost = true),
    NP_TWIN(NP_TWIN_SWITCH, ulVlanN, ulVlanNMask, "vlannmask", .stAt = {2, 5, 4}, .pszKey = "vlann",
            .stWords = g_astTagWords),
    NP_TWIN(NP_TWIN_SWITCH, ulGmt, ulGmtMask, "gmtmask", .stAt = {2, 12, 12}, .pszKey = "gmt"),
    NP_TWIN(NP_TWIN_SWITCH, ulHaValue, ulHaValueMask, "havluemask", .stAt = {4, 6, 0},
            .pszKey = "havlue"),
};
constexpr NpField g_astSourceMask[] = {
    NP_F(ulSrcIntfMask, .stAt = {NP_KEY_SIZE + 2, 11, 6}, .pszKey = "srcintfmask",
         .pstWhen = g_pstByNumber, .bCut = true, .bFree = true, .bRead = true),
    Np_Const({NP_KEY_SIZE + 2, 11, 6}, NP_SOURCE_MASK, g_pstByPort),
};
constexpr NpField g_astAction[] = {
    NP_F(ulIftID, .stAt = {2 * NP_KEY_SIZE, 15, 0}, .pszKey = "iftid"),
    NP_F(ulCmEnable, .pszKey = "cmen", .bLost = true),
    NP_F(ulCmGroupID, .pszKey = "cmid", .bLost = true),
    NP_F(ulCmBip4Enable, .pszKey = "cmbip4", .bLost = true),
    NP_F(ulTosMask, .pszKey = "tosmask", .bLost = true),
    NP_F(ulTos, .pszKey = "tos", .bLost = true),
};

constexpr auto g_astMask = [] {
    auto astMask = Np_TwinMasks(g_astTwin, NP_KEY_SIZE);
    for (NpField &stMask : astMask) {
        if (stMask.usOffset == offsetof(R, ulGmtMask)) {
            stMask.pstCoding = &g_stGmtMaskCoding;
            stMask.bSwitch = false;
        }
    }
    return astMask;
}();
constexpr auto g_astField =
    Np_JoinFields(g_astSource, Np_TwinValues(g_astTwin), g_astSourceMask, g_astMask, g_astAction);

constexpr NpCheck g_astCheck[] = {
    NP_C(ulSrcIntfSelType, Np_Below(2)),
    NP_C(stSrcIntf.ulType, Np_Most(7), .pstWhen = g_pstByPort),
    NP_C(stSrcIntf.unSrcIntf.ulLagID, Np_Most(0x1fff), .bAlone = true,
         .pstWhen = NP_WHEN_NOT(stSrcIntf.ulType, 1u << 0, g_pstByPort)),
    NP_C(stSrcIntf.unSrcIntf.stPortInfo.stPortID, Np_Port(),
         .pstWhen = NP_WHEN(stSrcIntf.ulType, 1u << 0, g_pstByPort)),
    NP_C(stSrcIntf.unSrcIntf.stPortInfo.ulPvcID, Np_Most(7), .bAlone = true,
         .pstWhen = NP_WHEN(stSrcIntf.ulType, 1u << 0, g_pstByPort)),
    NP_C(ulSrcIntf, Np_Most(NP_SOURCE_MASK), .pszText = "stMutiServiceKey.ulSrcIntf",
         .bAlone = true, .pstWhen = g_pstByNumber),
    NP_C(ulIftID, Np_BelowCap(NP_CAP_FLOW_NUM), .pszText = "stMultiServiceAd.ulIftID"),
    NP_C(ulCmEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulCmGroupID, Np_MostCap(NP_CAP_CM_GROUP_MAX), .pszText = "stMultiServiceAd.ulCmGroupID",
         .pstWhen = NP_WHEN(ulCmEnable, 1u << 1)),
    NP_C(ulCmBip4Enable, Np_Flag(NP_SAY_ENABLE), .pstWhen = NP_WHEN(ulCmEnable, 1u << 1)),
    NP_C(ulTosMask, Np_Below(256), .pszText = "stMultiServiceAd.ulTosMask"),
    NP_C(ulTos, Np_Below(256), .pszText = "stMultiServiceAd.ulTos"),
    NP_C(ulOuterVlanID, Np_Below(4096), .pszText = "stMutiServiceKey.ulOuterVlanID",
         .bAlone = true),
    NP_C(ulInnerVlanID, Np_Below(4096), .pszText = "stMutiServiceKey.ulInnerVlanID",
         .bAlone = true),
    NP_C(ulOuterVlan1p, Np_Below(8), .pszText = "stMutiServiceKey.ulOuterVlan1p", .bAlone = true),
    NP_C(ulInnerVlan1p, Np_Below(8), .pszText = "stMutiServiceKey.ulInnerVlan1p", .bAlone = true),
    NP_C(ulEthTypeMask, Np_Below(16), .pszText = "stMutiServiceKey.ulEthTypeMask", .bAlone = true),
    NP_C(ulEnCap, Np_Below(16), .pszText = "stMutiServiceKey.ulEncap", .bAlone = true),
    NP_C(ulVlanN, Np_Below(4), .pszText = "stMutiServiceKey.ulVlanNum", .bAlone = true),
    NP_C(ulGmt, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulHaValue, Np_Most(127), .pszText = "stMutiServiceKey.ulHaInfo", .bAlone = true),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_L2, .pszArg = "pstMultiService", .usImageSize = 2 * NP_KEY_SIZE + NP_AD_SIZE},
    g_astField, g_astCheck);
}  // namespace rule_row

// The wide row: masks of bits, all VLAN fields, and a source that tells its kind.
namespace wide_row {
using R = NpMultiService;
using rule_row::g_pstByNumber;
using rule_row::g_pstByPort;
constexpr const NpWhen *g_pstPort = NP_WHEN(stSrcIntf.ulType, 1u << 0, g_pstByPort);
constexpr NpField g_astSource[] = {
    NP_F(ulSrcIntfSelType, .bHanded = true),
    NP_F(stSrcIntf.ulType, .stAt = {9, 3, 1}, .pszKey = "srcintftype", .pstWhen = g_pstByPort),
    NP_F(stSrcIntf.unSrcIntf.stPortInfo.ulPvcID, .stAt = {8, 8, 6}, .pstWhen = g_pstPort),
    NP_F(stSrcIntf.unSrcIntf.stPortInfo.stPortID, .stAt = {7, 13, 4}, .pstWhen = g_pstPort,
         .pstCoding = &g_stNpPortCoding),
    NP_F(stSrcIntf.unSrcIntf.ulLagID, .stAt = {7, 16, 4},
         .pstWhen = NP_WHEN_NOT(stSrcIntf.ulType, 1u << 0, g_pstByPort)),
    NP_F(ulSrcIntf, .stAt = {7, 19, 4}, .pstWhen = g_pstByNumber),
    NP_F(ulSrcIntfMask, .stAt = {NP_WIDE_KEY_SIZE + 7, 19, 4}, .pstWhen = g_pstByNumber,
         .bCut = true),
    Np_Const({NP_WIDE_KEY_SIZE + 7, 7, 4}, 0xf, g_pstByPort),
    Np_Const({NP_WIDE_KEY_SIZE + 8, 11, 0}, 0xfff, g_pstByPort),
};
constexpr NpTwin g_astTwin[] = {
    NP_TWIN(NP_TWIN_BITS, ulOuterVlanID, ulOuterVlanIDMask, "outvidmask", .stAt = {4, 24, 12}),
    NP_TWIN(NP_TWIN_BITS, ulInnerVlanID, ulInnerVlanIDMask, "invidmask", .stAt = {3, 16, 4}),
    NP_TWIN(NP_TWIN_BITS, ulOuterVlan1p, ulOuterVlan1pMask, "outv1pmask", .stAt = {4, 27, 25}),
    NP_TWIN(NP_TWIN_BITS, ulInnerVlan1p, ulInnerVlan1pMask, "inv1pmask", .stAt = {3, 19, 17}),
    NP_TWIN(NP_TWIN_BITS, ulEthTypeMask, ulEthTypeMaskMask, "ethertypemask", .stAt = {2, 11, 4}),
    NP_TWIN(NP_TWIN_BITS, ulEnCap, ulEnCapMask, "encapmask", .stAt = {2, 3, 0}),
    NP_TWIN(NP_TWIN_BITS, ulVlanN, ulVlanNMask, "vlannmask", .stAt = {1, 5, 4}),
    NP_TWIN(NP_TWIN_BITS, ulHaValue, ulHaValueMask, "havluemask", .stAt = {0, 11, 5}),
};
constexpr NpField g_astAction[] = {
    NP_F(ulIftID, .stAt = {2 * NP_WIDE_KEY_SIZE + 4, 31, 0}),
    NP_F(ulCmEnable, .stAt = {2 * NP_WIDE_KEY_SIZE + 3, 1, 1}),
    NP_F(ulCmGroupID, .stAt = {2 * NP_WIDE_KEY_SIZE + 2, 8, 0},
         .pstWhen = NP_WHEN(ulCmEnable, 1u << 1)),
    NP_F(ulCmBip4Enable, .stAt = {2 * NP_WIDE_KEY_SIZE + 3, 3, 3},
         .pstWhen = NP_WHEN(ulCmEnable, 1u << 1)),
    NP_F(ulTosMask, .stAt = {2 * NP_WIDE_KEY_SIZE + 1, 7, 0}),
    NP_F(ulTos, .stAt = {2 * NP_WIDE_KEY_SIZE, 7, 0}),
};
constexpr auto g_astField = Np_JoinFields(g_astSource, Np_TwinValues(g_astTwin),
                                          Np_TwinMasks(g_astTwin, NP_WIDE_KEY_SIZE), g_astAction);
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_L2,
                                         .pszArg = "pstMultiService",
                                         .usImageSize = 2 * NP_WIDE_KEY_SIZE + NP_WIDE_AD_SIZE},
                                        g_astField, rule_row::g_astCheck);
}  // namespace wide_row

// A part of a row's image, built in a buffer of its own.
struct NpPiece {
    uint16_t usByte;
    uint16_t usSize;
    void *pvTo;
};

uint32_t Np_PiecesBuild(const NpRow *pstRow, uint32_t ulChipID, const void *pvRecord,
                        std::span<const NpPiece> stPieces, NpWhere stWhere)
{
    uint32_t aulImage[NP_ROW_IMAGE_MAX / 4];
    const uint32_t ulReturn = Np_Row_Build(pstRow, ulChipID, pvRecord, aulImage, stWhere);
    for (const NpPiece &stPiece : stPieces) {
        memcpy(stPiece.pvTo, reinterpret_cast<const uint8_t *>(aulImage) + stPiece.usByte,
               stPiece.usSize);
    }
    return ulReturn;
}

// A row's image out of key, mask and AD.
uint32_t Np_PiecesParse(const NpRow *pstRow, uint32_t ulChipID, uint32_t ulKeySize,
                        uint32_t ulAdSize, const void *const (&apvPart)[3], void *pvRecord,
                        NpWhere stWhere)
{
    uint32_t aulImage[NP_ROW_IMAGE_MAX / 4] = {};
    uint8_t *pucImage = reinterpret_cast<uint8_t *>(aulImage);
    memcpy(pucImage, apvPart[0], ulKeySize);
    memcpy(pucImage + ulKeySize, apvPart[1], ulKeySize);
    memcpy(pucImage + 2 * ulKeySize, apvPart[2], ulAdSize);
    return Np_Row_Parse(pstRow, ulChipID, aulImage, pvRecord, stWhere);
}

}  // namespace

constexpr NpRow g_stMultiServiceWideRow = wide_row::g_stRow;

constexpr NpPriTable g_stMultiServiceTable = {
    .pstKey = &key_arg::g_stRow,
    .pstRow = &rule_row::g_stRow,
    .usMask = NP_KEY_SIZE,
    .usAd = 2 * NP_KEY_SIZE,
    .ucLcamTable = NP_LCAM_IFT_KEY,
    .enRows = NP_CAP_FLOW_NUM,
    .usPri = offsetof(NpMultiService, ulMutiServicePri),
    .usKept = offsetof(NpMultiService, ulSrcIntfSelType),
    .pszPri = "param error! (ulMutiServicePri)=0x%08x\r\n",
    .bPriFirst = true,
    .pszOther = "MutiServicePri error! NewMutiServicePri=0x%08xOldMutiServicePri=0x%08x \r\n",
    .pszNoRule = "invalid MultiService key tbl! ulKeyID=0x%08x\r\n",
    .pszNoMemory = "memory alloc failed!\r\n",
    .ulPriLimit = 0xffffffff,
    .pszLimit = nullptr,
    .ppstKeyInfo = g_pastMultiServiceKeyEntryPri,
    .ppulEntryKey = g_pastMultiServiceEntryKey,
    .ppstPriPoint = g_pastMultiServicePriPoint,
    .pulUsedNum = g_ulCamEntryUsedNum,
    .pulPriMax = g_ulPriMax,
    .ppulKept = g_pulMultiServiceKeySrcIntfSel,
    .ulAssignUsed = 0,
};

extern "C" {

uint32_t Np_MultiService_Init(uint32_t ulChipID)
{
    // On the heap: a request has room for 256 priorities.
    NpPriBlock *pstSplit = static_cast<NpPriBlock *>(Os_Alloc(sizeof(NpPriBlock)));
    if (pstSplit == nullptr) {
        NP_TRACE(NP_M_L2, NP_PRINT_ERROR, "memory alloc failed!\r\n");
        return NP_ERR_NO_MEMORY;
    }
    pstSplit->ulMaxPriNum = 8;
    for (uint32_t i = 0; i < pstSplit->ulMaxPriNum; i++) {
        pstSplit->ulPriPercent[i] = i + 1 < pstSplit->ulMaxPriNum ? 10 : 30;
    }
    const uint32_t ulReturn = Np_Tarn_MultiService_PriBlockAssign(ulChipID, pstSplit);
    Os_Free(pstSplit);
    return ulReturn;
}

void Np_MultiService_Free(uint32_t ulChipID)
{
    Np_PriTable_Free(&g_stMultiServiceTable, ulChipID);
}

uint32_t Np_Tarn_MultiService_PriBlockAssign(uint32_t ulChipID, const NpPriBlock *pstPriBlockInfo)
{
    return Np_PriTable_Assign(&g_stMultiServiceTable, ulChipID, pstPriBlockInfo);
}

NP_PRI_SET(Np_TarnB_L2_MultiServiceTbl_Set, NpMultiService, g_stMultiServiceTable)
NP_PRI_GET(Np_TarnB_L2_MultiServiceTbl_Get, NpMultiService, g_stMultiServiceTable)
NP_PRI_DEL(Np_Tarn_L2_MultiServiceTbl_Del, g_stMultiServiceTable)

void Np_Tarn_L2_MultiServiceParamTrace(uint32_t, const NpMultiService *pstMultiService)
{
    Np_Row_Trace(&rule_row::g_stRow, pstMultiService);
}

uint32_t Np_Tarn_L2_MultiServiceParamCheck(uint32_t ulChipID, uint32_t ulKeyID,
                                           const NpMultiService *pstMultiService)
{
    return Np_PriTable_Check(&g_stMultiServiceTable, ulChipID, ulKeyID, pstMultiService);
}

uint32_t Np_TarnB_L2_MultiServiceKeyMaskBuild(uint32_t ulChipID,
                                              const NpMultiService *pstMultiService, void *pvKey,
                                              void *pvMask)
{
    const NpPiece astPiece[] = {{0, NP_KEY_SIZE, pvKey}, {NP_KEY_SIZE, NP_KEY_SIZE, pvMask}};
    return Np_PiecesBuild(&rule_row::g_stRow, ulChipID, pstMultiService, astPiece, Np_Here());
}

uint32_t Np_TarnB_L2_MultiServiceAdBuild(uint32_t ulChipID, const NpMultiService *pstMultiService,
                                         void *pvAd)
{
    const NpPiece astPiece[] = {{2 * NP_KEY_SIZE, NP_AD_SIZE, pvAd}};
    return Np_PiecesBuild(&rule_row::g_stRow, ulChipID, pstMultiService, astPiece, Np_Here());
}

uint32_t Np_TarnB_L2_MultiServiceTblParse(uint32_t ulChipID, uint32_t ulPri, const void *pvKey,
                                          const void *pvMask, const void *pvAd,
                                          NpMultiService *pstMultiService)
{
    pstMultiService->ulMutiServicePri = ulPri;
    return Np_PiecesParse(&rule_row::g_stRow, ulChipID, NP_KEY_SIZE, NP_AD_SIZE,
                          {pvKey, pvMask, pvAd}, pstMultiService, Np_Here());
}

uint32_t Np_TarnA_L2_MultiServiceKeyMaskBuild(uint32_t ulChipID,
                                              const NpMultiService *pstMultiService, void *pvKey,
                                              void *pvMask)
{
    if (pstMultiService->ulSrcIntfSelType == 0 && pstMultiService->stSrcIntf.ulType > 2) {
        NP_TRACE(NP_M_L2, NP_PRINT_ERROR, "ulSrcIntfType param error! ulSrcIntfType=0x%08x\r\n",
                 pstMultiService->stSrcIntf.ulType);
        return NP_ERR_PARAM;
    }
    const NpPiece astPiece[] = {{0, NP_WIDE_KEY_SIZE, pvKey},
                                {NP_WIDE_KEY_SIZE, NP_WIDE_KEY_SIZE, pvMask}};
    return Np_PiecesBuild(&wide_row::g_stRow, ulChipID, pstMultiService, astPiece, Np_Here());
}

uint32_t Np_TarnA_L2_MultiServiceAdBuild(uint32_t ulChipID, const NpMultiService *pstMultiService,
                                         void *pvAd)
{
    const NpPiece astPiece[] = {{2 * NP_WIDE_KEY_SIZE, NP_WIDE_AD_SIZE, pvAd}};
    return Np_PiecesBuild(&wide_row::g_stRow, ulChipID, pstMultiService, astPiece, Np_Here());
}

uint32_t Np_TarnA_L2_MultiServiceTblParse(uint32_t ulChipID, uint32_t ulPri, const void *pvKey,
                                          const void *pvMask, const void *pvAd,
                                          NpMultiService *pstMultiService)
{
    pstMultiService->ulMutiServicePri = ulPri;
    return Np_PiecesParse(&wide_row::g_stRow, ulChipID, NP_WIDE_KEY_SIZE, NP_WIDE_AD_SIZE,
                          {pvKey, pvMask, pvAd}, pstMultiService, Np_Here());
}

}  // extern "C"

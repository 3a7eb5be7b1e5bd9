#include "sdk/tables/l2.h"

#include "ldsdk/status.h"
#include "platform/os.h"
#include "sdk/access/counter.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/record/straight.h"
#include "sdk/tables/multiservice.h"

constinit uint32_t *g_pulFlowLimitMacNum[NP_CHIP_NUM] = {};
constinit uint32_t *g_pulBundleLimitMacNum[NP_CHIP_NUM] = {};
constinit uint32_t *g_pulGlobalLimitMacNum[NP_CHIP_NUM] = {};

namespace {

inline constexpr uint32_t NP_FLOW_MAX = 1023;

// Both kinds of flows have these.
constexpr auto g_astFwdWords = Np_Words("fwd", "snooping", "drop", "tocpu");
constexpr auto g_astTagTypeWords = Np_Words("8100", "9100", "9200", "global");
constexpr auto g_astTagDelWords = Np_Words("del0", "del1", "dle2");
constexpr NpSmdKeyEnum g_astCarWords[] = {{0, "disable", 0},  {0, "muldis", 1},
                                          {0, "profile0", 4}, {0, "profile1", 5},
                                          {0, "profile2", 6}, {0, "profile3", 7}};

namespace flow_key {
struct R {
    uint32_t ulFlowID;
};
constexpr NpField g_astField[] = {NP_F(ulFlowID, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulFlowID, Np_BelowCap(NP_CAP_FLOW_NUM))};
}  // namespace flow_key

namespace iflow_row {
using R = IflowAttr;
constexpr auto g_astPassWords = Np_Words("drop", "fwd");
constexpr auto g_astTagInWords = Np_Words("novlan", "vlan");
constexpr auto g_astTagAddWords = Np_Words("add0", "add1", "add2");
constexpr auto g_ast1pWords = Np_Words("nomodify", "pricos", "pcpmap", "ipmap", "dscp");
constexpr auto g_astIcosWords = Np_Words("nomodify", "pricos", "pcpmap", "ipmap", "dscp", "chpri");
constexpr auto g_astVmacWords = Np_Words("noswap", "1to1swap", "nto1swap");

inline constexpr uint16_t NP_EXT = 16;  // where the extension begins

constexpr NpField g_astField[] = {
    NP_F(ulFwdMode, .stAt = {12, 31, 30}, .pszKey = "fwd", .stWords = g_astFwdWords),
    NP_F(ulBlockEnable, .stAt = {12, 29, 29}, .pszKey = "blk"),
    NP_F(ulTlsEnable, .stAt = {12, 28, 28}, .pszKey = "tls"),
    NP_F(ulByPassEnable, .stAt = {12, 27, 27}, .pszKey = "bp"),
    NP_F(ulBundleEnable, .stAt = {12, 11, 11}, .pszKey = "bundle"),
    NP_F(ulLearnEable, .stAt = {12, 10, 10}, .pszKey = "lrn"),
    NP_F(ulBip4Enable, .stAt = {12, 20, 20}, .pszKey = "bip4"),
    NP_F(ulBip6Enable, .stAt = {12, 19, 19}, .pszKey = "bip6"),
    NP_F(ulDirectEnable, .stAt = {12, 18, 18}, .pszKey = "direct"),
    NP_F(ulMcDiscardEnable, .stAt = {12, 17, 17}, .pszKey = "mcdrop"),
    NP_F(ulCarProfile, .stAt = {8, 31, 24}, .pszKey = "carprf"),
    NP_F(ulPriTagFwd, .stAt = {12, 26, 26}, .pszKey = "pritagfwd", .stWords = g_astPassWords),
    NP_F(ulTagInMode, .stAt = {12, 25, 25}, .pszKey = "tagmode", .stWords = g_astTagInWords),
    NP_F(ulTagCheckEnble, .stAt = {12, 24, 24}, .pszKey = "tagchk"),
    NP_F(ulFwdType, .stAt = {12, 16, 16}, .pszKey = "fwdtype", .stWords = g_astPassWords),
    NP_F(ulTopTagType, .stAt = {0, 15, 14}, .pszKey = "ttagtype", .stWords = g_astTagTypeWords),
    NP_F(ulBotTagType, .stAt = {12, 9, 8}, .pszKey = "btagtype", .stWords = g_astTagTypeWords),
    NP_F(ulVlanTagDelOp, .stAt = {12, 7, 6}, .pszKey = "tagdel", .stWords = g_astTagDelWords),
    NP_F(ulVlanTagAddOp, .stAt = {12, 5, 4}, .pszKey = "tagadd", .stWords = g_astTagAddWords),
    NP_F(ulVsi, .stAt = {12, 3, 0}, .pszKey = "vsi"),
    NP_F(iCarModifyGene, .stAt = {8, 23, 16}, .pszKey = "carmgen"),
    NP_F(ulTop1pMode, .stAt = {8, 5, 3}, .pszKey = "t1pmode", .stWords = g_ast1pWords),
    NP_F(ulBot1pMode, .stAt = {8, 2, 0}, .pszKey = "b1pmode", .stWords = g_ast1pWords),
    NP_F(ulIcosMode, .stAt = {8, 15, 13}, .pszKey = "icosmode", .stWords = g_astIcosWords),
    NP_F(ulIcos, .stAt = {0, 26, 24}, .pszKey = "icos"),
    NP_F(ulTopPri, .stAt = {4, 31, 29}, .pszKey = "tpri"),
    NP_F(ulBotPri, .stAt = {4, 15, 13}, .pszKey = "bpri"),
    NP_F(ulTopVlanID, .stAt = {4, 27, 16}, .pszKey = "tvid"),
    NP_F(ulBotVlanID, .stAt = {4, 11, 0}, .pszKey = "bvid"),
    NP_F(ulOuterMapID, .stAt = {8, 12, 10}, .pszKey = "outmapid"),
    NP_F(ulInnerMapID, .stAt = {8, 8, 6}, .pszKey = "inmapid"),
    NP_F(ulHs, .stAt = {0, 23, 16}, .pszKey = "hs"),
    NP_F(ulPppOeVmacMode, .stAt = {12, 15, 14}, .pszKey = "pppoevm", .stWords = g_astVmacWords),
    NP_F(ulNpppOeVmacMode, .stAt = {12, 13, 12}, .pszKey = "npppoevm", .stWords = g_astVmacWords),
    NP_F(ulQinQ, .stAt = {8, 9, 9}, .pszKey = "qinq"),
    NP_F(ulOa2OeValid, .stAt = {20, 29, 29}, .pszKey = "oa2oe"),
    NP_F(ulOftID, .stAt = {20, 28, 16}, .pszKey = "oftid"),
    NP_F(ulVmacEnable, .stAt = {16, 31, 31}, .pszKey = "vmacen"),
    NP_F(ulSmacHeadID, .stAt = {16, 30, 26}, .pszKey = "smacheadid",
         .pstWhen = NP_WHEN(ulVmacEnable, 1u << 0), .bFree = true),
    NP_F(ulSmacData, .stAt = {16, 25, 16}, .pszKey = "smacdata",
         .pstWhen = NP_WHEN(ulVmacEnable, 1u << 0), .bFree = true),
    NP_F(ulDmacID, .stAt = {16, 7, 0}, .pszKey = "dmacid"),
    NP_F(ulVmacID, .stAt = {16, 30, 16}, .pszKey = "vmacid",
         .pstWhen = NP_WHEN(ulVmacEnable, 1u << 1), .bFree = true),
    NP_F(ulCarMode, .stAt = {12, 23, 21}, .pszKey = "carmode", .stWords = g_astCarWords),
    NP_F(ulMirrorEnable, .stAt = {0, 27, 27}, .pszKey = "mirren"),
    NP_F(ulMirrorID, .stAt = {0, 31, 28}, .pszKey = "mirid"),
    NP_F(ulAoeCwOrSessionID, .stAt = {20, 15, 0}, .pszKey = "cworsessionid"),
    NP_F(ulOamFilterEnable, .stAt = {20, 31, 31}, .pszKey = "oam_filter"),
    NP_F(ulAntiDosEnable, .stAt = {20, 30, 30}, .pszKey = "anti_dos"),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulFwdMode, Np_Most(3)),
    NP_C(ulBlockEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulTlsEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulByPassEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulPriTagFwd, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulTagInMode, Np_Flag(NP_SAY_BOOL)),
    NP_C(ulTagCheckEnble, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulBip4Enable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulBip6Enable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulDirectEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulMcDiscardEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulTopTagType, Np_Most(3)),
    NP_C(ulPppOeVmacMode, Np_Most(3)),
    NP_C(ulNpppOeVmacMode, Np_Most(3)),
    NP_C(ulBundleEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulLearnEable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulBotTagType, Np_Most(3)),
    NP_C(ulVlanTagDelOp, Np_Most(3)),
    NP_C(ulVlanTagAddOp, Np_Most(3)),
    NP_C(ulVsi, Np_MostCap(NP_CAP_VSI_MAX)),
    NP_C(ulCarProfile, Np_MostCap(NP_CAP_CAR_PROFILE_MAX)),
    NP_C(iCarModifyGene, Np_Range(-128, 127), .pszFormat = " param len(%d) error!\r\n"),
    NP_C(ulIcosMode, Np_Most(7)),
    NP_C(ulIcos, Np_Most(7)),
    NP_C(ulTop1pMode, Np_Most(7)),
    NP_C(ulBot1pMode, Np_Most(7)),
    NP_C(ulTopPri, Np_Most(7)),
    NP_C(ulTopVlanID, Np_Most(4095)),
    NP_C(ulBotPri, Np_Most(7)),
    NP_C(ulBotVlanID, Np_Most(4095)),
    NP_C(ulHs, Np_MostCap(NP_CAP_HS_MAX)),
    NP_C(ulOftID, Np_BelowCap(NP_CAP_FLOW_NUM)),
    NP_C(ulVmacEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulSmacHeadID, Np_BelowCap(NP_CAP_SMAC_POOL_ROWS)),
    NP_C(ulSmacData, Np_Most(1023)),
    NP_C(ulDmacID, Np_BelowCap(NP_CAP_DMAC_ROWS)),
    NP_C(ulVmacID, Np_Most(32767)),
    NP_C(ulFwdType, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulOuterMapID, Np_Most(7)),
    NP_C(ulInnerMapID, Np_Most(7)),
    NP_C(ulQinQ, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulOa2OeValid, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulAntiDosEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulOamFilterEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulAoeCwOrSessionID, Np_Most(65535)),
    NP_C(ulCarMode, Np_Most(7)),
    NP_C(ulMirrorEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulMirrorID, Np_BelowCap(NP_CAP_MIRROR_GROUP_NUM), .pstWhen = NP_WHEN_SET(ulMirrorEnable)),
};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_L2,
                                         .pszArg = "pstIflowAttr",
                                         .usImageSize = NP_EXT + 8,
                                         .pstStraight = NP_STRAIGHT(g_astField, g_astCheck),
                                         .bParseClears = true},
                                        g_astField, g_astCheck);
}  // namespace iflow_row

namespace oflow_row {
using R = OflowAttr;
constexpr NpSmdKeyEnum g_astEthTypeWords[] = {
    {0, "ipv4", 1}, {0, "ipv6", 2}, {0, "pppoe", 4}, {0, "others", 8}};
constexpr NpSmdKeyEnum g_astLogicPortWords[] = {{0, "vitid", 1},  {0, "encapid", 2},
                                                {0, "ecmpid", 3}, {0, "nhopid", 4},
                                                {0, "fibid", 5},  {0, "lagid", 6}};
constexpr NpSmdKeyEnum g_astCpriWords[] = {
    {0, "nomodify", 0}, {0, "toppri", 2}, {0, "botpri", 3}, {0, "dscpmap", 4}, {0, "ipmap", 7}};
constexpr NpSmdKeyEnum g_astIcosWords[] = {{0, "nomodify", 0}, {0, "toppri", 2}, {0, "botpri", 3},
                                           {0, "dscpmap", 4},  {0, "chpri", 5},  {0, "ipmap", 7}};

inline constexpr uint32_t NP_SHORT_PORT = 1u << 3 | 1u << 4;  // types with ten bits of number

constexpr NpField g_astField[] = {
    NP_F(ulFwdMode, .stAt = {12, 31, 30}, .pszKey = "fwd", .stWords = g_astFwdWords),
    NP_F(ulBlockEnable, .stAt = {12, 29, 29}, .pszKey = "blk"),
    NP_F(ulByPassEnable, .stAt = {12, 28, 28}, .pszKey = "bp"),
    NP_F(ulUnknownMcDiscardEnable, .stAt = {12, 27, 27}, .pszKey = "unmcdrop"),
    NP_F(ulMcUnCheckEnable, .stAt = {12, 26, 26}, .pszKey = "mcuncheck"),
    NP_F(ulPppOeVmacEnable, .stAt = {12, 25, 25}, .pszKey = "pppoevm"),
    NP_F(ulNpppOeVmacEnable, .stAt = {12, 24, 24}, .pszKey = "npppoevm"),
    NP_F(ulCarProfile, .stAt = {12, 23, 16}, .pszKey = "carprf"),
    NP_F(ulEthtypeMask, .stAt = {12, 15, 8}, .pszKey = "ethtypemask", .stWords = g_astEthTypeWords),
    NP_F(ulHs, .stAt = {12, 7, 0}, .pszKey = "hs"),
    NP_F(stLogicPort.ulType, .stAt = {8, 31, 29}, .pszKey = "logicportype",
         .stWords = g_astLogicPortWords),
    NP_F(stLogicPort.ulLogicPortID, .stAt = {8, 28, 16}, .pszKey = "logicportid",
         .pstWhen = NP_WHEN_NOT(stLogicPort.ulType, NP_SHORT_PORT), .bFree = true),
    NP_F(stLogicPort.ulLogicPortID, .stAt = {8, 25, 16}, .pszKey = "logicportid",
         .pstWhen = NP_WHEN(stLogicPort.ulType, NP_SHORT_PORT), .bHidden = true),
    NP_F(stVlanCheck.ulTagInNum, .stAt = {4, 31, 30}, .pszKey = "taginnum"),
    NP_F(ulBvlanCheckEnable, .stAt = {4, 29, 29}, .pszKey = "bvlancheck"),
    NP_F(ulTagCheckEnable, .stAt = {4, 28, 28}, .pszKey = "tagcheck"),
    NP_F(ulCvlanID, .stAt = {8, 11, 0}, .pszKey = "cvid"),
    NP_F(ulBotVlanID, .stAt = {4, 27, 16}, .pszKey = "bvid"),
    NP_F(ulCpriMode, .stAt = {4, 10, 8}, .pszKey = "cprimode", .stWords = g_astCpriWords),
    NP_F(ulCpri, .stAt = {8, 15, 13}, .pszKey = "cpri"),
    NP_F(ulDefaultICos, .stAt = {4, 6, 4}, .pszKey = "defaulticos"),
    NP_F(ulMapID, .stAt = {4, 2, 0}, .pszKey = "mapid"),
    NP_F(ulTagType, .stAt = {0, 31, 30}, .pszKey = "tagtype", .stWords = g_astTagTypeWords),
    NP_F(ulIcosMode, .stAt = {0, 29, 27}, .pszKey = "icosmode", .stWords = g_astIcosWords),
    NP_F(ulCvlanAddEnable, .stAt = {0, 26, 26}, .pszKey = "cvlanadden"),
    NP_F(ulVlanTagDelOp, .stAt = {0, 25, 24}, .pszKey = "vlandelop", .stWords = g_astTagDelWords),
    NP_F(ulMirrorEnable, .stAt = {0, 17, 17}, .pszKey = "mirren"),
    NP_F(ulMirrorID, .stAt = {0, 23, 20}, .pszKey = "mirid"),
    NP_F(ulCarMode, .stAt = {4, 15, 13}, .pszKey = "carmode", .stWords = g_astCarWords),
    NP_F(ulTosMask, .stAt = {0, 15, 8}, .pszKey = "tosmask"),
    NP_F(ulTos, .stAt = {0, 7, 0}, .pszKey = "tos"),
    NP_F(ulWredMode, .stAt = {0, 19, 18}, .pszKey = "wred"),
    NP_F(ulIpoeVmacNto1Enable, .stAt = {0, 16, 16}, .pszKey = "ipoento1"),
    NP_F(ulCmEnable, .stAt = {4, 12, 12}, .pszKey = "cmen"),
    NP_F(ulUserID, .stAt = {16, 8, 0}, .pszKey = "userid"),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulFwdMode, Np_Most(3)),
    NP_C(ulBlockEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulByPassEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulUnknownMcDiscardEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulMcUnCheckEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulCarProfile, Np_MostCap(NP_CAP_CAR_PROFILE_MAX)),
    NP_C(ulEthtypeMask, Np_Most(15)),
    NP_C(ulHs, Np_MostCap(NP_CAP_HS_MAX)),
    NP_C(stLogicPort.ulType, Np_Most(7)),
    NP_C(stLogicPort.ulLogicPortID, Np_Most(1023),
         .pstWhen = NP_WHEN(stLogicPort.ulType, NP_SHORT_PORT)),
    NP_C(stLogicPort.ulLogicPortID, Np_Most(8191),
         .pstWhen = NP_WHEN_NOT(stLogicPort.ulType, NP_SHORT_PORT)),
    NP_C(ulCpri, Np_Most(7)),
    NP_C(ulCvlanID, Np_Most(4095)),
    NP_C(stVlanCheck.ulTagInNum, Np_Most(3)),
    NP_C(ulBvlanCheckEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulTagCheckEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulBotVlanID, Np_Most(4095)),
    NP_C(ulDefaultICos, Np_Most(7)),
    NP_C(ulMapID, Np_Most(7)),
    NP_C(ulIcosMode, Np_Most(7)),
    NP_C(ulCpriMode, Np_Most(7)),
    NP_C(ulCvlanAddEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulVlanTagDelOp, Np_Most(3)),
    NP_C(ulPppOeVmacEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulNpppOeVmacEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulTagType, Np_Most(3)),
    NP_C(ulMirrorEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulMirrorID, Np_BelowCap(NP_CAP_MIRROR_GROUP_NUM), .pstWhen = NP_WHEN_SET(ulMirrorEnable)),
    NP_C(ulCarMode, Np_Most(7)),
    NP_C(ulTosMask, Np_Most(255)),
    NP_C(ulTos, Np_Most(255)),
    NP_C(ulWredMode, Np_Most(3)),
    NP_C(ulIpoeVmacNto1Enable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulCmEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulUserID, Np_MostCap(NP_CAP_USER_ID_MAX)),
};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_L2,
                                         .pszArg = "pstOflowAttr",
                                         .usImageSize = 20,
                                         .pstStraight = NP_STRAIGHT(g_astField, g_astCheck),
                                         .bParseClears = true},
                                        g_astField, g_astCheck);
}  // namespace oflow_row

namespace encap_row {
using R = Encap;
constexpr auto g_astIfbWords = Np_Words("ifb", "efb");
constexpr auto g_astAoeWords = Np_Words("pos", "utp");
constexpr auto g_astCarWords = Np_Words("flow", "port_pri");

// The byte that is 64 or more is a negative length, though seven bits would tell.
inline constexpr uint32_t NP_CORRECT_LEN_NEGATIVE = 64;

uint32_t Np_CorrectLenEncode(uint32_t, const void *pvField, uint32_t *pulStored)
{
    __builtin_memcpy(pulStored, pvField, sizeof(*pulStored));
    return NP_OK;
}

uint32_t Np_CorrectLenDecode(uint32_t, uint32_t ulStored, void *pvField)
{
    const uint32_t ulLen = ulStored >= NP_CORRECT_LEN_NEGATIVE ? ulStored - 256 : ulStored;
    __builtin_memcpy(pvField, &ulLen, sizeof(ulLen));
    return NP_OK;
}

constexpr NpCoding g_stCorrectLenCoding = {Np_CorrectLenEncode, Np_CorrectLenDecode, "", "", false};

constexpr NpField g_astField[] = {
    NP_F(ulType, .stAt = {12, 31, 29}, .pszKey = "l2encaptype"),
    NP_F(ulDirectEnable, .stAt = {12, 28, 28}, .pszKey = "directen"),
    NP_F(ulMirrorEnable, .stAt = {12, 27, 27}, .pszKey = "mirren"),
    NP_F(ulAtm, .stAt = {12, 26, 26}, .pszKey = "atm"),
    NP_F(ulPtm, .stAt = {12, 25, 25}, .pszKey = "ptm"),
    NP_F(ulPvcID, .stAt = {12, 22, 20}, .pszKey = "pvcid"),
    NP_F(ulL3Intf, .stAt = {12, 12, 8}, .pszKey = "l3intf"),
    NP_F(ulDeviceID, .stAt = {12, 3, 0}, .pszKey = "deviceid"),
    NP_F(ulApsID, .pszKey = "apsid", .bLost = true),
    NP_F(ulHS, .stAt = {8, 31, 24}, .pszKey = "hs", .bCut = true),
    NP_F(stPort, .stAt = {8, 18, 12}, .pszKey = "sport", .pstCoding = &g_stNpPortCoding),
    NP_F(ulBackUpL2Encap, .stAt = {8, 11, 0}, .pszKey = "backl2encap"),
    NP_F(ulIcosMap, .stAt = {4, 2, 0}, .sStep = 4, .pszKey = "icosmap"),
    NP_F(ulMirrorID, .stAt = {0, 31, 28}, .pszKey = "mirrid"),
    NP_F(ulQbase, .stAt = {0, 27, 16}, .pszKey = "qbase"),
    NP_F(ulWredID, .stAt = {0, 15, 8}, .pszKey = "wireid"),
    NP_F(ulIfbEfb, .stAt = {12, 24, 24}, .pszKey = "ifb_efb", .stWords = g_astIfbWords),
    NP_F(iCorrectLen, .stAt = {0, 7, 0}, .pszKey = "correctlen",
         .pstCoding = &g_stCorrectLenCoding),
    NP_F(ulAoeEncapType, .stAt = {12, 23, 23}, .pszKey = "aoe_encap", .stWords = g_astAoeWords),
    NP_F(ulCarMode, .stAt = {12, 19, 19}, .pszKey = "car_mode", .stWords = g_astCarWords),
    NP_F(aulLevel, .stAt = {4, 3, 3}, .sStep = 4, .pszKey = "maplevel"),
    NP_F(ulMtu, .stAt = {16, 15, 0}, .pszKey = "mtu"),
    NP_F(ulSlotID, .stAt = {8, 21, 19}, .pszKey = "slot"),
    NP_F(ulCpuFlag, .stAt = {8, 22, 22}, .pszKey = "cpuflag", .bCut = true),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulType, Np_Most(7)),
    NP_C(ulDirectEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulMirrorEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulAtm, Np_Flag(NP_SAY_BOOL)),
    NP_C(ulPtm, Np_Flag(NP_SAY_BOOL)),
    NP_C(ulL3Intf, Np_Most(31)),
    NP_C(ulDeviceID, Np_Most(15)),
    NP_C(stPort, Np_Port()),
    NP_C(ulBackUpL2Encap, Np_Most(4095)),
    NP_C(ulIcosMap, Np_Most(7), .pszText = "ulIcosMap[ulI]"),
    NP_C(aulLevel, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulMirrorID, Np_BelowCap(NP_CAP_MIRROR_GROUP_NUM)),
    NP_C(ulPvcID, Np_Most(7)),
    NP_C(ulQbase, Np_Most(511)),
    NP_C(ulWredID, Np_Most(255), .pszText = "ulWredBaseAddr"),
    NP_C(ulIfbEfb, Np_Flag(NP_SAY_ENABLE)),
    NP_C(iCorrectLen, Np_Range(-64, 63),
         .pszFormat = "param error! pstEncap->iCorrectLen=0x%08x\r\n"),
    NP_C(ulAoeEncapType, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulCarMode, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulMtu, Np_Most(4095)),
    NP_C(ulSlotID, Np_MostCap(NP_CAP_SLOT_ID_MAX)),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_L2, .pszArg = "pstEncap", .usImageSize = 18, .bParseClears = true},
    g_astField, g_astCheck);
constexpr NpSmemArray g_stMtu = {NP_CAP_L2_ENCAP_BASE, 2, 0, 2};

// The row is laid out by the service table's choice.
uint32_t Np_EncapBuild(uint32_t ulChipID, const void *pvRecord, void *pvImage)
{
    return Np_L2_L2EncapTblBuild(ulChipID, static_cast<const Encap *>(pvRecord),
                                 static_cast<uint32_t *>(pvImage));
}

uint32_t Np_EncapParse(uint32_t ulChipID, const void *pvImage, void *pvRecord)
{
    return Np_L2_L2EncapTblParse(ulChipID, static_cast<const uint32_t *>(pvImage),
                                 static_cast<Encap *>(pvRecord));
}
}  // namespace encap_row

namespace encap_key {
struct R {
    uint32_t ulIndex;
};
constexpr NpField g_astField[] = {NP_F(ulIndex, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulIndex, Np_MostCap(NP_CAP_L2_ENCAP_ID_MAX))};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_L2}, g_astField, g_astCheck);
}  // namespace encap_key

namespace bundle_key {
struct R {
    uint32_t ulBundleID;
};
constexpr NpField g_astField[] = {NP_F(ulBundleID, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulBundleID, Np_BelowCap(NP_CAP_BUNDLE_NUM))};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_L2}, g_astField, g_astCheck);
}  // namespace bundle_key

// The last flow comes first.
namespace bundle_row {
using R = NpFlowBundle;
constexpr NpField g_astField[] = {
    NP_F(ulFlowID0, .stAt = {14, 15, 0}), NP_F(ulFlowID1, .stAt = {12, 15, 0}),
    NP_F(ulFlowID2, .stAt = {10, 15, 0}), NP_F(ulFlowID3, .stAt = {8, 15, 0}),
    NP_F(ulFlowID4, .stAt = {6, 15, 0}),  NP_F(ulFlowID5, .stAt = {4, 15, 0}),
    NP_F(ulFlowID6, .stAt = {2, 15, 0}),  NP_F(ulFlowID7, .stAt = {0, 15, 0}),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulFlowID0, Np_BelowCap(NP_CAP_FLOW_NUM)), NP_C(ulFlowID1, Np_BelowCap(NP_CAP_FLOW_NUM)),
    NP_C(ulFlowID2, Np_BelowCap(NP_CAP_FLOW_NUM)), NP_C(ulFlowID3, Np_BelowCap(NP_CAP_FLOW_NUM)),
    NP_C(ulFlowID4, Np_BelowCap(NP_CAP_FLOW_NUM)), NP_C(ulFlowID5, Np_BelowCap(NP_CAP_FLOW_NUM)),
    NP_C(ulFlowID6, Np_BelowCap(NP_CAP_FLOW_NUM)), NP_C(ulFlowID7, Np_BelowCap(NP_CAP_FLOW_NUM)),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_L2, .pszArg = "pstFlowBundle", .usImageSize = 16, .bParseClears = true},
    g_astField, g_astCheck);
}  // namespace bundle_row

namespace default_row {
using R = NpDefaultFlowID;
constexpr NpField g_astField[] = {NP_F(ulFlowID, .stAt = {4, 15, 0}, .pszKey = "flowid")};
constexpr NpCheck g_astCheck[] = {NP_C(ulFlowID, Np_BelowCap(NP_CAP_FLOW_NUM))};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_L2, .pszArg = "pstDefaultFlowID", .usImageSize = 8, .bParseClears = true},
    g_astField, g_astCheck);
}  // namespace default_row

namespace gemport_key {
struct R {
    uint32_t ulGemportId;
};
constexpr NpField g_astField[] = {NP_F(ulGemportId, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulGemportId, Np_Below(4096))};
}  // namespace gemport_key

namespace gemport_row {
using R = NpGemportMap;
constexpr NpField g_astField[] = {
    NP_F(ulValid, .stAt = {0, 7, 7}, .pszKey = "valid"),
    NP_F(ulGemportIndex, .stAt = {0, 6, 0}, .pszKey = "gemportindex"),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulValid, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulGemportIndex, Np_Below(32)),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_L2, .pszArg = "pstGemportMap", .usImageSize = 1, .bParseClears = true},
    g_astField, g_astCheck);
}  // namespace gemport_row

// Rows that hold a MAC address and no more.
namespace mac_row {
using R = NpDmac;
static_assert(sizeof(NpSmacPool) == sizeof(NpDmac));
constexpr NpField g_astField[] = {
    NP_F(aucMac, .stAt = {5, 7, 0}, .sStep = -8, .pszKey = "mac", .ucType = NP_SMD_MAC)};
}  // namespace mac_row

// ---- limits of learned MACs ---------------------------------------------------------------------

inline constexpr uint32_t NP_LIMIT_MOST = 65535;
inline constexpr uint32_t NP_LIMIT_BASE = 0x80000000;  // of a counter whose limit is 0

struct NpMacLimit {
    uint32_t **ppulLimit;  // by chip
    NpCntType enCounter;
    NpCapSlot enRows;
};
constexpr NpMacLimit g_stFlowLimit = {g_pulFlowLimitMacNum, NP_CNT_FLOW_MAC_LIMIT, NP_CAP_FLOW_NUM};
constexpr NpMacLimit g_stBundleLimit = {g_pulBundleLimitMacNum, NP_CNT_BUNDLE_MACLMT,
                                        NP_CAP_BUNDLE_NUM};
constexpr NpMacLimit g_stGlobalLimit = {g_pulGlobalLimitMacNum, NP_CNT_GLB_MAC_LMT,
                                        NP_CAP_GLOBAL_MAC_LIMIT_ROWS};

constexpr const NpMacLimit *g_apstMacLimit[] = {&g_stFlowLimit, &g_stBundleLimit, &g_stGlobalLimit};

// The counter moves by as much as the limit does, whatever was learned meanwhile.
uint32_t Np_LimitMove(const NpMacLimit &stLimit, uint32_t ulChipID, uint32_t ulRow,
                      uint32_t ulLimitNumber)
{
    uint32_t *pulLimit = stLimit.ppulLimit[ulChipID];
    if (pulLimit == nullptr) {
        return NP_ERR_NULL_PTR;
    }
    const uint32_t ulOld = pulLimit[ulRow];
    uint32_t ulReturn = NP_OK;
    if (ulLimitNumber > ulOld) {
        uint32_t ulMore = ulLimitNumber - ulOld;
        ulReturn = Np_Tarn_CntAdd(ulChipID, stLimit.enCounter, ulRow, &ulMore);
    }
    if (ulLimitNumber < ulOld) {
        uint32_t ulLess = ulOld - ulLimitNumber;
        ulReturn = Np_Tarn_CntSub(ulChipID, stLimit.enCounter, ulRow, &ulLess);
    }
    if (ulReturn == NP_OK) {
        pulLimit[ulRow] = ulLimitNumber;
    }
    return ulReturn;
}

// Takes all limits and their counters back to nothing.
uint32_t Np_LimitReset(const NpMacLimit &stLimit, uint32_t ulChipID, NpWhere stWhere)
{
    const uint32_t ulRows = Np_GLB_CapGet(stLimit.enRows);
    uint32_t *&pulLimit = stLimit.ppulLimit[ulChipID];
    if (pulLimit == nullptr) {
        pulLimit = static_cast<uint32_t *>(Os_Alloc(ulRows * sizeof(uint32_t)));
        if (pulLimit == nullptr) {
            NP_TRACE_AT(stWhere, NP_M_L2, NP_PRINT_ERROR, "memory alloc failed!\r\n");
            return NP_ERR_NO_MEMORY;
        }
    }
    const NpCntValue stBase = {{NP_LIMIT_BASE}};
    for (uint32_t i = 0; i < ulRows; i++) {
        pulLimit[i] = 0;
        const uint32_t ulReturn = Np_Tarn_CntSet(ulChipID, stLimit.enCounter, i, &stBase);
        if (ulReturn != NP_OK) {
            NP_TRACE_AT(stWhere, NP_M_L2, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n",
                        ulReturn);
            return ulReturn;
        }
    }
    return NP_OK;
}

uint32_t Np_LimitStoreRead(uint32_t ulChipID, const NpTablePart *pstPart, uint32_t ulRow, uint32_t,
                           uint32_t *pulImage)
{
    const uint32_t *pulLimit =
        static_cast<const NpMacLimit *>(pstPart->pvWhere)->ppulLimit[ulChipID];
    if (pulLimit == nullptr) {
        return NP_ERR_NULL_PTR;
    }
    *pulImage = pulLimit[ulRow];
    return NP_OK;
}

uint32_t Np_LimitStoreWrite(uint32_t ulChipID, const NpTablePart *pstPart, uint32_t ulRow, uint32_t,
                            const uint32_t *pulImage)
{
    return Np_LimitMove(*static_cast<const NpMacLimit *>(pstPart->pvWhere), ulChipID, ulRow,
                        *pulImage);
}

constexpr NpStore g_stLimitStore = {Np_LimitStoreRead, Np_LimitStoreWrite,
                                    "Func error return: 0x%08x \r\n",
                                    "Func error return: 0x%08x \r\n"};

constexpr NpTablePart Np_LimitPart(const NpMacLimit *pstLimit)
{
    return {&g_stLimitStore, pstLimit, static_cast<uint16_t>(pstLimit->enCounter), 0};
}

// One for all three kinds.
namespace limit_row {
using R = NpFlowLmt;
static_assert(sizeof(NpBundleLmt) == sizeof(R) && sizeof(NpGlobalMacLmt) == sizeof(R));
constexpr NpField g_astField[] = {NP_F(ulLimitNumber, .stAt = {0, 31, 0}, .pszKey = "limitnum")};
constexpr NpCheck g_astCheck[] = {NP_C(ulLimitNumber, Np_Most(NP_LIMIT_MOST))};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_L2, .usImageSize = 4, .bParseClears = true}, g_astField, g_astCheck);
}  // namespace limit_row

constexpr NpTableSpec g_stTells = {.bTellsCheck = true};

uint32_t Np_NullRefuse(NpWhere stWhere = Np_Here())
{
    NP_TRACE_AT(stWhere, NP_M_L2, NP_PRINT_ERROR, "Para null ptr\r\n");
    return NP_ERR_NULL_PTR;
}

uint32_t Np_ChipRefuse(uint32_t ulChipID, NpWhere stWhere = Np_Here())
{
    NP_TRACE_AT(stWhere, NP_M_L2, NP_PRINT_ERROR, "param error! (ulChipID)=0x%08x\r\n", ulChipID);
    return NP_ERR_PARAM;
}

// The fields of a row that stand from a byte on, as parameters of a command.
template <size_t ulFound, size_t ulAll>
consteval std::array<NpField, ulFound> Np_FieldsFrom(const NpField (&astField)[ulAll],
                                                     uint32_t ulByte)
{
    std::array<NpField, ulFound> astFrom{};
    size_t ulAt = 0;
    for (const NpField &stField : astField) {
        if (stField.usBit >= 8 * ulByte) {
            astFrom[ulAt++] = stField;  // does not compile if there are more
        }
    }
    return astFrom;
}

constexpr auto g_astIflowExtField = Np_FieldsFrom<10>(iflow_row::g_astField, iflow_row::NP_EXT);
static_assert(g_astIflowExtField.back().ucSize != 0);

// Other fields of a row that there is.
consteval NpRow Np_RowWith(NpRow stRow, std::span<const NpField> stFields)
{
    stRow.pstField = stFields.data();
    stRow.usFieldNum = static_cast<uint16_t>(stFields.size());
    stRow.usImageSize = 0;
    stRow.pstStraight = nullptr;
    return stRow;
}

}  // namespace

constexpr NpRow g_stFlowKeyRow =
    Np_RowMake<flow_key::R>({.ucModule = NP_M_L2}, flow_key::g_astField, flow_key::g_astCheck);
constexpr NpRow g_stIflowExtArgs = Np_RowWith(iflow_row::g_stRow, g_astIflowExtField);
constexpr NpTable g_stIflowTable = Np_TableOf(g_stFlowKeyRow, iflow_row::g_stRow, g_stTells,
                                              Np_RegPart(19), Np_RegPart(14, iflow_row::NP_EXT));
constexpr NpTable g_stOflowTable =
    Np_TableOf(g_stFlowKeyRow, oflow_row::g_stRow, g_stTells, Np_RegPart(48), Np_RegPart(135, 16));
constexpr NpTable g_stL2EncapTable =
    Np_TableOf(encap_key::g_stRow, encap_row::g_stRow,
               {.pfnBuild = encap_row::Np_EncapBuild,
                .pfnParse = encap_row::Np_EncapParse,
                .bTellsCheck = true},
               Np_RegPart(36), Np_SmemPart(&encap_row::g_stMtu, 16));
constexpr NpTable g_stFlowBundleTable =
    Np_TableOf(bundle_key::g_stRow, bundle_row::g_stRow, g_stTells, Np_RegPart(35));
constexpr NpTable g_stDefaultFlowIDTable =
    Np_TableOf(NpIndexKey<NP_M_L2, NP_CAP_DEFAULT_FLOW_ROWS>::g_stRow, default_row::g_stRow,
               g_stTells, Np_RegPart(56));
constexpr NpRow g_stGemportKeyRow = Np_RowMake<gemport_key::R>(
    {.ucModule = NP_M_L2}, gemport_key::g_astField, gemport_key::g_astCheck);
constexpr NpTable g_stGemportMapTable =
    Np_TableOf(g_stGemportKeyRow, gemport_row::g_stRow, g_stTells, Np_RegPart(143));
constexpr NpTable g_stFlowLmtTable =
    Np_TableOf(g_stFlowKeyRow, limit_row::g_stRow, g_stTells, Np_LimitPart(&g_stFlowLimit));
constexpr NpTable g_stBundleLmtTable =
    Np_TableOf(bundle_key::g_stRow, limit_row::g_stRow, g_stTells, Np_LimitPart(&g_stBundleLimit));
constexpr NpTable g_stGlobalMacLmtTable =
    Np_TableOf(NpIndexKey<NP_M_L2, NP_CAP_GLOBAL_MAC_LIMIT_ROWS>::g_stRow, limit_row::g_stRow,
               g_stTells, Np_LimitPart(&g_stGlobalLimit));
constexpr NpRow g_stDmacKeyRow = NpIndexKey<NP_M_L2, NP_CAP_DMAC_ROWS>::g_stRow;
constexpr NpRow g_stSmacPoolKeyRow = NpIndexKey<NP_M_L2, NP_CAP_SMAC_POOL_ROWS>::g_stRow;
constexpr NpRow g_stDmacRow = Np_RowMake<NpDmac>(
    {.ucModule = NP_M_L2, .pszArg = "pstDmac", .usImageSize = 8}, mac_row::g_astField, {});
constexpr NpTable g_stDmacTable =
    Np_TableOf(g_stDmacKeyRow, g_stDmacRow, g_stTells, Np_RegPart(37));
constexpr NpTable g_stSmacPoolTable =
    Np_TableOf(g_stSmacPoolKeyRow, g_stDmacRow, g_stTells, Np_RegPart(38));

extern "C" {

NP_TABLE_SET(Np_Tarn_L2_IflowTbl_Set, IflowAttr, g_stIflowTable)
NP_TABLE_GET(Np_Tarn_L2_IflowTbl_Get, IflowAttr, g_stIflowTable)
NP_TABLE_SET(Np_Tarn_L2_OflowTbl_Set, OflowAttr, g_stOflowTable)
NP_TABLE_GET(Np_Tarn_L2_OflowTbl_Get, OflowAttr, g_stOflowTable)
NP_TABLE_SET(Np_Tarn_L2_FlowBundleTbl_Set, NpFlowBundle, g_stFlowBundleTable)
NP_TABLE_GET(Np_Tarn_L2_FlowBundleTbl_Get, NpFlowBundle, g_stFlowBundleTable)
NP_TABLE_SET(Np_Tarn_L2_L2EncapTbl_Set, Encap, g_stL2EncapTable)
NP_TABLE_GET(Np_Tarn_L2_L2EncapTbl_Get, Encap, g_stL2EncapTable)
NP_TABLE_SET(NP_Tarn_L2_DefaultFlowIDTbl_Set, NpDefaultFlowID, g_stDefaultFlowIDTable)
NP_TABLE_GET(NP_Tarn_L2_DefaultFlowIDTbl_Get, NpDefaultFlowID, g_stDefaultFlowIDTable)
NP_TABLE_SET(Np_Tarn_L2_GemportMapTbl_Set, NpGemportMap, g_stGemportMapTable)
NP_TABLE_GET(Np_Tarn_L2_GemportMapTbl_Get, NpGemportMap, g_stGemportMapTable)
NP_TABLE_SET(Np_Tarn_L2_GemportMapTbl_Del, NpGemportMap, g_stGemportMapTable)
NP_TABLE_SET(Np_Tarn_L2_DmacTbl_Set, NpDmac, g_stDmacTable)
NP_TABLE_GET(Np_Tarn_L2_DmacTbl_Get, NpDmac, g_stDmacTable)
NP_TABLE_SET(Np_Tarn_L2_SmacPoolTbl_Set, NpSmacPool, g_stSmacPoolTable)
NP_TABLE_GET(Np_Tarn_L2_SmacPoolTbl_Get, NpSmacPool, g_stSmacPoolTable)
NP_TABLE_WORD_SET(Np_Tarn_L2_FlowLmtTbl_Set, g_stFlowLmtTable)
NP_TABLE_GET(Np_Tarn_L2_FlowLmtTbl_Get, NpFlowLmt, g_stFlowLmtTable)
NP_TABLE_WORD_SET(Np_Tarn_L2_BundleLmtTbl_Set, g_stBundleLmtTable)
NP_TABLE_GET(Np_Tarn_L2_BundleLmtTbl_Get, NpBundleLmt, g_stBundleLmtTable)
NP_TABLE_WORD_SET(Np_Tarn_GlobalMacLmtTbl_Set, g_stGlobalMacLmtTable)
NP_TABLE_GET(Np_Tarn_GlobalMacLmtTbl_Get, NpGlobalMacLmt, g_stGlobalMacLmtTable)

uint32_t Np_TarnB_L2_L2EncapTblBuild(uint32_t ulChipID, const Encap *pstEncap, uint32_t *pulRow)
{
    if (pstEncap == nullptr || pulRow == nullptr) {
        return Np_NullRefuse();
    }
    return Np_Table_BuildPart(&g_stL2EncapTable, 0, ulChipID, pstEncap, pulRow);
}

// The MTU, which the row has not, stays as the record has it.
uint32_t Np_TarnB_L2_L2EncapTblParse(uint32_t ulChipID, const uint32_t *pulRow, Encap *pstEncap)
{
    if (pstEncap == nullptr || pulRow == nullptr) {
        return Np_NullRefuse();
    }
    return Np_Table_ParsePart(&g_stL2EncapTable, 0, ulChipID, pulRow, pstEncap);
}

uint32_t Np_Tarn_L2_FlowLmtTblBuild(uint32_t ulChipID, uint32_t ulFlowID, uint32_t ulLimitNumber)
{
    return Np_LimitMove(g_stFlowLimit, ulChipID, ulFlowID, ulLimitNumber);
}

uint32_t Np_Tarn_L2_BundleLmtTblBuild(uint32_t ulChipID, uint32_t ulBundleID,
                                      uint32_t ulLimitNumber)
{
    return Np_LimitMove(g_stBundleLimit, ulChipID, ulBundleID, ulLimitNumber);
}

uint32_t Np_Tarn_L2_GlbMacLmtTblBuild(uint32_t ulChipID, uint32_t ulIndex, uint32_t ulLimitNumber)
{
    return Np_LimitMove(g_stGlobalLimit, ulChipID, ulIndex, ulLimitNumber);
}

uint32_t Np_Tarn_L2_Init(uint32_t ulChipID)
{
    NP_TRACE(NP_M_L2, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
    if (ulChipID >= NP_CHIP_NUM) {
        return Np_ChipRefuse(ulChipID);
    }
    uint32_t ulReturn = Np_MultiService_Init(ulChipID);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_L2, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
        return ulReturn;
    }
    for (const NpMacLimit *pstLimit : g_apstMacLimit) {
        ulReturn = Np_LimitReset(*pstLimit, ulChipID, Np_Here());
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    return NP_OK;
}

uint32_t Np_Tarn_L2_Destruct(uint32_t ulChipID)
{
    NP_TRACE(NP_M_L2, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
    if (ulChipID >= NP_CHIP_NUM) {
        return Np_ChipRefuse(ulChipID);
    }
    Np_MultiService_Free(ulChipID);
    for (const NpMacLimit *pstLimit : g_apstMacLimit) {
        Os_Free(pstLimit->ppulLimit[ulChipID]);
        pstLimit->ppulLimit[ulChipID] = nullptr;
    }
    return NP_OK;
}

}  // extern "C"

#include "sdk/tables/acl.h"

#include "ldsdk/status.h"
#include "sdk/access/portid.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/lookup/lcam.h"
#include "sdk/record/describe.h"

constinit NpPriBlockPoint *g_pastAclPriPoint[NP_CHIP_NUM] = {};
constinit NpAclTcamInfo *g_pastAclTcam2RuleInfo[NP_CHIP_NUM] = {};
constinit NpAclRuleInfo *g_pastAclRule2TcamInfo[NP_CHIP_NUM] = {};
constinit NpAclPriInfo *g_pastAclPri[NP_CHIP_NUM] = {};

namespace {

enum NpAclKind : uint32_t {
    NP_ACL_RULE1 = 0,  // IPv4 and MACs
    NP_ACL_RULE2 = 1,  // IPv6
};
enum NpAclPortType : uint32_t {
    NP_ACL_PORT = 0,
    NP_ACL_USER = 1,
};

// The blocks that init lays out: all but the last have the same share.
inline constexpr uint32_t NP_FIRST_PRIORITIES = 20;
inline constexpr uint32_t NP_FIRST_PERCENT = 2;
inline constexpr uint32_t NP_FIRST_REST = 62;

// ---- rule ---------------------------------------------------------------------------------------

namespace rule_row {
using R = NpAclRule;
constexpr const NpWhen *g_pstRule1 = NP_WHEN(ulType, 1u << NP_ACL_RULE1);
constexpr const NpWhen *g_pstRule2 = NP_WHEN(ulType, 1u << NP_ACL_RULE2);
constexpr auto g_astKindWords = Np_Words("rule1", "rule2");
constexpr auto g_astPortWords = Np_Words("port", "userdef");

#define NP_ACL_TWIN(Member, pszOf, ...) \
    NP_TWIN(NP_TWIN_BITS, stKey.Member, stMask.Member, "mask_" pszOf, __VA_ARGS__)
constexpr NpTwin g_astTwin[] = {
    NP_ACL_TWIN(ulEthType, "ethtype", .stAt = {21, 19, 4}, .pszKey = "ethtype"),
    NP_ACL_TWIN(ulTos, "tos", .stAt = {19, 11, 4}, .pszKey = "tos"),
    NP_ACL_TWIN(ulIpProtocol, "ipprotocol", .stAt = {20, 11, 4}, .pszKey = "ipprotocol"),
    NP_ACL_TWIN(ulSport, "sport", .stAt = {9, 19, 4}, .pszKey = "sport"),
    NP_ACL_TWIN(ulDport, "dport", .stAt = {7, 19, 4}, .pszKey = "dport"),
    NP_ACL_TWIN(ulFlowLabel, "flowlabel", .stAt = {0, 19, 0}, .pszKey = "flowlabel"),
    NP_ACL_TWIN(ulHaInfo, "hainfo", .stAt = {0, 27, 21}, .pszKey = "hainfo"),
    NP_ACL_TWIN(ulTagNum, "tagnum", .stAt = {4, 15, 14}, .pszKey = "tagnum"),
    NP_ACL_TWIN(ulFragmentOffset, "fragmentoffset", .stAt = {4, 26, 26},
                .pszKey = "fragmentoffset"),
    NP_ACL_TWIN(ulPtype, "ptype", .stAt = {3, 11, 4}, .pszKey = "ptype"),
    NP_ACL_TWIN(stOuterVlan.ulPri, "outer_pri", .stAt = {24, 27, 25}, .pszKey = "outer_pri"),
    NP_ACL_TWIN(stOuterVlan.ulCfi, "outer_cfi", .stAt = {24, 24, 24}, .pszKey = "outer_cfi"),
    NP_ACL_TWIN(stOuterVlan.ulVlanID, "outer_vlanid", .stAt = {24, 23, 12},
                .pszKey = "outer_vlanid"),
    NP_ACL_TWIN(stInnerVlan.ulPri, "inner_pri", .stAt = {24, 11, 9}, .pszKey = "inner_pri"),
    NP_ACL_TWIN(stInnerVlan.ulCfi, "inner_cfi", .stAt = {24, 8, 8}, .pszKey = "inner_cfi"),
    NP_ACL_TWIN(stInnerVlan.ulVlanID, "inner_vlanid", .stAt = {23, 15, 4},
                .pszKey = "inner_vlanid"),
    NP_ACL_TWIN(unAddress.stRule1.ulIp4Sip, "ip4sip", .stAt = {15, 35, 4}, .pszKey = "ip4sip",
                .ucType = NP_SMD_IPV4, .pstWhen = g_pstRule1, .bFree = true),
    NP_ACL_TWIN(unAddress.stRule1.ulIp4Dip, "ip4dip", .stAt = {11, 35, 4}, .pszKey = "ip4dip",
                .ucType = NP_SMD_IPV4, .pstWhen = g_pstRule1, .bFree = true),
    NP_ACL_TWIN(unAddress.stRule1.aucDmac, "dmac", .stAt = {38, 11, 4}, .sStep = -8,
                .pszKey = "dmac", .ucType = NP_SMD_MAC, .pstWhen = g_pstRule1, .bFree = true),
    NP_ACL_TWIN(unAddress.stRule1.aucSmac, "smac", .stAt = {32, 11, 4}, .sStep = -8,
                .pszKey = "smac", .ucType = NP_SMD_MAC, .pstWhen = g_pstRule1, .bFree = true),
    NP_ACL_TWIN(unAddress.stRule2.aulIp6Sip, "ip6sip", .stAt = {15, 35, 4}, .sStep = -32,
                .pszKey = "ip6sip", .pstWhen = g_pstRule2, .bFree = true),
    NP_ACL_TWIN(unAddress.stRule2.aulIp6Dip, "ip6dip", .stAt = {35, 35, 4}, .sStep = -32,
                .pszKey = "ip6dip", .pstWhen = g_pstRule2, .bFree = true),
};
#undef NP_ACL_TWIN

// The ports are put into the key by the member's own function, and none of the rest is in it.
constexpr NpField g_astHead[] = {
    NP_F(ulType, .pszKey = "type", .stWords = g_astKindWords, .bHanded = true),
    NP_F(ulPri, .pszKey = "pri", .bLost = true),
#define NP_ACL_PORT_FIELDS(Member, pszOf)                                                         \
    NP_F(Member.ulType, .pszKey = pszOf "_type", .stWords = g_astPortWords, .bHanded = true),     \
        NP_F(Member.unPortInfo.stport.stPortID, .pszKey = pszOf "_port",                          \
             .pstWhen = NP_WHEN(Member.ulType, 1u << NP_ACL_PORT), .bLost = true, .bFree = true), \
        NP_F(Member.unPortInfo.stUserDef.ulSlotID, .pszKey = pszOf "_slotid",                     \
             .pstWhen = NP_WHEN(Member.ulType, 1u << NP_ACL_USER), .bLost = true, .bFree = true), \
        NP_F(Member.unPortInfo.stUserDef.ulSlotMask, .pszKey = pszOf "_slotmask",                 \
             .pstWhen = NP_WHEN(Member.ulType, 1u << NP_ACL_USER), .bLost = true, .bFree = true), \
        NP_F(Member.ulPortNum, .pszKey = pszOf "_portnum", .bLost = true)
    NP_ACL_PORT_FIELDS(stEgressPort, "egress"),
    NP_ACL_PORT_FIELDS(stIngressPort, "ingress"),
#undef NP_ACL_PORT_FIELDS
};
constexpr auto g_astField =
    Np_JoinFields(g_astHead, Np_TwinValues(g_astTwin), Np_TwinMasks(g_astTwin, NP_ACL_KEY_SIZE));

// The priorities in force bound it; before init, those that init will lay out.
uint32_t Np_PriCheck(const NpRow *, uint32_t ulChipID, const void *pvRecord)
{
    const uint32_t ulPri = static_cast<const R *>(pvRecord)->ulPri;
    const NpAclPriInfo *pstPri = g_pastAclPri[ulChipID];
    if (ulPri <= (pstPri != nullptr ? pstPri->ulMaxPri : NP_FIRST_PRIORITIES - 1)) {
        return NP_OK;
    }
    NP_TRACE_AT((NpWhere{"Np_Tarn_ACL_RuleParaCheck", __LINE__}), NP_M_ACL, NP_PRINT_ERROR,
                "param error! (pstRule->ulPri)=0x%08x\r\n", ulPri);
    return NP_ERR_PARAM;
}

// None, or a power of two.
template <NpAclPortInfo R::*pstPort>
uint32_t Np_PortNumCheck(const NpRow *, uint32_t, const void *pvRecord)
{
    const uint32_t ulNum = (static_cast<const R *>(pvRecord)->*pstPort).ulPortNum;
    if ((ulNum & (ulNum - 1)) == 0) {
        return NP_OK;
    }
    NP_TRACE_AT((NpWhere{"Np_Tarn_ACL_PortInfoParaCheck", __LINE__}), NP_M_ACL, NP_PRINT_ERROR,
                "[ERROR] port check failed! ulPortNum=0x%08x\r\n", ulNum);
    return NP_ERR_PARAM;
}

#define NP_ACL_PORT_CHECKS(Member)                                                            \
    NP_C(Member.ulType, Np_Below(2),                                                          \
         .pszFormat =                                                                         \
             "param error! (pstAclPortInfo->ulType)=0x%08x"                                   \
             "\r\n"),                                                                         \
        NP_C(Member.unPortInfo.stUserDef.ulSlotID, Np_MostCap(NP_CAP_ACL_SLOT_MAX),           \
             .pszFormat =                                                                     \
                 "param error! (pstAclPortInfo->unPortInfo.stUserDef.ulSlotID)=0x%08x\r\n",   \
             .pstWhen = NP_WHEN(Member.ulType, 1u << NP_ACL_USER)),                           \
        NP_C(Member.unPortInfo.stUserDef.ulSlotMask, Np_MostCap(NP_CAP_ACL_SLOT_MAX),         \
             .pszFormat =                                                                     \
                 "param error! (pstAclPortInfo->unPortInfo.stUserDef.ulSlotMask)=0x%08x\r\n", \
             .pstWhen = NP_WHEN(Member.ulType, 1u << NP_ACL_USER)),                           \
        NP_C(Member.ulPortNum, Np_Custom(), .pfnCustom = Np_PortNumCheck<&R::Member>),        \
        NP_C(Member.unPortInfo.stport.stPortID, Np_Port(),                                    \
             .pstWhen = NP_WHEN_SET(Member.ulPortNum, NP_WHEN(Member.ulType, 1u << NP_ACL_PORT)))
#define NP_ACL_C(Member, stLimit) NP_C(stKey.Member, stLimit, .pszText = #Member)
#define NP_ACL_VLAN_C(Vlan, Member, stLimit) \
    NP_C(stKey.Vlan.Member, stLimit,         \
         .pszFormat = "param error! ((pstRule->" #Vlan ")." #Member ")=0x%08x\r\n")
constexpr NpCheck g_astCheck[] = {
    NP_C(ulType, Np_Below(2)),
    NP_C(ulPri, Np_Custom(), .pfnCustom = Np_PriCheck),
    NP_ACL_PORT_CHECKS(stEgressPort),
    NP_ACL_PORT_CHECKS(stIngressPort),
    NP_ACL_C(ulEthType, Np_Below(0x10000)),
    NP_ACL_C(ulTos, Np_Below(256)),
    NP_ACL_C(ulIpProtocol, Np_Below(256)),
    NP_ACL_C(ulSport, Np_Most(0xffff)),
    NP_ACL_C(ulDport, Np_Below(0x10000)),
    NP_ACL_C(ulFlowLabel, Np_Below(0x100000)),
    NP_ACL_C(ulHaInfo, Np_MostCap(NP_CAP_HA_INFO_MAX)),
    NP_ACL_C(ulTagNum, Np_Below(4)),
    NP_ACL_C(ulFragmentOffset, Np_Below(2)),
    NP_ACL_C(ulPtype, Np_MostCap(NP_CAP_ACL_RULE_PRI_MAX)),
    NP_ACL_VLAN_C(stOuterVlan, ulPri, Np_Below(8)),
    NP_ACL_VLAN_C(stOuterVlan, ulCfi, Np_Below(2)),
    NP_ACL_VLAN_C(stOuterVlan, ulVlanID, Np_Most(0xfff)),
    NP_ACL_VLAN_C(stInnerVlan, ulPri, Np_Below(8)),
    NP_ACL_VLAN_C(stInnerVlan, ulCfi, Np_Below(2)),
    NP_ACL_VLAN_C(stInnerVlan, ulVlanID, Np_Below(4096)),
};
#undef NP_ACL_PORT_CHECKS
#undef NP_ACL_C
#undef NP_ACL_VLAN_C
}  // namespace rule_row

// ---- action -------------------------------------------------------------------------------------

namespace action_row {
using R = NpAclAction;
constexpr const NpWhen *g_pstDscp = NP_WHEN(ulTosDscpModifyMode, 1u << 1);
constexpr const NpWhen *g_pstTos = NP_WHEN(ulTosDscpModifyMode, 1u << 2);
constexpr NpField g_astField[] = {
    NP_F(ulFwd, .stAt = {15, 7, 6}),
    NP_F(ulAction, .stAt = {15, 5, 4}),
    NP_F(ulRaw, .stAt = {15, 3, 3}),
    NP_F(ulCarEnable, .stAt = {15, 2, 2}),
    NP_F(ulCarTempletID, .stAt = {10, 7, 0}),
    NP_F(ulStatEnable, .stAt = {15, 1, 1}),
    NP_F(ulAclCarCntID, .stAt = {12, 8, 0}),
    NP_F(ulQueuePriModifyMode, .stAt = {14, 7, 5}),
    NP_F(ulIcos, .stAt = {6, 6, 4}),
    NP_F(ulPriModifyEnable, .stAt = {14, 4, 4}),
    NP_F(ulPri, .stAt = {6, 2, 0}),
    NP_F(ulTosDscpModifyMode, .stAt = {14, 3, 2}),
    NP_F(ulTosDscp, .stAt = {9, 7, 2}, .pstWhen = g_pstDscp),
    NP_F(ulTosDscp, .stAt = {9, 7, 5}, .pszKey = "ulTos", .pstWhen = g_pstTos),
    NP_F(ulPcopyMode, .stAt = {14, 1, 0}),
    NP_F(ulPtype, .stAt = {8, 9, 0}, .bCut = true),
    NP_F(ulChannelID, .stAt = {5, 3, 0}),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulFwd, Np_Below(4)),
    NP_C(ulAction, Np_Below(4)),
    NP_C(ulRaw, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulCarEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulCarTempletID, Np_MostCap(NP_CAP_CAR_PROFILE_MAX)),
    NP_C(ulStatEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulAclCarCntID, Np_MostCap(NP_CAP_ACL_STAT_MAX)),
    NP_C(ulQueuePriModifyMode, Np_Below(8)),
    NP_C(ulIcos, Np_Below(8)),
    NP_C(ulPriModifyEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulPri, Np_Below(8)),
    NP_C(ulTosDscpModifyMode, Np_Below(4)),
    NP_C(ulTosDscp, Np_Below(64), .pstWhen = g_pstDscp),
    NP_C(ulTosDscp, Np_Below(8), .pstWhen = g_pstTos),
    NP_C(ulPcopyMode, Np_Below(4)),
    NP_C(ulPtype, Np_BelowCap(NP_CAP_PTYPE_ROWS)),
    NP_C(ulChannelID, Np_BelowCap(NP_CAP_MIRROR_GROUP_NUM)),
};
}  // namespace action_row

using NpAclKey = NpNamedKey<NP_M_ACL, "ulRuleID", Np_BelowCap(NP_CAP_ACL_RULE_NUM)>;

uint32_t Np_Null(NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, NP_M_ACL, NP_PRINT_ERROR, "Para null ptr\r\n");
    return NP_ERR_NULL_PTR;
}

// ---- ports of a key -----------------------------------------------------------------------------

inline constexpr uint32_t NP_EGRESS_BIT = 36;  // where a port's ten bits stand in the key
inline constexpr uint32_t NP_INGRESS_BIT = 48;
inline constexpr uint32_t NP_PORT_BITS = 0x3ff;
inline constexpr uint32_t NP_INGRESS_GIVEN =
    59;  // 0 with a mask of 1 where there is an ingress port

struct NpAclImage {
    uint32_t aulKey[NP_ACL_KEY_SIZE / 4];
    uint32_t aulMask[NP_ACL_KEY_SIZE / 4];
};

uint32_t Np_PortGet(const uint32_t *pulWords, uint32_t ulBit)
{
    return pulWords[ulBit / 32] >> ulBit % 32 & NP_PORT_BITS;
}

void Np_PortPut(uint8_t *pucBytes, uint32_t ulBit, uint32_t ulValue)
{
    uint32_t ulWord;
    memcpy(&ulWord, pucBytes + ulBit / 32 * 4, sizeof(ulWord));
    ulWord = (ulWord & ~(NP_PORT_BITS << ulBit % 32)) | (ulValue & NP_PORT_BITS) << ulBit % 32;
    memcpy(pucBytes + ulBit / 32 * 4, &ulWord, sizeof(ulWord));
}

uint32_t Np_PortBuild(uint32_t ulChipID, const NpAclPortInfo &stPort, uint32_t ulBit,
                      uint8_t *pucKey, uint8_t *pucMask, NpWhere stWhere)
{
    if (stPort.ulType == NP_ACL_USER) {
        const uint32_t ulShift = Np_GLB_CapGet(NP_CAP_ACL_SLOT_SHIFT);
        Np_PortPut(pucKey, ulBit, stPort.unPortInfo.stUserDef.ulSlotID << ulShift);
        Np_PortPut(pucMask, ulBit, stPort.unPortInfo.stUserDef.ulSlotMask << ulShift);
        return NP_OK;
    }
    if (stPort.ulPortNum == 0) {
        return NP_OK;
    }
    uint32_t ulPhyID = 0;
    const uint32_t ulReturn =
        Np_PortID2PhyID(ulChipID, &stPort.unPortInfo.stport.stPortID, &ulPhyID);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_ACL, NP_PRINT_ERROR,
                    "phy ID calculate failed! ulReturn=0x%08x\r\n", ulReturn);
        return ulReturn;
    }
    Np_PortPut(pucKey, ulBit, ulPhyID);
    Np_PortPut(pucMask, ulBit, Np_GLB_CapGet(NP_CAP_ACL_PORT_MASK) & ~(stPort.ulPortNum - 1));
    return NP_OK;
}

uint32_t Np_PortsBuild(uint32_t ulChipID, const NpAclRule *pstRule, uint8_t *pucKey,
                       uint8_t *pucMask, NpWhere stWhere)
{
    if (pstRule == nullptr || pucKey == nullptr || pucMask == nullptr) {
        return Np_Null(stWhere);
    }
    uint32_t ulReturn =
        Np_PortBuild(ulChipID, pstRule->stEgressPort, NP_EGRESS_BIT, pucKey, pucMask, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn = Np_PortBuild(ulChipID, pstRule->stIngressPort, NP_INGRESS_BIT, pucKey, pucMask,
                                stWhere);
    }
    if (ulReturn == NP_OK && pstRule->stIngressPort.ulPortNum != 0) {
        pucMask[NP_INGRESS_GIVEN / 8] |= static_cast<uint8_t>(1u << NP_INGRESS_GIVEN % 8);
    }
    return ulReturn;
}

uint32_t Np_PortParse(uint32_t ulChipID, const NpAclImage &stImage, uint32_t ulBit,
                      NpAclPortInfo *pstPort)
{
    const uint32_t ulShift = Np_GLB_CapGet(NP_CAP_ACL_SLOT_SHIFT);
    if (pstPort->ulType == NP_ACL_USER) {
        pstPort->unPortInfo.stUserDef = {Np_PortGet(stImage.aulKey, ulBit) >> ulShift,
                                         Np_PortGet(stImage.aulMask, ulBit) >> ulShift};
        return NP_OK;
    }
    return pstPort->ulPortNum == 0
               ? NP_OK
               : Np_IngressPhyID2PortID(ulChipID, Np_PortGet(stImage.aulKey, ulBit),
                                        &pstPort->unPortInfo.stport.stPortID);
}

// ---- rows ---------------------------------------------------------------------------------------

bool Np_IsReady(uint32_t ulChipID)
{
    return g_pastAclPriPoint[ulChipID] != nullptr && g_pastAclTcam2RuleInfo[ulChipID] != nullptr &&
           g_pastAclRule2TcamInfo[ulChipID] != nullptr && g_pastAclPri[ulChipID] != nullptr;
}

// The rule's number is legal, and there are soft tables.
uint32_t Np_RuleIDCheck(uint32_t ulChipID, uint32_t ulRuleID, NpWhere stWhere)
{
    const uint32_t ulReturn = Np_Row_Check(&g_stAclKeyArgs, ulChipID, &ulRuleID, stWhere);
    return ulReturn != NP_OK || Np_IsReady(ulChipID) ? ulReturn : Np_Null(stWhere);
}

uint32_t Np_TableOfKind(uint32_t ulKind)
{
    return ulKind == NP_ACL_RULE1 ? NP_LCAM_ACL_RULE1 : NP_LCAM_ACL_RULE2;
}

// Pointers and rows are compared as signed numbers: a full last block ends below row 0.
int32_t Np_Top(uint32_t ulChipID, uint32_t ulPri)
{
    return static_cast<int32_t>(g_pastAclPriPoint[ulChipID][ulPri].ulTopPoint);
}

int32_t Np_Bot(uint32_t ulChipID, uint32_t ulPri)
{
    return static_cast<int32_t>(g_pastAclPriPoint[ulChipID][ulPri].ulBotPoint);
}

// Where a block ends: the highest row of the next one.
int32_t Np_End(uint32_t ulChipID, uint32_t ulPri)
{
    return ulPri == g_pastAclPri[ulChipID]->ulMaxPri ? -1 : Np_Bot(ulChipID, ulPri + 1);
}

uint32_t Np_RowMove(uint32_t ulChipID, int32_t lFrom, int32_t lTo, NpWhere stWhere)
{
    const auto ulFrom = static_cast<uint32_t>(lFrom);
    const auto ulTo = static_cast<uint32_t>(lTo);
    const uint32_t ulReturn = Np_Tarn_LCAM_TcamMove(ulChipID, NP_LCAM_ACL_RULE1, ulFrom, ulTo);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_ACL, NP_PRINT_ERROR,
                    "Tcam Move Error! ulChipID=0x%08x SrcEntry=0x%08x DstEntry=0x%08x "
                    "ulReturn=0x%08x  \r\n",
                    ulChipID, ulFrom, ulTo, ulReturn);
        return ulReturn;
    }
    NpAclTcamInfo *pastRow = g_pastAclTcam2RuleInfo[ulChipID];
    pastRow[ulTo] = pastRow[ulFrom];
    g_pastAclRule2TcamInfo[ulChipID][pastRow[ulTo].ulRuleID].ulEntryID = ulTo;
    pastRow[ulFrom].ulValid = 0;
    return NP_OK;
}

// Moves the rows from lFirst to lLast, both included, one by one in this order, by lStep. Those
// that went go back if one fails.
uint32_t Np_RowsShift(uint32_t ulChipID, int32_t lFirst, int32_t lLast, int32_t lStep,
                      NpWhere stWhere)
{
    const int32_t lWay = -lStep;  // the first row moves into the free one
    for (int32_t lRow = lFirst; lWay * (lLast - lRow) >= 0; lRow += lWay) {
        const uint32_t ulReturn = Np_RowMove(ulChipID, lRow, lRow + lStep, stWhere);
        if (ulReturn != NP_OK) {
            for (lRow -= lWay; lWay * (lRow - lFirst) >= 0; lRow -= lWay) {
                Np_RowMove(ulChipID, lRow + lStep, lRow, stWhere);
            }
            return ulReturn;
        }
    }
    return NP_OK;
}

uint32_t Np_TraceNotValid(uint32_t ulChipID, uint32_t ulRuleID, NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, NP_M_ACL, NP_PRINT_ERROR,
                "[ERROR] Item is not Valid: ulChipID=0x%08x ulRuleID=0x%08x ulValid=0x%08x\r\n",
                ulChipID, ulRuleID, 0u);
    return NP_ERR_NOT_EXIST;
}

uint32_t Np_RowWrite(uint32_t ulChipID, uint32_t ulRuleID, uint32_t ulKind, uint32_t ulEntryID,
                     const NpAclImage *pstImage, const void *pvAd, NpWhere stWhere)
{
    const uint32_t ulReturn =
        Np_Tarn_LCAM_TcamWrite(ulChipID, Np_TableOfKind(ulKind), ulEntryID,
                               pstImage != nullptr ? pstImage->aulKey : nullptr,
                               pstImage != nullptr ? pstImage->aulMask : nullptr, pvAd);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_ACL, NP_PRINT_ERROR,
                    "Tcam Write Error! ulChipID=0x%08x ulRuleID=0x%08x ulReturn=0x%08x  \r\n",
                    ulChipID, ulRuleID, ulReturn);
    }
    return ulReturn;
}

uint32_t Np_RuleBuild(uint32_t ulChipID, const NpAclRule *pstRule, NpAclImage *pstImage,
                      NpWhere stWhere)
{
    const uint32_t ulReturn = Np_Row_Build(&g_stAclRuleRow, ulChipID, pstRule, pstImage, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    auto *pfnPorts =
        pstRule->ulType == NP_ACL_RULE1 ? Np_AclRule1PortInfoBulid : Np_AclRule2PortInfoBulid;
    return pfnPorts(ulChipID, pstRule, reinterpret_cast<uint8_t *>(pstImage->aulKey),
                    reinterpret_cast<uint8_t *>(pstImage->aulMask));
}

// A rule, with its action or without.
uint32_t Np_RuleSet(uint32_t ulChipID, uint32_t ulRuleID, const NpAclRule *pstRule,
                    const NpAclAction *pstAction, NpWhere stWhere)
{
    uint32_t ulReturn = NP_OK;
    uint32_t aulAd[NP_ACL_AD_SIZE / 4] = {};
    if (pstAction != nullptr) {
        Np_Row_Trace(&g_stAclActionRow, pstAction, stWhere);
        ulReturn = Np_Row_Check(&g_stAclActionRow, ulChipID, pstAction, stWhere);
    }
    if (ulReturn == NP_OK) {
        Np_Row_Trace(&g_stAclRuleRow, pstRule, stWhere);
        ulReturn = Np_Row_Check(&g_stAclRuleRow, ulChipID, pstRule, stWhere);
    }
    uint32_t ulEntryID = NP_PRICAM_NONE;
    if (ulReturn == NP_OK) {
        ulReturn = Np_Tarn_ACL_BaseInfoGet(ulChipID, ulRuleID, pstRule, &ulEntryID);
    }
    NpAclImage stImage;
    if (ulReturn == NP_OK && pstAction != nullptr) {
        ulReturn = Np_Row_Build(&g_stAclActionRow, ulChipID, pstAction, aulAd, stWhere);
    }
    if (ulReturn == NP_OK) {
        ulReturn = Np_RuleBuild(ulChipID, pstRule, &stImage, stWhere);
    }
    const bool bNew = ulEntryID == NP_PRICAM_NONE;
    if (ulReturn == NP_OK && bNew) {
        ulReturn = Np_Tarn_AclEntryAssign(ulChipID, pstRule->ulPri, &ulEntryID);
    }
    if (ulReturn == NP_OK) {
        ulReturn = Np_RowWrite(ulChipID, ulRuleID, pstRule->ulType, ulEntryID, &stImage,
                               pstAction != nullptr ? aulAd : nullptr, stWhere);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    g_pastAclTcam2RuleInfo[ulChipID][ulEntryID] = {1, ulRuleID};
    g_pastAclRule2TcamInfo[ulChipID][ulRuleID] = {
        ulEntryID,
        pstRule->ulType,
        pstRule->ulPri,
        pstRule->stIngressPort.ulPortNum,
        pstRule->stEgressPort.ulPortNum,
        pstRule->stEgressPort.ulType,
        pstRule->stIngressPort.ulType,
    };
    if (bNew) {
        g_pastAclPriPoint[ulChipID][pstRule->ulPri].ulTopPoint--;
    }
    return NP_OK;
}

uint32_t Np_RuleRead(uint32_t ulChipID, uint32_t ulRuleID, NpAclRule *pstRule,
                     NpAclAction *pstAction, NpWhere stWhere)
{
    const NpAclRuleInfo &stInfo = g_pastAclRule2TcamInfo[ulChipID][ulRuleID];
    if (stInfo.ulEntryID == NP_PRICAM_NONE) {
        return Np_TraceNotValid(ulChipID, ulRuleID, stWhere);
    }
    NpAclImage stImage = {};
    uint32_t aulAd[NP_ACL_AD_SIZE / 4] = {};
    uint32_t ulReturn =
        Np_Tarn_LCAM_TcamRead(ulChipID, Np_TableOfKind(stInfo.ulMode), stInfo.ulEntryID,
                              stImage.aulKey, stImage.aulMask, aulAd);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_ACL, NP_PRINT_ERROR,
                    "Tcam Read Error! ulChipID=0x%08x ulRuleID=0x%08x ulReturn=0x%08x  \r\n",
                    ulChipID, ulRuleID, ulReturn);
        return ulReturn;
    }
    if (pstAction != nullptr) {
        memset(pstAction, 0, sizeof(*pstAction));
        ulReturn = Np_Row_Parse(&g_stAclActionRow, ulChipID, aulAd, pstAction, stWhere);
        Np_Row_Trace(&g_stAclActionRow, pstAction, stWhere);
    }
    if (ulReturn != NP_OK || pstRule == nullptr) {
        return ulReturn;
    }
    memset(pstRule, 0, sizeof(*pstRule));
    pstRule->ulType = stInfo.ulMode;
    pstRule->ulPri = stInfo.ulPri;
    pstRule->stEgressPort.ulType = stInfo.ulEType;
    pstRule->stEgressPort.ulPortNum = stInfo.ulEPortNum;
    pstRule->stIngressPort.ulType = stInfo.ulInType;
    pstRule->stIngressPort.ulPortNum = stInfo.ulInPortNum;
    ulReturn = Np_Row_Parse(&g_stAclRuleRow, ulChipID, &stImage, pstRule, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn = Np_PortParse(ulChipID, stImage, NP_EGRESS_BIT, &pstRule->stEgressPort);
    }
    if (ulReturn == NP_OK) {
        ulReturn = Np_PortParse(ulChipID, stImage, NP_INGRESS_BIT, &pstRule->stIngressPort);
    }
    Np_Row_Trace(&g_stAclRuleRow, pstRule, stWhere);
    return ulReturn;
}

uint32_t Np_RuleDel(uint32_t ulChipID, uint32_t ulRuleID, NpWhere stWhere)
{
    NpAclRuleInfo &stInfo = g_pastAclRule2TcamInfo[ulChipID][ulRuleID];
    if (stInfo.ulEntryID == NP_PRICAM_NONE) {
        NP_TRACE_AT(stWhere, NP_M_ACL, NP_PRINT_DEBUG,
                    "[DEBUG] Item is not Valid: ulChipID=0x%08x ulRuleID=0x%08x "
                    "ulEntryID=0x%08x\r\n",
                    ulChipID, ulRuleID, stInfo.ulEntryID);
        return NP_OK;
    }
    const uint32_t ulReturn =
        Np_Tarn_LCAM_TcamDelete(ulChipID, Np_TableOfKind(stInfo.ulMode), stInfo.ulEntryID);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_ACL, NP_PRINT_ERROR,
                    "Tcam Delete Error! ulChipID=0x%08x ulRuleID=0x%08x ulReturn=0x%08x  \r\n",
                    ulChipID, ulRuleID, ulReturn);
        return ulReturn;
    }
    g_pastAclTcam2RuleInfo[ulChipID][stInfo.ulEntryID].ulValid = 0;
    stInfo.ulEntryID = NP_PRICAM_NONE;
    return NP_OK;
}

// What of a request can be refused.
uint32_t Np_BlockCheck(uint32_t ulChipID, const NpPriBlock *pstBlock, NpWhere stWhere)
{
    if (pstBlock->ulMaxPriNum > NP_PRICAM_PRI_MAX) {
        NP_TRACE_AT(stWhere, NP_M_ACL, NP_PRINT_ERROR,
                    "param error! (pstPriBlockInfo->ulMaxPriNum)=0x%08x\r\n",
                    pstBlock->ulMaxPriNum);
        return NP_ERR_PARAM;
    }
    if (pstBlock->ulMaxPriNum == 0) {
        NP_TRACE_AT(stWhere, NP_M_ACL, NP_PRINT_ERROR, " ulMaxPriNum=0x%08x\r\n",
                    pstBlock->ulMaxPriNum);
        return NP_ERR_PARAM;
    }
    uint64_t ullTotal = 0;
    for (uint32_t i = 0; i < pstBlock->ulMaxPriNum; i++) {
        ullTotal += pstBlock->ulPriPercent[i];
    }
    if (ullTotal != 100) {
        NP_TRACE_AT(stWhere, NP_M_ACL, NP_PRINT_ERROR,
                    "[ERROR] ulChipID=0x%08x, ulTotalPriPercent=0x%08x \r\n", ulChipID,
                    static_cast<uint32_t>(ullTotal));
        return NP_ERR_PARAM;
    }
    return NP_OK;
}

template <typename Element>
bool Np_Made(Element **ppaTable, uint32_t ulNum)
{
    if (*ppaTable == nullptr) {
        *ppaTable = static_cast<Element *>(Os_Alloc(ulNum * sizeof(Element)));
        if (*ppaTable != nullptr) {
            memset(*ppaTable, 0, ulNum * sizeof(Element));
        }
    }
    return *ppaTable != nullptr;
}

uint32_t Np_NoMemory(NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, NP_M_ACL, NP_PRINT_ERROR, "memory alloc failed!\r\n");
    return NP_ERR_NO_MEMORY;
}

}  // namespace

constexpr NpRow g_stAclRuleRow = Np_RowMake<NpAclRule>(
    {.ucModule = NP_M_ACL, .pszArg = "pstRule", .usImageSize = 2 * NP_ACL_KEY_SIZE},
    rule_row::g_astField, rule_row::g_astCheck);
constexpr NpRow g_stAclActionRow = Np_RowMake<NpAclAction>(
    {.ucModule = NP_M_ACL, .pszArg = "pstAction", .usImageSize = NP_ACL_AD_SIZE},
    action_row::g_astField, action_row::g_astCheck);
constexpr NpRow g_stAclKeyArgs = NpAclKey::g_stRow;

extern "C" {

uint32_t Np_TarnA_AclRule1PortInfoBulid(uint32_t ulChipID, const NpAclRule *pstRule,
                                        uint8_t *pucKey, uint8_t *pucMask)
{
    return Np_PortsBuild(ulChipID, pstRule, pucKey, pucMask, Np_Here());
}

uint32_t Np_TarnA_AclRule2PortInfoBulid(uint32_t ulChipID, const NpAclRule *pstRule,
                                        uint8_t *pucKey, uint8_t *pucMask)
{
    return Np_PortsBuild(ulChipID, pstRule, pucKey, pucMask, Np_Here());
}

uint32_t Np_TarnA_AclTbl_Rule1Info_Get(uint32_t ulChipID, uint32_t ulRuleID, NpAclRule *pstRule,
                                       NpAclAction *pstAction)
{
    const uint32_t ulReturn = Np_RuleIDCheck(ulChipID, ulRuleID, Np_Here());
    return ulReturn != NP_OK ? ulReturn
                             : Np_RuleRead(ulChipID, ulRuleID, pstRule, pstAction, Np_Here());
}

uint32_t Np_TarnA_AclTbl_Rule2Info_Get(uint32_t ulChipID, uint32_t ulRuleID, NpAclRule *pstRule,
                                       NpAclAction *pstAction)
{
    const uint32_t ulReturn = Np_RuleIDCheck(ulChipID, ulRuleID, Np_Here());
    return ulReturn != NP_OK ? ulReturn
                             : Np_RuleRead(ulChipID, ulRuleID, pstRule, pstAction, Np_Here());
}

// ---- blocks -------------------------------------------------------------------------------------

uint32_t Np_Tarn_ACL_IsPriBlockFull(uint32_t ulChipID, uint32_t ulPri)
{
    if (Np_Top(ulChipID, ulPri) != Np_End(ulChipID, ulPri)) {
        return NP_OK;
    }
    for (int32_t lRow = Np_Top(ulChipID, ulPri) + 1; lRow <= Np_Bot(ulChipID, ulPri); lRow++) {
        if (g_pastAclTcam2RuleInfo[ulChipID][lRow].ulValid == 0) {
            return NP_OK;
        }
    }
    NP_TRACE(NP_M_ACL, NP_PRINT_DEBUG, "[DEBUG] Block is full! ulChipID=0x%08x ulPri=0x%08x\r\n",
             ulChipID, ulPri);
    return NP_ERR_ACL_BLOCK_FULL;
}

// Block by block from its high end down. A move that fails leaves the holes that are left.
uint32_t Np_Tarn_ACL_PriBlockTidy(uint32_t ulChipID, uint32_t ulPri)
{
    const int32_t lTop = Np_Top(ulChipID, ulPri);
    int32_t lTo = Np_Bot(ulChipID, ulPri);
    for (int32_t lFrom = lTo; lFrom > lTop; lFrom--) {
        if (g_pastAclTcam2RuleInfo[ulChipID][lFrom].ulValid == 0) {
            continue;
        }
        if (lFrom != lTo) {
            const uint32_t ulReturn = Np_RowMove(ulChipID, lFrom, lTo, Np_Here());
            if (ulReturn != NP_OK) {
                return ulReturn;
            }
        }
        lTo--;
    }
    g_pastAclPriPoint[ulChipID][ulPri].ulTopPoint = static_cast<uint32_t>(lTo);
    return NP_OK;
}

uint32_t Np_Tarn_ACL_ClosestPirBlockSearch(uint32_t ulChipID, uint32_t ulPri,
                                           uint32_t *pulDirection, uint32_t *pulDonorPri,
                                           uint32_t *pulDistance)
{
    const uint32_t ulMaxPri = g_pastAclPri[ulChipID]->ulMaxPri;
    uint32_t ulBelow = ulPri + 1;
    while (ulBelow <= ulMaxPri && Np_Tarn_ACL_IsPriBlockFull(ulChipID, ulBelow) != NP_OK) {
        ulBelow++;
    }
    uint32_t ulBelowDistance = NP_PRICAM_BELOW;
    if (ulBelow <= ulMaxPri) {
        const uint32_t ulReturn = Np_Tarn_ACL_PriBlockTidy(ulChipID, ulBelow);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
        const int32_t lDistance = Np_Top(ulChipID, ulPri) - Np_Top(ulChipID, ulBelow);
        if (lDistance < 0) {
            NP_TRACE(NP_M_ACL, NP_PRINT_ERROR,
                     "[ERROR] acl softtable Error, ulChipID=%08x, ulCurrentPri=%08x, "
                     "ulBottomPri=%08x",
                     ulChipID, ulPri, ulBelow);
            return NP_ERR_FAIL;
        }
        ulBelowDistance = static_cast<uint32_t>(lDistance);
    }
    uint32_t ulAbove = ulPri;  // one more than the block
    while (ulAbove > 0 && Np_Tarn_ACL_IsPriBlockFull(ulChipID, ulAbove - 1) != NP_OK) {
        ulAbove--;
    }
    uint32_t ulAboveDistance = NP_PRICAM_BELOW;
    if (ulAbove > 0) {
        const uint32_t ulReturn = Np_Tarn_ACL_PriBlockTidy(ulChipID, ulAbove - 1);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
        const int32_t lDistance = Np_Bot(ulChipID, ulAbove) + 1 - Np_Top(ulChipID, ulPri);
        if (lDistance < 0) {
            NP_TRACE(NP_M_ACL, NP_PRINT_ERROR,
                     "[ERROR] acl softtable Error, ulChipID=%08x, ulCurrentPri=%08x, "
                     "ulTopPri=%08x",
                     ulChipID, ulPri, ulAbove - 1);
            return NP_ERR_FAIL;
        }
        ulAboveDistance = static_cast<uint32_t>(lDistance);
    }
    if (ulAbove == 0 && ulBelow > ulMaxPri) {
        return NP_ERR_TABLE_FULL;  // never while there are as many rows as rules
    }
    const bool bBelow = ulBelowDistance < ulAboveDistance;
    *pulDirection = bBelow ? 0 : 1;
    *pulDonorPri = bBelow ? ulBelow : ulAbove - 1;
    *pulDistance = bBelow ? ulBelowDistance : ulAboveDistance;
    return NP_OK;
}

uint32_t Np_Tarn_ACL_CamBlockMove(uint32_t ulChipID, uint32_t ulDirection, uint32_t ulPri,
                                  uint32_t ulDonorPri, uint32_t ulDistance)
{
    NpPriBlockPoint *pastPoint = g_pastAclPriPoint[ulChipID];
    const bool bAbove = ulDirection == 1;
    uint32_t ulReturn = NP_OK;
    if (ulDistance != 0 && bAbove) {
        ulReturn = Np_RowsShift(ulChipID, Np_Bot(ulChipID, ulDonorPri + 1),
                                Np_Top(ulChipID, ulPri) + 1, 1, Np_Here());
    }
    else if (ulDistance != 0) {
        ulReturn = Np_RowsShift(ulChipID, Np_Top(ulChipID, ulDonorPri) + 1, Np_Top(ulChipID, ulPri),
                                -1, Np_Here());
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint32_t ulFirst = bAbove ? ulDonorPri + 1 : ulPri + 1;
    const uint32_t ulLast = bAbove ? ulPri : ulDonorPri;
    for (uint32_t i = ulFirst; i <= ulLast; i++) {
        pastPoint[i].ulTopPoint += bAbove ? 1u : NP_PRICAM_BELOW;
        pastPoint[i].ulBotPoint += bAbove ? 1u : NP_PRICAM_BELOW;
    }
    return NP_OK;
}

uint32_t Np_Tarn_AclEntryAssign(uint32_t ulChipID, uint32_t ulPri, uint32_t *pulEntryID)
{
    uint32_t ulReturn = NP_OK;
    if (Np_Top(ulChipID, ulPri) <= Np_End(ulChipID, ulPri)) {
        if (Np_Tarn_ACL_IsPriBlockFull(ulChipID, ulPri) == NP_OK) {
            ulReturn = Np_Tarn_ACL_PriBlockTidy(ulChipID, ulPri);
        }
        else {
            uint32_t ulDirection = 0;
            uint32_t ulDonorPri = 0;
            uint32_t ulDistance = 0;
            ulReturn = Np_Tarn_ACL_ClosestPirBlockSearch(ulChipID, ulPri, &ulDirection, &ulDonorPri,
                                                         &ulDistance);
            if (ulReturn == NP_OK) {
                ulReturn =
                    Np_Tarn_ACL_CamBlockMove(ulChipID, ulDirection, ulPri, ulDonorPri, ulDistance);
            }
        }
    }
    *pulEntryID = g_pastAclPriPoint[ulChipID][ulPri].ulTopPoint;
    return ulReturn;
}

uint32_t Np_Tarn_ACL_CamPriBlockAssign(uint32_t ulChipID, const NpPriBlock *pstPriBlockInfo)
{
    const uint32_t ulReturn = Np_BlockCheck(ulChipID, pstPriBlockInfo, Np_Here());
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint32_t ulRows = Np_GLB_CapGet(NP_CAP_ACL_RULE_NUM);
    uint32_t ulPoint = ulRows - 1;
    for (uint32_t i = 0; i < pstPriBlockInfo->ulMaxPriNum; i++) {
        g_pastAclPriPoint[ulChipID][i] = {pstPriBlockInfo->ulPriPercent[i], ulPoint, ulPoint};
        ulPoint -= pstPriBlockInfo->ulPriPercent[i] * ulRows / 100;
    }
    return NP_OK;
}

uint32_t Np_Tarn_ACL_PriBlockAssign(uint32_t ulChipID, const NpPriBlock *pstRulePriBlockInfo)
{
    if (pstRulePriBlockInfo == nullptr || g_pastAclRule2TcamInfo[ulChipID] == nullptr ||
        g_pastAclTcam2RuleInfo[ulChipID] == nullptr) {
        return Np_Null(Np_Here());
    }
    uint32_t ulReturn = Np_BlockCheck(ulChipID, pstRulePriBlockInfo, Np_Here());
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpPriBlockPoint *pastPoint = nullptr;
    if (!Np_Made(&pastPoint, pstRulePriBlockInfo->ulMaxPriNum) ||
        !Np_Made(&g_pastAclPri[ulChipID], 1)) {
        Os_Free(pastPoint);
        return Np_NoMemory(Np_Here());
    }
    for (uint32_t i = 0; i < Np_GLB_CapGet(NP_CAP_ACL_RULE_NUM) && ulReturn == NP_OK; i++) {
        ulReturn = Np_RuleDel(ulChipID, i, Np_Here());
    }
    if (ulReturn != NP_OK) {
        Os_Free(pastPoint);
        return ulReturn;
    }
    Np_FreeAndForget(&g_pastAclPriPoint[ulChipID]);
    g_pastAclPriPoint[ulChipID] = pastPoint;
    *g_pastAclPri[ulChipID] = {pstRulePriBlockInfo->ulMaxPriNum,
                               pstRulePriBlockInfo->ulMaxPriNum - 1};
    Np_Tarn_ACL_CamPriBlockAssign(ulChipID, pstRulePriBlockInfo);
    for (const uint32_t ulKind : {NP_ACL_RULE1, NP_ACL_RULE2}) {
        NpAclRule stRule = {};
        stRule.ulType = ulKind;
        const NpAclAction stAction = {};
        // Nobody looks at what comes of them.
        Np_RuleSet(ulChipID,
                   Np_GLB_CapGet(ulKind == NP_ACL_RULE1 ? NP_CAP_ACL_ASSIGN_RULE_A
                                                        : NP_CAP_ACL_ASSIGN_RULE_B),
                   &stRule, &stAction, Np_Here());
    }
    return NP_OK;
}

uint32_t Np_Tarn_Acl_Init(uint32_t ulChipID)
{
    const uint32_t ulRules = Np_GLB_CapGet(NP_CAP_ACL_RULE_NUM);
    if (!Np_Made(&g_pastAclTcam2RuleInfo[ulChipID], ulRules) ||
        !Np_Made(&g_pastAclRule2TcamInfo[ulChipID], ulRules)) {
        return Np_NoMemory(Np_Here());
    }
    memset(g_pastAclTcam2RuleInfo[ulChipID], 0, ulRules * sizeof(NpAclTcamInfo));
    for (uint32_t i = 0; i < ulRules; i++) {
        g_pastAclRule2TcamInfo[ulChipID][i].ulEntryID = NP_PRICAM_NONE;
    }
    NpPriBlock *pstBlock = static_cast<NpPriBlock *>(Os_Alloc(sizeof(NpPriBlock)));
    if (pstBlock == nullptr) {
        return Np_NoMemory(Np_Here());
    }
    memset(pstBlock, 0, sizeof(*pstBlock));
    pstBlock->ulMaxPriNum = NP_FIRST_PRIORITIES;
    for (uint32_t i = 0; i < NP_FIRST_PRIORITIES; i++) {
        pstBlock->ulPriPercent[i] = i + 1 < NP_FIRST_PRIORITIES ? NP_FIRST_PERCENT : NP_FIRST_REST;
    }
    const uint32_t ulReturn = Np_Tarn_ACL_PriBlockAssign(ulChipID, pstBlock);
    Os_Free(pstBlock);
    return ulReturn;
}

uint32_t Np_Tarn_ACL_Destruct(uint32_t ulChipID)
{
    Np_FreeAndForget(&g_pastAclPriPoint[ulChipID]);
    Np_FreeAndForget(&g_pastAclTcam2RuleInfo[ulChipID]);
    Np_FreeAndForget(&g_pastAclRule2TcamInfo[ulChipID]);
    Np_FreeAndForget(&g_pastAclPri[ulChipID]);
    return NP_OK;
}

// ---- rules --------------------------------------------------------------------------------------

uint32_t Np_Tarn_ACL_BaseInfoGet(uint32_t ulChipID, uint32_t ulRuleID, const NpAclRule *pstRule,
                                 uint32_t *pulEntryID)
{
    const NpAclRuleInfo &stInfo = g_pastAclRule2TcamInfo[ulChipID][ulRuleID];
    *pulEntryID = stInfo.ulEntryID;
    if (stInfo.ulEntryID == NP_PRICAM_NONE) {
        return NP_OK;
    }
    if (stInfo.ulPri != pstRule->ulPri) {
        NP_TRACE(NP_M_ACL, NP_PRINT_ERROR,
                 "[ERROR] pri not match: ulChipID=0x%08x ulRuleID=0x%08x ulMode=0x%08x "
                 "ulPri=0x%08x ulOldPri=0x%08x\r\n",
                 ulChipID, ulRuleID, pstRule->ulType, pstRule->ulPri, stInfo.ulPri);
        return NP_ERR_PRIORITY;
    }
    if (stInfo.ulMode != pstRule->ulType) {
        NP_TRACE(NP_M_ACL, NP_PRINT_ERROR,
                 "[ERROR] mode not match: ulChipID=0x%08x ulRuleID=0x%08x ulMode=0x%08x "
                 "ulPri=0x%08x ulOldPri=0x%08x\r\n",
                 ulChipID, ulRuleID, pstRule->ulType, pstRule->ulPri, stInfo.ulPri);
        return NP_ERR_ACL_MODE;
    }
    return NP_OK;
}

uint32_t Np_Tarn_AclRuleAndActionSet(uint32_t ulChipID, uint32_t ulRuleID, const NpAclRule *pstRule,
                                     const NpAclAction *pstAction)
{
    return Np_RuleSet(ulChipID, ulRuleID, pstRule, pstAction, Np_Here());
}

uint32_t Np_Tarn_AclOnlyRuleSet(uint32_t ulChipID, uint32_t ulRuleID, const NpAclRule *pstRule)
{
    return Np_RuleSet(ulChipID, ulRuleID, pstRule, nullptr, Np_Here());
}

uint32_t Np_Tarn_AclOnlyActionSet(uint32_t ulChipID, uint32_t ulRuleID,
                                  const NpAclAction *pstAction)
{
    Np_Row_Trace(&g_stAclActionRow, pstAction);
    uint32_t ulReturn = Np_Row_Check(&g_stAclActionRow, ulChipID, pstAction);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpAclRuleInfo &stInfo = g_pastAclRule2TcamInfo[ulChipID][ulRuleID];
    if (stInfo.ulEntryID == NP_PRICAM_NONE) {
        return Np_TraceNotValid(ulChipID, ulRuleID, Np_Here());
    }
    uint32_t aulAd[NP_ACL_AD_SIZE / 4];
    ulReturn = Np_Row_Build(&g_stAclActionRow, ulChipID, pstAction, aulAd);
    return ulReturn != NP_OK ? ulReturn
                             : Np_RowWrite(ulChipID, ulRuleID, stInfo.ulMode, stInfo.ulEntryID,
                                           nullptr, aulAd, Np_Here());
}

uint32_t Np_Tarn_AclTbl_Set(uint32_t ulChipID, uint32_t ulRuleID, const NpAclRule *pstRule,
                            const NpAclAction *pstAction)
{
    const uint32_t ulReturn = Np_RuleIDCheck(ulChipID, ulRuleID, Np_Here());
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pstRule != nullptr) {
        return pstAction != nullptr
                   ? Np_Tarn_AclRuleAndActionSet(ulChipID, ulRuleID, pstRule, pstAction)
                   : Np_Tarn_AclOnlyRuleSet(ulChipID, ulRuleID, pstRule);
    }
    if (pstAction != nullptr) {
        return Np_Tarn_AclOnlyActionSet(ulChipID, ulRuleID, pstAction);
    }
    NP_TRACE(NP_M_ACL, NP_PRINT_ERROR,
             "[ERROR] Para null ptr:ulChipID=0x%08x pstRule=0x%08x pstAction=0x%08x\r\n", ulChipID,
             0u, 0u);
    return NP_ERR_NULL_PTR;
}

uint32_t Np_Tarn_AclTbl_Get(uint32_t ulChipID, uint32_t ulRuleID, NpAclRule *pstRule,
                            NpAclAction *pstAction)
{
    const uint32_t ulReturn = Np_RuleIDCheck(ulChipID, ulRuleID, Np_Here());
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pstRule == nullptr && pstAction == nullptr) {
        NP_TRACE(NP_M_ACL, NP_PRINT_ERROR,
                 "[ERROR] Para null ptr: ulChipID=0x%08x pstRule=0x%08x pstAction=0x%08x\r\n",
                 ulChipID, 0u, 0u);
        return NP_ERR_NULL_PTR;
    }
    return g_pastAclRule2TcamInfo[ulChipID][ulRuleID].ulMode == NP_ACL_RULE1
               ? Np_AclTbl_Rule1Info_Get(ulChipID, ulRuleID, pstRule, pstAction)
               : Np_AclTbl_Rule2Info_Get(ulChipID, ulRuleID, pstRule, pstAction);
}

uint32_t Np_Tarn_AclTbl_Del(uint32_t ulChipID, uint32_t ulRuleID)
{
    const uint32_t ulReturn = Np_RuleIDCheck(ulChipID, ulRuleID, Np_Here());
    return ulReturn != NP_OK ? ulReturn : Np_RuleDel(ulChipID, ulRuleID, Np_Here());
}

uint32_t Np_Tarn_AclActionTbl_Set(uint32_t ulChipID, uint32_t ulRuleID,
                                  const NpAclAction *pstAction)
{
    const uint32_t ulReturn = Np_RuleIDCheck(ulChipID, ulRuleID, Np_Here());
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    return pstAction == nullptr ? Np_Null(Np_Here())
                                : Np_Tarn_AclOnlyActionSet(ulChipID, ulRuleID, pstAction);
}

uint32_t Np_Tarn_AclActionTbl_Get(uint32_t ulChipID, uint32_t ulRuleID, NpAclAction *pstAction)
{
    if (pstAction == nullptr) {
        return Np_Null(Np_Here());
    }
    return Np_Tarn_AclTbl_Get(ulChipID, ulRuleID, nullptr, pstAction);
}

}  // extern "C"

uint32_t Np_AclRuleOnly_Get(uint32_t ulChipID, uint32_t ulRuleID, NpAclRule *pstRule)
{
    return Np_AclTbl_Get(ulChipID, ulRuleID, pstRule, nullptr);
}

uint32_t Np_AclRuleOnly_Set(uint32_t ulChipID, uint32_t ulRuleID, const NpAclRule *pstRule)
{
    NpAclAction stAction = {};
    const uint32_t ulReturn = Np_AclActionTbl_Get(ulChipID, ulRuleID, &stAction);
    return ulReturn != NP_OK && ulReturn != NP_ERR_NOT_EXIST
               ? ulReturn
               : Np_AclTbl_Set(ulChipID, ulRuleID, pstRule,
                               ulReturn == NP_OK ? nullptr : &stAction);
}

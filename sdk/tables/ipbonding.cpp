#include "sdk/tables/ipbonding.h"

#include "ldsdk/status.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/lookup/eml.h"
#include "sdk/lookup/lcam.h"
#include "sdk/record/describe.h"
#include "sdk/tables/secu.h"

constinit NpIpBondNode *g_pastIp4BTbl[NP_CHIP_NUM] = {};
constinit NpIpBondNode *g_pastIp6BTbl[NP_CHIP_NUM] = {};
constinit uint32_t *g_pastIp4BIDTbl[NP_CHIP_NUM] = {};
constinit uint32_t *g_pastIp6BIDTbl[NP_CHIP_NUM] = {};
constinit uint32_t g_aulIpv4BPos[NP_CHIP_NUM][NP_IP4_POS_WORDS] = {};
constinit uint32_t g_aulIpv6BPos[NP_CHIP_NUM][NP_IP6_POS_WORDS] = {};
constinit uint32_t g_aulIpv4BNum[NP_CHIP_NUM] = {};
constinit uint32_t g_aulIpv6BNum[NP_CHIP_NUM] = {};
constinit uint32_t g_aulIpv4BIDNum[NP_CHIP_NUM] = {};
constinit uint32_t g_aulIpv6BIDNum[NP_CHIP_NUM] = {};

namespace {

// ---- rows -------------------------------------------------------------------------------------

namespace ip4_key {
using R = NpIp4Key;
constexpr NpField g_astField[] = {
    NP_F(ulSubType, .stAt = {4, 23, 23}, .bCut = true),
    NP_F(ulFlowID, .stAt = {4, 22, 12}, .bCut = true),
    NP_F(ulIpv4, .stAt = {0, 43, 12}, .ucType = NP_SMD_IPV4),
};
}  // namespace ip4_key

namespace ip4_data {
constexpr NpField g_astField[] = {Np_Const({0, 11, 0}, 1)};
inline constexpr uint32_t NP_BITS = 12;
}  // namespace ip4_data

// Key, mask and AD, one behind the other.
namespace ip6_row {
using R = NpIp6Rule;
inline constexpr uint32_t NP_MASK = 12;
inline constexpr uint32_t NP_AD = 24;
inline constexpr uint32_t NP_SIZE = 32;
constexpr NpField g_astField[] = {
    NP_F(ulSubType, .stAt = {8, 11, 11}, .bCut = true),
    NP_F(ulFlowID, .stAt = {8, 10, 0}, .bCut = true),
    NP_F(stIp.unIp.aulIpv6, .stAt = {4, 31, 0}, .sStep = -32, .pszKey = "aulIpv6", .usCount = 2),
    NP_F(stIp.ulIpv6Mask, .stAt = {NP_MASK + 4, 31, 0}, .sStep = -32, .pszKey = "ulIpv6Mask",
         .usCount = 2),
    Np_Const({NP_MASK + 8, 11, 0}, 0xfff),
    Np_Const({NP_AD + 4, 15, 0}, 1),
};
}  // namespace ip6_row

// ---- arguments ----------------------------------------------------------------------------------

constexpr auto g_astIpWords = Np_Words("ipv4", "ipv6");
constexpr auto g_astDelWords = Np_Words("one", "all");

// The arguments with a name for what is bound to, and its limit.
template <NpName stName, NpLimit stLimit>
struct NpIpArgRows {
    using R = NpIpArgs;
    static constexpr NpField g_astKey[] = {
        NP_F(ulIpType, .stWords = g_astIpWords),
        Np_FieldMake<uint32_t>(stName.acText, offsetof(R, ulFlowID), sizeof(uint32_t), 0,
                               {.pszKey = "index"}),
    };
    static constexpr NpField g_astDel[] = {NP_F(ulDelMode, .stWords = g_astDelWords)};
    static constexpr const NpWhen *g_pstOne = NP_WHEN(ulDelMode, 1u << NP_IP_DEL_ONE);
    static constexpr NpField g_astAddress[] = {
        NP_F(stIp.unIp.ulIpv4, .ucType = NP_SMD_IPV4,
             .pstWhen = NP_WHEN(ulIpType, 1u << NP_IP_V4, g_pstOne)),
        NP_F(stIp.unIp.aulIpv6, .ucType = NP_SMD_IPV6,
             .pstWhen = NP_WHEN(ulIpType, 1u << NP_IP_V6, g_pstOne)),
        NP_F(stIp.ulIpv6Mask, .ucType = NP_SMD_IPV6,
             .pstWhen = NP_WHEN(ulIpType, 1u << NP_IP_V6, g_pstOne)),
    };
    static constexpr NpField g_astHiddenDel[] = {NP_F(ulDelMode, .bHidden = true)};
    static constexpr auto g_astSet = Np_JoinFields(g_astKey, g_astHiddenDel, g_astAddress);
    static constexpr auto g_astDelAll = Np_JoinFields(g_astKey, g_astDel, g_astAddress);
    static constexpr NpCheck g_astCheck[] = {
        NP_C(ulIpType, Np_Below(NP_IP_TYPE_NUM)),
        Np_CheckMake<uint32_t>(stName.acText, offsetof(R, ulFlowID), sizeof(uint32_t), 0, stLimit,
                               {}),
        NP_C(ulDelMode, Np_Below(2)),
    };
    static constexpr std::span<const NpCheck> g_astKeyCheck = {g_astCheck, 2};
    static constexpr NpRowSpec g_stSpec = {.ucModule = NP_M_SECU, .bBare = true};
};
using Flow = NpIpArgRows<"ulFlowID", Np_MostCap(NP_CAP_IP_FLOW_MAX)>;
using Bundle = NpIpArgRows<"ulFlowBundleID", Np_BelowCap(NP_CAP_BUNDLE_NUM)>;

using Cm = NpIpArgRows<"ulCmGroupID", Np_MostCap(NP_CAP_CM_GROUP_MAX)>;

namespace shown {
using R = NpIpArgs;
constexpr NpField g_astField[] = {
    NP_F(ulIpType, .stWords = g_astIpWords, .bHidden = true),
    NP_F(stIp.unIp.ulIpv4, .ucType = NP_SMD_IPV4, .pstWhen = NP_WHEN(ulIpType, 1u << NP_IP_V4)),
    NP_F(stIp.unIp.aulIpv6, .ucType = NP_SMD_IPV6, .pstWhen = NP_WHEN(ulIpType, 1u << NP_IP_V6)),
    NP_F(stIp.ulIpv6Mask, .ucType = NP_SMD_IPV6, .pstWhen = NP_WHEN(ulIpType, 1u << NP_IP_V6)),
};
}  // namespace shown

}  // namespace

constexpr NpRow g_stIp4KeyRow =
    Np_RowMake<NpIp4Key>({.ucModule = NP_M_SECU, .usImageSize = 8}, ip4_key::g_astField, {});
constexpr NpRow g_stIp4DataRow =
    Np_RowMake<NpNoData>({.ucModule = NP_M_SECU, .usImageSize = 8}, ip4_data::g_astField, {});
constexpr NpRow g_stIp6Row = Np_RowMake<NpIp6Rule>(
    {.ucModule = NP_M_SECU, .usImageSize = ip6_row::NP_SIZE}, ip6_row::g_astField, {});
constexpr NpRow g_stIpFlowArgs =
    Np_RowMake<NpIpArgs>(Flow::g_stSpec, Flow::g_astSet, Flow::g_astCheck);
constexpr NpRow g_stIpFlowKeyArgs =
    Np_RowMake<NpIpArgs>(Flow::g_stSpec, Flow::g_astKey, Flow::g_astKeyCheck);
constexpr NpRow g_stIpFlowDelArgs =
    Np_RowMake<NpIpArgs>(Flow::g_stSpec, Flow::g_astDelAll, Flow::g_astCheck);
constexpr NpRow g_stIpBundleArgs =
    Np_RowMake<NpIpArgs>(Bundle::g_stSpec, Bundle::g_astSet, Bundle::g_astCheck);
constexpr NpRow g_stIpBundleKeyArgs =
    Np_RowMake<NpIpArgs>(Bundle::g_stSpec, Bundle::g_astKey, Bundle::g_astKeyCheck);
constexpr NpRow g_stIpBundleDelArgs =
    Np_RowMake<NpIpArgs>(Bundle::g_stSpec, Bundle::g_astDelAll, Bundle::g_astCheck);
constexpr NpRow g_stIpCmArgs = Np_RowMake<NpIpArgs>(Cm::g_stSpec, Cm::g_astSet, Cm::g_astCheck);
constexpr NpRow g_stIpCmKeyArgs =
    Np_RowMake<NpIpArgs>(Cm::g_stSpec, Cm::g_astKey, Cm::g_astKeyCheck);
constexpr NpRow g_stIpCmDelArgs =
    Np_RowMake<NpIpArgs>(Cm::g_stSpec, Cm::g_astDelAll, Cm::g_astCheck);
constexpr NpRow g_stIpShownArgs =
    Np_RowMake<NpIpArgs>({.ucModule = NP_M_SECU}, shown::g_astField, {});

namespace {

constexpr NpExactTable g_stIp4Table =
    Np_ExactOf({.stKey = g_stIp4KeyRow,
                .stData = g_stIp4DataRow,
                .stPlace = NpIndexKey<NP_M_SECU, NP_CAP_IP_BONDING_TOTAL>::g_stRow,
                .ulEmlTable = NP_EML_IPV4FILTER,
                .ulDataBits = ip4_data::NP_BITS,
                .ucWords = 2,
                .ulDelType = NP_EML_DEL_STATIC});

// ---- the chip's part ----------------------------------------------------------------------------

struct NpIp6Image {
    uint32_t aulKey[ip6_row::NP_MASK / 4];
    uint32_t aulMask[(ip6_row::NP_AD - ip6_row::NP_MASK) / 4];
    uint32_t aulAd[(ip6_row::NP_SIZE - ip6_row::NP_AD) / 4];
};

uint32_t Np_Told(uint32_t ulReturn, NpWhere stWhere)
{
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_SECU, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
    }
    return ulReturn;
}

NpIp4Key Np_Ip4Key(uint32_t ulSubType, uint32_t ulFlowID, const uint32_t *pulAddress)
{
    return {ulSubType, ulFlowID, pulAddress[0]};
}

uint32_t Np_Ip4Put(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID, uint32_t,
                   const uint32_t *pulAddress, NpWhere stWhere)
{
    const NpIp4Key stKey = Np_Ip4Key(ulSubType, ulFlowID, pulAddress);
    const NpNoData stData = {};
    return Np_Exact_Add(&g_stIp4Table, ulChipID, &stKey, &stData, nullptr, stWhere);
}

uint32_t Np_Ip4Drop(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID, uint32_t,
                    const uint32_t *pulAddress, NpWhere stWhere)
{
    const NpIp4Key stKey = Np_Ip4Key(ulSubType, ulFlowID, pulAddress);
    return Np_Exact_Del(&g_stIp4Table, ulChipID, &stKey, stWhere);
}

uint32_t Np_Ip6Put(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID, uint32_t ulPos,
                   const uint32_t *pulAddress, NpWhere stWhere)
{
    NpIp6Rule stRule = {ulSubType, ulFlowID, {}};
    memcpy(&stRule.stIp, pulAddress, sizeof(stRule.stIp));
    NpIp6Image stImage;
    Np_Row_Build(&g_stIp6Row, ulChipID, &stRule, &stImage, stWhere);  // nothing in it can fail
    return Np_Told(Np_Tarn_LCAM_TcamWrite(ulChipID, NP_LCAM_IPV6FILTER, ulPos, stImage.aulKey,
                                          stImage.aulMask, stImage.aulAd),
                   stWhere);
}

// The CAM's last row takes what no other does: it says that an address is not bound.
uint32_t Np_Ip6LastWrite(uint32_t ulChipID, NpWhere stWhere)
{
    const NpIp6Image stNone = {};
    return Np_Told(Np_Tarn_LCAM_TcamWrite(ulChipID, NP_LCAM_IPV6FILTER,
                                          Np_GLB_CapGet(NP_CAP_IP_FLOW_BLOCK) - 1, stNone.aulKey,
                                          stNone.aulMask, stNone.aulAd),
                   stWhere);
}

uint32_t Np_Ip6Drop(uint32_t ulChipID, uint32_t, uint32_t, uint32_t ulPos, const uint32_t *,
                    NpWhere stWhere)
{
    return ulPos == Np_GLB_CapGet(NP_CAP_IP_FLOW_BLOCK) - 1
               ? Np_Ip6LastWrite(ulChipID, stWhere)
               : Np_Told(Np_Tarn_LCAM_TcamDelete(ulChipID, NP_LCAM_IPV6FILTER, ulPos), stWhere);
}

// ---- the lists ----------------------------------------------------------------------------------

// A family of addresses. Two that agree in the words of ulSame are one.
struct NpIpKind {
    NpIpBondNode **ppastNode;
    uint32_t **ppulFlow;
    uint32_t *pulPos;  // of chip 0
    uint32_t ulPosWords;
    uint32_t *pulNum;
    uint32_t *pulFlowNum;
    NpCapSlot enMost;
    const char *pszMany;  // format of a count that is too great
    const char *pszNone;
    uint32_t ulNodeFlag;
    uint32_t ulSame;   // words of an address and its mask that count, by bits
    uint32_t ulGiven;  // those that a Get gives
    bool bPlaceFirst;  // the row is the node's position
    uint32_t (*pfnPut)(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID, uint32_t ulPos,
                       const uint32_t *pulAddress, NpWhere stWhere);
    uint32_t (*pfnDrop)(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID, uint32_t ulPos,
                        const uint32_t *pulAddress, NpWhere stWhere);
};
constexpr NpIpKind g_astKind[NP_IP_TYPE_NUM] = {
    {g_pastIp4BTbl, g_pastIp4BIDTbl, g_aulIpv4BPos[0], NP_IP4_POS_WORDS, g_aulIpv4BNum,
     g_aulIpv4BIDNum, NP_CAP_IP_BONDING_TOTAL, "param error! g_aulIpv4BNum[ulChipID]=0x%08x\r\n",
     " NP_IPBONDING_IP4FLOW_GET_ERROR: there  is no this FID.\r\n", 0, 0x01, 0x01, false, Np_Ip4Put,
     Np_Ip4Drop},
    {g_pastIp6BTbl, g_pastIp6BIDTbl, g_aulIpv6BPos[0], NP_IP6_POS_WORDS, g_aulIpv6BNum,
     g_aulIpv6BIDNum, NP_CAP_IP_FLOW_BLOCK, "param error! g_aulIpv6BNum[ulChipID]=0x%08x\r\n",
     " NP_IPBONDING_IP6FLOW_GET_ERROR: there  is no this FID.\r\n", NP_NODE_V6, 0x33, 0x33, true,
     Np_Ip6Put, Np_Ip6Drop},
};
static_assert(sizeof(NpIpBonding) == sizeof(NpIpBondNode::aulAddress));

uint32_t *Np_PosOf(const NpIpKind &stKind, uint32_t ulChipID)
{
    return stKind.pulPos + size_t{ulChipID} * stKind.ulPosWords;
}

uint32_t *Np_FlowOf(const NpIpKind &stKind, uint32_t ulChipID, uint32_t ulSubType,
                    uint32_t ulFlowID)
{
    return &stKind.ppulFlow[ulChipID][ulSubType | ulFlowID * 2];
}

uint32_t Np_Head(uint32_t ulFlow)
{
    return ulFlow >> NP_FLOW_HEAD_SHIFT & NP_NODE_POS_MASK;
}

void Np_HeadSet(uint32_t *pulFlow, uint32_t ulPos)
{
    *pulFlow = (*pulFlow & ~(NP_NODE_POS_MASK << NP_FLOW_HEAD_SHIFT)) | ulPos << NP_FLOW_HEAD_SHIFT;
}

uint32_t Np_Next(const NpIpBondNode &stNode)
{
    return stNode.ulControl >> NP_NODE_NEXT_SHIFT & NP_NODE_POS_MASK;
}

bool Np_SameAddress(const NpIpKind &stKind, const uint32_t *pulA, const uint32_t *pulB)
{
    for (uint32_t i = 0; i < sizeof(NpIpBonding) / sizeof(uint32_t); i++) {
        if ((stKind.ulSame >> i & 1) != 0 && pulA[i] != pulB[i]) {
            return false;
        }
    }
    return true;
}

// Where an address stands in a list, and the node before it, if it has one.
struct NpFound {
    bool bFound;
    bool bHasBefore;
    uint32_t ulPos;
    uint32_t ulBefore;
};

NpFound Np_AddressFind(const NpIpKind &stKind, uint32_t ulChipID, uint32_t ulFlow,
                       const uint32_t *pulAddress)
{
    const NpIpBondNode *pastNode = stKind.ppastNode[ulChipID];
    NpFound stFound = {false, false, Np_Head(ulFlow), 0};
    for (uint32_t i = 0; i < Np_GLB_CapGet(stKind.enMost); i++) {
        const NpIpBondNode &stNode = pastNode[stFound.ulPos];
        if (Np_SameAddress(stKind, stNode.aulAddress, pulAddress)) {
            stFound.bFound = true;
            return stFound;
        }
        if ((stNode.ulControl & NP_NODE_HAS_NEXT) == 0) {
            return stFound;
        }
        stFound.bHasBefore = true;
        stFound.ulBefore = stFound.ulPos;
        stFound.ulPos = Np_Next(stNode);
    }
    return stFound;
}

// bNew: the flow or bundle has none yet.
uint32_t Np_RoomCheck(const NpIpKind &stKind, uint32_t ulChipID, bool bNew, NpWhere stWhere)
{
    const uint32_t ulMost = Np_GLB_CapGet(stKind.enMost);
    const uint32_t ulNum = stKind.pulNum[ulChipID];
    if (ulNum > ulMost) {
        NP_TRACE_AT(stWhere, NP_M_SECU, NP_PRINT_ERROR, stKind.pszMany, ulNum);
        return NP_ERR_PARAM;
    }
    return ulNum == ulMost || (bNew && stKind.pulFlowNum[ulChipID] == ulMost) ? NP_ERR_TABLE_FULL
                                                                              : NP_OK;
}

// Puts an address into the chip and in front of a list. bNew: it is the list's only one.
uint32_t Np_AddressPut(const NpIpKind &stKind, uint32_t ulChipID, uint32_t ulSubType,
                       uint32_t ulFlowID, const NpIpBonding *pstIpBonding, bool bNew,
                       NpWhere stWhere)
{
    const uint32_t *pulAddress = reinterpret_cast<const uint32_t *>(pstIpBonding);
    uint32_t *pulPos = Np_PosOf(stKind, ulChipID);
    uint32_t ulPos = 0;
    uint32_t ulReturn = NP_OK;
    if (stKind.bPlaceFirst) {
        ulReturn = NP_Tarn_SECU_IpGetIdlePos(pulPos, stKind.ulPosWords, &ulPos);
    }
    if (ulReturn == NP_OK) {
        ulReturn = stKind.pfnPut(ulChipID, ulSubType, ulFlowID, ulPos, pulAddress, stWhere);
    }
    if (ulReturn == NP_OK && !stKind.bPlaceFirst) {
        ulReturn = NP_Tarn_SECU_IpGetIdlePos(pulPos, stKind.ulPosWords, &ulPos);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    uint32_t *pulFlow = Np_FlowOf(stKind, ulChipID, ulSubType, ulFlowID);
    NpIpBondNode &stNode = stKind.ppastNode[ulChipID][ulPos];
    memcpy(stNode.aulAddress, pulAddress, sizeof(stNode.aulAddress));
    stNode.ulControl = NP_NODE_USED | stKind.ulNodeFlag;
    if (stKind.bPlaceFirst) {
        stNode.ulControl |= ulPos << NP_NODE_ROW_SHIFT;
    }
    if (bNew) {
        *pulFlow = ulFlowID | (ulSubType != 0 ? NP_FLOW_SUB_TYPE : 0) | NP_FLOW_VALID;
        stKind.pulFlowNum[ulChipID]++;
    }
    else {
        stNode.ulControl |= NP_NODE_HAS_NEXT | Np_Head(*pulFlow) << NP_NODE_NEXT_SHIFT;
    }
    Np_HeadSet(pulFlow, ulPos);
    stKind.pulNum[ulChipID]++;
    return NP_Tarn_SECU_IpSetIdlePos(pulPos, stKind.ulPosWords, ulPos, 1);
}

uint32_t Np_FirstAdd(const NpIpKind &stKind, uint32_t ulChipID, uint32_t ulSubType,
                     uint32_t ulFlowID, const NpIpBonding *pstIpBonding, NpWhere stWhere)
{
    const uint32_t ulReturn = Np_RoomCheck(stKind, ulChipID, true, stWhere);
    return ulReturn != NP_OK
               ? ulReturn
               : Np_AddressPut(stKind, ulChipID, ulSubType, ulFlowID, pstIpBonding, true, stWhere);
}

uint32_t Np_AnotherAdd(const NpIpKind &stKind, uint32_t ulChipID, uint32_t ulSubType,
                       uint32_t ulFlowID, const NpIpBonding *pstIpBonding, NpWhere stWhere)
{
    const uint32_t ulReturn = Np_RoomCheck(stKind, ulChipID, false, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint32_t ulFlow = *Np_FlowOf(stKind, ulChipID, ulSubType, ulFlowID);
    if (Np_AddressFind(stKind, ulChipID, ulFlow, reinterpret_cast<const uint32_t *>(pstIpBonding))
            .bFound) {
        return NP_OK;
    }
    return Np_AddressPut(stKind, ulChipID, ulSubType, ulFlowID, pstIpBonding, false, stWhere);
}

// Takes a node out of the chip and gives its position back. The list is the caller's.
uint32_t Np_NodeDrop(const NpIpKind &stKind, uint32_t ulChipID, uint32_t ulSubType,
                     uint32_t ulFlowID, uint32_t ulPos, NpWhere stWhere)
{
    const NpIpBondNode &stNode = stKind.ppastNode[ulChipID][ulPos];
    uint32_t ulReturn =
        stKind.pfnDrop(ulChipID, ulSubType, ulFlowID, ulPos, stNode.aulAddress, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn =
            NP_Tarn_SECU_IpSetIdlePos(Np_PosOf(stKind, ulChipID), stKind.ulPosWords, ulPos, 0);
    }
    if (ulReturn == NP_OK) {
        stKind.pulNum[ulChipID]--;
    }
    return ulReturn;
}

void Np_FlowDrop(const NpIpKind &stKind, uint32_t ulChipID, uint32_t *pulFlow)
{
    *pulFlow &= ~NP_FLOW_VALID;
    stKind.pulFlowNum[ulChipID]--;
}

uint32_t Np_AddressDel(const NpIpKind &stKind, uint32_t ulChipID, uint32_t ulSubType,
                       uint32_t ulFlowID, const NpIpBonding *pstIpBonding, NpWhere stWhere)
{
    uint32_t *pulFlow = Np_FlowOf(stKind, ulChipID, ulSubType, ulFlowID);
    if ((*pulFlow & NP_FLOW_VALID) == 0) {
        return NP_OK;
    }
    const NpFound stFound = Np_AddressFind(stKind, ulChipID, *pulFlow,
                                           reinterpret_cast<const uint32_t *>(pstIpBonding));
    if (!stFound.bFound) {
        return NP_OK;
    }
    const uint32_t ulReturn =
        Np_NodeDrop(stKind, ulChipID, ulSubType, ulFlowID, stFound.ulPos, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpIpBondNode *pastNode = stKind.ppastNode[ulChipID];
    const NpIpBondNode &stNode = pastNode[stFound.ulPos];
    const bool bLast = (stNode.ulControl & NP_NODE_HAS_NEXT) == 0;
    if (stFound.bHasBefore) {
        uint32_t &ulBefore = pastNode[stFound.ulBefore].ulControl;
        ulBefore &= ~(NP_NODE_HAS_NEXT | NP_NODE_POS_MASK << NP_NODE_NEXT_SHIFT);
        if (!bLast) {
            ulBefore |= NP_NODE_HAS_NEXT | Np_Next(stNode) << NP_NODE_NEXT_SHIFT;
        }
    }
    else if (!bLast) {
        Np_HeadSet(pulFlow, Np_Next(stNode));
    }
    else {
        Np_FlowDrop(stKind, ulChipID, pulFlow);
    }
    return NP_OK;
}

// Each node leaves the list as it leaves the chip, so that a delete which failed can be repeated.
uint32_t Np_FlowDel(const NpIpKind &stKind, uint32_t ulChipID, uint32_t ulSubType,
                    uint32_t ulFlowID, NpWhere stWhere)
{
    uint32_t *pulFlow = Np_FlowOf(stKind, ulChipID, ulSubType, ulFlowID);
    while ((*pulFlow & NP_FLOW_VALID) != 0) {
        const uint32_t ulPos = Np_Head(*pulFlow);
        const uint32_t ulReturn =
            Np_NodeDrop(stKind, ulChipID, ulSubType, ulFlowID, ulPos, stWhere);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
        const NpIpBondNode &stNode = stKind.ppastNode[ulChipID][ulPos];
        if ((stNode.ulControl & NP_NODE_HAS_NEXT) != 0) {
            Np_HeadSet(pulFlow, Np_Next(stNode));
        }
        else {
            Np_FlowDrop(stKind, ulChipID, pulFlow);
        }
    }
    return NP_OK;
}

uint32_t Np_FlowGet(const NpIpKind &stKind, uint32_t ulChipID, uint32_t ulSubType,
                    uint32_t ulFlowID, NpIpBonding *pstIpBonding, uint32_t *pulSize,
                    NpWhere stWhere)
{
    if (*pulSize == 0) {
        NP_TRACE_AT(stWhere, NP_M_SECU, NP_PRINT_ERROR, " pulsize error: *pulSize = 0x%08x\r\n",
                    *pulSize);
        return NP_ERR_PARAM;
    }
    const uint32_t ulFlow = *Np_FlowOf(stKind, ulChipID, ulSubType, ulFlowID);
    if ((ulFlow & NP_FLOW_VALID) == 0) {
        NP_TRACE_AT(stWhere, NP_M_SECU, NP_PRINT_ERROR, "%s", stKind.pszNone);
        return NP_ERR_NOT_EXIST;
    }
    uint32_t ulNum = 0;
    uint32_t ulPos = Np_Head(ulFlow);
    while (ulNum < *pulSize) {
        const NpIpBondNode &stNode = stKind.ppastNode[ulChipID][ulPos];
        uint32_t aulWord[sizeof(NpIpBonding) / sizeof(uint32_t)] = {};
        for (uint32_t i = 0; i < sizeof(NpIpBonding) / sizeof(uint32_t); i++) {
            aulWord[i] = (stKind.ulGiven >> i & 1) != 0 ? stNode.aulAddress[i] : 0;
        }
        if (stKind.ulNodeFlag == 0) {
            aulWord[4] = 0xffffffff;
        }
        memcpy(&pstIpBonding[ulNum++], aulWord, sizeof(aulWord));
        if ((stNode.ulControl & NP_NODE_HAS_NEXT) == 0) {
            break;
        }
        ulPos = Np_Next(stNode);
    }
    *pulSize = ulNum;
    return NP_OK;
}

// ---- what the exported functions do -------------------------------------------------------------

uint32_t Np_Null(NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, NP_M_SECU, NP_PRINT_ERROR, "Para null ptr\r\n");
    return NP_ERR_NULL_PTR;
}

// Tests the arguments; before bring-up and after tear-down there are no lists.
uint32_t Np_ArgsCheck(const NpRow &stArgs, uint32_t ulChipID, const NpIpArgs &stValue,
                      NpWhere stWhere)
{
    Np_Row_Trace(&stArgs, &stValue, stWhere);
    const uint32_t ulReturn = Np_Row_Check(&stArgs, ulChipID, &stValue, stWhere);
    return ulReturn != NP_OK || Np_IpBonding_IsReady(ulChipID) ? ulReturn : Np_Null(stWhere);
}

uint32_t Np_BondSet(const NpRow &stArgs, uint32_t ulSubType, uint32_t ulChipID, uint32_t ulIpType,
                    uint32_t ulFlowID, const NpIpBonding *pstIpBonding, NpWhere stWhere)
{
    if (pstIpBonding == nullptr) {
        return Np_Null(stWhere);
    }
    const uint32_t ulReturn =
        Np_ArgsCheck(stArgs, ulChipID, {ulIpType, ulFlowID, 0, *pstIpBonding}, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpIpKind &stKind = g_astKind[ulIpType];
    const bool bThere = (*Np_FlowOf(stKind, ulChipID, ulSubType, ulFlowID) & NP_FLOW_VALID) != 0;
    return (bThere ? Np_AnotherAdd : Np_FirstAdd)(stKind, ulChipID, ulSubType, ulFlowID,
                                                  pstIpBonding, stWhere);
}

uint32_t Np_BondDel(const NpRow &stArgs, uint32_t ulSubType, uint32_t ulChipID, uint32_t ulIpType,
                    uint32_t ulFlowID, uint32_t ulDelMode, const NpIpBonding *pstIpBonding,
                    NpWhere stWhere)
{
    const uint32_t ulReturn =
        Np_ArgsCheck(stArgs, ulChipID, {ulIpType, ulFlowID, ulDelMode, {}}, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpIpKind &stKind = g_astKind[ulIpType];
    if (ulDelMode == NP_IP_DEL_ALL) {
        return Np_FlowDel(stKind, ulChipID, ulSubType, ulFlowID, stWhere);
    }
    return pstIpBonding == nullptr
               ? Np_Null(stWhere)
               : Np_AddressDel(stKind, ulChipID, ulSubType, ulFlowID, pstIpBonding, stWhere);
}

uint32_t Np_BondGet(const NpRow &stArgs, uint32_t ulSubType, uint32_t ulChipID, uint32_t ulIpType,
                    uint32_t ulFlowID, NpIpBonding *pstIpBonding, uint32_t *pulSize,
                    NpWhere stWhere)
{
    if (pstIpBonding == nullptr || pulSize == nullptr) {
        return Np_Null(stWhere);
    }
    const uint32_t ulReturn = Np_ArgsCheck(stArgs, ulChipID, {ulIpType, ulFlowID, 0, {}}, stWhere);
    return ulReturn != NP_OK ? ulReturn
                             : Np_FlowGet(g_astKind[ulIpType], ulChipID, ulSubType, ulFlowID,
                                          pstIpBonding, pulSize, stWhere);
}

// Deletes all that is bound, IPv6 first, flow by flow.
uint32_t Np_AllDel(uint32_t ulChipID, NpWhere stWhere)
{
    for (uint32_t i = 0; i < 2 * Np_GLB_CapGet(NP_CAP_IP_FLOW_NUM); i++) {
        for (const NpIpKind *pstKind : {&g_astKind[NP_IP_V6], &g_astKind[NP_IP_V4]}) {
            const uint32_t ulReturn = Np_FlowDel(*pstKind, ulChipID, i & 1, i >> 1, stWhere);
            if (ulReturn != NP_OK) {
                return ulReturn;
            }
        }
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

}  // namespace

bool Np_IpBonding_IsReady(uint32_t ulChipID)
{
    for (const NpIpKind &stKind : g_astKind) {
        if (stKind.ppastNode[ulChipID] == nullptr || stKind.ppulFlow[ulChipID] == nullptr) {
            return false;
        }
    }
    return true;
}

extern "C" {

uint32_t NP_Tarn_SECU_IpGetIdlePos(const uint32_t *pulBitmap, uint32_t ulWords, uint32_t *pulPos)
{
    for (uint32_t i = 0; i < ulWords; i++) {
        if (pulBitmap[i] != 0xffffffff) {
            *pulPos = i * 32 + static_cast<uint32_t>(__builtin_ctz(~pulBitmap[i]));
            return NP_OK;
        }
    }
    return NP_ERR_TABLE_FULL;
}

uint32_t NP_Tarn_SECU_IpSetIdlePos(uint32_t *pulBitmap, uint32_t ulWords, uint32_t ulPos,
                                   uint32_t ulUsed)
{
    if (ulPos >= ulWords * 32) {
        return NP_ERR_PARAM;
    }
    const uint32_t ulBit = 1u << ulPos % 32;
    uint32_t &ulWord = pulBitmap[ulPos / 32];
    ulWord = ulUsed != 0 ? ulWord | ulBit : ulWord & ~ulBit;
    return NP_OK;
}

void Np_Tarn_SECU_IpBondingTblParaTrace(uint32_t ulIpType, const NpIpBonding *pstIpBonding)
{
    const NpIpArgs stArgs = {ulIpType, 0, 0, *pstIpBonding};
    Np_Row_Trace(&g_stIpShownArgs, &stArgs);
}

#define NP_IP_KIND(enType, AddFirst, AddAnother, DelFlow, DelOne, Get)                             \
    uint32_t AddFirst(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID,                    \
                      const NpIpBonding *pstIpBonding)                                             \
    {                                                                                              \
        return Np_FirstAdd(g_astKind[enType], ulChipID, ulSubType, ulFlowID, pstIpBonding,         \
                           Np_Here());                                                             \
    }                                                                                              \
    uint32_t AddAnother(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID,                  \
                        const NpIpBonding *pstIpBonding)                                           \
    {                                                                                              \
        return Np_AnotherAdd(g_astKind[enType], ulChipID, ulSubType, ulFlowID, pstIpBonding,       \
                             Np_Here());                                                           \
    }                                                                                              \
    uint32_t DelFlow(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID)                     \
    {                                                                                              \
        return Np_FlowDel(g_astKind[enType], ulChipID, ulSubType, ulFlowID, Np_Here());            \
    }                                                                                              \
    uint32_t DelOne(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID,                      \
                    const NpIpBonding *pstIpBonding)                                               \
    {                                                                                              \
        return Np_AddressDel(g_astKind[enType], ulChipID, ulSubType, ulFlowID, pstIpBonding,       \
                             Np_Here());                                                           \
    }                                                                                              \
    uint32_t Get(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID,                         \
                 NpIpBonding *pstIpBonding, uint32_t *pulSize)                                     \
    {                                                                                              \
        return Np_FlowGet(g_astKind[enType], ulChipID, ulSubType, ulFlowID, pstIpBonding, pulSize, \
                          Np_Here());                                                              \
    }
NP_IP_KIND(NP_IP_V4, NP_Tarn_SECU_Ip4AddNewFID, NP_Tarn_SECU_Ip4AddNewIP, NP_Tarn_SECU_Ip4DelFID,
           NP_Tarn_SECU_Ip4DelIP, NP_Tarn_SECU_Ip4GetByFID)
NP_IP_KIND(NP_IP_V6, NP_Tarn_SECU_Ip6AddNewFID, NP_Tarn_SECU_Ip6AddNewIP, NP_Tarn_SECU_Ip6DelFID,
           NP_Tarn_SECU_Ip6DelIP, NP_Tarn_SECU_Ip6GetByFID)
#undef NP_IP_KIND

uint32_t Np_Tarn_IpFlow_Set(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulFlowID,
                            const NpIpBonding *pstIpBonding)
{
    return Np_BondSet(g_stIpFlowArgs, NP_IP_OF_FLOW, ulChipID, ulIpType, ulFlowID, pstIpBonding,
                      Np_Here());
}

uint32_t Np_Tarn_IpFlow_Get(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulFlowID,
                            NpIpBonding *pstIpBonding, uint32_t *pulSize)
{
    return Np_BondGet(g_stIpFlowKeyArgs, NP_IP_OF_FLOW, ulChipID, ulIpType, ulFlowID, pstIpBonding,
                      pulSize, Np_Here());
}

uint32_t Np_Tarn_IpFlow_Del(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulFlowID,
                            uint32_t ulDelMode, const NpIpBonding *pstIpBonding)
{
    return Np_BondDel(g_stIpFlowDelArgs, NP_IP_OF_FLOW, ulChipID, ulIpType, ulFlowID, ulDelMode,
                      pstIpBonding, Np_Here());
}

uint32_t Np_Tarn_IpFlowBundle_Set(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulFlowBundleID,
                                  const NpIpBonding *pstIpBonding)
{
    return Np_BondSet(g_stIpBundleArgs, NP_IP_OF_BUNDLE, ulChipID, ulIpType, ulFlowBundleID,
                      pstIpBonding, Np_Here());
}

uint32_t Np_Tarn_IpFlowBundle_Get(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulFlowBundleID,
                                  NpIpBonding *pstIpBonding, uint32_t *pulSize)
{
    return Np_BondGet(g_stIpBundleKeyArgs, NP_IP_OF_BUNDLE, ulChipID, ulIpType, ulFlowBundleID,
                      pstIpBonding, pulSize, Np_Here());
}

uint32_t Np_Tarn_IpFlowBundle_Del(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulFlowBundleID,
                                  uint32_t ulDelMode, const NpIpBonding *pstIpBonding)
{
    return Np_BondDel(g_stIpBundleDelArgs, NP_IP_OF_BUNDLE, ulChipID, ulIpType, ulFlowBundleID,
                      ulDelMode, pstIpBonding, Np_Here());
}

// Lists that stand from before are taken out of the chip with them.
uint32_t Np_Tarn_IpBonding_Init(uint32_t ulChipID)
{
    if (Np_IpBonding_IsReady(ulChipID)) {
        const uint32_t ulReturn = Np_AllDel(ulChipID, Np_Here());
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    for (const NpIpKind &stKind : g_astKind) {
        if (!Np_Made(&stKind.ppulFlow[ulChipID], 2 * Np_GLB_CapGet(NP_CAP_IP_FLOW_NUM)) ||
            !Np_Made(&stKind.ppastNode[ulChipID], Np_GLB_CapGet(stKind.enMost))) {
            NP_TRACE(NP_M_SECU, NP_PRINT_ERROR, "memory alloc failed!\r\n");
            return NP_ERR_NO_MEMORY;
        }
        memset(Np_PosOf(stKind, ulChipID), 0, stKind.ulPosWords * sizeof(uint32_t));
        stKind.pulNum[ulChipID] = 0;
        stKind.pulFlowNum[ulChipID] = 0;
    }
    g_aulDostTimer[ulChipID] = 0;
    return Np_Ip6LastWrite(ulChipID, Np_Here());
}

uint32_t Np_Tarn_IpBonding_Destruct(uint32_t ulChipID)
{
    if (Np_IpBonding_IsReady(ulChipID)) {
        const uint32_t ulReturn = Np_AllDel(ulChipID, Np_Here());
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    for (const NpIpKind &stKind : g_astKind) {
        Np_FreeAndForget(&stKind.ppulFlow[ulChipID]);
        Np_FreeAndForget(&stKind.ppastNode[ulChipID]);
    }
    return NP_OK;
}

}  // extern "C"

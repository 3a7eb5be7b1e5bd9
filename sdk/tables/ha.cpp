#include "sdk/tables/ha.h"

#include "ldsdk/status.h"
#include "platform/driver.h"
#include "platform/os.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/record/describe.h"

extern "C" {
uint8_t *g_pastNpHaSmacFilter[NP_CHIP_NUM];
uint8_t *g_pastNpHaDmacFilter[NP_CHIP_NUM];
uint8_t *g_pastNpHaErrorSample[NP_CHIP_NUM];
uint8_t *g_pastNpHaAcmClock[NP_CHIP_NUM];
uint8_t *g_pastNpHaDmacMatch[NP_CHIP_NUM];
uint8_t *g_pastNpHaVlanMatch[NP_CHIP_NUM];
uint32_t g_ulL2PacketValid[NP_CHIP_NUM];
uint32_t g_ulSpecialEthPktValid[NP_CHIP_NUM];
uint32_t g_ulNonBcGemportValid[NP_CHIP_NUM];
uint32_t g_ulNonBcLlidValid[NP_CHIP_NUM];
uint32_t g_ulIpv4McValid[NP_CHIP_NUM];
uint32_t g_ulIpv6McValid[NP_CHIP_NUM];
uint32_t g_ulIpv4UdpValid[NP_CHIP_NUM];
}

static_assert(sizeof(QdHaMatchRule) == NP_HA_RULE_SIZE);

// ---- what the filters compare -------------------------------------------------------------------

namespace {

// Packet fields that a link can compare.
enum NpHaMatch : uint32_t {
    NP_HA_NOTHING = 0,
    NP_HA_DMAC_HIGH = 1,  // first four bytes
    NP_HA_DMAC_LOW = 2,   // last two
    NP_HA_SMAC_HIGH = 3,
    NP_HA_SMAC_LOW = 4,
    NP_HA_VLAN = 5,
    NP_HA_TAG_NUM = 11,
    NP_HA_ETH_TYPE = 12,
    NP_HA_IPV6 = 24,
    NP_HA_IPV4_DST = 27,
    NP_HA_UDP_DPORT = 36,
    NP_HA_UDP_SPORT = 37,
    NP_HA_CHANNEL = 38,  // GEM port or logical link
};

// Places in the image of a rule. The values and masks are those of link 0; further links stand
// NP_HA_LINK bytes behind each other.
inline constexpr uint16_t NP_HA_LINK = sizeof(QdHaRuleLink);
constexpr uint16_t Np_LinkByte(uint32_t ulLink, size_t ulByte)
{
    return static_cast<uint16_t>(ulLink * NP_HA_LINK + ulByte);
}
constexpr NpAt Np_Value(uint32_t ulWhich, uint32_t ulLink = 0)
{
    return {Np_LinkByte(ulLink, offsetof(QdHaRuleLink, ulKeyValue0) + 4 * ulWhich), 31, 0};
}
constexpr NpAt Np_Mask(uint32_t ulWhich)
{
    return {Np_LinkByte(0, offsetof(QdHaRuleLink, ulKeyMask0) + 4 * ulWhich), 31, 0};
}
constexpr NpAt g_stPqmPri = {offsetof(QdHaMatchRule, ucPqmpri), 7, 0};
constexpr NpAt g_stHaInfo = {offsetof(QdHaMatchRule, ucInfoToNp), 7, 0};
constexpr NpAt g_stEnable = {offsetof(QdHaMatchRule, ucFilterEnable), 7, 0};

// What a link compares.
constexpr NpField Np_Link(NpHaMatch enMatch0, NpHaMatch enMatch1, uint32_t ulLink = 0)
{
    return Np_Const({Np_LinkByte(ulLink, offsetof(QdHaRuleLink, ucMatchField0)), 15, 0},
                    enMatch0 | static_cast<uint32_t>(enMatch1) << 8);
}
constexpr NpField Np_LinkNum(uint32_t ulNum)
{
    return Np_Const({offsetof(QdHaMatchRule, ucLinkNum), 7, 0}, ulNum);
}
inline constexpr uint32_t NP_HA_PRI = 3;
constexpr NpField g_stRulePri = Np_Const({offsetof(QdHaMatchRule, ucRulepri), 7, 0}, NP_HA_PRI);
constexpr NpField g_stQueuePri = Np_Const(g_stPqmPri, NP_HA_PRI);

// A MAC address whose first four bytes stand in the second word behind byte usByte, its last two in
// the low half of the first word.
#define NP_F_HA_MAC(Member, usByte, ...)                                                       \
    NP_F(Member, .stAt = {static_cast<uint16_t>((usByte) + 7), 7, 0}, .sStep = -8, .ucRun = 4, \
         .sRunStep = -48, .ucType = NP_SMD_MAC __VA_OPT__(, ) __VA_ARGS__)
inline constexpr uint16_t NP_HA_VALUES = offsetof(QdHaRuleLink, ulKeyValue0);
inline constexpr uint16_t NP_HA_MASKS = offsetof(QdHaRuleLink, ulKeyMask0);

#define NP_F_HA_INFO() NP_F(ulHaInfo, .stAt = g_stHaInfo)
#define NP_C_HA_INFO() NP_C(ulHaInfo, Np_MostCap(NP_CAP_HA_INFO_MAX))
#define NP_C_HA_ENABLE() NP_C(ulFilterEnable, Np_Flag(NP_SAY_ENABLE))

constexpr NpRowSpec Np_RuleSpec(const char *pszArg)
{
    return {.ucModule = NP_M_HA, .pszArg = pszArg, .usImageSize = NP_HA_RULE_SIZE, .bBare = true};
}

namespace smac {
using R = NpSmacFilter;
constexpr NpField g_astField[] = {
    NP_F_HA_MAC(aucMac, NP_HA_VALUES),        NP_F_HA_INFO(), g_stRulePri, g_stQueuePri,
    Np_Link(NP_HA_SMAC_LOW, NP_HA_SMAC_HIGH), Np_LinkNum(1),
};
constexpr NpCheck g_astCheck[] = {NP_C_HA_INFO()};
}  // namespace smac

namespace dmac {
using R = NpDmacFilter;
constexpr NpField g_astField[] = {
    NP_F_HA_MAC(aucMac, NP_HA_VALUES),        NP_F_HA_INFO(), g_stRulePri, g_stQueuePri,
    Np_Link(NP_HA_DMAC_LOW, NP_HA_DMAC_HIGH), Np_LinkNum(1),
};
constexpr NpCheck g_astCheck[] = {NP_C_HA_INFO()};
}  // namespace dmac

namespace error_sample {
using R = NpErrorSample;
constexpr NpField g_astField[] = {
    NP_F_HA_MAC(aucMac, NP_HA_VALUES),
    NP_F_HA_MAC(aucMacMask, NP_HA_MASKS, .bInverse = true),
    NP_F_HA_INFO(),
    g_stRulePri,
    g_stQueuePri,
    Np_Link(NP_HA_DMAC_LOW, NP_HA_DMAC_HIGH),
    Np_LinkNum(1),
};
constexpr NpCheck g_astCheck[] = {NP_C_HA_INFO()};
}  // namespace error_sample

namespace dmac_match {
using R = NpDmacMatch;
constexpr NpField g_astField[] = {
    NP_F_HA_MAC(aucMac, NP_HA_VALUES),
    NP_F_HA_MAC(aucMacMask, NP_HA_MASKS, .bInverse = true),
    NP_F_HA_INFO(),
    NP_F(ulPqmPri, .stAt = g_stPqmPri),
    g_stRulePri,
    Np_Link(NP_HA_DMAC_LOW, NP_HA_DMAC_HIGH),
    Np_LinkNum(1),
};
constexpr NpCheck g_astCheck[] = {
    NP_C_HA_INFO(),
    NP_C(ulPqmPri, Np_Below(4)),
};
}  // namespace dmac_match

namespace vlan_match {
using R = NpVlanMatch;
constexpr NpField g_astField[] = {
    NP_F(ulVlan, .stAt = Np_Value(0)),  NP_F_HA_INFO(),
    NP_F(ulPqmPri, .stAt = g_stPqmPri), g_stRulePri,
    Np_Link(NP_HA_VLAN, NP_HA_NOTHING), Np_LinkNum(1),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulVlan, Np_Below(4096)),
    NP_C_HA_INFO(),
    NP_C(ulPqmPri, Np_Below(4)),
};
}  // namespace vlan_match

namespace acm_clock {
using R = NpAcmClock;
constexpr NpField g_astField[] = {
    NP_F(ulEthType, .stAt = Np_Value(1, 3)),
    NP_F(ulVlanID, .stAt = Np_Value(0, 3)),
    NP_F(ulDstIpv4, .stAt = Np_Value(0, 2), .ucType = NP_SMD_IPV4),
    NP_F(ulSrcUdpPort, .stAt = Np_Value(0, 1)),
    NP_F(ulDstUdpPort, .stAt = Np_Value(1, 1)),
    NP_F_HA_MAC(aucDmac, NP_HA_VALUES),
    NP_F_HA_INFO(),
    g_stRulePri,
    g_stQueuePri,
    Np_Link(NP_HA_DMAC_LOW, NP_HA_DMAC_HIGH),
    Np_Link(NP_HA_UDP_SPORT, NP_HA_UDP_DPORT, 1),
    Np_Link(NP_HA_IPV4_DST, NP_HA_NOTHING, 2),
    Np_Link(NP_HA_VLAN, NP_HA_ETH_TYPE, 3),
    Np_LinkNum(4),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulVlanID, Np_Below(4096)),
    NP_C(ulSrcUdpPort, Np_Below(0x10000)),
    NP_C(ulDstUdpPort, Np_Below(0x10000)),
    NP_C_HA_INFO(),
};
}  // namespace acm_clock

namespace l2_packet {
using R = NpL2Packet;
constexpr NpField g_astField[] = {
    NP_F(ulTagNum, .stAt = Np_Value(1, 1)),
    NP_F(ulEthType, .stAt = Np_Value(0, 1)),
    NP_F_HA_MAC(aucMac, NP_HA_VALUES),
    NP_F_HA_INFO(),
    g_stRulePri,
    g_stQueuePri,
    Np_Link(NP_HA_DMAC_LOW, NP_HA_DMAC_HIGH),
    Np_Link(NP_HA_ETH_TYPE, NP_HA_TAG_NUM, 1),
    Np_LinkNum(2),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulTagNum, Np_Below(4)),
    NP_C(ulEthType, Np_Below(0x10000)),
    NP_C_HA_INFO(),
};
}  // namespace l2_packet

// The non-broadcast filters: the packet's channel is none of the broadcast ones.
constexpr NpField g_stOther = Np_Const({offsetof(QdHaRuleLink, ucKeyMode0), 7, 0}, 1);

namespace gemport {
using R = NpNonBroadcastGemport;
constexpr NpField g_astField[] = {
    NP_F(ulGemportID, .stAt = Np_Value(0)),
    NP_F(ulFilterEnable, .stAt = g_stEnable),
    NP_F_HA_INFO(),
    g_stRulePri,
    g_stOther,
    Np_Link(NP_HA_CHANNEL, NP_HA_NOTHING),
    Np_LinkNum(1),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulGemportID, Np_Most(4095)),
    NP_C_HA_ENABLE(),
    NP_C_HA_INFO(),
};
}  // namespace gemport

// The broadcast links are 16 to 31 of EPON, 32 to 63 of 10G EPON: value 16 with mask 15, or 32 with
// 31, told apart by the mask's bit 4.
namespace llid {
using R = NpNonBroadcastLlid;
constexpr auto g_astWords = Np_Words("epon", "xepon");
constexpr NpField g_astField[] = {
    NP_F(ulEponType, .stAt = {NP_HA_MASKS, 4, 4}, .stWords = g_astWords),
    NP_F(ulFilterEnable, .stAt = g_stEnable),
    NP_F_HA_INFO(),
    Np_Const({NP_HA_VALUES, 31, 0}, 16, NP_WHEN_IS(ulEponType, 0)),
    Np_Const({NP_HA_VALUES, 31, 0}, 32, NP_WHEN_IS(ulEponType, 1)),
    Np_Const({NP_HA_MASKS, 3, 0}, 15),
    g_stRulePri,
    g_stOther,
    Np_Link(NP_HA_CHANNEL, NP_HA_NOTHING),
    Np_LinkNum(1),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulEponType, Np_Below(2)),
    NP_C_HA_ENABLE(),
    NP_C_HA_INFO(),
};
}  // namespace llid

namespace ipv4_multicast {
using R = NpIpv4Multicast;
constexpr NpField g_astField[] = {
    NP_F(ulIp, .stAt = Np_Value(0), .ucType = NP_SMD_IPV4),
    NP_F(ulIpMask, .stAt = Np_Mask(0), .ucType = NP_SMD_IPV4, .bInverse = true),
    NP_F(ulFilterEnable, .stAt = g_stEnable),
    NP_F_HA_INFO(),
    g_stRulePri,
    g_stQueuePri,
    Np_Link(NP_HA_IPV4_DST, NP_HA_NOTHING),
    Np_LinkNum(1),
};
constexpr NpCheck g_astCheck[] = {NP_C_HA_ENABLE(), NP_C_HA_INFO()};
}  // namespace ipv4_multicast

namespace ipv6_multicast {
using R = NpIpv6Multicast;
constexpr NpField g_astField[] = {
    NP_F(ulIp, .stAt = Np_Value(0)),
    NP_F(ulIpMask, .stAt = Np_Mask(0), .bInverse = true),
    NP_F(ulFilterEnable, .stAt = g_stEnable),
    NP_F_HA_INFO(),
    g_stRulePri,
    g_stQueuePri,
    Np_Link(NP_HA_IPV6, NP_HA_NOTHING),
    Np_LinkNum(1),
};
constexpr NpCheck g_astCheck[] = {NP_C_HA_ENABLE(), NP_C_HA_INFO()};
}  // namespace ipv6_multicast

namespace ipv4_udp {
using R = NpIpv4Udp;
constexpr NpField g_astField[] = {
    NP_F(ulIp, .stAt = Np_Value(0), .ucType = NP_SMD_IPV4),
    NP_F(ulIpMask, .stAt = Np_Mask(0), .ucType = NP_SMD_IPV4, .bInverse = true),
    NP_F(ulUdpDport, .stAt = Np_Value(1)),
    NP_F(ulFilterEnable, .stAt = g_stEnable),
    NP_F_HA_INFO(),
    g_stRulePri,
    g_stQueuePri,
    Np_Link(NP_HA_IPV4_DST, NP_HA_UDP_DPORT),
    Np_LinkNum(1),
};
constexpr NpCheck g_astCheck[] = {NP_C_HA_ENABLE(), NP_C_HA_INFO()};
}  // namespace ipv4_udp

namespace illegal_smac {
using R = NpHaInfoArg;
constexpr NpField g_astAll0Field[] = {
    NP_F_HA_INFO(), g_stRulePri, g_stQueuePri, Np_Link(NP_HA_SMAC_LOW, NP_HA_SMAC_HIGH),
    Np_LinkNum(1),
};
// The group bit of the first byte: value 0x01000000, all other bits masked.
constexpr NpField g_astMultiField[] = {
    NP_F_HA_INFO(),
    Np_Const({NP_HA_VALUES + 2, 15, 0}, 0x0100),
    Np_Const({NP_HA_MASKS, 15, 0}, 0xffff),
    Np_Const({NP_HA_MASKS + 2, 15, 0}, 0xfeff),
    g_stRulePri,
    g_stQueuePri,
    Np_Link(NP_HA_SMAC_HIGH, NP_HA_NOTHING),
    Np_LinkNum(1),
};
constexpr NpField g_astArgField[] = {NP_F(ulHaInfo)};
constexpr NpCheck g_astCheck[] = {NP_C_HA_INFO()};
}  // namespace illegal_smac

namespace special_eth {
using R = NpSpecialEth;
constexpr NpField g_astField[] = {
    NP_F(ulEthType, .stAt = Np_Value(0)),   NP_F_HA_INFO(), g_stRulePri, g_stQueuePri,
    Np_Link(NP_HA_ETH_TYPE, NP_HA_NOTHING), Np_LinkNum(1),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulEthType, Np_Most(0xffff)),
    NP_C_HA_INFO(),
};
}  // namespace special_eth

namespace aoe {
using R = NpAoePkt;
constexpr NpField g_astField[] = {
    NP_F(ulVlanID, .pszKey = "vlanid"),
    NP_F(ulHaInfo, .pszKey = "hainfo"),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulVlanID, Np_MostCap(NP_CAP_VLAN_ID_MAX)),
    NP_C_HA_INFO(),
};
}  // namespace aoe

namespace tpid {
struct R {
    uint32_t ulTpidType;
    uint32_t ulTpid;
};
constexpr NpField g_astField[] = {NP_F(ulTpidType), NP_F(ulTpid)};
constexpr NpCheck g_astTypeCheck[] = {NP_C(ulTpidType, Np_Below(9))};
constexpr NpCheck g_astCheck[] = {g_astTypeCheck[0], NP_C(ulTpid, Np_Below(0x10000))};
constexpr NpRowSpec g_stSpec = {.ucModule = NP_M_HA, .bBare = true};
constexpr NpRow g_stArgs = Np_RowMake<R>(g_stSpec, g_astField, g_astCheck);
constexpr NpRow g_stTypeArgs = Np_RowMake<R>(g_stSpec, g_astField, g_astTypeCheck);
}  // namespace tpid

// A rule record as it is traced.
namespace rule {
using R = QdHaMatchRule;
constexpr NpField g_astField[] = {
    NP_F_EACH(astLink, ucInnerID),
    NP_F_EACH(astLink, ucRangeMode),
    NP_F_EACH(astLink, ucMatchField0),
    NP_F_EACH(astLink, ucMatchField1),
    NP_F_EACH(astLink, ucKeyMode0),
    NP_F_EACH(astLink, ucKeyMode1),
    NP_F_EACH(astLink, ulKeyValue0),
    NP_F_EACH(astLink, ulKeyValue1),
    NP_F_EACH(astLink, ulKeyMask0),
    NP_F_EACH(astLink, ulKeyMask1),
    NP_F(ucLinkNum),
    NP_F(ucSubTableID),
    NP_F(ucRulepri),
    NP_F(ucPqmpri),
    NP_F(ucInfoToNp),
    NP_F(ucPortMode),
    NP_F(ucPortType),
    NP_F(ucFilterEnable),
    NP_F(ulPortMin),
    NP_F(ulPortMinSub),
    NP_F(ulPortMinSubPri),
    NP_F(ulPortMax),
    NP_F(ulPortMaxSub),
    NP_F(ulPortMaxSubPri),
};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_HA}, g_astField, {});
}  // namespace rule

// ulFilterID of the L2 packet filter, of which there is one whatever the capability word says.
namespace filter_id {
struct R {
    uint32_t ulFilterID;
};
constexpr NpField g_astField[] = {NP_F(ulFilterID, .pszKey = "index")};
template <NpCapSlot enNum>
constexpr NpCheck g_astCheck[] = {NP_C(ulFilterID, Np_BelowCap(enNum))};
constexpr NpCheck g_astOneCheck[] = {NP_C(ulFilterID, Np_Below(1))};
constexpr NpRowSpec g_stSpec = {.ucModule = NP_M_HA, .bBare = true};
}  // namespace filter_id

}  // namespace

constexpr NpRow g_stHaSmacKey = Np_RowMake<filter_id::R>(
    filter_id::g_stSpec, filter_id::g_astField, filter_id::g_astCheck<NP_CAP_SMAC_FILTER_NUM>);
constexpr NpRow g_stHaDmacKey = Np_RowMake<filter_id::R>(
    filter_id::g_stSpec, filter_id::g_astField, filter_id::g_astCheck<NP_CAP_DMAC_FILTER_NUM>);
constexpr NpRow g_stHaL2PacketKey =
    Np_RowMake<filter_id::R>(filter_id::g_stSpec, filter_id::g_astField, filter_id::g_astOneCheck);
constexpr NpRow g_stHaErrorSampleKey = NpIndexKey<NP_M_HA, NP_CAP_ERROR_SAMPLE_NUM, true>::g_stRow;
constexpr NpRow g_stHaAcmClockKey = NpIndexKey<NP_M_HA, NP_CAP_ACM_CLOCK_NUM, true>::g_stRow;
constexpr NpRow g_stHaDmacMatchKey = NpIndexKey<NP_M_HA, NP_CAP_DMAC_MATCH_NUM, true>::g_stRow;
constexpr NpRow g_stHaVlanMatchKey = NpIndexKey<NP_M_HA, NP_CAP_VLAN_MATCH_NUM, true>::g_stRow;

#define NP_HA_ROW(stRow, Space, pszArg) \
    constexpr NpRow stRow =             \
        Np_RowMake<Space::R>(Np_RuleSpec(pszArg), Space::g_astField, Space::g_astCheck);
NP_HA_ROW(g_stHaSmacRow, smac, "pstSmac")
NP_HA_ROW(g_stHaDmacRow, dmac, "pstDmac")
NP_HA_ROW(g_stHaErrorSampleRow, error_sample, "pstSample")
NP_HA_ROW(g_stHaAcmClockRow, acm_clock, "pstAcmClock")
NP_HA_ROW(g_stHaL2PacketRow, l2_packet, "pstL2Packet")
NP_HA_ROW(g_stHaDmacMatchRow, dmac_match, "pstDmacMatch")
NP_HA_ROW(g_stHaVlanMatchRow, vlan_match, "pstVlanMatch")
NP_HA_ROW(g_stHaGemportRow, gemport, "pstNonBroadcastGemport")
NP_HA_ROW(g_stHaLlidRow, llid, "pstNonBroadcastLlid")
NP_HA_ROW(g_stHaIpv4MulticastRow, ipv4_multicast, "pstIpv4Multicast")
NP_HA_ROW(g_stHaIpv6MulticastRow, ipv6_multicast, "pstIpv6Multicast")
NP_HA_ROW(g_stHaIpv4UdpRow, ipv4_udp, "pstIpv4Udp")
NP_HA_ROW(g_stHaSpecialEthRow, special_eth, nullptr)
constexpr NpRow g_stHaAll0SmacRow = Np_RowMake<NpHaInfoArg>(
    Np_RuleSpec(nullptr), illegal_smac::g_astAll0Field, illegal_smac::g_astCheck);
constexpr NpRow g_stHaMultiSmacRow = Np_RowMake<NpHaInfoArg>(
    Np_RuleSpec(nullptr), illegal_smac::g_astMultiField, illegal_smac::g_astCheck);
constexpr NpRow g_stHaInfoArgs = Np_RowMake<NpHaInfoArg>(
    {.ucModule = NP_M_HA, .bBare = true}, illegal_smac::g_astArgField, illegal_smac::g_astCheck);
constexpr NpRow g_stHaAoeArgs =
    Np_RowMake<NpAoePkt>({.ucModule = NP_M_HA, .bBare = true}, aoe::g_astField, aoe::g_astCheck);

// ---- where their rules stand --------------------------------------------------------------------

namespace {

// Flags of the kinds of which there are several, in the order of allocation.
struct NpHaSoft {
    uint8_t **ppucTable;  // per chip
    uint32_t ulEntrySize;
    NpCapSlot enNum;
    const char *pszNoMemory;
};
constexpr NpHaSoft g_stSmacSoft = {g_pastNpHaSmacFilter, 4, NP_CAP_SMAC_FILTER_NUM,
                                   "src mac filter softtable malloc failed!\r\n"};
constexpr NpHaSoft g_stDmacSoft = {g_pastNpHaDmacFilter, 4, NP_CAP_DMAC_FILTER_NUM,
                                   "dst mac filter softtable malloc failed!\r\n"};
constexpr NpHaSoft g_stErrorSampleSoft = {g_pastNpHaErrorSample, 2, NP_CAP_ERROR_SAMPLE_NUM,
                                          "error sample softtable malloc failed!\r\n"};
constexpr NpHaSoft g_stAcmClockSoft = {g_pastNpHaAcmClock, 2, NP_CAP_ACM_CLOCK_NUM,
                                       g_stErrorSampleSoft.pszNoMemory};
constexpr NpHaSoft g_stVlanMatchSoft = {g_pastNpHaVlanMatch, 2, NP_CAP_VLAN_MATCH_NUM,
                                        "vlan match softtable malloc failed!\r\n"};
constexpr NpHaSoft g_stDmacMatchSoft = {g_pastNpHaDmacMatch, 2, NP_CAP_DMAC_MATCH_NUM,
                                        g_stVlanMatchSoft.pszNoMemory};
constexpr const NpHaSoft *g_apstSoft[] = {&g_stSmacSoft,        &g_stDmacSoft,
                                          &g_stErrorSampleSoft, &g_stAcmClockSoft,
                                          &g_stDmacMatchSoft,   &g_stVlanMatchSoft};

// Flags of the kinds with one filter.
constexpr uint32_t *g_apulValid[] = {
    g_ulL2PacketValid, g_ulSpecialEthPktValid, g_ulNonBcGemportValid, g_ulNonBcLlidValid,
    g_ulIpv4McValid,   g_ulIpv6McValid,        g_ulIpv4UdpValid};

// The ports that a rule is limited to: all of a type, or those up to a highest one.
struct NpHaPorts {
    uint8_t ucType;  // 0: no limit
    uint8_t ucMax;
    uint8_t ucMaxSub;
    uint8_t ucMaxSubPri;
};
constexpr NpHaPorts g_stAnyPort = {0, 0, 0, 0};
constexpr NpHaPorts g_stXdslPorts = {14, 3, 63, 1};
constexpr NpHaPorts g_stBondingPorts = {13, 63, 0, 0};
constexpr NpHaPorts g_stFePorts = {7, 23, 0, 0};
constexpr NpHaPorts g_stXauiPorts = {9, 0, 0, 0};
constexpr NpHaPorts g_stGponPorts = {1, 0, 0, 0};
constexpr NpHaPorts g_stEponPorts = {2, 0, 0, 0};

struct NpHaRule {
    uint8_t ucNumber;  // of filter 0; the next filters have the next numbers
    uint8_t ucSubTable;
    NpHaPorts stPorts;
};

}  // namespace

struct NpHaFilter {
    const NpRow *pstKey;  // null: there is one filter
    const NpRow *pstRow;
    const NpHaSoft *pstSoft;  // its flags, or
    uint32_t *pulValid;       // its flag; neither: nothing is remembered
    uint8_t ucInner;          // inner id of filter 0; each link of a filter has one
    uint8_t ucRuleNum;
    bool bUndo;             // a second rule that fails takes the first one back
    uint8_t ucEntryModule;  // of the trace on entry
    NpHaRule astRule[NP_HA_RULE_MAX];
};

namespace {

// What remembers whether a filter is installed.
struct NpHaFlags {
    const NpHaSoft *pstSoft;
    uint32_t *pulValid;
};
constexpr NpHaFlags g_stNoFlag = {nullptr, nullptr};
constexpr NpHaFlags Np_Flags(const NpHaSoft &stSoft)
{
    return {&stSoft, nullptr};
}
constexpr NpHaFlags Np_Flags(uint32_t *pulValid)
{
    return {nullptr, pulValid};
}

inline constexpr bool NP_HA_UNDO = true;

template <size_t ulNum>
consteval NpHaFilter Np_Kind(const NpRow *pstKey, const NpRow &stRow, NpHaFlags stFlags,
                             uint8_t ucInner, const NpHaRule (&astRule)[ulNum], bool bUndo = false,
                             uint8_t ucEntryModule = NP_M_HA)
{
    static_assert(ulNum <= NP_HA_RULE_MAX);
    NpHaFilter stFilter = {pstKey,  &stRow, stFlags.pstSoft, stFlags.pulValid,
                           ucInner, ulNum,  bUndo,           ucEntryModule,
                           {}};
    for (size_t i = 0; i < ulNum; i++) {
        stFilter.astRule[i] = astRule[i];
    }
    return stFilter;
}

}  // namespace

// clang-format off
constexpr NpHaFilter g_stHaSmacTarnA = Np_Kind(&g_stHaSmacKey, g_stHaSmacRow, Np_Flags(g_stSmacSoft), 0, {{0, 0, g_stXdslPorts}, {16, 1, g_stBondingPorts}}, NP_HA_UNDO);
constexpr NpHaFilter g_stHaSmacTarnB = Np_Kind(&g_stHaSmacKey, g_stHaSmacRow, Np_Flags(g_stSmacSoft), 0, {{0, 0, g_stFePorts}});
constexpr NpHaFilter g_stHaSmacTarnC = Np_Kind(&g_stHaSmacKey, g_stHaSmacRow, Np_Flags(g_stSmacSoft), 0, {{0, 0, g_stFePorts}, {16, 1, g_stXauiPorts}}, NP_HA_UNDO);
constexpr NpHaFilter g_stHaDmacTarnA = Np_Kind(&g_stHaDmacKey, g_stHaDmacRow, Np_Flags(g_stDmacSoft), 8, {{8, 0, g_stXdslPorts}, {24, 1, g_stBondingPorts}}, NP_HA_UNDO);
constexpr NpHaFilter g_stHaDmacTarnB = Np_Kind(&g_stHaDmacKey, g_stHaDmacRow, Np_Flags(g_stDmacSoft), 8, {{8, 0, g_stFePorts}});
constexpr NpHaFilter g_stHaDmacTarnC = Np_Kind(&g_stHaDmacKey, g_stHaDmacRow, Np_Flags(g_stDmacSoft), 8, {{8, 0, g_stFePorts}, {24, 1, g_stXauiPorts}}, NP_HA_UNDO);
constexpr NpHaFilter g_stHaErrorSample = Np_Kind(&g_stHaErrorSampleKey, g_stHaErrorSampleRow, Np_Flags(g_stErrorSampleSoft), 0, {{32, 2, g_stAnyPort}});
constexpr NpHaFilter g_stHaAcmClock = Np_Kind(&g_stHaAcmClockKey, g_stHaAcmClockRow, Np_Flags(g_stAcmClockSoft), 2, {{34, 2, g_stAnyPort}});
constexpr NpHaFilter g_stHaAll0Smac = Np_Kind(nullptr, g_stHaAll0SmacRow, g_stNoFlag, 6, {{35, 2, g_stAnyPort}});
constexpr NpHaFilter g_stHaMultiSmac = Np_Kind(nullptr, g_stHaMultiSmacRow, g_stNoFlag, 7, {{36, 2, g_stAnyPort}});
constexpr NpHaFilter g_stHaSpecialEth = Np_Kind(nullptr, g_stHaSpecialEthRow, Np_Flags(g_ulSpecialEthPktValid), 9, {{38, 2, g_stAnyPort}});
constexpr NpHaFilter g_stHaL2Packet = Np_Kind(&g_stHaL2PacketKey, g_stHaL2PacketRow, Np_Flags(g_ulL2PacketValid), 14, {{43, 2, g_stXdslPorts}}, false, NP_M_PORT);
constexpr NpHaFilter g_stHaL2PacketTarnC = Np_Kind(&g_stHaL2PacketKey, g_stHaL2PacketRow, Np_Flags(g_ulL2PacketValid), 14, {{43, 2, g_stFePorts}, {53, 3, g_stXauiPorts}}, false, NP_M_PORT);
constexpr NpHaFilter g_stHaDmacMatch = Np_Kind(&g_stHaDmacMatchKey, g_stHaDmacMatchRow, Np_Flags(g_stDmacMatchSoft), 0, {{44, 3, g_stAnyPort}});
constexpr NpHaFilter g_stHaVlanMatch = Np_Kind(&g_stHaVlanMatchKey, g_stHaVlanMatchRow, Np_Flags(g_stVlanMatchSoft), 0, {{44, 3, g_stAnyPort}});
constexpr NpHaFilter g_stHaGemport = Np_Kind(nullptr, g_stHaGemportRow, Np_Flags(g_ulNonBcGemportValid), 7, {{49, 3, g_stGponPorts}});
constexpr NpHaFilter g_stHaLlid = Np_Kind(nullptr, g_stHaLlidRow, Np_Flags(g_ulNonBcLlidValid), 7, {{49, 3, g_stEponPorts}});
constexpr NpHaFilter g_stHaIpv4Multicast = Np_Kind(nullptr, g_stHaIpv4MulticastRow, Np_Flags(g_ulIpv4McValid), 8, {{50, 3, g_stAnyPort}});
constexpr NpHaFilter g_stHaIpv6Multicast = Np_Kind(nullptr, g_stHaIpv6MulticastRow, Np_Flags(g_ulIpv6McValid), 9, {{51, 3, g_stAnyPort}});
constexpr NpHaFilter g_stHaIpv4Udp = Np_Kind(nullptr, g_stHaIpv4UdpRow, Np_Flags(g_ulIpv4UdpValid), 10, {{52, 3, g_stAnyPort}});
// clang-format on

// ---- set, get, delete ---------------------------------------------------------------------------

namespace {

inline constexpr uint8_t NP_HA_PORT_RANGE = 2;  // ucPortMode

constexpr char NP_ADD_FAILED[] = "Qd_HA_MatchRuleAdd failed (0x%08x) !\r\n";
constexpr char NP_DEL_FAILED[] = "Qd_HA_MatchRuleDel failed (0x%08x) !\r\n";
constexpr char NP_GET_FAILED[] = "Qd_HA_MatchRuleGet failed (0x%08x) !\r\n";

// What the driver answered, recorded and traced if it is a failure.
uint32_t Np_Driver(uint32_t ulChipID, uint32_t ulReturn, const char *pszFailed, NpWhere stWhere)
{
    if (ulReturn != NP_OK) {
        Np_RecordErrInfo(ulChipID, ulReturn, 0);
        NP_TRACE_AT(stWhere, NP_M_HA, NP_PRINT_ERROR, pszFailed, ulReturn);
    }
    return ulReturn;
}

uint32_t Np_Null(NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, NP_M_HA, NP_PRINT_ERROR, "Para null ptr\r\n");
    return NP_ERR_NULL_PTR;
}

void Np_EntryTrace(const NpHaFilter *pstFilter, uint32_t ulChipID, uint32_t ulIndex,
                   NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, pstFilter->ucEntryModule, NP_PRINT_TRACE,
                " in ulChipID=0x%08x ulIndex=0x%08x\r\n", ulChipID, ulIndex);
}

// Tests the index, and that the kind's flags are there: they are not before bring-up.
uint32_t Np_IndexCheck(const NpHaFilter *pstFilter, uint32_t ulChipID, uint32_t ulIndex,
                       NpWhere stWhere)
{
    return pstFilter->pstKey == nullptr
               ? static_cast<uint32_t>(NP_OK)
               : Np_Row_Check(pstFilter->pstKey, ulChipID, &ulIndex, stWhere);
}

uint32_t Np_FlagsCheck(const NpHaFilter *pstFilter, uint32_t ulChipID, NpWhere stWhere)
{
    const NpHaSoft *pstSoft = pstFilter->pstSoft;
    return pstSoft != nullptr && pstSoft->ppucTable[ulChipID] == nullptr
               ? Np_Null(stWhere)
               : static_cast<uint32_t>(NP_OK);
}

bool Np_IsInstalled(const NpHaFilter *pstFilter, uint32_t ulChipID, uint32_t ulIndex)
{
    const NpHaSoft *pstSoft = pstFilter->pstSoft;
    return pstSoft != nullptr ? pstSoft->ppucTable[ulChipID][ulIndex * pstSoft->ulEntrySize] == 1
                              : pstFilter->pulValid[ulChipID] != 0;
}

void Np_FlagSet(const NpHaFilter *pstFilter, uint32_t ulChipID, uint32_t ulIndex, uint8_t ucValid)
{
    const NpHaSoft *pstSoft = pstFilter->pstSoft;
    if (pstSoft != nullptr) {
        pstSoft->ppucTable[ulChipID][ulIndex * pstSoft->ulEntrySize] = ucValid;
    }
    else if (pstFilter->pulValid != nullptr) {
        pstFilter->pulValid[ulChipID] = ucValid;
    }
}

uint32_t Np_RuleNumber(const NpHaFilter *pstFilter, uint32_t ulRule, uint32_t ulIndex)
{
    return pstFilter->astRule[ulRule].ucNumber + ulIndex;
}

uint32_t Np_RuleDel(const NpHaFilter *pstFilter, uint32_t ulChipID, uint32_t ulRule,
                    uint32_t ulIndex, NpWhere stWhere)
{
    return Np_Driver(ulChipID,
                     Qd_HA_MatchRuleDel(ulChipID, Np_RuleNumber(pstFilter, ulRule, ulIndex)),
                     NP_DEL_FAILED, stWhere);
}

// Puts a filter's rules in the place of those that are there.
uint32_t Np_Replace(const NpHaFilter *pstFilter, uint32_t ulChipID, uint32_t ulIndex,
                    const void *pvRecord, bool bDelete, NpWhere stWhere)
{
    QdHaMatchRule astRule[NP_HA_RULE_MAX];
    const uint32_t ulReturn = Np_Ha_Build(pstFilter, ulChipID, ulIndex, pvRecord, astRule, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_Tarn_HaInfoTrace(reinterpret_cast<const uint8_t *>(astRule), pstFilter->ucRuleNum);
    for (uint32_t i = 0; bDelete && i < pstFilter->ucRuleNum; i++) {
        Np_RuleDel(pstFilter, ulChipID, i, ulIndex, stWhere);
    }
    Np_FlagSet(pstFilter, ulChipID, ulIndex, 0);
    for (uint32_t i = 0; i < pstFilter->ucRuleNum; i++) {
        const uint32_t ulNumber = Np_RuleNumber(pstFilter, i, ulIndex);
        const uint32_t ulAdded = Np_Driver(
            ulChipID, Qd_HA_MatchRuleAdd(ulChipID, ulNumber, &astRule[i]), NP_ADD_FAILED, stWhere);
        if (ulAdded != NP_OK) {
            if (i != 0 && pstFilter->bUndo) {
                Np_RuleDel(pstFilter, ulChipID, 0, ulIndex, stWhere);
            }
            return ulAdded;
        }
    }
    Np_FlagSet(pstFilter, ulChipID, ulIndex, 1);
    return NP_OK;
}

uint32_t Np_Set(const NpHaFilter *pstFilter, uint32_t ulChipID, uint32_t ulIndex,
                const void *pvRecord, NpWhere stWhere = Np_Here())
{
    Np_EntryTrace(pstFilter, ulChipID, ulIndex, stWhere);
    if (pvRecord == nullptr) {
        return Np_Null(stWhere);
    }
    Np_Row_Trace(pstFilter->pstRow, pvRecord, stWhere);
    uint32_t ulReturn = Np_IndexCheck(pstFilter, ulChipID, ulIndex, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Check(pstFilter->pstRow, ulChipID, pvRecord, stWhere);
    }
    if (ulReturn == NP_OK) {
        ulReturn = Np_FlagsCheck(pstFilter, ulChipID, stWhere);
    }
    return ulReturn != NP_OK ? ulReturn
                             : Np_Replace(pstFilter, ulChipID, ulIndex, pvRecord,
                                          Np_IsInstalled(pstFilter, ulChipID, ulIndex), stWhere);
}

uint32_t Np_Del(const NpHaFilter *pstFilter, uint32_t ulChipID, uint32_t ulIndex,
                NpWhere stWhere = Np_Here())
{
    Np_EntryTrace(pstFilter, ulChipID, ulIndex, stWhere);
    uint32_t ulReturn = Np_IndexCheck(pstFilter, ulChipID, ulIndex, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn = Np_FlagsCheck(pstFilter, ulChipID, stWhere);
    }
    if (ulReturn != NP_OK || !Np_IsInstalled(pstFilter, ulChipID, ulIndex)) {
        return ulReturn;
    }
    for (uint32_t i = 0; i < pstFilter->ucRuleNum && ulReturn == NP_OK; i++) {
        ulReturn = Np_RuleDel(pstFilter, ulChipID, i, ulIndex, stWhere);
    }
    if (ulReturn == NP_OK) {
        Np_FlagSet(pstFilter, ulChipID, ulIndex, 0);
    }
    return ulReturn;
}

// Reads a filter's first rule back.
uint32_t Np_ReadBack(const NpHaFilter *pstFilter, uint32_t ulChipID, uint32_t ulIndex,
                     void *pvRecord, NpWhere stWhere)
{
    QdHaMatchRule stRule = {};
    const uint32_t ulNumber = Np_RuleNumber(pstFilter, 0, ulIndex);
    uint32_t ulReturn = Np_Driver(ulChipID, Qd_HA_MatchRuleGet(ulChipID, ulNumber, &stRule),
                                  NP_GET_FAILED, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Parse(pstFilter->pstRow, ulChipID, &stRule, pvRecord, stWhere);
    }
    return ulReturn;
}

uint32_t Np_Get(const NpHaFilter *pstFilter, uint32_t ulChipID, uint32_t ulIndex, void *pvRecord,
                NpWhere stWhere = Np_Here())
{
    Np_EntryTrace(pstFilter, ulChipID, ulIndex, stWhere);
    if (pvRecord == nullptr) {
        return Np_Null(stWhere);
    }
    uint32_t ulReturn = Np_IndexCheck(pstFilter, ulChipID, ulIndex, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn = Np_FlagsCheck(pstFilter, ulChipID, stWhere);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (!Np_IsInstalled(pstFilter, ulChipID, ulIndex)) {
        NP_TRACE_AT(stWhere, NP_M_HA, NP_PRINT_ERROR, "not configed!\r\n");
        return NP_ERR_NOT_EXIST;
    }
    ulReturn = Np_ReadBack(pstFilter, ulChipID, ulIndex, pvRecord, stWhere);
    if (ulReturn == NP_OK) {
        Np_Row_Trace(pstFilter->pstRow, pvRecord, stWhere);
    }
    return ulReturn;
}

// Words that stand for a record: traced and tested as one.
uint32_t Np_ArgsCheck(const NpRow *pstArgs, uint32_t ulChipID, const void *pvArgs, NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, NP_M_HA, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
    Np_Row_Trace(pstArgs, pvArgs, stWhere);
    return Np_Row_Check(pstArgs, ulChipID, pvArgs, stWhere);
}

inline constexpr uint32_t NP_PIE_PQM_PRI = 3;
constexpr uint32_t g_aulPieTarnA[] = {2};
constexpr uint32_t g_aulPieTarnB[] = {3, 4};

// Gives packets from the PIE their info, by one or more of the driver's fixed rules.
uint32_t Np_PieSet(uint32_t ulChipID, uint32_t ulHaInfo, std::span<const uint32_t> stTypes,
                   NpWhere stWhere = Np_Here())
{
    uint32_t ulReturn = Np_ArgsCheck(&g_stHaInfoArgs, ulChipID, &ulHaInfo, stWhere);
    for (size_t i = 0; i < stTypes.size() && ulReturn == NP_OK; i++) {
        ulReturn =
            Np_Driver(ulChipID, Qd_HA_ExtendRuleSet(ulChipID, stTypes[i], NP_PIE_PQM_PRI, ulHaInfo),
                      "Qd_HA_ExtendRuleSet failed (0x%08x) !\r\n", stWhere);
    }
    return ulReturn;
}

uint32_t Np_PieGet(uint32_t ulChipID, uint32_t *pulHaInfo, std::span<const uint32_t> stTypes,
                   NpWhere stWhere = Np_Here())
{
    NP_TRACE_AT(stWhere, NP_M_HA, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
    if (pulHaInfo == nullptr) {
        return Np_Null(stWhere);
    }
    uint32_t ulPqmPri = 0;
    return Np_Driver(ulChipID, Qd_HA_ExtendRuleGet(ulChipID, stTypes[0], &ulPqmPri, pulHaInfo),
                     "Qd_HA_ExtendRuleGet failed (0x%08x) !\r\n", stWhere);
}

}  // namespace

uint32_t Np_Ha_Build(const NpHaFilter *pstFilter, uint32_t ulChipID, uint32_t ulIndex,
                     const void *pvRecord, void *pvRule, NpWhere stWhere)
{
    QdHaMatchRule *pstRule = static_cast<QdHaMatchRule *>(pvRule);
    const uint32_t ulReturn = Np_Row_Build(pstFilter->pstRow, ulChipID, pvRecord, pstRule, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    for (uint32_t i = 0; i < pstRule->ucLinkNum; i++) {
        pstRule->astLink[i].ucInnerID =
            static_cast<uint8_t>(pstFilter->ucInner + ulIndex * pstRule->ucLinkNum + i);
    }
    for (uint32_t i = pstFilter->ucRuleNum; i-- > 0;) {
        const NpHaRule &stRule = pstFilter->astRule[i];
        const NpHaPorts &stPorts = stRule.stPorts;
        if (i != 0) {
            pstRule[i] = pstRule[0];
        }
        pstRule[i].ucSubTableID = stRule.ucSubTable;
        pstRule[i].ucPortMode = stPorts.ucType != 0 ? NP_HA_PORT_RANGE : 0;
        pstRule[i].ucPortType = stPorts.ucType;
        pstRule[i].ulPortMax = stPorts.ucMax;
        pstRule[i].ulPortMaxSub = stPorts.ucMaxSub;
        pstRule[i].ulPortMaxSubPri = stPorts.ucMaxSubPri;
    }
    return NP_OK;
}

#define NP_HA_SET(Name, Record, stFilter)                                     \
    uint32_t Name(uint32_t ulChipID, uint32_t ulIndex, const Record *pstData) \
    {                                                                         \
        return Np_Set(&(stFilter), ulChipID, ulIndex, pstData);               \
    }
#define NP_HA_GET(Name, Record, stFilter)                               \
    uint32_t Name(uint32_t ulChipID, uint32_t ulIndex, Record *pstData) \
    {                                                                   \
        return Np_Get(&(stFilter), ulChipID, ulIndex, pstData);         \
    }
#define NP_HA_DEL(Name, stFilter)                      \
    uint32_t Name(uint32_t ulChipID, uint32_t ulIndex) \
    {                                                  \
        return Np_Del(&(stFilter), ulChipID, ulIndex); \
    }
// The same of a kind with one filter.
#define NP_HA_ONE(Set, Get, Del, Record, stFilter)         \
    uint32_t Set(uint32_t ulChipID, const Record *pstData) \
    {                                                      \
        return Np_Set(&(stFilter), ulChipID, 0, pstData);  \
    }                                                      \
    uint32_t Get(uint32_t ulChipID, Record *pstData)       \
    {                                                      \
        return Np_Get(&(stFilter), ulChipID, 0, pstData);  \
    }                                                      \
    uint32_t Del(uint32_t ulChipID)                        \
    {                                                      \
        return Np_Del(&(stFilter), ulChipID, 0);           \
    }

extern "C" {

NP_HA_SET(Np_TarnA_SmacFilterTbl_Set, NpSmacFilter, g_stHaSmacTarnA)
NP_HA_SET(Np_TarnB_SmacFilterTbl_Set, NpSmacFilter, g_stHaSmacTarnB)
NP_HA_SET(Np_TarnC_SmacFilterTbl_Set, NpSmacFilter, g_stHaSmacTarnC)
NP_HA_GET(Np_Tarn_SmacFilterTbl_Get, NpSmacFilter, g_stHaSmacTarnC)
NP_HA_DEL(Np_TarnA_SmacFilterTbl_Del, g_stHaSmacTarnA)
NP_HA_DEL(Np_TarnB_SmacFilterTbl_Del, g_stHaSmacTarnB)
NP_HA_SET(Np_TarnA_DmacFilterTbl_Set, NpDmacFilter, g_stHaDmacTarnA)
NP_HA_SET(Np_TarnB_DmacFilterTbl_Set, NpDmacFilter, g_stHaDmacTarnB)
NP_HA_SET(Np_TarnC_DmacFilterTbl_Set, NpDmacFilter, g_stHaDmacTarnC)
NP_HA_GET(Np_Tarn_DmacFilterTbl_Get, NpDmacFilter, g_stHaDmacTarnC)
NP_HA_DEL(Np_TarnA_DmacFilterTbl_Del, g_stHaDmacTarnA)
NP_HA_DEL(Np_TarnB_DmacFilterTbl_Del, g_stHaDmacTarnB)
NP_HA_SET(Np_Tarn_ErrorSampleTbl_Set, NpErrorSample, g_stHaErrorSample)
NP_HA_GET(Np_Tarn_ErrorSampleTbl_Get, NpErrorSample, g_stHaErrorSample)
NP_HA_DEL(Np_Tarn_ErrorSampleTbl_Del, g_stHaErrorSample)
NP_HA_SET(Np_Tarn_AcmClockTbl_Set, NpAcmClock, g_stHaAcmClock)
NP_HA_GET(Np_Tarn_AcmClockTbl_Get, NpAcmClock, g_stHaAcmClock)
NP_HA_DEL(Np_Tarn_AcmClockTbl_Del, g_stHaAcmClock)
NP_HA_SET(Np_Tarn_L2PacketFilterTbl_Set, NpL2Packet, g_stHaL2Packet)
NP_HA_SET(Np_TarnC_L2PacketFilterTbl_Set, NpL2Packet, g_stHaL2PacketTarnC)
NP_HA_GET(Np_Tarn_L2PacketFilterTbl_Get, NpL2Packet, g_stHaL2Packet)
NP_HA_DEL(Np_Tarn_L2PacketFilterTbl_Del, g_stHaL2Packet)
NP_HA_DEL(Np_TarnC_L2PacketFilterTbl_Del, g_stHaL2PacketTarnC)
NP_HA_SET(Np_Tarn_DmacMatchTbl_Set, NpDmacMatch, g_stHaDmacMatch)
NP_HA_GET(Np_Tarn_DmacMatchTbl_Get, NpDmacMatch, g_stHaDmacMatch)
NP_HA_DEL(Np_Tarn_DmacMatchTbl_Del, g_stHaDmacMatch)
NP_HA_SET(Np_Tarn_VlanMatchPktHaInfo_Set, NpVlanMatch, g_stHaVlanMatch)
NP_HA_GET(Np_Tarn_VlanMatchPktHaInfo_Get, NpVlanMatch, g_stHaVlanMatch)
NP_HA_DEL(Np_Tarn_VlanMatchPktHaInfo_Del, g_stHaVlanMatch)
NP_HA_ONE(Np_TarnC_NonBroadcastGemportFilter_Set, Np_TarnC_NonBroadcastGemportFilter_Get,
          Np_TarnC_NonBroadcastGemportFilter_Del, NpNonBroadcastGemport, g_stHaGemport)
NP_HA_ONE(Np_TarnC_NonBroadcastLlidFilter_Set, Np_TarnC_NonBroadcastLlidFilter_Get,
          Np_TarnC_NonBroadcastLlidFilter_Del, NpNonBroadcastLlid, g_stHaLlid)
NP_HA_ONE(Np_TarnC_Ipv4MulticastFilter_Set, Np_TarnC_Ipv4MulticastFilter_Get,
          Np_TarnC_Ipv4MulticastFilter_Del, NpIpv4Multicast, g_stHaIpv4Multicast)
NP_HA_ONE(Np_TarnC_Ipv6MulticastFilter_Set, Np_TarnC_Ipv6MulticastFilter_Get,
          Np_TarnC_Ipv6MulticastFilter_Del, NpIpv6Multicast, g_stHaIpv6Multicast)
NP_HA_ONE(Np_TarnC_Ipv4FilterWithUdp_Set, Np_TarnC_Ipv4FilterWithUdp_Get,
          Np_TarnC_Ipv4FilterWithUdp_Del, NpIpv4Udp, g_stHaIpv4Udp)

uint32_t Np_Tarn_SpecialEthPktHaInfo_Set(uint32_t ulChipID, uint32_t ulEthType, uint32_t ulHaInfo)
{
    const NpSpecialEth stSpecialEth = {ulEthType, ulHaInfo};
    return Np_Set(&g_stHaSpecialEth, ulChipID, 0, &stSpecialEth);
}

uint32_t Np_Tarn_SpecialEthPktHaInfo_Get(uint32_t ulChipID, uint32_t *pulEthType,
                                         uint32_t *pulHaInfo)
{
    NpSpecialEth stSpecialEth = {};
    const bool bNull = pulEthType == nullptr || pulHaInfo == nullptr;
    const uint32_t ulReturn =
        Np_Get(&g_stHaSpecialEth, ulChipID, 0, bNull ? nullptr : &stSpecialEth);
    if (ulReturn == NP_OK) {
        *pulEthType = stSpecialEth.ulEthType;
        *pulHaInfo = stSpecialEth.ulHaInfo;
    }
    return ulReturn;
}

uint32_t Np_Tarn_IllegalSmacHaInfo_Set(uint32_t ulChipID, uint32_t ulHaInfo)
{
    const NpWhere stWhere = Np_Here();
    uint32_t ulReturn = Np_ArgsCheck(&g_stHaInfoArgs, ulChipID, &ulHaInfo, stWhere);
    for (const NpHaFilter *pstFilter : {&g_stHaAll0Smac, &g_stHaMultiSmac}) {
        if (ulReturn == NP_OK) {
            ulReturn = Np_Replace(pstFilter, ulChipID, 0, &ulHaInfo, true, stWhere);
        }
    }
    return ulReturn;
}

uint32_t Np_Tarn_IllegalSmacHaInfo_Get(uint32_t ulChipID, uint32_t *pulHaInfo)
{
    const NpWhere stWhere = Np_Here();
    NP_TRACE(NP_M_HA, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
    if (pulHaInfo == nullptr) {
        return Np_Null(stWhere);
    }
    uint32_t ulAll0 = 0;
    uint32_t ulMulti = 0;
    uint32_t ulReturn = Np_ReadBack(&g_stHaAll0Smac, ulChipID, 0, &ulAll0, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn = Np_ReadBack(&g_stHaMultiSmac, ulChipID, 0, &ulMulti, stWhere);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (ulAll0 != ulMulti) {
        NP_TRACE(NP_M_HA, NP_PRINT_ERROR,
                 "all0mac.ulHaInfo = 0x%08x,multimac.ulHaInfo = 0x%08x\r\n", ulAll0, ulMulti);
        return NP_ERR_PARAM;
    }
    *pulHaInfo = ulAll0;
    return NP_OK;
}

uint32_t Np_TarnA_PiePktHaInfo_Set(uint32_t ulChipID, uint32_t ulHaInfo)
{
    return Np_PieSet(ulChipID, ulHaInfo, g_aulPieTarnA);
}

uint32_t Np_TarnA_PiePktHaInfo_Get(uint32_t ulChipID, uint32_t *pulHaInfo)
{
    return Np_PieGet(ulChipID, pulHaInfo, g_aulPieTarnA);
}

uint32_t Np_TarnB_PiePktHaInfo_Set(uint32_t ulChipID, uint32_t ulHaInfo)
{
    return Np_PieSet(ulChipID, ulHaInfo, g_aulPieTarnB);
}

uint32_t Np_TarnB_PiePktHaInfo_Get(uint32_t ulChipID, uint32_t *pulHaInfo)
{
    return Np_PieGet(ulChipID, pulHaInfo, g_aulPieTarnB);
}

uint32_t Np_TarnB_ExtendTpidSet(uint32_t ulChipID, uint32_t ulTpidType, uint32_t ulTpid)
{
    const tpid::R stArgs = {ulTpidType, ulTpid};
    const uint32_t ulReturn = Np_ArgsCheck(&tpid::g_stArgs, ulChipID, &stArgs, Np_Here());
    return ulReturn != NP_OK
               ? ulReturn
               : Np_Driver(ulChipID,
                           Qd_HA_ExtendTpidSet(ulChipID, ulTpid, static_cast<uint8_t>(ulTpidType)),
                           "Qd_HA_ExtendTpidSet failed (0x%08x) !\r\n", Np_Here());
}

uint32_t Np_TarnB_ExtendTpidGet(uint32_t ulChipID, uint32_t ulTpidType, uint32_t *pulTpid)
{
    if (pulTpid == nullptr) {
        return Np_Null(Np_Here());
    }
    const tpid::R stArgs = {ulTpidType, 0};
    const uint32_t ulReturn = Np_ArgsCheck(&tpid::g_stTypeArgs, ulChipID, &stArgs, Np_Here());
    return ulReturn != NP_OK
               ? ulReturn
               : Np_Driver(ulChipID,
                           Qd_HA_ExtendTpidGet(ulChipID, pulTpid, static_cast<uint8_t>(ulTpidType)),
                           "Qd_HA_ExtendTpidGet failed (0x%08x) !\r\n", Np_Here());
}

void Np_Tarn_HaInfoTrace(const uint8_t *pucRule, uint32_t ulNum)
{
    for (uint32_t i = 0; i < ulNum; i++) {
        NP_TRACE(NP_M_HA, NP_PRINT_TRACE, "HaInfo %d:\r\n", static_cast<int>(i));
        Np_Row_Trace(&rule::g_stRow, pucRule + i * NP_HA_RULE_SIZE);
    }
}

uint32_t Np_Tarn_HA_Init(uint32_t ulChipID)
{
    NP_TRACE(NP_M_HA, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
    for (const NpHaSoft *pstSoft : g_apstSoft) {
        uint8_t **ppucTable = &pstSoft->ppucTable[ulChipID];
        const uint32_t ulSize = Np_GLB_CapGet(pstSoft->enNum) * pstSoft->ulEntrySize;
        if (*ppucTable == nullptr) {
            *ppucTable = static_cast<uint8_t *>(Os_Alloc(ulSize));
        }
        if (*ppucTable == nullptr) {
            NP_TRACE(NP_M_HA, NP_PRINT_ERROR, "%s", pstSoft->pszNoMemory);
            Np_Tarn_HA_Destruct(ulChipID);
            return NP_ERR_NO_MEMORY;
        }
        memset(*ppucTable, 0, ulSize);
    }
    for (uint32_t *pulValid : g_apulValid) {
        pulValid[ulChipID] = 0;
    }
    const uint32_t ulReturn = Np_Tarn_IllegalSmacHaInfo_Set(ulChipID, 0);
    if (ulReturn != NP_OK) {
        Np_Tarn_HA_Destruct(ulChipID);
    }
    return ulReturn;
}

uint32_t Np_Tarn_HA_Destruct(uint32_t ulChipID)
{
    NP_TRACE(NP_M_HA, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
    for (const NpHaSoft *pstSoft : g_apstSoft) {
        Os_Free(pstSoft->ppucTable[ulChipID]);
        pstSoft->ppucTable[ulChipID] = nullptr;
    }
    return NP_OK;
}

uint32_t Np_SpecialEthSet(uint32_t ulChipID, const NpSpecialEth *pstSpecialEth)
{
    return Np_SpecialEthPktHaInfo_Set(ulChipID, pstSpecialEth->ulEthType, pstSpecialEth->ulHaInfo);
}

uint32_t Np_SpecialEthGet(uint32_t ulChipID, NpSpecialEth *pstSpecialEth)
{
    return Np_SpecialEthPktHaInfo_Get(ulChipID, &pstSpecialEth->ulEthType,
                                      &pstSpecialEth->ulHaInfo);
}

uint32_t Np_AoePktSet(uint32_t ulChipID, const NpAoePkt *pstAoePkt)
{
    return Np_AoePktHaInfo_Set(ulChipID, pstAoePkt->ulVlanID, pstAoePkt->ulHaInfo);
}

uint32_t Np_AoePktGet(uint32_t ulChipID, NpAoePkt *pstAoePkt)
{
    return Np_AoePktHaInfo_Get(ulChipID, &pstAoePkt->ulVlanID, &pstAoePkt->ulHaInfo);
}

}  // extern "C"

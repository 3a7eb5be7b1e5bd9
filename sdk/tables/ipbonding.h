// IP binding: the source addresses that a flow or a flow bundle may have. The chip's tables are
// searched by whole keys alone, so the host keeps a list of the addresses of each.
#pragma once

#include "ldsdk/secu.h"
#include "sdk/record/exacttable.h"

enum NpIpType : uint32_t {
    NP_IP_V4 = 0,
    NP_IP_V6 = 1,
    NP_IP_TYPE_NUM,
};
enum NpIpSubType : uint32_t {
    NP_IP_OF_FLOW = 0,
    NP_IP_OF_BUNDLE = 1,
};
enum NpIpDelMode : uint32_t {
    NP_IP_DEL_ONE = 0,
    NP_IP_DEL_ALL = 1,
};

// An address in a list.
struct NpIpBondNode {
    uint32_t aulAddress[8];  // address and mask; the first word alone for IPv4
    uint32_t ulControl;      // NP_NODE_...
};
static_assert(sizeof(NpIpBondNode) == 36);

inline constexpr uint32_t NP_NODE_USED = 1u << 0;
inline constexpr uint32_t NP_NODE_NEXT_SHIFT = 1;  // position of the next node, 12 bits
inline constexpr uint32_t NP_NODE_HAS_NEXT = 1u << 13;
inline constexpr uint32_t NP_NODE_V6 = 1u << 14;
inline constexpr uint32_t NP_NODE_ROW_SHIFT = 15;  // row in the CAM, 12 bits
inline constexpr uint32_t NP_NODE_POS_MASK = 0xfff;

// Word of a flow or a bundle: its number in bits 10:0, and
inline constexpr uint32_t NP_FLOW_HEAD_SHIFT = 11;  // position of its first node, 12 bits
inline constexpr uint32_t NP_FLOW_SUB_TYPE = 1u << 23;
inline constexpr uint32_t NP_FLOW_VALID = 1u << 24;

inline constexpr uint32_t NP_IP4_POS_WORDS = 128;
inline constexpr uint32_t NP_IP6_POS_WORDS = 32;

// What is bound, and to what.
struct NpIp4Key {
    uint32_t ulSubType;
    uint32_t ulFlowID;
    uint32_t ulIpv4;
};
struct NpIp6Rule {
    uint32_t ulSubType;
    uint32_t ulFlowID;
    NpIpBonding stIp;
};
extern const NpRow g_stIp4KeyRow;
extern const NpRow g_stIp4DataRow;
extern const NpRow g_stIp6Row;  // key, mask and AD

// Arguments of the commands.
struct NpIpArgs {
    uint32_t ulIpType;
    uint32_t ulFlowID;
    uint32_t ulDelMode;
    NpIpBonding stIp;
};
extern const NpRow g_stIpFlowArgs;  // what is bound to, with the address
extern const NpRow g_stIpFlowKeyArgs;
extern const NpRow g_stIpFlowDelArgs;
extern const NpRow g_stIpBundleArgs;
extern const NpRow g_stIpBundleKeyArgs;
extern const NpRow g_stIpBundleDelArgs;
extern const NpRow g_stIpCmArgs;  // of cable modem groups, which this family has not
extern const NpRow g_stIpCmKeyArgs;
extern const NpRow g_stIpCmDelArgs;
extern const NpRow g_stIpShownArgs;  // an address

extern "C" {

// Per chip; null before bring-up. Words of flows and bundles stand at ulSubType | number * 2.
extern NpIpBondNode *g_pastIp4BTbl[NP_CHIP_NUM];
extern NpIpBondNode *g_pastIp6BTbl[NP_CHIP_NUM];
extern uint32_t *g_pastIp4BIDTbl[NP_CHIP_NUM];
extern uint32_t *g_pastIp6BIDTbl[NP_CHIP_NUM];
extern uint32_t g_aulIpv4BPos[NP_CHIP_NUM][NP_IP4_POS_WORDS];  // a bit for each node in use
extern uint32_t g_aulIpv6BPos[NP_CHIP_NUM][NP_IP6_POS_WORDS];
extern uint32_t g_aulIpv4BNum[NP_CHIP_NUM];  // addresses
extern uint32_t g_aulIpv6BNum[NP_CHIP_NUM];
extern uint32_t g_aulIpv4BIDNum[NP_CHIP_NUM];  // flows and bundles with addresses
extern uint32_t g_aulIpv6BIDNum[NP_CHIP_NUM];

// The lowest clear bit of a map. NP_ERR_TABLE_FULL.
uint32_t NP_Tarn_SECU_IpGetIdlePos(const uint32_t *pulBitmap, uint32_t ulWords, uint32_t *pulPos);
// Sets or clears a bit. NP_ERR_PARAM behind the end.
uint32_t NP_Tarn_SECU_IpSetIdlePos(uint32_t *pulBitmap, uint32_t ulWords, uint32_t ulPos,
                                   uint32_t ulUsed);

// What Set, Del and Get are made of, for what was tested: the first address of a flow or bundle,
// another one, all of them, one of them. NP_ERR_TABLE_FULL, the codes of the hash table and the
// CAM; a failure leaves the lists as they were.
uint32_t NP_Tarn_SECU_Ip4AddNewFID(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID,
                                   const NpIpBonding *pstIpBonding);
uint32_t NP_Tarn_SECU_Ip6AddNewFID(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID,
                                   const NpIpBonding *pstIpBonding);
uint32_t NP_Tarn_SECU_Ip4AddNewIP(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID,
                                  const NpIpBonding *pstIpBonding);
uint32_t NP_Tarn_SECU_Ip6AddNewIP(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID,
                                  const NpIpBonding *pstIpBonding);
uint32_t NP_Tarn_SECU_Ip4DelFID(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID);
uint32_t NP_Tarn_SECU_Ip6DelFID(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID);
uint32_t NP_Tarn_SECU_Ip4DelIP(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID,
                               const NpIpBonding *pstIpBonding);
uint32_t NP_Tarn_SECU_Ip6DelIP(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID,
                               const NpIpBonding *pstIpBonding);
uint32_t NP_Tarn_SECU_Ip4GetByFID(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID,
                                  NpIpBonding *pstIpBonding, uint32_t *pulSize);
uint32_t NP_Tarn_SECU_Ip6GetByFID(uint32_t ulChipID, uint32_t ulSubType, uint32_t ulFlowID,
                                  NpIpBonding *pstIpBonding, uint32_t *pulSize);

void Np_Tarn_SECU_IpBondingTblParaTrace(uint32_t ulIpType, const NpIpBonding *pstIpBonding);

}  // extern "C"

// Tells whether the lists are there: between init and destruct.
bool Np_IpBonding_IsReady(uint32_t ulChipID);

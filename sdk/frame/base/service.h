// The service table, through which every exported call reaches the family's implementation.
#pragma once

#include "ldsdk/ldsdk.h"
#include "ldsdk/types.h"

#include <cstdint>

using NpServiceFn = void (*)(void);

// One word of a service table: a function, or characters of a group's name. Zero: nothing there.
union NpServiceWord {
    NpServiceFn pfn;
    char szName[sizeof(NpServiceFn)];
};

inline constexpr uint32_t NP_SERVICE_WORD_NUM = 534;
// A group's header: its name, NUL-padded to 16 bytes, in four words (the first two of them where
// a word has 8 bytes), and a zero word.
inline constexpr uint32_t NP_SERVICE_NAME_SIZE = 16;
inline constexpr uint32_t NP_SERVICE_HEADER_WORDS = 5;

// The one table of the family. Writable, as a sibling or a test may put a function of its own in.
extern NpServiceWord g_stNpSDKFuncInit_TarnB[NP_SERVICE_WORD_NUM];
// Each chip's service table, null until the chip is registered.
extern NpServiceWord *g_stNpSDKFunc[NP_CHIP_NUM];

extern "C" {

// Wrappers that serve the module itself. They check the chip and jump as the exported ones do.

// Per-chip parts of the ACL rule: port fields of the 40-byte key and mask, and the read-back.
uint32_t Np_AclRule1PortInfoBulid(uint32_t ulChipID, const NpAclRule *pstRule, uint8_t *pucKey,
                                  uint8_t *pucMask);
uint32_t Np_AclRule2PortInfoBulid(uint32_t ulChipID, const NpAclRule *pstRule, uint8_t *pucKey,
                                  uint8_t *pucMask);
uint32_t Np_AclTbl_Rule1Info_Get(uint32_t ulChipID, uint32_t ulRuleID, NpAclRule *pstRule,
                                 NpAclAction *pstAction);
uint32_t Np_AclTbl_Rule2Info_Get(uint32_t ulChipID, uint32_t ulRuleID, NpAclRule *pstRule,
                                 NpAclAction *pstAction);
// TPID rows and the default row of the L3 analysis.
uint32_t Np_Tpid_Init(uint32_t ulChipID);
uint32_t Np_L3paDefaultItemCfg(uint32_t ulChipID);
// Flow tables; the 16-byte encapsulation row is per chip, pulRow its four host-order words.
uint32_t Np_L2_Init(uint32_t ulChipID);
uint32_t Np_L2_Destruct(uint32_t ulChipID);
uint32_t Np_L2_L2EncapTblBuild(uint32_t ulChipID, const Encap *pstEncap, uint32_t *pulRow);
uint32_t Np_L2_L2EncapTblParse(uint32_t ulChipID, const uint32_t *pulRow, Encap *pstEncap);
// Port record to the microcode's phy id number and back.
uint32_t Np_PortID2PhyID(uint32_t ulChipID, const NpPortID *pstPortID, uint32_t *pulPhyID);
uint32_t Np_IngressPhyID2PortID(uint32_t ulChipID, uint32_t ulPhyID, NpPortID *pstPortID);
// IP binding state; 802.1x entry at a place: pulInfo takes its status nibble.
uint32_t Np_IpBonding_Init(uint32_t ulChipID);
uint32_t Np_IpBonding_Destruct(uint32_t ulChipID);
uint32_t Np_1xSmacBondingTbl_GetByIndex(uint32_t ulChipID, uint32_t ulDstMemType, uint32_t ulIndex,
                                        Np1xSmac *pstSmac, NpPortID *pstPortID, uint32_t *pulInfo);
// Holds back the packet feed: free thread count, 0 to 63, at which it continues.
uint32_t Np_LOAD_PbaFreeThCntSet(uint32_t ulChipID, uint32_t ulCount);
// First row of a period's transmit list, 0xffff for none; ulPeriod 1 to 7. Set writes the chip
// alone.
uint32_t Np_OamTxTimerHead_Set(uint32_t ulChipID, uint32_t ulPeriod, uint32_t ulNode);
uint32_t Np_OamTxTimerHead_Get(uint32_t ulChipID, uint32_t ulPeriod, uint32_t *pulNode);

// GEM port mapping by place; filled slots that no wrapper reaches.
uint32_t Np_Tarn_GmtTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex, NpPortGmtKey *pstGmtKey,
                                   NpPortGmtData *pstGmtData);
uint32_t Np_Tarn_GmtTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex);

// The implementations, each with its wrapper's signature.
#define NP_SERVICE(ulSlot, Door, Wrapper, Impl, ulArity, State) decltype(Wrapper) Impl;
#include "sdk/frame/base/service_list.h"

}  // extern "C"

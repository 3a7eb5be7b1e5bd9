// Access rules: 320-bit CAM entries in blocks by priority, with an action each. A block may have
// holes: what a delete leaves is gathered up when its block runs out of rows, and a block that is
// full borrows a row from its nearest neighbour. Rules of a block keep their order.
#pragma once

#include "ldsdk/acl.h"
#include "ldsdk/init.h"
#include "sdk/lookup/placement.h"
#include "sdk/record/record.h"

inline constexpr uint32_t NP_ACL_KEY_SIZE = 40;
inline constexpr uint32_t NP_ACL_AD_SIZE = 16;
inline constexpr uint32_t NP_ACL_MOVE_MAX = 320;  // rows that a tidy moves at most

// A row of the CAM.
struct NpAclTcamInfo {
    uint32_t ulValid;
    uint32_t ulRuleID;
};
// A rule; what its row does not hold.
struct NpAclRuleInfo {
    uint32_t ulEntryID;  // its row, NP_PRICAM_NONE without one
    uint32_t ulMode;     // its kind
    uint32_t ulPri;
    uint32_t ulInPortNum;
    uint32_t ulEPortNum;
    uint32_t ulEType;
    uint32_t ulInType;
};
struct NpAclPriInfo {
    uint32_t ulMaxPriNum;
    uint32_t ulMaxPri;
};

extern const NpRow g_stAclRuleRow;  // key, then mask; without the ports
extern const NpRow g_stAclActionRow;
extern const NpRow g_stAclKeyArgs;

extern "C" {

// Per chip; null until init.
extern NpPriBlockPoint *g_pastAclPriPoint[NP_CHIP_NUM];     // by priority
extern NpAclTcamInfo *g_pastAclTcam2RuleInfo[NP_CHIP_NUM];  // by row
extern NpAclRuleInfo *g_pastAclRule2TcamInfo[NP_CHIP_NUM];  // by rule
extern NpAclPriInfo *g_pastAclPri[NP_CHIP_NUM];

// Makes the soft tables, takes no rule for set, and lays 20 priorities out.
uint32_t Np_Tarn_Acl_Init(uint32_t ulChipID);
uint32_t Np_Tarn_ACL_Destruct(uint32_t ulChipID);
// Lays the blocks out. Rules that are there are deleted first, as their rows are given to others;
// then the two fixed rules are set. A bad request changes nothing. NP_ERR_NULL_PTR also before
// init.
uint32_t Np_Tarn_ACL_PriBlockAssign(uint32_t ulChipID, const NpPriBlock *pstRulePriBlockInfo);
// Pointers of a layout alone.
uint32_t Np_Tarn_ACL_CamPriBlockAssign(uint32_t ulChipID, const NpPriBlock *pstPriBlockInfo);

uint32_t Np_Tarn_AclRuleAndActionSet(uint32_t ulChipID, uint32_t ulRuleID, const NpAclRule *pstRule,
                                     const NpAclAction *pstAction);
uint32_t Np_Tarn_AclOnlyRuleSet(uint32_t ulChipID, uint32_t ulRuleID, const NpAclRule *pstRule);
uint32_t Np_Tarn_AclOnlyActionSet(uint32_t ulChipID, uint32_t ulRuleID,
                                  const NpAclAction *pstAction);
// *pulEntryID: the rule's row, NP_PRICAM_NONE for a new rule. NP_ERR_PRIORITY, NP_ERR_ACL_MODE.
uint32_t Np_Tarn_ACL_BaseInfoGet(uint32_t ulChipID, uint32_t ulRuleID, const NpAclRule *pstRule,
                                 uint32_t *pulEntryID);
// A free row of a block, tidied or borrowed if need be. The codes of moves.
uint32_t Np_Tarn_AclEntryAssign(uint32_t ulChipID, uint32_t ulPri, uint32_t *pulEntryID);
// NP_ERR_ACL_BLOCK_FULL, or 0.
uint32_t Np_Tarn_ACL_IsPriBlockFull(uint32_t ulChipID, uint32_t ulPri);
// Gathers a block's rules at its high end.
uint32_t Np_Tarn_ACL_PriBlockTidy(uint32_t ulChipID, uint32_t ulPri);
// The nearest block that has room, tidied: its priority, how far it is, and whether it is above, 1,
// or below, 0.
uint32_t Np_Tarn_ACL_ClosestPirBlockSearch(uint32_t ulChipID, uint32_t ulPri,
                                           uint32_t *pulDirection, uint32_t *pulDonorPri,
                                           uint32_t *pulDistance);
// Shifts the rows between a block and its donor by one.
uint32_t Np_Tarn_ACL_CamBlockMove(uint32_t ulChipID, uint32_t ulDirection, uint32_t ulPri,
                                  uint32_t ulDonorPri, uint32_t ulDistance);

}  // extern "C"

// Rule and action as commands have them: a rule that is new gets an action of zeros.
uint32_t Np_AclRuleOnly_Get(uint32_t ulChipID, uint32_t ulRuleID, NpAclRule *pstRule);
uint32_t Np_AclRuleOnly_Set(uint32_t ulChipID, uint32_t ulRuleID, const NpAclRule *pstRule);

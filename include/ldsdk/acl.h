/* Access control rules: a 320-bit match with a priority and an action.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_ACL_H
#define LDSDK_ACL_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

typedef struct NpAclRule NpAclRule;
typedef struct NpAclAction NpAclAction;

/* Adds a rule, rewrites it, or rewrites one half of it: pstRule, pstAction or both are given.
   ulRuleID 0 to 0x9f. The priority and the kind of an existing rule cannot change:
   NP_ERR_PRIORITY, NP_ERR_ACL_MODE. NP_ERR_NOT_EXIST: action alone for a rule without a row.
   Further codes: those of the CAM. */
NP_API uint32_t Np_AclTbl_Set(uint32_t ulChipID, uint32_t ulRuleID, const NpAclRule *pstRule,
                              const NpAclAction *pstAction);

/* Reads a rule back; either record may be null. NP_ERR_NOT_EXIST: no such rule. */
NP_API uint32_t Np_AclTbl_Get(uint32_t ulChipID, uint32_t ulRuleID, NpAclRule *pstRule,
                              NpAclAction *pstAction);

/* Removes a rule; NP_OK when there is none. Its row stays a hole until the block is short of
   rows. */
NP_API uint32_t Np_AclTbl_Del(uint32_t ulChipID, uint32_t ulRuleID);

/* The action of an existing rule alone, which leaves the match untouched. NP_ERR_NOT_EXIST: no
   such rule. */
NP_API uint32_t Np_AclActionTbl_Set(uint32_t ulChipID, uint32_t ulRuleID,
                                    const NpAclAction *pstAction);
NP_API uint32_t Np_AclActionTbl_Get(uint32_t ulChipID, uint32_t ulRuleID, NpAclAction *pstAction);

NP_EXTERN_C_END

#endif

/* Access control rules: a 320-bit match with a priority and an action.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_ACL_H
#define LDSDK_ACL_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* Ports of one side: a port and those behind it, or a slot under a mask. */
typedef struct NpAclPortInfo {
    uint32_t ulType; /* 0 a port, 1 user defined */
    union {
        struct {
            NpPortID stPortID; /* checked when ulPortNum is not 0 */
        } stport;
        struct {
            uint32_t ulSlotID;   /* 0 to 7 */
            uint32_t ulSlotMask; /* 0 to 7; 1 bits count */
        } stUserDef;
    } unPortInfo;
    uint32_t ulPortNum; /* 0 for any port, else a power of two: so many ports from this one on */
} NpAclPortInfo;

typedef struct NpAclVlan {
    uint32_t ulPri;    /* 0 to 7 */
    uint32_t ulCfi;    /* 0, 1 */
    uint32_t ulVlanID; /* 0 to 0xfff */
} NpAclVlan;

/* What a packet has. A mask has the same form: its 1 bits count, and it is not checked. */
typedef struct NpAclFields {
    uint32_t ulEthType;        /* 0 to 0xffff */
    uint32_t ulTos;            /* 0 to 0xff */
    uint32_t ulIpProtocol;     /* 0 to 0xff */
    uint32_t ulSport;          /* 0 to 0xffff */
    uint32_t ulDport;          /* 0 to 0xffff */
    uint32_t ulFlowLabel;      /* 0 to 0xfffff */
    uint32_t ulHaInfo;         /* 0 to 0x7f */
    uint32_t ulTagNum;         /* tags, 0 to 3 */
    uint32_t ulFragmentOffset; /* 0, 1 */
    uint32_t ulPtype;          /* 0 to 0xff */
    NpAclVlan stOuterVlan;
    NpAclVlan stInnerVlan;
    union {
        struct { /* kind 0 */
            uint32_t ulIp4Sip;
            uint32_t ulIp4Dip;
            uint8_t aucDmac[6];
            uint8_t aucSmac[6];
        } stRule1;
        struct { /* kind 1: 64 bits of each address, the first word first */
            uint32_t aulIp6Sip[2];
            uint32_t aulIp6Dip[2];
        } stRule2;
    } unAddress;
} NpAclFields;

typedef struct NpAclRule {
    uint32_t ulType; /* 0 IPv4 and MACs, 1 IPv6 */
    uint32_t ulPri;  /* greater is better; below the number of priorities, 20 at first */
    NpAclPortInfo stEgressPort;
    NpAclPortInfo stIngressPort;
    NpAclFields stKey;
    NpAclFields stMask;
} NpAclRule;

/* What happens to packets of a rule; values as the microcode takes them. */
typedef struct NpAclAction {
    uint32_t ulFwd;                /* 0 to 3 */
    uint32_t ulAction;             /* 0 to 3 */
    uint32_t ulRaw;                /* 0, 1 */
    uint32_t ulCarEnable;          /* 0, 1 */
    uint32_t ulCarTempletID;       /* 0 to 0xff */
    uint32_t ulStatEnable;         /* 0, 1 */
    uint32_t ulAclCarCntID;        /* 0 to 0x9f */
    uint32_t ulQueuePriModifyMode; /* 0 to 7 */
    uint32_t ulIcos;               /* 0 to 7 */
    uint32_t ulPriModifyEnable;    /* 0, 1 */
    uint32_t ulPri;                /* 0 to 7 */
    uint32_t ulTosDscpModifyMode;  /* 0 to 3 */
    uint32_t ulTosDscp;            /* mode 1: 0 to 63; mode 2: 0 to 7; else of no account */
    uint32_t ulPcopyMode;          /* 0 to 3 */
    uint32_t ulPtype;              /* 0 to 0x7ff, of which 10 bits are stored */
    uint32_t ulChannelID;          /* 0 to 0xf */
} NpAclAction;

/* This family's CAM has rows for rules only under the option "acl"; without it all functions answer
   NP_ERR_NULL_PTR. */

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

/* Source checks: IP binding, source MAC binding, MAC filter, user MACs, anti-DoS.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_SECU_H
#define LDSDK_SECU_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

typedef struct NpCmDos NpCmDos;

/* Addresses of a flow or a bundle: one IPv4 address, or the first 64 bits of an IPv6 address, words
   0 and 1, under their mask, whose 1 bits count. */
typedef struct NpIpBonding {
    union {
        uint32_t ulIpv4;
        uint32_t aulIpv6[4]; /* first group of the address in the high half of word 0 */
    } unIp;
    uint32_t ulIpv6Mask[4];
} NpIpBonding;

typedef struct Np1xSmac {
    uint8_t aucMacAddr[6];
} Np1xSmac;

/* A port, as an NpPortID, and a MAC that is filtered there. */
typedef struct NpMacFilterKey {
    uint32_t ulPortType;
    uint32_t ulPortID;
    uint32_t ulSubPortID;
    uint32_t ulPri;
    uint32_t ulAD; /* 4 bits, as the microcode takes them */
    uint8_t aucMacAddr[6];
} NpMacFilterKey;

typedef struct NpPortDos {
    uint32_t ulThread;     /* 0 to 0x1ff */
    uint32_t ulValid;      /* 0, 1; 0 clears the port's counter */
    uint32_t ulEnable;     /* 0, 1 */
    uint32_t ulForceToCpu; /* 0, 1 */
    uint32_t ulAtk;        /* 0, 1 */
    uint32_t ulTimer;      /* seconds, 0 to 838; one for the chip, 0 stops the check */
} NpPortDos;

/* Addresses bound to a flow, ulFlowID 0 to 0x1ff. ulIpType 0 IPv4, 1 IPv6 (its first 64 bits
   and their mask). Set adds one; NP_OK when it is there already, NP_ERR_TABLE_FULL when the
   chip holds no more. Get: pulSize gives the room in records, above 0, and takes their number;
   NP_ERR_NOT_EXIST without any. Del: ulDelMode 0 the one of pstIpBonding, 1 all; NP_OK when
   there is nothing to delete. Further codes: those of the hash table or the CAM. */
NP_API uint32_t Np_IpFlow_Set(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulFlowID,
                              const NpIpBonding *pstIpBonding);
NP_API uint32_t Np_IpFlow_Get(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulFlowID,
                              NpIpBonding *pstIpBonding, uint32_t *pulSize);
NP_API uint32_t Np_IpFlow_Del(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulFlowID,
                              uint32_t ulDelMode, const NpIpBonding *pstIpBonding);

/* Addresses bound to a flow bundle, ulFlowBundleID 0 to 31. ulIpType 0 IPv4, 1 IPv6 (its first
   64 bits and their mask). Set adds one; NP_OK when it is there already, NP_ERR_TABLE_FULL when
   the chip holds no more. Get: pulSize gives the room in records, above 0, and takes their
   number; NP_ERR_NOT_EXIST without any. Del: ulDelMode 0 the one of pstIpBonding, 1 all; NP_OK
   when there is nothing to delete. Further codes: those of the hash table or the CAM. */
NP_API uint32_t Np_IpFlowBundle_Set(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulFlowBundleID,
                                    const NpIpBonding *pstIpBonding);
NP_API uint32_t Np_IpFlowBundle_Get(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulFlowBundleID,
                                    NpIpBonding *pstIpBonding, uint32_t *pulSize);
NP_API uint32_t Np_IpFlowBundle_Del(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulFlowBundleID,
                                    uint32_t ulDelMode, const NpIpBonding *pstIpBonding);

/* 802.1x source MAC bound to a port. Get gives the port back as the table holds it;
   NP_ERR_NOT_EXIST without an entry. Further codes: NP_ERR_TABLE_FULL, NP_ERR_PORT_PARAM, the
   port conversions'. */
NP_API uint32_t Np_1xSmacBondingTbl_Set(uint32_t ulChipID, const Np1xSmac *pstSmac,
                                        const NpPortID *pstPortID);
NP_API uint32_t Np_1xSmacBondingTbl_Get(uint32_t ulChipID, Np1xSmac *pstSmac, NpPortID *pstPortID);
NP_API uint32_t Np_1xSmacBondingTbl_Del(uint32_t ulChipID, const Np1xSmac *pstSmac,
                                        const NpPortID *pstPortID);

/* MAC filter by port and MAC, with a 4-bit ulAD. Get fills the record back from the table;
   NP_ERR_NOT_EXIST without an entry. Further codes: NP_ERR_TABLE_FULL, the port conversions'. */
NP_API uint32_t Np_MacFilter_Set(uint32_t ulChipID, const NpMacFilterKey *pstMacFilter);
NP_API uint32_t Np_MacFilter_Get(uint32_t ulChipID, NpMacFilterKey *pstMacFilter);
NP_API uint32_t Np_MacFilter_Del(uint32_t ulChipID, const NpMacFilterKey *pstMacFilter);

/* A user MAC and the virtual MAC that stands for it. */
typedef struct NpUvt {
    uint32_t ulUmacUsed;   /* 0, 1: the user MAC has an entry of type 15 in the MAC table */
    uint32_t ulVmacUsed;   /* 0, 1: the virtual MAC has an entry */
    uint32_t ulUsed;       /* 0, 1 */
    uint32_t ulStaticFlag; /* 0, 1: the pair was set by hand */
    uint8_t aucVmac[6];
    uint8_t aucUmac[6];
} NpUvt;

/* User MAC row: user and virtual MAC and their flags. ulIndex 0 to 511. */
NP_API uint32_t Np_UvtTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpUvt *pstUvt);
NP_API uint32_t Np_UvtTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpUvt *pstUvt);

/* Changes the static flag of a user MAC row alone, atomically, under the microcode's hands.
   ulStaticFlag 0 or 1. */
NP_API uint32_t Np_UvtTblStaticFlag_Set(uint32_t ulChipID, uint32_t ulIndex, uint32_t ulStaticFlag);

/* Anti-DoS limit of a port. ulIndex up to 0x1ff (the table has 64 rows and refuses the rest
   with NP_ERR_ADDRESS), ulThread up to 0x1ff, ulTimer up to 838, one value for the chip. Set
   restarts the anti-DoS message. */
NP_API uint32_t Np_PortDosTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpPortDos *pstDos);
NP_API uint32_t Np_PortDosTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpPortDos *pstDos);

/* The same checks for cable modem groups. Not offered by this family: NP_ERR_UNREGISTERED. */
NP_API uint32_t Np_CmDosTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpCmDos *pstDos);
NP_API uint32_t Np_CmDosTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpCmDos *pstDos);
NP_API uint32_t Np_CmIpBonding_Set(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulCmGroupID,
                                   const NpIpBonding *pstIpBonding);
NP_API uint32_t Np_CmIpBonding_Get(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulCmGroupID,
                                   NpIpBonding *pstIpBonding, uint32_t *pulSize);
NP_API uint32_t Np_CmIpBonding_Del(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulCmGroupID,
                                   uint32_t ulDelMode, const NpIpBonding *pstIpBonding);

NP_EXTERN_C_END

#endif

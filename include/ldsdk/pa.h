/* Packet analysis: TPIDs, the L2 and L3 analysis CAMs, and the treatment of packet types.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_PA_H
#define LDSDK_PA_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* What is done with a packet that matches: of the two analysis CAMs and of the table outside them.
 */
typedef struct NpPaAd {
    uint32_t ulUniAction;          /* at a user port: 0 forward, 1 snooping, 2 drop, 3 CPU */
    uint32_t ulNniAction;          /* the same at a network port */
    uint32_t ulBlockSensitive;     /* 0 or 1 */
    uint32_t ulSuppressCtrlEnable; /* 0 or 1 */
    uint32_t ulQinQSensitive;      /* 0 or 1 */
    uint32_t ulEthTypeMask;        /* bits: 1 IPv4, 2 IPv6, 4 PPPoE, 8 others */
    uint32_t ulPttSensitive;       /* 0 or 1: whether ulPttOffset counts */
    uint32_t ulPttType;            /* 0 PTT1, 1 PTT2 */
    uint32_t ulPttOffset;          /* 0 to 255; L3 entries match on that of the L2 entry */
    uint32_t ulPppLcpEnable;       /* 0 or 1 */
    uint32_t ulVmacNTo1Enable;     /* 0 or 1 */
    uint32_t ulAnalyseCtrl;        /* 0 none, 1 IPv4, 2 IPv6, 3 PPPoE, 7 others */
    uint32_t ulAccelerateL2Type;   /* 0 unknown, 16 PPP, 32 unicast, 40 to the device, 44 to a port,
                                      48 multicast, 56 broadcast */
    uint32_t ulAccelerateL3Type;   /* 0 unknown, 6 and 7 MPLS, 9 to 11 IPv4, 12 and 13 IPv6 */
    uint32_t ulExcpInfoType;       /* 0 none, 1 ulExcpInfo is a packet type */
    uint32_t ulExcpInfo;           /* 0 to 2047 */
    uint32_t ulOam;                /* 0 or 1 */
    uint32_t ulCasSensitive;       /* 0 or 1 */
    uint32_t ulForceTrans;         /* 0 or 1 */
    uint32_t ulMacSpf;             /* 0 or 1 */
    uint32_t ulDosEnable;          /* 0 or 1 */
} NpPaAd;

/* Keys and masks have the same fields. A 1 in a mask is a bit that takes part in the match; a key
   bit under a 0 reads back as 0. */
typedef struct NpL2paKey {
    uint32_t ulHaInfo;  /* result of the HA rules, 0 to 127 */
    uint32_t ulEthType; /* 0 to 0xffff */
    uint32_t ulTagInfo; /* 0 to 3 */
    uint8_t aucDmac[6];
} NpL2paKey;

typedef struct NpL2pa {
    NpL2paKey stKey;
    NpL2paKey stKeyMask; /* not tested; what is wider than its field is cut */
    NpPaAd stAD;
    uint32_t ulPri; /* the greater number wins */
} NpL2pa;

typedef struct NpL3paPpp {
    uint32_t ulPppoeDisCode; /* 0 to 255 */
    uint32_t ulPppProtocol;  /* 0 to 0xffff */
    uint32_t ulLcpOpCode;    /* 0 to 255 */
    uint32_t ulIpProtocol;   /* 0 to 255 */
} NpL3paPpp;

typedef struct NpL3paIpv4 {
    uint32_t ulIpProtocol;   /* 0 to 255 */
    uint32_t ulFirstFrgFlag; /* 0 or 1 */
    uint8_t aucIpPayload[4];
} NpL3paIpv4;

typedef struct NpL3paIpv6 {
    uint32_t ulNextHeader; /* 0 to 255 */
    uint8_t aucIpPayload[4];
} NpL3paIpv6;

typedef struct NpL3paOthers {
    uint8_t aucPayload[7];
} NpL3paOthers;

typedef struct NpL3paKey {
    uint32_t ulEncap;     /* encapsulation, 0 to 15 */
    uint32_t ulHaInfo;    /* 0 to 127 */
    uint32_t ulPttOffset; /* what the L2 entry gave, 0 to 255 */
    union {
        NpL3paPpp stPpp;       /* ulKeyType 0 */
        NpL3paIpv4 stIpv4;     /* 1 */
        NpL3paIpv6 stIpv6;     /* 2 */
        NpL3paOthers stOthers; /* 3 */
    } unKey;
} NpL3paKey;

typedef struct NpL3pa {
    NpL3paKey stKey;
    NpL3paKey stKeyMask; /* not tested; what is wider than its field is cut */
    NpPaAd stAD;
    uint32_t ulPri;     /* the greater number wins */
    uint32_t ulKeyType; /* 0 to 3; the host keeps it, as the row has it not */
} NpL3pa;

typedef struct NpPta {
    uint32_t ulFwdCtrl;            /* 0 to 3 */
    uint32_t ulIntrEnable;         /* 0 or 1 */
    uint32_t ulCarEnable;          /* 0 or 1 */
    uint32_t ulPtclEnable;         /* 0 or 1 */
    uint32_t ulCntID;              /* 0 to 3 */
    uint32_t ulLrnSmacEnable;      /* 0 or 1 */
    uint32_t ulWredID;             /* 0 to 255 */
    uint32_t ulPieCh;              /* 0 to 7 */
    uint32_t ulQID;                /* 0 to 511 */
    uint32_t ulPtypeCarID;         /* 0 to 255 */
    uint32_t ulCarProfileID;       /* 0 to 255 */
    uint32_t ulIntrID;             /* 0 to 31 */
    uint32_t ulUserCNTEnable;      /* 0 or 1 */
    uint32_t ulCntGroupID;         /* 0 to 3 */
    uint32_t ulLrnFrcToCpu;        /* 0 or 1 */
    uint32_t ulUserToCpuCarEnable; /* 0 or 1 */
    uint32_t ulCarGroupID;         /* 0 to 3 */
} NpPta;

typedef struct NpPtt1 {
    uint32_t ulType; /* the view: 0 entries, 1 words */
    union {
        uint8_t aucPtt1[256]; /* 0 to 3 each */
        uint32_t aulPtt1[16]; /* the row as it stands */
    } unPtt;
} NpPtt1;

/* L2 analysis entry, named by a key id of the caller's choice, ulL2paID 0 to 127 (127 is the
   default row). Set adds it or rewrites it in place; its priority, at most the number of
   priorities less one, cannot change: NP_ERR_PRIORITY. Get: NP_ERR_NOT_EXIST without an entry;
   Del: NP_OK without one. Further codes: NP_ERR_TABLE_FULL, those of the CAM. */
NP_API uint32_t Np_L2paTbl_Set(uint32_t ulChipID, uint32_t ulL2paID, const NpL2pa *pstL2pa);
NP_API uint32_t Np_L2paTbl_Get(uint32_t ulChipID, uint32_t ulL2paID, NpL2pa *pstL2pa);
NP_API uint32_t Np_L2paTbl_Del(uint32_t ulChipID, uint32_t ulL2paID);

/* Whether the L2 analysis entry takes part in matching: 1 yes, 0 it stays in the table without
   matching, wherever it is moved to. Set puts it in force again. NP_ERR_NOT_EXIST without an
   entry. */
NP_API uint32_t Np_L2paTbl_SetState(uint32_t ulChipID, uint32_t ulL2paID, uint32_t ulState);
NP_API uint32_t Np_L2paTbl_GetState(uint32_t ulChipID, uint32_t ulL2paID, uint32_t *pulState);

/* L3 analysis entry, named by a key id of the caller's choice, ulL3paID 0 to 63 (63 is the
   default row). Set adds it or rewrites it in place; its priority, at most the number of
   priorities less one, cannot change: NP_ERR_PRIORITY. Get: NP_ERR_NOT_EXIST without an entry;
   Del: NP_OK without one. Further codes: NP_ERR_TABLE_FULL, those of the CAM. */
NP_API uint32_t Np_L3paTbl_Set(uint32_t ulChipID, uint32_t ulL3paID, const NpL3pa *pstL3pa);
NP_API uint32_t Np_L3paTbl_Get(uint32_t ulChipID, uint32_t ulL3paID, NpL3pa *pstL3pa);
NP_API uint32_t Np_L3paTbl_Del(uint32_t ulChipID, uint32_t ulL3paID);

/* Whether the L3 analysis entry takes part in matching: 1 yes, 0 it stays in the table without
   matching, wherever it is moved to. Set puts it in force again. NP_ERR_NOT_EXIST without an
   entry. */
NP_API uint32_t Np_L3paTbl_SetState(uint32_t ulChipID, uint32_t ulL3paID, uint32_t ulState);
NP_API uint32_t Np_L3paTbl_GetState(uint32_t ulChipID, uint32_t ulL3paID, uint32_t *pulState);

/* Treatment of a packet type: queue, CAR, counters, interrupt. ulIndex 0 to 1023. */
NP_API uint32_t Np_PtaTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpPta *pstPta);
NP_API uint32_t Np_PtaTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpPta *pstPta);

/* Protocol template row. ulPtt1ID 0 to 255. ulType of the record chooses its view, on Get too:
   0 the 256 entries of 0 to 3, 1 the 16 words as they stand, unchecked; above that NP_ERR_PARAM. */
NP_API uint32_t Np_Ptt1Tbl_Set(uint32_t ulChipID, uint32_t ulPtt1ID, const NpPtt1 *pastPtt1);
NP_API uint32_t Np_Ptt1Tbl_Get(uint32_t ulChipID, uint32_t ulPtt1ID, NpPtt1 *pastPtt1);

/* Analysis action outside the CAMs. ulIndex 0 to 63. */
NP_API uint32_t Np_PaExtTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpPaAd *pstPaAd);
NP_API uint32_t Np_PaExtTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpPaAd *pstPaAd);

/* The configurable inner and outer TPID, below 0x10000, beside the fixed 0x8100, 0x9100 and
   0x9200. Further codes: those of the CAM and of the driver. */
NP_API uint32_t Np_InnerTpid_Set(uint32_t ulChipID, uint32_t ulInnerTpid);
NP_API uint32_t Np_InnerTpid_Get(uint32_t ulChipID, uint32_t *pulInnerTpid);
NP_API uint32_t Np_OuterTpid_Set(uint32_t ulChipID, uint32_t ulOuterTpid);
NP_API uint32_t Np_OuterTpid_Get(uint32_t ulChipID, uint32_t *pulOuterTpid);

NP_EXTERN_C_END

#endif

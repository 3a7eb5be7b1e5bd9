/* Flow tables and the multi-service classification in front of them.
   Rows are written whole. Further codes of the row functions: NP_ERR_ADDRESS, NP_ERR_REG_READ,
   NP_ERR_REG_WRITE.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_L2_H
#define LDSDK_L2_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* A rule's source: a port, or another number. */
typedef struct NpPortPvc {
    NpPortID stPortID;
    uint32_t ulPvcID; /* 0 to 7 */
} NpPortPvc;

typedef struct NpSrcIntf {
    uint32_t ulType; /* 0 a port, 1 a LAG, 2 an NHLFE; up to 7 */
    union {
        NpPortPvc stPortInfo; /* ulType 0 */
        uint32_t ulLagID;     /* any other: 0 to 0x1fff */
    } unSrcIntf;
} NpSrcIntf;

/* A classification rule. The mask of a field is a switch: with any value but 0 the whole field
   counts, with 0 the field matches anything. ulSrcIntfMask alone is a mask of bits. */
typedef struct NpMultiService {
    uint32_t ulMutiServicePri; /* priority block, 0 to 7 after bring-up; the greater number wins */
    uint32_t ulSrcIntfSelType; /* 0: source by stSrcIntf, 1: by ulSrcIntf and ulSrcIntfMask */
    NpSrcIntf stSrcIntf;
    uint32_t ulSrcIntf;     /* the microcode's number of the source, 0 to 0x3f */
    uint32_t ulOuterVlanID; /* 0 to 4095 */
    uint32_t ulInnerVlanID; /* 0 to 4095; tested, no part of the key */
    uint32_t ulOuterVlan1p; /* 0 to 7 */
    uint32_t ulInnerVlan1p; /* 0 to 7; no part of the key */
    uint32_t ulEthTypeMask; /* bits: 1 IPv4, 2 IPv6, 4 PPPoE, 8 others */
    uint32_t ulEnCap;       /* encapsulation, 0 to 15; no part of the key */
    uint32_t ulVlanN;       /* tags: 0 none, 2 one, 3 two */
    uint32_t ulGmt;         /* 0 or 1 */
    uint32_t ulHaValue;     /* result of the HA rules, 0 to 127; the CAM has its low four bits */
    uint32_t ulSrcIntfMask;
    uint32_t ulOuterVlanIDMask;
    uint32_t ulInnerVlanIDMask;
    uint32_t ulOuterVlan1pMask;
    uint32_t ulInnerVlan1pMask;
    uint32_t ulEthTypeMaskMask;
    uint32_t ulEnCapMask;
    uint32_t ulVlanNMask;
    uint32_t ulGmtMask; /* reads as 1 */
    uint32_t ulHaValueMask;
    uint32_t ulIftID;    /* input flow of the packets that match, 0 to 1023 */
    uint32_t ulCmEnable; /* 0 or 1; this and what follows is tested and not stored */
    uint32_t ulCmGroupID;
    uint32_t ulCmBip4Enable;
    uint32_t ulTosMask;
    uint32_t ulTos;
} NpMultiService;

/* ulVmacEnable says which of ulVmacID, or ulSmacHeadID and ulSmacData, is stored; the others read
   back as 0. ulMirrorID is tested only if ulMirrorEnable is 1. */
typedef struct IflowAttr {
    uint32_t ulFwdMode; /* 0 forward, 1 snoop, 2 drop, 3 to the CPU */
    uint32_t ulBlockEnable;
    uint32_t ulTlsEnable;
    uint32_t ulByPassEnable;
    uint32_t ulBundleEnable; /* ulOftID is a bundle */
    uint32_t ulLearnEable;
    uint32_t ulBip4Enable;
    uint32_t ulBip6Enable;
    uint32_t ulDirectEnable;
    uint32_t ulMcDiscardEnable;
    uint32_t ulCarProfile; /* 0 to 255 */
    uint32_t ulPriTagFwd;  /* 1: forward priority-tagged packets */
    uint32_t ulTagInMode;  /* 0 without VLAN, 1 with */
    uint32_t ulTagCheckEnble;
    uint32_t ulFwdType;        /* 0 drop, 1 forward */
    uint32_t ulTopTagType;     /* 0 to 3: 0x8100, 0x9100, 0x9200, the global one */
    uint32_t ulBotTagType;     /* as ulTopTagType */
    uint32_t ulVlanTagDelOp;   /* tags to delete, 0 to 3 */
    uint32_t ulVlanTagAddOp;   /* tags to add, 0 to 3 */
    uint32_t ulVsi;            /* 0 to 15 */
    int32_t iCarModifyGene;    /* -128 to 127 */
    uint32_t ulTop1pMode;      /* 0 to 7: not modified, priority, PCP map, IP map, DSCP */
    uint32_t ulBot1pMode;      /* as ulTop1pMode */
    uint32_t ulIcosMode;       /* as ulTop1pMode; 5: the channel's priority */
    uint32_t ulIcos;           /* 0 to 7 */
    uint32_t ulTopPri;         /* 0 to 7 */
    uint32_t ulBotPri;         /* 0 to 7 */
    uint32_t ulTopVlanID;      /* 0 to 4095 */
    uint32_t ulBotVlanID;      /* 0 to 4095 */
    uint32_t ulOuterMapID;     /* 0 to 7 */
    uint32_t ulInnerMapID;     /* 0 to 7 */
    uint32_t ulHs;             /* horizontal split, 0 to 255 */
    uint32_t ulPppOeVmacMode;  /* 0 to 3: no swap, one to one, many to one */
    uint32_t ulNpppOeVmacMode; /* as ulPppOeVmacMode */
    uint32_t ulQinQ;
    uint32_t ulOa2OeValid;
    uint32_t ulOftID; /* output flow, 0 to 1023 */
    uint32_t ulVmacEnable;
    uint32_t ulSmacHeadID; /* 0 to 31 */
    uint32_t ulSmacData;   /* 0 to 1023 */
    uint32_t ulDmacID;     /* 0 to 255 */
    uint32_t ulVmacID;     /* 0 to 32767 */
    uint32_t ulCarMode;    /* 0 to 7: off, 1 by multicast, 4 to 7 profiles 0 to 3 */
    uint32_t ulMirrorEnable;
    uint32_t ulMirrorID;         /* 0 to 15 */
    uint32_t ulAoeCwOrSessionID; /* 0 to 65535 */
    uint32_t ulOamFilterEnable;
    uint32_t ulAntiDosEnable;
} IflowAttr;

/* ulMirrorID is tested only if ulMirrorEnable is 1. */
typedef struct OflowAttr {
    uint32_t ulFwdMode; /* 0 forward, 1 snoop, 2 drop, 3 to the CPU */
    uint32_t ulBlockEnable;
    uint32_t ulByPassEnable;
    uint32_t ulUnknownMcDiscardEnable;
    uint32_t ulMcUnCheckEnable;
    uint32_t ulPppOeVmacEnable;
    uint32_t ulNpppOeVmacEnable;
    uint32_t ulCarProfile;  /* 0 to 255 */
    uint32_t ulEthtypeMask; /* bits: 1 IPv4, 2 IPv6, 4 PPPoE, 8 others */
    uint32_t ulHs;          /* horizontal split, 0 to 255 */
    struct {
        uint32_t ulType; /* 0 to 7: 1 VIT, 2 encapsulation, 3 ECMP, 4 next hop, 5 FIB, 6 LAG */
        uint32_t ulLogicPortID; /* 0 to 1023 for types 3 and 4, else 0 to 8191 */
    } stLogicPort;
    struct {
        uint32_t ulTagInNum; /* 0 to 3 */
    } stVlanCheck;
    uint32_t ulBvlanCheckEnable;
    uint32_t ulTagCheckEnable;
    uint32_t ulCvlanID;     /* 0 to 4095 */
    uint32_t ulBotVlanID;   /* 0 to 4095 */
    uint32_t ulCpriMode;    /* 0 to 7: not modified, 2 top, 3 bottom, 4 DSCP map, 7 IP map */
    uint32_t ulCpri;        /* 0 to 7 */
    uint32_t ulDefaultICos; /* 0 to 7 */
    uint32_t ulMapID;       /* 0 to 7 */
    uint32_t ulTagType;     /* 0 to 3: 0x8100, 0x9100, 0x9200, the global one */
    uint32_t ulIcosMode;    /* as ulCpriMode; 5: the channel's priority */
    uint32_t ulCvlanAddEnable;
    uint32_t ulVlanTagDelOp; /* tags to delete, 0 to 3 */
    uint32_t ulMirrorEnable;
    uint32_t ulMirrorID; /* 0 to 15 */
    uint32_t ulCarMode;  /* 0 to 7: off, 1 by multicast, 4 to 7 profiles 0 to 3 */
    uint32_t ulTosMask;  /* 0 to 255 */
    uint32_t ulTos;      /* 0 to 255 */
    uint32_t ulWredMode; /* 0 to 3 */
    uint32_t ulIpoeVmacNto1Enable;
    uint32_t ulCmEnable;
    uint32_t ulUserID; /* 0 to 511 */
} OflowAttr;

/* Flows 0 to 1023. */
typedef struct NpFlowBundle {
    uint32_t ulFlowID0;
    uint32_t ulFlowID1;
    uint32_t ulFlowID2;
    uint32_t ulFlowID3;
    uint32_t ulFlowID4;
    uint32_t ulFlowID5;
    uint32_t ulFlowID6;
    uint32_t ulFlowID7;
} NpFlowBundle;

/* ulApsID has no place in the row and reads back as 0. */
typedef struct Encap {
    uint32_t ulType; /* 0 to 7 */
    uint32_t ulDirectEnable;
    uint32_t ulMirrorEnable;
    uint32_t ulAtm;
    uint32_t ulPtm;
    uint32_t ulPvcID;    /* 0 to 7 */
    uint32_t ulL3Intf;   /* 0 to 31 */
    uint32_t ulDeviceID; /* 0 to 15 */
    uint32_t ulApsID;
    uint32_t ulHS;            /* its low 8 bits */
    NpPortID stPort;          /* the row has the low 7 bits of its number */
    uint32_t ulBackUpL2Encap; /* 0 to 4095 */
    uint32_t ulIcosMap[8];    /* 0 to 7 */
    uint32_t ulMirrorID;      /* 0 to 15 */
    uint32_t ulQbase;         /* 0 to 511 */
    uint32_t ulWredID;        /* 0 to 255 */
    uint32_t ulIfbEfb;        /* 0 IFB, 1 EFB */
    int32_t iCorrectLen;      /* bytes, -64 to 63 */
    uint32_t ulAoeEncapType;  /* 0 POS, 1 UTP */
    uint32_t ulCarMode;       /* 0 by flow, 1 by port and priority */
    uint32_t aulLevel[8];     /* 0 or 1 */
    uint32_t ulMtu;           /* bytes, 0 to 4095 */
    uint32_t ulSlotID;        /* 0 to 7 */
    uint32_t ulCpuFlag;       /* its low bit */
} Encap;

typedef struct NpDefaultFlowID {
    uint32_t ulFlowID; /* 0 to 1023 */
} NpDefaultFlowID;

typedef struct NpGemportMap {
    uint32_t ulValid;
    uint32_t ulGemportIndex; /* 0 to 31 */
} NpGemportMap;

typedef struct NpFlowLmt {
    uint32_t ulLimitNumber;
} NpFlowLmt;

typedef struct NpBundleLmt {
    uint32_t ulLimitNumber;
} NpBundleLmt;

typedef struct NpGlobalMacLmt {
    uint32_t ulLimitNumber;
} NpGlobalMacLmt;

typedef struct NpDmac {
    uint8_t aucMac[6];
} NpDmac;

typedef struct NpSmacPool {
    uint8_t aucMac[6];
} NpSmacPool;

/* Without fields in this family. */
typedef struct NpCmGroup NpCmGroup;
typedef struct NpCmClass NpCmClass;
typedef struct NpCmLmt NpCmLmt;

/* Classification rule of the key ulKeyID, 0 to 1023, with a priority below the number of
   priority blocks, 8 after bring-up. Set adds or rewrites in place; NP_ERR_PRIORITY
   when the key has a rule of another priority, NP_ERR_TABLE_FULL, the codes of the CAM. Get:
   NP_ERR_NOT_EXIST without a rule; it fills only what the CAM holds. Del: NP_OK without a rule. */
NP_API uint32_t Np_MultiServiceTbl_Set(uint32_t ulChipID, uint32_t ulKeyID,
                                       const NpMultiService *pstMultiService);
NP_API uint32_t Np_MultiServiceTbl_Get(uint32_t ulChipID, uint32_t ulKeyID,
                                       NpMultiService *pstMultiService);
NP_API uint32_t Np_MultiServiceTbl_Del(uint32_t ulChipID, uint32_t ulKeyID);

/* Input flow with its extension row. ulFlowID 0 to 1023. */
NP_API uint32_t Np_IflowTbl_Set(uint32_t ulChipID, uint32_t ulFlowID,
                                const IflowAttr *pstIflowAttr);
NP_API uint32_t Np_IflowTbl_Get(uint32_t ulChipID, uint32_t ulFlowID, IflowAttr *pstIflowAttr);

/* Output flow with its user id row. ulFlowID 0 to 1023. */
NP_API uint32_t Np_OflowTbl_Set(uint32_t ulChipID, uint32_t ulFlowID,
                                const OflowAttr *pstOflowAttr);
NP_API uint32_t Np_OflowTbl_Get(uint32_t ulChipID, uint32_t ulFlowID, OflowAttr *pstOflowAttr);

/* The eight flow ids of a bundle, each 0 to 1023. ulBundleID 0 to 31. */
NP_API uint32_t Np_FlowBundleTbl_Set(uint32_t ulChipID, uint32_t ulBundleID,
                                     const NpFlowBundle *pstFlowBundle);
NP_API uint32_t Np_FlowBundleTbl_Get(uint32_t ulChipID, uint32_t ulBundleID,
                                     NpFlowBundle *pstFlowBundle);

/* L2 encapsulation with its MTU. ulIndex 0 to 31. Further codes: NP_ERR_PORT_PARAM, the port
   conversions', NP_ERR_SMEM_READ, NP_ERR_SMEM_WRITE. */
NP_API uint32_t Np_L2EncapTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const Encap *pstEncap);
NP_API uint32_t Np_L2EncapTbl_Get(uint32_t ulChipID, uint32_t ulIndex, Encap *pstEncap);

/* The flow, 0 to 1023, of packets that no rule matches. ulIndex 0. */
NP_API uint32_t NP_DefaultFlowIDTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                        const NpDefaultFlowID *pstDefaultFlowID);
NP_API uint32_t NP_DefaultFlowIDTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                        NpDefaultFlowID *pstDefaultFlowID);

/* GEM port to GEM port index, 0 to 31. ulGemportId 0 to 4095. Del writes the record that it is
   given, normally all zero. */
NP_API uint32_t Np_GemportMapTbl_Set(uint32_t ulChipID, uint32_t ulGemportId,
                                     const NpGemportMap *pstGemportMap);
NP_API uint32_t Np_GemportMapTbl_Get(uint32_t ulChipID, uint32_t ulGemportId,
                                     NpGemportMap *pstGemportMap);
NP_API uint32_t Np_GemportMapTbl_Del(uint32_t ulChipID, uint32_t ulGemportId,
                                     const NpGemportMap *pstGemportMap);

/* How many MACs may be learned, 0 to 65535: per flow (ulFlowID 0 to 1023), per bundle
   (ulBundleID 0 to 31), on the chip (ulIndex 0). Set moves the hardware counter by the
   difference to the old limit; Get answers from the host's copy, without the chip. Further codes:
   those of the counters; NP_ERR_NULL_PTR before bring-up. */
NP_API uint32_t Np_FlowLmtTbl_Set(uint32_t ulChipID, uint32_t ulFlowID, uint32_t ulLimitNumber);
NP_API uint32_t Np_FlowLmtTbl_Get(uint32_t ulChipID, uint32_t ulFlowID, NpFlowLmt *pstFlowLmt);
NP_API uint32_t Np_BundleLmtTbl_Set(uint32_t ulChipID, uint32_t ulBundleID, uint32_t ulLimitNumber);
NP_API uint32_t Np_BundleLmtTbl_Get(uint32_t ulChipID, uint32_t ulBundleID,
                                    NpBundleLmt *pstBundleLmt);
NP_API uint32_t Np_GlobalMacLmtTbl_Set(uint32_t ulChipID, uint32_t ulIndex, uint32_t ulLimitNumber);
NP_API uint32_t Np_GlobalMacLmtTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                       NpGlobalMacLmt *pstGlobalMacLmt);

/* Destination MAC rows, ulIndex 0 to 255, and source MAC pool, ulIndex 0 to 31. Not offered by
   this family: NP_ERR_UNREGISTERED. */
NP_API uint32_t Np_DmacTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpDmac *pstDmac);
NP_API uint32_t Np_DmacTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpDmac *pstDmac);
NP_API uint32_t Np_SmacPoolTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                   const NpSmacPool *pstSmacPool);
NP_API uint32_t Np_SmacPoolTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpSmacPool *pstSmacPool);

/* Cable modem group, class and limit rows. Not offered by this family: NP_ERR_UNREGISTERED. */
NP_API uint32_t Np_CmGroupTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpCmGroup *pstCmGroup);
NP_API uint32_t Np_CmGroupTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpCmGroup *pstCmGroup);
NP_API uint32_t Np_CmClassTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpCmClass *pstCmClass);
NP_API uint32_t Np_CmClassTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpCmClass *pstCmClass);
NP_API uint32_t Np_CmLmtTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpCmLmt *pstCmLmt);
NP_API uint32_t Np_CmLmtTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpCmLmt *pstCmLmt);

NP_EXTERN_C_END

#endif

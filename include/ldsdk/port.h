/* Port tables.
   Rows are written whole. Further codes of all functions here: NP_ERR_ADDRESS, NP_ERR_REG_READ,
   NP_ERR_REG_WRITE; of those that take a port: NP_ERR_PORT_PARAM and the port conversions'.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_PORT_H
#define LDSDK_PORT_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

typedef struct NpNativeVlan {
    uint32_t ulPri;    /* 0 to 7 */
    uint32_t ulCfi;    /* 0, 1 */
    uint32_t ulVlanID; /* 0 to 4095 */
} NpNativeVlan;

/* What the microcode does with a port's packets before it knows more of them. */
typedef struct NpPortPct {
    uint32_t ulValid; /* 0, 1, as are all ..Enable, ulL2c, ulD2W, ulMpls, ulCas */
    uint32_t ulBlockEnable;
    uint32_t ulPctPortType;       /* 0 ether, 1 ptm, 2 gpon, 3 epon, 4 ch, 6 dsa, 7 higig, 8 ppp,
                                     9 atm, 15 cesop, 16 voip, 17 prbs, 18 wap, 19 cpu */
    uint32_t ulUserID;            /* 0 to 0x1ff; also the port's row of virtual MACs */
    uint32_t ulMacFilter;         /* 0 to 3 */
    uint32_t ulRole;              /* 0 to 3; 1 UNI, 2 NNI */
    uint32_t ulProtocolTempletId; /* cut to 8 bits */
    uint32_t ul1xEnable;
    uint32_t ul3ahLoopEnable;
    uint32_t ul3AhEnable;
    uint32_t ul3AhCnID; /* 0 to 15 */
    uint32_t ulMode;    /* 0 to 3; 0 hybrid, 1 trunk, 2 access */
    uint32_t ulVlanSenseEnable;
    uint32_t ulVlanCheckID; /* 0 to 7 */
    uint32_t ulL2encIdx;    /* cut to 5 bits */
    uint32_t ulL2c;
    uint32_t ulHS; /* cut to 8 bits */
    uint32_t ulD2W;
    uint32_t ullrn;           /* 0, 1 */
    uint32_t ulMacLimitFwd;   /* cut to 1 bit */
    uint32_t ulMacLimitToCpu; /* cut to 1 bit */
    uint32_t ulMpls;
    uint32_t ulLmEnable;
    uint32_t ulCarMode; /* 0 flow, 1 port and priority */
    uint32_t ulCarEnable;
    uint32_t ulCarID;      /* 0 to 0xff */
    uint32_t ulCarProfile; /* 0 to 0xff */
    uint32_t ulLagID;      /* 0 to 15 */
    uint32_t ulDfxEnable;
    uint32_t ulGmtMode; /* 0 to 15 */
    uint32_t ulPvtMode; /* 0 off, 1 port, 2 port and VLAN, 3 flow */
    uint32_t ulMirrorEnable;
    uint32_t ulMirrorID; /* 0 to 15 */
    uint32_t ulTlsEnable;
    uint32_t ulPfeEnable;
    uint32_t ulL3Enable;
    uint32_t ulPtpID; /* this, stBondingPort and ulChid: not in the row */
    NpNativeVlan stNativeVlan;
    uint32_t ulCas;
    NpPortID stBondingPort;
    uint32_t ulChid;
    uint32_t ulClass;  /* 0 to 3; 1 low, 2 high */
    uint32_t ulSlotID; /* 0 to 7; not in the row */
} NpPortPct;

typedef struct NpPortVmacInfo {
    uint32_t ulVmacBase;   /* first row of the user MAC table, 0 to 0xfff */
    uint32_t ulVmacNumber; /* rows, 0 to 32 */
} NpPortVmacInfo;

/* Fields of a packet that a GEM port mapping rule compares, and the rule's row. */
typedef struct NpPortGmtKey {
    uint32_t ulGmtMode; /* 0 to 15, the fields that count: bit 0 VLAN, 1 priority, 2 ToS, 3 port */
    uint32_t ulSportType; /* source port, as an NpPortID; from a number of 64 on the rule is that */
    uint32_t ulSportID;   /* of the port 64 below as well. A read leaves both ports as they are */
    uint32_t ulSsubPortID;
    uint32_t ulSPri;
    uint32_t ulDportType; /* destination port, not in the row */
    uint32_t ulDportID;
    uint32_t ulDsubPortID;
    uint32_t ulDPri;
    uint32_t ulTos;          /* 0 to 255 */
    uint32_t ulPcp;          /* 0 to 7 */
    uint32_t ulVID;          /* 0 to 4095 */
    uint32_t ulGemportIndex; /* 0 to 511; of several rules that match, the lowest counts */
} NpPortGmtKey;

typedef struct NpPortGmtData {
    uint32_t ulGemportID;    /* 0 to 0xfff */
    uint32_t ulQueueOffset;  /* 0 to 0xff */
    uint32_t ulCarProfile;   /* 0 to 0xff */
    uint32_t ulGemportCarID; /* 0 to 0x1ff */
    uint32_t ulIcosMode;     /* cut to 3 bits */
    uint32_t ulIcos;         /* cut to 4 bits; there if ulIcosMode is 0 */
} NpPortGmtData;

typedef struct NpPortGemportBitMapInfo {
    uint32_t ulHS; /* cut to 8 bits */
} NpPortGemportBitMapInfo;

typedef struct NpPortGemportLoopQid {
    uint32_t ulValid; /* cut to 1 bit */
    uint32_t ulQid;   /* 0 to 0xffff, cut to 15 bits */
} NpPortGemportLoopQid;

typedef struct NpPortL2Encp {
    uint32_t ulL2Encp; /* 0 to 0xfff */
} NpPortL2Encp;

typedef struct NpPortTrunk {
    uint32_t ulLbType; /* 0 to 15 */
    NpPortL2Encp astL2Encp[8];
} NpPortTrunk;

typedef struct NpPortVoipChannel {
    uint32_t ulIP;
    uint32_t ulVoipFlowID; /* 0 to 1023 */
} NpPortVoipChannel;

typedef struct NpPortCarProfile {
    uint32_t aulCarProfile[8]; /* 0 to 0xff each */
} NpPortCarProfile;

typedef struct NpPtypeCarInfo {
    uint32_t ulValid;     /* 0, 1 */
    uint32_t ulThreshold; /* 0 to 0xff */
} NpPtypeCarInfo;

typedef struct NpPortToCpuPtypeCarInfo {
    NpPtypeCarInfo astPtypeCarInfo[4];
} NpPortToCpuPtypeCarInfo;

/* Encapsulation of a PVC: 0 eth, 1 ch_eth, 2 ppp, 3 ch_ppp, 4 eth_dsa, 5 eth_higi, 6 atm_cell,
   8 ipoa_llc, 9 1483b_llc, 10 pppoa_llc, 11 aoe, 12 ipoa_vcmax, 13 1483b_vcmax, 14 pppoa_vcmax. */
typedef struct NpPortPvcEnc {
    uint32_t ulPvcEnc; /* 0 to 15 */
} NpPortPvcEnc;

typedef struct NpPortAtmEncap {
    NpPortPvcEnc astPvcEnc[8];
} NpPortAtmEncap;

typedef struct NpCesopEncapKeyPw {
    uint32_t ulPwID; /* 0 to 0xfffff */
} NpCesopEncapKeyPw;

typedef struct NpCesopEncapKeyConnectID {
    uint32_t ulConnectID; /* 0 to 0xfff */
} NpCesopEncapKeyConnectID;

typedef struct NpCesopEncapKeyDport {
    uint32_t ulUdpDport; /* 0 to 0xffff */
} NpCesopEncapKeyDport;

typedef struct NpPortCesopKey {
    uint32_t ulDirection; /* 0 up, 1 down */
    uint32_t ulEncapMode; /* 0 pw, 1 lsp, 2 ctid, 3 dport; up to 15 */
    union {
        NpCesopEncapKeyPw stCesopEncapKeyPw;               /* 0 */
        NpCesopEncapKeyPw stCesopEncapKeyLsp;              /* 1 */
        NpCesopEncapKeyConnectID stCesopEncapKeyConnectID; /* 2 */
        NpCesopEncapKeyDport stCesopEncapKeyDport;         /* 3 */
    } unCesopEnacpKey;
} NpPortCesopKey;

typedef struct NpCesopEncapDataPw {
    uint32_t ulPwID;          /* 0 to 0xfffff */
    uint32_t ulExp;           /* 0 to 7 */
    uint32_t ulIsStackBottom; /* 0, 1 */
    uint32_t ulTtl;           /* 0 to 255 */
} NpCesopEncapDataPw;

typedef struct NpCesopEncapDataLsp {
    uint32_t ulLabelID;       /* 0 to 0xfffff */
    uint32_t ulExp;           /* 0 to 7 */
    uint32_t ulIsStackBottom; /* 0, 1 */
    uint32_t ulTtl;           /* 0 to 255 */
    NpCesopEncapDataPw stPw;  /* the label inside */
} NpCesopEncapDataLsp;

typedef struct NpCesopEncapDataConnectID {
    uint32_t ulTpID; /* 0 to 0xffff */
    NpNativeVlan stInnerVlan;
} NpCesopEncapDataConnectID;

typedef struct NpCesopEncapDataDport {
    uint32_t ulCesTunnelId; /* 0 to 31 */
    uint32_t ulCwLen;       /* 0 to 0xffff */
} NpCesopEncapDataDport;

typedef struct NpPortCesopData {
    uint32_t ulEncapMode; /* as in the key */
    uint32_t ulFlowID;    /* 0 to 1023 */
    union {
        NpCesopEncapDataPw pstCesopEnacpDataPw;               /* 0 */
        NpCesopEncapDataLsp pstCesopEnacpDataLsp;             /* 1 */
        NpCesopEncapDataConnectID pstCesopEnacpDataConnectID; /* 2 */
        NpCesopEncapDataDport pstCesopEnacpDataDport;         /* 3 */
    } unCesopEnacpData;
} NpPortCesopData;

typedef struct NpPortIpUdpEncapInfo {
    uint32_t ulTos; /* 0 to 255 */
    uint32_t ulTtl; /* 0 to 255 */
    uint32_t ulSip;
    uint32_t ulDip;
    uint32_t ulSport; /* 0 to 0xffff */
    uint32_t ulDport; /* 0 to 0xffff */
} NpPortIpUdpEncapInfo;

/* Port configuration, the row of the port pstPortID. */
NP_API uint32_t Np_PctTbl_Set(uint32_t ulChipID, const NpPortID *pstPortID,
                              const NpPortPct *pstPct);
NP_API uint32_t Np_PctTbl_Get(uint32_t ulChipID, const NpPortID *pstPortID, NpPortPct *pstPct);

/* GEM port mapping rule, at the row that ulGemportIndex of the key names, 0 to 511; ulGmtMode
   says which key fields are compared: bit 0 VLAN, 1 priority, 2 ToS, 3 port. Get fills the
   key's fields that the CAM holds. Del leaves the data row. Further codes: those of the CAM. */
NP_API uint32_t Np_GmtTbl_Set(uint32_t ulChipID, const NpPortGmtKey *pstGmtKey,
                              const NpPortGmtData *pstGmtData);
NP_API uint32_t Np_GmtTbl_Get(uint32_t ulChipID, NpPortGmtKey *pstGmtKey,
                              NpPortGmtData *pstGmtData);
NP_API uint32_t Np_GmtTbl_Del(uint32_t ulChipID, const NpPortGmtKey *pstGmtKey);

/* GEM port bitmap byte, 4096 of them, and loop queue. ulGemportId, ulIndex 0 to 4095. Further
   codes of the queue: NP_ERR_SMEM_READ, NP_ERR_SMEM_WRITE. */
NP_API uint32_t Np_GemportBitMapTbl_Set(uint32_t ulChipID, uint32_t ulGemportId,
                                        const NpPortGemportBitMapInfo *pstGemportBitMapInfo);
NP_API uint32_t Np_GemportBitMapTbl_Get(uint32_t ulChipID, uint32_t ulGemportId,
                                        NpPortGemportBitMapInfo *pstGemportBitMapInfo);
NP_API uint32_t Np_GemportLoopQidTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                         const NpPortGemportLoopQid *pstGemportLoopQid);
NP_API uint32_t Np_GemportLoopQidTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                         NpPortGemportLoopQid *pstGemportLoopQid);

/* Link aggregation group: balancing type, 0 to 15, and eight encapsulations. ulTrunkGroupID 0
   to 15. */
NP_API uint32_t Np_LagTbl_Set(uint32_t ulChipID, uint32_t ulTrunkGroupID,
                              const NpPortTrunk *pstTrunk);
NP_API uint32_t Np_LagTbl_Get(uint32_t ulChipID, uint32_t ulTrunkGroupID, NpPortTrunk *pstTrunk);

/* A range of virtual MACs: base 0 to 0xfff, number 0 to 32. ulVmacInfoID 0 to 31. */
NP_API uint32_t Np_VmacInfoTbl_Set(uint32_t ulChipID, uint32_t ulVmacInfoID,
                                   const NpPortVmacInfo *pstVmacInfo);
NP_API uint32_t Np_VmacInfoTbl_Get(uint32_t ulChipID, uint32_t ulVmacInfoID,
                                   NpPortVmacInfo *pstVmacInfo);

/* VoIP channel: IPv4 address and flow, 0 to 1023. ulChannelID 0 to 511. */
NP_API uint32_t Np_VoipChannelTbl_Set(uint32_t ulChipID, uint32_t ulChannelID,
                                      const NpPortVoipChannel *pstVoipChannel);
NP_API uint32_t Np_VoipChannelTbl_Get(uint32_t ulChipID, uint32_t ulChannelID,
                                      NpPortVoipChannel *pstVoipChannel);

/* Eight CAR profiles, 0 to 255 each, for up and down. ulIndex 0 to 31. */
NP_API uint32_t Np_UpCarProfileTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                       const NpPortCarProfile *pstCarProfile);
NP_API uint32_t Np_UpCarProfileTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                       NpPortCarProfile *pstCarProfile);
NP_API uint32_t Np_DownCarProfileTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                         const NpPortCarProfile *pstCarProfile);
NP_API uint32_t Np_DownCarProfileTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                         NpPortCarProfile *pstCarProfile);

/* Limits on a user's packets to the CPU, four classes; the counter of a class that is not valid
   is cleared. ulUserID 0 to 31. */
NP_API uint32_t Np_PortToCpuPtypeCarTbl_Set(uint32_t ulChipID, uint32_t ulUserID,
                                            const NpPortToCpuPtypeCarInfo *pstToCpuPtypeCarInfo);
NP_API uint32_t Np_PortToCpuPtypeCarTbl_Get(uint32_t ulChipID, uint32_t ulUserID,
                                            NpPortToCpuPtypeCarInfo *pstToCpuPtypeCarInfo);

/* ATM encapsulation of a port's eight PVCs, and of one of them (ulPvcIndex 0 to 7), 0 to 15
   each. Not offered by this family: NP_ERR_UNREGISTERED. */
NP_API uint32_t Np_AtmEncapTbl_Set(uint32_t ulChipID, const NpPortID *pstPortID,
                                   const NpPortAtmEncap *pstAtmEncap);
NP_API uint32_t Np_AtmEncapTbl_Get(uint32_t ulChipID, const NpPortID *pstPortID,
                                   NpPortAtmEncap *pstAtmEncap);
NP_API uint32_t Np_AtmEncapTblPvcItem_Set(uint32_t ulChipID, const NpPortID *pstPortID,
                                          uint32_t ulPvcIndex, const NpPortPvcEnc *pstPvcEnc);
NP_API uint32_t Np_AtmEncapTblPvcItem_Get(uint32_t ulChipID, const NpPortID *pstPortID,
                                          uint32_t ulPvcIndex, NpPortPvcEnc *pstPvcEnc);

/* Circuit emulation: the map by pseudo wire, path, connection or UDP port, and the IP and UDP
   header of a tunnel (ulCesTunnelId 0 to 31). Not offered by this family: NP_ERR_UNREGISTERED. */
NP_API uint32_t Np_CesopMapTbl_Set(uint32_t ulChipID, const NpPortCesopKey *pstCesopMapKey,
                                   const NpPortCesopData *pstCesopMapData);
NP_API uint32_t Np_CesopMapTbl_Get(uint32_t ulChipID, const NpPortCesopKey *pstCesopMapKey,
                                   NpPortCesopData *pstCesopMapData);
NP_API uint32_t Np_CesopMapTbl_Del(uint32_t ulChipID, const NpPortCesopKey *pstCesopMapKey,
                                   const NpPortCesopData *pstCesopMapData);
NP_API uint32_t Np_IpUdpEncapInfoTbl_Set(uint32_t ulChipID, uint32_t ulCesTunnelId,
                                         const NpPortIpUdpEncapInfo *pstIpUdpEnacpInfo);
NP_API uint32_t Np_IpUdpEncapInfoTbl_Get(uint32_t ulChipID, uint32_t ulCesTunnelId,
                                         NpPortIpUdpEncapInfo *pstIpUdpEnacpInfo);

NP_EXTERN_C_END

#endif

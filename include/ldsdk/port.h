/* Port tables.
   Rows are written whole. Further codes of all functions here: NP_ERR_ADDRESS, NP_ERR_REG_READ,
   NP_ERR_REG_WRITE; of those that take a port: NP_ERR_PORT_PARAM and the port conversions'.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_PORT_H
#define LDSDK_PORT_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

typedef struct NpPortGmtKey NpPortGmtKey;
typedef struct NpPortGmtData NpPortGmtData;
typedef struct NpPortGemportBitMapInfo NpPortGemportBitMapInfo;
typedef struct NpPortGemportLoopQid NpPortGemportLoopQid;
typedef struct NpPortTrunk NpPortTrunk;
typedef struct NpPortVoipChannel NpPortVoipChannel;
typedef struct NpPortCarProfile NpPortCarProfile;
typedef struct NpPortToCpuPtypeCarInfo NpPortToCpuPtypeCarInfo;
typedef struct NpPortAtmEncap NpPortAtmEncap;
typedef struct NpPortPvcEnc NpPortPvcEnc;
typedef struct NpPortCesopKey NpPortCesopKey;
typedef struct NpPortCesopData NpPortCesopData;
typedef struct NpPortIpUdpEncapInfo NpPortIpUdpEncapInfo;

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

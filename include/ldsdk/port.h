/* Port tables.
   Rows are written whole. Further codes of all functions here: NP_ERR_ADDRESS, NP_ERR_REG_READ,
   NP_ERR_REG_WRITE; of those that take a port: NP_ERR_PORT_PARAM and the port conversions'.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_PORT_H
#define LDSDK_PORT_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

typedef struct NpPortPct NpPortPct;
typedef struct NpPortGmtKey NpPortGmtKey;
typedef struct NpPortGmtData NpPortGmtData;
typedef struct NpPortGemportBitMapInfo NpPortGemportBitMapInfo;
typedef struct NpPortGemportLoopQid NpPortGemportLoopQid;
typedef struct NpPortTrunk NpPortTrunk;
typedef struct NpPortVmacInfo NpPortVmacInfo;
typedef struct NpPortVoipChannel NpPortVoipChannel;
typedef struct NpPortCarProfile NpPortCarProfile;
typedef struct NpPortToCpuPtypeCarInfo NpPortToCpuPtypeCarInfo;
typedef struct NpPortAtmEncap NpPortAtmEncap;
typedef struct NpPortPvcEnc NpPortPvcEnc;
typedef struct NpPortCesopKey NpPortCesopKey;
typedef struct NpPortCesopData NpPortCesopData;
typedef struct NpPortIpUdpEncapInfo NpPortIpUdpEncapInfo;

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

/* Match rules of the hardware pre-classifier; each gives the analysis tables its ulHaInfo, 0 to
   127.
   A Set on an installed filter deletes and adds, so that the rule does not match in between.
   Get gives NP_ERR_NOT_EXIST when the filter was never set; Del gives NP_OK then. Codes of the
   driver pass through.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_HA_H
#define LDSDK_HA_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* ulHaInfo is 0 to 127 in all records. */

typedef struct NpSmacFilter {
    uint8_t aucMac[6];
    uint32_t ulHaInfo;
} NpSmacFilter;

typedef struct NpDmacFilter {
    uint8_t aucMac[6];
    uint32_t ulHaInfo;
} NpDmacFilter;

typedef struct NpErrorSample {
    uint8_t aucMac[6];
    uint8_t aucMacMask[6]; /* 1: the bit is compared */
    uint32_t ulHaInfo;
} NpErrorSample;

typedef struct NpDmacMatch {
    uint8_t aucMac[6];
    uint8_t aucMacMask[6]; /* 1: the bit is compared */
    uint32_t ulHaInfo;
    uint32_t ulPqmPri; /* 0 to 3 */
} NpDmacMatch;

typedef struct NpVlanMatch {
    uint32_t ulVlan; /* 0 to 4095 */
    uint32_t ulHaInfo;
    uint32_t ulPqmPri; /* 0 to 3 */
} NpVlanMatch;

typedef struct NpAcmClock {
    uint32_t ulEthType;
    uint32_t ulVlanID; /* 0 to 4095 */
    uint32_t ulDstIpv4;
    uint32_t ulSrcUdpPort; /* 0 to 0xffff */
    uint32_t ulDstUdpPort; /* 0 to 0xffff */
    uint8_t aucDmac[6];
    uint32_t ulHaInfo;
} NpAcmClock;

typedef struct NpL2Packet {
    uint32_t ulTagNum;  /* 0 to 3 */
    uint32_t ulEthType; /* 0 to 0xffff */
    uint8_t aucMac[6];
    uint32_t ulHaInfo;
} NpL2Packet;

typedef struct NpNonBroadcastGemport {
    uint32_t ulGemportID;    /* 0 to 4095 */
    uint32_t ulFilterEnable; /* 0 or 1 */
    uint32_t ulHaInfo;
} NpNonBroadcastGemport;

typedef struct NpNonBroadcastLlid {
    uint32_t ulEponType;     /* 0 EPON, 1 10G EPON */
    uint32_t ulFilterEnable; /* 0 or 1 */
    uint32_t ulHaInfo;
} NpNonBroadcastLlid;

typedef struct NpIpv4Multicast {
    uint32_t ulIp;
    uint32_t ulIpMask;       /* 1: the bit is compared */
    uint32_t ulFilterEnable; /* 0 or 1 */
    uint32_t ulHaInfo;
} NpIpv4Multicast;

typedef struct NpIpv6Multicast {
    uint32_t ulIp;           /* one word of the address: the chip's field has 32 bits */
    uint32_t ulIpMask;       /* 1: the bit is compared */
    uint32_t ulFilterEnable; /* 0 or 1 */
    uint32_t ulHaInfo;
} NpIpv6Multicast;

typedef struct NpIpv4Udp {
    uint32_t ulIp;
    uint32_t ulIpMask; /* 1: the bit is compared */
    uint32_t ulUdpDport;
    uint32_t ulFilterEnable; /* 0 or 1 */
    uint32_t ulHaInfo;
} NpIpv4Udp;

/* Source and destination MAC filters. ulFilterID 0 to 7. */
NP_API uint32_t Np_SmacFilterTbl_Set(uint32_t ulChipID, uint32_t ulFilterID,
                                     const NpSmacFilter *pstSmac);
NP_API uint32_t Np_SmacFilterTbl_Get(uint32_t ulChipID, uint32_t ulFilterID, NpSmacFilter *pstSmac);
NP_API uint32_t Np_SmacFilterTbl_Del(uint32_t ulChipID, uint32_t ulFilterID);
NP_API uint32_t Np_DmacFilterTbl_Set(uint32_t ulChipID, uint32_t ulFilterID,
                                     const NpDmacFilter *pstDmac);
NP_API uint32_t Np_DmacFilterTbl_Get(uint32_t ulChipID, uint32_t ulFilterID, NpDmacFilter *pstDmac);
NP_API uint32_t Np_DmacFilterTbl_Del(uint32_t ulChipID, uint32_t ulFilterID);

/* Destination MAC with a mask whose 1 bits are compared: error samples, ulIndex 0 and 1, and
   destination matches, ulIndex 0 to 2, which also take ulPqmPri, 0 to 3. */
NP_API uint32_t Np_ErrorSampleTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                      const NpErrorSample *pstSample);
NP_API uint32_t Np_ErrorSampleTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                      NpErrorSample *pstSample);
NP_API uint32_t Np_ErrorSampleTbl_Del(uint32_t ulChipID, uint32_t ulIndex);
NP_API uint32_t Np_DmacMatchTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                    const NpDmacMatch *pstDmacMatch);
NP_API uint32_t Np_DmacMatchTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpDmacMatch *pstDmacMatch);
NP_API uint32_t Np_DmacMatchTbl_Del(uint32_t ulChipID, uint32_t ulIndex);

/* Clock recovery packets, by MAC, VLAN, ether type, IPv4 address and UDP ports. ulIndex 0. */
NP_API uint32_t Np_AcmClockTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                   const NpAcmClock *pstAcmClock);
NP_API uint32_t Np_AcmClockTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpAcmClock *pstAcmClock);
NP_API uint32_t Np_AcmClockTbl_Del(uint32_t ulChipID, uint32_t ulIndex);

/* VLAN id match, ulIndex 0 to 3. It shares the rules of the destination matches: use one kind
   or the other at an index. */
NP_API uint32_t Np_VlanMatchPktHaInfo_Set(uint32_t ulChipID, uint32_t ulIndex,
                                          const NpVlanMatch *pstVlanMatch);
NP_API uint32_t Np_VlanMatchPktHaInfo_Get(uint32_t ulChipID, uint32_t ulIndex,
                                          NpVlanMatch *pstVlanMatch);
NP_API uint32_t Np_VlanMatchPktHaInfo_Del(uint32_t ulChipID, uint32_t ulIndex);

/* Destination MAC, ether type and tag count. ulFilterID 0. */
NP_API uint32_t Np_L2PacketFilterTbl_Set(uint32_t ulChipID, uint32_t ulFilterID,
                                         const NpL2Packet *pstL2Packet);
NP_API uint32_t Np_L2PacketFilterTbl_Get(uint32_t ulChipID, uint32_t ulFilterID,
                                         NpL2Packet *pstL2Packet);
NP_API uint32_t Np_L2PacketFilterTbl_Del(uint32_t ulChipID, uint32_t ulFilterID);

/* The ulHaInfo of an all-zero and of a group source MAC, one value for both. Get gives
   NP_ERR_PARAM when the two rules differ. */
NP_API uint32_t Np_IllegalSmacHaInfo_Set(uint32_t ulChipID, uint32_t ulHaInfo);
NP_API uint32_t Np_IllegalSmacHaInfo_Get(uint32_t ulChipID, uint32_t *pulHaInfo);

/* The ulHaInfo of packets from the PIE. */
NP_API uint32_t Np_PiePktHaInfo_Set(uint32_t ulChipID, uint32_t ulHaInfo);
NP_API uint32_t Np_PiePktHaInfo_Get(uint32_t ulChipID, uint32_t *pulHaInfo);

/* The ulHaInfo of one ether type, below 0x10000. */
NP_API uint32_t Np_SpecialEthPktHaInfo_Set(uint32_t ulChipID, uint32_t ulEthType,
                                           uint32_t ulHaInfo);
NP_API uint32_t Np_SpecialEthPktHaInfo_Get(uint32_t ulChipID, uint32_t *pulEthType,
                                           uint32_t *pulHaInfo);

/* ATM over Ethernet packets of a VLAN. Not offered by this family: NP_ERR_UNREGISTERED. */
NP_API uint32_t Np_AoePktHaInfo_Set(uint32_t ulChipID, uint32_t ulVlanID, uint32_t ulHaInfo);
NP_API uint32_t Np_AoePktHaInfo_Get(uint32_t ulChipID, uint32_t *pulVlanID, uint32_t *pulHaInfo);

/* Packets of a GPON port whose GEM port is not ulGemportID, the broadcast one, and packets of an
   EPON port on a logical link below the broadcast ones of its kind. One rule serves both: use one
   or the other. */
NP_API uint32_t Np_NonBroadcastGemportFilter_Set(
    uint32_t ulChipID, const NpNonBroadcastGemport *pstNonBroadcastGemport);
NP_API uint32_t Np_NonBroadcastGemportFilter_Get(uint32_t ulChipID,
                                                 NpNonBroadcastGemport *pstNonBroadcastGemport);
NP_API uint32_t Np_NonBroadcastGemportFilter_Del(uint32_t ulChipID);
NP_API uint32_t Np_NonBroadcastLlidFilter_Set(uint32_t ulChipID,
                                              const NpNonBroadcastLlid *pstNonBroadcastLlid);
NP_API uint32_t Np_NonBroadcastLlidFilter_Get(uint32_t ulChipID,
                                              NpNonBroadcastLlid *pstNonBroadcastLlid);
NP_API uint32_t Np_NonBroadcastLlidFilter_Del(uint32_t ulChipID);

/* IP destination with a mask whose 1 bits are compared: IPv4 and IPv6 multicast, and IPv4 with
   a UDP destination port. */
NP_API uint32_t Np_Ipv4MulticastFilter_Set(uint32_t ulChipID,
                                           const NpIpv4Multicast *pstIpv4Multicast);
NP_API uint32_t Np_Ipv4MulticastFilter_Get(uint32_t ulChipID, NpIpv4Multicast *pstIpv4Multicast);
NP_API uint32_t Np_Ipv4MulticastFilter_Del(uint32_t ulChipID);
NP_API uint32_t Np_Ipv6MulticastFilter_Set(uint32_t ulChipID,
                                           const NpIpv6Multicast *pstIpv6Multicast);
NP_API uint32_t Np_Ipv6MulticastFilter_Get(uint32_t ulChipID, NpIpv6Multicast *pstIpv6Multicast);
NP_API uint32_t Np_Ipv6MulticastFilter_Del(uint32_t ulChipID);
NP_API uint32_t Np_Ipv4FilterWithUdp_Set(uint32_t ulChipID, const NpIpv4Udp *pstIpv4Udp);
NP_API uint32_t Np_Ipv4FilterWithUdp_Get(uint32_t ulChipID, NpIpv4Udp *pstIpv4Udp);
NP_API uint32_t Np_Ipv4FilterWithUdp_Del(uint32_t ulChipID);

NP_EXTERN_C_END

#endif

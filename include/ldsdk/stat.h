/* Statistics counters. Get reads a counter, Set overwrites it; setting zero clears it.
   A row of a counter is read in one access, so that its words belong together. Further codes of
   all functions here: those of the counters, NP_ERR_SMEM_READ, NP_ERR_SMEM_WRITE.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_STAT_H
#define LDSDK_STAT_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

typedef struct NpIflowCnt {
    uint32_t ulPktCnt;
    uint32_t ulByteCnt;
    uint32_t ulDropCnt;
    uint32_t ulToCpuCnt; /* 0 to 0xffff */
} NpIflowCnt;
typedef struct NpOflowCnt {
    uint32_t ulPktCnt;
    uint32_t ulByteCnt;
    uint32_t ulDropCnt;
    uint32_t ulFrmCpuPktCnt; /* 0 to 0xffff */
    uint32_t ulToCpuCnt;     /* 0 to 0xffff */
} NpOflowCnt;
typedef struct NpMcCnt {
    uint32_t ulPktCnt;
    uint32_t ulByteCnt;
} NpMcCnt;
typedef struct NpAclCnt {
    uint32_t ulPktCnt;
    uint32_t ulByteCnt;
} NpAclCnt;
typedef struct NpCapCnt {
    uint32_t ulPtypeCnt;
} NpCapCnt;
typedef struct NpVoipCnt {
    uint32_t ulPktCnt;
} NpVoipCnt;
typedef struct NpPtypeCnt {
    uint32_t ulPktCnt;
} NpPtypeCnt;
typedef struct NpPppoeSessionCnt {
    uint32_t ulPktCnt;
    uint32_t ulByteCnt;
} NpPppoeSessionCnt;
typedef struct NpPppLcpCnt {
    uint32_t ulPktCnt; /* cut to 16 bits */
} NpPppLcpCnt;
typedef struct NpMcleafCnt {
    uint32_t ulPktCnt;
} NpMcleafCnt;
typedef struct NpPortPtypeCnt {
    uint32_t ulPktCnt; /* cut to 16 bits */
} NpPortPtypeCnt;
typedef struct NpOamTxCnt {
    uint32_t ulSendPktCnt;
} NpOamTxCnt;
typedef struct NpOamRxCnt {
    uint32_t ulReceivePktCnt;
} NpOamRxCnt;
typedef struct NpPortToCpuPtypeCnt {
    uint32_t aulPassPktCnt[4]; /* by class, cut to 16 bits */
    uint32_t aulDropPktCnt[4]; /* the same */
} NpPortToCpuPtypeCnt;
typedef struct Np3ahCnt {
    uint32_t ulWindowSize;
    uint32_t ulPassCnt;
    uint32_t ulErrorWindowSize;
    uint32_t ulErrorCnt;
} Np3ahCnt;
typedef struct NpGlbQueueStat {
    uint32_t ulPktCnt;     /* 28 bits */
    uint32_t ulByteCnt[2]; /* low word, high 4 bits */
} NpGlbQueueStat;
typedef struct NpGlbPriStat {
    uint32_t ulIPktCnt;
    uint32_t ulIDropCnt;
    uint32_t ulEPktCnt;
    uint32_t ulEDropCnt;
} NpGlbPriStat;
typedef struct NpLmCnt NpLmCnt;
typedef struct NpLmRecordCnt NpLmRecordCnt;
typedef struct NpLmRxCnt NpLmRxCnt;
typedef struct NpDmRxCnt NpDmRxCnt;
typedef struct NpOamSlStat NpOamSlStat;

/* Input flow: packets, bytes, drops, packets to the CPU (16 bits). ulFlowID 0 to 1023. */
NP_API uint32_t Np_IflowStatTbl_Get(uint32_t ulChipID, uint32_t ulFlowID, NpIflowCnt *pstIflowCnt);
NP_API uint32_t Np_IflowStatTbl_Set(uint32_t ulChipID, uint32_t ulFlowID,
                                    const NpIflowCnt *pstIflowCnt);

/* Output flow: as the input flow, and packets from the CPU (16 bits). ulFlowID 0 to 1023. */
NP_API uint32_t Np_OflowStatTbl_Get(uint32_t ulChipID, uint32_t ulFlowID, NpOflowCnt *pstOflowCnt);
NP_API uint32_t Np_OflowStatTbl_Set(uint32_t ulChipID, uint32_t ulFlowID,
                                    const NpOflowCnt *pstOflowCnt);

/* Multicast packets and bytes. ulMcCntID 0 to 3. */
NP_API uint32_t Np_McStatTbl_Get(uint32_t ulChipID, uint32_t ulMcCntID, NpMcCnt *pstMcCnt);
NP_API uint32_t Np_McStatTbl_Set(uint32_t ulChipID, uint32_t ulMcCntID, const NpMcCnt *pstMcCnt);

/* ACL packets and bytes. ulAclCntID 0 to 0x9f. */
NP_API uint32_t Np_AclStatTbl_Get(uint32_t ulChipID, uint32_t ulAclCntID, NpAclCnt *pstAclCnt);
NP_API uint32_t Np_AclStatTbl_Set(uint32_t ulChipID, uint32_t ulAclCntID,
                                  const NpAclCnt *pstAclCnt);

/* Captured packets. ulCapCntID 0 to 3. */
NP_API uint32_t Np_CapStatTbl_Get(uint32_t ulChipID, uint32_t ulCapCntID, NpCapCnt *pstCapCnt);
NP_API uint32_t Np_CapStatTbl_Set(uint32_t ulChipID, uint32_t ulCapCntID,
                                  const NpCapCnt *pstCapCnt);

/* VoIP channel packets. ulChannelID 0 to 0x1ff. */
NP_API uint32_t Np_VoipStatTbl_Get(uint32_t ulChipID, uint32_t ulChannelID, NpVoipCnt *pstVoipCnt);
NP_API uint32_t Np_VoipStatTbl_Set(uint32_t ulChipID, uint32_t ulChannelID,
                                   const NpVoipCnt *pstVoipCnt);

/* Packets of a packet type. ulPtypeID 0 to 0x7ff. */
NP_API uint32_t Np_PtypeStatTbl_Get(uint32_t ulChipID, uint32_t ulPtypeID, NpPtypeCnt *pstPtypeCnt);
NP_API uint32_t Np_PtypeStatTbl_Set(uint32_t ulChipID, uint32_t ulPtypeID,
                                    const NpPtypeCnt *pstPtypeCnt);

/* PPPoE session packets and bytes. ulCntID 0 to 0x1ff. */
NP_API uint32_t Np_PppoeSessionStatTbl_Get(uint32_t ulChipID, uint32_t ulCntID,
                                           NpPppoeSessionCnt *pstCnt);
NP_API uint32_t Np_PppoeSessionStatTbl_Set(uint32_t ulChipID, uint32_t ulCntID,
                                           const NpPppoeSessionCnt *pstCnt);

/* PPP LCP packets of an input and of an output flow, 16 bits. ulFlowID 0 to 1023. */
NP_API uint32_t Np_PppIftlcpStatTbl_Get(uint32_t ulChipID, uint32_t ulFlowID,
                                        NpPppLcpCnt *pstLcpCnt);
NP_API uint32_t Np_PppIftlcpStatTbl_Set(uint32_t ulChipID, uint32_t ulFlowID,
                                        const NpPppLcpCnt *pstLcpCnt);
NP_API uint32_t Np_PppOftlcpStatTbl_Get(uint32_t ulChipID, uint32_t ulFlowID,
                                        NpPppLcpCnt *pstLcpCnt);
NP_API uint32_t Np_PppOftlcpStatTbl_Set(uint32_t ulChipID, uint32_t ulFlowID,
                                        const NpPppLcpCnt *pstLcpCnt);

/* Multicast leaf packets of a flow. ulFlowID 0 to 1023. */
NP_API uint32_t Np_Stat_McleafStatTbl_Get(uint32_t ulChipID, uint32_t ulFlowID,
                                          NpMcleafCnt *pstMcleafCnt);
NP_API uint32_t Np_Stat_McleafStatTbl_Set(uint32_t ulChipID, uint32_t ulFlowID,
                                          const NpMcleafCnt *pstMcleafCnt);

/* Packets of a port's packet type. ulIndex up to 0x400; the counter has 128 rows and refuses
   the rest. */
NP_API uint32_t Np_Stat_PortPtypeStatTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                             NpPortPtypeCnt *pstPortPtypeCnt);
NP_API uint32_t Np_Stat_PortPtypeStatTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                             const NpPortPtypeCnt *pstPortPtypeCnt);

/* OAM frames sent by the transmit row ulOamTxID, 0 to 127. */
NP_API uint32_t Np_Stat_OamTxStatTbl_Get(uint32_t ulChipID, uint32_t ulOamTxID,
                                         NpOamTxCnt *pstOamCnt);
NP_API uint32_t Np_Stat_OamTxStatTbl_Set(uint32_t ulChipID, uint32_t ulOamTxID,
                                         const NpOamTxCnt *pstOamCnt);

/* OAM frames received in the session ulOamSessionID, 0 to 127. */
NP_API uint32_t Np_Stat_OamRxStatTbl_Get(uint32_t ulChipID, uint32_t ulOamSessionID,
                                         NpOamRxCnt *pstOamCnt);
NP_API uint32_t Np_Stat_OamRxStatTbl_Set(uint32_t ulChipID, uint32_t ulOamSessionID,
                                         const NpOamRxCnt *pstOamCnt);

/* Passed and dropped packets to the CPU of a user's four classes, 16 bits each. ulUserID up to
   0x1ff; the counter has 32 rows and refuses the rest. */
NP_API uint32_t Np_Stat_PortToCpuTypeStatTbl_Get(uint32_t ulChipID, uint32_t ulUserID,
                                                 NpPortToCpuPtypeCnt *pstPortToCpuPtypeCnt);
NP_API uint32_t Np_Stat_PortToCpuTypeStatTbl_Set(uint32_t ulChipID, uint32_t ulUserID,
                                                 const NpPortToCpuPtypeCnt *pstPortToCpuPtypeCnt);

/* 802.3ah loop: window size, passes, bad windows, errors. ul3ahCnId up to 15; the table has 4
   rows and refuses the rest with NP_ERR_ADDRESS. */
NP_API uint32_t Np_3ahStatTbl_Get(uint32_t ulChipID, uint32_t ul3ahCnId, Np3ahCnt *pst3ahCnt);
NP_API uint32_t Np_3ahStatTbl_Set(uint32_t ulChipID, uint32_t ul3ahCnId, const Np3ahCnt *pst3ahCnt);

/* Queue and priority statistics. ulIndex up to 0xfff and 8. Not offered by this family:
   NP_ERR_UNREGISTERED. */
NP_API uint32_t Np_Stat_QueueTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                     NpGlbQueueStat *pstNpGlbQueueStat);
NP_API uint32_t Np_Stat_QueueTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                     const NpGlbQueueStat *pstNpGlbQueueStat);
NP_API uint32_t Np_Stat_PriTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                   NpGlbPriStat *pstNpGlbPriStat);
NP_API uint32_t Np_Stat_PriTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                   const NpGlbPriStat *pstNpGlbPriStat);

/* Loss, delay and synthetic loss measurement counters. ulLmIndex and ulIndex 0 to 63. Not
   offered by this family: NP_ERR_UNREGISTERED. */
NP_API uint32_t Np_Stat_LmStatTbl_Get(uint32_t ulChipID, uint32_t ulLmIndex, NpLmCnt *pstLmCnt);
NP_API uint32_t Np_Stat_LmStatTbl_Set(uint32_t ulChipID, uint32_t ulLmIndex,
                                      const NpLmCnt *pstLmCnt);
NP_API uint32_t Np_Stat_LmRecordStatTbl_Get(uint32_t ulChipID, uint32_t ulLmIndex,
                                            NpLmRecordCnt *pstLmRecordCnt);
NP_API uint32_t Np_Stat_LmRecordStatTbl_Set(uint32_t ulChipID, uint32_t ulLmIndex,
                                            const NpLmRecordCnt *pstLmRecordCnt);
NP_API uint32_t Np_Stat_LmRxCounterTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                           NpLmRxCnt *pstLmRxCnt);
NP_API uint32_t Np_Stat_LmRxCounterTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                           const NpLmRxCnt *pstLmRxCnt);
NP_API uint32_t Np_Stat_DmRxCounterTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                           NpDmRxCnt *pstDmRxCnt);
NP_API uint32_t Np_Stat_DmRxCounterTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                           const NpDmRxCnt *pstDmRxCnt);
NP_API uint32_t Np_Stat_SlCounterTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                         NpOamSlStat *pstNpOamSlStat);
NP_API uint32_t Np_Stat_SlCounterTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                         const NpOamSlStat *pstNpOamSlStat);

NP_EXTERN_C_END

#endif

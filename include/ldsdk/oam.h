/* Ethernet OAM: maintenance entities, transmit and receive rows, period lists, measurement.
   Rows are written whole. Further codes of the row functions: NP_ERR_ADDRESS, NP_ERR_REG_READ,
   NP_ERR_REG_WRITE.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_OAM_H
#define LDSDK_OAM_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

typedef struct NpOamMpCfg NpOamMpCfg;
typedef struct NpOamMeg NpOamMeg;
typedef struct NpOamMegCfg NpOamMegCfg;
typedef struct NpOamMepCfg NpOamMepCfg;
typedef struct NpOamMep NpOamMep;
typedef struct NpOamSmac NpOamSmac;
typedef struct NpOamPortVlanKey NpOamPortVlanKey;
typedef struct NpOamPortVlanData NpOamPortVlanData;
typedef struct NpOamLookUpKey NpOamLookUpKey;
typedef struct NpOamLookUpData NpOamLookUpData;
typedef struct NpOamTx NpOamTx;
typedef struct NpOamRx NpOamRx;
typedef struct NpOamLp NpOamLp;
/* The message that makes the microcode walk the rows of a period. */
typedef struct NpOamTimedMsg {
    uint32_t ulMsgEnable; /* 0 stops it, 1 starts it */
    uint32_t ulPeriod;    /* 1 3.3 ms, 2 10 ms, 3 100 ms, 4 1 s, 5 10 s, 6 1 min, 7 10 min */
} NpOamTimedMsg;
typedef struct NpOamLmDataKey NpOamLmDataKey;
typedef struct NpOamLmDataAd NpOamLmDataAd;
typedef struct NpOamLmOamKey NpOamLmOamKey;
typedef struct NpOamLmOamAd NpOamLmOamAd;
typedef struct NpOamLmCfg NpOamLmCfg;
typedef struct NpOamDmMode NpOamDmMode;
typedef struct NpOamDmKey NpOamDmKey;
typedef struct NpOamDmAd NpOamDmAd;
typedef struct NpOamSlMode NpOamSlMode;
typedef struct NpOamSlKey NpOamSlKey;
typedef struct NpOamSlAd NpOamSlAd;
typedef struct NpOamSlCfg NpOamSlCfg;

/* Maintenance point configuration. ulDirection 0 UNI down, 1 NNI down, 2 UNI up, 3 NNI up. */
NP_API uint32_t Np_OamMpCfgTbl_Set(uint32_t ulChipID, uint32_t ulDirection,
                                   const NpOamMpCfg *pstMpCfg);
NP_API uint32_t Np_OamMpCfgTbl_Get(uint32_t ulChipID, uint32_t ulDirection, NpOamMpCfg *pstMpCfg);

/* The 48-byte MEG identifier as a CCM carries it. ulMegIndex 0 to 127. */
NP_API uint32_t Np_OamMegTbl_Set(uint32_t ulChipID, uint32_t ulMegIndex, const NpOamMeg *pstMeg);
NP_API uint32_t Np_OamMegTbl_Get(uint32_t ulChipID, uint32_t ulMegIndex, NpOamMeg *pstMeg);

/* MEG and MEP index of each level, up and down, of a monitored interface. ulEntryID 0 to 127;
   the indices are not checked. */
NP_API uint32_t Np_OamMegCfgTbl_Set(uint32_t ulChipID, uint32_t ulEntryID,
                                    const NpOamMegCfg *pstMegCfg);
NP_API uint32_t Np_OamMegCfgTbl_Get(uint32_t ulChipID, uint32_t ulEntryID, NpOamMegCfg *pstMegCfg);
NP_API uint32_t Np_OamMepCfgTbl_Set(uint32_t ulChipID, uint32_t ulEntryID,
                                    const NpOamMepCfg *pstMepCfg);
NP_API uint32_t Np_OamMepCfgTbl_Get(uint32_t ulChipID, uint32_t ulEntryID, NpOamMepCfg *pstMepCfg);

/* A MEP: its id, period and transmit row. ulMepIndex 0 to 127. The second function resets the
   state that the microcode keeps for it and leaves the MEP row untouched. */
NP_API uint32_t Np_OamMepTbl_Set(uint32_t ulChipID, uint32_t ulMepIndex, const NpOamMep *pstMep);
NP_API uint32_t Np_OamMepTbl_Get(uint32_t ulChipID, uint32_t ulMepIndex, NpOamMep *pstMep);
NP_API uint32_t Np_OamMepTblStateMachine_Init(uint32_t ulChipID, uint32_t ulMepIndex);

/* Source MAC of a session's remote MEP. ulOamSessionID 0 to 127. */
NP_API uint32_t Np_OamSmacTbl_Set(uint32_t ulChipID, uint32_t ulOamSessionID,
                                  const NpOamSmac *pstOamSmac);
NP_API uint32_t Np_OamSmacTbl_Get(uint32_t ulChipID, uint32_t ulOamSessionID,
                                  NpOamSmac *pstOamSmac);

/* Monitored interfaces, by port, port and VLAN, or flow. NP_ERR_NOT_EXIST: no such key;
   NP_ERR_TABLE_FULL. Further codes: NP_ERR_PORT_PARAM, the port conversions'. */
NP_API uint32_t Np_OamPortVlanTbl_Add(uint32_t ulChipID, const NpOamPortVlanKey *pstOamPortVlanKey,
                                      const NpOamPortVlanData *pstOamPortVlanData);
NP_API uint32_t Np_OamPortVlanTbl_Get(uint32_t ulChipID, const NpOamPortVlanKey *pstOamPortVlanKey,
                                      NpOamPortVlanData *pstOamPortVlanData);
NP_API uint32_t Np_OamPortVlanTbl_Del(uint32_t ulChipID, const NpOamPortVlanKey *pstOamPortVlanKey);

/* Receive session of a remote MEP, by direction, level, MEP id and source. Codes as above. */
NP_API uint32_t Np_OamLookUpTbl_Add(uint32_t ulChipID, const NpOamLookUpKey *pstOamLookUpKey,
                                    const NpOamLookUpData *pstOamLookUpData);
NP_API uint32_t Np_OamLookUpTbl_Get(uint32_t ulChipID, const NpOamLookUpKey *pstOamLookUpKey,
                                    NpOamLookUpData *pstOamLookUpData);
NP_API uint32_t Np_OamLookUpTbl_Del(uint32_t ulChipID, const NpOamLookUpKey *pstOamLookUpKey);

/* Transmit row with its frame of up to 128 bytes. ulOamTxID 0 to 127. It sends only once it is
   linked into a period's list and the period's message is on. */
NP_API uint32_t Np_OamTxTbl_Set(uint32_t ulChipID, uint32_t ulOamTxID, const NpOamTx *pstOamTx);
NP_API uint32_t Np_OamTxTbl_Get(uint32_t ulChipID, uint32_t ulOamTxID, NpOamTx *pstOamTx);

/* Receive row of a session, ulOamSessionID 0 to 127. The second function resets the state that
   the microcode keeps for it and leaves the receive row untouched. */
NP_API uint32_t Np_OamRxTbl_Set(uint32_t ulChipID, uint32_t ulOamSessionID,
                                const NpOamRx *pstOamRx);
NP_API uint32_t Np_OamRxTbl_Get(uint32_t ulChipID, uint32_t ulOamSessionID, NpOamRx *pstOamRx);
NP_API uint32_t Np_OamRxTblStateMachine_Init(uint32_t ulChipID, uint32_t ulOamSessionID);

/* L2 encapsulation, 16 bits, of a port's looped frames. Further codes: NP_ERR_PORT_PARAM, the
   port conversions', NP_ERR_SMEM_READ, NP_ERR_SMEM_WRITE. */
NP_API uint32_t Np_OamLoopbackTbl_Set(uint32_t ulChipID, const NpPortID *pstPortID,
                                      const NpOamLp *pstLp);
NP_API uint32_t Np_OamLoopbackTbl_Get(uint32_t ulChipID, const NpPortID *pstPortID, NpOamLp *pstLp);

/* List of the transmit rows due every ulPeriod: 1 3.3 ms, 2 10 ms, 3 100 ms, 4 1 s, 5 10 s, 6 1
   min, 7 10 min. ulTimerNode is the transmit row, 0 to 127. Add links it at the front; NP_OK
   when it is linked already, NP_ERR_EXIST in another period's list. Del unlinks it, given the
   period that it was added under; NP_OK when it is not linked. Get counts the list in pulNum
   and, unless pulTimerNode is null, stores the rows in it, room for 128. Further codes:
   NP_ERR_SMEM_READ, NP_ERR_SMEM_WRITE. */
NP_API uint32_t Np_OamTxTimer_Add(uint32_t ulChipID, uint32_t ulPeriod, uint32_t ulTimerNode);
NP_API uint32_t Np_OamTxTimer_Del(uint32_t ulChipID, uint32_t ulPeriod, uint32_t ulTimerNode);
NP_API uint32_t Np_OamTxTimer_Get(uint32_t ulChipID, uint32_t ulPeriod, uint32_t *pulNum,
                                  uint32_t *pulTimerNode);

/* Starts or stops the transmit and the age message of a period, 1 to 7 also for a stop. Further
   codes: NP_ERR_AUTO_SEND_SET, _ENABLE, _DELETE. */
NP_API uint32_t Np_OamTxTimedMsg_Set(uint32_t ulChipID, const NpOamTimedMsg *pstOamTxTimedMsg);
NP_API uint32_t Np_OamAgeTimedMsg_Set(uint32_t ulChipID, const NpOamTimedMsg *pstOamAgeTimedMsg);

/* Loss measurement instances found by a data packet and by an OAM packet; ulIndex is a place in
   the table, pulInfo takes the entry's status. Not offered by this family: NP_ERR_UNREGISTERED. */
NP_API uint32_t Np_OamLmDataPktTbl_Set(uint32_t ulChipID, const NpOamLmDataKey *pstOamLmDataPktKey,
                                       const NpOamLmDataAd *pstOamLmDataPktAd);
NP_API uint32_t Np_OamLmDataPktTbl_Get(uint32_t ulChipID, const NpOamLmDataKey *pstOamLmDataPktKey,
                                       NpOamLmDataAd *pstOamLmDataPktAd);
NP_API uint32_t Np_OamLmDataPktTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex,
                                              NpOamLmDataKey *pstOamLmDataPktKey,
                                              NpOamLmDataAd *pstOamLmDataPktAd, uint32_t *pulInfo);
NP_API uint32_t Np_OamLmDataPktTbl_Del(uint32_t ulChipID, const NpOamLmDataKey *pstOamLmDataPktKey);
NP_API uint32_t Np_OamLmDataPktTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex);
NP_API uint32_t Np_OamLmOamPktTbl_Set(uint32_t ulChipID, const NpOamLmOamKey *pstOamLmOamPktKey,
                                      const NpOamLmOamAd *pstOamLmOamPktAd);
NP_API uint32_t Np_OamLmOamPktTbl_Get(uint32_t ulChipID, const NpOamLmOamKey *pstOamLmOamPktKey,
                                      NpOamLmOamAd *pstOamLmOamPktAd);
NP_API uint32_t Np_OamLmOamPktTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex,
                                             NpOamLmOamKey *pstOamLmOamPktKey,
                                             NpOamLmOamAd *pstOamLmOamPktAd, uint32_t *pulInfo);
NP_API uint32_t Np_OamLmOamPktTbl_Del(uint32_t ulChipID, const NpOamLmOamKey *pstOamLmOamPktKey);
NP_API uint32_t Np_OamLmOamPktTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex);

/* Loss measurement configuration, by the index that the instance yields. Not offered by this
   family: NP_ERR_UNREGISTERED. */
NP_API uint32_t Np_OamLmCfgTbl_Set(uint32_t ulChipID, uint32_t ulLmIndex,
                                   const NpOamLmCfg *pstOamLmCfg);
NP_API uint32_t Np_OamLmCfgTbl_Get(uint32_t ulChipID, uint32_t ulLmIndex, NpOamLmCfg *pstOamLmCfg);

/* Delay measurement: the search key of each level (ulEntryID 0 to 127), and the instances. Not
   offered by this family: NP_ERR_UNREGISTERED. */
NP_API uint32_t Np_OamDmModeTbl_Set(uint32_t ulChipID, uint32_t ulEntryID,
                                    const NpOamDmMode *pstOamDmMode);
NP_API uint32_t Np_OamDmModeTbl_Get(uint32_t ulChipID, uint32_t ulEntryID,
                                    NpOamDmMode *pstOamDmMode);
NP_API uint32_t Np_OamDmTbl_Add(uint32_t ulChipID, const NpOamDmKey *pstOamDmKey,
                                const NpOamDmAd *pstOamDmAd);
NP_API uint32_t Np_OamDmTbl_Get(uint32_t ulChipID, const NpOamDmKey *pstOamDmKey,
                                NpOamDmAd *pstOamDmAd);
NP_API uint32_t Np_OamDmTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex, NpOamDmKey *pstOamDmKey,
                                       NpOamDmAd *pstOamDmAd, uint32_t *pulInfo);
NP_API uint32_t Np_OamDmTbl_Del(uint32_t ulChipID, const NpOamDmKey *pstOamDmKey);
NP_API uint32_t Np_OamDmTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex);

/* Synthetic loss: the search key of each level (ulIndex 0 to 255), the instances, and their
   configuration (ulIndex 0 to 63). Not offered by this family: NP_ERR_UNREGISTERED. */
NP_API uint32_t Np_OamSlModeTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                    const NpOamSlMode *pstNpOamSlMode);
NP_API uint32_t Np_OamSlModeTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                    NpOamSlMode *pstNpOamSlMode);
NP_API uint32_t Np_OamSlTbl_Add(uint32_t ulChipID, const NpOamSlKey *pstNpOamSlKey,
                                const NpOamSlAd *pstNpOamSlAd);
NP_API uint32_t Np_OamSlTbl_Get(uint32_t ulChipID, const NpOamSlKey *pstNpOamSlKey,
                                NpOamSlAd *pstNpOamSlAd);
NP_API uint32_t Np_OamSlTbl_Del(uint32_t ulChipID, const NpOamSlKey *pstNpOamSlKey);
NP_API uint32_t Np_OamSlCfgTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                   const NpOamSlCfg *pstOamSlCfg);
NP_API uint32_t Np_OamSlCfgTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpOamSlCfg *pstOamSlCfg);

NP_EXTERN_C_END

#endif

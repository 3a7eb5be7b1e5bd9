/* IP-QAM: remapping of transport streams that arrive over UDP.
   This family has none of these tables: on a registered chip every function here gives
   NP_ERR_UNREGISTERED.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_IPQAM_H
#define LDSDK_IPQAM_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

typedef struct NpPgidMapKey NpPgidMapKey;
typedef struct NpPgidMapData NpPgidMapData;
typedef struct NpPmtMapKey NpPmtMapKey;
typedef struct NpPmtMapData NpPmtMapData;
typedef struct NpPidMapKey NpPidMapKey;
typedef struct NpPidMapData NpPidMapData;
typedef struct NpVersionInfo NpVersionInfo;
typedef struct NpChannelMap NpChannelMap;
typedef struct NpEncapInfo NpEncapInfo;
/* The message that drives the sending. */
typedef struct NpIpQamTimedMsg {
    uint32_t enable;  /* 0 stops it, 1 starts it */
    uint32_t agetime; /* period in ms */
    uint32_t session; /* first session of the walk */
} NpIpQamTimedMsg;

/* Program group of a UDP destination port; ulIndex is a place in the table. */
NP_API uint32_t Np_PgidMapTbl_Set(uint32_t ulChipID, const NpPgidMapKey *pstPgidMapKey,
                                  const NpPgidMapData *pstPgidMapData);
NP_API uint32_t Np_PgidMapTbl_Get(uint32_t ulChipID, const NpPgidMapKey *pstPgidMapKey,
                                  NpPgidMapData *pstPgidMapData);
NP_API uint32_t Np_PgidMapTbl_Del(uint32_t ulChipID, const NpPgidMapKey *pstPgidMapKey);
NP_API uint32_t Np_PgidMapTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex,
                                         NpPgidMapKey *pstPgidMapKey,
                                         NpPgidMapData *pstPgidMapData);
NP_API uint32_t Np_PgidMapTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex);

/* New PMT PID of a PID in a program group. */
NP_API uint32_t Np_PmtMapTbl_Set(uint32_t ulChipID, const NpPmtMapKey *pstPmtMapKey,
                                 const NpPmtMapData *pstPmtMapData);
NP_API uint32_t Np_PmtMapTbl_Get(uint32_t ulChipID, const NpPmtMapKey *pstPmtMapKey,
                                 NpPmtMapData *pstPmtMapData);
NP_API uint32_t Np_PmtMapTbl_Del(uint32_t ulChipID, const NpPmtMapKey *pstPmtMapKey);
NP_API uint32_t Np_PmtMapTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex,
                                        NpPmtMapKey *pstPmtMapKey, NpPmtMapData *pstPmtMapData);
NP_API uint32_t Np_PmtMapTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex);

/* New PID of a PID in a program group. */
NP_API uint32_t Np_PidMapTbl_Set(uint32_t ulChipID, const NpPidMapKey *pstPidMapKey,
                                 const NpPidMapData *pstPidMapData);
NP_API uint32_t Np_PidMapTbl_Get(uint32_t ulChipID, const NpPidMapKey *pstPidMapKey,
                                 NpPidMapData *pstPidMapData);
NP_API uint32_t Np_PidMapTbl_Del(uint32_t ulChipID, const NpPidMapKey *pstPidMapKey);
NP_API uint32_t Np_PidMapTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex,
                                        NpPidMapKey *pstPidMapKey, NpPidMapData *pstPidMapData);
NP_API uint32_t Np_PidMapTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex);

/* PAT and PMT version, and output channel, of the program group ulInPgID. */
NP_API uint32_t Np_VersionInfoTbl_Set(uint32_t ulChipID, uint32_t ulInPgID,
                                      const NpVersionInfo *pstVersionInfo);
NP_API uint32_t Np_VersionInfoTbl_Get(uint32_t ulChipID, uint32_t ulInPgID,
                                      NpVersionInfo *pstVersionInfo);
NP_API uint32_t Np_ChannelMapTbl_Set(uint32_t ulChipID, uint32_t ulInPgID,
                                     const NpChannelMap *pstChannelMap);
NP_API uint32_t Np_ChannelMapTbl_Get(uint32_t ulChipID, uint32_t ulInPgID,
                                     NpChannelMap *pstChannelMap);

/* Ethernet, IPv4 and UDP header of the packets that go out. */
NP_API uint32_t Np_EncapInfo_Set(uint32_t ulChipID, uint32_t ulIndex,
                                 const NpEncapInfo *pstEncapInfo);
NP_API uint32_t Np_EncapInfo_Get(uint32_t ulChipID, uint32_t ulIndex, NpEncapInfo *pstEncapInfo);

/* Starts or stops the timed message that drives the sending. */
NP_API uint32_t Np_IpQamTimedMsg_set(uint32_t ulChipID, const NpIpQamTimedMsg *pstIpQamTimedMsg);

NP_EXTERN_C_END

#endif

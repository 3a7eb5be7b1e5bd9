/* IP-QAM: remapping of transport streams that arrive over UDP.
   This family has none of these tables: on a registered chip every function here gives
   NP_ERR_UNREGISTERED.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_IPQAM_H
#define LDSDK_IPQAM_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* Program group of a UDP destination. Limits of all fields here without one: capacities of the
   chip, 0 in this family. */
typedef struct NpPgidMapKey {
    uint32_t dudp;
} NpPgidMapKey;

typedef struct NpPgidMapData {
    uint32_t sip;  /* source address */
    uint32_t type; /* 0 no map, 1 remap */
    uint32_t inpgid;
} NpPgidMapData;

/* A PID of a program group, and its PMT's or its own new one. */
typedef struct NpPmtMapKey {
    uint32_t inpgid;
    uint32_t pid;
} NpPmtMapKey;

typedef struct NpPmtMapData {
    uint32_t pmtpid;
} NpPmtMapData;

typedef struct NpPidMapKey {
    uint32_t inpgid;
    uint32_t pid;
} NpPidMapKey;

typedef struct NpPidMapData {
    uint32_t newpid;
} NpPidMapData;

typedef struct NpVersionInfo {
    uint32_t valid; /* 0, 1 */
    uint32_t patversion;
    uint32_t pmtversion;
} NpVersionInfo;

typedef struct NpChannelMap {
    uint32_t channelid;
    uint32_t channelpgid;
    uint32_t dudp;
} NpChannelMap;

/* Header of the packets that go out: Ethernet, IPv4, UDP. */
typedef struct NpEncapInfo {
    uint32_t dmac[3]; /* two bytes each */
    uint32_t version;
    uint32_t headerlen;
    uint32_t tos;
    uint32_t totallen;
    uint32_t identifier;
    uint32_t frag;
    uint32_t fragoffset;
    uint32_t TTL;
    uint32_t protocol;
    uint32_t headchecksum;
    uint32_t sip;
    uint32_t dip;
    uint32_t sport;
    uint32_t dport;
    uint32_t len;
    uint32_t checksum;
} NpEncapInfo;

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

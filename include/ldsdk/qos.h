/* Priority maps.
   Rows are written whole. Further codes of all functions here: NP_ERR_ADDRESS, NP_ERR_REG_READ,
   NP_ERR_REG_WRITE.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_QOS_H
#define LDSDK_QOS_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* 802.1p value, 0 to 7, by DSCP. */
typedef struct NpDscpMap {
    uint8_t auc1P[64];
} NpDscpMap;

/* 802.1p value, 0 to 7, by priority code point. */
typedef struct NpPcpMap {
    uint8_t auc1P[8];
} NpPcpMap;

/* 802.1p value, 0 to 7, by IP precedence. */
typedef struct NpIpMap {
    uint8_t auc1P[8];
} NpIpMap;

/* CAR priority, 0 to 3: four maps of eight priorities. */
typedef struct NpPriCarMap {
    uint8_t aucPriMap[4][8];
} NpPriCarMap;

/* 802.1p value, 0 to 7, for each DSCP (64), PCP (8) or IP precedence (8). ulIndex 0 to 7. */
NP_API uint32_t Np_DscpMapTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpDscpMap *pstDscpMap);
NP_API uint32_t Np_DscpMapTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpDscpMap *pstDscpMap);
NP_API uint32_t Np_PcpMapTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpPcpMap *pstPcpMap);
NP_API uint32_t Np_PcpMapTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpPcpMap *pstPcpMap);
NP_API uint32_t Np_IpMapTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpIpMap *pstIpMap);
NP_API uint32_t Np_IpMapTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpIpMap *pstIpMap);

/* CAR priority, 0 to 3, of 4 maps of 8 priorities. ulIndex 0. */
NP_API uint32_t Np_PriCarMapTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                    const NpPriCarMap *pstPriCarMap);
NP_API uint32_t Np_PriCarMapTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpPriCarMap *pstPriCarMap);

NP_EXTERN_C_END

#endif

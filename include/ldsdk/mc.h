/* Multicast rows.
   Rows are written whole. Further codes of all functions here: NP_ERR_ADDRESS, NP_ERR_REG_READ,
   NP_ERR_REG_WRITE.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_MC_H
#define LDSDK_MC_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* A leaf of a multicast list: one copy of a packet. */
typedef struct NpMet {
    uint32_t ulValid;     /* 0, 1: in use */
    uint32_t ulOpCode;    /* 0 flow, 1 flow bundle, 7 discard; 2 to 6 have no destination */
    uint32_t ulNextMetID; /* next leaf, 0 to 0x7fff; 0x7fff ends the list */
    union {               /* 0 to 0x1fff, by ulOpCode */
        uint32_t ulOftID;
        uint32_t ulBundleID;
        uint32_t ulDiscardID; /* reads back with the 0x1800 that its stored form has on top */
    } unDstintf;
} NpMet;

/* CAR profiles, each 0 to 255. */
typedef struct NpBrl {
    uint32_t ulBcLimitCarProfile;   /* broadcast */
    uint32_t ulUnUcLimitCarProfile; /* unknown unicast */
    uint32_t ulUnMcLimitCarProfile; /* unknown multicast */
} NpBrl;

/* Arrival of a packet, a time of 48 bits, and its length. */
typedef struct NpMdiInfo {
    uint32_t ulArriveTimeH32;
    uint32_t ulArriveTimeL16; /* 0 to 0xffff */
    uint32_t ulPktLen;        /* 0 to 0xffff */
} NpMdiInfo;

/* ulIndex 0 to 1999. Reading a leaf without a destination leaves unDstintf as it was. */
NP_API uint32_t Np_MetTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpMet *pstMet);
NP_API uint32_t Np_MetTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpMet *pstMet);

/* CAR profiles that limit broadcast, unknown unicast and unknown multicast. ulIndex 0 to 63. */
NP_API uint32_t Np_BrltTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpBrl *pstBrl);
NP_API uint32_t Np_BrltTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpBrl *pstBrl);

/* Arrival time (48 bits) and length of a packet of the stream ulMdiID, 0 to 3; ulOffset 0 to
   127. */
NP_API uint32_t Np_MdiInfoTbl_Set(uint32_t ulChipID, uint32_t ulMdiID, uint32_t ulOffset,
                                  const NpMdiInfo *pstMdiInfo);
NP_API uint32_t Np_MdiInfoTbl_Get(uint32_t ulChipID, uint32_t ulMdiID, uint32_t ulOffset,
                                  NpMdiInfo *pstMdiInfo);

NP_EXTERN_C_END

#endif

/* Multicast rows.
   Rows are written whole. Further codes of all functions here: NP_ERR_ADDRESS, NP_ERR_REG_READ,
   NP_ERR_REG_WRITE.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_MC_H
#define LDSDK_MC_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

typedef struct NpMet NpMet;
typedef struct NpBrl NpBrl;
typedef struct NpMdiInfo NpMdiInfo;

/* A leaf of a multicast list: what to do with the copy, its destination (0 to 0x1fff) and the
   next leaf (0x7fff ends the list). ulIndex 0 to 1999. */
NP_API uint32_t Np_MetTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpMet *pstMet);
NP_API uint32_t Np_MetTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpMet *pstMet);

/* CAR profiles, 0 to 255, that limit broadcast, unknown unicast and unknown multicast. ulIndex
   0 to 63. */
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

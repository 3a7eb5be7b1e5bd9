/* Packet analysis: TPIDs, the L2 and L3 analysis CAMs, and the treatment of packet types.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_PA_H
#define LDSDK_PA_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

typedef struct NpL2pa NpL2pa;
typedef struct NpL3pa NpL3pa;
typedef struct NpPta NpPta;
typedef struct NpPtt1 NpPtt1;
typedef struct NpPaAd NpPaAd;

/* L2 analysis entry, named by a key id of the caller's choice, ulL2paID 0 to 127 (127 is the
   default row). Set adds it or rewrites it in place; its priority, at most the number of
   priorities less one, cannot change: NP_ERR_PRIORITY. Get: NP_ERR_NOT_EXIST without an entry;
   Del: NP_OK without one. Further codes: NP_ERR_TABLE_FULL, those of the CAM. */
NP_API uint32_t Np_L2paTbl_Set(uint32_t ulChipID, uint32_t ulL2paID, const NpL2pa *pstL2pa);
NP_API uint32_t Np_L2paTbl_Get(uint32_t ulChipID, uint32_t ulL2paID, NpL2pa *pstL2pa);
NP_API uint32_t Np_L2paTbl_Del(uint32_t ulChipID, uint32_t ulL2paID);

/* Whether the L2 analysis entry takes part in matching: 1 yes, 0 it stays in the table without
   matching. NP_ERR_NOT_EXIST without an entry. */
NP_API uint32_t Np_L2paTbl_SetState(uint32_t ulChipID, uint32_t ulL2paID, uint32_t ulState);
NP_API uint32_t Np_L2paTbl_GetState(uint32_t ulChipID, uint32_t ulL2paID, uint32_t *pulState);

/* L3 analysis entry, named by a key id of the caller's choice, ulL3paID 0 to 63 (63 is the
   default row). Set adds it or rewrites it in place; its priority, at most the number of
   priorities less one, cannot change: NP_ERR_PRIORITY. Get: NP_ERR_NOT_EXIST without an entry;
   Del: NP_OK without one. Further codes: NP_ERR_TABLE_FULL, those of the CAM. */
NP_API uint32_t Np_L3paTbl_Set(uint32_t ulChipID, uint32_t ulL3paID, const NpL3pa *pstL3pa);
NP_API uint32_t Np_L3paTbl_Get(uint32_t ulChipID, uint32_t ulL3paID, NpL3pa *pstL3pa);
NP_API uint32_t Np_L3paTbl_Del(uint32_t ulChipID, uint32_t ulL3paID);

/* Whether the L3 analysis entry takes part in matching: 1 yes, 0 it stays in the table without
   matching. NP_ERR_NOT_EXIST without an entry. */
NP_API uint32_t Np_L3paTbl_SetState(uint32_t ulChipID, uint32_t ulL3paID, uint32_t ulState);
NP_API uint32_t Np_L3paTbl_GetState(uint32_t ulChipID, uint32_t ulL3paID, uint32_t *pulState);

/* Treatment of a packet type: queue, CAR, counters, interrupt. ulIndex 0 to 1023. */
NP_API uint32_t Np_PtaTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpPta *pstPta);
NP_API uint32_t Np_PtaTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpPta *pstPta);

/* Protocol template row. ulPtt1ID 0 to 255. ulType of the record chooses its view, on Get too:
   0 the 256 entries of 0 to 3, 1 the 16 words as they stand, unchecked. */
NP_API uint32_t Np_Ptt1Tbl_Set(uint32_t ulChipID, uint32_t ulPtt1ID, const NpPtt1 *pastPtt1);
NP_API uint32_t Np_Ptt1Tbl_Get(uint32_t ulChipID, uint32_t ulPtt1ID, NpPtt1 *pastPtt1);

/* Analysis action outside the CAMs. ulIndex 0 to 63. */
NP_API uint32_t Np_PaExtTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpPaAd *pstPaAd);
NP_API uint32_t Np_PaExtTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpPaAd *pstPaAd);

/* The configurable inner and outer TPID, below 0x10000, beside the fixed 0x8100, 0x9100 and
   0x9200. Further codes: those of the CAM and of the driver. */
NP_API uint32_t Np_InnerTpid_Set(uint32_t ulChipID, uint32_t ulInnerTpid);
NP_API uint32_t Np_InnerTpid_Get(uint32_t ulChipID, uint32_t *pulInnerTpid);
NP_API uint32_t Np_OuterTpid_Set(uint32_t ulChipID, uint32_t ulOuterTpid);
NP_API uint32_t Np_OuterTpid_Get(uint32_t ulChipID, uint32_t *pulOuterTpid);

NP_EXTERN_C_END

#endif

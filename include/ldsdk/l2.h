/* Flow tables and the multi-service classification in front of them.
   Rows are written whole. Further codes of the row functions: NP_ERR_ADDRESS, NP_ERR_REG_READ,
   NP_ERR_REG_WRITE.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_L2_H
#define LDSDK_L2_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

typedef struct NpMultiService NpMultiService;
typedef struct IflowAttr IflowAttr;
typedef struct OflowAttr OflowAttr;
typedef struct NpFlowBundle NpFlowBundle;
typedef struct Encap Encap;
typedef struct NpDefaultFlowID NpDefaultFlowID;
typedef struct NpGemportMap NpGemportMap;
typedef struct NpFlowLmt NpFlowLmt;
typedef struct NpBundleLmt NpBundleLmt;
typedef struct NpGlobalMacLmt NpGlobalMacLmt;
typedef struct NpDmac NpDmac;
typedef struct NpSmacPool NpSmacPool;
typedef struct NpCmGroup NpCmGroup;
typedef struct NpCmClass NpCmClass;
typedef struct NpCmLmt NpCmLmt;

/* Classification rule of the key ulKeyID, 0 to 1023, with a priority (0 highest) below the
   number of priority blocks, 8 after bring-up. Set adds or rewrites in place; NP_ERR_PRIORITY
   when the key has a rule of another priority, NP_ERR_TABLE_FULL, the codes of the CAM. Get:
   NP_ERR_NOT_EXIST without a rule; it fills only what the CAM holds. Del: NP_OK without a rule. */
NP_API uint32_t Np_MultiServiceTbl_Set(uint32_t ulChipID, uint32_t ulKeyID,
                                       const NpMultiService *pstMultiService);
NP_API uint32_t Np_MultiServiceTbl_Get(uint32_t ulChipID, uint32_t ulKeyID,
                                       NpMultiService *pstMultiService);
NP_API uint32_t Np_MultiServiceTbl_Del(uint32_t ulChipID, uint32_t ulKeyID);

/* Input flow with its extension row. ulFlowID 0 to 1023. */
NP_API uint32_t Np_IflowTbl_Set(uint32_t ulChipID, uint32_t ulFlowID,
                                const IflowAttr *pstIflowAttr);
NP_API uint32_t Np_IflowTbl_Get(uint32_t ulChipID, uint32_t ulFlowID, IflowAttr *pstIflowAttr);

/* Output flow with its user id row. ulFlowID 0 to 1023. */
NP_API uint32_t Np_OflowTbl_Set(uint32_t ulChipID, uint32_t ulFlowID,
                                const OflowAttr *pstOflowAttr);
NP_API uint32_t Np_OflowTbl_Get(uint32_t ulChipID, uint32_t ulFlowID, OflowAttr *pstOflowAttr);

/* The eight flow ids of a bundle, each 0 to 1023. ulBundleID 0 to 31. */
NP_API uint32_t Np_FlowBundleTbl_Set(uint32_t ulChipID, uint32_t ulBundleID,
                                     const NpFlowBundle *pstFlowBundle);
NP_API uint32_t Np_FlowBundleTbl_Get(uint32_t ulChipID, uint32_t ulBundleID,
                                     NpFlowBundle *pstFlowBundle);

/* L2 encapsulation with its MTU. ulIndex 0 to 31. Further codes: NP_ERR_PORT_PARAM, the port
   conversions', NP_ERR_SMEM_READ, NP_ERR_SMEM_WRITE. */
NP_API uint32_t Np_L2EncapTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const Encap *pstEncap);
NP_API uint32_t Np_L2EncapTbl_Get(uint32_t ulChipID, uint32_t ulIndex, Encap *pstEncap);

/* The flow, 0 to 1023, of packets that no rule matches. ulIndex 0. */
NP_API uint32_t NP_DefaultFlowIDTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                        const NpDefaultFlowID *pstDefaultFlowID);
NP_API uint32_t NP_DefaultFlowIDTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                        NpDefaultFlowID *pstDefaultFlowID);

/* GEM port to GEM port index, 0 to 31. ulGemportId 0 to 4095. Del writes the record that it is
   given, normally all zero. */
NP_API uint32_t Np_GemportMapTbl_Set(uint32_t ulChipID, uint32_t ulGemportId,
                                     const NpGemportMap *pstGemportMap);
NP_API uint32_t Np_GemportMapTbl_Get(uint32_t ulChipID, uint32_t ulGemportId,
                                     NpGemportMap *pstGemportMap);
NP_API uint32_t Np_GemportMapTbl_Del(uint32_t ulChipID, uint32_t ulGemportId,
                                     const NpGemportMap *pstGemportMap);

/* How many MACs may be learned, 0 to 65535: per flow (ulFlowID 0 to 1023), per bundle
   (ulBundleID 0 to 31), on the chip (ulIndex 0). Set moves the hardware counter by the
   difference to the old limit; Get answers from the host's copy. Further codes: those of the
   counters. */
NP_API uint32_t Np_FlowLmtTbl_Set(uint32_t ulChipID, uint32_t ulFlowID, uint32_t ulLimitNumber);
NP_API uint32_t Np_FlowLmtTbl_Get(uint32_t ulChipID, uint32_t ulFlowID, NpFlowLmt *pstFlowLmt);
NP_API uint32_t Np_BundleLmtTbl_Set(uint32_t ulChipID, uint32_t ulBundleID, uint32_t ulLimitNumber);
NP_API uint32_t Np_BundleLmtTbl_Get(uint32_t ulChipID, uint32_t ulBundleID,
                                    NpBundleLmt *pstBundleLmt);
NP_API uint32_t Np_GlobalMacLmtTbl_Set(uint32_t ulChipID, uint32_t ulIndex, uint32_t ulLimitNumber);
NP_API uint32_t Np_GlobalMacLmtTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                       NpGlobalMacLmt *pstGlobalMacLmt);

/* Destination MAC rows, ulIndex 0 to 255, and source MAC pool, ulIndex 0 to 31. Not offered by
   this family: NP_ERR_UNREGISTERED. */
NP_API uint32_t Np_DmacTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpDmac *pstDmac);
NP_API uint32_t Np_DmacTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpDmac *pstDmac);
NP_API uint32_t Np_SmacPoolTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                   const NpSmacPool *pstSmacPool);
NP_API uint32_t Np_SmacPoolTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpSmacPool *pstSmacPool);

/* Cable modem group, class and limit rows. Not offered by this family: NP_ERR_UNREGISTERED. */
NP_API uint32_t Np_CmGroupTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpCmGroup *pstCmGroup);
NP_API uint32_t Np_CmGroupTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpCmGroup *pstCmGroup);
NP_API uint32_t Np_CmClassTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpCmClass *pstCmClass);
NP_API uint32_t Np_CmClassTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpCmClass *pstCmClass);
NP_API uint32_t Np_CmLmtTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpCmLmt *pstCmLmt);
NP_API uint32_t Np_CmLmtTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpCmLmt *pstCmLmt);

NP_EXTERN_C_END

#endif

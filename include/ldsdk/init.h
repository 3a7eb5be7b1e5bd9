/* Bring-up and tear-down of a registered chip.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_INIT_H
#define LDSDK_INIT_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* Runs every module's initialisation in its fixed order, the atoms held in pull mode meanwhile,
   and releases the atoms at the end. The chip must be registered; the microcode is loaded
   separately. NP_ERR_FAIL: already initialised, or a bring-up that stopped half-way and was not
   torn down. NP_ERR_INIT: a module failed and everything was rolled back. NP_ERR_NO_MEMORY, or
   the code of the failing step, without rollback. */
NP_API uint32_t Np_INIT_SdkInit(uint32_t ulChipID);

/* Undoes bring-up, in an order of its own. Stops at the first module that fails and gives its
   code; the chip then still counts as initialised. */
NP_API uint32_t Np_INIT_SdkDestruct(uint32_t ulChipID);

/* A request for priority blocks: how many priorities, and each one's share of the table. */
typedef struct NpPriBlock {
    uint32_t ulMaxPriNum;       /* entries of aulPriPercent in use */
    uint32_t ulPriPercent[256]; /* percent, lowest priority first; 100 in all */
} NpPriBlock;

/* Lays the priority blocks of a CAM table out anew. ulType: 0 multi-service, 1 L2 analysis, 2
   L3 analysis, 3 ACL; 4 and above are refused. pstPriBlock: number of priorities, then each
   one's share of the table in percent, 100 in all. The multi-service and ACL blocks are the
   caller's to assign before the first rule. Further codes: NP_ERR_NO_MEMORY. */
NP_API uint32_t Np_INIT_PriBlockAssign(uint32_t ulChipID, uint32_t ulType,
                                       const NpPriBlock *pstPriBlock);

/* Starts (ulEnable 1, ulPeriod above 0) or stops the CAR refresh message to the microcode,
   repeated every ulPeriod ms by auto-send channel 18. ulEnable 0 or 1. Further codes:
   NP_ERR_AUTO_SEND_SET, _ENABLE, _DELETE. */
NP_API uint32_t Np_CarRefresh_Msg(uint32_t ulChipID, uint32_t ulEnable, uint32_t ulPeriod);

/* Makes the command tree known to the command device, once per load of the module. Needs no
   chip. 0, or 1 when a tree is installed already. */
NP_API uint32_t Np_INIT_SdkCmdTreeInstall(void);

NP_EXTERN_C_END

#endif

/* Diagnostics: mirror groups, interrupt flags, packet type counters, the periodic routines.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_DFX_H
#define LDSDK_DFX_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

typedef struct NpDfxMirror NpDfxMirror;
typedef struct NpDfxIntrCfg NpDfxIntrCfg;
typedef struct NpDfxPtypeInfo NpDfxPtypeInfo;

/* A mirror group: queue, frame info and encapsulation of a packet copy. ulIndex 0 to 15. Always
   written whole, in two rows. */
NP_API uint32_t Np_MirrorGroupTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                      const NpDfxMirror *pstMirror);
NP_API uint32_t Np_MirrorGroupTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpDfxMirror *pstMirror);

/* The 32 status and 32 mask flags of the microcode's interrupts, one byte of 0 or 1 each.
   ReadClear clears the flags in the access that reads them; NP_ERR_SMEM_READ when that fails. */
NP_API uint32_t Np_IntrCfgTbl_Set(uint32_t ulChipID, const NpDfxIntrCfg *pstIntr);
NP_API uint32_t Np_IntrCfgTbl_Get(uint32_t ulChipID, NpDfxIntrCfg *pstIntr);
NP_API uint32_t Np_IntrCfgTbl_ReadClear(uint32_t ulChipID, NpDfxIntrCfg *pstIntr);

/* Packet type counters, numbers 0 to 2047 (1024 up: packets sent to the CPU). Get fills up to
   ulMaxNum records (1 to 2047) of the counters that are not 0, in ascending order, and their
   count in pulNum. Print appends a text of them to pszBuffer, which starts empty; ulBufferLen
   at least 500 bytes, pulLen the text's length. Clear zeroes all. Further codes: those of the
   search memory. */
NP_API uint32_t Np_DFX_PtypeGet(uint32_t ulChipID, uint32_t ulMaxNum, NpDfxPtypeInfo *pstInfo,
                                uint32_t *pulNum);
NP_API uint32_t Np_DFX_PtypePrint(uint32_t ulChipID, uint32_t ulBufferLen, uint32_t *pulLen,
                                  char *pszBuffer);
NP_API uint32_t Np_DFX_PtypeClear(uint32_t ulChipID);

/* Collects packet type counters, contexts of halted threads and rule memory in tagged sections.
   ulBufferLen and pulMsgLen in words. Not offered by this family: NP_ERR_UNREGISTERED. */
NP_API uint32_t Np_DFX_DebugMsgGet(uint32_t ulChipID, uint32_t *pulBufferAddr, uint32_t ulBufferLen,
                                   uint32_t *pulMsgLen);

/* To be called at a fixed period of the caller's choice: looks after the atoms, the heartbeat
   and the block interrupts. pulResetMoudleBitmap takes a bit for each module that needs a
   reset. */
NP_API uint32_t Np_Dfx_Timer_Routine(uint32_t ulChipID, uint32_t *pulResetMoudleBitmap);

/* Packs the diagnostic records of the last failure. ulResetBitmap: what the timer routine
   reported; ulBufferLen in words, the filled length in pulMsgLen, the number of records in
   pulRecordNum. */
NP_API uint32_t Np_Dfx_LastMsg_Get(uint32_t ulChipID, uint32_t ulResetBitmap, uint32_t *pulBuffer,
                                   uint32_t ulBufferLen, uint32_t *pulMsgLen,
                                   uint32_t *pulRecordNum);

/* Takes a heartbeat answer of the microcode. pucMsg: the message with its 16-byte header,
   network byte order; ulMsgLen in bytes. */
NP_API uint32_t Np_Dfx_HeartBeat_Msg_Receive(uint32_t ulChipID, const uint8_t *pucMsg,
                                             uint32_t ulMsgLen);

NP_EXTERN_C_END

#endif

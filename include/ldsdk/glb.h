/* Chip registry, hooks, versions and the chip-wide tables.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_GLB_H
#define LDSDK_GLB_H

#include "ldsdk/cputr.h"
#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* The microcode's chip-wide settings. */
typedef struct NpGlobal {
    uint32_t ulVoipUdpPortMin; /* 0 to 0xffff */
    uint32_t ulVoipUdpPortMax; /* 0 to 0xffff */
    uint32_t ulVoipFlowID;     /* input flow, 0 to 1023 */
    uint32_t ulDeviceID;       /* 0 to 15 */
    uint32_t ulTlsVlan;        /* 0 to 4095 */
    uint32_t ulUmEnable;
    uint32_t ulOuterTpid;     /* 0 to 0xffff */
    uint32_t ulInnerTpid;     /* 0 to 0xffff */
    uint32_t ulMacLimitFwd;   /* past a MAC limit: 0 forward, 1 discard */
    uint32_t ulMacLimitToCpu; /* 0 or 1, as all enables */
    uint32_t ulFtHashCollisionEnable;
    uint32_t ulFtSemCollisionEnable;
    uint32_t ulPrbsOverLenEnable;
    uint32_t ulMirrorEnable;
    uint32_t ulMirrorID; /* mirror group, 0 to 15; only while ulMirrorEnable is 1 */
    uint32_t ulDfxFlowEnable;
    uint32_t ulDfxFlowID; /* 0 to 1023; only while ulDfxFlowEnable is 1 */
    uint32_t ulPPPlenRectifyEnable;
    uint32_t ulPriFlowCntEnable;
    uint32_t ulPriCntFlowID;         /* 0 to 1023; only while ulPriFlowCntEnable is 1 */
    uint32_t ulGlobalMacLimitEnable; /* the MAC table's own limit counts */
    uint32_t ulAoeEtherType;         /* 0 to 0xffff */
    uint32_t ulMirrorCtrl;           /* 0 or 1 */
    uint32_t ulToCpuMtu;             /* bytes, 0 to 0xfff */
    uint32_t ulMinmVlan;             /* has no place in this family: reads as 0 */
    uint32_t ulCesopUdpPortMin;      /* 0 to 0xffff */
    uint32_t ulCesopUdpPortMax;      /* 0 to 0xffff */
    uint32_t ulEfbFlag;              /* 1 bit of it is stored; 1 after bring-up */
    uint32_t ulPtypeMir;             /* 1 bit of it is stored */
    uint32_t ulOftId;                /* 10 bits of it are stored */
} NpGlobal;

/* A frame that is sent when power fails. */
typedef struct NpDyingGasp {
    uint32_t ulValid;         /* 0 or 1 */
    uint32_t ulQueueID;       /* 0 to 511 */
    uint32_t ulFrameInfoType; /* 0 to 7; the host keeps it */
    NpFrameInfo unFrameInfo;
} NpDyingGasp;

typedef struct NpDyingGaspSmac {
    uint8_t aucMac[6]; /* the first byte of the address first */
} NpDyingGaspSmac;

/* Hooks that the sibling module registers. They are called from the context of the SDK call under
   way; registering needs no registered chip.

   A hook can be replaced and can't be taken back: each function refuses null, the interface has no
   other, and what is registered stays until the SDK is unloaded. So a hook has to outlive its use:
   a sibling that can be unloaded leaves its hooks to a module that stays, or registers others that
   stay before it goes. Replacing does not wait for a hook that is running. */
typedef void (*NpPrintHook)(const char *pszText); /* one complete text, not a format */
typedef void (*NpUsDelayHook)(uint32_t ulA, uint32_t ulB, uint32_t ulC);  /* passed through */
typedef uint32_t (*NpSlaveReadHook)(uint32_t ulAddr, uint32_t *pulValue); /* 0 or a code */
typedef uint32_t (*NpSlaveWriteHook)(uint32_t ulAddr, uint32_t ulValue);  /* 0 or a code */
typedef void (*NpRecordErrHook)(uint32_t ulErrCode, uint32_t ulErrInfo);
typedef void (*NpClearWatchDogHook)(void); /* must not sleep during an online microcode load */
typedef uint32_t (*NpIntLockHook)(void);   /* gives the key for the unlock */
typedef void (*NpIntUnlockHook)(uint32_t ulKey);

/* What this SDK is; "Lodestone1.3.10.0022forQA02MXU" on a chip of class 1 and attribute 0. */
typedef struct NpSdkVersionInfo {
    uint32_t ulYear;
    uint32_t ulMonth;
    uint32_t ulDay;
    char szVersion[33];
} NpSdkVersionInfo;

/* Makes a chip known, to be called before anything else for it. ulChipID 0 to 3, else
   NP_ERR_CHIP_ID. ulChipClass 0 to 2, else NP_ERR_CHIP_VERSION; ulChipAttr 0 MXU, 1 FTTM, 2
   CMTS, 3 OLT, 4 XGPON. Only class 1 or 2 with attribute 0 or 4 registers; any other accepted
   pair gives NP_OK and registers nothing. ulRegBaseAddr: register base, 0 for the chip that the
   processor sits at. Registering again overwrites the chip's slot. */
NP_API uint32_t Np_GLB_ChipRegister(uint32_t ulChipID, uint32_t ulChipClass, uint32_t ulChipAttr,
                                    uintptr_t ulRegBaseAddr);

/* Replaces the print hook (at first the kernel's console). NP_ERR_NULL_PTR for a null function. */
NP_API uint32_t Np_GLB_SetPrintHook(NpPrintHook pfnPrintHook);

/* The microsecond delay and the watchdog hook. Without a watchdog hook long loops give up the
   processor instead; an online microcode load needs one. NP_ERR_NULL_PTR for a null function. */
NP_API uint32_t Np_GLB_UsDelayRegister(NpUsDelayHook pfnUsDelayHook);
NP_API uint32_t Np_GLB_ClearWatchDogHook(NpClearWatchDogHook pfnClearWatchDog);

/* Register access of a slave chip, in place of the indirect bus. ulChipID 0 to 3, not checked.
   NP_ERR_NULL_PTR for a null function; a null write function leaves the read function
   registered. */
NP_API uint32_t Np_GLB_SlaveAddrHookRegister(uint32_t ulChipID, NpSlaveReadHook pfnRead,
                                             NpSlaveWriteHook pfnWrite);

/* Called with the code and a second value wherever the chip driver fails, whether or not
   tracing is on. ulChipID 0 to 3, not checked. NP_ERR_NULL_PTR for a null function. */
NP_API uint32_t Np_Glb_RecordErrInfoHook(uint32_t ulChipID, NpRecordErrHook pfnRecordErrInfo);

/* Interrupt lock hooks: kept, but the SDK masks interrupts at the processor itself.
   NP_ERR_NULL_PTR for a null function. */
NP_API uint32_t Np_GLB_IntLock(NpIntLockHook pfnIntLock);
NP_API uint32_t Np_GLB_IntUnlock(NpIntUnlockHook pfnIntUnlock);

/* Year, month, day and version text of the SDK. */
NP_API uint32_t Np_SdkVersion_Get(uint32_t ulChipID, NpSdkVersionInfo *pstVersion);

/* The 32 version characters of the loaded microcode image and a NUL; pszVersion holds 33 bytes,
   which are cleared first. NP_ERR_CHIP_VERSION before an image was given. */
NP_API uint32_t Np_MicroVersion_Get(uint32_t ulChipID, char *pszVersion);

/* The global settings row. ulIndex 0. Writes the global row, its port row and the global
   registers, in this order; fields behind an enable flag are checked and stored only while the
   flag is 1, and read as 0 else. A failure between them leaves those behind it as they were.
   Further codes: NP_ERR_ADDRESS, NP_ERR_REG_READ, NP_ERR_REG_WRITE. */
NP_API uint32_t Np_GlobalTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpGlobal *pstGlobal);
NP_API uint32_t Np_GlobalTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpGlobal *pstGlobal);

/* The frames that the chip sends when power fails. ulIndex 0 to 7; ulQueueID up to 0x1ff,
   ulFrameInfoType up to 7. */
NP_API uint32_t Np_DyingGaspTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                    const NpDyingGasp *pstDyingGasp);
NP_API uint32_t Np_DyingGaspTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpDyingGasp *pstDyingGasp);

/* Source MAC of the dying gasp frames. ulIndex 0. */
NP_API uint32_t Np_DyingGaspSmacTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                        const NpDyingGaspSmac *pstDyingGaspSmac);
NP_API uint32_t Np_DyingGaspSmacTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                        NpDyingGaspSmac *pstDyingGaspSmac);

/* Length in bytes, 60 to 76, to which the XD transmit path pads Ethernet frames. */
NP_API uint32_t Np_XdTxEthPadLen_Set(uint32_t ulChipID, uint32_t ulPadLen);
NP_API uint32_t Np_XdTxEthPadLen_Get(uint32_t ulChipID, uint32_t *pulPadLen);

NP_EXTERN_C_END

#endif

/* MAC address table, LAN MAC table, learning, ageing and MAC limits.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_ARL_H
#define LDSDK_ARL_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* What names an entry of the MAC table. ulType chooses the fields that count; the others are
   tested all the same, and read back as 0:
     0, 8   MAC, outer VLAN, VSI              10  outer VLAN, VSI
     1      low 28 bits of ulDip, low 20 of   11  outer VLAN and priority, VSI
            ulSip, outer VLAN, VSI            12  both VLANs, mode, VSI
     2      ulDip                             13  last four bytes of the MAC, session, outer VLAN,
     3      ulDip, ulSip                          VSI
     4, 7   ulDip, outer VLAN                 14  MAC, VSI
     5, 9   both VLANs, VSI                   15  MAC, port, VSI: a user MAC
     6      MAC */
typedef struct NpArlKey {
    uint32_t ulType;    /* 0 to 15 */
    uint32_t ulSvlanID; /* outer VLAN, 0 to 4095 */
    uint32_t ulCvlanID; /* inner VLAN, 0 to 4095 */
    uint32_t ulSvlan1p; /* outer priority, 0 to 7 */
    uint32_t ulCvlan1p; /* inner priority, 0 to 7; no type stores it */
    uint32_t ulSip;
    uint32_t ulDip;
    uint32_t ulSessionID;   /* PPPoE, 0 to 0xffff */
    NpPortID stPort;        /* type 15 only */
    uint32_t ulVsi;         /* virtual switch instance, 0 to 0xf */
    uint32_t ulScUnMode;    /* mode of type 12, 0 to 3 */
    uint32_t ulAoeCtrlWord; /* 0 to 0xffff; no type stores it */
    uint8_t aucMacAddr[6];
} NpArlKey;

/* Where an entry leads to; learning is charged to the limit counter of the operation. */
typedef struct NpLearnData {
    uint32_t ulOpCode; /* 0 to 7; 0 a flow, 2 a bundle of flows */
    uint32_t ulIntfID; /* interface or flow, 0 to 0x1fff */
} NpLearnData;

typedef struct NpArlData {
    NpLearnData stLearnData;
    uint32_t ulPfEnable;  /* 0, 1 */
    uint32_t ulClass;     /* 0 to 3; 1 low, 2 high */
    uint32_t ulVmac;      /* 1: a virtual MAC */
    uint32_t ulVmacID;    /* row of the user MAC table, 0 to 0xfff; of a virtual MAC only */
    uint32_t ulMdiEnable; /* 0, 1; this and the next two: not of a virtual MAC */
    uint32_t ulMdiID;     /* 0 to 3 */
    uint32_t ulMcnID;     /* 0 to 3 */
    uint32_t ulL3;        /* 0, 1 */
    uint32_t ulIftID;     /* ingress flow, 0 to 0x3ff */
} NpArlData;

typedef struct NpArlInfo {
    uint32_t ulMacType;  /* 0 static, 1 dynamic; read by index also 2: empty place */
    uint32_t ulVas;      /* status: 0 empty, 15 static, else what ageing has left */
    uint32_t ulKeyIndex; /* place in the table */
} NpArlInfo;

/* An entry for the microcode to learn. */
typedef struct NpDynamicLrn {
    NpArlKey stArlKey;
    NpArlData stArlData;
} NpDynamicLrn;

typedef struct NpDynamicLrnState {
    uint32_t ulDone;      /* 1: the microcode has answered */
    uint32_t ulLrnResult; /* 0 to 7, its own codes; 0 learned */
} NpDynamicLrnState;

/* A user MAC entry: its key, and the virtual MAC that it must have. */
typedef struct NpArlAgeModeKey {
    NpPortID stPort;
    uint8_t aucUmacAddr[6];
    uint8_t aucVmacAddr[6];
    uint32_t ulVsi; /* 0 to 0xf */
} NpArlAgeModeKey;

typedef struct NpUvmacInfoKey {
    uint32_t ulType; /* 0: all of the port; 1: those that lead to stLearnData */
    NpPortID stPort;
    NpLearnData stLearnData;
} NpUvmacInfoKey;

/* A user MAC, the virtual MAC that stands for it, and where its entry leads to. */
typedef struct NpUvmac {
    uint8_t aucUmac[6];
    uint8_t aucVmac[6];
    uint32_t ulOpCode;
    uint32_t ulIntfID;
} NpUvmac;

typedef struct NpUvmacInfoAd {
    NpUvmac stUvmac;
} NpUvmacInfoAd;

typedef struct NpVmacOffset {
    uint8_t ulVmacOffset[32];
} NpVmacOffset;

typedef struct NpLanMacKey {
    uint32_t ulSvlanID; /* 0 to 4095 */
    uint8_t aucMacAddr[6];
} NpLanMacKey;

typedef struct NpLanMacData {
    uint32_t ulL2encId; /* encapsulation, that is, the LAN port; 0 to 0x1f */
} NpLanMacData;

/* As NpArlInfo. */
typedef struct NpLanMacInfo {
    uint32_t ulMacType;
    uint32_t ulVas;
    uint32_t ulKeyIndex;
} NpLanMacInfo;

typedef struct NpPortLimitNum {
    uint16_t usLimitNum; /* 0 to 1024 */
} NpPortLimitNum;

typedef struct NpGlbLimitNum {
    uint16_t usLimitNum; /* 0 to 1024 */
} NpGlbLimitNum;

/* The periodic sweep of dynamic entries. */
typedef struct NpNormalAge {
    uint32_t ulAgeEnable; /* 0 stops it, 1 starts it */
    uint32_t ulAgeTime;   /* 0 to 0x13c680; 0 stops it too */
} NpNormalAge;

/* One sweep of the dynamic entries that the one ulForceAgeID selects. */
typedef struct NpForceAge {
    uint32_t ulForceAgeIDBitmap; /* what it is: 1 flow, 2 bundle, 4 VLAN, 8 CM group, 16 VSI, 32 a
                                    flow marked apart, 64 class, and sums of them */
    uint32_t ulForceAgeID;
} NpForceAge;

/* Adds an entry as static, or rewrites the one with this key; a dynamic entry becomes static
   and its learn credit is given back. NP_ERR_TABLE_FULL, NP_ERR_HASH_CONFLICT,
   NP_ERR_EML_SEMAPHORE: no place. Further codes: NP_ERR_PORT_PARAM and the port conversions',
   for ulType 15. */
NP_API uint32_t Np_ArlTbl_Add(uint32_t ulChipID, const NpArlKey *pstArlKey,
                              const NpArlData *pstArlData);

/* Deletes by key. ulMacDelType: 0 only a static entry, 1 only a dynamic one, 2 any. */
NP_API uint32_t Np_ArlTbl_Del(uint32_t ulChipID, uint32_t ulMacDelType, const NpArlKey *pstArlKey);

/* Deletes the entry at ulIndex, 0 to 0x7ff. */
NP_API uint32_t Np_ArlTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex);

/* Deletes every entry of chip 0. NP_ERR_DELETE at the first failure, what stands behind it
   stays. */
NP_API uint32_t Np_ArlTbl_DelAll(void);

/* Looks a key up, and where it stands. NP_ERR_NOT_EXIST: no such key. */
NP_API uint32_t Np_ArlTbl_Get(uint32_t ulChipID, const NpArlKey *pstArlKey, NpArlData *pstArlData,
                              NpArlInfo *pstArlInfo);

/* Reads the place ulIndex, 0 to 0x7ff; an empty place is a success with ulMacType 2. */
NP_API uint32_t Np_ArlTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex, NpArlKey *pstArlKey,
                                     NpArlData *pstArlData, NpArlInfo *pstArlInfo);

/* Asks the microcode to learn a dynamic entry; the outcome appears in the learn state row. */
NP_API uint32_t Np_ArlTbl_DynamicArlLrn(uint32_t ulChipID, const NpDynamicLrn *pstDynamicLrn);

/* Outcome of the last dynamic learn: done flag and result. ulIndex 0. Clear zeroes the row. */
NP_API uint32_t Np_ArlTbl_DynamicArlLrnStateTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                                    NpDynamicLrnState *pstDynamicLrnState);
NP_API uint32_t Np_ArlTbl_DynamicArlLrnStateTbl_Clear(uint32_t ulChipID, uint32_t ulIndex);

/* Reads and clears the record of the last entry that found no place on learning. */
NP_API uint32_t Np_ArlTbl_HashCrashRecord_Read(uint32_t ulChipID, NpArlKey *pstArlKey,
                                               NpArlData *pstArlData, NpArlInfo *pstArlInfo);

/* Starts or stops the periodic sweep of dynamic entries. ulAgeEnable 0 or 1, ulAgeTime up to
   0x13c680. Further codes: NP_ERR_AUTO_SEND_SET, _ENABLE, _DELETE. */
NP_API uint32_t Np_ArlTbl_NormalAge(uint32_t ulChipID, const NpNormalAge *pstNormalAge);

/* One sweep of the dynamic entries that the bitmap selects: by flow, bundle, VLAN, CM group,
   VSI, flow id or class, with the one ulForceAgeID. */
NP_API uint32_t Np_ArlTbl_ForceAge(uint32_t ulChipID, const NpForceAge *pstForceAge);

/* Ageing of one user MAC entry. ulAgeMode: 0 never ages, 1 ages as the periodic sweep says, 2
   removed. NP_ERR_NOT_EXIST: no such entry; NP_ERR_FAIL: its virtual MAC differs from the
   key's. */
NP_API uint32_t Np_ArlTbl_AgeModeSet(uint32_t ulChipID, const NpArlAgeModeKey *pstArlAgeModeKey,
                                     uint32_t ulAgeMode);

/* Lists the virtual MACs in use on a port. ulType of the key 0 or 1; pstUvmacInfoAd has room
   for as many records as the port's virtual MAC range has addresses, 32 at most; pulNum takes
   their count. */
NP_API uint32_t Np_UVMacInfo_Get(uint32_t ulChipID, const NpUvmacInfoKey *pstUvmacInfoKey,
                                 uint32_t *pulNum, NpUvmacInfoAd *pstUvmacInfoAd);

/* A row of 32 virtual MAC offsets, one byte each. ulIndex 0 to 31. */
NP_API uint32_t Np_VmacOffsetTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                     const NpVmacOffset *pstVmacOffset);
NP_API uint32_t Np_VmacOffsetTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                     NpVmacOffset *pstVmacOffset);

/* LAN MAC entries, as the functions of the MAC table of the same ending. ulIndex 0 to 0x7ff. */
NP_API uint32_t Np_LanMacTbl_Add(uint32_t ulChipID, const NpLanMacKey *pstLanMacKey,
                                 const NpLanMacData *pstLanMacData);
NP_API uint32_t Np_LanMacTbl_Del(uint32_t ulChipID, uint32_t ulMacDelType,
                                 const NpLanMacKey *pstLanMacKey);
NP_API uint32_t Np_LanMacTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex);
NP_API uint32_t Np_LanMacTbl_Get(uint32_t ulChipID, const NpLanMacKey *pstLanMacKey,
                                 NpLanMacData *pstLanMacData, NpLanMacInfo *pstLanMacInfo);
NP_API uint32_t Np_LanMacTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex,
                                        NpLanMacKey *pstLanMacKey, NpLanMacData *pstLanMacData,
                                        NpLanMacInfo *pstLanMacInfo);

/* How many LAN MACs may be learned, 0 to 1024: on the port ulIndex, 0 to 63, and on the chip,
   ulIndex 0. In force at once. */
NP_API uint32_t Np_PortMacLimitTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                       const NpPortLimitNum *pstPortLimitNum);
NP_API uint32_t Np_PortMacLimitTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                       NpPortLimitNum *pstPortLimitNum);
NP_API uint32_t Np_GlbLanMacLimitTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                         const NpGlbLimitNum *pstGlbLimitNum);
NP_API uint32_t Np_GlbLanMacLimitTbl_Get(uint32_t ulChipID, uint32_t ulIndex,
                                         NpGlbLimitNum *pstGlbLimitNum);

NP_EXTERN_C_END

#endif

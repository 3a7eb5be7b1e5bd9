/* VLAN rows and spanning tree states.
   Rows are written whole. Further codes of all functions here: NP_ERR_ADDRESS, NP_ERR_REG_READ,
   NP_ERR_REG_WRITE.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_VLAN_H
#define LDSDK_VLAN_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* What becomes of the packets of a VLAN. The values of a field whose comment names none are 0 and
   1; up and down are the two directions. */
typedef struct NpVlan {
    uint32_t ulFwd;                 /* 0 forward, 1 snooping, 2 drop, 3 to CPU */
    uint32_t ulUpUnUcFiterEnable;   /* up: filter unknown unicast, */
    uint32_t ulUpUnMcFiterEnable;   /* unknown multicast, */
    uint32_t ulUpBcFilterEnable;    /* broadcast; */
    uint32_t ulUpUnUcNoDropEnable;  /* do not drop unknown unicast, */
    uint32_t ulUpUnMcNoDropEnable;  /* unknown multicast, */
    uint32_t ulUpBcNoDropEnable;    /* broadcast */
    uint32_t ulDownUnUcFiterEnable; /* the same, down */
    uint32_t ulDownUnMcFiterEnable;
    uint32_t ulDownBcFilterEnable;
    uint32_t ulDownUnUcNoDropEnable;
    uint32_t ulDownUnMcNoDropEnable;
    uint32_t ulDownBcNoDropEnable;
    uint32_t ulVrfID;            /* 0 to 15 */
    uint32_t ulPppoeVmacMask;    /* virtual MAC for PPPoE: 0 none, 1 1:1, 2 n:1, 3 both */
    uint32_t ulNonPppoeVmacMask; /* the same for the others */
    uint32_t ulMstpID;           /* spanning tree instance, 0 to 3 */
    uint32_t ulUrpfMode;         /* 0 to 3, as the microcode takes it */
    uint32_t ulULrnMode;         /* learning, user side: 0 VLAN and MAC, 1 both VLANs, static,
                                    2 VLAN, 3 VLAN and priority, 4 both VLANs, dynamic,
                                    5 VLAN, session and MAC, 6 MAC, 7 VLAN and IPv4 */
    uint32_t ulNLrnMode;         /* learning, network side: the same */
    uint32_t ulMccLeafID;        /* leaf of the multicast copies, 0 to 1999 */
    uint32_t ulVlanIf;           /* VLAN interface, 0 to 31 */
    uint32_t ulMcSearchMode;     /* multicast search: 0 MAC and VLAN, 1 VLAN and both IPs,
                                    2 group IP, 3 both IPs, 4 VLAN and group IP, 5 both VLANs;
                                    up to 7 */
    uint32_t ulPortBitMap;       /* member ports, 26 bits */
    uint32_t ulQinQ;
    uint32_t ulBrasMacEnable;
    uint32_t ulVlanIfEnable;
    uint32_t ulMcModeEnable;
} NpVlan;

/* Actions by frame category: 0 forward, 1 snooping, 2 drop, 3 to CPU. */
typedef struct NpVlanOption {
    uint32_t aulUpAction[32];
    uint32_t aulDownAction[32];
} NpVlanOption;

/* Protocol templates (rows of PTT1), 0 to 255. */
typedef struct NpVlanPtt {
    uint32_t ulUpProtocolTempletID;
    uint32_t ulDownProtocolTempletID;
} NpVlanPtt;

/* A VLAN of the LAN side; flags 0 or 1. */
typedef struct NpLanVlan {
    uint32_t ulWan;
    uint32_t ulUniPortBitMap; /* its low 25 bits are stored */
    uint32_t ulNDUUC;         /* do not drop unknown unicast, */
    uint32_t ulNDUMC;         /* unknown multicast, */
    uint32_t ulNDBC;          /* broadcast; */
    uint32_t ulUUF;           /* filter unknown unicast, */
    uint32_t ulUMF;           /* unknown multicast, */
    uint32_t ulBF;            /* broadcast */
} NpLanVlan;

/* Spanning tree state of a port: 0 forwarding, 1 blocking, 2 learning, 3 disabled. */
typedef struct NpStpStatus {
    uint32_t ulStatus;
} NpStpStatus;

typedef struct NpIstp {
    NpStpStatus astStatus[8];
} NpIstp;

typedef struct NpEstp {
    NpStpStatus astStatus[8];
} NpEstp;

/* VLAN row with its extension: forwarding, filters, learning and search modes, port bitmap.
   ulVlanID 0 to 4095. */
NP_API uint32_t Np_VlanTbl_Set(uint32_t ulChipID, uint32_t ulVlanID, const NpVlan *pstVlan);
NP_API uint32_t Np_VlanTbl_Get(uint32_t ulChipID, uint32_t ulVlanID, NpVlan *pstVlan);

/* 32 up and 32 down actions, each 0 forward, 1 snooping, 2 drop, 3 to CPU. ulVlanID 0 to 4095. */
NP_API uint32_t Np_VlanOptionTbl_Set(uint32_t ulChipID, uint32_t ulVlanID,
                                     const NpVlanOption *pstVlanOption);
NP_API uint32_t Np_VlanOptionTbl_Get(uint32_t ulChipID, uint32_t ulVlanID,
                                     NpVlanOption *pstVlanOption);

/* Protocol templates, 0 to 255, for up and down. ulVlanID 0 to 4095. */
NP_API uint32_t Np_VlanPttTbl_Set(uint32_t ulChipID, uint32_t ulVlanID,
                                  const NpVlanPtt *pstVlanPtt);
NP_API uint32_t Np_VlanPttTbl_Get(uint32_t ulChipID, uint32_t ulVlanID, NpVlanPtt *pstVlanPtt);

/* LAN VLAN row: WAN flag, filters and port bitmap (25 bits). ulVlanID 0 to 4095. */
NP_API uint32_t Np_LanVlanTbl_Set(uint32_t ulChipID, uint32_t ulVlanID,
                                  const NpLanVlan *pstLanVlanBc);
NP_API uint32_t Np_LanVlanTbl_Get(uint32_t ulChipID, uint32_t ulVlanID, NpLanVlan *pstLanVlanBc);

/* Ingress and egress spanning tree state of eight ports, each 0 forwarding, 1 blocking, 2
   learning, 3 disabled. ulIstpID, ulEstpID 0 to 3. */
NP_API uint32_t Np_IstpTbl_Set(uint32_t ulChipID, uint32_t ulIstpID, const NpIstp *pstIstp);
NP_API uint32_t Np_IstpTbl_Get(uint32_t ulChipID, uint32_t ulIstpID, NpIstp *pstIstp);
NP_API uint32_t Np_EstpTbl_Set(uint32_t ulChipID, uint32_t ulEstpID, const NpEstp *pstEstp);
NP_API uint32_t Np_EstpTbl_Get(uint32_t ulChipID, uint32_t ulEstpID, NpEstp *pstEstp);

NP_EXTERN_C_END

#endif

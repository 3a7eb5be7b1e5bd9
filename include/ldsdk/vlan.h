/* VLAN rows and spanning tree states.
   Rows are written whole. Further codes of all functions here: NP_ERR_ADDRESS, NP_ERR_REG_READ,
   NP_ERR_REG_WRITE.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_VLAN_H
#define LDSDK_VLAN_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

typedef struct NpVlan NpVlan;
typedef struct NpVlanOption NpVlanOption;
typedef struct NpVlanPtt NpVlanPtt;
typedef struct NpLanVlan NpLanVlan;
typedef struct NpIstp NpIstp;
typedef struct NpEstp NpEstp;

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

// Port tables that this family has not: ATM encapsulation, and those of circuit emulation. No slot
// of the service table leads here.
#pragma once

#include "ldsdk/port.h"
#include "sdk/record/table.h"

extern const NpTable g_stAtmEncapTable;
extern const NpTable g_stIpUdpTable;
extern const NpRow g_stAtmEncapRow;
extern const NpRow g_stPvcKeyArgs;  // port and PVC
extern const NpRow g_stPvcEncRow;
extern const NpRow g_stIpUdpKeyRow;
extern const NpRow g_stIpUdpRow;
extern const NpRow g_stCesopKeyRow;
extern const NpRow g_stCesopDataRow;

// A port's PVC, as the command line takes it.
struct NpPvcKey {
    NpPortID stPort;
    uint32_t ulPvcIndex;
};
uint32_t Np_PvcItem_Get(uint32_t ulChipID, const NpPvcKey *pstKey, NpPortPvcEnc *pstPvcEnc);
uint32_t Np_PvcItem_Set(uint32_t ulChipID, const NpPvcKey *pstKey, const NpPortPvcEnc *pstPvcEnc);

extern "C" {

uint32_t Np_Tarn_AtmEncapTbl_Set(uint32_t ulChipID, const NpPortID *pstPortID,
                                 const NpPortAtmEncap *pstAtmEncap);
uint32_t Np_Tarn_AtmEncapTbl_Get(uint32_t ulChipID, const NpPortID *pstPortID,
                                 NpPortAtmEncap *pstAtmEncap);
uint32_t Np_Tarn_AtmEncapTblPvcItem_Set(uint32_t ulChipID, const NpPortID *pstPortID,
                                        uint32_t ulPvcIndex, const NpPortPvcEnc *pstPvcEnc);
uint32_t Np_Tarn_AtmEncapTblPvcItem_Get(uint32_t ulChipID, const NpPortID *pstPortID,
                                        uint32_t ulPvcIndex, NpPortPvcEnc *pstPvcEnc);
uint32_t Np_Tarn_IpUdpEncapInfoTbl_Set(uint32_t ulChipID, uint32_t ulCesTunnelId,
                                       const NpPortIpUdpEncapInfo *pstIpUdpEnacpInfo);
uint32_t Np_Tarn_IpUdpEncapInfoTbl_Get(uint32_t ulChipID, uint32_t ulCesTunnelId,
                                       NpPortIpUdpEncapInfo *pstIpUdpEnacpInfo);
uint32_t Np_Tarn_CesopMapTbl_Set(uint32_t ulChipID, const NpPortCesopKey *pstCesopMapKey,
                                 const NpPortCesopData *pstCesopMapData);
uint32_t Np_Tarn_CesopMapTbl_Get(uint32_t ulChipID, const NpPortCesopKey *pstCesopMapKey,
                                 NpPortCesopData *pstCesopMapData);
// The data is not looked at.
uint32_t Np_Tarn_CesopMapTbl_Del(uint32_t ulChipID, const NpPortCesopKey *pstCesopMapKey,
                                 const NpPortCesopData *pstCesopMapData);
// By place, below the table's rows. *pulStatus, which may be null: 15 for an entry, 0 for none.
uint32_t Np_Tarn_CesopMapTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex,
                                        NpPortCesopKey *pstCesopMapKey,
                                        NpPortCesopData *pstCesopMapData, uint32_t *pulStatus);
uint32_t Np_Tarn_CesopMapTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex);

}  // extern "C"

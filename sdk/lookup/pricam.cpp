// Priority blocks over the LCAM.
#include "sdk/lookup/pricam.h"

#include "sdk/lookup/lcam.h"

namespace {

uint32_t Np_LcamStoreWrite(const NpPriCamStore *pstStore, uint32_t ulOffset,
                           const NpKeyMaskAdInfo *pstKeyMaskAdInfo)
{
    return Np_Tarn_LCAM_TcamWrite(pstStore->ulChipID, pstStore->ulTableID, ulOffset,
                                  pstKeyMaskAdInfo->pvKey, pstKeyMaskAdInfo->pvMask,
                                  pstKeyMaskAdInfo->pvAd);
}

uint32_t Np_LcamStoreMove(const NpPriCamStore *pstStore, uint32_t ulSrcOffset, uint32_t ulDstOffset)
{
    return Np_Tarn_LCAM_TcamMove(pstStore->ulChipID, pstStore->ulTableID, ulSrcOffset, ulDstOffset);
}

uint32_t Np_LcamStoreDelete(const NpPriCamStore *pstStore, uint32_t ulOffset)
{
    return Np_Tarn_LCAM_TcamDelete(pstStore->ulChipID, pstStore->ulTableID, ulOffset);
}

NpPriCamStore Np_LcamStore(uint32_t ulChipID, const NpPriCamEntryInfo *pstPriCamEntryInfo)
{
    return {.pfnWrite = Np_LcamStoreWrite,
            .pfnMove = Np_LcamStoreMove,
            .pfnDelete = Np_LcamStoreDelete,
            .ulChipID = ulChipID,
            .ulTableID = pstPriCamEntryInfo == nullptr ? 0 : pstPriCamEntryInfo->ulTableID,
            .pvUser = nullptr};
}

}  // namespace

uint32_t Np_Tarn_PriCam_BlockAssign(uint32_t ulChipID, uint32_t ulTcamMaxEntry,
                                    const NpPriBlock *pstPriBlockInfo,
                                    NpPriBlockPoint *pstPriBlockPoint)
{
    return Np_Placement_Layout(ulChipID, ulTcamMaxEntry, pstPriBlockInfo, pstPriBlockPoint);
}

uint32_t Np_Tarn_PriCam_KeyAdInfo_Set(uint32_t ulChipID,
                                      const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                      const NpPriCamSoftInfo *pstPriCamSoftInfo,
                                      const NpKeyMaskAdInfo *pstKeyMaskAdInfo)
{
    const NpPriCamStore stStore = Np_LcamStore(ulChipID, pstPriCamEntryInfo);
    return Np_Placement_Set(&stStore, pstPriCamEntryInfo, pstPriCamSoftInfo, pstKeyMaskAdInfo);
}

uint32_t Np_Tarn_PriCam_Entry_Del(uint32_t ulChipID, const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                  const NpPriCamSoftInfo *pstPriCamSoftInfo)
{
    const NpPriCamStore stStore = Np_LcamStore(ulChipID, pstPriCamEntryInfo);
    return Np_Placement_Del(&stStore, pstPriCamEntryInfo, pstPriCamSoftInfo);
}

uint32_t Np_Tarn_PriCam_KeyAssign(uint32_t ulChipID, const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                  const NpPriCamSoftInfo *pstPriCamSoftInfo,
                                  uint32_t *pulFreeTcamEntry)
{
    const NpPriCamStore stStore = Np_LcamStore(ulChipID, pstPriCamEntryInfo);
    return Np_Placement_Assign(&stStore, pstPriCamEntryInfo, pstPriCamSoftInfo, pulFreeTcamEntry);
}

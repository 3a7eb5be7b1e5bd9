// The driver's functions for the local CAM and the branch CAM.

#include "chipmodel/call.h"

using namespace ldsdk::model;

uint32_t Qd_LCAM_CamIdModeSet(uint32_t ulChipID, uint32_t ulMode)
{
    return not_modelled(Op::Qd_LCAM_CamIdModeSet, ulChipID, {{ulMode}});
}

uint32_t Qd_LCAM_CamIdModeGet(uint32_t ulChipID, uint32_t *)
{
    return not_modelled(Op::Qd_LCAM_CamIdModeGet, ulChipID, {});
}

uint32_t Qd_LCAM_MirrorEnableGet(uint32_t ulChipID, uint32_t ulCid, uint32_t *)
{
    return not_modelled(Op::Qd_LCAM_MirrorEnableGet, ulChipID, {{ulCid}});
}

uint32_t Qd_LCAM_TcamEnableGet(uint32_t ulChipID, const QdLcamAccessInfo *pstAccessInfo, uint32_t *)
{
    if (pstAccessInfo == nullptr) {
        return kErrNull;
    }
    return not_modelled(Op::Qd_LCAM_TcamEnableGet, ulChipID,
                        {{pstAccessInfo->ulType, pstAccessInfo->ulBlock, pstAccessInfo->ulTcam,
                          pstAccessInfo->ulDepth, pstAccessInfo->ulCid}});
}

uint32_t Qd_LCAM_ProtectDepthSet(uint32_t ulChipID, uint32_t ulDepth0, uint32_t ulDepth1)
{
    return not_modelled(Op::Qd_LCAM_ProtectDepthSet, ulChipID, {{ulDepth0, ulDepth1}});
}

uint32_t Qd_LCAM_RcamWrite(uint32_t ulChipID, uint32_t ulSelector, uint32_t ulLen, const void *)
{
    return not_modelled(Op::Qd_LCAM_RcamWrite, ulChipID, {{ulSelector, ulLen}});
}

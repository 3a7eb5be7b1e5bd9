// The driver's functions for the local CAM and the branch CAM.

#include "chipmodel/call.h"

using namespace ldsdk::model;

uint32_t Qd_LCAM_CamIdModeSet(uint32_t ulChipID, uint32_t ulMode)
{
    return driver_call(Op::Qd_LCAM_CamIdModeSet, ulChipID, {{ulMode}}, [&](Chip &chip) {
        if (ulMode > kTcamModeShared) {
            return kErrParam;
        }
        chip.tcam.mode = ulMode;
        return kOk;
    });
}

uint32_t Qd_LCAM_CamIdModeGet(uint32_t ulChipID, uint32_t *pulMode)
{
    return driver_call(Op::Qd_LCAM_CamIdModeGet, ulChipID, {}, [&](Chip &chip) {
        if (pulMode == nullptr) {
            return kErrNull;
        }
        *pulMode = chip.tcam.mode;
        return kOk;
    });
}

uint32_t Qd_LCAM_MirrorEnableGet(uint32_t ulChipID, uint32_t ulCid, uint32_t *pulEnable)
{
    return driver_call(Op::Qd_LCAM_MirrorEnableGet, ulChipID, {{ulCid}}, [&](Chip &chip) {
        if (pulEnable == nullptr || ulCid >= kCamIdNum) {
            return pulEnable == nullptr ? kErrNull : kErrParam;
        }
        *pulEnable = chip.tcam.mirror[ulCid] ? 1 : 0;
        return kOk;
    });
}

uint32_t Qd_LCAM_TcamEnableGet(uint32_t ulChipID, const QdLcamAccessInfo *pstAccessInfo,
                               uint32_t *pulEnable)
{
    if (pstAccessInfo == nullptr || pulEnable == nullptr) {
        return kErrNull;
    }
    const QdLcamAccessInfo &info = *pstAccessInfo;
    const CallNumbers numbers = {
        {info.ulType, info.ulBlock, info.ulTcam, info.ulDepth, info.ulCid}};
    return driver_call(Op::Qd_LCAM_TcamEnableGet, ulChipID, numbers, [&](Chip &chip) {
        const TcamPlace place = {info.ulType, info.ulBlock, info.ulTcam, info.ulDepth};
        if (!tcam_place_ok(place) || info.ulCid >= kCamIdNum) {
            return kErrParam;
        }
        *pulEnable = tcam_valid(chip.tcam, place) ? 1 : 0;
        return kOk;
    });
}

// ---- branch CAM ---------------------------------------------------------------------------------

uint32_t Qd_LCAM_ProtectDepthSet(uint32_t ulChipID, uint32_t ulDepth0, uint32_t ulDepth1)
{
    const CallNumbers numbers = {{ulDepth0, ulDepth1}};
    return driver_call(Op::Qd_LCAM_ProtectDepthSet, ulChipID, numbers, [&](Chip &chip) {
        chip.atoms.branch.protect[0] = ulDepth0;
        chip.atoms.branch.protect[1] = ulDepth1;
        return kOk;
    });
}

uint32_t Qd_LCAM_RcamWrite(uint32_t ulChipID, uint32_t ulSelector, uint32_t ulLen,
                           const void *pvData)
{
    const CallNumbers numbers = {{ulSelector, ulLen}};
    return driver_call(Op::Qd_LCAM_RcamWrite, ulChipID, numbers,
                       [&](Chip &chip) { return branch_write(chip, ulSelector, pvData, ulLen); });
}

#include "sdk/cpuchan/inband.h"

#include "sdk/frame/registry.h"
#include "sdk/frame/trace.h"

namespace {

uint32_t Np_FieldLoad(const NpInbandField &stField, const void *pvRecord)
{
    uint32_t ulValue;
    __builtin_memcpy(&ulValue, static_cast<const uint8_t *>(pvRecord) + stField.usOffset,
                     sizeof(ulValue));
    return ulValue;
}

void Np_FieldStore(const NpInbandField &stField, void *pvRecord, uint32_t ulValue)
{
    __builtin_memcpy(static_cast<uint8_t *>(pvRecord) + stField.usOffset, &ulValue,
                     sizeof(ulValue));
}

uint32_t Np_FieldMask(const NpInbandField &stField)
{
    return stField.ucWidth == 32 ? 0xffffffff : (1u << stField.ucWidth) - 1;
}

bool Np_FieldIsLegal(const NpInbandField &stField, uint32_t ulValue)
{
    switch (stField.enLimit) {
        case NP_LIMIT_NONE:
            return true;
        case NP_LIMIT_MOST:
            return ulValue <= stField.ulLimit;
        case NP_LIMIT_SLOT:
            return ulValue <= Np_GLB_CapGet(static_cast<NpCapSlot>(stField.ulLimit));
        case NP_LIMIT_BELOW_SLOT:
            return ulValue < Np_GLB_CapGet(static_cast<NpCapSlot>(stField.ulLimit));
        default:
            return ulValue < 2;
    }
}

void Np_FieldComplain(const NpInbandField &stField, uint32_t ulValue, const NpInbandVoice &stVoice)
{
    switch (stField.enLimit) {
        case NP_LIMIT_ENABLE:
            NP_TRACE_AS(stVoice.pszFunc, stVoice.ulModule, NP_PRINT_ERROR,
                        "enable Para error: 0x%08x \r\n", ulValue);
            return;
        case NP_LIMIT_BOOL:
            NP_TRACE_AS(stVoice.pszFunc, stVoice.ulModule, NP_PRINT_ERROR,
                        "true/false Para error: 0x%08x \r\n", ulValue);
            return;
        default:
            NP_TRACE_AS(stVoice.pszFunc, stVoice.ulModule, NP_PRINT_ERROR,
                        "param error! %s%s=0x%08x\r\n", stVoice.pszRecord, stField.pszName,
                        ulValue);
            return;
    }
}

}  // namespace

void Np_InbandTrace(const NpInbandFormat &stFormat, const void *pvRecord,
                    const NpInbandVoice &stVoice)
{
    if (g_stNpSdkModuleSwitch[stVoice.ulModule][NP_PRINT_TRACE] == 0) [[likely]] {
        return;
    }
    for (uint32_t i = 0; i < stFormat.ulFieldNum; i++) {
        const NpInbandField &stField = stFormat.pstField[i];
        if (stField.ucShift == 0) {
            NP_TRACE_AS(stVoice.pszFunc, stVoice.ulModule, NP_PRINT_TRACE, "%s%s=0x%08x\r\n",
                        stVoice.pszRecord, stField.pszName, Np_FieldLoad(stField, pvRecord));
        }
    }
}

uint32_t Np_InbandCheck(const NpInbandFormat &stFormat, const void *pvRecord,
                        const NpInbandVoice &stVoice)
{
    for (uint32_t i = 0; i < stFormat.ulFieldNum; i++) {
        const NpInbandField &stField = stFormat.pstField[i];
        const uint32_t ulValue = Np_FieldLoad(stField, pvRecord);
        if (!Np_FieldIsLegal(stField, ulValue)) {
            Np_FieldComplain(stField, ulValue, stVoice);
            return NP_ERR_PARAM;
        }
    }
    return NP_OK;
}

void Np_InbandPack(const NpInbandFormat &stFormat, const void *pvRecord, uint32_t *pulWord)
{
    for (uint32_t i = 0; i < stFormat.ulFieldNum; i++) {
        const NpInbandField &stField = stFormat.pstField[i];
        const uint32_t ulPiece =
            Np_FieldLoad(stField, pvRecord) >> stField.ucShift & Np_FieldMask(stField);
        pulWord[stField.ucWord] |= ulPiece << stField.ucBit;
    }
}

void Np_InbandParse(const NpInbandFormat &stFormat, const uint32_t *pulWord, void *pvRecord)
{
    for (uint32_t i = 0; i < stFormat.ulFieldNum; i++) {
        const NpInbandField &stField = stFormat.pstField[i];
        if (stField.ucWidth == 0) {
            continue;
        }
        uint32_t ulValue = pulWord[stField.ucWord] >> stField.ucBit & Np_FieldMask(stField);
        if (stField.ucShift != 0) {
            ulValue = ulValue << stField.ucShift | Np_FieldLoad(stField, pvRecord);
        }
        Np_FieldStore(stField, pvRecord, ulValue);
    }
}

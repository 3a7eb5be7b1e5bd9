#include "sdk/lookup/eml_item.h"

#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"

namespace {

// AD fields of the flee stores.
inline constexpr uint32_t NP_FLEE_AD_SIZE = 8;
inline constexpr uint32_t NP_FLEE_LM_AD_SIZE = 16;

void Np_KeyPut(const NpEmlConfig *pstConfig, uint8_t *pucItem, const uint8_t *pucKey)
{
    uint8_t *pucAt = pucItem + pstConfig->ulAdLen - 1;  // its high nibble is the key's first
    for (uint32_t i = 0; i < pstConfig->ulKeyLen; i++) {
        pucAt[i] = static_cast<uint8_t>((pucAt[i] & 0x0f) | pucKey[i] << 4);
        pucAt[i + 1] = static_cast<uint8_t>((pucAt[i + 1] & 0xf0) | pucKey[i] >> 4);
    }
}

}  // namespace

void Np_EmlKeyGet(const NpEmlConfig *pstConfig, const uint8_t *pucItem, uint8_t *pucKey)
{
    const uint8_t *pucAt = pucItem + pstConfig->ulAdLen - 1;
    for (uint32_t i = 0; i < pstConfig->ulKeyLen; i++) {
        pucKey[i] = static_cast<uint8_t>(pucAt[i] >> 4 | pucAt[i + 1] << 4);
    }
}

void Np_EmlShiftedAdGet(const NpEmlConfig *pstConfig, uint8_t *pucItem, const uint8_t *pucField,
                        uint32_t ulField)
{
    const uint32_t ulAdLen = pstConfig->ulAdLen;
    if (ulAdLen == 0) {
        return;  // a row without a table
    }
    const uint32_t ulLost = ulAdLen > ulField ? ulAdLen - ulField : 0;
    // Byte i of the shifted AD, from ulLost on, is pucField[ulFirst + i - ulLost].
    const uint8_t *pucAt = pucField + (ulAdLen > ulField ? 0 : ulField - ulAdLen);
    if (ulLost > 0) {
        pucItem[ulLost - 1] = static_cast<uint8_t>((pucItem[ulLost - 1] & 0x0f) | pucAt[0] << 4);
    }
    uint32_t i = ulLost;
    for (; i + 1 < ulAdLen; i++, pucAt++) {
        pucItem[i] = static_cast<uint8_t>(pucAt[0] >> 4 | pucAt[1] << 4);
    }
    pucItem[i] = static_cast<uint8_t>((pucItem[i] & 0xf0) | pucAt[0] >> 4);
}

void Np_EmlShiftedAdPut(const NpEmlConfig *pstConfig, const uint8_t *pucItem, uint8_t *pucField,
                        uint32_t ulField)
{
    const uint32_t ulAdLen = pstConfig->ulAdLen;
    uint8_t *pucAt = pucField + (ulAdLen > ulField ? 0 : ulField - ulAdLen);
    for (uint32_t i = ulAdLen > ulField ? ulAdLen - ulField : 0; i < ulAdLen; i++, pucAt++) {
        const uint32_t ulBelow = i == 0 ? 0 : pucItem[i - 1];
        *pucAt = static_cast<uint8_t>(pucItem[i] << 4 | ulBelow >> 4);
    }
}

void Np_Tarn_EML_UserDataSeparate(uint32_t ulChipID, uint32_t ulTableID, const uint8_t *pucItem,
                                  uint8_t *pucStatus, uint8_t *pucKey, uint8_t *pucAd)
{
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    if (pucStatus != nullptr) {
        *pucStatus = static_cast<uint8_t>(Np_EmlStatusGet(pstConfig, pucItem));
    }
    if (pucKey != nullptr) {
        Np_EmlKeyGet(pstConfig, pucItem, pucKey);
    }
    if (pucAd != nullptr && pstConfig->ulAdLen > 0) {
        memcpy(pucAd, pucItem, pstConfig->ulAdLen);
        pucAd[pstConfig->ulAdLen - 1] &= 0x0f;
    }
}

void Np_Tarn_EML_UserDataCombine(uint32_t ulChipID, uint32_t ulTableID, uint8_t *pucItem,
                                 const uint8_t *pucStatus, const uint8_t *pucKey,
                                 const uint8_t *pucAd)
{
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    if (pucStatus != nullptr) {
        Np_EmlStatusSet(pstConfig, pucItem, *pucStatus);
    }
    if (pucKey != nullptr) {
        Np_KeyPut(pstConfig, pucItem, pucKey);
    }
    if (pucAd != nullptr) {
        const uint32_t ulField =
            ulTableID == NP_EML_OAM_LM_DATAPKT ? NP_FLEE_LM_AD_SIZE : NP_FLEE_AD_SIZE;
        Np_EmlShiftedAdGet(pstConfig, pucItem, pucAd, ulField);
    }
}

void Np_Tarn_EML_HashKeyBuild(uint32_t ulChipID, uint32_t ulTableID, const uint8_t *pucItem,
                              uint8_t *pucHashKey)
{
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    uint8_t aucKey[NP_EML_ITEM_MAX];
    Np_EmlKeyGet(pstConfig, pucItem, aucKey);
    // Right-aligned; a key of more than 16 bytes is folded onto itself.
    for (uint32_t i = 0; i < pstConfig->ulKeyLen; i++) {
        const uint32_t ulFromEnd = (pstConfig->ulKeyLen - 1 - i) % NP_EML_HASH_KEY_SIZE;
        pucHashKey[NP_EML_HASH_KEY_SIZE - 1 - ulFromEnd] ^= aucKey[i];
    }
}

void Np_Tarn_EML_DataTrace(uint32_t ulChipID, uint32_t ulTableID, const void *pvData)
{
    if (g_stNpSdkModuleSwitch[NP_M_EML][NP_PRINT_TRACE] == 0) [[likely]] {
        return;
    }
    const uint32_t ulSize = Np_EmlItemSize(Np_EmlConfigOf(ulChipID, ulTableID)->ulTblWidth);
    Np_DeubgPrint(NP_M_EML, NP_PRINT_TRACE, "[DATA]: ");
    for (uint32_t i = 0; i < ulSize; i += sizeof(uint32_t)) {
        uint32_t ulWord;
        __builtin_memcpy(&ulWord, static_cast<const uint8_t *>(pvData) + i, sizeof(ulWord));
        Np_DeubgPrint(NP_M_EML, NP_PRINT_TRACE, "0x%08x ", ulWord);
    }
    Np_DeubgPrint(NP_M_EML, NP_PRINT_TRACE, "\r\n");
}

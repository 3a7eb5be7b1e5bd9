// The engines that read a row's description.
#include "platform/os.h"
#include "sdk/access/portid.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/record/describe.h"
#include "sdk/record/record.h"
#include "sdk/record/straight.h"

namespace {

inline constexpr uint32_t NP_TRACE_TEXT = 400;  // of one line; with its prefix it must fit a print
inline constexpr uint32_t NP_TRACE_FIELD = 80;  // most that one value adds

uint32_t Np_Word(const void *pvAt)
{
    uint32_t ulWord;
    __builtin_memcpy(&ulWord, pvAt, 4);
    return ulWord;
}

uint32_t Np_WidthMask(uint32_t ulWidth)
{
    return 0xffffffffu >> (32 - ulWidth);
}

// Bits ulBit and up of an image. The second word is touched only if the value reaches into it.
inline void Np_Insert(uint8_t *pucImage, uint32_t ulBit, uint32_t ulWidth, uint32_t ulValue)
{
    uint8_t *pucWord = pucImage + ulBit / 32 * 4;
    const uint32_t ulShift = ulBit % 32;
    const uint32_t ulMask = Np_WidthMask(ulWidth);
    ulValue &= ulMask;
    uint32_t ulWord = (Np_Word(pucWord) & ~(ulMask << ulShift)) | ulValue << ulShift;
    __builtin_memcpy(pucWord, &ulWord, 4);
    if (ulShift + ulWidth > 32) {
        const uint32_t ulDone = 32 - ulShift;
        ulWord = (Np_Word(pucWord + 4) & ~(ulMask >> ulDone)) | ulValue >> ulDone;
        __builtin_memcpy(pucWord + 4, &ulWord, 4);
    }
}

inline uint32_t Np_Extract(const uint8_t *pucImage, uint32_t ulBit, uint32_t ulWidth)
{
    const uint8_t *pucWord = pucImage + ulBit / 32 * 4;
    const uint32_t ulShift = ulBit % 32;
    uint32_t ulValue = Np_Word(pucWord) >> ulShift;
    if (ulShift + ulWidth > 32) {
        ulValue |= Np_Word(pucWord + 4) << (32 - ulShift);
    }
    return ulValue & Np_WidthMask(ulWidth);
}

uint32_t Np_LoadBytes(const uint8_t *pucAt, uint32_t ulSize)
{
    if (ulSize == 4) {
        return Np_Word(pucAt);
    }
    return ulSize == 2 ? static_cast<uint32_t>(pucAt[0] | pucAt[1] << 8) : pucAt[0];
}

void Np_StoreBytes(uint8_t *pucAt, uint32_t ulSize, uint32_t ulValue)
{
    if (ulSize == 4) {
        __builtin_memcpy(pucAt, &ulValue, 4);
        return;
    }
    pucAt[0] = static_cast<uint8_t>(ulValue);
    if (ulSize == 2) {
        pucAt[1] = static_cast<uint8_t>(ulValue >> 8);
    }
}

// Walks the places of an array's elements in the image.
struct NpPlace {
    uint32_t ulBit;
    uint32_t ulRunBit;  // where the run began
    uint32_t ulInRun;
};

void Np_PlaceNext(const NpField *pstField, NpPlace *pstPlace)
{
    pstPlace->ulBit += static_cast<uint32_t>(static_cast<int32_t>(pstField->sStep));
    if (pstField->ucRun != 0 && ++pstPlace->ulInRun == pstField->ucRun) {
        pstPlace->ulInRun = 0;
        pstPlace->ulRunBit += static_cast<uint32_t>(static_cast<int32_t>(pstField->sRunStep));
        pstPlace->ulBit = pstPlace->ulRunBit;
    }
}

// What turns a value into what is stored of it, and back.
inline uint32_t Np_Inversion(const NpField *pstField)
{
    return pstField->bInverse ? 0xffffffff : 0;
}

uint32_t Np_CodingFailed(const NpRow *pstRow, const char *pszFormat, uint32_t ulReturn,
                         NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, pstRow->ucModule, NP_PRINT_ERROR, pszFormat, ulReturn);
    return ulReturn;
}

// Arrays, narrow elements, codings: all that is no plain word.
[[gnu::noinline]] uint32_t Np_FillField(const NpRow *pstRow, const NpField *pstField,
                                        uint32_t ulChipID, const uint8_t *pucRecord,
                                        uint8_t *pucImage, NpWhere stWhere)
{
    const uint8_t *pucAt = pucRecord + pstField->usOffset;
    NpPlace stPlace = {pstField->usBit, pstField->usBit, 0};
    for (uint32_t i = 0; i < pstField->usCount; i++, pucAt += pstField->usStride) {
        uint32_t ulValue;
        if (pstField->pstCoding != nullptr) {
            const uint32_t ulReturn = pstField->pstCoding->pfnEncode(ulChipID, pucAt, &ulValue);
            if (ulReturn != NP_OK) {
                return Np_CodingFailed(pstRow, pstField->pstCoding->pszEncodeError, ulReturn,
                                       stWhere);
            }
        }
        else {
            ulValue = Np_LoadBytes(pucAt, pstField->ucSize);
        }
        if (pstField->bSwitch && ulValue != 0) {
            ulValue = 0xffffffff;
        }
        ulValue ^= Np_Inversion(pstField);
        Np_Insert(pucImage, stPlace.ulBit, pstField->ucWidth, ulValue >> pstField->ucFrom);
        Np_PlaceNext(pstField, &stPlace);
    }
    return NP_OK;
}

[[gnu::noinline]] uint32_t Np_ParseField(const NpRow *pstRow, const NpField *pstField,
                                         uint32_t ulChipID, const uint8_t *pucImage,
                                         uint8_t *pucRecord, NpWhere stWhere)
{
    uint8_t *pucAt = pucRecord + pstField->usOffset;
    NpPlace stPlace = {pstField->usBit, pstField->usBit, 0};
    for (uint32_t i = 0; i < pstField->usCount; i++, pucAt += pstField->usStride) {
        uint32_t ulValue = Np_Extract(pucImage, stPlace.ulBit, pstField->ucWidth);
        ulValue ^= Np_Inversion(pstField) & Np_WidthMask(pstField->ucWidth);
        Np_PlaceNext(pstField, &stPlace);
        if (pstField->pstCoding != nullptr) {
            const uint32_t ulReturn = pstField->pstCoding->pfnDecode(ulChipID, ulValue, pucAt);
            if (ulReturn != NP_OK) {
                return Np_CodingFailed(pstRow, pstField->pstCoding->pszDecodeError, ulReturn,
                                       stWhere);
            }
            continue;
        }
        if (pstField->ucType == NP_SMD_SIGNED && (ulValue >> (pstField->ucWidth - 1) & 1) != 0) {
            ulValue |= ~Np_WidthMask(pstField->ucWidth);
        }
        if (pstField->ucFrom != 0) {  // the lower part came first
            ulValue = Np_LoadBytes(pucAt, pstField->ucSize) | ulValue << pstField->ucFrom;
        }
        Np_StoreBytes(pucAt, pstField->ucSize, ulValue);
    }
    return NP_OK;
}

// The format of a bad value; those with a name take it in three pieces before the value.
const char *Np_SayFormat(const NpRow *pstRow, const NpCheck *pstCheck)
{
    switch (pstCheck->stLimit.enSay) {
        case NP_SAY_ENABLE:
            return "enable Para error: 0x%08x \r\n";
        case NP_SAY_VALID:
            return "valid Para error: 0x%08x \r\n";
        case NP_SAY_BOOL:
            return "true/false Para error: 0x%08x \r\n";
        case NP_SAY_OWN:
            return pstCheck->pszText;
        default:
            return pstRow->bBare || pstCheck->stLimit.enSay == NP_SAY_BARE
                       ? "param error! %s%s%s=0x%08x\r\n"
                       : "param error! (%s%s%s)=0x%08x\r\n";
    }
}

[[gnu::cold]] uint32_t Np_BadValue(const NpRow *pstRow, const NpCheck *pstCheck, uint32_t ulValue,
                                   NpWhere stWhere)
{
    const NpSay enSay = pstCheck->stLimit.enSay;
    const char *pszFormat = Np_SayFormat(pstRow, pstCheck);
    if (enSay > NP_SAY_BARE) {
        NP_TRACE_AT(stWhere, pstRow->ucModule, NP_PRINT_ERROR, pszFormat, ulValue);
    }
    else {
        const bool bAlone = pstRow->pszArg == nullptr || enSay != NP_SAY_PARAM;
        NP_TRACE_AT(stWhere, pstRow->ucModule, NP_PRINT_ERROR, pszFormat,
                    bAlone ? "" : pstRow->pszArg, bAlone ? "" : "->", pstCheck->pszText, ulValue);
    }
    return 0x9a000000 | pstCheck->usCode;
}

// A check of numbers, made ready: values from ulMin up, ulSpan of them and one more.
struct NpReady {
    const NpCheck *pstCheck;
    const uint8_t *pucAt;  // the next element
    uint32_t ulMin;
    uint32_t ulSpan;
    bool bNone;  // no value passes
};

NpReady Np_CheckReady(const NpCheck *pstCheck, const uint32_t *pulCap, const uint8_t *pucRecord)
{
    const NpLimit &stLimit = pstCheck->stLimit;
    const uint8_t *pucAt = pucRecord + pstCheck->usOffset;
    switch (stLimit.enKind) {
        case NP_BOUND_MOST:
            return {pstCheck, pucAt, stLimit.ulMin, stLimit.ulMax - stLimit.ulMin, false};
        case NP_BOUND_MOST_CAP:
            return {pstCheck, pucAt, 0, pulCap[stLimit.ulMax], false};
        case NP_BOUND_FROM_CAP:
            return {pstCheck, pucAt, pulCap[stLimit.ulMin],
                    pulCap[stLimit.ulMax] - pulCap[stLimit.ulMin], false};
        default:
            return {pstCheck, pucAt, 0, pulCap[stLimit.ulMax] - 1, pulCap[stLimit.ulMax] == 0};
    }
}

// Looks for a bad value in all elements of one check, in no order.
bool Np_AllPass(const NpReady &stReady)
{
    const uint32_t ulSize = stReady.pstCheck->ucSize;
    const uint32_t ulStride = stReady.pstCheck->usStride;
    const uint8_t *pucAt = stReady.pucAt;
    bool bBad = stReady.bNone;
    for (uint32_t i = stReady.pstCheck->usCount; i != 0; i--) {
        bBad |= Np_LoadBytes(pucAt, ulSize) - stReady.ulMin > stReady.ulSpan;
        pucAt += ulStride;
    }
    return !bBad;
}

// Numbers, element by element through ulNum checks that go together.
uint32_t Np_CheckNumbers(const NpRow *pstRow, const NpCheck *pstCheck, uint32_t ulNum,
                         const uint32_t *pulCap, const uint8_t *pucRecord, NpWhere stWhere)
{
    NpReady astReady[NP_ROW_GROUP_MAX];
    uint32_t ulReady = 0;
    for (uint32_t i = 0; i < ulNum; i++) {
        if (Np_Row_IsThere(pstCheck[i].pstWhen, pucRecord)) {
            astReady[ulReady++] = Np_CheckReady(&pstCheck[i], pulCap, pucRecord);
        }
    }
    bool bAllPass = true;
    for (uint32_t i = 0; i < ulReady && bAllPass; i++) {
        bAllPass = Np_AllPass(astReady[i]);
    }
    if (bAllPass) [[likely]] {
        return NP_OK;
    }
    for (uint32_t i = 0; i < pstCheck->usCount; i++) {
        for (uint32_t j = 0; j < ulReady; j++) {
            NpReady &stReady = astReady[j];
            const uint32_t ulValue = Np_LoadBytes(stReady.pucAt, stReady.pstCheck->ucSize);
            if (ulValue - stReady.ulMin > stReady.ulSpan || stReady.bNone) [[unlikely]] {
                return Np_BadValue(pstRow, stReady.pstCheck, ulValue, stWhere);
            }
            stReady.pucAt += stReady.pstCheck->usStride;
        }
    }
    return NP_OK;
}

uint32_t Np_CheckPort(const NpRow *pstRow, const NpCheck *pstCheck, uint32_t ulChipID,
                      const uint8_t *pucRecord, NpWhere stWhere)
{
    NpPortID stPort;
    __builtin_memcpy(&stPort, pucRecord + pstCheck->usOffset, sizeof(stPort));
    const uint32_t ulReturn = Np_Tarn_PortParaCheck(ulChipID, &stPort);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, pstRow->ucModule, NP_PRINT_ERROR,
                    "port check failed! ulReturn=0x%08x\r\n", ulReturn);
    }
    return ulReturn;
}

// All checks but the simple ones. *pulNum: how many lines were done.
uint32_t Np_CheckLines(const NpRow *pstRow, const NpCheck *pstCheck, uint32_t ulChipID,
                       const uint32_t *pulCap, const uint8_t *pucRecord, uint32_t *pulNum,
                       NpWhere stWhere)
{
    *pulNum = 1;
    if (pstCheck->stLimit.enKind >= NP_BOUND_PORT) {
        if (!Np_Row_IsThere(pstCheck->pstWhen, pucRecord)) {
            return NP_OK;
        }
        return pstCheck->stLimit.enKind == NP_BOUND_PORT
                   ? Np_CheckPort(pstRow, pstCheck, ulChipID, pucRecord, stWhere)
                   : pstCheck->pfnCustom(pstRow, ulChipID, pucRecord);
    }
    while (pstCheck[*pulNum - 1].bWithNext) {
        (*pulNum)++;
    }
    return Np_CheckNumbers(pstRow, pstCheck, *pulNum, pulCap, pucRecord, stWhere);
}

inline bool Np_SimpleFails(const NpLimit &stLimit, const uint32_t *pulCap, uint32_t ulValue)
{
    switch (stLimit.enKind) {
        case NP_BOUND_MOST:
            return ulValue > stLimit.ulMax;
        case NP_BOUND_MOST_CAP:
            return ulValue > pulCap[stLimit.ulMax];
        default:
            return ulValue >= pulCap[stLimit.ulMax];
    }
}

// A value that lies in one word of the image.
inline void Np_PutWord(uint8_t *pucWord, uint32_t ulShift, uint32_t ulMask, uint32_t ulValue)
{
    const uint32_t ulWord = (Np_Word(pucWord) & ~(ulMask << ulShift)) | (ulValue & ulMask)
                                                                            << ulShift;
    __builtin_memcpy(pucWord, &ulWord, 4);
}

inline void Np_TakeWord(const NpField *pstField, const uint8_t *pucImage, uint8_t *pucRecord)
{
    const uint32_t ulValue =
        Np_Word(pucImage + pstField->usWord) >> pstField->ucShift & pstField->ulMask;
    __builtin_memcpy(pucRecord + pstField->usOffset, &ulValue, 4);
}

inline uint32_t Np_StepOf(const NpField *pstField)
{
    return static_cast<uint32_t>(static_cast<int32_t>(pstField->sStep));
}

// Elements of a run that are left for this word of the image, which begin at bit ulShift. The step
// is a power of 2.
inline uint32_t Np_RunInWord(uint32_t ulShift, uint32_t ulStep, uint32_t ulLeft)
{
    const uint32_t ulFit = (32 - ulShift) >> __builtin_ctz(ulStep);
    return ulLeft < ulFit ? ulLeft : ulFit;
}

void Np_FillRun(const NpField *pstField, const uint8_t *pucRecord, uint8_t *pucImage)
{
    const uint8_t *pucAt = pucRecord + pstField->usOffset;
    const uint32_t ulStep = Np_StepOf(pstField);
    const uint32_t ulStride = pstField->usStride;
    uint8_t *pucWord = pucImage + pstField->usWord;
    uint32_t ulShift = pstField->ucShift;
    for (uint32_t ulLeft = pstField->usCount; ulLeft != 0; pucWord += 4, ulShift = 0) {
        uint32_t ulNum = Np_RunInWord(ulShift, ulStep, ulLeft);
        ulLeft -= ulNum;
        uint32_t ulMask = pstField->ulMask << ulShift;
        uint32_t ulTaken = 0;
        uint32_t ulWord = 0;
        for (; ulNum != 0; ulNum--) {
            ulTaken |= ulMask;
            ulWord |= Np_Word(pucAt) << ulShift & ulMask;
            ulMask <<= ulStep;
            ulShift += ulStep;
            pucAt += ulStride;
        }
        ulWord |= Np_Word(pucWord) & ~ulTaken;
        __builtin_memcpy(pucWord, &ulWord, 4);
    }
}

void Np_ParseRun(const NpField *pstField, const uint8_t *pucImage, uint8_t *pucRecord)
{
    uint8_t *pucAt = pucRecord + pstField->usOffset;
    const uint32_t ulStep = Np_StepOf(pstField);
    const uint32_t ulStride = pstField->usStride;
    const uint32_t ulMask = pstField->ulMask;
    const uint8_t *pucWord = pucImage + pstField->usWord;
    uint32_t ulShift = pstField->ucShift;
    for (uint32_t ulLeft = pstField->usCount; ulLeft != 0; pucWord += 4, ulShift = 0) {
        uint32_t ulNum = Np_RunInWord(ulShift, ulStep, ulLeft);
        ulLeft -= ulNum;
        for (uint32_t ulWord = Np_Word(pucWord) >> ulShift; ulNum != 0; ulNum--) {
            const uint32_t ulValue = ulWord & ulMask;
            __builtin_memcpy(pucAt, &ulValue, 4);
            ulWord >>= ulStep;
            pucAt += ulStride;
        }
    }
}

void Np_FillArray(const NpField *pstField, const uint8_t *pucRecord, uint8_t *pucImage)
{
    const uint8_t *pucAt = pucRecord + pstField->usOffset;
    const bool bBytes = pstField->ucSize == 1;
    const uint32_t ulStep = Np_StepOf(pstField);
    const uint32_t ulStride = pstField->usStride;
    uint32_t ulBit = pstField->usBit;
    // Each word of the image is stored once and whole, as it will be read soon.
    for (uint32_t ulLeft = pstField->usCount; ulLeft != 0;) {
        const uint32_t ulAt = ulBit / 32;
        uint32_t ulWord = Np_Word(pucImage + ulAt * 4);
        do {
            const uint32_t ulMask = pstField->ulMask << ulBit % 32;
            const uint32_t ulValue = bBytes ? *pucAt : Np_Word(pucAt);
            ulWord = (ulWord & ~ulMask) | (ulValue << ulBit % 32 & ulMask);
            pucAt += ulStride;
            ulBit += ulStep;
            ulLeft--;
        } while (ulLeft != 0 && ulBit / 32 == ulAt);
        __builtin_memcpy(pucImage + ulAt * 4, &ulWord, 4);
    }
}

void Np_ParseArray(const NpField *pstField, const uint8_t *pucImage, uint8_t *pucRecord)
{
    uint8_t *pucAt = pucRecord + pstField->usOffset;
    const bool bBytes = pstField->ucSize == 1;
    uint32_t ulBit = pstField->usBit;
    for (uint32_t i = pstField->usCount; i != 0; i--) {
        const uint32_t ulValue =
            Np_Word(pucImage + ulBit / 32 * 4) >> ulBit % 32 & pstField->ulMask;
        if (bBytes) {
            *pucAt = static_cast<uint8_t>(ulValue);
        }
        else {
            __builtin_memcpy(pucAt, &ulValue, 4);
        }
        pucAt += pstField->usStride;
        ulBit += Np_StepOf(pstField);
    }
}

// A selector's value while a record is being parsed: from the image where it stands there, since
// the record may not have it yet.
[[gnu::noinline]] uint32_t Np_SelectorParse(const NpRow *pstRow, const NpWhen *pstWhen,
                                            const uint8_t *pucImage, const uint8_t *pucRecord)
{
    uint32_t ulValue = 0;
    bool bStored = false;
    for (uint32_t i = 0; i < pstRow->usFieldNum; i++) {
        const NpField *pstField = &pstRow->pstField[i];
        if (pstField->usOffset == pstWhen->usOffset && pstField->ucSize == pstWhen->ucSize &&
            pstField->ucWidth != 0 && !Np_Row_Excludes(pstField->pstWhen, pstWhen->pstAnd)) {
            bStored = true;
            ulValue |= Np_Extract(pucImage, pstField->usBit, pstField->ucWidth) << pstField->ucFrom;
        }
    }
    return bStored ? ulValue : Np_LoadBytes(pucRecord + pstWhen->usOffset, pstWhen->ucSize);
}

bool Np_ParseHolds(const NpRow *pstRow, const NpWhen *pstWhen, const uint8_t *pucImage,
                   const uint8_t *pucRecord)
{
    for (; pstWhen != nullptr; pstWhen = pstWhen->pstAnd) {
        if (!Np_WhenTakes(*pstWhen, Np_SelectorParse(pstRow, pstWhen, pucImage, pucRecord))) {
            return false;
        }
    }
    return true;
}

inline uint32_t Np_ThereMask(const NpThere *pstThere, const uint8_t *pucRecord)
{
    const uint32_t ulValue = Np_Word(pucRecord + pstThere->usSelector);
    return pstThere->aulMask[ulValue < 32 ? ulValue : 32];
}

[[gnu::always_inline]] inline uint32_t Np_FillOne(const NpRow *pstRow, const NpField *pstField,
                                                  uint32_t ulChipID, const uint8_t *pucRecord,
                                                  uint8_t *pucImage, NpWhere stWhere)
{
    if (pstField->ucMove == NP_MOVE_WORD) [[likely]] {
        Np_PutWord(pucImage + pstField->usWord, pstField->ucShift, pstField->ulMask,
                   Np_Word(pucRecord + pstField->usOffset));
        return NP_OK;
    }
    switch (pstField->ucMove) {
        case NP_MOVE_NONE:
            return NP_OK;
        case NP_MOVE_WIDE_WORD:
            Np_Insert(pucImage, pstField->usBit, pstField->ucWidth,
                      Np_Word(pucRecord + pstField->usOffset));
            return NP_OK;
        case NP_MOVE_RUN:
            Np_FillRun(pstField, pucRecord, pucImage);
            return NP_OK;
        case NP_MOVE_ARRAY:
            Np_FillArray(pstField, pucRecord, pucImage);
            return NP_OK;
        case NP_MOVE_CONST:
            Np_PutWord(pucImage + pstField->usWord, pstField->ucShift, pstField->ulMask,
                       pstField->usOffset);
            return NP_OK;
        default:
            return Np_FillField(pstRow, pstField, ulChipID, pucRecord, pucImage, stWhere);
    }
}

[[gnu::always_inline]] inline uint32_t Np_ParseOne(const NpRow *pstRow, const NpField *pstField,
                                                   uint32_t ulChipID, const uint8_t *pucImage,
                                                   uint8_t *pucRecord, NpWhere stWhere)
{
    switch (pstField->ucMove) {
        case NP_MOVE_NONE:
        case NP_MOVE_CONST:
            return NP_OK;
        case NP_MOVE_WORD:
            Np_TakeWord(pstField, pucImage, pucRecord);
            return NP_OK;
        case NP_MOVE_WIDE_WORD: {
            const uint32_t ulValue = Np_Extract(pucImage, pstField->usBit, pstField->ucWidth);
            __builtin_memcpy(pucRecord + pstField->usOffset, &ulValue, 4);
            return NP_OK;
        }
        case NP_MOVE_RUN:
            Np_ParseRun(pstField, pucImage, pucRecord);
            return NP_OK;
        case NP_MOVE_ARRAY:
            Np_ParseArray(pstField, pucImage, pucRecord);
            return NP_OK;
        default:
            return Np_ParseField(pstRow, pstField, ulChipID, pucImage, pucRecord, stWhere);
    }
}

uint32_t Np_PortEncode(uint32_t ulChipID, const void *pvField, uint32_t *pulStored)
{
    NpPortID stPort;
    __builtin_memcpy(&stPort, pvField, sizeof(stPort));
    return Np_PortID2PhyID(ulChipID, &stPort, pulStored);
}

uint32_t Np_BytePortEncode(uint32_t ulChipID, const void *pvField, uint32_t *pulStored)
{
    const uint32_t ulReturn = Np_PortEncode(ulChipID, pvField, pulStored);
    return ulReturn == NP_OK && *pulStored > 0xff ? NP_ERR_PARAM : ulReturn;
}

// Writes a port only if there is one.
uint32_t Np_PortDecode(uint32_t ulChipID, uint32_t ulStored, void *pvField)
{
    return Np_IngressPhyID2PortID(ulChipID, ulStored, static_cast<NpPortID *>(pvField));
}

// Adds "name=value " or "name=v v v " behind the ulUsed characters of a line; the new length.
uint32_t Np_TraceField(const NpField *pstField, const void *pvRecord, char *pszText,
                       uint32_t ulUsed)
{
    // A port is four words; other coded fields start with what tells them apart.
    const bool bWords = pstField->ucSize > 4;
    const uint32_t ulNum = bWords ? pstField->ucSize / 4u : pstField->usCount;
    const uint8_t *pucAt = static_cast<const uint8_t *>(pvRecord) + pstField->usOffset;
    ulUsed += static_cast<uint32_t>(
        Os_Format(pszText + ulUsed, NP_TRACE_TEXT - ulUsed, "%s=", pstField->pszName));
    for (uint32_t i = 0; i < ulNum && ulUsed + NP_TRACE_FIELD / 4 < NP_TRACE_TEXT; i++) {
        const uint32_t ulValue = Np_LoadBytes(pucAt, bWords ? 4 : pstField->ucSize);
        pucAt += bWords ? 4 : pstField->usStride;
        ulUsed += static_cast<uint32_t>(
            Os_Format(pszText + ulUsed, NP_TRACE_TEXT - ulUsed, "0x%x ", ulValue));
    }
    return ulUsed;
}

}  // namespace

constexpr NpCoding g_stNpPortCoding = {
    Np_PortEncode,
    Np_PortDecode,
    "phy ID calculate failed! ulReturn=0x%08x\r\n",
    "ingress phyid to portid calculate failed! ulReturn=0x%08x\r\n",
    false,
};
constexpr NpCoding g_stNpBytePortCoding = {
    Np_BytePortEncode,
    Np_PortDecode,
    "phy ID calculate failed! ulReturn=0x%08x\r\n",
    "ingress phyid to portid calculate failed! ulReturn=0x%08x\r\n",
    false,
};

bool Np_Row_Excludes(const NpWhen *pstA, const NpWhen *pstB)
{
    return Np_Exclusive(pstA, pstB);
}

uint32_t Np_Row_Load(const NpField *pstField, uint32_t ulElement, const void *pvRecord)
{
    return Np_LoadBytes(static_cast<const uint8_t *>(pvRecord) + pstField->usOffset +
                            ulElement * pstField->usStride,
                        pstField->ucSize);
}

void Np_Row_Store(const NpField *pstField, uint32_t ulElement, uint32_t ulValue, void *pvRecord)
{
    Np_StoreBytes(
        static_cast<uint8_t *>(pvRecord) + pstField->usOffset + ulElement * pstField->usStride,
        pstField->ucSize, ulValue);
}

bool Np_Row_Holds(const NpWhen *pstWhen, const void *pvRecord)
{
    const uint8_t *pucRecord = static_cast<const uint8_t *>(pvRecord);
    for (; pstWhen != nullptr; pstWhen = pstWhen->pstAnd) {
        if (!Np_WhenTakes(*pstWhen, Np_LoadBytes(pucRecord + pstWhen->usOffset, pstWhen->ucSize))) {
            return false;
        }
    }
    return true;
}

static uint32_t Np_CapOf(uint32_t ulSlot)
{
    const uint32_t *pulCap = g_aulNpGlbCap[g_ulNpCurrentUsedChipID];
    return pulCap != nullptr ? pulCap[ulSlot] : g_aulNpTarnBGlbCap[ulSlot];
}

uint32_t Np_Row_LimitMax(const NpLimit *pstLimit)
{
    if (pstLimit->enKind == NP_BOUND_MOST) {
        return pstLimit->ulMax;
    }
    const uint32_t ulCap = Np_CapOf(pstLimit->ulMax);
    return pstLimit->enKind == NP_BOUND_BELOW_CAP && ulCap != 0 ? ulCap - 1 : ulCap;
}

uint32_t Np_Row_LimitMin(const NpLimit *pstLimit)
{
    return pstLimit->enKind == NP_BOUND_FROM_CAP ? Np_CapOf(pstLimit->ulMin) : pstLimit->ulMin;
}

// The next check, from one on, that bounds a field's number, or that of another member of a union;
// the end if there is none.
static const NpCheck *Np_BoundFind(const NpRow *pstRow, const NpField *pstField,
                                   const NpCheck *pstCheck)
{
    const NpCheck *pstEnd = pstRow->pstCheck + pstRow->usCheckNum;
    for (; pstCheck != pstEnd; pstCheck++) {
        const uint32_t ulFrom = static_cast<uint32_t>(pstField->usOffset) - pstCheck->usOffset;
        if (ulFrom < static_cast<uint32_t>(pstCheck->usCount) * pstCheck->usStride &&
            (ulFrom == 0 || ulFrom % pstCheck->usStride == 0) && pstField->ucSize != 0 &&
            pstCheck->stLimit.enKind < NP_BOUND_PORT) {
            break;
        }
    }
    return pstCheck;
}

// Tells whether a check at a field's place is of another member of a union. A field that is a
// parameter whatever its condition says has the limits of all conditions.
static bool Np_IsOfOther(const NpCheck *pstCheck, const NpField *pstField)
{
    return !pstField->bFree && Np_Row_Excludes(pstCheck->pstWhen, pstField->pstWhen);
}

const NpCheck *Np_Row_FieldChecks(const NpRow *pstRow, const NpField *pstField, uint32_t ulIndex)
{
    const NpCheck *pstEnd = pstRow->pstCheck + pstRow->usCheckNum;
    for (const NpCheck *pstCheck = Np_BoundFind(pstRow, pstField, pstRow->pstCheck);
         pstCheck != pstEnd; pstCheck = Np_BoundFind(pstRow, pstField, pstCheck + 1)) {
        if (!Np_IsOfOther(pstCheck, pstField) && ulIndex-- == 0) {
            return pstCheck;
        }
    }
    return nullptr;
}

const NpCheck *Np_Row_FieldCheck(const NpRow *pstRow, const NpField *pstField, const void *pvRecord)
{
    const NpCheck *pstEnd = pstRow->pstCheck + pstRow->usCheckNum;
    const NpCheck *pstWidest = nullptr;
    for (const NpCheck *pstCheck = Np_BoundFind(pstRow, pstField, pstRow->pstCheck);
         pstCheck != pstEnd; pstCheck = Np_BoundFind(pstRow, pstField, pstCheck + 1)) {
        if (pstCheck->pstWhen == nullptr ||
            (pvRecord != nullptr && Np_Row_IsThere(pstCheck->pstWhen, pvRecord))) {
            return pstCheck;
        }
        if (!Np_IsOfOther(pstCheck, pstField) &&
            (pstWidest == nullptr ||
             Np_Row_LimitMax(&pstWidest->stLimit) < Np_Row_LimitMax(&pstCheck->stLimit))) {
            pstWidest = pstCheck;
        }
    }
    return pstWidest;
}

[[gnu::cold]] void Np_Row_TraceFields(const NpRow *pstRow, const void *pvRecord, NpWhere stWhere)
{
    char acText[NP_TRACE_TEXT];
    uint32_t ulUsed = 0;
    for (uint32_t i = 0; i < pstRow->usFieldNum; i++) {
        const NpField *pstField = &pstRow->pstField[i];
        if (pstField->ucFrom != 0 || pstField->ucMove == NP_MOVE_CONST || pstField->bFar ||
            (!pstField->bFree && !Np_Row_IsThere(pstField->pstWhen, pvRecord))) {
            continue;  // the first part has traced the value
        }
        ulUsed = Np_TraceField(pstField, pvRecord, acText, ulUsed);
        if (ulUsed + NP_TRACE_FIELD >= NP_TRACE_TEXT) {
            NP_TRACE_AT(stWhere, pstRow->ucModule, NP_PRINT_TRACE, " %s\r\n", acText);
            ulUsed = 0;
        }
    }
    if (ulUsed != 0) {
        NP_TRACE_AT(stWhere, pstRow->ucModule, NP_PRINT_TRACE, " %s\r\n", acText);
    }
}

uint32_t Np_Row_CheckEach(const NpRow *pstRow, uint32_t ulChipID, const void *pvRecord,
                          NpWhere stWhere)
{
    const uint8_t *pucRecord = static_cast<const uint8_t *>(pvRecord);
    const uint32_t *pulCap = g_aulNpGlbCap[g_ulNpCurrentUsedChipID];
    const NpCheck *pstCheck = pstRow->pstCheck;
    const NpCheck *pstEnd = pstCheck + pstRow->usCheckNum;
    while (pstCheck != pstEnd) {
        if (pstCheck->bSimple) [[likely]] {
            const uint32_t ulValue = Np_Word(pucRecord + pstCheck->usOffset);
            if (Np_SimpleFails(pstCheck->stLimit, pulCap, ulValue)) [[unlikely]] {
                return Np_BadValue(pstRow, pstCheck, ulValue, stWhere);
            }
            pstCheck++;
            continue;
        }
        uint32_t ulNum;
        const uint32_t ulReturn =
            Np_CheckLines(pstRow, pstCheck, ulChipID, pulCap, pucRecord, &ulNum, stWhere);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
        pstCheck += ulNum;
    }
    return NP_OK;
}

uint32_t Np_Row_FillEach(const NpRow *pstRow, uint32_t ulChipID, const void *pvRecord,
                         void *pvImage, NpWhere stWhere)
{
    const uint8_t *pucRecord = static_cast<const uint8_t *>(pvRecord);
    uint8_t *pucImage = static_cast<uint8_t *>(pvImage);
    if (pstRow->pstThere != nullptr) {
        for (uint32_t ulMask = Np_ThereMask(pstRow->pstThere, pucRecord); ulMask != 0;
             ulMask &= ulMask - 1) {
            const NpField *pstField =
                &pstRow->pstField[static_cast<uint32_t>(__builtin_ctz(ulMask))];
            const uint32_t ulReturn =
                Np_FillOne(pstRow, pstField, ulChipID, pucRecord, pucImage, stWhere);
            if (ulReturn != NP_OK) {
                return ulReturn;
            }
        }
        return NP_OK;
    }
    const NpField *pstEnd = pstRow->pstField + pstRow->usStoredNum;
    for (const NpField *pstField = pstRow->pstField; pstField != pstEnd; pstField++) {
        if (pstField->bPlain) [[likely]] {
            Np_PutWord(pucImage + pstField->usWord, pstField->ucShift, pstField->ulMask,
                       Np_Word(pucRecord + pstField->usOffset));
            continue;
        }
        if (!Np_Row_IsThere(pstField->pstWhen, pucRecord)) {
            continue;
        }
        const uint32_t ulReturn =
            Np_FillOne(pstRow, pstField, ulChipID, pucRecord, pucImage, stWhere);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    return NP_OK;
}

uint32_t Np_Row_FillField(const NpRow *pstRow, const NpField *pstField, uint32_t ulChipID,
                          const uint8_t *pucRecord, uint8_t *pucImage, NpWhere stWhere)
{
    return Np_FillOne(pstRow, pstField, ulChipID, pucRecord, pucImage, stWhere);
}

uint32_t Np_Row_ParseField(const NpRow *pstRow, const NpField *pstField, uint32_t ulChipID,
                           const uint8_t *pucImage, uint8_t *pucRecord, NpWhere stWhere)
{
    return Np_ParseOne(pstRow, pstField, ulChipID, pucImage, pucRecord, stWhere);
}

uint32_t Np_Row_Build(const NpRow *pstRow, uint32_t ulChipID, const void *pvRecord, void *pvImage,
                      NpWhere stWhere)
{
    uint8_t *pucImage = static_cast<uint8_t *>(pvImage);
    const uint32_t ulZero = 0;
    for (uint32_t i = 0; i < pstRow->usImageSize; i += 4) {
        __builtin_memcpy(pucImage + i, &ulZero, 4);
    }
    return Np_Row_Fill(pstRow, ulChipID, pvRecord, pvImage, stWhere);
}

void Np_Row_Clear(const NpRow *pstRow, uint8_t *pucRecord)
{
    uint32_t aulKept[NP_ROW_HANDED_MAX];
    uint32_t ulKept = 0;
    for (uint32_t i = 0; pstRow->bHanded && i < pstRow->usFieldNum; i++) {
        if (pstRow->pstField[i].bHanded) {
            aulKept[ulKept++] = Np_Row_Load(&pstRow->pstField[i], 0, pucRecord);
        }
    }
    memset(pucRecord, 0, pstRow->usRecordSize);
    for (uint32_t i = 0, ulAt = 0; ulAt < ulKept; i++) {
        if (pstRow->pstField[i].bHanded) {
            Np_Row_Store(&pstRow->pstField[i], 0, aulKept[ulAt++], pucRecord);
        }
    }
}

uint32_t Np_Row_ParseEach(const NpRow *pstRow, uint32_t ulChipID, const void *pvImage,
                          void *pvRecord, NpWhere stWhere)
{
    const uint8_t *pucImage = static_cast<const uint8_t *>(pvImage);
    uint8_t *pucRecord = static_cast<uint8_t *>(pvRecord);
    if (pstRow->bParseClears) {
        Np_Row_Clear(pstRow, pucRecord);
    }
    const NpField *pstEnd = pstRow->pstField + pstRow->usStoredNum;
    const bool bOrdered = pstRow->bOrdered;
    for (const NpField *pstField = pstRow->pstField; pstField != pstEnd; pstField++) {
        if (pstField->bPlain) [[likely]] {
            Np_TakeWord(pstField, pucImage, pucRecord);
            continue;
        }
        if (pstField->pstWhen != nullptr && !pstField->bRead &&
            (bOrdered ? !Np_Row_IsThere(pstField->pstWhen, pucRecord)
                      : !Np_ParseHolds(pstRow, pstField->pstWhen, pucImage, pucRecord))) {
            continue;
        }
        const uint32_t ulReturn =
            Np_ParseOne(pstRow, pstField, ulChipID, pucImage, pucRecord, stWhere);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    return NP_OK;
}

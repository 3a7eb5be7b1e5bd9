// Check, fill and parse of a row as straight code, which the compiler makes from the description
// itself: no loop over fields, no question that the description answers. For rows that are used
// often; a row says `.pstStraight = NP_STRAIGHT(g_astField, g_astCheck)`. What fails, what takes a
// call, and what a row of this kind seldom has stays with the engines of row.cpp.
#pragma once

#include "sdk/frame/base/chip.h"
#include "sdk/record/describe.h"

#include <utility>

// One field by the engines, for what is not written out here.
uint32_t Np_Row_FillField(const NpRow *pstRow, const NpField *pstField, uint32_t ulChipID,
                          const uint8_t *pucRecord, uint8_t *pucImage, NpWhere stWhere);
uint32_t Np_Row_ParseField(const NpRow *pstRow, const NpField *pstField, uint32_t ulChipID,
                           const uint8_t *pucImage, uint8_t *pucRecord, NpWhere stWhere);

inline constexpr uint32_t NP_STRAIGHT_ELEMENTS = 32;  // arrays up to here are written out

template <typename Word>
[[gnu::always_inline]] inline uint32_t Np_StraightLoad(const uint8_t *pucAt)
{
    Word stValue;
    __builtin_memcpy(&stValue, pucAt, sizeof(stValue));
    return stValue;
}

[[gnu::always_inline]] inline uint32_t Np_StraightLoad(const uint8_t *pucAt, uint32_t ulSize)
{
    return ulSize == 4   ? Np_StraightLoad<uint32_t>(pucAt)
           : ulSize == 2 ? Np_StraightLoad<uint16_t>(pucAt)
                         : *pucAt;
}

[[gnu::always_inline]] inline void Np_StraightStore(uint8_t *pucAt, uint32_t ulSize,
                                                    uint32_t ulValue)
{
    __builtin_memcpy(pucAt, &ulValue, ulSize);
}

[[gnu::always_inline]] inline bool Np_StraightThere(const NpWhen *pstWhen, const uint8_t *pucRecord)
{
    if (pstWhen == nullptr) {
        return true;
    }
    if (pstWhen->pstAnd != nullptr) {
        return Np_Row_Holds(pstWhen, pucRecord);
    }
    return Np_WhenTakes(*pstWhen, Np_StraightLoad(pucRecord + pstWhen->usOffset, pstWhen->ucSize));
}

// ---- checks -----------------------------------------------------------------------------------

[[gnu::always_inline]] inline bool Np_StraightFails(const NpLimit &stLimit, const uint32_t *pulCap,
                                                    uint32_t ulValue)
{
    switch (stLimit.enKind) {
        case NP_BOUND_MOST:
            return ulValue - stLimit.ulMin > stLimit.ulMax - stLimit.ulMin;
        case NP_BOUND_MOST_CAP:
            return ulValue > pulCap[stLimit.ulMax];
        case NP_BOUND_BELOW_CAP:
            return ulValue >= pulCap[stLimit.ulMax];
        default:
            return ulValue - pulCap[stLimit.ulMin] > pulCap[stLimit.ulMax] - pulCap[stLimit.ulMin];
    }
}

template <const auto &astCheck, size_t ulAt>
[[gnu::always_inline]] inline bool Np_StraightPasses(const uint32_t *pulCap,
                                                     const uint8_t *pucRecord)
{
    constexpr const NpCheck &stCheck = astCheck[ulAt];
    if constexpr (stCheck.stLimit.enKind < NP_BOUND_PORT) {
        if (!Np_StraightThere(stCheck.pstWhen, pucRecord)) {
            return true;
        }
        const uint8_t *pucAt = pucRecord + stCheck.usOffset;
        bool bFails = false;
        for (uint32_t i = 0; i < stCheck.usCount; i++, pucAt += stCheck.usStride) {
            bFails |=
                Np_StraightFails(stCheck.stLimit, pulCap, Np_StraightLoad(pucAt, stCheck.ucSize));
        }
        return !bFails;
    }
    return true;
}

// ---- fields -----------------------------------------------------------------------------------

// Fields that are written out: values as they are, in one word of the image each.
constexpr bool Np_StraightMoves(const NpField &stField)
{
    return stField.ucMove == NP_MOVE_WORD || stField.ucMove == NP_MOVE_CONST ||
           ((stField.ucMove == NP_MOVE_RUN || stField.ucMove == NP_MOVE_ARRAY) &&
            stField.usCount <= NP_STRAIGHT_ELEMENTS);
}

constexpr uint32_t Np_StraightBit(const NpField &stField, size_t ulElement)
{
    return static_cast<uint32_t>(stField.usBit + static_cast<int32_t>(ulElement) * stField.sStep);
}

[[gnu::always_inline]] inline void Np_StraightPut(uint8_t *pucImage, uint32_t ulBit,
                                                  uint32_t ulMask, uint32_t ulValue)
{
    uint8_t *pucWord = pucImage + ulBit / 32 * 4;
    const uint32_t ulShift = ulBit % 32;
    const uint32_t ulWord =
        (Np_StraightLoad<uint32_t>(pucWord) & ~(ulMask << ulShift)) | (ulValue & ulMask) << ulShift;
    __builtin_memcpy(pucWord, &ulWord, 4);
}

template <const auto &astField, size_t ulAt, size_t... ulElement>
[[gnu::always_inline]] inline void Np_StraightFillEach(const uint8_t *__restrict pucRecord,
                                                       uint8_t *__restrict pucImage,
                                                       std::index_sequence<ulElement...>)
{
    constexpr const NpField &stField = astField[ulAt];
    (Np_StraightPut(pucImage, Np_StraightBit(stField, ulElement), stField.ulMask,
                    Np_StraightLoad(pucRecord + stField.usOffset + ulElement * stField.usStride,
                                    stField.ucSize)),
     ...);
}

template <const auto &astField, size_t ulAt, size_t... ulElement>
[[gnu::always_inline]] inline void Np_StraightParseEach(const uint8_t *__restrict pucImage,
                                                        uint8_t *__restrict pucRecord,
                                                        std::index_sequence<ulElement...>)
{
    constexpr const NpField &stField = astField[ulAt];
    (Np_StraightStore(
         pucRecord + stField.usOffset + ulElement * stField.usStride, stField.ucSize,
         Np_StraightLoad<uint32_t>(pucImage + Np_StraightBit(stField, ulElement) / 32 * 4) >>
                 Np_StraightBit(stField, ulElement) % 32 &
             stField.ulMask),
     ...);
}

template <const auto &astField, size_t ulAt>
[[gnu::always_inline]] inline uint32_t Np_StraightFillAt(const NpRow *pstRow, uint32_t ulChipID,
                                                         const uint8_t *__restrict pucRecord,
                                                         uint8_t *__restrict pucImage,
                                                         NpWhere stWhere)
{
    constexpr const NpField &stField = astField[ulAt];
    if constexpr (stField.ucMove == NP_MOVE_NONE) {
        return NP_OK;
    }
    else {
        if (!Np_StraightThere(stField.pstWhen, pucRecord)) {
            return NP_OK;
        }
        if constexpr (!Np_StraightMoves(stField)) {
            return Np_Row_FillField(pstRow, &stField, ulChipID, pucRecord, pucImage, stWhere);
        }
        else if constexpr (stField.ucMove == NP_MOVE_CONST) {
            Np_StraightPut(pucImage, stField.usBit, stField.ulMask, stField.usOffset);
        }
        else {
            Np_StraightFillEach<astField, ulAt>(pucRecord, pucImage,
                                                std::make_index_sequence<astField[ulAt].usCount>());
        }
        return NP_OK;
    }
}

template <const auto &astField, size_t ulAt>
[[gnu::always_inline]] inline uint32_t Np_StraightParseAt(const NpRow *pstRow, uint32_t ulChipID,
                                                          const uint8_t *__restrict pucImage,
                                                          uint8_t *__restrict pucRecord,
                                                          NpWhere stWhere)
{
    constexpr const NpField &stField = astField[ulAt];
    if constexpr (stField.ucMove == NP_MOVE_NONE || stField.ucMove == NP_MOVE_CONST) {
        return NP_OK;
    }
    else {
        if (!stField.bRead && !Np_StraightThere(stField.pstWhen, pucRecord)) {
            return NP_OK;
        }
        if constexpr (!Np_StraightMoves(stField)) {
            return Np_Row_ParseField(pstRow, &stField, ulChipID, pucImage, pucRecord, stWhere);
        }
        else {
            Np_StraightParseEach<astField, ulAt>(
                pucImage, pucRecord, std::make_index_sequence<astField[ulAt].usCount>());
        }
        return NP_OK;
    }
}

// ---- rows -------------------------------------------------------------------------------------

template <const auto &astField, const auto &astCheck>
struct NpStraightRow {
    static bool Passes(const void *pvRecord)
    {
        const uint32_t *pulCap = g_aulNpGlbCap[g_ulNpCurrentUsedChipID];
        const uint8_t *pucRecord = static_cast<const uint8_t *>(pvRecord);
        return [&]<size_t... ulAt>(std::index_sequence<ulAt...>) __attribute__((always_inline))
        {
            return (Np_StraightPasses<astCheck, ulAt>(pulCap, pucRecord) && ...);
        }
        (std::make_index_sequence<std::size(astCheck)>());
    }

    static uint32_t Fill(const NpRow *pstRow, uint32_t ulChipID, const void *pvRecord,
                         void *pvImage, NpWhere stWhere)
    {
        const uint8_t *__restrict pucRecord = static_cast<const uint8_t *>(pvRecord);
        uint8_t *__restrict pucImage = static_cast<uint8_t *>(pvImage);
        uint32_t ulReturn = NP_OK;
        [&]<size_t... ulAt>(std::index_sequence<ulAt...>) __attribute__((always_inline))
        {
            static_cast<void>((((ulReturn = Np_StraightFillAt<astField, ulAt>(
                                     pstRow, ulChipID, pucRecord, pucImage, stWhere)) == NP_OK) &&
                               ...));
        }
        (std::make_index_sequence<std::size(astField)>());
        return ulReturn;
    }

    static uint32_t Parse(const NpRow *pstRow, uint32_t ulChipID, const void *pvImage,
                          void *pvRecord, NpWhere stWhere)
    {
        const uint8_t *__restrict pucImage = static_cast<const uint8_t *>(pvImage);
        uint8_t *__restrict pucRecord = static_cast<uint8_t *>(pvRecord);
        if (pstRow->bParseClears) {
            Np_Row_Clear(pstRow, pucRecord);
        }
        uint32_t ulReturn = NP_OK;
        [&]<size_t... ulAt>(std::index_sequence<ulAt...>) __attribute__((always_inline))
        {
            static_cast<void>((((ulReturn = Np_StraightParseAt<astField, ulAt>(
                                     pstRow, ulChipID, pucImage, pucRecord, stWhere)) == NP_OK) &&
                               ...));
        }
        (std::make_index_sequence<std::size(astField)>());
        return ulReturn;
    }

    static constexpr bool OnlyNumbers()
    {
        for (const NpCheck &stCheck : astCheck) {
            if (stCheck.stLimit.enKind >= NP_BOUND_PORT) {
                return false;
            }
        }
        return true;
    }

    static constexpr NpStraight g_stStraight = {OnlyNumbers() ? Passes : nullptr, Fill,
                                                Np_RowOrdered(astField) ? Parse : nullptr,
                                                std::data(astField), std::data(astCheck)};
};

inline constexpr std::array<NpCheck, 0> g_astNpNoCheck = {};

#define NP_STRAIGHT(astField, astCheck) &NpStraightRow<astField, astCheck>::g_stStraight

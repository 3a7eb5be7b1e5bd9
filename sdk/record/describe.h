// What a row's description is written with (see sdk/record/record.h), and what the compiler
// refuses.
#pragma once

#include "sdk/record/record.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

constexpr NpLimit Np_Most(uint32_t ulMax)
{
    return {NP_BOUND_MOST, NP_SAY_PARAM, 0, ulMax};
}
constexpr NpLimit Np_Below(uint32_t ulLimit)
{
    return Np_Most(ulLimit - 1);
}
constexpr NpLimit Np_Range(int32_t lMin, int32_t lMax)
{
    return {NP_BOUND_MOST, NP_SAY_PARAM, static_cast<uint32_t>(lMin), static_cast<uint32_t>(lMax)};
}
constexpr NpLimit Np_MostCap(NpCapSlot enSlot)
{
    return {NP_BOUND_MOST_CAP, NP_SAY_PARAM, 0, enSlot};
}
constexpr NpLimit Np_BelowCap(NpCapSlot enSlot)
{
    return {NP_BOUND_BELOW_CAP, NP_SAY_PARAM, 0, enSlot};
}
constexpr NpLimit Np_Flag(NpSay enSay)
{
    return {NP_BOUND_MOST, enSay, 0, 1};
}
constexpr NpLimit Np_Port()
{
    return {NP_BOUND_PORT, NP_SAY_PARAM, 0, 0};
}
constexpr NpLimit Np_Custom()
{
    return {NP_BOUND_CUSTOM, NP_SAY_PARAM, 0, 0};
}

struct NpFieldSpec {
    NpAt stAt = {0, 0, 1};  // no place
    int16_t sStep = 0;      // array: bits from one element to the next;
    uint8_t ucRun = 0;      // where the elements come in runs of so many, inside a run,
    int16_t sRunStep = 0;   // and this many bits from one run to the next
    uint8_t ucFrom = 0;     // a part of a split value: its lowest bit; the lowest part comes first
    const char *pszKey = nullptr;  // null: the field's own name
    std::span<const NpSmdKeyEnum> stWords = {};
    uint8_t ucType = 0;  // 0: by size and words
    NpWhen stWhen = {};
    const NpCoding *pstCoding = nullptr;
    bool bCut = false;   // stored by fewer bits than its limit needs, or unchecked and narrower
    bool bLost = false;  // not stored at all
    bool bHidden = false;
    uint16_t usFirst = 0;     // array: first element described here,
    uint16_t usCount = 0;     // and their number; 0: all
    uint16_t usShownMax = 0;  // highest value that the prompt tells; 0: that of the check
};

struct NpCheckSpec {
    const char *pszText = nullptr;  // null: the member's name
    NpWhen stWhen = {};
    bool bWithNext = false;
    uint32_t (*pfnCustom)(const NpRow *, uint32_t, const void *) = nullptr;
};

struct NpRowSpec {
    uint8_t ucModule;
    const char *pszArg = nullptr;
    uint16_t usImageSize = 0;
    const NpThere *pstThere = nullptr;
    bool bBare = false;
    bool bParseClears = false;
};

// Members of the record R that is in scope. NP_F and NP_C take a member, which may be one of a
// record inside ("stVlan.ulPri") or an array; the _EACH forms a member of an array's records.
#define NP_F(Member, ...)                                         \
    Np_FieldMake<std::remove_all_extents_t<decltype(R::Member)>>( \
        #Member, offsetof(R, Member), sizeof(R::Member), 0, NpFieldSpec{__VA_ARGS__})
#define NP_F_EACH(Array, Member, ...)                                                            \
    Np_FieldMake<decltype(R::Array[0].Member)>(#Array "." #Member, offsetof(R, Array[0].Member), \
                                               sizeof(R::Array), sizeof(R::Array[0]),            \
                                               NpFieldSpec{__VA_ARGS__})
#define NP_C(Member, stLimit, ...)                                \
    Np_CheckMake<std::remove_all_extents_t<decltype(R::Member)>>( \
        #Member, offsetof(R, Member), sizeof(R::Member), 0, stLimit, NpCheckSpec{__VA_ARGS__})
#define NP_C_EACH(Array, Member, stLimit, ...)                                                   \
    Np_CheckMake<decltype(R::Array[0].Member)>(#Array "." #Member, offsetof(R, Array[0].Member), \
                                               sizeof(R::Array), sizeof(R::Array[0]), stLimit,   \
                                               NpCheckSpec{__VA_ARGS__})
#define NP_WHEN(Member, ulMask)     \
    {                               \
        offsetof(R, Member), ulMask \
    }

// Value words of 0, 1, 2 and so on. Sparse ones are written out: {{0, "uni", 1}, {0, "nni", 2}}.
template <typename... Texts>
constexpr auto Np_Words(Texts... pszText)
{
    uint32_t ulValue = 0;
    return std::array<NpSmdKeyEnum, sizeof...(Texts)>{NpSmdKeyEnum{0, pszText, ulValue++}...};
}

// The field's own name, without those of the members that it stands in.
constexpr const char *Np_OwnName(const char *pszName)
{
    const char *pszOwn = pszName;
    for (; *pszName != 0; pszName++) {
        if (*pszName == '.') {
            pszOwn = pszName + 1;
        }
    }
    return pszOwn;
}

constexpr bool Np_CrossesWords(const NpField &stField)
{
    for (uint32_t i = 0; i < stField.usCount; i++) {
        const int32_t lBit = stField.usBit + static_cast<int32_t>(i) * stField.sStep;
        if (lBit < 0 || lBit % 32 + stField.ucWidth > 32) {
            return true;
        }
    }
    return false;
}

constexpr NpMove Np_MoveFind(const NpField &stField)
{
    if (stField.ucWidth == 0) {
        return NP_MOVE_NONE;
    }
    if (stField.pstCoding != nullptr || stField.ucFrom != 0 || stField.ucType == NP_SMD_SIGNED ||
        stField.ucRun != 0) {
        return NP_MOVE_ANY;
    }
    const bool bWord = stField.usCount == 1 && stField.ucSize == 4;
    if (Np_CrossesWords(stField)) {
        return bWord ? NP_MOVE_WIDE_WORD : NP_MOVE_ANY;
    }
    if (bWord) {
        return NP_MOVE_WORD;
    }
    if (stField.ucSize != 4 && stField.ucSize != 1) {
        return NP_MOVE_ANY;
    }
    const bool bRun = stField.ucSize == 4 && stField.sStep > 0 && stField.sStep < 32 &&
                      32 % stField.sStep == 0 && stField.usBit % stField.sStep == 0;
    return bRun ? NP_MOVE_RUN : NP_MOVE_ARRAY;
}

template <typename Element>
constexpr NpField Np_FieldMake(const char *pszName, size_t ulOffset, size_t ulSize, size_t ulStride,
                               NpFieldSpec stSpec)
{
    NpField stField = {};
    const bool bRecord = std::is_class_v<Element>;
    const size_t ulStep = ulStride != 0 ? ulStride : sizeof(Element);
    stField.pszName = pszName;
    stField.pszKey = stSpec.pszKey != nullptr ? stSpec.pszKey : Np_OwnName(pszName);
    stField.pstWord = stSpec.stWords.data();
    stField.ucWordNum = static_cast<uint8_t>(stSpec.stWords.size());
    stField.pstCoding = stSpec.pstCoding;
    stField.stWhen = stSpec.stWhen;
    stField.usCount = static_cast<uint16_t>(stSpec.usCount != 0 ? stSpec.usCount
                                                                : ulSize / ulStep - stSpec.usFirst);
    stField.usStride = static_cast<uint16_t>(ulStep);
    stField.usOffset = static_cast<uint16_t>(ulOffset + stSpec.usFirst * ulStep);
    stField.ucSize = static_cast<uint8_t>(sizeof(Element));
    if (stSpec.stAt.ucHigh >= stSpec.stAt.ucLow) {
        stField.ucWidth = static_cast<uint8_t>(stSpec.stAt.ucHigh - stSpec.stAt.ucLow + 1);
    }
    stField.usBit = static_cast<uint16_t>(8 * stSpec.stAt.usByte + stSpec.stAt.ucLow);
    stField.sStep = stSpec.sStep;
    stField.ucRun = stSpec.ucRun;
    stField.sRunStep = stSpec.sRunStep;
    stField.ucFrom = stSpec.ucFrom;
    stField.bCut = stSpec.bCut;
    stField.bLost = stSpec.bLost;
    stField.bHidden = stSpec.bHidden || stSpec.ucFrom != 0;
    stField.usShownMax = stSpec.usShownMax;
    stField.ucType = stSpec.ucType;
    if (stField.ucType == 0) {
        stField.ucType = bRecord                     ? NP_SMD_PORT
                         : stField.ucWordNum != 0    ? NP_SMD_ENUM
                         : std::is_signed_v<Element> ? NP_SMD_SIGNED
                         : sizeof(Element) == 2      ? NP_SMD_NUMBER16
                                                     : NP_SMD_NUMBER;
    }
    stField.bWhole = stField.ucType == NP_SMD_MAC || stField.ucType == NP_SMD_IPV6 ||
                     stField.ucType == NP_SMD_DATA;
    stField.usWord = static_cast<uint16_t>(stField.usBit / 32 * 4);
    stField.ucShift = static_cast<uint8_t>(stField.usBit % 32);
    if (stField.ucWidth != 0) {
        stField.ulMask = 0xffffffffu >> (32 - stField.ucWidth);
    }
    stField.ucMove = Np_MoveFind(stField);
    stField.bPlain = stField.ucMove == NP_MOVE_WORD && stField.stWhen.ulMask == 0;
    return stField;
}

template <typename Element>
constexpr NpCheck Np_CheckMake(const char *pszName, size_t ulOffset, size_t ulSize, size_t ulStride,
                               NpLimit stLimit, NpCheckSpec stSpec)
{
    const size_t ulStep = ulStride != 0 ? ulStride : sizeof(Element);
    NpCheck stCheck = {};
    stCheck.pszText = stSpec.pszText != nullptr ? stSpec.pszText : pszName;
    stCheck.pfnCustom = stSpec.pfnCustom;
    stCheck.stLimit = stLimit;
    stCheck.stWhen = stSpec.stWhen;
    stCheck.usOffset = static_cast<uint16_t>(ulOffset);
    stCheck.usCount = static_cast<uint16_t>(ulSize / ulStep);
    stCheck.usStride = static_cast<uint16_t>(ulStep);
    stCheck.ucSize = static_cast<uint8_t>(sizeof(Element));
    stCheck.bWithNext = stSpec.bWithNext;
    stCheck.bSimple = stLimit.enKind < NP_BOUND_PORT && stLimit.ulMin == 0 &&
                      stCheck.usCount == 1 && stCheck.ucSize == 4 && !stSpec.bWithNext &&
                      stSpec.stWhen.ulMask == 0;
    return stCheck;
}

// ---- what the compiler refuses ----------------------------------------------------------------

enum NpRowFault : uint32_t {
    NP_ROW_GOOD,
    NP_ROW_LEAVES_IMAGE,   // a piece lies past the image
    NP_ROW_LEAVES_RECORD,  // an element lies past the record, or has no size of a number
    NP_ROW_OVERLAP,        // two fields that can be there together share a bit
    NP_ROW_TOO_NARROW,     // fewer bits than the limit needs, or than an unchecked field has
    NP_ROW_NOTHING_CUT,    // bCut on a field that loses nothing
    NP_ROW_NOT_STORED,     // no place in the image and no bLost, or both
    NP_ROW_SELECTOR,       // a condition on what does not stand before as a 32-bit field
    NP_ROW_SAME_KEY,       // two parameters of one name
    NP_ROW_TOO_BIG,        // more than the engines have room for
    NP_ROW_OTHERS_THERE,   // pstThere speaks of other fields
};

// The family's capability words, where the compiler can see them.
constexpr uint32_t Np_CapFamily(uint32_t ulSlot)
{
#define NP_CAP_CASE(slot, name, value, meaning) \
    if (ulSlot == (slot)) {                     \
        return value;                           \
    }
    NP_CAPABILITY_LIST(NP_CAP_CASE)
#undef NP_CAP_CASE
    return 0;
}

constexpr bool Np_SameText(const char *pszA, const char *pszB)
{
    while (*pszA != 0 && *pszA == *pszB) {
        pszA++;
        pszB++;
    }
    return *pszA == *pszB;
}

// First bit of an element in the image.
constexpr int32_t Np_ElementBit(const NpField &stField, uint32_t ulElement)
{
    const int32_t lElement = static_cast<int32_t>(ulElement);
    if (stField.ucRun == 0) {
        return stField.usBit + lElement * stField.sStep;
    }
    return stField.usBit + lElement % stField.ucRun * stField.sStep +
           lElement / stField.ucRun * stField.sRunStep;
}

// Bits of the image that a field uses.
struct NpBitSet {
    std::array<uint64_t, NP_ROW_IMAGE_MAX / 8> aulWord;
};

constexpr bool Np_BitsTake(NpBitSet &stSet, uint32_t ulBit)
{
    const uint64_t ulMask = uint64_t{1} << ulBit % 64;
    const bool bFree = (stSet.aulWord[ulBit / 64] & ulMask) == 0;
    stSet.aulWord[ulBit / 64] |= ulMask;
    return bFree;
}

constexpr uint32_t Np_BitWidth(uint32_t ulValue)
{
    uint32_t ulWidth = 0;
    for (; ulValue != 0; ulValue >>= 1) {
        ulWidth++;
    }
    return ulWidth;
}

// Bits that a field must have for all that its checks, or its size where none bounds it, let pass.
constexpr uint32_t Np_BitsNeeded(const NpField &stField, std::span<const NpCheck> stChecks)
{
    const uint32_t ulSize = 8u * stField.ucSize;
    for (const NpCheck &stCheck : stChecks) {
        const NpLimit &stLimit = stCheck.stLimit;
        const bool bSame =
            stCheck.usOffset <= stField.usOffset &&
            stField.usOffset < stCheck.usOffset + stCheck.usCount * stCheck.usStride &&
            (stField.usOffset - stCheck.usOffset) % stCheck.usStride == 0;
        if (!bSame || stLimit.enKind == NP_BOUND_CUSTOM || stLimit.enKind == NP_BOUND_PORT) {
            continue;
        }
        if (stLimit.enKind == NP_BOUND_BELOW_CAP) {
            const uint32_t ulCap = Np_CapFamily(stLimit.ulMax);
            return ulCap == 0 ? 0 : Np_BitWidth(ulCap - 1);
        }
        if (stLimit.enKind == NP_BOUND_MOST_CAP) {
            return Np_BitWidth(Np_CapFamily(stLimit.ulMax));
        }
        if (stLimit.ulMin == 0) {
            return Np_BitWidth(stLimit.ulMax);
        }
        const uint32_t ulLow = Np_BitWidth(~stLimit.ulMin);
        const uint32_t ulHigh = Np_BitWidth(stLimit.ulMax);
        return 1 + (ulLow > ulHigh ? ulLow : ulHigh);
    }
    return ulSize;
}

constexpr bool Np_Exclusive(const NpWhen &stA, const NpWhen &stB)
{
    return stA.ulMask != 0 && stB.ulMask != 0 && stA.usOffset == stB.usOffset &&
           (stA.ulMask & stB.ulMask) == 0;
}

constexpr NpRowFault Np_FieldValidate(const NpField &stField, uint32_t ulRecordSize,
                                      uint32_t ulImageSize, std::span<const NpField> stFields,
                                      std::span<const NpCheck> stChecks)
{
    if (stField.usCount == 0 ||
        stField.usOffset + (stField.usCount - 1u) * stField.usStride + stField.ucSize >
            ulRecordSize ||
        (stField.pstCoding == nullptr && stField.ucType != NP_SMD_PORT && stField.ucSize != 1 &&
         stField.ucSize != 2 && stField.ucSize != 4)) {
        return NP_ROW_LEAVES_RECORD;
    }
    if (stField.stWhen.ulMask != 0) {
        bool bFound = false;
        for (const NpField &stOther : stFields) {
            if (&stOther == &stField) {
                break;
            }
            bFound = bFound || (stOther.usOffset == stField.stWhen.usOffset &&
                                stOther.ucSize == 4 && stOther.usCount == 1);
        }
        if (!bFound) {
            return NP_ROW_SELECTOR;
        }
    }
    if (ulImageSize == 0) {
        return NP_ROW_GOOD;
    }
    if (stField.bLost != (stField.ucWidth == 0)) {
        return NP_ROW_NOT_STORED;
    }
    if (stField.pstCoding != nullptr || stField.bLost) {
        return NP_ROW_GOOD;
    }
    uint32_t ulStored = 0;  // with all parts of a split value
    for (const NpField &stOther : stFields) {
        if (stOther.usOffset == stField.usOffset && !Np_Exclusive(stOther.stWhen, stField.stWhen) &&
            stOther.ucWidth != 0 && ulStored < stOther.ucFrom + 0u + stOther.ucWidth) {
            ulStored = stOther.ucFrom + 0u + stOther.ucWidth;
        }
    }
    const bool bNarrow = ulStored < Np_BitsNeeded(stField, stChecks);
    if (bNarrow && !stField.bCut) {
        return NP_ROW_TOO_NARROW;
    }
    return !bNarrow && stField.bCut ? NP_ROW_NOTHING_CUT : NP_ROW_GOOD;
}

constexpr NpRowFault Np_RowValidate(uint32_t ulRecordSize, uint32_t ulImageSize,
                                    std::span<const NpField> stFields,
                                    std::span<const NpCheck> stChecks)
{
    if (ulRecordSize > NP_ROW_RECORD_MAX || ulImageSize > NP_ROW_IMAGE_MAX ||
        stFields.size() > NP_ROW_FIELD_MAX) {
        return NP_ROW_TOO_BIG;
    }
    std::array<NpBitSet, NP_ROW_FIELD_MAX> astUsed{};
    uint32_t ulGroup = 0;
    for (const NpCheck &stCheck : stChecks) {
        ulGroup = stCheck.bWithNext ? ulGroup + 1 : 0;
        if (ulGroup >= NP_ROW_GROUP_MAX) {
            return NP_ROW_TOO_BIG;
        }
    }
    for (size_t i = 0; i < stFields.size(); i++) {
        const NpField &stField = stFields[i];
        const NpRowFault enFault =
            Np_FieldValidate(stField, ulRecordSize, ulImageSize, stFields, stChecks);
        if (enFault != NP_ROW_GOOD) {
            return enFault;
        }
        for (uint32_t ulElement = 0; stField.ucWidth != 0 && ulElement < stField.usCount;
             ulElement++) {
            const int32_t lFirst = Np_ElementBit(stField, ulElement);
            if (ulImageSize == 0) {
                break;
            }
            if (lFirst < 0 || lFirst + stField.ucWidth > static_cast<int32_t>(8 * ulImageSize)) {
                return NP_ROW_LEAVES_IMAGE;
            }
            for (uint32_t j = 0; j < stField.ucWidth; j++) {
                if (!Np_BitsTake(astUsed[i], static_cast<uint32_t>(lFirst) + j)) {
                    return NP_ROW_OVERLAP;
                }
            }
        }
        for (size_t j = 0; j < i; j++) {
            if (Np_Exclusive(stFields[j].stWhen, stField.stWhen)) {
                continue;
            }
            for (size_t k = 0; k < astUsed[i].aulWord.size(); k++) {
                if ((astUsed[i].aulWord[k] & astUsed[j].aulWord[k]) != 0) {
                    return NP_ROW_OVERLAP;
                }
            }
            if (stField.bHidden || stFields[j].bHidden) {
                continue;
            }
            if (Np_SameText(stField.pszKey, stFields[j].pszKey)) {
                return NP_ROW_SAME_KEY;
            }
        }
    }
    return NP_ROW_GOOD;
}

// Never defined: the name of the one that the compiler complains about is the fault.
void Np_Fault_PieceLeavesImage();
void Np_Fault_FieldLeavesRecord();
void Np_Fault_PiecesOverlap();
void Np_Fault_PieceTooNarrow();
void Np_Fault_NothingIsCut();
void Np_Fault_FieldNotStored();
void Np_Fault_SelectorNotBefore();
void Np_Fault_SameKeyword();
void Np_Fault_RowTooBig();
void Np_Fault_ThereOfOtherFields();
void Np_Fault_ThereHasTwoSelectors();

constexpr void Np_RowRefuse(NpRowFault enFault)
{
    switch (enFault) {
        case NP_ROW_GOOD:
            return;
        case NP_ROW_LEAVES_IMAGE:
            return Np_Fault_PieceLeavesImage();
        case NP_ROW_LEAVES_RECORD:
            return Np_Fault_FieldLeavesRecord();
        case NP_ROW_OVERLAP:
            return Np_Fault_PiecesOverlap();
        case NP_ROW_TOO_NARROW:
            return Np_Fault_PieceTooNarrow();
        case NP_ROW_NOTHING_CUT:
            return Np_Fault_NothingIsCut();
        case NP_ROW_NOT_STORED:
            return Np_Fault_FieldNotStored();
        case NP_ROW_SELECTOR:
            return Np_Fault_SelectorNotBefore();
        case NP_ROW_SAME_KEY:
            return Np_Fault_SameKeyword();
        case NP_ROW_TOO_BIG:
            return Np_Fault_RowTooBig();
        case NP_ROW_OTHERS_THERE:
            return Np_Fault_ThereOfOtherFields();
    }
}

// What NpRow::pstThere is made from: up to 32 fields, all conditions of which ask the same
// selector.
template <size_t ulFieldNum>
constexpr NpThere Np_FieldsThere(const NpField (&astField)[ulFieldNum])
{
    static_assert(ulFieldNum <= 32);
    NpThere stThere = {astField, 0, {}};
    bool bKnown = false;
    for (uint32_t i = 0; i < ulFieldNum; i++) {
        const NpWhen &stWhen = astField[i].stWhen;
        if (stWhen.ulMask != 0) {
            if (bKnown && stWhen.usOffset != stThere.usSelector) {
                Np_Fault_ThereHasTwoSelectors();
            }
            bKnown = true;
            stThere.usSelector = stWhen.usOffset;
        }
        for (uint32_t ulValue = 0; ulValue < 33 && astField[i].ucWidth != 0; ulValue++) {
            if (stWhen.ulMask == 0 || (ulValue < 32 && (stWhen.ulMask >> ulValue & 1) != 0)) {
                stThere.aulMask[ulValue] |= 1u << i;
            }
        }
    }
    return stThere;
}

// Makes the description of a row from its fields and checks, which are constants of static storage.
template <typename Record>
constexpr NpRow Np_RowMake(NpRowSpec stSpec, std::span<const NpField> stFields,
                           std::span<const NpCheck> stChecks)
{
    static_assert(std::is_standard_layout_v<Record> && std::is_trivially_copyable_v<Record>);
    Np_RowRefuse(Np_RowValidate(sizeof(Record), stSpec.usImageSize, stFields, stChecks));
    Np_RowRefuse(stSpec.pstThere != nullptr && stSpec.pstThere->pstField != stFields.data()
                     ? NP_ROW_OTHERS_THERE
                     : NP_ROW_GOOD);
    return {stSpec.pszArg,
            stFields.data(),
            stChecks.data(),
            stSpec.pstThere,
            static_cast<uint16_t>(stFields.size()),
            static_cast<uint16_t>(stChecks.size()),
            sizeof(Record),
            stSpec.usImageSize,
            stSpec.ucModule,
            stSpec.bBare,
            stSpec.bParseClears};
}

// The row argument of most tables: ulIndex, called "index", below a capability word.
struct NpIndexArg {
    uint32_t ulIndex;
};
template <uint8_t ucModule, NpCapSlot enRows, bool bBare = false>
struct NpIndexKey {
    using R = NpIndexArg;
    static constexpr NpField g_astField[] = {NP_F(ulIndex, .pszKey = "index")};
    static constexpr NpCheck g_astCheck[] = {NP_C(ulIndex, Np_BelowCap(enRows))};
    static constexpr NpRow g_stRow =
        Np_RowMake<R>({.ucModule = ucModule, .bBare = bBare}, g_astField, g_astCheck);
};

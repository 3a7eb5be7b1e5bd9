// What a row's description is written with (see sdk/record/record.h), and what the compiler
// refuses.
#pragma once

#include "ldsdk/status.h"
#include "sdk/record/record.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>
#include <utility>

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
constexpr NpLimit Np_FromCap(NpCapSlot enLowest, NpCapSlot enMost)
{
    return {NP_BOUND_FROM_CAP, NP_SAY_PARAM, enLowest, enMost};
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
    const NpWhen *pstWhen = nullptr;
    const NpCoding *pstCoding = nullptr;
    bool bCut = false;     // stored by fewer bits than its limit needs, or unchecked and narrower
    bool bLost = false;    // not stored at all
    bool bHanded = false;  // not stored; whoever parses puts it into the record before
    bool bHidden = false;
    bool bFree = false;       // a parameter of the command though its condition does not hold
    bool bSwitch = false;     // stored as all ones if it is not 0
    bool bRead = false;       // a parse reads it whatever its condition says
    bool bInverse = false;    // stored with its bits inverted: a mask whose 1 bits don't count
    uint16_t usFirst = 0;     // array: first element described here,
    uint16_t usCount = 0;     // and their number; 0: all
    uint16_t usShownMax = 0;  // highest value that the prompt tells; 0: that of the check
};

struct NpCheckSpec {
    const char *pszText = nullptr;            // null: the member's name
    const char *pszFormat = nullptr;          // of the whole message, with the value
    bool bAlone = false;                      // pszText stands without the record in front of it
    bool bBare = false;                       // and without the row's brackets
    uint16_t usCode = NP_ERR_PARAM & 0xffff;  // of a bad value, behind 0x9a00
    const NpWhen *pstWhen = nullptr;
    bool bWithNext = false;
    uint32_t (*pfnCustom)(const NpRow *, uint32_t, const void *) = nullptr;
};

struct NpRowSpec {
    uint8_t ucModule;
    const char *pszArg = nullptr;
    uint16_t usImageSize = 0;
    const NpThere *pstThere = nullptr;
    const NpStraight *pstStraight = nullptr;
    bool bBare = false;
    bool bParseClears = false;
};

// Members of the record R that is in scope. NP_F and NP_C take a member, which may be one of a
// record inside ("stVlan.ulPri") or an array; the _EACH forms a member of an array's records. A
// pointer is one to bytes that stand elsewhere: a parameter of the command line, never stored.
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

// Conditions. Each takes a further one, that has to hold as well, as its last argument:
//     .pstWhen = NP_WHEN(ulType, 1u << 3)                       one of some values below 32, by
//     bits .pstWhen = NP_WHEN_NOT(ulType, 1u << 3 | 1u << 4)         none of them .pstWhen =
//     NP_WHEN_SET(ulVlanIDMask)                      not 0 .pstWhen = NP_WHEN_BITS(ulFlags, 0x40)
//     one of these bits .pstWhen = NP_WHEN_NO_BITS(ulFlags, 0x40)                 none of them
//     .pstWhen = NP_WHEN_IS(ulEthType, 0x8902)                  a value of any size
//     .pstWhen = NP_WHEN(ulType, 1u << 1, NP_WHEN(ulSel, 1))    both
template <size_t ulOffset, size_t ulSize, NpTest enTest, uint32_t ulMask,
          const NpWhen *pstAnd = nullptr>
static constexpr NpWhen g_stNpWhen = {static_cast<uint16_t>(ulOffset),
                                      static_cast<uint8_t>(ulSize),
                                      enTest,
                                      ulMask,
                                      pstAnd,
                                      enTest == NP_TEST_ONE_OF &&ulSize == 4 && pstAnd == nullptr};
#define NP_WHEN_OF(enTest, Member, ...) \
    (&g_stNpWhen<offsetof(R, Member), sizeof(R::Member), enTest, __VA_ARGS__>)
#define NP_WHEN(Member, ...) NP_WHEN_OF(NP_TEST_ONE_OF, Member, __VA_ARGS__)
#define NP_WHEN_NOT(Member, ...) NP_WHEN_OF(NP_TEST_NONE_OF, Member, __VA_ARGS__)
#define NP_WHEN_SET(Member, ...) NP_WHEN_OF(NP_TEST_NONE_OF, Member, 1u __VA_OPT__(, ) __VA_ARGS__)
#define NP_WHEN_BITS(Member, ...) NP_WHEN_OF(NP_TEST_BITS, Member, __VA_ARGS__)
#define NP_WHEN_NO_BITS(Member, ...) NP_WHEN_OF(NP_TEST_NO_BITS, Member, __VA_ARGS__)
#define NP_WHEN_IS(Member, ...) NP_WHEN_OF(NP_TEST_IS, Member, __VA_ARGS__)

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
    if (stField.ucSize == 0) {
        return NP_MOVE_CONST;
    }
    if (stField.bSwitch || stField.bInverse) {
        return NP_MOVE_ANY;
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

// Puts a field at a place of the image.
constexpr void Np_FieldPlace(NpField &stField, NpAt stAt)
{
    stField.ucWidth = 0;
    stField.ulMask = 0;
    if (stAt.ucHigh >= stAt.ucLow) {
        stField.ucWidth = static_cast<uint8_t>(stAt.ucHigh - stAt.ucLow + 1);
        stField.ulMask = stField.ucWidth > 32 ? 0 : 0xffffffffu >> (32 - stField.ucWidth);
    }
    stField.usBit = static_cast<uint16_t>(8 * stAt.usByte + stAt.ucLow);
    stField.usWord = static_cast<uint16_t>(stField.usBit / 32 * 4);
    stField.ucShift = static_cast<uint8_t>(stField.usBit % 32);
    stField.ucMove = Np_MoveFind(stField);
    stField.bPlain = stField.ucMove == NP_MOVE_WORD && stField.pstWhen == nullptr;
}

template <typename Element>
constexpr NpField Np_FieldMake(const char *pszName, size_t ulOffset, size_t ulSize, size_t ulStride,
                               NpFieldSpec stSpec)
{
    NpField stField = {};
    const bool bRecord = std::is_class_v<Element> || std::is_union_v<Element>;
    const size_t ulStep = ulStride != 0 ? ulStride : sizeof(Element);
    stField.bFar = std::is_pointer_v<Element>;
    stField.pszName = pszName;
    stField.pszKey = stSpec.pszKey != nullptr ? stSpec.pszKey : Np_OwnName(pszName);
    stField.pstWord = stSpec.stWords.data();
    stField.ucWordNum = static_cast<uint8_t>(stSpec.stWords.size());
    stField.pstCoding = stSpec.pstCoding;
    stField.pstWhen = stSpec.pstWhen;
    stField.usCount = static_cast<uint16_t>(stSpec.usCount != 0 ? stSpec.usCount
                                                                : ulSize / ulStep - stSpec.usFirst);
    stField.usStride = static_cast<uint16_t>(stField.bFar ? 0 : ulStep);
    stField.usOffset = static_cast<uint16_t>(ulOffset + stSpec.usFirst * ulStep);
    stField.ucSize = static_cast<uint8_t>(sizeof(Element));
    stField.sStep = stSpec.sStep;
    stField.ucRun = stSpec.ucRun;
    stField.sRunStep = stSpec.sRunStep;
    stField.ucFrom = stSpec.ucFrom;
    stField.bCut = stSpec.bCut;
    stField.bLost = stSpec.bLost || stSpec.bHanded || stField.bFar;
    stField.bHanded = stSpec.bHanded;
    stField.bHidden = stSpec.bHidden || stSpec.ucFrom != 0;
    stField.bFree = stSpec.bFree;
    stField.bSwitch = stSpec.bSwitch;
    stField.bRead = stSpec.bRead;
    stField.bInverse = stSpec.bInverse;
    stField.usShownMax = stSpec.usShownMax;
    stField.ucType = stSpec.ucType;
    if (stField.ucType == 0) {
        stField.ucType = bRecord                     ? NP_SMD_PORT
                         : stField.bFar              ? NP_SMD_DATA
                         : stField.ucWordNum != 0    ? NP_SMD_ENUM
                         : std::is_signed_v<Element> ? NP_SMD_SIGNED
                         : sizeof(Element) == 2      ? NP_SMD_NUMBER16
                                                     : NP_SMD_NUMBER;
    }
    stField.bWhole = stField.ucType == NP_SMD_MAC || stField.ucType == NP_SMD_IPV6 ||
                     stField.ucType == NP_SMD_DATA || stField.ucType == NP_SMD_STRING;
    Np_FieldPlace(stField, stSpec.stAt);
    return stField;
}

// Bits of the image that no field of the record has: always ulValue, below 0x10000.
constexpr NpField Np_Const(NpAt stAt, uint32_t ulValue, const NpWhen *pstWhen = nullptr)
{
    NpField stField = {};
    stField.pszName = "constant";
    stField.pszKey = "";
    stField.pstWhen = pstWhen;
    stField.usCount = 1;
    stField.usOffset = static_cast<uint16_t>(ulValue);
    stField.bHidden = true;
    Np_FieldPlace(stField, stAt);
    return stField;
}

// A field and the mask that says which of its bits count, as ternary rows have them. One line
// describes both: the mask stands at the same place of the row's second image.
struct NpTwin {
    NpField stValue;
    NpField stMask;
};

enum NpTwinRule : uint8_t {
    NP_TWIN_BITS,    // the mask's bits are stored as they are
    NP_TWIN_SWITCH,  // a mask that is not 0 counts as all ones; without it the value is not stored
};

// A twin of two members; their keywords are pszKey and pszMaskKey.
#define NP_TWIN(enRule, Member, MaskMember, pszMaskKey, ...)                               \
    Np_TwinMake(enRule, NP_F(Member, __VA_ARGS__), NP_F(MaskMember, .pszKey = pszMaskKey), \
                &g_stNpWhen<offsetof(R, MaskMember), sizeof(R::MaskMember), NP_TEST_NONE_OF, 1u>)

constexpr NpTwin Np_TwinMake(NpTwinRule enRule, NpField stValue, NpField stMask,
                             const NpWhen *pstMasked)
{
    stMask.sStep = stValue.sStep;
    stMask.ucRun = stValue.ucRun;
    stMask.sRunStep = stValue.sRunStep;
    stMask.usCount = stValue.usCount;
    stMask.ucType =
        stValue.ucType == NP_SMD_ENUM ? static_cast<uint8_t>(NP_SMD_NUMBER) : stValue.ucType;
    stMask.bWhole = stValue.bWhole;
    stMask.bCut = true;
    stMask.pstWhen = stValue.pstWhen;
    stMask.bFree = stValue.bFree;
    if (enRule == NP_TWIN_SWITCH && stValue.ucWidth != 0) {
        stMask.bSwitch = true;
        stValue.pstWhen = pstMasked;
        stValue.bFree = true;
        stValue.bRead = true;
    }
    const NpAt stAt = {static_cast<uint16_t>(stValue.usBit / 8),
                       static_cast<uint8_t>(stValue.usBit % 8 + stValue.ucWidth - 1),
                       static_cast<uint8_t>(stValue.usBit % 8)};
    if (stValue.ucWidth != 0) {
        Np_FieldPlace(stValue, stAt);
        Np_FieldPlace(stMask, stAt);
    }
    else {
        stMask.bLost = true;
        stMask.bCut = false;
    }
    if (8u * stMask.ucSize <= stMask.ucWidth || stMask.bSwitch) {
        stMask.bCut = false;
    }
    return {stValue, stMask};
}

// Moves a field up in the image.
constexpr void Np_FieldRaise(NpField &stField, uint16_t usByte)
{
    stField.usBit = static_cast<uint16_t>(stField.usBit + 8 * usByte);
    stField.usWord = static_cast<uint16_t>(stField.usBit / 32 * 4);
    stField.ucShift = static_cast<uint8_t>(stField.usBit % 32);
    stField.ucMove = Np_MoveFind(stField);
    stField.bPlain = stField.ucMove == NP_MOVE_WORD && stField.pstWhen == nullptr;
}

// The fields of some twins, and their masks, which stand usByte bytes behind them in the image.
template <size_t ulNum>
constexpr std::array<NpField, ulNum> Np_TwinValues(const NpTwin (&astTwin)[ulNum])
{
    std::array<NpField, ulNum> astField{};
    for (size_t i = 0; i < ulNum; i++) {
        astField[i] = astTwin[i].stValue;
    }
    return astField;
}
template <size_t ulNum>
constexpr std::array<NpField, ulNum> Np_TwinMasks(const NpTwin (&astTwin)[ulNum], uint16_t usByte)
{
    std::array<NpField, ulNum> astField{};
    for (size_t i = 0; i < ulNum; i++) {
        astField[i] = astTwin[i].stMask;
        Np_FieldRaise(astField[i], usByte);
    }
    return astField;
}

// Lists of fields, or of checks, one behind the other.
template <typename List>
constexpr size_t Np_ListSize()
{
    if constexpr (std::is_array_v<List>) {
        return std::extent_v<List>;
    }
    else {
        return std::tuple_size_v<List>;
    }
}
template <typename First, typename... Lists>
constexpr auto Np_JoinFields(const First &astFirst, const Lists &...astList)
{
    using Line = std::remove_cvref_t<decltype(astFirst[0])>;
    std::array<Line, Np_ListSize<First>() + (Np_ListSize<Lists>() + ... + 0)> astAll{};
    size_t ulAt = 0;
    const auto Append = [&](const auto &astOne) {
        for (const Line &stLine : astOne) {
            astAll[ulAt++] = stLine;
        }
    };
    Append(astFirst);
    (Append(astList), ...);
    return astAll;
}

// A condition of a record that stands ulOffset bytes inside another one, and pstOuter besides.
template <const NpWhen *pstOwn, size_t ulOffset, const NpWhen *pstOuter>
constexpr const NpWhen *Np_WhenInside()
{
    if constexpr (pstOwn == nullptr) {
        return pstOuter;
    }
    else {
        return &g_stNpWhen<pstOwn->usOffset + ulOffset, pstOwn->ucSize, pstOwn->enTest,
                           pstOwn->ulMask, Np_WhenInside<pstOwn->pstAnd, ulOffset, pstOuter>()>;
    }
}
constexpr NpField Np_LineInside(NpField stField, size_t ulOffset, const NpWhen *pstWhen,
                                const NpWhen *pstOuter, uint16_t usByte)
{
    if (stField.ucMove != NP_MOVE_CONST) {
        stField.usOffset = static_cast<uint16_t>(stField.usOffset + ulOffset);
    }
    stField.pstWhen = pstWhen;
    stField.bFree = stField.bFree && pstOuter == nullptr;  // it is bound to what lets the record in
    if (stField.ucWidth != 0) {
        Np_FieldRaise(stField, usByte);
    }
    return stField;
}
constexpr NpCheck Np_LineInside(NpCheck stCheck, size_t ulOffset, const NpWhen *pstWhen,
                                const NpWhen *, uint16_t)
{
    stCheck.usOffset = static_cast<uint16_t>(stCheck.usOffset + ulOffset);
    stCheck.pstWhen = pstWhen;
    stCheck.bSimple = stCheck.bSimple && pstWhen == nullptr;
    return stCheck;
}

// The fields or the checks, described once, of a record that stands inside another one: ulOffset
// bytes from its start, there if pstWhen holds, and usByte bytes further up in the image.
template <const auto &astLine, size_t ulOffset, const NpWhen *pstWhen = nullptr,
          uint16_t usByte = 0>
constexpr auto Np_Inside()
{
    using List = std::remove_cvref_t<decltype(astLine)>;
    return []<size_t... aulAt>(std::index_sequence<aulAt...>)
    {
        return std::array{Np_LineInside(astLine[aulAt], ulOffset,
                                        Np_WhenInside<astLine[aulAt].pstWhen, ulOffset, pstWhen>(),
                                        pstWhen, usByte)...};
    }
    (std::make_index_sequence<Np_ListSize<List>()>{});
}

// The same fields in another image, for another member of the family: those that are not named are
// lost there.
struct NpPlaced {
    uint16_t usOffset;  // of the field in the record
    NpAt stAt;
};
#define NP_AT(Member, ...)   \
    {                        \
        offsetof(R, Member), \
        {                    \
            __VA_ARGS__      \
        }                    \
    }
template <size_t ulNum, size_t ulPlaces>
constexpr std::array<NpField, ulNum> Np_LayOut(std::array<NpField, ulNum> astField,
                                               const NpPlaced (&astPlace)[ulPlaces])
{
    for (NpField &stField : astField) {
        NpAt stAt = {0, 0, 1};
        for (const NpPlaced &stPlace : astPlace) {
            if (stPlace.usOffset == stField.usOffset) {
                stAt = stPlace.stAt;
            }
        }
        Np_FieldPlace(stField, stAt);
        stField.bLost = stField.ucWidth == 0;
        stField.bCut = stField.bCut && !stField.bLost;
    }
    return astField;
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
    if (stSpec.pszFormat != nullptr) {
        stCheck.pszText = stSpec.pszFormat;
        stCheck.stLimit.enSay = NP_SAY_OWN;
    }
    else if (stSpec.bAlone || stSpec.bBare) {
        stCheck.stLimit.enSay = stSpec.bBare ? NP_SAY_BARE : NP_SAY_ALONE;
    }
    stCheck.usCode = stSpec.usCode;
    stCheck.pstWhen = stSpec.pstWhen;
    stCheck.usOffset = static_cast<uint16_t>(ulOffset);
    stCheck.usCount = static_cast<uint16_t>(ulSize / ulStep);
    stCheck.usStride = static_cast<uint16_t>(ulStep);
    stCheck.ucSize = static_cast<uint8_t>(sizeof(Element));
    stCheck.bWithNext = stSpec.bWithNext;
    stCheck.bSimple = stLimit.enKind < NP_BOUND_FROM_CAP && stLimit.ulMin == 0 &&
                      stCheck.usCount == 1 && stCheck.ucSize == 4 && !stSpec.bWithNext &&
                      stSpec.pstWhen == nullptr;
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
    NP_ROW_SELECTOR,       // a condition on what is no plain field of the record, or that no value
                           // fulfils
    NP_ROW_UNREADABLE,     // a condition on a field that the image has not and nobody hands in
    NP_ROW_CONSTANT,       // a constant wider than its bits, or in two words
    NP_ROW_SAME_KEY,       // two parameters of one name
    NP_ROW_TOO_BIG,        // more than the engines have room for
    NP_ROW_OTHERS_THERE,   // pstThere or pstStraight speaks of other fields
    NP_ROW_TWO_SELECTORS,  // conditions that pstThere cannot say
};

// A fault and what has it: field or check ulNumber, counted from 1; a check's has 1000 added.
struct NpRowVerdict {
    NpRowFault enFault;
    uint32_t ulNumber;
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

// Tells whether no record fulfils both conditions.
constexpr bool Np_Disjoint(const NpWhen &stA, const NpWhen &stB)
{
    if (stA.usOffset != stB.usOffset) {
        return false;
    }
    if ((stA.enTest == NP_TEST_BITS && stB.enTest == NP_TEST_NO_BITS) ||
        (stA.enTest == NP_TEST_NO_BITS && stB.enTest == NP_TEST_BITS)) {
        const NpWhen &stSome = stA.enTest == NP_TEST_BITS ? stA : stB;
        const NpWhen &stNone = stA.enTest == NP_TEST_BITS ? stB : stA;
        return (stSome.ulMask & ~stNone.ulMask) == 0;
    }
    if (stA.enTest == NP_TEST_IS || stB.enTest == NP_TEST_IS) {
        const NpWhen &stIs = stA.enTest == NP_TEST_IS ? stA : stB;
        return !Np_WhenTakes(stA.enTest == NP_TEST_IS ? stB : stA, stIs.ulMask);
    }
    if (stA.enTest != NP_TEST_ONE_OF && stB.enTest != NP_TEST_ONE_OF) {
        return false;  // both take values of 32 and above
    }
    for (uint32_t ulValue = 0; ulValue < 32; ulValue++) {
        if (Np_WhenTakes(stA, ulValue) && Np_WhenTakes(stB, ulValue)) {
            return false;
        }
    }
    return true;
}
constexpr bool Np_Exclusive(const NpWhen *pstA, const NpWhen *pstB)
{
    for (const NpWhen *pstOne = pstA; pstOne != nullptr; pstOne = pstOne->pstAnd) {
        for (const NpWhen *pstOther = pstB; pstOther != nullptr; pstOther = pstOther->pstAnd) {
            if (Np_Disjoint(*pstOne, *pstOther)) {
                return true;
            }
        }
    }
    return false;
}

// Tells whether a check is of a field's numbers.
constexpr bool Np_Bounds(const NpCheck &stCheck, const NpField &stField)
{
    return stCheck.stLimit.enKind < NP_BOUND_PORT && stField.ucSize != 0 &&
           stCheck.usOffset <= stField.usOffset &&
           stField.usOffset < stCheck.usOffset + stCheck.usCount * stCheck.usStride &&
           (stField.usOffset - stCheck.usOffset) % stCheck.usStride == 0;
}

constexpr uint32_t Np_LimitBits(const NpLimit &stLimit)
{
    switch (stLimit.enKind) {
        case NP_BOUND_BELOW_CAP: {
            const uint32_t ulCap = Np_CapFamily(stLimit.ulMax);
            return ulCap == 0 ? 0 : Np_BitWidth(ulCap - 1);
        }
        case NP_BOUND_MOST_CAP:
        case NP_BOUND_FROM_CAP:
            return Np_BitWidth(Np_CapFamily(stLimit.ulMax));
        default:
            break;
    }
    if (stLimit.ulMin <= stLimit.ulMax) {
        return Np_BitWidth(stLimit.ulMax);
    }
    const uint32_t ulLow = Np_BitWidth(~stLimit.ulMin);
    const uint32_t ulHigh = Np_BitWidth(stLimit.ulMax);
    return 1 + (ulLow > ulHigh ? ulLow : ulHigh);
}

// Bits that a field must have for all that its checks, or its size where none always bounds it, let
// pass. Of checks with conditions, those count that can hold while the field is there.
constexpr uint32_t Np_BitsNeeded(const NpField &stField, std::span<const NpCheck> stChecks)
{
    uint32_t ulBits = 0;
    bool bFound = false;
    for (const NpCheck &stCheck : stChecks) {
        if (!Np_Bounds(stCheck, stField) || Np_Exclusive(stCheck.pstWhen, stField.pstWhen)) {
            continue;
        }
        const uint32_t ulOne = Np_LimitBits(stCheck.stLimit);
        if (stCheck.pstWhen == nullptr) {
            return ulOne;  // holds whatever the others say
        }
        bFound = true;
        ulBits = ulOne > ulBits ? ulOne : ulBits;
    }
    return bFound ? ulBits : 8u * stField.ucSize;
}

// The field at a place of the record, its first part where it is split, or null.
constexpr const NpField *Np_SelectorFind(const NpWhen &stWhen, std::span<const NpField> stFields)
{
    for (const NpField &stField : stFields) {
        if (stField.usOffset == stWhen.usOffset && stField.ucSize == stWhen.ucSize &&
            stField.ucFrom == 0) {
            return &stField;
        }
    }
    return nullptr;
}

// bParsed: a parse asks the condition too.
constexpr NpRowFault Np_WhenValidate(const NpWhen *pstWhen, bool bParsed,
                                     std::span<const NpField> stFields)
{
    for (; pstWhen != nullptr; pstWhen = pstWhen->pstAnd) {
        const NpField *pstSelector = Np_SelectorFind(*pstWhen, stFields);
        if (pstSelector == nullptr || pstSelector->usCount != 1 ||
            (bParsed && (pstSelector->pstCoding != nullptr || pstSelector->bInverse)) ||
            (pstWhen->ulMask == 0 && pstWhen->enTest != NP_TEST_IS)) {
            return NP_ROW_SELECTOR;
        }
        if (bParsed && pstSelector->bLost && !pstSelector->bHanded) {
            return NP_ROW_UNREADABLE;
        }
    }
    return NP_ROW_GOOD;
}

constexpr NpRowFault Np_FieldValidate(const NpField &stField, uint32_t ulRecordSize,
                                      uint32_t ulImageSize, std::span<const NpField> stFields,
                                      std::span<const NpCheck> stChecks)
{
    if (stField.ucMove == NP_MOVE_CONST) {
        const bool bFits = stField.ucWidth < 32 ? stField.usOffset >> stField.ucWidth == 0 : true;
        return bFits && stField.ucShift + stField.ucWidth <= 32 && ulImageSize != 0
                   ? Np_WhenValidate(stField.pstWhen, false, stFields)
                   : NP_ROW_CONSTANT;
    }
    if (stField.usCount == 0 ||
        stField.usOffset + (stField.usCount - 1u) * stField.usStride + stField.ucSize >
            ulRecordSize ||
        (stField.pstCoding == nullptr && stField.ucType != NP_SMD_PORT && !stField.bFar &&
         stField.ucSize != 1 && stField.ucSize != 2 && stField.ucSize != 4)) {
        return NP_ROW_LEAVES_RECORD;
    }
    if (stField.bFar) {  // commands clear what a condition lets in, and this is no value
        return stField.pstWhen == nullptr && stField.ucWidth == 0 ? NP_ROW_GOOD : NP_ROW_NOT_STORED;
    }
    if (stField.ucWidth > 32 || stField.ucFrom + stField.ucWidth > 32) {
        return NP_ROW_TOO_BIG;
    }
    const NpRowFault enWhen = Np_WhenValidate(
        stField.pstWhen, ulImageSize != 0 && !stField.bRead && !stField.bLost, stFields);
    if (enWhen != NP_ROW_GOOD || ulImageSize == 0) {
        return enWhen;
    }
    if (stField.bLost != (stField.ucWidth == 0)) {
        return NP_ROW_NOT_STORED;
    }
    if (stField.pstCoding != nullptr || stField.bLost || stField.bSwitch) {
        return NP_ROW_GOOD;
    }
    uint32_t ulStored = 0;  // with all parts of a split value
    for (const NpField &stOther : stFields) {
        if (stOther.usOffset == stField.usOffset && stOther.ucSize != 0 &&
            !Np_Exclusive(stOther.pstWhen, stField.pstWhen) && stOther.ucWidth != 0 &&
            ulStored < stOther.ucFrom + 0u + stOther.ucWidth) {
            ulStored = stOther.ucFrom + 0u + stOther.ucWidth;
        }
    }
    const bool bNarrow = ulStored < Np_BitsNeeded(stField, stChecks);
    if (bNarrow && !stField.bCut) {
        return NP_ROW_TOO_NARROW;
    }
    return !bNarrow && stField.bCut ? NP_ROW_NOTHING_CUT : NP_ROW_GOOD;
}

constexpr NpRowVerdict Np_ChecksValidate(std::span<const NpField> stFields,
                                         std::span<const NpCheck> stChecks)
{
    uint32_t ulGroup = 0;
    uint32_t ulNumber = 1000;
    for (const NpCheck &stCheck : stChecks) {
        ulNumber++;
        ulGroup = stCheck.bWithNext ? ulGroup + 1 : 0;
        if (ulGroup >= NP_ROW_GROUP_MAX) {
            return {NP_ROW_TOO_BIG, ulNumber};
        }
        // A limit may depend on what has no place in the image.
        const NpRowFault enFault = Np_WhenValidate(stCheck.pstWhen, false, stFields);
        if (enFault != NP_ROW_GOOD) {
            return {enFault, ulNumber};
        }
    }
    return {NP_ROW_GOOD, 0};
}

constexpr NpRowVerdict Np_RowValidate(uint32_t ulRecordSize, uint32_t ulImageSize,
                                      std::span<const NpField> stFields,
                                      std::span<const NpCheck> stChecks)
{
    if (ulRecordSize > NP_ROW_RECORD_MAX || ulImageSize > NP_ROW_IMAGE_MAX ||
        stFields.size() > NP_ROW_FIELD_MAX) {
        return {NP_ROW_TOO_BIG, 0};
    }
    const NpRowVerdict stChecked = Np_ChecksValidate(stFields, stChecks);
    if (stChecked.enFault != NP_ROW_GOOD) {
        return stChecked;
    }
    std::array<NpBitSet, NP_ROW_FIELD_MAX> astUsed{};
    for (size_t i = 0; i < stFields.size(); i++) {
        const NpField &stField = stFields[i];
        const NpRowFault enFault =
            Np_FieldValidate(stField, ulRecordSize, ulImageSize, stFields, stChecks);
        if (enFault != NP_ROW_GOOD) {
            return {enFault, static_cast<uint32_t>(i + 1)};
        }
        for (uint32_t ulElement = 0; stField.ucWidth != 0 && ulElement < stField.usCount;
             ulElement++) {
            const int32_t lFirst = Np_ElementBit(stField, ulElement);
            if (ulImageSize == 0) {
                break;
            }
            if (lFirst < 0 || lFirst + stField.ucWidth > static_cast<int32_t>(8 * ulImageSize)) {
                return {NP_ROW_LEAVES_IMAGE, static_cast<uint32_t>(i + 1)};
            }
            for (uint32_t j = 0; j < stField.ucWidth; j++) {
                if (!Np_BitsTake(astUsed[i], static_cast<uint32_t>(lFirst) + j)) {
                    return {NP_ROW_OVERLAP, static_cast<uint32_t>(i + 1)};
                }
            }
        }
        for (size_t j = 0; j < i; j++) {
            if (Np_Exclusive(stFields[j].pstWhen, stField.pstWhen)) {
                continue;
            }
            for (size_t k = 0; k < astUsed[i].aulWord.size(); k++) {
                if ((astUsed[i].aulWord[k] & astUsed[j].aulWord[k]) != 0) {
                    return {NP_ROW_OVERLAP, static_cast<uint32_t>(i + 1)};
                }
            }
            if (stField.bHidden || stFields[j].bHidden) {
                continue;
            }
            if (Np_SameText(stField.pszKey, stFields[j].pszKey)) {
                return {NP_ROW_SAME_KEY, static_cast<uint32_t>(i + 1)};
            }
        }
    }
    return {NP_ROW_GOOD, 0};
}

// Tells whether a parse meets each selector before what it selects.
constexpr bool Np_RowOrdered(std::span<const NpField> stFields)
{
    for (size_t i = 0; i < stFields.size(); i++) {
        for (const NpWhen *pstWhen = stFields[i].pstWhen; pstWhen != nullptr;
             pstWhen = pstWhen->pstAnd) {
            const NpField *pstSelector = Np_SelectorFind(*pstWhen, stFields);
            if (pstSelector == nullptr || pstSelector >= &stFields[i]) {
                return false;
            }
            // The last part of a split selector completes it.
            for (size_t j = i; j < stFields.size(); j++) {
                if (stFields[j].usOffset == pstWhen->usOffset && stFields[j].ucFrom != 0) {
                    return false;
                }
            }
        }
    }
    return true;
}

constexpr size_t Np_RowStoredNum(std::span<const NpField> stFields)
{
    size_t ulNum = stFields.size();
    while (ulNum != 0 && stFields[ulNum - 1].ucMove == NP_MOVE_NONE) {
        ulNum--;
    }
    return ulNum;
}

constexpr bool Np_RowHasHanded(std::span<const NpField> stFields)
{
    for (const NpField &stField : stFields) {
        if (stField.bHanded) {
            return true;
        }
    }
    return false;
}

// A description with a fault does not compile: "array subscript value '3' is outside the bounds of
// array 'Np_Fault_PiecesOverlap'" tells the fault, and that the third field has it (see
// NpRowVerdict).
#define NP_ROW_FAULT(enFault, Name)                                       \
    case enFault: {                                                       \
        constexpr uint32_t Name[1] = {};                                  \
        return Name[stVerdict.ulNumber != 0 ? stVerdict.ulNumber : 2000]; \
    }
constexpr uint32_t Np_RowRefuse(NpRowVerdict stVerdict)
{
    switch (stVerdict.enFault) {
        case NP_ROW_GOOD:
            return 0;
            NP_ROW_FAULT(NP_ROW_LEAVES_IMAGE, Np_Fault_PieceLeavesImage)
            NP_ROW_FAULT(NP_ROW_LEAVES_RECORD, Np_Fault_FieldLeavesRecord)
            NP_ROW_FAULT(NP_ROW_OVERLAP, Np_Fault_PiecesOverlap)
            NP_ROW_FAULT(NP_ROW_TOO_NARROW, Np_Fault_PieceTooNarrow)
            NP_ROW_FAULT(NP_ROW_NOTHING_CUT, Np_Fault_NothingIsCut)
            NP_ROW_FAULT(NP_ROW_NOT_STORED, Np_Fault_FieldNotStored)
            NP_ROW_FAULT(NP_ROW_SELECTOR, Np_Fault_BadSelector)
            NP_ROW_FAULT(NP_ROW_UNREADABLE, Np_Fault_SelectorNotInImage)
            NP_ROW_FAULT(NP_ROW_CONSTANT, Np_Fault_BadConstant)
            NP_ROW_FAULT(NP_ROW_SAME_KEY, Np_Fault_SameKeyword)
            NP_ROW_FAULT(NP_ROW_TOO_BIG, Np_Fault_TooBig)
            NP_ROW_FAULT(NP_ROW_OTHERS_THERE, Np_Fault_ThereOfOtherFields)
            NP_ROW_FAULT(NP_ROW_TWO_SELECTORS, Np_Fault_ThereHasTwoSelectors)
    }
    return 0;
}
#undef NP_ROW_FAULT

// What NpRow::pstThere is made from: up to 32 fields, all conditions of which ask the same
// selector.
template <size_t ulFieldNum>
constexpr NpThere Np_FieldsThere(const NpField (&astField)[ulFieldNum])
{
    static_assert(ulFieldNum <= 32);
    NpThere stThere = {astField, 0, {}};
    bool bKnown = false;
    for (uint32_t i = 0; i < ulFieldNum; i++) {
        const NpWhen *pstWhen = astField[i].pstWhen;
        if (pstWhen != nullptr) {
            if ((bKnown && pstWhen->usOffset != stThere.usSelector) || pstWhen->ucSize != 4 ||
                pstWhen->pstAnd != nullptr || pstWhen->enTest != NP_TEST_ONE_OF) {
                Np_RowRefuse({NP_ROW_TWO_SELECTORS, i + 1});
            }
            bKnown = true;
            stThere.usSelector = pstWhen->usOffset;
        }
        for (uint32_t ulValue = 0; ulValue < 33 && astField[i].ucWidth != 0; ulValue++) {
            if (pstWhen == nullptr || Np_WhenTakes(*pstWhen, ulValue)) {
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
    if ((stSpec.pstThere != nullptr && stSpec.pstThere->pstField != stFields.data()) ||
        (stSpec.pstStraight != nullptr && (stSpec.pstStraight->pstField != stFields.data() ||
                                           stSpec.pstStraight->pstCheck != stChecks.data()))) {
        Np_RowRefuse({NP_ROW_OTHERS_THERE, 1});
    }
    return {stSpec.pszArg,
            stFields.data(),
            stChecks.data(),
            stSpec.pstThere,
            stSpec.pstStraight,
            static_cast<uint16_t>(stFields.size()),
            static_cast<uint16_t>(Np_RowStoredNum(stFields)),
            static_cast<uint16_t>(stChecks.size()),
            sizeof(Record),
            stSpec.usImageSize,
            stSpec.ucModule,
            stSpec.bBare,
            stSpec.bParseClears,
            Np_RowOrdered(stFields),
            Np_RowHasHanded(stFields)};
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

// Of a table that has one row, and no argument that names it; its functions hand g_ulNpRowOfNoKey
// on.
template <uint8_t ucModule>
struct NpNoKey {
    static constexpr NpRow g_stRow = Np_RowMake<NpIndexArg>({.ucModule = ucModule}, {}, {});
};
inline constexpr uint32_t g_ulNpRowOfNoKey = 0;

// A name in a template's argument.
template <size_t ulSize>
struct NpName {
    char acText[ulSize];
    constexpr NpName(const char (&acFrom)[ulSize])
    {
        for (size_t i = 0; i < ulSize; i++) {
            acText[i] = acFrom[i];
        }
    }
};

// The same with a name and a limit of its own: messages call it by its name, commands "index".
template <uint8_t ucModule, NpName stName, NpLimit stLimit, bool bBare = false>
struct NpNamedKey {
    static constexpr NpField g_astField[] = {
        Np_FieldMake<uint32_t>(stName.acText, 0, sizeof(uint32_t), 0, {.pszKey = "index"})};
    static constexpr NpCheck g_astCheck[] = {
        Np_CheckMake<uint32_t>(stName.acText, 0, sizeof(uint32_t), 0, stLimit, {})};
    static constexpr NpRow g_stRow =
        Np_RowMake<NpIndexArg>({.ucModule = ucModule, .bBare = bBare}, g_astField, g_astCheck);
};

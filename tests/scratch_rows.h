// Rows that only tests have, of what few tables or none have yet. Every test of all rows takes them
// too, and tests/rows.txt has their lines.
#pragma once

#include "sdk/record/describe.h"
#include "sdk/record/table.h"
#include "sdk/tables/tables.h"

namespace ldsdk::test {

// Split values, signed ones, ports, runs of bytes, conditions.
struct Mixed {
    uint32_t ulMode;
    int32_t iGain;
    uint32_t ulWide;
    NpPortID stPort;
    uint8_t aucMac[6];
    uint16_t usTag;
};

namespace mixed_row {
using R = Mixed;
constexpr NpField g_astField[] = {
    NP_F(ulMode, .stAt = {0, 3, 0}),
    NP_F(iGain, .stAt = {0, 10, 4}),
    NP_F(ulWide, .stAt = {2, 9, 0}),
    NP_F(ulWide, .stAt = {12, 21, 0}, .ucFrom = 10),
    NP_F(stPort, .stAt = {4, 9, 0}, .pstWhen = NP_WHEN(ulMode, 1u << 1),
         .pstCoding = &g_stNpPortCoding),
    NP_F(aucMac, .stAt = {11, 7, 0}, .sStep = -8, .ucType = NP_SMD_MAC),
    NP_F(usTag, .stAt = {4, 15, 0}, .pstWhen = NP_WHEN(ulMode, 1u << 2)),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulMode, Np_Most(2)),
    NP_C(iGain, Np_Range(-64, 63)),
    NP_C(stPort, Np_Port(), .pstWhen = NP_WHEN(ulMode, 1u << 1)),
};
constexpr NpRow g_stRow = Np_RowMake<Mixed>(
    {.ucModule = NP_M_STAT, .pszArg = "pstMixed", .usImageSize = 16, .bParseClears = true},
    g_astField, g_astCheck);
}  // namespace mixed_row

// What only searched rows and rows with shadows need: a value and its mask, a selector that is
// handed in, a selector behind what it selects, nested conditions, constants, limits that depend on
// others.
struct Rule {
    uint32_t ulForm;
    uint32_t ulKind;
    uint32_t ulID;
    uint32_t ulVlan;
    uint32_t ulPri;
    uint32_t ulVlanMask;
    uint32_t ulPriMask;
    uint32_t ulLag;
    uint32_t ulOn;
};

namespace rule_row {
using R = Rule;
constexpr NpTwin g_astTwin[] = {
    NP_TWIN(NP_TWIN_SWITCH, ulVlan, ulVlanMask, "vlanmask", .stAt = {0, 11, 0}, .pszKey = "vlan"),
    NP_TWIN(NP_TWIN_BITS, ulPri, ulPriMask, "primask", .stAt = {0, 14, 12}, .pszKey = "pri"),
};
constexpr NpField g_astFront[] = {
    NP_F(ulForm, .bHanded = true),
    NP_F(ulID, .stAt = {8, 12, 0}, .pstWhen = NP_WHEN_SET(ulOn)),
    NP_F(ulLag, .stAt = {10, 12, 0}, .pstWhen = NP_WHEN(ulForm, 1u << 0, NP_WHEN(ulKind, 1u << 3))),
    NP_F(ulKind, .stAt = {12, 2, 0}),
};
constexpr NpField g_astBack[] = {NP_F(ulOn, .stAt = {12, 7, 7}), Np_Const({13, 7, 4}, 5)};
constexpr auto g_astField =
    Np_JoinFields(g_astFront, Np_TwinValues(g_astTwin), Np_TwinMasks(g_astTwin, 4), g_astBack);
constexpr NpCheck g_astCheck[] = {
    NP_C(ulForm, Np_Below(2)),
    NP_C(ulKind, Np_Most(7), .pszText = "stKey.ulKind", .bAlone = true),
    NP_C(ulID, Np_Most(1023), .pstWhen = NP_WHEN(ulKind, 1u << 3 | 1u << 4)),
    NP_C(ulID, Np_Most(8191), .pszFormat = " param id(%d) error!\r\n", .usCode = 0x35,
         .pstWhen = NP_WHEN_NOT(ulKind, 1u << 3 | 1u << 4)),
    NP_C(ulVlan, Np_Below(4096)),
    NP_C(ulPri, Np_Most(7)),
    NP_C(ulLag, Np_Most(0x1fff)),
    NP_C(ulOn, Np_Flag(NP_SAY_ENABLE)),
};
constexpr NpRow g_stRow = Np_RowMake<Rule>(
    {.ucModule = NP_M_STAT, .pszArg = "pstRule", .usImageSize = 16, .bParseClears = true},
    g_astField, g_astCheck);
// The same fields in another member's row, with real masks.
constexpr NpPlaced g_astWide[] = {NP_AT(ulVlan, 0, 15, 4), NP_AT(ulVlanMask, 4, 15, 4)};
constexpr auto g_astWideField = Np_LayOut(g_astField, g_astWide);
static_assert(g_astWideField[4].usBit == 4 && g_astWideField[6].usBit == 36 &&
              g_astWideField[3].bLost);
}  // namespace rule_row

// A table over all stores that are no register tables: two words of a counter, four bytes in search
// memory, and a register that is written at two addresses.
struct Kept {
    uint32_t ulPkt;
    uint32_t ulByte;
    uint32_t ulNumber;
    uint32_t ulFlag;
};

namespace kept_row {
using R = Kept;
struct Key {
    uint32_t ulIndex;
};
namespace key {
using R = Key;
constexpr NpField g_astField[] = {NP_F(ulIndex)};
constexpr NpCheck g_astCheck[] = {NP_C(ulIndex, Np_Below(16))};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_STAT}, g_astField, g_astCheck);
}  // namespace key
constexpr NpField g_astField[] = {
    NP_F(ulPkt, .stAt = {0, 31, 0}),
    NP_F(ulByte, .stAt = {4, 31, 0}),
    NP_F(ulNumber, .stAt = {8, 31, 0}),
    NP_F(ulFlag, .stAt = {15, 7, 7}),
};
constexpr NpCheck g_astCheck[] = {NP_C(ulFlag, Np_Flag(NP_SAY_VALID))};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_STAT, .pszArg = "pstKept", .usImageSize = 16}, g_astField, g_astCheck);
constexpr NpSmemArray g_stArray = {NP_CAP_PROBE_COUNT_BASE, 16, 0, 4};
constexpr NpRegisterAt g_astAt[] = {{0x7a101a40, 0}, {0x7a111a40, 0}};
constexpr NpRegisterList g_stList = {g_astAt, 2};
inline constexpr NpTable g_stTable =
    Np_TableOf(key::g_stRow, g_stRow, {}, Np_CounterPart(9), Np_SmemPart(&g_stArray, 8),
               Np_RegisterPart(&g_stList, 12));
}  // namespace kept_row

inline uint32_t Np_KeptTbl_Get(uint32_t ulChipID, const void *pvKey, void *pvRecord)
{
    return Np_Table_Get(&kept_row::g_stTable, ulChipID, pvKey, pvRecord);
}
inline uint32_t Np_KeptTbl_Set(uint32_t ulChipID, const void *pvKey, const void *pvRecord)
{
    return Np_Table_Set(&kept_row::g_stTable, ulChipID, pvKey, pvRecord);
}

inline constexpr NpTableInfo kKeptTable = {"Np_KeptTbl_Get", &kept_row::g_stTable, Np_KeptTbl_Get,
                                           Np_KeptTbl_Set, false};

}  // namespace ldsdk::test

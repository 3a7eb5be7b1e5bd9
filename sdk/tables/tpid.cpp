#include "sdk/tables/tpid.h"

#include "ldsdk/status.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/trace.h"
#include "sdk/lookup/lcam.h"
#include "sdk/record/describe.h"
#include "sdk/tables/ha.h"

namespace {

namespace rule_row {
using R = NpTpidRule;
inline constexpr uint32_t NP_MASK = 8;  // bytes of the image
inline constexpr uint32_t NP_AD = 16;
constexpr NpField g_astField[] = {
    NP_F(ulOuterTpid, .stAt = {0, 35, 20}),
    NP_F(ulInnerTpid, .stAt = {0, 19, 4}),
    NP_F(ulOuterTpidMask, .stAt = {NP_MASK, 35, 20}),
    NP_F(ulInnerTpidMask, .stAt = {NP_MASK, 19, 4}),
    NP_F(ulOTPID, .stAt = {NP_AD, 31, 30}),
    NP_F(ulITPID, .stAt = {NP_AD, 29, 28}),
    NP_F(ulTagNum, .stAt = {NP_AD, 25, 24}),
    NP_F(ulTagNumB, .stAt = {NP_AD, 11, 10}),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulOuterTpid, Np_Most(0xffff)),
    NP_C(ulInnerTpid, Np_Most(0xffff)),
    NP_C(ulOuterTpidMask, Np_Most(0xffff)),
    NP_C(ulInnerTpidMask, Np_Most(0xffff)),
    NP_C(ulOTPID, Np_Most(3)),
    NP_C(ulITPID, Np_Most(3)),
    NP_C(ulTagNum, Np_Most(3)),
    NP_C(ulTagNumB, Np_Most(3)),
};
constexpr uint32_t NP_SIZE = 20;
}  // namespace rule_row

namespace outer {
struct R {
    uint32_t ulOuterTpid;
};
constexpr NpField g_astField[] = {NP_F(ulOuterTpid)};
constexpr NpCheck g_astCheck[] = {NP_C(ulOuterTpid, Np_Below(0x10000))};
}  // namespace outer

namespace inner {
struct R {
    uint32_t ulInnerTpid;
};
constexpr NpField g_astField[] = {NP_F(ulInnerTpid)};
constexpr NpCheck g_astCheck[] = {NP_C(ulInnerTpid, Np_Below(0x10000))};
}  // namespace inner

// A CAM row on the way.
struct NpRuleImage {
    uint32_t aulWord[rule_row::NP_SIZE / 4];
    void *At(uint32_t ulByte)
    {
        return &aulWord[ulByte / 4];
    }
};

uint32_t Np_Told(uint32_t ulReturn, NpWhere stWhere)
{
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_PA, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
    }
    return ulReturn;
}

uint32_t Np_RuleRead(uint32_t ulChipID, uint32_t ulRow, NpTpidRule *pstRule, NpWhere stWhere)
{
    NpRuleImage stImage = {};
    const uint32_t ulReturn = Np_Tarn_LCAM_TcamRead(ulChipID, NP_LCAM_TPID, ulRow, stImage.At(0),
                                                    stImage.At(rule_row::NP_MASK), nullptr);
    return ulReturn != NP_OK ? ulReturn
                             : Np_Row_Parse(&g_stTpidRow, ulChipID, &stImage, pstRule, stWhere);
}

// bAction: with what the row says, else that stays.
uint32_t Np_RuleWrite(uint32_t ulChipID, uint32_t ulRow, const NpTpidRule &stRule, bool bAction,
                      NpWhere stWhere)
{
    NpRuleImage stImage;
    const uint32_t ulReturn = Np_Row_Build(&g_stTpidRow, ulChipID, &stRule, &stImage, stWhere);
    return ulReturn != NP_OK
               ? ulReturn
               : Np_Tarn_LCAM_TcamWrite(ulChipID, NP_LCAM_TPID, ulRow, stImage.At(0),
                                        stImage.At(rule_row::NP_MASK),
                                        bAction ? stImage.At(rule_row::NP_AD) : nullptr);
}

// Both tags; one tag; anything.
NpTpidRule Np_RuleOf(uint32_t ulRow)
{
    NpTpidRule stRule = {};
    const uint32_t ulPairs = NP_TPID_NUM * NP_TPID_NUM;
    if (ulRow < ulPairs + NP_TPID_NUM) {
        const bool bTwo = ulRow < ulPairs;
        stRule.ulOTPID = bTwo ? ulRow / NP_TPID_NUM : ulRow - ulPairs;
        stRule.ulOuterTpid = g_aulNpInitOuterTpid[stRule.ulOTPID];
        stRule.ulOuterTpidMask = 0xffff;
        stRule.ulTagNum = bTwo ? 3 : 2;
        stRule.ulTagNumB = bTwo ? 2 : 1;
        if (bTwo) {
            stRule.ulITPID = ulRow % NP_TPID_NUM;
            stRule.ulInnerTpid = g_aulNpInitInnerTpid[stRule.ulITPID];
            stRule.ulInnerTpidMask = 0xffff;
        }
    }
    return stRule;
}

// One of the two that can be set: which member of the rules it is, where they stand, its number
// among the types of the pre-classifier.
struct NpTpidKind {
    const NpRow *pstArgs;
    uint32_t NpTpidRule::*pulTpid;
    const uint8_t *pucPos;
    uint32_t ulPosNum;
    uint32_t ulFirstType;  // of its fixed ones, the one that can be set behind them
};
constexpr NpTpidKind g_stOuter = {&g_stOuterTpidArgs, &NpTpidRule::ulOuterTpid, g_aucNpOuterTpidPos,
                                  5, 1};
constexpr NpTpidKind g_stInner = {&g_stInnerTpidArgs, &NpTpidRule::ulInnerTpid, g_aucNpInnerTpidPos,
                                  4, 5};
inline constexpr uint32_t NP_TPID_FIXED = NP_TPID_NUM - 1;

uint32_t Np_TpidSet(const NpTpidKind &stKind, uint32_t ulChipID, uint32_t ulTpid, NpWhere stWhere)
{
    Np_Row_Trace(stKind.pstArgs, &ulTpid, stWhere);
    uint32_t ulReturn = Np_Row_Check(stKind.pstArgs, ulChipID, &ulTpid, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    for (uint32_t i = 0; i < stKind.ulPosNum && ulReturn == NP_OK; i++) {
        NpTpidRule stRule = {};
        ulReturn = Np_RuleRead(ulChipID, stKind.pucPos[i], &stRule, stWhere);
        if (ulReturn == NP_OK) {
            stRule.*stKind.pulTpid = ulTpid;
            ulReturn = Np_RuleWrite(ulChipID, stKind.pucPos[i], stRule, false, stWhere);
        }
    }
    if (ulReturn == NP_OK) {
        ulReturn = Np_TarnB_ExtendTpidSet(ulChipID, stKind.ulFirstType + NP_TPID_FIXED, ulTpid);
    }
    return Np_Told(ulReturn, stWhere);
}

uint32_t Np_TpidGet(const NpTpidKind &stKind, uint32_t ulChipID, uint32_t *pulTpid, NpWhere stWhere)
{
    if (pulTpid == nullptr) {
        NP_TRACE_AT(stWhere, NP_M_PA, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    NpTpidRule stRule = {};
    const uint32_t ulReturn = Np_RuleRead(ulChipID, stKind.pucPos[0], &stRule, stWhere);
    if (ulReturn == NP_OK) {
        *pulTpid = stRule.*stKind.pulTpid;
        Np_Row_Trace(stKind.pstArgs, pulTpid, stWhere);
    }
    return Np_Told(ulReturn, stWhere);
}

}  // namespace

constexpr NpRow g_stTpidRow = Np_RowMake<rule_row::R>(
    {.ucModule = NP_M_PA, .pszArg = "pstTpid", .usImageSize = rule_row::NP_SIZE},
    rule_row::g_astField, rule_row::g_astCheck);
constexpr NpRow g_stOuterTpidArgs = Np_RowMake<outer::R>({.ucModule = NP_M_PA, .bBare = true},
                                                         outer::g_astField, outer::g_astCheck);
constexpr NpRow g_stInnerTpidArgs = Np_RowMake<inner::R>({.ucModule = NP_M_PA, .bBare = true},
                                                         inner::g_astField, inner::g_astCheck);

extern "C" {

constexpr uint32_t g_aulNpInitOuterTpid[NP_TPID_NUM] = {0x8100, 0x9100, 0x9200, 0x8100};
constexpr uint32_t g_aulNpInitInnerTpid[NP_TPID_NUM] = {0x8100, 0x9100, 0x9200, 0x8100};
constexpr uint8_t g_aucNpOuterTpidPos[5] = {12, 13, 14, 15, 19};
constexpr uint8_t g_aucNpInnerTpidPos[4] = {3, 7, 11, 15};

uint32_t Np_TarnB_Tpid_Init(uint32_t ulChipID)
{
    uint32_t ulReturn = NP_OK;
    for (uint32_t ulRow = 0; ulRow < NP_TPID_ROWS && ulReturn == NP_OK; ulRow++) {
        ulReturn = Np_RuleWrite(ulChipID, ulRow, Np_RuleOf(ulRow), true, Np_Here());
    }
    for (const NpTpidKind *pstKind : {&g_stOuter, &g_stInner}) {
        const uint32_t *pulTpid =
            pstKind == &g_stOuter ? g_aulNpInitOuterTpid : g_aulNpInitInnerTpid;
        for (uint32_t i = 0; i < NP_TPID_FIXED && ulReturn == NP_OK; i++) {
            ulReturn = Np_TarnB_ExtendTpidSet(ulChipID, pstKind->ulFirstType + i, pulTpid[i]);
        }
    }
    return Np_Told(ulReturn, Np_Here());
}

uint32_t Np_TarnB_OuterTpid_Set(uint32_t ulChipID, uint32_t ulOuterTpid)
{
    return Np_TpidSet(g_stOuter, ulChipID, ulOuterTpid, Np_Here());
}

uint32_t Np_TarnB_InnerTpid_Set(uint32_t ulChipID, uint32_t ulInnerTpid)
{
    return Np_TpidSet(g_stInner, ulChipID, ulInnerTpid, Np_Here());
}

uint32_t Np_Tarn_OuterTpid_Get(uint32_t ulChipID, uint32_t *pulOuterTpid)
{
    return Np_TpidGet(g_stOuter, ulChipID, pulOuterTpid, Np_Here());
}

uint32_t Np_Tarn_InnerTpid_Get(uint32_t ulChipID, uint32_t *pulInnerTpid)
{
    return Np_TpidGet(g_stInner, ulChipID, pulInnerTpid, Np_Here());
}

}  // extern "C"

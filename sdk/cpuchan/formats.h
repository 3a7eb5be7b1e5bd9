// The in-band formats that more than one row has: the frame info word and the send header. In-band
// words are host words; word w of an image stands at its byte 4 * w, so that its bits are numbered
// as in the word.
//
// A record that ends in a frame info has the fields and the checks of all its types by two lines;
// the type, which the word does not keep, is a field of the record's own, handed in from where it
// is kept:
//
//     NP_F(ulFrameInfoType, .stWords = frame_info::g_astTypeWords, .bHanded = true),
//     Np_FrameInfoFields<offsetof(R, ulFrameInfoType), offsetof(R, unFrameInfo), usByte>()
//     Np_FrameInfoChecks<offsetof(R, ulFrameInfoType), offsetof(R, unFrameInfo)>()
#pragma once

#include "ldsdk/cputr.h"
#include "sdk/cpuchan/frameinfo.h"
#include "sdk/record/describe.h"

// ---- frame info word, by frame info type -------------------------------------------------------

namespace frame_info {

using R = NpFrameInfo;

inline constexpr NpSmdKeyEnum g_astTypeWords[] = {
    {0, "eth", NP_FRAME_ETHER},         {0, "gpon", NP_FRAME_GPON}, {0, "epon", NP_FRAME_EPON},
    {0, "xdsl", NP_FRAME_XDSL},         {0, "prbs", NP_FRAME_PRBS}, {0, "pie", NP_FRAME_PIE},
    {0, "loopback", NP_FRAME_LOOPBACK},
};
inline constexpr auto g_astTsModeWords = Np_Words("non", "modify", "sub", "add");
inline constexpr auto g_astBkWords = Np_Words("noback", "back");
inline constexpr auto g_astAtmPtmWords = Np_Words("atm", "ptm", "atm_cell1", "atm_cell2");

inline constexpr NpField g_astEther[] = {
    NP_F(stEther.ulTsMode, .stAt = {0, 23, 22}, .stWords = g_astTsModeWords),
    NP_F(stEther.ulBk, .stAt = {0, 21, 21}, .stWords = g_astBkWords),
    NP_F(stEther.ulTsAddr, .stAt = {0, 15, 8}),
    NP_F(stEther.ulTsAddr, .stAt = {0, 20, 20}, .ucFrom = 8),
    NP_F(stEther.ulTsBkAddr, .stAt = {0, 18, 16}),
    NP_F(stEther.ulUdpAddr, .stAt = {0, 7, 0}),
};
inline constexpr NpField g_astGpon[] = {
    NP_F(stGpon.ulPriOrSCR, .stAt = {0, 12, 12}),
    NP_F(stGpon.ulGemPortID, .stAt = {0, 11, 0}),
};
inline constexpr NpField g_astEpon[] = {
    NP_F(stEpon.ulPri, .stAt = {0, 14, 12}),
};
inline constexpr NpField g_astXdsl[] = {
    NP_F(stXdsl.ulAtmPtmType, .stAt = {0, 5, 4}, .stWords = g_astAtmPtmWords),
    NP_F(stXdsl.ulPvcOffset, .stAt = {0, 2, 0}),
};
inline constexpr NpField g_astPrbs[] = {
    NP_F(stPrbs.ulPrbsChID, .stAt = {0, 7, 0}),
};
inline constexpr NpField g_astPie[] = {
    NP_F(stPie.ulPieChID, .stAt = {0, 2, 0}),
};
inline constexpr NpField g_astLoopBack[] = {
    NP_F(stLoopBack.ulRsvd, .stAt = {0, 23, 0}),
};

// Messages name the union alike wherever it stands.
#define NP_FRAME_C(Member, stLimit) \
    NP_C(Member, stLimit, .pszText = "punFrameInfo->" #Member, .bBare = true)
inline constexpr NpCheck g_astEtherCheck[] = {
    NP_FRAME_C(stEther.ulTsMode, Np_Most(3)),    NP_C(stEther.ulBk, Np_Flag(NP_SAY_BOOL)),
    NP_FRAME_C(stEther.ulTsAddr, Np_Most(511)),  NP_FRAME_C(stEther.ulTsBkAddr, Np_Most(7)),
    NP_FRAME_C(stEther.ulUdpAddr, Np_Most(127)),
};
inline constexpr NpCheck g_astGponCheck[] = {
    NP_FRAME_C(stGpon.ulPriOrSCR, Np_Most(1)),
    NP_FRAME_C(stGpon.ulGemPortID, Np_Most(4095)),
};
inline constexpr NpCheck g_astEponCheck[] = {
    NP_FRAME_C(stEpon.ulPri, Np_MostCap(NP_CAP_EPON_PRI_MAX)),
};
inline constexpr NpCheck g_astXdslCheck[] = {
    NP_FRAME_C(stXdsl.ulAtmPtmType, Np_Most(3)),
    NP_FRAME_C(stXdsl.ulPvcOffset, Np_MostCap(NP_CAP_PVC_OFFSET_MAX)),
};
inline constexpr NpCheck g_astPrbsCheck[] = {
    NP_FRAME_C(stPrbs.ulPrbsChID, Np_MostCap(NP_CAP_PRBS_CH_MAX)),
};
inline constexpr NpCheck g_astPieCheck[] = {
    NP_FRAME_C(stPie.ulPieChID, Np_MostCap(NP_CAP_PIE_CH_MAX)),
};
inline constexpr NpCheck g_astLoopBackCheck[] = {
    NP_FRAME_C(stLoopBack.ulRsvd, Np_MostCap(NP_CAP_LOOPBACK_RSVD_MAX)),
};
#undef NP_FRAME_C

// The type, ulType bytes from the record's start, is one.
template <size_t ulType, NpFrameInfoType enIs, const NpWhen *pstAnd>
inline constexpr const NpWhen *g_pstIs =
    &g_stNpWhen<ulType, sizeof(uint32_t), NP_TEST_ONE_OF, 1u << enIs, pstAnd>;

}  // namespace frame_info

// ulType, ulInfo: bytes from the record's start. usByte: of the image, where the word stands.
// pstAnd: a further condition, such as a type of row that has a frame info at all.
template <size_t ulType, size_t ulInfo, uint16_t usByte = 0, const NpWhen *pstAnd = nullptr>
constexpr auto Np_FrameInfoFields()
{
    using namespace frame_info;
    return Np_JoinFields(
        Np_Inside<g_astEther, ulInfo, g_pstIs<ulType, NP_FRAME_ETHER, pstAnd>, usByte>(),
        Np_Inside<g_astGpon, ulInfo, g_pstIs<ulType, NP_FRAME_GPON, pstAnd>, usByte>(),
        Np_Inside<g_astEpon, ulInfo, g_pstIs<ulType, NP_FRAME_EPON, pstAnd>, usByte>(),
        Np_Inside<g_astXdsl, ulInfo, g_pstIs<ulType, NP_FRAME_XDSL, pstAnd>, usByte>(),
        Np_Inside<g_astPrbs, ulInfo, g_pstIs<ulType, NP_FRAME_PRBS, pstAnd>, usByte>(),
        Np_Inside<g_astPie, ulInfo, g_pstIs<ulType, NP_FRAME_PIE, pstAnd>, usByte>(),
        Np_Inside<g_astLoopBack, ulInfo, g_pstIs<ulType, NP_FRAME_LOOPBACK, pstAnd>, usByte>());
}
// The type's own check comes first.
template <size_t ulType, size_t ulInfo, const NpWhen *pstAnd = nullptr>
constexpr auto Np_FrameInfoChecks()
{
    using namespace frame_info;
    const std::array stType = {Np_CheckMake<uint32_t>("ulFrameInfoType", ulType, sizeof(uint32_t),
                                                      0, Np_Below(NP_FRAME_NUM),
                                                      {.bBare = true, .pstWhen = pstAnd})};
    return Np_JoinFields(
        stType, Np_Inside<g_astEtherCheck, ulInfo, g_pstIs<ulType, NP_FRAME_ETHER, pstAnd>>(),
        Np_Inside<g_astGponCheck, ulInfo, g_pstIs<ulType, NP_FRAME_GPON, pstAnd>>(),
        Np_Inside<g_astEponCheck, ulInfo, g_pstIs<ulType, NP_FRAME_EPON, pstAnd>>(),
        Np_Inside<g_astXdslCheck, ulInfo, g_pstIs<ulType, NP_FRAME_XDSL, pstAnd>>(),
        Np_Inside<g_astPrbsCheck, ulInfo, g_pstIs<ulType, NP_FRAME_PRBS, pstAnd>>(),
        Np_Inside<g_astPieCheck, ulInfo, g_pstIs<ulType, NP_FRAME_PIE, pstAnd>>(),
        Np_Inside<g_astLoopBackCheck, ulInfo, g_pstIs<ulType, NP_FRAME_LOOPBACK, pstAnd>>());
}

// ---- send header, by insert type ---------------------------------------------------------------
// usWord0, usWord1: bytes of the image where the header's words stand. What all types share,
// message type, insert type and payload offset, is the row's own.

namespace insert {

inline constexpr NpSmdKeyEnum g_astRoleWords[] = {{0, "uni", 1}, {0, "nni", 2}};
inline constexpr NpSmdKeyEnum g_astClassWords[] = {{0, "low", 1}, {0, "high", 2}};

namespace queue {
using R = NpInsertToQueue;
template <uint16_t usWord0, uint16_t usWord1>
inline constexpr NpField g_astOwn[] = {
    NP_F(ulQID, .stAt = {usWord1, 31, 24}),
    NP_F(ulQID, .stAt = {usWord0, 3, 0}, .ucFrom = 8),
    NP_F(ulOftID, .stAt = {usWord0, 15, 4}),
    NP_F(ulFrameInfoType, .stWords = frame_info::g_astTypeWords, .bHanded = true),
};
template <uint16_t usWord0, uint16_t usWord1>
inline constexpr auto g_astField = Np_JoinFields(
    g_astOwn<usWord0, usWord1>,
    Np_FrameInfoFields<offsetof(R, ulFrameInfoType), offsetof(R, unFrameInfo), usWord1>());
}  // namespace queue

namespace fwd {
using R = NpInsertToFwd;
// The low bits of word 0: a bundle with its priority, or a flow.
inline constexpr const NpWhen *g_pstBundle = NP_WHEN(ulBundleEnalbe, 1u << 1);
inline constexpr const NpWhen *g_pstFlow = NP_WHEN(ulBundleEnalbe, ~(1u << 1));
template <uint16_t usWord0, uint16_t usWord1>
inline constexpr NpField g_astField[] = {
    NP_F(ulFwdVlan, .stAt = {usWord1, 27, 16}),
    NP_F(ulHS, .stAt = {usWord1, 15, 8}),
    NP_F(ulIcos, .stAt = {usWord0, 15, 13}),
    NP_F(ulIftID, .stAt = {usWord0, 12, 0}, .pstWhen = g_pstFlow, .bFree = true),
    NP_F(ulVsi, .stAt = {usWord1, 31, 28}),
    NP_F(ulRole, .stAt = {usWord1, 7, 6}, .stWords = g_astRoleWords),
    NP_F(ulClass, .stAt = {usWord1, 5, 4}, .stWords = g_astClassWords),
    NP_F(ulLrnEnable, .stAt = {usWord1, 3, 3}),
    NP_F(ulPfeEnable, .stAt = {usWord1, 2, 2}),
    NP_F(ulBundleEnalbe, .stAt = {usWord1, 1, 1}),
    NP_F(ulBundleID, .stAt = {usWord0, 9, 0}, .pstWhen = g_pstBundle, .bFree = true),
    NP_F(ulPri, .stAt = {usWord0, 12, 10}, .pstWhen = g_pstBundle, .bFree = true),
};
}  // namespace fwd

namespace ift {
using R = NpInsertToIft;
template <uint16_t usWord0, uint16_t usWord1>
inline constexpr NpField g_astField[] = {
    NP_F(ulIcos, .stAt = {usWord0, 15, 13}),
    NP_F(ulUserID, .stAt = {usWord0, 8, 0}),
    NP_F(ulPfEnable, .stAt = {usWord0, 12, 12}),
    NP_F(ulRole, .stAt = {usWord1, 15, 14}, .stWords = g_astRoleWords),
    NP_F(ulClass, .stAt = {usWord0, 11, 10}, .stWords = g_astClassWords),
    NP_F(stPortID, .stAt = {usWord1, 25, 16}, .pstCoding = &g_stNpPortCoding),
};
}  // namespace ift

namespace oft {
using R = NpInsertToOft;
template <uint16_t usWord0>
inline constexpr NpField g_astField[] = {
    NP_F(ulIcos, .stAt = {usWord0, 15, 13}),
    NP_F(ulOftID, .stAt = {usWord0, 12, 0}),
};
}  // namespace oft

namespace cm {
using R = NpInsertToCm;
template <uint16_t usWord0>
inline constexpr NpField g_astField[] = {
    NP_F(ulCmGroupID, .stAt = {usWord0, 8, 0}),
};
}  // namespace cm

namespace l2_encap {
using R = NpInsertToL2Encap;
template <uint16_t usWord0>
inline constexpr NpField g_astField[] = {
    NP_F(ulIcos, .stAt = {usWord0, 15, 13}),
    NP_F(ulL2EncapID, .stAt = {usWord0, 12, 0}),
};
}  // namespace l2_encap

}  // namespace insert

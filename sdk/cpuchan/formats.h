// The in-band formats of packets: every field that has a place of its own, with its limit. What is
// computed (ports, the frame info word, a bundle in place of a flow) stands beside the engine's
// call.
#pragma once

#include "ldsdk/cputr.h"
#include "sdk/cpuchan/frameinfo.h"
#include "sdk/cpuchan/inband.h"
#include "sdk/cpuchan/packet.h"
#include "sdk/frame/capability.h"

// ---- send header, words 0 and 1, by insert type ------------------------------------------------

inline constexpr NpInbandField g_astInsertQueue[] = {
    NP_INBAND_MAX(NpInsertToQueue, ulQID, 1, 24, 8, SLOT, NP_CAP_DYING_GASP_PARAM),
    NP_INBAND_PIECE(NpInsertToQueue, ulQID, 0, 0, 4, 8),
    NP_INBAND_MAX(NpInsertToQueue, ulOftID, 0, 4, 12, BELOW_SLOT, NP_CAP_FLOW_NUM),
};
inline constexpr NpInbandField g_astInsertFwd[] = {
    NP_INBAND_MAX(NpInsertToFwd, ulFwdVlan, 1, 16, 12, MOST, 4095),
    NP_INBAND_MAX(NpInsertToFwd, ulHS, 1, 8, 8, SLOT, NP_CAP_HS_MAX),
    NP_INBAND_MAX(NpInsertToFwd, ulIcos, 0, 13, 3, MOST, 7),
    NP_INBAND_MAX(NpInsertToFwd, ulIftID, 0, 0, 0, BELOW_SLOT, NP_CAP_FLOW_NUM),
    NP_INBAND_MAX(NpInsertToFwd, ulVsi, 1, 28, 4, SLOT, NP_CAP_VSI_MAX),
    NP_INBAND_MAX(NpInsertToFwd, ulRole, 1, 6, 2, MOST, 3),
    NP_INBAND_MAX(NpInsertToFwd, ulClass, 1, 4, 2, MOST, 3),
    NP_INBAND_MAX(NpInsertToFwd, ulLrnEnable, 1, 3, 1, ENABLE, 0),
    NP_INBAND_MAX(NpInsertToFwd, ulPfeEnable, 1, 2, 1, ENABLE, 0),
    NP_INBAND_MAX(NpInsertToFwd, ulBundleEnalbe, 1, 1, 1, ENABLE, 0),
    NP_INBAND_MAX(NpInsertToFwd, ulBundleID, 0, 0, 0, BELOW_SLOT, NP_CAP_BUNDLE_NUM),
    NP_INBAND_MAX(NpInsertToFwd, ulPri, 0, 0, 0, MOST, 7),
};
// What stands in the low bits of word 0: a bundle with its priority, or a flow.
inline constexpr NpInbandField g_astInsertBundle[] = {
    NP_INBAND(NpInsertToFwd, ulBundleID, 0, 0, 10),
    NP_INBAND(NpInsertToFwd, ulPri, 0, 10, 3),
};
inline constexpr NpInbandField g_astInsertFlow[] = {
    NP_INBAND(NpInsertToFwd, ulIftID, 0, 0, 13),
};
inline constexpr NpInbandField g_astInsertIft[] = {
    NP_INBAND_MAX(NpInsertToIft, ulIcos, 0, 13, 3, MOST, 7),
    NP_INBAND_MAX(NpInsertToIft, ulUserID, 0, 0, 9, SLOT, NP_CAP_USER_ID_MAX),
    NP_INBAND_MAX(NpInsertToIft, ulPfEnable, 0, 12, 1, ENABLE, 0),
    NP_INBAND_MAX(NpInsertToIft, ulRole, 1, 14, 2, MOST, 3),
    NP_INBAND_MAX(NpInsertToIft, ulClass, 0, 10, 2, MOST, 3),
};
inline constexpr NpInbandField g_astInsertOft[] = {
    NP_INBAND_MAX(NpInsertToOft, ulIcos, 0, 13, 3, MOST, 7),
    NP_INBAND_MAX(NpInsertToOft, ulOftID, 0, 0, 13, BELOW_SLOT, NP_CAP_FLOW_NUM),
};
inline constexpr NpInbandField g_astInsertCm[] = {
    NP_INBAND_MAX(NpInsertToCm, ulCmGroupID, 0, 0, 9, SLOT, NP_CAP_CM_GROUP_MAX),
};
inline constexpr NpInbandField g_astInsertL2Encap[] = {
    NP_INBAND_MAX(NpInsertToL2Encap, ulIcos, 0, 13, 3, MOST, 7),
    NP_INBAND_MAX(NpInsertToL2Encap, ulL2EncapID, 0, 0, 13, SLOT, NP_CAP_L2_ENCAP_ID_MAX),
};
static_assert(Np_InbandIsSound(g_astInsertQueue, 2) && Np_InbandIsSound(g_astInsertFwd, 2) &&
              Np_InbandIsSound(g_astInsertBundle, 1) && Np_InbandIsSound(g_astInsertFlow, 1) &&
              Np_InbandIsSound(g_astInsertIft, 2) && Np_InbandIsSound(g_astInsertOft, 1) &&
              Np_InbandIsSound(g_astInsertCm, 1) && Np_InbandIsSound(g_astInsertL2Encap, 1));

// ---- frame info word, by frame info type -------------------------------------------------------

inline constexpr NpInbandField g_astFrameEther[] = {
    NP_INBAND_MAX(NpFrameInfo, stEther.ulTsMode, 0, 22, 2, MOST, 3),
    NP_INBAND_MAX(NpFrameInfo, stEther.ulBk, 0, 21, 1, BOOL, 0),
    NP_INBAND_MAX(NpFrameInfo, stEther.ulTsAddr, 0, 8, 8, MOST, 511),
    NP_INBAND_PIECE(NpFrameInfo, stEther.ulTsAddr, 0, 20, 1, 8),
    NP_INBAND_MAX(NpFrameInfo, stEther.ulTsBkAddr, 0, 16, 3, MOST, 7),
    NP_INBAND_MAX(NpFrameInfo, stEther.ulUdpAddr, 0, 0, 8, MOST, 127),
};
inline constexpr NpInbandField g_astFrameGpon[] = {
    NP_INBAND_MAX(NpFrameInfo, stGpon.ulPriOrSCR, 0, 12, 1, MOST, 1),
    NP_INBAND_MAX(NpFrameInfo, stGpon.ulGemPortID, 0, 0, 12, MOST, 4095),
};
inline constexpr NpInbandField g_astFrameEpon[] = {
    NP_INBAND_MAX(NpFrameInfo, stEpon.ulPri, 0, 12, 3, SLOT, NP_CAP_EPON_PRI_MAX),
};
inline constexpr NpInbandField g_astFrameXdsl[] = {
    NP_INBAND_MAX(NpFrameInfo, stXdsl.ulAtmPtmType, 0, 4, 2, MOST, 3),
    NP_INBAND_MAX(NpFrameInfo, stXdsl.ulPvcOffset, 0, 0, 3, SLOT, NP_CAP_PVC_OFFSET_MAX),
};
inline constexpr NpInbandField g_astFramePrbs[] = {
    NP_INBAND_MAX(NpFrameInfo, stPrbs.ulPrbsChID, 0, 0, 8, SLOT, NP_CAP_PRBS_CH_MAX),
};
inline constexpr NpInbandField g_astFramePie[] = {
    NP_INBAND_MAX(NpFrameInfo, stPie.ulPieChID, 0, 0, 3, SLOT, NP_CAP_PIE_CH_MAX),
};
inline constexpr NpInbandField g_astFrameLoopBack[] = {
    NP_INBAND_MAX(NpFrameInfo, stLoopBack.ulRsvd, 0, 0, 24, SLOT, NP_CAP_LOOPBACK_RSVD_MAX),
};
static_assert(Np_InbandIsSound(g_astFrameEther, 1) && Np_InbandIsSound(g_astFrameGpon, 1) &&
              Np_InbandIsSound(g_astFrameEpon, 1) && Np_InbandIsSound(g_astFrameXdsl, 1) &&
              Np_InbandIsSound(g_astFramePrbs, 1) && Np_InbandIsSound(g_astFramePie, 1) &&
              Np_InbandIsSound(g_astFrameLoopBack, 1));

// By frame info type; type 0 has no fields.
inline constexpr NpInbandFormat g_astFrameFormat[NP_FRAME_NUM] = {
    {nullptr, 0},
    Np_InbandFormat(g_astFrameEther),
    Np_InbandFormat(g_astFrameGpon),
    Np_InbandFormat(g_astFrameEpon),
    Np_InbandFormat(g_astFrameXdsl),
    Np_InbandFormat(g_astFramePrbs),
    Np_InbandFormat(g_astFramePie),
    Np_InbandFormat(g_astFrameLoopBack),
};

// ---- receive header and extension words --------------------------------------------------------

// The receive image: word 0 has the message type, word 1 the header length, E0 to E4 follow.
inline constexpr uint8_t NP_E0 = 2;
inline constexpr uint8_t NP_E1 = 3;
inline constexpr uint8_t NP_E2 = 4;
inline constexpr uint8_t NP_E3 = 5;
inline constexpr uint8_t NP_E4 = 6;

// The header's fields before the source port and behind it.
inline constexpr NpInbandField g_astReceiveFront[] = {
    NP_INBAND(ReceiveInfo, ulEncap, 1, 28, 4),
    NP_INBAND(ReceiveInfo, ulFlowID, 1, 0, 12),
    NP_INBAND(ReceiveInfo, ulPtype, 0, 13, 11),
};
inline constexpr NpInbandField g_astReceiveBack[] = {
    NP_INBAND(ReceiveInfo, ulTagInfo, 0, 10, 2),
    NP_INBAND(ReceiveInfo, ulVlanID, 1, 16, 12),
};
inline constexpr NpInbandField g_astReceiveNormal[] = {
    NP_INBAND(ReceiveInfo, unRecInfo.stRecNormal.ulExtInfo, NP_E0, 16, 12),
};
inline constexpr NpInbandField g_astReceiveFm[] = {
    NP_INBAND(ReceiveInfo, unRecInfo.stRecOamPduFm.ulMegIndex, NP_E0, 24, 8),
    NP_INBAND(ReceiveInfo, unRecInfo.stRecOamPduFm.ulMepIndex, NP_E0, 16, 8),
    NP_INBAND(ReceiveInfo, unRecInfo.stRecOamPduFm.ulDriection, NP_E0, 15, 1),
    NP_INBAND(ReceiveInfo, unRecInfo.stRecOamPduFm.ulLevel, NP_E0, 12, 3),
    NP_INBAND(ReceiveInfo, unRecInfo.stRecOamPduFm.ulOamSessionID, NP_E0, 0, 12),
};
// The microcode sends the counters in another order than the record has them.
inline constexpr NpInbandField g_astReceiveLm[] = {
    NP_INBAND(ReceiveInfo, unRecInfo.stRecOamPduLm.ulLmIndex, NP_E0, 24, 8),
    NP_INBAND(ReceiveInfo, unRecInfo.stRecOamPduLm.ulFramNearTx, NP_E1, 0, 32),
    NP_INBAND(ReceiveInfo, unRecInfo.stRecOamPduLm.ulFramFarRx, NP_E2, 0, 32),
    NP_INBAND(ReceiveInfo, unRecInfo.stRecOamPduLm.ulFramFarTx, NP_E3, 0, 32),
    NP_INBAND(ReceiveInfo, unRecInfo.stRecOamPduLm.ulFramNearRx, NP_E4, 0, 32),
};
inline constexpr NpInbandField g_astReceiveDm[] = {
    NP_INBAND(ReceiveInfo, unRecInfo.stRecOamPduDm.ulDmIndex, NP_E0, 24, 8),
    NP_INBAND(ReceiveInfo, unRecInfo.stRecOamPduDm.ulTimeStampOffset, NP_E0, 16, 8),
    NP_INBAND(ReceiveInfo, unRecInfo.stRecOamPduDm.ulRxTimeb_Sec, NP_E1, 0, 32),
    NP_INBAND(ReceiveInfo, unRecInfo.stRecOamPduDm.ulRxTimeb_nSec, NP_E2, 0, 32),
};
static_assert(Np_InbandIsSound(g_astReceiveFront, 2) && Np_InbandIsSound(g_astReceiveBack, 2) &&
              Np_InbandIsSound(g_astReceiveNormal, NP_CPUTR_IMAGE_NUM) &&
              Np_InbandIsSound(g_astReceiveFm, NP_CPUTR_IMAGE_NUM) &&
              Np_InbandIsSound(g_astReceiveLm, NP_CPUTR_IMAGE_NUM) &&
              Np_InbandIsSound(g_astReceiveDm, NP_CPUTR_IMAGE_NUM));

// By subtype.
inline constexpr NpInbandFormat g_astReceiveFormat[NP_RECEIVE_NUM] = {
    Np_InbandFormat(g_astReceiveNormal),
    Np_InbandFormat(g_astReceiveFm),
    Np_InbandFormat(g_astReceiveLm),
    Np_InbandFormat(g_astReceiveDm),
};

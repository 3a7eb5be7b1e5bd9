// Packets to the microcode.
#include "sdk/cpuchan/formats.h"
#include "sdk/cpuchan/packet.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/trace.h"
#include "sdk/record/straight.h"

namespace {

// Top of header word 0, which all insert types share: message type 0 in bits 31 to 29.
inline constexpr uint32_t NP_HEAD_SUBTYPE_BIT = 24;
inline constexpr uint32_t NP_HEAD_PAYLOAD_BIT = 16;
inline constexpr uint32_t NP_HEAD_PAYLOAD_OFFSET = 12;

inline constexpr uint32_t NP_DATA_MAX = 255;  // bytes of a packet that a command line can give
inline constexpr uint16_t NP_HEAD_SIZE = 8;

namespace send {
using R = InfoForSend;

constexpr NpSmdKeyEnum g_astTypeWords[] = {
    {0, "queue", NP_INSERT_QUEUE}, {0, "fwd", NP_INSERT_FWD}, {0, "ift", NP_INSERT_IFT},
    {0, "oft", NP_INSERT_OFT},     {0, "cm", NP_INSERT_CM},   {0, "eport", NP_INSERT_EPORT},
};
constexpr NpField g_astTypeField[] = {
    NP_F(ulSubType, .pszKey = "insert_type", .stWords = g_astTypeWords),
};
constexpr NpCheck g_astTypeCheck[] = {NP_C(ulSubType, Np_Below(NP_INSERT_NUM))};

constexpr NpField g_astPacket[] = {
    NP_F(ulPktLen, .bLost = true, .usShownMax = NP_CPUTR_PKT_MAX),
    NP_F(pucData, .usCount = NP_DATA_MAX),
};
template <const auto &astInsert>
constexpr auto g_astField = Np_JoinFields(Np_Inside<astInsert, offsetof(R, unInsertPkt)>(),
                                          g_astPacket);

constexpr NpCheck g_astQueueOwnCheck[] = {
    NP_C(unInsertPkt.stInsertToQueue.ulQID, Np_MostCap(NP_CAP_DYING_GASP_PARAM)),
    NP_C(unInsertPkt.stInsertToQueue.ulOftID, Np_BelowCap(NP_CAP_FLOW_NUM)),
};
constexpr auto g_astQueueCheck = Np_JoinFields(
    g_astQueueOwnCheck, Np_FrameInfoChecks<offsetof(R, unInsertPkt.stInsertToQueue.ulFrameInfoType),
                                           offsetof(R, unInsertPkt.stInsertToQueue.unFrameInfo)>());
constexpr NpCheck g_astFwdCheck[] = {
    NP_C(unInsertPkt.stInsertToFwd.ulFwdVlan, Np_Most(4095)),
    NP_C(unInsertPkt.stInsertToFwd.ulHS, Np_MostCap(NP_CAP_HS_MAX)),
    NP_C(unInsertPkt.stInsertToFwd.ulIcos, Np_Most(7)),
    NP_C(unInsertPkt.stInsertToFwd.ulIftID, Np_BelowCap(NP_CAP_FLOW_NUM)),
    NP_C(unInsertPkt.stInsertToFwd.ulVsi, Np_MostCap(NP_CAP_VSI_MAX)),
    NP_C(unInsertPkt.stInsertToFwd.ulRole, Np_Most(3)),
    NP_C(unInsertPkt.stInsertToFwd.ulClass, Np_Most(3)),
    NP_C(unInsertPkt.stInsertToFwd.ulLrnEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(unInsertPkt.stInsertToFwd.ulPfeEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(unInsertPkt.stInsertToFwd.ulBundleEnalbe, Np_Flag(NP_SAY_ENABLE)),
    NP_C(unInsertPkt.stInsertToFwd.ulBundleID, Np_BelowCap(NP_CAP_BUNDLE_NUM)),
    NP_C(unInsertPkt.stInsertToFwd.ulPri, Np_Most(7)),
};
#define NP_TMP_C(Insert, Member, ...) \
    NP_C(unInsertPkt.Insert.Member, __VA_ARGS__, .pszText = #Member)
constexpr NpCheck g_astIftCheck[] = {
    NP_TMP_C(stInsertToIft, ulIcos, Np_Most(7)),
    NP_TMP_C(stInsertToIft, ulUserID, Np_MostCap(NP_CAP_USER_ID_MAX)),
    NP_TMP_C(stInsertToIft, ulPfEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_TMP_C(stInsertToIft, ulRole, Np_Most(3)),
    NP_TMP_C(stInsertToIft, ulClass, Np_Most(3)),
    NP_TMP_C(stInsertToIft, stPortID, Np_Port()),
};
constexpr NpCheck g_astOftCheck[] = {
    NP_C(unInsertPkt.stInsertToOft.ulIcos, Np_Most(7)),
    NP_C(unInsertPkt.stInsertToOft.ulOftID, Np_BelowCap(NP_CAP_FLOW_NUM)),
};
constexpr NpCheck g_astCmCheck[] = {
    NP_TMP_C(stInsertToCm, ulCmGroupID, Np_MostCap(NP_CAP_CM_GROUP_MAX)),
};
constexpr NpCheck g_astL2EncapCheck[] = {
    NP_TMP_C(stInsertToL2Encap, ulIcos, Np_Most(7)),
    NP_TMP_C(stInsertToL2Encap, ulL2EncapID, Np_MostCap(NP_CAP_L2_ENCAP_ID_MAX)),
};

template <const auto &astAll, const auto &astCheck>
constexpr NpRow Np_Row(const char *pszArg)
{
    return Np_RowMake<R>({.ucModule = NP_M_CPUTR,
                          .pszArg = pszArg,
                          .usImageSize = NP_HEAD_SIZE,
                          .pstStraight = NP_STRAIGHT(astAll, astCheck),
                          .bBare = true},
                         astAll, astCheck);
}
}  // namespace send

inline constexpr char NP_SEND_ARG[] = "pstInfoForSend";
inline constexpr char NP_SEND_TMP_ARG[] = "pstTmp";

}  // namespace

constexpr NpRow g_stNpSendTypeArgs =
    Np_RowMake<InfoForSend>({.ucModule = NP_M_CPUTR, .pszArg = NP_SEND_ARG, .bBare = true},
                            send::g_astTypeField, send::g_astTypeCheck);

constexpr NpRow g_stNpSendQueueRow =
    send::Np_Row<send::g_astField<insert::queue::g_astField<0, 4>>, send::g_astQueueCheck>(
        NP_SEND_ARG);
constexpr NpRow g_stNpSendFwdRow =
    send::Np_Row<send::g_astField<insert::fwd::g_astField<0, 4>>, send::g_astFwdCheck>(NP_SEND_ARG);
constexpr NpRow g_stNpSendIftRow =
    send::Np_Row<send::g_astField<insert::ift::g_astField<0, 4>>, send::g_astIftCheck>(
        NP_SEND_TMP_ARG);
constexpr NpRow g_stNpSendOftRow =
    send::Np_Row<send::g_astField<insert::oft::g_astField<0>>, send::g_astOftCheck>(NP_SEND_ARG);
constexpr NpRow g_stNpSendCmRow =
    send::Np_Row<send::g_astField<insert::cm::g_astField<0>>, send::g_astCmCheck>(NP_SEND_TMP_ARG);
constexpr NpRow g_stNpSendL2EncapRow =
    send::Np_Row<send::g_astField<insert::l2_encap::g_astField<0>>, send::g_astL2EncapCheck>(
        NP_SEND_TMP_ARG);

namespace {

struct NpSendSteps {
    NpSendTrace stTrace;
    NpSendCheck stCheck;
    NpSendBuild stBuild;
    NpHeadTrace stHeadTrace;
};

// By insert type; some there are not.
constexpr NpSendSteps g_astSteps[NP_INSERT_NUM] = {
    {Np_Tarn_CPUTR_InfoToQueue_ParaTrace, Np_Tarn_CPUTR_InfoToQueue_ParaCheck,
     Np_Tarn_CPUTR_PktToQueue_Build, Np_Tarn_CPUTR_PktToQueue_ParaTrace},
    {Np_Tarn_CPUTR_InfoToFwd_ParaTrace, Np_Tarn_CPUTR_InfoToFwd_ParaCheck,
     Np_Tarn_CPUTR_PktToFwd_Build, Np_Tarn_CPUTR_PktToFwd_ParaTrace},
    {Np_Tarn_CPUTR_InfoToIft_ParaTrace, Np_Tarn_CPUTR_InfoToIft_ParaCheck,
     Np_Tarn_CPUTR_PktToIft_Build, Np_Tarn_CPUTR_PktToIft_ParaTrace},
    {Np_Tarn_CPUTR_InfoToOft_ParaTrace, Np_Tarn_CPUTR_InfoToOft_ParaCheck,
     Np_Tarn_CPUTR_PktToOft_Build, Np_Tarn_CPUTR_PktToOft_ParaTrace},
    {},
    {Np_Tarn_CPUTR_InfoToCm_ParaTrace, Np_Tarn_CPUTR_InfoToCm_ParaCheck,
     Np_Tarn_CPUTR_PktToCm_Build, Np_Tarn_CPUTR_PktToCm_ParaTrace},
    {},
    {Np_Tarn_CPUTR_InfoToL2Encap_ParaTrace, Np_Tarn_CPUTR_InfoToL2Encap_ParaCheck,
     Np_Tarn_CPUTR_PktToL2Encap_Build, Np_Tarn_CPUTR_PktToL2Encap_ParaTrace},
};

// The fields of a frame info that there is are those of the queue's row. One that there is not has
// none: it is the frame info's own functions that tell.
const NpInsertToQueue *Np_FrameUnknown(const NpRow *pstRow, const InfoForSend *pstInfoForSend)
{
    const NpInsertToQueue *pstQueue = &pstInfoForSend->unInsertPkt.stInsertToQueue;
    return pstRow == &g_stNpSendQueueRow && pstQueue->ulFrameInfoType >= NP_FRAME_NUM ? pstQueue
                                                                                      : nullptr;
}

}  // namespace

constexpr const NpRow *g_apstNpSendRow[NP_INSERT_NUM] = {
    &g_stNpSendQueueRow, &g_stNpSendFwdRow, &g_stNpSendIftRow,     &g_stNpSendOftRow, nullptr,
    &g_stNpSendCmRow,    nullptr,           &g_stNpSendL2EncapRow,
};

void NpSendTrace::operator()(uint32_t ulChipID, const InfoForSend *pstInfoForSend) const
{
    Np_Row_Trace(pstRow, pstInfoForSend, {pszName, __LINE__});
    const NpInsertToQueue *pstQueue = Np_FrameUnknown(pstRow, pstInfoForSend);
    if (pstQueue != nullptr) {
        Np_Tarn_FrameInfo_Trace(ulChipID, NP_M_CPUTR, pstQueue->ulFrameInfoType,
                                &pstQueue->unFrameInfo);
    }
}

uint32_t NpSendCheck::operator()(uint32_t ulChipID, const InfoForSend *pstInfoForSend) const
{
    return Np_Row_Check(pstRow, ulChipID, pstInfoForSend, {pszName, __LINE__});
}

uint32_t NpSendBuild::operator()(uint32_t ulChipID, const InfoForSend *pstInfoForSend,
                                 uint32_t *pulHead) const
{
    const NpInsertToQueue *pstQueue = Np_FrameUnknown(pstRow, pstInfoForSend);
    if (pstQueue != nullptr) {
        return Np_Tarn_FrameInfo_Build(ulChipID, NP_M_CPUTR, pstQueue->ulFrameInfoType,
                                       &pstQueue->unFrameInfo, pulHead);
    }
    return Np_Row_Fill(pstRow, ulChipID, pstInfoForSend, pulHead, {pszName, __LINE__});
}

void NpHeadTrace::operator()(uint32_t, const uint32_t *pulHead) const
{
    const NpWhere stWhere = {pszName, __LINE__};
    NP_TRACE_AT(stWhere, NP_M_CPUTR, NP_PRINT_TRACE, "head[0]=0x%08x head[1]=0x%08x\r\n",
                pulHead[0], pulHead[1]);
}

uint32_t Np_Tarn_Cputr_InfoToPktForSend(uint32_t ulChipID, const InfoForSend *pstInfoForSend,
                                        QdCputrSendPkt *pstPktSend)
{
    if (pstInfoForSend->ulSubType >= NP_INSERT_NUM) {
        return Np_Row_Check(&g_stNpSendTypeArgs, ulChipID, pstInfoForSend);
    }
    const NpSendSteps &stSteps = g_astSteps[pstInfoForSend->ulSubType];
    if (stSteps.stTrace.pstRow == nullptr) {
        NP_TRACE(NP_M_CPUTR, NP_PRINT_ERROR, " SubType error when send: ulSubType = 0x%08x \r\n",
                 pstInfoForSend->ulSubType);
        return NP_ERR_PARAM;
    }
    pstPktSend->aulHead[0] = pstInfoForSend->ulSubType << NP_HEAD_SUBTYPE_BIT |
                             NP_HEAD_PAYLOAD_OFFSET << NP_HEAD_PAYLOAD_BIT;
    pstPktSend->aulHead[1] = 0;
    stSteps.stTrace(ulChipID, pstInfoForSend);
    uint32_t ulReturn = stSteps.stCheck(ulChipID, pstInfoForSend);
    if (ulReturn == NP_OK) {
        ulReturn = stSteps.stBuild(ulChipID, pstInfoForSend, pstPktSend->aulHead);
    }
    if (ulReturn == NP_OK) {
        stSteps.stHeadTrace(ulChipID, pstPktSend->aulHead);
    }
    return ulReturn;
}

uint32_t Np_Tarn_Cputr_PktSend(uint32_t ulChipID, const InfoForSend *pstInfoForSend)
{
    if (pstInfoForSend == nullptr || pstInfoForSend->pucData == nullptr) {
        NP_TRACE(NP_M_CPUTR, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    if (pstInfoForSend->ulPktLen == 0 || pstInfoForSend->ulPktLen > NP_CPUTR_PKT_MAX) {
        NP_TRACE(NP_M_CPUTR, NP_PRINT_ERROR, "param error! pstInfoForSend->ulPktLen=0x%08x\r\n",
                 pstInfoForSend->ulPktLen);
        return NP_ERR_PARAM;
    }
    QdCputrSendPkt stPkt = {{0, 0}, pstInfoForSend->ulPktLen, pstInfoForSend->pucData};
    uint32_t ulReturn = Np_Tarn_Cputr_InfoToPktForSend(ulChipID, pstInfoForSend, &stPkt);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_CPUTR, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
        return ulReturn;
    }
    ulReturn = Qd_CPUTR_PacketSend(ulChipID, &stPkt);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_CPUTR, NP_PRINT_ERROR, "Qd_CPUTR_PacketSend ERROR!!  ulReturn=0x%08x \r\n",
                 ulReturn);
    }
    return ulReturn;
}

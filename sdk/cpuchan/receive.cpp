// Packets from the microcode.
#include "platform/os.h"
#include "sdk/cpuchan/packet.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/record/straight.h"

namespace {

inline constexpr uint32_t NP_MSG_TYPE_TO_CPU = 3;
inline constexpr uint32_t NP_SUBTYPE_BIT = 24;
inline constexpr uint32_t NP_SUBTYPE_MASK = 0x1f;
inline constexpr uint32_t NP_EXT_AT = 2;  // word of the image with E0
inline constexpr uint32_t NP_DUMP_SIZE = 64;
inline constexpr uint32_t NP_DUMP_LINE = 16;

namespace receive {
using R = ReceiveInfo;
// Image: the word with the message type, the one with the header length, E0 to E4.
constexpr auto g_astTypeWords = Np_Words("normal", "fm", "lm", "dm");
constexpr NpField g_astType[] = {
    NP_F(ulSubType, .stAt = {0, 28, 24}, .stWords = g_astTypeWords, .bCut = true),
};
constexpr NpField g_astHead[] = {
    NP_F(ulEncap, .stAt = {4, 31, 28}, .bCut = true),
    NP_F(ulFlowID, .stAt = {4, 11, 0}, .bCut = true),
    NP_F(ulPtype, .stAt = {0, 23, 13}, .bCut = true),
    NP_F(stSportID, .stAt = {0, 9, 0}, .pstCoding = &g_stNpPortCoding),
    NP_F(ulTagInfo, .stAt = {0, 11, 10}, .bCut = true),
    NP_F(ulVlanID, .stAt = {4, 27, 16}, .bCut = true),
};
constexpr NpField g_astNormal[] = {
    NP_F(unRecInfo.stRecNormal.ulExtInfo, .stAt = {8, 27, 16}, .bCut = true),
};
constexpr NpField g_astFm[] = {
    NP_F(unRecInfo.stRecOamPduFm.ulMegIndex, .stAt = {8, 31, 24}, .bCut = true),
    NP_F(unRecInfo.stRecOamPduFm.ulMepIndex, .stAt = {8, 23, 16}, .bCut = true),
    NP_F(unRecInfo.stRecOamPduFm.ulDriection, .stAt = {8, 15, 15}, .bCut = true),
    NP_F(unRecInfo.stRecOamPduFm.ulLevel, .stAt = {8, 14, 12}, .bCut = true),
    NP_F(unRecInfo.stRecOamPduFm.ulOamSessionID, .stAt = {8, 11, 0}, .bCut = true),
    NP_F(unRecInfo.stRecOamPduFm.stMpCapPort, .stAt = {12, 31, 22}, .pstCoding = &g_stNpPortCoding),
};
// The microcode sends the counters in another order than the record has them.
constexpr NpField g_astLm[] = {
    NP_F(unRecInfo.stRecOamPduLm.ulLmIndex, .stAt = {8, 31, 24}, .bCut = true),
    NP_F(unRecInfo.stRecOamPduLm.ulFramNearTx, .stAt = {12, 31, 0}),
    NP_F(unRecInfo.stRecOamPduLm.ulFramFarRx, .stAt = {16, 31, 0}),
    NP_F(unRecInfo.stRecOamPduLm.ulFramFarTx, .stAt = {20, 31, 0}),
    NP_F(unRecInfo.stRecOamPduLm.ulFramNearRx, .stAt = {24, 31, 0}),
};
constexpr NpField g_astDm[] = {
    NP_F(unRecInfo.stRecOamPduDm.ulDmIndex, .stAt = {8, 31, 24}, .bCut = true),
    NP_F(unRecInfo.stRecOamPduDm.ulTimeStampOffset, .stAt = {8, 23, 16}, .bCut = true),
    NP_F(unRecInfo.stRecOamPduDm.ulRxTimeb_Sec, .stAt = {12, 31, 0}),
    NP_F(unRecInfo.stRecOamPduDm.ulRxTimeb_nSec, .stAt = {16, 31, 0}),
};
constexpr NpField g_astLength[] = {NP_F(ulPktLen, .bLost = true)};

template <const auto &...astMore>
constexpr auto g_astField = Np_JoinFields(g_astType, astMore..., g_astLength);

template <const auto &astAll>
constexpr NpRow Np_Row()
{
    return Np_RowMake<R>({.ucModule = NP_M_CPUTR,
                          .usImageSize = NP_CPUTR_IMAGE_NUM * sizeof(uint32_t),
                          .pstStraight = NP_STRAIGHT(astAll, g_astNpNoCheck)},
                         astAll, {});
}
}  // namespace receive

// The first bytes of the caller's buffer, whatever the switches say: the packet is lost.
void Np_ReceiveDump(const ReceiveInfo *pstReceiveInfo)
{
    const uint32_t ulSize =
        pstReceiveInfo->ulBufLen < NP_DUMP_SIZE ? pstReceiveInfo->ulBufLen : NP_DUMP_SIZE;
    char acLine[4 * NP_DUMP_LINE];
    for (uint32_t ulFirst = 0; ulFirst < ulSize; ulFirst += NP_DUMP_LINE) {
        int lUsed = Os_Format(acLine, sizeof(acLine), "\r\n");
        for (uint32_t i = ulFirst; i < ulSize && i < ulFirst + NP_DUMP_LINE; i++) {
            lUsed += Os_Format(acLine + lUsed, sizeof(acLine) - static_cast<size_t>(lUsed), "%02x ",
                               pstReceiveInfo->pucData[i]);
        }
        g_pfnNpSdkPrint(acLine);
    }
    g_pfnNpSdkPrint("\r\n");
}

uint32_t Np_ReceiveLengthError(const QdCputrRecvPkt *pstPkt, const ReceiveInfo *pstReceiveInfo,
                               uint32_t ulNpLen, NpWhere stWhere = Np_Here())
{
    NP_TRACE_AT(stWhere, NP_M_CPUTR, NP_PRINT_ERROR,
                "Length ERROR!!  ulNpLen=0x%08x pstReceiveInfo->ulPktLen=0x%08x \r\n", ulNpLen,
                pstReceiveInfo->ulPktLen);
    char acLine[64];
    Os_Format(acLine, sizeof(acLine), "info[0]=0x%x, info[1]=0x%x, data:", pstPkt->aulInfo[0],
              pstPkt->aulInfo[1]);
    g_pfnNpSdkPrint(acLine);
    Np_ReceiveDump(pstReceiveInfo);
    return NP_ERR_CPU_LENGTH;
}

}  // namespace

constexpr NpRow g_astNpReceiveRow[NP_RECEIVE_NUM + 1] = {
    receive::Np_Row<receive::g_astField<receive::g_astHead, receive::g_astNormal>>(),
    receive::Np_Row<receive::g_astField<receive::g_astHead, receive::g_astFm>>(),
    receive::Np_Row<receive::g_astField<receive::g_astHead, receive::g_astLm>>(),
    receive::Np_Row<receive::g_astField<receive::g_astHead, receive::g_astDm>>(),
    receive::Np_Row<receive::g_astField<>>(),
};

uint32_t Np_Tarn_CPUTR_InfoForRx_Build(uint32_t ulChipID, const uint32_t *pPacket,
                                       ReceiveInfo *pstCputrForReceive)
{
    return Np_Row_Parse(Np_ReceiveRow(pPacket[0] >> NP_SUBTYPE_BIT & NP_SUBTYPE_MASK), ulChipID,
                        pPacket, pstCputrForReceive);
}

uint32_t Np_Tarn_Cputr_PktToInfoForReceive(uint32_t ulChipID, const uint32_t *pPacket,
                                           ReceiveInfo *pstCputrForReceive)
{
    const uint32_t ulMsgType = pPacket[0] >> 29;
    if (ulMsgType != NP_MSG_TYPE_TO_CPU) {
        NP_TRACE(NP_M_CPUTR, NP_PRINT_ERROR, " msgtype error when receive: ulMsgType = 0x%08x \r\n",
                 ulMsgType);
        char acLine[32];
        Os_Format(acLine, sizeof(acLine),
                  "pktlen=%d, data:", static_cast<int>(pstCputrForReceive->ulPktLen));
        g_pfnNpSdkPrint(acLine);
        Np_ReceiveDump(pstCputrForReceive);
        return NP_ERR_PARAM;
    }
    return Np_Tarn_CPUTR_InfoForRx_Build(ulChipID, pPacket, pstCputrForReceive);
}

uint32_t Np_Tarn_Cputr_PktReceive(uint32_t ulChipID, ReceiveInfo *pstReceiveInfo)
{
    if (pstReceiveInfo == nullptr || pstReceiveInfo->pucData == nullptr) {
        NP_TRACE(NP_M_CPUTR, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    uint8_t *pucData = pstReceiveInfo->pucData;
    QdCputrRecvPkt stPkt = {{0, 0}, pstReceiveInfo->ulBufLen, pucData, 0};
    const uint32_t ulReturn = Qd_CPUTR_PacketReceive(ulChipID, &stPkt);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_CPUTR, NP_PRINT_ERROR, "Qd_CPUTR_PacketReceive ERROR!!  ulReturn=0x%08x \r\n",
                 ulReturn);
        return ulReturn;
    }
    pstReceiveInfo->ulPktLen = stPkt.ulPktLen;
    uint32_t aulImage[NP_CPUTR_IMAGE_NUM] = {stPkt.aulInfo[1], stPkt.aulInfo[0]};
    // Header length counts the two words above: one below 2 gives a huge length.
    const uint32_t ulNpLen = ((stPkt.aulInfo[0] >> 12 & 0xf) - 2) * sizeof(uint32_t);
    if (ulNpLen != 0) {
        if (ulNpLen > NP_CPUTR_EXT_MAX * sizeof(uint32_t) ||
            stPkt.ulPktLen > pstReceiveInfo->ulBufLen || stPkt.ulPktLen < ulNpLen) {
            return Np_ReceiveLengthError(&stPkt, pstReceiveInfo, ulNpLen);
        }
        memcpy(&aulImage[NP_EXT_AT], pucData, ulNpLen);
        pstReceiveInfo->ulPktLen -= ulNpLen;
        memmove(pucData, pucData + ulNpLen, pstReceiveInfo->ulPktLen);
        pucData[pstReceiveInfo->ulPktLen] = 0;
        for (uint32_t i = NP_EXT_AT; i < NP_CPUTR_IMAGE_NUM; i++) {
            aulImage[i] = __builtin_bswap32(aulImage[i]);  // from network order
        }
    }
    return Np_Tarn_Cputr_PktToInfoForReceive(ulChipID, aulImage, pstReceiveInfo);
}

// Packets from the microcode.
#include "platform/os.h"
#include "sdk/cpuchan/formats.h"
#include "sdk/frame/registry.h"
#include "sdk/frame/service.h"
#include "sdk/frame/text.h"
#include "sdk/frame/trace.h"

namespace {

inline constexpr uint32_t NP_MSG_TYPE_TO_CPU = 3;
inline constexpr uint32_t NP_PORT_MASK = 0x3ff;  // a phy id has 10 bits
inline constexpr uint32_t NP_MP_PORT_BIT = 22;   // of E1
inline constexpr uint32_t NP_DUMP_SIZE = 64;
inline constexpr uint32_t NP_DUMP_LINE = 16;

uint32_t Np_ReceivePort(uint32_t ulChipID, uint32_t ulPhyID, NpPortID *pstPortID)
{
    const uint32_t ulReturn = Np_IngressPhyID2PortID(ulChipID, ulPhyID & NP_PORT_MASK, pstPortID);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_CPUTR, NP_PRINT_ERROR,
                 "ingress phyid to portid calculate failed! ulReturn=0x%08x\r\n", ulReturn);
    }
    return ulReturn;
}

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
                               uint32_t ulNpLen)
{
    NP_TRACE_AS("Np_Tarn_Cputr_PktReceive", NP_M_CPUTR, NP_PRINT_ERROR,
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

uint32_t Np_Tarn_CPUTR_InfoForRx_Build(uint32_t ulChipID, const uint32_t *pPacket,
                                       ReceiveInfo *pstCputrForReceive)
{
    pstCputrForReceive->ulSubType = pPacket[0] >> 24 & 0x1f;
    if (pstCputrForReceive->ulSubType >= NP_RECEIVE_NUM) {
        return NP_OK;
    }
    Np_InbandParse(Np_InbandFormat(g_astReceiveFront), pPacket, pstCputrForReceive);
    uint32_t ulReturn = Np_ReceivePort(ulChipID, pPacket[0], &pstCputrForReceive->stSportID);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_InbandParse(Np_InbandFormat(g_astReceiveBack), pPacket, pstCputrForReceive);
    Np_InbandParse(g_astReceiveFormat[pstCputrForReceive->ulSubType], pPacket, pstCputrForReceive);
    if (pstCputrForReceive->ulSubType == NP_RECEIVE_FM) {
        ulReturn = Np_ReceivePort(ulChipID, pPacket[NP_E1] >> NP_MP_PORT_BIT,
                                  &pstCputrForReceive->unRecInfo.stRecOamPduFm.stMpCapPort);
    }
    return ulReturn;
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
        memcpy(&aulImage[NP_E0], pucData, ulNpLen);
        pstReceiveInfo->ulPktLen -= ulNpLen;
        memmove(pucData, pucData + ulNpLen, pstReceiveInfo->ulPktLen);
        pucData[pstReceiveInfo->ulPktLen] = 0;
        for (uint32_t i = NP_E0; i < NP_CPUTR_IMAGE_NUM; i++) {
            aulImage[i] = __builtin_bswap32(aulImage[i]);  // from network order
        }
    }
    return Np_Tarn_Cputr_PktToInfoForReceive(ulChipID, aulImage, pstReceiveInfo);
}

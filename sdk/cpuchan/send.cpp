// Packets to the microcode.
#include "sdk/access/portid.h"
#include "sdk/cpuchan/formats.h"
#include "sdk/frame/registry.h"
#include "sdk/frame/service.h"
#include "sdk/frame/trace.h"

namespace {

// Top of header word 0, which all insert types share: message type 0 in bits 31..29.
inline constexpr uint32_t NP_HEAD_SUBTYPE_BIT = 24;
inline constexpr uint32_t NP_HEAD_PAYLOAD_BIT = 16;
inline constexpr uint32_t NP_HEAD_PAYLOAD_OFFSET = 12;

inline constexpr uint32_t NP_FRAME_INFO_MASK = 0xffffff;  // word 1 of a queue insert
inline constexpr uint32_t NP_PHY_ID_MASK = 0x3ff;
inline constexpr uint32_t NP_PHY_ID_BIT = 16;  // word 1 of an input flow insert

// Checks beyond the fields' own limits.
template <typename Insert>
uint32_t Np_InsertCheckMore(uint32_t, const Insert *, const char *)
{
    return NP_OK;
}

uint32_t Np_InsertCheckMore(uint32_t ulChipID, const NpInsertToQueue *pst, const char *)
{
    return Np_Tarn_FrameInfo_Check(ulChipID, NP_M_CPUTR, pst->ulFrameInfoType, &pst->unFrameInfo);
}

uint32_t Np_InsertCheckMore(uint32_t ulChipID, const NpInsertToIft *pst, const char *pszFunc)
{
    const uint32_t ulReturn = Np_Tarn_PortParaCheck(ulChipID, &pst->stPortID);
    if (ulReturn != NP_OK) {
        NP_TRACE_AS(pszFunc, NP_M_CPUTR, NP_PRINT_ERROR, "port check failed! ulReturn=0x%08x\r\n",
                    ulReturn);
    }
    return ulReturn;
}

// Parts of the header that are no plain field.
template <typename Insert>
uint32_t Np_InsertBuildMore(uint32_t, const Insert *, const char *, uint32_t *)
{
    return NP_OK;
}

uint32_t Np_InsertBuildMore(uint32_t ulChipID, const NpInsertToQueue *pst, const char *,
                            uint32_t *pulHead)
{
    uint32_t ulFrameInfo = 0;
    const uint32_t ulReturn = Np_Tarn_FrameInfo_Build(ulChipID, NP_M_CPUTR, pst->ulFrameInfoType,
                                                      &pst->unFrameInfo, &ulFrameInfo);
    pulHead[1] |= ulFrameInfo & NP_FRAME_INFO_MASK;
    return ulReturn;
}

uint32_t Np_InsertBuildMore(uint32_t, const NpInsertToFwd *pst, const char *, uint32_t *pulHead)
{
    Np_InbandPack(pst->ulBundleEnalbe == 1 ? Np_InbandFormat(g_astInsertBundle)
                                           : Np_InbandFormat(g_astInsertFlow),
                  pst, pulHead);
    return NP_OK;
}

uint32_t Np_InsertBuildMore(uint32_t ulChipID, const NpInsertToIft *pst, const char *pszFunc,
                            uint32_t *pulHead)
{
    uint32_t ulPhyID = 0;
    const uint32_t ulReturn = Np_PortID2PhyID(ulChipID, &pst->stPortID, &ulPhyID);
    if (ulReturn != NP_OK) {
        NP_TRACE_AS(pszFunc, NP_M_CPUTR, NP_PRINT_ERROR,
                    "phy ID calculate failed! ulReturn=0x%08x\r\n", ulReturn);
        return ulReturn;
    }
    pulHead[1] |= (ulPhyID & NP_PHY_ID_MASK) << NP_PHY_ID_BIT;
    return NP_OK;
}

// Traces of what the fields don't name.
template <typename Insert>
void Np_InsertTraceMore(uint32_t, const Insert *)
{
}

void Np_InsertTraceMore(uint32_t ulChipID, const NpInsertToQueue *pst)
{
    Np_Tarn_FrameInfo_Trace(ulChipID, NP_M_CPUTR, pst->ulFrameInfoType, &pst->unFrameInfo);
}

void Np_InsertTraceMore(uint32_t, const NpInsertToIft *pst)
{
    NP_TRACE(NP_M_CPUTR, NP_PRINT_TRACE,
             "ulPortType=0x%08x ulPortID=0x%08x ulSubPortID=0x%08x ulPri=0x%08x\r\n",
             pst->stPortID.ulPortType, pst->stPortID.ulPortID, pst->stPortID.ulSubPortID,
             pst->stPortID.ulPri);
}

void Np_HeadTrace(const uint32_t *pulHead, const char *pszFunc)
{
    NP_TRACE_AS(pszFunc, NP_M_CPUTR, NP_PRINT_TRACE, "head[0]=0x%08x head[1]=0x%08x\r\n",
                pulHead[0], pulHead[1]);
}

// Traces, checks, builds and traces again one insert type.
#define NP_INSERT_RUN(Name)                                                          \
    do {                                                                             \
        const NpInsertTo##Name *pst = &pstInfoForSend->unInsertPkt.stInsertTo##Name; \
        Np_Tarn_CPUTR_InfoTo##Name##_ParaTrace(ulChipID, pst);                       \
        ulReturn = Np_Tarn_CPUTR_InfoTo##Name##_ParaCheck(ulChipID, pst);            \
        if (ulReturn == NP_OK) {                                                     \
            ulReturn = Np_Tarn_CPUTR_PktTo##Name##_Build(ulChipID, pst, pulHead);    \
        }                                                                            \
        if (ulReturn == NP_OK) {                                                     \
            Np_Tarn_CPUTR_PktTo##Name##_ParaTrace(ulChipID, pulHead);                \
        }                                                                            \
        return ulReturn;                                                             \
    } while (0)

uint32_t Np_InsertRun(uint32_t ulChipID, const InfoForSend *pstInfoForSend, uint32_t *pulHead)
{
    uint32_t ulReturn;
    switch (pstInfoForSend->ulSubType) {
        case NP_INSERT_QUEUE:
            NP_INSERT_RUN(Queue);
        case NP_INSERT_FWD:
            NP_INSERT_RUN(Fwd);
        case NP_INSERT_IFT:
            NP_INSERT_RUN(Ift);
        case NP_INSERT_OFT:
            NP_INSERT_RUN(Oft);
        case NP_INSERT_CM:
            NP_INSERT_RUN(Cm);
        case NP_INSERT_EPORT:
            NP_INSERT_RUN(L2Encap);
        default:
            NP_TRACE(NP_M_CPUTR, NP_PRINT_ERROR,
                     " SubType error when send: ulSubType = 0x%08x \r\n",
                     pstInfoForSend->ulSubType);
            return NP_ERR_PARAM;
    }
}

}  // namespace

// The four functions of an insert type; szRecord is how its check names the record.
#define NP_INSERT_FUNCTIONS(Name, szRecord)                                                        \
    void Np_Tarn_CPUTR_InfoTo##Name##_ParaTrace(uint32_t ulChipID, const NpInsertTo##Name *pst)    \
    {                                                                                              \
        Np_InbandTrace(Np_InbandFormat(g_astInsert##Name), pst, {NP_M_CPUTR, __func__, szRecord}); \
        Np_InsertTraceMore(ulChipID, pst);                                                         \
    }                                                                                              \
    uint32_t Np_Tarn_CPUTR_InfoTo##Name##_ParaCheck(uint32_t ulChipID,                             \
                                                    const NpInsertTo##Name *pst)                   \
    {                                                                                              \
        const uint32_t ulReturn = Np_InbandCheck(Np_InbandFormat(g_astInsert##Name), pst,          \
                                                 {NP_M_CPUTR, __func__, szRecord});                \
        return ulReturn != NP_OK ? ulReturn : Np_InsertCheckMore(ulChipID, pst, __func__);         \
    }                                                                                              \
    uint32_t Np_Tarn_CPUTR_PktTo##Name##_Build(uint32_t ulChipID, const NpInsertTo##Name *pst,     \
                                               uint32_t *pulHead)                                  \
    {                                                                                              \
        Np_InbandPack(Np_InbandFormat(g_astInsert##Name), pst, pulHead);                           \
        return Np_InsertBuildMore(ulChipID, pst, __func__, pulHead);                               \
    }                                                                                              \
    void Np_Tarn_CPUTR_PktTo##Name##_ParaTrace(uint32_t, const uint32_t *pulHead)                  \
    {                                                                                              \
        Np_HeadTrace(pulHead, __func__);                                                           \
    }

NP_INSERT_FUNCTIONS(Queue, "pstInfoForSend->unInsertPkt.stInsertToQueue.")
NP_INSERT_FUNCTIONS(Fwd, "pstInfoForSend->unInsertPkt.stInsertToFwd.")
NP_INSERT_FUNCTIONS(Ift, "pstTmp->")
NP_INSERT_FUNCTIONS(Oft, "pstInfoForSend->unInsertPkt.stInsertToOft.")
NP_INSERT_FUNCTIONS(Cm, "pstTmp->")
NP_INSERT_FUNCTIONS(L2Encap, "pstTmp->")

uint32_t Np_Tarn_Cputr_InfoToPktForSend(uint32_t ulChipID, const InfoForSend *pstInfoForSend,
                                        QdCputrSendPkt *pstPktSend)
{
    if (pstInfoForSend->ulSubType >= NP_INSERT_NUM) {
        NP_TRACE(NP_M_CPUTR, NP_PRINT_ERROR, "param error! pstInfoForSend->ulSubType=0x%08x\r\n",
                 pstInfoForSend->ulSubType);
        return NP_ERR_PARAM;
    }
    pstPktSend->aulHead[0] = pstInfoForSend->ulSubType << NP_HEAD_SUBTYPE_BIT |
                             NP_HEAD_PAYLOAD_OFFSET << NP_HEAD_PAYLOAD_BIT;
    pstPktSend->aulHead[1] = 0;
    return Np_InsertRun(ulChipID, pstInfoForSend, pstPktSend->aulHead);
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

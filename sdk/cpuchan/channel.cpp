// The auto-send channels.
#include "platform/os.h"
#include "sdk/cpuchan/message.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"

constinit uint32_t *g_pulAutoChannelEn[NP_CHIP_NUM] = {};

namespace {

inline constexpr uint32_t NP_CHANNEL_FLAGS_SIZE = NP_AUTO_CHANNEL_NUM * sizeof(uint32_t);

uint32_t Np_ChannelChipCheck(uint32_t ulChipID, NpWhere stWhere = Np_Here())
{
    if (ulChipID >= NP_CHIP_NUM) {
        NP_TRACE_AT(stWhere, NP_M_CPUTRMSG, NP_PRINT_ERROR, "param error! (ulChipID)=0x%08x\r\n",
                    ulChipID);
        return NP_ERR_PARAM;
    }
    return NP_OK;
}

uint32_t Np_ChannelCheck(uint32_t ulChipID, uint32_t ulChannel, NpWhere stWhere = Np_Here())
{
    if (ulChannel >= NP_AUTO_CHANNEL_NUM) {
        NP_TRACE_AT(stWhere, NP_M_CPUTRMSG, NP_PRINT_ERROR, "param error! (ulChannel)=0x%08x\r\n",
                    ulChannel);
        return NP_ERR_PARAM;
    }
    return Np_ChannelChipCheck(ulChipID, stWhere);
}

}  // namespace

// Records and traces a driver's failure under the name of the function it stands in.
#define NP_CHANNEL_FAILED(text)                                  \
    do {                                                         \
        Np_RecordErrInfo(ulChipID, ulReturn, 0);                 \
        NP_TRACE(NP_M_CPUTRMSG, NP_PRINT_ERROR, text, ulReturn); \
        return ulReturn;                                         \
    } while (0)

uint32_t Np_Tarn_CputrMsg_Init(uint32_t ulChipID)
{
    uint32_t ulReturn = Np_ChannelChipCheck(ulChipID);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    uint32_t *&pulFlags = g_pulAutoChannelEn[ulChipID];
    if (pulFlags != nullptr) {
        memset(pulFlags, 0, NP_CHANNEL_FLAGS_SIZE);
    }
    else {
        pulFlags = static_cast<uint32_t *>(Os_Alloc(NP_CHANNEL_FLAGS_SIZE));
    }
    if (pulFlags == nullptr) {
        NP_TRACE(NP_M_CPUTRMSG, NP_PRINT_ERROR, "memory alloc failed!\r\n");
        return NP_ERR_NO_MEMORY;
    }
    ulReturn = Qd_CPUTR_AutoSendEnableSet(ulChipID, 1);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_CPUTRMSG, NP_PRINT_ERROR, "cputr autosend Enable fail!\r\n");
    }
    return ulReturn;
}

uint32_t Np_Tarn_CputrMsg_Destruct(uint32_t ulChipID)
{
    const uint32_t ulReturn = Np_ChannelChipCheck(ulChipID);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_FreeAndForget(&g_pulAutoChannelEn[ulChipID]);
    return Qd_CPUTR_AutoSendEnableSet(ulChipID, 0);
}

uint32_t NP_tarn_CputrMsg_AutoSendInfoDel(uint32_t ulChipID, uint32_t ulChannel)
{
    uint32_t ulReturn = Np_ChannelCheck(ulChipID, ulChannel);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    // Tear-down stops channels when the flags are gone: then none is on.
    uint32_t *pulFlags = g_pulAutoChannelEn[ulChipID];
    if (pulFlags == nullptr || pulFlags[ulChannel] != 1) {
        return NP_OK;
    }
    ulReturn = Qd_CPUTR_AutoSendChannelEnableSet(ulChipID, ulChannel, 0);
    if (ulReturn != NP_OK) {
        NP_CHANNEL_FAILED("enable cputr msg channel error, ulReturn=0x%08x\r\n");
    }
    pulFlags[ulChannel] = 0;
    ulReturn = Qd_CPUTR_AutoSendInfoDel(ulChipID, ulChannel);
    if (ulReturn != NP_OK) {
        NP_CHANNEL_FAILED(" cputr msg autoinfo del error, ulReturn=0x%08x\r\n");
    }
    return NP_OK;
}

uint32_t NP_tarn_CputrMsg_AutoSend(uint32_t ulChipID, uint32_t ulChannel,
                                   const QdCputrAutoInfo *pstAutoInfo, const QdCputrSendPkt *pstPkt)
{
    uint32_t ulReturn = Np_ChannelCheck(ulChipID, ulChannel);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pstAutoInfo == nullptr || pstPkt == nullptr || g_pulAutoChannelEn[ulChipID] == nullptr) {
        NP_TRACE(NP_M_CPUTRMSG, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    ulReturn = NP_tarn_CputrMsg_AutoSendInfoDel(ulChipID, ulChannel);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Qd_CPUTR_AutoSendInfoSet(ulChipID, ulChannel, pstAutoInfo, pstPkt);
    if (ulReturn != NP_OK) {
        NP_CHANNEL_FAILED("cputr msg autoinfo set error, ulReturn=0x%08x\r\n");
    }
    ulReturn = Qd_CPUTR_AutoSendStatClear(ulChipID, ulChannel);
    if (ulReturn != NP_OK) {
        NP_CHANNEL_FAILED(" cputr msg channel stat clear error, ulReturn=0x%08x\r\n");
    }
    ulReturn = Qd_CPUTR_AutoSendChannelEnableSet(ulChipID, ulChannel, 1);
    if (ulReturn != NP_OK) {
        NP_CHANNEL_FAILED("enable cputr msg channel error, ulReturn=0x%08x\r\n");
    }
    g_pulAutoChannelEn[ulChipID][ulChannel] = 1;
    return NP_OK;
}

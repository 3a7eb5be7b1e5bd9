// The driver's packet channel and its auto-send channels.

#include "chipmodel/call.h"

using namespace ldsdk::model;

// ---- packets ------------------------------------------------------------------------------------

uint32_t Qd_CPUTR_PacketSend(uint32_t ulChipID, const QdCputrSendPkt *pstPkt)
{
    if (pstPkt == nullptr) {
        return kErrNull;
    }
    return not_modelled(Op::Qd_CPUTR_PacketSend, ulChipID,
                        {{pstPkt->aulHead[0], pstPkt->aulHead[1], pstPkt->ulLen}});
}

uint32_t Qd_CPUTR_PacketReceive(uint32_t ulChipID, QdCputrRecvPkt *pstPkt)
{
    if (pstPkt == nullptr) {
        return kErrNull;
    }
    return not_modelled(Op::Qd_CPUTR_PacketReceive, ulChipID, {{pstPkt->ulBufLen}});
}

uint32_t Qd_CPUTR_PacketRecvStatGet(uint32_t ulChipID, QdCputrRecvStat *)
{
    return not_modelled(Op::Qd_CPUTR_PacketRecvStatGet, ulChipID, {});
}

// ---- auto-send ----------------------------------------------------------------------------------

uint32_t Qd_CPUTR_AutoSendEnableSet(uint32_t ulChipID, uint32_t ulEnable)
{
    return not_modelled(Op::Qd_CPUTR_AutoSendEnableSet, ulChipID, {{ulEnable}});
}

uint32_t Qd_CPUTR_AutoSendChannelEnableSet(uint32_t ulChipID, uint32_t ulChannel, uint32_t ulEnable)
{
    return not_modelled(Op::Qd_CPUTR_AutoSendChannelEnableSet, ulChipID, {{ulChannel, ulEnable}});
}

uint32_t Qd_CPUTR_AutoSendInfoSet(uint32_t ulChipID, uint32_t ulChannel,
                                  const QdCputrAutoInfo *pstAutoInfo, const QdCputrSendPkt *pstPkt)
{
    if (pstAutoInfo == nullptr || pstPkt == nullptr) {
        return kErrNull;
    }
    return not_modelled(Op::Qd_CPUTR_AutoSendInfoSet, ulChipID,
                        {{ulChannel, pstAutoInfo->ulPeriod, pstPkt->aulHead[0], pstPkt->aulHead[1],
                          pstPkt->ulLen}});
}

uint32_t Qd_CPUTR_AutoSendInfoDel(uint32_t ulChipID, uint32_t ulChannel)
{
    return not_modelled(Op::Qd_CPUTR_AutoSendInfoDel, ulChipID, {{ulChannel}});
}

uint32_t Qd_CPUTR_AutoSendStatClear(uint32_t ulChipID, uint32_t ulChannel)
{
    return not_modelled(Op::Qd_CPUTR_AutoSendStatClear, ulChipID, {{ulChannel}});
}

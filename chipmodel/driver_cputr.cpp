// The driver's packet channel and its auto-send channels.

#include "chipmodel/call.h"

using namespace ldsdk::model;

// ---- packets ------------------------------------------------------------------------------------

uint32_t Qd_CPUTR_PacketSend(uint32_t ulChipID, const QdCputrSendPkt *pstPkt)
{
    if (pstPkt == nullptr || (pstPkt->pucData == nullptr && pstPkt->ulLen != 0)) {
        return kErrNull;
    }
    return driver_call(Op::Qd_CPUTR_PacketSend, ulChipID,
                       {{pstPkt->aulHead[0], pstPkt->aulHead[1], pstPkt->ulLen}}, [&](Chip &chip) {
                           return channel_send(chip, pstPkt->aulHead, pstPkt->pucData,
                                               pstPkt->ulLen);
                       });
}

// A packet that is longer than the buffer is cut to it, and the length still tells how long it was.
uint32_t Qd_CPUTR_PacketReceive(uint32_t ulChipID, QdCputrRecvPkt *pstPkt)
{
    if (pstPkt == nullptr || pstPkt->pucData == nullptr) {
        return kErrNull;
    }
    return driver_call(Op::Qd_CPUTR_PacketReceive, ulChipID, {{pstPkt->ulBufLen}}, [&](Chip &chip) {
        if (chip.channel.receive.waiting() == 0) {
            return kErrEmpty;
        }
        const Packet packet = channel_fetch(chip);
        pstPkt->aulInfo[1] = packet.head[0];
        pstPkt->aulInfo[0] = packet.head[1];
        pstPkt->ulPktLen = packet.length;
        __builtin_memcpy(pstPkt->pucData, packet.data,
                         packet.length < pstPkt->ulBufLen ? packet.length : pstPkt->ulBufLen);
        return kOk;
    });
}

uint32_t Qd_CPUTR_PacketRecvStatGet(uint32_t ulChipID, QdCputrRecvStat *pstStat)
{
    return driver_call(Op::Qd_CPUTR_PacketRecvStatGet, ulChipID, {}, [&](Chip &chip) {
        if (pstStat == nullptr) {
            return kErrNull;
        }
        __builtin_memcpy(pstStat->aulWord, chip.stat.of(StatBlock::kReceive),
                         sizeof pstStat->aulWord);
        return kOk;
    });
}

// ---- auto-send ----------------------------------------------------------------------------------

uint32_t Qd_CPUTR_AutoSendEnableSet(uint32_t ulChipID, uint32_t ulEnable)
{
    return driver_call(Op::Qd_CPUTR_AutoSendEnableSet, ulChipID, {{ulEnable}}, [&](Chip &chip) {
        if (ulEnable > 1) {
            return kErrParam;
        }
        auto_engine_set(chip, ulEnable != 0);
        return kOk;
    });
}

uint32_t Qd_CPUTR_AutoSendChannelEnableSet(uint32_t ulChipID, uint32_t ulChannel, uint32_t ulEnable)
{
    return driver_call(
        Op::Qd_CPUTR_AutoSendChannelEnableSet, ulChipID, {{ulChannel, ulEnable}}, [&](Chip &chip) {
            if (ulChannel >= kAutoChannelNum || ulEnable > 1) {
                return kErrAutoEnable;
            }
            return auto_channel_switch(chip, chip.channel.automatic[ulChannel], ulEnable != 0);
        });
}

uint32_t Qd_CPUTR_AutoSendInfoSet(uint32_t ulChipID, uint32_t ulChannel,
                                  const QdCputrAutoInfo *pstAutoInfo, const QdCputrSendPkt *pstPkt)
{
    if (pstAutoInfo == nullptr || pstPkt == nullptr ||
        (pstPkt->pucData == nullptr && pstPkt->ulLen != 0)) {
        return kErrNull;
    }
    const CallNumbers numbers = {
        {ulChannel, pstAutoInfo->ulPeriod, pstPkt->aulHead[0], pstPkt->aulHead[1], pstPkt->ulLen}};
    return driver_call(Op::Qd_CPUTR_AutoSendInfoSet, ulChipID, numbers, [&](Chip &chip) {
        if (ulChannel >= kAutoChannelNum || pstPkt->ulLen > kAutoBodyBytes) {
            return kErrAutoInfo;
        }
        AutoChannel &channel = chip.channel.automatic[ulChannel];
        channel.set = true;
        channel.period = static_cast<uint64_t>(pstAutoInfo->ulPeriod) + 1;
        channel.option[0] = pstAutoInfo->ucOption0;
        channel.option[1] = pstAutoInfo->ucOption1;
        channel.head[0] = pstPkt->aulHead[0];
        channel.head[1] = pstPkt->aulHead[1];
        channel.length = pstPkt->ulLen;
        if (channel.length != 0) {
            __builtin_memcpy(channel.body, pstPkt->pucData, channel.length);
        }
        channel.due = chip.now() + channel.period;
        return kOk;
    });
}

uint32_t Qd_CPUTR_AutoSendInfoDel(uint32_t ulChipID, uint32_t ulChannel)
{
    return driver_call(Op::Qd_CPUTR_AutoSendInfoDel, ulChipID, {{ulChannel}}, [&](Chip &chip) {
        if (ulChannel >= kAutoChannelNum) {
            return kErrAutoDelete;
        }
        chip.channel.automatic[ulChannel] = {};
        return kOk;
    });
}

uint32_t Qd_CPUTR_AutoSendStatClear(uint32_t ulChipID, uint32_t ulChannel)
{
    return driver_call(Op::Qd_CPUTR_AutoSendStatClear, ulChipID, {{ulChannel}}, [&](Chip &chip) {
        if (ulChannel >= kAutoChannelNum) {
            return kErrAutoClear;
        }
        chip.channel.automatic[ulChannel].count = 0;
        return kOk;
    });
}

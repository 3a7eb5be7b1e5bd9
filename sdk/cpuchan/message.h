// Messages to the microcode: headers that start a piece of its work, sent once or repeated by one
// of the 256 auto-send channels of the chip. A channel costs the host nothing once it is started.
// Nothing here locks: callers keep operations on one channel from overlapping.
#pragma once

#include "ldsdk/arl.h"
#include "ldsdk/ipqam.h"
#include "ldsdk/oam.h"
#include "platform/driver.h"
#include "sdk/record/record.h"

#include <cstdint>

inline constexpr uint32_t NP_AUTO_CHANNEL_NUM = 256;

// The messages that there are, rows of g_astNpCputrMsg.
enum NpCputrMsg : uint32_t {
    NP_MSG_PTP,
    NP_MSG_NORMAL_AGE,
    NP_MSG_ANTI_DOS,
    NP_MSG_OAM_AGE,
    NP_MSG_OAM_TX,
    NP_MSG_CAR_REFRESH,
    NP_MSG_IPQAM_TX,
    NP_MSG_HEARTBEAT,
    NP_MSG_FORCE_AGE,
    NP_MSG_DYNAMIC_LRN,
    NP_MSG_NUM,
};

struct NpCputrMsgDesc {
    uint8_t ucMsgType;  // 0 sent once, 1 timed
    uint8_t ucSubType;  // the work to do
    uint8_t ucChannel;  // first channel; OAM: that of period 1. 0: sent once
    uint8_t ucBodyLen;  // bytes
    uint8_t ucOption0;  // first option of the auto-send record
};

inline constexpr uint32_t NP_MSG_BODY_MAX = 44;

extern const NpCputrMsgDesc g_astNpCputrMsg[NP_MSG_NUM];

// Everything that the age messages can say.
struct ArlAgeInfo {
    uint32_t ulRsvd;  // nothing reads it
    uint32_t channelid;
    uint32_t agen;      // 1 starts the sweep, 0 stops it
    uint32_t ageclass;  // status of an entry that was just used, 1 to 5
    uint32_t basetime;  // period in ticks of 0.1 ms
    uint32_t msgtype;
    uint32_t subtype;
    uint32_t flowid;  // with its kind in bits 14..13: 0 flow, 2 bundle, 3 CM group
    uint32_t vsi;
    uint32_t class_;
    uint32_t vlanid;
    uint32_t mask;            // what the sweep selects by
    uint32_t startsessionid;  // first and last index of the walk
    uint32_t endsessionid;
    uint32_t number;
    uint32_t threshold;
    uint32_t interval;
    uint32_t ack;
};

// A timed message with a switch: OAM and IP-QAM.
struct NpMsgTimedInfo {
    uint32_t ulMsgEnable;
    uint32_t channelid;
    uint32_t msgtype;
    uint32_t subtype;
    uint32_t startsessionid;
    uint32_t endsessionid;
    uint32_t interval;
    uint32_t period;  // OAM: code 1 to 7; IP-QAM: ticks. Its low byte is the body's first
};

struct NpMsgAntiDosInfo {
    uint32_t period;  // ticks; 0 stops
    uint32_t channelid;
    uint32_t msgtype;
    uint32_t subtype;
    uint32_t startsessionid;
    uint32_t endsessionid;
    uint32_t interval;
    uint32_t ack;
};

// The age messages, of their records. Fields that a command may set by hand have a check, whose
// messages are the MAC family's; all others are hidden.
extern const NpRow g_stNpNormalAgeMsgRow;
extern const NpRow g_stNpForceAgeMsgRow;
// What a command may set of the anti-DoS message.
extern const NpRow g_stNpAntiDosMsgArgs;

extern "C" {

// Per chip one flag a channel, 1 while this system has it on; null while not initialised.
extern uint32_t *g_pulAutoChannelEn[NP_CHIP_NUM];

// Clears all flags and turns the auto-send engine on. NP_ERR_PARAM for a chip above 3,
// NP_ERR_NO_MEMORY, or the driver's code.
uint32_t Np_Tarn_CputrMsg_Init(uint32_t ulChipID);
// Forgets the flags and turns the engine off; the channels are not stopped one by one.
uint32_t Np_Tarn_CputrMsg_Destruct(uint32_t ulChipID);

// Programs a channel, stopping and emptying it first, and starts it. The driver copies header and
// body. NP_ERR_PARAM for a channel above 255, NP_ERR_NULL_PTR (also before the channels are
// initialised), or the driver's code with the channel off.
uint32_t NP_tarn_CputrMsg_AutoSend(uint32_t ulChipID, uint32_t ulChannel,
                                   const QdCputrAutoInfo *pstAutoInfo,
                                   const QdCputrSendPkt *pstPkt);
// Stops a channel and deletes its packet; one that is off costs no driver call.
uint32_t NP_tarn_CputrMsg_AutoSendInfoDel(uint32_t ulChipID, uint32_t ulChannel);

// Build turns the caller's record into the wide one, Set turns that into header and body and sends
// it, or stops its channel. NP_ERR_NULL_PTR, NP_ERR_PARAM, the register table's or the driver's
// code.
uint32_t Np_Tarn_CputrMsg_NormalAgeInfoBuild(uint32_t ulChipID, const NpNormalAge *pstNormalAge,
                                             ArlAgeInfo *pstArlAgeInfo);
uint32_t Np_Tarn_CputrMsg_NormalAgeInfoSet(uint32_t ulChipID, const ArlAgeInfo *pstArlAgeInfo);
uint32_t Np_Tarn_CputrMsg_ForceAgeInfoBuild(uint32_t ulChipID, const NpForceAge *pstForceAge,
                                            ArlAgeInfo *pstArlAgeInfo);
uint32_t Np_Tarn_CputrMsg_ForceAgeInfoSet(uint32_t ulChipID, const ArlAgeInfo *pstArlAgeInfo);
// pucItem: 16 bytes, reversed in place.
uint32_t Np_Tarn_CputrMsg_DynamicArlLrnInfoSet(uint32_t ulChipID, uint8_t *pucItem);
// ulAntiDosTime: seconds, 0 to 838; 0 stops.
uint32_t Np_Tarn_CputrMsg_AntiDosRefresh(uint32_t ulChipID, uint32_t ulAntiDosTime);
// The message of such a time, without a check of it.
void Np_MsgAntiDosInfoBuild(uint32_t ulAntiDosTime, NpMsgAntiDosInfo *pstInfo);
uint32_t Np_Tarn_CputrMsg_AntiDosInfoSet(uint32_t ulChipID, const NpMsgAntiDosInfo *pstInfo);
// The period, 1 to 7, is the caller's to check before Build.
uint32_t Np_Tarn_CputrMsg_OamTxTimedMsgInfoBuild(uint32_t ulChipID,
                                                 const NpOamTimedMsg *pstOamTxTimedMsg,
                                                 NpMsgTimedInfo *pstInfo);
uint32_t Np_Tarn_CputrMsg_OamTxTimedMsgInfoSet(uint32_t ulChipID, const NpMsgTimedInfo *pstInfo);
uint32_t Np_Tarn_CputrMsg_OamAgeTimedMsgInfoBuild(uint32_t ulChipID,
                                                  const NpOamTimedMsg *pstOamAgeTimedMsg,
                                                  NpMsgTimedInfo *pstInfo);
uint32_t Np_Tarn_CputrMsg_OamAgeTimedMsgInfoSet(uint32_t ulChipID, const NpMsgTimedInfo *pstInfo);
uint32_t Np_Tarn_CputrMsg_IpqamTxTimedMsgInfoBuild(uint32_t ulChipID,
                                                   const NpIpQamTimedMsg *pstIpQamTimedMsg,
                                                   NpMsgTimedInfo *pstInfo);
uint32_t Np_Tarn_CputrMsg_IpqamTxTimedMsgInfoSet(uint32_t ulChipID, const NpMsgTimedInfo *pstInfo);
// Four channels, stopping at the first that fails. ulEnable 0 stops them.
uint32_t Np_Tarn_CputrMsg_1588PtpPktMsgInfoSet(uint32_t ulChipID, uint32_t ulEnable);

}  // extern "C"

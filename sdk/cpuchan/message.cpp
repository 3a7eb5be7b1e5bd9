#include "sdk/cpuchan/message.h"

#include "sdk/access/regtable.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/record/describe.h"
#include "sdk/record/straight.h"

// message type, subtype, channel, body, first option
constexpr NpCputrMsgDesc g_astNpCputrMsg[NP_MSG_NUM] = {
    {1, 0, 252, 4, 1},  // PTP, four channels
    {1, 1, 1, 12, 0},   // normal age
    {1, 2, 2, 8, 0},    // anti-DoS
    {1, 3, 10, 4, 0},   // OAM age, seven channels
    {1, 4, 3, 4, 0},    // OAM transmit, seven channels
    {1, 5, 18, 4, 0},   // CAR refresh
    {1, 6, 17, 4, 0},   // IP-QAM transmit
    {1, 7, 19, 44, 0},  // heartbeat
    {0, 4, 0, 8, 0},    // force age
    {0, 8, 0, 16, 0},   // dynamic learn
};

namespace {

inline constexpr uint32_t NP_TICKS_PER_MS = 10;
inline constexpr uint32_t NP_AGE_TICKS = 10000;
inline constexpr uint32_t NP_ANTI_DOS_TICKS = 10000;
inline constexpr uint32_t NP_ANTI_DOS_TIME_NUM = 839;  // times that fit, in seconds
inline constexpr uint32_t NP_AGE_NUMBER = 65535;
inline constexpr uint32_t NP_IPQAM_LAST_SESSION = 255;
inline constexpr uint32_t NP_WALK_STEP = 8;  // entries that one index of a walk covers
inline constexpr uint32_t NP_PTP_CHANNEL_NUM = 4;
inline constexpr uint32_t NP_OAM_PERIOD_NUM = 7;

// Ticks of a period code, from code 1 on; the age message comes twice in a transmit interval.
constexpr uint32_t g_aulOamTxTicks[NP_OAM_PERIOD_NUM] = {33,     100,    1000,   10000,
                                                         100000, 600000, 6000000};
constexpr uint32_t g_aulOamAgeTicks[NP_OAM_PERIOD_NUM] = {16,    50,     500,    5000,
                                                          50000, 300000, 3000000};
constexpr uint32_t g_aulPtpTicks[NP_PTP_CHANNEL_NUM] = {10, 10, 10000, 10000};

// The global row keeps the status that entries get while the sweep runs.
inline constexpr uint32_t NP_GLOBAL_TABLE = 1;
inline constexpr uint32_t NP_GLOBAL_WORDS = 4;
inline constexpr uint32_t NP_AGE_CLASS_BIT = 28;  // of word 0

// Kinds of a force age's flow, and what the selection becomes: bits of the bitmap.
inline constexpr uint32_t NP_AGE_BY_CLASS = 64;
inline constexpr uint32_t NP_AGE_BY_VSI = 16;
inline constexpr uint32_t NP_AGE_BY_VLAN = 4;

struct NpForceKind {
    uint32_t ulBit;   // in the bitmap; the first row whose bit is set decides
    uint32_t ulFlow;  // set in flowid
    uint32_t ulSet;   // set in mask
    uint32_t ulKeep;  // then kept of it
};
constexpr NpForceKind g_astForceKind[] = {
    {1, 0, 0, 0x55},        // flow
    {2, 0x4000, 1, 0x55},   // bundle
    {8, 0x6000, 1, 0x55},   // CM group
    {32, 0, 0x100, 0x154},  // a flow identifier, marked apart
};

// A message's row is made of its wide record. Image: the two header words, then those of the body.
inline constexpr uint16_t NP_MSG_HEAD_SIZE = 8;

// Header fields of the records that no command shows.
#define NP_MSG_HEAD                                              \
    NP_F(msgtype, .stAt = {0, 31, 29}, .bCut = true),            \
        NP_F(subtype, .stAt = {0, 28, 24}, .bCut = true),        \
        NP_F(interval, .stAt = {0, 7, 0}, .bCut = true),         \
        NP_F(startsessionid, .stAt = {4, 31, 16}, .bCut = true), \
        NP_F(endsessionid, .stAt = {4, 15, 0}, .bCut = true)

namespace timed {
using R = NpMsgTimedInfo;
constexpr NpField g_astField[] = {NP_MSG_HEAD, NP_F(period, .stAt = {8, 31, 24}, .bCut = true)};
}  // namespace timed

namespace anti_dos {
using R = NpMsgAntiDosInfo;
constexpr NpField g_astField[] = {NP_MSG_HEAD, NP_F(ack, .stAt = {0, 23, 23}, .bCut = true)};
constexpr NpField g_astArgs[] = {NP_F(period), NP_F(startsessionid), NP_F(endsessionid),
                                 NP_F(interval), NP_F(ack)};
constexpr NpCheck g_astCheck[] = {
    NP_C(period, Np_Most(INT32_MAX)),
    NP_C(startsessionid, Np_Most(0xffff)),
    NP_C(endsessionid, Np_Most(0xffff)),
    NP_C(interval, Np_Most(0xff)),
    NP_C(ack, Np_Most(1)),
};
}  // namespace anti_dos

#undef NP_MSG_HEAD

namespace age {
using R = ArlAgeInfo;
#define NP_HIDDEN(Member, ...) NP_F(Member, .stAt = {__VA_ARGS__}, .bCut = true, .bHidden = true)
constexpr NpField g_astNormalField[] = {
    NP_HIDDEN(msgtype, 0, 31, 29),
    NP_HIDDEN(subtype, 0, 28, 24),
    NP_F(ageclass, .bLost = true),
    NP_F(basetime, .bLost = true),
    NP_F(startsessionid, .stAt = {4, 31, 16}),
    NP_F(endsessionid, .stAt = {4, 15, 0}),
    NP_F(number, .stAt = {12, 15, 0}),
    NP_F(threshold, .stAt = {16, 31, 0}),
    NP_F(interval, .stAt = {0, 7, 0}),
    NP_F(ack, .stAt = {0, 23, 23}),
};
constexpr NpCheck g_astNormalCheck[] = {
    NP_C(ageclass, Np_Range(1, 14)),       NP_C(basetime, Np_Range(1, INT32_MAX)),
    NP_C(startsessionid, Np_Most(0xffff)), NP_C(endsessionid, Np_Most(0xffff)),
    NP_C(number, Np_Most(0xffff)),         NP_C(threshold, Np_Most(INT32_MAX)),
    NP_C(interval, Np_Most(0xff)),         NP_C(ack, Np_Most(1)),
};
constexpr NpField g_astForceField[] = {
    NP_HIDDEN(msgtype, 0, 31, 29),
    NP_HIDDEN(subtype, 0, 28, 24),
    NP_HIDDEN(class_, 0, 9, 8),
    NP_HIDDEN(mask, 8, 31, 16),
    NP_HIDDEN(flowid, 8, 15, 0),
    NP_HIDDEN(vsi, 12, 31, 28),
    NP_HIDDEN(vlanid, 12, 27, 16),
    NP_F(startsessionid, .stAt = {4, 31, 16}),
    NP_F(endsessionid, .stAt = {4, 15, 0}),
    NP_F(number, .stAt = {12, 15, 0}),
    NP_F(interval, .stAt = {0, 7, 0}),
    NP_F(ack, .stAt = {0, 23, 23}),
};
constexpr NpCheck g_astForceCheck[] = {
    NP_C(startsessionid, Np_Most(0xffff)),
    NP_C(endsessionid, Np_Most(0xffff)),
    NP_C(number, Np_Most(0xffff)),
    NP_C(interval, Np_Most(0xff)),
    NP_C(ack, Np_Most(1)),
};
#undef NP_HIDDEN
}  // namespace age

constexpr NpRow g_stTimedRow =
    Np_RowMake<NpMsgTimedInfo>({.ucModule = NP_M_CPUTRMSG,
                                .usImageSize = NP_MSG_HEAD_SIZE + 4,
                                .pstStraight = NP_STRAIGHT(timed::g_astField, g_astNpNoCheck)},
                               timed::g_astField, {});
constexpr NpRow g_stAntiDosRow =
    Np_RowMake<NpMsgAntiDosInfo>({.ucModule = NP_M_CPUTRMSG,
                                  .usImageSize = NP_MSG_HEAD_SIZE,
                                  .pstStraight = NP_STRAIGHT(anti_dos::g_astField, g_astNpNoCheck)},
                                 anti_dos::g_astField, {});

// A message while it is built: the driver's record and the image that its body is a part of.
struct NpMsgFrame {
    QdCputrSendPkt stPkt;
    uint32_t aulImage[(NP_MSG_HEAD_SIZE + NP_MSG_BODY_MAX) / sizeof(uint32_t)];
};

void Np_MsgBuild(NpMsgFrame *pstFrame, NpCputrMsg enMsg, const NpRow *pstRow, const void *pvInfo,
                 NpWhere stWhere = Np_Here())
{
    memset(pstFrame, 0, sizeof(*pstFrame));
    Np_Row_Fill(pstRow, 0, pvInfo, pstFrame->aulImage, stWhere);  // no field depends on the chip
    pstFrame->stPkt.aulHead[0] = pstFrame->aulImage[0];
    pstFrame->stPkt.aulHead[1] = pstFrame->aulImage[1];
    uint32_t *pulBody = &pstFrame->aulImage[NP_MSG_HEAD_SIZE / sizeof(uint32_t)];
    for (uint32_t i = 0; i < NP_MSG_BODY_MAX / sizeof(uint32_t); i++) {
        pulBody[i] = __builtin_bswap32(pulBody[i]);  // to network order
    }
    pstFrame->stPkt.ulLen = g_astNpCputrMsg[enMsg].ucBodyLen;
    pstFrame->stPkt.pucData = reinterpret_cast<const uint8_t *>(pulBody);
}

// What every sender makes of its last step.
uint32_t Np_MsgResult(uint32_t ulReturn, NpWhere stWhere = Np_Here())
{
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_CPUTRMSG, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n",
                    ulReturn);
    }
    return ulReturn;
}

uint32_t Np_MsgStart(uint32_t ulChipID, NpCputrMsg enMsg, uint32_t ulChannel, uint32_t ulTicks,
                     const NpMsgFrame *pstFrame, NpWhere stWhere = Np_Here())
{
    const QdCputrAutoInfo stAutoInfo = {ulTicks - 1, g_astNpCputrMsg[enMsg].ucOption0, 0};
    return Np_MsgResult(
        NP_tarn_CputrMsg_AutoSend(ulChipID, ulChannel, &stAutoInfo, &pstFrame->stPkt), stWhere);
}

uint32_t Np_MsgStop(uint32_t ulChipID, uint32_t ulChannel, NpWhere stWhere = Np_Here())
{
    return Np_MsgResult(NP_tarn_CputrMsg_AutoSendInfoDel(ulChipID, ulChannel), stWhere);
}

// Type and channel of a message in a wide record.
template <typename Info>
void Np_MsgInfoStart(Info *pstInfo, NpCputrMsg enMsg, uint32_t ulIndex)
{
    *pstInfo = {};
    pstInfo->channelid = g_astNpCputrMsg[enMsg].ucChannel + ulIndex;
    pstInfo->msgtype = g_astNpCputrMsg[enMsg].ucMsgType;
    pstInfo->subtype = g_astNpCputrMsg[enMsg].ucSubType;
}

uint32_t Np_MsgNull(const void *pvA, const void *pvB, NpWhere stWhere = Np_Here())
{
    if (pvA == nullptr || pvB == nullptr) {
        NP_TRACE_AT(stWhere, NP_M_CPUTRMSG, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    return NP_OK;
}

// Last index of a walk over both MAC tables.
uint32_t Np_AgeLastSession(void)
{
    return (Np_GLB_CapGet(NP_CAP_ARL_TABLE_SIZE) + Np_GLB_CapGet(NP_CAP_LAN_MAC_TABLE_SIZE)) /
               NP_WALK_STEP -
           1;
}

// Puts the age class into the global row, where the microcode takes it from.
uint32_t Np_AgeClassSet(uint32_t ulChipID, uint32_t ulAgeClass, NpWhere stWhere = Np_Here())
{
    uint32_t aulRow[NP_GLOBAL_WORDS] = {};
    uint32_t ulReturn = Np_RegTableRead(ulChipID, NP_GLOBAL_TABLE, 0, aulRow);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_CPUTRMSG, NP_PRINT_ERROR,
                    "Read error return:0x%08x  ID:0x%08x Offset:0x%08x\r\n", ulReturn,
                    NP_GLOBAL_TABLE, 0u);
        return ulReturn;
    }
    aulRow[0] = (aulRow[0] & ((1u << NP_AGE_CLASS_BIT) - 1)) | ulAgeClass << NP_AGE_CLASS_BIT;
    ulReturn = Np_RegTableWrite(ulChipID, NP_GLOBAL_TABLE, 0, aulRow);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_CPUTRMSG, NP_PRINT_ERROR,
                    "Write error return:0x%08x ID:0x%08x Offset:0x%08x\r\n", ulReturn,
                    NP_GLOBAL_TABLE, 0u);
    }
    return ulReturn;
}

uint32_t Np_OamInfoBuild(NpCputrMsg enMsg, uint32_t ulFirst, const NpOamTimedMsg *pstTimedMsg,
                         NpMsgTimedInfo *pstInfo, NpWhere stWhere = Np_Here())
{
    const uint32_t ulReturn = Np_MsgNull(pstTimedMsg, pstInfo, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_MsgInfoStart(pstInfo, enMsg, pstTimedMsg->ulPeriod - 1);
    pstInfo->ulMsgEnable = pstTimedMsg->ulMsgEnable;
    pstInfo->startsessionid = ulFirst;
    pstInfo->endsessionid = Np_GLB_CapGet(NP_CAP_OAM_MEP_ROWS) - 1;
    pstInfo->period = pstTimedMsg->ulPeriod;
    return NP_OK;
}

// Starts a timed record's message with a period in ticks, or stops it.
uint32_t Np_TimedInfoSet(uint32_t ulChipID, NpCputrMsg enMsg, const NpMsgTimedInfo *pstInfo,
                         uint32_t ulTicks, NpWhere stWhere = Np_Here())
{
    if (pstInfo->ulMsgEnable == 0) {
        return Np_MsgStop(ulChipID, pstInfo->channelid, stWhere);
    }
    NpMsgFrame stFrame;
    Np_MsgBuild(&stFrame, enMsg, &g_stTimedRow, pstInfo, stWhere);
    return Np_MsgStart(ulChipID, enMsg, pstInfo->channelid, ulTicks, &stFrame, stWhere);
}

uint32_t Np_OamInfoSet(uint32_t ulChipID, NpCputrMsg enMsg, const NpMsgTimedInfo *pstInfo,
                       const uint32_t (&aulTicks)[NP_OAM_PERIOD_NUM], const char *pszRecord,
                       NpWhere stWhere = Np_Here())
{
    const uint32_t ulReturn = Np_MsgNull(pstInfo, pstInfo, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint32_t ulIndex = pstInfo->period - 1;  // 0 wraps, and is refused with the rest
    if (ulIndex >= NP_OAM_PERIOD_NUM) {
        NP_TRACE_AT(stWhere, NP_M_CPUTRMSG, NP_PRINT_ERROR, "param error! %s->ulPeriod=0x%08x\r\n",
                    pszRecord, pstInfo->period);
        return NP_ERR_PARAM;
    }
    return Np_TimedInfoSet(ulChipID, enMsg, pstInfo, aulTicks[ulIndex], stWhere);
}

}  // namespace

constexpr NpRow g_stNpNormalAgeMsgRow = Np_RowMake<ArlAgeInfo>(
    {.ucModule = NP_M_ARL,
     .pszArg = "pstArlAgeInfo",
     .usImageSize = NP_MSG_HEAD_SIZE + 12,
     .pstStraight = NP_STRAIGHT(age::g_astNormalField, age::g_astNormalCheck)},
    age::g_astNormalField, age::g_astNormalCheck);
constexpr NpRow g_stNpForceAgeMsgRow =
    Np_RowMake<ArlAgeInfo>({.ucModule = NP_M_ARL,
                            .pszArg = "pstArlAgeInfo",
                            .usImageSize = NP_MSG_HEAD_SIZE + 8,
                            .pstStraight = NP_STRAIGHT(age::g_astForceField, age::g_astForceCheck)},
                           age::g_astForceField, age::g_astForceCheck);
constexpr NpRow g_stNpAntiDosMsgArgs = Np_RowMake<NpMsgAntiDosInfo>(
    {.ucModule = NP_M_SECU}, anti_dos::g_astArgs, anti_dos::g_astCheck);

uint32_t Np_Tarn_CputrMsg_NormalAgeInfoBuild(uint32_t, const NpNormalAge *pstNormalAge,
                                             ArlAgeInfo *pstArlAgeInfo)
{
    const uint32_t ulReturn = Np_MsgNull(pstNormalAge, pstArlAgeInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint32_t ulAgeTime = pstNormalAge->ulAgeTime;
    Np_MsgInfoStart(pstArlAgeInfo, NP_MSG_NORMAL_AGE, 0);
    pstArlAgeInfo->agen = ulAgeTime == 0 ? 0 : pstNormalAge->ulAgeEnable;
    pstArlAgeInfo->ageclass = ulAgeTime <= 3 ? ulAgeTime + 1 : 5;
    pstArlAgeInfo->basetime = NP_AGE_TICKS;
    pstArlAgeInfo->endsessionid = Np_AgeLastSession();
    pstArlAgeInfo->number = NP_AGE_NUMBER;
    pstArlAgeInfo->threshold = ulAgeTime >> 2;
    return NP_OK;
}

uint32_t Np_Tarn_CputrMsg_NormalAgeInfoSet(uint32_t ulChipID, const ArlAgeInfo *pstArlAgeInfo)
{
    uint32_t ulReturn = Np_MsgNull(pstArlAgeInfo, pstArlAgeInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pstArlAgeInfo->agen == 0) {
        return Np_MsgStop(ulChipID, pstArlAgeInfo->channelid);
    }
    ulReturn = Np_AgeClassSet(ulChipID, pstArlAgeInfo->ageclass);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpMsgFrame stFrame;
    Np_MsgBuild(&stFrame, NP_MSG_NORMAL_AGE, &g_stNpNormalAgeMsgRow, pstArlAgeInfo);
    return Np_MsgStart(ulChipID, NP_MSG_NORMAL_AGE, pstArlAgeInfo->channelid,
                       pstArlAgeInfo->basetime, &stFrame);
}

uint32_t Np_Tarn_CputrMsg_ForceAgeInfoBuild(uint32_t, const NpForceAge *pstForceAge,
                                            ArlAgeInfo *pstArlAgeInfo)
{
    const uint32_t ulReturn = Np_MsgNull(pstForceAge, pstArlAgeInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint32_t ulBitmap = pstForceAge->ulForceAgeIDBitmap;
    const uint32_t ulID = pstForceAge->ulForceAgeID;
    Np_MsgInfoStart(pstArlAgeInfo, NP_MSG_FORCE_AGE, 0);
    pstArlAgeInfo->number = NP_AGE_NUMBER;
    pstArlAgeInfo->mask = ulBitmap;
    pstArlAgeInfo->endsessionid = Np_AgeLastSession();
    pstArlAgeInfo->class_ = (ulBitmap & NP_AGE_BY_CLASS) != 0 ? ulID : 0;
    pstArlAgeInfo->vsi = (ulBitmap & NP_AGE_BY_VSI) != 0 ? ulID : 0;
    pstArlAgeInfo->vlanid = (ulBitmap & NP_AGE_BY_VLAN) != 0 ? ulID : 0;
    for (const NpForceKind &stKind : g_astForceKind) {
        if ((ulBitmap & stKind.ulBit) != 0) {
            pstArlAgeInfo->flowid = ulID | stKind.ulFlow;
            pstArlAgeInfo->mask = (ulBitmap | stKind.ulSet) & stKind.ulKeep;
            break;
        }
    }
    return NP_OK;
}

uint32_t Np_Tarn_CputrMsg_ForceAgeInfoSet(uint32_t ulChipID, const ArlAgeInfo *pstArlAgeInfo)
{
    const uint32_t ulReturn = Np_MsgNull(pstArlAgeInfo, pstArlAgeInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpMsgFrame stFrame;
    Np_MsgBuild(&stFrame, NP_MSG_FORCE_AGE, &g_stNpForceAgeMsgRow, pstArlAgeInfo);
    return Np_MsgResult(Qd_CPUTR_PacketSend(ulChipID, &stFrame.stPkt));
}

uint32_t Np_Tarn_CputrMsg_DynamicArlLrnInfoSet(uint32_t ulChipID, uint8_t *pucItem)
{
    const uint32_t ulReturn = Np_MsgNull(pucItem, pucItem);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpCputrMsgDesc &stMsg = g_astNpCputrMsg[NP_MSG_DYNAMIC_LRN];
    for (uint32_t i = 0; i < stMsg.ucBodyLen / 2u; i++) {
        const uint8_t ucByte = pucItem[i];
        pucItem[i] = pucItem[stMsg.ucBodyLen - 1 - i];
        pucItem[stMsg.ucBodyLen - 1 - i] = ucByte;
    }
    NpMsgTimedInfo stInfo;
    Np_MsgInfoStart(&stInfo, NP_MSG_DYNAMIC_LRN, 0);
    NpMsgFrame stFrame;
    Np_MsgBuild(&stFrame, NP_MSG_DYNAMIC_LRN, &g_stTimedRow, &stInfo);
    stFrame.stPkt.pucData = pucItem;
    return Np_MsgResult(Qd_CPUTR_PacketSend(ulChipID, &stFrame.stPkt));
}

void Np_MsgAntiDosInfoBuild(uint32_t ulAntiDosTime, NpMsgAntiDosInfo *pstInfo)
{
    Np_MsgInfoStart(pstInfo, NP_MSG_ANTI_DOS, 0);
    pstInfo->period = NP_ANTI_DOS_TICKS * ulAntiDosTime;
    pstInfo->endsessionid = Np_GLB_CapGet(NP_CAP_USER_ID_MAX);
}

uint32_t Np_Tarn_CputrMsg_AntiDosRefresh(uint32_t ulChipID, uint32_t ulAntiDosTime)
{
    if (ulAntiDosTime >= NP_ANTI_DOS_TIME_NUM) {
        NP_TRACE(NP_M_CPUTRMSG, NP_PRINT_ERROR, "param error! (ulAntiDosTime)=0x%08x\r\n",
                 ulAntiDosTime);
        return NP_ERR_PARAM;
    }
    NpMsgAntiDosInfo stInfo;
    Np_MsgAntiDosInfoBuild(ulAntiDosTime, &stInfo);
    return Np_Tarn_CputrMsg_AntiDosInfoSet(ulChipID, &stInfo);
}

uint32_t Np_Tarn_CputrMsg_AntiDosInfoSet(uint32_t ulChipID, const NpMsgAntiDosInfo *pstInfo)
{
    const uint32_t ulReturn = Np_MsgNull(pstInfo, pstInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pstInfo->period == 0) {
        return Np_MsgStop(ulChipID, pstInfo->channelid);
    }
    NpMsgFrame stFrame;
    Np_MsgBuild(&stFrame, NP_MSG_ANTI_DOS, &g_stAntiDosRow, pstInfo);
    return Np_MsgStart(ulChipID, NP_MSG_ANTI_DOS, pstInfo->channelid, pstInfo->period, &stFrame);
}

uint32_t Np_Tarn_CputrMsg_OamTxTimedMsgInfoBuild(uint32_t, const NpOamTimedMsg *pstOamTxTimedMsg,
                                                 NpMsgTimedInfo *pstInfo)
{
    // The walk begins at the period's row of the list heads.
    const uint32_t ulFirst = pstOamTxTimedMsg == nullptr ? 0 : pstOamTxTimedMsg->ulPeriod - 1;
    return Np_OamInfoBuild(NP_MSG_OAM_TX, ulFirst, pstOamTxTimedMsg, pstInfo);
}

uint32_t Np_Tarn_CputrMsg_OamTxTimedMsgInfoSet(uint32_t ulChipID, const NpMsgTimedInfo *pstInfo)
{
    return Np_OamInfoSet(ulChipID, NP_MSG_OAM_TX, pstInfo, g_aulOamTxTicks, "pstOamTxTimedMsg");
}

uint32_t Np_Tarn_CputrMsg_OamAgeTimedMsgInfoBuild(uint32_t, const NpOamTimedMsg *pstOamAgeTimedMsg,
                                                  NpMsgTimedInfo *pstInfo)
{
    return Np_OamInfoBuild(NP_MSG_OAM_AGE, 0, pstOamAgeTimedMsg, pstInfo);
}

uint32_t Np_Tarn_CputrMsg_OamAgeTimedMsgInfoSet(uint32_t ulChipID, const NpMsgTimedInfo *pstInfo)
{
    return Np_OamInfoSet(ulChipID, NP_MSG_OAM_AGE, pstInfo, g_aulOamAgeTicks, "pstOamAgeTimedMsg");
}

uint32_t Np_Tarn_CputrMsg_IpqamTxTimedMsgInfoBuild(uint32_t,
                                                   const NpIpQamTimedMsg *pstIpQamTimedMsg,
                                                   NpMsgTimedInfo *pstInfo)
{
    const uint32_t ulReturn = Np_MsgNull(pstIpQamTimedMsg, pstInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_MsgInfoStart(pstInfo, NP_MSG_IPQAM_TX, 0);
    pstInfo->ulMsgEnable = pstIpQamTimedMsg->enable;
    pstInfo->startsessionid = pstIpQamTimedMsg->session;
    pstInfo->endsessionid = NP_IPQAM_LAST_SESSION;
    pstInfo->period = pstIpQamTimedMsg->agetime * NP_TICKS_PER_MS;
    return NP_OK;
}

uint32_t Np_Tarn_CputrMsg_IpqamTxTimedMsgInfoSet(uint32_t ulChipID, const NpMsgTimedInfo *pstInfo)
{
    const uint32_t ulReturn = Np_MsgNull(pstInfo, pstInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    return Np_TimedInfoSet(ulChipID, NP_MSG_IPQAM_TX, pstInfo, pstInfo->period);
}

uint32_t Np_Tarn_CarRefresh_Msg(uint32_t ulChipID, uint32_t ulEnable, uint32_t ulPeriod)
{
    if (ulEnable >= 2) {
        NP_TRACE(NP_M_CPUTRMSG, NP_PRINT_ERROR, "enable Para error: 0x%08x \r\n", ulEnable);
        return NP_ERR_PARAM;
    }
    NpMsgTimedInfo stInfo;
    Np_MsgInfoStart(&stInfo, NP_MSG_CAR_REFRESH, 0);
    if (ulEnable == 0 || ulPeriod == 0) {
        return Np_MsgStop(ulChipID, stInfo.channelid);
    }
    NpMsgFrame stFrame;
    Np_MsgBuild(&stFrame, NP_MSG_CAR_REFRESH, &g_stTimedRow, &stInfo);
    return Np_MsgStart(ulChipID, NP_MSG_CAR_REFRESH, stInfo.channelid, ulPeriod * NP_TICKS_PER_MS,
                       &stFrame);
}

uint32_t Np_Tarn_CputrMsg_1588PtpPktMsgInfoSet(uint32_t ulChipID, uint32_t ulEnable)
{
    NpMsgTimedInfo stInfo;
    Np_MsgInfoStart(&stInfo, NP_MSG_PTP, 0);
    NpMsgFrame stFrame;
    Np_MsgBuild(&stFrame, NP_MSG_PTP, &g_stTimedRow, &stInfo);
    for (uint32_t i = 0; i < NP_PTP_CHANNEL_NUM; i++) {
        const uint32_t ulChannel = stInfo.channelid + i;
        const uint32_t ulReturn = ulEnable == 0 ? Np_MsgStop(ulChipID, ulChannel)
                                                : Np_MsgStart(ulChipID, NP_MSG_PTP, ulChannel,
                                                              g_aulPtpTicks[i], &stFrame);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    return NP_OK;
}

// Messages to the microcode and the auto-send channels, on a scripted driver.
#include "tests/driver_tap.h"
#include "tests/fixture.h"

#include "sdk/cpuchan/message.h"
#include "sdk/frame/base/service.h"

#include <functional>

namespace {

using ldsdk::test::ChipUp;
using ldsdk::test::DriverTap;
using testing::ElementsAre;
using testing::HasSubstr;
using Bytes = std::vector<uint8_t>;
using Numbers = std::vector<uint32_t>;

std::vector<uint32_t> g_recorded;
void record(uint32_t code, uint32_t)
{
    g_recorded.push_back(code);
}

class Messages : public ChipUp {
  protected:
    Messages()
    {
        trace_errors(NP_M_CPUTRMSG);
        g_recorded.clear();
        Np_Glb_RecordErrInfoHook(0, record);
        EXPECT_EQ(Np_Tarn_CputrMsg_Init(0), NP_OK);
        tap.take();
    }
    ~Messages() override
    {
        tap.fail(0, 0);
        EXPECT_EQ(Np_Tarn_CputrMsg_Destruct(0), NP_OK);
    }

    static bool is_on(uint32_t channel)
    {
        return g_pulAutoChannelEn[0][channel] == 1;
    }

    DriverTap tap;
};

constexpr char kStart[] = "AutoSendInfoSet AutoSendStatClear AutoSendChannelEnableSet";
constexpr char kStop[] = "AutoSendChannelEnableSet AutoSendInfoDel";

QdCputrSendPkt any_packet()
{
    static const uint8_t body[] = {1, 2, 3, 4};
    return {{0x21000000, 5}, 4, body};
}

// ---- channels -----------------------------------------------------------------------------------

TEST_F(Messages, ARunningChannelIsStoppedEmptiedAndStartedAgain)
{
    const QdCputrAutoInfo info = {99, 0, 0};
    const QdCputrSendPkt packet = any_packet();
    ASSERT_EQ(NP_tarn_CputrMsg_AutoSend(0, 77, &info, &packet), NP_OK);
    EXPECT_EQ(tap.take_names(), kStart) << "nothing to stop yet";
    EXPECT_TRUE(is_on(77));
    ASSERT_EQ(NP_tarn_CputrMsg_AutoSend(0, 77, &info, &packet), NP_OK);
    const std::vector<DriverTap::Call> calls = tap.take();
    const std::vector<DriverTap::Call> expected = {
        {"AutoSendChannelEnableSet", {77, 0}, {}, {}},
        {"AutoSendInfoDel", {77}, {}, {}},
        {"AutoSendInfoSet", {77, 99, 0, 0}, {0x21000000, 5}, {1, 2, 3, 4}, packet.pucData},
        {"AutoSendStatClear", {77}, {}, {}},
        {"AutoSendChannelEnableSet", {77, 1}, {}, {}},
    };
    EXPECT_EQ(calls, expected);
    EXPECT_TRUE(is_on(77));
    EXPECT_EQ(NP_tarn_CputrMsg_AutoSendInfoDel(0, 77), NP_OK);
    EXPECT_EQ(tap.take_names(), kStop);
    EXPECT_FALSE(is_on(77));
    EXPECT_EQ(NP_tarn_CputrMsg_AutoSendInfoDel(0, 77), NP_OK);
    EXPECT_EQ(tap.take_names(), "") << "a channel that is off costs no call";
}

// Each call of a restart fails once: what is printed, and whether the channel then counts as on.
TEST_F(Messages, AFailureLeavesTheFlagAsTheStepSays)
{
    struct Case {
        uint32_t nth;
        std::string text;
        bool on;
    };
    const std::vector<Case> cases = {
        {1, "enable cputr msg channel error, ulReturn=0x0000a001\r\n", true},
        {2, " cputr msg autoinfo del error, ulReturn=0x0000a002\r\n", false},
        {3, "cputr msg autoinfo set error, ulReturn=0x0000a003\r\n", false},
        {4, " cputr msg channel stat clear error, ulReturn=0x0000a004\r\n", false},
        {5, "enable cputr msg channel error, ulReturn=0x0000a005\r\n", false},
    };
    const QdCputrAutoInfo info = {99, 0, 0};
    const QdCputrSendPkt packet = any_packet();
    for (const auto &[nth, text, on] : cases) {
        SCOPED_TRACE(nth);
        ASSERT_EQ(NP_tarn_CputrMsg_AutoSend(0, 255, &info, &packet), NP_OK);
        tap.take();
        g_recorded.clear();
        tap.fail(nth, 0xa000 + nth);
        EXPECT_EQ(NP_tarn_CputrMsg_AutoSend(0, 255, &info, &packet), 0xa000 + nth);
        EXPECT_THAT(out.take(), HasSubstr(text));
        EXPECT_THAT(g_recorded, ElementsAre(0xa000 + nth));
        EXPECT_EQ(tap.take().size(), nth) << "the step that fails is the last";
        EXPECT_EQ(is_on(255), on);
        EXPECT_EQ(NP_tarn_CputrMsg_AutoSendInfoDel(0, 255), NP_OK);
    }
}

TEST_F(Messages, WhatIsNoChannelIsRefused)
{
    const QdCputrAutoInfo info = {};
    const QdCputrSendPkt packet = any_packet();
    EXPECT_EQ(NP_tarn_CputrMsg_AutoSend(0, 256, &info, &packet), NP_ERR_PARAM);
    EXPECT_EQ(NP_tarn_CputrMsg_AutoSend(4, 0, &info, &packet), NP_ERR_PARAM);
    EXPECT_EQ(NP_tarn_CputrMsg_AutoSendInfoDel(0, 256), NP_ERR_PARAM);
    EXPECT_EQ(NP_tarn_CputrMsg_AutoSend(0, 1, nullptr, &packet), NP_ERR_NULL_PTR);
    EXPECT_EQ(NP_tarn_CputrMsg_AutoSend(0, 1, &info, nullptr), NP_ERR_NULL_PTR);
    EXPECT_EQ(NP_tarn_CputrMsg_AutoSend(1, 1, &info, &packet), NP_ERR_NULL_PTR)
        << "the channels of that chip are not there";
    EXPECT_EQ(NP_tarn_CputrMsg_AutoSendInfoDel(1, 1), NP_OK);
    EXPECT_EQ(tap.take_names(), "");
}

TEST_F(Messages, InitAndDestruct)
{
    const QdCputrAutoInfo info = {};
    const QdCputrSendPkt packet = any_packet();
    ASSERT_EQ(NP_tarn_CputrMsg_AutoSend(0, 3, &info, &packet), NP_OK);
    tap.take();
    const uint32_t *flags = g_pulAutoChannelEn[0];
    EXPECT_EQ(Np_Tarn_CputrMsg_Init(0), NP_OK);
    EXPECT_EQ(g_pulAutoChannelEn[0], flags) << "the block is kept";
    EXPECT_FALSE(is_on(3));
    EXPECT_THAT(tap.take().at(0).numbers, ElementsAre(1));
    EXPECT_EQ(Np_Tarn_CputrMsg_Destruct(0), NP_OK);
    EXPECT_EQ(g_pulAutoChannelEn[0], nullptr);
    EXPECT_THAT(tap.take().at(0).numbers, ElementsAre(0));
    EXPECT_EQ(Np_CarRefresh_Msg(0, 0, 0), NP_OK) << "tear-down stops a channel after this";
    EXPECT_EQ(tap.take_names(), "");
    set_fault("alloc");
    EXPECT_EQ(Np_Tarn_CputrMsg_Init(0), NP_ERR_NO_MEMORY);
    EXPECT_THAT(out.take(), HasSubstr("memory alloc failed!\r\n"));
    EXPECT_EQ(tap.take_names(), "");
    tap.fail(1, 0x31);
    EXPECT_EQ(Np_Tarn_CputrMsg_Init(0), 0x31u);
    EXPECT_THAT(out.take(), HasSubstr("cputr autosend Enable fail!\r\n"));
    for (const uint32_t chip : {4u, 0xffffffffu}) {
        EXPECT_EQ(Np_Tarn_CputrMsg_Init(chip), NP_ERR_PARAM);
        EXPECT_THAT(out.take(), HasSubstr("param error! (ulChipID)=0x"));
        EXPECT_EQ(Np_Tarn_CputrMsg_Destruct(chip), NP_ERR_PARAM);
        EXPECT_THAT(out.take(), HasSubstr("param error! (ulChipID)=0x"));
    }
}

// ---- timed messages -----------------------------------------------------------------------------

uint32_t normal_age(uint32_t enable, uint32_t time)
{
    const NpNormalAge age = {enable, time};
    ArlAgeInfo info = {};
    const uint32_t code = Np_Tarn_CputrMsg_NormalAgeInfoBuild(0, &age, &info);
    return code != 0 ? code : Np_Tarn_CputrMsg_NormalAgeInfoSet(0, &info);
}

uint32_t oam_tx(uint32_t enable, uint32_t period)
{
    const NpOamTimedMsg msg = {enable, period};
    NpMsgTimedInfo info = {};
    const uint32_t code = Np_Tarn_CputrMsg_OamTxTimedMsgInfoBuild(0, &msg, &info);
    return code != 0 ? code : Np_Tarn_CputrMsg_OamTxTimedMsgInfoSet(0, &info);
}

uint32_t oam_age(uint32_t enable, uint32_t period)
{
    const NpOamTimedMsg msg = {enable, period};
    NpMsgTimedInfo info = {};
    const uint32_t code = Np_Tarn_CputrMsg_OamAgeTimedMsgInfoBuild(0, &msg, &info);
    return code != 0 ? code : Np_Tarn_CputrMsg_OamAgeTimedMsgInfoSet(0, &info);
}

uint32_t ipqam(uint32_t enable, uint32_t time, uint32_t session)
{
    const NpIpQamTimedMsg msg = {enable, time, session};
    NpMsgTimedInfo info = {};
    const uint32_t code = Np_Tarn_CputrMsg_IpqamTxTimedMsgInfoBuild(0, &msg, &info);
    return code != 0 ? code : Np_Tarn_CputrMsg_IpqamTxTimedMsgInfoSet(0, &info);
}

struct Timed {
    std::string what;
    std::function<uint32_t()> start, stop;
    std::vector<Numbers> channels;  // channel, period less one, options
    Numbers head;
    Bytes body;
};

std::vector<Timed> timed_messages()
{
    const Bytes four = {0, 0, 0, 0};
    std::vector<Timed> list = {
        {"ptp",
         [] { return Np_Tarn_CputrMsg_1588PtpPktMsgInfoSet(0, 1); },
         [] { return Np_Tarn_CputrMsg_1588PtpPktMsgInfoSet(0, 0); },
         {{252, 9, 1, 0}, {253, 9, 1, 0}, {254, 9999, 1, 0}, {255, 9999, 1, 0}},
         {0x20000000, 0},
         four},
        {"normal age 3",
         [] { return normal_age(1, 3); },
         [] { return normal_age(0, 3); },
         {{1, 9999, 0, 0}},
         {0x21000000, 511},
         {0, 0, 0, 0, 0, 0, 0xff, 0xff, 0, 0, 0, 0}},
        {"normal age 100",
         [] { return normal_age(1, 100); },
         [] { return normal_age(1, 0); },
         {{1, 9999, 0, 0}},
         {0x21000000, 511},
         {0, 0, 0, 0, 0, 0, 0xff, 0xff, 0, 0, 0, 25}},
        {"anti-dos",
         [] { return Np_Tarn_CputrMsg_AntiDosRefresh(0, 838); },
         [] { return Np_Tarn_CputrMsg_AntiDosRefresh(0, 0); },
         {{2, 8379999, 0, 0}},
         {0x22000000, 511},
         {0, 0, 0, 0, 0, 0, 0, 0}},
        {"car refresh",
         [] { return Np_CarRefresh_Msg(0, 1, 1000); },
         [] { return Np_CarRefresh_Msg(0, 0, 1000); },
         {{18, 9999, 0, 0}},
         {0x25000000, 0},
         four},
        {"car refresh, no period",
         [] { return Np_CarRefresh_Msg(0, 1, 7); },
         [] { return Np_CarRefresh_Msg(0, 1, 0); },
         {{18, 69, 0, 0}},
         {0x25000000, 0},
         four},
        {"ip-qam",
         [] { return ipqam(1, 100, 0x1234); },
         [] { return ipqam(0, 100, 0x1234); },
         {{17, 999, 0, 0}},
         {0x26000000, 0x123400ff},
         {0xe8, 0, 0, 0}},
    };
    const Numbers tx = {33, 100, 1000, 10000, 100000, 600000, 6000000};
    const Numbers age = {16, 50, 500, 5000, 50000, 300000, 3000000};
    for (uint32_t period = 1; period <= 7; period++) {
        const Bytes body = {static_cast<uint8_t>(period), 0, 0, 0};
        list.push_back({"oam tx",
                        [=] { return oam_tx(1, period); },
                        [=] { return oam_tx(0, period); },
                        {{period + 2, tx[period - 1] - 1, 0, 0}},
                        {0x24000000, (period - 1) << 16 | 127},
                        body});
        list.push_back({"oam age",
                        [=] { return oam_age(1, period); },
                        [=] { return oam_age(0, period); },
                        {{period + 9, age[period - 1] - 1, 0, 0}},
                        {0x23000000, 127},
                        body});
    }
    return list;
}

TEST_F(Messages, TimedMessagesAreStartedAndStopped)
{
    for (const Timed &each : timed_messages()) {
        SCOPED_TRACE(each.what);
        trace_errors(NP_M_CPUTRMSG);
        ASSERT_EQ(each.start(), NP_OK);
        std::vector<DriverTap::Call> calls = tap.take();
        ASSERT_EQ(calls.size(), 3 * each.channels.size());
        for (size_t i = 0; i < each.channels.size(); i++) {
            EXPECT_EQ(calls[3 * i].numbers, each.channels[i]);
            EXPECT_EQ(calls[3 * i].head, each.head);
            EXPECT_EQ(calls[3 * i].body, each.body);
            EXPECT_TRUE(is_on(each.channels[i][0]));
        }
        ASSERT_EQ(each.stop(), NP_OK);
        calls = tap.take();
        ASSERT_EQ(calls.size(), 2 * each.channels.size());
        for (size_t i = 0; i < each.channels.size(); i++) {
            EXPECT_THAT(calls[2 * i].numbers, ElementsAre(each.channels[i][0], 0));
            EXPECT_FALSE(is_on(each.channels[i][0]));
        }
        EXPECT_THAT(out.take(), testing::IsEmpty());
        // A driver's failure comes out unchanged, and leaves later channels alone.
        tap.fail(2, 0x33);
        EXPECT_EQ(each.start(), 0x33u);
        EXPECT_EQ(tap.take().size(), 2u);
        EXPECT_THAT(out.take(), HasSubstr("Func error return: 0x00000033 \r\n"));
    }
}

TEST_F(Messages, AgeClassStandsInTheGlobalRow)
{
    const std::vector<std::pair<uint32_t, uint32_t>> classes = {{1, 2}, {3, 4}, {4, 5}, {100, 5}};
    for (const auto &[time, age_class] : classes) {
        poke(0x60222200, 0xa7654321);
        ASSERT_EQ(normal_age(1, time), NP_OK);
        EXPECT_EQ(peek(0x60222200), 0x07654321 | age_class << 28) << time;
        const Bytes body = tap.take().end()[-3].body;
        EXPECT_EQ(body.at(11), time / 4);
    }
    poke(0x60222200, 0xa7654321);
    ASSERT_EQ(normal_age(0, 5), NP_OK);
    EXPECT_EQ(peek(0x60222200), 0xa7654321u) << "stopping leaves the row";
}

TEST_F(Messages, Refusals)
{
    struct Case {
        std::function<uint32_t()> call;
        uint32_t code;
        std::string text;
    };
    ArlAgeInfo age = {};
    NpMsgTimedInfo timed = {};
    const std::vector<Case> cases = {
        {[] { return Np_CarRefresh_Msg(0, 2, 1); }, NP_ERR_PARAM,
         "enable Para error: 0x00000002 \r\n"},
        {[] { return Np_Tarn_CputrMsg_AntiDosRefresh(0, 839); }, NP_ERR_PARAM,
         "param error! (ulAntiDosTime)=0x00000347\r\n"},
        {[] { return oam_tx(1, 0); }, NP_ERR_PARAM,
         "param error! pstOamTxTimedMsg->ulPeriod=0x00000000\r\n"},
        {[] { return oam_age(0, 8); }, NP_ERR_PARAM,
         "param error! pstOamAgeTimedMsg->ulPeriod=0x00000008\r\n"},
        {[] { return Np_Tarn_CputrMsg_AntiDosInfoSet(0, nullptr); }, NP_ERR_NULL_PTR, "Para null"},
        {[&] { return Np_Tarn_CputrMsg_NormalAgeInfoBuild(0, nullptr, &age); }, NP_ERR_NULL_PTR,
         "Para null ptr\r\n"},
        {[] { return Np_Tarn_CputrMsg_NormalAgeInfoSet(0, nullptr); }, NP_ERR_NULL_PTR, "Para n"},
        {[&] { return Np_Tarn_CputrMsg_ForceAgeInfoBuild(0, nullptr, &age); }, NP_ERR_NULL_PTR,
         "Para null ptr\r\n"},
        {[] { return Np_Tarn_CputrMsg_ForceAgeInfoSet(0, nullptr); }, NP_ERR_NULL_PTR, "Para nu"},
        {[&] { return Np_Tarn_CputrMsg_OamTxTimedMsgInfoBuild(0, nullptr, &timed); },
         NP_ERR_NULL_PTR, "Para null ptr\r\n"},
        {[] { return Np_Tarn_CputrMsg_OamTxTimedMsgInfoSet(0, nullptr); }, NP_ERR_NULL_PTR, "Para"},
        {[] { return Np_Tarn_CputrMsg_OamAgeTimedMsgInfoSet(0, nullptr); }, NP_ERR_NULL_PTR, "Pa"},
        {[] { return Np_Tarn_CputrMsg_IpqamTxTimedMsgInfoSet(0, nullptr); }, NP_ERR_NULL_PTR, "Pa"},
        {[] { return Np_Tarn_CputrMsg_DynamicArlLrnInfoSet(0, nullptr); }, NP_ERR_NULL_PTR, "Para"},
    };
    for (const Case &each : cases) {
        EXPECT_EQ(each.call(), each.code);
        EXPECT_THAT(out.take(), HasSubstr(each.text));
    }
    EXPECT_EQ(tap.take_names(), "");
}

// ---- messages sent once -------------------------------------------------------------------------

TEST_F(Messages, ForceAgeSelectsWhatTheBitmapSays)
{
    struct Case {
        uint32_t bitmap, id, head0, word0, word1;
    };
    // Header bits 9..8 class; word 0 mask and flow, word 1 VSI, VLAN and number 65535.
    const std::vector<Case> cases = {
        {0, 9, 0x04000000, 0, 0xffff},
        {1, 0x3ff, 0x04000000, 0x000103ff, 0xffff},
        {2, 0x1f, 0x04000000, 0x0001401f, 0xffff},
        {8, 0xff, 0x04000000, 0x000160ff, 0xffff},
        {32, 0x3ff, 0x04000000, 0x010003ff, 0xffff},
        {4, 0xabc, 0x04000000, 0x00040000, 0x0abcffff},
        {16, 0xf, 0x04000000, 0x00100000, 0xf000ffff},
        {64, 3, 0x04000300, 0x00400000, 0xffff},
        {2 | 8, 7, 0x04000000, 0x00014007, 0xffff},          // a bundle; bit 3 is dropped
        {1 | 4, 0x123, 0x04000000, 0x00050123, 0x0123ffff},  // one id in both places
        {32 | 4 | 16 | 64, 2, 0x04000200, 0x01540002, 0x2002ffff},
        {0xff, 1, 0x04000100, 0x00550001, 0x1001ffff},
    };
    for (const auto &[bitmap, id, head0, word0, word1] : cases) {
        SCOPED_TRACE(testing::Message() << std::hex << bitmap);
        const NpForceAge age = {bitmap, id};
        ArlAgeInfo info = {};
        ASSERT_EQ(Np_Tarn_CputrMsg_ForceAgeInfoBuild(0, &age, &info), NP_OK);
        ASSERT_EQ(Np_Tarn_CputrMsg_ForceAgeInfoSet(0, &info), NP_OK);
        const DriverTap::Call call = tap.take().at(0);
        EXPECT_EQ(call.name, "PacketSend");
        EXPECT_THAT(call.head, ElementsAre(head0, 511));
        Bytes body;
        for (const uint32_t word : {word0, word1}) {
            for (int bit = 24; bit >= 0; bit -= 8) {
                body.push_back(static_cast<uint8_t>(word >> bit));
            }
        }
        EXPECT_EQ(call.body, body);
    }
}

TEST_F(Messages, EveryFieldOfTheAgeRecordIsSent)
{
    // As a debug command may fill it: nothing leaks from one field into another.
    ArlAgeInfo info = {};
    info.msgtype = info.subtype = info.ack = info.class_ = info.interval = 0xffffffff;
    info.startsessionid = 0x10002;
    info.endsessionid = 0x30004;
    info.mask = info.flowid = info.vsi = info.vlanid = info.number = 0xffffffff;
    ASSERT_EQ(Np_Tarn_CputrMsg_ForceAgeInfoSet(0, &info), NP_OK);
    const DriverTap::Call call = tap.take().at(0);
    EXPECT_THAT(call.head, ElementsAre(0xff8003ff, 0x00020004));
    EXPECT_EQ(call.body, Bytes(8, 0xff));
}

TEST_F(Messages, DynamicLearnSendsTheItemReversed)
{
    uint8_t item[16];
    Bytes reversed;
    for (uint8_t i = 0; i < 16; i++) {
        item[i] = static_cast<uint8_t>(0x10 + i);
        reversed.insert(reversed.begin(), item[i]);
    }
    ASSERT_EQ(Np_Tarn_CputrMsg_DynamicArlLrnInfoSet(0, item), NP_OK);
    const DriverTap::Call call = tap.take().at(0);
    EXPECT_EQ(call.name, "PacketSend");
    EXPECT_THAT(call.head, ElementsAre(0x08000000, 0));
    EXPECT_EQ(call.body, reversed);
    EXPECT_EQ(call.data, item) << "in the caller's buffer";
    tap.fail(1, 0x45);
    EXPECT_EQ(Np_Tarn_CputrMsg_DynamicArlLrnInfoSet(0, item), 0x45u);
    EXPECT_THAT(out.take(), HasSubstr("Func error return: 0x00000045 \r\n"));
}

}  // namespace

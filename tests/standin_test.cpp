// The microcode's stand-in, spoken to in the bits of the wire; then the SDK and the stand-in as the
// two ends of the protocol.

#include "tests/fixture.h"

#include "sdk/cpuchan/message.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <random>

namespace ldsdk::test {

namespace {

using Bytes = std::vector<uint8_t>;
using Item = std::array<uint8_t, 16>;

constexpr uint32_t kMacItems = 0x60268000;
constexpr uint32_t kLanItems = 0x60260000;
constexpr uint32_t kLearnState = 0x60227b40;
constexpr uint32_t kCollision = 0x60222294;
constexpr uint32_t kFlowLimit = 0x60245000;
constexpr uint32_t kBundleLimit = 0x6024b400;
constexpr uint32_t kGlobalLimit = 0x60222288;
constexpr uint32_t kPortLimit = 0x6024b000;
constexpr uint32_t kLanLimit = 0x6024b100;
constexpr uint32_t kNoCredit = 0x80000000;

// What an entry of the MAC table says.
struct Mac {
    uint32_t type = 0;
    uint32_t svlan = 0;
    uint32_t vsi = 0;
    uint64_t address = 0;  // 48 bits
    uint32_t op = 0;
    uint32_t interface = 0;
    uint32_t class_id = 0;
    uint32_t ift = 0;
    uint32_t status = 5;
};

Item item_of(const Mac &mac)
{
    const auto high = static_cast<uint32_t>(mac.address >> 24);
    const auto low = static_cast<uint32_t>(mac.address & 0xffffff);
    const uint32_t words[4] = {
        (mac.ift & 0xfff) << 20,
        (mac.svlan & 0xf) << 28 | mac.vsi << 24 | mac.op << 17 | mac.interface << 4 |
            mac.class_id << 1 | mac.ift >> 12,
        low << 8 | mac.svlan >> 4,
        mac.status << 28 | mac.type << 24 | high,
    };
    Item item = {};
    for (size_t byte = 0; byte < 16; byte++) {
        item[byte] = static_cast<uint8_t>(words[byte / 4] >> byte % 4 * 8);
    }
    return item;
}

class StandIn : public Module {
  protected:
    StandIn()
    {
        // MAC and LAN MAC: 256 buckets of 16-byte items.
        declare(2, 0x34000, 8);
        declare(7, 0x30000, 8);
        for (uint32_t flow = 0; flow < 1024; flow++) {
            poke(kFlowLimit + 4 * flow, kNoCredit);
        }
        for (uint32_t bundle = 0; bundle < 32; bundle++) {
            poke(kBundleLimit + 4 * bundle, kNoCredit);
        }
        poke(kGlobalLimit, kNoCredit);
        poke(kLanLimit, kNoCredit);
    }

    static void declare(uint32_t tid, uint32_t base, uint32_t bucket_width)
    {
        const QdEmlBaseInfo where = {base, bucket_width};
        const QdEmlWidthInfo width = {1, {0, 0}};
        EXPECT_EQ(Qd_SMEM_EmlTableSet(0, 0, tid, 0, &where, &width), 0u);
    }
    static uint32_t send(uint32_t head0, uint32_t head1, const Bytes &data)
    {
        const QdCputrSendPkt packet = {
            {head0, head1}, static_cast<uint32_t>(data.size()), data.data()};
        return Qd_CPUTR_PacketSend(0, &packet);
    }
    static Bytes network(const std::vector<uint32_t> &words)
    {
        Bytes bytes;
        for (const uint32_t word : words) {
            for (int shift = 24; shift >= 0; shift -= 8) {
                bytes.push_back(static_cast<uint8_t>(word >> shift));
            }
        }
        return bytes;
    }
    // Asks for an entry and gives the state row.
    static uint32_t learn(const Mac &mac)
    {
        const Item item = item_of(mac);
        poke(kLearnState, 0);
        EXPECT_EQ(send(0x08000000, 0, Bytes(item.rbegin(), item.rend())), 0u);
        return peek(kLearnState);
    }
    static uint32_t status_at(uint32_t items, uint32_t number)
    {
        return peek(items + 16 * number + 12) >> 28;
    }
    // Builds an entry where the hash engine has it, whatever its status. Gives its number.
    static uint32_t build(uint32_t tid, const Mac &mac)
    {
        const Item item = item_of(mac);
        NpRbaReqCmd frame = {};
        frame.aucByte[2] = 8;
        frame.aucByte[3] = static_cast<uint8_t>(tid);
        frame.aucByte[4] = 0xb0;
        frame.aucByte[6] = 3;
        std::copy(item.begin(), item.end(), frame.aucByte + 12);
        NpRbaRspCmd answer = {};
        EXPECT_EQ(Qd_RBA_CommandSend(0, &frame, &answer), 0u);
        EXPECT_EQ(answer.aucByte[0], 4) << "not new";
        const uint32_t address =
            answer.aucByte[4] | answer.aucByte[5] << 8 | (answer.aucByte[6] & 0xf) << 16;
        return (address - (tid == 2 ? 0x34000 : 0x30000)) / 8;
    }
    static model::EmlResult find(const Mac &mac)
    {
        const Item item = item_of(mac);
        uint8_t key[9];
        for (size_t at = 0; at < 9; at++) {
            key[at] = static_cast<uint8_t>(item[6 + at] >> 4 | item[7 + at] << 4);
        }
        model::EmlResult result = {};
        EXPECT_EQ(model::lookup_eml(0, {0, 2, key, 9, nullptr}, &result), 0u);
        return result;
    }
    static model::StandinCounts counts()
    {
        model::StandinCounts result = {};
        EXPECT_EQ(model::standin_counts_get(0, &result), 0u);
        return result;
    }

    struct Received {
        uint32_t code;
        uint32_t info0, info1;
        Bytes data;
    };
    static Received receive()
    {
        Bytes buffer(10300);
        QdCputrRecvPkt packet = {};
        packet.ulBufLen = static_cast<uint32_t>(buffer.size());
        packet.pucData = buffer.data();
        const uint32_t code = Qd_CPUTR_PacketReceive(0, &packet);
        buffer.resize(packet.ulPktLen);
        return {code, packet.aulInfo[0], packet.aulInfo[1], buffer};
    }
};

// ---- packets ------------------------------------------------------------------------------------

TEST_F(StandIn, LoopsAPacketBackOnlyWhenTold)
{
    Bytes frame(64, 0x11);
    frame[12] = 0x81;
    frame[13] = 0x00;
    frame[14] = 0xe1;
    frame[15] = 0x23;
    ASSERT_EQ(send(0x030c0000, 0, frame), 0u);
    EXPECT_EQ(receive().code, model::kErrEmpty);
    model::standin_loop_set(0, true);

    // Into an input flow from port 0x155: it comes from there, with the tag that it carries.
    ASSERT_EQ(send(0x020c0042, 0x01550000, frame), 0u);
    Received got = receive();
    ASSERT_EQ(got.code, 0u);
    EXPECT_EQ(got.info1 >> 24, 0x60u) << "message type 3, subtype 0";
    EXPECT_EQ(got.info1 & 0x3ff, 0x155u);
    EXPECT_EQ(got.info1 >> 10 & 3, 1u) << "one tag";
    EXPECT_EQ(got.info0 >> 16 & 0xfff, 0x123u);
    EXPECT_EQ(got.info0 & 0xfff, 0x42u);
    EXPECT_EQ(got.info0 >> 12 & 0xf, 3u) << "one extension word";
    EXPECT_EQ(Bytes(got.data.begin(), got.data.begin() + 4), network({2u << 16}));
    EXPECT_EQ(Bytes(got.data.begin() + 4, got.data.end()), frame);

    // Into forwarding, on the VLAN and the flow of the header.
    ASSERT_EQ(send(0x010c0321, 0x07770000, frame), 0u);
    got = receive();
    EXPECT_EQ(got.info0 & 0x0fff0fff, 0x07770321u);

    EXPECT_EQ(counts().packets, 3u);
    EXPECT_EQ(counts().looped, 2u);
    // What it doesn't know, or what has stray bits, goes nowhere.
    ASSERT_EQ(send(0x060c0000, 0, frame), 0u);
    ASSERT_EQ(send(0x050c0000, 1, frame), 0u);
    EXPECT_EQ(counts().unknown, 2u);
    EXPECT_EQ(receive().code, model::kErrEmpty);
}

TEST_F(StandIn, SilentPacketsWaitUntilItIsBack)
{
    model::standin_set(0, false);
    model::standin_loop_set(0, true);
    for (uint32_t count = 0; count < 3; count++) {
        ASSERT_EQ(send(0x050c0000, 0, Bytes(60 + count)), 0u);
    }
    EXPECT_EQ(model::send_waiting(0), 3u);
    EXPECT_EQ(counts().packets, 0u);
    model::standin_set(0, true);
    EXPECT_EQ(model::send_waiting(0), 0u);
    for (uint32_t count = 0; count < 3; count++) {
        EXPECT_EQ(receive().data.size(), 64 + count) << "in their order";
    }
}

// ---- learning -----------------------------------------------------------------------------------

TEST_F(StandIn, LearnsAnEntryAndTellsIt)
{
    const Mac mac = {.svlan = 0xabc, .vsi = 3, .address = 0x0a1b2c3d4e5f, .interface = 17};
    EXPECT_EQ(learn(mac), 0x80000000u);
    const model::EmlResult found = find(mac);
    ASSERT_TRUE(found.hit);
    EXPECT_EQ(found.status, 5u);
    const Item item = item_of(mac);
    EXPECT_EQ(memory(kMacItems + 16 * found.item, 16), Bytes(item.begin(), item.end()));
    EXPECT_EQ(peek(kFlowLimit + 4 * 17), kNoCredit - 1) << "one credit taken";

    // Learned again behind another interface, it moves, and so does the credit.
    Mac moved = mac;
    moved.interface = 18;
    EXPECT_EQ(learn(moved), 0x80000000u);
    EXPECT_EQ(find(mac).item, found.item);
    EXPECT_EQ(peek(kFlowLimit + 4 * 17), kNoCredit);
    EXPECT_EQ(peek(kFlowLimit + 4 * 18), kNoCredit - 1);
    EXPECT_EQ(counts().learned, 2u);

    // A static entry stays as it is.
    poke(kMacItems + 16 * found.item + 12, peek(kMacItems + 16 * found.item + 12) | 15u << 28);
    EXPECT_EQ(learn(mac), 0xa0000000u);
    EXPECT_EQ(find(mac).status, 15u);
    EXPECT_EQ(counts().learn_refused, 1u);
}

TEST_F(StandIn, LearningEndsWhereBothHalvesAreFull)
{
    // Keys that share both halves with the first one fill them up.
    declare(2, 0x34000, 0);
    uint32_t state = 0;
    uint32_t learned = 0;
    Mac mac = {.address = 1};
    while ((state = learn(mac)) == 0x80000000 && learned < 20) {
        learned++;
        mac.address++;
    }
    EXPECT_EQ(learned, 8u);
    EXPECT_EQ(state, 0x90000000u) << "no room";
    const Item item = item_of(mac);
    EXPECT_EQ(memory(kCollision, 16), Bytes(item.begin(), item.end()));
    EXPECT_EQ(peek(kFlowLimit), kNoCredit - 8) << "the refused one took no credit";
}

TEST_F(StandIn, LimitsHoldOncePutUp)
{
    struct Case {
        uint32_t op, interface, counter;
    };
    for (const Case &row : {Case{0, 5, kFlowLimit + 4 * 5}, Case{2, 6, kBundleLimit + 4 * 6}}) {
        poke(row.counter, kNoCredit + 2);
        Mac mac = {.address = row.op * 16, .op = row.op, .interface = row.interface};
        EXPECT_EQ(learn(mac), 0x80000000u);
        mac.address++;
        EXPECT_EQ(learn(mac), 0x80000000u);
        mac.address++;
        EXPECT_EQ(learn(mac), 0xb0000000u) << "no credit";
        EXPECT_FALSE(find(mac).hit);
        poke(row.counter, kNoCredit + 1);
        EXPECT_EQ(learn(mac), 0x80000000u);
        EXPECT_EQ(peek(row.counter), kNoCredit);
    }
    // The limit of all counts when its switch is on; other kinds of entries have no other.
    poke(0x7a101a40, 1);
    poke(kGlobalLimit, kNoCredit + 1);
    EXPECT_EQ(learn({.address = 100, .op = 1}), 0x80000000u);
    EXPECT_EQ(learn({.address = 101, .op = 1}), 0xb0000000u);
    EXPECT_EQ(learn({.type = 15, .address = 102}), 0x80000000u) << "user MACs take none";
}

TEST_F(StandIn, LearningGivesUpOnATakenSemaphore)
{
    ASSERT_EQ(Qd_SMEM_EmlExcludeEnableSet(0, 0, 2, 1), 0u);
    ASSERT_EQ(model::eml_semaphore_hold(0, 0, 2, 1), 0u);
    EXPECT_EQ(learn({.address = 1}), 0xc0000000u) << "busy";
    EXPECT_EQ(learn({.address = 1}), 0x80000000u);
}

// ---- ageing -------------------------------------------------------------------------------------

Bytes age_body(uint32_t number, uint32_t threshold)
{
    return {0,
            0,
            0,
            0,
            0,
            0,
            static_cast<uint8_t>(number >> 8),
            static_cast<uint8_t>(number),
            static_cast<uint8_t>(threshold >> 24),
            static_cast<uint8_t>(threshold >> 16),
            static_cast<uint8_t>(threshold >> 8),
            static_cast<uint8_t>(threshold)};
}

TEST_F(StandIn, NormalAgeCountsDynamicEntriesDown)
{
    const uint32_t dynamic = build(2, {.address = 1, .interface = 9, .status = 3});
    const uint32_t fixed = build(2, {.address = 2, .status = 15});
    const uint32_t oldest = build(2, {.address = 3, .op = 2, .interface = 4, .status = 14});
    const uint32_t lan = build(7, {.svlan = 7, .address = 4, .interface = 12 << 8, .status = 2});
    poke(kPortLimit + 4 * 12, kNoCredit);
    // Once a second, with every second message a walk.
    ASSERT_EQ(Qd_CPUTR_AutoSendEnableSet(0, 1), 0u);
    const Bytes body = age_body(0xffff, 2);
    const QdCputrAutoInfo timing = {9999, 0, 0};
    const QdCputrSendPkt message = {{0x21000000, 511}, 12, body.data()};
    ASSERT_EQ(Qd_CPUTR_AutoSendInfoSet(0, 1, &timing, &message), 0u);
    ASSERT_EQ(Qd_CPUTR_AutoSendChannelEnableSet(0, 1, 1), 0u);

    const uint32_t expected[][3] = {{3, 14, 2}, {2, 13, 1}, {2, 13, 1}, {1, 12, 0},
                                    {1, 12, 0}, {0, 11, 0}, {0, 11, 0}};
    for (uint32_t second = 0; second < std::size(expected); second++) {
        model::advance(0, 10000);
        EXPECT_EQ(status_at(kMacItems, dynamic), expected[second][0]) << second;
        EXPECT_EQ(status_at(kMacItems, oldest), expected[second][1]) << second;
        EXPECT_EQ(status_at(kLanItems, lan), expected[second][2]) << second;
        EXPECT_EQ(status_at(kMacItems, fixed), 15u);
    }
    EXPECT_EQ(peek(kFlowLimit + 4 * 9), kNoCredit + 1) << "the credit is back";
    EXPECT_EQ(peek(kBundleLimit + 4 * 4), kNoCredit) << "it is still there";
    EXPECT_EQ(peek(kLanLimit), kNoCredit + 1);
    EXPECT_EQ(peek(kPortLimit + 4 * 12), kNoCredit + 1);
    EXPECT_EQ(counts().age_walks, 3u);
    EXPECT_EQ(counts().aged, 2u);
}

TEST_F(StandIn, AgeWalksTheBucketsThatItIsTold)
{
    // Entries that the hash puts in the first and the last buckets.
    std::map<uint32_t, Mac> by_bucket;
    for (uint64_t address = 0; address < 2000; address++) {
        const Mac mac = {.address = address, .status = 4};
        const model::EmlResult found = find(mac);
        ASSERT_FALSE(found.hit);
        const Item item = item_of(mac);
        uint8_t key[9];
        for (size_t at = 0; at < 9; at++) {
            key[at] = static_cast<uint8_t>(item[6 + at] >> 4 | item[7 + at] << 4);
        }
        uint32_t buckets[2];
        ASSERT_EQ(model::eml_buckets(0, 0, 2, key, 9, buckets), 0u);
        by_bucket.emplace(buckets[0], mac);
    }
    for (const uint32_t bucket : {0u, 1u, 254u, 255u}) {
        ASSERT_EQ(by_bucket.count(bucket), 1u);
        EXPECT_EQ(build(2, by_bucket[bucket]) / 8, bucket);
        EXPECT_EQ(build(7, by_bucket[bucket]) / 8, bucket);
    }
    const auto statuses = [&] {
        std::string text;
        for (const uint32_t items : {kMacItems, kLanItems}) {
            for (const uint32_t bucket : {0u, 1u, 254u, 255u}) {
                uint32_t status = 0;
                for (uint32_t item = 0; item < 8; item++) {
                    status += status_at(items, bucket * 8 + item);
                }
                text += std::to_string(status);
            }
        }
        return text;
    };
    const auto walk = [&](uint32_t first, uint32_t last, uint32_t number) {
        EXPECT_EQ(send(0x21000000, first << 16 | last, age_body(number, 0)), 0u);
        return statuses();
    };
    EXPECT_EQ(statuses(), "44444444");
    EXPECT_EQ(walk(0, 0, 0xffff), "34444444");
    EXPECT_EQ(walk(1, 254, 0xffff), "33344444");
    EXPECT_EQ(walk(255, 256, 0xffff), "33333444");
    EXPECT_EQ(walk(511, 0xffff, 0xffff), "33333443");
    EXPECT_EQ(walk(5, 4, 0xffff), "33333443");
    EXPECT_EQ(walk(0, 511, 3), "22233443") << "three entries at most";
    EXPECT_EQ(walk(0, 511, 0), "22233443");
}

TEST_F(StandIn, ForceAgeTakesOutWhatItSelects)
{
    const Mac base = {
        .svlan = 100, .vsi = 2, .interface = 30, .class_id = 1, .ift = 0x1030, .status = 5};
    std::vector<std::pair<std::string, Mac>> macs;
    const auto add = [&](const std::string &name, const std::function<void(Mac &)> &change) {
        Mac mac = base;
        mac.address = macs.size() + 1;
        change(mac);
        macs.emplace_back(name, mac);
    };
    add("base", [](Mac &) {});
    add("vlan", [](Mac &mac) { mac.svlan = 101; });
    add("vsi", [](Mac &mac) { mac.vsi = 3; });
    add("flow", [](Mac &mac) { mac.interface = 31; });
    add("bundle", [](Mac &mac) { mac.op = 2; });
    add("cm", [](Mac &mac) { mac.op = 3; });
    add("class", [](Mac &mac) { mac.class_id = 2; });
    add("ift", [](Mac &mac) { mac.ift = 0x30; });
    add("static", [](Mac &mac) { mac.status = 15; });
    add("mac only", [](Mac &mac) {
        mac.type = 6;  // no VLAN and no VSI in its key
        mac.svlan = 0;
        mac.vsi = 0;
    });
    struct Case {
        uint32_t class_bits, word0, word1;
        std::string gone;
    };
    // mask | flow, then vsi | vlan | number.
    const Case cases[] = {
        {0, 0x00000000, 0x0000ffff, "base vlan vsi flow bundle cm class ift mac only lan "},
        {0, 0x0001001e, 0x0000ffff, "base vlan vsi class ift mac only "},
        {0, 0x0001401e, 0x0000ffff, "bundle "},
        {0, 0x0001601e, 0x0000ffff, "cm "},
        {0, 0x01001030, 0x0000ffff, "base vlan vsi flow bundle cm class mac only "},
        {0, 0x00040000, 0x0065ffff, "vlan "},
        {0, 0x00040000, 0x0064ffff, "base vsi flow bundle cm class ift lan "},
        {0, 0x00100000, 0x3000ffff, "vsi "},
        {2, 0x00400000, 0x0000ffff, "class "},
        {1, 0x0055001e, 0x2064ffff, "base ift "},
        {0, 0x00000000, 0x00000000, ""},
    };
    for (const Case &row : cases) {
        SCOPED_TRACE(row.word0);
        declare(2, 0x34000, 8);
        for (uint32_t address = kLanItems; address < kMacItems + 0x8000; address += 4) {
            poke(address, 0);
        }
        std::vector<uint32_t> numbers;
        for (const auto &[name, mac] : macs) {
            numbers.push_back(build(2, mac));
        }
        const uint32_t lan = build(7, {.svlan = 100, .address = 99, .status = 1});
        ASSERT_EQ(send(0x04000000 | row.class_bits << 8, 511, network({row.word0, row.word1})), 0u);
        std::string gone;
        for (size_t at = 0; at < macs.size(); at++) {
            const uint32_t status = status_at(kMacItems, numbers[at]);
            EXPECT_TRUE(status == 0 || status == macs[at].second.status);
            gone += status == 0 ? macs[at].first + " " : "";
        }
        gone += status_at(kLanItems, lan) == 0 ? "lan " : "";
        EXPECT_EQ(gone, row.gone);
    }
}

// ---- heartbeat ----------------------------------------------------------------------------------

class Heartbeat : public StandIn {
  protected:
    // A read of 16 bytes of search memory; the answer in the order that a heartbeat has it.
    Heartbeat()
    {
        for (uint32_t word = 0; word < 4; word++) {
            poke(0x60245010 + 4 * word, 0x11111111 * (word + 1));
        }
        body = {0,          0x9c000000 | 2 << 16 | 0x0300,
                0x00122808, 0,
                0,          0,
                0,          0x44444444,
                0x33333333, 0x22222222,
                0x11111111};
    }
    // The block that comes back, as words; empty when nothing does.
    static std::vector<uint32_t> beat(const std::vector<uint32_t> &words)
    {
        EXPECT_EQ(send(0x27000000, 0x700, network(words)), 0u);
        const Received got = receive();
        if (got.code != 0) {
            return {};
        }
        EXPECT_EQ(got.data.size(), 60u);
        EXPECT_EQ(got.info1 >> 29, 3u);
        EXPECT_EQ(got.info1 >> 13 & 0x7ff, model::kHeartbeatPtype);
        EXPECT_EQ(Bytes(got.data.begin(), got.data.begin() + 16),
                  network({0x27000000, 0x700, 0, 0}));
        std::vector<uint32_t> answer;
        for (size_t at = 16; at + 4 <= got.data.size(); at += 4) {
            answer.push_back(got.data[at] | got.data[at + 1] << 8 | got.data[at + 2] << 16 |
                             static_cast<uint32_t>(got.data[at + 3]) << 24);
        }
        return answer;
    }

    std::vector<uint32_t> body;
};

TEST_F(Heartbeat, AnswersWithWhatItReadAndWhatDiffers)
{
    EXPECT_EQ(beat(body), body) << "all as expected";

    std::vector<uint32_t> wrong_data = body;
    wrong_data[9] ^= 1;
    std::vector<uint32_t> expected = body;
    expected[1] |= 1u << 24;
    EXPECT_EQ(beat(wrong_data), expected) << "the data differs, and the answer has the right one";
    wrong_data[1] &= ~(1u << 26);
    expected[1] &= ~(1u << 24 | 1u << 26);
    EXPECT_EQ(beat(wrong_data), expected) << "nobody asked about the data";

    std::vector<uint32_t> wrong_status = body;
    wrong_status[1] |= 5u << 20;
    const std::vector<uint32_t> answer = beat(wrong_status);
    ASSERT_EQ(answer.size(), 11u);
    EXPECT_EQ(answer[1], body[1] | 1u << 25) << "with the status that there was, 0";
    EXPECT_EQ(counts().heartbeats, 4u);
}

TEST_F(Heartbeat, AnswersDontPileUp)
{
    for (uint32_t count = 0; count < 100; count++) {
        ASSERT_EQ(send(0x27000000, 0x700, network(body)), 0u);
    }
    EXPECT_EQ(model::receive_waiting(0), 4u);
    EXPECT_EQ(counts().heartbeats_lost, 96u);
    while (receive().code == 0) {
    }
    EXPECT_EQ(beat(body), body);
    EXPECT_EQ(send(0x27000000, 0x700, Bytes(40)), 0u);
    EXPECT_EQ(counts().unknown, 1u) << "too short";
}

// ---- both ends ----------------------------------------------------------------------------------

class BothEnds : public ChipUp {
  protected:
    BothEnds()
    {
        model::standin_loop_set(0, true);
        EXPECT_EQ(Np_Tarn_CputrMsg_Init(0), 0u);
    }
    ~BothEnds() override
    {
        Np_Tarn_CputrMsg_Destruct(0);
    }

    // Value of a field of the packet that was sent last.
    static uint32_t sent(const std::string &name)
    {
        model::Packet packet = {};
        EXPECT_EQ(model::sent_get(0, model::sent_count(0) - 1, &packet), 0u);
        uint32_t value = 0xdead;
        EXPECT_TRUE(
            model::packet_field(packet.head, packet.data, packet.length, name.c_str(), &value))
            << name;
        EXPECT_TRUE(model::packet_clean(packet.head, packet.data, packet.length));
        return value;
    }

    std::mt19937 random{7};
    uint32_t below(uint32_t limit)
    {
        return random() % limit;
    }
};

TEST_F(BothEnds, EveryInsertArrivesAsItWasMeant)
{
    const NpPortID ports[] = {{6, 17, 0, 0}, {7, 66, 0, 0},  {14, 3, 63, 1},
                              {9, 0, 5, 1},  {13, 63, 0, 0}, {12, 1, 0, 0}};
    for (int round = 0; round < 3000; round++) {
        Bytes frame(1 + below(round % 100 == 0 ? 10240 : 200));
        std::generate(frame.begin(), frame.end(), [&] { return static_cast<uint8_t>(random()); });
        InfoForSend info = {};
        info.ulPktLen = static_cast<uint32_t>(frame.size());
        info.pucData = frame.data();
        info.ulSubType = std::array<uint32_t, 6>{0, 1, 2, 3, 5, 7}[below(6)];
        std::map<std::string, uint32_t> meant;
        auto &insert = info.unInsertPkt;
        switch (info.ulSubType) {
            case 0:
                insert.stInsertToQueue = {below(512), below(1024), 7, {}};
                insert.stInsertToQueue.unFrameInfo.stLoopBack.ulRsvd = below(1 << 24);
                meant = {{"queue", insert.stInsertToQueue.ulQID},
                         {"oft", insert.stInsertToQueue.ulOftID},
                         {"frame_info", insert.stInsertToQueue.unFrameInfo.stLoopBack.ulRsvd}};
                break;
            case 1: {
                NpInsertToFwd &fwd = insert.stInsertToFwd;
                fwd = {below(8), below(256), below(1024), below(16), below(4096), below(4),
                       below(4), below(2),   below(2),    below(2),  below(32),   below(8)};
                meant = {{"icos", fwd.ulIcos},
                         {"hs", fwd.ulHS},
                         {"vsi", fwd.ulVsi},
                         {"vlan", fwd.ulFwdVlan},
                         {"role", fwd.ulRole},
                         {"class", fwd.ulClass},
                         {"learn", fwd.ulLrnEnable},
                         {"pfe", fwd.ulPfeEnable},
                         {"bundled", fwd.ulBundleEnalbe}};
                if (fwd.ulBundleEnalbe != 0) {
                    meant["bundle"] = fwd.ulBundleID;
                    meant["pri"] = fwd.ulPri;
                }
                else {
                    meant["ift"] = fwd.ulIftID;
                }
                break;
            }
            case 2: {
                NpInsertToIft &ift = insert.stInsertToIft;
                ift = {below(8), ports[below(std::size(ports))], below(2), below(4), below(512),
                       below(4)};
                uint32_t phy = 0;
                ASSERT_EQ(Np_PortID2PhyID(0, &ift.stPortID, &phy), 0u);
                meant = {{"icos", ift.ulIcos}, {"phy", phy},           {"pfe", ift.ulPfEnable},
                         {"role", ift.ulRole}, {"user", ift.ulUserID}, {"class", ift.ulClass}};
                break;
            }
            case 3:
                insert.stInsertToOft = {below(8), below(1024)};
                meant = {{"icos", insert.stInsertToOft.ulIcos},
                         {"oft", insert.stInsertToOft.ulOftID}};
                break;
            case 5:
                insert.stInsertToCm = {below(256)};
                meant = {{"cm_group", insert.stInsertToCm.ulCmGroupID}};
                break;
            default:
                insert.stInsertToL2Encap = {below(8), below(32)};
                meant = {{"icos", insert.stInsertToL2Encap.ulIcos},
                         {"l2_encap", insert.stInsertToL2Encap.ulL2EncapID}};
                break;
        }
        meant["payload_offset"] = 12;
        ASSERT_EQ(Np_Cputr_PktSend(0, &info), 0u) << out.take();
        for (const auto &[name, value] : meant) {
            ASSERT_EQ(sent(name), value) << info.ulSubType << ' ' << name;
        }

        // And back: what the host receives is what it sent.
        Bytes buffer(10300);
        ::ReceiveInfo got = {};
        got.ulBufLen = static_cast<uint32_t>(buffer.size());
        got.pucData = buffer.data();
        ASSERT_EQ(Np_Cputr_PktReceive(0, &got), 0u) << out.take();
        buffer.resize(got.ulPktLen);
        ASSERT_EQ(buffer, frame);
        ASSERT_EQ(got.unRecInfo.stRecNormal.ulExtInfo, info.ulSubType);
        if (info.ulSubType == 2) {
            const NpPortID &port = insert.stInsertToIft.stPortID;
            ASSERT_EQ(got.stSportID.ulPortType, port.ulPortType);
            ASSERT_EQ(got.stSportID.ulPortID, port.ulPortID);
            ASSERT_EQ(got.stSportID.ulSubPortID, port.ulSubPortID);
            ASSERT_EQ(got.stSportID.ulPri, port.ulPri);
        }
    }
}

TEST_F(BothEnds, AnythingReceivedGivesACodeOrARecord)
{
    for (int round = 0; round < 4000; round++) {
        Bytes data(below(4) == 0 ? below(10241) : below(40));
        std::generate(data.begin(), data.end(), [&] { return static_cast<uint8_t>(random()); });
        const uint32_t head[2] = {(below(8) == 0 ? static_cast<uint32_t>(random()) : 3u << 29) |
                                      (static_cast<uint32_t>(random()) & 0x03ffffff),
                                  static_cast<uint32_t>(random())};
        ASSERT_EQ(
            model::receive_put(0, head, data.data(), static_cast<uint32_t>(data.size()), true), 0u);
        // The buffer has exactly the room that it says, so that a checker sees each stray access.
        const uint32_t room = below(2) == 0 ? 10300 : below(64);
        std::vector<uint8_t> buffer(room + 1);
        ::ReceiveInfo got = {};
        got.ulBufLen = room;
        got.pucData = buffer.data();
        const uint32_t code = Np_Cputr_PktReceive(0, &got);
        const uint32_t words = head[1] >> 12 & 0xf;
        if (head[0] >> 29 != 3 || words < 2 || words > 7) {
            ASSERT_NE(code, 0u);
        }
        else if (code == 0 && data.size() <= room && (words - 2) * 4 <= data.size()) {
            ASSERT_EQ(got.ulPktLen, data.size() - (words - 2) * 4);
            ASSERT_TRUE(std::equal(data.begin() + (words - 2) * 4, data.end(), buffer.begin()));
        }
        ASSERT_EQ(model::receive_waiting(0), 0u);
    }
    out.take();
}

TEST_F(BothEnds, MessagesArriveAsTheyWereMeant)
{
    const NpForceAge bundle = {0x0a, 7};  // bits 1 and 3: a bundle
    ArlAgeInfo age = {};
    ASSERT_EQ(Np_Tarn_CputrMsg_ForceAgeInfoBuild(0, &bundle, &age), 0u);
    ASSERT_EQ(Np_Tarn_CputrMsg_ForceAgeInfoSet(0, &age), 0u);
    EXPECT_EQ(sent("flow"), 0x4007u);
    EXPECT_EQ(sent("mask"), 1u);
    EXPECT_EQ(sent("number"), 65535u);
    EXPECT_EQ(sent("end"), 511u);

    // A timed message: what the channel holds is what its sender was told.
    const NpNormalAge normal = {1, 100};
    ASSERT_EQ(Np_Tarn_CputrMsg_NormalAgeInfoBuild(0, &normal, &age), 0u);
    ASSERT_EQ(Np_Tarn_CputrMsg_NormalAgeInfoSet(0, &age), 0u);
    model::AutoChannel channel = {};
    ASSERT_EQ(model::auto_channel_get(0, 1, &channel), 0u);
    EXPECT_EQ(channel.period, 10000u);
    uint32_t threshold = 0;
    ASSERT_TRUE(
        model::packet_field(channel.head, channel.body, channel.length, "threshold", &threshold));
    EXPECT_EQ(threshold, 25u);
    EXPECT_TRUE(model::packet_clean(channel.head, channel.body, channel.length));

    // An entry that was learned lives for the age that it was given: five counts of 25 seconds.
    Item item = item_of({.svlan = 5, .address = 0x001122334455, .status = 0});
    item[15] |= 0x50;
    ASSERT_EQ(Np_Tarn_CputrMsg_DynamicArlLrnInfoSet(0, item.data()), 0u);
    EXPECT_EQ(peek(kLearnState), 0x80000000u);
    model::StandinCounts counts = {};
    model::advance(0, 124 * 10000);
    model::standin_counts_get(0, &counts);
    EXPECT_EQ(counts.aged, 0u);
    model::advance(0, 10000);
    model::standin_counts_get(0, &counts);
    EXPECT_EQ(counts.aged, 1u);
}

}  // namespace

}  // namespace ldsdk::test

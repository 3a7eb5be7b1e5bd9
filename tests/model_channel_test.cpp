// The chip model's port numbers, packet channel, auto-send channels and statistics, at the driver's
// door.

#include "tests/model_support.h"

#include <algorithm>
#include <deque>
#include <map>
#include <random>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace ldsdk::model_test {

namespace {

using model::AutoChannel;
using model::StatBlock;
using Bytes = std::vector<uint8_t>;

// ---- ports --------------------------------------------------------------------------------------

// The port families: type, and how many ports, sub-ports and priorities each has.
constexpr uint32_t kFamilies[][4] = {
    {1, 2, 1, 1},   {2, 2, 1, 1},  {5, 4, 64, 1}, {6, 18, 128, 1}, {7, 67, 1, 1},  {8, 12, 256, 1},
    {9, 1, 128, 2}, {10, 1, 1, 1}, {11, 1, 1, 1}, {12, 2, 1, 1},   {13, 64, 1, 1}, {14, 4, 64, 2},
};

using ModelPort = std::tuple<uint32_t, uint32_t, uint32_t, uint32_t>;

std::vector<ModelPort> all_ports()
{
    std::vector<ModelPort> ports;
    for (const auto &[type, ids, subs, pris] : kFamilies) {
        for (uint32_t id = 0; id < ids; id++) {
            for (uint32_t sub = 0; sub < subs; sub++) {
                for (uint32_t pri = 0; pri < pris; pri++) {
                    ports.emplace_back(type, id, sub, pri);
                }
            }
        }
    }
    return ports;
}

class ModelPorts : public ModelTest {
  protected:
    static bool valid(uint32_t type, uint32_t id, uint32_t sub, uint32_t pri)
    {
        return Qd_GLB_PortParamCheck(0, type, id, sub, pri) == 0;
    }
    using Convert = uint32_t (*)(uint32_t, uint32_t, uint32_t *, uint32_t *, uint32_t *,
                                 uint32_t *);
    // The port of a number; none when there is none, and then nothing may be written.
    static std::vector<uint32_t> port_of(Convert convert, uint32_t phy)
    {
        std::vector<uint32_t> port(4, 0xabcd);
        if (convert(0, phy, &port[0], &port[1], &port[2], &port[3]) != 0) {
            EXPECT_EQ(port, std::vector<uint32_t>(4, 0xabcd));
            return {};
        }
        return port;
    }
};

TEST_F(ModelPorts, EveryValidPortHasOneIngressNumberAndBack)
{
    std::set<uint32_t> numbers;
    for (const auto &[type, id, sub, pri] : all_ports()) {
        uint32_t phy = 0;
        ASSERT_TRUE(valid(type, id, sub, pri)) << type << ' ' << id << ' ' << sub << ' ' << pri;
        ASSERT_EQ(0u, Qd_GLB_PortParamToIngressPhyID(0, type, id, sub, pri, &phy));
        ASSERT_TRUE(numbers.insert(phy).second) << phy;
        ASSERT_NE(1u, phy >> 6) << "the host numbers 64 to 127 itself";
        ASSERT_EQ((std::vector<uint32_t>{type, id, sub, pri}),
                  port_of(Qd_GLB_IngressPhyIDToPortParam, phy));
        // A packet header has ten bits, which have to name the right port.
        const auto low = port_of(Qd_GLB_IngressPhyIDToPortParam, phy & 0x3ff);
        ASSERT_EQ(4u, low.size());
        ASSERT_EQ((std::vector<uint32_t>{type, id, pri}),
                  (std::vector<uint32_t>{low[0], low[1], low[3]}));
    }
    // No other number has a port.
    for (uint32_t phy = 0; phy < 1u << 19; phy++) {
        ASSERT_EQ(numbers.count(phy) != 0, !port_of(Qd_GLB_IngressPhyIDToPortParam, phy).empty())
            << phy;
    }
    EXPECT_TRUE(port_of(Qd_GLB_IngressPhyIDToPortParam, 0xffffffff).empty());
}

TEST_F(ModelPorts, EgressCountsDown)
{
    for (const auto &[type, id, sub, pri] : all_ports()) {
        uint32_t phy = 0;
        ASSERT_EQ(0u, Qd_GLB_PortParamToIngressPhyID(0, type, id, sub, pri, &phy));
        ASSERT_EQ((std::vector<uint32_t>{type, id, sub, pri}),
                  port_of(Qd_GLB_EgressPhyIDToPortParam, phy ^ 0x3ff));
    }
    EXPECT_TRUE(port_of(Qd_GLB_EgressPhyIDToPortParam, 0xffffffff).empty());
}

TEST_F(ModelPorts, NothingBeyondTheLimitsIsAPort)
{
    std::map<uint32_t, const uint32_t *> families;
    for (const auto &family : kFamilies) {
        families[family[0]] = family;
    }
    uint32_t phy = 77;
    for (uint32_t type = 0; type < 20; type++) {
        if (families.count(type) == 0) {
            EXPECT_FALSE(valid(type, 0, 0, 0)) << type;
            EXPECT_NE(0u, Qd_GLB_PortParamToIngressPhyID(0, type, 0, 0, 0, &phy));
            continue;
        }
        const uint32_t *family = families[type];
        EXPECT_TRUE(valid(type, family[1] - 1, family[2] - 1, family[3] - 1)) << type;
        for (uint32_t past : {0u, 1u, 0x7fffffffu}) {
            EXPECT_FALSE(valid(type, family[1] + past, 0, 0)) << type;
            EXPECT_FALSE(valid(type, 0, family[2] + past, 0)) << type;
            EXPECT_FALSE(valid(type, 0, 0, family[3] + past)) << type;
        }
    }
    EXPECT_EQ(77u, phy);
}

// ---- packets ------------------------------------------------------------------------------------

class ModelChannel : public ModelTest {
  protected:
    void SetUp() override
    {
        ModelTest::SetUp();
        model::standin_set(0, false);
    }

    static uint32_t send(uint32_t head0, uint32_t head1, const Bytes &data)
    {
        const QdCputrSendPkt packet = {
            {head0, head1}, static_cast<uint32_t>(data.size()), data.data()};
        return Qd_CPUTR_PacketSend(0, &packet);
    }
    static uint32_t put(uint32_t head0, uint32_t head1, const Bytes &data, bool high = false)
    {
        const uint32_t head[2] = {head0, head1};
        return model::receive_put(0, head, data.data(), static_cast<uint32_t>(data.size()), high);
    }
    static Bytes random_bytes(std::mt19937 &random, uint32_t most)
    {
        Bytes bytes(random() % (most + 1));
        std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<uint8_t>(random()); });
        return bytes;
    }
    static uint32_t stat(uint32_t word)
    {
        QdCputrRecvStat record = {};
        EXPECT_EQ(0u, Qd_CPUTR_PacketRecvStatGet(0, &record));
        return record.aulWord[word];
    }

    struct Received {
        uint32_t code;
        uint32_t info0, info1;
        uint32_t length;
        Bytes buffer;
    };
    static Received receive(uint32_t room = 10300)
    {
        Received got = {};
        got.buffer.assign(room + 1, 0xee);
        QdCputrRecvPkt packet = {};
        packet.ulBufLen = room;
        packet.pucData = got.buffer.data();
        got.code = Qd_CPUTR_PacketReceive(0, &packet);
        got.info0 = packet.aulInfo[0];
        got.info1 = packet.aulInfo[1];
        got.length = packet.ulPktLen;
        EXPECT_EQ(0xee, got.buffer[room]) << "written past the buffer";
        got.buffer.resize(std::min(room, got.length));
        return got;
    }
};

// A reference for both queues: what waits, in order. The model's may refuse, but never while three
// quarters of its bytes are free, and must not lose or change anything.
TEST_F(ModelChannel, QueuesKeepEveryPacketTheyTook)
{
    struct Kept {
        uint32_t head0, head1;
        Bytes data;
        bool operator==(const Kept &) const = default;
    };
    std::mt19937 random(5);
    std::deque<Kept> sent, received, history;
    size_t sent_bytes = 0;
    uint32_t refusals = 0;
    for (int step = 0; step < 20000; step++) {
        const uint32_t mode = random() % 1000 < 30 ? 10240 : 300;
        const Kept packet = {static_cast<uint32_t>(random()), static_cast<uint32_t>(random()),
                             random_bytes(random, mode)};
        switch (random() % 4 + (step / 2000 % 2)) {  // more in, then more out
            case 0:
            case 1:
                if (send(packet.head0, packet.head1, packet.data) == 0) {
                    sent.push_back(packet);
                    history.push_back(packet);
                    sent_bytes += packet.data.size();
                }
                else {
                    refusals++;
                    ASSERT_TRUE(sent.size() == model::kSendPackets ||
                                sent_bytes + 2 * model::kPacketBytes > model::kSendBytes);
                }
                break;
            case 2:
                if (put(packet.head0, packet.head1, packet.data, true) == 0) {
                    received.push_back(packet);
                }
                else {
                    refusals++;
                }
                break;
            case 3: {
                const Received got = receive();
                ASSERT_EQ(got.code, received.empty() ? model::kErrEmpty : model::kOk);
                if (!received.empty()) {
                    ASSERT_EQ(received.front(), (Kept{got.info1, got.info0, got.buffer}));
                    received.pop_front();
                }
                break;
            }
            case 4: {
                model::Packet got = {};
                ASSERT_EQ(model::send_take(0, &got), sent.empty() ? model::kErrEmpty : model::kOk);
                if (!sent.empty()) {
                    ASSERT_EQ(sent.front(), (Kept{got.head[0], got.head[1],
                                                  Bytes(got.data, got.data + got.length)}));
                    sent_bytes -= sent.front().data.size();
                    sent.pop_front();
                }
                break;
            }
        }
        ASSERT_EQ(sent.size(), model::send_waiting(0));
        ASSERT_EQ(received.size(), model::receive_waiting(0));
    }
    EXPECT_GT(refusals, 100u) << "the queues were never full";
    // What is remembered are the newest packets, oldest first.
    const uint32_t held = model::sent_count(0);
    ASSERT_EQ(history.size(), held + model::sent_lost(0));
    ASSERT_GE(held, sent.size());
    for (uint32_t index = 0; index < held; index++) {
        model::Packet got = {};
        ASSERT_EQ(0u, model::sent_get(0, index, &got));
        ASSERT_EQ(history[history.size() - held + index],
                  (Kept{got.head[0], got.head[1], Bytes(got.data, got.data + got.length)}));
    }
}

TEST_F(ModelChannel, AFullQueueSaysSoAndCounts)
{
    const Bytes small(60, 0x5a);
    for (uint32_t count = 0; count < model::kSendPackets; count++) {
        ASSERT_EQ(0u, send(count, 0, small));
    }
    EXPECT_EQ(model::kErrFull, send(999, 0, small));
    EXPECT_EQ(model::kSendPackets, model::send_waiting(0));

    // The low priority leaves a quarter to the high one.
    uint32_t low = 0;
    while (put(3u << 29, 2u << 12, small) == 0) {
        low++;
    }
    uint32_t high = 0;
    while (put(3u << 29, 2u << 12, small, true) == 0) {
        high++;
    }
    EXPECT_EQ(model::kReceivePackets / 4 * 3, low);
    EXPECT_EQ(model::kReceivePackets, low + high);
    EXPECT_EQ(model::kErrFull, put(3u << 29, 2u << 12, small));
    EXPECT_EQ(1u, stat(4)) << "drops of the high queue";
    EXPECT_EQ(2u, stat(5)) << "drops of the low queue";
    EXPECT_EQ(0u, receive().code);
    EXPECT_EQ(0u, put(3u << 29, 2u << 12, small, true));
}

TEST_F(ModelChannel, ReceiveNeverWritesPastTheBufferAndTellsTheWholeLength)
{
    Bytes data(300);
    for (size_t at = 0; at < data.size(); at++) {
        data[at] = static_cast<uint8_t>(at);
    }
    for (const uint32_t room : {0u, 1u, 255u, 299u, 300u, 301u}) {
        ASSERT_EQ(0u, put(0x60002004, 0x12342056, data));
        const Received got = receive(room);
        EXPECT_EQ(0u, got.code);
        EXPECT_EQ(0x60002004u, got.info1);
        EXPECT_EQ(0x12342056u, got.info0);
        EXPECT_EQ(300u, got.length);
        EXPECT_EQ(Bytes(data.begin(), data.begin() + std::min(room, 300u)), got.buffer);
    }
    EXPECT_EQ(model::kErrEmpty, receive().code);
}

TEST_F(ModelChannel, RefusesWhatItCannotTake)
{
    const QdCputrSendPkt no_data = {{0, 0}, 1, nullptr};
    const QdCputrSendPkt nothing = {{0, 0}, 0, nullptr};
    QdCputrRecvPkt no_buffer = {};
    EXPECT_EQ(model::kErrNull, Qd_CPUTR_PacketSend(0, nullptr));
    EXPECT_EQ(model::kErrNull, Qd_CPUTR_PacketSend(0, &no_data));
    EXPECT_EQ(model::kErrNoChip, Qd_CPUTR_PacketSend(1, &nothing));
    EXPECT_EQ(model::kErrParam, send(0, 0, Bytes(10241)));
    EXPECT_EQ(model::kErrNull, Qd_CPUTR_PacketReceive(0, nullptr));
    EXPECT_EQ(model::kErrNull, Qd_CPUTR_PacketReceive(0, &no_buffer));
    EXPECT_EQ(0u, model::send_waiting(0));
    EXPECT_EQ(0u, send(0, 0, Bytes(10240)));

    ASSERT_TRUE(
        model::faults_set("Qd_CPUTR_PacketSend code=0x123; Qd_CPUTR_PacketReceive", nullptr));
    ASSERT_EQ(0u, put(3u << 29, 2u << 12, Bytes(60)));
    EXPECT_EQ(0x123u, send(0, 0, Bytes(60)));
    EXPECT_EQ(model::kErrFault, receive().code);
    EXPECT_EQ(1u, model::send_waiting(0));
    EXPECT_EQ(0u, receive().code) << "a call that failed took nothing";
}

// ---- auto-send ----------------------------------------------------------------------------------

class ModelAutoSend : public ModelChannel {
  protected:
    void SetUp() override
    {
        ModelChannel::SetUp();
        ASSERT_EQ(0u, Qd_CPUTR_AutoSendEnableSet(0, 1));
    }

    static uint32_t program(uint32_t channel, uint32_t period, const Bytes &body,
                            uint32_t head0 = 1u << 29)
    {
        const QdCputrAutoInfo info = {period - 1, 0, 0};
        const QdCputrSendPkt packet = {{head0, 5}, static_cast<uint32_t>(body.size()), body.data()};
        return Qd_CPUTR_AutoSendInfoSet(0, channel, &info, &packet);
    }
    static AutoChannel state(uint32_t channel)
    {
        AutoChannel result = {};
        EXPECT_EQ(0u, model::auto_channel_get(0, channel, &result));
        return result;
    }
};

TEST_F(ModelAutoSend, FiresEachPeriodHoweverTheClockMoves)
{
    const uint32_t periods[] = {1, 16, 33, 100, 1000, 10000};
    for (uint32_t channel = 0; channel < std::size(periods); channel++) {
        ASSERT_EQ(0u, program(channel * 51, periods[channel], {}));
        ASSERT_EQ(0u, Qd_CPUTR_AutoSendChannelEnableSet(0, channel * 51, 1));
    }
    std::mt19937 random(1);
    uint64_t now = 0;
    while (now < 50000) {
        const uint64_t step = random() % 700;
        model::advance(0, step);
        now += step;
        for (uint32_t channel = 0; channel < std::size(periods); channel++) {
            ASSERT_EQ(now / periods[channel], state(channel * 51).count)
                << "period " << periods[channel] << " at " << now;
        }
    }
    ASSERT_EQ(0u, Qd_CPUTR_AutoSendStatClear(0, 51));
    EXPECT_EQ(0u, state(51).count);
    EXPECT_EQ(now / 33, state(102).count);
}

TEST_F(ModelAutoSend, KeepsACopyOfTheMessageAsItWasWritten)
{
    Bytes body(44);
    for (size_t at = 0; at < body.size(); at++) {
        body[at] = static_cast<uint8_t>(at + 1);
    }
    const Bytes written = body;
    ASSERT_EQ(0u, program(19, 10000, body, 0x27000000));
    std::fill(body.begin(), body.end(), 0);
    const AutoChannel channel = state(19);
    EXPECT_EQ(written, Bytes(channel.body, channel.body + channel.length));
    EXPECT_EQ(0x27000000u, channel.head[0]);
    EXPECT_EQ(5u, channel.head[1]);
    EXPECT_EQ(10000u, channel.period);
    EXPECT_TRUE(channel.set);
    EXPECT_FALSE(channel.on);
}

TEST_F(ModelAutoSend, SwitchesOnAndOff)
{
    EXPECT_EQ(0x9a000031u, Qd_CPUTR_AutoSendChannelEnableSet(0, 7, 1)) << "no message";
    ASSERT_EQ(0u, program(7, 10, {}));
    model::advance(0, 100);
    EXPECT_EQ(0u, state(7).count) << "programmed, not started";
    ASSERT_EQ(0u, Qd_CPUTR_AutoSendChannelEnableSet(0, 7, 1));
    model::advance(0, 9);
    EXPECT_EQ(0u, state(7).count);
    model::advance(0, 1);
    EXPECT_EQ(1u, state(7).count);

    ASSERT_EQ(0u, Qd_CPUTR_AutoSendEnableSet(0, 0));
    model::advance(0, 1000);
    EXPECT_EQ(1u, state(7).count) << "the engine is off";
    EXPECT_TRUE(state(7).on) << "and leaves the channels as they are";
    ASSERT_EQ(0u, Qd_CPUTR_AutoSendEnableSet(0, 1));
    model::advance(0, 10);
    EXPECT_EQ(2u, state(7).count);

    ASSERT_EQ(0u, Qd_CPUTR_AutoSendChannelEnableSet(0, 7, 0));
    model::advance(0, 100);
    EXPECT_EQ(2u, state(7).count);
    ASSERT_EQ(0u, Qd_CPUTR_AutoSendInfoDel(0, 7));
    EXPECT_FALSE(state(7).set);

    EXPECT_EQ(0x9a000030u, program(256, 10, {}));
    EXPECT_EQ(0x9a000030u, program(7, 10, Bytes(model::kAutoBodyBytes + 1)));
    EXPECT_EQ(0x9a000031u, Qd_CPUTR_AutoSendChannelEnableSet(0, 256, 0));
    EXPECT_EQ(0x9a000032u, Qd_CPUTR_AutoSendInfoDel(0, 256));
    EXPECT_EQ(0x9a000033u, Qd_CPUTR_AutoSendStatClear(0, 256));
}

TEST_F(ModelAutoSend, AnEndlessMoveOfTheClockEnds)
{
    ASSERT_EQ(0u, program(0, 1, {}));
    ASSERT_EQ(0u, Qd_CPUTR_AutoSendChannelEnableSet(0, 0, 1));
    model::advance(0, 1ull << 62);
    EXPECT_EQ(model::kAutoBurst, state(0).count);
    model::advance(0, 1);
    EXPECT_EQ(model::kAutoBurst + 1, state(0).count) << "the channel goes on";
    static uint32_t looks;
    looks = 0;
    model::pace_set([] { return ++looks < 3; });
    model::advance(0, 1ull << 62);
    model::pace_set(nullptr);
    EXPECT_THAT(state(0).count - model::kAutoBurst,
                testing::AllOf(testing::Ge(3u), testing::Lt(100u)))
        << "cut short";
    EXPECT_EQ((2ull << 62) + 1, model::clock_now(0)) << "with the clock where it should be";
}

// ---- decoding -----------------------------------------------------------------------------------

// Headers worked out by hand: all bits of one field set, everything else as it has to be.
struct Decoded {
    const char *name;
    uint32_t head0, head1;
    const char *field;
    uint32_t value;
};

TEST_F(ModelChannel, DecodesEachFieldFromItsBits)
{
    const Decoded cases[] = {
        {"queue", 0x000cfff0, 0, "oft", 0xfff},
        {"queue", 0x000c000a, 0xbc000000, "queue", 0xabc},
        {"queue", 0x000c0000, 0x00ffffff, "frame_info", 0xffffff},
        {"fwd", 0x010ce000, 0, "icos", 7},
        {"fwd", 0x010c1fff, 0, "ift", 0x1fff},
        {"fwd", 0x010c03ff, 2, "bundle", 0x3ff},
        {"fwd", 0x010c1c00, 2, "pri", 7},
        {"fwd", 0x010c0000, 0xf0000000, "vsi", 15},
        {"fwd", 0x010c0000, 0x0fff0000, "vlan", 0xfff},
        {"fwd", 0x010c0000, 0x0000ff00, "hs", 0xff},
        {"fwd", 0x010c0000, 0x000000c0, "role", 3},
        {"fwd", 0x010c0000, 0x00000030, "class", 3},
        {"fwd", 0x010c0000, 0x00000008, "learn", 1},
        {"fwd", 0x010c0000, 0x00000004, "pfe", 1},
        {"ift", 0x020ce000, 0, "icos", 7},
        {"ift", 0x020c1000, 0, "pfe", 1},
        {"ift", 0x020c0c00, 0, "class", 3},
        {"ift", 0x020c01ff, 0, "user", 0x1ff},
        {"ift", 0x020c0000, 0x03ff0000, "phy", 0x3ff},
        {"ift", 0x020c0000, 0x0000c000, "role", 3},
        {"oft", 0x030c1fff, 0, "oft", 0x1fff},
        {"cm", 0x050c01ff, 0, "cm_group", 0x1ff},
        {"eport", 0x070c1fff, 0, "l2_encap", 0x1fff},
        {"oam transmit", 0x24000000, 0xffff0000, "start", 0xffff},
        {"oam transmit", 0x24000000, 0x0000ffff, "end", 0xffff},
        {"heartbeat", 0x27000000, 0x00ffff00, "queue_id", 0xffff},
    };
    for (const Decoded &row : cases) {
        SCOPED_TRACE(std::string(row.name) + " " + row.field);
        const uint32_t head[2] = {row.head0, row.head1};
        ASSERT_STREQ(row.name, model::packet_name(head));
        uint32_t value = 0;
        ASSERT_TRUE(model::packet_field(head, nullptr, 0, row.field, &value));
        EXPECT_EQ(row.value, value);
        char text[512];
        model::packet_format(head, nullptr, 0, text, sizeof text);
        EXPECT_NE(nullptr, strstr(text, (row.field + ("=" + std::to_string(value))).c_str()))
            << text;
    }
}

TEST_F(ModelChannel, SeesStrayBits)
{
    const Bytes body(4);
    // Bits that are free in a header: one of each kind of packet and of a timed message.
    const struct {
        uint32_t head[2];
        uint32_t free[2];
    } cases[] = {
        {{0x000c0000, 0}, {0, 0}},
        {{0x010c0000, 0}, {0, 0x00000001}},
        {{0x020c0000, 0}, {0x00000200, 0xfc003fff}},
        {{0x030c0000, 0}, {0, 0xffffffff}},
        {{0x050c0000, 0}, {0x0000fe00, 0xffffffff}},
        {{0x070c0000, 0}, {0, 0xffffffff}},
        {{0x25000000, 0}, {0x007fff00, 0}},
    };
    for (const auto &row : cases) {
        ASSERT_TRUE(model::packet_clean(row.head, body.data(), 4)) << std::hex << row.head[0];
        for (uint32_t bit = 0; bit < 64; bit++) {
            uint32_t head[2] = {row.head[0], row.head[1]};
            head[bit / 32] ^= 1u << bit % 32;
            if (bit % 32 >= 16 && bit < 32 && row.head[0] >> 29 == 0) {
                continue;  // kind and payload offset
            }
            if (bit >= 24 && bit < 32) {
                continue;
            }
            EXPECT_EQ((row.free[bit / 32] >> bit % 32 & 1) == 0,
                      model::packet_clean(head, body.data(), 4))
                << std::hex << row.head[0] << " bit " << std::dec << bit;
        }
    }
    for (const uint32_t head0 : {0x06000000u, 0x09000000u, 0x28000000u, 0x40000000u, 0xff000000u}) {
        const uint32_t head[2] = {head0, 0};
        EXPECT_EQ(nullptr, model::packet_name(head)) << std::hex << head0;
        EXPECT_FALSE(model::packet_clean(head, body.data(), 4));
    }
}

// ---- statistics ---------------------------------------------------------------------------------

TEST_F(ModelChannel, StatisticsAreReadClearedAndApart)
{
    using Get = uint32_t (*)(uint32_t, uint32_t, uint32_t *);
    using Clear = uint32_t (*)(uint32_t, uint32_t);
    const struct {
        StatBlock block;
        uint32_t num;
        Get get;
        Clear clear;
    } blocks[] = {
        {StatBlock::kPqm, 4, Qd_PQM_StatInfoGet, Qd_PQM_StatInfoClear},
        {StatBlock::kOe, 32, Qd_OE_StatGet, Qd_OE_StatClear},
        {StatBlock::kMcc, 32, Qd_MCC_StatGet, Qd_MCC_StatClear},
        {StatBlock::kPe, 32, Qd_PE_StatGet, Qd_PE_StatClear},
    };
    uint32_t mark = 1000;
    for (const auto &row : blocks) {
        for (uint32_t index = 0; index < row.num; index++) {
            ASSERT_EQ(0u, model::stat_set(0, row.block, index, mark++));
        }
        EXPECT_EQ(model::kErrParam, model::stat_set(0, row.block, row.num, 1));
    }
    mark = 1000;
    for (const auto &row : blocks) {
        for (uint32_t index = 0; index < row.num; index++, mark++) {
            uint32_t value = 0;
            ASSERT_EQ(0u, row.get(0, index, &value));
            EXPECT_EQ(mark, value);
            if (index == 1) {
                ASSERT_EQ(0u, row.clear(0, index));
                ASSERT_EQ(0u, row.get(0, index, &value));
                EXPECT_EQ(0u, value);
            }
        }
        EXPECT_EQ(model::kErrParam, row.clear(0, row.num));
        EXPECT_EQ(model::kErrNull, row.get(0, 0, nullptr));
    }
    QdCrStat cr = {};
    ASSERT_EQ(0u, model::stat_set(0, StatBlock::kCr, 33, 0xc0de));
    ASSERT_EQ(0u, Qd_CR_StatGet(0, &cr));
    EXPECT_EQ(0xc0deu, cr.aulWord[33]);
    ASSERT_EQ(0u, model::stat_set(0, StatBlock::kReceive, 4, 44));
    EXPECT_EQ(44u, stat(4));
}

TEST_F(ModelChannel, OrderEngineGivesUpOverduePacketsOneByOne)
{
    uint32_t value = 9;
    ASSERT_EQ(0u, Qd_OE_OrderFlowTimeoutDetectEnableGet(0, &value));
    EXPECT_EQ(0u, value);
    ASSERT_EQ(0u, Qd_OE_OrderFlowTimeoutDetectEnableSet(0, 1));
    ASSERT_EQ(0u, Qd_OE_OrderFlowTimeoutDetectEnableGet(0, &value));
    EXPECT_EQ(1u, value);
    ASSERT_EQ(0u, model::order_period_set(0, 1234));
    ASSERT_EQ(0u, Qd_OE_OrderFlowTimeoutDetectPeriodGet(0, &value));
    EXPECT_EQ(1234u, value);

    uint32_t packet = 9;
    ASSERT_EQ(0u, Qd_OE_TimeoutFifoHeadPktIdGet(0, &value, &packet));
    EXPECT_EQ(0u, value);
    ASSERT_EQ(0u, model::order_timeout_put(0, 71));
    ASSERT_EQ(0u, model::order_timeout_put(0, 72));
    EXPECT_EQ(0x10u, peek(0x78200004)) << "status bit 4 rises";
    EXPECT_EQ(model::kErrParam, Qd_OE_TimeoutFifoHeadPktFlush(0, 72)) << "not at the head";
    for (const uint32_t expected : {71u, 72u}) {
        ASSERT_EQ(0u, Qd_OE_TimeoutFifoHeadPktIdGet(0, &value, &packet));
        EXPECT_EQ(1u, value);
        EXPECT_EQ(expected, packet);
        EXPECT_EQ(0u, Qd_OE_TimeoutFifoHeadPktFlush(0, packet));
    }
    EXPECT_EQ(model::kErrParam, Qd_OE_TimeoutFifoHeadPktFlush(0, 72));
    ASSERT_EQ(0u, Qd_OE_StatGet(0, 1, &value));
    EXPECT_EQ(2u, value) << "both counted as time-out drops";
}

TEST_F(ModelChannel, APowerCycleEmptiesEverything)
{
    send(0x010c0000, 0, Bytes(60));
    put(3u << 29, 2u << 12, Bytes(60));
    model::stat_set(0, StatBlock::kPe, 14, 5);
    ASSERT_EQ(0u, model::attach(0));
    EXPECT_EQ(0u, model::send_waiting(0));
    EXPECT_EQ(0u, model::sent_count(0));
    EXPECT_EQ(model::kErrEmpty, receive().code);
    uint32_t value = 9;
    Qd_PE_StatGet(0, 14, &value);
    EXPECT_EQ(0u, value);
    EXPECT_FALSE(model::auto_send_enabled(0));
    send(0x010c0000, 0, Bytes(60));
    EXPECT_EQ(0u, model::send_waiting(0)) << "the stand-in is back";
}

}  // namespace

}  // namespace ldsdk::model_test

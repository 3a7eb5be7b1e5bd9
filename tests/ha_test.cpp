// Match rules of the pre-classifier: the rule records of every kind, the packets that meet them,
// what is refused, and what a failing driver leaves behind.

#include "sdk/tables/ha.h"
#include "host/ha_view.h"
#include "platform/driver.h"
#include "tests/rows.h"

namespace ldsdk::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr uint32_t kCode = 0x9a00001e;
uint32_t g_recorded;

// A rule as the documents have it: number, sub table, inner id, its links by fields, values and
// masks, and the rest of the record.
struct Link {
    uint8_t field[2];
    uint32_t value[2];
    uint32_t mask[2] = {0, 0};
    uint8_t mode = 0;
};
struct Ports {
    uint8_t type = 0;
    uint32_t max[3] = {0, 0, 0};
};
struct Place {
    uint32_t number;
    uint8_t sub;
    uint8_t inner;
    Ports ports = {};
};
struct Rest {
    uint8_t info;
    uint8_t queue = 3;
    uint8_t enable = 0;
};

constexpr Ports kXdsl = {14, {3, 63, 1}};
constexpr Ports kBonding = {13, {63, 0, 0}};
constexpr Ports kFe = {7, {23, 0, 0}};
constexpr Ports kXaui = {9};

Bytes record_of(const Place &place, const std::vector<Link> &links, const Rest &rest)
{
    Bytes bytes(128);
    const auto put = [&](size_t at, uint32_t word) { std::memcpy(&bytes[at], &word, 4); };
    for (size_t i = 0; i < links.size(); i++) {
        bytes[24 * i] = static_cast<uint8_t>(place.inner + i);
        bytes[24 * i + 4] = links[i].field[0];
        bytes[24 * i + 5] = links[i].field[1];
        bytes[24 * i + 6] = links[i].mode;
        for (size_t k = 0; k < 2; k++) {
            put(24 * i + 8 + 4 * k, links[i].value[k]);
            put(24 * i + 16 + 4 * k, links[i].mask[k]);
        }
    }
    const uint8_t mode = place.ports.type != 0 ? 2 : 0;
    const uint8_t tail[] = {static_cast<uint8_t>(links.size()),
                            place.sub,
                            3,
                            rest.queue,
                            rest.info,
                            mode,
                            place.ports.type,
                            rest.enable};
    std::copy(std::begin(tail), std::end(tail), bytes.begin() + 96);
    for (size_t k = 0; k < 3; k++) {
        put(116 + 4 * k, place.ports.max[k]);
    }
    return bytes;
}

Bytes rule_at(uint32_t number)
{
    QdHaMatchRule rule = {};
    Bytes bytes;
    if (model::ha_rule_get(0, number, &rule) == model::kOk) {
        bytes.resize(sizeof(rule));
        std::memcpy(bytes.data(), &rule, sizeof(rule));
    }
    return bytes;
}

template <typename Record>
Bytes bytes_of(const Record &record)
{
    Bytes bytes(sizeof(record));
    std::memcpy(bytes.data(), &record, sizeof(record));
    return bytes;
}

// A packet, the port and channel that it comes by, and whether it meets the rule.
struct Packet {
    const char *frame;
    model::Port port = {7, 0, 0, 0};
    uint32_t channel = model::kHaNoChannel;
};

constexpr model::Port kGpon = {1, 1, 0, 0};
constexpr model::Port kEpon = {2, 0, 0, 0};

struct Step {
    const char *field;  // "index" is the key
    uint32_t bad;
    const char *message;
};

struct Kind {
    const char *name;
    NpSetCall *set;
    NpGetCall *get;
    NpKeyCall *del;
    const NpRow *row;
    uint32_t index;
    Bytes record;
    std::vector<Place> places;
    std::vector<Link> links;
    Rest rest;
    std::vector<Packet> hits;
    std::vector<Packet> misses;
    std::vector<Step> steps;  // in the order of the checks
};

#define CALLS(Name) Np_SetCall<Name##_Set>, Np_GetCall<Name##_Get>, Np_KeyCallOf<Name##_Del>
constexpr const char *kIndex = "param error! ulIndex=0x%08x\r\n";
constexpr const char *kFilterID = "param error! ulFilterID=0x%08x\r\n";

const std::vector<Kind> &kinds()
{
    static const std::vector<Kind> list = {
        {"smac",
         CALLS(Np_SmacFilterTbl),
         &g_stHaSmacRow,
         7,
         bytes_of(NpSmacFilter{{0, 0x11, 0x22, 0x33, 0x44, 0x55}, 127}),
         {{7, 0, 7, kFe}, {23, 1, 7, kXaui}},
         {{{4, 3}, {0x4455, 0x00112233}}},
         {127},
         {{"ffffffffffff 001122334455 0800", {7, 23, 0, 0}},
          {"ffffffffffff 001122334455", {9, 0, 17, 1}}},
         {{"ffffffffffff 001122334454 0800"},
          {"ffffffffffff 001122334455 0800", {7, 24, 0, 0}},
          {"ffffffffffff 001122334455 0800", {6, 0, 0, 0}},
          {"ffffffffffff 0011223344"}},
         {{"index", 8, kFilterID}, {"ulHaInfo", 128, "param error! pstSmac->ulHaInfo=0x%08x\r\n"}}},
        {"dmac",
         CALLS(Np_DmacFilterTbl),
         &g_stHaDmacRow,
         7,
         bytes_of(NpDmacFilter{{0x80, 0x11, 0x22, 0x33, 0x44, 0x55}, 1}),
         {{15, 0, 15, kFe}, {31, 1, 15, kXaui}},
         {{{2, 1}, {0x4455, 0x80112233}}},
         {1},
         {{"801122334455"}},
         {{"001122334455 801122334455"}, {"801122334455", {1, 0, 0, 0}}},
         {{"index", 8, kFilterID}, {"ulHaInfo", 128, "param error! pstDmac->ulHaInfo=0x%08x\r\n"}}},
        {"error sample",
         CALLS(Np_ErrorSampleTbl),
         &g_stHaErrorSampleRow,
         1,
         bytes_of(NpErrorSample{{1, 0x80, 0xc2, 0, 0, 9}, {0xff, 0xff, 0xff, 0xff, 0xff, 0xf0}, 5}),
         {{33, 2, 1}},
         {{{2, 1}, {0x0009, 0x0180c200}, {0x000f, 0}}},
         {5},
         {{"0180c2000009", {6, 3, 5, 0}}, {"0180c2000000"}},
         {{"0180c2000019"}, {"0180c2000109"}},
         {{"index", 2, kIndex}, {"ulHaInfo", 200, "param error! pstSample->ulHaInfo=0x%08x\r\n"}}},
        {"acm clock",
         CALLS(Np_AcmClockTbl),
         &g_stHaAcmClockRow,
         0,
         bytes_of(NpAcmClock{0x0800, 100, 0x0a000001, 319, 320, {0, 1, 2, 3, 4, 5}, 9}),
         {{34, 2, 2}},
         {{{2, 1}, {0x0405, 0x00010203}},
          {{37, 36}, {319, 320}},
          {{27, 0}, {0x0a000001, 0}},
          {{5, 12}, {100, 0x0800}}},
         {9},
         {{"000102030405 0a0b0c0d0e0f 81002064 0800 "
           "45000000 00004000 40110000 0a090909 0a000001 013f0140"}},
         {{"000102030405 0a0b0c0d0e0f 81002065 0800 "
           "45000000 00004000 40110000 0a090909 0a000001 013f0140"},
          {"000102030405 0a0b0c0d0e0f 81002064 0800 "
           "45000000 00000001 40110000 0a090909 0a000001 013f0140"},
          {"000102030405 0a0b0c0d0e0f 81002064 0800 "
           "46000000 00004000 40110000 0a090909 0a000001 013f0140 013f0141"},
          {"000102030405 0a0b0c0d0e0f 81002064 0800 "
           "45000000 00004000 40060000 0a090909 0a000001 013f0140"},
          {"000102030405 0a0b0c0d0e0f 0800 "
           "45000000 00004000 40110000 0a090909 0a000001 013f0140"}},
         {{"index", 1, kIndex},
          {"ulHaInfo", 128, "param error! pstAcmClock->ulHaInfo=0x%08x\r\n"}}},
        {"L2 packet",
         CALLS(Np_L2PacketFilterTbl),
         &g_stHaL2PacketRow,
         0,
         bytes_of(NpL2Packet{2, 0x8864, {1, 2, 3, 4, 5, 6}, 11}),
         {{43, 2, 14, kFe}, {53, 3, 14, kXaui}},
         {{{2, 1}, {0x0506, 0x01020304}}, {{12, 11}, {0x8864, 2}}},
         {11},
         {{"010203040506 0a0b0c0d0e0f 91000001 81000002 8864"},
          {"010203040506 0a0b0c0d0e0f 91000001 81000002 8864", {9, 0, 0, 0}}},
         {{"010203040506 0a0b0c0d0e0f 91000001 8864"},
          {"010203040506 0a0b0c0d0e0f 91000001 88a80002 8864"},
          {"010203040506 0a0b0c0d0e0f 81000001 81000002 8863"}},
         {{"index", 1, kFilterID},
          {"ulHaInfo", 128, "param error! pstL2Packet->ulHaInfo=0x%08x\r\n"}}},
        {"dmac match",
         CALLS(Np_DmacMatchTbl),
         &g_stHaDmacMatchRow,
         2,
         bytes_of(NpDmacMatch{{1, 0, 0x5e, 0, 0, 0}, {0xff, 0xff, 0xff, 0x80, 0, 0}, 20, 2}),
         {{46, 3, 2}},
         {{{2, 1}, {0, 0x01005e00}, {0xffff, 0x0000007f}}},
         {20, 2},
         {{"01005e7fffff"}},
         {{"01005e800000"}},
         {{"index", 3, kIndex},
          {"ulHaInfo", 128, "param error! pstDmacMatch->ulHaInfo=0x%08x\r\n"}}},
        {"VLAN match",
         CALLS(Np_VlanMatchPktHaInfo),
         &g_stHaVlanMatchRow,
         3,
         bytes_of(NpVlanMatch{4095, 21, 1}),
         {{47, 3, 3}},
         {{{5, 0}, {4095, 0}}},
         {21, 1},
         {{"010203040506 0a0b0c0d0e0f 8100efff 0800"}},
         {{"010203040506 0a0b0c0d0e0f 91000001 81000fff 0800"},
          {"010203040506 0a0b0c0d0e0f 08000fff 0800"}},
         {{"index", 4, kIndex},
          {"ulHaInfo", 128, "param error! pstVlanMatch->ulHaInfo=0x%08x\r\n"}}},
        {"GEM port",
         CALLS(Np_NonBroadcastGemportFilter),
         &g_stHaGemportRow,
         0,
         bytes_of(NpNonBroadcastGemport{4095, 1, 22}),
         {{49, 3, 7, {1}}},
         {{{38, 0}, {4095, 0}, {0, 0}, 1}},
         {22, 0, 1},
         {{"010203040506", kGpon, 4094}},
         {{"010203040506", kGpon, 4095}, {"010203040506", kEpon, 1}, {"010203040506", kGpon}},
         {{"ulHaInfo", 128, "param error! pstNonBroadcastGemport->ulHaInfo=0x%08x\r\n"}}},
        {"EPON",
         CALLS(Np_NonBroadcastLlidFilter),
         &g_stHaLlidRow,
         0,
         bytes_of(NpNonBroadcastLlid{0, 0, 23}),
         {{49, 3, 7, {2}}},
         {{{38, 0}, {16, 0}, {15, 0}, 1}},
         {23, 0, 0},
         {{"010203040506", kEpon, 15}, {"010203040506", kEpon, 32}},
         {{"010203040506", kEpon, 16}, {"010203040506", kEpon, 31}},
         {{"ulHaInfo", 128, "param error! pstNonBroadcastLlid->ulHaInfo=0x%08x\r\n"}}},
        {"10G EPON",
         CALLS(Np_NonBroadcastLlidFilter),
         &g_stHaLlidRow,
         0,
         bytes_of(NpNonBroadcastLlid{1, 1, 24}),
         {{49, 3, 7, {2}}},
         {{{38, 0}, {32, 0}, {31, 0}, 1}},
         {24, 0, 1},
         {{"010203040506", kEpon, 31}},
         {{"010203040506", kEpon, 32}, {"010203040506", kEpon, 63}},
         {}},
        {"IPv4 multicast",
         CALLS(Np_Ipv4MulticastFilter),
         &g_stHaIpv4MulticastRow,
         0,
         bytes_of(NpIpv4Multicast{0xe0000000, 0xf0000000, 1, 25}),
         {{50, 3, 8}},
         {{{27, 0}, {0xe0000000, 0}, {0x0fffffff, 0}}},
         {25, 3, 1},
         {{"010203040506 0a0b0c0d0e0f 0800 45000000 00000000 00000000 0a090909 efffffff"}},
         {{"010203040506 0a0b0c0d0e0f 0800 45000000 00000000 00000000 0a090909 dfffffff"},
          {"010203040506 0a0b0c0d0e0f 0806 45000000 00000000 00000000 0a090909 efffffff"}},
         {{"ulHaInfo", 128, "param error! pstIpv4Multicast->ulHaInfo=0x%08x\r\n"}}},
        {"IPv6 multicast",
         CALLS(Np_Ipv6MulticastFilter),
         &g_stHaIpv6MulticastRow,
         0,
         bytes_of(NpIpv6Multicast{0xff000000, 0xff000000, 0, 26}),
         {{51, 3, 9}},
         {{{24, 0}, {0xff000000, 0}, {0x00ffffff, 0}}},
         {26, 3, 0},
         {{"333300000001 0a0b0c0d0e0f 86dd 60000000 00003a00 "
           "fe800000 00000000 00000000 00000001 ff020000"}},
         {{"333300000001 0a0b0c0d0e0f 86dd 60000000 00003a00 "
           "ff020000 00000000 00000000 00000001 20010db8"}},
         {{"ulHaInfo", 128, "param error! pstIpv6Multicast->ulHaInfo=0x%08x\r\n"}}},
        {"IPv4 with UDP",
         CALLS(Np_Ipv4FilterWithUdp),
         &g_stHaIpv4UdpRow,
         0,
         bytes_of(NpIpv4Udp{0x0a000000, 0xffffff00, 5004, 1, 27}),
         {{52, 3, 10}},
         {{{27, 36}, {0x0a000000, 5004}, {0x000000ff, 0}}},
         {27, 3, 1},
         {{"010203040506 0a0b0c0d0e0f 0800 "
           "45000000 00000000 00110000 0a090909 0a000063 0001138c"}},
         {{"010203040506 0a0b0c0d0e0f 0800 "
           "45000000 00000000 00110000 0a090909 0a000163 0001138c"},
          {"010203040506 0a0b0c0d0e0f 0800 "
           "45000000 00000000 00110000 0a090909 0a000063 0001138d"}},
         {{"ulHaInfo", 128, "param error! pstIpv4Udp->ulHaInfo=0x%08x\r\n"}}},
    };
    return list;
}

class Ha : public Rows {
  protected:
    Ha()
    {
        g_recorded = 0;
        Np_Glb_RecordErrInfoHook(0, [](uint32_t code, uint32_t) { g_recorded = code; });
    }

    static model::HaResult met(const Packet &packet)
    {
        std::string digits = packet.frame;
        std::erase(digits, ' ');
        const Bytes frame = host::parse_frame(digits);
        model::HaResult result = {};
        EXPECT_EQ(
            model::lookup_ha(
                0, {frame.data(), static_cast<uint32_t>(frame.size()), packet.port, packet.channel},
                &result),
            model::kOk);
        return result;
    }
    // A packet's info; -1 when the rules of illegal source MACs, or none, meet it.
    static int info(const Packet &packet)
    {
        const model::HaResult result = met(packet);
        return result.hit && result.number != 35 && result.number != 36
                   ? static_cast<int>(result.info)
                   : -1;
    }

    // The driver calls of some work, "Add 35" and the like.
    static Words calls(const std::function<uint32_t()> &work, uint32_t result = NP_OK)
    {
        model::journal_clear();
        model::journal_enable(true);
        EXPECT_EQ(work(), result);
        model::journal_enable(false);
        Words list;
        for (uint32_t i = 0; i < model::journal_count(); i++) {
            const model::Record &record = *model::journal_record(i);
            const std::string name = model::op_info(record.op).name;
            const size_t prefix = std::string("Qd_HA_MatchRule").size();
            list.push_back((name.size() > prefix ? name.substr(prefix) : name) + " " +
                           std::to_string(record.data[0]));
        }
        return list;
    }

    static void clear_faults()
    {
        model::faults_clear();
    }
    Words failing(const std::string &fault, const std::function<uint32_t()> &call, uint32_t result)
    {
        set_fault(fault + " code=0x9a00001e");
        g_recorded = 0;
        const Words lines = failures(*kinds()[0].row, call, result);
        clear_faults();
        EXPECT_EQ(g_recorded, kCode);
        return lines;
    }
};

constexpr const char *kAddFailed = "Qd_HA_MatchRuleAdd failed (0x9a00001e) !\r\n";
constexpr const char *kDelFailed = "Qd_HA_MatchRuleDel failed (0x9a00001e) !\r\n";
constexpr const char *kGetFailed = "Qd_HA_MatchRuleGet failed (0x9a00001e) !\r\n";

TEST_F(Ha, EveryKindInstallsItsRulesAndPacketsMeetThem)
{
    for (const Kind &kind : kinds()) {
        SCOPED_TRACE(kind.name);
        const auto set = [&] { return kind.set(0, &kind.index, kind.record.data()); };
        const auto del = [&] { return kind.del(0, &kind.index); };
        Bytes back(kind.record.size());
        const auto get = [&] { return kind.get(0, &kind.index, back.data()); };
        EXPECT_THAT(failures(*kind.row, get, NP_ERR_NOT_EXIST), ElementsAre("not configed!\r\n"));
        EXPECT_THAT(calls(del), IsEmpty());
        EXPECT_EQ(kind.set(0, &kind.index, nullptr), NP_ERR_NULL_PTR);
        EXPECT_EQ(kind.get(0, &kind.index, nullptr), NP_ERR_NULL_PTR);

        Words adds;
        Words dels;
        for (const Place &place : kind.places) {
            adds.push_back("Add " + std::to_string(place.number));
            dels.push_back("Del " + std::to_string(place.number));
        }
        EXPECT_EQ(calls(set), adds);
        Words both = dels;
        both.insert(both.end(), adds.begin(), adds.end());
        EXPECT_EQ(calls(set), both) << "an update takes the old rules out first";
        for (const Place &place : kind.places) {
            EXPECT_EQ(rule_at(place.number), record_of(place, kind.links, kind.rest));
        }
        ASSERT_EQ(get(), NP_OK);
        for (const NpField &field : fields_of(*kind.row)) {
            for (uint32_t i = 0; field.ucSize != 0 && i < field.usCount; i++) {
                EXPECT_EQ(Np_Row_Load(&field, i, back.data()),
                          Np_Row_Load(&field, i, kind.record.data()))
                    << field.pszName;
            }
        }
        for (const Packet &packet : kind.hits) {
            EXPECT_EQ(info(packet), kind.rest.info) << packet.frame;
            EXPECT_EQ(met(packet).queue_pri, kind.rest.queue);
        }
        for (const Packet &packet : kind.misses) {
            EXPECT_EQ(info(packet), -1) << packet.frame;
        }

        EXPECT_EQ(calls(del), dels);
        EXPECT_THAT(calls(del), IsEmpty());
        EXPECT_EQ(info(kind.hits[0]), -1);
    }
}

TEST_F(Ha, ChecksComeInTheirOrderAndRefusedCallsChangeNothing)
{
    for (const Kind &kind : kinds()) {
        SCOPED_TRACE(kind.name);
        uint32_t index = kind.index;
        Bytes record = kind.record;
        for (size_t k = kind.steps.size(); k-- > 0;) {
            const Step &step = kind.steps[k];
            const bool in_key = std::string(step.field) == "index";
            for (const NpField &field : fields_of(*kind.row)) {
                if (std::string(field.pszName) == step.field) {
                    Np_Row_Store(&field, 0, step.bad, record.data());
                }
            }
            index = in_key ? step.bad : index;
            char message[120];
            std::snprintf(message, sizeof(message), step.message, step.bad);
            const auto set = [&] { return kind.set(0, &index, record.data()); };
            EXPECT_THAT(failures(*kind.row, set, NP_ERR_PARAM), ElementsAre(message));
            EXPECT_THAT(calls(set, NP_ERR_PARAM), IsEmpty());
            if (in_key) {
                EXPECT_EQ(kind.get(0, &index, record.data()), NP_ERR_PARAM);
                EXPECT_EQ(kind.del(0, &index), NP_ERR_PARAM);
            }
        }
    }
}

TEST_F(Ha, AFailingDriverIsTold)
{
    for (const Kind &kind : kinds()) {
        SCOPED_TRACE(kind.name);
        const auto set = [&] { return kind.set(0, &kind.index, kind.record.data()); };
        const auto del = [&] { return kind.del(0, &kind.index); };
        Bytes back(kind.record.size());
        const auto get = [&] { return kind.get(0, &kind.index, back.data()); };
        const bool two = kind.places.size() == 2;
        ASSERT_EQ(set(), NP_OK);
        EXPECT_THAT(failing("Qd_HA_MatchRuleGet", get, kCode), ElementsAre(kGetFailed));
        // A delete that fails is passed over by a set, and stops a delete.
        EXPECT_THAT(failing("Qd_HA_MatchRuleDel", set, NP_OK), ElementsAre(kDelFailed));
        EXPECT_THAT(failing("Qd_HA_MatchRuleDel", del, kCode), ElementsAre(kDelFailed));
        EXPECT_EQ(get(), NP_OK);
        EXPECT_THAT(failing("Qd_HA_MatchRuleAdd", set, kCode), ElementsAre(kAddFailed));
        EXPECT_EQ(get(), NP_ERR_NOT_EXIST);
        if (two) {
            EXPECT_THAT(failing("Qd_HA_MatchRuleAdd nth=2", set, kCode), ElementsAre(kAddFailed));
            EXPECT_EQ(get(), NP_ERR_NOT_EXIST);
            EXPECT_EQ(rule_at(kind.places[0].number).empty(), kind.row != &g_stHaL2PacketRow);
            EXPECT_TRUE(rule_at(kind.places[1].number).empty());
        }
        EXPECT_EQ(set(), NP_OK);
        EXPECT_EQ(del(), NP_OK);
    }
}

// The members of the family differ in the rules of three filters.
TEST_F(Ha, MembersLimitThePortsInTheirOwnWay)
{
    const auto &smac = kinds()[0];
    const auto &dmac = kinds()[1];
    const auto &l2 = kinds()[4];
    const struct {
        const Kind &kind;
        NpSetCall *set;
        NpKeyCall *del;
        std::vector<Place> places;
    } members[] = {
        {smac,
         Np_SetCall<Np_TarnA_SmacFilterTbl_Set>,
         smac.del,
         {{7, 0, 7, kXdsl}, {23, 1, 7, kBonding}}},
        {smac,
         Np_SetCall<Np_TarnB_SmacFilterTbl_Set>,
         Np_KeyCallOf<Np_TarnB_SmacFilterTbl_Del>,
         {{7, 0, 7, kFe}}},
        {dmac,
         Np_SetCall<Np_TarnA_DmacFilterTbl_Set>,
         dmac.del,
         {{15, 0, 15, kXdsl}, {31, 1, 15, kBonding}}},
        {dmac,
         Np_SetCall<Np_TarnB_DmacFilterTbl_Set>,
         Np_KeyCallOf<Np_TarnB_DmacFilterTbl_Del>,
         {{15, 0, 15, kFe}}},
        {l2,
         Np_SetCall<Np_Tarn_L2PacketFilterTbl_Set>,
         Np_KeyCallOf<Np_Tarn_L2PacketFilterTbl_Del>,
         {{43, 2, 14, kXdsl}}},
    };
    for (const auto &member : members) {
        SCOPED_TRACE(testing::Message() << member.kind.name << member.places[0].ports.type);
        const Words added =
            calls([&] { return member.set(0, &member.kind.index, member.kind.record.data()); });
        EXPECT_EQ(added.size(), member.places.size());
        for (const Place &place : member.places) {
            EXPECT_EQ(rule_at(place.number), record_of(place, member.kind.links, member.kind.rest));
        }
        Packet packet = member.kind.hits[0];
        const Ports &ports = member.places[0].ports;
        packet.port = {ports.type, ports.max[0], ports.max[1], ports.max[2]};
        EXPECT_EQ(info(packet), member.kind.rest.info);
        packet.port = {6, 0, 0, 0};
        EXPECT_EQ(info(packet), -1);
        EXPECT_EQ(calls([&] { return member.del(0, &member.kind.index); }).size(),
                  member.places.size());
    }
}

// Both kinds use the same rules and neither knows of the other.
TEST_F(Ha, KindsThatShareARuleReplaceEachOther)
{
    const NpVlanMatch vlan = {7, 1, 0};
    const NpDmacMatch dmac = {{2}, {255}, 2, 0};
    ASSERT_EQ(Np_VlanMatchPktHaInfo_Set(0, 0, &vlan), NP_OK);
    EXPECT_THAT(calls([&] { return Np_DmacMatchTbl_Set(0, 0, &dmac); }), ElementsAre("Add 44"));
    EXPECT_EQ(info({"020000000000 0a0b0c0d0e0f 81000007 0800"}), 2);
    EXPECT_EQ(info({"030000000000 0a0b0c0d0e0f 81000007 0800"}), -1);
    EXPECT_THAT(calls([&] { return Np_VlanMatchPktHaInfo_Del(0, 0); }), ElementsAre("Del 44"));
    EXPECT_THAT(calls([&] { return Np_DmacMatchTbl_Del(0, 0); }), ElementsAre("Del 44"));
}

TEST_F(Ha, IllegalSourceMacsAndSpecialTypes)
{
    constexpr Packet kAll0 = {"010203040506 000000000000 0800"};
    constexpr Packet kGroup = {"010203040506 ff0203040506 0800"};
    uint32_t value = 99;
    ASSERT_EQ(Np_IllegalSmacHaInfo_Get(0, &value), NP_OK);
    EXPECT_EQ(value, 0u) << "as bring-up leaves it";
    const auto set = [](uint32_t number) {
        return [number] { return Np_IllegalSmacHaInfo_Set(0, number); };
    };
    EXPECT_THAT(calls(set(127)), ElementsAre("Del 35", "Add 35", "Del 36", "Add 36"));
    EXPECT_EQ(rule_at(35), record_of({35, 2, 6}, {{{4, 3}, {0, 0}}}, {127}));
    EXPECT_EQ(rule_at(36),
              record_of({36, 2, 7}, {{{3, 0}, {0x01000000, 0}, {0xfeffffff, 0}}}, {127}));
    EXPECT_EQ(met(kAll0).number, 35u);
    EXPECT_EQ(met(kGroup).number, 36u);
    EXPECT_FALSE(met({"010203040506 feffffffffff 0800"}).hit);
    EXPECT_THAT(failures(*kinds()[0].row, set(128), NP_ERR_PARAM),
                ElementsAre("param error! ulHaInfo=0x00000080\r\n"));
    EXPECT_THAT(failing("Qd_HA_MatchRuleDel", set(126), NP_OK), ElementsAre(kDelFailed));
    EXPECT_THAT(failing("Qd_HA_MatchRuleAdd nth=2", set(3), kCode), ElementsAre(kAddFailed));
    const auto get = [&] { return Np_IllegalSmacHaInfo_Get(0, &value); };
    EXPECT_THAT(failing("Qd_HA_MatchRuleGet nth=2", get, kCode), ElementsAre(kGetFailed));
    ASSERT_EQ(Np_IllegalSmacHaInfo_Set(0, 5), NP_OK);
    QdHaMatchRule rule = {};
    ASSERT_EQ(model::ha_rule_get(0, 36, &rule), model::kOk);
    rule.ucInfoToNp = 6;
    ASSERT_EQ(Qd_HA_MatchRuleAdd(0, 36, &rule), model::kOk);
    EXPECT_THAT(failures(*kinds()[0].row, get, NP_ERR_PARAM),
                ElementsAre("all0mac.ulHaInfo = 0x00000005,multimac.ulHaInfo = 0x00000006\r\n"));
    EXPECT_EQ(Np_IllegalSmacHaInfo_Get(0, nullptr), NP_ERR_NULL_PTR);

    uint32_t type = 0;
    EXPECT_EQ(Np_SpecialEthPktHaInfo_Get(0, &type, &value), NP_ERR_NOT_EXIST);
    EXPECT_EQ(Np_SpecialEthPktHaInfo_Get(0, &type, nullptr), NP_ERR_NULL_PTR);
    const auto special = [](uint32_t eth, uint32_t number) {
        return [=] { return Np_SpecialEthPktHaInfo_Set(0, eth, number); };
    };
    EXPECT_THAT(calls(special(0xffff, 8)), ElementsAre("Add 38"));
    EXPECT_THAT(calls(special(0x8809, 9)), ElementsAre("Del 38", "Add 38"));
    EXPECT_EQ(rule_at(38), record_of({38, 2, 9}, {{{12, 0}, {0x8809, 0}}}, {9}));
    EXPECT_EQ(info({"010203040506 0a0b0c0d0e0f 81000001 8809"}), 9);
    ASSERT_EQ(Np_SpecialEthPktHaInfo_Get(0, &type, &value), NP_OK);
    EXPECT_EQ(type, 0x8809u);
    EXPECT_EQ(value, 9u);
    EXPECT_THAT(failures(*kinds()[0].row, special(0x10000, 128), NP_ERR_PARAM),
                ElementsAre("param error! ulEthType=0x00010000\r\n"));
    EXPECT_THAT(failures(*kinds()[0].row, special(1, 128), NP_ERR_PARAM),
                ElementsAre("param error! ulHaInfo=0x00000080\r\n"));
    EXPECT_EQ(Np_AoePktHaInfo_Set(0, 1, 1), NP_ERR_UNREGISTERED);
}

TEST_F(Ha, FixedRulesAndTagIdentifiers)
{
    uint32_t value = 0;
    ASSERT_EQ(Np_TarnA_PiePktHaInfo_Set(0, 4), NP_OK);
    EXPECT_EQ(met({"010203040506", {12, 1, 0, 0}}).info, 4u);
    ASSERT_EQ(Np_PiePktHaInfo_Set(0, 127), NP_OK);
    ASSERT_EQ(Np_PiePktHaInfo_Get(0, &value), NP_OK);
    EXPECT_EQ(value, 127u);
    ASSERT_EQ(Np_TarnA_PiePktHaInfo_Get(0, &value), NP_OK);
    EXPECT_EQ(value, 4u);
    for (const uint32_t port : {0u, 1u}) {
        const model::HaResult result = met({"010203040506", {12, port, 0, 0}});
        EXPECT_TRUE(result.fixed && result.number == 3 + port && result.info == 127 &&
                    result.queue_pri == 3);
    }
    EXPECT_FALSE(met({"010203040506"}).hit);
    EXPECT_THAT(failures(
                    *kinds()[0].row, [] { return Np_PiePktHaInfo_Set(0, 128); }, NP_ERR_PARAM),
                ElementsAre("param error! ulHaInfo=0x00000080\r\n"));
    EXPECT_THAT(failing(
                    "Qd_HA_ExtendRuleSet nth=2", [] { return Np_PiePktHaInfo_Set(0, 1); }, kCode),
                ElementsAre("Qd_HA_ExtendRuleSet failed (0x9a00001e) !\r\n"));
    EXPECT_EQ(Np_PiePktHaInfo_Get(0, nullptr), NP_ERR_NULL_PTR);

    const Packet tagged = {"010203040506 0a0b0c0d0e0f 88a80007 0800"};
    const NpVlanMatch vlan = {7, 1, 0};
    ASSERT_EQ(Np_VlanMatchPktHaInfo_Set(0, 0, &vlan), NP_OK);
    EXPECT_EQ(info(tagged), -1);
    const auto tpid = [](uint32_t type, uint32_t id) {
        return [=] { return Np_TarnB_ExtendTpidSet(0, type, id); };
    };
    ASSERT_EQ(Np_OuterTpid_Set(0, 0x88a8), NP_OK);
    EXPECT_EQ(info(tagged), 1);
    EXPECT_EQ(info({"010203040506 0a0b0c0d0e0f 81000007 0800"}), 1) << "the fixed ones stay";
    ASSERT_EQ(Np_TarnB_ExtendTpidGet(0, 4, &value), NP_OK);
    EXPECT_EQ(value, 0x88a8u);
    EXPECT_EQ(tpid(8, 0xffff)(), NP_OK);
    EXPECT_THAT(failures(*kinds()[0].row, tpid(9, 0x10000), NP_ERR_PARAM),
                ElementsAre("param error! ulTpidType=0x00000009\r\n"));
    EXPECT_THAT(failures(*kinds()[0].row, tpid(8, 0x10000), NP_ERR_PARAM),
                ElementsAre("param error! ulTpid=0x00010000\r\n"));
    EXPECT_EQ(Np_TarnB_ExtendTpidGet(0, 9, &value), NP_ERR_PARAM);
    EXPECT_EQ(Np_TarnB_ExtendTpidGet(0, 8, nullptr), NP_ERR_NULL_PTR);
    EXPECT_EQ(failing("Qd_HA_ExtendTpidSet", tpid(1, 1), kCode).size(), 1u);
}

// Of rules that match, the lower sub table and inner id win.
TEST_F(Ha, TheUpperRuleOfTheListWins)
{
    const NpVlanMatch vlan = {7, 1, 0};
    const NpDmacFilter dmac = {{1, 2, 3, 4, 5, 6}, 2};
    const NpSmacFilter smac = {{0xa, 0xb, 0xc, 0xd, 0xe, 0xf}, 3};
    const Packet packet = {"010203040506 0a0b0c0d0e0f 81000007 0800"};
    ASSERT_EQ(Np_VlanMatchPktHaInfo_Set(0, 0, &vlan), NP_OK);
    EXPECT_EQ(info(packet), 1);
    ASSERT_EQ(Np_DmacFilterTbl_Set(0, 0, &dmac), NP_OK);
    EXPECT_EQ(info(packet), 2);
    ASSERT_EQ(Np_SmacFilterTbl_Set(0, 7, &smac), NP_OK);
    EXPECT_EQ(info(packet), 3);

    const std::string text = host::show_ha_text(0);
    EXPECT_THAT(text, HasSubstr("7 of 64 rules in use"));
    EXPECT_THAT(text, HasSubstr("   7 smac_filter 7   0/7      3   3  0 fe:0-23           "
                                "smac 0a-0b-0c-0d-0e-0f\n"));
    EXPECT_LT(text.find("smac_filter 7"), text.find("dmac_filter 0"));
    EXPECT_LT(text.find("dmac_filter 0"), text.find("vlan_match 0"));
    EXPECT_THAT(host::lookup_ha_text(0, host::parse_frame("01:02:03:04:05:06"), {7, 0, 0, 0},
                                     model::kHaNoChannel),
                HasSubstr("hit: ulHaInfo 2, queue priority 3, by rule 8\n"));
    for (const char *bad : {"", "0", "0x", "0102:", "01 02", "zz"}) {
        EXPECT_EQ(std::string(bad) == "0102:", [&] {
            try {
                host::parse_frame(bad);
                return true;
            }
            catch (const std::invalid_argument &) {
                return false;
            }
        }()) << bad;
    }
    EXPECT_THROW(host::lookup_ha_text(0, smac.aucMac, {7, 99, 0, 0}, 0), std::invalid_argument);
    EXPECT_THROW(host::show_ha_text(3), std::runtime_error);
}

TEST_F(Ha, BringUpStartsWithoutFiltersAndTearDownGivesTheFlagsUp)
{
    for (const Kind &kind : kinds()) {
        ASSERT_EQ(kind.set(0, &kind.index, kind.record.data()), NP_OK);
    }
    ASSERT_EQ(Np_Tarn_HA_Destruct(0), NP_OK);
    EXPECT_EQ(g_pastNpHaSmacFilter[0], nullptr);
    EXPECT_EQ(kinds()[0].set(0, &kinds()[0].index, kinds()[0].record.data()), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_SmacFilterTbl_Del(0, 7), NP_ERR_NULL_PTR);
    EXPECT_FALSE(rule_at(7).empty()) << "rules stay with the driver";

    const char *messages[] = {"src mac filter", "dst mac filter", "error sample",
                              "error sample",   "vlan match",     "vlan match"};
    for (size_t i = 0; i < std::size(messages); i++) {
        set_fault("alloc nth=" + std::to_string(i + 1));
        EXPECT_THAT(failures(
                        *kinds()[0].row, [] { return Np_Tarn_HA_Init(0); }, NP_ERR_NO_MEMORY),
                    ElementsAre(messages[i] + std::string(" softtable malloc failed!\r\n")));
        clear_faults();
        EXPECT_EQ(g_pastNpHaSmacFilter[0], nullptr);
    }
    EXPECT_THAT(failing(
                    "Qd_HA_MatchRuleAdd nth=2", [] { return Np_Tarn_HA_Init(0); }, kCode),
                ElementsAre(kAddFailed));
    EXPECT_EQ(g_pastNpHaVlanMatch[0], nullptr);
    for (const int round : {0, 1}) {
        ASSERT_EQ(Np_Tarn_HA_Init(0), NP_OK) << round;
        for (const Kind &kind : kinds()) {
            Bytes back(kind.record.size());
            EXPECT_EQ(kind.get(0, &kind.index, back.data()), NP_ERR_NOT_EXIST) << kind.name;
        }
        ASSERT_EQ(kinds()[0].set(0, &kinds()[0].index, kinds()[0].record.data()), NP_OK);
    }
}

TEST_F(Ha, TracesShowTheRulesAndTheL2FiltersEntry)
{
    Np_PrintLevelSet(NP_M_HA, NP_PRINT_TRACE, 1);
    EXPECT_EQ(kinds()[0].set(0, &kinds()[0].index, kinds()[0].record.data()), NP_OK);
    const std::string text = out.take();
    EXPECT_THAT(text, HasSubstr("HaInfo 0:\r\n"));
    EXPECT_THAT(text, HasSubstr("HaInfo 1:\r\n"));
    EXPECT_THAT(text, HasSubstr("ucMatchField0=0x4 0x0 0x0 0x0 "));
    EXPECT_THAT(text, HasSubstr("ucPortType=0x9 "));
    Np_PrintLevelInit();
    Np_PrintLevelSet(NP_M_PORT, NP_PRINT_TRACE, 1);
    EXPECT_EQ(Np_L2PacketFilterTbl_Del(0, 0), NP_OK);
    EXPECT_THAT(out.take(), HasSubstr("ulIndex=0x00000000"));
}

TEST_F(Ha, CommandsAskForAllOfANewFilterAndForWhatChangesOfAnOldOne)
{
    EXPECT_THAT(run("micro ha vlan_match set index 3 hainfo 5"), HasSubstr("execute error"));
    EXPECT_THAT(run("micro ha vlan_match set index 3 vlan 7 hainfo 5 pqmpri 1"),
                HasSubstr("success"));
    EXPECT_THAT(run("micro ha vlan_match set index 3 hainfo 6"), HasSubstr("success"));
    NpVlanMatch vlan = {};
    ASSERT_EQ(Np_VlanMatchPktHaInfo_Get(0, 3, &vlan), NP_OK);
    EXPECT_EQ(bytes_of(vlan), bytes_of(NpVlanMatch{7, 6, 1}));
    EXPECT_THAT(run("micro ha vlan_match del index 3 now"), HasSubstr("execute error"));
    EXPECT_THAT(run("micro ha vlan_match del index 3"), HasSubstr("success"));
    EXPECT_THAT(run("micro ha vlan_match get index 3"), HasSubstr("0x9a000015"));
    EXPECT_THAT(run("micro ha nonbcllidpkt set ulEponType xepon ulFilterEnable 1 hainfo 7"),
                HasSubstr("success"));
    EXPECT_THAT(run("micro ha nonbcllidpkt get"), HasSubstr("xepon"));
    EXPECT_THAT(run("micro ha nonbcllidpkt del"), HasSubstr("success"));
    EXPECT_THAT(run("micro ha specialethpkt set ulEthType 34825 hainfo 9"), HasSubstr("success"));
    EXPECT_THAT(run("micro ha specialethpkt get"), HasSubstr("34825"));
    EXPECT_THAT(run("micro ha aoepkt set vlanid 1 hainfo 2"), HasSubstr("0x9a000003"));
}

}  // namespace

}  // namespace ldsdk::test

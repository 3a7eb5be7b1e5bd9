// Bound addresses: the lists against a map, in step with what the chip holds; source MACs, the MAC
// filter and anti-DoS limits, where the lines of their rows can not say it.
#include "tests/shell.h"

#include "sdk/frame/base/service.h"
#include "sdk/lookup/eml.h"
#include "sdk/lookup/lcam.h"
#include "sdk/tables/ipbonding.h"
#include "sdk/tables/secu.h"

#include <map>
#include <random>
#include <set>

namespace ldsdk::test {

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using Words = std::vector<std::string>;

class Secu : public ShellUp {
  protected:
    static NpIpBonding ipv4(uint32_t address)
    {
        NpIpBonding ip = {};
        ip.unIp.ulIpv4 = address;
        return ip;
    }

    static NpIpBonding ipv6(uint32_t high, uint32_t low, uint32_t mask = 0xffffffff)
    {
        return {{.aulIpv6 = {high, low, 1, 2}}, {0xffffffff, mask, 3, 4}};
    }

    static uint32_t set(uint32_t type, uint32_t sub, uint32_t flow, const NpIpBonding &ip)
    {
        return (sub == 0 ? Np_IpFlow_Set : Np_IpFlowBundle_Set)(0, type, flow, &ip);
    }

    static uint32_t del(uint32_t type, uint32_t sub, uint32_t flow, uint32_t mode,
                        const NpIpBonding *ip)
    {
        return (sub == 0 ? Np_IpFlow_Del : Np_IpFlowBundle_Del)(0, type, flow, mode, ip);
    }

    // What Get gives, the last that was added first: the words that count.
    static std::vector<std::vector<uint32_t>> get(uint32_t type, uint32_t sub, uint32_t flow)
    {
        std::vector<NpIpBonding> list(1024);
        uint32_t size = 1024;
        const uint32_t result =
            (sub == 0 ? Np_IpFlow_Get : Np_IpFlowBundle_Get)(0, type, flow, list.data(), &size);
        std::vector<std::vector<uint32_t>> words;
        for (uint32_t i = 0; result == NP_OK && i < size; i++) {
            words.push_back(words_of(type, list[i]));
        }
        EXPECT_TRUE(result == NP_OK ? size > 0 : result == NP_ERR_NOT_EXIST);
        return words;
    }

    static std::vector<uint32_t> words_of(uint32_t type, const NpIpBonding &ip)
    {
        return type == NP_IP_V4 ? std::vector<uint32_t>{ip.unIp.ulIpv4}
                                : std::vector<uint32_t>{ip.unIp.aulIpv6[0], ip.unIp.aulIpv6[1],
                                                        ip.ulIpv6Mask[0], ip.ulIpv6Mask[1]};
    }

    // Whether the microcode finds an address bound to this: by the hash table's item, or by the
    // rule's key.
    static bool finds(uint32_t type, uint32_t sub, uint32_t flow, const std::vector<uint32_t> &ip)
    {
        if (type == NP_IP_V4) {
            const uint64_t item = uint64_t{0xf} << 60 | uint64_t{sub} << 55 | uint64_t{flow} << 44 |
                                  uint64_t{ip[0]} << 12;
            uint64_t found = item;
            return Np_Tarn_EML_ItemGet(0, 5, nullptr, nullptr, &found) == NP_OK &&
                   found == (item | 1);
        }
        const uint32_t key[] = {ip[1], ip[0], flow | sub << 11};
        const NpLcamConfig &cam = g_stNpLcamConfig_TarnB[3];
        model::LcamResult result = {};
        EXPECT_EQ(
            model::lookup_lcam(
                0, {cam.ulType, cam.ulBlock, cam.ulCid, reinterpret_cast<const uint8_t *>(key)},
                &result),
            model::kOk);
        uint32_t ad[2] = {};
        std::memcpy(ad, result.ad, sizeof(ad));
        return result.hit && ad[0] == 0 && ad[1] == 1;
    }
};

TEST_F(Secu, ListsAgreeWithAMap)
{
    std::mt19937 random(12);
    for (const uint32_t type : {NP_IP_V4, NP_IP_V6}) {
        std::map<std::pair<uint32_t, uint32_t>, std::vector<std::vector<uint32_t>>> map;
        const auto size = [&] {
            size_t all = 0;
            for (const auto &[flow, list] : map) {
                all += list.size();
            }
            return all;
        };
        const uint32_t most = type == NP_IP_V4 ? 1024 : 128;
        for (int step = 0; step < 3000; step++) {
            const uint32_t sub = random() % 2;
            const uint32_t flow = random() % 8;
            auto &list = map[{sub, flow}];
            const NpIpBonding ip = type == NP_IP_V4 ? ipv4(random() % 100) : ipv6(7, random() % 12);
            const auto words = words_of(type, ip);
            const auto at = std::find(list.begin(), list.end(), words);
            const uint32_t action = random() % 16;
            if (step % 100 == 50 && size() < most) {
                set_fault("rba nth=" + std::to_string(1 + step % 3));
                const auto before = get(type, sub, flow);
                if (set(type, sub, flow, ip) != NP_OK) {
                    EXPECT_EQ(get(type, sub, flow), before);
                }
                model::faults_clear();
                ASSERT_EQ(set(type, sub, flow, ip), NP_OK);
                ASSERT_EQ(del(type, sub, flow, NP_IP_DEL_ONE, &ip), NP_OK);
                if (at != list.end()) {
                    list.erase(at);
                }
            }
            else if (action < 9) {
                const bool full = size() == most;
                ASSERT_EQ(set(type, sub, flow, ip), full ? NP_ERR_TABLE_FULL : NP_OK);
                if (at == list.end() && !full) {
                    list.insert(list.begin(), words);
                }
            }
            else if (action < 15) {
                ASSERT_EQ(del(type, sub, flow, NP_IP_DEL_ONE, &ip), NP_OK);
                if (at != list.end()) {
                    list.erase(at);
                }
                EXPECT_FALSE(finds(type, sub, flow, words));
            }
            else {
                ASSERT_EQ(del(type, sub, flow, NP_IP_DEL_ALL, nullptr), NP_OK);
                list.clear();
            }
            ASSERT_EQ(get(type, sub, flow), list) << step;
            for (const auto &each : list) {
                ASSERT_TRUE(finds(type, sub, flow, each)) << step;
            }
            const auto &num = type == NP_IP_V4 ? g_aulIpv4BNum : g_aulIpv6BNum;
            ASSERT_EQ(num[0], size());
        }
        const auto &flows = type == NP_IP_V4 ? g_aulIpv4BIDNum : g_aulIpv6BIDNum;
        EXPECT_EQ(flows[0], std::count_if(map.begin(), map.end(),
                                          [](const auto &each) { return !each.second.empty(); }));
    }
}

TEST_F(Secu, ListsEndWhereTheTablesDo)
{
    for (uint32_t i = 0; i < 1024; i++) {
        ASSERT_EQ(set(NP_IP_V4, 0, i / 2, ipv4(i)), NP_OK) << i;
    }
    EXPECT_EQ(set(NP_IP_V4, 0, 3, ipv4(5000)), NP_ERR_TABLE_FULL);
    EXPECT_EQ(set(NP_IP_V4, 1, 3, ipv4(5000)), NP_ERR_TABLE_FULL);
    const NpIpBonding gone = ipv4(3);
    ASSERT_EQ(del(NP_IP_V4, 0, 1, NP_IP_DEL_ONE, &gone), NP_OK);
    EXPECT_EQ(set(NP_IP_V4, 1, 31, ipv4(5000)), NP_OK);
    EXPECT_EQ(g_pastIp4BIDTbl[0][63] >> NP_FLOW_HEAD_SHIFT & NP_NODE_POS_MASK, 3u);

    // The CAM's last row takes what is not bound, but while an address needs its place.
    const auto last = [] {
        uint32_t enable = 0;
        uint32_t key[3] = {};
        uint32_t mask[3] = {};
        uint32_t ad[2] = {1, 1};
        EXPECT_EQ(Np_Tarn_LCAM_TcamRead(0, 3, 127, key, mask, ad), NP_OK);
        EXPECT_EQ(Np_Tarn_LCAM_TcamEnableGet(0, 3, 127, &enable), NP_OK);
        return enable == 1 && mask[2] == 0 && ad[1] == 0;
    };
    EXPECT_TRUE(last());
    for (uint32_t i = 0; i < 128; i++) {
        ASSERT_EQ(set(NP_IP_V6, 0, 9, ipv6(i, 0)), NP_OK);
    }
    EXPECT_FALSE(last());
    EXPECT_EQ(set(NP_IP_V6, 0, 9, ipv6(128, 0)), NP_ERR_TABLE_FULL);
    const NpIpBonding top = ipv6(127, 0);
    ASSERT_EQ(del(NP_IP_V6, 0, 9, NP_IP_DEL_ONE, &top), NP_OK);
    EXPECT_TRUE(last());
}

TEST_F(Secu, BadRequestsAreRefusedInOrder)
{
    NpIpBonding ip = ipv4(1);
    uint32_t size = 0;
    const auto refused = [&](const std::function<uint32_t()> &call, uint32_t code) {
        return failures(NP_M_SECU, call, code);
    };
    EXPECT_EQ(refused([] { return Np_IpFlow_Set(0, 2, 512, nullptr); }, NP_ERR_NULL_PTR),
              Words{"Para null ptr\r\n"});
    EXPECT_EQ(refused([&] { return Np_IpFlow_Set(0, 2, 512, &ip); }, NP_ERR_PARAM),
              Words{"param error! ulIpType=0x00000002\r\n"});
    EXPECT_EQ(refused([&] { return Np_IpFlow_Set(0, 1, 512, &ip); }, NP_ERR_PARAM),
              Words{"param error! ulFlowID=0x00000200\r\n"});
    EXPECT_EQ(refused([&] { return Np_IpFlowBundle_Set(0, 1, 32, &ip); }, NP_ERR_PARAM),
              Words{"param error! ulFlowBundleID=0x00000020\r\n"});
    EXPECT_EQ(refused([&] { return Np_IpFlow_Del(0, 1, 511, 2, nullptr); }, NP_ERR_PARAM),
              Words{"param error! ulDelMode=0x00000002\r\n"});
    EXPECT_EQ(refused([&] { return Np_IpFlow_Del(0, 1, 511, 0, nullptr); }, NP_ERR_NULL_PTR),
              Words{"Para null ptr\r\n"});
    EXPECT_EQ(refused([&] { return Np_IpFlow_Get(0, 0, 1, &ip, nullptr); }, NP_ERR_NULL_PTR),
              Words{"Para null ptr\r\n"});
    EXPECT_EQ(refused([&] { return Np_IpFlow_Get(0, 0, 1, &ip, &size); }, NP_ERR_PARAM),
              Words{" pulsize error: *pulSize = 0x00000000\r\n"});
    size = 1;
    EXPECT_EQ(refused([&] { return Np_IpFlow_Get(0, 0, 1, &ip, &size); }, NP_ERR_NOT_EXIST),
              Words{" NP_IPBONDING_IP4FLOW_GET_ERROR: there  is no this FID.\r\n"});
    EXPECT_EQ(refused([&] { return Np_IpFlowBundle_Get(0, 1, 1, &ip, &size); }, NP_ERR_NOT_EXIST),
              Words{" NP_IPBONDING_IP6FLOW_GET_ERROR: there  is no this FID.\r\n"});
    g_aulIpv4BNum[0] = 1025;
    EXPECT_EQ(refused([&] { return Np_IpFlow_Set(0, 0, 1, &ip); }, NP_ERR_PARAM),
              Words{"param error! g_aulIpv4BNum[ulChipID]=0x00000401\r\n"});
    g_aulIpv4BNum[0] = 0;
    // Addresses, masks and flows that agree in what counts are one.
    ASSERT_EQ(set(NP_IP_V6, 0, 1, ipv6(1, 2)), NP_OK);
    NpIpBonding same = ipv6(1, 2);
    same.unIp.aulIpv6[3] = 77;
    ASSERT_EQ(set(NP_IP_V6, 0, 1, same), NP_OK);
    EXPECT_EQ(get(NP_IP_V6, 0, 1).size(), 1u);
    uint32_t map[2] = {0xffffffff, 7};
    uint32_t place = 0;
    EXPECT_EQ(NP_Tarn_SECU_IpGetIdlePos(map, 0, &place), NP_ERR_TABLE_FULL);
    EXPECT_EQ(NP_Tarn_SECU_IpGetIdlePos(map, 2, &place), NP_OK);
    EXPECT_EQ(place, 35u);
    EXPECT_EQ(NP_Tarn_SECU_IpSetIdlePos(map, 2, 64, 1), NP_ERR_PARAM);
}

// Init takes what is bound out of the chip; tear-down, which has no hash table any more, ends well;
// between the two there is nothing.
TEST_F(Secu, ListsComeAndGoWithTheChip)
{
    ASSERT_EQ(set(NP_IP_V4, 0, 5, ipv4(9)), NP_OK);
    ASSERT_EQ(set(NP_IP_V6, 1, 5, ipv6(9, 9)), NP_OK);
    EXPECT_THAT(run("micro ipbonding dump"), HasSubstr("flow 5:"));
    EXPECT_THAT(run("micro ipbonding init"), EndsWith("success!"));
    EXPECT_FALSE(finds(NP_IP_V4, 0, 5, {9}));
    EXPECT_FALSE(finds(NP_IP_V6, 1, 5, {9, 9}));
    EXPECT_TRUE(get(NP_IP_V4, 0, 5).empty());
    EXPECT_THAT(run("micro ipbonding ipflow set ulIpType ipv6 index 3 aulIpv6 2001:db8:0:1::1 "
                    "ulIpv6Mask ffff:ffff:ffff:ffff::0"),
                EndsWith("success!"));
    EXPECT_TRUE(finds(NP_IP_V6, 0, 3, {0x20010db8, 1}));
    EXPECT_THAT(run("micro ipbonding ipflow get ulIpType ipv6 index 3"), HasSubstr("2001:"));
    EXPECT_THAT(run("micro ipbonding ipflow del ulIpType ipv6 index 3 ulDelMode all"),
                EndsWith("success!"));
    ASSERT_EQ(set(NP_IP_V4, 0, 5, ipv4(9)), NP_OK);
    ASSERT_EQ(set(NP_IP_V6, 1, 5, ipv6(9, 9)), NP_OK);
    ASSERT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
    EXPECT_FALSE(Np_IpBonding_IsReady(0));
    EXPECT_EQ(set(NP_IP_V4, 0, 5, ipv4(9)), NP_ERR_NULL_PTR);
    EXPECT_THAT(run("micro ipbonding dump"), HasSubstr("0x9a000004"));
    EXPECT_EQ(Np_IpBonding_Destruct(0), NP_OK);
}

TEST_F(Secu, SourceMacsKeepTheirPort)
{
    const Np1xSmac smac = {{1, 2, 3, 4, 5, 6}};
    const NpPortID xaui = {9, 0, 38, 1};
    ASSERT_EQ(Np_1xSmacBondingTbl_Set(0, &smac, &xaui), NP_OK);
    EXPECT_EQ(g_ulMemType[0], 0u);
    Np1xSmac back = smac;
    NpPortID port = xaui;
    ASSERT_EQ(Np_1xSmacBondingTbl_Get(0, &back, &port), NP_OK);
    EXPECT_EQ(std::memcmp(&port, &xaui, sizeof(port)), 0);
    uint32_t info = 0;
    ASSERT_EQ(Np_1xSmacBondingTbl_GetByIndex(0, 0, g_ulHashIndex[0], &back, &port, &info), NP_OK);
    EXPECT_EQ(info, 15u);
    EXPECT_EQ(back.aucMacAddr[5], 6);
    EXPECT_EQ(memory(0x60204000 + 8 * g_ulHashIndex[0], 8),
              (std::vector<uint8_t>{0x61, 0x66, 0x50, 0x40, 0x30, 0x20, 0x10, 0xf0}));
    EXPECT_EQ(Np_1xSmacBondingTbl_GetByIndex(0, 0, 256, &back, &port, &info), NP_ERR_PARAM);
    EXPECT_EQ(Np_1xSmacBondingTbl_Set(0, nullptr, &xaui), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_1xSmacBondingTbl_Set(0, &smac, nullptr), NP_ERR_NULL_PTR);

    NpMacFilterKey filter = {9, 0, 38, 1, 0x1a, {1, 2, 3, 4, 5, 6}};
    ASSERT_EQ(Np_MacFilter_Set(0, &filter), NP_OK);
    filter.ulAD = 3;
    ASSERT_EQ(Np_MacFilter_Get(0, &filter), NP_OK);
    EXPECT_EQ(filter.ulAD, 0xau);
    EXPECT_EQ(filter.ulSubPortID, 38u);
    ASSERT_EQ(Np_MacFilter_Del(0, &filter), NP_OK);
    EXPECT_EQ(Np_MacFilter_Get(0, &filter), NP_ERR_NOT_EXIST);
    EXPECT_EQ(Np_MacFilter_Set(0, nullptr), NP_ERR_NULL_PTR);
    filter = {99, 0, 0, 0, 0, {}};
    EXPECT_NE(Np_MacFilter_Set(0, &filter), NP_OK);
}

TEST_F(Secu, AntiDosLimitsHaveOneTime)
{
    NpPortDos dos = {0x1ff, 1, 1, 0, 1, 838};
    poke(0x60222b00 + 4 * 63, 0xdead);
    ASSERT_EQ(Np_PortDosTbl_Set(0, 63, &dos), NP_OK);
    EXPECT_EQ(peek(0x60222b00 + 4 * 63), 0xd1ffdeadu);
    dos.ulTimer = 2;
    dos.ulValid = 0;
    ASSERT_EQ(Np_PortDosTbl_Set(0, 63, &dos), NP_OK);
    EXPECT_EQ(peek(0x60222b00 + 4 * 63), 0x51ff0000u) << "and the counter is cleared";
    NpPortDos back = {};
    ASSERT_EQ(Np_PortDosTbl_Get(0, 0, &back), NP_OK);
    EXPECT_EQ(back.ulTimer, 2u);
    EXPECT_EQ(Np_PortDosTbl_Set(0, 64, &dos), NP_ERR_ADDRESS);
    set_fault("Qd_CPUTR_AutoSendInfoSet code=0x33");
    EXPECT_EQ(Np_PortDosTbl_Set(0, 1, &dos), 0x33u) << "each set starts the message again";
    model::faults_clear();
    EXPECT_THAT(run("micro portdos setpara ulAntiDosTime 1 endsessionid 7 interval 3"),
                EndsWith("success!"));
}

}  // namespace

}  // namespace ldsdk::test

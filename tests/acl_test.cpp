// Access rules under the option that gives them rows: blocks, what packets meet, and requests that
// are refused.
#include "tests/shell.h"

#include "ldsdk/host.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/registry.h"
#include "sdk/lookup/lcam.h"
#include "sdk/tables/acl.h"

#include <map>
#include <random>

namespace ldsdk::test {

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using Words = std::vector<std::string>;

class Acl : public ShellUp {
  protected:
    Acl()
    {
        EXPECT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
        EXPECT_EQ(ldsdk_family_option("acl", 1), 0u);
        EXPECT_EQ(Np_INIT_SdkInit(0), NP_OK);
    }
    ~Acl() override
    {
        g_aulNpFamilyOption[NP_OPTION_ACL] = 0;
    }

    static uint32_t assign(std::initializer_list<uint32_t> percents)
    {
        NpPriBlock block = {static_cast<uint32_t>(percents.size()), {}};
        std::copy(percents.begin(), percents.end(), block.ulPriPercent);
        return Np_INIT_PriBlockAssign(0, 3, &block);
    }

    // A rule for a range of source ports, by a mask.
    static NpAclRule rule(uint32_t pri, uint32_t sport, uint32_t mask = 0xffff)
    {
        NpAclRule rule = {};
        rule.ulPri = pri;
        rule.stKey.ulSport = sport;
        rule.stMask.ulSport = mask;
        return rule;
    }

    static uint32_t set(uint32_t id, const NpAclRule &rule, uint32_t flow = 0)
    {
        NpAclAction action = {};
        action.ulAclCarCntID = flow;
        return Np_AclTbl_Set(0, id, &rule, &action);
    }

    // The row that a packet of a source port meets, and the number in its action.
    struct Met {
        uint32_t row = UINT32_MAX;
        uint32_t count = 0;
    };
    static Met meet(uint32_t sport)
    {
        const uint32_t key[10] = {0, 0, sport << 12};
        model::LcamResult result = {};
        EXPECT_EQ(model::lookup_lcam(0, {3, 1, 6, reinterpret_cast<const uint8_t *>(key)}, &result),
                  model::kOk);
        return result.hit ? Met{result.place.row, (result.ad[12] | result.ad[13] << 8) & 0x1ffu}
                          : Met{};
    }

    static uint32_t row_of(uint32_t id)
    {
        return g_pastAclRule2TcamInfo[0][id].ulEntryID;
    }
};

// Rules at random in blocks that fill up, have holes, borrow and give: each stands once, in its
// block, behind those that were there before it, and a packet meets the best one. What fails leaves
// all of them as they were.
TEST_F(Acl, BlocksHoldTheirRulesInOrder)
{
    std::mt19937 random(63);
    for (const auto &percents : {std::initializer_list<uint32_t>{25, 25, 25, 25},
                                 {10, 0, 60, 30},
                                 {100, 0, 0, 0},
                                 {0, 0, 0, 100}}) {
        ASSERT_EQ(assign(percents), NP_OK);
        struct Known {
            uint32_t pri, sport, since;
        };
        std::map<uint32_t, Known> known;
        for (uint32_t step = 0; step < 900; step++) {
            const uint32_t id = random() % 0x9e;
            const uint32_t pri = (step / 150 + random() % 2) % 4;
            const auto at = known.find(id);
            if (at != known.end() && random() % 3 == 0) {
                ASSERT_EQ(Np_AclTbl_Del(0, id), NP_OK);
                known.erase(at);
            }
            else if (at != known.end()) {
                EXPECT_EQ(set(id, rule((at->second.pri + 1) % 4, 1)), NP_ERR_PRIORITY);
                ASSERT_EQ(set(id, rule(at->second.pri, at->second.sport), id), NP_OK);
            }
            else {
                const uint32_t sport = random() % 40;
                if (step % 5 == 0) {
                    set_fault("rba nth=" + std::to_string(1 + random() % 12));
                }
                const uint32_t result = set(id, rule(pri, sport), id);
                model::faults_clear();
                if (result == NP_OK) {
                    known[id] = {pri, sport, step};
                }
                else {
                    ASSERT_EQ(row_of(id), NP_PRICAM_NONE);
                }
            }
            for (const auto &[a, first] : known) {
                ASSERT_EQ(g_pastAclTcam2RuleInfo[0][row_of(a)].ulRuleID, a);
                for (const auto &[b, second] : known) {
                    const bool before = first.pri != second.pri ? first.pri > second.pri
                                                                : first.since > second.since;
                    ASSERT_TRUE(a == b || before == (row_of(a) < row_of(b))) << a << " " << b;
                }
            }
        }
        for (uint32_t sport = 0; sport < 40; sport++) {
            uint32_t best = 0x9e;  // matches everything, as the other fixed one
            for (const auto &[id, each] : known) {
                if (each.sport == sport && row_of(id) < row_of(best)) {
                    best = id;
                }
            }
            const Met met = meet(sport);
            EXPECT_EQ(met.row, best == 0x9e ? std::min(row_of(0x9e), row_of(0x9f)) : row_of(best));
            EXPECT_EQ(met.count, best == 0x9e ? 0 : best);
        }
    }
    // As many rules as rows: each finds a place.
    for (uint32_t id = 0; id < 0x9e; id++) {
        if (row_of(id) == NP_PRICAM_NONE) {
            ASSERT_EQ(set(id, rule(id % 4, id)), NP_OK) << id;
        }
    }
}

TEST_F(Acl, HolesAreFilledBeforeARowIsBorrowed)
{
    ASSERT_EQ(assign({10, 10, 80}), NP_OK);  // 16 rows, 16, 128; the fixed rules take two
    for (uint32_t id = 0; id < 16; id++) {
        ASSERT_EQ(set(id, rule(1, id)), NP_OK);
    }
    const NpPriBlockPoint below = g_pastAclPriPoint[0][2];
    ASSERT_EQ(Np_AclTbl_Del(0, 3), NP_OK);
    EXPECT_EQ(g_pastAclPriPoint[0][1].ulTopPoint, 127u) << "the row stays a hole";
    ASSERT_EQ(set(20, rule(1, 20)), NP_OK);
    EXPECT_EQ(row_of(20), 128u);
    EXPECT_EQ(std::memcmp(&below, &g_pastAclPriPoint[0][2], sizeof(below)), 0);
    // The block above has 14 rows free, 16 away; the one below is 0 away.
    ASSERT_EQ(set(21, rule(1, 21)), NP_OK);
    EXPECT_EQ(row_of(21), 127u);
    EXPECT_EQ(g_pastAclPriPoint[0][2].ulBotPoint, 126u);
    EXPECT_EQ(meet(21).row, 127u);
}

TEST_F(Acl, PortsAndKindsReadBack)
{
    NpAclRule set_rule = rule(3, 80);
    set_rule.stIngressPort = {0, {{{9, 0, 4, 1}}}, 4};  // number 68, and three behind it
    set_rule.stEgressPort.ulType = 1;
    set_rule.stEgressPort.unPortInfo.stUserDef = {5, 7};
    set_rule.stKey.stOuterVlan = {1, 1, 0xabc};
    set_rule.stMask.stOuterVlan = {7, 1, 0xfff};
    set_rule.stKey.unAddress.stRule1 = {0xc0000201, 2, {1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}};
    set_rule.stMask.unAddress.stRule1 = {~0u, ~0u, {255, 255, 255, 255, 255, 255}, {255}};
    NpAclAction set_action = {3, 2, 1, 1, 200, 1, 9, 7, 6, 1, 5, 2, 4, 3, 0x3ff, 15};
    ASSERT_EQ(Np_AclTbl_Set(0, 7, &set_rule, &set_action), NP_OK);
    uint8_t key[40] = {};
    uint8_t mask[40] = {};
    ASSERT_EQ(Np_Tarn_LCAM_TcamRead(0, 9, row_of(7), key, mask, nullptr), NP_OK);
    uint32_t words[2];
    std::memcpy(words, mask, sizeof(words));
    // Egress: slot mask 7 << 7 from bit 36 on; ingress: 0x7c from bit 48 on; bit 59: it is given.
    EXPECT_EQ(words[1] & 0x0bff3ff0, 7u << 7 << 4 | 0x7cu << 16 | 1u << 27);
    NpAclRule back = {};
    NpAclAction action = {};
    ASSERT_EQ(Np_AclTbl_Get(0, 7, &back, &action), NP_OK);
    set_rule.stKey.unAddress.stRule1.aucSmac[0] = 7;
    std::fill_n(set_rule.stKey.unAddress.stRule1.aucSmac + 1, 5, uint8_t{0});  // under no mask
    EXPECT_EQ(std::memcmp(&back, &set_rule, sizeof(back)), 0);
    EXPECT_EQ(std::memcmp(&action, &set_action, sizeof(action)), 0);

    // A rule of the other kind; the action alone, then the rule alone.
    set_rule = rule(3, 81);
    set_rule.ulType = 1;
    set_rule.stKey.unAddress.stRule2 = {{0x20010db8, 1}, {0xfe800000, 2}};
    set_rule.stMask.unAddress.stRule2 = {{~0u, ~0u}, {~0u, ~0u}};
    EXPECT_EQ(Np_AclTbl_Set(0, 7, &set_rule, nullptr), NP_ERR_ACL_MODE);
    ASSERT_EQ(Np_AclTbl_Set(0, 8, &set_rule, &set_action), NP_OK);
    set_action.ulTosDscpModifyMode = 3;
    set_action.ulTosDscp = 1000;
    ASSERT_EQ(Np_AclActionTbl_Set(0, 8, &set_action), NP_OK);
    set_rule.stKey.ulSport = 82;
    ASSERT_EQ(Np_AclTbl_Set(0, 8, &set_rule, nullptr), NP_OK);
    ASSERT_EQ(Np_AclTbl_Get(0, 8, &back, &action), NP_OK);
    EXPECT_EQ(std::memcmp(&back, &set_rule, sizeof(back)), 0);
    set_action.ulTosDscp = 0;
    EXPECT_EQ(std::memcmp(&action, &set_action, sizeof(action)), 0);
}

TEST_F(Acl, BadRequestsChangeNothing)
{
    const NpAclRule good = rule(0, 1);
    const NpAclAction action = {};
    NpAclRule back = {};
    const auto refused = [&](const std::function<uint32_t()> &call, uint32_t code) {
        return failures(NP_M_ACL, call, code);
    };
    EXPECT_EQ(refused([&] { return Np_AclTbl_Set(0, 160, &good, &action); }, NP_ERR_PARAM),
              Words{"param error! (ulRuleID)=0x000000a0\r\n"});
    EXPECT_EQ(refused([] { return Np_AclTbl_Set(0, 1, nullptr, nullptr); }, NP_ERR_NULL_PTR),
              Words{"[ERROR] Para null ptr:ulChipID=0x00000000 pstRule=0x00000000 "
                    "pstAction=0x00000000\r\n"});
    EXPECT_EQ(refused([] { return Np_AclTbl_Get(0, 1, nullptr, nullptr); }, NP_ERR_NULL_PTR),
              Words{"[ERROR] Para null ptr: ulChipID=0x00000000 pstRule=0x00000000 "
                    "pstAction=0x00000000\r\n"});
    EXPECT_EQ(refused([&] { return Np_AclTbl_Get(0, 1, &back, nullptr); }, NP_ERR_NOT_EXIST),
              Words{"[ERROR] Item is not Valid: ulChipID=0x00000000 ulRuleID=0x00000001 "
                    "ulValid=0x00000000\r\n"});
    EXPECT_EQ(Np_AclActionTbl_Set(0, 1, &action), NP_ERR_NOT_EXIST);
    const auto bad = rule(20, 1);
    EXPECT_EQ(refused([&] { return Np_AclTbl_Set(0, 1, &bad, &action); }, NP_ERR_PARAM),
              Words{"param error! (pstRule->ulPri)=0x00000014\r\n"});
    EXPECT_EQ(Np_AclTbl_Del(0, 1), NP_OK);
    ASSERT_EQ(set(1, rule(2, 5)), NP_OK);
    EXPECT_EQ(refused([&] { return Np_AclTbl_Set(0, 1, &good, &action); }, NP_ERR_PRIORITY),
              Words{"[ERROR] pri not match: ulChipID=0x00000000 ulRuleID=0x00000001 "
                    "ulMode=0x00000000 ulPri=0x00000000 ulOldPri=0x00000002\r\n"});
    const uint32_t row = row_of(1);
    EXPECT_EQ(refused(
                  [] {
                      return assign({50, 49});
                  },
                  NP_ERR_PARAM),
              Words{"[ERROR] ulChipID=0x00000000, ulTotalPriPercent=0x00000063 \r\n"});
    EXPECT_EQ(assign({}), NP_ERR_PARAM);
    EXPECT_EQ(row_of(1), row);
    EXPECT_EQ(meet(5).row, row);
    // New blocks begin with the two fixed rules.
    ASSERT_EQ(assign({50, 50}), NP_OK);
    EXPECT_EQ(row_of(1), NP_PRICAM_NONE);
    EXPECT_EQ(meet(5).row, 158u);
    EXPECT_THAT(run("micro acl init rule_prinum 3 30 30 40"), EndsWith("success!"));
    EXPECT_THAT(run("micro acl rule set index 5 pri 2 sport 80 mask_sport 65535 "
                    "ingress_type port ingress_port ge portid 1 subportid 0 ingress_portnum 1 end"),
                EndsWith("success!"));
    EXPECT_THAT(run("micro acl action set index 5 ulFwd 2 end"), EndsWith("success!"));
    EXPECT_THAT(run("micro acl softtbldump softbl key+entry+pri+mode startID 0 endID 9"),
                HasSubstr("5      63     2    0"));
    EXPECT_THAT(run("micro acl rule del index 5"), EndsWith("success!"));
}

// Without the option there are no rows, no soft tables, and no functions.
TEST_F(ShellUp, AccessRulesTakeAnOption)
{
    const NpAclRule rule = {};
    EXPECT_EQ(Np_AclTbl_Set(0, 1, &rule, nullptr), NP_ERR_NULL_PTR);
    uint32_t enable = 0;
    EXPECT_EQ(Np_Tarn_LCAM_TcamEnableGet(0, 9, 0, &enable), NP_ERR_PARAM);
    EXPECT_THAT(run("micro acl init rule_prinum 1 100"), HasSubstr("0x9a000004"));
    EXPECT_EQ(ldsdk_family_option("acl", 1), NP_ERR_FAIL) << "the chip is up";
    ASSERT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
    EXPECT_EQ(ldsdk_family_option("alc", 1), NP_ERR_PARAM);
    EXPECT_EQ(ldsdk_family_option("acl", 2), NP_ERR_PARAM);
    EXPECT_EQ(ldsdk_family_option(nullptr, 1), LDSDK_HOST_NULL);
    EXPECT_EQ(g_aulNpFamilyOption[NP_OPTION_ACL], 0u);
}

}  // namespace

}  // namespace ldsdk::test

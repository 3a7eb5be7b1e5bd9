// Multi-service and analysis rules: what the lines of their rows can not say.
#include "tests/shell.h"

#include "sdk/frame/base/service.h"
#include "sdk/lookup/lcam.h"
#include "sdk/tables/ha.h"
#include "sdk/tables/multiservice.h"
#include "sdk/tables/pa.h"

namespace ldsdk::test {

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using Words = std::vector<std::string>;

class Rules : public ShellUp {
  protected:
    // What a packet with these key words meets in a table: the number of the rule, and its AD.
    struct Met {
        uint32_t rule = NP_PRICAM_NONE;
        std::array<uint32_t, 4> ad = {};
    };
    static Met meet(const NpPriTable &table, const std::array<uint32_t, 3> &key)
    {
        Met met = meet(table.ucLcamTable, key);
        met.rule = met.rule != NP_PRICAM_NONE ? table.ppulEntryKey[0][met.rule] : met.rule;
        return met;
    }

    // The same of a CAM table, whose rules are its rows.
    static Met meet(uint32_t table, const std::array<uint32_t, 3> &key)
    {
        const NpLcamConfig &cam = g_stNpLcamConfig_TarnB[table];
        model::LcamResult result = {};
        EXPECT_EQ(model::lookup_lcam(0,
                                     {cam.ulType, cam.ulBlock, cam.ulCid,
                                      reinterpret_cast<const uint8_t *>(key.data())},
                                     &result),
                  model::kOk);
        Met met;
        if (result.hit) {
            met.rule = ((result.place.tcam - cam.ulTcam) >> cam.ulType) * cam.ulDepthNum +
                       result.place.row - cam.ulDepth;
            std::memcpy(met.ad.data(), result.ad, sizeof(met.ad));
        }
        return met;
    }
};

// ---- multi-service rules ------------------------------------------------------------------------

// The CAM's rows end in the middle of the HA number: rules that differ above its low four bits are
// one to it.
TEST_F(Rules, OfServicesHaveFourBitsOfTheHaNumber)
{
    NpMultiService rule = {};
    rule.ulSrcIntfSelType = 1;
    rule.ulHaValueMask = 1;
    rule.ulHaValue = 0x15;
    ASSERT_EQ(Np_MultiServiceTbl_Set(0, 1, &rule), NP_OK);
    rule.ulMutiServicePri = 1;
    rule.ulHaValue = 0x25;
    ASSERT_EQ(Np_MultiServiceTbl_Set(0, 2, &rule), NP_OK);
    EXPECT_EQ(meet(g_stMultiServiceTable, {0, 0x15, 0}).rule, 2u);
    EXPECT_EQ(meet(g_stMultiServiceTable, {0, 0x14, 0}).rule, NP_PRICAM_NONE);
    ASSERT_EQ(Np_MultiServiceTbl_Get(0, 1, &rule), NP_OK);
    EXPECT_EQ(rule.ulHaValue, 5u);
    EXPECT_EQ(rule.ulHaValueMask, 0xfu);
}

// The number behind a source is cut to six bits, and a LAG is converted as the port that its number
// and the words behind it make.
TEST_F(Rules, OfServicesHaveSixBitsOfTheSource)
{
    NpMultiService rule = {};
    for (uint32_t lag = 0; lag < 16; lag++) {
        rule.stSrcIntf = {1, {}};
        rule.stSrcIntf.unSrcIntf.ulLagID = lag;
        uint32_t phy = 0;
        const uint32_t result =
            Np_PortID2PhyID(0, &rule.stSrcIntf.unSrcIntf.stPortInfo.stPortID, &phy);
        ASSERT_EQ(Np_MultiServiceTbl_Set(0, lag, &rule), result) << lag;
        if (result == NP_OK) {
            EXPECT_EQ(meet(g_stMultiServiceTable, {(phy & 0x3f) << 22, 0, 0}).rule, lag);
            ASSERT_EQ(Np_MultiServiceTbl_Del(0, lag), NP_OK);
        }
    }
    rule.stSrcIntf = {0, {{{9, 0, 38, 1}, 0}}};  // phy 0x66
    ASSERT_EQ(Np_MultiServiceTbl_Set(0, 1, &rule), NP_OK);
    ASSERT_EQ(Np_MultiServiceTbl_Get(0, 1, &rule), NP_OK);
    NpPortID port = {};
    ASSERT_EQ(Np_IngressPhyID2PortID(0, 0x26, &port), NP_OK);
    EXPECT_EQ(std::memcmp(&rule.stSrcIntf.unSrcIntf.stPortInfo.stPortID, &port, sizeof(port)), 0);
    EXPECT_EQ(rule.ulSrcIntf, 0x26u);
    EXPECT_EQ(rule.ulSrcIntfMask, 0x3fu);
}

// New blocks keep the count, as the chip keeps the rows; new soft tables begin at 0.
TEST_F(Rules, OfServicesStayCountedWhenBlocksAreAssignedAgain)
{
    const NpPriBlock split = {2, {50, 50}};
    NpMultiService rule = {};
    rule.ulSrcIntfSelType = 1;
    rule.ulIftID = 77;
    for (uint32_t key = 0; key < 3; key++) {
        ASSERT_EQ(Np_MultiServiceTbl_Set(0, key, &rule), NP_OK);
    }
    ASSERT_EQ(Np_INIT_PriBlockAssign(0, 0, &split), NP_OK);
    EXPECT_EQ(g_ulCamEntryUsedNum[0], 3u);
    EXPECT_EQ(g_ulPriMax[0], 1u);
    EXPECT_EQ(Np_MultiServiceTbl_Get(0, 0, &rule), NP_ERR_NOT_EXIST);
    EXPECT_EQ(meet(g_stMultiServiceTable, {}).ad[0], 77u) << "the row itself stays";
    Np_MultiService_Free(0);
    ASSERT_EQ(Np_INIT_PriBlockAssign(0, 0, &split), NP_OK);
    EXPECT_EQ(g_ulCamEntryUsedNum[0], 0u);
}

// ---- packet analysis ----------------------------------------------------------------------------

struct Stage {
    const NpPriTable &table;
    uint32_t type;
    uint32_t last;
    uint32_t (*init)(uint32_t, const NpPriBlock *);
};
const Stage kStages[] = {{g_stL2paTable, 1, 127, Np_Tarn_L2paTbl_Init},
                         {g_stL3paTable, 2, 63, Np_Tarn_L3paTbl_Init}};

TEST_F(Rules, OfAnalysisBeginWithOneThatTakesWhatIsLeft)
{
    for (const Stage &stage : kStages) {
        SCOPED_TRACE(stage.type);
        const auto met = [&] { return meet(stage.table, {~0u, ~0u, ~0u}); };
        const auto assign = [&](const NpPriBlock &block) {
            return [&] { return stage.init(0, &block); };
        };
        EXPECT_EQ(met().rule, stage.last);
        EXPECT_EQ(met().ad, (std::array<uint32_t, 4>{0, 0x800, 0, 0}));
        EXPECT_EQ(stage.table.pulPriMax[0], 9u);
        EXPECT_EQ(failures(
                      NP_M_PA, [&] { return stage.init(0, nullptr); }, NP_ERR_NULL_PTR),
                  Words{"Para null ptr\r\n"});
        EXPECT_EQ(failures(NP_M_PA, assign({11, {50, 50}}), NP_ERR_PARAM),
                  Words{"param error! pstPriBlockInfo->ulMaxPriNum=0x0000000b\r\n"});
        for (const NpPriBlock &block : {NpPriBlock{0, {100}}, {2, {50, 49}}}) {
            EXPECT_EQ(failures(NP_M_PA, assign(block), NP_ERR_PARAM),
                      Words{"Func error return: 0x9a000005 \r\n"});
        }
        EXPECT_EQ(met().rule, stage.last);
        // Assigned again: the count is that of the default row, and the chip keeps the others.
        const NpPriBlock split = {2, {50, 50}};
        NpL2pa l2 = {};
        NpL3pa l3 = {};
        l2.ulPri = l3.ulPri = 9;
        ASSERT_EQ(stage.type == 1 ? Np_L2paTbl_Set(0, 5, &l2) : Np_L3paTbl_Set(0, 5, &l3), NP_OK);
        EXPECT_EQ(met().rule, 5u);
        l2.ulPri = l3.ulPri = 8;
        EXPECT_EQ(failures(
                      NP_M_PA,
                      [&] {
                          return stage.type == 1 ? Np_L2paTbl_Set(0, 5, &l2)
                                                 : Np_L3paTbl_Set(0, 5, &l3);
                      },
                      NP_ERR_PRIORITY),
                  Words{});
        ASSERT_EQ(Np_INIT_PriBlockAssign(0, stage.type, &split), NP_OK);
        EXPECT_EQ(stage.table.pulUsedNum[0], 1u);
        EXPECT_EQ(met().rule, NP_PRICAM_NONE) << "a row that the soft tables don't know";
    }
    // Another member's default row.
    ASSERT_EQ(Np_TarnA_XDSL_L3paDefaultItemCfg(0), NP_OK);
    NpL3pa row = {};
    ASSERT_EQ(Np_L3paTbl_Get(0, 63, &row), NP_OK);
    EXPECT_EQ(row.stAD.ulEthTypeMask, 0u);
}

// Packets and the default rows that they meet, worked out by hand.
TEST_F(Rules, OfAnalysisTellPacketsApart)
{
    EXPECT_THAT(run("micro dfx pa_init"), EndsWith("Command execute success!"));
    EXPECT_EQ(g_aulL2paItemNum[0], 50u);
    EXPECT_EQ(g_aulL3paItemNum[0], 41u);
    struct {
        uint64_t dmac;
        uint32_t type, tags, ha, rule;
    } const frames[] = {
        {0x001122334455, 0x0800, 3, 0, 11},  // IPv4
        {0xffffffffffff, 0x0800, 3, 0, 14}, {0x0000005623af, 0x0800, 3, 0, 12},
        {0x01005e000001, 0x0800, 3, 0, 13}, {0x0000005623b1, 0x0800, 3, 0, 45},
        {0x333300000001, 0x86dd, 3, 0, 17},  // IPv6
        {0x001122334455, 0x86dd, 3, 0, 15}, {0xffffffffffff, 0x0806, 3, 4, 20},
        {0x001122334455, 0x8864, 3, 0, 21}, {0x0000005623b1, 0x8864, 3, 0, 46},
        {0x0180c2000003, 0x888e, 0, 0, 30},  // 802.1X, without and with a tag
        {0x0180c2000003, 0x888e, 2, 0, 29}, {0x001122334455, 0x888e, 2, 0, 27},
        {0x0180c2000002, 0x8809, 2, 0, 47}, {0x0180c2000002, 0x8809, 0, 0, 48},
        {0x0180c2000000, 0x0026, 2, 0, 31}, {0x0180c2000008, 0x0026, 0, 0, 32},
        {0x0180c2000021, 0x0026, 2, 0, 35}, {0x0180c2000001, 0x8808, 2, 0, 44},
        {0x001122334455, 0x0800, 3, 1, 1},  {0x001122334455, 0x0800, 3, 3, 3},
    };
    for (const auto &f : frames) {
        const auto dmac = static_cast<uint32_t>(f.dmac >> 16);
        EXPECT_EQ(meet(g_stL2paTable,
                       {static_cast<uint32_t>(f.dmac) << 16 | f.type, dmac, f.ha << 5 | f.tags})
                      .rule,
                  f.rule)
            << std::hex << f.dmac << " " << f.type;
    }
    struct {
        uint32_t encap, ptt, upper, lower, word0, rule;  // upper: bits 23:16 of word 1
    } const packets[] = {
        {10, 0, 0, 0xc021, 0x01000000, 5},  // LCP, configure request
        {14, 0, 0, 0xc021, 0x05000000, 3},
        {10, 0, 0, 0, 0, 2},
        {0, 10, 2, 0, 0, 9},              // IGMP
        {0, 8, 0x11, 0, 0x00430044, 14},  // DHCP
        {0, 3, 1, 0, 0, 26},
        {0, 3, 0x11, 0, 0x0bb8c000, 27},
        {0, 14, 0x3a, 0, 0x87000000, 36},  // neighbour solicitation
        {0, 12, 0x3a, 0, 0x89000000, 38},
        {0, 79, 3, 0, 0, 18},
        {0, 80, 0, 0, 0, 23},
        {12, 0, 0xff, 0, 0, 0},
        {0, 0, 0xff, 0xffff, 0xffffffff, 63},  // none
    };
    for (const auto &p : packets) {
        EXPECT_EQ(
            meet(g_stL3paTable, {p.word0, p.ptt << 24 | p.upper << 16 | p.lower, p.encap << 8})
                .rule,
            p.rule)
            << p.ptt << " " << std::hex << p.word0;
    }
    const std::array<uint32_t, 4> pppoe = {0x6a200000, 0x07400400, 0, 0};
    EXPECT_EQ(meet(g_stL2paTable, {0x23b18864, 0x00000056, 3}).ad, pppoe);
    const std::array<uint32_t, 4> drop = {0x08000836, 0xa1400900, 0, 0};
    EXPECT_EQ(meet(g_stL3paTable, {0x0bb8c000, 0x03110000, 0}).ad, drop);

    // A row that fails ends the load; those before it are there.
    const NpPriBlock equal = {10, {10, 10, 10, 10, 10, 10, 10, 10, 10, 10}};
    ASSERT_EQ(Np_INIT_PriBlockAssign(0, 1, &equal), NP_OK);
    set_fault("rba nth=45");
    EXPECT_EQ(Np_Tarn_DFX_PA_INIT(0), NP_ERR_LCAM_AD_WRITE);
    model::faults_clear();
    EXPECT_EQ(g_aulL2paItemNum[0], 12u);
}

TEST_F(Rules, OfTagsFollowTheTwoThatCanBeSet)
{
    const auto tags = [](uint32_t outer, uint32_t inner) {
        return meet(NP_LCAM_TPID, {inner << 4 | outer << 20, outer >> 12, 0}).ad[0];
    };
    const auto fixed = [&] {
        EXPECT_EQ(tags(0x8100, 0x8100), 0x03000800u);  // the first of its number
        EXPECT_EQ(tags(0x8100, 0x9100), 0x13000800u);
        EXPECT_EQ(tags(0x9200, 0x0800), 0x82000400u);
        EXPECT_EQ(tags(0x0800, 0x8100), 0u);
    };
    fixed();
    EXPECT_EQ(meet(NP_LCAM_TPID, {}).rule, 20u);
    EXPECT_EQ(tags(0x9100, 0x88a8), 0x42000400u);
    EXPECT_THAT(run("micro tpid innertpid set ulInnerTpid 34984"), EndsWith("success!"));
    ASSERT_EQ(Np_OuterTpid_Set(0, 0xffff), NP_OK);
    fixed();
    EXPECT_EQ(tags(0x9100, 0x88a8), 0x73000800u);
    EXPECT_EQ(tags(0xffff, 0x88a8), 0xf3000800u);
    EXPECT_EQ(tags(0xffff, 0x0800), 0xc2000400u);
    uint32_t value = 0;
    ASSERT_EQ(Np_InnerTpid_Get(0, &value), NP_OK);
    EXPECT_EQ(value, 0x88a8u);
    EXPECT_THAT(run("micro tpid outertpid get"), HasSubstr("65535"));
    EXPECT_EQ(Np_TarnB_ExtendTpidGet(0, 8, &value), NP_OK);
    EXPECT_EQ(value, 0x88a8u);
    EXPECT_EQ(failures(
                  NP_M_PA, [] { return Np_InnerTpid_Set(0, 0x10000); }, NP_ERR_PARAM),
              Words{"param error! ulInnerTpid=0x00010000\r\n"});
    set_fault("rba nth=1");
    EXPECT_EQ(failures(
                  NP_M_PA, [&] { return Np_OuterTpid_Get(0, &value); }, NP_ERR_TCAM_READ),
              Words{"Func error return: 0x9a000026 \r\n"});
    model::faults_clear();
    EXPECT_THAT(run("micro tpid init"), EndsWith("success!"));
    EXPECT_EQ(tags(0xffff, 0x88a8), 0u);
}

TEST_F(Rules, TemplatesAreSeenAsEntriesAndAsWords)
{
    NpPtt1 ptt = {};
    ptt.unPtt.aucPtt1[1] = 3;
    ptt.unPtt.aucPtt1[255] = 2;
    ASSERT_EQ(Np_Ptt1Tbl_Set(0, 255, &ptt), NP_OK);
    ptt.ulType = 1;
    ASSERT_EQ(Np_Ptt1Tbl_Get(0, 255, &ptt), NP_OK);
    EXPECT_EQ(ptt.unPtt.aulPtt1[0], 0xcu);
    EXPECT_EQ(ptt.unPtt.aulPtt1[15], 0x80000000u);
    ptt.unPtt.aulPtt1[3] = 0xffffffff;  // as it stands
    ASSERT_EQ(Np_Ptt1Tbl_Set(0, 255, &ptt), NP_OK);
    ptt.ulType = 0;
    ASSERT_EQ(Np_Ptt1Tbl_Get(0, 255, &ptt), NP_OK);
    EXPECT_EQ(ptt.unPtt.aucPtt1[63], 3u);
    EXPECT_EQ(ptt.unPtt.aucPtt1[64], 0u);
    ptt.ulType = 2;
    EXPECT_EQ(failures(
                  NP_M_PA, [&] { return Np_Ptt1Tbl_Get(0, 255, &ptt); }, NP_ERR_PARAM),
              Words{"error ulType = 0x00000002\r\n"});
}

// ---- commands on blocks and soft tables ---------------------------------------------------------

TEST_F(Rules, BlocksAreLaidOutAndShownByCommands)
{
    g_ulNpPubPrompt = 0;
    const std::string head = "\n\r  pri  percent    toppoint    botpoint ";
    const std::string done = "\n\r Command execute success!";
    struct {
        const char *line;
        std::string prints;
    } const cases[] = {
        {"l2 pri_init prinum 2 30 70", head +
                                           "\n\r  0    30         1023        1023     "
                                           "\n\r  1    70         716         716      " +
                                           done},
        {"l2 init prinum 1 100", head + "\n\r  0    100        1023        1023     " + done},
        {"l2pa init prinum 2 50 50", head +
                                         "\n\r  0    50         126         127      "
                                         "\n\r  1    50         63          63       " +
                                         done},
        {"l3pa init prinum 1 100", head + "\n\r  0    100        62          63       " + done},
        {"l2 pri_init prinum 2 30", "pri1 percent:\n"},
        {"l2 pri_init prinum 2 30 101", "pri1 percent:\n"},
        {"l2 pri_init prinum 2 30 70 0", "\n\r Command execute error!"},
        {"l2 pri_init prinum 257", "prinum[0, 256]: \n\n\r Invalid parameter!"},
        {"l2 pri_init", "prinum<sz>\n\n\r Command execute error!"},
        {"l3pa destruct 1", "\n\r Command execute error!"},
        {"l2pa set index 5 pri 1 key_ethtype 2048 mask_ethtype 65535 end", done},
        {"l2pa dump softbl key+entry+pri startkeyid 0 endkeyid 127",
         "\n\r  keyid  entry  pri  \n\r  5      63     1  \n\r  127    127    0  "
         "\n\r  cur_num: 2" +
             done},
        {"l2pa dump softbl key+entry+pri startkeyid 6 endkeyid 4294967295",
         "\n\r  keyid  entry  pri  \n\r  127    127    0  \n\r  cur_num: 2" + done},
        {"l2pa dump softbl pri+top+bot", head +
                                             "\n\r  0    50         126         127      "
                                             "\n\r  1    50         62          63       "
                                             "\n\r  cur_num: 2" +
                                             done},
        {"l3pa set index 7 key_type others key_payload 01020304050607 mask_payload ffffffffffffff "
         "end",
         done},
        {"l3pa dump softbl key+entry+pri startkeyid 0 endkeyid 62",
         "\n\r  keyid  entry  pri  key_type\n\r  7      62     0    3\n\r  cur_num: 2" + done},
        {"l2 dump softbl key+entry+pri startkeyid 0 endkeyid 9",
         "\n\r  keyid  entry  pri  srcintfseltype\n\r  cur_num: 0" + done},
        {"l2 dump softbl cm+rule startcmid 0 endcmid 9", done},
        {"l2pa set_state index 5 state disable", done},
        {"l2pa set_state index 6 state disable", "0x9a000015("},
        {"l2pa set_state index 5 state 2", "0x9a000005("},
        {"l2pa get_state index 5", "state                    :   disable                  (0x0)"},
        {"dfx l2pa display", "index                    :   127                      (0x7f)"},
        {"dfx l3pa display", "key_payload              :   0x01020304050607"},
        {"l3pa destruct", done},
        {"l3pa get index 7", "0x9a000004("},
        {"l3pa dump softbl pri+top+bot", "0x9a000004("},
    };
    for (const auto &c : cases) {
        const std::string printed = run(std::string("micro ") + c.line);
        EXPECT_THAT(printed, c.prints[0] == '\n' ? testing::Matcher<std::string>(c.prints)
                                                 : HasSubstr(c.prints))
            << c.line;
    }
}

}  // namespace

}  // namespace ldsdk::test

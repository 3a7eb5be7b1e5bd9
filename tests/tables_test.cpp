// The flat tables: their places, their functions by name, and their command lines. What is written
// of their rows stands in tests/rows.txt.
#include "tests/rows.h"

#include "ldsdk/ipqam.h"
#include "sdk/frame/base/service.h"
#include "sdk/lookup/eml.h"
#include "sdk/module/smd_ipqam.h"

namespace ldsdk::test {

namespace {

using testing::EndsWith;
using testing::HasSubstr;

// Where rows lie, by the addresses of the tables.
TEST_F(Rows, RowsLieAtTheirAddresses)
{
    NpVlan vlan = {};
    vlan.ulVlanIf = 9;
    vlan.ulMccLeafID = 1234;
    ASSERT_EQ(Np_VlanTbl_Set(0, 4095, &vlan), NP_OK);
    EXPECT_EQ(peek(0x60210000 + 8 * 4095 + 4), 9u);
    EXPECT_EQ(peek(0x64044000 + 4 * 4095), 1234u);
    const NpMdiInfo mdi = {7, 8, 9};
    ASSERT_EQ(Np_MdiInfoTbl_Set(0, 3, 127, &mdi), NP_OK);
    uint32_t address = 0;
    ASSERT_EQ(Np_RegTableRealAddrGet(0, 55, 511, &address), NP_OK);
    EXPECT_EQ(peek(address), 0x00090008u);
    EXPECT_EQ(peek(address + 4), 7u);
    const NpPortID xaui = {9, 0, 38, 1};  // number 64 + 38
    NpPortPct pct = {};
    pct.ulHS = 0xee;
    ASSERT_EQ(Np_PctTbl_Set(0, &xaui, &pct), NP_OK);
    EXPECT_EQ(peek(0x60226800 + 16 * 102 + 4), 0xee000000u);
    const NpPortGemportLoopQid loop = {1, 5};
    ASSERT_EQ(Np_GemportLoopQidTbl_Set(0, 4095, &loop), NP_OK);
    EXPECT_EQ(peek(0x60272000 + 2 * 4094) >> 16, 0x8005u);
    // Behind a user's row its four counters, the last one lowest; those of valid entries count on.
    const uint32_t counters = 0x6024d200 + 16 * 31 + 8;
    poke(counters, 0x22223333);
    poke(counters + 4, 0x00001111);
    const NpPortToCpuPtypeCarInfo limits = {{{1, 1}, {1, 2}, {0, 3}, {1, 4}}};
    ASSERT_EQ(Np_PortToCpuPtypeCarTbl_Set(0, 31, &limits), NP_OK);
    EXPECT_EQ(peek(counters), 0x00003333u);
    EXPECT_EQ(peek(counters + 4), 0x00001111u);
    EXPECT_EQ(Np_PctTbl_Set(0, nullptr, &pct), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_PctTbl_Get(0, nullptr, &pct), NP_ERR_NULL_PTR);
    EXPECT_THAT(run("micro port pct set port xaui portid 0 subportid 38 pri 1 "
                    "pctporttype voip l2c 1 mode access bondingport fe portid 3 end"),
                EndsWith("Command execute success!"));
    EXPECT_EQ(peek(0x60226800 + 16 * 102 + 12), 0x00f10801u);
    EXPECT_THAT(run("micro port pct set port xaui portid 0 subportid 128 pri 1 l2c 0 end"),
                Not(HasSubstr("success")));
}

// Counts that this family has not, and the messages of indices that are none.
TEST_F(Rows, ClocksCountNothing)
{
    NpClockCnt count = {};
    const NpRow &row = *g_stPtpStTable.pstRow;
    EXPECT_EQ(failures(
                  row, [&] { return Np_tarn_PtpStTbl_Get(0, 2048, &count); }, NP_ERR_PARAM),
              Words{"param error! (ulIndex)=0x00000800\r\n"});
    EXPECT_EQ(Np_tarn_PtpStTbl_Get(0, 2047, &count), NP_ERR_PARAM);
    EXPECT_EQ(Np_tarn_SsmStTbl_Set(0, 0, &count), NP_ERR_PARAM);
    NpClockAlarm alarm = {};
    EXPECT_EQ(Np_tarn_AnnTimeOutAlmTbl_Get(0, 0, &alarm), NP_ERR_PARAM);
    EXPECT_EQ(Np_tarn_AnnChangeAlmTbl_Set(0, 0, &alarm), NP_ERR_PARAM);
    EXPECT_EQ(Np_tarn_AnnChangeAlmTbl_Get(0, 0, nullptr), NP_ERR_NULL_PTR);
}

// Every feature is off after bring-up, and the registers of all units are written row by row.
TEST_F(Rows, GlobalSettingsReachEachUnit)
{
    std::vector<uint32_t> expected;
    for (const uint32_t word : {0x40u, 0x44u, 0x48u}) {
        for (const uint32_t unit : {0u, 1u, 2u, 3u}) {
            expected.push_back(0x7a101a00 + (unit << 16) + word);
            EXPECT_EQ(peek(expected.back()), word == 0x40 ? 8u : 0u);
        }
    }
    EXPECT_EQ(peek(0x60222200), 0x50000000u);
    NpGlobal global = {};
    ASSERT_EQ(Np_GlobalTbl_Get(0, 0, &global), NP_OK);
    NpGlobal first = {};
    first.ulEfbFlag = 1;
    EXPECT_EQ(std::memcmp(&global, &first, sizeof(global)), 0);
    global.ulOuterTpid = 0x88a8;
    global.ulMirrorID = 77;  // nobody asks for it while mirroring is off
    BusTap bus;
    ASSERT_EQ(Np_GlobalTbl_Set(0, 0, &global), NP_OK);
    std::vector<uint32_t> written;
    for (const BusTap::Access &access : bus.take()) {
        if (access.address >> 20 == 0x7a1) {
            written.push_back(access.address);
        }
    }
    EXPECT_EQ(written, expected);
    EXPECT_EQ(peek(0x7a131a40), 0x88a80008u);
    // A dying gasp row reads by the type that its last Set had, and of type 0 after bring-up.
    const NpDyingGasp gasp = {1, 3, 2, {.stGpon = {1, 99}}};
    ASSERT_EQ(Np_DyingGaspTbl_Set(0, 7, &gasp), NP_OK);
    NpDyingGasp back = {};
    ASSERT_EQ(Np_DyingGaspTbl_Get(0, 7, &back), NP_OK);
    EXPECT_EQ(std::memcmp(&back, &gasp, sizeof(back)), 0);
    ASSERT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
    EXPECT_EQ(g_pastNpGlbDyingGaspInfo[0], nullptr);
    ASSERT_EQ(Np_DyingGaspTbl_Get(0, 7, &back), NP_OK);
    EXPECT_EQ(back.ulFrameInfoType, 0u);
}

// Entries of every exact-match table against a map by their keys' bits, through the exported
// functions: added, changed, read by key and by place, deleted by key and by place; in the end no
// place has one. A bad key or record changes nothing.
TEST_F(Rows, ExactTablesAgreeWithAMap)
{
    Maker maker(25);
    for (const NpExactTableInfo &info : std::span(g_astNpExactTable, g_ulNpExactTableNum)) {
        SCOPED_TRACE(info.pszGet);
        const NpExactTable &table = *info.pstTable;
        const size_t places = table.pstPlace->usRecordSize / 4u;
        ASSERT_LE(table.pstKey->usRecordSize, sizeof(NpKeyRecord));
        const auto item_of = [&](const Bytes &key, const Bytes &data) {
            NpExactItem item = {};
            EXPECT_EQ(Np_Exact_KeyBuild(&table, 0, key.data(), &item), NP_OK);
            EXPECT_EQ(Np_Exact_DataBuild(&table, 0, data.data(), &item), NP_OK);
            return Words{testing::PrintToString(item.aulWord)};
        };
        Bytes key(table.pstKey->usRecordSize);
        Bytes data(table.pstData->usRecordSize);
        uint32_t kind = NP_EML_DEL_ANY;
        uint32_t place[] = {0, 0};
        uint32_t told[4] = {};
        const auto call = [&](const NpAnyCall &which, std::vector<void *> args) {
            args.insert(args.end(), {key.data(), data.data(), told});
            return which.pfnCall(0, args.data());
        };
        const auto del = [&] {
            return call(info.stDel, info.stDel.ulArgNum == 2 ? std::vector<void *>{&kind}
                                                             : std::vector<void *>{});
        };
        const auto at = [&](const NpAnyCall &which) {
            return call(which, places == 2 ? std::vector<void *>{&place[0], &place[1]}
                                           : std::vector<void *>{&place[1]});
        };
        std::map<Words, std::pair<Bytes, Bytes>> map;  // by the item of the key alone
        const Bytes none(table.pstData->usRecordSize);
        for (int step = 0; step < 400; step++) {
            key = maker.record(*table.pstKey);
            data = maker.record(*table.pstData);
            const Words bits = item_of(key, none);
            ASSERT_EQ(call(info.stAdd, {}), NP_OK);
            map[bits] = {key, data};
            if (step % 3 == 0 || map.size() > 100) {
                const auto gone = std::next(map.begin(), maker.number() % map.size());
                key = gone->second.first;
                if (step % 2 == 0) {
                    ASSERT_EQ(del(), NP_OK);
                }
                else {
                    NpExactMet met = {};
                    ASSERT_EQ(Np_Exact_Get(&table, 0, key.data(), data.data(), &met), NP_OK);
                    place[1] = met.ulIndex;
                    ASSERT_EQ(at(info.stGetByIndex), NP_OK);
                    EXPECT_EQ(item_of(key, data), item_of(gone->second.first, gone->second.second));
                    ASSERT_EQ(at(info.stDelByIndex), NP_OK);
                    key = gone->second.first;
                }
                EXPECT_EQ(call(info.stGet, {}), NP_ERR_NOT_EXIST);
                map.erase(gone);
            }
        }
        const Bytes full = store();
        for (const NpRow *row : {table.pstKey, table.pstData}) {
            for (const NpCheck &check : checks_of(*row)) {
                key = map.begin()->second.first;
                data = map.begin()->second.second;
                Bytes &bad = row == table.pstKey ? key : data;
                const Bytes good = bad;
                std::fill_n(bad.begin() + check.usOffset, check.ucSize, uint8_t{0xff});
                if (Np_Row_Check(row, 0, bad.data()) != NP_OK) {
                    EXPECT_NE(call(info.stAdd, {}), NP_OK) << check.pszText;
                    EXPECT_TRUE(row != table.pstKey || del() != NP_OK) << check.pszText;
                }
                bad = good;
            }
        }
        EXPECT_EQ(store(), full);
        place[1] = UINT32_MAX;
        EXPECT_EQ(at(info.stGetByIndex), NP_ERR_PARAM);
        EXPECT_EQ(at(info.stDelByIndex), NP_ERR_PARAM);
        for (const auto &[bits, entry] : map) {
            key = entry.first;
            ASSERT_EQ(call(info.stGet, {}), NP_OK);
            EXPECT_EQ(item_of(entry.first, data), item_of(entry.first, entry.second));
            ASSERT_EQ(del(), NP_OK);
        }
        EXPECT_EQ(del(), NP_OK) << "nothing to delete is fine";
        NpExactMet met = {};
        for (place[1] = 0; Np_Exact_GetByIndex(&table, 0, &place[2 - places], key.data(),
                                               data.data(), &met) == NP_OK;
             place[1]++) {
            ASSERT_EQ(met.ulStatus, 0u) << place[1];
        }
        EXPECT_GE(place[1], 128u);
    }
}

// GEM port mapping rules against what a packet finds: the lowest rule whose fields of the mode are
// the packet's.
TEST_F(Rows, GemPortRulesMatchByTheFieldsOfTheirMode)
{
    std::mt19937 random(11);
    const NpPortID ports[] = {{1, 0, 0, 0}, {1, 1, 0, 0}, {9, 0, 1, 1}, {7, 23, 0, 0}};
    const uint32_t numbers[] = {0, 1, 1, 63};  // 65 is 1 in six bits
    std::map<uint32_t, NpPortGmtKey> rules;
    for (uint32_t round = 0; round < 600; round++) {
        const uint32_t index = std::array{0u, 1u, 127u, 128u, 300u, 511u}[random() % 6];
        const NpPortID &port = ports[random() % 4];
        NpPortGmtKey key = {static_cast<uint32_t>(random() % 16),
                            port.ulPortType,
                            port.ulPortID,
                            port.ulSubPortID,
                            port.ulPri,
                            9,
                            9,
                            9,
                            9,
                            static_cast<uint32_t>(random() % 2 * 255),
                            static_cast<uint32_t>(random() % 2 * 7),
                            static_cast<uint32_t>(random() % 2 * 4095),
                            index};
        const NpPortGmtData data = {index + 1000, index / 2, 3, index, index % 2, 5};
        if (random() % 4 == 0) {
            ASSERT_EQ(
                random() % 2 == 0 ? Np_GmtTbl_Del(0, &key) : Np_Tarn_GmtTbl_DelByIndex(0, index),
                NP_OK);
            rules.erase(index);
        }
        else {
            if ((key.ulGmtMode & 8) == 0 && random() % 2 == 0) {
                key.ulSportType = 15;  // no port of the chip, and nothing that the rule asks
            }
            ASSERT_EQ(Np_GmtTbl_Set(0, &key, &data), NP_OK);
            rules[index] = key;
            NpPortGmtKey read = {0xff, 9, 9, 9, 9, 9, 9, 9, 9, 0, 0, 0, index};
            NpPortGmtData found = {};
            ASSERT_EQ(random() % 2 == 0 ? Np_Tarn_GmtTbl_GetByIndex(0, index, &read, &found)
                                        : (read.ulGmtMode = 0, Np_GmtTbl_Get(0, &read, &found)),
                      NP_OK);
            EXPECT_EQ(read.ulGmtMode, key.ulGmtMode);
            EXPECT_EQ(read.ulSportType, 9u) << "ports stay as they were";
            EXPECT_EQ(read.ulVID, key.ulGmtMode & 1 ? key.ulVID : 0);
            EXPECT_EQ(read.ulPcp, key.ulGmtMode & 2 ? key.ulPcp : 0);
            EXPECT_EQ(read.ulTos, key.ulGmtMode & 4 ? key.ulTos : 0);
            EXPECT_EQ(found.ulGemportID, data.ulGemportID);
            EXPECT_EQ(found.ulIcos, index % 2 == 0 ? 5u : 0u);
        }
        const uint32_t from = random() % 4, tos = random() % 2 * 255, pcp = random() % 2 * 7,
                       vid = random() % 2 * 4095;
        const uint64_t bits = uint64_t{numbers[from]} << 30 | tos << 16 | vid << 4 | pcp << 1;
        Bytes packet(5);
        std::memcpy(packet.data(), &bits, 5);
        model::LcamResult got = {};
        ASSERT_EQ(model::lookup_lcam(0, {0, 0, 9, packet.data()}, &got), model::kOk);
        const auto want = std::find_if(rules.begin(), rules.end(), [&](const auto &rule) {
            const NpPortGmtKey &k = rule.second;
            const NpPortID source = {k.ulSportType, k.ulSportID, k.ulSsubPortID, k.ulSPri};
            uint32_t phy = 0;
            return ((k.ulGmtMode & 1) == 0 || k.ulVID == vid) &&
                   ((k.ulGmtMode & 2) == 0 || k.ulPcp == pcp) &&
                   ((k.ulGmtMode & 4) == 0 || k.ulTos == tos) &&
                   ((k.ulGmtMode & 8) == 0 ||
                    (Np_PortID2PhyID(0, &source, &phy) == NP_OK && phy % 64 == numbers[from]));
        });
        ASSERT_EQ(got.hit, want != rules.end());
        if (got.hit) {
            uint32_t ad = 0;
            std::memcpy(&ad, got.ad, 4);
            EXPECT_EQ(ad, want->first);
        }
    }
    NpPortGmtKey bad = {8, 15, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 511};
    NpPortGmtData data = {0x1000, 0, 0, 0, 0, 0};
    EXPECT_EQ(failures(
                  g_stGmtKeyRow, [&] { return Np_GmtTbl_Set(0, &bad, &data); }, NP_ERR_PARAM),
              Words{"param error! (pstGmtData->ulGemportID)=0x00001000\r\n"});
    data.ulGemportID = 0;
    EXPECT_NE(Np_GmtTbl_Set(0, &bad, &data), NP_OK) << "a port that the chip has not";
    bad.ulGemportIndex = 512;
    for (const auto &call : std::initializer_list<std::function<uint32_t()>>{
             [&] { return Np_GmtTbl_Set(0, &bad, &data); },
             [&] { return Np_GmtTbl_Get(0, &bad, &data); },
             [&] { return Np_GmtTbl_Del(0, &bad); }}) {
        EXPECT_EQ(failures(g_stGmtKeyRow, call, NP_ERR_PARAM),
                  Words{"param error! (pstGmtKey->ulGemportIndex)=0x00000200\r\n"});
    }
    EXPECT_EQ(failures(
                  g_stGmtKeyRow, [&] { return Np_Tarn_GmtTbl_DelByIndex(0, 512); }, NP_ERR_PARAM),
              Words{"param error! (ulIndex)=0x00000200\r\n"});
    EXPECT_EQ(Np_GmtTbl_Set(0, nullptr, &data), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_GmtTbl_Get(0, &bad, nullptr), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_GmtTbl_Del(0, nullptr), NP_ERR_NULL_PTR);
    // On the command line a set keeps what it does not name, a full one does not.
    EXPECT_THAT(run("micro port gmt set_full index 7 gmtmode 9 vid 100 sport gpon portid 1 tos 3 "
                    "gemportid 77 icosmode 2 end"),
                EndsWith("Command execute success!"));
    EXPECT_THAT(run("micro port gmt set index 7 gmtmode 1 queueoffset 6 end"),
                EndsWith("Command execute success!"));
    const std::string shown = run("micro port gmt get index 7");
    for (const char *line :
         {"ulVID                    :   100 ", "ulGemportID              :   77 ",
          "ulQueueOffset            :   6 ", "ulIcosMode               :   2 "}) {
        EXPECT_THAT(shown, HasSubstr(line));
    }
    EXPECT_THAT(
        run("micro port gmt set_full index 8 gmtmode 8 sport xaui portid 0 subportid 45 pri 1 "
            "end"),
        EndsWith("Command execute success!"));
    EXPECT_THAT(run("micro port gmt set index 8 gemportid 3 end"),
                EndsWith("Command execute success!"));
    EXPECT_THAT(run("micro port gmt get index 8"),  // number 109, 45 in six bits
                HasSubstr("porttype                 :   fe\r\n    portid                   :   5"));
    EXPECT_THAT(run("micro port gmt del index 7"), EndsWith("Command execute success!"));
    EXPECT_THAT(run("micro port gmt set index 512 end"), HasSubstr("ulReturn = 0x9a000005("));
}

// The byte of a GEM port stands in a row with three others.
TEST_F(Rows, BitmapBytesKeepTheirNeighbours)
{
    poke(0x60241000 + 4 * 1023, 0x44332211);
    const NpPortGemportBitMapInfo hs = {0x1ab};
    ASSERT_EQ(Np_GemportBitMapTbl_Set(0, 4093, &hs), NP_OK);
    EXPECT_EQ(peek(0x60241000 + 4 * 1023), 0x4433ab11u);
    NpPortGemportBitMapInfo back = {};
    ASSERT_EQ(Np_GemportBitMapTbl_Get(0, 4092, &back), NP_OK);
    EXPECT_EQ(back.ulHS, 0x11u);
    EXPECT_EQ(failures(
                  g_stGemportBitMapRow, [&] { return Np_GemportBitMapTbl_Set(0, 4096, &hs); },
                  NP_ERR_ADDRESS),
              Words{"Read error return:0x9a000008  ID:0x0000008e Offset:0x00000400\r\n"});
    EXPECT_EQ(Np_GemportBitMapTbl_Set(0, 0, nullptr), NP_ERR_NULL_PTR);
    EXPECT_THAT(run("micro port gemportbitmap set index 4095 hs 9"), HasSubstr("success"));
    EXPECT_THAT(run("micro port gemportbitmap get index 4095"), HasSubstr(":   9 "));
    EXPECT_EQ(peek(0x60241000 + 4 * 1023), 0x0933ab11u);
}

// The exported functions answer that the family has no such table; what stands behind them works as
// far as the chip lets it.
TEST_F(Rows, AbsentPortTablesAreRefusedAtTheDoor)
{
    const NpPortID port = {9, 0, 6, 1};  // number 70
    NpPortAtmEncap atm = {};
    NpPortPvcEnc pvc = {14};
    NpPortIpUdpEncapInfo ip = {1, 2, 0x03040506, 0x0708090a, 11, 12};
    NpPortCesopKey key = {1, 3, {}};
    NpPortCesopData data = {};
    for (const auto &call : std::initializer_list<std::function<uint32_t()>>{
             [&] { return Np_AtmEncapTbl_Set(0, &port, &atm); },
             [&] { return Np_AtmEncapTbl_Get(0, &port, &atm); },
             [&] { return Np_AtmEncapTblPvcItem_Set(0, &port, 0, &pvc); },
             [&] { return Np_AtmEncapTblPvcItem_Get(0, &port, 0, &pvc); },
             [&] { return Np_IpUdpEncapInfoTbl_Set(0, 0, &ip); },
             [&] { return Np_IpUdpEncapInfoTbl_Get(0, 0, &ip); },
             [&] { return Np_CesopMapTbl_Set(0, &key, &data); },
             [&] { return Np_CesopMapTbl_Get(0, &key, &data); },
             [&] { return Np_CesopMapTbl_Del(0, &key, &data); }}) {
        EXPECT_EQ(call(), NP_ERR_UNREGISTERED);
    }
    for (const char *line :
         {"atm_encap get port xaui portid 0 subportid 6 pri 1",
          "atm_pvc set port xaui portid 0 subportid 6 pri 1 pvcindex 3 pvcenc aoe",
          "ipudp set index 3 tos 1", "cesop add direction up encapmode pw pwid 5",
          "cesop del direction up encapmode dport udpdport 5"}) {
        EXPECT_THAT(run(std::string("micro port ") + line), HasSubstr("ulReturn = 0x9a000003("));
    }
    EXPECT_EQ(Np_Tarn_AtmEncapTbl_Set(0, &port, &atm), NP_ERR_ADDRESS);
    ASSERT_EQ(Np_Tarn_AtmEncapTblPvcItem_Set(0, &port, 3, &pvc), NP_OK);
    EXPECT_EQ(peek(0x60266000 + 16 * 70 + 8) & 0xffff, 14u);
    pvc = {};
    ASSERT_EQ(Np_Tarn_AtmEncapTblPvcItem_Get(0, &port, 3, &pvc), NP_OK);
    EXPECT_EQ(pvc.ulPvcEnc, 14u);
    EXPECT_EQ(failures(
                  g_stPvcEncRow, [&] { return Np_Tarn_AtmEncapTblPvcItem_Set(0, &port, 8, &pvc); },
                  NP_ERR_PARAM),
              Words{"param error! (ulPvcIndex)=0x00000008\r\n"});
    EXPECT_EQ(Np_Tarn_IpUdpEncapInfoTbl_Set(0, 32, &ip), NP_ERR_PARAM);
    EXPECT_EQ(
        failures(
            g_stCesopKeyRow, [&] { return Np_Tarn_CesopMapTbl_Set(0, &key, &data); }, NP_ERR_PARAM),
        Words{"Func error return: 0x9a000005 \r\n"});
    key.ulEncapMode = 4;
    EXPECT_EQ(failures(
                  g_stCesopKeyRow, [&] { return Np_Tarn_CesopMapTbl_Del(0, &key, nullptr); },
                  NP_ERR_PARAM),
              (Words{"[ERROR]Encap Mode Error!!! ulEncapMode = 0x00000004\r\n",
                     "Func error return: 0x9a000005 \r\n"}));
    EXPECT_EQ(Np_Tarn_CesopMapTbl_GetByIndex(0, 127, &key, &data, nullptr), NP_ERR_PARAM);
    EXPECT_EQ(
        failures(
            g_stCesopKeyRow, [&] { return Np_Tarn_CesopMapTbl_DelByIndex(0, 128); }, NP_ERR_PARAM),
        Words{"param error! (ulIndex)=0x00000080\r\n"});
}

// Every IP-QAM command reaches its exported function, which has no table behind it; nothing crosses
// the bus, and no command of the tree leads there.
TEST_F(Rows, IpQamCommandsAnswerThatThereIsNoTable)
{
    size_t handlers = 0;
    for (const NpCliCmdEntry &group : g_stNpSdkIpqamCmds) {
        handlers += group.ulChildNum;
    }
    const auto ask = [&](const std::string &line) {
        BusTap bus;
        words(line);
        ld_sdk_cli_dispatch(g_stNpSdkIpqamCmds, std::size(g_stNpSdkIpqamCmds));
        EXPECT_TRUE(bus.take().empty());
        return out.take();
    };
    size_t asked = 0;
    for (const auto &[group, key, pair] : std::initializer_list<std::array<std::string, 3>>{
             {"pgidmap", "dudp 5", "sip 1.2.3.4 type remap"},
             {"pmtmap", "inpgid 1 pid 2", "pmtpid 3"},
             {"npidmap", "inpgid 1 pid 2", "newpid 3"},
             {"versioninfo", "inpgid 1", ""},
             {"channelmap", "inpgid 1", ""},
             {"encinfo", "index 1", ""}}) {
        const bool map = !pair.empty();
        Words lines = {"get " + key, "set " + key + (map ? " " + pair + " end" : "")};
        if (map) {
            lines.insert(lines.end(), {"del " + key, "getbyindex index 7", "delbyindex index 7"});
        }
        for (const std::string &line : lines) {
            EXPECT_THAT(ask(group + " " + line), HasSubstr("ulReturn = 0x9a000003(")) << group;
            asked++;
        }
    }
    EXPECT_THAT(ask("txtimemsg set enable 1 agetime 100 session 5"),
                HasSubstr("ulReturn = 0x9a000003("));
    EXPECT_EQ(asked + 1, handlers);
    EXPECT_THAT(ask("pgidmap set dudp 5 dudp 6 end"), EndsWith("Invalid command!"));
    EXPECT_EQ(run("micro ipqam"), run("micro"));
    const NpPidMapKey key = {};
    EXPECT_EQ(Np_PidMapTbl_Del(3, &key), NP_ERR_CHIP_ID);
}

// A leaf without a destination keeps the caller's; one that discards reads back as it is stored.
TEST_F(Rows, LeavesReadBackByTheirOperation)
{
    for (const auto &[op, set, get] : std::initializer_list<std::array<uint32_t, 3>>{
             {0, 5, 5}, {1, 8191, 8191}, {3, 5, 77}, {6, 1, 77}, {7, 5, 6149}, {7, 8191, 6143}}) {
        NpMet met = {1, op, 0x7fff, {set}};
        ASSERT_EQ(Np_MetTbl_Set(0, 1999, &met), NP_OK);
        met = {0, 0, 0, {77}};
        ASSERT_EQ(Np_MetTbl_Get(0, 1999, &met), NP_OK);
        EXPECT_EQ(met.unDstintf.ulOftID, get) << op;
        EXPECT_EQ(met.ulOpCode, op);
        EXPECT_EQ(met.ulNextMetID, 0x7fffu);
        EXPECT_EQ(met.ulValid, 1u);
    }
}

// A row with its record, as its trace shows it: the named function, then every field.
TEST_F(Rows, TracesNameTheFunctionAndTheFields)
{
    Np_PrintLevelSet(NP_M_MC, NP_PRINT_TRACE, 1);
    const NpMet met = {1, 1, 2, {3}};
    EXPECT_EQ(Np_MetTbl_Set(0, 7, &met), NP_OK);
    const std::string text = out.take();
    EXPECT_THAT(text, HasSubstr("[Np_Tarn_MetTbl_Set "));
    EXPECT_THAT(text, HasSubstr("ulIndex=0x7 "));
    EXPECT_THAT(text, HasSubstr("ulValid=0x1 ulOpCode=0x1 "));
    EXPECT_THAT(text, HasSubstr("ulNextMetID=0x2 "));
    Np_Tarn_MC_MetTblParaTrace(&met);
    EXPECT_THAT(out.take(), HasSubstr("[Np_Tarn_MC_MetTblParaTrace "));
    trace_errors(NP_M_VLAN);
    NpVlan vlan = {};
    EXPECT_EQ(Np_Tarn_VLAN_VlanTblParaCheck(0, 4096, &vlan), NP_ERR_PARAM);
    EXPECT_THAT(out.take(), HasSubstr("[Np_Tarn_VLAN_VlanTblParaCheck "));
    // A record of many fields takes several lines, and loses none.
    NpVlanOption option = {};
    Np_PrintLevelSet(NP_M_VLAN, NP_PRINT_TRACE, 1);
    option.aulDownAction[31] = 3;
    Np_Tarn_VLAN_VlanOptionTblParaTrace(&option);
    EXPECT_THAT(out.take(), HasSubstr("0x3 "));
}

// The two rows of a VLAN on their own.
TEST_F(Rows, PartsBuildAndParseAlone)
{
    NpVlan vlan = {};
    vlan.ulFwd = 2;
    vlan.ulUpBcFilterEnable = 1;
    std::array<uint32_t, 2> row{};
    uint32_t extension = 0;
    ASSERT_EQ(Np_Tarn_VLAN_VlanTblBuild(0, &vlan, row.data()), NP_OK);
    ASSERT_EQ(Np_Tarn_VlanExtTblBuild(0, &vlan, &extension), NP_OK);
    EXPECT_EQ(row, (std::array<uint32_t, 2>{0, 0x80000000}));
    EXPECT_EQ(extension, 0x04000000u);
    NpVlan back = {};
    back.ulMccLeafID = 5;
    ASSERT_EQ(Np_Tarn_VLAN_VlanTblParse(0, row.data(), &back), NP_OK);
    EXPECT_EQ(back.ulFwd, 2u);
    EXPECT_EQ(back.ulMccLeafID, 5u);
    ASSERT_EQ(Np_Tarn_VlanExtTblParse(0, &extension, &back), NP_OK);
    EXPECT_EQ(back.ulUpBcFilterEnable, 1u);
    EXPECT_EQ(back.ulFwd, 2u);
    EXPECT_EQ(back.ulMccLeafID, 0u);
}

// ---- the command line ---------------------------------------------------------------------------

const std::string kSuccess = "\n\r Command execute success!";
const std::string kError = "\n\r Command execute error!";
const std::string kInvalidCommand = "\n\r Invalid command!";
const std::string kInvalidParameter = "\n\r Invalid parameter!";

// A line, what it prints, and what the leaf then holds.
TEST_F(Rows, LargeCommandsReadPairsInAnyOrderUpToEnd)
{
    g_ulNpPubPrompt = 0;
    const NpMet start = {1, 0, 100, {200}};
    const auto word = [](const NpMet &met) {
        return met.ulValid << 31 | met.ulNextMetID << 16 | met.ulOpCode << 13 |
               met.unDstintf.ulOftID;
    };
    const uint32_t kept = word(start);
    struct {
        const char *line;
        std::string prints;
        uint32_t stored;
    } const cases[] = {
        {"end", kSuccess, kept},
        {"valid 0 end", kSuccess, word({0, 0, 100, {200}})},
        {"nextmetid 32767 valid 0 end", kSuccess, word({0, 0, 32767, {200}})},
        {"op_code flow oft_id 7 nextmetid 9 end", kSuccess, word({1, 0, 9, {7}})},
        {"op_code flow_bundle bundle_id 31 end", kSuccess, word({1, 1, 100, {31}})},
        {"op_code discard discard_id 5 end", kSuccess, word({1, 7, 100, {6149}})},
        {"op_code 3 end", kSuccess, word({1, 3, 100, {0}})},            // a number that has no word
        {"2 flow oft_id 8 1 0 end", kSuccess, word({0, 0, 100, {8}})},  // by menu number
        {"ulValid 0 ulNextMetID 4 end", kSuccess, word({0, 0, 4, {200}})},
        {"nextmetid 32768 end", "\n\r ulReturn = 0x9a000005(NP_PARA_ERROR)", kept},
        {"valid 0", "cmd[please input valid cmd]<sz>:\n", kept},
        {"valid 0 end end", kError, kept},
        {"oft_id 7 end", kInvalidCommand, kept},  // only behind its operation
        {"op_code flow end", kError, kept},
        {"op_code flood end", kInvalidCommand, kept},
        {"valid x end", kInvalidCommand, kept},
        {"4 1 end", kInvalidCommand, kept},
        {"valids 1 end", kInvalidCommand, kept},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.line);
        ASSERT_EQ(Np_MetTbl_Set(0, 5, &start), NP_OK);
        const std::string printed = run(std::string("micro mc met set index 5 ") + c.line);
        if (c.prints.find("ulReturn") != std::string::npos) {
            EXPECT_THAT(printed, HasSubstr("ulReturn = 0x9a000005("));
        }
        else {
            EXPECT_THAT(printed, EndsWith(c.prints));
        }
        EXPECT_EQ(peek(0x60202000 + 4 * 5), c.stored);
    }
    EXPECT_THAT(run("micro mc met set index 2000 end"), HasSubstr("ulReturn = 0x9a000005("));
    EXPECT_THAT(run("micro mc met set valid 1"), EndsWith(kError));
    EXPECT_THAT(run("micro mc met get"), EndsWith(kError));
    EXPECT_THAT(run("micro mc met get index 5 index"), EndsWith(kError));
    g_ulNpPubPrompt = 1;
    EXPECT_EQ(run("micro mc met set index 5 end"),
              "\r\n| 01:valid\t\t| 02:op_code\t\t| 03:nextmetid\t\t\r\n| end\r\n" + kSuccess);
}

TEST_F(Rows, SmallCommandsReadPairsInTheirOrder)
{
    const NpBrl start = {1, 2, 3};
    struct {
        const char *line;
        std::string prints;
        uint32_t stored;
    } const cases[] = {
        {"car_1_profile 10 car_2_profile 20 car_3_profile 30", kSuccess, 0x001e140a},
        {"car_2_profile 20", kSuccess, 0x00031401},  // what is not named keeps its value
        {"", kSuccess, 0x00030201},
        {"car_3_profile 30 car_1_profile 10", kError, 0x00030201},
        {"car_1_profile 1 car_1_profile 2", kError, 0x00030201},
        {"car_1_profile 1 end", kError, 0x00030201},
        {"car_1_profile", "car_1_profile[0, 255]: \n", 0x00030201},
        {"car_1_profile 256", "", 0x00030201},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.line);
        ASSERT_EQ(Np_BrltTbl_Set(0, 63, &start), NP_OK);
        const std::string printed = run(std::string("micro mc brlt set index 63 ") + c.line);
        if (c.prints.empty()) {
            EXPECT_THAT(printed, HasSubstr("ulReturn = 0x9a000005("));
        }
        else {
            EXPECT_THAT(printed, EndsWith(c.prints));
        }
        NpBrl brl = {};
        ASSERT_EQ(Np_BrltTbl_Get(0, 63, &brl), NP_OK);
        EXPECT_EQ(brl.ulBcLimitCarProfile | brl.ulUnUcLimitCarProfile << 8 |
                      brl.ulUnMcLimitCarProfile << 16,
                  c.stored);
    }
    // A byte of the record takes no number that it would have to cut.
    EXPECT_THAT(run("micro qos pcp_map set index 0 auc1P0 261"), EndsWith(kInvalidParameter));
    EXPECT_THAT(run("micro qos pcp_map set index 0 1p0 5 1p7 6"), EndsWith(kSuccess));
    NpPcpMap map = {};
    ASSERT_EQ(Np_PcpMapTbl_Get(0, 0, &map), NP_OK);
    EXPECT_EQ(map.auc1P[0], 5);
    EXPECT_EQ(map.auc1P[7], 6);
    EXPECT_EQ(run("micro mc met get index 0"),
              "\n\r " + std::string(70, '-') +
                  "\r\n    valid                    :   0                        (0x0)"
                  "\r\n    op_code                  :   flow                     (0x0)"
                  "\r\n    oft_id                   :   0                        (0x0)"
                  "\r\n    nextmetid                :   0                        (0x0)"
                  "\n\r " +
                  std::string(70, '-') + kSuccess);
}

// What completion and help are told.
TEST_F(Rows, CommandsTellTheirParameters)
{
    NpSmdParam param;
    EXPECT_EQ(Np_SMD_CommandForm(Np_SMD_MetTbl_Set), NP_FORM_LARGE);
    EXPECT_EQ(Np_SMD_CommandForm(Np_SMD_MetTbl_Get), NP_FORM_GET);
    Words seen;
    for (uint32_t i = 0; Np_SMD_CommandParam(Np_SMD_MetTbl_Set, i, &param) == 0; i++) {
        seen.push_back(std::string(param.stItem.szName) + " " + std::to_string(param.stItem.lMin) +
                       ".." + std::to_string(param.stItem.lMax) + " #" +
                       std::to_string(param.stItem.ulPromptNo) + (param.bKey != 0 ? " key" : "") +
                       (param.stOf.pszOf != nullptr ? std::string(" of ") + param.stOf.pszOf + " " +
                                                          std::to_string(param.stOf.ulMask)
                                                    : ""));
        for (uint32_t j = 0; j < param.ulEnumNum; j++) {
            seen.back() += std::string(" ") + param.pstEnum[j].pszText;
        }
    }
    EXPECT_EQ(seen, (Words{"index 0..1999 #0 key", "valid 0..1 #1",
                           "op_code 0..7 #2 flow flow_bundle discard",
                           "oft_id 0..8191 #0 of op_code 1", "bundle_id 0..8191 #0 of op_code 2",
                           "discard_id 0..8191 #0 of op_code 128", "nextmetid 0..32767 #3"}));
    EXPECT_EQ(Np_SMD_CommandParam(Np_SMD_MetTbl_Get, 1, &param), 1u);
    ASSERT_EQ(Np_SMD_CommandParam(Np_SMD_VlanOptionTbl_Set, 33, &param), 0u);
    EXPECT_STREQ(param.stItem.szName, "downoption0");
    EXPECT_EQ(param.ulRun, 32u);
    EXPECT_EQ(Np_SMD_CommandForm(nullptr), NP_FORM_UNKNOWN);
}

static_assert(sizeof(NpVlan) == 28 * 4);
static_assert(sizeof(NpVlanOption) == 64 * 4);
static_assert(sizeof(NpMet) == 4 * 4);

}  // namespace

}  // namespace ldsdk::test

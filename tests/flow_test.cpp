// Flow tables: what the lines of their rows can not say.
#include "tests/shell.h"

#include "sdk/frame/base/service.h"
#include "sdk/tables/l2.h"

namespace ldsdk::test {

namespace {

using testing::EndsWith;
using testing::HasSubstr;

constexpr uint32_t kFlowLimit = 0x60245000;
constexpr uint32_t kBundleLimit = 0x6024b400;
constexpr uint32_t kGlobalLimit = 0x60222288;
constexpr uint32_t kBase = 0x80000000;  // of a counter whose limit is 0
constexpr uint32_t kEncap = 0x60222000;
constexpr uint32_t kMtu = 0x60227b00;

class Flow : public ShellUp {};

// One of the three kinds of limits, at its last row.
struct Limit {
    const char *path;
    uint32_t row;
    uint32_t counter;
    uint32_t (*set)(uint32_t, uint32_t, uint32_t);
    std::function<uint32_t(uint32_t *)> get;
    uint32_t **copy;
};

const Limit kLimits[] = {
    {"flowlmttbl", 1023, kFlowLimit + 4 * 1023, Np_FlowLmtTbl_Set,
     [](uint32_t *to) { return Np_FlowLmtTbl_Get(0, 1023, reinterpret_cast<NpFlowLmt *>(to)); },
     g_pulFlowLimitMacNum},
    {"bundlelmttbl", 31, kBundleLimit + 4 * 31, Np_BundleLmtTbl_Set,
     [](uint32_t *to) { return Np_BundleLmtTbl_Get(0, 31, reinterpret_cast<NpBundleLmt *>(to)); },
     g_pulBundleLimitMacNum},
    {"globemaclmt", 0, kGlobalLimit, Np_GlobalMacLmtTbl_Set,
     [](uint32_t *to) {
         return Np_GlobalMacLmtTbl_Get(0, 0, reinterpret_cast<NpGlobalMacLmt *>(to));
     },
     g_pulGlobalLimitMacNum},
};

// A limit moves its counter by the difference, whatever the counter is; the same one does not touch
// it; a counter that fails leaves the limit.
TEST_F(Flow, LimitsMoveTheirCounters)
{
    for (const Limit &limit : kLimits) {
        SCOPED_TRACE(limit.path);
        const auto expect = [&](uint32_t number, uint32_t counter) {
            uint32_t read = ~0u;
            FrameTap tap;
            EXPECT_EQ(limit.get(&read), NP_OK);
            EXPECT_EQ(tap.take_count(), 0u);
            EXPECT_EQ(read, number);
            EXPECT_EQ(peek(limit.counter), counter);
        };
        expect(0, kBase);
        ASSERT_EQ(limit.set(0, limit.row, 10), NP_OK);
        expect(10, kBase + 10);
        poke(limit.counter, kBase + 3);  // seven were learned
        FrameTap tap;
        ASSERT_EQ(limit.set(0, limit.row, 10), NP_OK);
        EXPECT_EQ(tap.take_count(), 0u);
        ASSERT_EQ(limit.set(0, limit.row, 4), NP_OK);
        expect(4, kBase - 3);
        for (const uint32_t other : {65535u, 0u}) {
            set_fault("rba status=2 nth=1");
            EXPECT_EQ(failures(
                          NP_M_L2, [&] { return limit.set(0, limit.row, other); }, NP_ERR_SMEM_OP),
                      std::vector<std::string>{"Func error return: 0x9a00003a \r\n"});
            expect(4, kBase - 3);
        }
        const std::string path = std::string("micro l2 ") + limit.path;
        const std::string index = " index " + std::to_string(limit.row);
        EXPECT_THAT(run(path + " set" + index + " limitnum 65535"), EndsWith("success!"));
        expect(65535, kBase + 65528);
        EXPECT_THAT(run(path + " get" + index), HasSubstr(":   65535 "));
    }
}

// A second start begins anew; without one there are no limits, and nothing is left behind.
TEST_F(Flow, LimitsLiveFromBringUpToTearDown)
{
    ASSERT_EQ(Np_BundleLmtTbl_Set(0, 7, 9), NP_OK);
    ASSERT_EQ(Np_L2_Init(0), NP_OK);
    NpBundleLmt bundle;
    ASSERT_EQ(Np_BundleLmtTbl_Get(0, 7, &bundle), NP_OK);
    EXPECT_EQ(bundle.ulLimitNumber, 0u);
    EXPECT_EQ(peek(kBundleLimit + 4 * 7), kBase);
    for (const auto &call : {Np_Tarn_L2_Init, Np_Tarn_L2_Destruct}) {
        EXPECT_EQ(failures(
                      NP_M_L2, [&] { return call(4); }, NP_ERR_PARAM),
                  std::vector<std::string>{"param error! (ulChipID)=0x00000004\r\n"});
        ASSERT_EQ(call(0), NP_OK);
    }
    for (const Limit &limit : kLimits) {
        uint32_t read = 0;
        EXPECT_EQ(*limit.copy, nullptr);
        EXPECT_EQ(limit.set(0, limit.row, 1), NP_ERR_NULL_PTR);
        EXPECT_EQ(limit.get(&read), NP_ERR_NULL_PTR);
    }
    EXPECT_EQ(Np_L2_Destruct(0), NP_OK) << "nothing to give up";
    uint32_t blocks = 0;
    while (true) {
        set_fault("alloc nth=" + std::to_string(blocks + 1));
        const uint32_t result = Np_L2_Init(0);
        model::faults_clear();
        ASSERT_EQ(Np_L2_Destruct(0), NP_OK);
        if (result == NP_OK) {
            break;
        }
        ASSERT_EQ(result, NP_ERR_NO_MEMORY);
        blocks++;
    }
    EXPECT_GE(blocks, 3u);
}

Encap encap_of(uint32_t seed)
{
    Encap encap = {};
    encap.stPort = {6, 3, 0, 0};
    encap.ulL3Intf = seed % 32;
    encap.iCorrectLen = -4;
    encap.ulMtu = 1500 + seed;
    return encap;
}

// The row's layout is the service table's choice; the MTU stands elsewhere.
TEST_F(Flow, EncapsulationsGoThroughTheServiceTable)
{
    const Encap encap = encap_of(3);
    ASSERT_EQ(Np_L2EncapTbl_Set(0, 31, &encap), NP_OK);
    EXPECT_EQ(peek(kMtu + 2 * 30) >> 16, 1503u);
    // A byte that no Set leaves is negative from 64 on.
    for (const auto &[byte, length] :
         std::initializer_list<std::pair<uint32_t, int32_t>>{{63, 63}, {64, -192}, {192, -64}}) {
        poke(kEncap + 16 * 31, byte);
        Encap read;
        ASSERT_EQ(Np_L2EncapTbl_Get(0, 31, &read), NP_OK);
        EXPECT_EQ(read.iCorrectLen, length);
        EXPECT_EQ(read.ulMtu, 1503u);
        EXPECT_EQ(read.stPort.ulPortID, 3u);
    }
    // A parse asks nothing of the record but the MTU, which it keeps.
    const uint32_t row[4] = {};
    Encap garbage;
    std::memset(&garbage, 0xa5, sizeof(garbage));
    garbage.ulMtu = 9;
    ASSERT_EQ(Np_L2_L2EncapTblParse(0, row, &garbage), NP_OK);
    EXPECT_EQ(garbage.ulMtu, 9u);
    EXPECT_EQ(garbage.ulL3Intf, 0u);

    NpServiceWord &build = g_stNpSDKFuncInit_TarnB[203];
    NpServiceWord &parse = g_stNpSDKFuncInit_TarnB[204];
    const NpServiceWord kept[] = {build, parse};
    using Build = uint32_t(uint32_t, const Encap *, uint32_t *);
    using Parse = uint32_t(uint32_t, const uint32_t *, Encap *);
    build.pfn = reinterpret_cast<NpServiceFn>(+[](uint32_t, const Encap *, uint32_t *words) {
        words[2] = 0xabcd;
        return NP_OK;
    });
    static_assert(std::is_same_v<decltype(Np_L2_L2EncapTblBuild), Build> &&
                  std::is_same_v<decltype(Np_L2_L2EncapTblParse), Parse>);
    parse.pfn = reinterpret_cast<NpServiceFn>(+[](uint32_t, const uint32_t *words, Encap *to) {
        to->ulApsID = words[2];
        return NP_OK;
    });
    Encap read = {};
    EXPECT_EQ(Np_L2EncapTbl_Set(0, 4, &encap), NP_OK);
    EXPECT_EQ(peek(kEncap + 16 * 4 + 8), 0xabcdu);
    EXPECT_EQ(Np_L2EncapTbl_Get(0, 4, &read), NP_OK);
    EXPECT_EQ(read.ulApsID, 0xabcdu);
    build = {};
    const auto before = store();
    EXPECT_EQ(failures(
                  NP_M_L2, [&] { return Np_L2EncapTbl_Set(0, 4, &encap); }, NP_ERR_UNREGISTERED),
              std::vector<std::string>{"Func error return: 0x9a000003 \r\n"});
    EXPECT_EQ(store(), before);
    build = kept[0];
    parse = kept[1];
}

// The extension's command replaces its own fields, and what it has not stays; one of two kinds of
// source MAC is stored.
TEST_F(Flow, ExtensionsAreSetByThemselves)
{
    IflowAttr flow = {};
    flow.ulVsi = 5;
    flow.ulSmacHeadID = 31;
    flow.ulSmacData = 1023;
    flow.ulVmacID = 32767;
    ASSERT_EQ(Np_IflowTbl_Set(0, 8, &flow), NP_OK);
    EXPECT_THAT(run("micro l2 iflowtbl setext index 8 oftid 77 anti_dos 1 end"),
                EndsWith("success!"));
    IflowAttr read;
    ASSERT_EQ(Np_IflowTbl_Get(0, 8, &read), NP_OK);
    flow.ulOftID = 77;
    flow.ulAntiDosEnable = 1;
    flow.ulVmacID = 0;
    EXPECT_EQ(std::memcmp(&read, &flow, sizeof(read)), 0);
    EXPECT_THAT(run("micro l2 iflowtbl setext index 8 vmacid 9 vmacen 1 end"),
                EndsWith("success!"));
    ASSERT_EQ(Np_IflowTbl_Get(0, 8, &read), NP_OK);
    EXPECT_EQ(read.ulVmacID, 9u);
    EXPECT_EQ(read.ulSmacHeadID | read.ulSmacData, 0u);
    EXPECT_EQ(read.ulVsi, 5u);
    EXPECT_THAT(run("micro l2 iflowtbl setext index 8 vsi 1 end"), EndsWith("Invalid command!"));
}

TEST_F(Flow, GemPortsAreDeletedAlone)
{
    const NpGemportMap map = {1, 31};
    for (const uint32_t port : {4u, 5u, 6u}) {
        ASSERT_EQ(Np_GemportMapTbl_Set(0, port, &map), NP_OK);
    }
    EXPECT_THAT(run("micro l2 gemportmap del index 5"), EndsWith("success!"));
    EXPECT_EQ(peek(0x64048004), 0x009f009fu);
    EXPECT_THAT(run("micro l2 gemportmap del index 4096"), HasSubstr("ulReturn = 0x9a000005"));
}

// What the family has not is refused by the exported functions and by the functions behind them.
TEST_F(Flow, PoolsAndCableModemRowsAreNotOffered)
{
    for (const char *table : {"dmactbl", "smacpooltbl", "cmgrouptbl", "cmclasstbl", "cmlmttbl"}) {
        for (const char *op : {" set index 1", " get index 1"}) {
            EXPECT_THAT(run(std::string("micro l2 ") + table + op),
                        HasSubstr("ulReturn = 0x9a000003"));
        }
    }
    const NpDmac mac = {{1, 2, 3, 4, 5, 6}};
    EXPECT_EQ(failures(
                  NP_M_L2, [&] { return Np_Tarn_L2_DmacTbl_Set(0, 255, &mac); }, NP_ERR_ADDRESS),
              std::vector<std::string>{
                  "Write error return:0x9a000008 ID:0x00000025 Offset:0x000000ff\r\n"});
    NpSmacPool pool;
    EXPECT_EQ(Np_Tarn_L2_SmacPoolTbl_Get(0, 31, &pool), NP_ERR_ADDRESS);
    EXPECT_EQ(Np_Tarn_L2_SmacPoolTbl_Get(0, 32, &pool), NP_ERR_PARAM);
}

}  // namespace

}  // namespace ldsdk::test

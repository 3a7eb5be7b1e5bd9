// Every driver call and every allocation of bring-up, tear-down and each family fails in turn.
// After each failure: a code that tells, no memory lost, what stood in the tables before still
// stands, the same work goes through at the second try, and so do tear-down and bring-up.
#include "host/assembler.h"
#include "host/image.h"
#include "sdk/lookup/eml.h"
#include "sdk/lookup/lcam.h"
#include "sdk/module/cli/smd.h"
#include "tests/shell.h"

#include <fstream>
#include <functional>
#include <map>
#include <numeric>
#include <set>

namespace ldsdk::test {

namespace {

constexpr uint32_t kDriverCode = 0x77;
#ifdef __arm__
constexpr uint32_t kSteps = 100;  // an emulated processor takes its time
#else
constexpr uint32_t kSteps = UINT32_MAX;
#endif

using Codes = std::set<uint32_t>;

// Work on a chip that is up. A step gives a code, and the work ends at the first that is not 0.
struct Work {
    const char *name;
    Codes refused;  // what a failing driver call may give
    std::vector<std::function<uint32_t()>> steps;
    std::vector<std::string> passed_over = {};  // failures that give no code
};

uint32_t run_steps(const Work &work)
{
    for (const auto &step : work.steps) {
        if (const uint32_t status = step(); status != NP_OK) {
            return status;
        }
    }
    return NP_OK;
}

// A failure to cause, and how often it can be caused.
struct Fault {
    std::string text;  // without nth=
    uint32_t calls;
    Codes refused;
};

uint32_t live_blocks()
{
    OsHostMemory memory = {};
    Os_HostMemoryGet(&memory);
    EXPECT_EQ(memory.ulBadFrees, 0u);
    return static_cast<uint32_t>(memory.ulBlocks);
}

uint64_t allocations()
{
    OsHostMemory memory = {};
    Os_HostMemoryGet(&memory);
    return memory.ulAllocs;
}

class FaultSweep : public Shell {
  protected:
    FaultSweep()
    {
        EXPECT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
        EXPECT_EQ(Np_GLB_ClearWatchDogHook([] {}), NP_OK);
        blocks_down_ = live_blocks();
    }

    // Everything that work does at the doors, as faults to cause.
    static std::vector<Fault> faults_of(const std::function<void()> &work, const Codes &refused)
    {
        const uint64_t allocated = allocations();
        model::journal_clear();
        model::journal_enable(true);
        work();
        model::journal_enable(false);
        EXPECT_EQ(model::journal_lost(), 0u);
        std::map<std::string, uint32_t> calls;
        for (uint32_t i = 0; i < model::journal_count(); i++) {
            const model::Record &record = *model::journal_record(i);
            if (record.kind == model::RecordKind::kRba) {
                calls["rba"]++;
            }
            else if (record.kind == model::RecordKind::kCall) {
                calls[model::op_info(record.op).name]++;
            }
        }
        std::vector<Fault> faults;
        for (const auto &[name, count] : calls) {
            faults.push_back({name + " code=0x77", count, refused});
            if (name == "rba") {
                faults.push_back({"rba status=2", count, refused});
            }
        }
        if (const uint64_t more = allocations() - allocated; more != 0) {
            faults.push_back({"alloc", static_cast<uint32_t>(more), {NP_ERR_NO_MEMORY}});
        }
        return faults;
    }

    // Causes each failure in turn. Returns those that the work gave no code for.
    template <typename Each>
    static std::vector<std::string> each_failure(const std::vector<Fault> &faults, Each each)
    {
        std::vector<std::string> passed_over;
        for (const Fault &fault : faults) {
            const uint32_t stride = 1 + (fault.calls - 1) / kSteps;
            for (uint32_t nth = 1; nth <= fault.calls; nth += stride) {
                const std::string text = fault.text + " nth=" + std::to_string(nth);
                SCOPED_TRACE(text);
                const uint32_t status = each(text);
                if (status == NP_OK) {
                    passed_over.push_back(text);
                    continue;
                }
                EXPECT_TRUE(fault.refused.contains(status)) << text << ": " << std::hex << status;
                if (testing::Test::HasFatalFailure()) {
                    return passed_over;
                }
            }
        }
        return passed_over;
    }

    // The commands of these numbers, failing in both ways.
    static std::vector<std::string> passed(const std::vector<uint32_t> &numbers)
    {
        std::vector<std::string> list;
        for (const char *how : {"rba code=0x77 nth=", "rba status=2 nth="}) {
            for (const uint32_t number : numbers) {
                list.push_back(how + std::to_string(number));
            }
        }
        return list;
    }

    static uint32_t with_fault(const std::string &text, const std::function<uint32_t()> &work)
    {
        set_fault(text);
        const uint32_t status = work();
        model::faults_clear();
        return status;
    }

    // A chip fresh from power on, brought up.
    static void bring_up()
    {
        ASSERT_EQ(model::attach(0), model::kOk);
        ASSERT_EQ(Np_INIT_SdkInit(0), NP_OK);
    }

    void expect_down() const
    {
        EXPECT_EQ(live_blocks(), blocks_down_);
        EXPECT_EQ(g_aucNpInitFlag[0], 0);
    }

    uint32_t blocks_down_ = 0;
};

// ---- bring-up and tear-down ---------------------------------------------------------------------

TEST_F(FaultSweep, BringUp)
{
    const auto work = [] { return Np_INIT_SdkInit(0); };
    const Codes codes = {kDriverCode, NP_ERR_INIT, NP_ERR_NO_MEMORY};
    std::vector<Fault> faults = faults_of([&] { ASSERT_EQ(work(), NP_OK); }, codes);
    EXPECT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
    expect_down();
    for (Fault &fault : faults) {
        fault.refused = codes;
    }
    std::set<std::string> caused;
    const std::vector<std::string> passed_over = each_failure(faults, [&](const std::string &text) {
        const uint32_t status = with_fault(text, work);
        caused.insert(text);
        // A stopped bring-up counts as begun until a tear-down, except when it took itself down.
        if (status != NP_OK && g_aucNpInitFlag[0] != 0) {
            EXPECT_EQ(Np_INIT_SdkInit(0), NP_ERR_FAIL);
        }
        if (g_aucNpInitFlag[0] != 0) {
            EXPECT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
        }
        expect_down();
        EXPECT_EQ(Np_INIT_SdkInit(0), NP_OK);
        EXPECT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
        expect_down();
        return status;
    });
    EXPECT_GT(caused.size(), 50u);
    // The refresh of both caches at the end of the hash tables' step, and what clears the place for
    // the rules of illegal source MACs.
    std::vector<uint32_t> refresh(32);
    std::iota(refresh.begin(), refresh.end(), 1);
    std::vector<std::string> expected = passed(refresh);
    expected.insert(expected.begin(),
                    {"Qd_HA_MatchRuleDel code=0x77 nth=1", "Qd_HA_MatchRuleDel code=0x77 nth=2"});
    std::erase_if(expected, [&](const std::string &text) { return !caused.contains(text); });
    EXPECT_THAT(expected, testing::Not(testing::IsEmpty()));
    EXPECT_EQ(passed_over, expected);
}

TEST_F(FaultSweep, TearDown)
{
    const auto work = [] { return Np_INIT_SdkDestruct(0); };
    EXPECT_EQ(Np_INIT_SdkInit(0), NP_OK);
    const std::vector<Fault> faults =
        faults_of([&] { ASSERT_EQ(work(), NP_OK); }, {kDriverCode, NP_ERR_TCAM_CLEAR});
    uint32_t failures = 0;
    const std::vector<std::string> passed_over = each_failure(faults, [&](const std::string &text) {
        EXPECT_EQ(Np_INIT_SdkInit(0), NP_OK);
        const uint32_t status = with_fault(text, work);
        failures++;
        EXPECT_EQ(g_aucNpInitFlag[0], status == NP_OK ? 0 : 1);
        if (status != NP_OK) {
            EXPECT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
        }
        expect_down();
        return status;
    });
    EXPECT_GT(failures, 30u);
    EXPECT_THAT(passed_over, testing::IsEmpty());
}

// ---- families -----------------------------------------------------------------------------------

NpArlKey mac_key(uint8_t last)
{
    NpArlKey key = {};
    key.ulSvlanID = 100;
    const uint8_t mac[6] = {0x00, 0x22, 0x72, 0x10, 0x20, last};
    std::copy(mac, mac + 6, key.aucMacAddr);
    return key;
}

NpArlData mac_data(uint32_t flow)
{
    NpArlData data = {};
    data.stLearnData.ulIntfID = flow;
    data.ulIftID = flow;
    return data;
}

constexpr NpPortID kPort = {9, 0, 38, 1};
constexpr uint8_t kUserMac[6] = {2, 0, 0, 0, 0, 7};
constexpr uint8_t kVirtualMac[6] = {2, 1, 0, 0, 0, 7};

NpArlKey user_key()
{
    NpArlKey key = {};
    key.ulType = 15;
    key.stPort = kPort;
    std::copy(kUserMac, kUserMac + 6, key.aucMacAddr);
    return key;
}

using Item = std::array<uint8_t, 48>;

// An item of a hash table that the host places.
Item item_of(uint32_t table, uint8_t seed)
{
    Item item = {};
    const uint32_t size = Np_EmlItemSize(g_stNpEmlConfig_TarnB[table].ulTblWidth);
    for (uint32_t i = 0; i < size; i++) {
        item[i] = static_cast<uint8_t>(seed * 37 + i * 11);
    }
    item[size - 1] |= 0xf0;
    return item;
}

uint32_t item_add(uint32_t table, uint8_t seed)
{
    Item item = item_of(table, seed);
    uint32_t location = 0;
    return Np_Tarn_EML_ItemAdd(0, table, &location, nullptr, item.data());
}

uint32_t item_find(uint32_t table, uint8_t seed)
{
    Item item = item_of(table, seed);
    uint32_t location = 0;
    uint32_t index = 0;
    return Np_Tarn_EML_ItemGet(0, table, &location, &index, item.data());
}

uint32_t item_del(uint32_t table, uint8_t seed)
{
    Item item = item_of(table, seed);
    return Np_Tarn_EML_ItemDel(0, table, NP_EML_DEL_ANY, item.data());
}

constexpr uint32_t kHostPlaced = NP_EML_SMAC_BONDING;
constexpr uint32_t kRules = NP_LCAM_IPV6FILTER;

uint32_t rule_write(uint32_t offset)
{
    uint8_t key[NP_LCAM_KEY_MAX] = {};
    uint8_t mask[NP_LCAM_KEY_MAX];
    uint8_t ad[NP_LCAM_AD_MAX] = {static_cast<uint8_t>(offset)};
    std::fill(std::begin(mask), std::end(mask), 0xff);
    key[0] = static_cast<uint8_t>(offset);
    return Np_Tarn_LCAM_TcamWrite(0, kRules, offset, key, mask, ad);
}

uint32_t packet_send()
{
    static const uint8_t bytes[64] = {1, 2, 3};
    InfoForSend info = {};
    info.ulPktLen = sizeof(bytes);
    info.pucData = bytes;
    info.ulSubType = 2;
    info.unInsertPkt.stInsertToIft.stPortID = kPort;
    info.unInsertPkt.stInsertToIft.ulRole = 1;
    info.unInsertPkt.stInsertToIft.ulClass = 1;
    return Np_Cputr_PktSend(0, &info);
}

uint32_t packet_receive()
{
    uint8_t bytes[128];
    ReceiveInfo info = {};
    info.ulBufLen = sizeof(bytes);
    info.pucData = bytes;
    return Np_Cputr_PktReceive(0, &info);
}

uint32_t packet_arrives()
{
    const uint8_t bytes[64] = {4, 5, 6};
    model::FrameSource source = {};
    return model::receive_put_frame(0, source, bytes, sizeof(bytes));
}

std::vector<uint8_t> example_image()
{
    std::ifstream file(LDSDK_SOURCE_DIR "/examples/microcode/forward.npasm");
    const std::string source((std::istreambuf_iterator<char>(file)), {});
    return host::assemble(source, "forward.npasm").image;
}

template <auto Set, auto Get, typename Row>
std::function<uint32_t()> row_there_and_back(uint32_t index, Row row)
{
    return [=] {
        const uint32_t status = Set(0, index, &row);
        Row back = row;
        return status != NP_OK ? status : Get(0, index, &back);
    };
}

std::vector<Work> all_work()
{
    return {
        {"MAC table",
         {kDriverCode, NP_ERR_SMEM_OP, NP_ERR_RBA_SEND},
         {
             [] {
                 const NpArlKey key = mac_key(1);
                 const NpArlData data = mac_data(7);
                 return Np_ArlTbl_Add(0, &key, &data);
             },
             [] {
                 const NpArlKey key = mac_key(1);
                 const NpArlData data = mac_data(8);  // rewritten
                 return Np_ArlTbl_Add(0, &key, &data);
             },
             [] {
                 const NpDynamicLrn entry = {mac_key(2), mac_data(7)};
                 return Np_ArlTbl_DynamicArlLrn(0, &entry);
             },
             [] {
                 const NpArlKey key = mac_key(1);
                 NpArlData data = {};
                 NpArlInfo info = {};
                 const uint32_t status = Np_ArlTbl_Get(0, &key, &data, &info);
                 NpArlKey back = {};
                 return status != NP_OK
                            ? status
                            : Np_ArlTbl_GetByIndex(0, info.ulKeyIndex, &back, &data, &info);
             },
             [] {
                 const NpArlKey key = mac_key(1);
                 return Np_ArlTbl_Del(0, 2, &key);
             },
             [] {
                 NpArlKey key = mac_key(2);
                 return Np_ArlTbl_Del(0, 2, &key);
             },
         }},
        {"user MACs",
         {kDriverCode, NP_ERR_SMEM_OP, NP_ERR_RBA_SEND, NP_ERR_PORT_PARAM, NP_ERR_PORT_TO_INGRESS},
         {
             [] {
                 NpUvt row = {};
                 row.ulVmacUsed = 1;
                 std::copy(kVirtualMac, kVirtualMac + 6, row.aucVmac);
                 std::copy(kUserMac, kUserMac + 6, row.aucUmac);
                 return Np_UvtTbl_Set(0, 9, &row);
             },
             [] {
                 const NpArlKey key = user_key();
                 NpArlData data = mac_data(3);
                 data.ulVmac = 1;
                 data.ulVmacID = 9;
                 return Np_ArlTbl_Add(0, &key, &data);
             },
             [] {
                 NpArlAgeModeKey key = {};
                 key.stPort = kPort;
                 std::copy(kUserMac, kUserMac + 6, key.aucUmacAddr);
                 std::copy(kVirtualMac, kVirtualMac + 6, key.aucVmacAddr);
                 return Np_ArlTbl_AgeModeSet(0, &key, 0);
             },
             [] {
                 NpUvmacInfoKey key = {};
                 key.stPort = kPort;
                 uint32_t count = 0;
                 NpUvmacInfoAd found[32];
                 return Np_UVMacInfo_Get(0, &key, &count, found);
             },
             [] {
                 const NpArlKey key = user_key();
                 return Np_ArlTbl_Del(0, 2, &key);
             },
         }},
        {"LAN MACs and limits",
         {kDriverCode, NP_ERR_SMEM_OP, NP_ERR_RBA_SEND},
         {
             [] {
                 const NpPortLimitNum limit = {77};
                 return Np_PortMacLimitTbl_Set(0, 3, &limit);
             },
             [] {
                 const NpLanMacKey key = {5, {2, 0, 0, 0, 9, 9}};
                 const NpLanMacData data = {3};
                 return Np_LanMacTbl_Add(0, &key, &data);
             },
             [] {
                 const NpLanMacKey key = {5, {2, 0, 0, 0, 9, 9}};
                 NpLanMacData data = {};
                 NpLanMacInfo info = {};
                 const uint32_t status = Np_LanMacTbl_Get(0, &key, &data, &info);
                 return status != NP_OK ? status : Np_LanMacTbl_DelByIndex(0, info.ulKeyIndex);
             },
         }},
        {"ageing",
         {kDriverCode, NP_ERR_AUTO_SEND_SET, NP_ERR_AUTO_SEND_ENABLE, NP_ERR_AUTO_SEND_DELETE,
          NP_ERR_AUTO_SEND_CLEAR, NP_ERR_CPU_SEND},
         {
             [] {
                 const NpNormalAge age = {1, 300};
                 return Np_ArlTbl_NormalAge(0, &age);
             },
             [] {
                 const NpForceAge age = {4, 200};
                 return Np_ArlTbl_ForceAge(0, &age);
             },
             [] {
                 const NpNormalAge age = {0, 0};
                 return Np_ArlTbl_NormalAge(0, &age);
             },
             [] { return Np_CarRefresh_Msg(0, 1, 1000); },
         }},
        {"flat rows",
         {kDriverCode, NP_ERR_SMEM_OP, NP_ERR_RBA_SEND, NP_ERR_PORT_PARAM, NP_ERR_PORT_TO_INGRESS},
         {
             row_there_and_back<Np_VlanTbl_Set, Np_VlanTbl_Get>(20, NpVlan{}),
             row_there_and_back<Np_MetTbl_Set, Np_MetTbl_Get>(11, NpMet{1, 0, 12, {3}}),
             row_there_and_back<Np_BrltTbl_Set, Np_BrltTbl_Get>(1, NpBrl{1, 2, 3}),
             row_there_and_back<Np_PcpMapTbl_Set, Np_PcpMapTbl_Get>(0, NpPcpMap{}),
             row_there_and_back<Np_VmacInfoTbl_Set, Np_VmacInfoTbl_Get>(2, NpPortVmacInfo{}),
             [] {
                 NpPortPct row = {};
                 const uint32_t status = Np_PctTbl_Get(0, &kPort, &row);
                 return status != NP_OK ? status : Np_PctTbl_Set(0, &kPort, &row);
             },
         }},
        {"hash table that the host places",
         {kDriverCode, NP_ERR_SMEM_OP, NP_ERR_RBA_SEND, NP_ERR_SMEM_WRITE, NP_ERR_SMEM_READ},
         {
             [] { return item_add(kHostPlaced, 1); },
             [] { return item_add(kHostPlaced, 2); },
             [] { return item_find(kHostPlaced, 1); },
             [] { return item_del(kHostPlaced, 1); },
             [] { return item_del(kHostPlaced, 2); },
         }},
        {"local CAM",
         {NP_ERR_TCAM_READ, NP_ERR_LCAM_AD_READ, NP_ERR_LCAM_AD_WRITE, NP_ERR_TCAM_WRITE,
          NP_ERR_TCAM_CLEAR, NP_ERR_TCAM_ENABLE_GET, NP_ERR_CAM_MODE_READ},
         {
             [] { return rule_write(5); },
             [] { return Np_Tarn_LCAM_TcamMove(0, kRules, 5, 6); },
             [] { return Np_Tarn_LCAM_TcamDelete(0, kRules, 6); },
         }},
        {"CPU channel",
         {kDriverCode, NP_ERR_CPU_SEND, NP_ERR_CPU_RECEIVE, NP_ERR_PORT_PARAM,
          NP_ERR_PORT_TO_INGRESS},
         {packet_send, packet_arrives, packet_receive},
         // a port that the chip does not know: type 17
         {"Qd_GLB_IngressPhyIDToPortParam code=0x77 nth=1"}},
        {"microcode",
         {kDriverCode, NP_ERR_IMEM_LOAD, NP_ERR_MAX_PC, NP_ERR_EXCP_PC, NP_ERR_NEXT_PC,
          NP_ERR_LCAM_PROTECT, NP_ERR_RCAM_WRITE, NP_ERR_THREAD_STATE, NP_ERR_PBA_MODE,
          NP_ERR_THREAD_ACTIVATE},
         {
             [] { return host::load_image(0, example_image()); },
             [] { return host::online_load_image(0, 1, example_image()); },
         }},
    };
}

// What stood before: nothing that fails elsewhere may touch it.
class Promised {
  public:
    static void set()
    {
        const NpArlKey key = mac_key(0xee);
        const NpArlData data = mac_data(33);
        ASSERT_EQ(Np_ArlTbl_Add(0, &key, &data), NP_OK);
        const NpVlan vlan = row();
        ASSERT_EQ(Np_VlanTbl_Set(0, 21, &vlan), NP_OK);
        ASSERT_EQ(item_add(kHostPlaced, 0xee), NP_OK);
        ASSERT_EQ(rule_write(9), NP_OK);
    }
    static void check()
    {
        const NpArlKey key = mac_key(0xee);
        NpArlData data = {};
        NpArlInfo info = {};
        ASSERT_EQ(Np_ArlTbl_Get(0, &key, &data, &info), NP_OK);
        ASSERT_EQ(data.ulIftID, 33u);
        NpVlan vlan = {};
        ASSERT_EQ(Np_VlanTbl_Get(0, 21, &vlan), NP_OK);
        const NpVlan expected = row();
        ASSERT_EQ(std::memcmp(&vlan, &expected, sizeof(vlan)), 0);
        ASSERT_EQ(item_find(kHostPlaced, 0xee), NP_OK);
        uint32_t enable = 0;
        ASSERT_EQ(Np_Tarn_LCAM_TcamEnableGet(0, kRules, 9, &enable), NP_OK);
        ASSERT_EQ(enable, 1u);
    }

  private:
    static NpVlan row()
    {
        NpVlan vlan = {};
        vlan.ulPortBitMap = 0xf;
        return vlan;
    }
};

TEST_F(FaultSweep, Families)
{
    const std::vector<Work> works = all_work();
    for (const Work &work : works) {
        SCOPED_TRACE(work.name);
        bring_up();
        const std::vector<Fault> faults =
            faults_of([&] { ASSERT_EQ(run_steps(work), NP_OK); }, work.refused);
        ASSERT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
        expect_down();
        ASSERT_FALSE(faults.empty());
        const std::vector<std::string> passed_over =
            each_failure(faults, [&](const std::string &text) {
                bring_up();
                Promised::set();
                const uint32_t blocks = live_blocks();
                const uint32_t status = with_fault(text, [&] { return run_steps(work); });
                EXPECT_EQ(live_blocks(), blocks);
                Promised::check();
                EXPECT_EQ(run_steps(work), NP_OK);
                EXPECT_EQ(live_blocks(), blocks);
                Promised::check();
                EXPECT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
                expect_down();
                return status;
            });
        EXPECT_THAT(passed_over, testing::ElementsAreArray(work.passed_over));
    }
}

// Lines of the reference page that belong together.
struct Example {
    std::vector<std::string> lines;
    bool refused;
};

std::vector<Example> examples()
{
    std::ifstream page(LDSDK_SOURCE_DIR "/docs/commands.md");
    std::vector<Example> found;
    bool within = false;
    bool refused = false;
    for (std::string line; std::getline(page, line);) {
        const bool runs = line.starts_with("    micro ");
        if (runs && !within) {
            found.push_back({{}, refused});
        }
        if (runs) {
            found.back().lines.push_back(line.substr(4));
        }
        refused = line.starts_with("Refused ") || (refused && line.empty());
        within = runs;
    }
    return found;
}

// The example of every command runs on a chip that was just brought up, unless it says otherwise;
// with each of its driver calls failing, the command tells of that and carries on.
TEST_F(FaultSweep, Commands)
{
    const std::vector<Example> all = examples();
    ASSERT_GT(all.size(), 50u);
    ASSERT_EQ(Np_INIT_SdkInit(0), NP_OK);
    run("micro prompt off");
    const uint32_t blocks = live_blocks();
    uint32_t told = 0;
    for (const Example &example : all) {
        const std::string &line = example.lines.back();
        SCOPED_TRACE(line);
        ASSERT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
        ASSERT_EQ(model::attach(0), model::kOk);
        ASSERT_EQ(Np_INIT_SdkInit(0), NP_OK);
        for (const std::string &each : example.lines) {
            const std::string text = run(each);
            EXPECT_EQ(text.find("success") == std::string::npos, example.refused) << each << text;
        }
        if (example.refused) {
            continue;
        }
        if (line.find("micro dfx system") == 0) {
            continue;  // bring-up and tear-down: above
        }
        const std::vector<Fault> faults = faults_of([&] { run(line); }, {});
        for (const Fault &fault : faults) {
            for (uint32_t nth = 1; nth <= fault.calls; nth++) {
                set_fault(fault.text + " nth=" + std::to_string(nth));
                const std::string text = run(line);
                model::faults_clear();
                told += text.find("success") == std::string::npos;
                ASSERT_NE(text, "") << fault.text;
                ASSERT_EQ(live_blocks(), blocks) << fault.text;
            }
        }
    }
    EXPECT_GT(told, 100u);
    EXPECT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
    expect_down();
}

}  // namespace

}  // namespace ldsdk::test

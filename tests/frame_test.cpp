// Chip registry, service table, versions, bring-up and tear-down.
#include "tests/fixture.h"

#include "sdk/access/bus.h"
#include "sdk/access/smem.h"
#include "sdk/frame/base/error_table.h"
#include "sdk/frame/base/service.h"

#include <array>
#include <cstring>
#include <map>
#include <set>
#include <type_traits>

namespace {

using ldsdk::test::ChipUp;
using ldsdk::test::Module;
using testing::EndsWith;
using testing::HasSubstr;

class Registry : public Module {};
class Bringup : public Module {};
class Refusal : public ChipUp {};

TEST_F(Registry, RegistersWhatTheFamilyServes)
{
    struct Case {
        uint32_t chip, chip_class, attribute, code;
        bool registered;
    };
    for (const Case &c :
         {Case{0, 1, 0, NP_OK, true}, Case{0, 2, 4, NP_OK, true}, Case{1, 0, 0, NP_OK, false},
          Case{0, 2, 1, NP_OK, false}, Case{0, 1, 3, NP_OK, false}, Case{0, 1, 5, NP_OK, false},
          Case{4, 1, 0, NP_ERR_CHIP_ID, false}, Case{4, 3, 0, NP_ERR_CHIP_ID, false},
          Case{0, 3, 0, NP_ERR_CHIP_VERSION, false}}) {
        SCOPED_TRACE(testing::Message() << c.chip << ' ' << c.chip_class << ' ' << c.attribute);
        constexpr NpChipAddr empty = {};
        Np_Chip_AddrSet(0, &empty);
        EXPECT_EQ(Np_GLB_ChipRegister(c.chip, c.chip_class, c.attribute, 0), c.code);
        EXPECT_EQ(Np_GLB_ChipIDIsValid(c.chip), c.registered ? NP_OK : NP_ERR_CHIP_ID);
        NpSdkVersionInfo version;
        EXPECT_EQ(Np_SdkVersion_Get(c.chip, &version), c.registered ? NP_OK : NP_ERR_CHIP_ID);
    }
}

TEST_F(Registry, RecordAndVersions)
{
    ASSERT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
    ASSERT_EQ(Np_GLB_ChipRegister(2, 2, 4, 0xd0000000), NP_OK);
    NpChipAddr chip;
    ASSERT_EQ(Np_Chip_AddrGet(2, &chip), NP_OK);
    EXPECT_EQ(chip.ulRegBaseAddr, 0xd0000000u);
    EXPECT_EQ(chip.usRegTableNum, 147);
    EXPECT_EQ(chip.ulRefCount, 1u);
    NpSdkVersionInfo version;
    ASSERT_EQ(Np_SdkVersion_Get(0, &version), NP_OK);
    EXPECT_STREQ(version.szVersion, "Lodestone1.3.10.0022forQA02MXU");
    EXPECT_EQ(version.ulYear * 10000 + version.ulMonth * 100 + version.ulDay, 20150115u);
    ASSERT_EQ(Np_SdkVersion_Get(2, &version), NP_OK);
    EXPECT_STREQ(version.szVersion, "Lodestone1.3.10.0022forQA03XGPON");
    EXPECT_EQ(Np_SdkVersion_Get(0, nullptr), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_MicroVersion_Get(0, nullptr), NP_ERR_NULL_PTR);
    char micro[33];
    std::memset(micro, 'x', sizeof(micro));
    EXPECT_EQ(Np_MicroVersion_Get(2, micro), NP_ERR_CHIP_VERSION);
    EXPECT_EQ(std::string(micro, sizeof(micro)), std::string(33, '\0'));

    trace_errors(NP_M_COMM);
    EXPECT_EQ(Np_GLB_ChipIDIsValid(4), NP_ERR_CHIP_ID);
    EXPECT_THAT(out.take(), EndsWith("]: ChipID Error(4)!\r\n"));
    EXPECT_EQ(Np_GLB_ChipIDIsValid(3), NP_ERR_CHIP_ID);
    EXPECT_THAT(out.take(), EndsWith("]: ChipID not register(3)!\r\n"));
    EXPECT_EQ(Np_Chip_AddrGet(0, nullptr), NP_ERR_NULL_PTR);
    EXPECT_THAT(out.take(), EndsWith("]:  pstChipAddr is null ptr"));
    EXPECT_EQ(Np_Chip_AddrSet(4, &chip), NP_ERR_CHIP_ID);
    EXPECT_THAT(out.take(), EndsWith("]:  ulChipID para error!(00000004)"));
    EXPECT_EQ(Np_GLB_ChipCancel(2), NP_OK);
    EXPECT_EQ(Np_GLB_ChipIDIsValid(2), NP_ERR_CHIP_ID);
}

// Every wrapper of the list, by its address: chip check, empty slot, and the way through.
TEST_F(Registry, EveryWrapperChecksTheChipAndItsSlot)
{
    // One argument is enough: the calls go no further than the slot, or to a function of one word.
    using Plain = uint32_t (*)(uint32_t);
    struct Wrapper {
        uint32_t slot;
        const char *name;
        Plain call;
    };
    const Wrapper wrappers[] = {
#define NP_SERVICE(slot, door, wrapper, impl, arity, state) \
    {slot, #wrapper, reinterpret_cast<Plain>(reinterpret_cast<void (*)()>(&wrapper))},
#define NP_SERVICE_EMPTY(slot, door, wrapper, arity) \
    {slot, #wrapper, reinterpret_cast<Plain>(reinterpret_cast<void (*)()>(&wrapper))},
#include "sdk/frame/base/service_list.h"
    };
    const Plain answer = [](uint32_t chip) { return 0x1234 + chip; };
    EXPECT_EQ(std::size(wrappers), 376u);
    ASSERT_EQ(Np_GLB_ChipRegister(1, 1, 0, 0), NP_OK);
    for (const Wrapper &wrapper : wrappers) {
        SCOPED_TRACE(wrapper.name);
        EXPECT_EQ(wrapper.call(0), NP_ERR_CHIP_ID);
        EXPECT_EQ(wrapper.call(4), NP_ERR_CHIP_ID);
        NpServiceWord &word = g_stNpSDKFuncInit_TarnB[wrapper.slot];
        const NpServiceWord kept = word;
        word.pfn = nullptr;
        EXPECT_EQ(wrapper.call(1), NP_ERR_UNREGISTERED);
        word.pfn = reinterpret_cast<NpServiceFn>(answer);
        EXPECT_EQ(wrapper.call(1), 0x1235u);
        word = kept;
    }
}

TEST_F(Registry, ServiceTableIsLaidOutByGroups)
{
    const std::map<uint32_t, std::string> groups = {
        {0, "INIT"},    {9, "DFX"},    {26, "ACL"},   {40, "GLB"},   {55, "PA"},    {82, "ARL"},
        {111, "CPUTR"}, {118, "HA"},   {167, "L2"},   {208, "MC"},   {219, "VLAN"}, {236, "STAT"},
        {287, "QOS"},   {300, "PORT"}, {339, "SECU"}, {369, "ATOM"}, {377, "OAM"},  {441, "1588"}};
    for (const auto &[word, name] : groups) {
        char text[17] = {};
        std::memcpy(text, &g_stNpSDKFuncInit_TarnB[word], 16);
        EXPECT_EQ(text, name);
        EXPECT_EQ(g_stNpSDKFuncInit_TarnB[word + 4].pfn, nullptr);
    }
    EXPECT_EQ(reinterpret_cast<void *>(g_stNpSDKFuncInit_TarnB[52].pfn),
              reinterpret_cast<void *>(&Np_Tarn_SdkVersion_Get));
}

TEST_F(Registry, ErrorTableHasEachCodeOnce)
{
    std::set<uint32_t> codes;
    for (const NpErrNoDes &row : g_astErrNoDes) {
        EXPECT_TRUE(codes.insert(row.ulCode).second);
        EXPECT_FALSE(std::string(row.pszText).empty());
    }
    EXPECT_EQ(*codes.begin(), 0x9a000001u);
    EXPECT_EQ(*codes.rbegin(), 0x9a000047u);
    EXPECT_EQ(codes.size(), 71u);
}

TEST_F(Bringup, HoldsTheAtomsWhileItWorks)
{
    ASSERT_EQ(Np_INIT_SdkInit(0), NP_ERR_CHIP_ID);
    ASSERT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
    poke(0x60210000, 0x12345678);
    ldsdk::model::journal_enable(true);
    ASSERT_EQ(Np_INIT_SdkInit(0), NP_OK);
    ldsdk::model::journal_enable(false);
    EXPECT_EQ(peek(0x60210000), 0u);  // windows start empty

    // pull, then memory, queues and the block, then everything else, then normal
    std::vector<std::string> calls;
    for (uint32_t i = 0; i < ldsdk::model::journal_count(); i++) {
        char line[200];
        ldsdk::model::journal_format(*ldsdk::model::journal_record(i), line, sizeof(line));
        calls.emplace_back(line);
    }
    const auto find = [&](const std::string &text) {
        for (size_t i = 0; i < calls.size(); i++) {
            if (calls[i].find(text) != std::string::npos) {
                return i;
            }
        }
        ADD_FAILURE() << "nothing like " << text;
        return calls.size();
    };
    EXPECT_EQ(find("Qd_PBA_AtomModeSet"), 0u);
    EXPECT_EQ(find("Qd_SMEM_MemInit"), 1u);
    EXPECT_EQ(find("Qd_SMEM_QueueSet"), 2u);
    EXPECT_EQ(find("Qd_SMEM_DdrBaseAddrSet"), 18u);
    size_t modes = 0;
    for (const std::string &call : calls) {
        modes += call.find("Qd_PBA_AtomModeSet") != std::string::npos ? 1 : 0;
    }
    EXPECT_EQ(modes, 2u);  // one atom: one call each way
    uint32_t mode = 9;
    ldsdk::model::atom_mode_get(0, 0, &mode);
    EXPECT_EQ(mode, 0u);

    trace_errors(NP_M_INIT);
    const auto before = store();
    g_stNpSdkModuleSwitch[NP_M_INIT][NP_PRINT_ERROR] = 0;
    EXPECT_EQ(Np_INIT_SdkInit(0), NP_ERR_FAIL);
    EXPECT_EQ(store(), before);
    EXPECT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
    EXPECT_EQ(Np_INIT_SdkInit(0), NP_OK);
    EXPECT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
}

// Arguments that nobody can want: all ones in every word, and null or a record of all ones.
struct Nonsense {
    bool null;
    uint32_t word;

    template <typename T>
    operator T *() const
    {
        static std::array<uint8_t, 16384> record;
        record.fill(0xff);
        return null ? nullptr : reinterpret_cast<T *>(record.data());
    }
    template <typename T>
    requires std::is_integral_v<T>
    operator T() const
    {
        return static_cast<T>(word);
    }
};

template <typename First, typename... Rest>
uint32_t call_nonsense(uint32_t (*function)(First, Rest...), [[maybe_unused]] Nonsense nonsense)
{
    return function(0, static_cast<Rest>(nonsense)...);
}

bool changes_something(const ldsdk::model::Record &record)
{
    using ldsdk::model::RecordKind;
    constexpr uint32_t kWriteClass = 3;
    return record.kind == RecordKind::kWrite32 || record.kind == RecordKind::kWrite16 ||
           record.kind == RecordKind::kClear || record.kind == RecordKind::kCall ||
           (record.kind == RecordKind::kRba && (record.value >> 16 & 0xff) == kWriteClass);
}

// Whatever the interface refuses, it refuses before the chip hears of it.
TEST_F(Refusal, NothingReachesTheChip)
{
    struct Service {
        const char *name;
        uint32_t (*call)(Nonsense);
        bool takes_more;  // than the chip
    };
    const Service services[] = {
#define NP_SERVICE(slot, door, wrapper, impl, arity, state) \
    {#wrapper, [](Nonsense nonsense) { return call_nonsense(&wrapper, nonsense); }, arity > 1},
#include "sdk/frame/base/service_list.h"
    };
    uint32_t refused = 0;
    for (const Nonsense nonsense :
         {Nonsense{true, 0}, Nonsense{true, ~0u}, Nonsense{false, ~0u}, Nonsense{false, 0}}) {
        for (const Service &service : services) {
            // Records that carry an address are the caller's word: nobody can check it.
            const std::string name = service.name;
            const bool carries_address = name == "Np_Micro_Load" || name == "Np_Micro_OnlineLoad" ||
                                         name.starts_with("Np_Cputr_");
            if (!service.takes_more || (carries_address && !nonsense.null)) {
                continue;
            }
            SCOPED_TRACE(testing::Message()
                         << service.name << " null " << nonsense.null << " word " << nonsense.word);
            ldsdk::model::journal_clear();
            ldsdk::model::journal_enable(true);
            const uint32_t code = service.call(nonsense);
            ldsdk::model::journal_enable(false);
            if (code != NP_ERR_NULL_PTR && code != NP_ERR_PARAM && code != NP_ERR_ADDRESS) {
                continue;  // it was carried out, or is not there
            }
            refused++;
            for (uint32_t i = 0; i < ldsdk::model::journal_count(); i++) {
                EXPECT_FALSE(changes_something(*ldsdk::model::journal_record(i)));
            }
        }
    }
    EXPECT_GE(refused, 4u);
}

// With the k-th driver call or allocation failing, the bring-up gives a written code, nothing
// leaks, and after a tear-down the next bring-up succeeds.
TEST_F(Bringup, EverySingleFailureIsSurvived)
{
    ASSERT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
    OsHostMemory clean;
    Os_HostMemoryGet(&clean);
    struct Sweep {
        const char *operation;
        uint32_t code;  // what a failure before the modules gives; later ones give NP_ERR_INIT
    };
    for (const Sweep &sweep :
         {Sweep{"alloc", NP_ERR_NO_MEMORY}, Sweep{"Qd_PBA_AtomModeSet", 0xbeef},
          Sweep{"Qd_SMEM_MemInit", 0xbeef}, Sweep{"Qd_SMEM_QueueSet", 0xbeef},
          Sweep{"Qd_SMEM_DdrBaseAddrSet", 0xbeef}}) {
        uint32_t failures = 0;
        for (uint32_t nth = 1; nth < 200; nth++) {
            SCOPED_TRACE(testing::Message() << sweep.operation << ' ' << nth);
            const bool allocation = std::string(sweep.operation) == "alloc";
            set_fault(std::string(sweep.operation) + " nth=" + std::to_string(nth) +
                      (allocation ? "" : " code=0xbeef"));
            const uint32_t code = Np_INIT_SdkInit(0);
            ldsdk::model::faults_clear();
            ASSERT_TRUE(code == NP_OK || code == sweep.code || code == NP_ERR_INIT) << code;
            if (code != NP_OK) {
                failures++;
            }
            ASSERT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
            OsHostMemory after;
            Os_HostMemoryGet(&after);
            ASSERT_EQ(after.ulBlocks, clean.ulBlocks);
            ASSERT_EQ(after.ulBadFrees, clean.ulBadFrees);
            if (code == NP_OK) {
                break;
            }
        }
        EXPECT_GE(failures, 1u);
    }
}

TEST_F(Bringup, FailuresAreToldToTheRecorder)
{
    static uint32_t recorded;
    recorded = 0;
    ASSERT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
    EXPECT_EQ(Np_RecordErrInfo(0, 1, 2), NP_ERR_NULL_PTR);
    ASSERT_EQ(Np_Glb_RecordErrInfoHook(0, [](uint32_t code, uint32_t) { recorded = code; }), NP_OK);
    set_fault("Qd_PBA_AtomModeSet nth=1 code=0x51");
    EXPECT_EQ(Np_INIT_SdkInit(0), 0x51u);
    EXPECT_EQ(recorded, 0x51u);
    EXPECT_EQ(out.take(), "\n\r Qd_PBA_AtomModeSet pull fail! chipid=0,atomid=0,ulReturn = 0x51");
    ldsdk::model::faults_clear();
    EXPECT_EQ(Np_INIT_SdkInit(0), NP_ERR_FAIL);  // until a tear-down has run
    ASSERT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
    set_fault("Qd_PBA_AtomModeSet nth=2 code=0x52");
    EXPECT_EQ(Np_INIT_SdkInit(0), 0x52u);
    EXPECT_EQ(out.take(), "\n\r Qd_PBA_AtomModeSet normal fail! chipid=0,atomid=0,ulReturn = 0x52");
    ldsdk::model::faults_clear();
    ASSERT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
}

TEST_F(Bringup, PriorityBlockTypes)
{
    NpPriBlock block = {.ulMaxPriNum = 1, .ulPriPercent = {100}};
    ASSERT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
    trace_errors(NP_M_INIT);
    EXPECT_EQ(Np_INIT_PriBlockAssign(0, 4, nullptr), NP_ERR_NULL_PTR);
    EXPECT_THAT(out.take(), EndsWith("Para null ptr\r\n"));
    EXPECT_EQ(Np_INIT_PriBlockAssign(0, 5, &block), NP_ERR_PARAM);
    EXPECT_THAT(out.take(), EndsWith("param error! ulType=0x00000005\r\n"));
    EXPECT_EQ(Np_INIT_PriBlockAssign(0, 4, &block), NP_ERR_PARAM);
    EXPECT_THAT(out.take(), HasSubstr("]: [ERROR] Para Error!!! ulType=0x00000004\r\n"));
}

}  // namespace

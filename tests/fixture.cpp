#include "tests/fixture.h"

#include "sdk/access/bus.h"

#include <cstring>
#include <deque>

namespace {

struct Tap {
    bool active = false;
    std::deque<std::vector<uint8_t>> frames;
};

// The hook of a module that was just loaded.
const NpPrintHook kPrintHook = g_pfnNpSdkPrint;

Tap &tap()
{
    static Tap instance;
    return instance;
}

}  // namespace

// The linker leads every call of the driver's door through here.
extern "C" uint32_t __real_Qd_RBA_CommandSend(uint32_t chip, const NpRbaReqCmd *request,
                                              NpRbaRspCmd *response);
extern "C" uint32_t __wrap_Qd_RBA_CommandSend(uint32_t chip, const NpRbaReqCmd *request,
                                              NpRbaRspCmd *response)
{
    if (tap().active) {
        const auto *bytes = reinterpret_cast<const uint8_t *>(request);
        tap().frames.emplace_back(bytes, bytes + sizeof(*request));
    }
    return __real_Qd_RBA_CommandSend(chip, request, response);
}

namespace ldsdk::test {

FrameTap::FrameTap()
{
    tap().active = true;
    tap().frames.clear();
}

FrameTap::~FrameTap()
{
    tap().active = false;
}

std::vector<uint8_t> FrameTap::take()
{
    if (tap().frames.empty()) {
        return {};
    }
    std::vector<uint8_t> oldest = std::move(tap().frames.front());
    tap().frames.pop_front();
    return oldest;
}

size_t FrameTap::take_count()
{
    const size_t count = tap().frames.size();
    tap().frames.clear();
    return count;
}

std::vector<uint8_t> frame(const std::vector<std::pair<size_t, std::vector<uint8_t>>> &runs)
{
    std::vector<uint8_t> bytes(sizeof(NpRbaReqCmd));
    for (const auto &[place, run] : runs) {
        std::copy(run.begin(), run.end(), bytes.begin() + static_cast<ptrdiff_t>(place));
    }
    return bytes;
}

BusTap::BusTap()
{
    model::journal_clear();
    model::journal_enable(true);
}

BusTap::~BusTap()
{
    model::journal_enable(false);
    model::journal_clear();
}

std::vector<BusTap::Access> BusTap::take()
{
    std::vector<Access> accesses;
    for (uint32_t i = 0; i < model::journal_count(); i++) {
        const model::Record &record = *model::journal_record(i);
        if (record.kind == model::RecordKind::kRead32) {
            accesses.push_back({'r', record.address, record.value});
        }
        if (record.kind == model::RecordKind::kWrite32) {
            accesses.push_back({'w', record.address, record.value});
        }
    }
    model::journal_clear();
    return accesses;
}

Module::Module()
{
    model::faults_clear();
    model::journal_enable(false);
    model::journal_clear();
    for (uint32_t chip = 0; chip < NP_CHIP_NUM; chip++) {
        model::detach(chip);
        constexpr NpChipAddr empty = {};
        Np_Chip_AddrSet(chip, &empty);
        g_aucNpInitFlag[chip] = 0;
        g_aulNpLocalBusShift[chip] = 0;
        g_pFnNpSlaveAddrRead[chip] = nullptr;
        g_pFnNpSlaveAddrWrite[chip] = nullptr;
        g_pFnNpRecordErrInfo[chip] = nullptr;
    }
    g_pfnNpSdkPrint = kPrintHook;
    g_pfnNpUsDelayHook = nullptr;
    g_pFnNpClearWatchDog = nullptr;
    g_pFnNpIntLock = nullptr;
    g_pFnNpIntUnlock = nullptr;
    Np_PrintLevelInit();
    g_ulNpSdkTraceTimes = 30;
    g_ulNpSdkTraceFuncTimes = 20;
    g_stNpSdkFuncEnable = 0;
    g_stNpSdkFuncCount = 0;
    Os_HostIrqReset();
    Os_BusAttach(&model::bus());
    model::attach(0);
}

Module::~Module()
{
    model::faults_clear();
    Np_PrintLevelInit();
}

void Module::trace_errors(NpModule module)
{
    Np_PrintLevelSet(module, NP_PRINT_ERROR, 1);
}

void Module::set_fault(const std::string &text)
{
    model::faults_clear();
    model::FaultError error = {};
    ASSERT_TRUE(model::faults_set(text.c_str(), &error)) << error.reason << " at " << error.at;
}

uint32_t Module::peek(uint32_t address, uint32_t chip)
{
    uint32_t value = 0;
    EXPECT_EQ(model::peek(chip, address, &value), model::kOk) << std::hex << address;
    return value;
}

void Module::poke(uint32_t address, uint32_t value, uint32_t chip)
{
    EXPECT_EQ(model::poke(chip, address, value), model::kOk) << std::hex << address;
}

std::vector<uint8_t> Module::memory(uint32_t address, size_t size, uint32_t chip)
{
    std::vector<uint8_t> bytes(size);
    uint32_t word = 0;
    for (size_t i = 0; i < size; i++) {
        const uint32_t at = address + static_cast<uint32_t>(i);
        if (i == 0 || at % 4 == 0) {
            // A row may lie at the very edge of a window: what is outside reads as zero.
            word = 0;
            model::peek(chip, at & ~3u, &word);
        }
        bytes[i] = static_cast<uint8_t>(word >> (8 * (at % 4)));
    }
    return bytes;
}

std::vector<uint8_t> Module::store(uint32_t chip)
{
    std::vector<uint8_t> bytes;
    for (const NpIoMap &window : g_stIoMapTbl) {
        const size_t size = window.ulLast + 1 - window.ulFirst;
        const std::vector<uint8_t> part = memory(window.ulFirst, size, chip);
        bytes.insert(bytes.end(), part.begin(), part.end());
    }
    return bytes;
}

ChipUp::ChipUp()
{
    EXPECT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
    EXPECT_EQ(Np_INIT_SdkInit(0), NP_OK);
}

ChipUp::~ChipUp()
{
    model::faults_clear();
    if (g_aucNpInitFlag[0] == 1) {
        EXPECT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
    }
}

}  // namespace ldsdk::test

#include "host/sibling.h"

#include "platform/os.h"

#include <array>
#include <utility>

namespace ldsdk::host {

namespace {

constexpr size_t kErrorsKept = 1024;

// What the hooks write. A hook is a bare function, so this is the process's.
struct HookState {
    HookCounts counts;
    std::vector<ErrorRecord> errors;
    uint64_t errors_total;
    std::array<SlaveAccess, NP_CHIP_NUM> slaves;
    uint32_t lock_depth;
};

HookState &hooks()
{
    static HookState state{};
    return state;
}

void print_hook(const char *text)
{
    hooks().counts.prints++;
    Os_Print("%s", text);
}

// The model's time does not pass while the processor waits, so there is nothing to wait for.
void delay_hook(uint32_t, uint32_t, uint32_t)
{
    hooks().counts.delays++;
}

void watchdog_hook()
{
    hooks().counts.watchdog_feeds++;
}

// The key is the depth that the lock found.
uint32_t lock_hook()
{
    hooks().counts.locks++;
    return hooks().lock_depth++;
}

void unlock_hook(uint32_t key)
{
    hooks().counts.unlocks++;
    hooks().lock_depth = key;
}

// The hooks of a chip are not told which chip they are called for: each chip has its own.
template <uint32_t Chip>
void record_error_hook(uint32_t code, uint32_t info)
{
    HookState &state = hooks();
    state.errors_total++;
    if (state.errors.size() == kErrorsKept) {
        state.errors.erase(state.errors.begin());
    }
    state.errors.push_back({Chip, code, info});
}

template <uint32_t Chip>
uint32_t slave_read_hook(uint32_t address, uint32_t *value)
{
    hooks().counts.slave_reads++;
    return hooks().slaves[Chip].read(address, value);
}

template <uint32_t Chip>
uint32_t slave_write_hook(uint32_t address, uint32_t value)
{
    hooks().counts.slave_writes++;
    return hooks().slaves[Chip].write(address, value);
}

struct ChipHooks {
    NpRecordErrHook record_error;
    NpSlaveReadHook slave_read;
    NpSlaveWriteHook slave_write;
};

template <uint32_t... Chip>
constexpr std::array<ChipHooks, sizeof...(Chip)> make_chip_hooks(
    std::integer_sequence<uint32_t, Chip...>)
{
    return {{{record_error_hook<Chip>, slave_read_hook<Chip>, slave_write_hook<Chip>}...}};
}

constexpr auto kChipHooks = make_chip_hooks(std::make_integer_sequence<uint32_t, NP_CHIP_NUM>());

struct Step {
    const char *name;
    uint32_t (Sibling::*run)();
};

// The microcode image is loaded behind the bring-up, which clears the chip's memory.
constexpr Step kSteps[] = {
    {"registering the hooks", &Sibling::register_hooks},
    {"registering the chip", &Sibling::register_chip},
    {"installing the command tree", &Sibling::install_commands},
    {"bringing the chip up", &Sibling::bring_up},
};

}  // namespace

Sibling::~Sibling()
{
    if (up_) {
        tear_down();
    }
}

uint32_t Sibling::start()
{
    for (const Step &step : kSteps) {
        if (const uint32_t status = (this->*step.run)(); status != NP_OK) {
            failed_step_ = step.name;
            return status;
        }
    }
    return NP_OK;
}

uint32_t Sibling::register_hooks()
{
    if (config_.chip >= NP_CHIP_NUM) {
        return NP_ERR_CHIP_ID;
    }
    const uint32_t results[] = {
        Np_GLB_SetPrintHook(print_hook),
        Np_GLB_UsDelayRegister(delay_hook),
        Np_GLB_ClearWatchDogHook(watchdog_hook),
        Np_Glb_RecordErrInfoHook(config_.chip, kChipHooks[config_.chip].record_error),
        Np_GLB_IntLock(lock_hook),
        Np_GLB_IntUnlock(unlock_hook),
    };
    for (const uint32_t status : results) {
        if (status != NP_OK) {
            return status;
        }
    }
    return NP_OK;
}

uint32_t Sibling::register_chip()
{
    return Np_GLB_ChipRegister(config_.chip, config_.chip_class, config_.attribute,
                               config_.reg_base);
}

uint32_t Sibling::install_commands()
{
    static bool installed = false;
    if (!installed) {
        Np_INIT_SdkCmdTreeInstall();
        installed = true;
    }
    return NP_OK;
}

uint32_t Sibling::bring_up()
{
    const uint32_t status = Np_INIT_SdkInit(config_.chip);
    up_ = up_ || status == NP_OK;
    return status;
}

uint32_t Sibling::tear_down()
{
    const uint32_t status = Np_INIT_SdkDestruct(config_.chip);
    up_ = up_ && status != NP_OK;
    return status;
}

uint32_t Sibling::register_slave_hooks(SlaveAccess access)
{
    if (config_.chip >= NP_CHIP_NUM) {
        return NP_ERR_CHIP_ID;
    }
    if (access.read == nullptr || access.write == nullptr) {
        return NP_ERR_NULL_PTR;
    }
    hooks().slaves[config_.chip] = std::move(access);
    return Np_GLB_SlaveAddrHookRegister(config_.chip, kChipHooks[config_.chip].slave_read,
                                        kChipHooks[config_.chip].slave_write);
}

TickResult Sibling::tick(std::span<const uint8_t> heartbeat)
{
    TickResult result = {};
    result.timer = Np_Dfx_Timer_Routine(config_.chip, &result.reset_bitmap);
    if (!heartbeat.empty()) {
        result.heartbeat = Np_Dfx_HeartBeat_Msg_Receive(config_.chip, heartbeat.data(),
                                                        static_cast<uint32_t>(heartbeat.size()));
    }
    return result;
}

const HookCounts &Sibling::counts()
{
    return hooks().counts;
}

const std::vector<ErrorRecord> &Sibling::errors()
{
    return hooks().errors;
}

uint64_t Sibling::errors_total()
{
    return hooks().errors_total;
}

void Sibling::reset_counts()
{
    hooks().counts = {};
    hooks().errors.clear();
    hooks().errors_total = 0;
}

}  // namespace ldsdk::host

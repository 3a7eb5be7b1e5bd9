// The host's C door over the chip model and the user-space platform.
#include "ldsdk/host.h"

#include "chipmodel/model.h"
#include "platform/bus.h"
#include "platform/host/host_os.h"
#include "sdk/module/cli.h"

#include <string>

using namespace ldsdk;

namespace {

constexpr uint32_t kMaster = 0;

std::string g_fault_error;

uint32_t host_code(uint32_t model_status)
{
    switch (model_status) {
        case model::kOk:
            return LDSDK_HOST_OK;
        case model::kErrNoChip:
            return LDSDK_HOST_CHIP;
        case model::kErrNull:
            return LDSDK_HOST_NULL;
        default:
            return LDSDK_HOST_ADDRESS;
    }
}

// Loads the module if the program that we are part of has not done so.
void load_module()
{
    if (Os_HostMisc(NP_CLI_DEVICE) == nullptr) {
        Np_ModuleInit();
    }
}

}  // namespace

uint32_t ldsdk_model_attach(uint32_t chip)
{
    Os_BusAttach(&model::bus());
    load_module();
    if (const uint32_t status = model::attach(chip); status != model::kOk) {
        return host_code(status);
    }
    return chip == kMaster ? host_code(model::master_set(kMaster)) : LDSDK_HOST_OK;
}

uintptr_t ldsdk_model_reg_base(uint32_t chip)
{
    return chip == kMaster ? 0 : model::slave_base(chip);
}

uint32_t ldsdk_model_peek(uint32_t chip, uint32_t addr, uint32_t *value)
{
    return host_code(model::peek(chip, addr, value));
}

uint32_t ldsdk_model_poke(uint32_t chip, uint32_t addr, uint32_t value)
{
    return host_code(model::poke(chip, addr, value));
}

uint32_t ldsdk_model_advance(uint32_t chip, uint64_t ticks)
{
    return host_code(model::advance(chip, ticks));
}

uint32_t ldsdk_model_fault(const char *description)
{
    g_fault_error.clear();
    model::FaultError error = {};
    if (model::faults_set(description, &error)) {
        return LDSDK_HOST_OK;
    }
    char said[160];
    model::fault_error_format(description, error, said, sizeof(said));
    g_fault_error = said;
    return LDSDK_HOST_DESCRIPTION;
}

const char *ldsdk_model_error(void)
{
    return g_fault_error.c_str();
}

int ldsdk_device_ioctl(const void *buffer512)
{
    load_module();
    const OsMiscOps *ops = Os_HostMisc(NP_CLI_DEVICE);
    if (ops == nullptr) {
        return NP_CLI_EFAULT;
    }
    return ops->pfnIoctl(nullptr, nullptr, 0, reinterpret_cast<uintptr_t>(buffer512));
}

void ldsdk_set_output(void (*sink)(const char *text, void *user), void *user)
{
    Os_HostSetSink(sink, user);
}

// The host's C door over the chip model and the user-space platform.
#include "ldsdk/host.h"

#include "chipmodel/model.h"
#include "host/image.h"
#include "platform/bus.h"
#include "platform/host/host_os.h"
#include "sdk/frame/registry.h"
#include "sdk/module/cli/cli.h"

#include <atomic>
#include <exception>

using namespace ldsdk;

namespace {

constexpr uint32_t kMaster = 0;
constexpr int kBusy = -16;  // the kernel's, as the device would answer

char g_fault_error[160];

// The thread that is in a function of the door, by the address of its mark.
thread_local char t_mark;
std::atomic<const char *> g_inside = nullptr;

// One thread at a time is let in; it may come again from a sink or a hook.
class Entry {
  public:
    Entry() : again_(g_inside.load(std::memory_order_relaxed) == &t_mark)
    {
        const char *nobody = nullptr;
        in_ =
            again_ || g_inside.compare_exchange_strong(nobody, &t_mark, std::memory_order_acquire);
    }
    ~Entry()
    {
        if (in_ && !again_) {
            g_inside.store(nullptr, std::memory_order_release);
        }
    }
    Entry(const Entry &) = delete;
    Entry &operator=(const Entry &) = delete;

    bool in() const
    {
        return in_;
    }
    bool first() const
    {
        return in_ && !again_;
    }

  private:
    bool again_;
    bool in_;
};

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

// Asks the model, with the door to itself.
template <typename Work>
uint32_t ask(Work work)
{
    const Entry entry;
    return entry.in() ? host_code(work()) : LDSDK_HOST_BUSY;
}

// Loads the module if the program that we are part of has not done so.
void load_module()
{
    if (Os_HostMisc(NP_CLI_DEVICE) == nullptr) {
        Np_ModuleInit();
    }
}

}  // namespace

uint32_t ldsdk_family_option(const char *name, uint32_t value)
{
    const Entry entry;
    if (!entry.in()) {
        return LDSDK_HOST_BUSY;
    }
    return name == nullptr ? LDSDK_HOST_NULL : Np_FamilyOptionSet(name, value);
}

uint32_t ldsdk_model_attach(uint32_t chip)
{
    return ask([&] {
        Os_BusAttach(&model::bus());
        load_module();
        const uint32_t status = model::attach(chip);
        return status == model::kOk && chip == kMaster ? model::master_set(kMaster) : status;
    });
}

uintptr_t ldsdk_model_reg_base(uint32_t chip)
{
    return chip == kMaster ? 0 : model::slave_base(chip);
}

uint32_t ldsdk_model_peek(uint32_t chip, uint32_t addr, uint32_t *value)
{
    return ask([&] { return model::peek(chip, addr, value); });
}

uint32_t ldsdk_model_poke(uint32_t chip, uint32_t addr, uint32_t value)
{
    return ask([&] { return model::poke(chip, addr, value); });
}

uint32_t ldsdk_model_advance(uint32_t chip, uint64_t ticks)
{
    return ask([&] { return model::advance(chip, ticks); });
}

uint32_t ldsdk_model_fault(const char *description)
{
    const Entry entry;
    if (!entry.in()) {
        return LDSDK_HOST_BUSY;
    }
    g_fault_error[0] = '\0';
    model::FaultError error = {};
    if (model::faults_set(description, &error)) {
        return LDSDK_HOST_OK;
    }
    model::fault_error_format(description, error, g_fault_error, sizeof(g_fault_error));
    return LDSDK_HOST_DESCRIPTION;
}

const char *ldsdk_model_error(void)
{
    const Entry entry;
    return entry.in() ? g_fault_error : "another thread is in a call";
}

uint32_t ldsdk_image_load(uint32_t chip, const void *bytes, size_t size)
{
    const Entry entry;
    if (!entry.first()) {
        return LDSDK_HOST_BUSY;
    }
    if (bytes == nullptr || size == 0) {
        return LDSDK_HOST_NULL;
    }
    uint32_t mode = 0;
    if (model::atom_mode_get(chip, 0, &mode) == model::kErrNoChip) {
        return LDSDK_HOST_CHIP;
    }
    try {
        return size > host::kMaxImageSize
                   ? LDSDK_HOST_MEMORY
                   : host::load_image(chip, {static_cast<const uint8_t *>(bytes), size});
    }
    catch (const std::exception &) {
        return LDSDK_HOST_MEMORY;
    }
}

int ldsdk_device_ioctl(const void *buffer512)
{
    const Entry entry;
    if (!entry.first()) {
        return kBusy;
    }
    load_module();
    const OsMiscOps *ops = Os_HostMisc(NP_CLI_DEVICE);
    if (ops == nullptr) {
        return NP_CLI_EFAULT;
    }
    return ops->pfnIoctl(nullptr, nullptr, 0, reinterpret_cast<uintptr_t>(buffer512));
}

uint32_t ldsdk_set_output(void (*sink)(const char *text, void *user), void *user)
{
    return ask([&] {
        Os_HostSetSink(sink, user);
        return model::kOk;
    });
}

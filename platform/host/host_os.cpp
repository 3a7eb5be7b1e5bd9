#include "platform/host/host_os.h"

#include "ldsdk/micro.h"
#include "platform/bus.h"

#include <sched.h>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>
#include <new>

// ---- text -------------------------------------------------------------------------------------

namespace {

void print_to_stdout(const char *text, void * /*user*/)
{
    std::fputs(text, stdout);
}

struct Sink {
    void (*write)(const char *, void *);
    void *user;
};
constinit Sink g_sink = {print_to_stdout, nullptr};

}  // namespace

void Os_HostSetSink(void (*pfnSink)(const char *, void *), void *pvUser)
{
    g_sink = pfnSink == nullptr ? Sink{print_to_stdout, nullptr} : Sink{pfnSink, pvUser};
}

int Os_FormatV(char *pszBuffer, size_t ulSize, const char *pszFormat, va_list stArgs)
{
    return std::vsnprintf(pszBuffer, ulSize, pszFormat, stArgs);
}

int Os_Format(char *pszBuffer, size_t ulSize, const char *pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    const int length = std::vsnprintf(pszBuffer, ulSize, pszFormat, args);
    va_end(args);
    return length;
}

int Os_Print(const char *pszFormat, ...)
{
    char line[512];
    va_list args;
    va_start(args, pszFormat);
    va_list again;
    va_copy(again, args);
    const int length = std::vsnprintf(line, sizeof line, pszFormat, args);
    va_end(args);
    if (length >= 0 && static_cast<size_t>(length) < sizeof line) {
        g_sink.write(line, g_sink.user);
    }
    else if (length >= 0) {
        const size_t size = static_cast<size_t>(length) + 1;
        const auto text = std::make_unique<char[]>(size);
        std::vsnprintf(text.get(), size, pszFormat, again);
        g_sink.write(text.get(), g_sink.user);
    }
    va_end(again);
    return length;
}

// ---- bus --------------------------------------------------------------------------------------

namespace {

// What stands in the place of a chip when none is attached.
constexpr OsBus kNoBus = {
    [](uint32_t, uint32_t) -> uintptr_t { return 0; },
    [](uintptr_t, uint32_t) {},
    [](uintptr_t) -> uint32_t { return 0; },
    [](uintptr_t, uint32_t) {},
    [](uintptr_t) -> uint16_t { return 0; },
    [](uintptr_t, uint16_t) {},
    [](uintptr_t) { return 0; },
};
constinit OsBus g_bus = kNoBus;

// Registers outside the SDK's own map that are within reach here.
#define HOST_EXTRA_ROW(First, Last) {First, Last, 0},
constinit OsIoRow g_extra_rows[] = {OS_IO_EXTRA_ROWS(HOST_EXTRA_ROW){0, 0, 0}};
#undef HOST_EXTRA_ROW

}  // namespace

void Os_BusAttach(const OsBus *pstBus)
{
    g_bus = pstBus == nullptr ? kNoBus : *pstBus;
}

uintptr_t Os_IoMap(uint32_t ulFirst, uint32_t ulSize)
{
    return g_bus.pfnMap(ulFirst, ulSize);
}

void Os_IoClear(uintptr_t ulVirt, uint32_t ulSize)
{
    g_bus.pfnClear(ulVirt, ulSize);
}

uint32_t Os_IoRead32(uintptr_t ulVirt)
{
    return g_bus.pfnRead32(ulVirt);
}

void Os_IoWrite32(uintptr_t ulVirt, uint32_t ulValue)
{
    g_bus.pfnWrite32(ulVirt, ulValue);
}

uint16_t Os_IoRead16(uintptr_t ulVirt)
{
    return g_bus.pfnRead16(ulVirt);
}

void Os_IoWrite16(uintptr_t ulVirt, uint16_t usValue)
{
    g_bus.pfnWrite16(ulVirt, usValue);
}

const OsIoRow *Os_IoExtraMap(void)
{
    for (OsIoRow *row = g_extra_rows; row->ulLast != 0; row++) {
        row->ulVirt = Os_IoMap(row->ulFirst, row->ulLast + 1 - row->ulFirst);
        if (row->ulVirt == 0) {
            return nullptr;
        }
    }
    return g_extra_rows;
}

// ---- memory -----------------------------------------------------------------------------------

namespace {

// Stands in front of each block; a multiple of what any record needs for its alignment.
struct alignas(std::max_align_t) BlockHead {
    uint64_t magic;
    size_t size;
};
constexpr uint64_t kLive = 0x6b636f6c62657669;

constinit OsHostMemory g_memory = {};
constinit uintptr_t g_user_limit = 0;
constinit size_t g_copy_fault = SIZE_MAX;

}  // namespace

void *Os_Alloc(size_t ulSize)
{
    void *raw = nullptr;
    if (g_bus.pfnAllocFails(ulSize) == 0 && ulSize <= SIZE_MAX - sizeof(BlockHead)) {
        raw = std::calloc(1, sizeof(BlockHead) + ulSize);
    }
    if (raw == nullptr) {
        g_memory.ulRefused++;
        return nullptr;
    }
    auto *head = new (raw) BlockHead{kLive, ulSize};
    g_memory.ulBlocks++;
    g_memory.ulBytes += ulSize;
    g_memory.ulAllocs++;
    return head + 1;
}

void Os_Free(void *pvBlock)
{
    if (pvBlock == nullptr) {
        return;
    }
    auto *head = static_cast<BlockHead *>(pvBlock) - 1;
    if (head->magic != kLive) {
        g_memory.ulBadFrees++;
        return;
    }
    head->magic = 0;
    g_memory.ulBlocks--;
    g_memory.ulBytes -= head->size;
    std::free(head);
}

void Os_HostMemoryGet(OsHostMemory *pstMemory)
{
    *pstMemory = g_memory;
}

bool Os_UserRangeOk(const void *pvUser, size_t ulSize)
{
    const auto first = reinterpret_cast<uintptr_t>(pvUser);
    const uintptr_t limit = g_user_limit == 0 ? UINTPTR_MAX : g_user_limit;
    return first <= limit && ulSize <= limit - first;
}

size_t Os_CopyFromUser(void *pvTo, const void *pvUser, size_t ulSize)
{
    if (pvUser == nullptr) {
        return ulSize;
    }
    const size_t copied = ulSize < g_copy_fault ? ulSize : g_copy_fault;
    std::memcpy(pvTo, pvUser, copied);
    return ulSize - copied;
}

void Os_HostSetUserLimit(uintptr_t ulLimit)
{
    g_user_limit = ulLimit;
}

void Os_HostSetCopyFault(size_t ulBytes)
{
    g_copy_fault = ulBytes;
}

// ---- processor --------------------------------------------------------------------------------

namespace {

constinit OsHostIrq g_irq = {};

struct SleepHook {
    void (*call)(uint32_t, void *);
    void *user;
};
constinit SleepHook g_sleep = {};

void note_giving_up()
{
    if (g_irq.ulDepth != 0) {
        g_irq.ulAsleep++;
    }
}

}  // namespace

// The state of a save is the depth that it found.
uintptr_t Os_IrqSave(void)
{
    g_irq.ulSaves++;
    return g_irq.ulDepth++;
}

void Os_IrqRestore(uintptr_t ulState)
{
    if (ulState + 1 != g_irq.ulDepth) {
        g_irq.ulUnbalanced++;
    }
    g_irq.ulDepth = static_cast<uint32_t>(ulState);
}

void Os_HostIrqGet(OsHostIrq *pstIrq)
{
    *pstIrq = g_irq;
}

void Os_HostIrqReset(void)
{
    g_irq = {};
}

void Os_HostSetSleepHook(void (*pfnHook)(uint32_t, void *), void *pvUser)
{
    g_sleep = {pfnHook, pvUser};
}

void Os_Sleep(uint32_t ulMs)
{
    note_giving_up();
    if (g_sleep.call != nullptr) {
        g_sleep.call(ulMs, g_sleep.user);
        return;
    }
    timespec left = {static_cast<time_t>(ulMs / 1000), static_cast<long>(ulMs % 1000) * 1000000L};
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
}

void Os_Schedule(void)
{
    note_giving_up();
    sched_yield();
}

// ---- microcode images -------------------------------------------------------------------------

namespace {

constinit const OsImages *g_images = nullptr;

}  // namespace

void Os_ImagesAttach(const OsImages *pstImages)
{
    g_images = pstImages;
}

void *Os_ImageGet(uint32_t ulAddress, uint32_t ulSize, bool bRegistered)
{
    void *found = g_images != nullptr ? g_images->pfnGet(ulAddress, ulSize) : nullptr;
    return found != nullptr || bRegistered
               ? found
               : reinterpret_cast<void *>(static_cast<uintptr_t>(ulAddress));
}

void Os_ImagePut(uint32_t ulAddress)
{
    if (g_images != nullptr) {
        g_images->pfnPut(ulAddress);
    }
}

// ---- misc device ------------------------------------------------------------------------------

namespace {

struct MiscDevice {
    char name[32];
    const OsMiscOps *ops;  // null in a free row
};
constinit MiscDevice g_misc[4] = {};
constinit int g_misc_fault = 0;

MiscDevice *misc_find(const char *name)
{
    for (MiscDevice &device : g_misc) {
        if (device.ops != nullptr && std::strcmp(device.name, name) == 0) {
            return &device;
        }
    }
    return nullptr;
}

}  // namespace

int Os_MiscRegister(const char *pszName, const OsMiscOps *pstOps)
{
    if (g_misc_fault != 0) {
        return g_misc_fault;
    }
    if (std::strlen(pszName) >= sizeof MiscDevice::name) {
        return -EINVAL;
    }
    if (misc_find(pszName) != nullptr) {
        return -EEXIST;
    }
    for (MiscDevice &device : g_misc) {
        if (device.ops == nullptr) {
            std::strcpy(device.name, pszName);
            device.ops = pstOps;
            return 0;
        }
    }
    return -EBUSY;
}

void Os_MiscDeregister(const char *pszName)
{
    if (MiscDevice *device = misc_find(pszName); device != nullptr) {
        *device = {};
    }
}

const OsMiscOps *Os_HostMisc(const char *pszName)
{
    const MiscDevice *device = misc_find(pszName);
    return device == nullptr ? nullptr : device->ops;
}

void Os_HostSetMiscFault(int iCode)
{
    g_misc_fault = iCode;
}

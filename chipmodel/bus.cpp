// Where the platform's loads and stores arrive. Virtual addresses are tokens, never pointers: a
// caller that dereferences one itself goes down at once.

#include "chipmodel/chip.h"
#include "chipmodel/fault.h"
#include "chipmodel/journal.h"

namespace ldsdk::model {

namespace {

// Windows of the master: token of an offset in the store.
constexpr uintptr_t kWindowToken = 0x10000000;

// Bus block of a slave: the chip in bits 13..12, the register's offset in bits 11..0; the caller
// ORs 0x20000 << shift in. Bits 31..29 are set, so that shifts up to 14 leave the rest readable.
constexpr uint32_t kSlaveToken = 0xe0000000;
constexpr uint32_t kSlaveBlock = 0x1ffe0000;  // where the caller's shifted bit may stand
constexpr uint32_t kSlaveShift0 = 0x20000;    // stands there with shift 0

constinit uint64_t g_stray = 0;

void record(RecordKind kind, const Chip &chip, uint32_t address, uint32_t value)
{
    Record entry = {};
    entry.tick = chip.now();
    entry.address = address;
    entry.value = value;
    entry.kind = kind;
    entry.chip = static_cast<uint8_t>(chip.id());
    journal_put(entry);
}

// A place of a mapped window.
struct Place {
    Chip *chip;  // the master, asked for once: it may go meanwhile; null when nothing is there
    uint32_t offset;
};

// Where size bytes at a window's token stand.
Place window_place(uintptr_t virt, uint32_t size)
{
    Chip *const chip = chip_master();
    const uintptr_t offset = virt - kWindowToken;
    if (__builtin_expect(offset > kStoreSize - size || chip == nullptr, 0)) {
        g_stray++;
        return {nullptr, kNoOffset};
    }
    return {chip, static_cast<uint32_t>(offset)};
}

uintptr_t map(uint32_t first, uint32_t size)
{
    const uint32_t offset = size == 0 ? kNoOffset : Memory::locate(first, size);
    return offset == kNoOffset || chip_master() == nullptr ? 0 : kWindowToken + offset;
}

void clear(uintptr_t virt, uint32_t size)
{
    const auto [chip, offset] =
        size > kStoreSize ? Place{nullptr, kNoOffset} : window_place(virt, size);
    if (chip == nullptr) {
        return;
    }
    chip->memory.clear(offset, size);
    if (watched(kWatchJournal)) {
        record(RecordKind::kClear, *chip, Memory::address_of(offset), size);
    }
}

uint32_t read32(uintptr_t virt)
{
    const auto [chip, offset] = window_place(virt, 4);
    if (chip == nullptr) {
        return 0;
    }
    const uint32_t value = chip->memory.read32(offset);
    if (watched(kWatchJournal)) {
        record(RecordKind::kRead32, *chip, Memory::address_of(offset), value);
    }
    return value;
}

void write32(uintptr_t virt, uint32_t value)
{
    const auto [chip, offset] = window_place(virt, 4);
    if (chip == nullptr) {
        return;
    }
    if (watched(kWatchJournal)) {
        record(RecordKind::kWrite32, *chip, Memory::address_of(offset), value);
    }
    chip->bus_write_at(offset, value);
}

// A register of a slave's bus.
struct SlaveRegister {
    Chip *chip;  // null when there is no such chip
    uint32_t number;
};

SlaveRegister slave_register(uintptr_t virt)
{
    if ((virt & kSlaveToken) != kSlaveToken || (virt & 0x1c000) != 0 || virt > 0xffffffff) {
        return {nullptr, 0};
    }
    const auto token = static_cast<uint32_t>(virt);
    const uint32_t spacing = (token & kSlaveBlock) == kSlaveShift0 ? 1 : 2;  // log2
    const uint32_t offset = token & 0xfff;
    const uint32_t number = offset >> spacing;
    if (offset != number << spacing || number < SlaveBus::kAddressHigh ||
        number > SlaveBus::kStatus) {
        return {nullptr, 0};
    }
    return {chip_find(token >> 12 & 3), number};
}

// An empty bus reads all ones.
uint16_t read16(uintptr_t virt)
{
    const SlaveRegister reg = slave_register(virt);
    if (reg.chip == nullptr) {
        g_stray++;
        return 0xffff;
    }
    const uint16_t value = reg.chip->slave_bus.read(reg.number);
    if (watched(kWatchJournal)) {
        record(RecordKind::kRead16, *reg.chip, reg.number, value);
    }
    return value;
}

void write16(uintptr_t virt, uint16_t value)
{
    const SlaveRegister reg = slave_register(virt);
    if (reg.chip == nullptr) {
        g_stray++;
        return;
    }
    if (watched(kWatchJournal)) {
        record(RecordKind::kWrite16, *reg.chip, reg.number, value);
    }
    reg.chip->slave_bus.write(*reg.chip, reg.number, value);
}

int alloc_fails(uintptr_t)
{
    return watched(kWatchFaults) && fault_check(Op::kAlloc).hit ? 1 : 0;
}

constexpr OsBus kBus = {map, clear, read32, write32, read16, write16, alloc_fails};

}  // namespace

const OsBus &bus()
{
    return kBus;
}

uint64_t stray_accesses()
{
    return g_stray;
}

uint32_t slave_base(uint32_t chip)
{
    return kSlaveToken | chip << 12;
}

}  // namespace ldsdk::model

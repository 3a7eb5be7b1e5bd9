#include "chipmodel/chip.h"

#include "chipmodel/registers.h"

namespace ldsdk::model {

namespace {

constinit Chip g_chips[kChipNum] = {};
constinit Chip *g_master = nullptr;
constinit Pace g_pace = nullptr;

// What a part does beside answering calls. Either may be null.
struct Part {
    const char *name;
    void (*power_on)(Chip &chip);
    // The clock moved from a time to chip.now(); do what fell due since.
    void (*tick)(Chip &chip, uint64_t from);
};

constexpr Part kParts[] = {
    {"memory", [](Chip &chip) { chip.memory.clear(0, kStoreSize); }, nullptr},
    {"registers", [](Chip &chip) { registers_power_on(chip.memory); }, nullptr},
    {"slave bus", [](Chip &chip) { chip.slave_bus.power_on(1); }, nullptr},
    {"search memory", [](Chip &chip) { chip.smem = {}; }, nullptr},
    {"hash engine", [](Chip &chip) { __builtin_memset(&chip.hash, 0, sizeof chip.hash); }, nullptr},
    {"local CAM", [](Chip &chip) { tcam_power_on(chip.tcam); }, nullptr},
    {"pre-classifier", [](Chip &chip) { __builtin_memset(&chip.ha, 0, sizeof chip.ha); }, nullptr},
    {"statistics", [](Chip &chip) { chip.stat = {}; }, nullptr},
    {"stand-in", [](Chip &chip) { chip.standin = {}; }, nullptr},
    {"packet channel", channel_power_on, channel_tick},
    {"packet feed", [](Chip &chip) { __builtin_memset(chip.atom_mode, 0, sizeof chip.atom_mode); },
     nullptr},
    {"atoms", [](Chip &chip) { atoms_power_on(chip.atoms); },
     [](Chip &chip, uint64_t from) { atoms_tick(chip, chip.now() - from); }},
};

// A chip that is attached and, for a getter, something to write to.
template <typename T, typename Work>
uint32_t with_chip(uint32_t id, T *out, Work work)
{
    Chip *chip = chip_find(id);
    if (chip == nullptr) {
        return kErrNoChip;
    }
    return out == nullptr ? kErrNull : work(*chip);
}

}  // namespace

void Chip::power_on(uint32_t id)
{
    id_ = id;
    now_ = 0;
    attached_ = true;
    for (const Part &part : kParts) {
        if (part.power_on != nullptr) {
            part.power_on(*this);
        }
    }
}

void Chip::advance(uint64_t ticks)
{
    const uint64_t from = now_;
    now_ += ticks;
    for (const Part &part : kParts) {
        if (part.tick != nullptr) {
            part.tick(*this, from);
        }
    }
}

uint32_t Chip::bus_read(uint32_t address)
{
    const uint32_t offset = Memory::locate(address, 4);
    return offset == kNoOffset ? 0 : memory.read32(offset);
}

void Chip::bus_write(uint32_t address, uint32_t value)
{
    const uint32_t offset = Memory::locate(address, 4);
    if (offset != kNoOffset) {
        bus_write_at(offset, value);
    }
}

void Chip::bus_write_at(uint32_t offset, uint32_t value)
{
    if (offset >= kBlockOffset) {
        register_write(memory, offset, value);
        return;
    }
    memory.write32(offset, value);
    if (completes_group(offset)) {
        atoms_group_written(*this, offset);
    }
}

Chip *chip_find(uint32_t id)
{
    return id < kChipNum && g_chips[id].attached() ? &g_chips[id] : nullptr;
}

bool go_on()
{
    return g_pace == nullptr || g_pace();
}

Chip *chip_master()
{
    // One load: a caller that holds the result must not see it change.
    return __atomic_load_n(&g_master, __ATOMIC_RELAXED);
}

// ---- model.h ------------------------------------------------------------------------------------

uint32_t attach(uint32_t chip)
{
    if (chip >= kChipNum) {
        return kErrNoChip;
    }
    g_chips[chip].power_on(chip);
    if (g_master == nullptr) {
        g_master = &g_chips[chip];
    }
    return kOk;
}

uint32_t detach(uint32_t chip)
{
    Chip *gone = chip_find(chip);
    if (gone == nullptr) {
        return kErrNoChip;
    }
    gone->power_off();
    if (g_master == gone) {
        g_master = nullptr;
    }
    return kOk;
}

uint32_t master_set(uint32_t chip)
{
    Chip *found = chip_find(chip);
    if (found == nullptr) {
        return kErrNoChip;
    }
    g_master = found;
    return kOk;
}

uint32_t master()
{
    const Chip *master = chip_master();
    return master == nullptr ? kChipNum : master->id();
}

uint32_t bus_polls_set(uint32_t chip, uint32_t polls)
{
    return with_chip(chip, &polls, [&](Chip &found) {
        found.slave_bus.polls_set(polls);
        return kOk;
    });
}

uint32_t peek(uint32_t chip, uint32_t address, uint32_t *value)
{
    return with_chip(chip, value, [&](Chip &found) {
        const uint32_t offset = Memory::locate(address, 4);
        if (offset == kNoOffset || address % 4 != 0) {
            return kErrAddress;
        }
        *value = found.memory.read32(offset);
        return kOk;
    });
}

uint32_t poke(uint32_t chip, uint32_t address, uint32_t value)
{
    return with_chip(chip, &value, [&](Chip &found) {
        const uint32_t offset = Memory::locate(address, 4);
        if (offset == kNoOffset || address % 4 != 0) {
            return kErrAddress;
        }
        found.memory.write32(offset, value);
        return kOk;
    });
}

uint32_t queue_get(uint32_t chip, uint32_t queue, QueueSetting *setting)
{
    return with_chip(chip, setting, [&](Chip &found) {
        if (queue >= kQueueNum) {
            return kErrParam;
        }
        *setting = found.smem.queue[queue];
        return kOk;
    });
}

uint32_t ddr_base_get(uint32_t chip, uint32_t smem, uint32_t *address)
{
    return with_chip(chip, address, [&](Chip &found) {
        if (smem >= kSmemNum) {
            return kErrParam;
        }
        *address = found.smem.ddr_base[smem];
        return kOk;
    });
}

uint32_t atom_mode_get(uint32_t chip, uint32_t atom, uint32_t *mode)
{
    return with_chip(chip, mode, [&](Chip &found) {
        if (atom >= kAtomNum) {
            return kErrParam;
        }
        *mode = found.atom_mode[atom];
        return kOk;
    });
}

uint32_t advance(uint32_t chip, uint64_t ticks)
{
    return with_chip(chip, &ticks, [&](Chip &found) {
        found.advance(ticks);
        return kOk;
    });
}

void pace_set(Pace pace)
{
    g_pace = pace;
}

uint64_t clock_now(uint32_t chip)
{
    const Chip *found = chip_find(chip);
    return found == nullptr ? 0 : found->now();
}

}  // namespace ldsdk::model

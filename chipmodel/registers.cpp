#include "chipmodel/registers.h"

namespace ldsdk::model {

namespace {

struct StatusBlock {
    uint32_t status;  // write ones to clear
    uint32_t set;     // write ones to raise
    uint32_t bits;    // status bits that the block has
};

constexpr StatusBlock kStatusBlocks[] = {
    {0x68100000, 0x68100008, 0x1f},     // search memory 1
    {0x60100000, 0x60100008, 0x1f},     // search memory 0
    {0x70000004, 0x7000000c, 0x3ff},    // LCAM
    {0x78100004, 0x7810000c, 0x1fff},   // PBA
    {0x78200004, 0x7820000c, 0x7f},     // OE
    {0x78000004, 0x7800000c, 0x7f},     // RBA
    {0x78300004, 0x7830000c, 0x1ffff},  // PE
};

struct PowerOnValue {
    uint32_t address;
    uint32_t value;
};

constexpr PowerOnValue kPowerOn[] = {
    {0x1613f000, 0x48},  // memory controller: idle, training done
};

}  // namespace

void registers_power_on(Memory &memory)
{
    for (const PowerOnValue &row : kPowerOn) {
        memory.write32(Memory::locate(row.address, 4), row.value);
    }
}

void register_write(Memory &memory, uint32_t offset, uint32_t value)
{
    const uint32_t address = Memory::address_of(offset);
    for (const StatusBlock &block : kStatusBlocks) {
        const uint32_t status = Memory::locate(block.status, 4);
        if (address == block.status) {
            memory.write32(status, memory.read32(status) & ~value);
            return;
        }
        if (address == block.set) {
            memory.write32(status, memory.read32(status) | (value & block.bits));
            return;
        }
    }
    memory.write32(offset, value);
}

}  // namespace ldsdk::model

// The store: every byte of a chip that an address reaches, search memory and registers alike. The
// mapped windows, the slave bus, the search memory commands and the debug door all end here, so a
// row written through one is the row that the others read.
#pragma once

#include "chipmodel/bytes.h"

#include <cstddef>
#include <cstdint>

namespace ldsdk::model {

// A stretch of chip addresses that holds something.
struct Region {
    uint32_t first;
    uint32_t size;  // bytes, a multiple of 16
};

// What is modelled. Search memory first, registers whose writes have side effects last.
inline constexpr Region kRegions[] = {
    {0x60200000, 0x100000},  // search memory 0; its lower half is a mapped window
    {0x64000000, 0x58000},   // search memory 0, mapped window: context memory, large tables
    {0x68200000, 0x100000},  // search memory 1, in no window
    {0x60038000, 0x2000},    // search memory 0: hardware queues
    {0x7a100000, 0x1a90},    // registers of atom 0, its context window at the end
    {0x7a110000, 0x1a90},    // atom 1
    {0x7a120000, 0x1a90},    // atom 2
    {0x7a130000, 0x1a90},    // atom 3
    {0x7a080000, 0x40000},   // instruction memory: 8192 groups of 8 words
    {0x78880000, 0x2000},    // multicast copier: 2048 pointers
    {0x78900000, 0x400},     // queue manager counters
    {0x1613f000, 0x300},     // memory controller of a slave
    {0x16140000, 0x20},      // its clock
    {0x60100000, 0x400},     // block registers: search memory 0
    {0x68100000, 0x400},     // search memory 1
    {0x70000000, 0x100},     // LCAM
    {0x78000000, 0x300},     // RBA
    {0x78100000, 0x300},     // PBA
    {0x78200000, 0x200},     // OE
    {0x78300000, 0x100},     // PE
};
inline constexpr uint32_t kRegionNum = sizeof kRegions / sizeof kRegions[0];
inline constexpr uint32_t kFirstBlockRegion = 13;  // row of kRegions

// Bytes of the regions in front of row `end`: where that region begins in the store.
constexpr uint32_t region_offset(uint32_t end)
{
    uint32_t sum = 0;
    for (uint32_t row = 0; row < end; row++) {
        sum += kRegions[row].size;
    }
    return sum;
}
inline constexpr uint32_t kStoreSize = region_offset(kRegionNum);
inline constexpr uint32_t kBlockOffset = region_offset(kFirstBlockRegion);
inline constexpr uint32_t kNoOffset = 0xffffffff;

static_assert(kRegions[kFirstBlockRegion].first == 0x60100000);

class Memory {
  public:
    // Offset in the store of `size` bytes at a chip address; kNoOffset when they don't lie in one
    // region.
    static uint32_t locate(uint32_t address, uint32_t size);
    // Chip address of an offset below kStoreSize.
    static uint32_t address_of(uint32_t offset);

    // Offsets below are from locate(), or at most kStoreSize - 4.
    uint32_t read32(uint32_t offset) const
    {
        return load_le32(bytes_ + offset);
    }
    void write32(uint32_t offset, uint32_t value)
    {
        store_le32(touch(offset, 4), value);
    }
    const uint8_t *at(uint32_t offset) const
    {
        return bytes_ + offset;
    }
    // The same bytes for writing; at most one page of them.
    uint8_t *touch(uint32_t offset, uint32_t size)
    {
        dirty_[offset / kPage] = true;
        dirty_[(offset + size - 1) / kPage] = true;
        return bytes_ + offset;
    }
    // Zeroes a range. Pages that nobody wrote stay untouched, so that they never become resident.
    void clear(uint32_t offset, uint32_t size);

  private:
    static constexpr uint32_t kPage = 4096;

    alignas(16) uint8_t bytes_[kStoreSize];
    bool dirty_[(kStoreSize + kPage - 1) / kPage];
};

}  // namespace ldsdk::model

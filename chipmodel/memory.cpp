#include "chipmodel/memory.h"

#include <array>

namespace ldsdk::model {

namespace {

constexpr std::array<uint32_t, kRegionNum> kOffsets = [] {
    std::array<uint32_t, kRegionNum> offsets = {};
    for (uint32_t row = 0; row < kRegionNum; row++) {
        offsets[row] = region_offset(row);
    }
    return offsets;
}();

constexpr bool regions_are_sane()
{
    for (uint32_t row = 0; row < kRegionNum; row++) {
        if (kRegions[row].size % 16 != 0 || kRegions[row].first % 16 != 0) {
            return false;
        }
        for (uint32_t other = 0; other < row; other++) {
            if (kRegions[row].first < kRegions[other].first + kRegions[other].size &&
                kRegions[other].first < kRegions[row].first + kRegions[row].size) {
                return false;
            }
        }
    }
    return true;
}
static_assert(regions_are_sane(), "regions overlap or are not aligned");

}  // namespace

uint32_t Memory::locate(uint32_t address, uint32_t size)
{
    for (uint32_t row = 0; row < kRegionNum; row++) {
        const uint32_t into = address - kRegions[row].first;
        if (into < kRegions[row].size && size <= kRegions[row].size - into) {
            return kOffsets[row] + into;
        }
    }
    return kNoOffset;
}

uint32_t Memory::address_of(uint32_t offset)
{
    uint32_t row = kRegionNum - 1;
    while (offset < kOffsets[row]) {
        row--;
    }
    return kRegions[row].first + (offset - kOffsets[row]);
}

void Memory::clear(uint32_t offset, uint32_t size)
{
    const uint32_t end = offset + size;
    while (offset < end) {
        const uint32_t page = offset / kPage;
        const uint32_t page_end = (page + 1) * kPage;
        const uint32_t stop = page_end < end ? page_end : end;
        if (dirty_[page]) {
            __builtin_memset(bytes_ + offset, 0, stop - offset);
            const bool whole = offset == page * kPage && (stop == page_end || stop == kStoreSize);
            dirty_[page] = !whole;
        }
        offset = stop;
    }
}

}  // namespace ldsdk::model

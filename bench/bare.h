// The least that an operation on a chip's tables can be: the platform's loads and stores, without
// any function of the SDK. What is measured is divided by these.
#pragma once

#include "bench/bench.h"
#include "platform/os.h"

#include <array>
#include <cstdint>

namespace ldsdk::bench {

// Rows of a table in a chip window.
struct Rows {
    uint32_t address;  // of row 0
    uint32_t words;    // of a row

    // Where the window is mapped, less its chip address.
    uintptr_t slide() const
    {
        return Os_IoMap(address, 4) - address;
    }
};

// The memory behind the windows takes whole lines: each word of a row is a line read upwards,
// changed, and written downwards.
template <Rows kRows>
void bare_write(uintptr_t slide, uint32_t row, const uint32_t *image)
{
    for (uint32_t word = 0; word < kRows.words; word++) {
        const uint32_t address = kRows.address + 4 * (row * kRows.words + word);
        const uintptr_t base = slide + (address & ~15u);
        std::array<uint32_t, 4> line;
        for (uint32_t i = 0; i < 4; i++) {
            line[i] = Os_IoRead32(base + 4 * i);
        }
        line[address / 4 % 4] = image[word];
        for (uint32_t i = 4; i-- > 0;) {
            Os_IoWrite32(base + 4 * i, line[i]);
        }
    }
}

// A read of a line's base latches the line.
template <Rows kRows>
void bare_read(uintptr_t slide, uint32_t row, uint32_t *image)
{
    for (uint32_t word = 0; word < kRows.words; word++) {
        const uint32_t address = kRows.address + 4 * (row * kRows.words + word);
        Os_IoRead32(slide + (address & ~15u));
        image[word] = Os_IoRead32(slide + address);
    }
}

// Fails a benchmark whose bare form does not do to the chip what the operation does.
template <typename Work, typename Bare>
void check_bare(benchmark::State &state, Work work, Bare bare)
{
    if (!same_traffic(work, bare)) {
        state.SkipWithError("the operation accesses the chip otherwise");
    }
}

}  // namespace ldsdk::bench

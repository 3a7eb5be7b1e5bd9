// Memory that ends exactly where it should.
#pragma once

#include "ldsdk/micro.h"

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <unistd.h>
#include <algorithm>
#include <cstdint>
#include <vector>

namespace ldsdk::test {

// Memory below 4 GiB, with pages on both sides that nobody can touch.
class GuardedMemory {
  public:
    explicit GuardedMemory(size_t size)
    {
        const auto page = static_cast<size_t>(::sysconf(_SC_PAGESIZE));
        inner_ = (size + page - 1) / page * page;
        for (uintptr_t wish = 0x20000000; wish < 0xf0000000; wish += 0x1000000) {
            void *at = ::mmap(reinterpret_cast<void *>(wish), inner_ + 2 * page, PROT_NONE,
                              MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
            if (at == MAP_FAILED) {
                continue;
            }
            all_ = static_cast<uint8_t *>(at);
            if (reinterpret_cast<uintptr_t>(at) + uint64_t{inner_ + 2 * page} <= 1ull << 32) {
                ::mprotect(all_ + page, inner_, PROT_READ | PROT_WRITE);
                page_ = page;
                return;
            }
            ::munmap(at, inner_ + 2 * page);
        }
        ADD_FAILURE() << "no memory below 4 GiB";
    }
    ~GuardedMemory()
    {
        ::munmap(all_, inner_ + 2 * page_);
    }
    GuardedMemory(const GuardedMemory &) = delete;
    GuardedMemory &operator=(const GuardedMemory &) = delete;

    // The bytes, pushed against the guard behind or in front of them.
    NpMicroLoad place(const std::vector<uint8_t> &bytes, bool at_end)
    {
        at_ = all_ + page_ + (at_end ? inner_ - bytes.size() : 0);
        std::copy(bytes.begin(), bytes.end(), at_);
        return {static_cast<uint32_t>(bytes.size()),
                static_cast<uint32_t>(reinterpret_cast<uintptr_t>(at_))};
    }
    // What stands there now.
    std::vector<uint8_t> bytes(size_t size) const
    {
        return {at_, at_ + size};
    }
    uint8_t *data() const
    {
        return at_;
    }

  private:
    uint8_t *all_ = nullptr;
    uint8_t *at_ = nullptr;
    size_t inner_ = 0;
    size_t page_ = 0;
};

}  // namespace ldsdk::test

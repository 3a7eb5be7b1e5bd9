// The two caches in front of the search memory, for tests that ask for them: one on the way of the
// hash engine, one on the way of plain commands. Both write through, and neither hears of the
// other's writes.
#pragma once

#include "chipmodel/memory.h"

namespace ldsdk::model {

class LineCache {
  public:
    static constexpr uint32_t kLineBytes = 16;
    static constexpr uint32_t kLineNum = 16;

    // Copies bytes of the store as the cache shows them, and keeps their lines.
    void read(const Memory &memory, uint32_t offset, uint8_t *bytes, uint32_t size);
    // Bytes went to the store this way: their lines are kept as they stand there now.
    void written(const Memory &memory, uint32_t offset, uint32_t size);
    void drop();

  private:
    struct Line {
        bool valid;
        uint32_t offset;  // of its first byte in the store
        uint8_t bytes[kLineBytes];
    };
    // The line of an offset, with what it held before; filled from the store when it holds another.
    Line &line_of(const Memory &memory, uint32_t offset);

    Line lines_[kLineNum];
};

struct HashCaches {
    bool strict;  // in the way
    LineCache engine;
    LineCache plain;
};

}  // namespace ldsdk::model

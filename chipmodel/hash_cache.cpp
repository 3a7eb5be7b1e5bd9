#include "chipmodel/hash_cache.h"

namespace ldsdk::model {

LineCache::Line &LineCache::line_of(const Memory &memory, uint32_t offset)
{
    Line &line = lines_[offset / kLineBytes % kLineNum];
    const uint32_t first = offset / kLineBytes * kLineBytes;
    if (!line.valid || line.offset != first) {
        line.valid = true;
        line.offset = first;
        __builtin_memcpy(line.bytes, memory.at(first), kLineBytes);
    }
    return line;
}

void LineCache::read(const Memory &memory, uint32_t offset, uint8_t *bytes, uint32_t size)
{
    for (uint32_t at = 0; at < size; at++) {
        bytes[at] = line_of(memory, offset + at).bytes[(offset + at) % kLineBytes];
    }
}

void LineCache::written(const Memory &memory, uint32_t offset, uint32_t size)
{
    for (uint32_t at = offset; at < offset + size; at++) {
        line_of(memory, at).bytes[at % kLineBytes] = *memory.at(at);
    }
}

void LineCache::drop()
{
    for (Line &line : lines_) {
        line.valid = false;
    }
}

}  // namespace ldsdk::model

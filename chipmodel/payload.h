// The payload of a request frame: a value of up to 48 bytes in groups of 16.
#pragma once

#include "chipmodel/bytes.h"

#include <cstdint>

namespace ldsdk::model {

// Takes a value of `size` bytes out of a payload: its last 16 bytes stand in the first group, those
// before them in the next, and a group that isn't full has its bytes at its end. False when a byte
// that doesn't belong to the value isn't zero.
inline bool payload_take(const uint8_t *payload, uint32_t size, uint8_t *value)
{
    uint32_t stray = 0;
    for (const uint8_t *group = payload; group < payload + 48; group += 16) {
        const uint32_t count = size < 16 ? size : 16;
        uint32_t at = 0;
        for (; at + 4 <= 16 - count; at += 4) {
            stray |= load_le32(group + at);
        }
        for (; at < 16 - count; at++) {
            stray |= group[at];
        }
        size -= count;
        __builtin_memcpy(value + size, group + 16 - count, count);
    }
    return stray == 0;
}

}  // namespace ldsdk::model

// Words in byte arrays: little-endian, and in network order.
#pragma once

#include <cstdint>

namespace ldsdk::model {

inline uint16_t load_le16(const uint8_t *at)
{
    return static_cast<uint16_t>(at[0] | at[1] << 8);
}

inline uint32_t load_le32(const uint8_t *at)
{
    return at[0] | static_cast<uint32_t>(at[1]) << 8 | static_cast<uint32_t>(at[2]) << 16 |
           static_cast<uint32_t>(at[3]) << 24;
}

inline void store_le16(uint8_t *at, uint32_t value)
{
    at[0] = static_cast<uint8_t>(value);
    at[1] = static_cast<uint8_t>(value >> 8);
}

inline void store_le32(uint8_t *at, uint32_t value)
{
    store_le16(at, value);
    store_le16(at + 2, value >> 16);
}

inline uint32_t load_be32(const uint8_t *at)
{
    return static_cast<uint32_t>(at[0]) << 24 | static_cast<uint32_t>(at[1]) << 16 |
           static_cast<uint32_t>(at[2]) << 8 | at[3];
}

inline void store_be32(uint8_t *at, uint32_t value)
{
    store_le32(at, __builtin_bswap32(value));
}

}  // namespace ldsdk::model

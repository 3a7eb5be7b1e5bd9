#include "chipmodel/smem.h"

#include "chipmodel/bytes.h"
#include "chipmodel/chip.h"

namespace ldsdk::model {

namespace {

// Offset in the store of `bytes` bytes at the request's address: bits 25..0 count 16-bit units, and
// the target chooses the memory, which is bit 27 of a chip address.
uint32_t place(const RbaRequest &request, uint32_t bytes)
{
    const uint32_t base = request.target == RbaTarget::kSmem0 ? 0x60000000 : 0x68000000;
    return Memory::locate(base | (request.address & 0x3ffffff) << 1, bytes);
}

// Bits 9..8 of the command half-word: 2, 4, 8 or 16 bytes.
uint32_t width_of(const RbaRequest &request)
{
    return 2u << (request.control >> 8 & 3u);
}

// Bits 10..8 of an add: bytes of the counter, 0 for codes that there aren't.
uint32_t add_width(uint32_t code)
{
    constexpr uint8_t kBytes[8] = {2, 4, 8, 16, 8, 0, 0, 0};
    return kBytes[code];
}

// A counter wider than 32 bits stands with its most significant word first; each word is
// little-endian. Only its low 64 bits count, a 128-bit one keeps the rest.
uint64_t counter_load(const uint8_t *at, uint32_t bytes)
{
    if (bytes == 2) {
        return load_le16(at);
    }
    const uint64_t low = load_le32(at + bytes - 4);
    return bytes == 4 ? low : low | static_cast<uint64_t>(load_le32(at + bytes - 8)) << 32;
}

void counter_store(uint8_t *at, uint32_t bytes, uint64_t value)
{
    if (bytes == 2) {
        store_le16(at, static_cast<uint32_t>(value));
        return;
    }
    store_le32(at + bytes - 4, static_cast<uint32_t>(value));
    if (bytes > 4) {
        store_le32(at + bytes - 8, static_cast<uint32_t>(value >> 32));
    }
}

// Reads as a plain command sees it: with the caches in the way, hash tables through theirs.
void read_through(Chip &chip, uint32_t offset, uint8_t *bytes, uint32_t size)
{
    if (__builtin_expect(chip.hash.cache.strict, 0) && hash_table_covers(chip, offset)) {
        chip.hash.cache.plain.read(chip.memory, offset, bytes, size);
        return;
    }
    __builtin_memcpy(bytes, chip.memory.at(offset), size);
}

// A plain command wrote.
void written(Chip &chip, uint32_t offset, uint32_t size)
{
    if (__builtin_expect(chip.hash.cache.strict, 0)) {
        chip.hash.cache.plain.written(chip.memory, offset, size);
    }
}

}  // namespace

uint32_t smem_read(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    const uint32_t width = width_of(request);
    const uint32_t offset = place(request, width);
    if (offset == kNoOffset) {
        response.status = kStatusAddress;
        return kOk;
    }
    read_through(chip, offset, response.data + 16 - width, width);
    return kOk;
}

uint32_t smem_read_clear(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    const uint32_t width = width_of(request);
    smem_read(chip, request, response);
    if (response.status == 0) {
        const uint32_t offset = place(request, width);
        __builtin_memset(chip.memory.touch(offset, width), 0, width);
        written(chip, offset, width);
    }
    return kOk;
}

uint32_t smem_write(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    const uint32_t width = width_of(request);
    const uint32_t offset = place(request, width);
    if (offset == kNoOffset) {
        response.status = kStatusAddress;
        return kOk;
    }
    __builtin_memcpy(chip.memory.touch(offset, width), request.payload + 16 - width, width);
    written(chip, offset, width);
    return kOk;
}

// Frame bytes 20..23 the limit, 26..27 the amount. Bit 13 subtracts. A counter stops at the limit
// on the way up and at 0 on the way down; one that stands above the limit stays there. The response
// is the counter's new value.
uint32_t smem_add(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    const uint32_t bytes = add_width(request.control >> 8 & 7u);
    if (bytes == 0) {
        response.status = kStatusUnknown;
        return kOk;
    }
    const uint32_t offset = place(request, bytes);
    if (offset == kNoOffset) {
        response.status = kStatusAddress;
        return kOk;
    }
    uint8_t *at = chip.memory.touch(offset, bytes);
    const uint64_t old = counter_load(at, bytes);
    const uint64_t amount = load_le16(request.payload + 14);
    uint64_t limit = load_le32(request.payload + 8);
    if (bytes == 2 && limit > 0xffff) {
        limit = 0xffff;
    }
    else if (bytes > 4 && limit == 0xffffffff) {
        limit = ~0ull;  // no limit at all
    }
    uint64_t value = 0;
    if ((request.control & 1u << 13) != 0) {
        value = old < amount ? 0 : old - amount;
    }
    else {
        const uint64_t room = old < limit ? limit - old : 0;
        value = old + (amount < room ? amount : room);
    }
    counter_store(at, bytes, value);
    written(chip, offset, bytes);
    __builtin_memcpy(response.data + 16 - bytes, at, bytes);
    return kOk;
}

// The last byte of the data block: bit 7 the new value, bits 3..0 the bit. The status is the bit's
// old value, the response the new 16-bit word.
uint32_t smem_set_bit(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    const uint32_t offset = place(request, 2);
    if (offset == kNoOffset) {
        response.status = kStatusAddress;
        return kOk;
    }
    const uint8_t what = request.payload[15];
    if ((what & 0x70) != 0) {
        response.status = kStatusMalformed;
        return kOk;
    }
    uint8_t *at = chip.memory.touch(offset, 2);
    const uint32_t bit = 1u << (what & 0xf);
    const uint32_t old = load_le16(at);
    store_le16(at, (what & 0x80) != 0 ? old | bit : old & ~bit);
    written(chip, offset, 2);
    response.status = (old & bit) != 0 ? 1 : 0;
    __builtin_memcpy(response.data + 14, at, 2);
    return kOk;
}

}  // namespace ldsdk::model

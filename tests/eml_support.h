// What tests of exact match tables share: what an item looks like and where it may stand, worked
// out once more, nibble by nibble, and the whole engine on a chip.
#pragma once

#include "tests/fixture.h"

#include "sdk/lookup/eml.h"
#include "sdk/lookup/flee.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <optional>
#include <random>

namespace ldsdk::test::eml {

using Bytes = std::vector<uint8_t>;

// ---- a second opinion ---------------------------------------------------------------------------

struct Shape {
    uint32_t table;
    uint32_t size;  // bytes of an item
    uint32_t base;  // 16-bit units
    uint32_t buckets;
    uint32_t key;  // bytes
    uint32_t ad;
    uint32_t tid;
    bool cpu;
    bool flee;
};

inline constexpr Shape kShapes[] = {
    {0, 16, 0x000000, 512, 6, 10, 0, true, true},   {2, 16, 0x134000, 256, 9, 7, 2, false, false},
    {3, 16, 0x102800, 16, 6, 10, 3, true, true},    {4, 16, 0x102c00, 16, 8, 8, 4, true, true},
    {5, 8, 0x103000, 128, 6, 2, 5, true, true},     {6, 8, 0x102000, 32, 7, 1, 6, true, true},
    {11, 16, 0x113b00, 2, 9, 7, 15, true, true},    {17, 8, 0x138000, 32, 7, 1, 8, true, false},
    {18, 16, 0x130000, 256, 9, 7, 7, false, false},
};

inline const Shape &shape_of(uint32_t table)
{
    return *std::find_if(std::begin(kShapes), std::end(kShapes),
                         [&](const Shape &shape) { return shape.table == table; });
}

// Nibble n of a byte image, the low one of a byte first.
inline uint32_t nibble(const Bytes &bytes, size_t n)
{
    return bytes[n / 2] >> (n % 2 * 4) & 0xfu;
}

inline void set_nibble(Bytes &bytes, size_t n, uint32_t value)
{
    bytes[n / 2] =
        static_cast<uint8_t>((bytes[n / 2] & (0xf0u >> (n % 2 * 4))) | value << (n % 2 * 4));
}

// AD: 2 * ad - 1 nibbles from the front; then the key; the last nibble is the status.
inline Bytes make_item(const Shape &shape, const Bytes &key, const Bytes &ad, uint32_t status)
{
    Bytes item(shape.size);
    for (size_t n = 0; n < 2 * shape.ad - 1; n++) {
        set_nibble(item, n, nibble(ad, n));
    }
    for (size_t n = 0; n < 2 * shape.key; n++) {
        set_nibble(item, 2 * shape.ad - 1 + n, nibble(key, n));
    }
    set_nibble(item, 2 * shape.size - 1, status);
    return item;
}

inline Bytes key_of(const Shape &shape, const Bytes &item)
{
    Bytes key(shape.key);
    for (size_t n = 0; n < 2 * shape.key; n++) {
        set_nibble(key, n, nibble(item, 2 * shape.ad - 1 + n));
    }
    return key;
}

inline Bytes ad_of(const Shape &shape, const Bytes &item)
{
    Bytes ad(shape.ad);
    for (size_t n = 0; n < 2 * shape.ad - 1; n++) {
        set_nibble(ad, n, nibble(item, n));
    }
    return ad;
}

inline uint32_t status_of(const Bytes &item)
{
    return item.back() >> 4;
}

// One bit at a time, bytes from the last to the first.
inline uint32_t slow_crc(uint32_t poly, const Bytes &data)
{
    uint32_t crc = 0xffffffff;
    for (auto byte = data.rbegin(); byte != data.rend(); ++byte) {
        for (int bit = 7; bit >= 0; bit--) {
            const bool feed = (crc >> 31) != (*byte >> bit & 1u);
            crc = crc << 1 ^ (feed ? poly : 0);
        }
    }
    return crc;
}

inline std::pair<uint32_t, uint32_t> buckets_of(const Shape &shape, const Bytes &key)
{
    static std::map<Bytes, std::pair<uint32_t, uint32_t>> known;
    auto at = known.find(key);
    if (at == known.end()) {
        Bytes hash_key(16);
        std::copy(key.begin(), key.end(), hash_key.end() - static_cast<ptrdiff_t>(key.size()));
        at = known.insert({key, {slow_crc(0x04c11db7, hash_key), slow_crc(0x45a5c125, hash_key)}})
                 .first;
    }
    return {at->second.first % shape.buckets, at->second.second % shape.buckets};
}

// The eight items in which a key may stand: the upper half of one bucket, the lower of the other.
inline std::array<uint32_t, 8> places_of(const Shape &shape, const Bytes &key)
{
    const auto [one, two] = buckets_of(shape, key);
    return {8 * one + 4, 8 * one + 5, 8 * one + 6, 8 * one + 7,
            8 * two,     8 * two + 1, 8 * two + 2, 8 * two + 3};
}

inline Bytes random_bytes(std::mt19937 &random, size_t size)
{
    Bytes bytes(size);
    for (uint8_t &byte : bytes) {
        byte = static_cast<uint8_t>(random());
    }
    return bytes;
}

inline Bytes random_ad(std::mt19937 &random, const Shape &shape)
{
    Bytes ad = random_bytes(random, shape.ad);
    ad.back() &= 0x0f;
    return ad;
}

// What a key stands for.
struct Entry {
    Bytes ad;
    uint32_t status;
    bool operator==(const Entry &) const = default;
};
using Reference = std::map<Bytes, Entry>;

// A search memory image of one table, and a search of it as the chip does it.
struct Image {
    const Shape &shape;
    Bytes bytes;

    Bytes item(uint32_t index) const
    {
        const auto first = bytes.begin() + static_cast<ptrdiff_t>(index * shape.size);
        return {first, first + static_cast<ptrdiff_t>(shape.size)};
    }
    Entry entry(uint32_t index) const
    {
        return {ad_of(shape, item(index)), status_of(item(index))};
    }
    void put(size_t at, const Bytes &what)
    {
        std::copy(what.begin(), what.end(), bytes.begin() + static_cast<ptrdiff_t>(at));
    }
    std::vector<uint32_t> find(const Bytes &key) const
    {
        std::vector<uint32_t> hits;
        for (const uint32_t place : places_of(shape, key)) {
            const Bytes at = item(place);
            if (status_of(at) != 0 && key_of(shape, at) == key) {
                hits.push_back(place);
            }
        }
        return hits;
    }
};

// Counters, valid bits and other buckets of a shadow say what the places hold; `homes` gives the
// two buckets of what stands at an item number.
using Homes = std::optional<std::pair<uint32_t, uint32_t>>;

inline void expect_shadow(const NpEmlBucketInfo *shadow, uint32_t buckets,
                          const std::function<Homes(uint32_t)> &homes)
{
    for (uint32_t bucket = 0; bucket < buckets; bucket++) {
        uint16_t used[2] = {};
        for (uint32_t slot = 0; slot < 8; slot++) {
            const bool second = slot < 4;  // the lower four are the hash-2 half
            const Homes here = homes(8 * bucket + slot);
            uint32_t expected = 0;
            if (here.has_value()) {
                ASSERT_EQ(second ? here->second : here->first, bucket) << "in a foreign bucket";
                expected = (second ? here->first : here->second) << 1 | 1;
                used[second ? 1 : 0]++;
            }
            ASSERT_EQ(shadow[bucket].aulItem[(slot + 4) % 8], expected);
        }
        ASSERT_EQ(shadow[bucket].ausValidNum[0], used[0]);
        ASSERT_EQ(shadow[bucket].ausValidNum[1], used[1]);
    }
}

// ---- the engine on a chip -----------------------------------------------------------------------

// What a flee entry keeps of an item: no status, and of an AD of ten bytes not the low twelve bits.
inline Entry as_flee(const Shape &shape, const Entry &entry)
{
    Entry kept = {entry.ad, 0};
    if (shape.ad == 10) {
        kept.ad[0] = 0;
        kept.ad[1] &= 0xf0;
    }
    return kept;
}

class EmlUp : public ChipUp {
  protected:
    static constexpr uint32_t kFleeRows = 32;

    // Power off and on, and up again.
    static void restart()
    {
        model::faults_clear();
        ASSERT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
        model::attach(0);
        ASSERT_EQ(Np_INIT_SdkInit(0), NP_OK);
    }
    static Image image(const Shape &shape)
    {
        return {shape, memory(0x60000000 + 2 * shape.base, 8 * shape.buckets * shape.size)};
    }
    static uint32_t add(const Shape &shape, const Bytes &key, const Entry &entry,
                        uint32_t *location = nullptr, uint32_t *index = nullptr)
    {
        Bytes item = make_item(shape, key, entry.ad, entry.status);
        const Bytes before = item;
        uint32_t where = 9;
        const uint32_t result = Np_Tarn_EML_ItemAdd(0, shape.table, &where, index, item.data());
        EXPECT_EQ(item, before) << "the caller's item changed";
        if (location != nullptr) {
            *location = where;
        }
        return result;
    }
    static uint32_t del(const Shape &shape, const Bytes &key, uint32_t type)
    {
        Bytes item = make_item(shape, key, Bytes(shape.ad), 0);
        return Np_Tarn_EML_ItemDel(0, shape.table, type, item.data());
    }
    // The entry that the chip's microcode finds, in the hash table or behind it. The flee store has
    // its copy, if any, in block 0.
    static std::optional<std::pair<Entry, bool>> lookup(const Shape &shape, const Bytes &key,
                                                        uint32_t block = 2)
    {
        const model::FleeStore flee = {1, block, 8, shape.table & 0xf};
        const model::EmlQuery query = {0, shape.tid, key.data(), shape.key,
                                       shape.flee ? &flee : nullptr};
        model::EmlResult result = {};
        EXPECT_EQ(model::lookup_eml(0, query, &result), model::kOk);
        if (!result.hit) {
            return std::nullopt;
        }
        Entry entry = {{result.ad, result.ad + shape.ad}, result.in_flee ? 0u : result.status};
        return std::pair{entry, result.in_flee};
    }
    static uint32_t &count(const Shape &shape)
    {
        return g_aulEmlValidItem[shape.table];
    }
    static uint32_t flee_used(const Shape &shape)
    {
        uint32_t used = 0;
        for (uint32_t id = 0; id < NP_FLEE_ENTRY_NUM; id++) {
            const NpFleeKeyInfo &info = g_astEmlFleeBucketTcamKeyInfo[id];
            used += info.ulValid == 1 && info.ulItemType == shape.table ? 1 : 0;
        }
        return used;
    }

    // The host's shadow and the store, bucket by bucket.
    static void check_shadow(const Shape &shape)
    {
        const Image at = image(shape);
        expect_shadow(g_pastEmlBucketInfo[shape.table], shape.buckets, [&](uint32_t index) {
            const bool there = shape.cpu && at.entry(index).status != 0;
            return there ? Homes(buckets_of(shape, key_of(shape, at.item(index)))) : Homes();
        });
    }

    // The chip finds exactly the reference's keys, with their data, and so does the host.
    static void check_all(const Shape &shape, const Reference &reference)
    {
        check_shadow(shape);
        const Image at = image(shape);
        uint32_t items = 0;
        for (uint32_t index = 0; index < 8 * shape.buckets; index++) {
            items += status_of(at.item(index)) != 0 ? 1 : 0;
        }
        ASSERT_EQ(items + flee_used(shape), reference.size());
        if (shape.cpu) {
            ASSERT_EQ(count(shape), reference.size());
        }
        uint32_t in_flee = 0;
        for (const auto &[key, entry] : reference) {
            const auto found = lookup(shape, key);
            ASSERT_TRUE(found.has_value());
            ASSERT_EQ(found->first, found->second ? as_flee(shape, entry) : entry);
            in_flee += found->second ? 1 : 0;

            Bytes item = make_item(shape, key, Bytes(shape.ad), 7);
            uint32_t location = 9;
            uint32_t index = 9;
            ASSERT_EQ(Np_Tarn_EML_ItemGet(0, shape.table, &location, &index, item.data()), NP_OK);
            ASSERT_EQ(location, found->second ? 1u : 0u);
            ASSERT_EQ((Entry{ad_of(shape, item), status_of(item)}), found->first);
            ASSERT_EQ(key_of(shape, item), key);
            const std::vector<uint32_t> hits = at.find(key);
            ASSERT_EQ(hits.size(), found->second ? 0u : 1u);
            if (!found->second) {
                ASSERT_EQ(index, hits[0]);
            }
            Bytes place(shape.size, 0);
            ASSERT_EQ(Np_Tarn_EML_ItemGetByIndex(0, shape.table, location, index, place.data()),
                      NP_OK);
            ASSERT_EQ(place, make_item(shape, key, found->first.ad, found->first.status));
        }
        ASSERT_EQ(in_flee, flee_used(shape));
    }

    // The eight places of a key are taken, and where the host places, no item there can give way.
    static bool crowded(const Shape &shape, const Image &at, const Bytes &key)
    {
        const auto places = places_of(shape, key);
        return std::all_of(places.begin(), places.end(),
                           [&](uint32_t place) { return at.entry(place).status != 0; });
    }
    static bool homeless(const Shape &shape, const Image &at, const Bytes &key)
    {
        const auto stays = [&](uint32_t place) {
            // The four places that the item could take instead.
            const auto others = places_of(shape, key_of(shape, at.item(place)));
            const auto first = others.begin() + (place % 8 < 4 ? 0 : 4);
            return std::all_of(first, first + 4,
                               [&](uint32_t other) { return at.entry(other).status != 0; });
        };
        const auto places = places_of(shape, key);
        return crowded(shape, at, key) &&
               (!shape.cpu || std::all_of(places.begin(), places.end(), stays));
    }

    // Keys of one pair of buckets.
    static std::vector<Bytes> keys_for(const Shape &shape, uint32_t one, uint32_t two, size_t num)
    {
        std::mt19937 random(one * 256 + two);
        std::vector<Bytes> keys;
        while (keys.size() < num) {
            Bytes key = random_bytes(random, shape.key);
            if (buckets_of(shape, key) == std::pair{one, two}) {
                keys.push_back(std::move(key));
            }
        }
        return keys;
    }
};

}  // namespace ldsdk::test::eml

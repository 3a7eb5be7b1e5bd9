// The chip model's hash engine, from frames written as bytes: which items it finds, where it builds
// new ones, what it answers, and what the two caches hide.

#include "tests/model_support.h"

#include <algorithm>
#include <map>
#include <random>
#include <vector>

namespace ldsdk::model_test {

namespace {

using Bytes = std::vector<uint8_t>;

constexpr int kSearch = 8;
constexpr int kUpdate = 9;
constexpr int kBuildKey = 10;
constexpr int kBuild = 11;

// The documented hash, one bit at a time: the bytes from the last to the first, the most
// significant bit first, all ones in front.
uint32_t crc(uint32_t polynomial, const std::array<uint8_t, 16> &data)
{
    uint32_t value = 0xffffffff;
    for (size_t byte = data.size(); byte-- > 0;) {
        for (int bit = 7; bit >= 0; bit--) {
            const bool out = (value >> 31 ^ (data[byte] >> bit & 1u)) != 0;
            value = value << 1 ^ (out ? polynomial : 0);
        }
    }
    return value;
}

std::array<uint32_t, 2> hashes(const Bytes &key)
{
    std::array<uint8_t, 16> folded = {};
    for (size_t at = 0; at < key.size(); at++) {
        folded[(16 * 3 - key.size() + at) % 16] ^= key[at];
    }
    return {crc(0x04c11db7, folded), crc(0x45a5c125, folded)};
}

// An item, bit by bit from its lowest: the data, the key, the status nibble.
Bytes item_of(size_t size, const Bytes &key, const Bytes &ad, uint8_t status)
{
    Bytes item(size);
    size_t bit = 0;
    const auto put = [&](uint32_t value, size_t count) {
        for (size_t at = 0; at < count; at++, bit++) {
            item.at(bit / 8) |= static_cast<uint8_t>((value >> at & 1u) << bit % 8);
        }
    };
    for (size_t at = 0; at < size - key.size(); at++) {
        put(ad.at(at), at + 1 < size - key.size() ? 8 : 4);
    }
    for (const uint8_t byte : key) {
        put(byte, 8);
    }
    put(status, 4);
    return item;
}

Bytes random_bytes(std::mt19937 &random, size_t size)
{
    Bytes bytes(size);
    for (uint8_t &byte : bytes) {
        byte = static_cast<uint8_t>(random());
    }
    return bytes;
}

// A hash command. The last 16 bytes of the payload go to frame bytes 12..27, the 16 before them to
// 28..43, the first to 44..59, each group right-aligned.
Frame hash_frame(uint32_t tid, int op, size_t key_bytes, const Bytes &payload, uint32_t smem = 0)
{
    Frame result = {};
    for (size_t back = 0; back < payload.size(); back++) {
        result.at(12 + back / 16 * 16 + 15 - back % 16) = payload[payload.size() - 1 - back];
    }
    result[2] = static_cast<uint8_t>(key_bytes - 1);
    result[3] = static_cast<uint8_t>(smem << 4 | tid);
    result[4] = static_cast<uint8_t>(op << 4);
    result[6] = 3;
    result[8] = static_cast<uint8_t>((payload.size() - 1) / 16);
    return result;
}

// A table as the driver is told, and its first chip address.
struct Table {
    uint32_t tid;
    uint32_t base;
    uint32_t bucket_width;
    uint32_t width;
    size_t key_bytes;
    uint32_t smem;

    size_t item_bytes() const
    {
        return std::array<size_t, 4>{8, 16, 32, 48}.at(width);
    }
    uint32_t stride() const
    {
        return std::array<uint32_t, 4>{4, 8, 16, 32}.at(width);
    }
    // Where an item's bytes begin. The widest items leave the first quarter of their stride free.
    uint32_t address(uint32_t item) const
    {
        const uint32_t first = smem == 0 ? 0x60200000 : 0x68200000;
        return first + 2 * (base + item * stride() + (width == 3 ? 8 : 0));
    }
    uint32_t declare() const
    {
        const QdEmlBaseInfo where = {base, bucket_width};
        const QdEmlWidthInfo how = {width, {0, 0}};
        return Qd_SMEM_EmlTableSet(0, smem, tid, 0, &where, &how);
    }
};

constexpr Table kMac = {2, 0x34000, 8, 1, 9, 0};
constexpr Table kBonding = {6, 0x02000, 5, 0, 7, 0};

class Hash : public ModelTest {
  protected:
    static void place(const Table &table, uint32_t item, const Bytes &bytes)
    {
        for (uint32_t at = 0; at < bytes.size(); at += 4) {
            ASSERT_EQ(0u, model::poke(0, table.address(item) + at, le32(&bytes[at])));
        }
    }
    static Bytes stored(const Table &table, uint32_t item)
    {
        Bytes bytes(table.item_bytes());
        EXPECT_EQ(0u, model::eml_item_get(0, table.smem, table.tid, item, bytes.data()));
        for (uint32_t at = 0; at < bytes.size(); at += 4) {
            EXPECT_EQ(peek(table.address(item) + at), le32(&bytes[at]));
        }
        return bytes;
    }
    static Outcome command(const Table &table, int op, const Bytes &payload)
    {
        const Outcome outcome =
            send(hash_frame(table.tid, op, table.key_bytes, payload, table.smem));
        EXPECT_EQ(0u, outcome.code);
        return outcome;
    }
    static uint32_t item_number(const Table &table, const Outcome &outcome)
    {
        return ((le32(outcome.data.data()) & 0xfffff) - table.base) / table.stride();
    }
    // The eight items where a key may be: four for each hash.
    static std::vector<uint32_t> places(const Table &table, const Bytes &key)
    {
        const uint32_t mask = (1u << table.bucket_width) - 1;
        const auto hash = hashes(key);
        std::vector<uint32_t> items;
        for (uint32_t at = 0; at < 4; at++) {
            items.push_back((hash[0] & mask) * 8 + 4 + at);
            items.push_back((hash[1] & mask) * 8 + at);
        }
        return items;
    }
};

TEST_F(Hash, KnownValues)
{
    std::array<uint8_t, 16> zero = {};
    std::array<uint8_t, 16> count = {};
    for (uint8_t at = 0; at < 16; at++) {
        count[at] = at;
    }
    EXPECT_EQ(0x552d22c8u, model::eml_hash(0, zero.data()));
    EXPECT_EQ(0x810de45eu, model::eml_hash(1, zero.data()));
    EXPECT_EQ(0x841f9bb8u, model::eml_hash(0, count.data()));
    EXPECT_EQ(0x2e2c715eu, model::eml_hash(1, count.data()));
    std::mt19937 random(1);
    for (int round = 0; round < 100; round++) {
        std::generate(count.begin(), count.end(), [&] { return static_cast<uint8_t>(random()); });
        ASSERT_EQ(crc(0x04c11db7, count), model::eml_hash(0, count.data()));
        ASSERT_EQ(crc(0x45a5c125, count), model::eml_hash(1, count.data()));
    }
}

// An item that was written by plain means is found in its eight places and in no other, in every
// width and with keys that fold. The answer tells place, status and data.
TEST_F(Hash, FindsWhatWasWritten)
{
    const Table tables[] = {
        kMac,
        kBonding,
        {3, 0x02800, 4, 1, 6, 0},
        {1, 0x01000, 3, 2, 17, 0},
        {9, 0x01000, 2, 2, 31, 1},
        {15, 0x40000, 3, 3, 33, 1},
        {14, 0x48000, 3, 3, 47, 0},
    };
    std::mt19937 random(2);
    for (const Table &table : tables) {
        SCOPED_TRACE(testing::Message() << "table " << table.tid);
        ASSERT_EQ(0u, table.declare());
        const size_t ad_bytes = table.item_bytes() - table.key_bytes;
        for (int round = 0; round < 4; round++) {
            const Bytes key = random_bytes(random, table.key_bytes);
            Bytes ad = random_bytes(random, ad_bytes);
            ad.back() &= 0x0f;
            const uint8_t status = static_cast<uint8_t>(1 + random() % 15);
            const Bytes item = item_of(table.item_bytes(), key, ad, status);
            std::array<uint8_t, 16> data = {};
            for (size_t back = 0; back < std::min<size_t>(ad_bytes, 11); back++) {
                const size_t at = ad_bytes - 1 - back;
                data[15 - back] =
                    static_cast<uint8_t>(ad[at] << 4 | (at == 0 ? 0 : ad[at - 1] >> 4));
            }
            data[4] = static_cast<uint8_t>(status << 4);
            const auto good = places(table, key);
            for (uint32_t where = 0; where < 8u << table.bucket_width; where++) {
                const bool fits = std::find(good.begin(), good.end(), where) != good.end();
                if (!fits && where % 5 != 0) {
                    continue;
                }
                place(table, where, item);
                const Outcome outcome = command(table, kSearch, key);
                ASSERT_EQ(fits ? 0u : 1u, outcome.status) << "item " << where;
                if (fits) {
                    data[0] = outcome.data[0];
                    data[1] = outcome.data[1];
                    data[2] = outcome.data[2];
                    data[3] = outcome.data[3];
                    ASSERT_EQ(data, outcome.data);
                    ASSERT_EQ(where, item_number(table, outcome));
                }
                place(table, where, Bytes(item.size()));
            }
            ASSERT_EQ(1u, command(table, kSearch, key).status);
        }
    }
}

// A neighbour of the key, by one bit, is not the key; an item with status 0 isn't there.
TEST_F(Hash, ComparesTheWholeKeyAndTheStatus)
{
    const Table table = {3, 0x02800, 0, 1, 6, 0};
    ASSERT_EQ(0u, table.declare());
    const Bytes key = {0x12, 0x34, 0x56, 0x78, 0x9a, 0xbc};
    const Bytes ad = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    place(table, 6, item_of(16, key, ad, 3));
    EXPECT_EQ(0u, command(table, kSearch, key).status);
    for (size_t bit = 0; bit < 48; bit++) {
        Bytes other = key;
        other[bit / 8] ^= static_cast<uint8_t>(1u << bit % 8);
        EXPECT_EQ(1u, command(table, kSearch, other).status) << "bit " << bit;
    }
    place(table, 6, item_of(16, key, ad, 0));
    EXPECT_EQ(1u, command(table, kSearch, key).status);
}

// Frames and answers byte by byte, for the key 01 02 .. 09 in a table of one bucket.
TEST_F(Hash, FramesByteByByte)
{
    const Table table = {2, 0x34000, 0, 1, 9, 0};
    ASSERT_EQ(0u, table.declare());
    // data 0xd5c4b3a291807, 52 bits; key; status 15
    const Frame build =
        frame({{2, 8},     {3, 2},     {4, 0xb0},  {6, 3},     {12, 0x07}, {13, 0x18}, {14, 0x29},
               {15, 0x3a}, {16, 0x4b}, {17, 0x5c}, {18, 0x1d}, {19, 0x20}, {20, 0x30}, {21, 0x40},
               {22, 0x50}, {23, 0x60}, {24, 0x70}, {25, 0x80}, {26, 0x90}, {27, 0xf0}});
    Outcome outcome = send(build);
    EXPECT_EQ(4u, outcome.status);
    EXPECT_EQ(0x3a291807u, peek(0x60268040));
    EXPECT_EQ(0x201d5c4bu, peek(0x60268044));
    EXPECT_EQ(0x60504030u, peek(0x60268048));
    EXPECT_EQ(0xf0908070u, peek(0x6026804c));
    const Frame search = frame({{2, 8},
                                {3, 2},
                                {4, 0x80},
                                {6, 3},
                                {19, 1},
                                {20, 2},
                                {21, 3},
                                {22, 4},
                                {23, 5},
                                {24, 6},
                                {25, 7},
                                {26, 8},
                                {27, 9}});
    outcome = send(search);
    EXPECT_EQ(0u, outcome.status);
    const std::array<uint8_t, 16> data = {0x20, 0x40, 0x03, 0x02, 0xf0, 0,    0,    0,
                                          0,    0x70, 0x80, 0x91, 0xa2, 0xb3, 0xc4, 0xd5};
    EXPECT_EQ(data, outcome.data);
}

TEST_F(Hash, UpdateRewritesAndDeletesInPlace)
{
    ASSERT_EQ(0u, kMac.declare());
    const Bytes key = {9, 8, 7, 6, 5, 4, 3, 2, 1};
    const Bytes before = item_of(16, key, {1, 1, 1, 1, 1, 1, 1}, 5);
    const Bytes after = item_of(16, key, {2, 2, 2, 2, 2, 2, 2}, 15);
    const uint32_t where = places(kMac, key)[3];
    EXPECT_EQ(1u, command(kMac, kUpdate, after).status);
    EXPECT_EQ(Bytes(16), stored(kMac, where));
    place(kMac, where, before);
    Outcome outcome = command(kMac, kUpdate, after);
    EXPECT_EQ(0u, outcome.status);
    EXPECT_EQ(where, item_number(kMac, outcome));
    EXPECT_EQ(after, stored(kMac, where));
    outcome = command(kMac, kUpdate, item_of(16, key, {2, 2, 2, 2, 2, 2, 2}, 0));
    EXPECT_EQ(0u, outcome.status);
    EXPECT_EQ(where, item_number(kMac, outcome));
    EXPECT_EQ(1u, command(kMac, kSearch, key).status);
}

// Builds fill both halves of a key's places, then collide; the item that found no room is kept for
// the host, and nothing in the table changes.
TEST_F(Hash, BuildsUntilTheHalvesAreFull)
{
    const Table table = {2, 0x34000, 0, 1, 9, 0};
    ASSERT_EQ(0u, table.declare());
    std::mt19937 random(3);
    std::map<uint32_t, Bytes> items;
    for (uint32_t built = 0; built < 8; built++) {
        const Bytes item =
            item_of(16, random_bytes(random, 9), random_bytes(random, 7), 1 + built % 15);
        const Outcome outcome = command(table, kBuild, item);
        ASSERT_EQ(4u, outcome.status);
        ASSERT_TRUE(items.emplace(item_number(table, outcome), item).second);
        // both halves fill alike
        const auto upper = std::count_if(items.begin(), items.end(),
                                         [](const auto &entry) { return entry.first >= 4; });
        ASSERT_EQ((built + 2) / 2, upper);
    }
    for (const auto &[number, item] : items) {
        EXPECT_EQ(item, stored(table, number));
        const Outcome again = command(table, kBuild, item);
        EXPECT_EQ(0u, again.status);
        EXPECT_EQ(number, item_number(table, again));
    }
    const Bytes late = item_of(16, random_bytes(random, 9), random_bytes(random, 7), 15);
    EXPECT_EQ(6u, command(table, kBuild, late).status);
    for (uint32_t word = 0; word < 4; word++) {
        EXPECT_EQ(le32(&late[4 * word]), peek(0x60222294 + 4 * word));
    }
    for (const auto &[number, item] : items) {
        EXPECT_EQ(item, stored(table, number));
    }
    // an 8-byte item doesn't fit the record
    const Table narrow = {6, 0x02000, 0, 0, 7, 0};
    ASSERT_EQ(0u, narrow.declare());
    for (uint32_t built = 0; built < 9; built++) {
        const Bytes item = item_of(8, random_bytes(random, 7), {3}, 15);
        EXPECT_EQ(built < 8 ? 4u : 6u, command(narrow, kBuild, item).status);
    }
    EXPECT_EQ(le32(&late[0]), peek(0x60222294));
}

TEST_F(Hash, BuildFromTheKeyAlone)
{
    ASSERT_EQ(0u, kBonding.declare());
    const Bytes key = {1, 2, 3, 4, 5, 6, 7};
    const Outcome built = command(kBonding, kBuildKey, key);
    EXPECT_EQ(4u, built.status);
    EXPECT_EQ(item_of(8, key, {0}, 15), stored(kBonding, item_number(kBonding, built)));
    const Outcome again = command(kBonding, kBuildKey, key);
    EXPECT_EQ(0u, again.status);
    EXPECT_EQ(item_number(kBonding, built), item_number(kBonding, again));
}

TEST_F(Hash, SemaphoreKeepsBuildsOut)
{
    ASSERT_EQ(0u, kMac.declare());
    const Bytes key = {9, 8, 7, 6, 5, 4, 3, 2, 1};
    const Bytes item = item_of(16, key, {1, 1, 1, 1, 1, 1, 1}, 5);
    ASSERT_EQ(0u, model::eml_semaphore_hold(0, 0, 2, 2));
    EXPECT_EQ(4u, command(kMac, kBuild, item).status);  // no mutual exclusion asked for
    ASSERT_EQ(0u, Qd_SMEM_EmlExcludeEnableSet(0, 0, 2, 1));
    EXPECT_EQ(5u, command(kMac, kBuild, item).status);
    EXPECT_EQ(0u, command(kMac, kSearch, key).status);
    EXPECT_EQ(0u, command(kMac, kBuild, item).status);
    EXPECT_EQ(model::kErrEmpty, model::eml_semaphore_hold(0, 0, 3, 1));
}

TEST_F(Hash, BrokenFramesAndTables)
{
    ASSERT_EQ(0u, kMac.declare());
    const Bytes key(9, 0x11);
    const Bytes item = item_of(16, key, Bytes(7), 15);
    const auto with = [](Frame request, size_t at, uint8_t value) {
        request.at(at) = value;
        return request;
    };
    const Frame search = hash_frame(2, kSearch, 9, key);
    const Frame build = hash_frame(2, kBuild, 9, item);
    const struct {
        const char *name;
        Frame request;
        uint32_t code;
        uint32_t status;
    } rows[] = {
        {"the plain search", search, 0, 1},
        {"no such table", hash_frame(5, kSearch, 9, key), 0, 0x13},
        {"no such table, other memory", hash_frame(2, kSearch, 9, key, 1), 0, 0x13},
        {"key as wide as the item", hash_frame(2, kSearch, 16, Bytes(16)), 0, 0x11},
        {"payload longer than the key", with(search, 18, 1), 0, 0x11},
        {"payload in the next group", with(search, 43, 1), 0, 0x11},
        {"wide payload class", with(search, 8, 1), 0, 0x11},
        {"narrow item", hash_frame(2, kBuild, 9, Bytes(17)), 0, 0x11},
        {"update flag", with(build, 1, 0x80), model::kErrNotModelled, 0},
        {"build field", with(build, 0, 1), model::kErrNotModelled, 0},
        {"update code", with(build, 5, 0x10), model::kErrNotModelled, 0},
        {"reserved address bit", with(search, 2, 0x48), 0, 0x11},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        const Outcome outcome = send(row.request);
        EXPECT_EQ(row.code, outcome.code);
        EXPECT_EQ(row.status, outcome.status);
    }
    for (uint32_t at = 0; at < 8 * 256; at++) {
        ASSERT_EQ(Bytes(16), stored(kMac, at));
    }
    const Table bad[] = {
        {16, 0, 1, 1, 9, 0}, {2, 0x100000, 1, 1, 9, 0}, {2, 0, 1, 4, 9, 0},
        {2, 0, 21, 1, 9, 0}, {2, 0, 1, 1, 9, 2},        {2, 0x7fff8, 1, 1, 9, 0},
    };
    for (const Table &table : bad) {
        const QdEmlBaseInfo where = {table.base, table.bucket_width};
        const QdEmlWidthInfo how = {table.width, {0, 0}};
        EXPECT_NE(0u, Qd_SMEM_EmlTableSet(0, table.smem, table.tid, 0, &where, &how));
    }
}

// Random builds, rewrites and deletes against a plain map. A key that was built is found with its
// data until it is deleted, whatever the status of its neighbours.
TEST_F(Hash, RandomCommandsAgainstAMap)
{
    const Table table = {6, 0x02000, 3, 0, 7, 0};
    ASSERT_EQ(0u, table.declare());
    std::mt19937 random(4);
    std::vector<Bytes> keys;
    for (int at = 0; at < 80; at++) {
        keys.push_back(random_bytes(random, 7));
    }
    std::map<Bytes, uint8_t> map;
    uint32_t collisions = 0;
    for (int step = 0; step < 4000; step++) {
        const Bytes &key = keys[random() % keys.size()];
        const uint8_t ad = static_cast<uint8_t>(random() % 16);
        const bool known = map.count(key) != 0;
        if (random() % 3 != 0) {
            const uint32_t status = command(table, kBuild, item_of(8, key, {ad}, 15)).status;
            if (known) {
                ASSERT_EQ(0u, status);
            }
            else if (status == 6) {
                collisions++;
                const auto where = places(table, key);
                for (const uint32_t item : where) {
                    ASSERT_NE(0, stored(table, item)[7] >> 4);
                }
                continue;
            }
            else {
                ASSERT_EQ(4u, status);
            }
            map[key] = ad;
        }
        else {
            const uint32_t status = command(table, kUpdate, item_of(8, key, {ad}, 0)).status;
            ASSERT_EQ(known ? 0u : 1u, status);
            map.erase(key);
        }
        if (step % 40 == 0) {
            for (const Bytes &any : keys) {
                model::EmlResult result = {};
                ASSERT_EQ(0u, model::lookup_eml(0, {0, 6, any.data(), 7, nullptr}, &result));
                ASSERT_EQ(map.count(any) != 0, result.hit);
                if (result.hit) {
                    ASSERT_EQ(map[any], result.ad[0]);
                }
            }
        }
    }
    EXPECT_GT(collisions, 0u);
}

// ---- the caches ---------------------------------------------------------------------------------

constexpr Table kRefresh = {15, 0x13b00, 1, 1, 9, 0};

// The documented sixteen build commands and sixteen writes.
void refresh_engine(const Table &table)
{
    constexpr uint8_t k12[] = {0x51, 0x71, 0xd1, 0xf1, 0x01, 0x21, 0x81, 0xa1,
                               0x11, 0x31, 0x91, 0xb1, 0x41, 0x61, 0xc1, 0xe1};
    for (uint32_t at = 0; at < 16; at++) {
        Bytes item(16);
        item[12] = k12[at];
        item[13] = at % 8 < 4 ? 0 : 1;
        item[15] = 0xf0;
        const uint32_t status = send(hash_frame(table.tid, kBuild, 9, item)).status;
        ASSERT_TRUE(status == 0 || status == 4);
    }
}

void refresh_plain(const Table &table)
{
    for (uint32_t at = 1; at <= 16; at++) {
        ASSERT_EQ(0u, send(plain(0x100000 + table.base + 8 * at, 0, 3, 1,
                                 {{24, static_cast<int>(at + 1)}}))
                          .status);
    }
}

// The constants of the refresh find a place each, all of the table's.
TEST_F(Hash, RefreshFillsItsTable)
{
    ASSERT_EQ(0u, kRefresh.declare());
    refresh_engine(kRefresh);
    for (uint32_t item = 0; item < 16; item++) {
        EXPECT_EQ(0xf0, stored(kRefresh, item)[15]);
    }
}

TEST_F(Hash, StaleUntilRefreshedWhenStrict)
{
    const Bytes key = {9, 8, 7, 6, 5, 4, 3, 2, 1};
    const Bytes item = item_of(16, key, {1, 1, 1, 1, 1, 1, 1}, 5);
    const Bytes next = item_of(16, key, {2, 2, 2, 2, 2, 2, 2}, 5);
    for (const bool strict : {false, true}) {
        SCOPED_TRACE(strict);
        ASSERT_EQ(0u, model::attach(0));
        ASSERT_EQ(0u, kMac.declare());
        ASSERT_EQ(0u, kRefresh.declare());
        ASSERT_EQ(0u, model::eml_cache_strict_set(0, strict));
        const uint32_t where = places(kMac, key)[0];
        const uint32_t units = 0x100000 + kMac.base + 8 * where;
        const auto plain_item = [&] {
            const Outcome outcome = send(plain(units, 0, 1, 3));
            return Bytes(outcome.data.begin(), outcome.data.end());
        };
        refresh_engine(kRefresh);
        // what the engine has seen empty stays so until its refresh
        EXPECT_EQ(1u, command(kMac, kSearch, key).status);
        Frame write = plain(units, 0, 3, 3);
        std::copy(item.begin(), item.end(), write.begin() + 12);
        ASSERT_EQ(0u, send(write).status);
        EXPECT_EQ(strict ? 1u : 0u, command(kMac, kSearch, key).status);
        refresh_plain(kRefresh);
        EXPECT_EQ(strict ? 1u : 0u, command(kMac, kSearch, key).status);
        refresh_engine(kRefresh);
        EXPECT_EQ(0u, command(kMac, kSearch, key).status);
        // what a plain read has seen stays so until the other refresh
        EXPECT_EQ(item, plain_item());
        ASSERT_EQ(0u, command(kMac, kUpdate, next).status);
        EXPECT_EQ(0x20, command(kMac, kSearch, key).data[15]);  // the engine sees its own write
        EXPECT_EQ(strict ? item : next, plain_item());
        refresh_engine(kRefresh);
        EXPECT_EQ(strict ? item : next, plain_item());
        refresh_plain(kRefresh);
        EXPECT_EQ(next, plain_item());
        EXPECT_EQ(next, stored(kMac, where));
    }
}

// ---- as the microcode looks ---------------------------------------------------------------------

// Sends one command to the 80-bit entry at TCAM 0, row 7 of block 2 of CAM identifier 8.
void flee_command(int access, int op, int width_code, const Bytes &payload)
{
    Frame request = frame(
        {{0, 7}, {2, 0x80}, {3, 0x28}, {4, op << 4 | width_code}, {5, 2 << 5 | 8}, {6, access}});
    std::copy(payload.begin(), payload.end(),
              request.begin() + 28 - static_cast<ptrdiff_t>(payload.size()));
    const Outcome outcome = send(request);
    ASSERT_EQ(0u, outcome.code);
    ASSERT_EQ(0u, outcome.status);
}

// The hash table first, the flee store when it misses, only with the owner's number; the data comes
// back in item form, as many bits as the entry has.
TEST_F(Hash, LookupGoesOnToTheFleeStore)
{
    const Table table = {3, 0x02800, 4, 1, 6, 0};  // ten bytes of data, of which eight are kept
    ASSERT_EQ(0u, table.declare());
    ASSERT_EQ(0u, Qd_LCAM_CamIdModeSet(0, 1));
    const Bytes key = {0x12, 0x34, 0x56, 0x78, 0x9a, 0xbc};
    const model::FleeStore store = {1, 2, 8, 3};
    const model::FleeStore other = {1, 2, 8, 4};
    const auto look = [&](const model::FleeStore *flee) {
        model::EmlResult result = {};
        EXPECT_EQ(0u, model::lookup_eml(0, {0, 3, key.data(), 6, flee}, &result));
        return result;
    };
    EXPECT_FALSE(look(&store).hit);
    // key 12 34 56 78 9a bc 00 00 00 and owner 3 times 16, all of it compared
    flee_command(3, 4, 0, {0x0f, 0x1e, 0x2d, 0x3c, 0x4b, 0x5a, 0x69, 0x78});
    flee_command(3, 3, 1, {0x20, 0x41, 0x63, 0x85, 0xa7, 0xc9, 0x0b, 0, 0, 0x30});
    flee_command(3, 2, 1, {0xd0, 0xbe, 0x9c, 0x7a, 0x58, 0x36, 0xf4, 0xff, 0xff, 0xcf});
    model::EmlResult result = look(&store);
    EXPECT_TRUE(result.hit);
    EXPECT_TRUE(result.in_flee);
    EXPECT_EQ(7u, result.place.row);
    EXPECT_EQ(10u, result.ad_bytes);
    const Bytes data = {0, 0xf0, 0xe0, 0xd1, 0xc2, 0xb3, 0xa4, 0x95, 0x86, 0x07};
    EXPECT_EQ(data, Bytes(result.ad, result.ad + 10));
    EXPECT_FALSE(look(&other).hit);
    EXPECT_FALSE(look(nullptr).hit);
    // the hash table wins
    const uint32_t where = places(table, key)[1];
    const Bytes ad = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    place(table, where, item_of(16, key, ad, 3));
    result = look(&store);
    EXPECT_TRUE(result.hit);
    EXPECT_FALSE(result.in_flee);
    EXPECT_EQ(where, result.item);
    EXPECT_EQ(3, result.status);
    EXPECT_EQ(ad, Bytes(result.ad, result.ad + 10));

    uint32_t buckets[2] = {};
    ASSERT_EQ(0u, model::eml_buckets(0, 0, 3, key.data(), 6, buckets));
    EXPECT_EQ(places(table, key)[0] / 8, buckets[0]);
    EXPECT_EQ(places(table, key)[1] / 8, buckets[1]);
    EXPECT_EQ(model::kErrParam, model::lookup_eml(0, {0, 3, key.data(), 16, nullptr}, &result));
    EXPECT_EQ(model::kErrEmpty, model::lookup_eml(0, {0, 4, key.data(), 6, nullptr}, &result));
    model::EmlTable declared = {};
    ASSERT_EQ(0u, model::eml_table_get(0, 0, 3, &declared));
    EXPECT_EQ(16u, declared.bucket_num);
    EXPECT_EQ(16u, declared.item_bytes);
    EXPECT_EQ(8u, declared.item_stride);
}

}  // namespace

}  // namespace ldsdk::model_test

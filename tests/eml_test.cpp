// Exact match tables: hashes and packing, the frames of each operation, what is refused, bring-up.
#include "tests/eml_support.h"

#include "sdk/access/stack.h"
#include "sdk/lookup/lcam.h"

#include <cstring>
#include <set>

namespace ldsdk::test::eml {

namespace {

// ---- hashes and packing -------------------------------------------------------------------------

TEST(EmlHash, KnownValuesAndTheBitwiseDefinition)
{
    Bytes count(16);
    for (size_t i = 0; i < count.size(); i++) {
        count[i] = static_cast<uint8_t>(i);
    }
    const Bytes zero(16);
    EXPECT_EQ(Np_tarn_HASH_Hash1Crc32Calc(zero.data(), 16), 0x552d22c8u);
    EXPECT_EQ(Np_tarn_HASH_Hash2Crc32Calc(zero.data(), 16), 0x810de45eu);
    EXPECT_EQ(Np_tarn_HASH_Hash1Crc32Calc(count.data(), 16), 0x841f9bb8u);
    EXPECT_EQ(Np_tarn_HASH_Hash2Crc32Calc(count.data(), 16), 0x2e2c715eu);
    EXPECT_EQ(Np_tarn_HASH_Hash1Crc32Calc(nullptr, 0), 0xffffffffu);
    std::mt19937 random(1);
    for (uint32_t size = 1; size <= 64; size++) {
        const Bytes data = random_bytes(random, size);
        EXPECT_EQ(Np_tarn_HASH_Hash1Crc32Calc(data.data(), size), slow_crc(0x04c11db7, data));
        EXPECT_EQ(Np_tarn_HASH_Hash2Crc32Calc(data.data(), size), slow_crc(0x45a5c125, data));
    }
}

class Eml : public Module {
  protected:
    Eml()
    {
        EXPECT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
        EXPECT_EQ(Np_GLB_ChipIDIsValid(0), NP_OK);
    }
};

// Base, width, buckets and engine number are declared to the driver: see the bring-up.
TEST_F(Eml, DescriptorsAreTheFamilys)
{
    std::set<uint32_t> present;
    for (const Shape &shape : kShapes) {
        SCOPED_TRACE(shape.table);
        present.insert(shape.table);
        const NpEmlConfig &config = g_stNpEmlConfig[0][shape.table];
        EXPECT_EQ(config.ulItemNum, 8 * shape.buckets);
        EXPECT_EQ(config.ulKeyLen, shape.key);
        EXPECT_EQ(config.ulAdLen, shape.ad);
        EXPECT_EQ(config.ulMoveEnable, shape.cpu ? 1u : 0u);
        EXPECT_EQ(config.ulFleeEnable, shape.flee ? 1u : 0u);
        EXPECT_EQ(config.ulSmemID | config.ulIndirect | config.ulIndirectBase |
                      config.ulIndirectPara1 | config.ulIndirectPara2,
                  0u);
    }
    for (uint32_t table = 0; table < NP_EML_TABLE_NUM; table++) {
        if (!present.contains(table)) {
            NpEmlConfig empty = {};
            empty.ulTblWidth = table == 14 || table == 15 ? 0 : 1;
            empty.ulTID = 16;
            empty.ulSmemID = table == 16 ? 1 : 0;
            EXPECT_EQ(std::memcmp(&g_stNpEmlConfig[0][table], &empty, sizeof(empty)), 0) << table;
        }
    }
    for (uint32_t n = 0; n < 32; n++) {
        EXPECT_EQ(g_aulBucketMask[n], (1u << n) - 1);
    }
    EXPECT_EQ(g_aulBucketMask[32], 0xffffffffu);
}

// Key length 6, AD 10: byte 9 holds the AD's top nibble below the key's first one.
TEST_F(Eml, AnItemByHand)
{
    const Bytes key = {0x21, 0x43, 0x65, 0x87, 0xa9, 0xcb};
    const Bytes ad = {0, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x09};
    const Bytes item = {0,    0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77,
                        0x88, 0x19, 0x32, 0x54, 0x76, 0x98, 0xba, 0xfc};
    EXPECT_EQ(make_item(shape_of(3), key, ad, 15), item);
    uint8_t status = 0;
    Bytes got_key(6);
    Bytes got_ad(10);
    Np_Tarn_EML_UserDataSeparate(0, 3, item.data(), &status, got_key.data(), got_ad.data());
    EXPECT_EQ(status, 15);
    EXPECT_EQ(got_key, key);
    EXPECT_EQ(got_ad, ad);
    Np_Tarn_EML_UserDataSeparate(0, 3, item.data(), nullptr, nullptr, nullptr);
}

// The flee form of an AD: shifted left by four bits, in the top bytes of eight; of ten bytes the
// low twelve bits have no room and stay as the caller's buffer has them.
TEST_F(Eml, ItemsComeApartAndTogether)
{
    std::mt19937 random(2);
    for (const Shape &shape : kShapes) {
        SCOPED_TRACE(shape.table);
        for (int round = 0; round < 200; round++) {
            const Bytes item = random_bytes(random, shape.size);
            uint8_t status = 0;
            Bytes key(shape.key);
            Bytes ad(shape.ad);
            Np_Tarn_EML_UserDataSeparate(0, shape.table, item.data(), &status, key.data(),
                                         ad.data());
            ASSERT_EQ(status, status_of(item));
            ASSERT_EQ(key, key_of(shape, item));
            ASSERT_EQ(ad, ad_of(shape, item));

            Bytes field(8);
            const size_t lost = shape.ad > 8 ? 2 * (shape.ad - 8) : 0;  // nibbles of the shifted AD
            for (size_t n = lost == 0 ? 1 : lost; n < 2 * shape.ad; n++) {
                const size_t to = lost == 0 ? 16 - 2 * shape.ad + n : n - lost;
                set_nibble(field, to, nibble(ad, n - 1));
            }
            const Bytes before = random_bytes(random, shape.size);
            Bytes built = before;
            Np_Tarn_EML_UserDataCombine(0, shape.table, built.data(), &status, key.data(),
                                        field.data());
            Bytes expected = item;
            for (size_t n = 0; lost != 0 && n + 1 < lost; n++) {
                set_nibble(expected, n, nibble(before, n));
            }
            ASSERT_EQ(built, expected);
            built = before;
            Np_Tarn_EML_UserDataCombine(0, shape.table, built.data(), nullptr, nullptr, nullptr);
            ASSERT_EQ(built, before);
        }
    }
}

// Wider items than the family has: keys folded into the hash key, accesses of 128 bits.
TEST_F(Eml, WideItems)
{
    std::mt19937 random(3);
    std::array<NpEmlConfig, NP_EML_TABLE_NUM> config = {};
    const NpEmlConfig *family = std::exchange(g_stNpEmlConfig[0], config.data());
    for (const auto &[width, key, ad] :
         {std::array{1u, 15u, 1u}, {2u, 17u, 15u}, {2u, 31u, 1u}, {3u, 33u, 15u}, {3u, 47u, 1u}}) {
        SCOPED_TRACE(key);
        config[0].ulTblWidth = width;
        config[0].ulBaseAddr = 0x102000;
        config[0].ulItemNum = 16;
        config[0].ulKeyLen = key;
        config[0].ulAdLen = ad;
        const Shape shape = {0, key + ad, 0x102000, 2, key, ad, 0, true, false};
        const Bytes item = random_bytes(random, shape.size);
        Bytes wide(48);
        const Bytes plain = key_of(shape, item);
        std::copy(plain.begin(), plain.end(), wide.end() - key);
        Bytes folded(16);
        for (size_t i = 0; i < 16; i++) {
            folded[i] = wide[i] ^ wide[i + 16] ^ wide[i + 32];
        }
        Bytes hash_key(16);
        Np_Tarn_EML_HashKeyBuild(0, 0, item.data(), hash_key.data());
        EXPECT_EQ(hash_key, folded);

        // Item 5 = bucket 0, hash-1 half, slot 1; the widest kind stands at the end of its stride.
        const uint32_t stride = 8u << width;
        ASSERT_EQ(Np_Tarn_EML_TableWriteByCpu(0, 0, 0, 1, NP_EML_HALF_HASH1, item.data()), NP_OK);
        EXPECT_EQ(memory(0x60204000 + 5 * stride + (width == 3 ? 16 : 0), shape.size), item);
        std::array<uint32_t, 12> read = {};
        ASSERT_EQ(Np_Tarn_EML_SmemRead(0, 0, 5, read.data()), NP_OK);
        EXPECT_EQ(std::memcmp(read.data(), item.data(), shape.size), 0);
        ASSERT_EQ(Np_Tarn_EML_TableReadByCpu(0, 0, 0, 1, NP_EML_HALF_HASH1, read.data()), NP_OK);
        EXPECT_EQ(std::memcmp(read.data(), item.data(), shape.size), 0);
    }
    g_stNpEmlConfig[0] = family;
    trace_errors(NP_M_EML);
    uint32_t word = 0;
    EXPECT_EQ(Np_Tarn_EML_SmemRawDataRead(0, 3, 4, 0, &word), NP_ERR_PARAM);
    EXPECT_THAT(out.take(), testing::HasSubstr("EML TYPE ERROR ulEmlType=0x00000004 "));
}

TEST_F(Eml, PairsAreSearchedFromTheFirst)
{
    constexpr NpMapPair map[] = {{1, 10}, {2, 20}, {1, 30}, {4, 20}};
    uint32_t value = 0;
    EXPECT_EQ(Np_Tarn_Map_GetNpValue(map, 4, 1, &value), NP_OK);
    EXPECT_EQ(value, 10u);
    EXPECT_EQ(Np_Tarn_Map_GetExternalValue(map, 4, 20, &value), NP_OK);
    EXPECT_EQ(value, 2u);
    EXPECT_EQ(Np_Tarn_Map_GetNpValue(map, 4, 10, &value), 0x9a000018u);
    EXPECT_EQ(Np_Tarn_Map_GetExternalValue(map, 4, 1, &value), 0x9a000019u);
    EXPECT_EQ(Np_Tarn_Map_GetNpValue(map, 0, 1, &value), 0x9a000018u);
    EXPECT_EQ(Np_Tarn_Map_GetExternalValue(map, 0, 20, &value), 0x9a000019u);
    EXPECT_EQ(value, 2u);
}

// ---- frames -------------------------------------------------------------------------------------

constexpr uint8_t kRefresh[16][2] = {
    {0x51, 0}, {0x71, 0}, {0xd1, 0}, {0xf1, 0}, {0x01, 1}, {0x21, 1}, {0x81, 1}, {0xa1, 1},
    {0x11, 0}, {0x31, 0}, {0x91, 0}, {0xb1, 0}, {0x41, 1}, {0x61, 1}, {0xc1, 1}, {0xe1, 1}};

void expect_engine_refresh(FrameTap &tap)
{
    for (const auto &bytes : kRefresh) {
        EXPECT_EQ(tap.take(), frame({{0, {0x00, 0x00, 0x08, 0x0f, 0xb0, 0x00, 3}},
                                     {24, {bytes[0], bytes[1], 0x00, 0xf0}}}));
    }
}

void expect_memory_refresh(FrameTap &tap)
{
    for (uint32_t n = 0; n < 16; n++) {
        const uint32_t address = 0x113b08 + 8 * n;
        EXPECT_EQ(tap.take(),
                  frame({{0,
                          {static_cast<uint8_t>(address), static_cast<uint8_t>(address >> 8),
                           static_cast<uint8_t>(address >> 16), 0, 0x00, 0x01, 3}},
                         {24, {static_cast<uint8_t>(n + 2), 0, 0, 0}}}));
    }
}

TEST_F(EmlUp, FramesOfAnItemsLife)
{
    const Shape &shape = shape_of(3);
    const Bytes key = {0x21, 0x43, 0x65, 0x87, 0xa9, 0xcb};
    const Entry entry = {{0, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x09}, 15};
    const Bytes item = make_item(shape, key, entry.ad, 15);
    const auto [one, two] = buckets_of(shape, key);
    const uint32_t index = 8 * one + 7;
    const auto plain = [](uint32_t address, uint8_t length, uint8_t access) {
        return std::pair<size_t, Bytes>{
            0,
            {static_cast<uint8_t>(address), static_cast<uint8_t>(address >> 8),
             static_cast<uint8_t>(address >> 16), 0, 0x00, length, access}};
    };
    FrameTap tap;
    // A new item: search, one write, the engine's cache.
    ASSERT_EQ(add(shape, key, entry), NP_OK);
    const Bytes search = frame({{0, {0, 0, 0x05, 0x03, 0x80, 0x00, 3}}, {22, key}});
    EXPECT_EQ(tap.take(), search);
    EXPECT_EQ(tap.take(), frame({plain(0x102800 + 8 * index, 3, 3), {12, item}}));
    expect_engine_refresh(tap);
    EXPECT_EQ(tap.take_count(), 0u);
    // A rewrite: search, update, the memory's cache.
    ASSERT_EQ(add(shape, key, entry), NP_OK);
    EXPECT_EQ(tap.take(), search);
    EXPECT_EQ(tap.take(), frame({{0, {0, 0, 0x05, 0x03, 0x90, 0x00, 3}}, {12, item}}));
    expect_memory_refresh(tap);
    EXPECT_EQ(tap.take_count(), 0u);
    // A delete by key: the same with the status at 0.
    ASSERT_EQ(del(shape, key, 0), NP_OK);
    Bytes empty = item;
    empty.back() &= 0x0f;
    EXPECT_EQ(tap.take(), search);
    EXPECT_EQ(tap.take(), frame({{0, {0, 0, 0x05, 0x03, 0x90, 0x00, 3}}, {12, empty}}));
    expect_memory_refresh(tap);
    EXPECT_EQ(tap.take_count(), 0u);
    // A delete by place: the top word, the engine's cache; of an empty place nothing.
    ASSERT_EQ(add(shape, key, entry), NP_OK);
    tap.take_count();
    ASSERT_EQ(Np_Tarn_EML_ItemDelByIndex(0, 3, 0, index), NP_OK);
    EXPECT_EQ(tap.take(), frame({plain(0x102800 - 2 + 8 * (1 + index), 1, 3)}));
    expect_engine_refresh(tap);
    ASSERT_EQ(Np_Tarn_EML_ItemDelByIndex(0, 3, 0, index), NP_OK);
    EXPECT_EQ(tap.take_count(), 0u);
    EXPECT_EQ(count(shape), 0u);
    // Where the engine places: one build, no refresh.
    const Shape &mac = shape_of(2);
    std::mt19937 random(4);
    const Bytes mac_key = random_bytes(random, 9);
    const Entry mac_entry = {random_ad(random, mac), 15};
    tap.take_count();
    ASSERT_EQ(add(mac, mac_key, mac_entry), NP_OK);
    EXPECT_EQ(tap.take(), frame({{0, {0, 0, 0x08, 0x02, 0xb0, 0x00, 3}},
                                 {12, make_item(mac, mac_key, mac_entry.ad, 15)}}));
    EXPECT_EQ(tap.take_count(), 0u);
}

TEST_F(EmlUp, FleeEntriesByTheByte)
{
    const Shape &shape = shape_of(6);
    const std::vector<Bytes> keys = keys_for(shape, 3, 9, 11);
    for (size_t i = 0; i < keys.size(); i++) {
        uint32_t location = 9;
        ASSERT_EQ(add(shape, keys[i], {{static_cast<uint8_t>(i)}, 15}, &location), NP_OK);
        ASSERT_EQ(location, i < 8 ? 0u : 1u);
    }
    EXPECT_EQ(count(shape), 11u);
    Bytes key(10);
    Bytes mask(10);
    Bytes ad(8);
    ASSERT_EQ(Np_Tarn_LCAM_TcamRead(0, 4, 1, key.data(), mask.data(), ad.data()), NP_OK);
    Bytes expected = keys[9];
    expected.insert(expected.end(), {0, 0, 6});
    EXPECT_EQ(key, expected);
    EXPECT_EQ(mask, Bytes({0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0x0f}));
    EXPECT_EQ(ad, Bytes({0, 0, 0, 0, 0, 0, 0, 0x90}));
    // A rewrite stays where it is; the number that a delete gives back is the next one taken.
    uint32_t location = 9;
    ASSERT_EQ(add(shape, keys[9], {{0x05}, 15}, &location), NP_OK);
    EXPECT_EQ(location, 1u);
    EXPECT_EQ(count(shape), 11u);
    ASSERT_EQ(del(shape, keys[9], 0), NP_OK);
    EXPECT_EQ(count(shape), 10u);
    Bytes item = make_item(shape, keys[10], {0}, 0);
    uint32_t index = 9;
    ASSERT_EQ(Np_Tarn_EML_ItemGet(0, 6, nullptr, &index, item.data()), NP_OK);
    EXPECT_EQ(index, 2u);
    EXPECT_EQ(item, make_item(shape, keys[10], {0x0a}, 0));
    ASSERT_EQ(add(shape, keys[9], {{0x01}, 15}), NP_OK);
    item = make_item(shape, keys[9], {0}, 0);
    ASSERT_EQ(Np_Tarn_EML_ItemGet(0, 6, nullptr, &index, item.data()), NP_OK);
    EXPECT_EQ(index, 1u);
    // By place: another table's number is refused, a second delete too; table 0 owns what is free.
    EXPECT_EQ(Np_Tarn_EML_ItemDelByIndex(0, 5, 1, 1), NP_ERR_PARAM);
    ASSERT_EQ(Np_Tarn_EML_ItemDelByIndex(0, 6, 1, 1), NP_OK);
    EXPECT_EQ(count(shape), 10u);
    EXPECT_EQ(Np_Tarn_EML_ItemDelByIndex(0, 6, 1, 1), NP_ERR_PARAM);
    EXPECT_EQ(Np_Tarn_EML_ItemDelByIndex(0, 0, 1, 1), NP_OK);
    EXPECT_EQ(count(shape_of(0)), 0u);
    EXPECT_FALSE(lookup(shape, keys[9]).has_value());
    EXPECT_TRUE(lookup(shape, keys[8]).has_value());
}

// ---- refusals and failures ----------------------------------------------------------------------

#define CALL(expression) [&] { return expression; }

TEST_F(EmlUp, RefusalsInTheirOrder)
{
    uint8_t item[16] = {};
    uint32_t location = 0;
    uint32_t value = 0;
    const Shape &shape = shape_of(17);
    for (const Bytes &key : keys_for(shape, 1, 2, 8)) {
        ASSERT_EQ(add(shape, key, {{1}, 15}), NP_OK);
    }
    const Bytes homeless = make_item(shape, keys_for(shape, 1, 2, 9)[8], {1}, 15);
    std::memcpy(item, homeless.data(), homeless.size());
    struct Case {
        std::function<uint32_t()> call;
        uint32_t result;
        const char *text;
    };
    const Case cases[] = {
        {CALL(Np_Tarn_EML_ItemGet(0, 19, &location, nullptr, nullptr)), 0x9a000005,
         "param error! (ulTableID)=0x00000013\r\n"},
        {CALL(Np_Tarn_EML_ItemGet(0, 3, &location, nullptr, nullptr)), 0x9a000004,
         "Para null ptr\r\n"},
        {CALL(Np_Tarn_EML_ItemGet(0, 17, &location, nullptr, item)), 0x9a000015,
         "[ERROR] (have no flee bucket) hash item is not exist!"},
        {CALL(Np_Tarn_EML_ItemGet(0, 3, &location, nullptr, item)), 0x9a000015,
         "[ERROR] flee bucket item is not exist"},
        {CALL(Np_Tarn_EML_Search(0, 3, nullptr, item)), 0x9a001601,
         "[ERROR] eml search failed! ulStatus=0x00000001\r\n"},
        {CALL(Np_Tarn_EML_ItemGet(0, 8, &location, nullptr, item)), 0x9a000005,
         "param error! (ulTableID)=0x00000008\r\n"},
        {CALL(Np_Tarn_EML_ItemGetByIndex(0, 19, 0, 9999, nullptr)), 0x9a000005,
         "param error! (ulTableID)=0x00000013\r\n"},
        {CALL(Np_Tarn_EML_ItemGetByIndex(0, 3, 0, 9999, nullptr)), 0x9a000004, "Para null ptr\r\n"},
        {CALL(Np_Tarn_EML_ItemGetByIndex(0, 3, 0, 128, item)), 0x9a000005,
         "[ERROR] param error! ulOffset=0x00000080\r\n"},
        {CALL(Np_Tarn_EML_ItemGetByIndex(0, 3, 1, 96, item)), 0x9a000005,
         "[ERROR] param error! ulOffset=0x00000060\r\n"},
        {CALL(Np_Tarn_EML_ItemGetByIndex(0, 3, 1, 95, item)), 0x9a000005,
         "[ERROR] error parameter! ulLocationType=0x00000001 ulOffset=0x0000005f\r\n"},
        {CALL(Np_Tarn_EML_ItemGetByIndex(0, 2, 1, 0, item)), 0x9a000018,
         "g_astEmlFleeBucketMap para map from NP(2) to external failed!\r\n"},
        {CALL(Np_Tarn_EML_ItemGetByIndex(0, 8, 1, 0, item)), 0x9a000005,
         "[ERROR] param error! ulKeyID=0x00000000\r\n"},
        {CALL(Np_Tarn_EML_ItemAdd(0, 19, nullptr, nullptr, nullptr)), 0x9a000005,
         "param error! (ulTableID)=0x00000013\r\n"},
        {CALL(Np_Tarn_EML_ItemAdd(0, 3, nullptr, nullptr, item)), 0x9a000004, "Para null ptr\r\n"},
        {CALL(Np_Tarn_EML_ItemAdd(0, 2, &location, nullptr, nullptr)), 0x9a000004,
         "Para null ptr\r\n"},
        {CALL(Np_Tarn_EML_ItemAdd(0, 17, &location, nullptr, item)), 0x9a00000d,
         "[ERROR] (flee bucket is disable)hash collision, hash item add failed!"},
        {CALL(Np_Tarn_EML_ItemDel(0, 19, 3, nullptr)), 0x9a000005,
         "param error! (ulTableID)=0x00000013\r\n"},
        {CALL(Np_Tarn_EML_ItemDel(0, 3, 3, nullptr)), 0x9a000005,
         "param error! (ulDelType)=0x00000003\r\n"},
        {CALL(Np_Tarn_EML_ItemDel(0, 3, 2, nullptr)), 0x9a000004, "Para null ptr\r\n"},
        {CALL(Np_Tarn_EML_ItemDelByIndex(0, 19, 2, 0)), 0x9a000005,
         "param error! (ulTableID)=0x00000013\r\n"},
        {CALL(Np_Tarn_EML_ItemDelByIndex(0, 3, 2, 9999)), 0x9a000005,
         "param error! (ulLocationType)=0x00000002\r\n"},
        {CALL(Np_Tarn_EML_ItemDelByIndex(0, 3, 0, 128)), 0x9a000005,
         "[ERROR] param error! ulOffset=0x00000080\r\n"},
        {CALL(Np_Tarn_EML_ItemDelByIndex(0, 18, 1, 0)), 0x9a000018,
         "g_astEmlFleeBucketMap para map from NP(18) to external failed!\r\n"},
        {CALL(Np_Tarn_EML_ItemDelByIndex(0, 3, 1, 0)), 0x9a000005,
         "[ERROR] error parameter! ulLocationType=0x00000001 ulOffset=0x00000000 \r\n"},
        {CALL(Np_Tarn_FleeBucketTbl_Set(0, 0x60, 0x12, nullptr)), 0x9a000005,
         "[ERROR] param error! ulKeyID=0x00000060\r\n"},
        {CALL(Np_Tarn_FleeBucketTbl_Set(0, 0, 0x12, nullptr)), 0x9a000005,
         "param error! (ulItemType)=0x00000012\r\n"},
        {CALL(Np_Tarn_FleeBucketTbl_Set(0, 0, 1, nullptr)), 0x9a000004, "Para null ptr\r\n"},
        {CALL(Np_Tarn_FleeBucketTbl_Set(0, 0, 1, item)), 0x9a000018,
         "g_astEmlFleeBucketMap para map from external(1) to NP failed!\r\n"},
        {CALL(Np_Tarn_FleeBucketTbl_Get(0, 0, nullptr, item)), 0x9a000004, "Para null ptr\r\n"},
        {CALL(Np_Tarn_FleeBucketTbl_Del(0, 3, 0x60)), 0x9a000005,
         "[ERROR] param error! ulKeyID=0x00000060\r\n"},
        {CALL(Np_Tarn_LmData_FleeBucketTbl_Set(0, 0, 8, item)), 0x9a000005,
         "[ERROR] param error! ulKeyID=0x00000000\r\n"},
        {CALL(Np_Tarn_FleeBucketTblKeyIDAssign(0, 8, &value)), 0x9a000010,
         "[DEBUG] flee bucket is full!\r\n"},
        {CALL(Np_Tarn_LmData_FleeBucketSearch(0, 8, nullptr, nullptr, item)), 0x9a001602,
         "[DEBUG] flee bucket not exist\r\n"},
        {CALL(Np_Tarn_EML_SmemEmlCacheRefresh(0, 1)), 0x9a000005,
         "param error! (ulTableID)=0x0000000c\r\n"},
    };
    const Bytes before = store();
    for (const Case &c : cases) {
        SCOPED_TRACE(c.text);
        Np_PrintLevelSet(NP_M_EML, NP_PRINT_ERROR, 1);
        Np_PrintLevelSet(NP_M_EML, NP_PRINT_DEBUG, 1);
        EXPECT_EQ(c.call(), c.result);
        EXPECT_THAT(out.take(), testing::HasSubstr(std::string("]: ") + c.text));
    }
    EXPECT_EQ(store(), before);
    // A full table refuses a new key and takes a rewrite.
    Np_PrintLevelInit();
    count(shape) = 8 * shape.buckets;
    EXPECT_EQ(add(shape, keys_for(shape, 3, 4, 1)[0], {{1}, 15}), NP_ERR_TABLE_FULL);
    EXPECT_EQ(add(shape, keys_for(shape, 1, 2, 1)[0], {{1}, 15}), NP_OK);
    count(shape) = 8;
    // A delete spares what its type says.
    EXPECT_EQ(add(shape, keys_for(shape, 1, 2, 1)[0], {{1}, 5}), NP_OK);
    EXPECT_EQ(del(shape, keys_for(shape, 1, 2, 1)[0], 0), NP_OK);
    EXPECT_EQ(lookup(shape, keys_for(shape, 1, 2, 1)[0])->first.status, 5u);
}

// A status word of a hash command, and what comes of it.
TEST_F(EmlUp, StatusWords)
{
    struct Case {
        const char *command;
        uint32_t status;
        uint32_t result;
        const char *text;
        uint32_t sends;
    };
    const Case cases[] = {
        {"search", 2, NP_ERR_SMEM_OP, "[ERROR] eml search failed! ulStatus=0x00000002\r\n", 1},
        {"search_update", 1, NP_ERR_SMEM_OP, "\r\n eml build failed! ulStatus=0x1", 1},
        {"search_update_build", 5, 0x9a00003e,
         "\r\n [ERROR] eml build failed! NO SEM! ulStatus=0x5", 8},
        {"search_update_build", 6, 0x9a00000d,
         "\r\n [ERROR] eml build failed! HASH COLLISION ulStatus=0x6", 1},
        {"search_update_build", 9, NP_ERR_SMEM_OP, "\r\n [ERROR] eml build failed! ulStatus=0x9",
         1},
    };
    uint8_t item[16] = {};
    item[15] = 0xf0;
    for (const Case &c : cases) {
        SCOPED_TRACE(c.text);
        set_fault(std::string("rba count=0 op=") + c.command +
                  " status=" + std::to_string(c.status));
        trace_errors(NP_M_EML);
        FrameTap tap;
        uint32_t result = Np_Tarn_EML_Search(0, 2, nullptr, item);
        if (std::string(c.command) == "search_update") {
            result = Np_Tarn_EML_SearchUpdate(0, 2, nullptr, item);
        }
        if (std::string(c.command) == "search_update_build") {
            tap.take_count();
            uint32_t location = 0;
            result = Np_Tarn_EML_ItemAdd(0, 2, &location, nullptr, item);
            EXPECT_EQ(tap.take_count(), c.sends);
        }
        EXPECT_EQ(result, c.result);
        EXPECT_THAT(out.take(), testing::HasSubstr(c.text));
        Np_PrintLevelInit();
    }
    // A semaphore that comes free in time costs sends, no more.
    model::faults_clear();
    ASSERT_EQ(model::eml_semaphore_hold(0, 0, 2, 7), model::kOk);
    EXPECT_EQ(Np_Tarn_EML_SearchUpdateBuild(0, 2, nullptr, item), NP_OK);
}

// What an operation made of a failure at the door.
struct Outcome {
    uint32_t frames = 0;
    uint32_t failed_at = 0;  // 0 when nothing failed
    model::RbaOp failed = model::RbaOp::kUnknown;
    uint32_t code() const
    {
        switch (failed) {
            case model::RbaOp::kAdWrite:
                return 0x9a000025;
            case model::RbaOp::kAdRead:
                return 0x9a000024;
            case model::RbaOp::kTcamReadData:
            case model::RbaOp::kTcamReadMask:
                return 0x9a000026;
            case model::RbaOp::kTcamWriteData:
            case model::RbaOp::kTcamWriteMask:
            case model::RbaOp::kTcamValidClear:
                return 0x9a000027;
            case model::RbaOp::kTcamClearData:
            case model::RbaOp::kTcamClearMask:
                return 0x9a000028;
            default:
                return failed_at == 0 ? NP_OK : 0x77;
        }
    }
};

Outcome outcome_of_journal()
{
    Outcome outcome;
    for (uint32_t i = 0; i < model::journal_count(); i++) {
        const model::Record &record = *model::journal_record(i);
        if (record.kind != model::RecordKind::kRba) {
            continue;
        }
        outcome.frames++;
        if (record.result == 0x77) {
            outcome.failed_at = outcome.frames;
            outcome.failed = record.command;
        }
    }
    return outcome;
}

// Each driver call of each operation fails once. The result is the written code; the shadow says
// what the store holds; every other key is there with its data, and the operation's own as the host
// finds it; the count is that of the keys; no flee number is lost; the same operation then
// succeeds.
TEST_F(EmlUp, EveryDriverCallMayFail)
{
    const Shape &shape = shape_of(4);
    const Entry old_entry = {{1, 2, 3, 4, 5, 6, 7, 8}, 15};
    const Entry new_entry = {{9, 8, 7, 6, 5, 4, 3, 2}, 15};
    // Eight find a place in the table, the others go to the flee store.
    const std::vector<Bytes> keys = keys_for(shape, 5, 6, 12);
    // The mover's halves are full: of bucket 2 for good, of bucket 1 with items that can go to 9.
    const Bytes mover = keys_for(shape, 1, 2, 1)[0];
    std::vector<Bytes> in_the_way = keys_for(shape, 2, 2, 8);
    const std::vector<Bytes> movable = keys_for(shape, 1, 9, 8);  // every second stands in bucket 9
    in_the_way.insert(in_the_way.end(), movable.begin(), movable.end());
    struct Scene {
        const char *name;
        std::vector<Bytes> before;
        Bytes key;  // that the operation is about
        bool adds;
        uint32_t frames;        // of the undisturbed operation, 0 if not counted
        uint32_t location = 9;  // of a delete by place
        uint32_t place = 0;
    };
    const auto first = [&](size_t num) { return std::vector(keys.data(), keys.data() + num); };
    const Scene scenes[] = {
        {"add", first(3), keys[3], true, 18},
        {"add with a displacement", in_the_way, mover, true, 20},
        {"rewrite", first(3), keys[1], true, 18},
        {"add to the flee store", first(9), keys[9], true, 0},
        {"rewrite in the flee store", first(10), keys[9], true, 0},
        {"delete", first(10), keys[2], false, 18},
        {"delete in the flee store", first(10), keys[9], false, 0},
        {"delete of an absent key", first(9), keys[11], false, 0},
        {"delete by place", first(3), keys[0], false, 17, 0, 8 * 5 + 7},
        {"delete by place in the flee store", first(9), keys[8], false, 0, 1, 0},
    };
    const auto run = [&](const Scene &scene) {
        if (scene.adds) {
            return add(shape, scene.key, new_entry);
        }
        return scene.location == 9 ? del(shape, scene.key, 2)
                                   : Np_Tarn_EML_ItemDelByIndex(0, 4, scene.location, scene.place);
    };
    for (const Scene &scene : scenes) {
        bool copied = false;  // with a second copy of the flee store, in the second round
        for (uint32_t fail = 1; fail != 0; fail++) {
            SCOPED_TRACE(std::string(scene.name) + ", call " + std::to_string(fail) +
                         (copied ? ", with a copy" : ""));
            restart();
            ASSERT_EQ(model::lcam_mirror_set(0, 8, copied), model::kOk);
            Reference others;
            for (const Bytes &key : scene.before) {
                ASSERT_EQ(add(shape, key, old_entry), NP_OK);
                others[key] = old_entry;
            }
            for (size_t i = 1; scene.key == mover && i < movable.size(); i += 2) {
                ASSERT_EQ(del(shape, movable[i], 2), NP_OK);
                others.erase(movable[i]);
            }
            const bool was = others.erase(scene.key) != 0;
            model::journal_clear();
            model::journal_enable(true);
            set_fault("Qd_RBA_CommandSend code=0x77 nth=" + std::to_string(fail));
            const uint32_t result = run(scene);
            model::faults_clear();
            model::journal_enable(false);
            const Outcome outcome = outcome_of_journal();
            ASSERT_EQ(result, outcome.code());
            if (outcome.failed_at == 0 && scene.frames != 0) {
                EXPECT_EQ(outcome.frames, scene.frames);
            }
            check_shadow(shape);
            const Image at = image(shape);
            size_t in_table = at.find(scene.key).size();
            for (const auto &[key, entry] : others) {
                const auto found = lookup(shape, key);
                ASSERT_TRUE(found.has_value());
                ASSERT_EQ(found->first, found->second ? as_flee(shape, entry) : entry);
                in_table += found->second ? 0 : 1;
            }
            ASSERT_EQ(count(shape), in_table + flee_used(shape));
            const auto found = lookup(shape, scene.key);
            ASSERT_TRUE(!found || was || scene.adds);
            ASSERT_TRUE(!found || found->first.ad == new_entry.ad ||
                        found->first.ad == old_entry.ad);
            // An operation that failed left the key to both sides or to none.
            Bytes item = make_item(shape, scene.key, Bytes(shape.ad), 0);
            const uint32_t host = Np_Tarn_EML_ItemGet(0, 4, nullptr, nullptr, item.data());
            ASSERT_EQ(host, found ? NP_OK : NP_ERR_NOT_EXIST);
            if (copied && scene.location != 1) {  // by place there is no key to put back
                ASSERT_EQ(lookup(shape, scene.key, 0).has_value(), found.has_value());
            }
            ASSERT_TRUE(!found || ad_of(shape, item) == found->first.ad);
            if (outcome.failed_at != 0 || scene.adds) {
                ASSERT_EQ(run(scene), NP_OK);
            }
            if (scene.key == mover && outcome.failed_at == 4) {
                // The displaced item stands twice: a delete takes both.
                for (const Bytes &key : movable) {
                    ASSERT_EQ(del(shape, key, 2), NP_OK);
                    ASSERT_FALSE(lookup(shape, key));
                    others.erase(key);
                }
            }
            if (scene.adds) {
                others[scene.key] = new_entry;
            }
            check_all(shape, others);
            uint32_t id = 0;
            uint32_t free_ids = 0;
            while (Np_Tarn_Pop(0, NP_STACK_FLEE, &id) == NP_OK) {
                free_ids++;
            }
            ASSERT_EQ(free_ids + flee_used(shape), kFleeRows);
            if (outcome.failed_at == 0) {
                fail = copied ? UINT32_MAX : 0;
                copied = true;
            }
        }
    }
}

// ---- bring-up -----------------------------------------------------------------------------------

TEST_F(Eml, BringUpDeclaresTheTablesInOrder)
{
    model::journal_enable(true);
    ASSERT_EQ(Np_Tarn_EML_Init(0), NP_OK);
    model::journal_enable(false);
    std::vector<std::string> calls;
    uint32_t frames = 0;
    for (uint32_t i = 0; i < model::journal_count(); i++) {
        const model::Record &record = *model::journal_record(i);
        char line[160];
        model::journal_format(record, line, sizeof(line));
        if (record.kind == model::RecordKind::kCall) {
            calls.emplace_back(std::strstr(line, "Qd_"));
        }
        frames += record.kind == model::RecordKind::kRba ? 1 : 0;
    }
    EXPECT_EQ(frames, 32u);
    std::vector<std::string> expected;
    for (const Shape &shape : kShapes) {
        char line[160];
        std::snprintf(line, sizeof(line), "Qd_SMEM_EmlExcludeEnableSet(0, 0x0, 0x%x, 0x1) = 0x0",
                      static_cast<unsigned>(shape.tid));
        expected.emplace_back(line);
        std::snprintf(line, sizeof(line),
                      "Qd_SMEM_EmlTableSet(0, 0x0, 0x%x, 0x%x, 0x%x, 0x%x) = 0x0",
                      static_cast<unsigned>(shape.tid), static_cast<unsigned>(shape.base & 0xfffff),
                      static_cast<unsigned>(__builtin_ctz(shape.buckets)), shape.size == 8 ? 0 : 1);
        expected.emplace_back(line);
    }
    EXPECT_EQ(calls, expected);
    // All that it allocated goes again, and twice does no harm.
    OsHostMemory before;
    Os_HostMemoryGet(&before);
    ASSERT_EQ(Np_Tarn_EML_Destruct(0), NP_OK);
    ASSERT_EQ(Np_Tarn_EML_Destruct(0), NP_OK);
    OsHostMemory after;
    Os_HostMemoryGet(&after);
    EXPECT_EQ(before.ulBlocks - after.ulBlocks, std::size(kShapes));
    EXPECT_EQ(before.ulBadFrees, after.ulBadFrees);
    // Without a shadow an add is refused, and a delete finds nothing to keep.
    uint8_t item[16] = {};
    item[15] = 0xf0;
    uint32_t location = 0;
    EXPECT_EQ(Np_Tarn_EML_ItemAdd(0, 3, &location, nullptr, item), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_Tarn_EML_ItemDel(0, 3, 2, item), NP_OK);
    EXPECT_EQ(Np_Tarn_EML_ItemDelByIndex(0, 3, 0, 7), NP_OK);
}

TEST_F(Eml, BringUpPassesFailuresOn)
{
    static uint32_t recorded = 0;
    ASSERT_EQ(Np_Glb_RecordErrInfoHook(0, [](uint32_t code, uint32_t) { recorded = code; }), NP_OK);
    struct Case {
        const char *fault;
        uint32_t result;
        const char *text;
        bool recorded;
    };
    const Case cases[] = {
        {"Qd_SMEM_EmlExcludeEnableSet nth=3 code=0x41", 0x41,
         "[ERROR] Qd_tarn_SMEM_EmlExcludeEnableSet ERROR, ulReturn=0x00000041 "
         "ulSmemID=0x00000000 ulTid=0x00000003\r\n",
         true},
        {"Qd_SMEM_EmlTableSet nth=2 code=0x42", 0x42,
         "[ERROR] Qd_SMEM_EmlTableSet ERROR: ulTableID=0x00000002 ulSmemID=0x00000000 "
         "ulTID=0x00000002 ulBaseAddr=0x00134000ulBucketWidth=0x00000008 ulTblWidth=0x00000001\r\n",
         true},
        {"alloc nth=4", NP_ERR_NO_MEMORY, "memory alloc failed!\r\n", false},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.fault);
        recorded = 0;
        set_fault(c.fault);
        trace_errors(NP_M_EML);
        EXPECT_EQ(Np_Tarn_EML_Init(0), c.result);
        EXPECT_THAT(out.take(), testing::HasSubstr(c.text));
        EXPECT_EQ(recorded, c.recorded ? c.result : 0u);
        model::faults_clear();
        ASSERT_EQ(Np_Tarn_EML_Destruct(0), NP_OK);
    }
}

}  // namespace

}  // namespace ldsdk::test::eml

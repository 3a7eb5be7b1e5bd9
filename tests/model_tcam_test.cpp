// The chip model's local CAM, from frames written as bytes: where entries of each width stand, what
// matches at each step of a write, and which of two wins.

#include "tests/model_support.h"

#include <algorithm>
#include <map>
#include <random>
#include <vector>

namespace ldsdk::model_test {

namespace {

using Bytes = std::vector<uint8_t>;
using model::TcamPlace;

constexpr int kRead = 1;
constexpr int kWrite = 3;

// Operations by access class.
constexpr int kMaskRead = 0;
constexpr int kDataRead = 1;
constexpr int kMaskClear = 0;
constexpr int kDataClear = 1;
constexpr int kMaskWrite = 2;
constexpr int kDataWrite = 3;
constexpr int kAd = 4;
constexpr int kValidClear = 5;
constexpr int kValidSet = 6;

// The documented rows of the command tables by width code: first of the select field, its divisor,
// width code on the wire, width class of the payload.
constexpr struct {
    int select;
    uint32_t divisor;
    int code;
    int width_class;
    size_t ad_bytes;
    int ad_code;
} kTypes[] = {{0, 1, 0, 0, 4, 0}, {8, 2, 1, 0, 8, 0}, {12, 4, 2, 1, 16, 1}, {14, 8, 4, 2, 16, 1}};

Frame cam(const TcamPlace &place, uint32_t cid, int access, int op, int code, int width_class = 0,
          const Bytes &payload = {})
{
    const auto &type = kTypes[place.type];
    Frame request = {};
    request[0] = static_cast<uint8_t>(place.row);
    request[1] = static_cast<uint8_t>(place.row >> 8);
    request[2] = 0x80;
    request[3] = static_cast<uint8_t>(0x20 | cid);
    request[4] = static_cast<uint8_t>(op << 4 | code);
    const uint32_t select = static_cast<uint32_t>(type.select) + place.tcam / type.divisor;
    request[5] = static_cast<uint8_t>(place.block << 5 | select);
    request[6] = static_cast<uint8_t>(access);
    request[8] = static_cast<uint8_t>(width_class);
    // the last 16 bytes in the first group, the ones before in the next
    for (size_t back = 0; back < payload.size(); back++) {
        request.at(12 + back / 16 * 16 + 15 - back % 16) = payload[payload.size() - 1 - back];
    }
    return request;
}

// A rule as a user thinks of it: a 1 in the mask for each bit that counts. 5 << type bytes; the top
// four bits aren't stored.
struct Rule {
    Bytes key;
    Bytes mask;
};

// What goes to the chip: shifted by four bits, X or Y.
Bytes wire(const Rule &rule, bool data)
{
    Bytes bytes(rule.key.size());
    uint32_t carry = 0;
    for (size_t at = 0; at < bytes.size(); at++) {
        const uint8_t key = data ? rule.key[at] : static_cast<uint8_t>(~rule.key[at]);
        const uint8_t value = rule.mask[at] & key;
        bytes[at] = static_cast<uint8_t>(value << 4 | carry);
        carry = value >> 4;
    }
    return bytes;
}

bool matches(const Rule &rule, const Bytes &key)
{
    for (size_t at = 0; at < key.size(); at++) {
        const int top = at + 1 == key.size() ? 0x0f : 0xff;
        if (((rule.key[at] ^ key[at]) & rule.mask[at] & top) != 0) {
            return false;
        }
    }
    return true;
}

Bytes random_bytes(std::mt19937 &random, size_t size)
{
    Bytes bytes(size);
    for (uint8_t &byte : bytes) {
        byte = static_cast<uint8_t>(random());
    }
    return bytes;
}

class TcamModel : public ModelTest {
  protected:
    void SetUp() override
    {
        ModelTest::SetUp();
        ASSERT_EQ(0u, Qd_LCAM_CamIdModeSet(0, 1));
    }
    static void good(const Frame &request)
    {
        const Outcome outcome = send(request);
        ASSERT_EQ(0u, outcome.code);
        ASSERT_EQ(0u, outcome.status);
    }
    static void valid_bit(const TcamPlace &place, uint32_t cid, bool on)
    {
        good(cam(place, cid, kWrite, on ? kValidSet : kValidClear, 0));
    }
    static void half(const TcamPlace &place, uint32_t cid, const Rule &rule, bool data)
    {
        const auto &type = kTypes[place.type];
        good(cam(place, cid, kWrite, data ? kDataWrite : kMaskWrite, type.code, type.width_class,
                 wire(rule, data)));
    }
    static void write(const TcamPlace &place, uint32_t cid, const Rule &rule)
    {
        valid_bit(place, cid, false);
        half(place, cid, rule, true);
        half(place, cid, rule, false);
    }
    static void clear_half(const TcamPlace &place, uint32_t cid, bool data)
    {
        const auto &type = kTypes[place.type];
        good(cam(place, cid, kWrite, data ? kDataClear : kMaskClear, type.code, type.width_class));
    }
    static model::LcamResult look(uint32_t type, uint32_t block, uint32_t cid, const Bytes &key)
    {
        model::LcamResult result = {};
        EXPECT_EQ(0u, model::lookup_lcam(0, {type, block, cid, key.data()}, &result));
        return result;
    }
    static uint32_t enabled(const TcamPlace &place)
    {
        const QdLcamAccessInfo info = {place.type, place.block, place.tcam, place.row, 0};
        uint32_t on = 9;
        EXPECT_EQ(0u, Qd_LCAM_TcamEnableGet(0, &info, &on));
        return on;
    }
};

// Frames of an 80-bit entry byte by byte: block 2, TCAMs 4 and 5, row 0x103, CAM identifier 5.
TEST_F(TcamModel, FramesByteByByte)
{
    const TcamPlace place = {1, 2, 4, 0x103};
    // key 0x9876543210fedcba987 with all bits, from byte 0: 87 a9 cb ed 0f 21 43 65 87 09
    const std::initializer_list<std::pair<int, int>> head = {
        {0, 3}, {1, 1}, {2, 0x80}, {3, 0x25}, {5, 0x4a}};
    const auto with = [&](std::initializer_list<std::pair<int, int>> rest) {
        Frame request = frame(head);
        for (const auto &[at, value] : rest) {
            request.at(static_cast<size_t>(at)) = static_cast<uint8_t>(value);
        }
        return request;
    };
    good(with({{4, 0x40}, {6, 3}, {20, 1}, {21, 2}, {26, 3}, {27, 4}}));
    good(with({{4, 0x50}, {6, 3}}));
    good(with({{4, 0x31},
               {6, 3},
               {18, 0x70},
               {19, 0x98},
               {20, 0xba},
               {21, 0xdc},
               {22, 0xfe},
               {23, 0x10},
               {24, 0x32},
               {25, 0x54},
               {26, 0x76},
               {27, 0x98}}));
    EXPECT_EQ(0u, enabled(place));
    good(with({{4, 0x21},
               {6, 3},
               {18, 0x80},
               {19, 0x67},
               {20, 0x45},
               {21, 0x23},
               {22, 0x01},
               {23, 0xef},
               {24, 0xcd},
               {25, 0xab},
               {26, 0x89},
               {27, 0x67}}));
    EXPECT_EQ(1u, enabled(place));
    using Data = std::array<uint8_t, 16>;
    Outcome outcome = send(with({{4, 0x11}, {6, 1}}));
    EXPECT_EQ((Data{0, 0, 0, 0, 0, 0, 0x75, 0x98, 0xba, 0xdc, 0xfe, 0x10, 0x32, 0x54, 0x76, 0x98}),
              outcome.data);
    outcome = send(with({{4, 0x01}, {6, 1}}));
    EXPECT_EQ((Data{0, 0, 0, 0, 0, 0, 0x8a, 0x67, 0x45, 0x23, 0x01, 0xef, 0xcd, 0xab, 0x89, 0x67}),
              outcome.data);
    outcome = send(with({{4, 0x40}, {6, 1}}));
    EXPECT_EQ((Data{0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 0, 0, 0, 0, 3, 4}), outcome.data);
    const Bytes key = {0x87, 0xa9, 0xcb, 0xed, 0x0f, 0x21, 0x43, 0x65, 0x87, 0x09};
    const model::LcamResult result = look(1, 2, 5, key);
    ASSERT_TRUE(result.hit);
    EXPECT_EQ(4u, result.place.tcam);
    EXPECT_EQ(0x103u, result.place.row);
    EXPECT_EQ(8u, result.ad_bytes);
    EXPECT_EQ(4, result.ad[7]);
    EXPECT_FALSE(look(1, 2, 4, key).hit);  // another identifier
    EXPECT_FALSE(look(1, 0, 5, key).hit);  // another block
}

// Each width: written as a whole, read back by 40 or 80 bits; matches from the mask command on and
// not a command earlier, and is gone with the first clear; the associated data outlives it.
TEST_F(TcamModel, EveryWidthEveryStep)
{
    std::mt19937 random(5);
    for (uint32_t type = 0; type < 4; type++) {
        for (uint32_t tcam = 0; tcam < 8; tcam += 1u << type) {
            const TcamPlace place = {type, 3 - type, tcam, 511 - 60 * type};
            SCOPED_TRACE(testing::Message() << "width " << type << " at " << tcam);
            const size_t size = 5u << type;
            const uint32_t cid = 3 + type;
            Rule rule = {random_bytes(random, size), random_bytes(random, size)};
            const Rule other = {random_bytes(random, size), Bytes(size, 0xff)};
            const auto seen = [&](const Bytes &key) { return look(type, 3 - type, cid, key).hit; };

            const Bytes ad = random_bytes(random, kTypes[type].ad_bytes);
            good(cam(place, cid, kWrite, kAd, kTypes[type].ad_code, 0, ad));
            EXPECT_FALSE(seen(rule.key));
            half(place, cid, rule, true);
            EXPECT_FALSE(seen(rule.key));
            half(place, cid, rule, false);
            EXPECT_TRUE(seen(rule.key));
            const model::LcamResult result = look(type, 3 - type, cid, rule.key);
            EXPECT_EQ(ad, Bytes(result.ad, result.ad + result.ad_bytes));

            // rewritten with the valid bit down, no half ever matches
            valid_bit(place, cid, false);
            EXPECT_FALSE(seen(rule.key));
            half(place, cid, other, true);
            EXPECT_FALSE(seen(rule.key));
            EXPECT_FALSE(seen(other.key));
            half(place, cid, other, false);
            EXPECT_TRUE(seen(other.key));
            // with the bit up, a half shows: no ones asked for any more, only the zeros
            half(place, cid, {Bytes(size), Bytes(size)}, true);
            EXPECT_TRUE(seen(Bytes(size)));
            write(place, cid, rule);

            for (uint32_t part = 0; part < 1u << type; part += type == 0 ? 1 : 2) {
                const TcamPlace piece = {type == 0 ? 0u : 1u, place.block, tcam + part, place.row};
                const size_t bytes = 5u << piece.type;
                for (const bool data : {true, false}) {
                    const Outcome outcome = send(
                        cam(piece, cid, kRead, data ? kDataRead : kMaskRead, type == 0 ? 0 : 1));
                    Bytes expected = wire(rule, data);
                    expected[0] |= static_cast<uint8_t>(data ? cid : ~cid & 0xf);
                    EXPECT_TRUE(std::equal(outcome.data.end() - static_cast<ptrdiff_t>(bytes),
                                           outcome.data.end(),
                                           expected.begin() + static_cast<ptrdiff_t>(5 * part)));
                }
            }
            // the entry alone can be taken out of the search and put back
            valid_bit(place, cid, false);
            EXPECT_FALSE(seen(rule.key));
            EXPECT_EQ(0u, enabled(place));
            valid_bit(place, cid, true);
            EXPECT_TRUE(seen(rule.key));
            EXPECT_EQ(1u, enabled(place));

            clear_half(place, cid, true);
            EXPECT_FALSE(seen(rule.key));
            EXPECT_FALSE(seen(Bytes(size)));
            clear_half(place, cid, false);
            EXPECT_FALSE(seen(rule.key));
            EXPECT_EQ(0u, enabled(place));
            const Outcome outcome = send(cam(place, cid, kRead, kAd, kTypes[type].ad_code));
            EXPECT_TRUE(std::equal(ad.begin(), ad.end(),
                                   outcome.data.end() - static_cast<ptrdiff_t>(ad.size())));
        }
    }
}

// Random rules at random places, against all of them compared one by one: the lowest TCAM wins, in
// it the lowest row.
TEST_F(TcamModel, TheLowestAddressWins)
{
    std::mt19937 random(6);
    for (uint32_t type = 0; type < 4; type++) {
        std::map<std::pair<uint32_t, uint32_t>, Rule> rules;  // by TCAM and row
        const size_t size = 5u << type;
        uint32_t hits = 0;
        for (int step = 0; step < 600; step++) {
            const uint32_t tcam = (random() % 8) >> type << type;
            const TcamPlace place = {type, 1, tcam, static_cast<uint32_t>(random() % 512)};
            if (random() % 4 == 0) {
                clear_half(place, type, true);
                clear_half(place, type, false);
                rules.erase({tcam, place.row});
            }
            else {
                Rule rule = {random_bytes(random, size), Bytes(size)};
                rule.mask[random() % size] = static_cast<uint8_t>(random() & random());
                rule.mask[random() % size] = static_cast<uint8_t>(random() & random());
                write(place, type, rule);
                rules[{tcam, place.row}] = rule;
            }
            const Bytes key = random_bytes(random, size);
            const auto best = std::find_if(rules.begin(), rules.end(), [&](const auto &entry) {
                return matches(entry.second, key);
            });
            const model::LcamResult result = look(type, 1, type, key);
            ASSERT_EQ(best != rules.end(), result.hit);
            if (result.hit) {
                hits++;
                ASSERT_EQ(best->first, std::make_pair(result.place.tcam, result.place.row));
            }
        }
        EXPECT_GT(hits, 100u);
        // the next width starts on an empty block
        for (const auto &[at, rule] : rules) {
            clear_half({type, 1, at.first, at.second}, type, true);
        }
    }
}

// Entries of different widths over the same TCAMs: the last one written stands, the one under it is
// torn and never matches again, in part or as a whole.
TEST_F(TcamModel, WidthsTearEachOther)
{
    const Rule narrow = {{1, 2, 3, 4, 5}, Bytes(5, 0xff)};
    const Rule wide = {{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, Bytes(10, 0xff)};
    write({1, 0, 2, 9}, 1, wide);
    EXPECT_TRUE(look(1, 0, 1, wide.key).hit);
    write({0, 0, 3, 9}, 2, narrow);
    EXPECT_TRUE(look(0, 0, 2, narrow.key).hit);
    EXPECT_FALSE(look(1, 0, 1, wide.key).hit);
    write({1, 0, 2, 9}, 1, wide);
    EXPECT_FALSE(look(0, 0, 2, narrow.key).hit);
    EXPECT_TRUE(look(1, 0, 1, wide.key).hit);
    model::TcamEntry entry = {};
    ASSERT_EQ(0u, model::tcam_entry_get(0, {1, 0, 2, 9}, &entry));
    EXPECT_TRUE(entry.valid);
    EXPECT_EQ(0x11, entry.data[0]);
    ASSERT_EQ(0u, model::tcam_entry_get(0, {0, 0, 3, 9}, &entry));
    EXPECT_FALSE(entry.valid);
}

// A valid bit that is set on a cleared entry makes it match any key of any identifier.
TEST_F(TcamModel, ClearedButValidMatchesAnything)
{
    const TcamPlace place = {0, 0, 6, 100};
    write(place, 4, {{1, 2, 3, 4, 5}, Bytes(5, 0xff)});
    clear_half(place, 4, true);
    clear_half(place, 4, false);
    valid_bit(place, 4, true);
    EXPECT_TRUE(look(0, 0, 9, {5, 5, 5, 5, 5}).hit);
}

TEST_F(TcamModel, DriverCallsAndPower)
{
    uint32_t value = 9;
    EXPECT_EQ(0u, Qd_LCAM_CamIdModeGet(0, &value));
    EXPECT_EQ(1u, value);
    EXPECT_NE(0u, Qd_LCAM_CamIdModeSet(0, 2));
    EXPECT_EQ(0u, Qd_LCAM_MirrorEnableGet(0, 3, &value));
    EXPECT_EQ(0u, value);
    EXPECT_EQ(0u, model::lcam_mirror_set(0, 3, true));
    EXPECT_EQ(0u, Qd_LCAM_MirrorEnableGet(0, 3, &value));
    EXPECT_EQ(1u, value);
    EXPECT_NE(0u, Qd_LCAM_MirrorEnableGet(0, 16, &value));
    EXPECT_NE(0u, Qd_LCAM_MirrorEnableGet(0, 3, nullptr));
    for (const QdLcamAccessInfo &info :
         {QdLcamAccessInfo{1, 0, 3, 0, 0}, QdLcamAccessInfo{4, 0, 0, 0, 0},
          QdLcamAccessInfo{0, 4, 0, 0, 0}, QdLcamAccessInfo{0, 0, 8, 0, 0},
          QdLcamAccessInfo{0, 0, 0, 512, 0}, QdLcamAccessInfo{0, 0, 0, 0, 16}}) {
        EXPECT_NE(0u, Qd_LCAM_TcamEnableGet(0, &info, &value));
    }
    const Rule rule = {{1, 2, 3, 4, 5}, Bytes(5, 0xff)};
    write({0, 3, 6, 100}, 4, rule);
    EXPECT_TRUE(look(0, 3, 4, rule.key).hit);
    ASSERT_EQ(0u, model::attach(0));
    // at power on nothing is there, and the identifiers have no layout yet
    EXPECT_EQ(0u, Qd_LCAM_CamIdModeGet(0, &value));
    EXPECT_EQ(0u, value);
    EXPECT_EQ(model::kErrNotModelled,
              send(cam({0, 3, 6, 100}, 4, kWrite, kMaskWrite, 0, 0, Bytes(5))).code);
    ASSERT_EQ(0u, Qd_LCAM_CamIdModeSet(0, 1));
    EXPECT_FALSE(look(0, 3, 4, rule.key).hit);
    EXPECT_EQ(0u, Qd_LCAM_MirrorEnableGet(0, 3, &value));
    EXPECT_EQ(0u, value);
}

TEST_F(TcamModel, BrokenFrames)
{
    const TcamPlace place = {1, 2, 4, 7};
    const Frame plain_write = cam(place, 5, kWrite, kMaskWrite, 1, 0, Bytes(10, 0x10));
    const auto with = [](Frame request, size_t at, int value) {
        request.at(at) = static_cast<uint8_t>(value);
        return request;
    };
    const struct {
        const char *name;
        Frame request;
        uint32_t status;
    } rows[] = {
        {"as it should be", plain_write, 0},
        {"bit 23 missing", with(plain_write, 2, 0), 0x11},
        {"bit 22", with(plain_write, 2, 0xc0), 0x11},
        {"bit 9", with(plain_write, 1, 2), 0x11},
        {"bit 3 of the half-word", with(plain_write, 4, 0x29), 0x11},
        {"block 4", with(plain_write, 5, 4 << 5 | 10), 0x12},
        {"select 15", with(plain_write, 5, 2 << 5 | 15), 0x12},
        {"width code of another width", with(plain_write, 4, 0x22), 0x12},
        {"width code 3", with(plain_write, 4, 0x23), 0x12},
        {"width class", with(plain_write, 8, 1), 0x11},
        {"payload in front of the value", with(plain_write, 17, 1), 0x11},
        {"payload in the next group", with(plain_write, 43, 1), 0x11},
        {"a clear with a payload", cam(place, 5, kWrite, kDataClear, 1, 0, {1}), 0x11},
        {"a read of 160 bits", cam({2, 2, 4, 7}, 5, kRead, kDataRead, 2), 0x12},
        {"data of 128 bits with code 0", cam({2, 2, 4, 7}, 5, kWrite, kAd, 0), 0x12},
        {"data of 64 bits with code 1", cam(place, 5, kRead, kAd, 1), 0x12},
        {"data with a payload of 10 bytes", cam(place, 5, kWrite, kAd, 0, 0, Bytes(10, 1)), 0x11},
        {"no such operation", cam(place, 5, kWrite, 7, 1), 0x12},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        const Outcome outcome = send(row.request);
        EXPECT_EQ(0u, outcome.code);
        EXPECT_EQ(row.status, outcome.status);
    }
}

}  // namespace

}  // namespace ldsdk::model_test

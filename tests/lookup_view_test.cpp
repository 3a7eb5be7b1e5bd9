// The lookup tables for people: what is said of a key, and how the maps of the tables are drawn.

#include "host/lookup_view.h"
#include "sdk/lookup/eml.h"
#include "sdk/lookup/flee.h"
#include "sdk/lookup/lcam.h"
#include "tests/fixture.h"

#include <algorithm>
#include <random>
#include <sstream>

namespace ldsdk::test {

namespace {

using host::LookupKind;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;
using Bytes = std::vector<uint8_t>;

class LookupView : public ChipUp {
  protected:
    LookupView()
    {
        EXPECT_EQ(Np_Tarn_LCAM_Init(0), 0u);
    }

    // Adds a key of the source MAC bonding table, whose items have 8 bytes.
    static uint32_t bond(uint32_t number)
    {
        const Bytes key = bond_key(number);
        Bytes item(8);
        uint8_t status = 15;
        Bytes ad = {0x05};
        item[0] = ad[0];
        for (size_t byte = 0; byte < 7; byte++) {
            item[byte] |= static_cast<uint8_t>(key[byte] << 4);
            item[byte + 1] = static_cast<uint8_t>(key[byte] >> 4);
        }
        item[7] |= static_cast<uint8_t>(status << 4);
        uint32_t location = 9;
        EXPECT_EQ(Np_Tarn_EML_ItemAdd(0, NP_EML_SMAC_BONDING, &location, nullptr, item.data()), 0u);
        return location;
    }
    static Bytes bond_key(uint32_t number)
    {
        // keys that differ in a counter alone would spread without a collision
        std::mt19937 random(number);
        Bytes key(7);
        std::generate(key.begin(), key.end(), [&] { return static_cast<uint8_t>(random()); });
        return key;
    }
    static std::string look(const Bytes &key)
    {
        return host::lookup_text(0, LookupKind::kEml, NP_EML_SMAC_BONDING, key);
    }
    static void fits(const std::string &text)
    {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            EXPECT_LE(line.size(), 100u) << line;
        }
        EXPECT_EQ(text.back(), '\n');
    }
};

TEST_F(LookupView, TablesByName)
{
    EXPECT_EQ(host::lookup_table_number(LookupKind::kEml, "mac"), 2u);
    EXPECT_EQ(host::lookup_table_number(LookupKind::kEml, "LAN_MAC"), 18u);
    EXPECT_EQ(host::lookup_table_number(LookupKind::kLcam, "L3pa"), 2u);
    EXPECT_EQ(host::lookup_table_number(LookupKind::kLcam, "mac"), std::nullopt);
}

TEST_F(LookupView, Keys)
{
    const auto parse = [](const char *text) {
        return host::parse_lookup_key(0, LookupKind::kLcam, NP_LCAM_IFT_KEY, text);
    };
    const Bytes key = {0x01, 0x23, 0x45, 0x67, 0x89};
    EXPECT_EQ(parse("0123456789"), key);
    EXPECT_EQ(parse("0x0123456789"), key);
    EXPECT_EQ(parse("01:23:45:67:89"), key);
    for (const char *bad : {"", "0x", "012345678", "01234567891", "012345678901", "01:23:45:67:8g",
                            ":0123456789", "0123456789:", "01::23456789", "0:123456789"}) {
        EXPECT_THROW(parse(bad), std::invalid_argument) << bad;
    }
    EXPECT_THROW(host::parse_lookup_key(0, LookupKind::kEml, 1, "00"), std::invalid_argument);
    EXPECT_THROW(host::parse_lookup_key(0, LookupKind::kEml, 19, "00"), std::invalid_argument);
    EXPECT_THROW(host::parse_lookup_key(0, LookupKind::kLcam, 9, "00"), std::invalid_argument);
    EXPECT_THROW(host::parse_lookup_key(1, LookupKind::kEml, 2, "00"), std::runtime_error);
}

// A table of 32 buckets filled until keys go to the flee bucket: every key is found where it went,
// and the map counts what is there.
TEST_F(LookupView, HashTable)
{
    const Bytes key = bond_key(0);
    EXPECT_THAT(look(key), HasSubstr("miss in SMAC_BONDING (table 6)\n"));
    ASSERT_EQ(bond(0), 0u);
    std::string text = look(key);
    EXPECT_THAT(text, HasSubstr("hit in SMAC_BONDING (table 6)\n"));
    EXPECT_THAT(text, ContainsRegex("place   item [0-9]+, bucket [0-9]+\n  status  15\n"));
    EXPECT_THAT(text, HasSubstr("  data    05\n"));
    fits(text);

    uint32_t added = 1;
    uint32_t fled = 0;
    while (fled < 2 && added < 256) {
        const uint32_t location = bond(added);
        if (location == 1) {
            text = look(bond_key(added));
            EXPECT_THAT(text, HasSubstr("by way of the flee bucket"));
            EXPECT_THAT(text,
                        HasSubstr("entry " + std::to_string(fled) + ", block 2, TCAM 0, row "));
            EXPECT_THAT(text, HasSubstr("  data    05\n"));
            fits(text);
            fled++;
        }
        added++;
    }
    text = host::show_eml_text(0, NP_EML_SMAC_BONDING);
    fits(text);
    const auto map = text.substr(0, text.find("one bucket"));
    EXPECT_EQ(static_cast<uint32_t>(std::count(
                  map.begin() + static_cast<ptrdiff_t>(map.find('\n', map.find("in use"))),
                  map.end(), 'f')),
              added - fled);
    EXPECT_THAT(text, HasSubstr(std::to_string(added - fled) + " of 256 items in use"));
    EXPECT_THAT(text, HasSubstr("flee bucket entries: 2\n"));
    EXPECT_THAT(text, HasSubstr("the host's shadow agrees\n"));
    EXPECT_THAT(map, Not(HasSubstr("!")));

    // an item that was put where its key doesn't belong, past the host
    for (uint32_t item = 0; item < 256; item += 8) {
        poke(0x60204000 + 8 * item, 0x12345678);
        poke(0x60204000 + 8 * item + 4, 0x12345678);
    }
    text = host::show_eml_text(0, NP_EML_SMAC_BONDING);
    EXPECT_THAT(text.substr(0, text.find("one bucket")), HasSubstr("!"));
}

TEST_F(LookupView, LargeHashTable)
{
    std::string text = host::show_eml_text(0, NP_EML_MAC);
    EXPECT_THAT(text, HasSubstr("   64 " + std::string(64, '.') + "\n"));
    Bytes item = {0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 0xf0};
    uint32_t location = 0;
    uint32_t number = 0;
    ASSERT_EQ(Np_Tarn_EML_ItemAdd(0, NP_EML_MAC, &location, &number, item.data()), 0u);
    text = host::show_eml_text(0, NP_EML_MAC);
    fits(text);
    const uint32_t line = number / 8 / 64 * 64;
    char expected[80];
    std::snprintf(expected, sizeof expected, "%5u %s1", line,
                  std::string(number / 8 - line, '.').c_str());
    EXPECT_THAT(text, HasSubstr(expected));
    EXPECT_THAT(text, HasSubstr("1 of 2048 items in use"));
}

// Rules of three priorities, one of them switched off, one that the chip lost.
TEST_F(LookupView, LocalCam)
{
    const auto write = [](uint32_t offset, uint8_t low) {
        const Bytes key = {low, 0, 0, 0, 0, 0, 0, 0, 0, 0};
        const Bytes mask = {0xff, 0, 0, 0, 0, 0, 0, 0, 0, 0};
        const Bytes ad = {1, 2, 3, 4, 5, 6, 7, low};
        ASSERT_EQ(
            Np_Tarn_LCAM_TcamWrite(0, NP_LCAM_L2PA, offset, key.data(), mask.data(), ad.data()),
            0u);
    };
    const auto look = [](uint8_t low) {
        const Bytes key = {low, 9, 9, 9, 9, 9, 9, 9, 9, 0xf9};
        return host::lookup_text(0, LookupKind::kLcam, NP_LCAM_L2PA, key);
    };
    ASSERT_EQ(Np_Tarn_LCAM_TcamDelete(0, NP_LCAM_L2PA, 127), 0u);  // what all packets match
    EXPECT_THAT(look(7), HasSubstr("miss in L2PA (table 1)\n"));
    write(127, 7);
    EXPECT_THAT(look(7), HasSubstr("  place   entry 127, block 0, TCAM 4, row 247\n"
                                   "  rule    127, priority 0\n"
                                   "  data    01 02 03 04 05 06 07 07\n"));
    write(5, 7);
    EXPECT_THAT(look(7), HasSubstr("  place   entry 5, block 0, TCAM 4, row 125\n"
                                   "  rule    unknown to the host\n"));
    write(126, 8);
    write(63, 9);
    ASSERT_EQ(Np_Tarn_LCAM_TcamEnableSet(0, NP_LCAM_L2PA, 126, 0), 0u);
    fits(look(7));

    std::string text = host::show_lcam_text(0, NP_LCAM_L2PA, {});
    EXPECT_THAT(text, HasSubstr("    0 .....#" + std::string(57, '.') + "#\n"));
    EXPECT_THAT(text, HasSubstr("   64 " + std::string(62, '.') + "-#\n"));
    fits(text);

    const NpPriBlockPoint blocks[] = {{50, 125, 127}, {47, 61, 63}, {3, 4, 5}};
    text = host::show_lcam_text(0, NP_LCAM_L2PA, blocks);
    EXPECT_THAT(text, HasSubstr("    0 .....2" + std::string(56, '.') + "!1\n"));
    EXPECT_THAT(text, HasSubstr("   64 " + std::string(62, '.') + "-0\n"));
    EXPECT_THAT(text, HasSubstr("       0       50  126 to 127          2\n"));
    fits(text);
}

}  // namespace

}  // namespace ldsdk::test

// Request frames, byte by byte: what the chip model makes of each command and of broken frames.

#include "tests/model_support.h"

namespace ldsdk::model_test {

namespace {

using Rba = ModelTest;

constexpr uint32_t kRow = 0x60245010;  // where the frames below point
constexpr uint32_t kUnits = 0x122808;  // its SMEM address: 08 28 12 00 on the wire

// One command on the 16 bytes at kRow. Bytes are those of the documented frame layout.
struct Case {
    const char *name;
    Frame request;
    std::array<uint32_t, 4> before;
    uint32_t status;
    std::array<uint8_t, 16> data;
    std::array<uint32_t, 4> after;
};

const std::array<uint32_t, 4> kFull = {0x03020100, 0x07060504, 0x0b0a0908, 0x0f0e0d0c};

TEST_F(Rba, PlainCommands)
{
    const Case cases[] = {
        {"read 16",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {6, 1}}),
         kFull,
         0,
         {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1},
         kFull},
        {"read 32",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {5, 1}, {6, 1}}),
         kFull,
         0,
         {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 3},
         kFull},
        {"read 64",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {5, 2}, {6, 1}}),
         kFull,
         0,
         {0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7},
         kFull},
        {"read 128",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {5, 3}, {6, 1}}),
         kFull,
         0,
         {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15},
         kFull},
        {"read 16 from the next unit",
         frame({{0, 0x09}, {1, 0x28}, {2, 0x12}, {6, 1}}),
         kFull,
         0,
         {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 3},
         kFull},
        {"read clear 64",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {4, 0x10}, {5, 2}, {6, 1}}),
         kFull,
         0,
         {0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7},
         {0, 0, 0x0b0a0908, 0x0f0e0d0c}},
        {"write 16",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {6, 3}, {25, 0xee}, {26, 0xab}, {27, 0xcd}}),
         kFull,
         0,
         {},
         {0x0302cdab, 0x07060504, 0x0b0a0908, 0x0f0e0d0c}},
        {"write 128",
         frame(
             {{0, 0x08}, {1, 0x28}, {2, 0x12}, {5, 3}, {6, 3}, {12, 1}, {16, 2}, {20, 3}, {27, 4}}),
         kFull,
         0,
         {},
         {1, 2, 3, 0x04000000}},
        {"write 64 with its flag",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {5, 6}, {6, 3}, {20, 0x11}, {27, 0x22}}),
         kFull,
         0,
         {},
         {0x11, 0x22000000, 0x0b0a0908, 0x0f0e0d0c}},
        {"set a bit",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {4, 0x50}, {6, 3}, {27, 0x8f}}),
         {0, 0, 0, 0},
         0,
         {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x80},
         {0x8000, 0, 0, 0}},
        {"clear a bit that was set",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {4, 0x50}, {6, 3}, {27, 0x0e}}),
         {0xffffffff, 1, 2, 3},
         1,
         {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xbf},
         {0xffffbfff, 1, 2, 3}},
        {"set bit with other bits in its byte",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {4, 0x50}, {6, 3}, {27, 0x9f}}),
         kFull,
         0x11,
         {},
         kFull},
        {"read outside the memory", frame({{3, 0x03}, {6, 1}}), kFull, 0x10, {}, kFull},
        {"reserved address bit",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {3, 0x04}, {6, 1}}),
         kFull,
         0x11,
         {},
         kFull},
        {"low bits of the half-word",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {4, 1}, {6, 1}}),
         kFull,
         0x11,
         {},
         kFull},
        {"byte 7",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {6, 1}, {7, 1}}),
         kFull,
         0x11,
         {},
         kFull},
        {"byte 11",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {6, 1}, {11, 1}}),
         kFull,
         0x11,
         {},
         kFull},
        {"width class of a plain form",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {6, 1}, {8, 1}}),
         kFull,
         0x11,
         {},
         kFull},
        {"access class 0", frame({{0, 0x08}, {1, 0x28}, {2, 0x12}}), kFull, 0x12, {}, kFull},
        {"access class 2",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {6, 2}}),
         kFull,
         0x12,
         {},
         kFull},
        {"operation 6",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {4, 0x60}, {6, 3}}),
         kFull,
         0x12,
         {},
         kFull},
        {"target 3",
         frame({{0, 0x08}, {1, 0x28}, {2, 0x12}, {3, 0x30}, {6, 1}}),
         kFull,
         0x12,
         {},
         kFull},
    };
    for (const Case &row : cases) {
        SCOPED_TRACE(row.name);
        for (uint32_t word = 0; word < 4; word++) {
            model::poke(0, kRow + 4 * word, row.before[word]);
        }
        const Outcome outcome = send(row.request);
        EXPECT_EQ(0u, outcome.code);
        EXPECT_EQ(row.status, outcome.status);
        EXPECT_EQ(row.data, outcome.data);
        for (uint32_t word = 0; word < 4; word++) {
            EXPECT_EQ(row.after[word], peek(kRow + 4 * word)) << "word " << word;
        }
    }
}

// Counters: width code in bits 10..8, bit 13 to subtract, limit in bytes 20..23, amount in 26..27.
TEST_F(Rba, Add)
{
    const struct {
        const char *name;
        int width;  // byte 5 of the frame
        uint32_t limit;
        uint32_t amount;
        std::array<uint32_t, 4> before;
        std::array<uint32_t, 4> after;
        uint32_t answer;  // last word of the data block
    } cases[] = {
        {"32 bits", 1, 0xffffffff, 3, {10, 9, 8, 7}, {13, 9, 8, 7}, 13},
        {"16 bits", 0, 0xffffffff, 1, {0x1234ffff, 0, 0, 0}, {0x1234ffff, 0, 0, 0}, 0xffff0000},
        {"16 bits, low half",
         0,
         0xffffffff,
         2,
         {0x12340001, 0, 0, 0},
         {0x12340003, 0, 0, 0},
         0x00030000},
        {"up to the limit", 1, 20, 15, {10, 0, 0, 0}, {20, 0, 0, 0}, 20},
        {"at the limit", 1, 20, 1, {20, 0, 0, 0}, {20, 0, 0, 0}, 20},
        {"above the limit", 1, 20, 1, {21, 0, 0, 0}, {21, 0, 0, 0}, 21},
        {"no wrap at 32 bits",
         1,
         0xffffffff,
         2,
         {0xffffffff, 5, 0, 0},
         {0xffffffff, 5, 0, 0},
         0xffffffff},
        {"64 bits carry into the first word",
         4,
         0xffffffff,
         1,
         {7, 0xffffffff, 1, 2},
         {8, 0, 1, 2},
         0},
        {"128 bits", 3, 0xffffffff, 1, {1, 2, 3, 0xffffffff}, {1, 2, 4, 0}, 0},
        {"subtract", 0x21, 0xffffffff, 4, {10, 9, 8, 7}, {6, 9, 8, 7}, 6},
        {"subtract below 0", 0x21, 0xffffffff, 0xffff, {10, 9, 8, 7}, {0, 9, 8, 7}, 0},
        {"options are ignored", 0x19, 0xffffffff, 1, {10, 0, 0, 0}, {11, 0, 0, 0}, 11},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.name);
        for (uint32_t word = 0; word < 4; word++) {
            model::poke(0, kRow + 4 * word, row.before[word]);
        }
        Frame request = plain(kUnits, 1, 3, row.width);
        for (uint32_t at = 0; at < 4; at++) {
            request[20 + at] = static_cast<uint8_t>(row.limit >> 8 * at);
        }
        request[26] = static_cast<uint8_t>(row.amount);
        request[27] = static_cast<uint8_t>(row.amount >> 8);
        const Outcome outcome = send(request);
        EXPECT_EQ(0u, outcome.status);
        EXPECT_EQ(row.answer, le32(&outcome.data[12]));
        for (uint32_t word = 0; word < 4; word++) {
            EXPECT_EQ(row.after[word], peek(kRow + 4 * word)) << "word " << word;
        }
    }
    EXPECT_EQ(0x12u, send(plain(kUnits, 1, 3, 5)).status);     // no such width
    EXPECT_EQ(0x11u, send(plain(kUnits, 1, 3, 0x41)).status);  // bit 14
    EXPECT_EQ(0x10u, send(plain(0x13, 1, 3, 1)).status);       // no memory there
}

// What is recognised by its name, for the journal and for faults.
TEST_F(Rba, NamesOfTheCommands)
{
    const struct {
        Frame request;
        const char *name;
    } rows[] = {
        {frame({{3, 0x02}, {4, 0x80}, {6, 3}}), "search"},
        {frame({{3, 0x02}, {4, 0x90}, {6, 3}}), "search_update"},
        {frame({{3, 0x02}, {4, 0xa0}, {6, 3}}), "search_build"},
        {frame({{3, 0x02}, {4, 0xb0}, {6, 3}, {8, 2}}), "search_update_build"},
        {frame({{0, 0xff}, {2, 0x80}, {3, 0x21}, {4, 0x40}, {5, 0x4a}, {6, 1}}), "ad_read"},
        {frame({{2, 0x80}, {3, 0x21}, {4, 0x40}, {6, 3}}), "ad_write"},
        {frame({{2, 0x80}, {3, 0x21}, {4, 0x10}, {6, 1}}), "tcam_read_data"},
        {frame({{2, 0x80}, {3, 0x21}, {4, 0x00}, {6, 1}}), "tcam_read_mask"},
        {frame({{2, 0x80}, {3, 0x21}, {4, 0x32}, {6, 3}}), "tcam_write_data"},
        {frame({{2, 0x80}, {3, 0x21}, {4, 0x22}, {6, 3}}), "tcam_write_mask"},
        {frame({{2, 0x80}, {3, 0x21}, {4, 0x12}, {6, 3}}), "tcam_clear_data"},
        {frame({{2, 0x80}, {3, 0x21}, {4, 0x02}, {6, 3}}), "tcam_clear_mask"},
        {frame({{2, 0x80}, {3, 0x21}, {4, 0x50}, {6, 3}}), "tcam_valid_clear"},
        {frame({{2, 0x80}, {3, 0x21}, {4, 0x60}, {6, 3}}), "tcam_valid_set"},
        {frame({{2, 0x80}, {3, 0x21}, {4, 0x70}, {6, 3}}), "unknown"},
        {plain(kUnits, 5, 3, 0), "set_bit"},
    };
    model::journal_enable(true);
    uint32_t index = 0;
    for (const auto &row : rows) {
        send(row.request);
        const model::Record *record = model::journal_record(index++);
        ASSERT_NE(nullptr, record);
        EXPECT_STREQ(row.name, model::rba_op_name(record->command));
    }
}

TEST_F(Rba, RefusesWithoutChipOrFrame)
{
    NpRbaReqCmd request = {};
    NpRbaRspCmd response = {};
    EXPECT_EQ(model::kErrNoChip, Qd_RBA_CommandSend(1, &request, &response));
    EXPECT_EQ(model::kErrNoChip, Qd_RBA_CommandSend(4, &request, &response));
    EXPECT_EQ(model::kErrNull, Qd_RBA_CommandSend(0, nullptr, &response));
    EXPECT_EQ(model::kErrNull, Qd_RBA_CommandSend(0, &request, nullptr));
}

}  // namespace

}  // namespace ldsdk::model_test

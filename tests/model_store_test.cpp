// The chip model's store: windows, search memory commands and the debug door reach the same bytes.

#include "tests/model_support.h"

#include <random>

namespace ldsdk::model_test {

namespace {

using Store = ModelTest;

constexpr uint32_t kWindow = 0x60200000;
constexpr uint32_t kWindowSize = 0x80000;

// SMEM address (16-bit units) of a chip address.
uint32_t units(uint32_t address)
{
    return address >> 1 & 0x3ffffff;
}

// Every byte of a window written as words comes back by commands of every width from every unit,
// and what commands write is what the window shows.
TEST_F(Store, WindowAndCommandsSeeTheSameBytes)
{
    const uintptr_t window = Os_IoMap(kWindow, kWindowSize);
    ASSERT_NE(0u, window);
    std::array<uint8_t, 96> bytes;
    std::mt19937 random(7);
    for (uint8_t &byte : bytes) {
        byte = static_cast<uint8_t>(random());
    }
    for (uint32_t at = 0; at < bytes.size(); at += 4) {
        Os_IoWrite32(window + 0x10000 + at, le32(&bytes[at]));
    }
    for (int length = 0; length < 4; length++) {
        const uint32_t width = 2u << length;
        for (uint32_t at = 0; at + width <= bytes.size(); at += 2) {
            const Outcome outcome = send(plain(units(kWindow + 0x10000 + at), 0, 1, length));
            ASSERT_EQ(0u, outcome.code);
            ASSERT_EQ(0u, outcome.status);
            std::array<uint8_t, 16> expected = {};
            std::copy_n(&bytes[at], width, expected.end() - width);
            ASSERT_EQ(expected, outcome.data) << "width " << width << " at " << at;
        }
    }
    for (int length = 0; length < 4; length++) {
        const uint32_t width = 2u << length;
        for (uint32_t at = 0; at + width <= bytes.size(); at += 2) {
            Frame request = plain(units(kWindow + 0x10000 + at), 0, 3, length);
            for (uint32_t byte = 0; byte < width; byte++) {
                bytes[at + byte] = static_cast<uint8_t>(random());
                request[28 - width + byte] = bytes[at + byte];
            }
            ASSERT_EQ(0u, send(request).status);
            for (uint32_t word = 0; word < bytes.size(); word += 4) {
                ASSERT_EQ(le32(&bytes[word]), Os_IoRead32(window + 0x10000 + word));
            }
        }
    }
}

// The published places of rows: which chip address a command's address word means.
TEST_F(Store, CommandAddressesMeanTheDocumentedPlaces)
{
    const struct {
        uint32_t word;     // address word of the frame
        uint32_t address;  // chip address
    } rows[] = {
        {0x00100000, 0x60200000}, {0x0013fff8, 0x6027fff0}, {0x00134000, 0x60268000},
        {0x0014d100, 0x6029a200}, {0x00171000, 0x602e2000}, {0x02000000, 0x64000000},
        {0x0202bff8, 0x64057ff0}, {0x0001c800, 0x60039000}, {0x10112000, 0x68224000},
        {0x1014d800, 0x6829b000},
    };
    for (const auto &row : rows) {
        ASSERT_EQ(0u, model::poke(0, row.address, row.address ^ 0x5aa5f00f));
        const Outcome outcome = send(plain(row.word, 0, 1, 1));
        EXPECT_EQ(0u, outcome.status) << std::hex << row.word;
        EXPECT_EQ(row.address ^ 0x5aa5f00f, le32(&outcome.data[12])) << std::hex << row.word;
    }
    for (const uint32_t word : {0x00000000u, 0x00180000u, 0x0202c000u, 0x10000000u, 0x03ffffffu}) {
        EXPECT_NE(0u, send(plain(word, 0, 1, 0)).status) << std::hex << word;
        EXPECT_NE(0u, send(plain(word, 0, 3, 0)).status) << std::hex << word;
    }
    // A row that begins inside a memory and ends outside it.
    EXPECT_NE(0u, send(plain(0x0202bffc, 0, 1, 3)).status);
}

TEST_F(Store, MapsTheWindowsOfTheChipAndNothingElse)
{
    const struct {
        uint32_t first, size;
        bool mapped;
    } rows[] = {
        {0x60200000, 0x80000, true}, {0x64000000, 0x58000, true},  {0x7a100000, 0x1a51, true},
        {0x7a130000, 0x1a51, true},  {0x64000000, 0x58004, false}, {0x7a140000, 0x10, false},
        {0x10000000, 4, false},      {0x60200000, 0, false},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(row.mapped, Os_IoMap(row.first, row.size) != 0) << std::hex << row.first;
    }
    const OsIoRow *extra = Os_IoExtraMap();
    ASSERT_NE(nullptr, extra);
    for (; extra->ulLast != 0; extra++) {
        ASSERT_NE(0u, extra->ulVirt);
        EXPECT_NE(0x68u, extra->ulFirst >> 24);
        EXPECT_NE(0x789u, extra->ulFirst >> 20);
        Os_IoWrite32(extra->ulVirt + (extra->ulLast - 3 - extra->ulFirst), extra->ulFirst);
        EXPECT_EQ(extra->ulFirst, peek(extra->ulLast - 3));
    }
    model::detach(0);
    EXPECT_EQ(nullptr, Os_IoExtraMap());
    EXPECT_EQ(0u, Os_IoMap(0x60200000, 4));
}

// A random mix of accesses against a plain array: nothing lands beside its place.
TEST_F(Store, RandomAccessesAgreeWithAnArray)
{
    constexpr uint32_t kSize = 0x4000;
    static std::array<uint8_t, kSize> mirror;
    mirror.fill(0);
    const uintptr_t window = Os_IoMap(kWindow, kWindowSize);
    std::mt19937 random(11);
    for (int step = 0; step < 200000; step++) {
        const uint32_t width = 2u << random() % 4;
        const uint32_t at = random() % ((kSize - 16) / 2) * 2;
        const auto length = static_cast<int>(__builtin_ctz(width)) - 1;
        const uint32_t address = units(kWindow + at);
        switch (random() % 5) {
            case 0: {
                Frame request = plain(address, 0, 3, length);
                for (uint32_t byte = 0; byte < width; byte++) {
                    mirror[at + byte] = request[28 - width + byte] = static_cast<uint8_t>(random());
                }
                ASSERT_EQ(0u, send(request).status);
                break;
            }
            case 1: {
                const Outcome outcome = send(plain(address, 1, 1, length));
                ASSERT_EQ(0u, outcome.status);
                ASSERT_TRUE(
                    std::equal(outcome.data.end() - width, outcome.data.end(), &mirror[at]));
                std::fill_n(&mirror[at], width, 0);
                break;
            }
            case 2: {
                const uint32_t value = random();
                Os_IoWrite32(window + (at & ~3u), value);
                for (uint32_t byte = 0; byte < 4; byte++) {
                    mirror[(at & ~3u) + byte] = static_cast<uint8_t>(value >> 8 * byte);
                }
                break;
            }
            case 3:
                ASSERT_EQ(le32(&mirror[at & ~3u]), Os_IoRead32(window + (at & ~3u)));
                break;
            default:
                if (random() % 16 == 0) {
                    const uint32_t size = random() % (kSize - at);
                    Os_IoClear(window + at, size);
                    std::fill_n(&mirror[at], size, 0);
                }
                break;
        }
    }
    for (uint32_t at = 0; at < kSize; at += 4) {
        ASSERT_EQ(le32(&mirror[at]), peek(kWindow + at));
    }
}

TEST_F(Store, MemInitClearsExactlyItsRange)
{
    const uint32_t marks[] = {0x6021fffc, 0x60200000, 0x60220000, 0x60240000,
                              0x6027fffc, 0x64000000, 0x68200000};
    const auto fill = [&] {
        for (const uint32_t mark : marks) {
            model::poke(0, mark, ~0u);
        }
    };
    fill();
    const uint32_t all[4] = {0, 0, 0x100000, 0x13ffff};
    EXPECT_EQ(0u, Qd_SMEM_MemInit(0, 0, all));
    for (const uint32_t mark : marks) {
        EXPECT_EQ(mark >> 19 == 0x60200000 >> 19 ? 0 : ~0u, peek(mark)) << std::hex << mark;
    }
    fill();
    const uint32_t quarter[4] = {0, 0, 0x100000, 0x10ffff};
    EXPECT_EQ(0u, Qd_SMEM_MemInit(0, 0, quarter));
    EXPECT_EQ(0u, peek(0x6021fffc));
    EXPECT_EQ(~0u, peek(0x60220000));

    const uint32_t wild[4] = {0, 0, 0x100000, 0x1fffff};
    EXPECT_EQ(model::kErrAddress, Qd_SMEM_MemInit(0, 0, wild));
    const uint32_t backwards[4] = {0, 0, 2, 1};
    EXPECT_EQ(model::kErrParam, Qd_SMEM_MemInit(0, 0, backwards));
    EXPECT_EQ(model::kErrParam, Qd_SMEM_MemInit(0, 2, all));
    EXPECT_EQ(model::kErrNull, Qd_SMEM_MemInit(0, 0, nullptr));
}

TEST_F(Store, SettingsAreKeptPerChipUntilThePowerCycle)
{
    ASSERT_EQ(0u, model::attach(3));
    EXPECT_EQ(0u, Qd_SMEM_QueueSet(0, 0, 15, 0x1cf80, 0x10));
    EXPECT_EQ(0u, Qd_SMEM_DdrBaseAddrSet(0, 0, 0x12345678));
    EXPECT_EQ(0u, Qd_PBA_AtomModeSet(0, 3, QD_PBA_MODE_PULL));
    EXPECT_NE(0u, Qd_SMEM_QueueSet(0, 0, 16, 0, 0));
    EXPECT_NE(0u, Qd_SMEM_DdrBaseAddrSet(0, 2, 0));
    EXPECT_NE(0u, Qd_PBA_AtomModeSet(0, 4, 0));
    EXPECT_NE(0u, Qd_PBA_AtomModeSet(0, 0, 4));
    EXPECT_EQ(model::kErrNoChip, Qd_PBA_AtomModeSet(1, 0, 0));
    ASSERT_EQ(0u, model::advance(0, 77));

    model::QueueSetting queue = {};
    uint32_t ddr = 0;
    uint32_t mode = 0;
    const auto read = [&](uint32_t chip) {
        ASSERT_EQ(0u, model::queue_get(chip, 15, &queue));
        ASSERT_EQ(0u, model::ddr_base_get(chip, 0, &ddr));
        ASSERT_EQ(0u, model::atom_mode_get(chip, 3, &mode));
    };
    read(0);
    EXPECT_TRUE(queue.set);
    EXPECT_EQ(0x1cf80u, queue.address);
    EXPECT_EQ(0x10u, queue.depth);
    EXPECT_EQ(0x12345678u, ddr);
    EXPECT_EQ(3u, mode);
    EXPECT_EQ(77u, model::clock_now(0));
    read(3);
    EXPECT_FALSE(queue.set);
    EXPECT_EQ(0u, ddr + mode);

    ASSERT_EQ(0u, model::poke(0, 0x60210000, 1));
    ASSERT_EQ(0u, model::poke(3, 0x60210000, 2));
    ASSERT_EQ(0u, model::attach(0));
    read(0);
    EXPECT_FALSE(queue.set);
    EXPECT_EQ(0u, ddr + mode + model::clock_now(0) + peek(0x60210000));
    EXPECT_EQ(2u, peek(0x60210000, 3));
}

TEST_F(Store, TheFirstChipIsBehindTheWindowsUntilAnotherIsChosen)
{
    ASSERT_EQ(0u, model::attach(2));
    EXPECT_EQ(0u, model::master());
    const uintptr_t window = Os_IoMap(kWindow, kWindowSize);
    Os_IoWrite32(window, 10);
    ASSERT_EQ(0u, model::master_set(2));
    Os_IoWrite32(window, 12);
    EXPECT_EQ(10u, peek(kWindow, 0));
    EXPECT_EQ(12u, peek(kWindow, 2));
    EXPECT_EQ(model::kErrNoChip, model::master_set(1));
    ASSERT_EQ(0u, model::detach(2));
    EXPECT_EQ(model::kChipNum, model::master());
    const uint64_t stray = model::stray_accesses();
    EXPECT_EQ(0u, Os_IoRead32(window));
    EXPECT_EQ(stray + 1, model::stray_accesses());
}

TEST_F(Store, StatusRegistersClearByOnesAndRiseBySetting)
{
    const struct {
        uint32_t status, set, bits;
    } rows[] = {
        {0x60100000, 0x60100008, 0x1f},    {0x68100000, 0x68100008, 0x1f},
        {0x70000004, 0x7000000c, 0x3ff},   {0x78100004, 0x7810000c, 0x1fff},
        {0x78200004, 0x7820000c, 0x7f},    {0x78000004, 0x7800000c, 0x7f},
        {0x78300004, 0x7830000c, 0x1ffff},
    };
    for (const auto &row : rows) {
        const uintptr_t block = Os_IoMap(row.status & ~0xfu, 16);
        ASSERT_NE(0u, block);
        const uintptr_t status = block + (row.status & 0xf);
        Os_IoWrite32(block + (row.set & 0xf), ~0u);
        EXPECT_EQ(row.bits, Os_IoRead32(status)) << std::hex << row.status;
        Os_IoWrite32(status, 5);
        EXPECT_EQ(row.bits & ~5u, Os_IoRead32(status)) << std::hex << row.status;
        ASSERT_EQ(0u, model::poke(0, row.status, 0x15));  // the debug door has no side effect
        EXPECT_EQ(0x15u, peek(row.status));
    }
}

TEST_F(Store, DebugDoorRefusesWhatIsNotThere)
{
    uint32_t value = 9;
    EXPECT_EQ(model::kErrAddress, model::peek(0, 0x50000000, &value));
    EXPECT_EQ(model::kErrAddress, model::peek(0, 0x60200002, &value));
    EXPECT_EQ(model::kErrAddress, model::poke(0, 0x64058000, 1));
    EXPECT_EQ(model::kErrNull, model::peek(0, 0x60200000, nullptr));
    EXPECT_EQ(model::kErrNoChip, model::peek(1, 0x60200000, &value));
    EXPECT_EQ(model::kErrNoChip, model::attach(4));
    EXPECT_EQ(9u, value);
}

}  // namespace

}  // namespace ldsdk::model_test

// The bus, register tables, search memory and stacks, against the chip model.
#include "tests/fixture.h"

#include "platform/driver.h"
#include "sdk/access/bus.h"
#include "sdk/access/regtable.h"
#include "sdk/access/smem.h"
#include "sdk/access/stack.h"

#include <array>
#include <cstring>
#include <random>
#include <vector>

namespace {

using ldsdk::test::ChipUp;
using Row = std::vector<uint8_t>;

class Access : public ChipUp {};

using ldsdk::test::BusTap;
using ldsdk::test::frame;
using ldsdk::test::FrameTap;

bool interrupts_balanced()
{
    OsHostIrq irq;
    Os_HostIrqGet(&irq);
    return irq.ulDepth == 0 && irq.ulUnbalanced == 0;
}

Row random_row(size_t size, std::mt19937 &random)
{
    Row row(size);
    for (uint8_t &byte : row) {
        byte = static_cast<uint8_t>(random());
    }
    return row;
}

// Every row of every table that lies in memory comes back as it was written, by either path, and
// touches no byte but its own.
TEST_F(Access, RowsKeepTheirBytesAndTheirNeighbours)
{
    std::mt19937 random(1);
    uint32_t tables = 0;
    for (const NpRegTableDesc &desc : g_astNpRegTableDesc_TarnB) {
        uintptr_t virt = 0;
        if (desc.usRecordNum == 0 || Np_DirectAddrGet(desc.ulBaseAddr, &virt) != NP_OK) {
            continue;
        }
        tables++;
        SCOPED_TRACE(desc.usTableID);
        const uint32_t last = desc.usRecordNum - 1u;
        for (const uint32_t index : {0u, last / 2, last}) {
            const uint32_t stride = desc.ulRecordWidth + desc.ulSepWidth;
            const uint32_t addr = desc.ulBaseAddr + index * stride;
            poke(addr & ~3u, static_cast<uint32_t>(random()));  // rows that share the word
            const Row before = memory(addr - 16, 16 + desc.ulRecordWidth + 16);
            for (const auto write : {Np_RegTableWrite, Np_RegTableSpecialWrite}) {
                const Row row = random_row(desc.ulRecordWidth, random);
                ASSERT_EQ(write(0, desc.usTableID, index, row.data()), NP_OK);
                Row read(desc.ulRecordWidth, 0xa5);
                ASSERT_EQ(Np_RegTableRead(0, desc.usTableID, index, read.data()), NP_OK);
                EXPECT_EQ(read, row);
                Row expected = before;
                std::copy(row.begin(), row.end(), expected.begin() + 16);
                EXPECT_EQ(memory(addr - 16, expected.size()), expected);
            }
        }
        Row row(desc.ulRecordWidth);
        EXPECT_EQ(Np_RegTableWrite(0, desc.usTableID, desc.usRecordNum, row.data()),
                  NP_ERR_ADDRESS);
        EXPECT_EQ(Np_RegTableRead(0, desc.usTableID, desc.usRecordNum, row.data()), NP_ERR_ADDRESS);
    }
    EXPECT_GE(tables, 100u);
}

// The same bytes through the window and through a search memory command, for every length.
TEST_F(Access, WindowsAndCommandsSeeOneMemory)
{
    std::mt19937 random(2);
    for (uint32_t length = NP_SMEM_LEN_16; length <= NP_SMEM_LEN_128; length++) {
        const uint32_t bytes = 2u << length;
        for (const uint32_t addr : {0x60210000u, 0x60210000u + bytes, 0x64040010u}) {
            const Row row = random_row(bytes, random);
            ASSERT_EQ(Np_Tarn_SmemWrite(0, 0, length, (addr >> 1) & NP_SMEM_ADDR_MASK, row.data()),
                      NP_OK);
            EXPECT_EQ(memory(addr, bytes), row);
            std::array<uint32_t, 4> words{};
            ASSERT_EQ(
                Np_Tarn_SmemReadClear(0, 0, length, (addr >> 1) & NP_SMEM_ADDR_MASK, words.data()),
                NP_OK);
            EXPECT_EQ(std::memcmp(words.data(), row.data(), bytes), 0);
            EXPECT_EQ(memory(addr, bytes), Row(bytes, 0));
        }
    }
}

// The requests, byte by byte, as the table of commands lays them out.
TEST_F(Access, FramesAreLaidOutAsTheChipReadsThem)
{
    FrameTap tap;
    NpSmemRsp rsp;
    const Row block = {0x10, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17,
                       0x18, 0x19, 0x1a, 0x1b, 0x1c, 0x1d, 0x1e, 0x8f};
    const NpSmemReq plain = {NP_SMEM_LEN_64, 0xfe345678};  // 26 bits stay: 0x02345678
    Np_Tarn_SMEM_ReqRead(0, 0, &plain, &rsp);
    EXPECT_EQ(tap.take(), frame({{0, {0x78, 0x56, 0x34, 0x02, 0x00, 0x02, 0x01}}}));
    Np_Tarn_SMEM_ReqReadClear(0, 0, &plain, &rsp);
    EXPECT_EQ(tap.take(), frame({{0, {0x78, 0x56, 0x34, 0x02, 0x10, 0x02, 0x01}}}));
    Np_Tarn_SMEM_ReqWrite(0, 0, &plain, block.data(), &rsp);
    EXPECT_EQ(tap.take(), frame({{0, {0x78, 0x56, 0x34, 0x02, 0x00, 0x02, 0x03}}, {12, block}}));
    Np_Tarn_SMEM_ReqSetBit(0, 0, &plain, block.data(), &rsp);
    EXPECT_EQ(tap.take(), frame({{0, {0x78, 0x56, 0x34, 0x02, 0x50, 0x00, 0x03}}, {12, block}}));
    const NpSmemAddReq add = {0x123456, 5, 1, 0, 1};  // 0x25 << 8: width 5, flags in bits 11, 13
    Np_Tarn_SMEM_ReqAdd(0, 0, &add, 0xaabbccdd, 0x99887766, &rsp);
    EXPECT_EQ(tap.take(), frame({{0, {0x56, 0x34, 0x12, 0x00, 0x10, 0x2d, 0x03}},
                                 {20, {0xdd, 0xcc, 0xbb, 0xaa}},
                                 {26, {0x66, 0x77}}}));
}

TEST_F(Access, HashPayloadIsReversedIntoGroups)
{
    struct Case {
        uint32_t payload;
        uint8_t width;
        uint32_t first_at;  // frame byte of the first payload byte
    };
    Row payload(NP_SMEM_HASH_MAX + 1);
    for (size_t i = 0; i < payload.size(); i++) {
        payload[i] = static_cast<uint8_t>(i + 1);
    }
    FrameTap tap;
    NpSmemRsp rsp;
    for (const Case &c : {Case{1, 0, 27}, Case{9, 0, 19}, Case{16, 0, 12}, Case{17, 1, 43},
                          Case{32, 1, 28}, Case{33, 2, 59}, Case{48, 2, 44}}) {
        SCOPED_TRACE(c.payload);
        const NpSmemHashReq req = {9, c.payload, 0xb, 1, 0x1234};
        ASSERT_EQ(Np_Tarn_SMEM_ReqEmlSearchUpdata(0, 0, &req, payload.data(), 0x7, &rsp), NP_OK);
        const Row sent = tap.take();
        // bits 27..24 table, 21..16 key length - 1, bit 15 update flag, 13..0 build field
        EXPECT_EQ(Row(sent.begin(), sent.begin() + 12),
                  (Row{0x34, 0x92, 0x08, 0x0b, 0x90, 0x70, 3, 0, c.width, 0, 0, 0}));
        EXPECT_EQ(sent[c.first_at], 1);
        EXPECT_EQ(sent[27], c.payload);  // the last byte goes first
        size_t filled = 0;
        for (size_t i = 12; i < sent.size(); i++) {
            filled += sent[i] != 0 ? 1 : 0;
        }
        EXPECT_EQ(filled, c.payload);
    }
    const NpSmemHashReq over = {9, NP_SMEM_HASH_MAX + 1, 0, 0, 0};
    EXPECT_EQ(Np_Tarn_SMEM_ReqEmlSearch(0, 0, &over, payload.data(), &rsp), NP_ERR_PARAM);
    EXPECT_TRUE(tap.take().empty());
}

TEST_F(Access, PlainAccessRefusesAndReports)
{
    std::array<uint32_t, 4> words{};
    const Row row(16);
    trace_errors(NP_M_COMM);
    EXPECT_EQ(Np_Tarn_SmemRead(0, 1, 4, 0, words.data()), NP_ERR_PARAM);  // the unit comes first
    EXPECT_THAT(out.take(), testing::EndsWith("param error! ulSmemID=0x00000001\r\n"));
    EXPECT_EQ(Np_Tarn_SmemWrite(0, 0, 4, 0, row.data()), NP_ERR_PARAM);
    EXPECT_THAT(out.take(), testing::EndsWith("param error! ulLength=0x00000004\r\n"));

    struct Case {
        const char *fault;
        uint32_t (*call)(uint32_t *words);
        uint32_t code;
        const char *text;
    };
    const Case cases[] = {
        {"rba nth=1 status=3", [](uint32_t *w) { return Np_Tarn_SmemRead(0, 0, 0, 0x100000, w); },
         NP_ERR_SMEM_OP, "read smem failed! ulStatus=0x00000003\r\n"},
        {"rba nth=1 status=1",
         [](uint32_t *w) { return Np_Tarn_SmemReadClear(0, 0, 0, 0x100000, w); }, NP_ERR_SMEM_OP,
         "readclear smem failed! ulStatus=0x00000001\r\n"},
        {"rba nth=1 status=2", [](uint32_t *) { return Np_Tarn_SmemClear(0, 0, 0, 0x100000); },
         NP_ERR_SMEM_OP, "write smem failed! ulStatus=0x00000002\r\n"},
        {"rba nth=1 code=0x77", [](uint32_t *w) { return Np_Tarn_SmemRead(0, 0, 0, 0x100000, w); },
         0x77, "Func error return: 0x00000077 \r\n"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.fault);
        set_fault(c.fault);
        EXPECT_EQ(c.call(words.data()), c.code);
        EXPECT_THAT(out.take(), testing::EndsWith(c.text));
    }
}

TEST_F(Access, SetBitTakesTwoStatusesAsSuccess)
{
    const NpSmemReq req = {0, 0x100000};
    const Row block(16, 0);
    NpSmemRsp rsp;
    const std::array<uint32_t, 4> codes = {NP_OK, NP_OK, NP_ERR_SMEM_OP, NP_ERR_SMEM_OP};
    for (uint32_t status = 1; status < codes.size(); status++) {
        set_fault("rba nth=1 status=" + std::to_string(status));
        EXPECT_EQ(Np_Tarn_SMEM_ReqSetBit(0, 0, &req, block.data(), &rsp), codes[status]) << status;
        EXPECT_EQ(rsp.ulStatus, status);
    }
}

TEST_F(Access, BuildIsSentEightTimesAtMost)
{
    const NpSmemHashReq req = {8, 16, 1, 0, 0};
    const Row item(16, 1);
    NpSmemRsp rsp;
    FrameTap tap;
    for (const uint32_t taken : {0u, 3u, 7u, 8u, 20u}) {
        SCOPED_TRACE(taken);
        // The semaphore is taken for so many sends; the next one would build.
        set_fault("rba nth=" + std::to_string(taken + 1) + " status=4" +
                  (taken == 0 ? "" : "; rba nth=1 count=" + std::to_string(taken) + " status=5"));
        ASSERT_EQ(Np_Tarn_SMEM_ReqEmlSearchUpdataBuild(0, 0, &req, item.data(), 0, &rsp), NP_OK);
        EXPECT_EQ(tap.take_count(), std::min(taken + 1, NP_SMEM_BUILD_SENDS));
        EXPECT_EQ(rsp.ulStatus == NP_SMEM_STATUS_SEMAPHORE, taken >= NP_SMEM_BUILD_SENDS);
        ldsdk::model::faults_clear();
    }
}

// A line is read upwards, changed, and written downwards, so that its base word completes it.
TEST_F(Access, LineWriteEndsWithTheBaseWord)
{
    const uint32_t line = 0x60210040;
    for (uint32_t i = 0; i < 4; i++) {
        poke(line + 4 * i, 0x1000 + i);
    }
    BusTap tap;
    const uint32_t value = 0xfeedbeef;
    ASSERT_EQ(Np_SMEM_ChipWrite32(0, line + 8, &value), NP_OK);
    std::vector<BusTap::Access> expected;
    for (uint32_t i = 0; i < 4; i++) {
        expected.push_back({'r', line + 4 * i, 0x1000 + i});
    }
    for (const uint32_t i : {3u, 2u, 1u, 0u}) {
        expected.push_back({'w', line + 4 * i, i == 2 ? value : 0x1000 + i});
    }
    EXPECT_EQ(tap.take(), expected);
    uint32_t read = 0;
    Np_SMEM_ChipRead32(0, line + 8, &read);
    EXPECT_EQ(read, value);
    EXPECT_EQ(tap.take(),
              (std::vector<BusTap::Access>{{'r', line, 0x1000}, {'r', line + 8, value}}));
    EXPECT_TRUE(interrupts_balanced());
}

TEST_F(Access, UnmappedAddressesAreLeftAlone)
{
    BusTap tap;
    for (const uint32_t addr :
         {0u, 0x601fffffu, 0x60280000u, 0x64058000u, 0x7a101a54u, 0x78900324u, 0x68100000u}) {
        uint32_t value = 0x5a5a5a5a;
        EXPECT_EQ(Np_Read(0, addr, &value), NP_OK);
        EXPECT_EQ(value, 0x5a5a5a5au);
        EXPECT_EQ(Np_Write(0, addr, &value), NP_OK);
        uintptr_t virt = 1;
        EXPECT_EQ(Np_DirectAddrGet(addr, &virt), NP_ERR_FAIL) << std::hex << addr;
    }
    EXPECT_TRUE(tap.take().empty());

    // A line that the end of a window cuts: only its first word is there.
    const uint32_t value = 7;
    uint32_t read = 0x5a5a5a5a;
    Np_SMEM_ChipWrite32(0, 0x7a101a54, &value);
    Np_SMEM_ChipRead32(0, 0x7a101a54, &read);
    EXPECT_EQ(tap.take(), (std::vector<BusTap::Access>{
                              {'r', 0x7a101a50, 0}, {'w', 0x7a101a50, 0}, {'r', 0x7a101a50, 0}}));
    EXPECT_EQ(read, 0u);  // the latched word's
}

TEST_F(Access, SlaveGoesOverTheIndirectBus)
{
    for (const uint32_t shift : {0u, 1u, 5u}) {
        SCOPED_TRACE(shift);
        ASSERT_EQ(ldsdk::model::attach(1), ldsdk::model::kOk);
        ASSERT_EQ(Np_GLB_ChipRegister(1, 1, 0, ldsdk::model::slave_base(1)), NP_OK);
        ASSERT_EQ(Np_GLB_LocalBusShiftSet(1, shift), NP_OK);
        EXPECT_EQ(Np_MasterChipGet(1), NP_ERR_FAIL);
        uint32_t value = 0xcafe1234;
        ASSERT_EQ(Np_Write(1, 0x60212344, &value), NP_OK);
        EXPECT_EQ(peek(0x60212344, 1), value);
        EXPECT_EQ(peek(0x60212344, 0), 0u);
        value = 0;
        ASSERT_EQ(Np_Read(1, 0x60212344, &value), NP_OK);
        EXPECT_EQ(value, 0xcafe1234u);
        ASSERT_EQ(Np_SMEM_ChipWrite32(1, 0x60212348, &value), NP_OK);
        ASSERT_EQ(Np_SMEM_ChipRead32(1, 0x60212344, &value), NP_OK);
        EXPECT_EQ(value, 0xcafe1234u);
        EXPECT_EQ(peek(0x60212348, 1), 0xcafe1234u);
        EXPECT_EQ(peek(0x60212348, 0), 0u);
        set_fault("bus busy");
        EXPECT_EQ(Np_Read(1, 0x60212344, &value), NP_ERR_FAIL);
        EXPECT_EQ(Np_Write(1, 0x60212344, &value), NP_ERR_FAIL);
        EXPECT_TRUE(interrupts_balanced());
        ldsdk::model::faults_clear();
    }
    Np_GLB_LocalBusShiftSet(1, 0);
    uint32_t shift = 0;
    EXPECT_EQ(Np_GLB_LocalBusShiftGet(4, &shift), NP_ERR_CHIP_ID);
    EXPECT_EQ(Np_GLB_LocalBusShiftGet(0, nullptr), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_GLB_LocalBusShiftSet(4, 1), NP_ERR_CHIP_ID);
}

TEST_F(Access, SlaveHooksKeepTheBusQuiet)
{
    static uint32_t written;
    ASSERT_EQ(ldsdk::model::attach(1), ldsdk::model::kOk);
    ASSERT_EQ(Np_GLB_ChipRegister(1, 1, 0, ldsdk::model::slave_base(1)), NP_OK);
    EXPECT_EQ(Np_GLB_SlaveAddrHookRegister(1, nullptr, nullptr), NP_ERR_NULL_PTR);
    const auto read_hook = [](uint32_t addr, uint32_t *value) {
        *value = addr + 1;
        return 0x11u;
    };
    const auto write_hook = [](uint32_t addr, uint32_t value) {
        written = addr ^ value;
        return 0x12u;
    };
    ASSERT_EQ(Np_GLB_SlaveAddrHookRegister(1, read_hook, nullptr), NP_ERR_NULL_PTR);
    EXPECT_NE(g_pFnNpSlaveAddrRead[1], nullptr);  // stored before the other was looked at
    ASSERT_EQ(Np_GLB_SlaveAddrHookRegister(1, read_hook, write_hook), NP_OK);
    set_fault("bus busy");
    uint32_t value = 5;
    EXPECT_EQ(Np_Write(1, 0x1000, &value), 0x12u);
    EXPECT_EQ(written, 0x1000u ^ 5u);
    EXPECT_EQ(Np_Read(1, 0x1000, &value), 0x11u);
    EXPECT_EQ(value, 0x1001u);
}

TEST_F(Access, RegisterTableEdges)
{
    uint32_t addr = 0;
    EXPECT_EQ(Np_RegTableRealAddrGet(0, 43, 2, &addr), NP_OK);
    EXPECT_EQ(addr, 0x60222b0au);  // width 2 and gap 2
    EXPECT_EQ(Np_RegTableRealAddrGet(0, 1, 0, nullptr), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_RegTableRealAddrGet(4, 1, 0, &addr), NP_ERR_CHIP_ID);
    EXPECT_EQ(Np_RegTableRealAddrGet(3, 1, 0, &addr), NP_ERR_CHIP_ID);
    EXPECT_EQ(Np_RegTableRealAddrGet(0, 37, 0, &addr), NP_ERR_ADDRESS);  // no rows
    EXPECT_EQ(Np_RegTableWrite(0, 1, 0, nullptr), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_RegTableSpecialWrite(0, 1, 0, nullptr), NP_ERR_NULL_PTR);
    const std::array<uint32_t, 4> words = {1, 2, 3, 4};
    EXPECT_EQ(Np_RegTableSpecialWrite(0, 1, 0, words.data()), NP_OK);
    EXPECT_EQ(peek(0x6022220c), 4u);
    EXPECT_EQ(Np_RegTable32WriteEx(0, 1, 0, 0x77), NP_OK);
    EXPECT_EQ(peek(0x60222200), 0x77u);
    EXPECT_EQ(peek(0x60222204), 2u);
    EXPECT_EQ(Np_RegTable32WriteEx(0, 0x60222204, 0, 0x88), NP_OK);
    uint32_t value = 0;
    EXPECT_EQ(Np_RegTable32ReadEx(0, 0x60222204, 0, &value), NP_OK);
    EXPECT_EQ(value, 0x88u);
    EXPECT_EQ(Np_RegTable32WriteEx(0, 143, 5, 0x177), NP_OK);  // a row of one byte
    EXPECT_EQ(Np_RegTable32ReadEx(0, 143, 5, &value), NP_OK);
    EXPECT_EQ(value, 0x77u);
    EXPECT_EQ(Np_RegTable32ReadEx(0, 1, 1, &value), NP_ERR_ADDRESS);
    EXPECT_EQ(Np_RegTableReadEx(0, 1, 1), NP_ERR_ADDRESS);
    EXPECT_EQ(Np_RegTableReadEx(0, 0x60222204, 1000), NP_OK);
    EXPECT_EQ(Np_RegTableRecordNumberGet(0, 59), 128u);
    EXPECT_EQ(Np_RegTableRecordWidthGet(0, 59), 16u);
    EXPECT_EQ(Np_RegTableRecordSepWidthGet(0, 59), 16u);
    EXPECT_EQ(Np_RegTableRecordRbaRwGet(0, 59), 1u);
    EXPECT_EQ(Np_RegTableRecordAccessWidthGet(0, 59), 2u);
    EXPECT_EQ(Np_RegTableRecordGroupNumberGet(0, 59), 0u);
    EXPECT_EQ(Np_RegTableRecordNumberGet(4, 59), NP_ERR_CHIP_ID);
}

// Access kinds that no table of the family has, through a chip record of the test's own.
TEST_F(Access, UnitPerRegisterTables)
{
    const std::array<NpRegTableDesc, 4> descs = {{{0, 4, 0x60210000, 3, 0, 0, 0, 0, 0, 0},
                                                  {1, 4, 0x60210100, 5, 0, 1, 0, 0, 0, 0},
                                                  {2, 2, 0x60210200, 4, 0, 2, 1, 1, 0, 0},
                                                  {3, 2, 0x60210200, 4, 0, 7, 0, 0, 0, 0}}};
    const std::array<NpRegGroupDesc, 2> groups = {{{0, 9}, {0, 1}}};
    const std::array<uint32_t, 4> offsets = {0xbad, 0, 0x40, 0x80};
    NpChipAddr chip;
    ASSERT_EQ(Np_Chip_AddrGet(0, &chip), NP_OK);
    chip.pstRegTable = descs.data();
    chip.pstRegGroupTable = groups.data();
    chip.pulRegGroupOffset = offsets.data();
    ASSERT_EQ(Np_Chip_AddrSet(0, &chip), NP_OK);

    const Row bytes = {0x11, 0x22, 0x33, 0x44, 0x55, 0x66};
    Row read(6);
    ASSERT_EQ(Np_RegTableWrite(0, 0, 1, bytes.data()), NP_OK);
    EXPECT_EQ(peek(0x6021000c), 0x11u);  // one byte in each register, rows 3 registers apart
    EXPECT_EQ(peek(0x60210014), 0x33u);
    ASSERT_EQ(Np_RegTableRead(0, 0, 1, read.data()), NP_OK);
    EXPECT_EQ(Row(read.begin(), read.begin() + 3), Row(bytes.begin(), bytes.begin() + 3));
    ASSERT_EQ(Np_RegTableWrite(0, 1, 0, bytes.data()), NP_OK);  // odd width: one unit more
    EXPECT_EQ(peek(0x60210100), 0x2211u);
    EXPECT_EQ(peek(0x60210108), 0x6655u);
    uint32_t addr = 0;
    EXPECT_EQ(Np_RegTableRealAddrGet(0, 1, 2, &addr), NP_OK);
    EXPECT_EQ(addr, 0x60210100u + 2 * 5 * 2);
    EXPECT_EQ(Np_RegTableRealAddrGet(0, 2, 5, &addr), NP_OK);  // group 2, row 1 of it
    EXPECT_EQ(addr, 0x60210200u + 0x80 + 4);
    EXPECT_EQ(Np_RegTableRealAddrGet(0, 3, 0, &addr), NP_ERR_ADDRESS);
}

TEST_F(Access, StacksHandOutAndTakeBack)
{
    uint32_t number = 0;
    for (uint32_t want = 1; want <= 2000; want++) {
        ASSERT_EQ(Np_Tarn_Pop(0, NP_STACK_MCC, &number), NP_OK);
        ASSERT_EQ(number, want);
    }
    EXPECT_EQ(Np_Tarn_Pop(0, NP_STACK_MCC, &number), NP_ERR_STACK_EMPTY);
    EXPECT_EQ(Np_Tarn_Push(0, NP_STACK_MCC, 0), NP_ERR_PARAM);
    EXPECT_EQ(Np_Tarn_Push(0, NP_STACK_MCC, 2001), NP_ERR_PARAM);
    EXPECT_EQ(Np_Tarn_Push(0, NP_STACK_MCC, 2000), NP_OK);
    EXPECT_EQ(Np_Tarn_Push(0, NP_STACK_MCC, 2000), NP_ERR_EXIST);
    EXPECT_EQ(Np_Tarn_Push(0, NP_STACK_FLEE, 99), NP_ERR_STACK_FULL);  // full comes first
    EXPECT_EQ(Np_Tarn_Pop(0, NP_STACK_FLEE_LM, &number), NP_ERR_STACK_EMPTY);
    EXPECT_EQ(Np_Tarn_Push(0, NP_STACK_FLEE_LM, 0), NP_ERR_STACK_FULL);
    EXPECT_EQ(Np_Tarn_Pop(0, NP_STACK_FLEE_GMT, &number), NP_OK);
    EXPECT_EQ(number, 32u);
    EXPECT_EQ(Np_Tarn_Pop(0, 4, &number), NP_ERR_PARAM);
    EXPECT_EQ(Np_Tarn_Pop(0, 0, nullptr), NP_ERR_NULL_PTR);
    Np_Tarn_Stack_Destruct(0);
    EXPECT_EQ(Np_Tarn_Pop(0, 0, nullptr), NP_ERR_STACK_NO_INIT);  // before the null pointer
    EXPECT_EQ(Np_Tarn_Push(0, 0, 1), NP_ERR_STACK_NO_INIT);
}

}  // namespace

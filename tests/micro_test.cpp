// Loading microcode, replacing it in service, instruction groups and their check, and the engines
// of the chip model that run it.
#include "chipmodel/atom.h"
#include "host/asm_instruction.h"
#include "host/assembler.h"
#include "host/image.h"
#include "sdk/access/bus.h"
#include "sdk/frame/base/service.h"
#include "sdk/micro/group.h"
#include "sdk/micro/load.h"
#include "tests/guarded_memory.h"
#include "tests/shell.h"

#include <array>
#include <cstring>
#include <fstream>
#include <random>

namespace {

using namespace ldsdk;
using test::ChipUp;
using test::GuardedMemory;
using test::Shell;
using testing::ElementsAre;
using testing::HasSubstr;
using Group = std::array<uint32_t, NP_GROUP_WORDS>;
using Bytes = std::vector<uint8_t>;

// ---- groups -------------------------------------------------------------------------------------

Group group_of(const std::array<uint64_t, 4> &instructions)
{
    const auto &[a, b, c, d] = instructions;
    return {static_cast<uint32_t>(a >> 16),
            static_cast<uint32_t>(a << 16 | b >> 32),
            static_cast<uint32_t>(b),
            static_cast<uint32_t>(c >> 16),
            static_cast<uint32_t>(c << 16 | d >> 32),
            static_cast<uint32_t>(d),
            0,
            0};
}

// The word that the chip itself expects.
uint32_t chip_ecc(const Group &group)
{
    uint8_t bytes[32];
    for (size_t i = 0; i < group.size(); i++) {
        model::store_le32(bytes + 4 * i, group[i]);
    }
    return model::group_ecc(bytes);
}

constexpr uint64_t kNop = 0xca003df90000;
constexpr uint64_t kRnop = 0xfc0000000000;
constexpr uint64_t kMask = 0xffffffffffff;

TEST(InstructionGroups, KnownEccWords)
{
    const struct {
        Group group;
        uint32_t ecc;
    } rows[] = {
        {group_of({kNop, kNop, kNop, kNop}), 0x7af40000},
        {group_of({kRnop, kRnop, kRnop, kRnop}), 0x36740000},
        {{0xca0003b9, 0x0000c800, 0x2381078f, 0x42000001, 0x0004fc00, 0, 0, 0}, 0x7c9c0000},
        {{}, 0},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(Np_Micro_GroupEccGet(row.group.data()), row.ecc);
        EXPECT_EQ(chip_ecc(row.group), row.ecc);
    }
    EXPECT_TRUE(std::equal(
        std::begin(g_aulNopCmdGroup), std::end(g_aulNopCmdGroup),
        Group{0xca003df9, 0x0000ca00, 0x3df90000, 0xca003df9, 0x0000ca00, 0x3df90000, 0x7af40000, 0}
            .begin()));
    EXPECT_EQ(Np_Micro_GroupEccGet(g_aulRnopCmdGroup), 0x36740000u);
    EXPECT_EQ(g_ulNopOpcodeH32, kNop >> 16);
    EXPECT_EQ(g_ulRnopOpcodeH32, kRnop >> 16);
    EXPECT_EQ(g_ulJmpOpcodeH32, host::assemble_instruction("JMP (CC0 = TRUE) 0") >> 16);
}

TEST(InstructionGroups, EveryBitCountsAndTheChipAgrees)
{
    std::mt19937_64 random(1);
    for (int round = 0; round < 200; round++) {
        Group group =
            group_of({random() & kMask, random() & kMask, random() & kMask, random() & kMask});
        const uint32_t ecc = Np_Micro_GroupEccGet(group.data());
        ASSERT_EQ(ecc, chip_ecc(group));
        ASSERT_EQ(ecc & 0x3ffff, 0u);
        for (uint32_t bit = 0; bit < 192; bit++) {
            group[bit / 32] ^= 1u << bit % 32;
            const uint32_t other = Np_Micro_GroupEccGet(group.data());
            ASSERT_NE(other, ecc) << bit;
            ASSERT_EQ(other, chip_ecc(group)) << bit;
            group[bit / 32] ^= 1u << bit % 32;
        }
    }
}

TEST(InstructionGroups, ByteOrders)
{
    const std::array<uint64_t, 4> instructions = {0x010203040506, 0x111213141516, 0x212223242526,
                                                  0x313233343536};
    const Group group = group_of(instructions);
    EXPECT_THAT(group, ElementsAre(0x01020304, 0x05061112, 0x13141516, 0x21222324, 0x25263132,
                                   0x33343536, 0, 0));
    uint8_t low[24], high[24];
    EXPECT_EQ(Np_Tarn_InstructionsToUcharArray(group.data(), low), NP_OK);
    EXPECT_EQ(Np_Tarn_InstructionsToUcharArrayHigh(group.data(), high), NP_OK);
    for (uint32_t i = 0; i < 24; i++) {
        EXPECT_EQ(low[i], 0x10 * (i / 6) + 6 - i % 6);
        EXPECT_EQ(high[i], 0x10 * (i / 6) + 1 + i % 6);
    }
    Group back = {9, 9, 9, 9, 9, 9, 7, 8};
    EXPECT_EQ(Np_Tarn_UcharArrayToInstructions(back.data(), low), NP_OK);
    EXPECT_TRUE(std::equal(back.begin(), back.begin() + 6, group.begin()));
    EXPECT_EQ(back[6], 7u);
    for (const uint32_t slot : {3u, 2u, 0u, 1u}) {  // either one of a pair first
        EXPECT_EQ(Np_Micro_GroupInstrGet(group.data(), slot), instructions[slot]);
        Np_Micro_GroupInstrSet(back.data(), slot, kMask - instructions[slot]);
    }
    EXPECT_EQ(back, [&] {
        Group inverse = group;
        for (uint32_t i = 0; i < 6; i++) {
            inverse[i] = ~group[i];
        }
        inverse[6] = 7;
        inverse[7] = 8;
        return inverse;
    }());
    uint8_t code1[9] = {1, 0, 0, 0, 0, 0, 0, 0, 0xff}, code2[5] = {0xfe, 0, 0, 0, 3};
    uint32_t ecc = 1;
    EXPECT_EQ(Np_Tarn_UcharArrayToUlong(&ecc, code1, code2), NP_OK);
    EXPECT_EQ(ecc, 0x80000000 | 1u << 23 | 1u << 22 | 1);
    EXPECT_EQ(Np_Tarn_GetEccOfChar(0xff, 0x07), 1u);
    EXPECT_EQ(Np_Tarn_GetEccOfChar(0xf5, 0x0f), 0u);
    const uint8_t masks[9][24] = {};
    for (const int null : {0, 1, 2}) {
        EXPECT_EQ(Np_Tarn_GetEcc(null == 0 ? nullptr : low, null == 1 ? nullptr : code1,
                                 null == 2 ? nullptr : code2, masks, code2),
                  NP_ERR_NULL_PTR);
    }
}

// ---- images -------------------------------------------------------------------------------------

struct Section {
    uint32_t code;
    std::vector<uint32_t> words;
};

void put(Bytes &bytes, uint32_t word)
{
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes.push_back(static_cast<uint8_t>(word >> shift));
    }
}

const std::string kTrailer =
    "V1.0B0122015"
    "0807"
    "user defined txt";

Bytes build_image(const std::vector<Section> &sections)
{
    Bytes table, body;
    const size_t head = 12 * (sections.size() + 1);
    for (const Section &section : sections) {
        put(table, section.code);
        put(table, static_cast<uint32_t>(head + body.size()));
        put(table, static_cast<uint32_t>(4 * section.words.size()));
        for (const uint32_t word : section.words) {
            put(body, word);
        }
    }
    table.resize(head);
    table.insert(table.end(), body.begin(), body.end());
    table.insert(table.end(), kTrailer.begin(), kTrailer.end());
    return table;
}

const std::vector<uint32_t> kConfig = {90, 5, 0x1fff, 0x77, 94, 95, 96, 97, 11, 22, 98, 99};

std::vector<uint32_t> code_words(const std::vector<const char *> &lines)
{
    std::vector<uint32_t> words;
    for (size_t at = 0; at < lines.size(); at += 4) {
        std::array<uint64_t, 4> instructions = {kNop, kNop, kNop, kNop};
        for (size_t i = 0; i < 4 && at + i < lines.size(); i++) {
            instructions[i] = host::assemble_instruction(lines[at + i]);
        }
        Group group = group_of(instructions);
        group[6] = Np_Micro_GroupEccGet(group.data());
        words.insert(words.end(), group.begin(), group.end());
    }
    return words;
}

std::vector<Section> usual_sections()
{
    return {{1, code_words({"NOP", "RNOP"})}, {2, kConfig}, {4, {1, 2, 3}}, {6, {4, 5}}};
}

std::vector<std::pair<uint32_t, uint32_t>> g_records;

void record_error(uint32_t code, uint32_t info)
{
    g_records.emplace_back(code, info);
}

class MicroLoad : public ChipUp {
  protected:
    MicroLoad()
    {
        trace_errors(NP_M_ATOM);
        g_records.clear();
        Np_Glb_RecordErrInfoHook(0, record_error);
        Np_GLB_ClearWatchDogHook([] { g_feeds++; });
        g_feeds = 0;
        out.take();
    }

    uint32_t load(const Bytes &image)
    {
        GuardedMemory memory(image.size());
        const NpMicroLoad request = memory.place(image, true);
        const uint32_t status = Np_Micro_Load(0, &request);
        after_ = memory.bytes(image.size());
        return status;
    }
    uint32_t online(uint32_t bitmap, const Bytes &image)
    {
        GuardedMemory memory(image.size());
        const NpMicroLoad request = memory.place(image, true);
        return Np_Micro_OnlineLoad(0, bitmap, &request);
    }
    // The driver's functions that work() called, with their numbers.
    template <typename Work>
    std::vector<std::string> calls(Work work)
    {
        model::journal_clear();
        model::journal_enable(true);
        work();
        model::journal_enable(false);
        std::vector<std::string> list;
        for (uint32_t i = 0; i < model::journal_count(); i++) {
            const model::Record &record = *model::journal_record(i);
            if (record.kind != model::RecordKind::kCall) {
                continue;
            }
            const model::OpInfo &info = model::op_info(record.op);
            std::string call = std::string(info.name).substr(3);
            for (uint32_t n = 0; n < info.numbers; n++) {
                call += " " + std::to_string(model::load_le32(record.data + 4 * n));
            }
            list.push_back(call);
        }
        return list;
    }
    static model::ThreadView thread(uint32_t npu, uint32_t number)
    {
        model::ThreadView view = {};
        EXPECT_EQ(model::thread_get(0, 0, npu, number, &view), model::kOk);
        return view;
    }
    static std::string code(uint32_t value)
    {
        char text[16];
        std::snprintf(text, sizeof(text), "0x%08x", value);
        return text;
    }

    static uint32_t g_feeds;
    Bytes after_;  // the image's memory after a load
};
uint32_t MicroLoad::g_feeds = 0;

TEST_F(MicroLoad, SectionsGoToTheirPlacesInOrder)
{
    const Bytes image = build_image(usual_sections());
    std::vector<std::string> expected = {"IMEM_InsMemLoad 0 32", "ATOM_MaxPCSet 0 8191",
                                         "ATOM_ExceptionPcSet 0 119"};
    for (int npu = 0; npu < 4; npu++) {
        for (int number = 0; number < 10; number++) {
            expected.push_back("ATOM_ThreadNextPCSet 0 " + std::to_string(npu) + " " +
                               std::to_string(number) + " 5");
        }
    }
    expected.insert(expected.end(),
                    {"LCAM_ProtectDepthSet 11 22", "LCAM_RcamWrite 0 12", "LCAM_RcamWrite 1 8"});
    EXPECT_EQ(calls([&] { EXPECT_EQ(load(image), NP_OK); }), expected);
    EXPECT_EQ(out.take(), "");
    // What arrived.
    const std::vector<uint32_t> code = code_words({"NOP", "RNOP"});
    for (uint32_t i = 0; i < code.size(); i++) {
        EXPECT_EQ(peek(0x7a080000 + 4 * i), code[i]);
    }
    model::BranchView branch = {};
    EXPECT_EQ(model::branch_get(0, &branch), model::kOk);
    EXPECT_EQ(branch.protect[1], 22u);
    uint32_t word = 0;
    EXPECT_EQ(model::branch_word_get(0, 0, 2, &word), model::kOk);
    EXPECT_EQ(word, 3u);
    EXPECT_EQ(model::branch_word_get(0, 1, 1, &word), model::kOk);
    EXPECT_EQ(word, 5u);
    EXPECT_EQ(thread(3, 9).start_pc, 5u);
    model::EccErrors ecc = {};
    EXPECT_EQ(model::ecc_errors_get(0, &ecc), model::kOk);
    EXPECT_EQ(ecc.count, 0u);
    EXPECT_EQ(std::memcmp(&g_stNpMicroConfig[0], kConfig.data(), 40), 0);
    // The image stands there in native order; the version was taken from the bytes before.
    for (size_t at = 0; at < image.size(); at += 4) {
        uint32_t native = 0;
        std::memcpy(&native, after_.data() + at, 4);
        EXPECT_EQ(native, static_cast<uint32_t>(image[at] << 24 | image[at + 1] << 16 |
                                                image[at + 2] << 8 | image[at + 3]));
    }
    char version[33] = {};
    EXPECT_EQ(Np_MicroVersion_Get(0, version), NP_OK);
    EXPECT_EQ(version, kTrailer);
    EXPECT_STREQ(g_stNpMicroVersion[0].szVerLow, "B012");
    EXPECT_STREQ(g_stNpMicroVersion[0].szDay, "07");
}

// Damaged images are refused, and nothing beside them is touched: the pages around are not there.
TEST_F(MicroLoad, DamagedImagesAreRefused)
{
    const auto refused = [&](const Bytes &image, const char *what) {
        for (const bool at_end : {true, false}) {
            GuardedMemory memory(image.size());
            const NpMicroLoad request = memory.place(image, at_end);
            EXPECT_EQ(Np_Micro_Load(0, &request), NP_ERR_NOT_EXIST) << what;
        }
    };
    const Bytes whole = build_image(usual_sections());
    for (size_t size = 0; size < whole.size(); size++) {
        Bytes cut(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size));
        // What is cut at the end takes the last section with it as soon as the trailer is gone.
        if (size + 32 < whole.size()) {
            refused(cut, "short");
        }
        else {
            load(cut);
        }
    }
    EXPECT_NE(g_stNpMicroVersion[0].ulValid, 0u);
    load(Bytes(31, 0));
    EXPECT_EQ(g_stNpMicroVersion[0].ulValid, 0u) << "31 bytes have no trailer";

    Bytes endless(12 * 20, 0);
    for (size_t at = 3; at < endless.size(); at += 12) {
        endless[at] = 9;
    }
    refused(endless, "table without end");
    endless.resize(12 * 3 + 4);
    refused(endless, "table without end, cut");

    for (const size_t section : {0, 1, 2, 3}) {
        for (const auto &[field, byte] : {std::pair(4, 0x80), {4, 0x7f}, {8, 0xff}, {8, 0x01}}) {
            Bytes moved = whole;
            moved[12 * section + static_cast<size_t>(field)] = static_cast<uint8_t>(byte);
            refused(moved, "section past the end");
        }
    }
    std::vector<Section> sections = usual_sections();
    sections[1].words.resize(9);
    refused(build_image(sections), "configuration too short");
    sections = usual_sections();
    sections.insert(sections.begin(), {0, {}});
    trace_errors(NP_M_ATOM);
    out.take();
    refused(build_image(sections), "empty table");
    EXPECT_THAT(out.take(),
                HasSubstr("\r\n error, desc code not exit, find out invalid section type"));
    EXPECT_EQ(g_stNpMicroVersion[0].ulValid, 1u) << "the version comes before the load";
}

TEST_F(MicroLoad, FifteenEntriesOfTheTableCount)
{
    for (const size_t place : {0u, 13u, 14u, 15u, 16u, 17u}) {
        std::vector<Section> sections(place, {3, {}});
        sections.push_back({1, code_words({"NOP"})});
        const Bytes image = build_image(sections);
        GuardedMemory memory(image.size());
        const NpMicroLoad request = memory.place(image, true);
        Np_Micro_Load(0, &request);
        uint32_t address = 0, length = 0;
        Np_PrintLevelSet(NP_M_ATOM, NP_PRINT_TRACE, 1);
        out.take();
        const bool found = place < 15;
        EXPECT_EQ(Np_Tarn_LOAD_FileInfoGet(0, 1, &address, &length),
                  found ? NP_OK : NP_ERR_NOT_EXIST)
            << place;
        if (found) {
            EXPECT_EQ(address, request.ulAddress + 12 * (place + 2));
            EXPECT_EQ(length, 32u);
        }
        else {
            EXPECT_THAT(out.take(), HasSubstr("\r\n error, desc code not exit, "
                                              "ulBinDescCode = 0x00000001 "));
        }
    }
    uint32_t value = 0;
    EXPECT_EQ(Np_Tarn_LOAD_FileInfoGet(0, 1, nullptr, &value), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_Tarn_LOAD_FileInfoGet(0, 1, &value, nullptr), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_Tarn_LOAD_AddrConfigGet(0, nullptr, &value), NP_ERR_NULL_PTR);
}

TEST_F(MicroLoad, OddLengthsLeaveTheLastBytesAsTheyAre)
{
    Bytes image = build_image(usual_sections());
    image.insert(image.end() - 32, {0xa1, 0xa2, 0xa3});
    EXPECT_EQ(load(image), NP_OK);
    EXPECT_EQ(Bytes(after_.end() - 3, after_.end()), Bytes(image.end() - 3, image.end()));
    // From an address that is no multiple of 4 too.
    GuardedMemory memory(image.size() + 1);
    image.push_back(0);
    NpMicroLoad request = memory.place(image, true);
    EXPECT_EQ(Np_Micro_Load(0, &request), NP_OK);
}

TEST_F(MicroLoad, FreeThreadCountRegisters)
{
    // On the slave bus every register can be reached.
    model::attach(1);
    EXPECT_EQ(Np_GLB_ChipRegister(1, 1, 0, model::slave_base(1)), NP_OK);
    EXPECT_EQ(Np_LOAD_PbaFreeThCntSet(1, 0x7f), NP_OK);
    for (const uint32_t reg : {0x78100160u, 0x78100164u, 0x78100168u, 0x7810016cu}) {
        EXPECT_EQ(peek(reg, 1), 63u);
    }
    poke(0x78100020, 0xc1428300, 1);
    EXPECT_EQ(Np_Tarn_LOAD_PbaFreeThCntSet(1, 0x45), NP_OK);
    EXPECT_EQ(peek(0x78100020, 1), 0xc5458505u);
    set_fault("bus busy");
    EXPECT_EQ(Np_LOAD_PbaFreeThCntSet(1, 0), NP_ERR_FAIL);
}

// ---- online load --------------------------------------------------------------------------------

// A task of some hundred instructions, so that it takes its time.
Bytes busy_image()
{
    std::vector<const char *> lines = {"PULLNEW 0"};
    lines.resize(2000, "ADD R1W = R1W, 0x1");
    lines.push_back("ENDTASK 0, 0");
    std::vector<Section> sections = usual_sections();
    sections[0].words = code_words(lines);
    sections[1].words[1] = 0;
    return build_image(sections);
}

TEST_F(MicroLoad, OnlineLoadWaitsForTheThreads)
{
    EXPECT_EQ(load(busy_image()), NP_OK);
    EXPECT_EQ(model::atom_feed_set(0, 0, true), model::kOk);
    EXPECT_EQ(model::advance(0, 1), model::kOk);
    EXPECT_EQ(thread(2, 3).state, model::ThreadState::kRun);
    const std::vector<std::string> made =
        calls([&] { EXPECT_EQ(online(1, build_image(usual_sections())), NP_OK); });
    EXPECT_EQ(made.front(), "PBA_AtomModeSet 0 1");
    EXPECT_EQ(made.back(), "PBA_AtomModeSet 0 0");
    const auto count = [&](const char *name) {
        return std::ranges::count_if(
            made, [&](const std::string &call) { return call.starts_with(name); });
    };
    EXPECT_GT(count("ATOM_ThreadStateGet"), 10 * 40);
    EXPECT_EQ(count("ATOM_ThreadStateGet"), 40 * g_feeds) << "the watchdog is fed on each pass";
    EXPECT_EQ(count("ATOM_ThreadActive"), 80);
    // Awake, load, awake.
    const auto at = [&](const char *name) {
        return std::ranges::find_if(
                   made, [&](const std::string &call) { return call.starts_with(name); }) -
               made.begin();
    };
    EXPECT_EQ(at("IMEM_InsMemLoad"), at("ATOM_ThreadActive") + 40);
    EXPECT_EQ(thread(0, 0).start_pc, 5u);
    OsHostIrq irq = {};
    Os_HostIrqGet(&irq);
    EXPECT_EQ(irq.ulDepth, 0u);
    EXPECT_EQ(irq.ulAsleep, 0u);
    EXPECT_EQ(irq.ulUnbalanced, 0u);
}

TEST_F(MicroLoad, OnlineLoadGivesUpOnAThreadThatNeverEnds)
{
    EXPECT_EQ(load(busy_image()), NP_OK);
    EXPECT_EQ(model::thread_stuck_set(0, 0, 3, 9, true), model::kOk);
    EXPECT_EQ(online(1, busy_image()), NP_ERR_THREAD_STATE);
    EXPECT_EQ(g_feeds, 8192u);
    EXPECT_THAT(out.take(), HasSubstr("\r\n wait thread to WAIT_NPKT failed!"));
    uint32_t mode = 0;
    EXPECT_EQ(model::atom_mode_get(0, 0, &mode), model::kOk);
    EXPECT_EQ(mode, 1u) << "left in pull mode";
    OsHostIrq irq = {};
    Os_HostIrqGet(&irq);
    EXPECT_EQ(irq.ulDepth, 0u);
    EXPECT_EQ(model::thread_stuck_set(0, 0, 3, 9, false), model::kOk);
    EXPECT_EQ(online(1, busy_image()), NP_OK);
}

TEST_F(MicroLoad, OnlineLoadChecksAndSelectsAtoms)
{
    const Bytes image = build_image(usual_sections());
    for (const uint32_t bitmap : {0u, 16u, 0xffffffffu}) {
        trace_errors(NP_M_ATOM);
        EXPECT_TRUE(calls([&] { EXPECT_EQ(online(bitmap, image), NP_ERR_PARAM); }).empty());
        EXPECT_THAT(out.take(), HasSubstr("param error! ulAtomBitmap=" + code(bitmap) + "\r\n"));
    }
    EXPECT_EQ(Np_Micro_OnlineLoad(0, 1, nullptr), NP_ERR_NULL_PTR);
    // The chip has one atom: the others select nothing, and the load runs all the same.
    const auto made = calls([&] { EXPECT_EQ(online(2, image), NP_OK); });
    EXPECT_EQ(made.front(), "IMEM_InsMemLoad 0 32");
    EXPECT_EQ(g_feeds, 1u);
}

// Of a load, and of an online load, each step fails once.
TEST_F(MicroLoad, EveryFailureHasItsCodeItsTextAndItsRecord)
{
    const Bytes image = build_image(usual_sections());
    const struct {
        bool in_service;
        const char *operation;
        uint32_t nth;
        uint32_t status;
        const char *text;
    } rows[] = {
        {false, "Qd_IMEM_InsMemLoad", 1, NP_ERR_IMEM_LOAD,
         "Qd_IMEM_InsMemLoad failed ulReturn = 0x00000077 \r\n"},
        {false, "Qd_ATOM_MaxPCSet", 1, 0x77, "Qd_ATOM_MaxPCSet failed ulReturn = 0x00000077 \r\n"},
        {false, "Qd_ATOM_ExceptionPcSet", 1, 0x77,
         "Qd_ATOM_ExceptionPcSet failed ulReturn = 0x00000077 \r\n"},
        {false, "Qd_ATOM_ThreadNextPCSet", 40, 0x77,
         "Qd_ATOM_ThreadNextPCSet failed ulReturn = 0x00000077 \r\n"},
        {false, "Qd_LCAM_ProtectDepthSet", 1, 0x77,
         "Qd_LCAM_ProtectDepthSet failed ulReturn = 0x00000077 \r\n"},
        {false, "Qd_LCAM_RcamWrite", 1, 0x77,
         "Qd_LCAM_RcamWrite failed ulReturn = 0x00000077 \r\n"},
        {false, "Qd_LCAM_RcamWrite", 2, NP_ERR_RCAM_WRITE,
         "Qd_LCAM_RcamWrite failed! ulReturn=0x77\r\n"},
        {true, "Qd_PBA_AtomModeSet", 1, 0x77,
         "\n\r Qd_PBA_AtomModeSet pull fail! chipid=0,atomid=0,ulReturn = 0x77"},
        {true, "Qd_ATOM_ThreadStateGet", 15, 0x77,
         "\n\r Qd_ATOM_ThreadStateGet fail! chipid=0,atomid=0,npuid=1,threadid=4,ulReturn = 0x77"},
        {true, "Qd_ATOM_ThreadActive", 40, 0x77,
         "\n\r Qd_ATOM_ThreadActive fail! chipid=0,atomid=0,npuid=3,threadid=9"},
        {true, "Qd_IMEM_InsMemLoad", 1, NP_ERR_IMEM_LOAD,
         "Np_Tarn_Micro_Load error return: 0x9a00001a \r\n"},
        {true, "Qd_ATOM_ThreadActive", 41, 0x77,
         "\n\r Qd_ATOM_ThreadActive fail! chipid=0,atomid=0,npuid=0,threadid=0,ulReturn = 0x77"},
        {true, "Qd_PBA_AtomModeSet", 2, 0x77,
         "\n\r Qd_PBA_AtomModeSet normal fail! chipid=0,atomid=0,ulReturn = 0x77"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.text);
        set_fault(std::string(row.operation) + " nth=" + std::to_string(row.nth) + " code=0x77");
        g_records.clear();
        g_stNpMicroConfig[0] = {};
        trace_errors(NP_M_ATOM);
        const std::vector<std::string> made =
            calls([&] { EXPECT_EQ(row.in_service ? online(1, image) : load(image), row.status); });
        EXPECT_THAT(made.back(), testing::StartsWith(std::string(row.operation).substr(3) + " "));
        const std::string text = out.take();
        EXPECT_THAT(text, HasSubstr(row.text));
        EXPECT_EQ(text.find(",ulReturn", text.find("threadid=9")), std::string::npos) << text;
        EXPECT_THAT(g_records, ElementsAre(std::pair(0x77u, 0u)));
        OsHostIrq irq = {};
        Os_HostIrqGet(&irq);
        EXPECT_EQ(irq.ulDepth, 0u);
        if (!row.in_service) {
            char closing[64];
            std::snprintf(closing, sizeof(closing),
                          "\n\r Np_Tarn_NpLoad load fail ! ulReturn = 0x%x ", row.status);
            EXPECT_THAT(text, HasSubstr(closing));
            // The configuration is taken over when all threads have it, and not before.
            const bool configured = std::string(row.operation).find("LCAM") != std::string::npos;
            EXPECT_EQ(g_stNpMicroConfig[0].ulMaxPC, configured ? 0x1fffu : 0u);
        }
    }
    EXPECT_EQ(Np_Micro_Load(0, nullptr), NP_ERR_NULL_PTR);
    const NpMicroLoad nowhere = {64, 0};
    EXPECT_EQ(Np_Micro_Load(0, &nowhere), NP_ERR_NULL_PTR);
    EXPECT_THAT(out.take(), HasSubstr("Para null ptr\r\n"));
}

// ---- the engines --------------------------------------------------------------------------------

class Engines : public MicroLoad {
  protected:
    void run(const std::vector<const char *> &lines, uint32_t exception_pc = 4)
    {
        std::vector<Section> sections = usual_sections();
        sections[0].words = code_words(lines);
        sections[1].words = {
            0, 0, static_cast<uint32_t>(lines.size()) - 1, exception_pc, 0, 0, 0, 0, 0, 0};
        ASSERT_EQ(load(build_image(sections)), NP_OK);
    }
    static uint32_t state()
    {
        uint32_t value = 99;
        EXPECT_EQ(Qd_ATOM_ThreadStateGet(0, 0, 0, 0, &value), 0u);
        return value;
    }
    static std::array<uint32_t, 4> status()
    {
        std::array<uint32_t, 4> words = {};
        EXPECT_EQ(Qd_ATOM_ThreadAllStatusGet(0, 0, 0, 0, words.data()), 0u);
        return words;
    }
    static uint32_t next_pc()
    {
        uint32_t pc = 99;
        EXPECT_EQ(Qd_ATOM_ThreadNextPCGet(0, 0, 0, 0, &pc), 0u);
        return pc;
    }
};

TEST_F(Engines, ThreadsWorkWhilePacketsComeAndDrainWhenPulled)
{
    run({"PULLNEW 0", "JMP (CC0 = TRUE) 4", "INVALID_00", "INVALID_00", "NOP", "ENDTASK 0, 0"});
    EXPECT_EQ(state(), uint32_t{QD_ATOM_STATE_WAIT_NPKT});
    EXPECT_EQ(model::atom_feed_set(0, 0, true), model::kOk);
    EXPECT_EQ(model::advance(0, 10), model::kOk);
    const uint32_t packets = thread(1, 1).packets;
    EXPECT_GT(packets, 100u);
    for (const uint32_t mode : {QD_PBA_MODE_PULL, QD_PBA_MODE_ONLINE_PULL}) {
        EXPECT_EQ(Qd_PBA_AtomModeSet(0, 0, mode), 0u);
        EXPECT_EQ(model::advance(0, 1), model::kOk);
        const uint32_t drained = thread(1, 1).packets;
        EXPECT_EQ(model::advance(0, 10), model::kOk);
        EXPECT_EQ(thread(1, 1).packets, drained);
        EXPECT_EQ(thread(1, 1).state, model::ThreadState::kWaitNewPacket);
        EXPECT_EQ(next_pc(), 0u) << "its work is done";
    }
    EXPECT_EQ(Qd_PBA_AtomModeSet(0, 0, QD_PBA_MODE_NORMAL), 0u);
    EXPECT_EQ(model::advance(0, 1), model::kOk);
    const uint32_t more = thread(1, 1).packets;
    EXPECT_GT(more, packets);
    EXPECT_EQ(model::atom_power_set(0, 0, false), model::kOk);
    EXPECT_EQ(model::advance(0, 10), model::kOk);
    EXPECT_LE(thread(1, 1).packets, more + 1) << "no packet comes to an atom without power";
}

TEST_F(Engines, BreakpointsAndSteps)
{
    // 0 to 8: a way with two jumps; 9 is the slot of the delayed one.
    run({"PULLNEW 0", "ADD R1W = R1W, 0x1", "ADD R1W = R1W, 0x1", "JMP (CC0 = TRUE) 6",
         "INVALID_00", "INVALID_00", "NOP", "NOP", "JMPD (CC0 = TRUE) 11", "NOP", "INVALID_00",
         "ENDTASK 0, 0"});
    EXPECT_EQ(Qd_ATOM_BreakPointEnableForAtom(0, 0, 2, 1), 0u);
    EXPECT_EQ(model::atom_feed_set(0, 0, true), model::kOk);
    EXPECT_EQ(state(), uint32_t{QD_ATOM_STATE_HALT});
    EXPECT_EQ(status()[3], 2u);
    EXPECT_EQ(next_pc(), 2u);
    EXPECT_EQ(Qd_ATOM_BreakPointDisable(0, 0), 0u);
    EXPECT_EQ(model::atom_feed_set(0, 0, false), model::kOk);
    EXPECT_EQ(Qd_ATOM_ThreadExecutionModeSet(0, 0, 0, 0, QD_ATOM_MODE_SINGLE_STEP), 0u);
    const struct {
        uint32_t pc, next;
    } steps[] = {{3, 6}, {9, 11}, {11, 0}};
    for (const auto &step : steps) {
        EXPECT_EQ(Qd_ATOM_ThreadActive(0, 0, 0, 0), 0u);
        EXPECT_EQ(state(), uint32_t{QD_ATOM_STATE_HALT});
        EXPECT_EQ(status()[3], step.pc);
        EXPECT_EQ(next_pc(), step.next);
    }
    EXPECT_EQ(Qd_ATOM_ThreadExecutionModeSet(0, 0, 0, 0, QD_ATOM_MODE_CONTINUOUS), 0u);
    EXPECT_EQ(Qd_ATOM_ThreadActive(0, 0, 0, 0), 0u);
    EXPECT_EQ(state(), uint32_t{QD_ATOM_STATE_WAIT_NPKT});
    EXPECT_EQ(thread(0, 0).packets, 1u);
    // A thread that is let go on at its breakpoint passes it.
    EXPECT_EQ(Qd_ATOM_BreakPointEnableForAtom(0, 0, 2, 1), 0u);
    EXPECT_EQ(model::atom_feed_set(0, 0, true), model::kOk);
    EXPECT_EQ(state(), uint32_t{QD_ATOM_STATE_HALT});
    EXPECT_EQ(model::atom_feed_set(0, 0, false), model::kOk);
    EXPECT_EQ(Qd_ATOM_ThreadActive(0, 0, 0, 0), 0u);
    EXPECT_EQ(state(), uint32_t{QD_ATOM_STATE_WAIT_NPKT});
}

struct Report {
    uint32_t atom, npu, thread, type;
    bool operator==(const Report &) const = default;
};
std::vector<Report> g_reports;

uint32_t report_hook(uint32_t, uint32_t atom, uint32_t npu, uint32_t thread, uint32_t type)
{
    g_reports.push_back({atom, npu, thread, type});
    return 0;
}

TEST_F(Engines, ExceptionsStopAThreadAndAreReported)
{
    g_reports.clear();
    const struct {
        std::vector<const char *> lines;
        uint32_t pc, code;
    } rows[] = {
        {{"PULLNEW 0", "NOP", "INVALID_24", "NOP", "ENDTASK 0, 0"}, 2, 14},
        {{"PULLNEW 0", "JMP (CC0 = TRUE) 1000", "NOP", "NOP", "ENDTASK 0, 0"}, 1000, 5},
        {{"PULLNEW 0", "NOP", "NOP", "NOP", "ENDTASK 0, 0"}, 4, 6},
    };
    EXPECT_EQ(Qd_ATOM_IntrReportHookRegister(0, report_hook), 0u);
    EXPECT_EQ(Qd_ATOM_IntrEnableSet(0, 0, 0, 0, 2, 1), 0u);
    for (const auto &row : rows) {
        run(row.lines);
        if (row.code == 6) {
            poke(0x7a080020 + 24, peek(0x7a080020 + 24) ^ 0x40000000);
        }
        EXPECT_EQ(model::atom_feed_set(0, 0, true), model::kOk);
        EXPECT_EQ(model::advance(0, 1), model::kOk);
        EXPECT_EQ(model::atom_feed_set(0, 0, false), model::kOk);
        EXPECT_EQ(state(), uint32_t{QD_ATOM_STATE_HALT});
        EXPECT_EQ(status()[1], row.code);
        EXPECT_EQ(status()[3], row.pc);
        EXPECT_EQ(g_reports, (std::vector<Report>{{0, 0, 0, 2}})) << "the only one that may report";
        g_reports.clear();
        if (row.code == 6) {
            model::EccErrors ecc = {};
            EXPECT_EQ(model::ecc_errors_get(0, &ecc), model::kOk);
            EXPECT_EQ(ecc.count, 1u)
                << "the other threads still stand where the rows before left them";
            EXPECT_EQ(ecc.group, 1u);
            continue;
        }
        EXPECT_EQ(Qd_ATOM_ThreadActive(0, 0, 0, 0), 0u);
        EXPECT_EQ(state(), uint32_t{QD_ATOM_STATE_WAIT_NPKT}) << "goes on at the exception PC";
    }
    // On request, with a code and a type of the caller's; held until the host has read it.
    run(rows[0].lines);
    EXPECT_EQ(Qd_ATOM_ThreadExcpHoldOnEnableSet(0, 0, 2, 7, 1), 0u);
    EXPECT_EQ(Qd_ATOM_IntrEnableSet(0, 0, 2, 7, 1, 1), 0u);
    EXPECT_EQ(model::thread_exception(0, 0, 2, 7, 1, 13), model::kOk);
    EXPECT_EQ(g_reports, (std::vector<Report>{{0, 2, 7, 1}}));
    EXPECT_EQ(Qd_ATOM_ThreadActive(0, 0, 2, 7), 0u);
    EXPECT_EQ(thread(2, 7).state, model::ThreadState::kHalt);
    std::array<uint32_t, 4> words = {};
    EXPECT_EQ(Qd_ATOM_ThreadAllStatusGet(0, 0, 2, 7, words.data()), 0u);
    EXPECT_EQ(words[1], 13u);
    EXPECT_EQ(Qd_ATOM_ThreadActive(0, 0, 2, 7), 0u);
    EXPECT_NE(thread(2, 7).state, model::ThreadState::kHalt);
    EXPECT_EQ(Qd_ATOM_IntrEnableSet(0, 0, 2, 7, 1, 0), 0u);
    EXPECT_EQ(model::thread_exception(0, 0, 2, 7, 1, 13), model::kOk);
    EXPECT_EQ(g_reports.size(), 1u);
}

TEST_F(Engines, AGroupThatIsWrittenWrongIsNoticed)
{
    run({"NOP"});
    Group group = group_of({kNop, kRnop, kNop, kNop});
    const auto write_group = [&] {
        for (uint32_t i = 0; i < 8; i++) {
            EXPECT_EQ(Np_Write(0, 0x7a080000 + 4 * (8 * 100 + i), &group[i]), NP_OK);
        }
        bool ok = false;
        model::EccErrors ecc = {};
        EXPECT_EQ(model::group_ecc_ok(0, 100, &ok), model::kOk);
        EXPECT_EQ(model::ecc_errors_get(0, &ecc), model::kOk);
        return std::pair(ok, ecc.count);
    };
    EXPECT_EQ(write_group(), std::pair(false, uint64_t{1}));
    group[6] = Np_Micro_GroupEccGet(group.data());
    EXPECT_EQ(write_group(), std::pair(true, uint64_t{1}));
    EXPECT_EQ(host::code_listing(0, 400, 3),
              "group 100  0x7a080c80  ECC " + code(group[6]) +
                  " ok\n00000190  |  MOV (CC0 = TRUE) VOID = 0x0\n00000191  |  RNOP\n"
                  "00000192  |  MOV (CC0 = TRUE) VOID = 0x0\n");
    poke(0x7a080c80 + 24, 1);
    EXPECT_THAT(host::code_listing(0, 403, 2),
                testing::StartsWith("group 100  0x7a080c80  ECC 0x00000001 wrong, expected " +
                                    code(group[6]) + "\n00000193  |  "));
    EXPECT_THAT(host::code_listing(0, 32767, 100),
                "group 8191  0x7a0bffe0  ECC 0x00000000 ok\n00007FFF  |  INVALID_00\n");
    EXPECT_THROW(host::code_listing(0, 32768, 1), std::runtime_error);
    EXPECT_THROW(host::code_listing(3, 0, 1), std::runtime_error);
}

TEST_F(Engines, NumbersThatTheChipDoesNotHave)
{
    uint32_t word = 0;
    EXPECT_EQ(Qd_ATOM_MaxPCSet(0, 4, 0), model::kErrParam);
    EXPECT_EQ(Qd_ATOM_ThreadStateGet(0, 0, 4, 0, &word), model::kErrParam);
    EXPECT_EQ(Qd_ATOM_ThreadStateGet(0, 0, 0, 10, &word), model::kErrParam);
    EXPECT_EQ(Qd_ATOM_ThreadStateGet(0, 0, 0, 0, nullptr), model::kErrNull);
    EXPECT_EQ(Qd_ATOM_ThreadExecutionModeSet(0, 0, 0, 0, 2), model::kErrParam);
    EXPECT_EQ(Qd_ATOM_IntrEnableSet(0, 0, 0, 0, 4, 1), model::kErrParam);
    EXPECT_EQ(Qd_IMEM_InsMemLoad(0, 1, &word, 4), model::kErrParam);
    EXPECT_EQ(Qd_IMEM_InsMemLoad(0, 0, &word, 0x40004), model::kErrParam);
    EXPECT_EQ(Qd_LCAM_RcamWrite(0, 2, 4, &word), model::kErrParam);
    EXPECT_EQ(Qd_LCAM_RcamWrite(0, 0, 4, nullptr), model::kErrNull);
    EXPECT_EQ(QD_PORT_PowerGateEnableGet(0, 5, 0, 3, &word), 0u);
    EXPECT_EQ(word, 1u);
    EXPECT_EQ(model::atom_power_set(0, 3, false), model::kOk);
    EXPECT_EQ(QD_PORT_PowerGateEnableGet(0, 5, 0, 3, &word), 0u);
    EXPECT_EQ(word, 0u);
    EXPECT_EQ(QD_PORT_PowerGateEnableGet(0, 5, 0, 4, &word), model::kErrParam);
}

// ---- host and commands --------------------------------------------------------------------------

TEST_F(MicroLoad, ImagesComeIntoMemoryThatAWordCanName)
{
    std::ifstream file(LDSDK_SOURCE_DIR "/examples/microcode/forward.npasm");
    const std::string source{std::istreambuf_iterator<char>(file), {}};
    const Bytes image = host::assemble(source, "forward").image;
    ASSERT_FALSE(image.empty());
    EXPECT_EQ(host::load_image(0, image), NP_OK);
    EXPECT_EQ(host::load_image(0, image), NP_OK) << "each load from a fresh copy";
    EXPECT_EQ(host::online_load_image(0, 1, image), NP_OK);
    EXPECT_NE(g_stNpMicroInfo[0].ulAddress, 0u);
    EXPECT_EQ(host::load_image(0, {}), NP_ERR_NOT_EXIST);
    EXPECT_THROW(host::read_image("/nowhere/at/all"), std::runtime_error);
    // The example runs on the model: with packets, its threads end their tasks.
    EXPECT_EQ(host::load_image(0, image), NP_OK);
    EXPECT_EQ(model::atom_feed_set(0, 0, true), model::kOk);
    EXPECT_EQ(model::advance(0, 10), model::kOk);
    EXPECT_GT(thread(0, 0).packets, 10u);
    EXPECT_EQ(thread(0, 0).exception, 0u);
}

class MicroCommands : public Shell {};

constexpr uint32_t kOfferedWord = 0x40;
Bytes g_offered;
int g_offers_held = 0;

TEST_F(MicroCommands, LoadAndVersion)
{
    g_stNpMicroVersion[0] = {};
    EXPECT_EQ(run("micro atom version"),
              "\r\n NP   compile date :  unknow  \n\r Command execute success!");
    EXPECT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
    EXPECT_EQ(Np_INIT_SdkInit(0), NP_OK);
    out.take();
    // The board offers one image, under a word that is no pointer. What else a line may name, be it
    // memory of the process, is not touched.
    g_offered = build_image(usual_sections());
    constexpr OsImages kOffer = {
        [](uint32_t address, uint32_t size) -> void * {
            const bool inside = address >= kOfferedWord &&
                                address - kOfferedWord + uint64_t{size} <= g_offered.size();
            g_offers_held += inside ? 1 : 0;
            return inside ? g_offered.data() + (address - kOfferedWord) : nullptr;
        },
        [](uint32_t) { g_offers_held--; },
    };
    Os_ImagesAttach(&kOffer);
    GuardedMemory other(64);
    const NpMicroLoad not_offered = other.place(Bytes(64, 0x11), true);
    const uint32_t size = static_cast<uint32_t>(g_offered.size());
    for (const NpMicroLoad &wrong : {not_offered, {64, 1}, {size + 1, kOfferedWord}}) {
        const std::string refused = run("micro atom load addr " + std::to_string(wrong.ulAddress) +
                                        " len " + std::to_string(wrong.ulLength));
        EXPECT_THAT(refused, HasSubstr(" bytes is registered at 0x"));
        EXPECT_THAT(refused, HasSubstr("\n\r ulReturn = 0x9a000008"));
        EXPECT_THAT(refused, testing::EndsWith("\n\r Command execute error!"));
    }
    EXPECT_EQ(other.bytes(64), Bytes(64, 0x11));
    const std::string line =
        "micro atom load addr " + std::to_string(kOfferedWord) + " len " + std::to_string(size);
    EXPECT_THAT(run(line + " more"), HasSubstr("\n\r Command execute error!"));
    EXPECT_EQ(run(line), "\n\r Command execute success!");
    EXPECT_EQ(run("micro atom version"),
              "\r\n NP   compile date:08 07 2015,version:V1.0B012, "
              "user define:user defined txt"
              "\n\r Command execute success!");
    const std::string again = run(line);  // its words are swapped by now
    EXPECT_THAT(again, HasSubstr("\n\r ulReturn = 0x9a000015( 不存在)"));
    EXPECT_THAT(again, testing::EndsWith("\n\r Command execute error!"));
    EXPECT_THAT(run("micro atom load addr 5"), HasSubstr("error"));
    EXPECT_EQ(g_offers_held, 0);
    Os_ImagesAttach(nullptr);
    EXPECT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
}

}  // namespace

// Microcode as text: instructions, sources and images, there and back.
#include "host/asm_instruction.h"
#include "host/assembler.h"
#include "sdk/micro/disasm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace ldsdk::host;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::StartsWith;
using Bytes = std::vector<uint8_t>;

// ---- instructions -------------------------------------------------------------------------------

constexpr uint32_t kFlagBits[] = {41, 19, 18, 17, 16};

// The bits that an instruction's text does not show: flipping one changes nothing.
uint64_t hidden_bits(uint64_t word)
{
    const std::string text = instruction_text(word);
    uint64_t hidden = 0;
    for (uint32_t bit = 0; bit < 48; bit++) {
        const uint64_t other = word ^ 1ull << bit;
        hidden |= instruction_text(other) == text ? 1ull << bit : 0;
    }
    return hidden;
}

TEST(AssemblerInstructions, WhatTheDisassemblerPrintsComesBack)
{
    std::mt19937_64 random(2015);
    uint64_t flag_mask = 0;
    for (const uint32_t bit : kFlagBits) {
        flag_mask |= 1ull << bit;
    }
    const int rounds = 1000;  // of operands for each opcode and combination of flags
    for (uint64_t opcode = 0; opcode < 64; opcode++) {
        for (uint32_t flags = 0; flags < 1u << std::size(kFlagBits); flags++) {
            uint64_t fixed = opcode << 42;
            for (size_t i = 0; i < std::size(kFlagBits); i++) {
                fixed |= uint64_t{flags >> i & 1} << kFlagBits[i];
            }
            const auto draw = [&] { return (random() & 0x1ffffffffff & ~flag_mask) | fixed; };
            // What is hidden depends on opcode and flags alone, which the loop below proves: a bit
            // that is shown and missing from the text would not come back.
            const uint64_t hidden = hidden_bits(draw()) & hidden_bits(draw());
            for (int round = 0; round < rounds; round++) {
                const uint64_t word = draw();
                const std::string text = instruction_text(word);
                ASSERT_EQ(assemble_instruction(text), word & ~hidden) << text;
            }
        }
    }
}

TEST(AssemblerInstructions, PeopleWriteItTheirWay)
{
    EXPECT_EQ(assemble_instruction("NOP"), 0xca003df90000u);
    EXPECT_EQ(assemble_instruction("  MOV(CC0=TRUE)VOID=0  ; comment"), 0xca003df90000u);
    EXPECT_EQ(assemble_instruction("MOV (CC0 = TRUE) S63W = 0x0"), 0xca003df90000u);
    EXPECT_EQ(assemble_instruction("ADD R1W = R2W, 16"),
              assemble_instruction("ADD R1W = R2W, 0x10"));
    EXPECT_EQ(assemble_instruction("SLEEP 10"), assemble_instruction("SLEEP 0x10"));
    EXPECT_EQ(assemble_instruction("JMP (CC0 = TRUE) 0x10 + 2"), 0x420000010012u);
}

// ---- errors -------------------------------------------------------------------------------------

TEST(AssemblerErrors, TellTheLineTheColumnAndWhatWasExpected)
{
    const struct {
        const char *source;
        const char *message;  // begins so
    } rows[] = {
        {"ADDD R1W = R2W, R3W",
         "1:1: expected an instruction, a directive or a label, found \"ADDD\""},
        {"ADD R1W R2W, R3W", "1:9: expected \"=\", found \"R2W\""},
        {"ADD R1W = R2W R3W", "1:15: expected \",\", found \"R3W\""},
        {"ADD R256W = R2W, R3W", "1:5: expected a register, found \"R256W\""},
        {"ADD R1W = R2W, 0x10000", "1:16: 65536 does not fit; expected 0 to 65535"},
        {"ADD R1W = R2W,", "1:15: expected a register or a number, found the end of the line"},
        {"ADD R1W = R2W, R3W R4W", "1:20: expected the end of the line, found \"R4W\""},
        {"ADD.G R1W = R2W, R3W", "1:5: expected F, found \"G\""},
        {"MOV (CC8 = TRUE) R1W = R2W", "1:8: 8 does not fit; expected 0 to 7"},
        {"MOV (CC0 = YES) R1W = R2W", "1:12: expected a condition, one of FALSE, TRUE, NZ"},
        {"MOVW R1H = 5", "1:6: \"R1H\" cannot stand here; expected R0W to R255W"},
        {"KGEN R1W [30..0], R2W [3..0]", "1:11: 30 does not fit; expected 3, 7, ... 31"},
        {"KGEN 5 [3..1], R2W [3..0]", "1:12: 1 does not fit; expected 0"},
        {"\n\nJMP (CC0 = TRUE) nowhere", "3:18: \"nowhere\" is not defined; expected a number"},
        {"a: NOP\na: NOP", "2:1: \"a\" is defined in line 1; expected a new name"},
        {"R1W: NOP", "1:1: \"R1W\" cannot be a name; expected a word that is no register"},
        {"NOP\nNOP\n.org 1", "3:6: 1 lies behind; expected 2 or more"},
        {".org 40000", "1:6: 40000 does not fit; expected 0 to 32768"},
        {"  .frob", "1:3: no directive \".frob\"; expected one of .section"},
        {".word 1", "1:1: bytes cannot stand among instructions; expected .insn"},
        {".section rules\nNOP", "2:1: an instruction cannot stand here; expected .section"},
        {".section 0", "1:10: code 0 ends the section table"},
        {".section rules\n.word 0x100000000", "2:7: 4294967296 does not fit"},
        {"NOP\n.group 1,2,3,4,5,6,7,8", "2:1: a group cannot begin here; expected .align"},
        {".group 1,2", "1:11: expected \",\", found the end of the line"},
        {".insn 0x1000000000000", "1:7: 281474976710656 does not fit"},
        {".version \"12345\", \"\"", "1:10: text of 5 characters; expected at most 4"},
        {".version \"1", "1:12: expected a closing \", found the end of the line"},
        {".user \"\\q\"", "1:9: expected \\\", \\\\, \\n or \\x with two hexadecimal digits"},
        {".equ X", "1:7: expected \",\", found the end of the line"},
        {".equ X, later\nlater: NOP", "1:9: \"later\" is not defined; expected a value"},
        {"face: SLEEP face",
         "1:13: \"face\" is a name and a hexadecimal number; expected 0xface or another name"},
        {"JMP (CC0 = TRUE) 1 - 2", "1:18: the value is below 0; expected a number"},
        {"NOP\n.raw", "2:1: .raw cannot stand behind a section"},
        {".maxpc 3\n.section configuration\n.word 1", "1:1: the configuration is given as words"},
        {".section rules, 8", "1:1: offset 8 is taken; expected"},
        {"NOP\n.length 10\nNOP", "2:1: .length 10 is too short; expected"},
        {"NOP \xc3\xa9", "1:5: expected the end of the line, found the non-ASCII character U+00E9"},
        {"NOP \xe9", "1:5: expected the end of the line, found the byte 0xe9"},
        {"\x1b[0m", "1:1: expected an instruction, a directive or a label, found the byte 0x1b"},
        {"\xef\xbb\xbfNOP", "1:1: a byte order mark begins the source"},
    };
    for (const auto &row : rows) {
        const Assembly result = assemble(row.source, "code.npasm");
        EXPECT_TRUE(result.image.empty()) << row.source;
        if (result.errors.empty()) {
            ADD_FAILURE() << "accepted: " << row.source;
            continue;
        }
        EXPECT_THAT(result.errors[0].message(),
                    StartsWith(std::string("code.npasm:") + row.message))
            << row.source;
    }
    const std::string nul("NOP\0", 4);
    EXPECT_THAT(assemble(nul, "x").errors.at(0).text, HasSubstr("found a NUL byte"));
    const std::string word(1 << 20, 'x');
    EXPECT_LT(assemble(word + "\nJMP (CC0 = TRUE) " + word, "x").errors.at(1).text.size(), 200u);
}

// Each error of a source, in one go, and none that another one made.
TEST(AssemblerErrors, AllOfThemAtOnce)
{
    const Assembly result = assemble(R"(.equ BIG, 0x100000000
        JMP (CC0 = TRUE) nowhere
        ADDD R1W
        ADD R1W = R2W, 0x10000
R1W:    ADD R256W = R2W, R3W
        .org 1
back:   .insn 1, 0
        .group 1
        .group 0, 1, 2, 3, 4, 5, 6, 7
        .section nothing
        .word back, nowhere
        NOP
        .section rules, BIG
        .word BIG + 0xffffffff, BIG - 1
        .startpc back
        .length 8
)",
                                     "x");
    std::string places;
    for (const SourceError &error : result.errors) {
        places += std::to_string(error.line) + ":" + std::to_string(error.column) + " ";
    }
    EXPECT_EQ(places, "1:11 2:26 3:9 4:24 5:1 5:13 6:14 7:16 8:9 10:18 11:21 16:1 ");
    EXPECT_TRUE(result.image.empty());
    std::string many;
    for (size_t i = 0; i < kMaxErrors + 5; i++) {
        many += i % 2 == 0 ? "JMP (CC0 = TRUE) nowhere\n" : "ADD\n";
    }
    const Assembly cut = assemble(many, "x");
    ASSERT_EQ(cut.errors.size(), kMaxErrors);
    EXPECT_EQ(cut.errors.back().line, kMaxErrors);
    EXPECT_TRUE(cut.more_errors);
    many.clear();
    for (size_t i = 0; i < 33000; i++) {
        many += "NOP\n";
    }
    EXPECT_EQ(assemble(many, "x").errors.size(), 1u) << "a memory that is full is told once";
}

// ---- images -------------------------------------------------------------------------------------

void put(Bytes &bytes, std::initializer_list<uint32_t> words)
{
    for (const uint32_t word : words) {
        for (int shift = 24; shift >= 0; shift -= 8) {
            bytes.push_back(static_cast<uint8_t>(word >> shift));
        }
    }
}

void put_text(Bytes &bytes, const std::string &text)
{
    bytes.insert(bytes.end(), text.begin(), text.end());
}

// An image worked out by hand.
Bytes small_image()
{
    Bytes image;
    put(image, {1, 60, 64, 2, 124, 40, 4, 164, 8, 6, 172, 4, 0, 0, 0});
    // JMP 3 and three NOPs; the group of NOPs behind it
    put(image, {0x42000001, 0x0003ca00, 0x3df90000, 0xca003df9, 0x0000ca00, 0x3df90000});
    put(image, {0x4db80000, 0});
    put(image, {0xca003df9, 0x0000ca00, 0x3df90000, 0xca003df9, 0x0000ca00, 0x3df90000});
    put(image, {0x7af40000, 0});
    put(image, {0, 3, 7, 1, 0, 0, 0, 0, 16, 32});
    put(image, {0x12345678, 0xffffffff});
    put(image, {3});
    put_text(image, "1.2B003" + std::string(1, '\0') + "20150115example\"" + std::string(8, '\0'));
    return image;
}

TEST(AssemblerImages, BytesAsTheLoaderWantsThem)
{
    const char source[] = R"(; a small program
        .version "1.2B", "003"
        .date "2015", "01", "15"
        .user "example\x22"
        .equ DEPTH, 16
        .section instructions
        JMP (CC0 = TRUE) go
        NOP             # nothing
        NOP
go:     NOP
        .org 8
        .startpc go
        .exceptpc go - 2
        .protect DEPTH, DEPTH + DEPTH
        .section 4
        .word 0x12345678, 0xffffffff
        .section data
        .word go
)";
    const Assembly result = assemble(source, "small");
    ASSERT_TRUE(result.errors.empty()) << result.errors[0].message();
    EXPECT_EQ(result.image, small_image());
}

TEST(AssemblerImages, LayoutRawWordsAndOddBytes)
{
    const Assembly placed = assemble(
        ".section 9, 0x80\n.byte 1, 2, 3\n.section rules, 0x90\n.word 7\n"
        ".length 256\n",
        "x");
    ASSERT_TRUE(placed.errors.empty()) << placed.errors[0].message();
    ASSERT_EQ(placed.image.size(), 256u);
    EXPECT_EQ(placed.image[0x82], 3);
    EXPECT_EQ(placed.image[0x93], 7);
    const Assembly raw = assemble(".raw\n.word 0x01020304\n.byte 5\n", "x");
    EXPECT_THAT(raw.image, ElementsAreArray({1, 2, 3, 4, 5}));
    const Assembly group =
        assemble(".group 1, 2, 3, 4, 5, 6, 0xbad, 8\n.insn 0x123456789abc\n", "x");
    ASSERT_TRUE(group.errors.empty());
    EXPECT_EQ(group.image[60 + 26], 0x0b);
    EXPECT_EQ(group.image[60 + 31], 8);
    EXPECT_EQ(group.image[60 + 32], 0x12);
    EXPECT_EQ(group.image[60 + 37], 0xbc);
}

// Whatever the bytes are, the source that is printed for them gives them back.
TEST(AssemblerImages, EveryImageComesBack)
{
    std::vector<Bytes> images = {small_image(), {}, {0}, Bytes(31, 7), Bytes(4096, 0)};
    std::mt19937 random(7);
    const Bytes whole = small_image();
    for (size_t size = 0; size < whole.size(); size += 3) {
        images.emplace_back(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size));
    }
    for (int i = 0; i < 400; i++) {
        Bytes damaged = whole;
        for (uint32_t flips = random() % 4 + 1; flips > 0; flips--) {
            damaged[random() % damaged.size()] ^= static_cast<uint8_t>(1u << random() % 8);
        }
        images.push_back(damaged);
    }
    size_t structured = 0;
    for (const Bytes &image : images) {
        const std::string source = image_to_source(image);
        const Assembly again = assemble(source, "again");
        ASSERT_TRUE(again.errors.empty()) << again.errors[0].message() << "\n" << source;
        ASSERT_EQ(again.image, image) << source;
        structured += source.find(".section") != std::string::npos ? 1 : 0;
    }
    EXPECT_GT(structured, 100u) << "damage outside of the table leaves an image";
    EXPECT_THAT(image_to_source(whole), HasSubstr("JMP (CC0 = TRUE) 3"));
    // Instructions with bits that the text does not show, and groups with a wrong ECC word.
    const Assembly hidden = assemble("RNOP\n.insn 0xfc0000000001\n", "x");
    EXPECT_THAT(image_to_source(hidden.image), HasSubstr(".insn 0xfc0000000001"));
    EXPECT_THAT(image_to_source(hidden.image), HasSubstr("RNOP"));
    Bytes wrong = hidden.image;
    wrong[60 + 24] ^= 0x80;
    EXPECT_THAT(image_to_source(wrong), HasSubstr(".group 0xfc000000"));
}

TEST(AssemblerImages, TheExampleUsesEveryGroupOfInstructions)
{
    std::ifstream file(LDSDK_SOURCE_DIR "/examples/microcode/forward.npasm");
    const std::string source{std::istreambuf_iterator<char>(file), {}};
    const Assembly result = assemble(source, "forward.npasm");
    ASSERT_TRUE(result.errors.empty()) << result.errors[0].message();
    std::set<uint32_t> groups, opcodes;
    for (size_t at = 0; at + 32 <= result.image.size(); at += 4) {
        // Only the table tells where the instructions are.
        if (result.image[at + 3] != 1 || at % 12 != 0) {
            continue;
        }
        const size_t offset = result.image[at + 6] * 256u + result.image[at + 7];
        const size_t size = result.image[at + 10] * 256u + result.image[at + 11];
        for (size_t group = offset; group < offset + size; group += 32) {
            for (const size_t first : {0, 6, 12, 18}) {
                opcodes.insert(result.image[group + first] >> 2);
            }
        }
        break;
    }
    for (const uint32_t opcode : opcodes) {
        groups.insert(atom_opcode[opcode].ucGroup);
    }
    EXPECT_EQ(groups.size(), size_t{ATOM_GROUP_NUM});
    const Assembly again = assemble(image_to_source(result.image), "again");
    EXPECT_EQ(again.image, result.image);
}

}  // namespace

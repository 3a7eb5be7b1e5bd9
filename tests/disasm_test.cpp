// The disassembler: every group of instructions, every register, and buffers of exactly the size
// that is asked for.
#include "sdk/micro/disasm.h"
#include "tests/guarded_memory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

// A field's lowest bit and its value.
struct Field {
    uint32_t bit;
    uint64_t value;
};

uint64_t word(uint64_t opcode, const std::vector<Field> &fields)
{
    uint64_t bits = opcode << 42;
    for (const Field &field : fields) {
        bits |= field.value << field.bit;
    }
    return bits;
}

std::vector<uint8_t> bytes_of(uint64_t bits)
{
    std::vector<uint8_t> bytes;
    for (int shift = 40; shift >= 0; shift -= 8) {
        bytes.push_back(static_cast<uint8_t>(bits >> shift));
    }
    return bytes;
}

std::string text_of(uint64_t bits)
{
    const std::vector<uint8_t> bytes = bytes_of(bits);
    char text[NP_DISASM_TEXT_SIZE];
    EXPECT_EQ(soc_np_atom_disasm_instruction(bytes.data(), text), 0u);
    return text;
}

// Register operands: w in bits 10..9, c in bits 8..7, r in bits 6..0.
constexpr uint64_t reg(uint32_t w, uint32_t c, uint32_t r)
{
    return w << 9 | c << 7 | r;
}
constexpr uint64_t kR1W = reg(2, 0, 1);
constexpr uint64_t kR200H = reg(1, 1, 72);
constexpr uint64_t kP5B = reg(0, 2, 5);
constexpr uint64_t kQ127W = reg(2, 3, 127);
constexpr uint64_t kX9H = reg(3, 1, 9);
constexpr uint64_t kVoid = reg(3, 3, 63);
constexpr uint64_t kStatus = reg(3, 3, 15);
constexpr uint64_t kS31 = reg(3, 3, 31);

constexpr uint32_t kImmediate = 41, kSrc1 = 30, kDst = 19, kF = 18, kJ = 16, kHighJ = 19;

TEST(Disassembler, EveryGroupInEveryForm)
{
    const struct {
        const char *text;
        uint64_t bits;
    } rows[] = {
        // 00
        {"ADD R1W = R200H, P5B", word(0x20, {{kDst, kR1W}, {kSrc1, kR200H}, {0, kP5B}})},
        {"SBC.F Q127W = X9H, 0xABCD",
         word(0x23, {{kImmediate, 1}, {kDst, kQ127W}, {kSrc1, kX9H}, {kF, 1}, {0, 0xabcd}})},
        {"SRL VOID = STATUS, 0x0",
         word(0x2d, {{kImmediate, 1}, {kDst, kVoid}, {kSrc1, kStatus}, {17, 1}, {16, 1}})},
        // 01
        {"CMP CC5 = R1W, 0x8000",
         word(0x36, {{kImmediate, 1}, {19, 5}, {kSrc1, kR1W}, {0, 0x8000}})},
        {"BITCMP CC7 = S31W, R1W", word(0x37, {{19, 7}, {kSrc1, kS31}, {0, kR1W}})},
        // 02
        {"MRG R1W = P5B, X9H, 0x0F",
         word(0x39, {{kDst, kR1W}, {kSrc1, kP5B}, {0, kX9H}, {11, 0x0f}})},
        {"MRG R1W = P5B, X9H, 0xF0",
         word(0x39, {{kDst, kR1W}, {kSrc1, kP5B}, {0, kX9H}, {11, 0xf0}})},
        // 03, 04
        {"SLLMRG (CC0 == NZ) R1W = Q127W, 31, [16, 1]",
         word(0x3a, {{16, 2}, {0, kR1W}, {kSrc1, kQ127W}, {25, 31}, {20, 16}, {11, 1}})},
        {"SRLMRG (CC0 == GE) R1W = 0x7FF, 0, [31, 31]",
         word(0x3b, {{16, 7}, {0, kR1W}, {kHighJ, 1}, {kSrc1, 0x7ff}, {20, 31}, {11, 31}})},
        {"SLLBM (CC0 == LT) P5B = R1W, 1, [2, 3]",
         word(0x3c, {{16, 4}, {0, kP5B}, {kSrc1, kR1W}, {25, 1}, {20, 2}, {11, 3}})},
        {"SRLBM (CC0 == FALSE) P5B = 0x1, 30, [0, 0]",
         word(0x3d, {{0, kP5B}, {kHighJ, 1}, {kSrc1, 1}, {25, 30}})},
        // 05
        {"MOV (CC0 = TRUE) VOID = 0x0", 0xca003df90000},
        {"MOV (CC7 = LE) R1W = X9H", word(0x32, {{kSrc1, 7}, {16, 5}, {kDst, kR1W}, {0, kX9H}})},
        // 06
        {"MOVW R255W = 0x00C0FFEE", word(0x33, {{0, 0xff}, {9, 0x00c0ffee}})},
        {"MOVW R0W = 0xFFFFFFFF", word(0x33, {{9, 0xffffffff}})},
        // 07
        {"JMP (CC0 = TRUE) 65535", 0x42000001ffff},
        {"JMPD (CC3 = EQ) R1W", word(0x30, {{kSrc1, 3}, {16, 3}, {0, kR1W}})},
        {"SKIP (CC4 = GT) 0", word(0x31, {{kImmediate, 1}, {kSrc1, 4}, {16, 6}})},
        // 08
        {"KGEN R1W [31..28], X9H [3..0]",
         word(0x38, {{kSrc1, kR1W}, {26, 7}, {22, 7}, {0, kX9H}, {19, 0}, {11, 0}})},
        {"KGEN R1W [3..20], X9H [23..8]",
         word(0x38, {{kSrc1, kR1W}, {26, 0}, {22, 5}, {0, kX9H}, {19, 5}, {11, 2}})},
        {"KGEN 0xBEEF [6..0], R1W [31..28]",
         word(0x38, {{kJ, 1}, {25, 0xbeef}, {22, 6}, {0, kR1W}, {19, 7}, {11, 7}})},
        {"KGEN R1W [7..0], 0x1234 [7..0]",
         word(0x38, {{kImmediate, 1}, {kSrc1, kR1W}, {26, 1}, {0, 0x1234}, {19, 7}})},
        // 09
        {"INVALID_00", 0},
        {"INVALID_0A", word(0x0a, {{0, 0x123}})},
        {"INVALID_24", word(0x24, {})},
        {"INVALID_35", word(0x35, {{kImmediate, 1}})},
        {"INVALID_3E", word(0x3e, {})},
        // 10
        {"KSWITCH beef", word(0x13, {{kImmediate, 1}, {0, 0xbeef}})},
        {"SLEEP R1W", word(0x1e, {{0, kR1W}})},
        // 11
        {"RSWITCH R1W, P5B, 0x0021", word(0x12, {{kSrc1, kR1W}, {0, kP5B}, {11, 0x21}})},
        // 12
        {"LOAD %RD[0x3F, 0xF] = R1W, P5B",
         word(0x16, {{24, 63}, {20, 15}, {kSrc1, kR1W}, {0, kP5B}})},
        {"PLOAD %RD[0x0, 0x0] = 0x7FF, 0xFFFF",
         word(0x17, {{kImmediate, 1}, {kJ, 1}, {kSrc1, 0x7ff}, {0, 0xffff}})},
        // 13
        {"STORE R1W, P5B, 7", word(0x18, {{kSrc1, kR1W}, {0, kP5B}, {17, 7}})},
        {"PSTORE 0x1, 0x2, 3", word(0x19, {{kImmediate, 1}, {kJ, 1}, {kSrc1, 1}, {0, 2}, {17, 3}})},
        {"STIK R1W, 0x2, 0", word(0x14, {{kImmediate, 1}, {kSrc1, kR1W}, {0, 2}})},
        {"PSTIK 0x1, P5B, 5", word(0x15, {{kJ, 1}, {kSrc1, 1}, {0, kP5B}, {17, 5}})},
        // 14
        {"LOOKUP %RD[0x10, 0x2] = R1W, 0x9, 4",
         word(0x1a, {{kImmediate, 1}, {24, 16}, {20, 2}, {kSrc1, kR1W}, {0, 9}, {17, 4}})},
        {"PLOOKUP %RD[0x1, 0x1] = 0x5, P5B, 1",
         word(0x1b, {{kJ, 1}, {24, 1}, {20, 1}, {kSrc1, 5}, {0, kP5B}, {17, 1}})},
        // 15
        {"PULLNEW 300", word(0x1c, {{kImmediate, 1}, {0, 300}})},
        {"PULLRESET 300", word(0x1c, {{kImmediate, 1}, {17, 1}, {0, 300}})},
        {"PULLRESET R1W", word(0x1c, {{17, 1}, {0, kR1W}})},
        // 16
        {"AWPP R1W, 0x40", word(0x1d, {{kImmediate, 1}, {kSrc1, kR1W}, {0, 0x40}})},
        {"AWPP 0x0, P5B", word(0x1d, {{kJ, 1}, {0, kP5B}})},
        // 17
        {"CSR", word(0x2e, {{0, 77}})},
        {"CSW", word(0x2f, {})},
        {"RNOP", 0xfc0000000000},
        // 18
        {"ENDTASK ff, 1", word(0x11, {{kImmediate, 1}, {0, 0xff}, {kHighJ, 1}})},
        {"ENDTASKD R1W, 0", word(0x34, {{0, kR1W}})},
        // 19
        {"HALT 3", word(0x1f, {{0, 0xffff}})},
        // The remaining mnemonics of group 00.
        {"ADC R0B = R0B, R0B", word(0x21, {})},
        {"SUB R0B = R0B, R0B", word(0x22, {})},
        {"MAX R0B = R0B, R0B", word(0x26, {})},
        {"MIN R0B = R0B, R0B", word(0x27, {})},
        {"OR R0B = R0B, R0B", word(0x28, {})},
        {"NOR R0B = R0B, R0B", word(0x29, {})},
        {"XOR R0B = R0B, R0B", word(0x2a, {})},
        {"AND R0B = R0B, R0B", word(0x2b, {})},
        {"SLL R0B = R0B, R0B", word(0x2c, {})},
    };
    std::map<uint64_t, int> opcodes;
    for (const auto &row : rows) {
        EXPECT_EQ(text_of(row.bits), row.text);
        opcodes[row.bits >> 42]++;
    }
    EXPECT_EQ(opcodes.size(), 44u + 5u) << "each opcode that has a name, and some that have none";
    // MOVW has its 32 bits whatever the immediate flag says.
    EXPECT_EQ(text_of(word(0x33, {{kImmediate, 1}, {9, 0x80000000}})), "MOVW R0W = 0x80000000");
}

TEST(Disassembler, RegistersHaveNamesOfTheirOwn)
{
    const std::map<uint32_t, std::string> aliases = {
        {0, "ZEROS"},         {1, "ONES"},      {2, "CNTXID"},    {3, "PAC_ID"},
        {4, "PWZ"},           {5, "PWO"},       {6, "PWCS"},      {7, "CCR"},
        {8, "CURR_PC"},       {9, "PARAM"},     {10, "PARAM_B0"}, {11, "PARAM_B1"},
        {12, "TIME"},         {13, "CLOCK"},    {14, "CTRL"},     {15, "STATUS"},
        {16, "PAC_INFO"},     {17, "PAC_SN"},   {18, "PAC_CHAN"}, {19, "PAC_TYPE"},
        {20, "PAC_LEN"},      {21, "TEMP"},     {22, "TRIG"},     {23, "SCRATCH0"},
        {24, "SCRATCH1"},     {25, "SCRATCH2"}, {26, "SCRATCH3"}, {27, "EXCP"},
        {28, "XR"},           {29, "RANDOM"},   {30, "RETURN"},   {32, "TIMESTAMP_S"},
        {33, "TIMESTAMP_NS"}, {34, "PCR"},      {35, "MESSAGE0"}, {36, "MESSAGE1"},
        {37, "SCRATCH4"},     {38, "SCRATCH5"}, {39, "SCRATCH6"}, {40, "SCRATCH7"},
        {41, "PWO_MOP"},      {42, "PWO_NEG"},  {63, "VOID"},
    };
    std::map<std::string, uint32_t> seen;
    for (uint32_t operand = 0; operand < 2048; operand++) {
        const uint32_t r = operand & 127, c = operand >> 7 & 3, w = operand >> 9;
        AtomReg decoded = {};
        atom_dis_reg_decode(operand, &decoded);
        EXPECT_EQ(atom_asm_reg_encode(decoded.ulKind, decoded.ulWidth, decoded.ulIndex), operand);
        char text[16];
        reg_to_string(&decoded, text);
        std::string expected;
        if (w < 3) {
            expected = std::string(1, "RRPQ"[c]) + std::to_string(c == 1 ? r + 128 : r) + "BHW"[w];
        }
        else if (c < 3) {
            expected = "X" + std::to_string(r) + "BHW"[c];
        }
        else {
            expected = aliases.contains(r) ? aliases.at(r) : "S" + std::to_string(r) + "W";
        }
        EXPECT_EQ(text, expected);
        EXPECT_TRUE(seen.emplace(text, operand).second) << text;
    }
    EXPECT_STREQ(reg_name_alias[27].pszAccess, "THREAD RWC");
}

TEST(Disassembler, NamedFields)
{
    // Every bit set but one shows where each field ends.
    const auto bytes = bytes_of(0xffffffffffff);
    EXPECT_EQ(disasm_get_bits(bytes.data(), 0, 32), 0xffffffffu);
    for (uint32_t hole = 0; hole < 48; hole++) {
        const auto holed = bytes_of(0xffffffffffff & ~(1ull << hole));
        const uint8_t *instr = holed.data();
        const auto expected = [&](uint32_t bit, uint32_t length) {
            const uint32_t all = length == 32 ? 0xffffffff : (1u << length) - 1;
            return hole >= bit && hole < bit + length ? all & ~(1u << (hole - bit)) : all;
        };
        EXPECT_EQ(disasm_get_opcode(instr), expected(42, 6));
        EXPECT_EQ(disasm_get_iflag(instr), expected(41, 1));
        EXPECT_EQ(disasm_get_src1(instr), expected(30, 11));
        EXPECT_EQ(disasm_get_srccc(instr), expected(30, 3));
        EXPECT_EQ(disasm_get_dst(instr), expected(19, 11));
        EXPECT_EQ(disasm_get_dstcc(instr), expected(19, 3));
        EXPECT_EQ(disasm_get_fflag(instr), expected(18, 1));
        EXPECT_EQ(disasm_get_src2(instr), expected(0, 11));
        for (uint32_t bit = 0; bit <= 16; bit++) {
            EXPECT_EQ(disasm_get_bits(instr, bit, 32), expected(bit, 32)) << bit << " " << hole;
        }
    }
    const auto kgen = bytes_of(word(56, {{25, 0x8001}}));
    EXPECT_EQ(disasm_get_imm1(kgen.data()), 0x8001u);
    EXPECT_EQ(disasm_get_imm1(bytes_of(word(0x16, {{25, 0x8001}})).data()), 0x400u);
    EXPECT_EQ(disasm_get_imm2(bytes_of(word(51, {{9, 0x80000001}})).data()), 0x80000001u);
    EXPECT_EQ(disasm_get_imm2(bytes_of(word(0x20, {{0, 0x18001}})).data()), 0x8001u);
    for (const uint64_t opcode : {0x3a, 0x3b, 0x3c, 0x3d, 0x11, 0x34}) {
        EXPECT_EQ(disasm_get_jflag(bytes_of(word(opcode, {{19, 1}})).data()), 1u) << opcode;
        EXPECT_EQ(disasm_get_jflag(bytes_of(word(opcode, {{16, 1}})).data()), 0u) << opcode;
    }
    EXPECT_EQ(disasm_get_jflag(bytes_of(word(0x16, {{16, 1}})).data()), 1u);
}

// Six bytes in, one line out, and not a byte beside: the buffers end where they have to.
TEST(Disassembler, AnySixBytesStayInTheirBuffers)
{
    std::mt19937_64 random(48);
    ldsdk::test::GuardedMemory instr(6), text(NP_DISASM_TEXT_SIZE);
    size_t longest = 0;
    for (int i = 0; i < 200000; i++) {
        instr.place(bytes_of(random() & 0xffffffffffff), i % 2 == 0);
        text.place(std::vector<uint8_t>(NP_DISASM_TEXT_SIZE, 0x5a), i % 4 < 2);
        const char *line = reinterpret_cast<const char *>(text.data());
        ASSERT_EQ(
            soc_np_atom_disasm_instruction(instr.data(), reinterpret_cast<char *>(text.data())),
            0u);
        const size_t size = strnlen(line, NP_DISASM_TEXT_SIZE) + 1;
        longest = std::max(longest, size);
        for (size_t at = size; at < NP_DISASM_TEXT_SIZE; at++) {
            ASSERT_EQ(line[at], 0x5a) << line;
        }
    }
    EXPECT_LE(longest, size_t{NP_DISASM_TEXT_SIZE});
    // The longest line there can be.
    EXPECT_LE(
        text_of(
            word(0x3a, {{kSrc1, reg(3, 3, 33)}, {0, reg(3, 3, 33)}, {25, 31}, {20, 31}, {11, 31}}))
            .size(),
        size_t{NP_DISASM_TEXT_SIZE} - 1);
}

TEST(Disassembler, GroupsAsTheCommandsShowThem)
{
    std::vector<uint8_t> group;
    for (const uint64_t bits : {uint64_t{0xca003df90000}, uint64_t{0xfc0000000000},
                                word(0x1c, {{kImmediate, 1}, {17, 1}}), uint64_t{0x420000010004}}) {
        const auto bytes = bytes_of(bits);
        group.insert(group.end(), bytes.begin(), bytes.end());
    }
    const std::string lines[] = {"0000000C  |  MOV (CC0 = TRUE) VOID = 0x0\r\n",
                                 "0000000D  |  RNOP\r\n", "0000000E  |  PULLRESET 0\r\n",
                                 "0000000F  |  JMP (CC0 = TRUE) 4\r\n"};
    for (uint32_t first = 0; first < 6; first++) {
        for (uint32_t count = 0; count < 7; count++) {
            std::vector<char> text(NP_DISASM_BUFFER_SIZE + 1, 'x');
            const bool refused = first > 3 || count > 4;
            EXPECT_EQ(Np_SMD_DFX_DisasmInstructionGroup(group.data(), text.data(), 3, first, count),
                      refused ? 1u : 0u);
            std::string expected = refused ? "" : "\r\n";
            for (uint32_t slot = first; !refused && slot < std::min(first + count, 4u); slot++) {
                expected += lines[slot];
            }
            EXPECT_EQ(std::string(text.data()), expected);
            EXPECT_EQ(
                std::string(text.data() + expected.size(), NP_DISASM_BUFFER_SIZE - expected.size()),
                std::string(NP_DISASM_BUFFER_SIZE - expected.size(), '\0'));
            EXPECT_EQ(text.back(), 'x');
        }
    }
}

}  // namespace

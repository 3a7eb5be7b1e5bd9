// The atoms' instruction set, described once: the disassembler walks these tables to write a line,
// the assembler walks the same tables to read it.
//
// An instruction has 48 bits, held as 6 bytes, most significant first; bit 0 is the lowest of the
// 48. The opcode stands in bits 47..42.
#pragma once

#include <cstdint>

// ---- registers ----------------------------------------------------------------------------------

// A register operand: 11 bits, the index's low part in bits 6..0, c in bits 8..7, w in bits 10..9.
struct AtomReg {
    uint32_t ulKind;   // 0 R, 2 P, 3 Q, 4 X, 5 S; 1 prints as 0
    uint32_t ulWidth;  // 0 byte, 1 half word, 2 and 3 word
    uint32_t ulIndex;  // 0 to 127, of R to 255
};
inline constexpr uint32_t ATOM_REG_KIND_R = 0;
inline constexpr uint32_t ATOM_REG_KIND_S = 5;
inline constexpr uint32_t ATOM_REG_LEN = 11;  // bits of an operand

inline constexpr char atom_reg_prefix[] = "RRPQXS";  // by kind
inline constexpr char atom_reg_suffix[] = "BHWW";    // by width

// Names of special registers.
struct AtomRegAlias {
    const char *pszAlias;
    const char *pszAccess;  // whose register it is, and how the instructions may use it
    const char *pszText;    // kind, index and width
};
inline constexpr uint32_t ATOM_ALIAS_NUM = 43;

// Names of a test of a condition register, by 3 bits.
inline constexpr const char *atom_condition[8] = {"FALSE", "TRUE", "NZ", "EQ",
                                                  "LT",    "LE",   "GT", "GE"};

// ---- operands -----------------------------------------------------------------------------------

// How a field is written.
enum AtomShow : uint8_t {
    ATOM_SHOW_REG,        // register name; the bits are the 11-bit operand, or its low part
    ATOM_SHOW_HEX,        // "0x%X"
    ATOM_SHOW_HEX_FIXED,  // the same with leading zeros, as many digits as the field can have
    ATOM_SHOW_HEX_BARE,   // "%x"
    ATOM_SHOW_DEC,        // "%u"
    ATOM_SHOW_CONDITION,  // atom_condition
    ATOM_SHOW_SUFFIX,     // ".F", or nothing for 0
};

struct AtomField {
    AtomShow enShow;
    uint8_t ucBit;        // lowest bit
    uint8_t ucLen;        // bits; 0 is the constant 0
    uint8_t ucScale = 1;  // what is written is the field * scale + add,
    uint8_t ucAdd = 0;
    uint16_t usFixed = 0;  // or for a register the field with these bits added
};

inline constexpr uint8_t ATOM_NO_FLAG = 0xff;

// An operand: one field, or one of two by a flag bit of the instruction.
struct AtomOperand {
    char cName;  // in the formats below
    uint8_t ucFlag;
    AtomField stClear;  // with the flag 0 or without one
    AtomField stSet;
};

// Field places that have a name of their own.
inline constexpr uint8_t ATOM_BIT_OPCODE = 42;
inline constexpr uint8_t ATOM_BIT_IFLAG = 41;  // the second operand is an immediate
inline constexpr uint8_t ATOM_BIT_SRC1 = 30;
inline constexpr uint8_t ATOM_BIT_DST = 19;
inline constexpr uint8_t ATOM_BIT_DSTCC = 19;
inline constexpr uint8_t ATOM_BIT_SRCCC = 30;
inline constexpr uint8_t ATOM_BIT_FFLAG = 18;
inline constexpr uint8_t ATOM_BIT_JFLAG = 16;       // the first operand is an immediate
inline constexpr uint8_t ATOM_BIT_JFLAG_HIGH = 19;  // the same in groups 03, 04 and 18
inline constexpr uint8_t ATOM_BIT_KGEN_IMM1 = 25;   // 16 bits, where others have 11 from src1 on
inline constexpr uint8_t ATOM_BIT_MOVW_IMM2 = 9;    // 32 bits, where others have 16 from 0 on
inline constexpr uint8_t ATOM_BIT_RESET = 17;       // PULLNEW is PULLRESET

inline constexpr AtomField ATOM_SRC1_REG = {ATOM_SHOW_REG, ATOM_BIT_SRC1, ATOM_REG_LEN};
inline constexpr AtomField ATOM_SRC2_REG = {ATOM_SHOW_REG, 0, ATOM_REG_LEN};
inline constexpr AtomField ATOM_IMM1 = {ATOM_SHOW_HEX, ATOM_BIT_SRC1, 11};

inline constexpr AtomOperand atom_operand[] = {
    {'f', ATOM_NO_FLAG, {ATOM_SHOW_SUFFIX, ATOM_BIT_FFLAG, 1}, {}},
    {'d', ATOM_NO_FLAG, {ATOM_SHOW_REG, ATOM_BIT_DST, ATOM_REG_LEN}, {}},
    {'s', ATOM_NO_FLAG, ATOM_SRC1_REG, {}},
    {'t', ATOM_NO_FLAG, ATOM_SRC2_REG, {}},
    // A, the first operand, with the J flag
    {'a', ATOM_BIT_JFLAG, ATOM_SRC1_REG, ATOM_IMM1},
    {'A', ATOM_BIT_JFLAG_HIGH, ATOM_SRC1_REG, ATOM_IMM1},
    {'k', ATOM_BIT_JFLAG, ATOM_SRC1_REG, {ATOM_SHOW_HEX, ATOM_BIT_KGEN_IMM1, 16}},
    // B, the second operand, with the immediate flag
    {'b', ATOM_BIT_IFLAG, ATOM_SRC2_REG, {ATOM_SHOW_HEX, 0, 16}},
    {'u', ATOM_BIT_IFLAG, ATOM_SRC2_REG, {ATOM_SHOW_DEC, 0, 16}},
    {'x', ATOM_BIT_IFLAG, ATOM_SRC2_REG, {ATOM_SHOW_HEX_BARE, 0, 16}},
    // conditions
    {'C', ATOM_NO_FLAG, {ATOM_SHOW_CONDITION, 16, 3}, {}},
    {'q', ATOM_NO_FLAG, {ATOM_SHOW_DEC, ATOM_BIT_SRCCC, 3}, {}},
    {'c', ATOM_NO_FLAG, {ATOM_SHOW_DEC, ATOM_BIT_DSTCC, 3}, {}},
    // MOVW: a word register R0 to R255 and 32 bits
    {'r', ATOM_NO_FLAG, {ATOM_SHOW_REG, 0, 8, 1, 0, 0x400}, {}},
    {'i', ATOM_NO_FLAG, {ATOM_SHOW_HEX_FIXED, ATOM_BIT_MOVW_IMM2, 32}, {}},
    // KGEN: byte ranges of the source and the destination, high and low end
    {'h', ATOM_BIT_JFLAG, {ATOM_SHOW_DEC, 26, 3, 4, 3}, {ATOM_SHOW_DEC, 22, 3}},
    {'l', ATOM_BIT_JFLAG, {ATOM_SHOW_DEC, 22, 3, 4}, {ATOM_SHOW_DEC, 0, 0}},
    {'H', ATOM_BIT_IFLAG, {ATOM_SHOW_DEC, 19, 3, 4, 3}, {ATOM_SHOW_DEC, 19, 3}},
    {'L', ATOM_BIT_IFLAG, {ATOM_SHOW_DEC, 11, 3, 4}, {ATOM_SHOW_DEC, 0, 0}},
    // numbers of single groups
    {'m', ATOM_NO_FLAG, {ATOM_SHOW_HEX_FIXED, 11, 8}, {}},
    {'w', ATOM_NO_FLAG, {ATOM_SHOW_HEX_FIXED, 11, 16}, {}},
    {'1', ATOM_NO_FLAG, {ATOM_SHOW_DEC, 25, 5}, {}},
    {'2', ATOM_NO_FLAG, {ATOM_SHOW_DEC, 20, 5}, {}},
    {'3', ATOM_NO_FLAG, {ATOM_SHOW_DEC, 11, 5}, {}},
    {'6', ATOM_NO_FLAG, {ATOM_SHOW_HEX, 24, 6}, {}},
    {'4', ATOM_NO_FLAG, {ATOM_SHOW_HEX, 20, 4}, {}},
    {'n', ATOM_NO_FLAG, {ATOM_SHOW_DEC, 17, 3}, {}},
    {'j', ATOM_NO_FLAG, {ATOM_SHOW_DEC, ATOM_BIT_JFLAG_HIGH, 1}, {}},
    {'z', ATOM_NO_FLAG, {ATOM_SHOW_DEC, 0, 2}, {}},
};

// ---- formats ------------------------------------------------------------------------------------

inline constexpr uint32_t ATOM_GROUP_NUM = 20;

// What stands behind the mnemonic, by group: "%" and an operand's name, "%%", or plain text.
inline constexpr const char *atom_format[ATOM_GROUP_NUM] = {
    /* 00 */ "%f %d = %s, %b",
    /* 01 */ " CC%c = %s, %b",
    /* 02 */ " %d = %s, %t, %m",
    /* 03 */ " (CC0 == %C) %t = %A, %1, [%2, %3]",
    /* 04 */ " (CC0 == %C) %t = %A, %1, [%2, %3]",
    /* 05 */ " (CC%q = %C) %d = %b",
    /* 06 */ " %r = %i",
    /* 07 */ " (CC%q = %C) %u",
    /* 08 */ " %k [%h..%l], %b [%H..%L]",
    /* 09 */ "",
    /* 10 */ " %x",
    /* 11 */ " %s, %t, %w",
    /* 12 */ " %%RD[%6, %4] = %a, %b",
    /* 13 */ " %a, %b, %n",
    /* 14 */ " %%RD[%6, %4] = %a, %b, %n",
    /* 15 */ " %u",
    /* 16 */ " %a, %b",
    /* 17 */ "",
    /* 18 */ " %x, %j",
    /* 19 */ " %z",
};

struct AtomOperandIndex {
    uint8_t aucRow[128];
};
inline constexpr AtomOperandIndex atom_operand_index = [] {
    AtomOperandIndex stIndex = {};
    for (uint8_t &ucRow : stIndex.aucRow) {
        ucRow = 0xff;
    }
    for (uint32_t i = 0; i < sizeof(atom_operand) / sizeof(atom_operand[0]); i++) {
        stIndex.aucRow[static_cast<uint8_t>(atom_operand[i].cName)] = static_cast<uint8_t>(i);
    }
    return stIndex;
}();

// The operand of a name that a format has.
constexpr const AtomOperand &Atom_OperandGet(char cName)
{
    return atom_operand[atom_operand_index.aucRow[static_cast<uint8_t>(cName) & 127]];
}

consteval bool Atom_FormatsAreKnown()
{
    for (const char *pszAt : atom_format) {
        for (; *pszAt != '\0'; pszAt++) {
            if (*pszAt == '%' && *++pszAt != '%' &&
                atom_operand_index.aucRow[static_cast<uint8_t>(*pszAt) & 127] == 0xff) {
                return false;
            }
        }
    }
    return true;
}
static_assert(Atom_FormatsAreKnown(), "a format names an operand that has no row");

// ---- opcodes ------------------------------------------------------------------------------------

// Writes one instruction's line. Always 0.
using AtomDisasmFn = uint32_t (*)(const uint8_t *pucInstr, uint32_t ulOpcode, char *pszText);

struct AtomOpcode {
    const char *pszName;
    AtomDisasmFn pfnGroup;
    uint8_t ucGroup;  // row of atom_format
};
inline constexpr uint32_t ATOM_OPCODE_NUM = 64;
inline constexpr uint32_t ATOM_GROUP_PULL = 15;  // its instruction has a second name:
inline constexpr char ATOM_NAME_RESET[] = "PULLRESET";
inline constexpr uint32_t ATOM_GROUP_INVALID = 9;
inline constexpr uint32_t ATOM_OPCODE_MOVW = 0x33;
inline constexpr uint32_t ATOM_OPCODE_KGEN = 0x38;

extern "C" {

extern const AtomOpcode atom_opcode[ATOM_OPCODE_NUM];
extern const AtomRegAlias reg_name_alias[ATOM_ALIAS_NUM];

}  // extern "C"

// The disassembler: one instruction of six bytes, most significant first, becomes one line of text.
#pragma once

#include "sdk/micro/isa.h"

#include <cstdint>

inline constexpr uint32_t NP_DISASM_TEXT_SIZE = 96;     // holds any line with its NUL
inline constexpr uint32_t NP_DISASM_BUFFER_SIZE = 512;  // of a group's text; cleared first
inline constexpr uint32_t NP_DISASM_TEXT_MAX = 480;     // characters written there at most

extern "C" {

// ulLen bits (at most 32) of an instruction whose lowest is ulBit; ulBit + ulLen at most 48.
uint32_t disasm_get_bits(const uint8_t *pucInstr, uint32_t ulBit, uint32_t ulLen);

// The named fields.
uint32_t disasm_get_opcode(const uint8_t *pucInstr);
uint32_t disasm_get_iflag(const uint8_t *pucInstr);
uint32_t disasm_get_src1(const uint8_t *pucInstr);
uint32_t disasm_get_imm1(const uint8_t *pucInstr);  // 16 bits of KGEN, else 11
uint32_t disasm_get_srccc(const uint8_t *pucInstr);
uint32_t disasm_get_dst(const uint8_t *pucInstr);
uint32_t disasm_get_dstcc(const uint8_t *pucInstr);
uint32_t disasm_get_fflag(const uint8_t *pucInstr);
uint32_t disasm_get_jflag(const uint8_t *pucInstr);
uint32_t disasm_get_src2(const uint8_t *pucInstr);
uint32_t disasm_get_imm2(const uint8_t *pucInstr);  // 32 bits of MOVW, else 16

// A register operand of 11 bits taken apart, put together, and as text (at most 12 characters and
// the NUL). The text is the alias of a special register that has one.
void atom_dis_reg_decode(uint32_t ulReg, AtomReg *pstReg);
uint32_t atom_asm_reg_encode(uint32_t ulKind, uint32_t ulWidth, uint32_t ulIndex);
void reg_to_string(const AtomReg *pstReg, char *pszText);

// The text of one instruction, without line end. pszText: NP_DISASM_TEXT_SIZE bytes. Always 0.
uint32_t soc_np_atom_disasm_instruction(const uint8_t *pucInstr, char *pszText);

// The text of a run of instructions of one group, a line each with its address. pucInstrs: the
// group's 24 bytes. pszText: NP_DISASM_BUFFER_SIZE bytes. ulGroup: the group's number. ulFirst: 0
// to 3, the first slot; ulCount: at most 4, cut at the group's end. 0, or 1 for numbers outside.
uint32_t Np_SMD_DFX_DisasmInstructionGroup(const uint8_t *pucInstrs, char *pszText,
                                           uint32_t ulGroup, uint32_t ulFirst, uint32_t ulCount);

}  // extern "C"

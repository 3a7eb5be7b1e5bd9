// Instruction groups: how four instructions and their ECC word stand in eight words of instruction
// memory. Whatever writes instruction memory goes through here.
//
//   word 0  I0 bits 47..16               word 3  I2 bits 47..16
//   word 1  I0 bits 15..0, I1 47..32     word 4  I2 bits 15..0, I3 47..32
//   word 2  I1 bits 31..0                word 5  I3 bits 31..0
//   word 6  ECC: bits 31..23 the 9 code bits (bit i in 23 + i), bits 22..18 the 5 top code bits
//           (bit k in 18 + k), rest 0    word 7  0
#pragma once

#include <cstdint>

inline constexpr uint32_t NP_GROUP_WORDS = 8;
inline constexpr uint32_t NP_GROUP_SIZE = 32;  // bytes in instruction memory
inline constexpr uint32_t NP_GROUP_INSTR = 4;  // instructions
inline constexpr uint32_t NP_GROUP_ECC_WORD = 6;
inline constexpr uint32_t NP_INSTR_SIZE = 6;         // bytes of one instruction
inline constexpr uint32_t NP_GROUP_INSTR_SIZE = 24;  // bytes of a group's instructions
inline constexpr uint32_t NP_GROUP_NUM = 8192;       // groups of instruction memory
inline constexpr uint32_t NP_PC_NUM = NP_GROUP_NUM * NP_GROUP_INSTR;
inline constexpr uint32_t NP_IMEM_BASE = 0x7a080000;  // chip address of group 0

inline constexpr uint32_t NP_ECC_CODE_NUM = 9;  // bits of the code over all instruction bits
inline constexpr uint32_t NP_ECC_TOP_CODE_NUM =
    5;  // bits of the code over the top two bits of each

extern "C" {

// Top 32 bits of fixed instructions.
extern const uint32_t g_ulNopOpcodeH32;   // low 16 bits 0
extern const uint32_t g_ulRnopOpcodeH32;  // low 16 bits 0
extern const uint32_t g_ulJmpOpcodeH32;   // low 16 bits the target PC
extern const uint32_t g_ulNopOpcodeEcc;   // ECC word of the all-NOP group
// Groups of one instruction; the RNOP one without its ECC, which is computed where it is used.
extern const uint32_t g_aulNopCmdGroup[NP_GROUP_WORDS];
extern const uint32_t g_aulRnopCmdGroup[NP_GROUP_WORDS];

// Conversions. 0, or NP_ERR_NULL_PTR for a null array.

// The 24 instruction bytes of a group. ECC order: each instruction's least significant byte first.
uint32_t Np_Tarn_InstructionsToUcharArray(const uint32_t *pulGroup, uint8_t *aucBytes);
// The inverse: words 0 to 5 of a group from bytes in ECC order.
uint32_t Np_Tarn_UcharArrayToInstructions(uint32_t *pulGroup, const uint8_t *aucBytes);
// The 24 bytes with each instruction's most significant byte first, as the disassembler reads them.
uint32_t Np_Tarn_InstructionsToUcharArrayHigh(const uint32_t *pulGroup, uint8_t *aucBytes);

// ORs the 14 code bits (bit 0 of each byte) into an ECC word.
uint32_t Np_Tarn_UcharArrayToUlong(uint32_t *pulEcc, const uint8_t *aucCode1,
                                   const uint8_t *aucCode2);

// Parity of the byte's bits that the mask selects: 0 or 1.
uint32_t Np_Tarn_GetEccOfChar(uint32_t ulByte, uint32_t ulMask);
// Both codes of 24 bytes in ECC order, one bit a byte (0 or 1), with the masks of the 9 rows for 24
// bytes each and the 5 masks of the top code. NP_ERR_NULL_PTR for null bytes or codes.
uint32_t Np_Tarn_GetEcc(const uint8_t *aucBytes, uint8_t *aucCode1, uint8_t *aucCode2,
                        const uint8_t (*aucMask)[NP_GROUP_INSTR_SIZE], const uint8_t *aucMask2);
// The same with the chip's own masks.
uint32_t Np_Tarn_ContextRewriteGetEcc(const uint8_t *aucBytes, uint8_t *aucCode1,
                                      uint8_t *aucCode2);
// The ECC word that belongs to words 0 to 5 of a group.
uint32_t Np_Micro_GroupEccGet(const uint32_t *pulGroup);
// One instruction of a group, 48 bits, ulSlot 0 to 3. Set leaves the ECC word as it is.
uint64_t Np_Micro_GroupInstrGet(const uint32_t *pulGroup, uint32_t ulSlot);
void Np_Micro_GroupInstrSet(uint32_t *pulGroup, uint32_t ulSlot, uint64_t ullInstr);

}  // extern "C"

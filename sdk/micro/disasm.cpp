#include "sdk/micro/disasm.h"

#include "sdk/frame/base/text.h"
#include "sdk/micro/group.h"

constexpr AtomRegAlias reg_name_alias[ATOM_ALIAS_NUM] = {
    {"ZEROS", "ATOM  RO", "S0W"},         {"ONES", "ATOM  RO", "S1W"},
    {"CNTXID", "THREAD RO", "S2W"},       {"PAC_ID", "THREAD RW", "S3W"},
    {"PWZ", "THREAD RO", "S4W"},          {"PWO", "THREAD RW", "S5W"},
    {"PWCS", "THREAD RO", "S6W"},         {"CCR", "THREAD RW", "S7W"},
    {"CURR_PC", "THREAD RO", "S8W"},      {"PARAM", "THREAD RW", "S9W"},
    {"PARAM_B0", "THREAD RW", "S10W"},    {"PARAM_B1", "THREAD RW", "S11W"},
    {"TIME", "ATOM  RO", "S12W"},         {"CLOCK", "ATOM  RO", "S13W"},
    {"CTRL", "THREAD RO", "S14W"},        {"STATUS", "THREAD RO", "S15W"},
    {"PAC_INFO", "THREAD RO", "S16W"},    {"PAC_SN", "THREAD RO", "S17W"},
    {"PAC_CHAN", "THREAD RO", "S18W"},    {"PAC_TYPE", "THREAD RO", "S19W"},
    {"PAC_LEN", "THREAD RO", "S20W"},     {"TEMP", "THREAD RO", "S21W"},
    {"TRIG", "NPU  WO", "S22W"},          {"SCRATCH0", "ATOM  RO", "S23W"},
    {"SCRATCH1", "ATOM  RO", "S24W"},     {"SCRATCH2", "ATOM  RO", "S25W"},
    {"SCRATCH3", "ATOM  RO", "S26W"},     {"EXCP", "THREAD RWC", "S27W"},
    {"XR", "THREAD RW", "S28W"},          {"RANDOM", "ATOM  RO", "S29W"},
    {"RETURN", "THREAD RO", "S30W"},      {"TIMESTAMP_S", "ATOM  RO", "S32W"},
    {"TIMESTAMP_NS", "ATOM  RO", "S33W"}, {"PCR", "THREAD RO", "S34W"},
    {"MESSAGE0", "ATOM  RW", "S35W"},     {"MESSAGE1", "ATOM  RW", "S36W"},
    {"SCRATCH4", "ATOM  RO", "S37W"},     {"SCRATCH5", "ATOM  RO", "S38W"},
    {"SCRATCH6", "ATOM  RO", "S39W"},     {"SCRATCH7", "ATOM  RO", "S40W"},
    {"PWO_MOP", "THREAD RW", "S41W"},     {"PWO_NEG", "THREAD RO", "S42W"},
    {"VOID", "ATOM  WO", "S63W"},
};

namespace {

// ---- text ---------------------------------------------------------------------------------------
// Each writer puts its characters at pszAt and gives the place behind them; none writes a NUL.

char *Atom_PutText(char *pszAt, const char *pszText)
{
    while (*pszText != '\0') {
        *pszAt++ = *pszText++;
    }
    return pszAt;
}

char *Atom_PutDec(char *pszAt, uint32_t ulValue)
{
    uint32_t ulCount = 1;
    for (uint32_t ulLimit = 10; ulCount < 10 && ulValue >= ulLimit; ulLimit *= 10) {
        ulCount++;
    }
    for (uint32_t i = ulCount; i-- > 0; ulValue /= 10) {
        pszAt[i] = static_cast<char>('0' + ulValue % 10);
    }
    return pszAt + ulCount;
}

inline constexpr char ATOM_HEX_UPPER[] = "0123456789ABCDEF";
inline constexpr char ATOM_HEX_LOWER[] = "0123456789abcdef";

// At least ulMin digits.
char *Atom_PutHex(char *pszAt, uint32_t ulValue, uint32_t ulMin, const char *pszDigits)
{
    uint32_t ulCount = ulMin;
    while (ulCount < 8 && ulValue >> 4 * ulCount != 0) {
        ulCount++;
    }
    while (ulCount > 0) {
        *pszAt++ = pszDigits[ulValue >> 4 * --ulCount & 15];
    }
    return pszAt;
}

// ---- registers ----------------------------------------------------------------------------------

inline constexpr uint32_t ATOM_SPECIAL_NUM = 128;

// The decimal digits of a register's index.
struct AtomDigits {
    char ac[3];
    uint8_t ucLen;
};
struct AtomDigitTable {
    AtomDigits ast[256];
};
constexpr AtomDigitTable g_stDigits = [] {
    AtomDigitTable stTable = {};
    for (uint32_t i = 0; i < 256; i++) {
        AtomDigits &st = stTable.ast[i];
        for (uint32_t ulUnit = i < 10 ? 1 : i < 100 ? 10 : 100; ulUnit > 0; ulUnit /= 10) {
            st.ac[st.ucLen++] = static_cast<char>('0' + i / ulUnit % 10);
        }
    }
    return stTable;
}();

// Row of reg_name_alias by the index of a special register, plus 1; 0 where there is none.
struct AtomAliasIndex {
    uint8_t aucRow[ATOM_SPECIAL_NUM];
};
constexpr AtomAliasIndex g_stAliasIndex = [] {
    AtomAliasIndex stIndex = {};
    for (uint32_t i = 0; i < ATOM_ALIAS_NUM; i++) {
        uint32_t ulIndex = 0;
        for (const char *pszAt = reg_name_alias[i].pszText + 1; *pszAt != 'W'; pszAt++) {
            ulIndex = ulIndex * 10 + static_cast<uint32_t>(*pszAt - '0');
        }
        stIndex.aucRow[ulIndex] = static_cast<uint8_t>(i + 1);
    }
    return stIndex;
}();

AtomReg Atom_RegOf(uint32_t ulReg)
{
    const uint32_t ulIndex = ulReg & 127;
    const uint32_t ulC = ulReg >> 7 & 3;
    const uint32_t ulW = ulReg >> 9 & 3;
    if (ulW == 3) {
        return ulC == 3 ? AtomReg{ATOM_REG_KIND_S, 2, ulIndex} : AtomReg{4, ulC, ulIndex};
    }
    return ulC < 2 ? AtomReg{ATOM_REG_KIND_R, ulW, ulIndex + 128 * ulC}
                   : AtomReg{ulC, ulW, ulIndex};
}

char *Atom_PutReg(char *pszAt, const AtomReg &stReg)
{
    if (stReg.ulKind == ATOM_REG_KIND_S && stReg.ulIndex < ATOM_SPECIAL_NUM) {
        const uint32_t ulRow = g_stAliasIndex.aucRow[stReg.ulIndex];
        if (ulRow != 0) {
            return Atom_PutText(pszAt, reg_name_alias[ulRow - 1].pszAlias);
        }
    }
    *pszAt++ = atom_reg_prefix[stReg.ulKind];
    const AtomDigits &stDigits = g_stDigits.ast[stReg.ulIndex & 255];
    __builtin_memcpy(pszAt, stDigits.ac, 3);  // what is too many, the suffix and the NUL overwrite
    pszAt += stDigits.ucLen;
    *pszAt++ = atom_reg_suffix[stReg.ulWidth];
    return pszAt;
}

// ---- instructions -------------------------------------------------------------------------------

// An instruction as a number, bit 0 the lowest.
uint64_t Atom_Word(const uint8_t *pucInstr)
{
    uint64_t ullWord = 0;
    for (uint32_t i = 0; i < NP_INSTR_SIZE; i++) {
        ullWord = ullWord << 8 | pucInstr[i];
    }
    return ullWord;
}

constexpr uint32_t Atom_Bits(uint64_t ullWord, uint32_t ulBit, uint32_t ulLen)
{
    return static_cast<uint32_t>(ullWord >> ulBit & ((1ull << ulLen) - 1));
}

template <AtomField stField>
char *Atom_PutField(char *pszAt, uint64_t ullWord)
{
    const uint32_t ulBits = Atom_Bits(ullWord, stField.ucBit, stField.ucLen);
    const uint32_t ulValue = ulBits * stField.ucScale + stField.ucAdd;
    switch (stField.enShow) {
        case ATOM_SHOW_REG:
            return Atom_PutReg(pszAt, Atom_RegOf(ulBits | stField.usFixed));
        case ATOM_SHOW_HEX:
            return Atom_PutHex(Atom_PutText(pszAt, "0x"), ulValue, 1, ATOM_HEX_UPPER);
        case ATOM_SHOW_HEX_FIXED:
            return Atom_PutHex(Atom_PutText(pszAt, "0x"), ulValue, stField.ucLen / 4u,
                               ATOM_HEX_UPPER);
        case ATOM_SHOW_HEX_BARE:
            return Atom_PutHex(pszAt, ulValue, 1, ATOM_HEX_LOWER);
        case ATOM_SHOW_DEC:
            return Atom_PutDec(pszAt, ulValue);
        case ATOM_SHOW_CONDITION:
            return Atom_PutText(pszAt, atom_condition[ulBits & 7]);
        case ATOM_SHOW_SUFFIX:
            return Atom_PutText(pszAt, ulBits != 0 ? ".F" : "");
    }
    return pszAt;
}

// Writes the format of a group from character ulAt on. The walk happens at compile time: what is
// left of it is a run of stores and fields.
template <uint32_t Group, uint32_t ulAt = 0>
char *Atom_PutFormat(char *pszAt, uint64_t ullWord)
{
    constexpr char cAt = atom_format[Group][ulAt];
    if constexpr (cAt == '\0') {
        return pszAt;
    }
    else if constexpr (cAt != '%') {
        *pszAt = cAt;
        return Atom_PutFormat<Group, ulAt + 1>(pszAt + 1, ullWord);
    }
    else if constexpr (atom_format[Group][ulAt + 1] == '%') {
        *pszAt = '%';
        return Atom_PutFormat<Group, ulAt + 2>(pszAt + 1, ullWord);
    }
    else {
        constexpr AtomOperand stOperand = Atom_OperandGet(atom_format[Group][ulAt + 1]);
        if (stOperand.ucFlag != ATOM_NO_FLAG && Atom_Bits(ullWord, stOperand.ucFlag, 1) != 0) {
            pszAt = Atom_PutField<stOperand.stSet>(pszAt, ullWord);
        }
        else {
            pszAt = Atom_PutField<stOperand.stClear>(pszAt, ullWord);
        }
        return Atom_PutFormat<Group, ulAt + 2>(pszAt, ullWord);
    }
}

template <uint32_t Group>
uint32_t Atom_DisasmGroup(const uint8_t *pucInstr, uint32_t ulOpcode, char *pszText)
{
    const uint64_t ullWord = Atom_Word(pucInstr);
    const bool bReset = Group == ATOM_GROUP_PULL && Atom_Bits(ullWord, ATOM_BIT_RESET, 1) != 0;
    char *pszAt = Atom_PutText(pszText, bReset ? ATOM_NAME_RESET : atom_opcode[ulOpcode].pszName);
    *Atom_PutFormat<Group>(pszAt, ullWord) = '\0';
    return 0;
}

}  // namespace

#define ATOM_OP(name, group)                 \
    {                                        \
        name, Atom_DisasmGroup<group>, group \
    }

constexpr AtomOpcode atom_opcode[ATOM_OPCODE_NUM] = {
    ATOM_OP("INVALID_00", 9), ATOM_OP("INVALID_01", 9), ATOM_OP("INVALID_02", 9),
    ATOM_OP("INVALID_03", 9), ATOM_OP("INVALID_04", 9), ATOM_OP("INVALID_05", 9),
    ATOM_OP("INVALID_06", 9), ATOM_OP("INVALID_07", 9), ATOM_OP("INVALID_08", 9),
    ATOM_OP("INVALID_09", 9), ATOM_OP("INVALID_0A", 9), ATOM_OP("INVALID_0B", 9),
    ATOM_OP("INVALID_0C", 9), ATOM_OP("INVALID_0D", 9), ATOM_OP("INVALID_0E", 9),
    ATOM_OP("INVALID_0F", 9), ATOM_OP("JMP", 7),        ATOM_OP("ENDTASK", 18),
    ATOM_OP("RSWITCH", 11),   ATOM_OP("KSWITCH", 10),   ATOM_OP("STIK", 13),
    ATOM_OP("PSTIK", 13),     ATOM_OP("LOAD", 12),      ATOM_OP("PLOAD", 12),
    ATOM_OP("STORE", 13),     ATOM_OP("PSTORE", 13),    ATOM_OP("LOOKUP", 14),
    ATOM_OP("PLOOKUP", 14),   ATOM_OP("PULLNEW", 15),   ATOM_OP("AWPP", 16),
    ATOM_OP("SLEEP", 10),     ATOM_OP("HALT", 19),      ATOM_OP("ADD", 0),
    ATOM_OP("ADC", 0),        ATOM_OP("SUB", 0),        ATOM_OP("SBC", 0),
    ATOM_OP("INVALID_24", 9), ATOM_OP("INVALID_25", 9), ATOM_OP("MAX", 0),
    ATOM_OP("MIN", 0),        ATOM_OP("OR", 0),         ATOM_OP("NOR", 0),
    ATOM_OP("XOR", 0),        ATOM_OP("AND", 0),        ATOM_OP("SLL", 0),
    ATOM_OP("SRL", 0),        ATOM_OP("CSR", 17),       ATOM_OP("CSW", 17),
    ATOM_OP("JMPD", 7),       ATOM_OP("SKIP", 7),       ATOM_OP("MOV", 5),
    ATOM_OP("MOVW", 6),       ATOM_OP("ENDTASKD", 18),  ATOM_OP("INVALID_35", 9),
    ATOM_OP("CMP", 1),        ATOM_OP("BITCMP", 1),     ATOM_OP("KGEN", 8),
    ATOM_OP("MRG", 2),        ATOM_OP("SLLMRG", 3),     ATOM_OP("SRLMRG", 3),
    ATOM_OP("SLLBM", 4),      ATOM_OP("SRLBM", 4),      ATOM_OP("INVALID_3E", 9),
    ATOM_OP("RNOP", 17),
};

uint32_t disasm_get_bits(const uint8_t *pucInstr, uint32_t ulBit, uint32_t ulLen)
{
    return Atom_Bits(Atom_Word(pucInstr), ulBit, ulLen);
}

uint32_t disasm_get_opcode(const uint8_t *pucInstr)
{
    return pucInstr[0] >> 2;
}

uint32_t disasm_get_iflag(const uint8_t *pucInstr)
{
    return disasm_get_bits(pucInstr, ATOM_BIT_IFLAG, 1);
}

uint32_t disasm_get_src1(const uint8_t *pucInstr)
{
    return disasm_get_bits(pucInstr, ATOM_BIT_SRC1, ATOM_REG_LEN);
}

uint32_t disasm_get_imm1(const uint8_t *pucInstr)
{
    return disasm_get_opcode(pucInstr) == ATOM_OPCODE_KGEN
               ? disasm_get_bits(pucInstr, ATOM_BIT_KGEN_IMM1, 16)
               : disasm_get_bits(pucInstr, ATOM_BIT_SRC1, 11);
}

uint32_t disasm_get_srccc(const uint8_t *pucInstr)
{
    return disasm_get_bits(pucInstr, ATOM_BIT_SRCCC, 3);
}

uint32_t disasm_get_dst(const uint8_t *pucInstr)
{
    return disasm_get_bits(pucInstr, ATOM_BIT_DST, ATOM_REG_LEN);
}

uint32_t disasm_get_dstcc(const uint8_t *pucInstr)
{
    return disasm_get_bits(pucInstr, ATOM_BIT_DSTCC, 3);
}

uint32_t disasm_get_fflag(const uint8_t *pucInstr)
{
    return disasm_get_bits(pucInstr, ATOM_BIT_FFLAG, 1);
}

uint32_t disasm_get_jflag(const uint8_t *pucInstr)
{
    const uint32_t ulGroup = atom_opcode[disasm_get_opcode(pucInstr)].ucGroup;
    const bool bHigh = ulGroup == 3 || ulGroup == 4 || ulGroup == 18;
    return disasm_get_bits(pucInstr, bHigh ? ATOM_BIT_JFLAG_HIGH : ATOM_BIT_JFLAG, 1);
}

uint32_t disasm_get_src2(const uint8_t *pucInstr)
{
    return disasm_get_bits(pucInstr, 0, ATOM_REG_LEN);
}

uint32_t disasm_get_imm2(const uint8_t *pucInstr)
{
    return disasm_get_opcode(pucInstr) == ATOM_OPCODE_MOVW
               ? disasm_get_bits(pucInstr, ATOM_BIT_MOVW_IMM2, 32)
               : disasm_get_bits(pucInstr, 0, 16);
}

void atom_dis_reg_decode(uint32_t ulReg, AtomReg *pstReg)
{
    *pstReg = Atom_RegOf(ulReg);
}

uint32_t atom_asm_reg_encode(uint32_t ulKind, uint32_t ulWidth, uint32_t ulIndex)
{
    const uint32_t ulLow = ulIndex & 127;
    switch (ulKind) {
        case 0:
            return (ulWidth & 3) << 9 | (ulIndex > 127 ? 1u << 7 : 0) | ulLow;
        case 2:
            return (ulWidth & 3) << 9 | 2u << 7 | ulLow;
        case 3:
            return (ulWidth & 3) << 9 | 3u << 7 | ulLow;
        case 4:
            return 3u << 9 | (ulWidth & 3) << 7 | ulLow;
        default:
            return 3u << 9 | 3u << 7 | ulLow;
    }
}

void reg_to_string(const AtomReg *pstReg, char *pszText)
{
    *Atom_PutReg(pszText, *pstReg) = '\0';
}

uint32_t soc_np_atom_disasm_instruction(const uint8_t *pucInstr, char *pszText)
{
    const uint32_t ulOpcode = disasm_get_opcode(pucInstr);
    return atom_opcode[ulOpcode].pfnGroup(pucInstr, ulOpcode, pszText);
}

uint32_t Np_SMD_DFX_DisasmInstructionGroup(const uint8_t *pucInstrs, char *pszText,
                                           uint32_t ulGroup, uint32_t ulFirst, uint32_t ulCount)
{
    memset(pszText, 0, NP_DISASM_BUFFER_SIZE);
    if (ulFirst >= NP_GROUP_INSTR || ulCount > NP_GROUP_INSTR) {
        return 1;
    }
    const uint32_t ulEnd = ulFirst + ulCount < NP_GROUP_INSTR ? ulFirst + ulCount : NP_GROUP_INSTR;
    char *pszAt = Atom_PutText(pszText, "\r\n");
    for (uint32_t ulSlot = ulFirst; ulSlot < ulEnd; ulSlot++) {
        char szLine[NP_DISASM_TEXT_SIZE];
        soc_np_atom_disasm_instruction(pucInstrs + NP_INSTR_SIZE * ulSlot, szLine);
        // Eight digits, a separator of five characters and the line end go with each text.
        const uint32_t ulUsed = static_cast<uint32_t>(pszAt - pszText);
        if (ulUsed + 8 + 5 + NP_StrLen(szLine) + 2 > NP_DISASM_TEXT_MAX) {
            break;
        }
        pszAt = Atom_PutHex(pszAt, ulGroup * NP_GROUP_INSTR + ulSlot, 8, ATOM_HEX_UPPER);
        pszAt = Atom_PutText(pszAt, "  |  ");
        pszAt = Atom_PutText(pszAt, szLine);
        pszAt = Atom_PutText(pszAt, "\r\n");
    }
    return 0;
}

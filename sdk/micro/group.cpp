#include "sdk/micro/group.h"

#include "ldsdk/status.h"
#include "sdk/frame/base/trace.h"

constinit const uint32_t g_ulNopOpcodeH32 = 0xca003df9;
constinit const uint32_t g_ulRnopOpcodeH32 = 0xfc000000;
constinit const uint32_t g_ulJmpOpcodeH32 = 0x42000001;
constinit const uint32_t g_ulNopOpcodeEcc = 0x7af40000;
constinit const uint32_t g_aulNopCmdGroup[NP_GROUP_WORDS] = {
    0xca003df9, 0x0000ca00, 0x3df90000, 0xca003df9, 0x0000ca00, 0x3df90000, 0x7af40000, 0,
};
constinit const uint32_t g_aulRnopCmdGroup[NP_GROUP_WORDS] = {
    0xfc000000, 0x0000fc00, 0, 0xfc000000, 0x0000fc00, 0, 0, 0,
};

namespace {

// Which bits of the 24 bytes each code bit covers.
constexpr uint8_t g_aucEccMask[NP_ECC_CODE_NUM][NP_GROUP_INSTR_SIZE] = {
    {0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xfc, 0xff, 0xff, 0xbf, 0x2a,
     0xd5, 0xac, 0x56, 0xb3, 0xaa, 0x16, 0xad, 0x56, 0xad, 0xaa, 0x6a, 0x15},
    {0x00, 0x00, 0x00, 0x00, 0xf8, 0x3f, 0xff, 0x03, 0x00, 0x80, 0xbf, 0x1a,
     0x35, 0xad, 0xd5, 0xb4, 0xa6, 0x19, 0x6d, 0xb6, 0x5c, 0x55, 0xd5, 0x2a},
    {0x00, 0x00, 0xf0, 0xff, 0x07, 0x00, 0xf0, 0x03, 0x00, 0x7e, 0xa0, 0x16,
     0xcd, 0x6c, 0x35, 0x6b, 0x55, 0x26, 0x5b, 0xcd, 0x6a, 0x6a, 0xea, 0x2c},
    {0x00, 0xfc, 0x0f, 0xc0, 0x07, 0x20, 0x0f, 0x02, 0xf0, 0x41, 0x90, 0x15,
     0xb3, 0x5a, 0xcd, 0xb2, 0x65, 0x35, 0x56, 0xab, 0x96, 0x9a, 0x35, 0x13},
    {0xf0, 0x03, 0x0f, 0x3c, 0x04, 0x1e, 0x08, 0x01, 0x0f, 0x21, 0x48, 0x15,
     0xad, 0x56, 0xab, 0x56, 0x1d, 0x1d, 0xb5, 0x9a, 0x2b, 0x6d, 0x1e, 0x16},
    {0x8e, 0xe3, 0x88, 0x23, 0xc2, 0x11, 0x84, 0xe0, 0x88, 0x10, 0x44, 0x35,
     0xaa, 0xd5, 0xac, 0x59, 0xab, 0x2b, 0xca, 0x65, 0x65, 0xd7, 0xc9, 0x35},
    {0x6d, 0x9a, 0x64, 0x12, 0x31, 0x09, 0x42, 0x98, 0x44, 0x08, 0x42, 0x2d,
     0x6a, 0x33, 0x73, 0xae, 0xf2, 0x12, 0xd3, 0x71, 0xd3, 0x45, 0x7b, 0x2b},
    {0x5b, 0x55, 0x52, 0x89, 0xa8, 0x04, 0x21, 0x54, 0x22, 0x04, 0x41, 0x2b,
     0x5a, 0xcb, 0x9a, 0xcd, 0xdc, 0x2c, 0x34, 0x6d, 0xd9, 0xb6, 0xa6, 0x0e},
    {0xb7, 0x2c, 0xb1, 0x44, 0x58, 0x22, 0x10, 0x2c, 0x11, 0x82, 0xc0, 0x2a,
     0x56, 0xb3, 0x6a, 0x4d, 0x5b, 0x2b, 0xaa, 0x9a, 0xb6, 0xb9, 0x95, 0x39},
};
constexpr uint8_t g_aucEccTopMask[NP_ECC_TOP_CODE_NUM] = {0xda, 0x36, 0xd5, 0xad, 0x6b};

inline constexpr uint32_t NP_ECC_CODE_SHIFT = 23;
inline constexpr uint32_t NP_ECC_TOP_CODE_SHIFT = 18;
inline constexpr uint32_t NP_INSTR_TOP_SHIFT = 6;  // the top two bits in an instruction's top byte

uint32_t Np_NullPtr(NpWhere stWhere = Np_Here())
{
    NP_TRACE_AT(stWhere, NP_M_ATOM, NP_PRINT_ERROR, "Para null ptr\r\n");
    return NP_ERR_NULL_PTR;
}

uint32_t Np_Parity(uint32_t ulBits)
{
    ulBits ^= ulBits >> 16;
    ulBits ^= ulBits >> 8;
    ulBits ^= ulBits >> 4;
    return 0x6996u >> (ulBits & 15) & 1;  // parity of 4 bits, one bit each
}

// The bytes of a row or of a group, eight at a time; parity doesn't mind their order.
uint64_t Np_Load8(const uint8_t *pucBytes)
{
    uint64_t ullBytes;
    __builtin_memcpy(&ullBytes, pucBytes, sizeof(ullBytes));
    return ullBytes;
}

}  // namespace

uint64_t Np_Micro_GroupInstrGet(const uint32_t *pulGroup, uint32_t ulSlot)
{
    // Two instructions take three words.
    const uint32_t *pulPair = pulGroup + (ulSlot >> 1) * 3;
    if ((ulSlot & 1) == 0) {
        return static_cast<uint64_t>(pulPair[0]) << 16 | pulPair[1] >> 16;
    }
    return static_cast<uint64_t>(pulPair[1] & 0xffff) << 32 | pulPair[2];
}

void Np_Micro_GroupInstrSet(uint32_t *pulGroup, uint32_t ulSlot, uint64_t ullInstr)
{
    uint32_t *pulPair = pulGroup + (ulSlot >> 1) * 3;
    if ((ulSlot & 1) == 0) {
        pulPair[0] = static_cast<uint32_t>(ullInstr >> 16);
        pulPair[1] = (pulPair[1] & 0xffff) | static_cast<uint32_t>(ullInstr) << 16;
        return;
    }
    pulPair[1] = (pulPair[1] & 0xffff0000) | (static_cast<uint32_t>(ullInstr >> 32) & 0xffff);
    pulPair[2] = static_cast<uint32_t>(ullInstr);
}

uint32_t Np_Tarn_InstructionsToUcharArray(const uint32_t *pulGroup, uint8_t *aucBytes)
{
    if (pulGroup == nullptr || aucBytes == nullptr) {
        return Np_NullPtr();
    }
    for (uint32_t ulSlot = 0; ulSlot < NP_GROUP_INSTR; ulSlot++) {
        const uint64_t ullInstr = Np_Micro_GroupInstrGet(pulGroup, ulSlot);
        for (uint32_t i = 0; i < NP_INSTR_SIZE; i++) {
            *aucBytes++ = static_cast<uint8_t>(ullInstr >> 8 * i);
        }
    }
    return NP_OK;
}

uint32_t Np_Tarn_UcharArrayToInstructions(uint32_t *pulGroup, const uint8_t *aucBytes)
{
    if (pulGroup == nullptr || aucBytes == nullptr) {
        return Np_NullPtr();
    }
    for (uint32_t ulSlot = 0; ulSlot < NP_GROUP_INSTR; ulSlot++) {
        uint64_t ullInstr = 0;
        for (uint32_t i = 0; i < NP_INSTR_SIZE; i++) {
            ullInstr |= static_cast<uint64_t>(*aucBytes++) << 8 * i;
        }
        Np_Micro_GroupInstrSet(pulGroup, ulSlot, ullInstr);
    }
    return NP_OK;
}

uint32_t Np_Tarn_InstructionsToUcharArrayHigh(const uint32_t *pulGroup, uint8_t *aucBytes)
{
    if (pulGroup == nullptr || aucBytes == nullptr) {
        return Np_NullPtr();
    }
    for (uint32_t ulSlot = 0; ulSlot < NP_GROUP_INSTR; ulSlot++) {
        const uint64_t ullInstr = Np_Micro_GroupInstrGet(pulGroup, ulSlot);
        for (uint32_t i = NP_INSTR_SIZE; i-- > 0;) {
            *aucBytes++ = static_cast<uint8_t>(ullInstr >> 8 * i);
        }
    }
    return NP_OK;
}

uint32_t Np_Tarn_GetEccOfChar(uint32_t ulByte, uint32_t ulMask)
{
    return Np_Parity(ulByte & ulMask & 0xff);
}

uint32_t Np_Tarn_GetEcc(const uint8_t *aucBytes, uint8_t *aucCode1, uint8_t *aucCode2,
                        const uint8_t (*aucMask)[NP_GROUP_INSTR_SIZE], const uint8_t *aucMask2)
{
    if (aucBytes == nullptr || aucCode1 == nullptr || aucCode2 == nullptr) {
        return Np_NullPtr();
    }
    const uint64_t aullBytes[] = {Np_Load8(aucBytes), Np_Load8(aucBytes + 8),
                                  Np_Load8(aucBytes + 16)};
    for (uint32_t i = 0; i < NP_ECC_CODE_NUM; i++) {
        // The XOR of the bytes' parities is the parity of their XOR.
        const uint64_t ullXor = (aullBytes[0] & Np_Load8(aucMask[i])) ^
                                (aullBytes[1] & Np_Load8(aucMask[i] + 8)) ^
                                (aullBytes[2] & Np_Load8(aucMask[i] + 16));
        aucCode1[i] = static_cast<uint8_t>(Np_Parity(static_cast<uint32_t>(ullXor ^ ullXor >> 32)));
    }
    uint32_t ulTop = 0;
    for (uint32_t ulSlot = 0; ulSlot < NP_GROUP_INSTR; ulSlot++) {
        const uint32_t ulTopByte = aucBytes[NP_INSTR_SIZE * ulSlot + NP_INSTR_SIZE - 1];
        ulTop |= ulTopByte >> NP_INSTR_TOP_SHIFT << 2 * ulSlot;
    }
    for (uint32_t k = 0; k < NP_ECC_TOP_CODE_NUM; k++) {
        aucCode2[k] = static_cast<uint8_t>(Np_Tarn_GetEccOfChar(ulTop, aucMask2[k]));
    }
    return NP_OK;
}

uint32_t Np_Tarn_ContextRewriteGetEcc(const uint8_t *aucBytes, uint8_t *aucCode1, uint8_t *aucCode2)
{
    return Np_Tarn_GetEcc(aucBytes, aucCode1, aucCode2, g_aucEccMask, g_aucEccTopMask);
}

uint32_t Np_Tarn_UcharArrayToUlong(uint32_t *pulEcc, const uint8_t *aucCode1,
                                   const uint8_t *aucCode2)
{
    if (pulEcc == nullptr || aucCode1 == nullptr || aucCode2 == nullptr) {
        return Np_NullPtr();
    }
    for (uint32_t i = 0; i < NP_ECC_CODE_NUM; i++) {
        *pulEcc |= (aucCode1[i] & 1u) << (NP_ECC_CODE_SHIFT + i);
    }
    for (uint32_t k = 0; k < NP_ECC_TOP_CODE_NUM; k++) {
        *pulEcc |= (aucCode2[k] & 1u) << (NP_ECC_TOP_CODE_SHIFT + k);
    }
    return NP_OK;
}

uint32_t Np_Micro_GroupEccGet(const uint32_t *pulGroup)
{
    uint8_t aucBytes[NP_GROUP_INSTR_SIZE];
    uint8_t aucCode1[NP_ECC_CODE_NUM];
    uint8_t aucCode2[NP_ECC_TOP_CODE_NUM];
    uint32_t ulEcc = 0;
    Np_Tarn_InstructionsToUcharArray(pulGroup, aucBytes);
    Np_Tarn_ContextRewriteGetEcc(aucBytes, aucCode1, aucCode2);
    Np_Tarn_UcharArrayToUlong(&ulEcc, aucCode1, aucCode2);
    return ulEcc;
}

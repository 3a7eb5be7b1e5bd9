// The two hash functions of the exact match engine: CRC-32, most significant bit first, starting
// from all ones, without a final inversion, over the bytes from the last to the first.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

inline constexpr uint32_t NP_EML_POLY_HASH1 = 0x04c11db7;
inline constexpr uint32_t NP_EML_POLY_HASH2 = 0x45a5c125;
inline constexpr uint32_t NP_EML_HASH_KEY_SIZE = 16;  // bytes that the engine hashes

using NpEmlCrcTable = std::array<uint32_t, 256>;

// Entry n is the CRC of the byte n, shifted to the top of a zero register.
consteval NpEmlCrcTable Np_EmlCrcTable(uint32_t ulPoly)
{
    NpEmlCrcTable aulTable = {};
    for (uint32_t n = 0; n < aulTable.size(); n++) {
        uint32_t ulCrc = n << 24;
        for (uint32_t ulBit = 0; ulBit < 8; ulBit++) {
            ulCrc = ulCrc << 1 ^ ((ulCrc >> 31) != 0 ? ulPoly : 0);
        }
        aulTable[n] = ulCrc;
    }
    return aulTable;
}

inline constexpr NpEmlCrcTable g_aulEmlCrcHash1 = Np_EmlCrcTable(NP_EML_POLY_HASH1);
inline constexpr NpEmlCrcTable g_aulEmlCrcHash2 = Np_EmlCrcTable(NP_EML_POLY_HASH2);

constexpr uint32_t Np_EmlCrc(const NpEmlCrcTable &aulTable, const uint8_t *pucData, uint32_t ulLen)
{
    uint32_t ulCrc = 0xffffffff;
    for (uint32_t i = ulLen; i > 0; i--) {
        ulCrc = aulTable[pucData[i - 1] ^ ulCrc >> 24] ^ ulCrc << 8;
    }
    return ulCrc;
}

extern "C" {

// Hash of ulLen bytes; 0 bytes give 0xffffffff.
uint32_t Np_tarn_HASH_Hash1Crc32Calc(const uint8_t *pucData, uint32_t ulLen);
uint32_t Np_tarn_HASH_Hash2Crc32Calc(const uint8_t *pucData, uint32_t ulLen);

}  // extern "C"

#include "sdk/lookup/eml_hash.h"

namespace {

// What the engine answers for the keys 00 00 .. 00 and 00 01 .. 0f.
constexpr uint8_t g_aucZeroKey[NP_EML_HASH_KEY_SIZE] = {};
constexpr uint8_t g_aucCountKey[NP_EML_HASH_KEY_SIZE] = {0, 1, 2,  3,  4,  5,  6,  7,
                                                         8, 9, 10, 11, 12, 13, 14, 15};
static_assert(Np_EmlCrc(g_aulEmlCrcHash1, g_aucZeroKey, 16) == 0x552d22c8);
static_assert(Np_EmlCrc(g_aulEmlCrcHash2, g_aucZeroKey, 16) == 0x810de45e);
static_assert(Np_EmlCrc(g_aulEmlCrcHash1, g_aucCountKey, 16) == 0x841f9bb8);
static_assert(Np_EmlCrc(g_aulEmlCrcHash2, g_aucCountKey, 16) == 0x2e2c715e);

}  // namespace

uint32_t Np_tarn_HASH_Hash1Crc32Calc(const uint8_t *pucData, uint32_t ulLen)
{
    return Np_EmlCrc(g_aulEmlCrcHash1, pucData, ulLen);
}

uint32_t Np_tarn_HASH_Hash2Crc32Calc(const uint8_t *pucData, uint32_t ulLen)
{
    return Np_EmlCrc(g_aulEmlCrcHash2, pucData, ulLen);
}

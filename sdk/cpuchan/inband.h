// In-band words: the headers and bodies of what travels between host and microcode, each described
// once as data and packed, unpacked, checked and traced by one engine. Bits are numbered in a
// host-order word, bit 31 the most significant.
#pragma once

#include "ldsdk/types.h"

#include <cstddef>
#include <cstdint>

// What a legal value is, and what a bad one prints.
enum NpInbandLimit : uint8_t {
    NP_LIMIT_NONE,        // not checked
    NP_LIMIT_MOST,        // at most ulLimit
    NP_LIMIT_SLOT,        // at most the capability word of slot ulLimit
    NP_LIMIT_BELOW_SLOT,  // below that word
    NP_LIMIT_ENABLE,      // 0 or 1, "enable Para error"
    NP_LIMIT_BOOL,        // 0 or 1, "true/false Para error"
};

// A field of 32 bits in the caller's record, and where it stands in the words. A field that is
// split takes several rows: the first with ucShift 0, the others with the bits that they leave out.
struct NpInbandField {
    const char *pszName;
    uint16_t usOffset;  // bytes, in the record
    uint8_t ucWord;
    uint8_t ucBit;    // lowest bit in the word
    uint8_t ucWidth;  // bits; 0: not in the words, or not always
    uint8_t ucShift;  // bits of the value below this piece
    NpInbandLimit enLimit;
    uint32_t ulLimit;
};

// The fields of a format; they are checked in this order.
struct NpInbandFormat {
    const NpInbandField *pstField;
    uint32_t ulFieldNum;
};

// Where a message comes from: the module whose switch counts, the function that it is printed
// under, and the record's name before a field's.
struct NpInbandVoice {
    uint32_t ulModule;
    const char *pszFunc;
    const char *pszRecord;
};

// A row for a field at a place in the words, without a limit.
#define NP_INBAND(Record, field, word, bit, width)                             \
    {                                                                          \
#field, offsetof(Record, field), word, bit, width, 0, NP_LIMIT_NONE, 0 \
    }
// The same with a limit.
#define NP_INBAND_MAX(Record, field, word, bit, width, kind, limit)                  \
    {                                                                                \
#field, offsetof(Record, field), word, bit, width, 0, NP_LIMIT_##kind, limit \
    }
// A further piece of a split field: bits shift upwards of the value.
#define NP_INBAND_PIECE(Record, field, word, bit, width, shift)                    \
    {                                                                              \
#field, offsetof(Record, field), word, bit, width, shift, NP_LIMIT_NONE, 0 \
    }

template <size_t ulNum>
constexpr NpInbandFormat Np_InbandFormat(const NpInbandField (&astField)[ulNum])
{
    return {astField, ulNum};
}

// No two fields share a bit, and none runs past its word or the ulWords words that there are.
template <size_t ulNum>
consteval bool Np_InbandIsSound(const NpInbandField (&astField)[ulNum], uint32_t ulWords)
{
    uint32_t aulUsed[16] = {};
    for (const NpInbandField &stField : astField) {
        if (stField.ucWord >= ulWords || stField.ucBit + stField.ucWidth > 32) {
            return false;
        }
        for (uint32_t i = stField.ucBit; i < stField.ucBit + stField.ucWidth; i++) {
            if ((aulUsed[stField.ucWord] >> i & 1) != 0) {
                return false;
            }
            aulUsed[stField.ucWord] |= 1u << i;
        }
    }
    return true;
}

// Prints each field of the record as a trace line, if the module traces.
void Np_InbandTrace(const NpInbandFormat &stFormat, const void *pvRecord,
                    const NpInbandVoice &stVoice);
// NP_ERR_PARAM for the first field beyond its limit, with its message.
uint32_t Np_InbandCheck(const NpInbandFormat &stFormat, const void *pvRecord,
                        const NpInbandVoice &stVoice);
// Adds the fields to words that are 0 where they go. Bits beyond a field's width are lost.
void Np_InbandPack(const NpInbandFormat &stFormat, const void *pvRecord, uint32_t *pulWord);
// Fills the record's fields from the words; what the format does not name is untouched.
void Np_InbandParse(const NpInbandFormat &stFormat, const uint32_t *pulWord, void *pvRecord);

// Prints under another function's name. Used as NP_TRACE is.
#define NP_TRACE_AS(pszAs, module, level, ...)                        \
    do {                                                              \
        if (g_stNpSdkModuleSwitch[module][level] != 0) [[unlikely]] { \
            g_ulNpLine = static_cast<uint32_t>(__LINE__);             \
            g_pszNpFunc = pszAs;                                      \
            Np_PrintWithPosition(module, level, __VA_ARGS__);         \
        }                                                             \
    } while (0)

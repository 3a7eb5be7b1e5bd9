// What describes a parameter of a command: its value type, its name and range, its named values.
#pragma once

#include <cstdint>

// Value types. Beside each: the words that it takes, and what it is stored as.
enum NpSmdType : uint32_t {
    NP_SMD_NUMBER = 1,    // 1 word; 32 bits
    NP_SMD_ENUM = 2,      // 1 word, a text or number of the key's rows; 32 bits
    NP_SMD_MAC = 3,       // 1 word, xx-xx-xx-xx-xx-xx; 6 bytes
    NP_SMD_IPV4 = 4,      // 1 word, d.d.d.d; 32 bits, first group in the top byte
    NP_SMD_STRING = 5,    // 1 word; its first 50 characters and a NUL
    NP_SMD_IPV6 = 6,      // 1 word, colon notation; 4 words of 32 bits
    NP_SMD_NUMBER16 = 7,  // 1 word; 16 bits
    NP_SMD_CHAR = 8,      // 1 word; 8 bits, the code of its first character
    NP_SMD_SIGNED = 9,    // 2 words, plus or minus and the magnitude; 32 bits
    NP_SMD_PORT = 10,     // several words; NpPortID
    NP_SMD_DATA = 11,     // 1 word of hexadecimal digits; lMax bytes
};

inline constexpr uint32_t NP_SMD_NAME_SIZE = 52;
inline constexpr uint32_t NP_SMD_WORD_MAX = 50;     // characters of a name or value word
inline constexpr uint32_t NP_SMD_WORD_SIZE = 52;    // room for one
inline constexpr uint32_t NP_SMD_STRING_SIZE = 51;  // room for a stored NP_SMD_STRING
inline constexpr uint32_t NP_SMD_STRING_WORD_MAX = 511;
inline constexpr uint32_t NP_SMD_DATA_LIMIT = 262;  // byte data must be shorter

// A parameter of a command.
struct NpSmdKeyItem {
    uint32_t ulKeyID;     // its number inside the handler
    uint32_t ulType;      // NpSmdType
    uint32_t ulPromptNo;  // number in the menu, accepted for the name; 0: not in the menu
    char szName[NP_SMD_NAME_SIZE];
    int32_t lMin;  // the range that prompts show; the check is the exported function's
    int32_t lMax;  // NP_SMD_DATA: most bytes
};
static_assert(sizeof(NpSmdKeyItem) == 72);

// A named value of an enumerated parameter.
struct NpSmdKeyEnum {
    uint32_t ulKeyID;
    const char *pszText;
    uint32_t ulValue;
};
static_assert(sizeof(void *) != 4 || sizeof(NpSmdKeyEnum) == 12);

// The parameters of a command and their named values.
struct NpSmdKeyTable {
    const NpSmdKeyItem *pstItem;
    uint32_t ulItemNum;
    const NpSmdKeyEnum *pstEnum;
    uint32_t ulEnumNum;
};

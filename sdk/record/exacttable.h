// An exact-match table: entries at the hash engine, which finds each a place by its key. With the
// description of its key, its data and its places this makes all of its functions. Key and data
// share an item of two or four words, lowest first: the data's bits are the low ones, the key's
// those above, and the uppermost four are the status.
#pragma once

#include "sdk/record/record.h"

inline constexpr uint32_t NP_EXACT_WORDS = 4;

struct NpExactItem {
    uint32_t aulWord[NP_EXACT_WORDS];
};

// What goes before an add and a delete: the entry that is there is read.
enum NpExactLook : uint8_t {
    NP_LOOK_NONE,
    NP_LOOK_TRY,   // whatever comes of it
    NP_LOOK_MUST,  // one that can't be looked up fails; one that is not there is none
};

// Where an entry was met.
struct NpExactMet {
    uint32_t ulStatus;
    uint32_t ulIndex;
    uint32_t ulLocation;  // NpEmlLocation
};

struct NpExactTable {
    const NpRow *pstKey;    // on the item
    const NpRow *pstData;   // on the same item
    const NpRow *pstPlace;  // what names a place: its number; or where it is, and its number
    const NpRow *pstDel;    // which entries a delete is for; null: there is no choice
    const NpRow *pstInfo;   // what a read tells of the entry itself, or null
    // What follows when an entry that the microcode had learned, given by its old item, was made
    // static (bGone false) or went.
    uint32_t (*pfnReplaced)(uint32_t ulChipID, const uint32_t *pulItem, bool bGone,
                            NpWhere stWhere);
    uint32_t aulDataBits[NP_EXACT_WORDS];  // of the item
    uint32_t ulEmlTable;
    uint32_t ulDelType;  // where there is no choice: NpEmlDel
    uint8_t ucWords;     // of an item
    NpExactLook enLook;
    bool bTellsBuild;  // "Func error return" behind a key or data that can't be built
};

// The item's low bits, as the data of a table have them.
struct NpExactBits {
    uint32_t aulWord[NP_EXACT_WORDS];
};
constexpr NpExactBits Np_ExactBits(uint32_t ulBits)
{
    NpExactBits stBits = {};
    for (uint32_t i = 0; i < ulBits; i++) {
        stBits.aulWord[i / 32] |= 1u << i % 32;
    }
    return stBits;
}

struct NpExactSpec {
    const NpRow &stKey;
    const NpRow &stData;
    const NpRow &stPlace;
    uint32_t ulEmlTable;
    uint32_t ulDataBits;
    uint8_t ucWords = NP_EXACT_WORDS;
    const NpRow *pstDel = nullptr;
    const NpRow *pstInfo = nullptr;
    uint32_t ulDelType = 0;
    NpExactLook enLook = NP_LOOK_NONE;
    bool bTellsBuild = false;
    uint32_t (*pfnReplaced)(uint32_t, const uint32_t *, bool, NpWhere) = nullptr;
};
consteval NpExactTable Np_ExactOf(NpExactSpec stSpec)
{
    const NpExactBits stBits = Np_ExactBits(stSpec.ulDataBits);
    return {&stSpec.stKey,
            &stSpec.stData,
            &stSpec.stPlace,
            stSpec.pstDel,
            stSpec.pstInfo,
            stSpec.pfnReplaced,
            {stBits.aulWord[0], stBits.aulWord[1], stBits.aulWord[2], stBits.aulWord[3]},
            stSpec.ulEmlTable,
            stSpec.ulDelType,
            stSpec.ucWords,
            stSpec.enLook,
            stSpec.bTellsBuild};
}

// The parts of an item: each writes its own bits and no others, so that both make the whole; the
// key's also makes it static. The codes of the rows.
uint32_t Np_Exact_KeyBuild(const NpExactTable *pstTable, uint32_t ulChipID, const void *pvKey,
                           void *pvItem, NpWhere stWhere = Np_Here());
uint32_t Np_Exact_DataBuild(const NpExactTable *pstTable, uint32_t ulChipID, const void *pvData,
                            void *pvItem, NpWhere stWhere = Np_Here());
inline uint32_t Np_Exact_Status(const NpExactTable *pstTable, const uint32_t *pulItem)
{
    return pulItem[pstTable->ucWords - 1u] >> 28;
}
inline void Np_Exact_StatusSet(const NpExactTable *pstTable, uint32_t *pulItem, uint32_t ulStatus)
{
    uint32_t *pulTop = &pulItem[pstTable->ucWords - 1u];
    *pulTop = (*pulTop & 0x0fffffff) | ulStatus << 28;
}

// Records are plain memory: the key's, the data's; a place has the words of pstPlace. pstMet may be
// null where an entry was written. NP_ERR_NULL_PTR, the checks' codes, those of the engine.

// Adds an entry, or gives one that is there these data.
uint32_t Np_Exact_Add(const NpExactTable *pstTable, uint32_t ulChipID, const void *pvKey,
                      const void *pvData, NpExactMet *pstMet = nullptr,
                      NpWhere stWhere = Np_Here());
// NP_ERR_NOT_EXIST.
uint32_t Np_Exact_Get(const NpExactTable *pstTable, uint32_t ulChipID, const void *pvKey,
                      void *pvData, NpExactMet *pstMet, NpWhere stWhere = Np_Here());
// ulDelType: NpEmlDel.
uint32_t Np_Exact_Del(const NpExactTable *pstTable, uint32_t ulChipID, uint32_t ulDelType,
                      const void *pvKey, NpWhere stWhere = Np_Here());
inline uint32_t Np_Exact_Del(const NpExactTable *pstTable, uint32_t ulChipID, const void *pvKey,
                             NpWhere stWhere = Np_Here())
{
    return Np_Exact_Del(pstTable, ulChipID, pstTable->ulDelType, pvKey, stWhere);
}
uint32_t Np_Exact_GetByIndex(const NpExactTable *pstTable, uint32_t ulChipID,
                             const uint32_t *pulPlace, void *pvKey, void *pvData,
                             NpExactMet *pstMet, NpWhere stWhere = Np_Here());
uint32_t Np_Exact_DelByIndex(const NpExactTable *pstTable, uint32_t ulChipID,
                             const uint32_t *pulPlace, NpWhere stWhere = Np_Here());

// ---- the functions of a table, by name --------------------------------------------------------

#define NP_EXACT_ADD(Name, Key, Data, stTable)                               \
    uint32_t Name(uint32_t ulChipID, const Key *pstKey, const Data *pstData) \
    {                                                                        \
        return Np_Exact_Add(&(stTable), ulChipID, pstKey, pstData);          \
    }
#define NP_EXACT_GET(Name, Key, Data, stTable)                              \
    uint32_t Name(uint32_t ulChipID, const Key *pstKey, Data *pstData)      \
    {                                                                       \
        NpExactMet stMet;                                                   \
        return Np_Exact_Get(&(stTable), ulChipID, pstKey, pstData, &stMet); \
    }
#define NP_EXACT_DEL(Name, Key, stTable)                   \
    uint32_t Name(uint32_t ulChipID, const Key *pstKey)    \
    {                                                      \
        return Np_Exact_Del(&(stTable), ulChipID, pstKey); \
    }
// With the status as the last argument.
#define NP_EXACT_GET_BY_INDEX(Name, Key, Data, stTable)                            \
    uint32_t Name(uint32_t ulChipID, uint32_t ulIndex, Key *pstKey, Data *pstData, \
                  uint32_t *pulStatus)                                             \
    {                                                                              \
        NpExactMet stMet = {};                                                     \
        const uint32_t ulReturn =                                                  \
            Np_Exact_GetByIndex(&(stTable), ulChipID, &ulIndex, pstKey,            \
                                pulStatus != nullptr ? pstData : nullptr, &stMet); \
        if (ulReturn == NP_OK) {                                                   \
            *pulStatus = stMet.ulStatus;                                           \
        }                                                                          \
        return ulReturn;                                                           \
    }
#define NP_EXACT_DEL_BY_INDEX(Name, stTable)                        \
    uint32_t Name(uint32_t ulChipID, uint32_t ulIndex)              \
    {                                                               \
        return Np_Exact_DelByIndex(&(stTable), ulChipID, &ulIndex); \
    }

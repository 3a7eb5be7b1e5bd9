// A flat table: rows that stand in one or more stores, each named by a key. With the description of
// its key and its row (record.h) this makes all of its functions.
#pragma once

#include "sdk/record/record.h"

struct NpTablePart;

// Where the rows of a table, or a part of each, stand: what reads and writes them there, and what
// their failures print (a format of the code, the part's number and the row, as far as it has
// them). ulRow: the row's place. Buffers hold ulSize bytes, a whole number of words.
struct NpStore {
    uint32_t (*pfnRead)(uint32_t ulChipID, const NpTablePart *pstPart, uint32_t ulRow,
                        uint32_t ulSize, uint32_t *pulImage);
    uint32_t (*pfnWrite)(uint32_t ulChipID, const NpTablePart *pstPart, uint32_t ulRow,
                         uint32_t ulSize, const uint32_t *pulImage);
    const char *pszReadError;
    const char *pszWriteError;
};

// Rows of register table usID.
extern const NpStore g_stNpRegTableStore;
// Counters of type usID; ulRow is the counter's number. Images are 16 bytes.
extern const NpStore g_stNpCounterStore;
// An array in search memory: pvWhere is its NpSmemArray.
extern const NpStore g_stNpSmemStore;
// Registers that have no table: pvWhere is their NpRegisterList.
extern const NpStore g_stNpRegisterStore;

struct NpSmemArray {
    NpCapSlot enBase;  // capability word with the chip address of row 0
    uint16_t usPitch;  // bytes from one row to the next
    uint8_t ucSmemID;
    uint8_t ucWidth;  // bytes of a row: 2, 4, 8, 16; the low ones of the image
};

// Words of an image that stand in registers. Each is written at all of its addresses, in the order
// of the list, and read at the first address that the list has for it.
struct NpRegisterAt {
    uint32_t ulAddress;
    uint32_t ulWord;  // of the image
};
struct NpRegisterList {
    const NpRegisterAt *pstAt;
    uint32_t ulNum;
};

struct NpTablePart {
    const NpStore *pstStore;
    const void *pvWhere;  // see the store
    uint16_t usID;        // register table or counter type
    uint16_t usByte;      // where its bytes begin in the row's image
};

inline constexpr uint32_t NP_TABLE_PART_MAX = 3;

using NpPlaceCall = uint32_t(uint32_t ulChipID, const void *pvKey, uint32_t *pulRow,
                             NpWhere stWhere);

struct NpTable {
    const NpRow *pstKey;  // the arguments that name a row, tested before the record
    const NpRow *pstRow;
    // The row's place in the stores; null: the key's first word. Traces its own message.
    NpPlaceCall *pfnPlace;
    // Puts what the image has not into a record that is about to be parsed: selectors in a shadow.
    void (*pfnHandIn)(uint32_t ulChipID, uint32_t ulRow, void *pvRecord);
    // Keeps it once a row is written.
    void (*pfnKeep)(uint32_t ulChipID, uint32_t ulRow, const void *pvRecord);
    // Where the service table chooses the layout of the first part: put that part into a built
    // image, and take it out again behind the others. Null: the description's layout.
    uint32_t (*pfnBuild)(uint32_t ulChipID, const void *pvRecord, void *pvImage);
    uint32_t (*pfnParse)(uint32_t ulChipID, const void *pvImage, void *pvRecord);
    NpTablePart astPart[NP_TABLE_PART_MAX];  // written and read in this order
    uint8_t ucPartNum;
    bool bTellsCheck;  // "Func error return" behind the message of a failed check or build
};

constexpr NpTablePart Np_RegPart(uint16_t usTableID, uint16_t usByte = 0)
{
    return {&g_stNpRegTableStore, nullptr, usTableID, usByte};
}
constexpr NpTablePart Np_CounterPart(uint16_t usType)
{
    return {&g_stNpCounterStore, nullptr, usType, 0};
}
constexpr NpTablePart Np_SmemPart(const NpSmemArray *pstArray, uint16_t usByte)
{
    return {&g_stNpSmemStore, pstArray, 0, usByte};
}
constexpr NpTablePart Np_RegisterPart(const NpRegisterList *pstList, uint16_t usByte)
{
    return {&g_stNpRegisterStore, pstList, 0, usByte};
}

struct NpTableSpec {
    NpPlaceCall *pfnPlace = nullptr;
    void (*pfnHandIn)(uint32_t, uint32_t, void *) = nullptr;
    void (*pfnKeep)(uint32_t, uint32_t, const void *) = nullptr;
    uint32_t (*pfnBuild)(uint32_t, const void *, void *) = nullptr;
    uint32_t (*pfnParse)(uint32_t, const void *, void *) = nullptr;
    bool bTellsCheck = false;
};

// Rows that stand in one part, or in several.
template <typename... Parts>
consteval NpTable Np_TableOf(const NpRow &stKey, const NpRow &stRow, NpTableSpec stSpec,
                             Parts... stPart)
{
    static_assert(sizeof...(Parts) >= 1 && sizeof...(Parts) <= NP_TABLE_PART_MAX);
    return {&stKey,
            &stRow,
            stSpec.pfnPlace,
            stSpec.pfnHandIn,
            stSpec.pfnKeep,
            stSpec.pfnBuild,
            stSpec.pfnParse,
            {stPart...},
            static_cast<uint8_t>(sizeof...(Parts)),
            stSpec.bTellsCheck};
}
// Rows of one register table.
consteval NpTable Np_TableMake(const NpRow &stKey, const NpRow &stRow, uint16_t usTableID)
{
    return Np_TableOf(stKey, stRow, {}, Np_RegPart(usTableID));
}

// Bytes of a part in the image.
constexpr uint32_t Np_PartSize(const NpTable &stTable, uint32_t ulPart)
{
    const uint32_t ulEnd = ulPart + 1 < stTable.ucPartNum ? stTable.astPart[ulPart + 1].usByte
                                                          : stTable.pstRow->usImageSize;
    return ulEnd - stTable.astPart[ulPart].usByte;
}

// The row's place in the stores of a key that was tested.
uint32_t Np_Table_Place(const NpTable *pstTable, uint32_t ulChipID, const void *pvKey,
                        uint32_t *pulRow, NpWhere stWhere = Np_Here());
// Tests the key, then the record.
uint32_t Np_Table_Check(const NpTable *pstTable, uint32_t ulChipID, const void *pvKey,
                        const void *pvRecord, NpWhere stWhere = Np_Here());
// One part of the row's image, to and from a buffer of its own.
uint32_t Np_Table_BuildPart(const NpTable *pstTable, uint32_t ulPart, uint32_t ulChipID,
                            const void *pvRecord, void *pvImage, NpWhere stWhere = Np_Here());
uint32_t Np_Table_ParsePart(const NpTable *pstTable, uint32_t ulPart, uint32_t ulChipID,
                            const void *pvImage, void *pvRecord, NpWhere stWhere = Np_Here());
// Traces, tests, builds and writes a row; reads, parses and traces one. pvKey: what pstKey
// describes. NP_ERR_NULL_PTR, the check's code, or the store's; a failed part leaves those behind
// it as they were.
uint32_t Np_Table_Set(const NpTable *pstTable, uint32_t ulChipID, const void *pvKey,
                      const void *pvRecord, NpWhere stWhere = Np_Here());
uint32_t Np_Table_Get(const NpTable *pstTable, uint32_t ulChipID, const void *pvKey, void *pvRecord,
                      NpWhere stWhere = Np_Here());
// The whole image of a row as the stores have it, ulRow its place. Room for Np_ImageRoom bytes.
uint32_t Np_Table_Read(const NpTable *pstTable, uint32_t ulChipID, uint32_t ulRow, void *pvImage,
                       NpWhere stWhere = Np_Here());

// ---- the functions of a table, by name --------------------------------------------------------
// The names are written out where they are made, so that a search finds them.

// Set and Get of a table whose key is one word, as the service table has them.
#define NP_TABLE_SET(Name, Record, stTable)                                   \
    uint32_t Name(uint32_t ulChipID, uint32_t ulIndex, const Record *pstData) \
    {                                                                         \
        return Np_Table_Set(&(stTable), ulChipID, &ulIndex, pstData);         \
    }
#define NP_TABLE_GET(Name, Record, stTable)                             \
    uint32_t Name(uint32_t ulChipID, uint32_t ulIndex, Record *pstData) \
    {                                                                   \
        return Np_Table_Get(&(stTable), ulChipID, &ulIndex, pstData);   \
    }
// A record of one word, by value.
#define NP_TABLE_WORD_SET(Name, stTable)                                \
    uint32_t Name(uint32_t ulChipID, uint32_t ulIndex, uint32_t ulWord) \
    {                                                                   \
        return Np_Table_Set(&(stTable), ulChipID, &ulIndex, &ulWord);   \
    }
// The same of a table that a key record names.
#define NP_KEYED_SET(Name, Key, Record, stTable)                               \
    uint32_t Name(uint32_t ulChipID, const Key *pstKey, const Record *pstData) \
    {                                                                          \
        return Np_Table_Set(&(stTable), ulChipID, pstKey, pstData);            \
    }
#define NP_KEYED_GET(Name, Key, Record, stTable)                         \
    uint32_t Name(uint32_t ulChipID, const Key *pstKey, Record *pstData) \
    {                                                                    \
        return Np_Table_Get(&(stTable), ulChipID, pstKey, pstData);      \
    }

// What traces, tests, builds and parses a record on its own: constants that are called as functions
// are. One line each, in the table's header, such as
//     NP_ROW_CHECK(Np_Tarn_VLAN_VlanTblParaCheck, NpVlan, g_stVlanTable);
// A check takes the key's words before the record, or the record alone. Build and Parse work on the
// bytes of one part.
#define NP_ROW_TRACE(Name, Record, stTable)             \
    inline constexpr NpRowTraceOf<Record, stTable> Name \
    {                                                   \
#Name                                           \
    }
#define NP_ROW_CHECK(Name, Record, stTable)             \
    inline constexpr NpRowCheckOf<Record, stTable> Name \
    {                                                   \
#Name                                           \
    }
#define NP_ROW_BUILD(Name, Record, stTable, ulPart)             \
    inline constexpr NpRowBuildOf<Record, stTable, ulPart> Name \
    {                                                           \
#Name                                                   \
    }
#define NP_ROW_PARSE(Name, Record, stTable, ulPart)             \
    inline constexpr NpRowParseOf<Record, stTable, ulPart> Name \
    {                                                           \
#Name                                                   \
    }

template <typename Record, const NpTable &stTable>
struct NpRowTraceOf {
    const char *pszName;
    void operator()(const Record *pstRecord, uint32_t ulLine = __builtin_LINE()) const
    {
        Np_Row_Trace(stTable.pstRow, pstRecord, {pszName, ulLine});
    }
};
template <typename Record, const NpTable &stTable>
struct NpRowCheckOf {
    const char *pszName;
    uint32_t operator()(uint32_t ulChipID, const Record *pstRecord) const
    {
        return Np_Row_Check(stTable.pstRow, ulChipID, pstRecord, {pszName, __LINE__});
    }
    template <typename... Words>
    uint32_t operator()(uint32_t ulChipID, uint32_t ulIndex, Words... tail) const
    {
        // The record stands behind the last of the key's words.
        return Check(ulChipID, NpKeyWords<sizeof...(Words)>{}, 0, ulIndex, tail...);
    }

  private:
    template <size_t ulNum>
    struct NpKeyWords {
        uint32_t aulWord[ulNum];
    };
    template <size_t ulNum, typename... Words>
    uint32_t Check(uint32_t ulChipID, NpKeyWords<ulNum> stKey, uint32_t ulAt, uint32_t ulWord,
                   Words... tail) const
    {
        stKey.aulWord[ulAt] = ulWord;
        return Check(ulChipID, stKey, ulAt + 1, tail...);
    }
    template <size_t ulNum>
    uint32_t Check(uint32_t ulChipID, const NpKeyWords<ulNum> &stKey, uint32_t,
                   const Record *pstRecord) const
    {
        return Np_Table_Check(&stTable, ulChipID, stKey.aulWord, pstRecord, {pszName, __LINE__});
    }
};
template <typename Record, const NpTable &stTable, uint32_t ulPart>
struct NpRowBuildOf {
    const char *pszName;
    uint32_t operator()(uint32_t ulChipID, const Record *pstRecord, void *pvImage) const
    {
        return Np_Table_BuildPart(&stTable, ulPart, ulChipID, pstRecord, pvImage,
                                  {pszName, __LINE__});
    }
};
template <typename Record, const NpTable &stTable, uint32_t ulPart>
struct NpRowParseOf {
    const char *pszName;
    uint32_t operator()(uint32_t ulChipID, const void *pvImage, Record *pstRecord) const
    {
        return Np_Table_ParsePart(&stTable, ulPart, ulChipID, pvImage, pstRecord,
                                  {pszName, __LINE__});
    }
};

// A flat table: rows of register tables, one for each number or pair of numbers that selects them.
// With its description (record.h) this makes all of its functions.
#pragma once

#include "sdk/record/record.h"

inline constexpr uint32_t NP_TABLE_PART_MAX = 2;

// A register table and where its bytes begin in the row's image.
struct NpTablePart {
    uint16_t usTableID;
    uint16_t usByte;
};

struct NpTable {
    const NpRow *pstKey;  // the row arguments: words, tested before the record
    const NpRow *pstRow;
    uint32_t (*pfnRowNumber)(const uint32_t *pulKey);  // null: the first argument
    NpTablePart astPart[NP_TABLE_PART_MAX];            // written and read in this order
    uint8_t ucPartNum;
    bool bTellsCheck;  // "Func error return" behind the message of a failed check
};

// Rows of one register table.
consteval NpTable Np_TableMake(const NpRow &stKey, const NpRow &stRow, uint16_t usTableID)
{
    return {&stKey, &stRow, nullptr, {{usTableID, 0}}, 1, false};
}

// Bytes of a part in the image.
constexpr uint32_t Np_PartSize(const NpTable &stTable, uint32_t ulPart)
{
    const uint32_t ulEnd = ulPart + 1 < stTable.ucPartNum ? stTable.astPart[ulPart + 1].usByte
                                                          : stTable.pstRow->usImageSize;
    return ulEnd - stTable.astPart[ulPart].usByte;
}

// Tests the row arguments, then the record.
uint32_t Np_Table_Check(const NpTable *pstTable, uint32_t ulChipID, const uint32_t *pulKey,
                        const void *pvRecord, NpWhere stWhere = Np_Here());
// One part of the row's image, to and from a buffer of its own.
uint32_t Np_Table_BuildPart(const NpTable *pstTable, uint32_t ulPart, uint32_t ulChipID,
                            const void *pvRecord, void *pvImage, NpWhere stWhere = Np_Here());
uint32_t Np_Table_ParsePart(const NpTable *pstTable, uint32_t ulPart, uint32_t ulChipID,
                            const void *pvImage, void *pvRecord, NpWhere stWhere = Np_Here());
// Traces, tests, builds and writes a row; reads, parses and traces one. pulKey: the row arguments.
// NP_ERR_NULL_PTR, the check's code, or the register table's; a failed part leaves those behind it
// as they were.
uint32_t Np_Table_Set(const NpTable *pstTable, uint32_t ulChipID, const uint32_t *pulKey,
                      const void *pvRecord, NpWhere stWhere = Np_Here());
uint32_t Np_Table_Get(const NpTable *pstTable, uint32_t ulChipID, const uint32_t *pulKey,
                      void *pvRecord, NpWhere stWhere = Np_Here());

// The functions of a record, which trace, test, build and parse it on their own. The test takes one
// row argument. Prefix is the whole name up to the verb.
#define NP_ROW_DECLARE(Prefix, Record)                                                        \
    void Prefix##ParaTrace(const Record *pstRecord);                                          \
    uint32_t Prefix##ParaCheck(uint32_t ulChipID, uint32_t ulIndex, const Record *pstRecord); \
    uint32_t Prefix##Build(uint32_t ulChipID, const Record *pstRecord, void *pvImage);        \
    uint32_t Prefix##Parse(uint32_t ulChipID, const void *pvImage, Record *pstRecord);

#define NP_ROW_TRACE_FUNCTION(Prefix, Record, stTable) \
    void Prefix##ParaTrace(const Record *pstRecord)    \
    {                                                  \
        Np_Row_Trace((stTable).pstRow, pstRecord);     \
    }
#define NP_ROW_CHECK_FUNCTION(Prefix, Record, stTable)                                       \
    uint32_t Prefix##ParaCheck(uint32_t ulChipID, uint32_t ulIndex, const Record *pstRecord) \
    {                                                                                        \
        return Np_Table_Check(&(stTable), ulChipID, &ulIndex, pstRecord);                    \
    }
#define NP_ROW_IMAGE_FUNCTIONS(Prefix, Record, stTable, ulPart)                       \
    uint32_t Prefix##Build(uint32_t ulChipID, const Record *pstRecord, void *pvImage) \
    {                                                                                 \
        return Np_Table_BuildPart(&(stTable), ulPart, ulChipID, pstRecord, pvImage);  \
    }                                                                                 \
    uint32_t Prefix##Parse(uint32_t ulChipID, const void *pvImage, Record *pstRecord) \
    {                                                                                 \
        return Np_Table_ParsePart(&(stTable), ulPart, ulChipID, pvImage, pstRecord);  \
    }
#define NP_ROW_FUNCTIONS(Prefix, Record, stTable)  \
    NP_ROW_TRACE_FUNCTION(Prefix, Record, stTable) \
    NP_ROW_CHECK_FUNCTION(Prefix, Record, stTable) \
    NP_ROW_IMAGE_FUNCTIONS(Prefix, Record, stTable, 0)

// Set and Get of a table with one row argument, as the service table has them.
#define NP_TABLE_FUNCTIONS(Prefix, Record, stTable)                                     \
    uint32_t Prefix##_Set(uint32_t ulChipID, uint32_t ulIndex, const Record *pstRecord) \
    {                                                                                   \
        return Np_Table_Set(&(stTable), ulChipID, &ulIndex, pstRecord);                 \
    }                                                                                   \
    uint32_t Prefix##_Get(uint32_t ulChipID, uint32_t ulIndex, Record *pstRecord)       \
    {                                                                                   \
        return Np_Table_Get(&(stTable), ulChipID, &ulIndex, pstRecord);                 \
    }

// The tables that there are, for whoever walks, shows, saves or tests them all.
#pragma once

#include "sdk/record/call.h"
#include "sdk/record/exacttable.h"
#include "sdk/record/pritable.h"
#include "sdk/record/table.h"

struct NpTableInfo {
    const char *pszGet;  // name of the exported function that reads a row
    const NpTable *pstTable;
    NpGetCall *pfnGet;
    NpSetCall *pfnSet;
    bool bWordSet;  // takes its record as a word, by value
};

extern const NpTableInfo g_astNpTable[];
extern const uint32_t g_ulNpTableNum;

// The priority CAM tables.
struct NpPriTableInfo {
    const char *pszGet;
    const NpPriTable *pstTable;
    NpGetCall *pfnGet;
    NpSetCall *pfnSet;
    NpKeyCall *pfnDel;
};

extern const NpPriTableInfo g_astNpPriTable[];
extern const uint32_t g_ulNpPriTableNum;

// The exact-match tables. An entry is called with: key, data; a read of it with the info of the
// table behind them, if it takes that; a place of two words has its words one by one in front. A
// delete may have the kind of entries first.
struct NpExactTableInfo {
    const char *pszGet;
    const NpExactTable *pstTable;
    NpAnyCall stAdd;
    NpAnyCall stGet;
    NpAnyCall stDel;
    NpAnyCall stGetByIndex;
    NpAnyCall stDelByIndex;
};

extern const NpExactTableInfo g_astNpExactTable[];
extern const uint32_t g_ulNpExactTableNum;

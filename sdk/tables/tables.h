// The tables that there are, for whoever walks, shows, saves or tests them all.
#pragma once

#include "sdk/record/call.h"
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

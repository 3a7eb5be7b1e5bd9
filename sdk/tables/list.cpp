#include "sdk/tables/tables.h"

#include "ldsdk/ldsdk.h"
#include "sdk/tables/list.h"

constexpr NpTableInfo g_astNpTable[] = {
#define NP_TABLE_ROW(stTable, pfnGet, pfnSet, pfnGetHandler, pfnSetHandler, enForm) \
    {#pfnGet, &(stTable), Np_GetCall<pfnGet>, Np_SetCall<pfnSet>, Np_TakesWord(pfnSet)},
#include "sdk/tables/list.h"
};

constexpr NpPriTableInfo g_astNpPriTable[] = {
#define NP_PRI_ROW(stTable, pfnGet, pfnSet, pfnDel, pfnGetHandler, pfnSetHandler, pfnDelHandler) \
    {#pfnGet, &(stTable), Np_GetCall<pfnGet>, Np_SetCall<pfnSet>, Np_KeyCallOf<pfnDel>},
#include "sdk/tables/list.h"
};

constexpr NpExactTableInfo g_astNpExactTable[] = {
#define NP_EXACT_ROW(stTable, pfnAdd, pfnGet, pfnDel, pfnGetByIndex, pfnDelByIndex, pfnAddHandler, \
                     pfnGetHandler, pfnDelHandler, pfnGetByIndexHandler, pfnDelByIndexHandler)     \
    {#pfnGet,                                                                                      \
     &(stTable),                                                                                   \
     Np_AnyCall<pfnAdd>(),                                                                         \
     Np_AnyCall<pfnGet>(),                                                                         \
     Np_AnyCall<pfnDel>(),                                                                         \
     Np_AnyCall<pfnGetByIndex>(),                                                                  \
     Np_AnyCall<pfnDelByIndex>()},
#include "sdk/tables/list.h"
};

constexpr uint32_t g_ulNpTableNum = sizeof(g_astNpTable) / sizeof(g_astNpTable[0]);
constexpr uint32_t g_ulNpPriTableNum = sizeof(g_astNpPriTable) / sizeof(g_astNpPriTable[0]);
constexpr uint32_t g_ulNpExactTableNum = sizeof(g_astNpExactTable) / sizeof(g_astNpExactTable[0]);

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

constexpr uint32_t g_ulNpTableNum = sizeof(g_astNpTable) / sizeof(g_astNpTable[0]);
constexpr uint32_t g_ulNpPriTableNum = sizeof(g_astNpPriTable) / sizeof(g_astNpPriTable[0]);

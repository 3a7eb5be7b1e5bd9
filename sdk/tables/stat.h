// Statistics: what the microcode counts, in search memory and in one register table.
#pragma once

#include "ldsdk/stat.h"
#include "sdk/record/table.h"

extern const NpTable g_stIflowStatTable;
extern const NpTable g_stOflowStatTable;
extern const NpTable g_stMcStatTable;
extern const NpTable g_stAclStatTable;
extern const NpTable g_stCapStatTable;
extern const NpTable g_stVoipStatTable;
extern const NpTable g_stPtypeStatTable;
extern const NpTable g_stPppoeSessionStatTable;
extern const NpTable g_stPppIftlcpStatTable;
extern const NpTable g_stPppOftlcpStatTable;
extern const NpTable g_stMcleafStatTable;
extern const NpTable g_stPortPtypeStatTable;
extern const NpTable g_stOamTxStatTable;
extern const NpTable g_stOamRxStatTable;
extern const NpTable g_stPortToCpuTypeStatTable;
extern const NpTable g_st3ahStatTable;

// Queues and priorities, which this family does not count.
extern const NpRow g_stQueueStatKeyRow;
extern const NpRow g_stQueueStatRow;
extern const NpRow g_stPriStatKeyRow;
extern const NpRow g_stPriStatRow;

// Counts of the 1588 clock, of which this family has none; an alarm has two words.
struct NpClockCnt {
    uint32_t ulCnt;
};
struct NpClockAlarm {
    uint32_t aulAlarm[2];
};
extern const NpTable g_stPtpStTable;
extern const NpTable g_stSsmStTable;
extern const NpTable g_stAnnTimeOutAlmTable;
extern const NpTable g_stAnnChangeAlmTable;

extern "C" {

// Nobody calls them in this family: every index in range answers that the counter has no such row.
uint32_t Np_tarn_PtpStTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpClockCnt *pstData);
uint32_t Np_tarn_PtpStTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpClockCnt *pstData);
uint32_t Np_tarn_SsmStTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpClockCnt *pstData);
uint32_t Np_tarn_SsmStTbl_Set(uint32_t ulChipID, uint32_t ulIndex, const NpClockCnt *pstData);
uint32_t Np_tarn_AnnTimeOutAlmTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpClockAlarm *pstData);
uint32_t Np_tarn_AnnTimeOutAlmTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                      const NpClockAlarm *pstData);
uint32_t Np_tarn_AnnChangeAlmTbl_Get(uint32_t ulChipID, uint32_t ulIndex, NpClockAlarm *pstData);
uint32_t Np_tarn_AnnChangeAlmTbl_Set(uint32_t ulChipID, uint32_t ulIndex,
                                     const NpClockAlarm *pstData);

// NP_ERR_PARAM for a chip number that is none.
uint32_t Np_Tarn_Stat_Init(uint32_t ulChipID);
uint32_t Np_Tarn_Stat_Destruct(uint32_t ulChipID);

}  // extern "C"

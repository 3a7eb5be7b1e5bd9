#include "sdk/tables/stat.h"

#include "ldsdk/status.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/trace.h"
#include "sdk/record/describe.h"

namespace {

template <NpName stName, NpLimit stLimit>
inline constexpr const NpRow &g_stKey = NpNamedKey<NP_M_STAT, stName, stLimit>::g_stRow;

inline constexpr const NpRow &g_stFlowKey = g_stKey<"ulFlowID", Np_BelowCap(NP_CAP_FLOW_NUM)>;

// One count; of rows of 2 bytes the low half.
template <typename Record, NpName stArg, uint8_t ucBits = 32>
struct NpCountRow {
    using R = Record;
    static constexpr NpField g_astField[] = {
        NP_F(ulPktCnt, .stAt = {0, ucBits - 1, 0}, .bCut = ucBits != 32)};
    static constexpr NpRow g_stRow = Np_RowMake<R>(
        {.ucModule = NP_M_STAT, .pszArg = stArg.acText, .usImageSize = ucBits / 8}, g_astField, {});
};

template <typename Record, NpName stArg>
struct NpPktByteRow {
    using R = Record;
    static constexpr NpField g_astField[] = {NP_F(ulPktCnt, .stAt = {0, 31, 0}),
                                             NP_F(ulByteCnt, .stAt = {4, 31, 0})};
    static constexpr NpRow g_stRow = Np_RowMake<R>(
        {.ucModule = NP_M_STAT, .pszArg = stArg.acText, .usImageSize = 8}, g_astField, {});
};

namespace iflow_row {
using R = NpIflowCnt;
constexpr NpField g_astField[] = {
    NP_F(ulPktCnt, .stAt = {0, 31, 0}),
    NP_F(ulByteCnt, .stAt = {4, 31, 0}),
    NP_F(ulDropCnt, .stAt = {8, 31, 0}),
    NP_F(ulToCpuCnt, .stAt = {12, 31, 16}),
};
constexpr NpCheck g_astCheck[] = {NP_C(ulToCpuCnt, Np_MostCap(NP_CAP_TO_CPU_CNT_MAX))};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_STAT, .pszArg = "pstIflowCnt", .usImageSize = 16}, g_astField, g_astCheck);
}  // namespace iflow_row

namespace oflow_row {
using R = NpOflowCnt;
constexpr NpField g_astField[] = {
    NP_F(ulPktCnt, .stAt = {0, 31, 0}),     NP_F(ulByteCnt, .stAt = {4, 31, 0}),
    NP_F(ulDropCnt, .stAt = {8, 31, 0}),    NP_F(ulFrmCpuPktCnt, .stAt = {12, 15, 0}),
    NP_F(ulToCpuCnt, .stAt = {12, 31, 16}),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulFrmCpuPktCnt, Np_MostCap(NP_CAP_FROM_CPU_CNT_MAX)),
    NP_C(ulToCpuCnt, Np_MostCap(NP_CAP_TO_CPU_CNT_MAX)),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_STAT, .pszArg = "pstOflowCnt", .usImageSize = 16}, g_astField, g_astCheck);
}  // namespace oflow_row

namespace cap_row {
using R = NpCapCnt;
constexpr NpField g_astField[] = {NP_F(ulPtypeCnt, .stAt = {0, 31, 0})};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_STAT, .pszArg = "pstCapCnt", .usImageSize = 4}, g_astField, {});
}  // namespace cap_row

namespace oam_tx_row {
using R = NpOamTxCnt;
constexpr NpField g_astField[] = {NP_F(ulSendPktCnt, .stAt = {0, 31, 0})};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_STAT, .pszArg = "pstOamCnt", .usImageSize = 4}, g_astField, {});
}  // namespace oam_tx_row

namespace oam_rx_row {
using R = NpOamRxCnt;
constexpr NpField g_astField[] = {NP_F(ulReceivePktCnt, .stAt = {0, 31, 0})};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_STAT, .pszArg = "pstOamCnt", .usImageSize = 4}, g_astField, {});
}  // namespace oam_rx_row

// The first class stands in the last word.
namespace to_cpu_row {
using R = NpPortToCpuPtypeCnt;
constexpr NpField g_astField[] = {
    NP_F(aulPassPktCnt, .stAt = {12, 31, 16}, .sStep = -32, .bCut = true),
    NP_F(aulDropPktCnt, .stAt = {12, 15, 0}, .sStep = -32, .bCut = true),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_STAT, .pszArg = "pstPortToCpuPtypeCnt", .usImageSize = 16}, g_astField, {});
}  // namespace to_cpu_row

namespace loop_row {
using R = Np3ahCnt;
constexpr NpField g_astField[] = {
    NP_F(ulWindowSize, .stAt = {12, 31, 0}),
    NP_F(ulPassCnt, .stAt = {8, 31, 0}),
    NP_F(ulErrorWindowSize, .stAt = {4, 31, 0}),
    NP_F(ulErrorCnt, .stAt = {0, 31, 0}),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_STAT, .pszArg = "pst3ahCnt", .usImageSize = 16}, g_astField, {});
}  // namespace loop_row

namespace clock_row {
using R = NpClockCnt;
constexpr NpField g_astField[] = {NP_F(ulCnt, .stAt = {0, 31, 0})};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_STAT, .pszArg = "pstCnt", .usImageSize = 4}, g_astField, {});
}  // namespace clock_row

namespace alarm_row {
using R = NpClockAlarm;
constexpr NpField g_astField[] = {NP_F(aulAlarm, .stAt = {0, 31, 0}, .sStep = 32)};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_STAT, .pszArg = "pstAlarm", .usImageSize = 8}, g_astField, {});
}  // namespace alarm_row

// 28 bits of packets and 36 of bytes.
namespace queue_row {
using R = NpGlbQueueStat;
constexpr NpField g_astField[] = {
    NP_F(ulPktCnt, .stAt = {0, 31, 4}),
    NP_F(ulByteCnt[0], .stAt = {4, 31, 0}),
    NP_F(ulByteCnt[1], .stAt = {0, 3, 0}),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulPktCnt, Np_Below(0x10000000)),
    NP_C(ulByteCnt[1], Np_Below(16)),
};
}  // namespace queue_row

namespace pri_row {
using R = NpGlbPriStat;
constexpr NpField g_astField[] = {
    NP_F(ulIPktCnt, .stAt = {0, 31, 0}),
    NP_F(ulIDropCnt, .stAt = {4, 31, 0}),
    NP_F(ulEPktCnt, .stAt = {8, 31, 0}),
    NP_F(ulEDropCnt, .stAt = {12, 31, 0}),
};
}  // namespace pri_row

// Counters of a type, with the key's name and limit.
template <NpName stName, NpLimit stLimit>
consteval NpTable Np_Counters(const NpRow &stRow, uint16_t usType)
{
    return Np_TableOf(g_stKey<stName, stLimit>, stRow, {}, Np_CounterPart(usType));
}
consteval NpTable Np_FlowCounters(const NpRow &stRow, uint16_t usType)
{
    return Np_TableOf(g_stFlowKey, stRow, {}, Np_CounterPart(usType));
}

uint32_t Np_ChipIsOne(uint32_t ulChipID, NpWhere stWhere)
{
    if (ulChipID >= NP_CHIP_NUM) {
        NP_TRACE_AT(stWhere, NP_M_STAT, NP_PRINT_ERROR, "param error! (ulChipID)=0x%08x\r\n",
                    ulChipID);
        return NP_ERR_PARAM;
    }
    return NP_OK;
}

}  // namespace

constexpr NpTable g_stIflowStatTable = Np_FlowCounters(iflow_row::g_stRow, 7);
constexpr NpTable g_stOflowStatTable = Np_FlowCounters(oflow_row::g_stRow, 8);
constexpr NpTable g_stMcStatTable = Np_Counters<"ulMcCntID", Np_MostCap(NP_CAP_MC_STAT_MAX)>(
    NpPktByteRow<NpMcCnt, "pstMcCnt">::g_stRow, 2);
constexpr NpTable g_stAclStatTable = Np_Counters<"ulAclCntID", Np_MostCap(NP_CAP_ACL_STAT_MAX)>(
    NpPktByteRow<NpAclCnt, "pstAclCnt">::g_stRow, 3);
constexpr NpTable g_stCapStatTable =
    Np_Counters<"ulCapCntID", Np_MostCap(NP_CAP_STAT_INDEX_B_MAX)>(cap_row::g_stRow, 6);
constexpr NpTable g_stVoipStatTable =
    Np_Counters<"ulChannelID", Np_BelowCap(NP_CAP_VOIP_CHANNEL_NUM)>(
        NpCountRow<NpVoipCnt, "pstVoipCnt">::g_stRow, 4);
constexpr NpTable g_stPtypeStatTable = Np_Counters<"ulPtypeID", Np_BelowCap(NP_CAP_PTYPE_ROWS)>(
    NpCountRow<NpPtypeCnt, "pstPtypeCnt">::g_stRow, 5);
constexpr NpTable g_stPppoeSessionStatTable = Np_Counters<"ulCntID", Np_BelowCap(NP_CAP_UVT_ROWS)>(
    NpPktByteRow<NpPppoeSessionCnt, "pstCnt">::g_stRow, 9);
constexpr NpTable g_stPppIftlcpStatTable =
    Np_FlowCounters(NpCountRow<NpPppLcpCnt, "pstLcpCnt", 16>::g_stRow, 10);
constexpr NpTable g_stPppOftlcpStatTable =
    Np_FlowCounters(NpCountRow<NpPppLcpCnt, "pstLcpCnt", 16>::g_stRow, 11);
constexpr NpTable g_stMcleafStatTable =
    Np_FlowCounters(NpCountRow<NpMcleafCnt, "pstMcleafCnt">::g_stRow, 12);
constexpr NpTable g_stPortPtypeStatTable =
    Np_Counters<"ulIndex", Np_MostCap(NP_CAP_STAT_FLOW_ROWS)>(
        NpCountRow<NpPortPtypeCnt, "pstPortPtypeCnt", 16>::g_stRow, 13);
constexpr NpTable g_stOamTxStatTable =
    Np_Counters<"ulOamTxID", Np_MostCap(NP_CAP_OAM_TX_MAX)>(oam_tx_row::g_stRow, 14);
constexpr NpTable g_stOamRxStatTable =
    Np_Counters<"ulOamSessionID", Np_MostCap(NP_CAP_OAM_RX_MAX)>(oam_rx_row::g_stRow, 15);
constexpr NpTable g_stPortToCpuTypeStatTable =
    Np_Counters<"ulUserID", Np_MostCap(NP_CAP_USER_ID_MAX)>(to_cpu_row::g_stRow, 16);
constexpr NpTable g_st3ahStatTable =
    Np_TableMake(g_stKey<"ul3ahCnId", Np_MostCap(NP_CAP_STAT_INDEX_A_MAX)>, loop_row::g_stRow, 42);

constexpr NpTable g_stPtpStTable = Np_Counters<"ulIndex", Np_Below(2048)>(clock_row::g_stRow, 20);
constexpr NpTable g_stSsmStTable = Np_Counters<"ulIndex", Np_Below(64)>(clock_row::g_stRow, 23);
constexpr NpTable g_stAnnTimeOutAlmTable =
    Np_Counters<"ulIndex", Np_Below(1)>(alarm_row::g_stRow, 21);
constexpr NpTable g_stAnnChangeAlmTable =
    Np_Counters<"ulIndex", Np_Below(1)>(alarm_row::g_stRow, 22);

constexpr NpRow g_stQueueStatKeyRow = g_stKey<"ulIndex", Np_MostCap(NP_CAP_STAT_PORT_PTYPE_MAX)>;
constexpr NpRow g_stQueueStatRow = Np_RowMake<NpGlbQueueStat>(
    {.ucModule = NP_M_STAT, .pszArg = "pstNpGlbQueueStat", .usImageSize = 8}, queue_row::g_astField,
    queue_row::g_astCheck);
constexpr NpRow g_stPriStatKeyRow = g_stKey<"ulIndex", Np_MostCap(NP_CAP_STAT_OAM_ROWS)>;
constexpr NpRow g_stPriStatRow = Np_RowMake<NpGlbPriStat>(
    {.ucModule = NP_M_STAT, .pszArg = "pstNpGlbPriStat", .usImageSize = 16}, pri_row::g_astField,
    {});

extern "C" {

NP_TABLE_GET(Np_Tarn_Stat_IflowStatTbl_Get, NpIflowCnt, g_stIflowStatTable)
NP_TABLE_SET(Np_Tarn_Stat_IflowStatTbl_Set, NpIflowCnt, g_stIflowStatTable)
NP_TABLE_GET(Np_Tarn_Stat_OflowStatTbl_Get, NpOflowCnt, g_stOflowStatTable)
NP_TABLE_SET(Np_Tarn_Stat_OflowStatTbl_Set, NpOflowCnt, g_stOflowStatTable)
NP_TABLE_GET(Np_Tarn_Stat_McStatTbl_Get, NpMcCnt, g_stMcStatTable)
NP_TABLE_SET(Np_Tarn_Stat_McStatTbl_Set, NpMcCnt, g_stMcStatTable)
NP_TABLE_GET(Np_Tarn_Stat_AclStatTbl_Get, NpAclCnt, g_stAclStatTable)
NP_TABLE_SET(Np_Tarn_Stat_AclStatTbl_Set, NpAclCnt, g_stAclStatTable)
NP_TABLE_GET(Np_Tarn_Stat_CapStatTbl_Get, NpCapCnt, g_stCapStatTable)
NP_TABLE_SET(Np_Tarn_Stat_CapStatTbl_Set, NpCapCnt, g_stCapStatTable)
NP_TABLE_GET(Np_Tarn_Stat_VoipStatTbl_Get, NpVoipCnt, g_stVoipStatTable)
NP_TABLE_SET(Np_Tarn_Stat_VoipStatTbl_Set, NpVoipCnt, g_stVoipStatTable)
NP_TABLE_GET(Np_Tarn_Stat_PtypeStatTbl_Get, NpPtypeCnt, g_stPtypeStatTable)
NP_TABLE_SET(Np_Tarn_Stat_PtypeStatTbl_Set, NpPtypeCnt, g_stPtypeStatTable)
NP_TABLE_GET(Np_Tarn_Stat_PppoeSessionStatTbl_Get, NpPppoeSessionCnt, g_stPppoeSessionStatTable)
NP_TABLE_SET(Np_Tarn_Stat_PppoeSessionStatTbl_Set, NpPppoeSessionCnt, g_stPppoeSessionStatTable)
NP_TABLE_GET(Np_Tarn_Stat_PppIftlcpStatTbl_Get, NpPppLcpCnt, g_stPppIftlcpStatTable)
NP_TABLE_SET(Np_Tarn_Stat_PppIftlcpStatTbl_Set, NpPppLcpCnt, g_stPppIftlcpStatTable)
NP_TABLE_GET(Np_Tarn_Stat_PppOftlcpStatTbl_Get, NpPppLcpCnt, g_stPppOftlcpStatTable)
NP_TABLE_SET(Np_Tarn_Stat_PppOftlcpStatTbl_Set, NpPppLcpCnt, g_stPppOftlcpStatTable)
NP_TABLE_GET(Np_Tarn_Stat_McleafStatTbl_Get, NpMcleafCnt, g_stMcleafStatTable)
NP_TABLE_SET(Np_Tarn_Stat_McleafStatTbl_Set, NpMcleafCnt, g_stMcleafStatTable)
NP_TABLE_GET(Np_Tarn_Stat_PortPtypeStatTbl_Get, NpPortPtypeCnt, g_stPortPtypeStatTable)
NP_TABLE_SET(Np_Tarn_Stat_PortPtypeStatTbl_Set, NpPortPtypeCnt, g_stPortPtypeStatTable)
NP_TABLE_GET(Np_Tarn_Stat_OamTxStatTbl_Get, NpOamTxCnt, g_stOamTxStatTable)
NP_TABLE_SET(Np_Tarn_Stat_OamTxStatTbl_Set, NpOamTxCnt, g_stOamTxStatTable)
NP_TABLE_GET(Np_Tarn_Stat_OamRxStatTbl_Get, NpOamRxCnt, g_stOamRxStatTable)
NP_TABLE_SET(Np_Tarn_Stat_OamRxStatTbl_Set, NpOamRxCnt, g_stOamRxStatTable)
NP_TABLE_GET(Np_Tarn_Stat_PortToCpuTypeStatTbl_Get, NpPortToCpuPtypeCnt, g_stPortToCpuTypeStatTable)
NP_TABLE_SET(Np_Tarn_Stat_PortToCpuTypeStatTbl_Set, NpPortToCpuPtypeCnt, g_stPortToCpuTypeStatTable)
NP_TABLE_GET(Np_Tarn_Stat_3ahStatTbl_Get, Np3ahCnt, g_st3ahStatTable)
NP_TABLE_SET(Np_Tarn_Stat_3ahStatTbl_Set, Np3ahCnt, g_st3ahStatTable)

NP_TABLE_GET(Np_tarn_PtpStTbl_Get, NpClockCnt, g_stPtpStTable)
NP_TABLE_SET(Np_tarn_PtpStTbl_Set, NpClockCnt, g_stPtpStTable)
NP_TABLE_GET(Np_tarn_SsmStTbl_Get, NpClockCnt, g_stSsmStTable)
NP_TABLE_SET(Np_tarn_SsmStTbl_Set, NpClockCnt, g_stSsmStTable)
NP_TABLE_GET(Np_tarn_AnnTimeOutAlmTbl_Get, NpClockAlarm, g_stAnnTimeOutAlmTable)
NP_TABLE_SET(Np_tarn_AnnTimeOutAlmTbl_Set, NpClockAlarm, g_stAnnTimeOutAlmTable)
NP_TABLE_GET(Np_tarn_AnnChangeAlmTbl_Get, NpClockAlarm, g_stAnnChangeAlmTable)
NP_TABLE_SET(Np_tarn_AnnChangeAlmTbl_Set, NpClockAlarm, g_stAnnChangeAlmTable)

uint32_t Np_Tarn_Stat_Init(uint32_t ulChipID)
{
    return Np_ChipIsOne(ulChipID, Np_Here());
}

uint32_t Np_Tarn_Stat_Destruct(uint32_t ulChipID)
{
    return Np_ChipIsOne(ulChipID, Np_Here());
}

}  // extern "C"

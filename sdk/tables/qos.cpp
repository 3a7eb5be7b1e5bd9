#include "sdk/tables/qos.h"

#include "sdk/frame/base/service.h"
#include "sdk/frame/base/trace.h"
#include "sdk/record/describe.h"

namespace {

namespace dscp_row {
using R = NpDscpMap;
constexpr NpField g_astField[] = {NP_F(auc1P, .stAt = {0, 7, 0}, .sStep = 8)};
constexpr NpCheck g_astCheck[] = {
    NP_C(auc1P, Np_MostCap(NP_CAP_DOT1P_MAX), .pszText = "auc1P[ulI]")};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_QOS, .pszArg = "pstDscpMap", .usImageSize = 64}, g_astField, g_astCheck);
}  // namespace dscp_row

namespace pcp_row {
using R = NpPcpMap;
constexpr NpField g_astField[] = {NP_F(auc1P, .stAt = {7, 7, 0}, .sStep = -8)};
constexpr NpCheck g_astCheck[] = {
    NP_C(auc1P, Np_MostCap(NP_CAP_DOT1P_MAX), .pszText = "auc1P[ulI]")};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_QOS, .pszArg = "pstPcpMap", .usImageSize = 8}, g_astField, g_astCheck);
}  // namespace pcp_row

namespace ip_row {
using R = NpIpMap;
constexpr NpField g_astField[] = {NP_F(auc1P, .stAt = {7, 7, 0}, .sStep = -8)};
constexpr NpCheck g_astCheck[] = {
    NP_C(auc1P, Np_MostCap(NP_CAP_DOT1P_MAX), .pszText = "auc1P[ulI]")};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_QOS, .pszArg = "pstIpMap", .usImageSize = 8}, g_astField, g_astCheck);
}  // namespace ip_row

// A map of eight takes two bytes, the last map the lowest ones.
namespace car_row {
using R = NpPriCarMap;
constexpr NpField g_astField[] = {
    NP_F(aucPriMap, .stAt = {6, 1, 0}, .sStep = 2, .ucRun = 8, .sRunStep = -16)};
constexpr NpCheck g_astCheck[] = {
    NP_C(aucPriMap, Np_MostCap(NP_CAP_PRI_MAP_MAX), .pszText = "aucPriMap[ulI][ulJ]")};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_QOS, .pszArg = "pstPriCarMap", .usImageSize = 8, .bBare = true},
                  g_astField, g_astCheck);
}  // namespace car_row

}  // namespace

constexpr NpTable g_stDscpMapTable =
    Np_TableMake(NpIndexKey<NP_M_QOS, NP_CAP_DSCP_MAP_ROWS>::g_stRow, dscp_row::g_stRow, 44);
constexpr NpTable g_stPcpMapTable =
    Np_TableMake(NpIndexKey<NP_M_QOS, NP_CAP_PCP_MAP_ROWS>::g_stRow, pcp_row::g_stRow, 45);
constexpr NpTable g_stIpMapTable =
    Np_TableMake(NpIndexKey<NP_M_QOS, NP_CAP_IP_MAP_ROWS>::g_stRow, ip_row::g_stRow, 47);
constexpr NpTable g_stPriCarMapTable =
    Np_TableMake(NpIndexKey<NP_M_QOS, NP_CAP_PRI_CAR_ROWS, true>::g_stRow, car_row::g_stRow, 74);

extern "C" {

NP_TABLE_SET(Np_Tarn_DscpMapTbl_Set, NpDscpMap, g_stDscpMapTable)
NP_TABLE_GET(Np_Tarn_DscpMapTbl_Get, NpDscpMap, g_stDscpMapTable)
NP_TABLE_SET(Np_Tarn_PcpMapTbl_Set, NpPcpMap, g_stPcpMapTable)
NP_TABLE_GET(Np_Tarn_PcpMapTbl_Get, NpPcpMap, g_stPcpMapTable)
NP_TABLE_SET(Np_Tarn_IpMapTbl_Set, NpIpMap, g_stIpMapTable)
NP_TABLE_GET(Np_Tarn_IpMapTbl_Get, NpIpMap, g_stIpMapTable)
NP_TABLE_SET(Np_Tarn_PriCarMapTbl_Set, NpPriCarMap, g_stPriCarMapTable)
NP_TABLE_GET(Np_Tarn_PriCarMapTbl_Get, NpPriCarMap, g_stPriCarMapTable)

}  // extern "C"

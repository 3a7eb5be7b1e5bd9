// Commands of the MAC family. The table's commands and the LAN table's are the same but for their
// records.
#include "sdk/module/smd_arl.h"

#include "ldsdk/secu.h"
#include "ldsdk/status.h"
#include "platform/os.h"
#include "sdk/cpuchan/message.h"
#include "sdk/frame/base/trace.h"
#include "sdk/frame/registry.h"
#include "sdk/module/cli/smd.h"
#include "sdk/module/smd_row.h"
#include "sdk/module/tree.h"
#include "sdk/record/describe.h"
#include "sdk/tables/secu.h"

namespace {

inline constexpr uint32_t NP_BURST_MAX = 24;   // more requests than a line has room for
inline constexpr uint32_t NP_UVMAC_ROOM = 32;  // records of a query

namespace uvmac {
using R = NpUvmac;
constexpr NpField g_astField[] = {
    NP_F(aucUmac, .ucType = NP_SMD_MAC),
    NP_F(aucVmac, .ucType = NP_SMD_MAC),
    NP_F(ulOpCode),
    NP_F(ulIntfID),
};
}  // namespace uvmac

// Reads all the words of a row and nothing behind them.
uint32_t Np_ArgsScan(const NpRow *pstRow, void *pvRecord)
{
    return Np_SMD_RowScan(pstRow, pvRecord, true) != 0 || Np_SMD_EndCheck() != 0 ? 1 : 0;
}

}  // namespace

constexpr NpRow g_stUvmacRow = Np_RowMake<NpUvmac>({.ucModule = NP_M_ARL}, uvmac::g_astField, {});

uint32_t Np_SMD_ARL_HashCrash_Record_Read(void)
{
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    NpArlKey stKey = {};
    NpArlData stData = {};
    NpArlInfo stInfo = {};
    const uint32_t ulReturn =
        Np_ArlTbl_HashCrashRecord_Read(g_ulNpCurrentChipID, &stKey, &stData, &stInfo);
    if (ulReturn == NP_OK) {
        Np_SMD_SeparatorPrint();
        Np_SMD_RowPrint(&g_stArlInfoRow, &stInfo);
        Np_SMD_RowPrint(&g_stArlKeyRow, &stKey);
        Np_SMD_RowPrint(&g_stArlDataRow, &stData);
        Np_SMD_SeparatorPrint();
    }
    return Np_SMD_Report(ulReturn);
}

// ---- learning -----------------------------------------------------------------------------------

uint32_t Np_SMD_ARL_DynamicArlLrn(void)
{
    NpDynamicLrn stLearn = {};
    if (Np_SMD_RowScan(&g_stArlKeyRow, &stLearn.stArlKey, true) != 0 ||
        Np_SMD_RowScan(&g_stArlDataRow, &stLearn.stArlData, false) != 0 || Np_SMD_EndCheck() != 0) {
        return 1;
    }
    return Np_SMD_Report(Np_ArlTbl_DynamicArlLrn(g_ulNpCurrentChipID, &stLearn));
}

uint32_t Np_SMD_ARL_DynamicArlLrnStateGet(void)
{
    static constexpr NpRowCommand stCommand = {
        .pfnHandler = Np_SMD_ARL_DynamicArlLrnStateGet,
        .enForm = NP_FORM_GET,
        .pstTable = &g_stLearnStateTable,
        .pfnGet = Np_GetCall<Np_ArlTbl_DynamicArlLrnStateTbl_Get>};
    return Np_SMD_RowGet(&stCommand);
}

uint32_t Np_SMD_ARL_DynamicArlLrnStateClear(void)
{
    uint32_t ulIndex = 0;
    if (Np_ArgsScan(&g_stLearnStateArgs, &ulIndex) != 0) {
        return 1;
    }
    return Np_SMD_Report(Np_ArlTbl_DynamicArlLrnStateTbl_Clear(g_ulNpCurrentChipID, ulIndex));
}

// ---- ageing -------------------------------------------------------------------------------------

uint32_t Np_SMD_ARL_ArlTbl_NormalAge(void)
{
    NpNormalAge stAge = {};
    if (Np_ArgsScan(&g_stNormalAgeRow, &stAge) != 0) {
        return 1;
    }
    return Np_SMD_Report(Np_ArlTbl_NormalAge(g_ulNpCurrentChipID, &stAge));
}

uint32_t Np_SMD_ARL_ArlTbl_ForceAge(void)
{
    NpForceAge stAge = {};
    if (Np_ArgsScan(&g_stForceAgeRow, &stAge) != 0) {
        return 1;
    }
    return Np_SMD_Report(Np_ArlTbl_ForceAge(g_ulNpCurrentChipID, &stAge));
}

// Requests one behind the other up to the line's end. All are tested before the first is sent.
uint32_t Np_SMD_ARL_ArlTbl_ForceAgeBurst(void)
{
    NpForceAge astAge[NP_BURST_MAX];
    uint32_t ulNum = 0;
    do {
        if (Np_SMD_RowScan(&g_stForceAgeRow, &astAge[ulNum], true) != 0) {
            return 1;
        }
        ulNum++;
    } while (ulNum < NP_BURST_MAX && CLI_CamIsNoParam() != 0);
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    uint32_t ulReturn = Np_GLB_ChipIDIsValid(g_ulNpCurrentChipID);
    for (uint32_t i = 0; i < ulNum && ulReturn == NP_OK; i++) {
        ulReturn = Np_Tarn_Arl_ForceAgeInfoCheck(g_ulNpCurrentChipID, &astAge[i]);
    }
    for (uint32_t i = 0; i < ulNum && ulReturn == NP_OK; i++) {
        ulReturn = Np_ArlTbl_ForceAge(g_ulNpCurrentChipID, &astAge[i]);
    }
    return Np_SMD_Report(ulReturn);
}

namespace {

// An age request whose message is changed by hand before it goes out: the request's own pairs, then
// those of the message.
template <typename Request, auto pfnCheck, auto pfnBuild, auto pfnSet>
uint32_t Np_AgePara(const NpRow *pstRequest, const NpRow *pstPara, NpWhere stWhere = Np_Here())
{
    Request stAge = {};
    if (Np_SMD_RowScan(pstRequest, &stAge, true) != 0) {
        return 1;
    }
    uint32_t ulReturn = Np_GLB_ChipIDIsValid(g_ulNpCurrentChipID);
    if (ulReturn == NP_OK) {
        ulReturn = pfnCheck(g_ulNpCurrentChipID, &stAge);
    }
    ArlAgeInfo stInfo;
    if (ulReturn == NP_OK) {
        ulReturn = pfnBuild(g_ulNpCurrentChipID, &stAge, &stInfo);
    }
    if (ulReturn != NP_OK) {
        return Np_SMD_Report(ulReturn);
    }
    if (Np_SMD_RowScan(pstPara, &stInfo, false) != 0 || Np_SMD_EndCheck() != 0) {
        return 1;
    }
    ulReturn = Np_Row_Check(pstPara, g_ulNpCurrentChipID, &stInfo, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn = pfnSet(g_ulNpCurrentChipID, &stInfo);
    }
    return Np_SMD_Report(ulReturn);
}

}  // namespace

uint32_t Np_SMD_ARL_ArlTbl_NormalAge_Para(void)
{
    return Np_AgePara<NpNormalAge, Np_Tarn_Arl_NormalAgeInfoCheck,
                      Np_Tarn_CputrMsg_NormalAgeInfoBuild, Np_Tarn_CputrMsg_NormalAgeInfoSet>(
        &g_stNormalAgeRow, &g_stNpNormalAgeMsgRow);
}

uint32_t Np_SMD_ARL_ArlTbl_ForceAge_Para(void)
{
    return Np_AgePara<NpForceAge, Np_Tarn_Arl_ForceAgeInfoCheck, Np_Tarn_CputrMsg_ForceAgeInfoBuild,
                      Np_Tarn_CputrMsg_ForceAgeInfoSet>(&g_stForceAgeRow, &g_stNpForceAgeMsgRow);
}

// ---- user MACs ----------------------------------------------------------------------------------

uint32_t Np_SMD_ARL_ArlTbl_AgeMode_Set(void)
{
    NpArlAgeModeKey stKey = {};
    uint32_t ulAgeMode = 0;
    if (Np_SMD_RowScan(&g_stArlAgeModeKeyRow, &stKey, true) != 0 ||
        Np_ArgsScan(&g_stAgeModeArgs, &ulAgeMode) != 0) {
        return 1;
    }
    return Np_SMD_Report(Np_ArlTbl_AgeModeSet(g_ulNpCurrentChipID, &stKey, ulAgeMode));
}

uint32_t Np_SMD_ARL_UVMacInfo_Get(void)
{
    NpUvmacInfoKey stKey = {};
    if (Np_ArgsScan(&g_stUvmacInfoKeyRow, &stKey) != 0) {
        return 1;
    }
    NpUvmacInfoAd astAd[NP_UVMAC_ROOM] = {};
    uint32_t ulNum = 0;
    const uint32_t ulReturn = Np_UVMacInfo_Get(g_ulNpCurrentChipID, &stKey, &ulNum, astAd);
    if (ulReturn != NP_OK) {
        return Np_SMD_Report(ulReturn);
    }
    Np_SMD_SeparatorPrint();
    for (uint32_t i = 0; i < ulNum; i++) {
        Np_SMD_RowPrint(&g_stUvmacRow, &astAd[i].stUvmac);
        Np_SMD_SeparatorPrint();
    }
    Os_Print("\r\n %10s : %5u", "total", ulNum);
    return Np_SMD_Report(NP_OK);
}

uint32_t Np_SMD_UvtTblStaticFlag_Set(void)
{
    uint32_t aulArg[2] = {};
    if (Np_ArgsScan(&g_stUvtStaticArgs, aulArg) != 0) {
        return 1;
    }
    return Np_SMD_Report(Np_UvtTblStaticFlag_Set(g_ulNpCurrentChipID, aulArg[0], aulArg[1]));
}

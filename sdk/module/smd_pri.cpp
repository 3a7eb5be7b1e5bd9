// Commands on the blocks and the soft tables of priority CAM tables, and the default rows of packet
// analysis.
#include "ldsdk/ldsdk.h"
#include "ldsdk/status.h"
#include "platform/os.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/module/cli/cli.h"
#include "sdk/module/cli/smd.h"
#include "sdk/module/smd_row.h"
#include "sdk/module/smd_rows.h"
#include "sdk/module/tree.h"
#include "sdk/tables/acl.h"
#include "sdk/tables/multiservice.h"
#include "sdk/tables/pa.h"

namespace {

inline constexpr uint32_t NP_PROMPT_SIZE = 24;
inline constexpr uint32_t NP_WATCHDOG_STEP = 100;  // lines between two watchdog calls

// A table, as Np_INIT_PriBlockAssign and the dump know it.
struct NpPriKind {
    const NpPriTable *pstTable;
    uint32_t ulType;
    const char *pszKept;  // heading of the word that the soft tables keep, or null
};
constexpr NpPriKind g_stMultiServiceKind = {&g_stMultiServiceTable, 0, "srcintfseltype"};
constexpr NpPriKind g_stL2paKind = {&g_stL2paTable, 1, nullptr};
constexpr NpPriKind g_stL3paKind = {&g_stL3paTable, 2, "key_type"};

// Reads the number of priorities, then a share for each.
uint32_t Np_BlockScan(NpPriBlock *pstBlock, const char *pszNum = "prinum")
{
    constexpr uint32_t ulMost = sizeof(pstBlock->ulPriPercent) / sizeof(uint32_t);
    char acWord[NP_SMD_WORD_SIZE];
    if (Np_SMD_Com_StringParamGet(pszNum, pszNum, acWord) != 0 ||
        Np_SMD_Com_ValueParamGet(pszNum, 0, ulMost, &pstBlock->ulMaxPriNum) != 0) {
        return 1;
    }
    for (uint32_t i = 0; i < pstBlock->ulMaxPriNum; i++) {
        char acPrompt[NP_PROMPT_SIZE];
        Os_Format(acPrompt, sizeof(acPrompt), "pri%d percent:", static_cast<int>(i));
        if (CLI_CamGetParamULONG(acPrompt, acPrompt, 0, &pstBlock->ulPriPercent[i], 0, 100) != 0) {
            return 1;
        }
    }
    return Np_SMD_EndCheck();
}

void Np_PointsPrint(const NpPriBlockPoint *pastPoint, uint32_t ulStart, uint32_t ulEnd)
{
    Os_Print("\n\r  pri  percent    toppoint    botpoint ");
    for (uint32_t i = ulStart; i <= ulEnd; i++) {
        const NpPriBlockPoint &stPoint = pastPoint[i];
        // Signed, as a full last block ends below offset 0.
        Os_Print("\n\r  %-3u  %-7u    %-8d    %-8d ", i, stPoint.ulPercent,
                 static_cast<int>(stPoint.ulTopPoint), static_cast<int>(stPoint.ulBotPoint));
    }
}

void Np_BlocksPrint(const NpPriTable *pstTable)
{
    const uint32_t ulChipID = g_ulNpCurrentChipID;
    Np_PointsPrint(pstTable->ppstPriPoint[ulChipID], 0, pstTable->pulPriMax[ulChipID]);
}

uint32_t Np_BlocksAssign(const NpPriKind &stKind, const NpPriBlock *pstBlock)
{
    const uint32_t ulReturn = Np_INIT_PriBlockAssign(g_ulNpCurrentChipID, stKind.ulType, pstBlock);
    if (ulReturn == NP_OK) {
        Np_BlocksPrint(stKind.pstTable);
    }
    return Np_SMD_Report(ulReturn);
}

// A request is too large for the stack. pfnBefore: what goes before the assignment, or null.
uint32_t Np_PriInit(const NpPriKind &stKind, uint32_t (*pfnBefore)(uint32_t ulChipID) = nullptr)
{
    NpPriBlock *pstBlock = static_cast<NpPriBlock *>(Os_Alloc(sizeof(NpPriBlock)));
    if (pstBlock == nullptr) {
        return Np_SMD_Report(NP_ERR_NO_MEMORY);
    }
    uint32_t ulReturn = Np_BlockScan(pstBlock);
    if (ulReturn == 0) {
        const uint32_t ulBefore = pfnBefore != nullptr ? pfnBefore(g_ulNpCurrentChipID) : NP_OK;
        ulReturn = ulBefore != NP_OK ? Np_SMD_Report(ulBefore) : Np_BlocksAssign(stKind, pstBlock);
    }
    Os_Free(pstBlock);
    return ulReturn;
}

uint32_t Np_ChipCall(uint32_t (*pfnCall)(uint32_t ulChipID))
{
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    const uint32_t ulReturn = Np_GLB_ChipIDIsValid(g_ulNpCurrentChipID);
    return Np_SMD_Report(ulReturn != NP_OK ? ulReturn : pfnCall(g_ulNpCurrentChipID));
}

// ---- soft tables --------------------------------------------------------------------------------

void Np_KeysPrint(const NpPriKind &stKind, uint32_t ulStart, uint32_t ulEnd)
{
    const NpPriTable *pstTable = stKind.pstTable;
    const uint32_t ulChipID = g_ulNpCurrentChipID;
    const bool bKept = stKind.pszKept != nullptr;
    Os_Print("\n\r  keyid  entry  pri  %s", bKept ? stKind.pszKept : "");
    for (uint32_t i = ulStart; i <= ulEnd && i < Np_GLB_CapGet(pstTable->enRows); i++) {
        if (i % NP_WATCHDOG_STEP == 0) {
            Np_ClearWatchDog();
        }
        const NpPriCamKeyInfo &stKey = pstTable->ppstKeyInfo[ulChipID][i];
        if (stKey.ulCamEntry == NP_PRICAM_NONE) {
            continue;
        }
        Os_Print("\n\r  %-5u  %-5u  %-3u", i, stKey.ulCamEntry, stKey.ulPri);
        if (bKept) {
            Os_Print("  %u", pstTable->ppulKept[ulChipID][i]);
        }
    }
}

uint32_t Np_PriDump(const NpPriKind &stKind, const NpRow *pstArgs)
{
    NpPriDumpArgs stArgs = {};
    if (Np_SMD_RowScan(pstArgs, &stArgs, true) != 0 || Np_SMD_EndCheck() != 0) {
        return 1;
    }
    const uint32_t ulChipID = g_ulNpCurrentChipID;
    const uint32_t ulReturn = Np_GLB_ChipIDIsValid(ulChipID);
    if (ulReturn != NP_OK || !Np_PriTable_IsReady(stKind.pstTable, ulChipID)) {
        return Np_SMD_Report(ulReturn != NP_OK ? ulReturn : NP_ERR_NULL_PTR);
    }
    if (stArgs.ulSoftbl == NP_DUMP_KEYS) {
        Np_KeysPrint(stKind, stArgs.ulStart, stArgs.ulEnd);
    }
    else if (stArgs.ulSoftbl == NP_DUMP_BLOCKS) {
        Np_BlocksPrint(stKind.pstTable);
    }
    else {
        return Np_SMD_Report(NP_OK);  // there is none
    }
    Os_Print("\n\r  cur_num: %u", stKind.pstTable->pulUsedNum[ulChipID]);
    return Np_SMD_Report(NP_OK);
}

// Rows that are there, each between separators.
template <auto pfnGet, typename Record>
uint32_t Np_PaDisplay(NpCapSlot enRows, const NpRow *pstRow)
{
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    for (uint32_t i = 0; i < Np_GLB_CapGet(enRows); i++) {
        if (i % NP_WATCHDOG_STEP == 0) {
            Np_ClearWatchDog();
        }
        Record stRecord = {};
        if (pfnGet(g_ulNpCurrentChipID, i, &stRecord) != NP_OK) {
            continue;
        }
        Np_SMD_SeparatorPrint();
        Np_PUB_SMD_Print_ex(NP_SMD_NUMBER, "index", &i);
        Np_SMD_RowPrint(pstRow, &stRecord);
        Np_SMD_SeparatorPrint();
    }
    return Np_SMD_Report(NP_OK);
}

}  // namespace

// ---- multi-service rules ------------------------------------------------------------------------

uint32_t NP_SMD_Pri_Init(void)
{
    return Np_PriInit(g_stMultiServiceKind);
}

uint32_t NP_SMD_L2_Init(void)
{
    return Np_PriInit(g_stMultiServiceKind, Np_L2_Init);
}

uint32_t NP_SMD_L2_SoftTbl_Dump(void)
{
    return Np_PriDump(g_stMultiServiceKind, &g_stL2DumpArgs);
}

// ---- packet analysis ----------------------------------------------------------------------------

uint32_t Np_SMD_L2pa_Init(void)
{
    return Np_PriInit(g_stL2paKind);
}

uint32_t Np_SMD_L3pa_Init(void)
{
    return Np_PriInit(g_stL3paKind);
}

uint32_t Np_SMD_L2pa_Destruct(void)
{
    return Np_ChipCall(Np_Tarn_L2paTbl_Destruct);
}

uint32_t Np_SMD_L3pa_Destruct(void)
{
    return Np_ChipCall(Np_Tarn_L3paTbl_Destruct);
}

uint32_t NP_SMD_L2pa_Dump(void)
{
    return Np_PriDump(g_stL2paKind, &g_stL2paDumpArgs);
}

uint32_t NP_SMD_L3pa_Dump(void)
{
    return Np_PriDump(g_stL3paKind, &g_stL3paDumpArgs);
}

uint32_t Np_SMD_DFX_L2pa_DisplayValid(void)
{
    return Np_PaDisplay<Np_L2paTbl_Get, NpL2pa>(NP_CAP_L2PA_ROWS, g_stL2paTable.pstRow);
}

uint32_t Np_SMD_DFX_L3pa_DisplayValid(void)
{
    return Np_PaDisplay<Np_L3paTbl_Get, NpL3pa>(NP_CAP_L3PA_ROWS, g_stL3paTable.pstRow);
}

uint32_t Np_SMD_Tpid_Init(void)
{
    return Np_ChipCall(Np_Tpid_Init);
}

// Equal blocks: the default rows have priorities up to 9.
uint32_t NP_SMD_PaInit(void)
{
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    NpPriBlock *pstBlock = static_cast<NpPriBlock *>(Os_Alloc(sizeof(NpPriBlock)));
    if (pstBlock == nullptr) {
        return Np_SMD_Report(NP_ERR_NO_MEMORY);
    }
    pstBlock->ulMaxPriNum = 10;
    for (uint32_t i = 0; i < pstBlock->ulMaxPriNum; i++) {
        pstBlock->ulPriPercent[i] = 10;
    }
    uint32_t ulReturn = NP_OK;
    for (const NpPriKind *pstKind : {&g_stL2paKind, &g_stL3paKind}) {
        if (ulReturn == NP_OK) {
            ulReturn = Np_INIT_PriBlockAssign(g_ulNpCurrentChipID, pstKind->ulType, pstBlock);
        }
    }
    Os_Free(pstBlock);
    return Np_SMD_Report(ulReturn != NP_OK ? ulReturn : Np_Tarn_DFX_PA_INIT(g_ulNpCurrentChipID));
}

// ---- access rules -------------------------------------------------------------------------------

uint32_t NP_SMD_ACL_Init(void)
{
    NpPriBlock *pstBlock = static_cast<NpPriBlock *>(Os_Alloc(sizeof(NpPriBlock)));
    if (pstBlock == nullptr) {
        return Np_SMD_Report(NP_ERR_NO_MEMORY);
    }
    uint32_t ulReturn = Np_BlockScan(pstBlock, "rule_prinum");
    if (ulReturn == 0) {
        ulReturn = Np_INIT_PriBlockAssign(g_ulNpCurrentChipID, 3, pstBlock);
        if (ulReturn == NP_OK) {
            Np_PointsPrint(g_pastAclPriPoint[g_ulNpCurrentChipID], 0,
                           g_pastAclPri[g_ulNpCurrentChipID]->ulMaxPri);
        }
        ulReturn = Np_SMD_Report(ulReturn);
    }
    Os_Free(pstBlock);
    return ulReturn;
}

uint32_t Np_SMD_ACL_SoftTblDump(void)
{
    NpPriDumpArgs stArgs = {};
    if (Np_SMD_RowScan(&g_stAclDumpArgs, &stArgs, true) != 0 || Np_SMD_EndCheck() != 0) {
        return 1;
    }
    const uint32_t ulChipID = g_ulNpCurrentChipID;
    const uint32_t ulReturn = Np_GLB_ChipIDIsValid(ulChipID);
    if (ulReturn != NP_OK || g_pastAclPriPoint[ulChipID] == nullptr) {
        return Np_SMD_Report(ulReturn != NP_OK ? ulReturn : NP_ERR_NULL_PTR);
    }
    const uint32_t ulRules = Np_GLB_CapGet(NP_CAP_ACL_RULE_NUM);
    if (stArgs.ulSoftbl == 0) {
        Os_Print("\n\r  key    entry  pri  mode");
        for (uint32_t i = stArgs.ulStart; i <= stArgs.ulEnd && i < ulRules; i++) {
            const NpAclRuleInfo &stInfo = g_pastAclRule2TcamInfo[ulChipID][i];
            if (stInfo.ulEntryID != NP_PRICAM_NONE) {
                Os_Print("\n\r  %-5u  %-5u  %-3u  %u", i, stInfo.ulEntryID, stInfo.ulPri,
                         stInfo.ulMode);
            }
        }
    }
    else if (stArgs.ulSoftbl == 1) {
        Os_Print("\n\r  entry  key    valid");
        for (uint32_t i = stArgs.ulStart; i <= stArgs.ulEnd && i < ulRules; i++) {
            const NpAclTcamInfo &stRow = g_pastAclTcam2RuleInfo[ulChipID][i];
            if (stRow.ulValid != 0) {
                Os_Print("\n\r  %-5u  %-5u  %u", i, stRow.ulRuleID, stRow.ulValid);
            }
        }
    }
    else {
        const uint32_t ulMaxPri = g_pastAclPri[ulChipID]->ulMaxPri;
        Np_PointsPrint(g_pastAclPriPoint[ulChipID], stArgs.ulStart,
                       stArgs.ulEnd < ulMaxPri ? stArgs.ulEnd : ulMaxPri);
    }
    return Np_SMD_Report(NP_OK);
}

// Commands on bound addresses, and the anti-DoS message by hand.
#include "ldsdk/secu.h"
#include "ldsdk/status.h"
#include "platform/os.h"
#include "sdk/cpuchan/message.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/registry.h"
#include "sdk/module/cli/smd.h"
#include "sdk/module/smd_row.h"
#include "sdk/module/tree.h"
#include "sdk/tables/ipbonding.h"
#include "sdk/tables/secu.h"

namespace {

// What addresses are bound to.
struct NpBondApi {
    const NpRow *pstSet;
    const NpRow *pstKey;
    const NpRow *pstDel;
    uint32_t (*pfnSet)(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulFlowID,
                       const NpIpBonding *pstIpBonding);
    uint32_t (*pfnGet)(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulFlowID,
                       NpIpBonding *pstIpBonding, uint32_t *pulSize);
    uint32_t (*pfnDel)(uint32_t ulChipID, uint32_t ulIpType, uint32_t ulFlowID, uint32_t ulDelMode,
                       const NpIpBonding *pstIpBonding);
};
constexpr NpBondApi g_stFlowApi = {&g_stIpFlowArgs, &g_stIpFlowKeyArgs, &g_stIpFlowDelArgs,
                                   Np_IpFlow_Set,   Np_IpFlow_Get,      Np_IpFlow_Del};
constexpr NpBondApi g_stBundleApi = {&g_stIpBundleArgs,    &g_stIpBundleKeyArgs,
                                     &g_stIpBundleDelArgs, Np_IpFlowBundle_Set,
                                     Np_IpFlowBundle_Get,  Np_IpFlowBundle_Del};
constexpr NpBondApi g_stCmApi = {&g_stIpCmArgs,      &g_stIpCmKeyArgs,   &g_stIpCmDelArgs,
                                 Np_CmIpBonding_Set, Np_CmIpBonding_Get, Np_CmIpBonding_Del};

uint32_t Np_ArgsScan(const NpRow *pstRow, NpIpArgs *pstArgs)
{
    return Np_SMD_RowScan(pstRow, pstArgs, true) != 0 || Np_SMD_EndCheck() != 0 ? 1 : 0;
}

uint32_t Np_BondSet(const NpBondApi &stApi)
{
    NpIpArgs stArgs = {};
    if (Np_ArgsScan(stApi.pstSet, &stArgs) != 0) {
        return 1;
    }
    return Np_SMD_Report(
        stApi.pfnSet(g_ulNpCurrentChipID, stArgs.ulIpType, stArgs.ulFlowID, &stArgs.stIp));
}

void Np_AddressPrint(uint32_t ulIpType, const NpIpBonding &stIp)
{
    const NpIpArgs stShown = {ulIpType, 0, 0, stIp};
    Np_SMD_RowPrint(&g_stIpShownArgs, &stShown);
}

uint32_t Np_BondGet(const NpBondApi &stApi)
{
    NpIpArgs stArgs = {};
    if (Np_ArgsScan(stApi.pstKey, &stArgs) != 0) {
        return 1;
    }
    uint32_t ulSize = Np_GLB_CapGet(NP_CAP_IP_BONDING_TOTAL);
    NpIpBonding *pastIp = static_cast<NpIpBonding *>(Os_Alloc(ulSize * sizeof(NpIpBonding)));
    if (pastIp == nullptr) {
        return Np_SMD_Report(NP_ERR_NO_MEMORY);
    }
    const uint32_t ulReturn =
        stApi.pfnGet(g_ulNpCurrentChipID, stArgs.ulIpType, stArgs.ulFlowID, pastIp, &ulSize);
    if (ulReturn == NP_OK) {
        Np_SMD_SeparatorPrint();
        for (uint32_t i = 0; i < ulSize; i++) {
            Np_AddressPrint(stArgs.ulIpType, pastIp[i]);
        }
        Np_SMD_SeparatorPrint();
        Os_Print("\r\n %10s : %5u", "total", ulSize);
    }
    Os_Free(pastIp);
    return Np_SMD_Report(ulReturn);
}

uint32_t Np_BondDel(const NpBondApi &stApi)
{
    NpIpArgs stArgs = {};
    if (Np_ArgsScan(stApi.pstDel, &stArgs) != 0) {
        return 1;
    }
    return Np_SMD_Report(stApi.pfnDel(g_ulNpCurrentChipID, stArgs.ulIpType, stArgs.ulFlowID,
                                      stArgs.ulDelMode, &stArgs.stIp));
}

// A command without words that calls one function.
uint32_t Np_ChipCall(uint32_t (*pfnCall)(uint32_t ulChipID))
{
    return Np_SMD_EndCheck() != 0 ? 1 : Np_SMD_Report(pfnCall(g_ulNpCurrentChipID));
}

void Np_ListPrint(uint32_t ulIpType, const uint32_t *pulFlow, const NpIpBondNode *pastNode)
{
    for (uint32_t i = 0; i < 2 * Np_GLB_CapGet(NP_CAP_IP_FLOW_NUM); i++) {
        if ((pulFlow[i] & NP_FLOW_VALID) == 0) {
            continue;
        }
        Os_Print("\n\r  %s %u:", (i & 1) == NP_IP_OF_BUNDLE ? "bundle" : "flow", i >> 1);
        uint32_t ulPos = pulFlow[i] >> NP_FLOW_HEAD_SHIFT & NP_NODE_POS_MASK;
        while (true) {
            const NpIpBondNode &stNode = pastNode[ulPos];
            NpIpBonding stIp;
            __builtin_memcpy(&stIp, stNode.aulAddress, sizeof(stIp));
            Os_Print("\n\r  node %u", ulPos);
            Np_AddressPrint(ulIpType, stIp);
            if ((stNode.ulControl & NP_NODE_HAS_NEXT) == 0) {
                break;
            }
            ulPos = stNode.ulControl >> NP_NODE_NEXT_SHIFT & NP_NODE_POS_MASK;
        }
    }
}

uint32_t Np_ListsPrint(uint32_t ulChipID)
{
    const uint32_t ulReturn = Np_GLB_ChipIDIsValid(ulChipID);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (!Np_IpBonding_IsReady(ulChipID)) {
        return NP_ERR_NULL_PTR;
    }
    Os_Print("\n\r  ipv4: %u addresses, %u flows and bundles", g_aulIpv4BNum[ulChipID],
             g_aulIpv4BIDNum[ulChipID]);
    Np_ListPrint(NP_IP_V4, g_pastIp4BIDTbl[ulChipID], g_pastIp4BTbl[ulChipID]);
    Os_Print("\n\r  ipv6: %u addresses, %u flows and bundles", g_aulIpv6BNum[ulChipID],
             g_aulIpv6BIDNum[ulChipID]);
    Np_ListPrint(NP_IP_V6, g_pastIp6BIDTbl[ulChipID], g_pastIp6BTbl[ulChipID]);
    return NP_OK;
}

uint32_t Np_NoLists(uint32_t ulChipID)
{
    const uint32_t ulReturn = Np_GLB_ChipIDIsValid(ulChipID);
    return ulReturn != NP_OK ? ulReturn : NP_ERR_UNREGISTERED;
}

}  // namespace

uint32_t Np_SMD_Ipbonding_Init(void)
{
    return Np_ChipCall(Np_IpBonding_Init);
}

uint32_t Np_SMD_Ipbonding_Destruct(void)
{
    return Np_ChipCall(Np_IpBonding_Destruct);
}

uint32_t NP_SMD_Ipbonding_Dump(void)
{
    return Np_ChipCall(Np_ListsPrint);
}

uint32_t NP_SMD_CmIpbonding_Dump(void)
{
    return Np_ChipCall(Np_NoLists);
}

#define NP_BOND_HANDLERS(SetHandler, GetHandler, DelHandler, stApi) \
    uint32_t SetHandler(void)                                       \
    {                                                               \
        return Np_BondSet(stApi);                                   \
    }                                                               \
    uint32_t GetHandler(void)                                       \
    {                                                               \
        return Np_BondGet(stApi);                                   \
    }                                                               \
    uint32_t DelHandler(void)                                       \
    {                                                               \
        return Np_BondDel(stApi);                                   \
    }
NP_BOND_HANDLERS(Np_SMD_IpFlow_Set, Np_SMD_IpFlow_Get, Np_SMD_IpFlow_Del, g_stFlowApi)
NP_BOND_HANDLERS(Np_SMD_IpFlowBundle_Set, Np_SMD_IpFlowBundle_Get, Np_SMD_IpFlowBundle_Del,
                 g_stBundleApi)
NP_BOND_HANDLERS(Np_SMD_CmIpBonding_Set, Np_SMD_CmIpBonding_Get, Np_SMD_CmIpBonding_Del, g_stCmApi)

// The message of a time, with pairs of its own in place of what was built.
uint32_t Np_SMD_AntiDos_Para(void)
{
    uint32_t ulAntiDosTime = 0;
    if (Np_SMD_RowScan(&g_stAntiDosArgs, &ulAntiDosTime, true) != 0) {
        return 1;
    }
    uint32_t ulReturn = Np_GLB_ChipIDIsValid(g_ulNpCurrentChipID);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Check(&g_stAntiDosArgs, g_ulNpCurrentChipID, &ulAntiDosTime);
    }
    if (ulReturn != NP_OK) {
        return Np_SMD_Report(ulReturn);
    }
    NpMsgAntiDosInfo stInfo;
    Np_MsgAntiDosInfoBuild(ulAntiDosTime, &stInfo);
    if (Np_SMD_RowScan(&g_stNpAntiDosMsgArgs, &stInfo, false) != 0 || Np_SMD_EndCheck() != 0) {
        return 1;
    }
    ulReturn = Np_Row_Check(&g_stNpAntiDosMsgArgs, g_ulNpCurrentChipID, &stInfo);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Tarn_CputrMsg_AntiDosInfoSet(g_ulNpCurrentChipID, &stInfo);
    }
    return Np_SMD_Report(ulReturn);
}

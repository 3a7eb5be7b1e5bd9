// Commands on the CPU channel and on port numbers.
#include "platform/os.h"
#include "sdk/cpuchan/packet.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/module/cli/cli.h"
#include "sdk/module/cli/smd.h"
#include "sdk/module/smd_row.h"
#include "sdk/module/smd_rows.h"
#include "sdk/module/tree.h"

#include <cstddef>

namespace {

inline constexpr uint32_t NP_RECEIVE_BUFFER = 255;

// One command at a time: a packet's bytes need not stand on the stack.
uint8_t g_aucPacket[NP_CPUTR_PKT_MAX];
bool g_bLengthGiven;

// Takes the number of a packet's bytes for its length if none is given.
void Np_SendTaken(const NpField *pstField, void *pvInfo)
{
    if (pstField->usOffset == offsetof(InfoForSend, ulPktLen)) {
        g_bLengthGiven = true;
    }
    else if (pstField->usOffset == offsetof(InfoForSend, pucData) && !g_bLengthGiven) {
        const uint32_t ulDigits = NP_StrLen(g_argv[g_argp - 1]);
        static_cast<InfoForSend *>(pvInfo)->ulPktLen = (ulDigits + 1) / 2;
    }
}

// Types that there are not have no row and are left to the exported function's check.
const NpRow *Np_SendRow(uint32_t ulSubType)
{
    const NpRow *pstRow = ulSubType < NP_INSERT_NUM ? g_apstNpSendRow[ulSubType] : nullptr;
    return pstRow != nullptr ? pstRow : g_apstNpSendRow[NP_INSERT_CM];
}

}  // namespace

uint32_t Np_SMD_CPUTR_SendPkt(void)
{
    InfoForSend stInfo = {};
    stInfo.pucData = g_aucPacket;
    memset(g_aucPacket, 0, sizeof(g_aucPacket));
    g_bLengthGiven = false;
    if (Np_SMD_RowScan(&g_stNpSendTypeArgs, &stInfo, true) != 0 ||
        Np_SMD_RowScanMenu(Np_SendRow(stInfo.ulSubType), &stInfo, Np_SendTaken) != 0) {
        return 1;
    }
    return Np_SMD_Report(Np_Cputr_PktSend(g_ulNpCurrentChipID, &stInfo));
}

uint32_t Np_SMD_CPUTR_ReceivePkt(void)
{
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    ReceiveInfo stInfo = {};
    stInfo.ulBufLen = NP_RECEIVE_BUFFER;
    stInfo.pucData = g_aucPacket;
    const uint32_t ulReturn = Np_Tarn_Cputr_PktReceive(g_ulNpCurrentChipID, &stInfo);
    if (ulReturn != NP_OK) {
        return Np_SMD_Report(ulReturn);
    }
    Np_SMD_SeparatorPrint();
    Np_SMD_RowPrint(Np_ReceiveRow(stInfo.ulSubType), &stInfo);
    Np_PUB_SMD_DataPrint("pucData", stInfo.pucData,
                         stInfo.ulPktLen < stInfo.ulBufLen ? stInfo.ulPktLen : stInfo.ulBufLen);
    Np_SMD_SeparatorPrint();
    return Np_SMD_Report(NP_OK);
}

uint32_t Np_SMD_DFX_PortID2PhyID(void)
{
    NpPortID stPort = {};
    if (Np_SMD_RowScanValues(&g_stPortArgs, &stPort, NP_BOUNDS_SHOWN) != 0 ||
        Np_SMD_EndCheck() != 0) {
        return 1;
    }
    uint32_t ulPhyID = 0;
    const uint32_t ulReturn = Np_PortID2PhyID(g_ulNpCurrentChipID, &stPort, &ulPhyID);
    if (ulReturn == NP_OK) {
        Os_Print("\n\r PhyID : 0x%08x(%u)", ulPhyID, ulPhyID);
    }
    return Np_SMD_Report(ulReturn);
}

uint32_t Np_SMD_DFX_IngressPhyID2PortID(void)
{
    uint32_t ulPhyID = 0;
    if (Np_SMD_RowScan(&g_stPhyArgs, &ulPhyID, true) != 0 || Np_SMD_EndCheck() != 0) {
        return 1;
    }
    NpPortID stPort = {};
    const uint32_t ulReturn = Np_IngressPhyID2PortID(g_ulNpCurrentChipID, ulPhyID, &stPort);
    if (ulReturn == NP_OK) {
        Np_PUB_SMD_Print_ex(NP_SMD_PORT, "portid", &stPort);
    }
    return Np_SMD_Report(ulReturn);
}

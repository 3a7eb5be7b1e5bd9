// Commands on the CPU channel and on port numbers. The parameters of a packet are the fields of its
// format, under their own names; only what no field says is told here.
#include "platform/os.h"
#include "sdk/cpuchan/formats.h"
#include "sdk/frame/registry.h"
#include "sdk/frame/service.h"
#include "sdk/frame/text.h"
#include "sdk/module/cli.h"
#include "sdk/module/smd.h"
#include "sdk/module/smd_row.h"
#include "sdk/module/tree.h"

#include <array>

namespace {

inline constexpr uint32_t NP_RECEIVE_BUFFER = 255;
inline constexpr int32_t NP_DATA_MAX = 255;  // bytes of a packet that a line can give
inline constexpr uint32_t NP_MENU_ENTRY = 64;

// Keys: who has named values, and who is read in a way of its own.
enum NpCputrKey : uint32_t {
    NP_KEY_NUMBER,
    NP_KEY_ROLE,
    NP_KEY_CLASS,
    NP_KEY_TS_MODE,
    NP_KEY_BK,
    NP_KEY_ATM_PTM,
    NP_KEY_INSERT,
    NP_KEY_FRAME,
    NP_KEY_RECEIVE,
    NP_KEY_DATA,
};

constexpr NpSmdKeyEnum g_astWord[] = {
    {NP_KEY_ROLE, "uni", 1},
    {NP_KEY_ROLE, "nni", 2},
    {NP_KEY_CLASS, "low", 1},
    {NP_KEY_CLASS, "high", 2},
    {NP_KEY_TS_MODE, "non", 0},
    {NP_KEY_TS_MODE, "modify", 1},
    {NP_KEY_TS_MODE, "sub", 2},
    {NP_KEY_TS_MODE, "add", 3},
    {NP_KEY_BK, "noback", 0},
    {NP_KEY_BK, "back", 1},
    {NP_KEY_ATM_PTM, "atm", 0},
    {NP_KEY_ATM_PTM, "ptm", 1},
    {NP_KEY_ATM_PTM, "atm_cell1", 2},
    {NP_KEY_ATM_PTM, "atm_cell2", 3},
    {NP_KEY_INSERT, "queue", NP_INSERT_QUEUE},
    {NP_KEY_INSERT, "fwd", NP_INSERT_FWD},
    {NP_KEY_INSERT, "ift", NP_INSERT_IFT},
    {NP_KEY_INSERT, "oft", NP_INSERT_OFT},
    {NP_KEY_INSERT, "cm", NP_INSERT_CM},
    {NP_KEY_INSERT, "eport", NP_INSERT_EPORT},
    {NP_KEY_FRAME, "eth", NP_FRAME_ETHER},
    {NP_KEY_FRAME, "gpon", NP_FRAME_GPON},
    {NP_KEY_FRAME, "epon", NP_FRAME_EPON},
    {NP_KEY_FRAME, "xdsl", NP_FRAME_XDSL},
    {NP_KEY_FRAME, "prbs", NP_FRAME_PRBS},
    {NP_KEY_FRAME, "pie", NP_FRAME_PIE},
    {NP_KEY_FRAME, "loopback", NP_FRAME_LOOPBACK},
    {NP_KEY_RECEIVE, "normal", NP_RECEIVE_NORMAL},
    {NP_KEY_RECEIVE, "fm", NP_RECEIVE_FM},
    {NP_KEY_RECEIVE, "lm", NP_RECEIVE_LM},
    {NP_KEY_RECEIVE, "dm", NP_RECEIVE_DM},
};
inline constexpr uint32_t NP_WORD_NUM = sizeof(g_astWord) / sizeof(g_astWord[0]);

struct NpFieldKey {
    const char *pszName;
    NpCputrKey enKey;
};
constexpr NpFieldKey g_astFieldKey[] = {
    {"ulRole", NP_KEY_ROLE}, {"ulClass", NP_KEY_CLASS},        {"ulTsMode", NP_KEY_TS_MODE},
    {"ulBk", NP_KEY_BK},     {"ulAtmPtmType", NP_KEY_ATM_PTM},
};

constexpr bool Np_NamesAreSame(const char *pszA, const char *pszB)
{
    while (*pszA == *pszB && *pszA != 0) {
        pszA++;
        pszB++;
    }
    return *pszA == *pszB;
}

// The field's own name, without those of the members that it stands in.
constexpr const char *Np_OwnName(const char *pszName)
{
    const char *pszOwn = pszName;
    for (; *pszName != 0; pszName++) {
        if (*pszName == '.') {
            pszOwn = pszName + 1;
        }
    }
    return pszOwn;
}

constexpr uint32_t Np_FieldKeyFind(const char *pszOwn)
{
    for (const NpFieldKey &stRow : g_astFieldKey) {
        if (Np_NamesAreSame(pszOwn, stRow.pszName)) {
            return stRow.enKey;
        }
    }
    return NP_KEY_NUMBER;
}

// Highest value of a field: its limit, or that of its bits.
constexpr int32_t Np_FieldMost(const NpInbandField &stField)
{
    switch (stField.enLimit) {
        case NP_LIMIT_NONE:
            return stField.ucWidth >= 31 ? INT32_MAX : (1 << stField.ucWidth) - 1;
        case NP_LIMIT_MOST:
            return static_cast<int32_t>(stField.ulLimit);
        case NP_LIMIT_ENABLE:
        case NP_LIMIT_BOOL:
            return 1;
        default:
            break;
    }
    const int32_t lLess = stField.enLimit == NP_LIMIT_BELOW_SLOT ? 1 : 0;
    switch (stField.ulLimit) {
#define NP_CAP_CASE(slot, name, value, meaning) \
    case slot:                                  \
        return static_cast<int32_t>(value) - lLess;
        NP_CAPABILITY_LIST(NP_CAP_CASE)
#undef NP_CAP_CASE
        default:
            return 0;
    }
}

constexpr NpSmdKeyItem Np_Item(uint32_t ulKey, uint32_t ulType, uint32_t ulPromptNo,
                               const char *pszName, int32_t lMax)
{
    NpSmdKeyItem stItem = {ulKey, ulType, ulPromptNo, {}, 0, lMax};
    for (uint32_t i = 0; pszName[i] != 0; i++) {
        stItem.szName[i] = pszName[i];
    }
    return stItem;
}

// Parameters that stand for fields: how each is read and printed, and where it lies in the record.
struct NpParams {
    NpSmdKeyTable stKeys;
    const uint16_t *pusOffset;
};

template <uint32_t ulNum>
struct NpParamRows {
    std::array<NpSmdKeyItem, ulNum> astItem;
    std::array<uint16_t, ulNum> ausOffset;
    uint32_t ulUsed;

    constexpr NpParams Params() const
    {
        return {{astItem.data(), ulUsed, g_astWord, NP_WORD_NUM}, ausOffset.data()};
    }
};

// Rows of a format in a record that begins at ulBase; ulMore rows are left free behind them.
template <uint32_t ulMore, size_t ulNum>
constexpr NpParamRows<ulNum + ulMore> Np_ParamRows(const NpInbandField (&astField)[ulNum],
                                                   size_t ulBase)
{
    NpParamRows<ulNum + ulMore> stRows = {};
    for (const NpInbandField &stField : astField) {
        if (stField.ucShift != 0) {
            continue;  // a further piece of the row before
        }
        const char *pszOwn = Np_OwnName(stField.pszName);
        const uint32_t ulKey = Np_FieldKeyFind(pszOwn);
        const uint32_t ulType = ulKey == NP_KEY_NUMBER ? NP_SMD_NUMBER : NP_SMD_ENUM;
        const uint32_t ulAt = stRows.ulUsed++;
        stRows.astItem[ulAt] = Np_Item(ulKey, ulType, ulAt + 1, pszOwn, Np_FieldMost(stField));
        stRows.ausOffset[ulAt] = static_cast<uint16_t>(ulBase + stField.usOffset);
    }
    return stRows;
}

template <uint32_t ulNum>
constexpr void Np_RowAdd(NpParamRows<ulNum> &stRows, uint32_t ulKey, uint32_t ulType,
                         const char *pszName, int32_t lMax, size_t ulOffset)
{
    const uint32_t ulAt = stRows.ulUsed++;
    stRows.astItem[ulAt] = Np_Item(ulKey, ulType, ulAt + 1, pszName, lMax);
    stRows.ausOffset[ulAt] = static_cast<uint16_t>(ulOffset);
}

// What every insert type takes besides: length and bytes; the port and the frame info, where there
// are, before them.
inline constexpr uint32_t NP_SEND_MORE = 3;
inline constexpr size_t NP_INSERT_BASE = offsetof(InfoForSend, unInsertPkt);

template <size_t ulNum>
constexpr NpParamRows<ulNum + NP_SEND_MORE> Np_SendRows(uint32_t ulSubType,
                                                        const NpInbandField (&astField)[ulNum])
{
    NpParamRows<ulNum + NP_SEND_MORE> stRows = Np_ParamRows<NP_SEND_MORE>(astField, NP_INSERT_BASE);
    if (ulSubType == NP_INSERT_QUEUE) {
        Np_RowAdd(stRows, NP_KEY_FRAME, NP_SMD_ENUM, "ulFrameInfoType", NP_FRAME_NUM - 1,
                  NP_INSERT_BASE + offsetof(NpInsertToQueue, ulFrameInfoType));
    }
    if (ulSubType == NP_INSERT_IFT) {
        Np_RowAdd(stRows, NP_KEY_NUMBER, NP_SMD_PORT, "stPortID", 0,
                  NP_INSERT_BASE + offsetof(NpInsertToIft, stPortID));
    }
    Np_RowAdd(stRows, NP_KEY_NUMBER, NP_SMD_NUMBER, "ulPktLen", NP_CPUTR_PKT_MAX,
              offsetof(InfoForSend, ulPktLen));
    Np_RowAdd(stRows, NP_KEY_DATA, NP_SMD_DATA, "pucData", NP_DATA_MAX, 0);
    return stRows;
}

constexpr auto g_stSendQueue = Np_SendRows(NP_INSERT_QUEUE, g_astInsertQueue);
constexpr auto g_stSendFwd = Np_SendRows(NP_INSERT_FWD, g_astInsertFwd);
constexpr auto g_stSendIft = Np_SendRows(NP_INSERT_IFT, g_astInsertIft);
constexpr auto g_stSendOft = Np_SendRows(NP_INSERT_OFT, g_astInsertOft);
constexpr auto g_stSendCm = Np_SendRows(NP_INSERT_CM, g_astInsertCm);
constexpr auto g_stSendL2Encap = Np_SendRows(NP_INSERT_EPORT, g_astInsertL2Encap);

// By insert type; those that there aren't are left to the check of the exported function.
constexpr NpParams g_astSendParams[NP_INSERT_NUM] = {
    g_stSendQueue.Params(), g_stSendFwd.Params(), g_stSendIft.Params(), g_stSendOft.Params(),
    g_stSendCm.Params(),    g_stSendCm.Params(),  g_stSendCm.Params(),  g_stSendL2Encap.Params(),
};

inline constexpr size_t NP_FRAME_BASE = NP_INSERT_BASE + offsetof(NpInsertToQueue, unFrameInfo);
constexpr auto g_stFrameEther = Np_ParamRows<0>(g_astFrameEther, NP_FRAME_BASE);
constexpr auto g_stFrameGpon = Np_ParamRows<0>(g_astFrameGpon, NP_FRAME_BASE);
constexpr auto g_stFrameEpon = Np_ParamRows<0>(g_astFrameEpon, NP_FRAME_BASE);
constexpr auto g_stFrameXdsl = Np_ParamRows<0>(g_astFrameXdsl, NP_FRAME_BASE);
constexpr auto g_stFramePrbs = Np_ParamRows<0>(g_astFramePrbs, NP_FRAME_BASE);
constexpr auto g_stFramePie = Np_ParamRows<0>(g_astFramePie, NP_FRAME_BASE);
constexpr auto g_stFrameLoopBack = Np_ParamRows<0>(g_astFrameLoopBack, NP_FRAME_BASE);

constexpr NpParams g_astFrameParams[NP_FRAME_NUM] = {
    {{nullptr, 0, nullptr, 0}, nullptr},
    g_stFrameEther.Params(),
    g_stFrameGpon.Params(),
    g_stFrameEpon.Params(),
    g_stFrameXdsl.Params(),
    g_stFramePrbs.Params(),
    g_stFramePie.Params(),
    g_stFrameLoopBack.Params(),
};

constexpr auto g_stReceiveFront = Np_ParamRows<0>(g_astReceiveFront, 0);
constexpr auto g_stReceiveBack = Np_ParamRows<0>(g_astReceiveBack, 0);
constexpr auto g_stReceiveNormal = Np_ParamRows<0>(g_astReceiveNormal, 0);
constexpr auto g_stReceiveFm = Np_ParamRows<0>(g_astReceiveFm, 0);
constexpr auto g_stReceiveLm = Np_ParamRows<0>(g_astReceiveLm, 0);
constexpr auto g_stReceiveDm = Np_ParamRows<0>(g_astReceiveDm, 0);

constexpr NpParams g_astReceiveParams[NP_RECEIVE_NUM] = {
    g_stReceiveNormal.Params(),
    g_stReceiveFm.Params(),
    g_stReceiveLm.Params(),
    g_stReceiveDm.Params(),
};

constexpr NpSmdKeyItem g_astTypeItem[] = {
    Np_Item(NP_KEY_INSERT, NP_SMD_ENUM, 0, "insert_type", NP_INSERT_NUM - 1),
    Np_Item(NP_KEY_RECEIVE, NP_SMD_ENUM, 0, "ulSubType", 31),
    Np_Item(NP_KEY_NUMBER, NP_SMD_NUMBER, 0, "phyid", 1023),
};
enum NpTypeItem : uint32_t { NP_ITEM_INSERT, NP_ITEM_RECEIVE, NP_ITEM_PHY };
constexpr NpSmdKeyTable g_stTypeKeys = {g_astTypeItem, 3, g_astWord, NP_WORD_NUM};

// One command at a time: a packet's bytes need not stand on the stack.
uint8_t g_aucPacket[NP_CPUTR_PKT_MAX];

void *Np_ParamPlace(const NpParams &stParams, uint32_t ulIndex, void *pvRecord)
{
    return static_cast<uint8_t *>(pvRecord) + stParams.pusOffset[ulIndex];
}

// Reads the pairs of a frame info type, all of them in their order.
uint32_t Np_FramePairsGet(InfoForSend *pstInfo)
{
    NpInsertToQueue &stQueue = pstInfo->unInsertPkt.stInsertToQueue;
    memset(&stQueue.unFrameInfo, 0, sizeof(stQueue.unFrameInfo));
    if (stQueue.ulFrameInfoType >= NP_FRAME_NUM) {
        return 0;  // refused by the exported function's check
    }
    const NpParams &stParams = g_astFrameParams[stQueue.ulFrameInfoType];
    for (uint32_t i = 0; i < stParams.stKeys.ulItemNum; i++) {
        if (Np_SMD_PairGet(i, Np_ParamPlace(stParams, i, pstInfo), &stParams.stKeys) != 0) {
            return 1;
        }
    }
    return 0;
}

// Reads the packet's bytes, and takes their number for its length if none was given.
uint32_t Np_PacketBytesGet(InfoForSend *pstInfo, bool bLengthGiven)
{
    const char *pszWord = CLI_CamPeekString(0, 2 * NP_DATA_MAX);
    const uint32_t ulDigits = pszWord == nullptr ? 0 : NP_StrLen(pszWord);
    if (Np_PUB_SMD_DataScanf("pucData", g_aucPacket, NP_DATA_MAX) != 0) {
        return 1;
    }
    if (!bLengthGiven) {
        pstInfo->ulPktLen = (ulDigits + 1) / 2;
    }
    return 0;
}

// Position of the item that a word names, or whose number in the menu it is; the number of items if
// there is none.
uint32_t Np_ParamFind(const NpSmdKeyTable &stKeys, const char *pszWord)
{
    uint32_t ulNumber = 0;
    if (Np_PUB_SMD_atoi(pszWord, &ulNumber) == 0) {
        return ulNumber - 1 < stKeys.ulItemNum ? ulNumber - 1 : stKeys.ulItemNum;
    }
    uint32_t i = 0;
    while (i < stKeys.ulItemNum && Np_StrCmp(pszWord, stKeys.pstItem[i].szName) != 0) {
        i++;
    }
    return i;
}

// Reads pairs in any order up to "end".
uint32_t Np_SendPairsGet(const NpParams &stParams, InfoForSend *pstInfo)
{
    bool bLengthGiven = false;
    while (true) {
        char acWord[NP_SMD_WORD_SIZE];
        uint32_t ulLength = 0;
        if (CLI_CamGetParamString("cmd[please input valid cmd]<sz>:", nullptr, 0, acWord, &ulLength,
                                  1, NP_SMD_WORD_MAX) != 0) {
            return 1;
        }
        if (Np_StrCmp(acWord, "end") == 0) {
            return Np_SMD_EndCheck();
        }
        const uint32_t ulIndex = Np_ParamFind(stParams.stKeys, acWord);
        if (ulIndex == stParams.stKeys.ulItemNum) {
            Np_PUB_SMD_ReturnValue(NP_SMD_INVALID_COMMAND);
            return 1;
        }
        const uint32_t ulKey = stParams.stKeys.pstItem[ulIndex].ulKeyID;
        uint32_t ulReturn;
        if (ulKey == NP_KEY_DATA) {
            ulReturn = Np_PacketBytesGet(pstInfo, bLengthGiven);
        }
        else {
            ulReturn = Np_PUB_SMD_Scanf(ulIndex, Np_ParamPlace(stParams, ulIndex, pstInfo),
                                        &stParams.stKeys, ulKey);
            bLengthGiven =
                bLengthGiven || stParams.pusOffset[ulIndex] == offsetof(InfoForSend, ulPktLen);
        }
        if (ulReturn == 0 && ulKey == NP_KEY_FRAME) {
            ulReturn = Np_FramePairsGet(pstInfo);
        }
        if (ulReturn != 0) {
            Np_PUB_SMD_ReturnValue(NP_SMD_INVALID_COMMAND);
            return 1;
        }
    }
}

void Np_FieldsPrint(const NpParams &stParams, const ReceiveInfo *pstInfo)
{
    for (uint32_t i = 0; i < stParams.stKeys.ulItemNum; i++) {
        Np_PUB_SMD_Print(i, reinterpret_cast<const uint8_t *>(pstInfo) + stParams.pusOffset[i],
                         &stParams.stKeys, stParams.stKeys.pstItem[i].ulKeyID);
    }
}

void Np_ReceivePrint(const ReceiveInfo *pstInfo)
{
    Np_PUB_SMD_Print(NP_ITEM_RECEIVE, &pstInfo->ulSubType, &g_stTypeKeys, NP_KEY_RECEIVE);
    if (pstInfo->ulSubType < NP_RECEIVE_NUM) {
        Np_FieldsPrint(g_stReceiveFront.Params(), pstInfo);
        Np_PUB_SMD_Print_ex(NP_SMD_PORT, "stSportID", &pstInfo->stSportID);
        Np_FieldsPrint(g_stReceiveBack.Params(), pstInfo);
        Np_FieldsPrint(g_astReceiveParams[pstInfo->ulSubType], pstInfo);
    }
    if (pstInfo->ulSubType == NP_RECEIVE_FM) {
        Np_PUB_SMD_Print_ex(NP_SMD_PORT, "stMpCapPort",
                            &pstInfo->unRecInfo.stRecOamPduFm.stMpCapPort);
    }
    Np_PUB_SMD_Print_ex(NP_SMD_NUMBER, "ulPktLen", &pstInfo->ulPktLen);
    const uint32_t ulShown =
        pstInfo->ulPktLen < pstInfo->ulBufLen ? pstInfo->ulPktLen : pstInfo->ulBufLen;
    Np_PUB_SMD_DataPrint("pucData", pstInfo->pucData, ulShown);
}

}  // namespace

uint32_t Np_SMD_CPUTR_SendPkt(void)
{
    InfoForSend stInfo = {};
    stInfo.pucData = g_aucPacket;
    memset(g_aucPacket, 0, sizeof(g_aucPacket));
    if (Np_SMD_PairGet(NP_ITEM_INSERT, &stInfo.ulSubType, &g_stTypeKeys) != 0) {
        return 1;
    }
    const NpParams &stParams =
        g_astSendParams[stInfo.ulSubType < NP_INSERT_NUM ? stInfo.ulSubType : NP_INSERT_CM];
    char acEntry[NP_MENU_ENTRY];
    Np_PUB_SMD_Prompt(acEntry, sizeof(acEntry), &stParams.stKeys);
    if (Np_SendPairsGet(stParams, &stInfo) != 0) {
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
    Np_ReceivePrint(&stInfo);
    Np_SMD_SeparatorPrint();
    return Np_SMD_Report(NP_OK);
}

uint32_t Np_SMD_DFX_PortID2PhyID(void)
{
    NpPortID stPort = {};
    if (Np_PUB_SMD_PortGet(g_ulNpCurrentChipID, &stPort) != 0 || Np_SMD_EndCheck() != 0) {
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
    if (Np_SMD_PairGet(NP_ITEM_PHY, &ulPhyID, &g_stTypeKeys) != 0 || Np_SMD_EndCheck() != 0) {
        return 1;
    }
    NpPortID stPort = {};
    const uint32_t ulReturn = Np_IngressPhyID2PortID(g_ulNpCurrentChipID, ulPhyID, &stPort);
    if (ulReturn == NP_OK) {
        Np_PUB_SMD_Print_ex(NP_SMD_PORT, "portid", &stPort);
    }
    return Np_SMD_Report(ulReturn);
}

namespace {

// A parameter by its item; what it depends on is the caller's.
void Np_ParamTell(const NpSmdKeyTable &stKeys, uint32_t ulItem, NpSmdParam *pstParam)
{
    const NpSmdKeyItem &stItem = stKeys.pstItem[ulItem];
    *pstParam = {};
    pstParam->stItem = stItem;
    pstParam->ulRun = 1;
    for (const NpSmdKeyEnum &stWord : g_astWord) {
        if (stItem.ulType == NP_SMD_ENUM && stWord.ulKeyID == stItem.ulKeyID) {
            pstParam->pstEnum = pstParam->ulEnumNum == 0 ? &stWord : pstParam->pstEnum;
            pstParam->ulEnumNum++;
        }
    }
}

}  // namespace

// The insert type is the key of the command; it lets in the fields of its format, and the frame
// info type of one of these those of the frame info.
uint32_t Np_SMD_CputrSendParam(uint32_t ulIndex, NpSmdParam *pstParam)
{
    if (ulIndex == 0) {
        Np_ParamTell(g_stTypeKeys, NP_ITEM_INSERT, pstParam);
        pstParam->bKey = 1;
        return 0;
    }
    ulIndex--;
    for (uint32_t ulType = 0; ulType < NP_INSERT_NUM; ulType++) {
        const NpSmdKeyTable &stKeys = g_astSendParams[ulType].stKeys;
        if (ulIndex < stKeys.ulItemNum) {
            Np_ParamTell(stKeys, ulIndex, pstParam);
            pstParam->pszOf = g_astTypeItem[NP_ITEM_INSERT].szName;
            pstParam->ulOfMask = 1u << ulType;
            return 0;
        }
        ulIndex -= stKeys.ulItemNum;
    }
    for (uint32_t ulType = 0; ulType < NP_FRAME_NUM; ulType++) {
        const NpSmdKeyTable &stKeys = g_astFrameParams[ulType].stKeys;
        if (ulIndex < stKeys.ulItemNum) {
            Np_ParamTell(stKeys, ulIndex, pstParam);
            pstParam->stItem.ulPromptNo = 0;
            pstParam->pszOf = "ulFrameInfoType";
            pstParam->ulOfMask = 1u << ulType;
            return 0;
        }
        ulIndex -= stKeys.ulItemNum;
    }
    return 1;
}

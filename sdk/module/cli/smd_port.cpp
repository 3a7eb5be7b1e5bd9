// Ports on the command line.
#include "platform/os.h"
#include "sdk/frame/base/text.h"
#include "sdk/module/cli/cli.h"
#include "sdk/module/cli/params.h"
#include "sdk/module/cli/smd.h"

namespace {

inline constexpr int32_t NP_NOT_ASKED = -1;

// A port type as the command line names it, and the highest value of each number it asks for.
struct NpPortWord {
    const char *pszWord;
    const char *pszNumber;  // accepted for the word
    uint32_t ulPortType;
    int32_t lPortMax;
    int32_t lSubPortMax;
    int32_t lPriMax;
};

constexpr NpPortWord g_astPortWord[] = {
    {"adsl", "1", 5, 3, 63, NP_NOT_ASKED},
    {"vdsl", "2", 5, 3, 63, NP_NOT_ASKED},
    {"fe", "3", 7, 66, NP_NOT_ASKED, NP_NOT_ASKED},
    {"ge", "4", 6, 17, 127, NP_NOT_ASKED},
    {"gint", "5", 8, 11, 255, NP_NOT_ASKED},
    {"gpon", "6", 1, 1, NP_NOT_ASKED, NP_NOT_ASKED},
    {"epon", "7", 2, 1, NP_NOT_ASKED, NP_NOT_ASKED},
    {"xaui", "8", 9, 0, 127, 1},
    {"prbs", "9", 10, NP_NOT_ASKED, NP_NOT_ASKED, NP_NOT_ASKED},
    {"cpu", "10", 12, 1, NP_NOT_ASKED, NP_NOT_ASKED},
    {"bonding", "11", 13, 63, NP_NOT_ASKED, NP_NOT_ASKED},
    {"loopback", "12", 11, NP_NOT_ASKED, NP_NOT_ASKED, NP_NOT_ASKED},
    {"xdsl", "13", 14, 3, 63, 1},
};

inline constexpr uint32_t NP_PORT_VDSL = 1;  // row whose word takes one more behind it

constexpr char NP_PORT_WORDS[] =
    "1:adsl | 2:vdsl | 3:fe | 4:ge | 5:gint | 6:gpon | 7:epon | 8:xaui| 9:prbs | 10:cpu | "
    "11:bonding | 12:loopback | 13:xdsl";
constexpr char NP_VDSL_WORDS[] = "0:atm | 1:ptm";

const NpPortWord *Np_PortWordFind(const char *pszWord)
{
    for (const NpPortWord &stRow : g_astPortWord) {
        if (Np_StrCmp(pszWord, stRow.pszWord) == 0 || Np_StrCmp(pszWord, stRow.pszNumber) == 0) {
            return &stRow;
        }
    }
    return nullptr;
}

// Reads the name and a number of a port, if its type has that number.
uint32_t Np_PortNumberGet(const char *pszName, int32_t lMax, uint32_t *pulValue)
{
    if (lMax == NP_NOT_ASKED) {
        return 0;
    }
    char acWord[NP_SMD_WORD_SIZE];
    if (Np_SMD_Com_StringParamGet(pszName, pszName, acWord) != 0) {
        return 1;
    }
    return Np_SMD_Com_ValueParamGet(pszName, 0, lMax, pulValue);
}

}  // namespace

uint32_t Np_PUB_SMD_PortGet(uint32_t, NpPortID *pstPort)
{
    *pstPort = {};
    char acWord[NP_SMD_WORD_SIZE];
    const bool bWord = CLI_CamIsNoParam() != 0;
    if (Np_SMD_Com_StringParamGet("fe", NP_PORT_WORDS, acWord) != 0) {
        if (bWord) {
            Np_PUB_SMD_ReturnValue(NP_SMD_INVALID_PARAM);
        }
        return 1;
    }
    const NpPortWord *pstRow = Np_PortWordFind(acWord);
    if (pstRow == nullptr) {
        Np_PUB_SMD_ReturnValue(NP_SMD_INVALID_PARAM);
        return 1;
    }
    // The transfer mode of a vdsl line selects nothing here.
    if (pstRow == &g_astPortWord[NP_PORT_VDSL] &&
        Np_SMD_Com_StringParamGet("ptm", NP_VDSL_WORDS, acWord) != 0) {
        return 1;
    }
    pstPort->ulPortType = pstRow->ulPortType;
    if (Np_PortNumberGet("portid", pstRow->lPortMax, &pstPort->ulPortID) != 0 ||
        Np_PortNumberGet("subportid", pstRow->lSubPortMax, &pstPort->ulSubPortID) != 0) {
        return 1;
    }
    return Np_PortNumberGet("pri", pstRow->lPriMax, &pstPort->ulPri);
}

const char *Np_SMD_PortTypeWord(uint32_t ulIndex)
{
    const uint32_t ulNum = sizeof(g_astPortWord) / sizeof(g_astPortWord[0]);
    return ulIndex < ulNum ? g_astPortWord[ulIndex].pszWord : nullptr;
}

uint32_t Np_SMD_PortPart(const char *pszType, uint32_t ulPart, NpSmdKeyItem *pstItem)
{
    const NpPortWord *pstRow = Np_PortWordFind(pszType);
    if (pstRow == nullptr) {
        return 1;
    }
    *pstItem = {};
    pstItem->ulType = NP_SMD_NUMBER;
    if (pstRow == &g_astPortWord[NP_PORT_VDSL] && ulPart-- == 0) {
        pstItem->ulType = NP_SMD_ENUM;
        pstItem->lMax = 1;
        return 0;
    }
    constexpr const char *apszName[] = {"portid", "subportid", "pri"};
    const int32_t alMax[] = {pstRow->lPortMax, pstRow->lSubPortMax, pstRow->lPriMax};
    for (uint32_t i = 0; i < 3; i++) {
        if (alMax[i] != NP_NOT_ASKED && ulPart-- == 0) {
            Np_StrCpy(pstItem->szName, apszName[i]);
            pstItem->lMax = alMax[i];
            return 0;
        }
    }
    return 1;
}

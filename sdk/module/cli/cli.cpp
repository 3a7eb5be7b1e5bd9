#include "sdk/module/cli/cli.h"

#include "platform/os.h"
#include "sdk/frame/base/text.h"

constinit char g_argb[NP_CLI_ARGB_SIZE] = {};
constinit char *g_argv[NP_CLI_ARGV_NUM] = {};
constinit int32_t g_argc = 0;
constinit int32_t g_argp = 0;
constinit NpCliCmdEntry g_np_cli_ctree = {};

namespace {

constinit uint32_t g_ulCliInstalled = 0;

constexpr OsMiscOps g_stCliOps = {ld_sdk_cli_open, ld_sdk_cli_close, ld_sdk_cli_ioctl};

void Np_CliList(const NpCliCmdEntry *pstEntries, int32_t lCount)
{
    for (int32_t i = 0; i < lCount; i++) {
        Os_Print("%32s \t %s\n", pstEntries[i].szName, pstEntries[i].szHelp);
    }
}

const NpCliCmdEntry *Np_CliFind(const NpCliCmdEntry *pstEntries, int32_t lCount,
                                const char *pszWord)
{
    for (int32_t i = 0; i < lCount; i++) {
        if (Np_StrCmp(pstEntries[i].szName, pszWord) == 0) {
            return &pstEntries[i];
        }
    }
    return nullptr;
}

bool Np_CliWordLeft(void)
{
    return g_argp < g_argc;
}

uint32_t Np_CliFail(const char *pszPrompt)
{
    Os_Print("%s\n", pszPrompt);
    return 1;
}

}  // namespace

int Np_ModuleInit(void)
{
    ld_sdk_cli_init();
    Os_Print("NP SDK is installed.\n");
    return 0;
}

int Np_ModuleExit(void)
{
    ld_sdk_cli_unit();
    Os_Print("NP SDK is removed.\n");
    return 0;
}

int ld_sdk_cli_init(void)
{
    if (g_ulCliInstalled != 0) {
        Os_Print("NP cli already installed...\n");
        return 0;
    }
    const int iReturn = Os_MiscRegister(NP_CLI_DEVICE, &g_stCliOps);
    if (iReturn != 0) {
        Os_Print("NP cli install failed...\n");
        return iReturn;
    }
    g_ulCliInstalled = 1;
    Os_Print("NP cli is installed.\n");
    return 0;
}

void ld_sdk_cli_unit(void)
{
    g_ulCliInstalled = 0;
    Os_MiscDeregister(NP_CLI_DEVICE);
    Os_Print("NP cli is removed.\n");
}

int ld_sdk_cli_open(void *, void *)
{
    return 0;
}

int ld_sdk_cli_close(void *, void *)
{
    return 0;
}

int ld_sdk_cli_ioctl(void *, void *, unsigned int, uintptr_t ulArg)
{
    if (ulArg == 0) {
        return NP_CLI_EFAULT;
    }
    memset(g_argv, 0, sizeof(g_argv));
    g_argp = 0;
    g_argc = 0;
    const void *pvUser = reinterpret_cast<const void *>(ulArg);
    if (!Os_UserRangeOk(pvUser, NP_CLI_BUFFER_SIZE)) {
        memset(g_argb, 0, NP_CLI_BUFFER_SIZE);
        return NP_CLI_EFAULT;
    }
    if (Os_CopyFromUser(g_argb, pvUser, NP_CLI_BUFFER_SIZE) != 0) {
        return NP_CLI_EFAULT;
    }
    if (buf_to_args(g_argb, NP_CLI_BUFFER_SIZE, &g_argc, g_argv) != 0) {
        Os_Print("\n!!!cmd from userspace is too long!\n");
        return NP_CLI_EFAULT;
    }
    if (g_argc <= 0) {
        Os_Print("\nError! cmd argc from userspace is %d.\n", g_argc);
        return NP_CLI_EFAULT;
    }
    g_argp = 1;
    ld_sdk_cli_dispatch(&g_np_cli_ctree, 1);
    return 0;
}

int32_t buf_to_args(char *pBuf, int32_t lLen, int32_t *plArgc, char **apArgv)
{
    int32_t lCount = 0;
    __builtin_memcpy(&lCount, pBuf, NP_CLI_COUNT_SIZE);
    int32_t lOffset = NP_CLI_COUNT_SIZE;
    for (int32_t i = 0; i < lCount; i++) {
        // The NUL must lie inside the buffer, which also keeps the index below NP_CLI_ARGV_NUM.
        int32_t lEnd = lOffset;
        while (lEnd < lLen && pBuf[lEnd] != 0) {
            lEnd++;
        }
        if (lEnd >= lLen) {
            return -1;
        }
        apArgv[i] = pBuf + lOffset;
        lOffset = lEnd + 1;
    }
    *plArgc = lCount;
    return 0;
}

void ld_sdk_cli_dispatch(const NpCliCmdEntry *pstEntries, int32_t lCount)
{
    while (true) {
        if (!Np_CliWordLeft()) {
            Np_CliList(pstEntries, lCount);
            return;
        }
        const NpCliCmdEntry *pstFound = Np_CliFind(pstEntries, lCount, g_argv[g_argp]);
        if (pstFound == nullptr) {
            Np_CliList(pstEntries, lCount);
            return;
        }
        g_argp++;
        if (pstFound->pstChildren == nullptr || pstFound->ulChildNum == 0) {
            if (pstFound->pfnHandler != nullptr) {
                pstFound->pfnHandler();
            }
            return;
        }
        pstEntries = pstFound->pstChildren;
        lCount = static_cast<int32_t>(pstFound->ulChildNum);
    }
}

uint32_t CLI_CamInstallCmdExt(const NpCliCmdEntry *pstCmd, uint32_t)
{
    if (g_np_cli_ctree.szName[0] != 0) {
        Os_Print("Installed too many cmd groups!\n");
        return 1;
    }
    g_np_cli_ctree = *pstCmd;
    return 0;
}

char *CLI_CamPeekString(uint32_t ulMin, uint32_t ulMax)
{
    if (!Np_CliWordLeft()) {
        return nullptr;
    }
    const uint32_t ulLength = NP_StrLen(g_argv[g_argp]);
    return ulLength >= ulMin && ulLength <= ulMax ? g_argv[g_argp] : nullptr;
}

bool CLI_CamPeekNumber(uint32_t *pulValue, uint32_t ulMin, uint32_t ulMax)
{
    if (!Np_CliWordLeft()) {
        return false;
    }
    const char *pszWord = g_argv[g_argp];
    return Np_ScanNumber(&pszWord, 10, pulValue) && *pulValue >= ulMin && *pulValue <= ulMax;
}

void CLI_CamTakeWord(void)
{
    g_argp++;
}

uint32_t CLI_CamGetParamString(const char *pszEnglish, const char *, uint32_t, char *pszDst,
                               uint32_t *pulLen, uint32_t ulMin, uint32_t ulMax)
{
    const char *pszWord = CLI_CamPeekString(ulMin, ulMax);
    if (pszWord == nullptr) {
        return Np_CliFail(pszEnglish);
    }
    Np_StrCpy(pszDst, pszWord);
    *pulLen = NP_StrLen(pszWord);
    CLI_CamTakeWord();
    return 0;
}

uint32_t CLI_CamGetParamUCHAR(const char *pszEnglish, const char *, uint32_t, uint8_t *pucDst,
                              uint8_t ucMin, uint8_t ucMax)
{
    const char *pszWord = CLI_CamPeekString(1, NP_CLI_BUFFER_SIZE);
    if (pszWord == nullptr) {
        return Np_CliFail(pszEnglish);
    }
    const uint8_t ucValue = static_cast<uint8_t>(pszWord[0]);
    if (ucValue < ucMin || ucValue > ucMax) {
        return Np_CliFail(pszEnglish);
    }
    *pucDst = ucValue;
    CLI_CamTakeWord();
    return 0;
}

uint32_t CLI_CamGetParamUSHORT(const char *pszEnglish, const char *, uint32_t, uint16_t *pusDst,
                               uint16_t usMin, uint16_t usMax)
{
    uint32_t ulValue = 0;
    if (!CLI_CamPeekNumber(&ulValue, 0, UINT32_MAX)) {
        return Np_CliFail(pszEnglish);
    }
    const uint16_t usValue = static_cast<uint16_t>(ulValue);
    if (usValue < usMin || usValue > usMax) {
        return Np_CliFail(pszEnglish);
    }
    *pusDst = usValue;
    CLI_CamTakeWord();
    return 0;
}

uint32_t CLI_CamGetParamULONG(const char *pszEnglish, const char *, uint32_t, uint32_t *pulDst,
                              uint32_t ulMin, uint32_t ulMax)
{
    uint32_t ulValue = 0;
    if (!CLI_CamPeekNumber(&ulValue, ulMin, ulMax)) {
        return Np_CliFail(pszEnglish);
    }
    *pulDst = ulValue;
    CLI_CamTakeWord();
    return 0;
}

uint32_t CLI_NpGetParamLONG(const char *, const char *, uint32_t, int32_t *, int32_t, int32_t)
{
    return 0;
}

uint32_t CLI_CamIsNoParam(void)
{
    return Np_CliWordLeft() ? 1 : 0;
}

void CLI_CamOutStringCE(const char *pszEnglish, const char *)
{
    Os_Print("%s\n", pszEnglish);
}

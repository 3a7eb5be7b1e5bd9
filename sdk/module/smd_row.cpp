#include "sdk/module/smd_row.h"

#include "ldsdk/ldsdk.h"
#include "platform/os.h"
#include "sdk/frame/text.h"
#include "sdk/module/smd.h"
#include "sdk/module/tree.h"
#include "sdk/record/list.h"

namespace {

inline constexpr uint32_t NP_MENU_ENTRY = 64;  // room for one entry of a menu
inline constexpr uint32_t NP_KEY_MAX = 128;    // bytes of the widest key record

constexpr char NP_CMD_PROMPT[] = "cmd[please input valid cmd]<sz>:";
constexpr char NP_CMD_END[] = "end";

// A parameter: a field, and the element of an array that is read element by element.
struct NpParamAt {
    const NpField *pstField;
    uint32_t ulElement;
};

bool Np_IsIndexed(const NpField *pstField)
{
    return pstField->usCount > 1 && !pstField->bWhole;
}

uint32_t Np_ParamNum(const NpField *pstField)
{
    if (pstField->bHidden) {
        return 0;
    }
    return Np_IsIndexed(pstField) ? pstField->usCount : 1;
}

const char *Np_FieldOwnName(const NpField *pstField)
{
    const char *pszOwn = pstField->pszName;
    for (const char *psz = pszOwn; *psz != 0; psz++) {
        if (*psz == '.') {
            pszOwn = psz + 1;
        }
    }
    return pszOwn;
}

bool Np_IsSmall(char c)
{
    return c >= 'a' && c <= 'z';
}

// The name without the prefix that tells its type, as in "Fwd" of "ulFwd" and "lrn" of "ullrn".
const char *Np_ShortName(const char *pszOwn)
{
    uint32_t ulPrefix = 0;
    while (Np_IsSmall(pszOwn[ulPrefix])) {
        ulPrefix++;
    }
    if (pszOwn[ulPrefix] == 0 || ulPrefix > 3) {
        ulPrefix = pszOwn[0] == 'u' && pszOwn[1] == 'l' ? 2 : 0;
    }
    return pszOwn + ulPrefix;
}

char Np_Small(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

// What stands behind a name at the front of a word, or null. bSmall: the word has the name's
// letters in lower case.
const char *Np_BehindName(const char *pszName, bool bSmall, const char *pszWord)
{
    for (; *pszName != 0; pszName++, pszWord++) {
        if (*pszWord != (bSmall ? Np_Small(*pszName) : *pszName)) {
            return nullptr;
        }
    }
    return pszWord;
}

// Tells whether a word is a name, with an element's number behind it for an array.
bool Np_NameMatches(const NpField *pstField, const char *pszName, bool bSmall, const char *pszWord,
                    uint32_t *pulElement)
{
    pszWord = Np_BehindName(pszName, bSmall, pszWord);
    *pulElement = 0;
    if (pszWord == nullptr || !Np_IsIndexed(pstField)) {
        return pszWord != nullptr && *pszWord == 0;
    }
    return (pszWord[0] != '0' || pszWord[1] == 0) && Np_PUB_SMD_atoi(pszWord, pulElement) == 0 &&
           *pulElement < pstField->usCount;
}

bool Np_KeyMatches(const NpField *pstField, const char *pszWord, uint32_t *pulElement)
{
    return Np_NameMatches(pstField, pstField->pszKey, false, pszWord, pulElement);
}

// The field's own name, whole or short, is taken for its keyword as well.
bool Np_OwnMatches(const NpField *pstField, const char *pszWord, uint32_t *pulElement)
{
    const char *pszOwn = Np_FieldOwnName(pstField);
    return Np_NameMatches(pstField, pszOwn, false, pszWord, pulElement) ||
           Np_NameMatches(pstField, Np_ShortName(pszOwn), true, pszWord, pulElement);
}

bool Np_FieldIsAsked(const NpField *pstField, const void *pvRecord)
{
    return !pstField->bHidden && Np_Row_IsThere(pstField->stWhen, pvRecord);
}

// Range of a number: its check's, or what the field or its piece of the image holds.
void Np_ItemRange(const NpRow *pstRow, const NpField *pstField, NpSmdKeyItem *pstItem)
{
    if (pstField->ucType == NP_SMD_DATA) {
        pstItem->lMax = pstField->usCount;
        return;
    }
    const NpCheck *pstCheck = Np_Row_FieldCheck(pstRow, pstField);
    if (pstCheck != nullptr) {
        pstItem->lMin = static_cast<int32_t>(pstCheck->stLimit.ulMin);
        pstItem->lMax = pstField->usShownMax != 0
                            ? static_cast<int32_t>(pstField->usShownMax)
                            : static_cast<int32_t>(Np_Row_LimitMax(&pstCheck->stLimit));
        return;
    }
    const uint32_t ulBits = pstField->bCut         ? pstField->ucWidth
                            : pstField->ucSize < 4 ? 8u * pstField->ucSize
                                                   : 32;
    pstItem->lMax = static_cast<int32_t>(0xffffffffu >> (32 - ulBits));
}

void Np_ItemFill(const NpRow *pstRow, const NpField *pstField, uint32_t ulElement,
                 NpSmdKeyItem *pstItem)
{
    pstItem->ulKeyID = 0;
    pstItem->ulType = pstField->ucType;
    pstItem->ulPromptNo = 0;
    pstItem->lMin = 0;
    Np_ItemRange(pstRow, pstField, pstItem);
    if (Np_IsIndexed(pstField)) {
        Os_Format(pstItem->szName, sizeof(pstItem->szName), "%s%u", pstField->pszKey, ulElement);
        return;
    }
    Np_StrCpy(pstItem->szName, pstField->pszKey);
}

// Numbers are read and printed as words of 32 bits, whatever the field's size.
bool Np_IsNumber(uint32_t ulType)
{
    return ulType == NP_SMD_NUMBER || ulType == NP_SMD_NUMBER16 || ulType == NP_SMD_SIGNED ||
           ulType == NP_SMD_ENUM;
}

uint32_t Np_ScanType(uint32_t ulType)
{
    return ulType == NP_SMD_NUMBER16 ? static_cast<uint32_t>(NP_SMD_NUMBER) : ulType;
}

// Reads a value. What its field cannot hold is refused, so that nothing is cut unseen.
uint32_t Np_ValueScan(const NpRow *pstRow, NpParamAt stParam, void *pvRecord)
{
    const NpField *pstField = stParam.pstField;
    NpSmdKeyItem stItem;
    Np_ItemFill(pstRow, pstField, stParam.ulElement, &stItem);
    stItem.ulType = Np_ScanType(stItem.ulType);
    const NpSmdKeyTable stTable = {&stItem, 1, pstField->pstWord, pstField->ucWordNum};
    if (!Np_IsNumber(stItem.ulType)) {
        return Np_PUB_SMD_Scanf(0, static_cast<uint8_t *>(pvRecord) + pstField->usOffset, &stTable,
                                0);
    }
    uint32_t ulValue = 0;
    if (Np_PUB_SMD_Scanf(0, &ulValue, &stTable, 0) != 0) {
        return 1;
    }
    if (pstField->ucSize < 4 && ulValue >> 8 * pstField->ucSize != 0) {
        Np_PUB_SMD_ReturnValue(NP_SMD_INVALID_PARAM);
        return 1;
    }
    Np_Row_Store(pstField, stParam.ulElement, ulValue, pvRecord);
    return 0;
}

// A value that selects others makes those begin anew.
void Np_SelectedClear(const NpRow *pstRow, const NpField *pstSelector, void *pvRecord)
{
    for (uint32_t i = 0; i < pstRow->usFieldNum; i++) {
        const NpField *pstField = &pstRow->pstField[i];
        if (pstField->stWhen.ulMask != 0 && pstField->stWhen.usOffset == pstSelector->usOffset) {
            memset(static_cast<uint8_t *>(pvRecord) + pstField->usOffset, 0,
                   (pstField->usCount - 1u) * pstField->usStride + pstField->ucSize);
        }
    }
}

uint32_t Np_ParamScan(const NpRow *pstRow, NpParamAt stParam, void *pvRecord)
{
    if (Np_ValueScan(pstRow, stParam, pvRecord) != 0) {
        return 1;
    }
    Np_SelectedClear(pstRow, stParam.pstField, pvRecord);
    return 0;
}

// Reads a name, which must be the parameter's, and the value.
uint32_t Np_PairScan(const NpRow *pstRow, NpParamAt stParam, void *pvRecord)
{
    const char *pszWord = CLI_CamPeekString(1, NP_SMD_WORD_MAX);
    uint32_t ulElement = 0;
    if (pszWord != nullptr && Np_OwnMatches(stParam.pstField, pszWord, &ulElement) &&
        ulElement == stParam.ulElement) {
        CLI_CamTakeWord();
        return Np_ParamScan(pstRow, stParam, pvRecord);
    }
    NpSmdKeyItem stItem;
    char acWord[NP_SMD_WORD_SIZE];
    Np_ItemFill(pstRow, stParam.pstField, stParam.ulElement, &stItem);
    if (Np_SMD_Com_StringParamGet(stItem.szName, stItem.szName, acWord) != 0) {
        return 1;
    }
    return Np_ParamScan(pstRow, stParam, pvRecord);
}

// Pairs of the fields behind a selector that its value lets in.
uint32_t Np_SelectedScan(const NpRow *pstRow, const NpField *pstSelector, void *pvRecord)
{
    for (uint32_t i = 0; i < pstRow->usFieldNum; i++) {
        const NpField *pstField = &pstRow->pstField[i];
        if (pstField->stWhen.ulMask == 0 || pstField->stWhen.usOffset != pstSelector->usOffset ||
            !Np_FieldIsAsked(pstField, pvRecord)) {
            continue;
        }
        for (uint32_t j = 0; j < Np_ParamNum(pstField); j++) {
            if (Np_PairScan(pstRow, {pstField, j}, pvRecord) != 0 ||
                Np_SelectedScan(pstRow, pstField, pvRecord) != 0) {
                return 1;
            }
        }
    }
    return 0;
}

// The parameter, of those that a record has now, that a word names. A keyword goes before a name.
bool Np_ParamFind(const NpRow *pstRow, const void *pvRecord, const char *pszWord,
                  NpParamAt *pstParam)
{
    for (const auto pfnMatches : {Np_KeyMatches, Np_OwnMatches}) {
        for (uint32_t i = 0; i < pstRow->usFieldNum; i++) {
            pstParam->pstField = &pstRow->pstField[i];
            if (Np_FieldIsAsked(pstParam->pstField, pvRecord) &&
                pfnMatches(pstParam->pstField, pszWord, &pstParam->ulElement)) {
                return true;
            }
        }
    }
    return false;
}

// Parameters of a field in the menu: what a condition lets in is read behind its selector.
uint32_t Np_MenuNum(const NpField *pstField)
{
    return pstField->stWhen.ulMask != 0 ? 0 : Np_ParamNum(pstField);
}

// The parameter of the menu that a word names, or whose number it is.
bool Np_MenuFind(const NpRow *pstRow, const void *pvRecord, const char *pszWord,
                 NpParamAt *pstParam)
{
    uint32_t ulNumber = 0;
    if (Np_PUB_SMD_atoi(pszWord, &ulNumber) != 0) {
        return Np_ParamFind(pstRow, pvRecord, pszWord, pstParam) &&
               Np_MenuNum(pstParam->pstField) != 0;
    }
    uint32_t ulBefore = 0;
    for (uint32_t i = 0; i < pstRow->usFieldNum; i++) {
        const uint32_t ulNum = Np_MenuNum(&pstRow->pstField[i]);
        if (ulNumber > ulBefore && ulNumber <= ulBefore + ulNum) {
            *pstParam = {&pstRow->pstField[i], ulNumber - ulBefore - 1};
            return true;
        }
        ulBefore += ulNum;
    }
    return false;
}

uint32_t Np_RowMenu(const NpRow *pstRow)
{
    if (g_ulNpPubPrompt == 0) {
        return 0;
    }
    char acEntry[NP_MENU_ENTRY];
    NpSmdKeyItem stItem;
    uint32_t ulBefore = 0;
    for (uint32_t i = 0; i < pstRow->usFieldNum; i++) {
        const NpField *pstField = &pstRow->pstField[i];
        for (uint32_t j = 0; j < Np_MenuNum(pstField); j++) {
            Np_ItemFill(pstRow, pstField, j, &stItem);
            stItem.ulPromptNo = ulBefore + 1;
            if (Np_SMD_MenuEntry(acEntry, sizeof(acEntry), ulBefore, &stItem) != 0) {
                return 1;
            }
            ulBefore++;
        }
    }
    Np_SMD_MenuEnd(ulBefore);
    return 0;
}

void Np_ParamPrint(const NpRow *pstRow, const NpField *pstField, uint32_t ulElement,
                   const void *pvRecord)
{
    NpSmdKeyItem stItem;
    Np_ItemFill(pstRow, pstField, ulElement, &stItem);
    stItem.ulType = Np_ScanType(stItem.ulType);
    const NpSmdKeyTable stTable = {&stItem, 1, pstField->pstWord, pstField->ucWordNum};
    if (!Np_IsNumber(stItem.ulType)) {
        Np_PUB_SMD_Print(0, static_cast<const uint8_t *>(pvRecord) + pstField->usOffset, &stTable,
                         0);
        return;
    }
    const uint32_t ulValue = Np_Row_Load(pstField, ulElement, pvRecord);
    Np_PUB_SMD_Print(0, &ulValue, &stTable, 0);
}

// Tells what selects a field, by the keyword of the selector.
void Np_ParamCondition(const NpRow *pstRow, const NpField *pstField, NpSmdParam *pstParam)
{
    pstParam->pszOf = nullptr;
    pstParam->ulOfMask = pstField->stWhen.ulMask;
    for (uint32_t i = 0; i < pstRow->usFieldNum && pstParam->ulOfMask != 0; i++) {
        if (pstRow->pstField[i].usOffset == pstField->stWhen.usOffset) {
            pstParam->pszOf = pstRow->pstField[i].pszKey;
            return;
        }
    }
}

// ---- the commands of the list -----------------------------------------------------------------

#define NP_TABLE_ROW(stTable, Record, Wrapper, Handler, enForm)            \
    constexpr NpRowCommand g_stCommand_##Handler##_Set = {                 \
        Handler##_Set,                                                     \
        enForm,                                                            \
        &(stTable),                                                        \
        nullptr,                                                           \
        nullptr,                                                           \
        Np_SMD_RowCall<Wrapper##_Get, Record>,                             \
        Np_SMD_RowCall<Wrapper##_Set, const Record>};                      \
    constexpr NpRowCommand g_stCommand_##Handler##_Get = {                 \
        Handler##_Get, NP_FORM_GET, &(stTable),                            \
        nullptr,       nullptr,     Np_SMD_RowCall<Wrapper##_Get, Record>, \
        nullptr};
#define NP_KEYED_ROW(stKey, Key, stRow, Record, Wrapper, Handler, enForm)         \
    constexpr NpRowCommand g_stCommand_##Handler##_Set = {                        \
        Handler##_Set,                                                            \
        enForm,                                                                   \
        nullptr,                                                                  \
        &(stKey),                                                                 \
        &(stRow),                                                                 \
        Np_SMD_KeyedCall<Wrapper##_Get, Key, Record>,                             \
        Np_SMD_KeyedCall<Wrapper##_Set, Key, const Record>};                      \
    constexpr NpRowCommand g_stCommand_##Handler##_Get = {                        \
        Handler##_Get, NP_FORM_GET, nullptr,                                      \
        &(stKey),      &(stRow),    Np_SMD_KeyedCall<Wrapper##_Get, Key, Record>, \
        nullptr};
#define NP_COMMAND_ROW(Handler, enForm, pstKey, pstData)                               \
    constexpr NpRowCommand g_stCommand_##Handler = {Handler, enForm,  nullptr, pstKey, \
                                                    pstData, nullptr, nullptr};
#include "sdk/record/list.h"

constexpr const NpRowCommand *g_apstCommand[] = {
#define NP_TABLE_ROW(stTable, Record, Wrapper, Handler, enForm) \
    &g_stCommand_##Handler##_Set, &g_stCommand_##Handler##_Get,
#define NP_KEYED_ROW(stKey, Key, stRow, Record, Wrapper, Handler, enForm) \
    &g_stCommand_##Handler##_Set, &g_stCommand_##Handler##_Get,
#define NP_COMMAND_ROW(Handler, enForm, pstKey, pstData) &g_stCommand_##Handler,
#include "sdk/record/list.h"
};

// Commands whose parameters no row describes.
struct NpParamCommand {
    NpCliHandler pfnHandler;
    NpSmdForm enForm;
    uint32_t (*pfnParam)(uint32_t ulIndex, NpSmdParam *pstParam);
};
constexpr NpParamCommand g_astParamCommand[] = {
    {Np_SMD_CPUTR_SendPkt, NP_FORM_LARGE, Np_SMD_CputrSendParam},
};

const NpRow *Np_CommandKey(const NpRowCommand *pstCommand)
{
    return pstCommand->pstTable != nullptr ? pstCommand->pstTable->pstKey : pstCommand->pstKey;
}

const NpRow *Np_CommandData(const NpRowCommand *pstCommand)
{
    return pstCommand->pstTable != nullptr ? pstCommand->pstTable->pstRow : pstCommand->pstData;
}

const NpRowCommand *Np_CommandFind(NpCliHandler pfnHandler)
{
    for (const NpRowCommand *pstCommand : g_apstCommand) {
        if (pstCommand->pfnHandler == pfnHandler) {
            return pstCommand;
        }
    }
    return nullptr;
}

uint32_t Np_RowParamNum(const NpRow *pstRow)
{
    uint32_t ulNum = 0;
    for (uint32_t i = 0; pstRow != nullptr && i < pstRow->usFieldNum; i++) {
        ulNum += Np_ParamNum(&pstRow->pstField[i]);
    }
    return ulNum;
}

// Records of a command. Words, as those of the tables are.
struct NpKeyRecord {
    uint32_t aulWord[NP_KEY_MAX / 4];
};
struct NpDataRecord {
    uint32_t aulWord[NP_ROW_RECORD_MAX / 4];
};

}  // namespace

uint32_t Np_SMD_RowScan(const NpRow *pstRow, void *pvRecord, bool bAll)
{
    if (bAll) {
        for (uint32_t i = 0; i < pstRow->usFieldNum; i++) {
            const NpField *pstField = &pstRow->pstField[i];
            if (!Np_FieldIsAsked(pstField, pvRecord)) {
                continue;
            }
            for (uint32_t j = 0; j < Np_ParamNum(pstField); j++) {
                if (Np_PairScan(pstRow, {pstField, j}, pvRecord) != 0) {
                    return 1;
                }
            }
        }
        return 0;
    }
    NpParamAt stNext = {pstRow->pstField, 0};  // nothing before this is taken
    const char *pszWord;
    while ((pszWord = CLI_CamPeekString(1, NP_SMD_WORD_MAX)) != nullptr) {
        NpParamAt stParam;
        if (!Np_ParamFind(pstRow, pvRecord, pszWord, &stParam) ||
            stParam.pstField < stNext.pstField ||
            (stParam.pstField == stNext.pstField && stParam.ulElement < stNext.ulElement)) {
            return 0;  // left over: the caller's end check tells
        }
        CLI_CamTakeWord();
        if (Np_ParamScan(pstRow, stParam, pvRecord) != 0) {
            return 1;
        }
        stNext = {stParam.pstField, stParam.ulElement + 1};
    }
    return 0;
}

uint32_t Np_SMD_RowScanMenu(const NpRow *pstRow, void *pvRecord)
{
    if (Np_RowMenu(pstRow) != 0) {
        return 1;
    }
    while (true) {
        char acWord[NP_SMD_WORD_SIZE];
        uint32_t ulLen = 0;
        if (CLI_CamGetParamString(NP_CMD_PROMPT, NP_CMD_PROMPT, 0, acWord, &ulLen, 1,
                                  NP_SMD_WORD_MAX) != 0) {
            return 1;
        }
        if (Np_StrCmp(acWord, NP_CMD_END) == 0) {
            return Np_SMD_EndCheck();
        }
        NpParamAt stParam;
        if (!Np_MenuFind(pstRow, pvRecord, acWord, &stParam) ||
            Np_ParamScan(pstRow, stParam, pvRecord) != 0) {
            Np_PUB_SMD_ReturnValue(NP_SMD_INVALID_COMMAND);
            return 1;
        }
        if (Np_SelectedScan(pstRow, stParam.pstField, pvRecord) != 0) {
            return 1;
        }
    }
}

void Np_SMD_RowPrint(const NpRow *pstRow, const void *pvRecord)
{
    for (uint32_t i = 0; i < pstRow->usFieldNum; i++) {
        const NpField *pstField = &pstRow->pstField[i];
        if (!Np_FieldIsAsked(pstField, pvRecord)) {
            continue;
        }
        for (uint32_t j = 0; j < Np_ParamNum(pstField); j++) {
            Np_ParamPrint(pstRow, pstField, j, pvRecord);
        }
    }
}

uint32_t Np_SMD_RowParam(const NpRow *pstRow, uint32_t ulIndex, NpSmdParam *pstParam)
{
    uint32_t ulMenu = 0;
    for (uint32_t i = 0; i < pstRow->usFieldNum; i++) {
        const NpField *pstField = &pstRow->pstField[i];
        const uint32_t ulNum = Np_ParamNum(pstField);
        if (ulIndex < ulNum) {
            *pstParam = {};
            Np_ItemFill(pstRow, pstField, ulIndex, &pstParam->stItem);
            pstParam->stItem.ulPromptNo = Np_MenuNum(pstField) == 0 ? 0 : ulMenu + ulIndex + 1;
            pstParam->pstEnum = pstField->pstWord;
            pstParam->ulEnumNum = pstField->ucWordNum;
            pstParam->ulRun = ulNum - ulIndex;
            pstParam->pszOwn = Np_FieldOwnName(pstField);
            pstParam->bElement = Np_IsIndexed(pstField) ? 1 : 0;
            Np_ParamCondition(pstRow, pstField, pstParam);
            return 0;
        }
        ulIndex -= ulNum;
        ulMenu += Np_MenuNum(pstField);
    }
    return 1;
}

uint32_t Np_SMD_RowGet(const NpRowCommand *pstCommand)
{
    const NpRow *pstData = Np_CommandData(pstCommand);
    NpKeyRecord stKey = {};
    NpDataRecord stData = {};
    if (Np_SMD_RowScan(Np_CommandKey(pstCommand), stKey.aulWord, true) != 0 ||
        Np_SMD_EndCheck() != 0) {
        return 1;
    }
    const uint32_t ulReturn =
        pstCommand->pfnGet(g_ulNpCurrentChipID, stKey.aulWord, stData.aulWord);
    if (ulReturn != NP_OK) {
        return Np_SMD_Report(ulReturn);
    }
    Np_SMD_SeparatorPrint();
    Np_SMD_RowPrint(pstData, stData.aulWord);
    Np_SMD_SeparatorPrint();
    return Np_SMD_Report(NP_OK);
}

uint32_t Np_SMD_RowSet(const NpRowCommand *pstCommand)
{
    const NpRow *pstData = Np_CommandData(pstCommand);
    NpKeyRecord stKey = {};
    NpDataRecord stData = {};
    if (Np_SMD_RowScan(Np_CommandKey(pstCommand), stKey.aulWord, true) != 0) {
        return 1;
    }
    // What no pair names keeps its value.
    const uint32_t ulReturn =
        pstCommand->pfnGet(g_ulNpCurrentChipID, stKey.aulWord, stData.aulWord);
    if (ulReturn != NP_OK) {
        return Np_SMD_Report(ulReturn);
    }
    if (pstCommand->enForm == NP_FORM_LARGE) {
        if (Np_SMD_RowScanMenu(pstData, stData.aulWord) != 0) {
            return 1;
        }
    }
    else if (Np_SMD_RowScan(pstData, stData.aulWord, false) != 0 || Np_SMD_EndCheck() != 0) {
        return 1;
    }
    return Np_SMD_Report(pstCommand->pfnSet(g_ulNpCurrentChipID, stKey.aulWord, stData.aulWord));
}

// The name of an array's element ends in its number, which the own name has not.
uint32_t Np_SMD_ParamIs(const NpSmdParam *pstParam, const char *pszWord)
{
    if (Np_StrCmp(pstParam->stItem.szName, pszWord) == 0) {
        return 1;
    }
    if (pstParam->pszOwn == nullptr) {
        return 0;
    }
    const char *pszNumber = pstParam->stItem.szName + NP_StrLen(pstParam->stItem.szName);
    while (pszNumber != pstParam->stItem.szName && pszNumber[-1] >= '0' && pszNumber[-1] <= '9') {
        pszNumber--;
    }
    const char *pszOwn = pstParam->pszOwn;
    for (const char *pszBehind : {Np_BehindName(pszOwn, false, pszWord),
                                  Np_BehindName(Np_ShortName(pszOwn), true, pszWord)}) {
        if (pszBehind != nullptr &&
            Np_StrCmp(pszBehind, pstParam->bElement ? pszNumber : "") == 0) {
            return 1;
        }
    }
    return 0;
}

NpSmdForm Np_SMD_CommandForm(NpCliHandler pfnHandler)
{
    for (const NpParamCommand &stCommand : g_astParamCommand) {
        if (stCommand.pfnHandler == pfnHandler) {
            return stCommand.enForm;
        }
    }
    const NpRowCommand *pstCommand = Np_CommandFind(pfnHandler);
    return pstCommand != nullptr ? pstCommand->enForm : NP_FORM_UNKNOWN;
}

uint32_t Np_SMD_CommandParam(NpCliHandler pfnHandler, uint32_t ulIndex, NpSmdParam *pstParam)
{
    for (const NpParamCommand &stCommand : g_astParamCommand) {
        if (stCommand.pfnHandler == pfnHandler) {
            return stCommand.pfnParam(ulIndex, pstParam);
        }
    }
    const NpRowCommand *pstCommand = Np_CommandFind(pfnHandler);
    if (pstCommand == nullptr) {
        return 1;
    }
    const NpRow *pstKey = Np_CommandKey(pstCommand);
    const uint32_t ulKeys = Np_RowParamNum(pstKey);
    if (ulIndex < ulKeys) {
        const uint32_t ulReturn = Np_SMD_RowParam(pstKey, ulIndex, pstParam);
        pstParam->bKey = 1;
        pstParam->stItem.ulPromptNo = 0;
        return ulReturn;
    }
    const NpRow *pstData = Np_CommandData(pstCommand);
    if (pstCommand->enForm == NP_FORM_GET || pstData == nullptr) {
        return 1;
    }
    const uint32_t ulReturn = Np_SMD_RowParam(pstData, ulIndex - ulKeys, pstParam);
    if (pstCommand->enForm != NP_FORM_LARGE) {
        pstParam->stItem.ulPromptNo = 0;
    }
    return ulReturn;
}

#define NP_ROW_HANDLERS(Handler)                            \
    uint32_t Handler##_Set(void)                            \
    {                                                       \
        return Np_SMD_RowSet(&g_stCommand_##Handler##_Set); \
    }                                                       \
    uint32_t Handler##_Get(void)                            \
    {                                                       \
        return Np_SMD_RowGet(&g_stCommand_##Handler##_Get); \
    }
#define NP_TABLE_ROW(stTable, Record, Wrapper, Handler, enForm) NP_ROW_HANDLERS(Handler)
#define NP_KEYED_ROW(stKey, Key, stRow, Record, Wrapper, Handler, enForm) NP_ROW_HANDLERS(Handler)
#include "sdk/record/list.h"

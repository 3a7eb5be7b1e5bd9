#include "sdk/module/smd_row.h"

#include "ldsdk/ldsdk.h"
#include "platform/os.h"
#include "sdk/frame/base/text.h"
#include "sdk/module/cli/smd.h"
#include "sdk/module/command_list.h"
#include "sdk/module/tree.h"
#include "sdk/tables/list.h"

namespace {

inline constexpr uint32_t NP_MENU_ENTRY = 64;  // room for one entry of a menu

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
    return !pstField->bHidden && (pstField->bFree || Np_Row_IsThere(pstField->pstWhen, pvRecord));
}

// The field's selector that its parameter is read behind, or null if it is a parameter of its own.
const NpWhen *Np_Selector(const NpField *pstField)
{
    return pstField->bFree ? nullptr : pstField->pstWhen;
}

bool Np_IsSelectedBy(const NpField *pstField, const NpField *pstSelector)
{
    const NpWhen *pstWhen = Np_Selector(pstField);
    return pstWhen != nullptr && pstWhen->usOffset == pstSelector->usOffset &&
           !Np_Row_Excludes(pstWhen, pstSelector->pstWhen);  // of a union, another member
}

// Range of a number: its check's, of several the one that holds for the record, or what the field
// or its piece of the image holds.
void Np_ItemRange(const NpRow *pstRow, const NpField *pstField, const void *pvRecord,
                  NpSmdKeyItem *pstItem)
{
    if (pstField->ucType == NP_SMD_DATA) {
        pstItem->lMax = pstField->usCount;
        return;
    }
    const NpCheck *pstCheck = Np_Row_FieldCheck(pstRow, pstField, pvRecord);
    if (pstCheck != nullptr) {
        pstItem->lMin = static_cast<int32_t>(Np_Row_LimitMin(&pstCheck->stLimit));
    }
    if (pstField->usShownMax != 0) {
        pstItem->lMax = static_cast<int32_t>(pstField->usShownMax);
        return;
    }
    if (pstCheck != nullptr) {
        pstItem->lMax = static_cast<int32_t>(Np_Row_LimitMax(&pstCheck->stLimit));
        return;
    }
    const uint32_t ulBits = pstField->bCut         ? pstField->ucWidth
                            : pstField->ucSize < 4 ? 8u * pstField->ucSize
                                                   : 32;
    pstItem->lMax = static_cast<int32_t>(0xffffffffu >> (32 - ulBits));
}

void Np_ItemFill(const NpRow *pstRow, const NpField *pstField, uint32_t ulElement,
                 const void *pvRecord, NpSmdKeyItem *pstItem)
{
    pstItem->ulKeyID = 0;
    pstItem->ulType = pstField->ucType;
    pstItem->ulPromptNo = 0;
    pstItem->lMin = 0;
    Np_ItemRange(pstRow, pstField, pvRecord, pstItem);
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
    Np_ItemFill(pstRow, pstField, stParam.ulElement, pvRecord, &stItem);
    stItem.ulType = Np_ScanType(stItem.ulType);
    const NpSmdKeyTable stTable = {&stItem, 1, pstField->pstWord, pstField->ucWordNum};
    if (!Np_IsNumber(stItem.ulType)) {
        void *pvAt = static_cast<uint8_t *>(pvRecord) + pstField->usOffset;
        if (pstField->bFar) {
            __builtin_memcpy(&pvAt, pvAt, sizeof(pvAt));
        }
        return Np_PUB_SMD_Scanf(0, pvAt, &stTable, 0);
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
        if (Np_IsSelectedBy(pstField, pstSelector)) {
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

// Reads a value that must lie in its range, or a text that must fit its field.
uint32_t Np_BoundedScan(const NpRow *pstRow, const NpField *pstField, void *pvRecord,
                        NpSmdBounds enBounds)
{
    NpSmdKeyItem stItem;
    Np_ItemFill(pstRow, pstField, 0, pvRecord, &stItem);
    uint32_t ulValue = 0;
    if (enBounds == NP_BOUNDS_HELD) {
        if (Np_SMD_Com_ValueParamGet(stItem.szName, stItem.lMin, stItem.lMax, &ulValue) != 0) {
            return 1;
        }
        Np_Row_Store(pstField, 0, ulValue, pvRecord);
        return 0;
    }
    char acPrompt[NP_SMD_NAME_SIZE + 1];
    Os_Format(acPrompt, sizeof(acPrompt), " %s", stItem.szName);
    if (stItem.ulType == NP_SMD_STRING) {
        char *pszText = static_cast<char *>(pvRecord) + pstField->usOffset;
        return CLI_CamGetParamString(acPrompt, acPrompt, 0, pszText, &ulValue, 1,
                                     pstField->usCount - 2u);
    }
    if (CLI_CamGetParamULONG(acPrompt, acPrompt, 0, &ulValue, static_cast<uint32_t>(stItem.lMin),
                             static_cast<uint32_t>(stItem.lMax)) != 0) {
        return 1;
    }
    Np_Row_Store(pstField, 0, ulValue, pvRecord);
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
    Np_ItemFill(pstRow, stParam.pstField, stParam.ulElement, pvRecord, &stItem);
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
        if (!Np_IsSelectedBy(pstField, pstSelector) || !Np_FieldIsAsked(pstField, pvRecord)) {
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
    return Np_Selector(pstField) != nullptr ? 0 : Np_ParamNum(pstField);
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
            Np_ItemFill(pstRow, pstField, j, nullptr, &stItem);
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
    Np_ItemFill(pstRow, pstField, ulElement, pvRecord, &stItem);
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

// What a condition asks, by the keyword of its selector.
NpSmdOf Np_ParamOf(const NpRow *pstRow, const NpWhen *pstWhen)
{
    NpSmdOf stOf = {};
    for (uint32_t i = 0; pstWhen != nullptr && i < pstRow->usFieldNum; i++) {
        const NpField *pstField = &pstRow->pstField[i];
        if (pstField->usOffset == pstWhen->usOffset && !pstField->bHidden &&
            pstField->ucSize != 0 && !Np_Row_Excludes(pstField->pstWhen, pstWhen->pstAnd)) {
            stOf.pszOf = pstField->pszKey;
            break;
        }
    }
    for (uint32_t i = 0; stOf.pszOf != nullptr && i < 32; i++) {
        stOf.ulMask |= static_cast<uint32_t>(Np_WhenTakes(*pstWhen, i)) << i;
    }
    stOf.ulRest = stOf.pszOf != nullptr && pstWhen->enTest != NP_TEST_ONE_OF ? 1 : 0;
    return stOf;
}

// Tells what lets a field in, and what its range depends on.
void Np_ParamCondition(const NpRow *pstRow, const NpField *pstField, NpSmdParam *pstParam)
{
    const NpWhen *pstWhen = Np_Selector(pstField);
    pstParam->stOf = Np_ParamOf(pstRow, pstWhen);
    pstParam->stAnd = Np_ParamOf(pstRow, pstWhen != nullptr ? pstWhen->pstAnd : nullptr);
    const NpCheck *pstCheck;
    uint32_t ulNum = 0;
    for (; (pstCheck = Np_Row_FieldChecks(pstRow, pstField, ulNum)) != nullptr &&
           ulNum < NP_SMD_RANGE_MAX;
         ulNum++) {
        pstParam->astRange[ulNum] = {static_cast<int32_t>(Np_Row_LimitMin(&pstCheck->stLimit)),
                                     static_cast<int32_t>(Np_Row_LimitMax(&pstCheck->stLimit)),
                                     Np_ParamOf(pstRow, pstCheck->pstWhen)};
    }
    pstParam->ulRangeNum = ulNum > 1 ? ulNum : 0;
}

// ---- the commands of the list -----------------------------------------------------------------

#define NP_TABLE_ROW(stTable, pfnTableGet, pfnTableSet, pfnGetHandler, pfnSetHandler, enTheForm) \
    constexpr NpRowCommand g_stCommand_##pfnSetHandler = {.pfnHandler = pfnSetHandler,           \
                                                          .enForm = enTheForm,                   \
                                                          .pstTable = &(stTable),                \
                                                          .pfnGet = Np_GetCall<pfnTableGet>,     \
                                                          .pfnSet = Np_SetCall<pfnTableSet>};    \
    constexpr NpRowCommand g_stCommand_##pfnGetHandler = {.pfnHandler = pfnGetHandler,           \
                                                          .enForm = NP_FORM_GET,                 \
                                                          .pstTable = &(stTable),                \
                                                          .pfnGet = Np_GetCall<pfnTableGet>};
#define NP_PRI_ROW(stTable, pfnTableGet, pfnTableSet, pfnTableDel, pfnGetHandler, pfnSetHandler, \
                   pfnDelHandler)                                                                \
    constexpr NpRowCommand g_stCommand_##pfnSetHandler = {.pfnHandler = pfnSetHandler,           \
                                                          .enForm = NP_FORM_LARGE,               \
                                                          .pstPri = &(stTable),                  \
                                                          .pfnGet = Np_GetCall<pfnTableGet>,     \
                                                          .pfnSet = Np_SetCall<pfnTableSet>,     \
                                                          .bNew = true};                         \
    constexpr NpRowCommand g_stCommand_##pfnGetHandler = {.pfnHandler = pfnGetHandler,           \
                                                          .enForm = NP_FORM_GET,                 \
                                                          .pstPri = &(stTable),                  \
                                                          .pfnGet = Np_GetCall<pfnTableGet>};    \
    constexpr NpRowCommand g_stCommand_##pfnDelHandler = {.pfnHandler = pfnDelHandler,           \
                                                          .enForm = NP_FORM_PAIRS,               \
                                                          .pstPri = &(stTable),                  \
                                                          .pfnDel = Np_KeyCallOf<pfnTableDel>};
#define NP_ENTRY_ROW(pstKeyRow, pstDataRow, pfnRowGet, pfnRowSet, pfnGetHandler, pfnSetHandler) \
    constexpr NpRowCommand g_stCommand_##pfnSetHandler = {.pfnHandler = pfnSetHandler,          \
                                                          .enForm = NP_FORM_ENTRY,              \
                                                          .pstKey = pstKeyRow,                  \
                                                          .pstData = pstDataRow,                \
                                                          .pfnGet = Np_GetCall<pfnRowGet>,      \
                                                          .pfnSet = Np_SetCall<pfnRowSet>,      \
                                                          .bNew = true};                        \
    constexpr NpRowCommand g_stCommand_##pfnGetHandler = {.pfnHandler = pfnGetHandler,          \
                                                          .enForm = NP_FORM_GET,                \
                                                          .pstKey = pstKeyRow,                  \
                                                          .pstData = pstDataRow,                \
                                                          .pfnGet = Np_GetCall<pfnRowGet>};
#define NP_ENTRY_DEL(pstKeyRow, pfnRowDel, pfnDelHandler)                              \
    constexpr NpRowCommand g_stCommand_##pfnDelHandler = {.pfnHandler = pfnDelHandler, \
                                                          .enForm = NP_FORM_PAIRS,     \
                                                          .pstKey = pstKeyRow,         \
                                                          .pfnDel = Np_KeyCallOf<pfnRowDel>};
#define NP_EXACT_COMMAND(stTable, pfnOf, pfnReadOf, Handler, enTheOp, enTheForm)   \
    constexpr NpRowCommand g_stCommand_##Handler = {.pfnHandler = Handler,         \
                                                    .enForm = enTheForm,           \
                                                    .pstExact = &(stTable),        \
                                                    .enOp = enTheOp,               \
                                                    .stCall = Np_AnyCall<pfnOf>(), \
                                                    .stRead = Np_AnyCall<pfnReadOf>()};
#define NP_EXACT_ROW(stTable, pfnAdd, pfnGet, pfnDel, pfnGetByIndex, pfnDelByIndex, pfnAddHandler, \
                     pfnGetHandler, pfnDelHandler, pfnGetByIndexHandler, pfnDelByIndexHandler)     \
    NP_EXACT_COMMAND(stTable, pfnAdd, pfnGet, pfnAddHandler, NP_EXACT_ADD, NP_FORM_SET)            \
    NP_EXACT_COMMAND(stTable, pfnGet, pfnGet, pfnGetHandler, NP_EXACT_GET, NP_FORM_GET)            \
    NP_EXACT_COMMAND(stTable, pfnDel, pfnGet, pfnDelHandler, NP_EXACT_DEL, NP_FORM_PAIRS)          \
    NP_EXACT_COMMAND(stTable, pfnGetByIndex, pfnGet, pfnGetByIndexHandler, NP_EXACT_GET_BY_INDEX,  \
                     NP_FORM_GET)                                                                  \
    NP_EXACT_COMMAND(stTable, pfnDelByIndex, pfnGet, pfnDelByIndexHandler, NP_EXACT_DEL_BY_INDEX,  \
                     NP_FORM_PAIRS)
#include "sdk/tables/list.h"
#define NP_COMMAND_ROW(Handler, enTheForm, pstKeyRow, pstDataRow) \
    constexpr NpRowCommand g_stCommand_##Handler = {              \
        .pfnHandler = Handler, .enForm = enTheForm, .pstKey = pstKeyRow, .pstData = pstDataRow};
#define NP_ROW_COMMAND(Handler, enTheForm, pstKeyRow, pstDataRow, pfnRowGet, pfnRowSet) \
    constexpr NpRowCommand g_stCommand_##Handler = {.pfnHandler = Handler,              \
                                                    .enForm = enTheForm,                \
                                                    .pstKey = pstKeyRow,                \
                                                    .pstData = pstDataRow,              \
                                                    .pfnGet = Np_GetCall<pfnRowGet>,    \
                                                    .pfnSet = Np_SetCall<pfnRowSet>};
#define NP_NEW_COMMAND(Handler, enTheForm, pstKeyRow, pstDataRow, pfnRowGet, pfnRowSet) \
    constexpr NpRowCommand g_stCommand_##Handler = {.pfnHandler = Handler,              \
                                                    .enForm = enTheForm,                \
                                                    .pstKey = pstKeyRow,                \
                                                    .pstData = pstDataRow,              \
                                                    .pfnGet = Np_GetCall<pfnRowGet>,    \
                                                    .pfnSet = Np_SetCall<pfnRowSet>,    \
                                                    .bNew = true};
#define NP_CHOICE_ROW(Handler, enForm, pstKey, apstData) \
    NP_COMMAND_ROW(Handler, enForm, pstKey, nullptr)
#include "sdk/module/command_list.h"

constexpr const NpRowCommand *g_apstCommand[] = {
#define NP_TABLE_ROW(stTable, pfnGet, pfnSet, pfnGetHandler, pfnSetHandler, enForm) \
    &g_stCommand_##pfnSetHandler, &g_stCommand_##pfnGetHandler,
#define NP_PRI_ROW(stTable, pfnGet, pfnSet, pfnDel, pfnGetHandler, pfnSetHandler, pfnDelHandler) \
    &g_stCommand_##pfnSetHandler, &g_stCommand_##pfnGetHandler, &g_stCommand_##pfnDelHandler,
#define NP_ENTRY_ROW(pstKey, pstData, pfnGet, pfnSet, pfnGetHandler, pfnSetHandler) \
    &g_stCommand_##pfnSetHandler, &g_stCommand_##pfnGetHandler,
#define NP_ENTRY_DEL(pstKey, pfnDel, pfnDelHandler) &g_stCommand_##pfnDelHandler,
#define NP_EXACT_ROW(stTable, pfnAdd, pfnGet, pfnDel, pfnGetByIndex, pfnDelByIndex, pfnAddHandler, \
                     pfnGetHandler, pfnDelHandler, pfnGetByIndexHandler, pfnDelByIndexHandler)     \
    &g_stCommand_##pfnAddHandler, &g_stCommand_##pfnGetHandler, &g_stCommand_##pfnDelHandler,      \
        &g_stCommand_##pfnGetByIndexHandler, &g_stCommand_##pfnDelByIndexHandler,
#include "sdk/tables/list.h"
#define NP_COMMAND_ROW(Handler, enForm, pstKey, pstData) &g_stCommand_##Handler,
#define NP_ROW_COMMAND(Handler, enForm, pstKey, pstData, pfnGet, pfnSet) &g_stCommand_##Handler,
#define NP_CHOICE_ROW(Handler, enForm, pstKey, apstData) &g_stCommand_##Handler,
#include "sdk/module/command_list.h"
};

// Commands whose row the key's value chooses.
struct NpRowChoice {
    const NpRowCommand *pstCommand;
    const NpRow *const *ppstRow;
    uint32_t ulRowNum;
};
constexpr NpRowChoice g_astChoice[] = {
#define NP_CHOICE_ROW(Handler, enForm, pstKey, apstData) \
    {&g_stCommand_##Handler, apstData, sizeof(apstData) / sizeof(apstData[0])},
#include "sdk/module/command_list.h"
};

const NpRow *Np_CommandKey(const NpRowCommand *pstCommand)
{
    return pstCommand->pstTable != nullptr   ? pstCommand->pstTable->pstKey
           : pstCommand->pstPri != nullptr   ? pstCommand->pstPri->pstKey
           : pstCommand->pstExact != nullptr ? Np_ExactCommandKey(pstCommand)
                                             : pstCommand->pstKey;
}

const NpRow *Np_CommandData(const NpRowCommand *pstCommand)
{
    return pstCommand->pstTable != nullptr   ? pstCommand->pstTable->pstRow
           : pstCommand->pstPri != nullptr   ? pstCommand->pstPri->pstRow
           : pstCommand->pstExact != nullptr ? Np_ExactCommandData(pstCommand)
                                             : pstCommand->pstData;
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

// Reads a command's key, if it has one.
uint32_t Np_KeyScan(const NpRow *pstKey, void *pvKey)
{
    return pstKey == nullptr ? 0 : Np_SMD_RowScan(pstKey, pvKey, true);
}

// A parameter of the rows that a key's value chooses; it is told with that value unless it has a
// selector of its own.
uint32_t Np_ChoiceParam(const NpRowCommand *pstCommand, uint32_t ulIndex, NpSmdParam *pstParam)
{
    for (const NpRowChoice &stChoice : g_astChoice) {
        for (uint32_t i = 0; stChoice.pstCommand == pstCommand && i < stChoice.ulRowNum; i++) {
            const uint32_t ulNum = Np_RowParamNum(stChoice.ppstRow[i]);
            if (ulIndex < ulNum) {
                Np_SMD_RowParam(stChoice.ppstRow[i], ulIndex, pstParam);
                if (pstParam->stOf.pszOf == nullptr) {
                    pstParam->stOf = {pstCommand->pstKey->pstField->pszKey, 1u << i, 0};
                }
                return 0;
            }
            ulIndex -= ulNum;
        }
    }
    return 1;
}

// Another variant of a union is there in a field's place.
bool Np_PlaceIsTaken(const NpRow *pstRow, const NpField *pstField, const void *pvRecord)
{
    for (uint32_t i = 0; i < pstRow->usFieldNum; i++) {
        const NpField &stOther = pstRow->pstField[i];
        if (&stOther != pstField && stOther.usOffset <= pstField->usOffset &&
            pstField->usOffset < stOther.usOffset + stOther.usCount * stOther.ucSize &&
            stOther.pszName != pstField->pszName && Np_Row_IsThere(stOther.pstWhen, pvRecord)) {
            return true;
        }
    }
    return false;
}

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

uint32_t Np_SMD_RowScanValues(const NpRow *pstRow, void *pvRecord, NpSmdBounds enBounds)
{
    for (uint32_t i = 0; i < pstRow->usFieldNum; i++) {
        const NpField *pstField = &pstRow->pstField[i];
        const uint32_t ulReturn = enBounds == NP_BOUNDS_SHOWN
                                      ? Np_ParamScan(pstRow, {pstField, 0}, pvRecord)
                                      : Np_BoundedScan(pstRow, pstField, pvRecord, enBounds);
        if (ulReturn != 0) {
            return 1;
        }
    }
    return 0;
}

uint32_t Np_SMD_RowScanMenu(const NpRow *pstRow, void *pvRecord,
                            void (*pfnTaken)(const NpField *pstField, void *pvRecord))
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
        if (pfnTaken != nullptr) {
            pfnTaken(stParam.pstField, pvRecord);
        }
    }
}

void Np_SMD_RowPrint(const NpRow *pstRow, const void *pvRecord)
{
    for (uint32_t i = 0; i < pstRow->usFieldNum; i++) {
        const NpField *pstField = &pstRow->pstField[i];
        // What no row holds, or stands in a union, is somebody else's where its condition does not
        // let it in.
        const bool bForeign = !Np_Row_IsThere(pstField->pstWhen, pvRecord) &&
                              (pstField->bLost || Np_PlaceIsTaken(pstRow, pstField, pvRecord));
        if (!Np_FieldIsAsked(pstField, pvRecord) || pstField->bFar || bForeign) {
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
            Np_ItemFill(pstRow, pstField, ulIndex, nullptr, &pstParam->stItem);
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
    if (Np_KeyScan(Np_CommandKey(pstCommand), stKey.aulWord) != 0 || Np_SMD_EndCheck() != 0) {
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
    if (Np_KeyScan(Np_CommandKey(pstCommand), stKey.aulWord) != 0) {
        return 1;
    }
    // What no pair names keeps its value. An entry that is not there yet has none to keep, and
    // zeros would stand for something: a mask of 0 matches everything. NP_FORM_ENTRY asks for all.
    const uint32_t ulReturn =
        pstCommand->pfnGet(g_ulNpCurrentChipID, stKey.aulWord, stData.aulWord);
    const bool bFailed = ulReturn != NP_OK;
    if (bFailed && !pstCommand->bAny && !(pstCommand->bNew && ulReturn == NP_ERR_NOT_EXIST)) {
        return Np_SMD_Report(ulReturn);
    }
    if (bFailed) {
        stData = {};
    }
    if (pstCommand->enForm == NP_FORM_LARGE) {
        if (Np_SMD_RowScanMenu(pstData, stData.aulWord) != 0) {
            return 1;
        }
    }
    else {
        const bool bAll = bFailed && pstCommand->enForm == NP_FORM_ENTRY;
        if (Np_SMD_RowScan(pstData, stData.aulWord, bAll) != 0 || Np_SMD_EndCheck() != 0) {
            return 1;
        }
    }
    return Np_SMD_Report(pstCommand->pfnSet(g_ulNpCurrentChipID, stKey.aulWord, stData.aulWord));
}

uint32_t Np_SMD_RowDel(const NpRowCommand *pstCommand)
{
    NpKeyRecord stKey = {};
    if (Np_KeyScan(Np_CommandKey(pstCommand), stKey.aulWord) != 0 || Np_SMD_EndCheck() != 0) {
        return 1;
    }
    return Np_SMD_Report(pstCommand->pfnDel(g_ulNpCurrentChipID, stKey.aulWord));
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
    const NpRowCommand *pstCommand = Np_CommandFind(pfnHandler);
    return pstCommand != nullptr ? pstCommand->enForm : NP_FORM_UNKNOWN;
}

uint32_t Np_SMD_CommandParam(NpCliHandler pfnHandler, uint32_t ulIndex, NpSmdParam *pstParam)
{
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
    if (pstData == nullptr) {
        return Np_ChoiceParam(pstCommand, ulIndex - ulKeys, pstParam);
    }
    if (pstCommand->enForm == NP_FORM_GET || pstCommand->pfnDel != nullptr) {
        return 1;
    }
    const uint32_t ulReturn = Np_SMD_RowParam(pstData, ulIndex - ulKeys, pstParam);
    if (pstCommand->enForm != NP_FORM_LARGE) {
        pstParam->stItem.ulPromptNo = 0;
    }
    return ulReturn;
}

#define NP_SMD_HANDLER(Handler, Do)        \
    uint32_t Handler(void)                 \
    {                                      \
        return Do(&g_stCommand_##Handler); \
    }
#define NP_TABLE_ROW(stTable, pfnGet, pfnSet, pfnGetHandler, pfnSetHandler, enForm) \
    NP_SMD_HANDLER(pfnSetHandler, Np_SMD_RowSet)                                    \
    NP_SMD_HANDLER(pfnGetHandler, Np_SMD_RowGet)
#define NP_PRI_ROW(stTable, pfnGet, pfnSet, pfnDel, pfnGetHandler, pfnSetHandler, pfnDelHandler) \
    NP_SMD_HANDLER(pfnSetHandler, Np_SMD_RowSet)                                                 \
    NP_SMD_HANDLER(pfnGetHandler, Np_SMD_RowGet)                                                 \
    NP_SMD_HANDLER(pfnDelHandler, Np_SMD_RowDel)
#define NP_ENTRY_ROW(pstKey, pstData, pfnGet, pfnSet, pfnGetHandler, pfnSetHandler) \
    NP_SMD_HANDLER(pfnSetHandler, Np_SMD_RowSet)                                    \
    NP_SMD_HANDLER(pfnGetHandler, Np_SMD_RowGet)
#define NP_ENTRY_DEL(pstKey, pfnDel, pfnDelHandler) NP_SMD_HANDLER(pfnDelHandler, Np_SMD_RowDel)
#define NP_EXACT_ROW(stTable, pfnAdd, pfnGet, pfnDel, pfnGetByIndex, pfnDelByIndex, pfnAddHandler, \
                     pfnGetHandler, pfnDelHandler, pfnGetByIndexHandler, pfnDelByIndexHandler)     \
    NP_SMD_HANDLER(pfnAddHandler, Np_SMD_Exact)                                                    \
    NP_SMD_HANDLER(pfnGetHandler, Np_SMD_Exact)                                                    \
    NP_SMD_HANDLER(pfnDelHandler, Np_SMD_Exact)                                                    \
    NP_SMD_HANDLER(pfnGetByIndexHandler, Np_SMD_Exact)                                             \
        NP_SMD_HANDLER(pfnDelByIndexHandler, Np_SMD_Exact)
#include "sdk/tables/list.h"
#define NP_ROW_COMMAND(Handler, enForm, pstKey, pstData, pfnGet, pfnSet)        \
    uint32_t Handler(void)                                                      \
    {                                                                           \
        return (enForm) == NP_FORM_GET ? Np_SMD_RowGet(&g_stCommand_##Handler)  \
                                       : Np_SMD_RowSet(&g_stCommand_##Handler); \
    }
#include "sdk/module/command_list.h"

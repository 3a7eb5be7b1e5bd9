// What the command handlers share: reading values from the command line by type, printing them,
// and the closing lines. A handler describes its parameters as constant data; nothing here keeps
// state between calls or allocates.
//
// Unless said otherwise a function returns 0, or 1 for a failure. A value that cannot be read shows
// its prompt, so that the last line names the word that failed.
#pragma once

#include "ldsdk/types.h"
#include "sdk/record/param.h"

#include <cstdint>

// Closing lines.
enum NpSmdClosing : uint32_t {
    NP_SMD_SUCCESS = 0,
    NP_SMD_ERROR = 1,
    NP_SMD_INVALID_COMMAND = 2,
    NP_SMD_INVALID_PARAM = 3,
    NP_SMD_PARAM_MISSED = 4,
    NP_SMD_TOO_MANY = 5,
    NP_SMD_MAX_BUFFER = 6,
    NP_SMD_NO_CHIP = 7,
};

extern "C" {

extern uint32_t g_ulNpCurrentChipID;  // the chip that all commands work on
extern uint32_t g_ulNpPubPrompt;      // 1: large commands print their menu

// ---- words ------------------------------------------------------------------------------------

// Reads one word of 1 to 50 characters that pszAllowed must list, into pszWord (NP_SMD_WORD_SIZE
// bytes, at first the default). A failure prints "Command execute error!".
uint32_t Np_SMD_Com_StringParamGet(const char *pszDefault, const char *pszAllowed, char *pszWord);
// Tells whether a list has the word. Entries stand between "|" and ":"; blanks, CR and LF in the
// list don't count.
uint32_t Np_SMD_Com_StringParamCheck(const char *pszWord, const char *pszAllowed);
// Reads a number within lMin and lMax, which are taken as unsigned. A failure prints "Invalid
// parameter!".
uint32_t Np_SMD_Com_ValueParamGet(const char *pszName, int32_t lMin, int32_t lMax,
                                  uint32_t *pulValue);
// Takes no word and leaves the value alone: there is no signed getter below it.
uint32_t Np_SMD_Com_SignedValueParamGet(const char *pszName, int32_t lMin, int32_t lMax,
                                        int32_t *plValue);

// ---- reading values by type -------------------------------------------------------------------

// Reads the value of item ulIndex to pDst, which has the room that the item's type asks for.
// ulKeyID: whose named values an enumeration has.
uint32_t Np_PUB_SMD_Scanf(uint32_t ulIndex, void *pDst, const NpSmdKeyTable *pstTable,
                          uint32_t ulKeyID);
// The same for a single value without named values.
uint32_t Np_PUB_SMD_Scanf_ex(uint32_t ulType, const char *pszName, int32_t lMin, int32_t lMax,
                             void *pDst);
// Reads a port: type, then number, sub-port and priority where the type has them.
uint32_t Np_PUB_SMD_PortGet(uint32_t ulChipID, NpPortID *pstPort);
// Reads at most ulMaxBytes bytes (below NP_SMD_DATA_LIMIT), two digits each, first digit high. The
// rest of the destination is cleared.
uint32_t Np_PUB_SMD_DataScanf(const char *pszName, void *pDst, uint32_t ulMaxBytes);

// ---- items and named values -------------------------------------------------------------------

// Replaces a key number by the item's position in the table.
uint32_t Np_PUB_SMD_KeyIndexMap(uint32_t *pulKey, const NpSmdKeyTable *pstTable);
// 0 when the word is the name of the item with that key number.
uint32_t Np_PUB_SMD_KeyStrCmp(const char *pszWord, uint32_t ulKeyID, const NpSmdKeyTable *pstTable);
// 0 when exactly one item of the menu has the word for its name or its number.
uint32_t Np_PUB_SMD_ValidKey(const char *pszWord, const NpSmdKeyTable *pstTable);
// A number of decimal digits and nothing else.
uint32_t Np_PUB_SMD_atoi(const char *pszWord, uint32_t *pulValue);
// Text or number to value. A number that no row of the key has stands for itself.
uint32_t Np_PUB_SMD_GetKeyValue(uint32_t ulKeyID, const char *pszWord, uint32_t *pulValue,
                                const NpSmdKeyTable *pstTable);
// Value to text, cut to ulLen bytes with the NUL. A value that no row of the key has gives its
// number.
uint32_t Np_PUB_SMD_GetKeyString(uint32_t ulKeyID, uint32_t ulValue, char *pszText, uint32_t ulLen,
                                 const NpSmdKeyTable *pstTable);
// "0:off | 1:on |" of the key's rows. 1 when there is none or ulLen bytes are too few; pszList then
// holds what fits.
uint32_t Np_PUB_SMD_GetKeyStringCom(uint32_t ulKeyID, char *pszList, uint32_t ulLen,
                                    const NpSmdKeyTable *pstTable);
// Changes name and range of an item in a table of the caller's own.
void Np_PUB_SMD_SetCfg(uint32_t ulIndex, const char *pszName, int32_t lMin, int32_t lMax,
                       NpSmdKeyItem *pstItem);

// ---- printing ---------------------------------------------------------------------------------

// Prints the value at pData, stored as its type is read, as a line "name : value".
uint32_t Np_PUB_SMD_Print(uint32_t ulIndex, const void *pData, const NpSmdKeyTable *pstTable,
                          uint32_t ulKeyID);
// The same for a single value of a type that needs neither named values nor a length.
uint32_t Np_PUB_SMD_Print_ex(uint32_t ulType, const char *pszName, const void *pData);
void Np_PUB_SMD_DataPrint(const char *pszName, const void *pData, uint32_t ulLen);
// Prints the menu, if the prompt switch is on. pszBuffer: ulLen bytes for one entry at a time; too
// few end the menu with closing line 6.
uint32_t Np_PUB_SMD_Prompt(char *pszBuffer, uint32_t ulLen, const NpSmdKeyTable *pstTable);
// Its parts, for items that are not kept as a table: an entry behind ulBefore others, and the end.
uint32_t Np_SMD_MenuEntry(char *pszBuffer, uint32_t ulLen, uint32_t ulBefore,
                          const NpSmdKeyItem *pstItem);
void Np_SMD_MenuEnd(uint32_t ulEntries);
// Prints a closing line, a value of NpSmdClosing; nothing for other codes.
void Np_PUB_SMD_ReturnValue(uint32_t ulCode);
// Prints a status code and its text.
void Np_PUB_SMD_PrintReturnValue(uint32_t ulReturn);

// The 70 dashes before and behind the fields of a row.
void Np_SMD_SeparatorPrint(void);
// What a handler asks before it acts: 0 when it has read all its words, else prints closing line 1.
uint32_t Np_SMD_EndCheck(void);
// What a handler ends with: closing line 0 for NP_OK, else the status code. 0 or 1 for the handler.
uint32_t Np_SMD_Report(uint32_t ulReturn);

// The chip words in which the microcode keeps its path, all cleared. No command calls it.
uint32_t Np_PUB_SMD_MicroPathClear(void);
// The numbers of modules and levels, for the commands that switch tracing.
void Np_PrintLevelInfoDisplay(void);

}  // extern "C"

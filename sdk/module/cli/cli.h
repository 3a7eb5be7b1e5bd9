// The command device: a line of words comes in through one ioctl, a tree of command records is
// walked by those words, and the handler at the leaf prints its answer. One command at a time.
#pragma once

#include "ldsdk/init.h"

#include <cstdint>

// The leaf action. Reads its own words, prints its outcome; the result is ignored.
typedef uint32_t (*NpCliHandler)(void);

// One word of the command tree.
struct NpCliCmdEntry {
    char szName[31];             // the word that selects this record
    char szHelp[401];            // printed in listings
    NpCliCmdEntry *pstChildren;  // the next level, or null
    uint32_t ulChildNum;
    NpCliHandler pfnHandler;  // not reached beside children
};
static_assert(sizeof(void *) != 4 || sizeof(NpCliCmdEntry) == 444);

// The user's buffer: a signed 32-bit word count in native order, then the words, each with its NUL,
// one directly behind the other. The first word is the caller's own name.
inline constexpr uint32_t NP_CLI_BUFFER_SIZE = 512;
inline constexpr uint32_t NP_CLI_COUNT_SIZE = 4;
inline constexpr uint32_t NP_CLI_ARGB_SIZE = 2048;
inline constexpr uint32_t NP_CLI_ARGV_NUM = 512;
inline constexpr int NP_CLI_EFAULT = -14;  // the platform's bad address error: any failure
inline constexpr char NP_CLI_DEVICE[] = "ldsdk";

extern "C" {

extern char g_argb[NP_CLI_ARGB_SIZE];  // copy of the user's buffer
extern char *g_argv[NP_CLI_ARGV_NUM];  // the words, in g_argb
extern int32_t g_argc;                 // their number, as the buffer says
extern int32_t g_argp;                 // index of the next word not yet taken
extern NpCliCmdEntry g_np_cli_ctree;   // root of the installed tree, all zero until then

// Load and unload of the module. The first always answers 0; without a device the exported
// functions still work.
int Np_ModuleInit(void);
int Np_ModuleExit(void);

// Registers the device, once. 0, or the platform's error.
int ld_sdk_cli_init(void);
void ld_sdk_cli_unit(void);
int ld_sdk_cli_open(void *pvInode, void *pvFile);
int ld_sdk_cli_close(void *pvInode, void *pvFile);
// Runs one command. uiCmd is not looked at; ulArg is the address of the user's 512 bytes. 0, or
// NP_CLI_EFAULT; the handler's own outcome is seen in the log only.
int ld_sdk_cli_ioctl(void *pvInode, void *pvFile, unsigned int uiCmd, uintptr_t ulArg);

// Splits lLen bytes at pBuf into words. 0 and the count in *plArgc (0 or negative counts as they
// are, with no words), or -1 when a word runs past the buffer, *plArgc untouched.
int32_t buf_to_args(char *pBuf, int32_t lLen, int32_t *plArgc, char **apArgv);
// Walks the tree by the words from g_argp on, and runs a handler or lists a level.
void ld_sdk_cli_dispatch(const NpCliCmdEntry *pstEntries, int32_t lCount);
// Copies the one record at pstCmd to the root. 0, or 1 when there is a root already.
uint32_t CLI_CamInstallCmdExt(const NpCliCmdEntry *pstCmd, uint32_t ulCount);
uint32_t Np_SdkCmdTreeInstall(void);

// Getters for handlers: each takes the next word, 0. A failure prints the English prompt and a
// newline, takes nothing and returns 1. The Chinese prompt and the tag are not used.

// A text of ulMin to ulMax characters, copied with its NUL; pszDst holds ulMax + 2 bytes.
uint32_t CLI_CamGetParamString(const char *pszEnglish, const char *pszChinese, uint32_t ulTag,
                               char *pszDst, uint32_t *pulLen, uint32_t ulMin, uint32_t ulMax);
// The code of the word's first character.
uint32_t CLI_CamGetParamUCHAR(const char *pszEnglish, const char *pszChinese, uint32_t ulTag,
                              uint8_t *pucDst, uint8_t ucMin, uint8_t ucMax);
// The low 16 bits of a decimal number.
uint32_t CLI_CamGetParamUSHORT(const char *pszEnglish, const char *pszChinese, uint32_t ulTag,
                               uint16_t *pusDst, uint16_t usMin, uint16_t usMax);
// A decimal number. What follows its digits is not looked at.
uint32_t CLI_CamGetParamULONG(const char *pszEnglish, const char *pszChinese, uint32_t ulTag,
                              uint32_t *pulDst, uint32_t ulMin, uint32_t ulMax);
// There is no signed getter: takes nothing, stores nothing, always 0.
uint32_t CLI_NpGetParamLONG(const char *pszEnglish, const char *pszChinese, uint32_t ulTag,
                            int32_t *plDst, int32_t lMin, int32_t lMax);

// 1 while a word is left, which a handler that has read all its words takes for an error.
uint32_t CLI_CamIsNoParam(void);
// Prints the English text and a newline.
void CLI_CamOutStringCE(const char *pszEnglish, const char *pszChinese);

// The same without a print, for readers with messages of their own. The word or number that the
// next getter would take: null or false if none is left or it is outside the bounds; the number's
// bounds are unsigned and its text may go on behind the digits.
char *CLI_CamPeekString(uint32_t ulMin, uint32_t ulMax);
bool CLI_CamPeekNumber(uint32_t *pulValue, uint32_t ulMin, uint32_t ulMax);
void CLI_CamTakeWord(void);

}  // extern "C"

// What the commands take, for whoever wants to tell a person: completion, "?", the reference page.
#pragma once

#include "sdk/module/cli/cli.h"
#include "sdk/record/param.h"

#include <cstdint>

// How the words behind a command go.
enum NpSmdForm : uint32_t {
    NP_FORM_UNKNOWN,  // nothing is known of its parameters
    NP_FORM_GET,      // keys; prints what they select
    NP_FORM_SET,      // keys, then pairs of name and value in order, each of which may be left out
    NP_FORM_LARGE,    // keys, then pairs in any order up to "end"
    NP_FORM_PAIRS,    // pairs of name and value in order, none left out
    NP_FORM_VALUES,   // values alone, in order
    NP_FORM_COUNTED,  // a pair with a number, then as many values of the other parameter, alone
    NP_FORM_ENTRY,    // as NP_FORM_SET, but an entry that is not there yet takes all pairs
};

// What another parameter must be: a set of values.
struct NpSmdOf {
    const char *pszOf;  // the parameter's name; null: nothing is asked
    uint32_t ulMask;    // bit v: the value v
    uint32_t ulRest;    // 1: values of 32 and above as well
};

inline constexpr uint32_t NP_SMD_RANGE_MAX = 4;
struct NpSmdRange {
    int32_t lMin;
    int32_t lMax;
    NpSmdOf stOf;
};

struct NpSmdParam {
    NpSmdKeyItem stItem;          // name, type, range as unsigned numbers, number in the menu
    const NpSmdKeyEnum *pstEnum;  // value words
    uint32_t ulEnumNum;
    uint32_t bKey;        // selects what the command works on: comes first, must be there
    uint32_t ulRun;       // so many parameters from here on differ in their number only
    NpSmdOf stOf;         // the parameter behind whose value it is read
    NpSmdOf stAnd;        // and what has to be there besides
    uint32_t ulRangeNum;  // where its range depends on others: how many there are
    NpSmdRange astRange[NP_SMD_RANGE_MAX];
    const char *pszOwn;  // another name that it is taken by, or null
    uint32_t bElement;   // of an array: its number ends the name
};

extern "C" {

NpSmdForm Np_SMD_CommandForm(NpCliHandler pfnHandler);
// Parameter ulIndex of a command, keys first. 0, or 1 if there are no more.
uint32_t Np_SMD_CommandParam(NpCliHandler pfnHandler, uint32_t ulIndex, NpSmdParam *pstParam);
// 1 if a word names the parameter: its name, or its own in full or short.
uint32_t Np_SMD_ParamIs(const NpSmdParam *pstParam, const char *pszWord);

// The port types' words, in the order of their numbers; null behind the last.
const char *Np_SMD_PortTypeWord(uint32_t ulIndex);
// What a port type, by word or number, takes behind it: name and range of part ulPart. A part
// without a name is a word on its own. 0, or 1 if there are no more.
uint32_t Np_SMD_PortPart(const char *pszType, uint32_t ulPart, NpSmdKeyItem *pstItem);

}  // extern "C"

// Commands on described rows: what reads and prints the fields of a record, and the handlers that
// need nothing else. See sdk/record/record.h.
#pragma once

#include "sdk/module/cli/params.h"
#include "sdk/record/call.h"
#include "sdk/record/exacttable.h"
#include "sdk/record/pritable.h"
#include "sdk/record/table.h"

// What a command does with an entry of an exact-match table.
enum NpExactOp : uint8_t {
    NP_EXACT_ADD,
    NP_EXACT_GET,
    NP_EXACT_DEL,
    NP_EXACT_GET_BY_INDEX,
    NP_EXACT_DEL_BY_INDEX,
};

// A command on a record that a key selects. Both are plain memory; the calls get them as that.
struct NpRowCommand {
    NpCliHandler pfnHandler = nullptr;
    NpSmdForm enForm = NP_FORM_UNKNOWN;
    const NpTable *pstTable = nullptr;  // its key and its row; or those of
    const NpPriTable *pstPri = nullptr;
    const NpRow *pstKey = nullptr;  // or, where both are null, those that stand here
    const NpRow *pstData = nullptr;
    NpGetCall *pfnGet = nullptr;
    NpSetCall *pfnSet = nullptr;
    NpKeyCall *pfnDel = nullptr;
    bool bNew = false;  // the key may have no record yet: set begins with an empty one,
    bool bAny = false;  // whatever the read's failure is
    const NpExactTable *pstExact = nullptr;  // or an entry of it, its call,
    NpExactOp enOp = NP_EXACT_ADD;
    NpAnyCall stCall = {};
    NpAnyCall stRead = {};  // and what reads one that is to be changed
};

inline constexpr uint32_t NP_KEY_WORDS = 32;  // of the widest key record

// Room for a key's arguments and for a record.
struct NpKeyRecord {
    uint32_t aulWord[NP_KEY_WORDS];
};
struct NpDataRecord {
    uint32_t aulWord[NP_ROW_RECORD_MAX / sizeof(uint32_t)];
};

// The rows that a command reads, and null for none.
const NpRow *Np_ExactCommandKey(const NpRowCommand *pstCommand);
const NpRow *Np_ExactCommandData(const NpRowCommand *pstCommand);

// The whole of a handler: 0 or 1.
uint32_t Np_SMD_RowGet(const NpRowCommand *pstCommand);
uint32_t Np_SMD_RowSet(const NpRowCommand *pstCommand);
uint32_t Np_SMD_RowDel(const NpRowCommand *pstCommand);
uint32_t Np_SMD_Exact(const NpRowCommand *pstCommand);

// Reads pairs of name and value, in the order of the fields; those whose condition does not hold
// are not asked for. bAll: none may be left out. 0, or 1 after the prompt or the closing line.
uint32_t Np_SMD_RowScan(const NpRow *pstRow, void *pvRecord, bool bAll);
// The pairs of a large command: the menu, then pairs in any order up to "end". pfnTaken: called
// when a pair, its value the word before the next one, has been read.
uint32_t Np_SMD_RowScanMenu(const NpRow *pstRow, void *pvRecord,
                            void (*pfnTaken)(const NpField *pstField, void *pvRecord) = nullptr);
// What a range does to a value that stands without a name.
enum NpSmdBounds : uint32_t {
    NP_BOUNDS_SHOWN,  // its prompt tells it
    NP_BOUNDS_HELD,   // and what lies outside shows it, with "Invalid parameter!"
    NP_BOUNDS_BLANK,  // what lies outside shows the name alone, behind a blank
};
// Values in the order of the fields, all of them. 0, or 1 after the prompt of the one that failed.
uint32_t Np_SMD_RowScanValues(const NpRow *pstRow, void *pvRecord, NpSmdBounds enBounds);
// Prints the fields that are there, a line each.
void Np_SMD_RowPrint(const NpRow *pstRow, const void *pvRecord);

// Parameter ulIndex of a row, in the order of reading. 0, or 1 if there are no more.
uint32_t Np_SMD_RowParam(const NpRow *pstRow, uint32_t ulIndex, NpSmdParam *pstParam);

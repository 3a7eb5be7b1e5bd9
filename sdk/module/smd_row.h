// Commands on described rows: what reads and prints the fields of a record, and the handlers that
// need nothing else. See sdk/record/record.h.
#pragma once

#include "sdk/module/params.h"
#include "sdk/record/table.h"

#include <type_traits>

// A command on a record that a key selects. Both are plain memory; the calls get them as that.
struct NpRowCommand {
    NpCliHandler pfnHandler;
    NpSmdForm enForm;
    const NpTable *pstTable;  // its key and its row, or, where this is null,
    const NpRow *pstKey;      // those that stand here, null for none
    const NpRow *pstData;
    uint32_t (*pfnGet)(uint32_t ulChipID, const void *pvKey, void *pvData);
    uint32_t (*pfnSet)(uint32_t ulChipID, const void *pvKey, const void *pvData);  // null: get only
};

// The whole of a handler: 0 or 1.
uint32_t Np_SMD_RowGet(const NpRowCommand *pstCommand);
uint32_t Np_SMD_RowSet(const NpRowCommand *pstCommand);

// Reads pairs of name and value, in the order of the fields; those whose condition does not hold
// are not asked for. bAll: none may be left out. 0, or 1 after the prompt or the closing line.
uint32_t Np_SMD_RowScan(const NpRow *pstRow, void *pvRecord, bool bAll);
// The pairs of a large command: the menu, then pairs in any order up to "end".
uint32_t Np_SMD_RowScanMenu(const NpRow *pstRow, void *pvRecord);
// Prints the fields that are there, a line each.
void Np_SMD_RowPrint(const NpRow *pstRow, const void *pvRecord);

// Parameters of `micro cputr send`, as Np_SMD_RowParam gives them.
uint32_t Np_SMD_CputrSendParam(uint32_t ulIndex, NpSmdParam *pstParam);

// Parameter ulIndex of a row, in the order of reading. 0, or 1 if there are no more.
uint32_t Np_SMD_RowParam(const NpRow *pstRow, uint32_t ulIndex, NpSmdParam *pstParam);

// Exported functions as the commands call them: the record behind one or two words, or behind a
// key record.
template <auto pfnCall, typename Record>
uint32_t Np_SMD_RowCall(uint32_t ulChipID, const void *pvKey,
                        std::conditional_t<std::is_const_v<Record>, const void, void> *pvData)
{
    const uint32_t *pulKey = static_cast<const uint32_t *>(pvKey);
    Record *pstData = static_cast<Record *>(pvData);
    if constexpr (requires { pfnCall(ulChipID, pulKey[0], pstData); }) {
        return pfnCall(ulChipID, pulKey[0], pstData);
    }
    else {
        return pfnCall(ulChipID, pulKey[0], pulKey[1], pstData);
    }
}

// The same for one that a key record selects.
template <auto pfnCall, typename Key, typename Record>
uint32_t Np_SMD_KeyedCall(uint32_t ulChipID, const void *pvKey,
                          std::conditional_t<std::is_const_v<Record>, const void, void> *pvData)
{
    return pfnCall(ulChipID, static_cast<const Key *>(pvKey), static_cast<Record *>(pvData));
}

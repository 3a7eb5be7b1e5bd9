// A priority CAM table: ternary rows that the owner names by key numbers and the CAM places by
// priority (sdk/lookup/pricam.h). With the description of its row, which has the key, the mask and
// the AD one behind the other, this makes all of its functions; the soft tables are globals of the
// owner, one for each chip.
#pragma once

#include "sdk/lookup/pricam.h"
#include "sdk/record/record.h"

struct NpPriTable {
    const NpRow *pstKey;  // the key number: one word, tested first
    const NpRow *pstRow;
    uint16_t usMask;  // byte of the mask in the row's image
    uint16_t usAd;    // and of the AD
    uint8_t ucLcamTable;
    NpCapSlot enRows;       // capability word with the number of keys and rows
    uint16_t usPri;         // of the priority in the record
    uint16_t usKept;        // of the word that the CAM has not, kept in *ppulKept; see there
    const char *pszPri;     // a priority that is too great: format of the message; null: the row's
                            // own check tells
    bool bPriFirst;         // the priority is tested before the record
    const char *pszOther;   // the key has a rule of another priority: format of a message with the
                            // new and the old one, or null
    const char *pszNoRule;  // a read finds no rule: format of the key number, or null
    const char *pszNoMemory;
    uint32_t ulPriLimit;   // most priorities
    const char *pszLimit;  // more of them: format of the message

    // Soft tables, by chip.
    NpPriCamKeyInfo **ppstKeyInfo;
    uint32_t **ppulEntryKey;
    NpPriBlockPoint **ppstPriPoint;
    uint32_t *pulUsedNum;
    uint32_t *pulPriMax;    // highest priority in force
    uint32_t **ppulKept;    // a word of each key's record that no row has, or null
    uint32_t ulAssignUsed;  // 1: laying the blocks out sets the count of rules to 0
};

// Makes the soft tables where they are missing, empties them and lays the blocks out. A bad request
// changes nothing. NP_ERR_PARAM, NP_ERR_NULL_PTR, NP_ERR_NO_MEMORY: what was allocated stays.
uint32_t Np_PriTable_Assign(const NpPriTable *pstTable, uint32_t ulChipID,
                            const NpPriBlock *pstPriBlockInfo, NpWhere stWhere = Np_Here());
void Np_PriTable_Free(const NpPriTable *pstTable, uint32_t ulChipID);

// Tells whether the soft tables are there: between the first assignment and the tear-down.
bool Np_PriTable_IsReady(const NpPriTable *pstTable, uint32_t ulChipID);

// Tests key number, record, priority, and whether the key has a rule of another priority, in the
// table's order.
uint32_t Np_PriTable_Check(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                           const void *pvRecord, NpWhere stWhere = Np_Here());
// NP_ERR_NULL_PTR also where the soft tables are missing; NP_ERR_PRIORITY; the codes of the CAM.
uint32_t Np_PriTable_Set(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                         const void *pvRecord, NpWhere stWhere = Np_Here());
// NP_ERR_NOT_EXIST for a key without a rule.
uint32_t Np_PriTable_Get(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                         void *pvRecord, NpWhere stWhere = Np_Here());
// A key without a rule is a success.
uint32_t Np_PriTable_Del(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                         NpWhere stWhere = Np_Here());
// Whether the rule takes part in matching, 1, or stays without matching, 0.
uint32_t Np_PriTable_StateSet(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                              uint32_t ulState, NpWhere stWhere = Np_Here());
uint32_t Np_PriTable_StateGet(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                              uint32_t *pulState, NpWhere stWhere = Np_Here());
// The CAM's offset of a key's rule, NP_PRICAM_NONE without one.
uint32_t Np_PriTable_Entry(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID);

// The functions of a table, by name.
#define NP_PRI_SET(Name, Record, stTable)                                     \
    uint32_t Name(uint32_t ulChipID, uint32_t ulKeyID, const Record *pstData) \
    {                                                                         \
        return Np_PriTable_Set(&(stTable), ulChipID, ulKeyID, pstData);       \
    }
#define NP_PRI_GET(Name, Record, stTable)                               \
    uint32_t Name(uint32_t ulChipID, uint32_t ulKeyID, Record *pstData) \
    {                                                                   \
        return Np_PriTable_Get(&(stTable), ulChipID, ulKeyID, pstData); \
    }
#define NP_PRI_DEL(Name, stTable)                              \
    uint32_t Name(uint32_t ulChipID, uint32_t ulKeyID)         \
    {                                                          \
        return Np_PriTable_Del(&(stTable), ulChipID, ulKeyID); \
    }
#define NP_PRI_STATE_SET(Name, stTable)                                      \
    uint32_t Name(uint32_t ulChipID, uint32_t ulKeyID, uint32_t ulState)     \
    {                                                                        \
        return Np_PriTable_StateSet(&(stTable), ulChipID, ulKeyID, ulState); \
    }
#define NP_PRI_STATE_GET(Name, stTable)                                       \
    uint32_t Name(uint32_t ulChipID, uint32_t ulKeyID, uint32_t *pulState)    \
    {                                                                         \
        return Np_PriTable_StateGet(&(stTable), ulChipID, ulKeyID, pulState); \
    }

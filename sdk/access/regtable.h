// Register tables: flat arrays of rows at fixed chip addresses, named by identifier and index.
#pragma once

#include "ldsdk/types.h"

#include <cstdint>

// How a row's bytes lie in chip memory.
enum NpAccessWidth : uint32_t {
    NP_ACCESS_BYTE = 0,   // one byte of the row in each 32-bit register
    NP_ACCESS_HALF = 1,   // one 16-bit unit of the row in each 32-bit register
    NP_ACCESS_PLAIN = 2,  // the row lies in memory as it is
};

struct NpRegTableDesc {
    uint16_t usTableID;      // position in the table of descriptors
    uint16_t usRecordNum;    // rows, or rows of a group
    uint32_t ulBaseAddr;     // chip address of row 0
    uint32_t ulRecordWidth;  // bytes
    uint32_t ulGroupNum;
    uint32_t ulAccessWidth;  // NpAccessWidth
    uint32_t ulGrouped;      // 1: rows lie in groups
    uint32_t ulGroupIndex;   // row of the group table
    uint32_t ulSepWidth;     // bytes between two rows
    uint32_t ulRbaRw;        // 1: reached with search memory commands
};
static_assert(sizeof(NpRegTableDesc) == 36);

// Of a grouped table's groups only the first offset is known.
struct NpRegGroupDesc {
    uint32_t ulReserved;
    uint32_t ulFirstOffset;  // index of the table's first word in pulRegGroupOffset
};

inline constexpr uint32_t NP_REG_TABLE_NUM = 147;
inline constexpr uint32_t NP_REG_SCRATCH_SIZE = 400;

extern const NpRegTableDesc g_astNpRegTableDesc_TarnB[NP_REG_TABLE_NUM];

extern "C" {

// Chip address of row ulIndex. NP_ERR_NULL_PTR; NP_ERR_CHIP_ID also for an unregistered chip;
// NP_ERR_ADDRESS for an index past the rows or an unknown access kind. ulTableID is not checked.
uint32_t Np_RegTableRealAddrGet(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulIndex,
                                uint32_t *pulAddr);
// Move one row; pData holds its bytes in buffer form. Rows that share a 32-bit word of memory are
// independent of each other. Codes as above, or the search memory's.
uint32_t Np_RegTableWrite(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulIndex,
                          const void *pData);
uint32_t Np_RegTableRead(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulIndex, void *pData);
// Writes the row as plain 32-bit words whatever its access kind.
uint32_t Np_RegTableSpecialWrite(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulIndex,
                                 const void *pData);

// Descriptor fields of a table; in their place the failure of an unknown chip.
uint32_t Np_RegTableRecordNumberGet(uint32_t ulChipID, uint32_t ulTableID);
uint32_t Np_RegTableRecordWidthGet(uint32_t ulChipID, uint32_t ulTableID);
uint32_t Np_RegTableRecordGroupNumberGet(uint32_t ulChipID, uint32_t ulTableID);
uint32_t Np_RegTableRecordAccessWidthGet(uint32_t ulChipID, uint32_t ulTableID);
uint32_t Np_RegTableRecordSepWidthGet(uint32_t ulChipID, uint32_t ulTableID);
uint32_t Np_RegTableRecordRbaRwGet(uint32_t ulChipID, uint32_t ulTableID);

// Debug forms: a first argument below the number of tables is an identifier, else an address.
uint32_t Np_RegTable32WriteEx(uint32_t ulChipID, uint32_t ulTableOrAddr, uint32_t ulIndex,
                              uint32_t ulValue);
uint32_t Np_RegTable32ReadEx(uint32_t ulChipID, uint32_t ulTableOrAddr, uint32_t ulIndex,
                             uint32_t *pulValue);
// Reads row ulCount, or makes ulCount reads of an address, into a scratch buffer.
uint32_t Np_RegTableReadEx(uint32_t ulChipID, uint32_t ulTableOrAddr, uint32_t ulCount);

}  // extern "C"

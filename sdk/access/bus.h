// The bus: every access to a chip address ends here.
#pragma once

#include "ldsdk/types.h"

#include <cstdint>

// A window of chip addresses and where it is mapped.
struct NpIoMap {
    uint32_t ulFirst;
    uint32_t ulLast;   // inclusive
    uintptr_t ulVirt;  // 0 until bring-up has mapped it
};

// A row of the memory model: a stretch of chip addresses kept in a buffer.
struct NpTestRegMem {
    char szName[32];
    uint32_t ulFirst;
    uint32_t ulLast;
    uint8_t *pucBuffer;
};

inline constexpr uint32_t NP_IO_MAP_NUM = 6;
inline constexpr uint32_t NP_TEST_REG_MEM_NUM = 4;  // with the row of zeros at the end
inline constexpr uint32_t NP_BUS_POLL_MAX = 4096;   // status reads before a slave counts as stuck
inline constexpr uint32_t NP_LINE_SIZE = 16;        // bytes of a memory line

extern "C" {

extern NpIoMap g_stIoMapTbl[NP_IO_MAP_NUM];
extern uint32_t g_aulNpLocalBusShift[NP_CHIP_NUM];
extern uintptr_t g_ulTarnSocNpTestAddress;
extern NpTestRegMem g_stNpTestRegMem[NP_TEST_REG_MEM_NUM];

// Maps and clears the windows of g_stIoMapTbl. NP_ERR_INIT when one cannot be mapped.
uint32_t Np_Tarn_Phy_Addr_Map(void);

// 0 on the master chip, NP_ERR_FAIL on a slave, or why the chip is not known.
uint32_t Np_MasterChipGet(uint32_t ulChipID);
// One 32-bit access. An address that nothing maps is not accessed and the result is still 0; a
// slave answers what its hook or the indirect bus says.
uint32_t Np_Write(uint32_t ulChipID, uint32_t ulAddr, const uint32_t *pulValue);
uint32_t Np_Read(uint32_t ulChipID, uint32_t ulAddr, uint32_t *pulValue);

uint32_t NP_SlaveAddrWrite(uint32_t ulChipID, uint32_t ulAddr, const uint32_t *pulValue);
uint32_t NP_SlaveAddrRead(uint32_t ulChipID, uint32_t ulAddr, uint32_t *pulValue);
// The indirect bus of 16-bit registers at pusBase. NP_ERR_FAIL when it stays busy.
uint32_t Np_InDirectWrite(uint32_t ulChipID, uint16_t *pusBase, uint32_t ulAddr,
                          const uint32_t *pulValue);
uint32_t Np_InDirectRead(uint32_t ulChipID, uint16_t *pusBase, uint32_t ulAddr, uint32_t *pulValue);
uint32_t Np_QuerySlaveChipStatus(uint16_t *pusStatus);
// Address shift of a chip's indirect bus. NP_ERR_CHIP_ID above 3, NP_ERR_NULL_PTR.
uint32_t Np_GLB_LocalBusShiftGet(uint32_t ulChipID, uint32_t *pulShift);
uint32_t Np_GLB_LocalBusShiftSet(uint32_t ulChipID, uint32_t ulShift);

// The master's map without a chip identifier. NP_ERR_FAIL when no row holds the address.
uint32_t Np_DirectAddrGet(uint32_t ulAddr, uintptr_t *pulVirt);
uint32_t Np_DirectRead(uint32_t ulAddr, uint32_t *pulValue);
uint32_t Np_DirectWrite(uint32_t ulAddr, const uint32_t *pulValue);
uint32_t Np_Bit16Read(const uint16_t *pusAddr, uint16_t *pusValue);
uint32_t Np_Bit16Write(uint16_t *pusAddr, const uint16_t *pusValue);

// Memories that change a 16-byte line at a time. Always 0. The read makes the chip latch the line
// and then fetches the word: hold Np_IntLock over a run of reads of one line.
uint32_t Np_SMEM_ChipRead32(uint32_t ulChipID, uint32_t ulAddr, uint32_t *pulValue);
// Rewrites one word of a line, the line's base word last, which completes it.
uint32_t Np_SMEM_ChipWrite32(uint32_t ulChipID, uint32_t ulAddr, const uint32_t *pulValue);

// Bring up a slave's memory over the indirect bus, or over Np_Write.
uint32_t Np_FpgaDDRInit(uint32_t ulChipID, uint16_t *pusBase);
uint32_t Np_DDRInit(uint32_t ulChipID);

// A memory model in host memory, for running without a chip. 1 when memory is short, else 0.
uint32_t Np_WinRegInit(void);
void Np_WinRegUnInit(void);
void Np_WinRegWrite(uint32_t ulChipID, uint32_t ulAddr, uint32_t ulValue);
void Np_WinRegRead(uint32_t ulChipID, uint32_t ulAddr, uint32_t *pulValue);
void Np_TarnSocDebugRegWrite(uint32_t ulChipID, uint32_t ulAddr, uint32_t ulValue);
void Np_TarnSocDebugRegRead(uint32_t ulChipID, uint32_t ulAddr, uint32_t *pulValue);

}  // extern "C"

#include "sdk/access/bus.h"

#include "platform/os.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"

constinit NpIoMap g_stIoMapTbl[NP_IO_MAP_NUM] = {
    {0x60200000, 0x6027ffff, 0}, {0x64000000, 0x64057fff, 0}, {0x7a100000, 0x7a101a50, 0},
    {0x7a110000, 0x7a111a50, 0}, {0x7a120000, 0x7a121a50, 0}, {0x7a130000, 0x7a131a50, 0},
};

constinit uint32_t g_aulNpLocalBusShift[NP_CHIP_NUM] = {};

namespace {

// Rows of the platform beside the map; null until bring-up.
constinit const OsIoRow *g_pstIoExtra = nullptr;

inline constexpr uint32_t NP_BUS_BLOCK = 0x20000;  // offset of the bus block, before the shift
inline constexpr uint16_t NP_BUS_BUSY = 1;         // status bit 0
inline constexpr uint16_t NP_BUS_CMD_IDLE = 0;
inline constexpr uint16_t NP_BUS_CMD_READ = 1;
inline constexpr uint16_t NP_BUS_CMD_WRITE = 2;

// Registers of the indirect bus: their place counted in registers.
enum NpBusReg : uint32_t {
    NP_BUS_ADDR_HIGH = 2,
    NP_BUS_ADDR_LOW = 3,
    NP_BUS_WDATA_HIGH = 4,
    NP_BUS_WDATA_LOW = 5,
    NP_BUS_RDATA_HIGH = 6,
    NP_BUS_RDATA_LOW = 7,
    NP_BUS_COMMAND = 8,
    NP_BUS_STATUS = 9,
};

// Virtual address of ulAddr in a row that holds it; 0 while the row is not mapped, so that a debug
// command before bring-up reaches nothing instead of a wild address.
template <typename Row>
uintptr_t Np_RowVirt(const Row &stRow, uint32_t ulAddr)
{
    return stRow.ulVirt == 0 ? 0 : stRow.ulVirt + (ulAddr - stRow.ulFirst);
}

// Tells whether a row holds the words at ulAddr and at ulSpan bytes behind it.
template <typename Row>
bool Np_RowHolds(const Row &stRow, uint32_t ulAddr, uint32_t ulSpan)
{
    return ulAddr >= stRow.ulFirst && ulAddr <= stRow.ulLast && ulSpan <= stRow.ulLast - ulAddr;
}

// Virtual address of a chip address on the master, 0 when no row maps it and what spans from it.
uintptr_t Np_MapFind(uint32_t ulAddr, uint32_t ulSpan = 0)
{
    for (const NpIoMap &stRow : g_stIoMapTbl) {
        if (Np_RowHolds(stRow, ulAddr, ulSpan)) {
            return Np_RowVirt(stRow, ulAddr);
        }
    }
    for (const OsIoRow *pstRow = g_pstIoExtra; pstRow != nullptr && pstRow->ulLast != 0; pstRow++) {
        if (Np_RowHolds(*pstRow, ulAddr, ulSpan)) {
            return Np_RowVirt(*pstRow, ulAddr);
        }
    }
    return 0;
}

// Virtual address of a line, so that its words need no look-up each. 0 on a slave, and when no row
// of the map holds the whole line.
uintptr_t Np_LineFind(uint32_t ulChipID, uint32_t ulLine)
{
    return g_stNpChipAddr[ulChipID].ulRegBaseAddr == 0 ? Np_MapFind(ulLine, NP_LINE_SIZE - 4) : 0;
}

// Reads a line upwards, and writes it downwards with one word changed.
template <typename Read, typename Write>
void Np_LineChange(uint32_t ulAddr, uint32_t ulValue, Read fnRead, Write fnWrite)
{
    uint32_t aulLine[NP_LINE_SIZE / 4] = {};
    const uintptr_t ulKey = Np_IntLock();
    for (uint32_t i = 0; i < NP_LINE_SIZE / 4; i++) {
        fnRead(4 * i, &aulLine[i]);
    }
    aulLine[(ulAddr / 4) & 3] = ulValue;
    for (uint32_t i = NP_LINE_SIZE / 4; i-- > 0;) {
        fnWrite(4 * i, &aulLine[i]);
    }
    Np_IntUnlock(ulKey);
}

uint16_t *Np_BusReg(uint32_t ulChipID, uint16_t *pusBase, NpBusReg enReg)
{
    // 16-bit registers stand 2 bytes apart, or 4 with a shift.
    return pusBase + (g_aulNpLocalBusShift[ulChipID] == 0 ? enReg : 2 * enReg);
}

void Np_BusPut(uint32_t ulChipID, uint16_t *pusBase, NpBusReg enReg, uint32_t ulValue)
{
    const uint16_t usValue = static_cast<uint16_t>(ulValue);
    Np_Bit16Write(Np_BusReg(ulChipID, pusBase, enReg), &usValue);
}

uint32_t Np_BusTake(uint32_t ulChipID, uint16_t *pusBase, NpBusReg enReg)
{
    uint16_t usValue = 0;
    Np_Bit16Read(Np_BusReg(ulChipID, pusBase, enReg), &usValue);
    return usValue;
}

uint16_t *Np_SlaveBase(uint32_t ulChipID)
{
    const uint32_t ulShift = g_aulNpLocalBusShift[ulChipID];
    const uint32_t ulBlock = ulShift < 32 ? NP_BUS_BLOCK << ulShift : 0;
    return reinterpret_cast<uint16_t *>(g_stNpChipAddr[ulChipID].ulRegBaseAddr | ulBlock);
}

struct NpAddrValue {
    uint32_t ulAddr;
    uint32_t ulValue;
};

template <typename Write, uint32_t Count>
void Np_WriteList(const NpAddrValue (&astList)[Count], Write fnWrite)
{
    for (const NpAddrValue &stItem : astList) {
        fnWrite(stItem.ulAddr, &stItem.ulValue);
    }
}

// Reads ulAddr until (value & ulMask) == ulWant. False when it never does.
bool Np_FpgaWait(uint32_t ulChipID, uint16_t *pusBase, uint32_t ulAddr, uint32_t ulMask,
                 uint32_t ulWant)
{
    for (uint32_t i = 0; i < NP_BUS_POLL_MAX; i++) {
        uint32_t ulValue = 0;
        Np_InDirectRead(ulChipID, pusBase, ulAddr, &ulValue);
        if ((ulValue & ulMask) == ulWant) {
            return true;
        }
        Np_MsDelay(100);
    }
    return false;
}

}  // namespace

uint32_t Np_Tarn_Phy_Addr_Map(void)
{
    for (NpIoMap &stRow : g_stIoMapTbl) {
        const uint32_t ulSize = stRow.ulLast + 1 - stRow.ulFirst;
        const uintptr_t ulVirt = Os_IoMap(stRow.ulFirst, ulSize);
        if (ulVirt == 0) {
            NP_TRACE(NP_M_INIT, NP_PRINT_ERROR, "NP addr map fail!\r\n");
            return NP_ERR_INIT;
        }
        stRow.ulVirt = ulVirt;
        Os_IoClear(ulVirt, ulSize);
    }
    // The platform's own rows are not cleared: the running engines own them.
    g_pstIoExtra = Os_IoExtraMap();
    if (g_pstIoExtra == nullptr) {
        NP_TRACE(NP_M_INIT, NP_PRINT_ERROR, "NP addr map fail!\r\n");
        return NP_ERR_INIT;
    }
    return NP_OK;
}

uint32_t Np_MasterChipGet(uint32_t ulChipID)
{
    const NpChipAddr *pstChipAddr = nullptr;
    const uint32_t ulReturn = Np_Chip_AddrFind(ulChipID, &pstChipAddr);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    return pstChipAddr->ulRegBaseAddr == 0 ? NP_OK : NP_ERR_FAIL;
}

uint32_t Np_Write(uint32_t ulChipID, uint32_t ulAddr, const uint32_t *pulValue)
{
    return g_stNpChipAddr[ulChipID].ulRegBaseAddr == 0
               ? Np_DirectWrite(ulAddr, pulValue)
               : NP_SlaveAddrWrite(ulChipID, ulAddr, pulValue);
}

uint32_t Np_Read(uint32_t ulChipID, uint32_t ulAddr, uint32_t *pulValue)
{
    return g_stNpChipAddr[ulChipID].ulRegBaseAddr == 0
               ? Np_DirectRead(ulAddr, pulValue)
               : NP_SlaveAddrRead(ulChipID, ulAddr, pulValue);
}

uint32_t NP_SlaveAddrWrite(uint32_t ulChipID, uint32_t ulAddr, const uint32_t *pulValue)
{
    if (g_pFnNpSlaveAddrWrite[ulChipID] != nullptr) {
        return g_pFnNpSlaveAddrWrite[ulChipID](ulAddr, *pulValue);
    }
    return Np_InDirectWrite(ulChipID, Np_SlaveBase(ulChipID), ulAddr, pulValue);
}

uint32_t NP_SlaveAddrRead(uint32_t ulChipID, uint32_t ulAddr, uint32_t *pulValue)
{
    if (g_pFnNpSlaveAddrRead[ulChipID] != nullptr) {
        return g_pFnNpSlaveAddrRead[ulChipID](ulAddr, pulValue);
    }
    return Np_InDirectRead(ulChipID, Np_SlaveBase(ulChipID), ulAddr, pulValue);
}

uint32_t Np_InDirectWrite(uint32_t ulChipID, uint16_t *pusBase, uint32_t ulAddr,
                          const uint32_t *pulValue)
{
    const uint32_t ulValue = *pulValue;
    const uintptr_t ulKey = Np_IntLock();
    Np_BusPut(ulChipID, pusBase, NP_BUS_ADDR_HIGH, ulAddr >> 16);
    Np_BusPut(ulChipID, pusBase, NP_BUS_ADDR_LOW, ulAddr);
    Np_BusPut(ulChipID, pusBase, NP_BUS_WDATA_HIGH, ulValue >> 16);
    Np_BusPut(ulChipID, pusBase, NP_BUS_WDATA_LOW, ulValue);
    Np_BusPut(ulChipID, pusBase, NP_BUS_COMMAND, NP_BUS_CMD_IDLE);
    Np_BusPut(ulChipID, pusBase, NP_BUS_COMMAND, NP_BUS_CMD_WRITE);
    Np_IntUnlock(ulKey);
    return Np_QuerySlaveChipStatus(Np_BusReg(ulChipID, pusBase, NP_BUS_STATUS));
}

uint32_t Np_InDirectRead(uint32_t ulChipID, uint16_t *pusBase, uint32_t ulAddr, uint32_t *pulValue)
{
    // Locked over the poll too, so that nobody else uses the bus between command and data.
    const uintptr_t ulKey = Np_IntLock();
    Np_BusPut(ulChipID, pusBase, NP_BUS_ADDR_HIGH, ulAddr >> 16);
    Np_BusPut(ulChipID, pusBase, NP_BUS_ADDR_LOW, ulAddr);
    Np_BusPut(ulChipID, pusBase, NP_BUS_COMMAND, NP_BUS_CMD_IDLE);
    Np_BusPut(ulChipID, pusBase, NP_BUS_COMMAND, NP_BUS_CMD_READ);
    const uint32_t ulReturn = Np_QuerySlaveChipStatus(Np_BusReg(ulChipID, pusBase, NP_BUS_STATUS));
    if (ulReturn == NP_OK) {
        const uint32_t ulHigh = Np_BusTake(ulChipID, pusBase, NP_BUS_RDATA_HIGH);
        *pulValue = ulHigh << 16 | Np_BusTake(ulChipID, pusBase, NP_BUS_RDATA_LOW);
    }
    Np_IntUnlock(ulKey);
    return ulReturn;
}

uint32_t Np_QuerySlaveChipStatus(uint16_t *pusStatus)
{
    for (uint32_t i = 0; i < NP_BUS_POLL_MAX; i++) {
        uint16_t usStatus = 0;
        Np_Bit16Read(pusStatus, &usStatus);
        if ((usStatus & NP_BUS_BUSY) == 0) {
            return NP_OK;
        }
    }
    return NP_ERR_FAIL;
}

uint32_t Np_GLB_LocalBusShiftGet(uint32_t ulChipID, uint32_t *pulShift)
{
    if (ulChipID >= NP_CHIP_NUM) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "ChipID Error(%d)!\r\n", static_cast<int>(ulChipID));
        return NP_ERR_CHIP_ID;
    }
    if (pulShift == nullptr) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, " pulShift is null ptr");
        return NP_ERR_NULL_PTR;
    }
    *pulShift = g_aulNpLocalBusShift[ulChipID];
    return NP_OK;
}

uint32_t Np_GLB_LocalBusShiftSet(uint32_t ulChipID, uint32_t ulShift)
{
    if (ulChipID >= NP_CHIP_NUM) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "ChipID Error(%d)!\r\n", static_cast<int>(ulChipID));
        return NP_ERR_CHIP_ID;
    }
    g_aulNpLocalBusShift[ulChipID] = ulShift;
    return NP_OK;
}

uint32_t Np_DirectAddrGet(uint32_t ulAddr, uintptr_t *pulVirt)
{
    const uintptr_t ulVirt = Np_MapFind(ulAddr);
    if (ulVirt == 0) {
        return NP_ERR_FAIL;
    }
    *pulVirt = ulVirt;
    return NP_OK;
}

uint32_t Np_DirectRead(uint32_t ulAddr, uint32_t *pulValue)
{
    const uintptr_t ulVirt = Np_MapFind(ulAddr);
    if (ulVirt != 0) {
        *pulValue = Os_IoRead32(ulVirt);
    }
    return NP_OK;
}

uint32_t Np_DirectWrite(uint32_t ulAddr, const uint32_t *pulValue)
{
    const uintptr_t ulVirt = Np_MapFind(ulAddr);
    if (ulVirt != 0) {
        Os_IoWrite32(ulVirt, *pulValue);
    }
    return NP_OK;
}

uint32_t Np_Bit16Read(const uint16_t *pusAddr, uint16_t *pusValue)
{
    *pusValue = Os_IoRead16(reinterpret_cast<uintptr_t>(pusAddr));
    return NP_OK;
}

uint32_t Np_Bit16Write(uint16_t *pusAddr, const uint16_t *pusValue)
{
    Os_IoWrite16(reinterpret_cast<uintptr_t>(pusAddr), *pusValue);
    return NP_OK;
}

uint32_t Np_SMEM_ChipRead32(uint32_t ulChipID, uint32_t ulAddr, uint32_t *pulValue)
{
    const uint32_t ulLine = ulAddr & ~(NP_LINE_SIZE - 1);
    const uintptr_t ulVirt = Np_LineFind(ulChipID, ulLine);
    if (ulVirt != 0) {
        *pulValue = Os_IoRead32(ulVirt);
        *pulValue = Os_IoRead32(ulVirt + (ulAddr - ulLine));
        return NP_OK;
    }
    Np_Read(ulChipID, ulLine, pulValue);
    Np_Read(ulChipID, ulAddr, pulValue);
    return NP_OK;
}

uint32_t Np_SMEM_ChipWrite32(uint32_t ulChipID, uint32_t ulAddr, const uint32_t *pulValue)
{
    const uint32_t ulLine = ulAddr & ~(NP_LINE_SIZE - 1);
    const uintptr_t ulVirt = Np_LineFind(ulChipID, ulLine);
    if (ulVirt != 0) {
        Np_LineChange(
            ulAddr, *pulValue,
            [=](uint32_t ulAt, uint32_t *pulWord) { *pulWord = Os_IoRead32(ulVirt + ulAt); },
            [=](uint32_t ulAt, uint32_t *pulWord) { Os_IoWrite32(ulVirt + ulAt, *pulWord); });
        return NP_OK;
    }
    Np_LineChange(
        ulAddr, *pulValue,
        [=](uint32_t ulAt, uint32_t *pulWord) { Np_Read(ulChipID, ulLine + ulAt, pulWord); },
        [=](uint32_t ulAt, uint32_t *pulWord) { Np_Write(ulChipID, ulLine + ulAt, pulWord); });
    return NP_OK;
}

// The waits end after NP_BUS_POLL_MAX reads with NP_ERR_FAIL: a memory that does not come up must
// not hold the processor.
uint32_t Np_FpgaDDRInit(uint32_t ulChipID, uint16_t *pusBase)
{
    static constexpr NpAddrValue astReset[] = {
        {0x1613f028, 0x33308000}, {0x1613f010, 0xf91070b2}, {0x1613f268, 0x6c0}, {0x1613f004, 0}};
    static constexpr NpAddrValue astTiming[] = {
        {0x1613f008, 0x440a53}, {0x1613f00c, 0}, {0x1613f020, 0x22340b09}, {0x1613f024, 0xc8214516},
        {0x1613f02c, 0x202},    {0x1613f050, 0}, {0x1613f03c, 0xff000033}, {0x1613f004, 2}};
    const auto fnWrite = [=](uint32_t ulAddr, const uint32_t *pulValue) {
        Np_InDirectWrite(ulChipID, pusBase, ulAddr, pulValue);
    };

    uint32_t ulValue = 0;
    Np_InDirectRead(ulChipID, pusBase, 0x1614001c, &ulValue);
    ulValue |= 0x40000000;
    fnWrite(0x1614001c, &ulValue);
    Np_WriteList(astReset, fnWrite);
    if (!Np_FpgaWait(ulChipID, pusBase, 0x1613f000, 4, 0)) {
        return NP_ERR_FAIL;
    }
    Np_WriteList(astTiming, fnWrite);
    if (!Np_FpgaWait(ulChipID, pusBase, 0x1613f000, 0xff, 0x48)) {
        return NP_ERR_FAIL;
    }
    ulValue = 0x33308052;
    fnWrite(0x1613f028, &ulValue);
    return Np_InDirectRead(ulChipID, pusBase, 0x1613f04c, &ulValue);
}

uint32_t Np_DDRInit(uint32_t ulChipID)
{
    static constexpr NpAddrValue astList[] = {
        {0x1613f100, 0x878},   {0x1613f108, 0x12003}, {0x1613f10c, 0x11003}, {0x1613f110, 0x12003},
        {0x1613f114, 0x12003}, {0x1613f118, 0x12003}, {0x1613f11c, 0x12003}, {0x1613f120, 0x10200},
        {0x1613f124, 0x10200}, {0x1613f128, 0x12003}, {0x1613f12c, 0x12003}, {0x1613f130, 0x12003},
        {0x1613f134, 0x12003}, {0x1613f138, 0x12000}, {0x1613f13c, 0x12000}, {0x1613f140, 0x12000},
        {0x1613f144, 0x12000}};
    Np_WriteList(astList, [=](uint32_t ulAddr, const uint32_t *pulValue) {
        Np_Write(ulChipID, ulAddr, pulValue);
    });
    return NP_OK;
}

// The driver's functions for search memory as a whole and for the packet feed.

#include "chipmodel/call.h"

using namespace ldsdk::model;

// ---- search memory ------------------------------------------------------------------------------

uint32_t Qd_SMEM_MemInit(uint32_t ulChipID, uint32_t ulSmemID, const uint32_t *pulParam, uint32_t)
{
    const CallNumbers numbers = {
        {ulSmemID, pulParam == nullptr ? 0 : pulParam[2], pulParam == nullptr ? 0 : pulParam[3]}};
    return driver_call(Op::Qd_SMEM_MemInit, ulChipID, numbers, [&](Chip &chip) {
        if (pulParam == nullptr) {
            return kErrNull;
        }
        const uint32_t first = pulParam[2];
        const uint32_t last = pulParam[3];
        if (ulSmemID >= kSmemNum || last < first || last > 0x3ffffff) {
            return kErrParam;
        }
        const uint32_t base = ulSmemID == 0 ? 0x60000000 : 0x68000000;
        const uint32_t bytes = (last - first + 1) * 2;
        const uint32_t offset = Memory::locate(base | first << 1, bytes);
        if (offset == kNoOffset) {
            return kErrAddress;
        }
        chip.memory.clear(offset, bytes);
        chip.hash.cache.engine.drop();
        chip.hash.cache.plain.drop();
        return kOk;
    });
}

uint32_t Qd_SMEM_QueueSet(uint32_t ulChipID, uint32_t ulMem, uint32_t ulQueue, uint32_t ulAddr,
                          uint32_t ulDepth)
{
    const CallNumbers numbers = {{ulMem, ulQueue, ulAddr, ulDepth}};
    return driver_call(Op::Qd_SMEM_QueueSet, ulChipID, numbers, [&](Chip &chip) {
        if (ulQueue >= kQueueNum) {
            return kErrParam;
        }
        chip.smem.queue[ulQueue] = {ulMem, ulAddr, ulDepth, true};
        return kOk;
    });
}

uint32_t Qd_SMEM_DdrBaseAddrSet(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulAddr)
{
    const CallNumbers numbers = {{ulSmemID, ulAddr}};
    return driver_call(Op::Qd_SMEM_DdrBaseAddrSet, ulChipID, numbers, [&](Chip &chip) {
        if (ulSmemID >= kSmemNum) {
            return kErrParam;
        }
        chip.smem.ddr_base[ulSmemID] = ulAddr;
        return kOk;
    });
}

uint32_t Qd_SMEM_EmlTableSet(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulTid,
                             uint32_t ulIndirect, const QdEmlBaseInfo *pstBaseInfo,
                             const QdEmlWidthInfo *pstWidthInfo)
{
    if (pstBaseInfo == nullptr || pstWidthInfo == nullptr) {
        return kErrNull;
    }
    const QdEmlBaseInfo &base = *pstBaseInfo;
    const QdEmlWidthInfo &width = *pstWidthInfo;
    const CallNumbers numbers = {
        {ulSmemID, ulTid, base.ulBaseAddr, base.ulBucketWidth, width.ulTblWidth}};
    return driver_call(Op::Qd_SMEM_EmlTableSet, ulChipID, numbers, [&](Chip &chip) {
        if (ulIndirect != 0) {
            return kErrNotModelled;
        }
        if (width.aulRsvd[0] != 0 || width.aulRsvd[1] != 0) {
            return kErrParam;
        }
        return hash_table_set(chip, ulSmemID, ulTid, base.ulBaseAddr, base.ulBucketWidth,
                              width.ulTblWidth);
    });
}

uint32_t Qd_SMEM_EmlExcludeEnableSet(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulTid,
                                     uint32_t ulEnable)
{
    const CallNumbers numbers = {{ulSmemID, ulTid, ulEnable}};
    return driver_call(Op::Qd_SMEM_EmlExcludeEnableSet, ulChipID, numbers, [&](Chip &chip) {
        if (ulSmemID >= kSmemNum || ulTid >= kHashTableNum || ulEnable > 1) {
            return kErrParam;
        }
        chip.hash.table[ulSmemID][ulTid].exclude = ulEnable != 0;
        return kOk;
    });
}

// ---- packet feed --------------------------------------------------------------------------------

uint32_t Qd_PBA_AtomModeSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulMode)
{
    const CallNumbers numbers = {{ulAtomID, ulMode}};
    return driver_call(Op::Qd_PBA_AtomModeSet, ulChipID, numbers, [&](Chip &chip) {
        if (ulAtomID >= kAtomNum || ulMode > QD_PBA_MODE_PULL) {
            return kErrParam;
        }
        chip.atom_mode[ulAtomID] = ulMode;
        return kOk;
    });
}

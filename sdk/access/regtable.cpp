#include "sdk/access/regtable.h"

#include "sdk/access/bus.h"
#include "sdk/access/smem.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"

namespace {

// A row of a register table, found.
struct NpRegRow {
    const NpRegTableDesc *pstDesc;
    uint32_t ulAddr;
};

// Width codes of a search memory command, by row width; 4 when no command moves such a row.
uint32_t Np_SmemLengthCode(uint32_t ulWidth)
{
    switch (ulWidth) {
        case 2:
            return NP_SMEM_LEN_16;
        case 4:
            return NP_SMEM_LEN_32;
        case 8:
            return NP_SMEM_LEN_64;
        case 16:
            return NP_SMEM_LEN_128;
        default:
            return NP_SMEM_LEN_NUM;
    }
}

bool Np_RowGoesBySmem(const NpRegTableDesc *pstDesc)
{
    return pstDesc->ulRbaRw == 1 && Np_SmemLengthCode(pstDesc->ulRecordWidth) != NP_SMEM_LEN_NUM;
}

uint32_t Np_SmemUnit(uint32_t ulAddr)
{
    return (ulAddr >> 27) & 1;
}

uint32_t Np_SmemOffset(uint32_t ulAddr)
{
    return (ulAddr >> 1) & NP_SMEM_ADDR_MASK;
}

// Registers that a row of kinds 0 and 1 takes.
uint32_t Np_UnitCount(const NpRegTableDesc *pstDesc)
{
    return pstDesc->ulAccessWidth == NP_ACCESS_BYTE
               ? pstDesc->ulRecordWidth
               : pstDesc->ulRecordWidth / 2 + pstDesc->ulRecordWidth % 2;
}

uint32_t Np_RowFind(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulIndex, const void *pData,
                    NpRegRow *pstRow)
{
    if (pData == nullptr) {
        return NP_ERR_NULL_PTR;
    }
    const uint32_t ulReturn = Np_RegTableRealAddrGet(ulChipID, ulTableID, ulIndex, &pstRow->ulAddr);
    if (ulReturn == NP_OK) {
        pstRow->pstDesc = &g_stNpChipAddr[ulChipID].pstRegTable[ulTableID];
    }
    return ulReturn;
}

// What of a row lies in one 32-bit word of memory: rows of 1 and 2 bytes share theirs.
struct NpRowPiece {
    uint32_t ulAddr;  // of the word
    uint32_t ulByte;  // of the word, where the piece begins
    uint32_t ulSize;  // bytes
};

NpRowPiece Np_RowPiece(const NpRegRow &stRow, uint32_t ulDone)
{
    const uint32_t ulAddr = stRow.ulAddr + ulDone;
    const uint32_t ulByte = ulAddr % 4;
    const uint32_t ulLeft = stRow.pstDesc->ulRecordWidth - ulDone;
    return {ulAddr - ulByte, ulByte, ulLeft < 4 - ulByte ? ulLeft : 4 - ulByte};
}

// What is left of a row behind its whole words, ulDone bytes. Of a word that it does not fill, the
// other rows keep their bytes.
[[gnu::noinline]] void Np_PiecesWrite(uint32_t ulChipID, const NpRegRow &stRow, const void *pData,
                                      uint32_t ulDone,
                                      uint32_t (*pfnRead)(uint32_t, uint32_t, uint32_t *),
                                      uint32_t (*pfnWrite)(uint32_t, uint32_t, const uint32_t *))
{
    while (ulDone < stRow.pstDesc->ulRecordWidth) {
        const NpRowPiece stPiece = Np_RowPiece(stRow, ulDone);
        uint32_t ulWord = 0;
        const uintptr_t ulKey = Np_IntLock();
        if (stPiece.ulSize < sizeof(ulWord)) {
            pfnRead(ulChipID, stPiece.ulAddr, &ulWord);
        }
        memcpy(reinterpret_cast<uint8_t *>(&ulWord) + stPiece.ulByte,
               static_cast<const uint8_t *>(pData) + ulDone, stPiece.ulSize);
        pfnWrite(ulChipID, stPiece.ulAddr, &ulWord);
        Np_IntUnlock(ulKey);
        ulDone += stPiece.ulSize;
    }
}

[[gnu::noinline]] void Np_PiecesRead(uint32_t ulChipID, const NpRegRow &stRow, uint8_t *pucData,
                                     uint32_t ulDone)
{
    while (ulDone < stRow.pstDesc->ulRecordWidth) {
        const NpRowPiece stPiece = Np_RowPiece(stRow, ulDone);
        uint32_t ulWord = 0;
        uint8_t *pucPiece = reinterpret_cast<uint8_t *>(&ulWord) + stPiece.ulByte;
        memcpy(pucPiece, pucData + ulDone, stPiece.ulSize);  // stays if nothing is read
        Np_SMEM_ChipRead32(ulChipID, stPiece.ulAddr, &ulWord);
        memcpy(pucData + ulDone, pucPiece, stPiece.ulSize);
        ulDone += stPiece.ulSize;
    }
}

// Bytes of a row that whole words of memory hold.
uint32_t Np_WholeBytes(const NpRegRow &stRow)
{
    return stRow.ulAddr % 4 == 0 ? stRow.pstDesc->ulRecordWidth / 4 * 4 : 0;
}

// Writes a row word by word.
inline void Np_WordsWrite(uint32_t ulChipID, const NpRegRow &stRow, const void *pData,
                          uint32_t (*pfnRead)(uint32_t, uint32_t, uint32_t *),
                          uint32_t (*pfnWrite)(uint32_t, uint32_t, const uint32_t *))
{
    const uint32_t ulWhole = Np_WholeBytes(stRow);
    for (uint32_t i = 0; i < ulWhole; i += 4) {
        uint32_t ulWord;
        __builtin_memcpy(&ulWord, static_cast<const uint8_t *>(pData) + i, 4);
        pfnWrite(ulChipID, stRow.ulAddr + i, &ulWord);
    }
    if (ulWhole != stRow.pstDesc->ulRecordWidth) [[unlikely]] {
        Np_PiecesWrite(ulChipID, stRow, pData, ulWhole, pfnRead, pfnWrite);
    }
}

// A descriptor field, or why the chip is not known.
template <typename Field>
uint32_t Np_DescField(uint32_t ulChipID, uint32_t ulTableID, Field NpRegTableDesc::*pField)
{
    const NpChipAddr *pstChipAddr = nullptr;
    const uint32_t ulReturn = Np_Chip_AddrFind(ulChipID, &pstChipAddr);
    return ulReturn != NP_OK ? ulReturn : pstChipAddr->pstRegTable[ulTableID].*pField;
}

}  // namespace

uint32_t Np_RegTableRealAddrGet(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulIndex,
                                uint32_t *pulAddr)
{
    if (pulAddr == nullptr) {
        return NP_ERR_NULL_PTR;
    }
    const NpChipAddr *pstChipAddr = nullptr;
    const uint32_t ulReturn = Np_Chip_AddrFind(ulChipID, &pstChipAddr);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pstChipAddr->ulRegistered != 1) {
        return NP_ERR_CHIP_ID;
    }
    const NpRegTableDesc *pstDesc = &pstChipAddr->pstRegTable[ulTableID];
    uint32_t ulBase = pstDesc->ulBaseAddr;
    uint32_t ulRecord = ulIndex;
    if (pstDesc->ulGrouped == 1 && pstDesc->usRecordNum != 0) {
        const NpRegGroupDesc *pstGroup = &pstChipAddr->pstRegGroupTable[pstDesc->ulGroupIndex];
        ulBase += pstChipAddr
                      ->pulRegGroupOffset[ulIndex / pstDesc->usRecordNum + pstGroup->ulFirstOffset];
        ulRecord = ulIndex % pstDesc->usRecordNum;
    }
    if (ulRecord >= pstDesc->usRecordNum) {
        return NP_ERR_ADDRESS;
    }
    switch (pstDesc->ulAccessWidth) {
        case NP_ACCESS_BYTE:
            *pulAddr = ulBase + ulRecord * pstDesc->ulRecordWidth * 4;
            return NP_OK;
        case NP_ACCESS_HALF:
            *pulAddr = ulBase + ulRecord * pstDesc->ulRecordWidth * 2;
            return NP_OK;
        case NP_ACCESS_PLAIN:
            *pulAddr = ulBase + ulRecord * (pstDesc->ulRecordWidth + pstDesc->ulSepWidth);
            return NP_OK;
        default:
            return NP_ERR_ADDRESS;
    }
}

uint32_t Np_RegTableWrite(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulIndex,
                          const void *pData)
{
    NpRegRow stRow;
    const uint32_t ulReturn = Np_RowFind(ulChipID, ulTableID, ulIndex, pData, &stRow);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint8_t *pucData = static_cast<const uint8_t *>(pData);
    const NpRegTableDesc *pstDesc = stRow.pstDesc;
    if (pstDesc->ulAccessWidth == NP_ACCESS_PLAIN) {
        if (Np_RowGoesBySmem(pstDesc)) {
            return Np_Tarn_SmemWrite(ulChipID, Np_SmemUnit(stRow.ulAddr),
                                     Np_SmemLengthCode(pstDesc->ulRecordWidth),
                                     Np_SmemOffset(stRow.ulAddr), pucData);
        }
        Np_WordsWrite(ulChipID, stRow, pucData, Np_SMEM_ChipRead32, Np_SMEM_ChipWrite32);
        return NP_OK;
    }
    for (uint32_t i = 0; i < Np_UnitCount(pstDesc); i++) {
        uint32_t ulWord = 0;
        __builtin_memcpy(&ulWord, pucData + i * (pstDesc->ulAccessWidth + 1),
                         pstDesc->ulAccessWidth + 1);
        Np_Write(ulChipID, stRow.ulAddr + 4 * i, &ulWord);
    }
    return NP_OK;
}

uint32_t Np_RegTableRead(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulIndex, void *pData)
{
    NpRegRow stRow;
    const uint32_t ulReturn = Np_RowFind(ulChipID, ulTableID, ulIndex, pData, &stRow);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    uint8_t *pucData = static_cast<uint8_t *>(pData);
    const NpRegTableDesc *pstDesc = stRow.pstDesc;
    if (pstDesc->ulAccessWidth == NP_ACCESS_PLAIN) {
        if (Np_RowGoesBySmem(pstDesc)) {
            // A 16-bit value comes back as a word: only its low half belongs to the row.
            uint32_t aulWord[4] = {};
            const uint32_t ulStatus = Np_Tarn_SmemRead(ulChipID, Np_SmemUnit(stRow.ulAddr),
                                                       Np_SmemLengthCode(pstDesc->ulRecordWidth),
                                                       Np_SmemOffset(stRow.ulAddr), aulWord);
            if (ulStatus == NP_OK) {
                memcpy(pucData, aulWord, pstDesc->ulRecordWidth);
            }
            return ulStatus;
        }
        // One lock over the row: its words come from one state of the line.
        const uintptr_t ulKey = Np_IntLock();
        const uint32_t ulWhole = Np_WholeBytes(stRow);
        for (uint32_t i = 0; i < ulWhole; i += 4) {
            uint32_t ulWord;
            __builtin_memcpy(&ulWord, pucData + i, 4);  // stays as it was if nothing is read
            Np_SMEM_ChipRead32(ulChipID, stRow.ulAddr + i, &ulWord);
            __builtin_memcpy(pucData + i, &ulWord, 4);
        }
        if (ulWhole != pstDesc->ulRecordWidth) [[unlikely]] {
            Np_PiecesRead(ulChipID, stRow, pucData, ulWhole);
        }
        Np_IntUnlock(ulKey);
        return NP_OK;
    }
    for (uint32_t i = 0; i < Np_UnitCount(pstDesc); i++) {
        uint32_t ulWord = 0;
        Np_Read(ulChipID, stRow.ulAddr + 4 * i, &ulWord);
        __builtin_memcpy(pucData + i * (pstDesc->ulAccessWidth + 1), &ulWord,
                         pstDesc->ulAccessWidth + 1);
    }
    return NP_OK;
}

uint32_t Np_RegTableSpecialWrite(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulIndex,
                                 const void *pData)
{
    NpRegRow stRow;
    const uint32_t ulReturn = Np_RowFind(ulChipID, ulTableID, ulIndex, pData, &stRow);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_WordsWrite(ulChipID, stRow, pData, Np_Read, Np_Write);
    return NP_OK;
}

uint32_t Np_RegTableRecordNumberGet(uint32_t ulChipID, uint32_t ulTableID)
{
    return Np_DescField(ulChipID, ulTableID, &NpRegTableDesc::usRecordNum);
}

uint32_t Np_RegTableRecordWidthGet(uint32_t ulChipID, uint32_t ulTableID)
{
    return Np_DescField(ulChipID, ulTableID, &NpRegTableDesc::ulRecordWidth);
}

uint32_t Np_RegTableRecordGroupNumberGet(uint32_t ulChipID, uint32_t ulTableID)
{
    return Np_DescField(ulChipID, ulTableID, &NpRegTableDesc::ulGroupNum);
}

uint32_t Np_RegTableRecordAccessWidthGet(uint32_t ulChipID, uint32_t ulTableID)
{
    return Np_DescField(ulChipID, ulTableID, &NpRegTableDesc::ulAccessWidth);
}

uint32_t Np_RegTableRecordSepWidthGet(uint32_t ulChipID, uint32_t ulTableID)
{
    return Np_DescField(ulChipID, ulTableID, &NpRegTableDesc::ulSepWidth);
}

uint32_t Np_RegTableRecordRbaRwGet(uint32_t ulChipID, uint32_t ulTableID)
{
    return Np_DescField(ulChipID, ulTableID, &NpRegTableDesc::ulRbaRw);
}

namespace {

// Room for the widest row, for the debug forms.
constinit uint8_t g_aucRegScratch[NP_REG_SCRATCH_SIZE] = {};

// Tells whether the first argument of a debug form is a table identifier.
uint32_t Np_IsTable(uint32_t ulChipID, uint32_t ulTableOrAddr, bool *pbTable)
{
    const NpChipAddr *pstChipAddr = nullptr;
    const uint32_t ulReturn = Np_Chip_AddrFind(ulChipID, &pstChipAddr);
    *pbTable = ulReturn == NP_OK && ulTableOrAddr < pstChipAddr->usRegTableNum;
    return ulReturn;
}

}  // namespace

// Of a table's row the first word is meant, or what the row has of one; the rest keeps its bytes.
uint32_t Np_RegTable32WriteEx(uint32_t ulChipID, uint32_t ulTableOrAddr, uint32_t ulIndex,
                              uint32_t ulValue)
{
    bool bTable;
    uint32_t ulReturn = Np_IsTable(ulChipID, ulTableOrAddr, &bTable);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NP_TRACE(NP_M_COMM, NP_PRINT_DEBUG, " Reg Table Write ChipID %d Addr %08x\r\n",
             static_cast<int>(ulChipID), ulTableOrAddr);
    NP_TRACE(NP_M_COMM, NP_PRINT_DEBUG, "Val0 0x%08x\r\n", ulValue);
    if (!bTable) {
        return Np_Write(ulChipID, ulTableOrAddr, &ulValue);
    }
    ulReturn = Np_RegTableRead(ulChipID, ulTableOrAddr, ulIndex, g_aucRegScratch);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    __builtin_memcpy(g_aucRegScratch, &ulValue, sizeof(ulValue));
    return Np_RegTableWrite(ulChipID, ulTableOrAddr, ulIndex, g_aucRegScratch);
}

uint32_t Np_RegTable32ReadEx(uint32_t ulChipID, uint32_t ulTableOrAddr, uint32_t ulIndex,
                             uint32_t *pulValue)
{
    if (pulValue == nullptr) {
        return NP_ERR_NULL_PTR;
    }
    bool bTable;
    uint32_t ulReturn = Np_IsTable(ulChipID, ulTableOrAddr, &bTable);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (bTable) {
        memset(g_aucRegScratch, 0, sizeof(*pulValue));  // a row may be narrower
        ulReturn = Np_RegTableRead(ulChipID, ulTableOrAddr, ulIndex, g_aucRegScratch);
        if (ulReturn == NP_OK) {
            __builtin_memcpy(pulValue, g_aucRegScratch, sizeof(*pulValue));
        }
    }
    else {
        ulReturn = Np_Read(ulChipID, ulTableOrAddr, pulValue);
    }
    NP_TRACE(NP_M_COMM, NP_PRINT_DEBUG, "val:0x%x \r\n", *pulValue);
    return ulReturn;
}

uint32_t Np_RegTableReadEx(uint32_t ulChipID, uint32_t ulTableOrAddr, uint32_t ulCount)
{
    bool bTable;
    uint32_t ulReturn = Np_IsTable(ulChipID, ulTableOrAddr, &bTable);
    if (ulReturn == NP_OK && bTable) {
        return Np_RegTableRead(ulChipID, ulTableOrAddr, ulCount, g_aucRegScratch);
    }
    for (uint32_t i = 0; ulReturn == NP_OK && i < ulCount && i < NP_REG_SCRATCH_SIZE; i++) {
        uint32_t ulWord = 0;
        ulReturn = Np_Read(ulChipID, ulTableOrAddr, &ulWord);
        g_aucRegScratch[i] = static_cast<uint8_t>(ulWord);
    }
    return ulReturn;
}

// The places that rows stand in: register tables, counters, arrays in search memory, registers.
#include "ldsdk/status.h"
#include "sdk/access/bus.h"
#include "sdk/access/counter.h"
#include "sdk/access/regtable.h"
#include "sdk/access/smem.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/text.h"
#include "sdk/record/table.h"

namespace {

uint32_t Np_RegTableStoreRead(uint32_t ulChipID, const NpTablePart *pstPart, uint32_t ulRow,
                              uint32_t, uint32_t *pulImage)
{
    return Np_RegTableRead(ulChipID, pstPart->usID, ulRow, pulImage);
}

uint32_t Np_RegTableStoreWrite(uint32_t ulChipID, const NpTablePart *pstPart, uint32_t ulRow,
                               uint32_t, const uint32_t *pulImage)
{
    return Np_RegTableWrite(ulChipID, pstPart->usID, ulRow, pulImage);
}

uint32_t Np_CounterStoreRead(uint32_t ulChipID, const NpTablePart *pstPart, uint32_t ulRow,
                             uint32_t ulSize, uint32_t *pulImage)
{
    NpCntValue stValue;
    const uint32_t ulReturn = Np_Tarn_CntRead(ulChipID, pstPart->usID, ulRow, &stValue);
    memcpy(pulImage, stValue.aulCntVal, ulSize);
    return ulReturn;
}

uint32_t Np_CounterStoreWrite(uint32_t ulChipID, const NpTablePart *pstPart, uint32_t ulRow,
                              uint32_t ulSize, const uint32_t *pulImage)
{
    NpCntValue stValue = {};
    memcpy(stValue.aulCntVal, pulImage, ulSize);
    return Np_Tarn_CntSet(ulChipID, pstPart->usID, ulRow, &stValue);
}

uint32_t Np_SmemLengthOf(const NpSmemArray *pstArray)
{
    return pstArray->ucWidth == 2   ? NP_SMEM_LEN_16
           : pstArray->ucWidth == 4 ? NP_SMEM_LEN_32
           : pstArray->ucWidth == 8 ? NP_SMEM_LEN_64
                                    : NP_SMEM_LEN_128;
}

uint32_t Np_SmemAddrOf(const NpSmemArray *pstArray, uint32_t ulRow)
{
    const uint32_t ulByte = Np_GLB_CapGet(pstArray->enBase) + ulRow * pstArray->usPitch;
    return ulByte >> 1 & NP_SMEM_ADDR_MASK;
}

uint32_t Np_SmemStoreRead(uint32_t ulChipID, const NpTablePart *pstPart, uint32_t ulRow, uint32_t,
                          uint32_t *pulImage)
{
    const NpSmemArray *pstArray = static_cast<const NpSmemArray *>(pstPart->pvWhere);
    return Np_Tarn_SmemRead(ulChipID, pstArray->ucSmemID, Np_SmemLengthOf(pstArray),
                            Np_SmemAddrOf(pstArray, ulRow), pulImage);
}

uint32_t Np_SmemStoreWrite(uint32_t ulChipID, const NpTablePart *pstPart, uint32_t ulRow, uint32_t,
                           const uint32_t *pulImage)
{
    const NpSmemArray *pstArray = static_cast<const NpSmemArray *>(pstPart->pvWhere);
    return Np_Tarn_SmemWrite(ulChipID, pstArray->ucSmemID, Np_SmemLengthOf(pstArray),
                             Np_SmemAddrOf(pstArray, ulRow),
                             reinterpret_cast<const uint8_t *>(pulImage));
}

uint32_t Np_RegisterStoreRead(uint32_t ulChipID, const NpTablePart *pstPart, uint32_t,
                              uint32_t ulSize, uint32_t *pulImage)
{
    const NpRegisterList *pstList = static_cast<const NpRegisterList *>(pstPart->pvWhere);
    uint32_t ulDone = 0;  // words, by bits
    for (uint32_t i = 0; i < pstList->ulNum; i++) {
        const NpRegisterAt &stAt = pstList->pstAt[i];
        if (stAt.ulWord >= ulSize / 4 || (ulDone >> stAt.ulWord & 1) != 0) {
            continue;
        }
        ulDone |= 1u << stAt.ulWord;
        const uint32_t ulReturn = Np_Read(ulChipID, stAt.ulAddress, &pulImage[stAt.ulWord]);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    return NP_OK;
}

// Each unit gets its word whatever became of the others, and nobody hears of a failure.
uint32_t Np_RegisterStoreWrite(uint32_t ulChipID, const NpTablePart *pstPart, uint32_t, uint32_t,
                               const uint32_t *pulImage)
{
    const NpRegisterList *pstList = static_cast<const NpRegisterList *>(pstPart->pvWhere);
    for (uint32_t i = 0; i < pstList->ulNum; i++) {
        const NpRegisterAt &stAt = pstList->pstAt[i];
        Np_Write(ulChipID, stAt.ulAddress, &pulImage[stAt.ulWord]);
    }
    return NP_OK;
}

inline constexpr char NP_READ_ERROR[] = "Read error return:0x%08x  ID:0x%08x Offset:0x%08x\r\n";
inline constexpr char NP_WRITE_ERROR[] = "Write error return:0x%08x ID:0x%08x Offset:0x%08x\r\n";
inline constexpr char NP_FUNC_ERROR[] = "Func error return: 0x%08x \r\n";

}  // namespace

constexpr NpStore g_stNpRegTableStore = {Np_RegTableStoreRead, Np_RegTableStoreWrite, NP_READ_ERROR,
                                         NP_WRITE_ERROR};
constexpr NpStore g_stNpCounterStore = {Np_CounterStoreRead, Np_CounterStoreWrite, NP_FUNC_ERROR,
                                        NP_FUNC_ERROR};
constexpr NpStore g_stNpSmemStore = {Np_SmemStoreRead, Np_SmemStoreWrite, NP_READ_ERROR,
                                     NP_WRITE_ERROR};
constexpr NpStore g_stNpRegisterStore = {Np_RegisterStoreRead, Np_RegisterStoreWrite, NP_FUNC_ERROR,
                                         NP_FUNC_ERROR};

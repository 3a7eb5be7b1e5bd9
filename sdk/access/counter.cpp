#include "sdk/access/counter.h"

#include "sdk/access/smem.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"

constinit const NpCntConfigDesc *g_asttarnNpCntConfigDesc[NP_CHIP_NUM] = {};

// type, counters, bytes, byte address of counter 0, length code, width code of an add, gap
#define NP_CNT(type, num, width, base, length, add, gap)     \
    {                                                        \
        type, num, width, 0, 1, base, length, add, 0, 0, gap \
    }
#define NP_NO_CNT(type)                    \
    {                                      \
        type, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0 \
    }

// clang-format off
constexpr NpCntConfigDesc g_asttarnNpCntConfigDesc_TarnB[NP_CNT_TYPE_NUM] = {
    NP_CNT(0, 0x20, 4, 0x4b400, 1, 1, 0),
    NP_CNT(1, 0x400, 4, 0x45000, 1, 1, 0),
    NP_CNT(2, 4, 8, 0x4b620, 2, 4, 0),
    NP_CNT(3, 0xa0, 8, 0x4b800, 2, 4, 0),
    NP_CNT(4, 0x200, 4, 0x46000, 1, 1, 4),
    NP_CNT(5, 0x800, 4, 0x48000, 1, 1, 0),
    NP_CNT(6, 4, 4, 0x4b700, 1, 1, 0),
    NP_CNT(7, 0x400, 0x10, 0x78010, 3, 3, 0x10),
    NP_CNT(8, 0x400, 0x10, 0x78000, 3, 3, 0x10),
    NP_CNT(9, 0x200, 8, 0x4f000, 2, 4, 0),
    NP_CNT(10, 0x400, 2, 0x4a000, 0, 0, 0),
    NP_CNT(11, 0x400, 2, 0x4a800, 0, 0, 0),
    NP_CNT(12, 0x400, 4, 0x4c000, 1, 1, 0),
    NP_CNT(13, 0x80, 2, 0x4e000, 0, 0, 0),
    NP_CNT(14, 0x80, 4, 0xc800, 1, 1, 0),
    NP_CNT(15, 0x80, 4, 0xca00, 1, 1, 0),
    NP_CNT(16, 0x20, 0x10, 0x4d000, 3, 0, 0),
    NP_NO_CNT(17),
    NP_CNT(18, 1, 4, 0x22288, 1, 1, 0),
    NP_NO_CNT(19), NP_NO_CNT(20), NP_NO_CNT(21), NP_NO_CNT(22),
    NP_NO_CNT(23), NP_NO_CNT(24), NP_NO_CNT(25), NP_NO_CNT(26),
    NP_CNT(27, 0x40, 4, 0x4b000, 1, 1, 0),
    NP_CNT(28, 1, 4, 0x4b100, 1, 1, 0),
};
// clang-format on

namespace {

inline constexpr uint32_t NP_CNT_OFFSET_MASK = 0xfffff;  // of a bank, in 16-bit units
inline constexpr uint32_t NP_CNT_BANK_MASK = 0x3f;
inline constexpr uint32_t NP_CNT_NO_LIMIT = 0xffffffff;

// Types that take an add, and a subtract, as bit maps.
inline constexpr uint32_t NP_CNT_ADD_TYPES =
    1u << 0 | 1u << 1 | 1u << 17 | 1u << 18 | 1u << 27 | 1u << 28;
inline constexpr uint32_t NP_CNT_SUB_TYPES = 1u << 0 | 1u << 1 | 1u << 17 | 1u << 18;

consteval bool Np_CntRowsAreSound()
{
    for (uint32_t i = 0; i < NP_CNT_TYPE_NUM; i++) {
        const NpCntConfigDesc &stRow = g_asttarnNpCntConfigDesc_TarnB[i];
        if (stRow.ulCntType != i ||
            (stRow.ulCntNum != 0 && stRow.ulCntWidth != 2u << stRow.ulLength)) {
            return false;
        }
    }
    return true;
}
static_assert(Np_CntRowsAreSound(), "a row is out of place, or width and length code disagree");

const NpCntConfigDesc *Np_CntRow(uint32_t ulChipID, uint32_t ulCntType)
{
    return &g_asttarnNpCntConfigDesc[ulChipID][ulCntType];
}

uint32_t Np_CntOffset(const NpCntConfigDesc *pstRow, uint32_t ulCntID)
{
    return (pstRow->ulBaseAddr + (pstRow->ulGap + pstRow->ulCntWidth) * ulCntID) >> 1;
}

// Address of a counter, for the commands that hold bank and offset apart.
uint32_t Np_CntPlace(const NpCntConfigDesc *pstRow, uint32_t ulCntID)
{
    return (pstRow->ulMemBank & NP_CNT_BANK_MASK) << 20 |
           (Np_CntOffset(pstRow, ulCntID) & NP_CNT_OFFSET_MASK);
}

uint32_t Np_CntSum(const NpCntConfigDesc *pstRow, uint32_t ulCntID)
{
    return (pstRow->ulMemBank << 20) + Np_CntOffset(pstRow, ulCntID);
}

uint32_t Np_CntTypeCheck(uint32_t ulCntType, NpWhere stWhere = Np_Here())
{
    if (ulCntType >= NP_CNT_TYPE_NUM) {
        NP_TRACE_AT(stWhere, NP_M_COMM, NP_PRINT_ERROR, "param error! ulCntType=0x%08x\r\n",
                    ulCntType);
        return NP_ERR_PARAM;
    }
    return NP_OK;
}

uint32_t Np_CntCheck(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID,
                     NpWhere stWhere = Np_Here())
{
    const uint32_t ulReturn = Np_CntTypeCheck(ulCntType, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (ulCntID >= Np_CntRow(ulChipID, ulCntType)->ulCntNum) {
        NP_TRACE_AT(stWhere, NP_M_COMM, NP_PRINT_ERROR, "cnt id error! cntid = 0x%08x\r\n",
                    ulCntID);
        return NP_ERR_PARAM;
    }
    return NP_OK;
}

// Word k of a value is the k-th from the end of the data block; of a 16-bit counter the low half of
// word 0 is the block's last two bytes.
void Np_CntUnpack(const uint8_t *pucBlock, uint32_t ulWidth, NpCntValue *pstCntValue)
{
    const uint32_t ulPiece = ulWidth < sizeof(uint32_t) ? ulWidth : sizeof(uint32_t);
    for (uint32_t i = 0; i < ulWidth / ulPiece; i++) {
        memcpy(&pstCntValue->aulCntVal[i], pucBlock + NP_SMEM_BLOCK_SIZE - ulPiece * (i + 1),
               ulPiece);
    }
}

void Np_CntPack(const NpCntValue *pstCntValue, uint32_t ulWidth, uint8_t *pucBlock)
{
    const uint32_t ulPiece = ulWidth < sizeof(uint32_t) ? ulWidth : sizeof(uint32_t);
    for (uint32_t i = 0; i < ulWidth / ulPiece; i++) {
        memcpy(pucBlock + NP_SMEM_BLOCK_SIZE - ulPiece * (i + 1), &pstCntValue->aulCntVal[i],
               ulPiece);
    }
}

using NpCntReadReq = uint32_t(uint32_t ulChipID, uint32_t ulSmemID, const NpSmemReq *pstReq,
                              NpSmemRsp *pstRsp);

uint32_t Np_CntFetch(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID,
                     NpCntReadReq *pfnRequest, NpCntValue *pstCntValue, NpWhere stWhere = Np_Here())
{
    if (pstCntValue == nullptr) {
        NP_TRACE_AT(stWhere, NP_M_COMM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    *pstCntValue = {};
    uint32_t ulReturn = Np_CntCheck(ulChipID, ulCntType, ulCntID, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpCntConfigDesc *pstRow = Np_CntRow(ulChipID, ulCntType);
    const NpSmemReq stReq = {pstRow->ulLength, Np_CntPlace(pstRow, ulCntID)};
    NpSmemRsp stRsp;
    ulReturn = pfnRequest(ulChipID, pstRow->ulSmemID, &stReq, &stRsp);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_COMM, NP_PRINT_ERROR,
                    "smem read failed! ulReturn = 0x%08x, ulStatus=0x%08x\r\n", ulReturn,
                    stRsp.ulStatus);
        return NP_ERR_SMEM_READ;
    }
    if (stRsp.ulStatus != NP_SMEM_STATUS_OK) {
        NP_TRACE_AT(stWhere, NP_M_COMM, NP_PRINT_ERROR, "smem read failed! ulStatus=0x%08x\r\n",
                    stRsp.ulStatus);
        return NP_ERR_SMEM_READ;
    }
    Np_CntUnpack(stRsp.aucData, pstRow->ulCntWidth, pstCntValue);
    return NP_OK;
}

// The one command behind add and subtract. Neither type nor storage is checked here.
uint32_t Np_CntAddSend(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID, uint32_t ulSub,
                       uint32_t *pulValue, NpSmemRsp *pstRsp)
{
    const NpCntConfigDesc *pstRow = Np_CntRow(ulChipID, ulCntType);
    const NpSmemAddReq stReq = {Np_CntPlace(pstRow, ulCntID), pstRow->ulAddWidth,
                                pstRow->ulAddOption1, pstRow->ulAddOption2, ulSub};
    const uint32_t ulReturn =
        Np_Tarn_SMEM_ReqAdd(ulChipID, pstRow->ulSmemID, &stReq, NP_CNT_NO_LIMIT, *pulValue, pstRsp);
    if (ulReturn == NP_OK && pstRsp->ulStatus == NP_SMEM_STATUS_OK &&
        pstRow->ulLength == NP_SMEM_LEN_32) {
        __builtin_memcpy(pulValue, pstRsp->aucData + NP_SMEM_BLOCK_SIZE - sizeof(uint32_t),
                         sizeof(uint32_t));
    }
    return ulReturn;
}

bool Np_CntTakes(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulTypes)
{
    return (ulTypes >> ulCntType & 1) != 0 && Np_CntRow(ulChipID, ulCntType)->ulCntNum != 0;
}

}  // namespace

uint32_t Np_Tarn_CntRead(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID,
                         NpCntValue *pstCntValue)
{
    return Np_CntFetch(ulChipID, ulCntType, ulCntID, Np_Tarn_SMEM_ReqRead, pstCntValue);
}

uint32_t Np_Tarn_CntReadClear(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID,
                              NpCntValue *pstCntValue)
{
    return Np_CntFetch(ulChipID, ulCntType, ulCntID, Np_Tarn_SMEM_ReqReadClear, pstCntValue);
}

uint32_t Np_Tarn_CntSet(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID,
                        const NpCntValue *pstCntValue)
{
    if (pstCntValue == nullptr) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    uint32_t ulReturn = Np_CntCheck(ulChipID, ulCntType, ulCntID);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpCntConfigDesc *pstRow = Np_CntRow(ulChipID, ulCntType);
    uint8_t aucBlock[NP_SMEM_BLOCK_SIZE] = {};
    Np_CntPack(pstCntValue, pstRow->ulCntWidth, aucBlock);
    ulReturn =
        Np_Tarn_SmemWrite(ulChipID, pstRow->ulSmemID, pstRow->ulLength, Np_CntSum(pstRow, ulCntID),
                          aucBlock + NP_SMEM_BLOCK_SIZE - pstRow->ulCntWidth);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "smem write failed! ulReturn = 0x%08x\r\n", ulReturn);
        return NP_ERR_SMEM_WRITE;
    }
    return NP_OK;
}

uint32_t Np_Tarn_CntClear(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID)
{
    uint32_t ulReturn = Np_CntCheck(ulChipID, ulCntType, ulCntID);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpCntConfigDesc *pstRow = Np_CntRow(ulChipID, ulCntType);
    ulReturn =
        Np_Tarn_SmemClear(ulChipID, pstRow->ulSmemID, pstRow->ulLength, Np_CntSum(pstRow, ulCntID));
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "smem clear failed! ulReturn = 0x%08x\r\n", ulReturn);
        return NP_ERR_SMEM_CLEAR;
    }
    return NP_OK;
}

uint32_t Np_Tarn_CntAdd(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID, uint32_t *pulValue)
{
    if (pulValue == nullptr) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    uint32_t ulReturn = Np_CntTypeCheck(ulCntType);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (!Np_CntTakes(ulChipID, ulCntType, NP_CNT_ADD_TYPES)) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "cnt id error! ulCntType = 0x%08x\r\n", ulCntType);
        return NP_ERR_PARAM;
    }
    NpSmemRsp stRsp;
    ulReturn = Np_CntAddSend(ulChipID, ulCntType, ulCntID, 0, pulValue, &stRsp);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "add failed! ulReturn = 0x%08x, ulStatus=0x%08x\r\n",
                 ulReturn, stRsp.ulStatus);
        return NP_ERR_SMEM_OP;
    }
    if (stRsp.ulStatus != NP_SMEM_STATUS_OK) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "cnt add failed! ulStatus=0x%08x\r\n", stRsp.ulStatus);
        return NP_ERR_SMEM_OP;
    }
    return NP_OK;
}

uint32_t Np_Tarn_CntSub(uint32_t ulChipID, uint32_t ulCntType, uint32_t ulCntID, uint32_t *pulValue)
{
    if (pulValue == nullptr) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    uint32_t ulReturn = Np_CntTypeCheck(ulCntType);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (!Np_CntTakes(ulChipID, ulCntType, NP_CNT_SUB_TYPES)) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "cnt id error! cntid = 0x%08x\r\n", ulCntType);
        return NP_ERR_PARAM;
    }
    NpSmemRsp stRsp;
    ulReturn = Np_CntAddSend(ulChipID, ulCntType, ulCntID, 1, pulValue, &stRsp);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "sub failed! ulReturn = 0x%08x, ulStatus=0x%08x\r\n",
                 ulReturn, stRsp.ulStatus);
        return NP_ERR_SMEM_OP;
    }
    if (stRsp.ulStatus != NP_SMEM_STATUS_OK) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "smem sub failed! ulStatus=0x%08x\r\n", stRsp.ulStatus);
        return NP_ERR_SMEM_OP;
    }
    return NP_OK;
}

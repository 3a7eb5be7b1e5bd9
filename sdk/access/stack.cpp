#include "sdk/access/stack.h"

#include "platform/os.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/trace.h"

constinit NpStackDesc *g_pastNpStackDesc[NP_CHIP_NUM] = {};
constinit const NpStackDesc *g_astNpStackInfo[NP_CHIP_NUM] = {};
constinit uint32_t g_aulStackNum[NP_CHIP_NUM] = {};

constinit const NpStackDesc g_astNpStackInfo_TarnB[NP_STACK_NUM] = {
    {0, 1, 2000, nullptr, "MCC组播链表的堆栈", NP_STACK_MCC},
    {0, 0, 32, nullptr, "逃生桶表的堆栈", NP_STACK_FLEE},
    {0, 32, 64, nullptr, "GMT逃生桶表的堆栈", NP_STACK_FLEE_GMT},
    {0, 0, 0, nullptr, "LMDATA逃生桶表的堆栈", NP_STACK_FLEE_LM},
};
constinit const uint32_t g_ulStackNum_TarnB = NP_STACK_NUM;

namespace {

uint32_t Np_StackFind(uint32_t ulChipID, uint8_t ucStackId, NpStackDesc **ppstStack,
                      NpWhere stWhere = Np_Here())
{
    if (ucStackId >= NP_STACK_NUM) {
        NP_TRACE_AT(stWhere, NP_M_COMM, NP_PRINT_ERROR, "param error! ucStackId=0x%08x\r\n",
                    ucStackId);
        return NP_ERR_PARAM;
    }
    if (g_pastNpStackDesc[ulChipID] != nullptr) {
        for (uint32_t i = 0; i < g_aulStackNum[ulChipID]; i++) {
            if (g_pastNpStackDesc[ulChipID][i].ucStackId == ucStackId) {
                *ppstStack = &g_pastNpStackDesc[ulChipID][i];
                return NP_OK;
            }
        }
    }
    NP_TRACE_AT(stWhere, NP_M_COMM, NP_PRINT_ERROR, "stack has no init!\r\n");
    return NP_ERR_STACK_NO_INIT;
}

// Makes a stack of which all numbers are free. An empty one has no array.
bool Np_StackMake(NpStackDesc *pstStack, const NpStackDesc *pstInfo)
{
    *pstStack = *pstInfo;
    pstStack->pusData = nullptr;
    if (pstInfo->usSize == 0) {
        return true;
    }
    pstStack->pusData = static_cast<uint16_t *>(Os_Alloc(pstInfo->usSize * sizeof(uint16_t)));
    if (pstStack->pusData == nullptr) {
        return false;
    }
    for (uint32_t i = 0; i < pstStack->usSize; i++) {
        pstStack->pusData[i] = static_cast<uint16_t>(pstStack->usBase + i);
    }
    return true;
}

}  // namespace

uint32_t Np_Tarn_Stack_Init(uint32_t ulChipID)
{
    const uint32_t ulNum = g_aulStackNum[ulChipID];
    if (ulNum == 0) {
        return NP_OK;
    }
    Np_Tarn_Stack_Destruct(ulChipID);  // a repeated bring-up starts from full stacks
    NpStackDesc *pastStack = static_cast<NpStackDesc *>(Os_Alloc(ulNum * sizeof(NpStackDesc)));
    g_pastNpStackDesc[ulChipID] = pastStack;
    if (pastStack == nullptr) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "memory alloc failed!\r\n");
        return NP_ERR_NO_MEMORY;
    }
    for (uint32_t i = 0; i < ulNum; i++) {
        if (!Np_StackMake(&pastStack[i], &g_astNpStackInfo[ulChipID][i])) {
            NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "memory alloc failed!\r\n");
            Np_Tarn_Stack_Destruct(ulChipID);
            return NP_ERR_NO_MEMORY;
        }
    }
    return NP_OK;
}

uint32_t Np_Tarn_Stack_Destruct(uint32_t ulChipID)
{
    NpStackDesc *pastStack = g_pastNpStackDesc[ulChipID];
    if (pastStack == nullptr) {
        return NP_OK;
    }
    g_pastNpStackDesc[ulChipID] = nullptr;
    for (uint32_t i = 0; i < g_aulStackNum[ulChipID]; i++) {
        Os_Free(pastStack[i].pusData);
    }
    Os_Free(pastStack);
    return NP_OK;
}

uint32_t Np_Tarn_Pop(uint32_t ulChipID, uint8_t ucStackId, uint32_t *pulIdx)
{
    NpStackDesc *pstStack = nullptr;
    const uint32_t ulReturn = Np_StackFind(ulChipID, ucStackId, &pstStack);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pulIdx == nullptr) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "pulIdx is NULL!\r\n");
        return NP_ERR_NULL_PTR;
    }
    if (pstStack->usTop >= pstStack->usSize) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "stack is empty! ucStackId=0x%08x", ucStackId);
        return NP_ERR_STACK_EMPTY;
    }
    *pulIdx = pstStack->pusData[pstStack->usTop];
    pstStack->usTop++;
    return NP_OK;
}

uint32_t Np_Tarn_Push(uint32_t ulChipID, uint8_t ucStackId, uint32_t ulIdx)
{
    NpStackDesc *pstStack = nullptr;
    const uint32_t ulReturn = Np_StackFind(ulChipID, ucStackId, &pstStack);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pstStack->usTop == 0) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "stack is full! ucStackId=0x%08x", ucStackId);
        return NP_ERR_STACK_FULL;
    }
    if (ulIdx < pstStack->usBase || ulIdx - pstStack->usBase >= pstStack->usSize) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "ulIdx param error! ulIdx=0x%08x", ulIdx);
        return NP_ERR_PARAM;
    }
    for (uint32_t i = pstStack->usTop; i < pstStack->usSize; i++) {
        if (pstStack->pusData[i] == ulIdx) {
            NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, " ulIdx 0x%x has in stack 0x%x!\r\n", ulIdx,
                     ucStackId);
            return NP_ERR_EXIST;
        }
    }
    pstStack->usTop--;
    pstStack->pusData[pstStack->usTop] = static_cast<uint16_t>(ulIdx);
    return NP_OK;
}

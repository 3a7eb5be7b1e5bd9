#include "sdk/access/smem.h"

#include "platform/driver.h"
#include "platform/os.h"
#include "sdk/access/frame.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"

constinit uint8_t *g_aulDdrAddr[NP_CHIP_NUM] = {};
constinit const uint32_t *g_aulNpSmemCopAddr[NP_CHIP_NUM] = {};
constinit const uint32_t *g_aulNpSmemInitParam[NP_CHIP_NUM] = {};

constinit const uint32_t g_aulNpSmemCopAddr_TarnB[1] = {0};
// Two words of the driver's, then the first and last address of the range, in 16-bit units.
constinit const uint32_t g_aulNpSmemInitParam_TarnB[NP_SMEM_INIT_WORDS] = {0, 0, 0x100000,
                                                                           0x13ffff};

namespace {

enum NpSmemOp : uint32_t {
    NP_SMEM_OP_READ = 0,
    NP_SMEM_OP_READ_CLEAR = 1,
    NP_SMEM_OP_WRITE = 0,
    NP_SMEM_OP_ADD = 1,
    NP_SMEM_OP_SET_BIT = 5,
    NP_SMEM_OP_SEARCH = 8,
    NP_SMEM_OP_SEARCH_UPDATE = 9,
    NP_SMEM_OP_SEARCH_BUILD = 10,
    NP_SMEM_OP_SEARCH_UPDATE_BUILD = 11,
};

// Access classes, byte 6 of a request.
inline constexpr uint8_t NP_RBA_CLASS_READ = 1;
inline constexpr uint8_t NP_RBA_CLASS_WRITE = 3;

// Distance on this platform between a kernel address and the bus address of the same memory.
inline constexpr uint32_t NP_KERNEL_TO_BUS = 0x3e800000;

inline constexpr uint8_t g_aucZeroBlock[NP_SMEM_BLOCK_SIZE] = {};

uint8_t *Np_FrameByte(NpRbaReqCmd *pstFrame, uint32_t ulByte)
{
    return reinterpret_cast<uint8_t *>(pstFrame) + ulByte;
}

void Np_FrameWord(NpRbaReqCmd *pstFrame, uint32_t ulByte, uint32_t ulValue)
{
    __builtin_memcpy(Np_FrameByte(pstFrame, ulByte), &ulValue, sizeof(ulValue));
}

void Np_FrameHalf(NpRbaReqCmd *pstFrame, uint32_t ulByte, uint32_t ulValue)
{
    const uint16_t usValue = static_cast<uint16_t>(ulValue);
    __builtin_memcpy(Np_FrameByte(pstFrame, ulByte), &usValue, sizeof(usValue));
}

// Clears the frame and fills what every command has. ulAddress is the address word without its
// target, ulCommand the command half-word from bit 4 up.
void Np_FrameStart(uint32_t ulChipID, uint32_t ulSmemID, NpRbaReqCmd *pstFrame, uint32_t ulAddress,
                   uint32_t ulCommand, uint8_t ucClass)
{
    *pstFrame = {};
    Np_FrameWord(pstFrame, 0, g_aulNpSmemCopAddr[ulChipID][ulSmemID] << 28 | ulAddress);
    Np_FrameHalf(pstFrame, NP_RBA_COMMAND, ulCommand << 4);
    *Np_FrameByte(pstFrame, NP_RBA_CLASS) = ucClass;
}

uint32_t Np_FrameSend(uint32_t ulChipID, const NpRbaReqCmd *pstFrame, NpSmemRsp *pstRsp)
{
    NpRbaRspCmd stAnswer = {};
    const uint32_t ulReturn = Qd_RBA_CommandSend(ulChipID, pstFrame, &stAnswer);
    const uint8_t *pucAnswer = reinterpret_cast<const uint8_t *>(&stAnswer);
    __builtin_memcpy(&pstRsp->ulStatus, pucAnswer, sizeof(pstRsp->ulStatus));
    __builtin_memcpy(pstRsp->aucData, pucAnswer + NP_RBA_RSP_DATA, NP_SMEM_BLOCK_SIZE);
    return ulReturn;
}

uint32_t Np_PlainSend(uint32_t ulChipID, uint32_t ulSmemID, const NpSmemReq *pstReq, NpSmemOp enOp,
                      uint8_t ucClass, const uint8_t *pucBlock, NpSmemRsp *pstRsp)
{
    NpRbaReqCmd stFrame;
    // Command half-word: operation in bits 7..4, length in 9..8; bit 10 stays 0.
    const uint32_t ulLength = enOp == NP_SMEM_OP_SET_BIT ? 0 : pstReq->ulLength;
    Np_FrameStart(ulChipID, ulSmemID, &stFrame, pstReq->ulOffAddr & NP_SMEM_ADDR_MASK,
                  enOp | ulLength << 4, ucClass);
    if (pucBlock != nullptr) {
        __builtin_memcpy(Np_FrameByte(&stFrame, NP_RBA_PAYLOAD), pucBlock, NP_SMEM_BLOCK_SIZE);
    }
    return Np_FrameSend(ulChipID, &stFrame, pstRsp);
}

// Lays the payload byte-reversed into 16-byte groups, its last byte first.
void Np_PayloadPack(NpRbaReqCmd *pstFrame, const uint8_t *pucPayload, uint32_t ulLength)
{
    for (uint32_t k = 0; k < ulLength; k++) {
        const uint32_t ulGroup = k / NP_SMEM_BLOCK_SIZE;
        const uint32_t ulByte =
            NP_RBA_PAYLOAD + (ulGroup + 1) * NP_SMEM_BLOCK_SIZE - 1 - k % NP_SMEM_BLOCK_SIZE;
        *Np_FrameByte(pstFrame, ulByte) = pucPayload[ulLength - 1 - k];
    }
}

uint32_t Np_HashFrame(uint32_t ulChipID, uint32_t ulSmemID, const NpSmemHashReq *pstReq,
                      NpSmemOp enOp, uint32_t ulCode, const uint8_t *pucPayload,
                      NpRbaReqCmd *pstFrame)
{
    if (pstReq->ulPayloadLen > NP_SMEM_HASH_MAX) {
        return NP_ERR_PARAM;
    }
    const uint32_t ulAddress = (pstReq->ulTID & 0xf) << 24 | ((pstReq->ulKeyLen - 1) & 0x3f) << 16 |
                               (pstReq->ulUpdateFlag & 1) << 15 | (pstReq->ulBuildField & 0x3fff);
    // The code stands in bits 15..12 of the command half-word.
    Np_FrameStart(ulChipID, ulSmemID, pstFrame, ulAddress, enOp | (ulCode & 0xf) << 8,
                  NP_RBA_CLASS_WRITE);
    *Np_FrameByte(pstFrame, NP_RBA_WIDTH) =
        pstReq->ulPayloadLen <= 16 ? 0 : (pstReq->ulPayloadLen <= 32 ? 1 : 2);
    Np_PayloadPack(pstFrame, pucPayload, pstReq->ulPayloadLen);
    return NP_OK;
}

uint32_t Np_HashSend(uint32_t ulChipID, uint32_t ulSmemID, const NpSmemHashReq *pstReq,
                     NpSmemOp enOp, uint32_t ulCode, const uint8_t *pucPayload, uint32_t ulSends,
                     NpSmemRsp *pstRsp)
{
    NpRbaReqCmd stFrame;
    uint32_t ulReturn =
        Np_HashFrame(ulChipID, ulSmemID, pstReq, enOp, ulCode, pucPayload, &stFrame);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    for (uint32_t i = 0; i < ulSends; i++) {
        ulReturn = Np_FrameSend(ulChipID, &stFrame, pstRsp);
        if (ulReturn != NP_OK || pstRsp->ulStatus != NP_SMEM_STATUS_SEMAPHORE) {
            break;
        }
    }
    return ulReturn;
}

uint32_t Np_LengthBytes(uint32_t ulLength)
{
    return 2u << ulLength;
}

// Copies a value of an access length: every width in its own move, without a call.
void Np_ValueCopy(void *pvTo, const void *pvFrom, uint32_t ulLength)
{
    switch (ulLength) {
        case NP_SMEM_LEN_16:
            __builtin_memcpy(pvTo, pvFrom, 2);
            break;
        case NP_SMEM_LEN_32:
            __builtin_memcpy(pvTo, pvFrom, 4);
            break;
        case NP_SMEM_LEN_64:
            __builtin_memcpy(pvTo, pvFrom, 8);
            break;
        default:
            __builtin_memcpy(pvTo, pvFrom, 16);
            break;
    }
}

uint32_t Np_AccessCheck(uint32_t ulSmemID, uint32_t ulLength, NpWhere stWhere = Np_Here())
{
    if (ulSmemID >= Np_GLB_CapGet(NP_CAP_SMEM_NUM)) {
        NP_TRACE_AT(stWhere, NP_M_COMM, NP_PRINT_ERROR, "param error! ulSmemID=0x%08x\r\n",
                    ulSmemID);
        return NP_ERR_PARAM;
    }
    if (ulLength > NP_SMEM_LEN_128) {
        NP_TRACE_AT(stWhere, NP_M_COMM, NP_PRINT_ERROR, "param error! ulLength=0x%08x\r\n",
                    ulLength);
        return NP_ERR_PARAM;
    }
    return NP_OK;
}

// What a plain access makes of the driver's code and the status word.
uint32_t Np_AccessResult(uint32_t ulReturn, const NpSmemRsp *pstRsp, const char *pszWhat,
                         NpWhere stWhere = Np_Here())
{
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_COMM, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
        return ulReturn;
    }
    if (pstRsp->ulStatus != NP_SMEM_STATUS_OK) {
        NP_TRACE_AT(stWhere, NP_M_COMM, NP_PRINT_ERROR, "%s smem failed! ulStatus=0x%08x\r\n",
                    pszWhat, pstRsp->ulStatus);
        return NP_ERR_SMEM_OP;
    }
    return NP_OK;
}

uint32_t Np_AccessRead(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulLength, uint32_t ulOffAddr,
                       NpSmemOp enOp, const char *pszWhat, uint32_t *pulRetArray,
                       NpWhere stWhere = Np_Here())
{
    uint32_t ulReturn = Np_AccessCheck(ulSmemID, ulLength, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpSmemReq stReq = {ulLength, ulOffAddr};
    NpSmemRsp stRsp;
    ulReturn = Np_PlainSend(ulChipID, ulSmemID, &stReq, enOp, NP_RBA_CLASS_READ, nullptr, &stRsp);
    ulReturn = Np_AccessResult(ulReturn, &stRsp, pszWhat, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint32_t ulBytes = Np_LengthBytes(ulLength);
    const uint8_t *pucValue = stRsp.aucData + NP_SMEM_BLOCK_SIZE - ulBytes;
    if (ulLength == NP_SMEM_LEN_16) {
        uint16_t usValue;
        __builtin_memcpy(&usValue, pucValue, sizeof(usValue));
        *pulRetArray = usValue;
        return NP_OK;
    }
    Np_ValueCopy(pulRetArray, pucValue, ulLength);
    return NP_OK;
}

uint32_t Np_AccessWrite(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulLength, uint32_t ulOffAddr,
                        const uint8_t *pucData, NpWhere stWhere = Np_Here())
{
    uint32_t ulReturn = Np_AccessCheck(ulSmemID, ulLength, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpSmemReq stReq = {ulLength, ulOffAddr};
    const uint32_t ulBytes = Np_LengthBytes(ulLength);
    uint8_t aucBlock[NP_SMEM_BLOCK_SIZE] = {};
    Np_ValueCopy(aucBlock + NP_SMEM_BLOCK_SIZE - ulBytes, pucData, ulLength);
    NpSmemRsp stRsp;
    ulReturn = Np_PlainSend(ulChipID, ulSmemID, &stReq, NP_SMEM_OP_WRITE, NP_RBA_CLASS_WRITE,
                            aucBlock, &stRsp);
    return Np_AccessResult(ulReturn, &stRsp, "write", stWhere);
}

}  // namespace

// Traces under the name of the function it stands in, and hands the driver's code to the recorder.
#define NP_SMEM_INIT_FAILED(text)                            \
    do {                                                     \
        Np_RecordErrInfo(ulChipID, ulReturn, 0);             \
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, text, ulReturn); \
        return ulReturn;                                     \
    } while (0)

uint32_t Np_Tarn_SmemInit(uint32_t ulChipID)
{
    uint32_t ulReturn;
    const uint32_t ulSmemNum = Np_GLB_CapGet(NP_CAP_SMEM_NUM);
    for (uint32_t ulSmemID = 0; ulSmemID < ulSmemNum; ulSmemID++) {
        uint32_t aulParam[NP_SMEM_INIT_WORDS];
        __builtin_memcpy(aulParam, &g_aulNpSmemInitParam[ulChipID][ulSmemID * NP_SMEM_INIT_WORDS],
                         sizeof(aulParam));
        ulReturn = Qd_SMEM_MemInit(ulChipID, ulSmemID, aulParam);
        if (ulReturn != NP_OK) {
            NP_SMEM_INIT_FAILED("smem 0 Qd_SMEM_MemInit failed(0x%08x)!\r\n");
        }
    }
    for (uint32_t ulQueue = 0; ulQueue < Np_GLB_CapGet(NP_CAP_SMEM_QUEUE_NUM); ulQueue++) {
        const uint32_t ulAddr = (Np_GLB_CapGet(NP_CAP_SMEM_QUEUE_BASE) >> 1) +
                                ulQueue * (Np_GLB_CapGet(NP_CAP_SMEM_QUEUE_STRIDE) >> 1);
        ulReturn = Qd_SMEM_QueueSet(ulChipID, Np_GLB_CapGet(NP_CAP_SMEM_QUEUE_MEM), ulQueue, ulAddr,
                                    Np_GLB_CapGet(NP_CAP_SMEM_QUEUE_DEPTH));
        if (ulReturn != NP_OK) {
            NP_SMEM_INIT_FAILED("smem 0 Qd_SMEM_QueueSet failed(0x%08x)!\r\n");
        }
    }
    // A block that an earlier bring-up left behind is used again, cleared.
    const uint32_t ulDdrSize = Np_GLB_CapGet(NP_CAP_DDR_BLOCK_SIZE);
    if (g_aulDdrAddr[ulChipID] != nullptr) {
        memset(g_aulDdrAddr[ulChipID], 0, ulDdrSize);
    }
    else {
        g_aulDdrAddr[ulChipID] = static_cast<uint8_t *>(Os_Alloc(ulDdrSize));
    }
    if (g_aulDdrAddr[ulChipID] == nullptr) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "memory alloc failed!\r\n");
        return NP_ERR_NO_MEMORY;
    }
    // Bus addresses have 32 bits, as kernel addresses have on the target.
    const uint32_t ulBus =
        static_cast<uint32_t>(reinterpret_cast<uintptr_t>(g_aulDdrAddr[ulChipID])) -
        NP_KERNEL_TO_BUS;
    for (uint32_t ulSmemID = 0; ulSmemID < ulSmemNum; ulSmemID++) {
        ulReturn = Qd_SMEM_DdrBaseAddrSet(ulChipID, ulSmemID, ulBus >> 1);
        if (ulReturn != NP_OK) {
            NP_SMEM_INIT_FAILED("smem Qd_SMEM_DdrBaseAddrSet failed(0x%08x)!\r\n");
        }
    }
    return NP_OK;
}

uint32_t Np_Tarn_SmemDestruct(uint32_t ulChipID)
{
    Np_FreeAndForget(&g_aulDdrAddr[ulChipID]);
    return NP_OK;
}

uint32_t Np_Tarn_SmemRead(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulLength,
                          uint32_t ulOffAddr, uint32_t *pulRetArray)
{
    return Np_AccessRead(ulChipID, ulSmemID, ulLength, ulOffAddr, NP_SMEM_OP_READ, "read",
                         pulRetArray);
}

uint32_t Np_Tarn_SmemReadClear(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulLength,
                               uint32_t ulOffAddr, uint32_t *pulRetArray)
{
    return Np_AccessRead(ulChipID, ulSmemID, ulLength, ulOffAddr, NP_SMEM_OP_READ_CLEAR,
                         "readclear", pulRetArray);
}

uint32_t Np_Tarn_SmemWrite(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulLength,
                           uint32_t ulOffAddr, const uint8_t *pucData)
{
    return Np_AccessWrite(ulChipID, ulSmemID, ulLength, ulOffAddr, pucData);
}

uint32_t Np_Tarn_SmemClear(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulLength,
                           uint32_t ulOffAddr)
{
    return Np_AccessWrite(ulChipID, ulSmemID, ulLength, ulOffAddr, g_aucZeroBlock);
}

uint32_t Np_Tarn_SMEM_ReqRead(uint32_t ulChipID, uint32_t ulSmemID, const NpSmemReq *pstReq,
                              NpSmemRsp *pstRsp)
{
    return Np_PlainSend(ulChipID, ulSmemID, pstReq, NP_SMEM_OP_READ, NP_RBA_CLASS_READ, nullptr,
                        pstRsp);
}

uint32_t Np_Tarn_SMEM_ReqReadClear(uint32_t ulChipID, uint32_t ulSmemID, const NpSmemReq *pstReq,
                                   NpSmemRsp *pstRsp)
{
    return Np_PlainSend(ulChipID, ulSmemID, pstReq, NP_SMEM_OP_READ_CLEAR, NP_RBA_CLASS_READ,
                        nullptr, pstRsp);
}

uint32_t Np_Tarn_SMEM_ReqWrite(uint32_t ulChipID, uint32_t ulSmemID, const NpSmemReq *pstReq,
                               const uint8_t *pucBlock, NpSmemRsp *pstRsp)
{
    return Np_PlainSend(ulChipID, ulSmemID, pstReq, NP_SMEM_OP_WRITE, NP_RBA_CLASS_WRITE, pucBlock,
                        pstRsp);
}

uint32_t Np_Tarn_SMEM_ReqAdd(uint32_t ulChipID, uint32_t ulSmemID, const NpSmemAddReq *pstReq,
                             uint32_t ulLimit, uint32_t ulValue, NpSmemRsp *pstRsp)
{
    NpRbaReqCmd stFrame;
    const uint32_t ulCommand = NP_SMEM_OP_ADD | (pstReq->ulAddWidth & 7) << 4 |
                               (pstReq->ulOption1 & 1) << 7 | (pstReq->ulOption2 & 1) << 8 |
                               (pstReq->ulSub & 1) << 9;
    Np_FrameStart(ulChipID, ulSmemID, &stFrame, pstReq->ulOffAddr & NP_SMEM_ADDR_MASK, ulCommand,
                  NP_RBA_CLASS_WRITE);
    Np_FrameWord(&stFrame, NP_RBA_LIMIT, ulLimit);
    Np_FrameHalf(&stFrame, NP_RBA_VALUE, ulValue);
    return Np_FrameSend(ulChipID, &stFrame, pstRsp);
}

uint32_t Np_Tarn_SMEM_ReqSetBit(uint32_t ulChipID, uint32_t ulSmemID, const NpSmemReq *pstReq,
                                const uint8_t *pucBlock, NpSmemRsp *pstRsp)
{
    const uint32_t ulReturn = Np_PlainSend(ulChipID, ulSmemID, pstReq, NP_SMEM_OP_SET_BIT,
                                           NP_RBA_CLASS_WRITE, pucBlock, pstRsp);
    if (ulReturn == NP_OK && pstRsp->ulStatus > 1) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "smem setbit failed! ulStatus=0x%08x\r\n",
                 pstRsp->ulStatus);
        return NP_ERR_SMEM_OP;
    }
    return ulReturn;
}

uint32_t Np_Tarn_SMEM_ReqEmlSearch(uint32_t ulChipID, uint32_t ulSmemID,
                                   const NpSmemHashReq *pstReq, const uint8_t *pucPayload,
                                   NpSmemRsp *pstRsp)
{
    return Np_HashSend(ulChipID, ulSmemID, pstReq, NP_SMEM_OP_SEARCH, 0, pucPayload, 1, pstRsp);
}

uint32_t Np_Tarn_SMEM_ReqEmlSearchUpdata(uint32_t ulChipID, uint32_t ulSmemID,
                                         const NpSmemHashReq *pstReq, const uint8_t *pucPayload,
                                         uint32_t ulCode, NpSmemRsp *pstRsp)
{
    return Np_HashSend(ulChipID, ulSmemID, pstReq, NP_SMEM_OP_SEARCH_UPDATE, ulCode, pucPayload, 1,
                       pstRsp);
}

uint32_t Np_Tarn_SMEM_ReqEmlSearchBuild(uint32_t ulChipID, uint32_t ulSmemID,
                                        const NpSmemHashReq *pstReq, const uint8_t *pucPayload,
                                        NpSmemRsp *pstRsp)
{
    return Np_HashSend(ulChipID, ulSmemID, pstReq, NP_SMEM_OP_SEARCH_BUILD, 0, pucPayload, 1,
                       pstRsp);
}

uint32_t Np_Tarn_SMEM_ReqEmlSearchUpdataBuild(uint32_t ulChipID, uint32_t ulSmemID,
                                              const NpSmemHashReq *pstReq,
                                              const uint8_t *pucPayload, uint32_t ulCode,
                                              NpSmemRsp *pstRsp)
{
    return Np_HashSend(ulChipID, ulSmemID, pstReq, NP_SMEM_OP_SEARCH_UPDATE_BUILD, ulCode,
                       pucPayload, NP_SMEM_BUILD_SENDS, pstRsp);
}

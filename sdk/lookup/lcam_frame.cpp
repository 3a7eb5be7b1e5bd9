// The commands of the LCAM: one frame each, to one block, with no checks.
#include "ldsdk/status.h"
#include "sdk/access/frame.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/lookup/lcam.h"

namespace {

inline constexpr uint32_t NP_LCAM_ADDR_FLAG = 1u << 23;
inline constexpr uint32_t NP_LCAM_CID_ROOM = 4;  // bits in front of a key

enum NpLcamOp : uint32_t {
    NP_LCAM_OP_VALID_CLEAR = 5,
    NP_LCAM_OP_VALID_SET = 6,
};

// Reads are by one or two TCAMs; the fields are those of the TCAM tables.
constexpr NpLcamCommand g_astTcamRead[] = {
    {0, 0x0, 1, 1, 0, 0, 2, 1},
    {0, 0x8, 2, 1, 0, 1, 2, 1},
};

constexpr uint8_t g_aucZeroKey[NP_LCAM_KEY_MAX] = {};

// Header of a frame.
struct NpLcamWire {
    uint32_t ulTarget;
    uint32_t ulSelect;
    uint32_t ulOp;
    uint32_t ulWidthCode;
    uint32_t ulWidthClass;
    uint32_t ulAccess;
};

NpLcamWire Np_TcamWire(const NpLcamCommand *pstCommand, uint32_t ulTcam, uint32_t ulOp)
{
    return {.ulTarget = pstCommand->ulTarget,
            .ulSelect = pstCommand->ulSelectBase + ulTcam / pstCommand->ulSelectDiv,
            .ulOp = ulOp,
            .ulWidthCode = pstCommand->ulWidthCode,
            .ulWidthClass = pstCommand->ulWidthClass,
            .ulAccess = pstCommand->ulAccess};
}

// The fields of the AD tables from ulOpSecond on have roles of their own.
NpLcamWire Np_AdWire(const NpLcamCommand *pstCommand, uint32_t ulTcam)
{
    return {.ulTarget = pstCommand->ulWidthCode,
            .ulSelect = pstCommand->ulSelectBase + ulTcam / pstCommand->ulSelectDiv,
            .ulOp = pstCommand->ulOpFirst,
            .ulWidthCode = pstCommand->ulOpSecond,
            .ulWidthClass = pstCommand->ulWidthClass,
            .ulAccess = pstCommand->ulTarget};
}

uint32_t Np_AdBytes(const NpLcamCommand *pstCommand)
{
    return pstCommand->ulAccess / 8;
}

void Np_WireBuild(const NpLcamWire *pstWire, const NpLcamTcamAttr *pstAttr, NpRbaReqCmd *pstFrame)
{
    *pstFrame = {};
    const uint32_t ulAddress = pstWire->ulTarget << 28 | (pstAttr->ulCid & 0xf) << 24 |
                               NP_LCAM_ADDR_FLAG | (pstAttr->ulDepth & 0x1ff);
    const uint16_t usCommand =
        static_cast<uint16_t>(pstAttr->ulBlock << 13 | (pstWire->ulSelect & 0x1f) << 8 |
                              (pstWire->ulOp & 0xf) << 4 | (pstWire->ulWidthCode & 7));
    __builtin_memcpy(pstFrame->aucByte, &ulAddress, sizeof(ulAddress));
    __builtin_memcpy(pstFrame->aucByte + NP_RBA_COMMAND, &usCommand, sizeof(usCommand));
    pstFrame->aucByte[NP_RBA_CLASS] = static_cast<uint8_t>(pstWire->ulAccess);
    pstFrame->aucByte[NP_RBA_WIDTH] = static_cast<uint8_t>(pstWire->ulWidthClass);
}

uint32_t Np_WireSend(uint32_t ulChipID, const NpRbaReqCmd *pstFrame, NpRbaRspCmd *pstAnswer,
                     NpWhere stWhere = Np_Here())
{
    *pstAnswer = {};
    const uint32_t ulReturn = Qd_RBA_CommandSend(ulChipID, pstFrame, pstAnswer);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_LCAM, NP_PRINT_ERROR,
                    "rba command send failed! ulreturn = 0x%08x\r\n", ulReturn);
        return ulReturn;
    }
    uint32_t ulStatus;
    __builtin_memcpy(&ulStatus, pstAnswer->aucByte, sizeof(ulStatus));
    if (ulStatus != 0) {
        NP_TRACE_AT(stWhere, NP_M_LCAM, NP_PRINT_ERROR, "error!, ulStatus = 0x%08x\r\n", ulStatus);
        return NP_ERR_SMEM_OP;
    }
    return NP_OK;
}

// Sends a command that carries ulBits bits of data, or none.
uint32_t Np_WireWrite(uint32_t ulChipID, const NpLcamWire *pstWire, const NpLcamTcamAttr *pstAttr,
                      uint32_t ulBits, const void *pvData, NpWhere stWhere = Np_Here())
{
    NpRbaReqCmd stFrame;
    Np_WireBuild(pstWire, pstAttr, &stFrame);
    if (pvData != nullptr) {
        const uint32_t ulReturn = Np_Tarn_LCAM_BuildReqData(ulBits, pvData, &stFrame);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    NpRbaRspCmd stAnswer;
    return Np_WireSend(ulChipID, &stFrame, &stAnswer, stWhere);
}

// Sends a command that answers with ulBytes bytes, which stand at the end of the response.
uint32_t Np_WireRead(uint32_t ulChipID, const NpLcamWire *pstWire, const NpLcamTcamAttr *pstAttr,
                     uint32_t ulBytes, void *pvData, NpWhere stWhere = Np_Here())
{
    NpRbaReqCmd stFrame;
    Np_WireBuild(pstWire, pstAttr, &stFrame);
    NpRbaRspCmd stAnswer;
    const uint32_t ulReturn = Np_WireSend(ulChipID, &stFrame, &stAnswer, stWhere);
    if (ulReturn == NP_OK) {
        memcpy(pvData, stAnswer.aucByte + sizeof(stAnswer.aucByte) - ulBytes, ulBytes);
    }
    return ulReturn;
}

// X, then Y, of one or two TCAMs.
uint32_t Np_TcamRead(uint32_t ulChipID, uint32_t ulType, const NpLcamTcamAttr *pstAttr,
                     uint8_t *pucX, uint8_t *pucY, NpWhere stWhere = Np_Here())
{
    const NpLcamCommand *pstCommand = &g_astTcamRead[ulType];
    const NpLcamWire stData = Np_TcamWire(pstCommand, pstAttr->ulTcam, pstCommand->ulOpFirst);
    const uint32_t ulReturn =
        Np_WireRead(ulChipID, &stData, pstAttr, Np_LcamKeyBytes(ulType), pucX, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpLcamWire stMask = Np_TcamWire(pstCommand, pstAttr->ulTcam, pstCommand->ulOpSecond);
    return Np_WireRead(ulChipID, &stMask, pstAttr, Np_LcamKeyBytes(ulType), pucY, stWhere);
}

uint32_t Np_TcamPairsRead(uint32_t ulChipID, uint32_t ulPairs, const NpLcamTcamAttr *pstAttr,
                          uint8_t *pucX, uint8_t *pucY)
{
    NpLcamTcamAttr stPair = *pstAttr;
    for (uint32_t i = 0; i < ulPairs; i++) {
        const uint32_t ulAt = i * Np_LcamKeyBytes(1);
        const uint32_t ulReturn =
            Np_Tarn_LCAM_ReadTcam80(ulChipID, &stPair, pucX + ulAt, pucY + ulAt);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
        stPair.ulTcam += 2;
    }
    return NP_OK;
}

// The data command with X, then the mask command with Y.
uint32_t Np_TcamWrite(uint32_t ulChipID, const NpLcamCommand *pstCommand,
                      const NpLcamTcamAttr *pstAttr, uint32_t ulBits, const uint8_t *pucX,
                      const uint8_t *pucY, NpWhere stWhere = Np_Here())
{
    const NpLcamWire stData = Np_TcamWire(pstCommand, pstAttr->ulTcam, pstCommand->ulOpFirst);
    const uint32_t ulReturn = Np_WireWrite(ulChipID, &stData, pstAttr, ulBits, pucX, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpLcamWire stMask = Np_TcamWire(pstCommand, pstAttr->ulTcam, pstCommand->ulOpSecond);
    return Np_WireWrite(ulChipID, &stMask, pstAttr, ulBits, pucY, stWhere);
}

}  // namespace

uint32_t Np_Tarn_LCAM_BuildReqData(uint32_t ulBitsLength, const void *pvData,
                                   NpRbaReqCmd *pstRbaReqCmd)
{
    const bool bShift = ulBitsLength % 8 == NP_LCAM_CID_ROOM;
    const uint32_t ulBytes = (ulBitsLength + 7) / 8;
    if (ulBytes > NP_LCAM_KEY_MAX) {
        return NP_ERR_PARAM;
    }
    const uint8_t *pucData = static_cast<const uint8_t *>(pvData);
    const uint32_t ulFirst =
        ulBytes % NP_RBA_GROUP;  // bytes of the last group, right-aligned there
    uint32_t ulBefore = 0;
    for (uint32_t i = 0; i < ulBytes; i++) {
        const uint32_t ulPair = static_cast<uint32_t>(pucData[i]) << 8 | ulBefore;
        ulBefore = pucData[i];
        // From the entry's end: groups lie in the frame the other way round than in the entry.
        const uint32_t ulGroup = (ulBytes - 1 - i) / NP_RBA_GROUP;
        const uint32_t ulPlace = (i - ulFirst) % NP_RBA_GROUP;
        pstRbaReqCmd->aucByte[NP_RBA_PAYLOAD + ulGroup * NP_RBA_GROUP + ulPlace] =
            static_cast<uint8_t>(bShift ? ulPair >> 4 : pucData[i]);
    }
    return NP_OK;
}

uint32_t Np_Tarn_LCAM_ReadAd(uint32_t ulChipID, uint32_t ulType,
                             const NpLcamTcamAttr *pstLcamTcamAttr, void *pvAd)
{
    const NpLcamCommand *pstCommand = &g_pastNpLcamAdRead[ulType];
    const NpLcamWire stWire = Np_AdWire(pstCommand, pstLcamTcamAttr->ulTcam);
    return Np_WireRead(ulChipID, &stWire, pstLcamTcamAttr, Np_AdBytes(pstCommand), pvAd);
}

uint32_t Np_Tarn_LCAM_WriteAd(uint32_t ulChipID, uint32_t ulType,
                              const NpLcamTcamAttr *pstLcamTcamAttr, const void *pvAd)
{
    const NpLcamCommand *pstCommand = &g_pastNpLcamAdWrite[ulType];
    const NpLcamWire stWire = Np_AdWire(pstCommand, pstLcamTcamAttr->ulTcam);
    return Np_WireWrite(ulChipID, &stWire, pstLcamTcamAttr, pstCommand->ulAccess, pvAd);
}

uint32_t Np_Tarn_LCAM_ReadTcam40(uint32_t ulChipID, const NpLcamTcamAttr *pstLcamTcamAttr,
                                 uint8_t *pucX, uint8_t *pucY)
{
    return Np_TcamRead(ulChipID, 0, pstLcamTcamAttr, pucX, pucY);
}

uint32_t Np_Tarn_LCAM_ReadTcam80(uint32_t ulChipID, const NpLcamTcamAttr *pstLcamTcamAttr,
                                 uint8_t *pucX, uint8_t *pucY)
{
    return Np_TcamRead(ulChipID, 1, pstLcamTcamAttr, pucX, pucY);
}

uint32_t Np_Tarn_LCAM_ReadTcam160(uint32_t ulChipID, const NpLcamTcamAttr *pstLcamTcamAttr,
                                  uint8_t *pucX, uint8_t *pucY)
{
    return Np_TcamPairsRead(ulChipID, 2, pstLcamTcamAttr, pucX, pucY);
}

uint32_t Np_Tarn_LCAM_ReadTcam320(uint32_t ulChipID, const NpLcamTcamAttr *pstLcamTcamAttr,
                                  uint8_t *pucX, uint8_t *pucY)
{
    return Np_TcamPairsRead(ulChipID, 4, pstLcamTcamAttr, pucX, pucY);
}

uint32_t Np_Tarn_LCAM_WriteTcamOriginal(uint32_t ulChipID, uint32_t ulType, uint32_t ulCamMode,
                                        const NpLcamTcamAttr *pstLcamTcamAttr, const uint8_t *pucX,
                                        const uint8_t *pucY)
{
    const uint32_t *pulKeyLen = ulCamMode == 0 ? g_aulEngrossKeyLen : g_aulShareKeyLen;
    const uint32_t ulReturn = Np_TcamWrite(ulChipID, &g_pastNpLcamTcamWrite[ulType],
                                           pstLcamTcamAttr, pulKeyLen[ulType], pucX, pucY);
    if (ulReturn != NP_OK && ulReturn != NP_ERR_SMEM_OP) {
        Np_RecordErrInfo(ulChipID, ulReturn, 0);
    }
    return ulReturn;
}

uint32_t Np_Tarn_LCAM_ClearTcam(uint32_t ulChipID, uint32_t ulType,
                                const NpLcamTcamAttr *pstLcamTcamAttr)
{
    return Np_TcamWrite(ulChipID, &g_pastNpLcamTcamClear[ulType], pstLcamTcamAttr,
                        Np_LcamKeyBytes(ulType) * 8, g_aucZeroKey, g_aucZeroKey);
}

uint32_t Np_Tarn_LCAM_WriteTcamVbit(uint32_t ulChipID, const NpLcamAccessInfo *pstLcamAccessInfo,
                                    uint32_t ulVbit)
{
    const uint32_t ulReturn = Np_Tarn_LCAM_AccessInfoCheck(pstLcamAccessInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    // The select field is that of the entry's width; there is no payload and so no width.
    NpLcamWire stWire =
        Np_TcamWire(&g_pastNpLcamTcamWrite[pstLcamAccessInfo->ulType], pstLcamAccessInfo->ulTcam,
                    ulVbit == 0 ? NP_LCAM_OP_VALID_CLEAR : NP_LCAM_OP_VALID_SET);
    stWire.ulWidthCode = 0;
    stWire.ulWidthClass = 0;
    const NpLcamTcamAttr stAttr = Np_LcamTcamAttr(pstLcamAccessInfo);
    return Np_WireWrite(ulChipID, &stWire, &stAttr, 0, nullptr);
}

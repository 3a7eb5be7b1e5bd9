#include "sdk/micro/load.h"

#include "platform/driver.h"
#include "platform/os.h"
#include "sdk/access/bus.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/micro/thread.h"

constinit NpMicroInfo g_stNpMicroInfo[NP_CHIP_NUM] = {};
constinit NpMicroConfig g_stNpMicroConfig[NP_CHIP_NUM] = {};

namespace {

// Registers of the packet feed.
constexpr uint32_t g_aulFreeThCntReg[] = {0x7810016c, 0x78100168, 0x78100164, 0x78100160};
inline constexpr uint32_t NP_FREE_TH_CNT_OLD_REG = 0x78100020;  // one byte for each feed
inline constexpr uint32_t NP_FREE_TH_CNT_MASK = 63;

// The bytes behind an address word of an image that the load under way keeps in its place. Null
// when the board has taken it away since.
uint8_t *Np_ImageAt(uint32_t ulAddress, uint32_t ulLength)
{
    void *pvImage = Os_ImageGet(ulAddress, ulLength, false);
    if (pvImage != nullptr) {
        Os_ImagePut(ulAddress);
    }
    return static_cast<uint8_t *>(pvImage);
}

void Np_VersionTake(uint32_t ulChipID, const uint8_t *pucTrailer)
{
    NpMicroVersion &stVersion = g_stNpMicroVersion[ulChipID];
    memcpy(stVersion.szVerHigh, pucTrailer, 4);
    memcpy(stVersion.szVerLow, pucTrailer + 4, 4);
    memcpy(stVersion.szYear, pucTrailer + 8, 4);
    memcpy(stVersion.szMonth, pucTrailer + 12, 2);
    memcpy(stVersion.szDay, pucTrailer + 14, 2);
    memcpy(stVersion.szUserDefine, pucTrailer + 16, 16);
    memcpy(stVersion.aucRaw, pucTrailer, NP_MICRO_TRAILER_SIZE);
    stVersion.ulValid = 1;
}

// Big-endian words to native ones and back. Bytes behind the last whole word stay as they are.
template <typename Word>
void Np_WordsSwap(Word *pWords, uint32_t ulCount)
{
    for (uint32_t i = 0; i < ulCount; i++) {
        uint32_t ulWord;
        __builtin_memcpy(&ulWord, &pWords[i], sizeof(ulWord));
        ulWord = __builtin_bswap32(ulWord);
        __builtin_memcpy(&pWords[i], &ulWord, sizeof(ulWord));
    }
}

void Np_ImageSwap(uint8_t *pucImage, uint32_t ulLength)
{
    struct Bytes {
        uint8_t auc[4];
    };
    if (reinterpret_cast<uintptr_t>(pucImage) % 4 == 0) {
        Np_WordsSwap(reinterpret_cast<uint32_t *>(pucImage), ulLength / 4);
        return;
    }
    Np_WordsSwap(reinterpret_cast<Bytes *>(pucImage), ulLength / 4);
}

// A driver's failure: recorded, traced, handed on as ulReturn.
#define NP_DRIVER_FAILED_AT(stWhere, pszText, ulCode)                     \
    do {                                                                  \
        Np_RecordErrInfo(ulChipID, ulCode, 0);                            \
        NP_TRACE_AT(stWhere, NP_M_ATOM, NP_PRINT_ERROR, pszText, ulCode); \
    } while (0)
#define NP_DRIVER_FAILED(pszText, ulCode) NP_DRIVER_FAILED_AT(Np_Here(), pszText, ulCode)

// A section, with its length at least ulMin.
uint32_t Np_SectionGet(uint32_t ulChipID, uint32_t ulBinDescCode, uint32_t ulMin,
                       uint8_t **ppucData, uint32_t *pulLen, NpWhere stWhere = Np_Here())
{
    uint32_t ulAddr = 0;
    uint32_t ulReturn = Np_Tarn_LOAD_FileInfoGet(ulChipID, ulBinDescCode, &ulAddr, pulLen);
    if (ulReturn == NP_OK) {
        *ppucData = Np_ImageAt(ulAddr, *pulLen);
        if (*pulLen < ulMin || *ppucData == nullptr) {
            ulReturn = NP_ERR_NOT_EXIST;
        }
    }
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_ATOM, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
        return ulReturn;
    }
    Np_Tarn_LOAD_DebugTrace(NP_M_ATOM, NP_PRINT_DEBUG, ulBinDescCode, ulAddr, *pulLen);
    return NP_OK;
}

uint32_t Np_AtomConfigSet(uint32_t ulChipID, uint32_t ulAtomID, const NpMicroConfig &stConfig,
                          NpWhere stWhere = Np_Here())
{
    uint32_t ulReturn = Qd_ATOM_MaxPCSet(ulChipID, ulAtomID, stConfig.ulMaxPC);
    if (ulReturn != NP_OK) {
        NP_DRIVER_FAILED_AT(stWhere, "Qd_ATOM_MaxPCSet failed ulReturn = 0x%08x \r\n", ulReturn);
        return ulReturn;
    }
    ulReturn = Qd_ATOM_ExceptionPcSet(ulChipID, ulAtomID, stConfig.ulExcepPC);
    if (ulReturn != NP_OK) {
        NP_DRIVER_FAILED_AT(stWhere, "Qd_ATOM_ExceptionPcSet failed ulReturn = 0x%08x \r\n",
                            ulReturn);
        return ulReturn;
    }
    ulReturn = Np_Micro_ThreadWalk([&](uint32_t ulNpuID, uint32_t ulThreadID) {
        return Qd_ATOM_ThreadNextPCSet(ulChipID, ulAtomID, ulNpuID, ulThreadID, stConfig.ulStartPC);
    });
    if (ulReturn != NP_OK) {
        NP_DRIVER_FAILED_AT(stWhere, "Qd_ATOM_ThreadNextPCSet failed ulReturn = 0x%08x \r\n",
                            ulReturn);
    }
    return ulReturn;
}

uint32_t Np_SectionMissing(uint32_t ulBinDescCode, NpWhere stWhere = Np_Here())
{
    NP_TRACE_AT(stWhere, NP_M_ATOM, NP_PRINT_TRACE,
                "\r\n error, desc code not exit, ulBinDescCode = 0x%08x ", ulBinDescCode);
    return NP_ERR_NOT_EXIST;
}

}  // namespace

uint32_t Np_Tarn_LOAD_AddrConfigSet(uint32_t ulChipID, uint32_t ulAddress, uint32_t ulLength)
{
    NP_TRACE(NP_M_ATOM, NP_PRINT_TRACE,
             "in, ulChipID = 0x%08x, ulAddress = 0x%08x, ulLength = 0x%08x \r\n", ulChipID,
             ulAddress, ulLength);
    g_stNpMicroInfo[ulChipID] = {ulAddress, ulLength};
    return NP_OK;
}

uint32_t Np_Tarn_LOAD_AddrConfigGet(uint32_t ulChipID, uint32_t *pulAddress, uint32_t *pulLength)
{
    if (pulAddress == nullptr || pulLength == nullptr) {
        NP_TRACE(NP_M_ATOM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    *pulAddress = g_stNpMicroInfo[ulChipID].ulAddress;
    *pulLength = g_stNpMicroInfo[ulChipID].ulLength;
    NP_TRACE(NP_M_ATOM, NP_PRINT_TRACE,
             "out, ulChipID = 0x%08x, *pulAddress = 0x%08x, *pulLength = 0x%08x \r\n", ulChipID,
             *pulAddress, *pulLength);
    return NP_OK;
}

uint32_t Np_Tarn_LOAD_FileInfoGet(uint32_t ulChipID, uint32_t ulBinDescCode, uint32_t *pulAddr,
                                  uint32_t *pulLen)
{
    if (pulAddr == nullptr || pulLen == nullptr) {
        NP_TRACE(NP_M_ATOM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    uint32_t ulAddress = 0;
    uint32_t ulLength = 0;
    Np_Tarn_LOAD_AddrConfigGet(ulChipID, &ulAddress, &ulLength);
    const uint8_t *pucImage = Np_ImageAt(ulAddress, ulLength);
    for (uint32_t i = 0; i < NP_MICRO_SECTION_WALK; i++) {
        // The table itself may run out of a damaged image.
        NpMicroSection stSection;
        const uint32_t ulAt = i * sizeof(stSection);
        if (pucImage == nullptr || ulLength < sizeof(stSection) ||
            ulAt > ulLength - sizeof(stSection)) {
            break;
        }
        memcpy(&stSection, pucImage + ulAt, sizeof(stSection));
        if (stSection.ulBinDescCode == NP_MICRO_END) {
            NP_TRACE(NP_M_ATOM, NP_PRINT_ERROR,
                     "\r\n error, desc code not exit, find out invalid section type");
            return NP_ERR_NOT_EXIST;
        }
        if (stSection.ulBinDescCode != ulBinDescCode) {
            continue;
        }
        if (i >= NP_MICRO_SECTION_NUM || stSection.ulOffset > ulLength ||
            stSection.ulDataSize > ulLength - stSection.ulOffset) {
            break;
        }
        NP_TRACE(NP_M_ATOM, NP_PRINT_DEBUG,
                 "debug, Offset = 0x%x, DataSize = 0x%x, BaseAddr = 0x%x \r\n", stSection.ulOffset,
                 stSection.ulDataSize, ulAddress);
        *pulAddr = ulAddress + stSection.ulOffset;
        *pulLen = stSection.ulDataSize;
        return NP_OK;
    }
    return Np_SectionMissing(ulBinDescCode);
}

void Np_Tarn_LOAD_DebugTrace(uint32_t ulModuleID, uint32_t ulSwitchID, uint32_t ulBinDescCode,
                             uint32_t ulAddr, uint32_t ulLen)
{
    NP_TRACE(NP_M_ATOM, NP_PRINT_DEBUG,
             "debug, ulModuleID = 0x%x, ulSwitchID = 0x%x, ulBinDescCode = 0x%x, addr = 0x%x, "
             "len = 0x%x \r\n",
             ulModuleID, ulSwitchID, ulBinDescCode, ulAddr, ulLen);
}

uint32_t Np_Tarn_LOAD_InstrStoreLoad(uint32_t ulChipID)
{
    uint8_t *pucData = nullptr;
    uint32_t ulLen = 0;
    uint32_t ulReturn = Np_SectionGet(ulChipID, NP_MICRO_INSTR_STORE, 0, &pucData, &ulLen);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Qd_IMEM_InsMemLoad(ulChipID, 0, pucData, ulLen);
    if (ulReturn != NP_OK) {
        NP_DRIVER_FAILED("Qd_IMEM_InsMemLoad failed ulReturn = 0x%08x \r\n", ulReturn);
        return NP_ERR_IMEM_LOAD;
    }
    return NP_OK;
}

uint32_t Np_Tarn_LOAD_ConfigDataLoad(uint32_t ulChipID)
{
    NpMicroConfig stConfig;
    uint8_t *pucData = nullptr;
    uint32_t ulLen = 0;
    uint32_t ulReturn =
        Np_SectionGet(ulChipID, NP_MICRO_CONFIG_DATA, sizeof(stConfig), &pucData, &ulLen);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    memcpy(&stConfig, pucData, sizeof(stConfig));
    const uint32_t ulAtomNum = Np_GLB_CapGet(NP_CAP_ATOM_NUM);
    for (uint32_t ulAtomID = 0; ulAtomID < ulAtomNum; ulAtomID++) {
        ulReturn = Np_AtomConfigSet(ulChipID, ulAtomID, stConfig);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    NP_TRACE(NP_M_ATOM, NP_PRINT_DEBUG,
             "debug, ulStartPC = 0x%x, ulMaxPC = 0x%x, ulExcepPC = 0x%x \r\n", stConfig.ulStartPC,
             stConfig.ulMaxPC, stConfig.ulExcepPC);
    g_stNpMicroConfig[ulChipID] = stConfig;
    return NP_OK;
}

uint32_t Np_Tarn_LOAD_BranchRulesLoad(uint32_t ulChipID)
{
    uint8_t *pucData = nullptr;
    uint32_t ulLen = 0;
    uint32_t ulReturn = Np_SectionGet(ulChipID, NP_MICRO_BRANCH_RULES, 0, &pucData, &ulLen);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Qd_LCAM_ProtectDepthSet(ulChipID, g_stNpMicroConfig[ulChipID].ulProtectDepth0,
                                       g_stNpMicroConfig[ulChipID].ulProtectDepth1);
    if (ulReturn != NP_OK) {
        NP_DRIVER_FAILED("Qd_LCAM_ProtectDepthSet failed ulReturn = 0x%08x \r\n", ulReturn);
        return ulReturn;
    }
    ulReturn = Qd_LCAM_RcamWrite(ulChipID, 0, ulLen, pucData);
    if (ulReturn != NP_OK) {
        NP_DRIVER_FAILED("Qd_LCAM_RcamWrite failed ulReturn = 0x%08x \r\n", ulReturn);
    }
    return ulReturn;
}

uint32_t Np_Tarn_LOAD_BranchAssoMemLoad(uint32_t ulChipID)
{
    uint8_t *pucData = nullptr;
    uint32_t ulLen = 0;
    uint32_t ulReturn = Np_SectionGet(ulChipID, NP_MICRO_BRANCH_ASSO_MEM, 0, &pucData, &ulLen);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Qd_LCAM_RcamWrite(ulChipID, 1, ulLen, pucData);
    if (ulReturn != NP_OK) {
        NP_DRIVER_FAILED("Qd_LCAM_RcamWrite failed! ulReturn=0x%x\r\n", ulReturn);
        return NP_ERR_RCAM_WRITE;
    }
    return NP_OK;
}

uint32_t Np_Tarn_LOAD_MicroFileLoad(uint32_t ulChipID)
{
    for (const auto pfnLoad : {Np_Tarn_LOAD_InstrStoreLoad, Np_Tarn_LOAD_ConfigDataLoad,
                               Np_Tarn_LOAD_BranchRulesLoad, Np_Tarn_LOAD_BranchAssoMemLoad}) {
        const uint32_t ulReturn = pfnLoad(ulChipID);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    return NP_OK;
}

uint32_t Np_Tarn_Micro_Load(uint32_t ulChipID, const NpMicroLoad *pstLoad)
{
    if (pstLoad == nullptr || pstLoad->ulAddress == 0) {
        NP_TRACE(NP_M_ATOM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    const uint32_t ulAddress = pstLoad->ulAddress;
    const uint32_t ulLength = pstLoad->ulLength;
    auto *pucImage = static_cast<uint8_t *>(Os_ImageGet(ulAddress, ulLength, false));
    if (pucImage == nullptr) {
        NP_TRACE(NP_M_ATOM, NP_PRINT_ERROR, "param error! ulAddress=0x%08x\r\n", ulAddress);
        return NP_ERR_ADDRESS;
    }
    memset(&g_stNpMicroVersion[ulChipID], 0, sizeof(g_stNpMicroVersion[ulChipID]));
    if (ulLength >= NP_MICRO_TRAILER_SIZE) {
        Np_VersionTake(ulChipID, pucImage + (ulLength - NP_MICRO_TRAILER_SIZE));
    }
    Np_ImageSwap(pucImage, ulLength);
    uint32_t ulReturn = Np_Tarn_LOAD_AddrConfigSet(ulChipID, ulAddress, ulLength);
    if (ulReturn != NP_OK) {
        Os_Print("\n\r Np_Tarn_NpLoad AddrConfigSetfail ! ulReturn = 0x%x ", ulReturn);
    }
    else {
        ulReturn = Np_Tarn_LOAD_MicroFileLoad(ulChipID);
        if (ulReturn != NP_OK) {
            Os_Print("\n\r Np_Tarn_NpLoad load fail ! ulReturn = 0x%x ", ulReturn);
        }
    }
    Os_ImagePut(ulAddress);
    return ulReturn;
}

uint32_t Np_TarnC_LOAD_PbaFreeThCntSet(uint32_t ulChipID, uint32_t ulCount)
{
    const uint32_t ulValue = ulCount & NP_FREE_TH_CNT_MASK;
    for (const uint32_t ulReg : g_aulFreeThCntReg) {
        const uint32_t ulReturn = Np_Write(ulChipID, ulReg, &ulValue);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    return NP_OK;
}

uint32_t Np_Tarn_LOAD_PbaFreeThCntSet(uint32_t ulChipID, uint32_t ulCount)
{
    uint32_t ulValue = 0;
    const uint32_t ulReturn = Np_Read(ulChipID, NP_FREE_TH_CNT_OLD_REG, &ulValue);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulValue = (ulValue & 0xc0c0c0c0) | (ulCount & NP_FREE_TH_CNT_MASK) * 0x01010101;
    return Np_Write(ulChipID, NP_FREE_TH_CNT_OLD_REG, &ulValue);
}

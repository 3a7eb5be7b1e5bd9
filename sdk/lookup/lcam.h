// The local CAM (LCAM): a ternary match store with associated data (AD) beside each entry. Logical
// tables with offsets from 0 hide four blocks of eight TCAMs of 512 rows; keys and masks of callers
// become the chip's value pairs; the order of commands keeps live searches from half-written rules.
// Of two entries of a table that match, the one at the lower offset wins.
//
// Forms of key, mask and AD of a table with width code t: key and mask have 5 << t bytes, byte 0
// the lowest, of which the top nibble of the last byte is not stored; AD has Np_LcamAdBytes(t)
// bytes. A 1 in the mask is a bit that takes part in the match.
#pragma once

#include "ldsdk/types.h"
#include "platform/driver.h"
#include "sdk/frame/base/trace.h"

#include <cstdint>

// Logical tables. The numbers 9 and 10 are those of the two ACL rule tables, which share their
// rows; this family has none for them but with the option "acl". A number at or beyond
// g_aulNpLcamTableNum is refused everywhere.
enum NpLcamTable : uint32_t {
    NP_LCAM_IFT_KEY = 0,  // multi-service classification
    NP_LCAM_L2PA = 1,
    NP_LCAM_L3PA = 2,
    NP_LCAM_IPV6FILTER = 3,
    NP_LCAM_FLEE_BUCKET = 4,
    NP_LCAM_TPID = 5,
    NP_LCAM_LM_FLEE = 7,  // no entries in this family
    NP_LCAM_GMT = 8,
    NP_LCAM_TABLE_NUM = 9,
    NP_LCAM_ACL_RULE1 = 9,
    NP_LCAM_ACL_RULE2 = 10,
    NP_LCAM_ADDR_NUM = 11,
};

inline constexpr uint32_t NP_LCAM_TYPE_NUM = 4;
inline constexpr uint32_t NP_LCAM_BLOCK_NUM = 4;
inline constexpr uint32_t NP_LCAM_TCAM_NUM = 8;
inline constexpr uint32_t NP_LCAM_DEPTH_NUM = 512;
inline constexpr uint32_t NP_LCAM_KEY_MAX = 40;         // bytes of the widest key
inline constexpr uint32_t NP_LCAM_AD_MAX = 16;          // bytes of the widest AD
inline constexpr uint32_t NP_LCAM_WATCHDOG_STEP = 500;  // entries between two watchdog calls
inline constexpr uint32_t NP_LCAM_MIRROR_XOR = 2;       // a block's mirror: 0 and 2, 1 and 3

// A logical table: entry o lies at TCAM ulTcam + ((o / ulDepthNum) << ulType), row
// ulDepth + o % ulDepthNum.
struct NpLcamConfig {
    uint32_t ulType;  // width code: 40 (0), 80 (1), 160 (2), 320 (3) bits
    uint32_t ulBlock;
    uint32_t ulTcam;      // first TCAM
    uint32_t ulDepth;     // first row
    uint32_t ulDepthNum;  // rows used in each group of TCAMs
    uint32_t ulCid;       // CAM identifier
    uint32_t ulEntryNum;
};

// A stretch of a table that is scattered over several blocks.
struct NpLcamAddrBlock {
    uint32_t ulBlock;
    uint32_t ulTcam;
    uint32_t ulDepth;
    uint32_t ulDepthNum;
    uint32_t ulEntryNum;
};

// Where a table's stretches are. With ulBlockNum below 2 the plain fields of NpLcamConfig decide.
struct NpLcamAddrConfig {
    uint32_t ulBlockNum;
    const NpLcamAddrBlock *pstBlock;
};

// Where one entry stands: ulType, ulBlock, ulTcam, ulDepth, ulCid.
using NpLcamAccessInfo = QdLcamAccessInfo;

// The same without the width.
struct NpLcamTcamAttr {
    uint32_t ulBlock;
    uint32_t ulTcam;
    uint32_t ulDepth;
    uint32_t ulCid;
};

// How the commands of one width look on the wire. Two tables use the fields for the TCAM, two for
// the AD, where some have another role.
struct NpLcamCommand {
    uint32_t ulWidthClass;  // frame byte 8
    uint32_t ulSelectBase;  // TCAM select field: base + ulTcam / divisor
    uint32_t ulSelectDiv;
    uint32_t ulOpFirst;    // operation of the data command; AD: the one operation
    uint32_t ulOpSecond;   // operation of the mask command; AD: the width code
    uint32_t ulWidthCode;  // AD: the target
    uint32_t ulTarget;     // AD: the access class
    uint32_t ulAccess;     // access class; AD: the AD's width in bits
};

extern "C" {

extern const NpLcamConfig *g_stNpLcamConfig[NP_CHIP_NUM];
extern const NpLcamAddrBlock *g_astNpMultiServiceLcamAddrBlockConfig[NP_CHIP_NUM];
extern const NpLcamAddrConfig *g_pstNpLcamAddrConfig[NP_CHIP_NUM];
extern uint32_t g_aulNpLcamTableNum[NP_CHIP_NUM];
extern const NpLcamConfig g_stNpLcamConfig_TarnB[NP_LCAM_TABLE_NUM];
extern const NpLcamConfig g_stNpLcamConfig_TarnBAcl[NP_LCAM_ADDR_NUM];
extern const NpLcamAddrBlock g_astNpMultiServiceLcamAddrBlockConfig_TarnB[1];
extern const NpLcamAddrConfig g_pstNpLcamAddrConfig_TarnB[NP_LCAM_ADDR_NUM];

// Bits of a key by width code, with the CAM identifier shared (mode 1) or exclusive (mode 0).
extern const uint32_t g_aulShareKeyLen[NP_LCAM_TYPE_NUM];
extern const uint32_t g_aulEngrossKeyLen[NP_LCAM_TYPE_NUM];

extern const NpLcamCommand g_pastNpLcamTcamWrite[NP_LCAM_TYPE_NUM];
extern const NpLcamCommand g_pastNpLcamTcamClear[NP_LCAM_TYPE_NUM];
extern const NpLcamCommand g_pastNpLcamAdRead[NP_LCAM_TYPE_NUM];
extern const NpLcamCommand g_pastNpLcamAdWrite[NP_LCAM_TYPE_NUM];

// ---- tables -------------------------------------------------------------------------------------
//
// ulTableID: NpLcamTable, below g_aulNpLcamTableNum. ulOffset: below the table's ulEntryNum. Both
// are refused with NP_ERR_PARAM otherwise, the table first.

// Selects the shared layout of CAM identifiers. NP_ERR_CAM_ID_MODE when the driver refuses.
uint32_t Np_Tarn_LCAM_Init(uint32_t ulChipID);
// Does nothing: the chip holds all there is.
uint32_t Np_Tarn_LCAM_Destruct(uint32_t ulChipID);

// Writes a rule: key with mask, with or without AD; or the AD alone, pvKey and pvMask both null.
// The AD goes first; then the entry stops matching, and matches again once data and mask are both
// there. Mirrored tables are written in both blocks. NP_ERR_NULL_PTR for any other combination of
// nulls, NP_ERR_LCAM_AD_WRITE, NP_ERR_TCAM_WRITE. What fails half-way matches nothing, in the block
// where it failed, until it is written again.
uint32_t Np_Tarn_LCAM_TcamWrite(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                const void *pvKey, const void *pvMask, const void *pvAd);
// Reads an entry, valid or not, from the primary block. Any of the three may be null, not all
// (NP_ERR_NULL_PTR). Key bits under a 0 mask read as 0. NP_ERR_TCAM_READ, NP_ERR_LCAM_AD_READ; the
// outputs are then unchanged.
uint32_t Np_Tarn_LCAM_TcamRead(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                               void *pvKey, void *pvMask, void *pvAd);
// Makes an entry match nothing, valid bit 0, key and mask 0. The AD stays. NP_ERR_TCAM_CLEAR.
uint32_t Np_Tarn_LCAM_TcamDelete(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset);
// Deletes every entry of every table, in order, up to the first failure.
uint32_t Np_Tarn_LCAM_TcamDeleteAll(uint32_t ulChipID);

// The valid bit of an entry of the primary block: 1 takes part in matching. *pulEnable is 0 or 1;
// an ulEnable above 1 is NP_ERR_PARAM. NP_ERR_NULL_PTR, NP_ERR_TCAM_ENABLE_GET,
// NP_ERR_TCAM_ENABLE_SET.
uint32_t Np_Tarn_LCAM_TcamEnableGet(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                    uint32_t *pulEnable);
uint32_t Np_Tarn_LCAM_TcamEnableSet(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                    uint32_t ulEnable);

// Moves an entry: reads the source, writes the destination, deletes the source, so that the rule
// never goes missing. An entry that was not valid is not valid at the destination either. Source
// and destination equal: nothing happens. When the source cannot be deleted, it is written back and
// the destination deleted, if the chip still takes that. Codes of read, write and delete,
// NP_ERR_TCAM_ENABLE_GET, NP_ERR_TCAM_ENABLE_SET.
uint32_t Np_Tarn_LCAM_TcamMove(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulSrcOffsetID,
                               uint32_t ulDstOffsetID);
// Moves the entry at ulOffset by ulMoveStep offsets towards 0 (up) or away from it (down).
uint32_t Np_Tarn_LCAM_TcamMoveUp(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                 uint32_t ulMoveStep);
uint32_t Np_Tarn_LCAM_TcamMoveDown(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                   uint32_t ulMoveStep);
// Moves the ulBlockNum entries from ulOffset on in the same way, in the order that reads each one
// before it is overwritten. ulBlockNum 0 does nothing. Serves the watchdog.
uint32_t Np_Tarn_LCAM_TcamBlockMoveUp(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                      uint32_t ulBlockNum, uint32_t ulMoveStep);
uint32_t Np_Tarn_LCAM_TcamBlockMoveDown(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                        uint32_t ulBlockNum, uint32_t ulMoveStep);

// ---- entries ------------------------------------------------------------------------------------
//
// What the functions above are made of. X and Y are the chip's value pair, one bit of each per key
// bit: (0,0) matches anything, (1,0) a 1, (0,1) a 0. Access information that names no entry of the
// chip is refused with NP_ERR_PARAM.

// Where the entry stands. NP_ERR_PARAM for a bad table or offset.
uint32_t Np_Tarn_LCAM_AccessInfoBulid(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                      NpLcamAccessInfo *pstLcamAccessInfo);
// NP_ERR_PARAM when the record names no entry of the chip.
uint32_t Np_Tarn_LCAM_AccessInfoCheck(const NpLcamAccessInfo *pstLcamAccessInfo,
                                      NpWhere stWhere = Np_Here());
// Key and mask to X and Y and back, ulBytes bytes. In place (X over key, Y over mask) is fine.
void Np_Tarn_LCAM_UserToTcamValue(uint32_t ulBytes, const uint8_t *pucKey, const uint8_t *pucMask,
                                  uint8_t *pucX, uint8_t *pucY);
void Np_Tarn_LCAM_TcamToUserValue(uint32_t ulBytes, const uint8_t *pucX, const uint8_t *pucY,
                                  uint8_t *pucKey, uint8_t *pucMask);

// X and Y of an entry, 5 << ulType bytes each, from the primary block or to both copies.
// NP_ERR_CAM_MODE_READ, NP_ERR_TCAM_ENABLE_SET (the valid bit would not go down), NP_ERR_SMEM_OP
// for a response status other than 0, or the driver's code.
uint32_t Np_Tarn_LCAM_TcamRbaRead(uint32_t ulChipID, const NpLcamAccessInfo *pstLcamAccessInfo,
                                  uint8_t *pucX, uint8_t *pucY);
uint32_t Np_Tarn_LCAM_TcamRbaWrite(uint32_t ulChipID, const NpLcamAccessInfo *pstLcamAccessInfo,
                                   const uint8_t *pucX, const uint8_t *pucY);
uint32_t Np_Tarn_LCAM_TcamRbaClear(uint32_t ulChipID, const NpLcamAccessInfo *pstLcamAccessInfo);
uint32_t Np_Tarn_LCAM_AdRbaRead(uint32_t ulChipID, const NpLcamAccessInfo *pstLcamAccessInfo,
                                void *pvAd);
uint32_t Np_Tarn_LCAM_AdRbaWrite(uint32_t ulChipID, const NpLcamAccessInfo *pstLcamAccessInfo,
                                 const void *pvAd);
// One valid bit command, to the block that the record names. ulVbit: 0 or 1.
uint32_t Np_Tarn_LCAM_WriteTcamVbit(uint32_t ulChipID, const NpLcamAccessInfo *pstLcamAccessInfo,
                                    uint32_t ulVbit);

// ---- commands -----------------------------------------------------------------------------------
//
// One block, no checks: the callers above have made them. NP_ERR_SMEM_OP or the driver's code.

uint32_t Np_Tarn_LCAM_ReadAd(uint32_t ulChipID, uint32_t ulType,
                             const NpLcamTcamAttr *pstLcamTcamAttr, void *pvAd);
uint32_t Np_Tarn_LCAM_WriteAd(uint32_t ulChipID, uint32_t ulType,
                              const NpLcamTcamAttr *pstLcamTcamAttr, const void *pvAd);
// X and Y as they stand in the chip, with the room of the CAM identifier: 5, 10, 20 and 40 bytes.
// The two wide forms read pairs of TCAMs; the lowest pair holds the first bytes.
uint32_t Np_Tarn_LCAM_ReadTcam40(uint32_t ulChipID, const NpLcamTcamAttr *pstLcamTcamAttr,
                                 uint8_t *pucX, uint8_t *pucY);
uint32_t Np_Tarn_LCAM_ReadTcam80(uint32_t ulChipID, const NpLcamTcamAttr *pstLcamTcamAttr,
                                 uint8_t *pucX, uint8_t *pucY);
uint32_t Np_Tarn_LCAM_ReadTcam160(uint32_t ulChipID, const NpLcamTcamAttr *pstLcamTcamAttr,
                                  uint8_t *pucX, uint8_t *pucY);
uint32_t Np_Tarn_LCAM_ReadTcam320(uint32_t ulChipID, const NpLcamTcamAttr *pstLcamTcamAttr,
                                  uint8_t *pucX, uint8_t *pucY);
// Takes the valid bit down, then writes X and Y.
uint32_t Np_Tarn_LCAM_WriteTcam(uint32_t ulChipID, const NpLcamAccessInfo *pstLcamAccessInfo,
                                uint32_t ulCamMode, const uint8_t *pucX, const uint8_t *pucY);
// The data command with X, then the mask command with Y. Driver failures go to the recorder.
uint32_t Np_Tarn_LCAM_WriteTcamOriginal(uint32_t ulChipID, uint32_t ulType, uint32_t ulCamMode,
                                        const NpLcamTcamAttr *pstLcamTcamAttr, const uint8_t *pucX,
                                        const uint8_t *pucY);

// The two clear commands, data first.
uint32_t Np_Tarn_LCAM_ClearTcam(uint32_t ulChipID, uint32_t ulType,
                                const NpLcamTcamAttr *pstLcamTcamAttr);

// Lays a value of ulBitsLength bits into the payload of a frame: a key of 36, 76, 156 or 316 bits
// four bits up, whole bytes as they are; the last 16 bytes in group 0 in order, earlier bytes in
// the next groups, right-aligned. NP_ERR_PARAM when it doesn't fit; the frame is then unchanged.
uint32_t Np_Tarn_LCAM_BuildReqData(uint32_t ulBitsLength, const void *pvData,
                                   NpRbaReqCmd *pstRbaReqCmd);

}  // extern "C"

inline NpLcamTcamAttr Np_LcamTcamAttr(const NpLcamAccessInfo *pstLcamAccessInfo)
{
    return {pstLcamAccessInfo->ulBlock, pstLcamAccessInfo->ulTcam, pstLcamAccessInfo->ulDepth,
            pstLcamAccessInfo->ulCid};
}

// Bytes of a key and of a mask, and of an AD, by width code.
constexpr uint32_t Np_LcamKeyBytes(uint32_t ulType)
{
    return 5u << ulType;
}

constexpr uint32_t Np_LcamAdBytes(uint32_t ulType)
{
    return ulType == 0 ? 4 : (ulType == 1 ? 8 : 16);
}

// Search memory: request and response frames over the register bus access path, the plain
// accesses, and the atomic and hash commands that the engines build on.
#pragma once

#include "ldsdk/types.h"

#include <cstdint>

// Access lengths. A value shorter than the data block is right-aligned in it.
enum NpSmemLength : uint32_t {
    NP_SMEM_LEN_16 = 0,
    NP_SMEM_LEN_32 = 1,
    NP_SMEM_LEN_64 = 2,
    NP_SMEM_LEN_128 = 3,
    NP_SMEM_LEN_NUM = 4,
};

inline constexpr uint32_t NP_SMEM_ADDR_MASK = 0x3ffffff;  // 26 bits of 16-bit units
inline constexpr uint32_t NP_SMEM_BLOCK_SIZE = 16;        // data block of a frame
inline constexpr uint32_t NP_SMEM_HASH_MAX = 48;          // bytes of a hash command's payload
inline constexpr uint32_t NP_SMEM_BUILD_SENDS = 8;        // sends while the semaphore is taken
inline constexpr uint32_t NP_SMEM_INIT_WORDS = 4;

// Status words of the hash commands.
inline constexpr uint32_t NP_SMEM_STATUS_OK = 0;         // found, or an existing item rewritten
inline constexpr uint32_t NP_SMEM_STATUS_MISS = 1;       // search: no such key
inline constexpr uint32_t NP_SMEM_STATUS_BUILT = 4;      // build: a new item was built
inline constexpr uint32_t NP_SMEM_STATUS_SEMAPHORE = 5;  // build: semaphore taken
inline constexpr uint32_t NP_SMEM_STATUS_COLLISION = 6;  // build: neither place had room

// Fields of a plain command.
struct NpSmemReq {
    uint32_t ulLength;   // NpSmemLength
    uint32_t ulOffAddr;  // in 16-bit units; bits above 26 are lost
};

// Fields of an add command.
struct NpSmemAddReq {
    uint32_t ulOffAddr;
    uint32_t ulAddWidth;  // 3 bits
    uint32_t ulOption1;   // flag
    uint32_t ulOption2;   // flag
    uint32_t ulSub;       // 0 adds, 1 subtracts
};

// Fields of a hash command.
struct NpSmemHashReq {
    uint32_t ulKeyLen;      // bytes of the key
    uint32_t ulPayloadLen;  // bytes sent, at most NP_SMEM_HASH_MAX
    uint32_t ulTID;         // the table's number at the hash engine
    uint32_t ulUpdateFlag;
    uint32_t ulBuildField;
};

// What a command answered.
struct NpSmemRsp {
    uint32_t ulStatus;
    uint8_t aucData[NP_SMEM_BLOCK_SIZE];
};

extern "C" {

extern uint8_t *g_aulDdrAddr[NP_CHIP_NUM];                 // DDR block, null when there is none
extern const uint32_t *g_aulNpSmemCopAddr[NP_CHIP_NUM];    // per SMEM, target of its requests
extern const uint32_t *g_aulNpSmemInitParam[NP_CHIP_NUM];  // per SMEM, four words
extern const uint32_t g_aulNpSmemCopAddr_TarnB[1];
extern const uint32_t g_aulNpSmemInitParam_TarnB[NP_SMEM_INIT_WORDS];

// Memory range, queues and DDR block. A failure undoes nothing; Np_Tarn_SmemDestruct does.
uint32_t Np_Tarn_SmemInit(uint32_t ulChipID);
uint32_t Np_Tarn_SmemDestruct(uint32_t ulChipID);

// Plain accesses. NP_ERR_PARAM for a bad unit or length, NP_ERR_SMEM_OP for a status other than 0,
// or the driver's code. Results: lengths 0 and 1 one word, 2 two words, 3 four, in block order.
uint32_t Np_Tarn_SmemRead(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulLength,
                          uint32_t ulOffAddr, uint32_t *pulRetArray);
uint32_t Np_Tarn_SmemReadClear(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulLength,
                               uint32_t ulOffAddr, uint32_t *pulRetArray);
// pucData holds exactly the length's bytes.
uint32_t Np_Tarn_SmemWrite(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulLength,
                           uint32_t ulOffAddr, const uint8_t *pucData);
uint32_t Np_Tarn_SmemClear(uint32_t ulChipID, uint32_t ulSmemID, uint32_t ulLength,
                           uint32_t ulOffAddr);

// One command each: builds the frame, sends it, copies the answer. They return what the driver
// returned; the status is in pstRsp.
uint32_t Np_Tarn_SMEM_ReqRead(uint32_t ulChipID, uint32_t ulSmemID, const NpSmemReq *pstReq,
                              NpSmemRsp *pstRsp);
uint32_t Np_Tarn_SMEM_ReqReadClear(uint32_t ulChipID, uint32_t ulSmemID, const NpSmemReq *pstReq,
                                   NpSmemRsp *pstRsp);
// pucBlock is the 16-byte data block.
uint32_t Np_Tarn_SMEM_ReqWrite(uint32_t ulChipID, uint32_t ulSmemID, const NpSmemReq *pstReq,
                               const uint8_t *pucBlock, NpSmemRsp *pstRsp);
// Adds or subtracts the low 16 bits of ulValue, bounded by ulLimit.
uint32_t Np_Tarn_SMEM_ReqAdd(uint32_t ulChipID, uint32_t ulSmemID, const NpSmemAddReq *pstReq,
                             uint32_t ulLimit, uint32_t ulValue, NpSmemRsp *pstRsp);
// Byte 15 of the block: bit 7 the new value, bits 3..0 the bit. Status 0 and 1 are successes; a
// higher one gives NP_ERR_SMEM_OP.
uint32_t Np_Tarn_SMEM_ReqSetBit(uint32_t ulChipID, uint32_t ulSmemID, const NpSmemReq *pstReq,
                                const uint8_t *pucBlock, NpSmemRsp *pstRsp);
// Hash commands: pucPayload is the key, or the whole item for the two update forms. A payload over
// NP_SMEM_HASH_MAX is refused with NP_ERR_PARAM before anything is sent.
uint32_t Np_Tarn_SMEM_ReqEmlSearch(uint32_t ulChipID, uint32_t ulSmemID,
                                   const NpSmemHashReq *pstReq, const uint8_t *pucPayload,
                                   NpSmemRsp *pstRsp);
uint32_t Np_Tarn_SMEM_ReqEmlSearchUpdata(uint32_t ulChipID, uint32_t ulSmemID,
                                         const NpSmemHashReq *pstReq, const uint8_t *pucPayload,
                                         uint32_t ulCode, NpSmemRsp *pstRsp);
uint32_t Np_Tarn_SMEM_ReqEmlSearchBuild(uint32_t ulChipID, uint32_t ulSmemID,
                                        const NpSmemHashReq *pstReq, const uint8_t *pucPayload,
                                        NpSmemRsp *pstRsp);
// Repeats while the semaphore is taken, NP_SMEM_BUILD_SENDS sends in all.
uint32_t Np_Tarn_SMEM_ReqEmlSearchUpdataBuild(uint32_t ulChipID, uint32_t ulSmemID,
                                              const NpSmemHashReq *pstReq,
                                              const uint8_t *pucPayload, uint32_t ulCode,
                                              NpSmemRsp *pstRsp);

}  // extern "C"
